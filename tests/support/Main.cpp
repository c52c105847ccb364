#include <gtest/gtest.h>

#include <cstdio>

// Prints a closing line after all tests have passed, if at least one test has run; the runner requires it.
int main(int argumentCount, char** arguments)
{
    testing::InitGoogleTest(&argumentCount, arguments);
    int const status = RUN_ALL_TESTS();
    if (status == 0 && testing::UnitTest::GetInstance()->successful_test_count() > 0)
        std::puts("vexor tests completed");
    return status;
}
