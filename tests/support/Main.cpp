#include <gtest/gtest.h>

#include <cstdio>

// Prints a closing line after everything else has passed; the runner demands it.
int main(int argumentCount, char** arguments)
{
    testing::InitGoogleTest(&argumentCount, arguments);
    int const status = RUN_ALL_TESTS();
    if (status == 0 && testing::UnitTest::GetInstance()->test_to_run_count() > 0)
        std::puts("vexor tests completed");
    return status;
}
