#include <vexor/extras/format.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

namespace {

#if defined(FMT_VERSION)

TEST(Format, WithoutAFormatTheShortestDigits)
{
    EXPECT_EQ(fmt::format("{}", Vec3Dbl(1, 2, 0.1)), "(1, 2, 0.1)");
    EXPECT_EQ(fmt::format("{}", Vec2Int(-3, 4)), "(-3, 4)");
    EXPECT_EQ(fmt::format("{}", Pnt2Flt(0.1f, 2)), "(0.1, 2)");
    EXPECT_EQ(fmt::format("{}", VecDbl(2, 0.5)), "(0.5, 0.5)");
    EXPECT_EQ(fmt::format("{}", Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4))), "((1, 2), (3, 4))");
    EXPECT_EQ(fmt::format("{}", AffMat3Dbl()), "((1, 0, 0), (0, 1, 0), (0, 0, 1)) + (0, 0, 0)");
    EXPECT_EQ(fmt::format("{}", Quaternion()), "(0, 0, 0; 1)");
    EXPECT_EQ(fmt::format("{} and {}", UInt64(-5), Vec2Dbl(1, 2)), "-5 and (1, 2)");
}

TEST(Format, TheFormatOfOneNumberAppliesToEach)
{
    EXPECT_EQ(fmt::format("{:.3f}", Vec3Dbl(1, -2, 0.12345)), "(1.000, -2.000, 0.123)");
    EXPECT_EQ(fmt::format("{:a}", Vec2Dbl(1, 0.5)), "(0x1p+0, 0x1p-1)");
    EXPECT_EQ(fmt::format("{:>6.1f}", Mat2Dbl(1.25)), "((   1.2,    1.2), (   1.2,    1.2))");
    EXPECT_EQ(fmt::format("{:+d}", Vec2Int(1, -2)), "(+1, -2)");
}

#else
TEST(Format, NeedsFmt)
{
    GTEST_SKIP() << "{fmt} is not installed (Debian: libfmt-dev)";
}
#endif

} // namespace
