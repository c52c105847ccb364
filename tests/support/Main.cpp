#include <gtest/gtest.h>

#include <cstdio>

// Prints a closing line after everything else has passed, if at least one test has run; the runner demands it.
int main(int argumentCount, char** arguments)
{
    testing::InitGoogleTest(&argumentCount, arguments);
    int const status = RUN_ALL_TESTS();
    if (status == 0 && testing::UnitTest::GetInstance()->successful_test_count() > 0)
        std::puts("vexor tests completed");
    return status;
}
