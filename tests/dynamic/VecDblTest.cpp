#include <support/Bits.h>

#include <vexor/dynamic/VecDbl.h>

TEST(VecDbl, DefaultConstructor)
{
    EXPECT_EQ(VecDbl().Size(), 1);
}

TEST(Vec3Dbl, FromVecDbl)
{
    VecDbl five(5, 1.5);
    five[2] = 7.0;
    EXPECT_EQ(Vec3Dbl(five), Vec3Dbl(1.5, 1.5, 7.0));
    EXPECT_EQ(Vec3Dbl(VecDbl(2, 4.0)), Vec3Dbl(4.0, 4.0, 0.0));
    EXPECT_EQ(Vec3Dbl(VecDbl(1, 4.0)), Vec3Dbl(4.0, 0.0, 0.0));
}
