// Vectors without a direction in every direction test, with FE_INVALID and FE_DIVBYZERO trapping if the
// platform supports that: a predicate that returns 0 must not stop a client that traps them. The oracle, with
// --traps, calls every other operation in the same way.

#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cfenv>

namespace {

constexpr int watched = FE_INVALID | FE_DIVBYZERO;

class Exceptions : public testing::Test {
protected:
    void SetUp() override
    {
        std::feclearexcept(FE_ALL_EXCEPT);
#if defined(__GLIBC__)
        feenableexcept(watched);
#endif
    }
    void TearDown() override
    {
        int const raised = std::fetestexcept(watched);
#if defined(__GLIBC__)
        fedisableexcept(watched);
#endif
        std::feclearexcept(FE_ALL_EXCEPT);
        EXPECT_EQ(raised & FE_INVALID, 0);
        EXPECT_EQ(raised & FE_DIVBYZERO, 0);
    }
};

template <class Vector>
void ExpectNoDirection(Vector const& zero, Vector const& other)
{
    for (int swapped = 0; swapped < 3; ++swapped) { // the third pair is the null vector with itself
        Vector const& left = swapped == 1 ? other : zero;
        Vector const& right = swapped == 0 ? other : zero;
        EXPECT_EQ(left.IsParallelTo(right), 0);
        EXPECT_EQ(left.IsCodirectionalTo(right), 0);
        EXPECT_EQ(left.IsPerpendicularTo(right), 0);
        EXPECT_EQ(left.IsParallelTo(right, 1, 0), 0);
        EXPECT_EQ(left.IsPerpendicularTo(right, 1, 0), 0);
        EXPECT_EQ(left.IsEqualTo(right), swapped == 2);
        EXPECT_EQ(left.GetAngleWith(right), 0);
        EXPECT_EQ(left.GetAreaFormedByTriangleWith(right), 0);
    }
}

TEST_F(Exceptions, NullVectorsInTheTestsOfDirection)
{
    ExpectNoDirection(Vec3Dbl(0.0), Vec3Dbl(1, 2, 3));
    ExpectNoDirection(Vec3Flt(0.0f), Vec3Flt(1, 2, 3));
    ExpectNoDirection(Vec2Dbl(0.0), Vec2Dbl(1, 2));
    ExpectNoDirection(Vec2Flt(0.0f), Vec2Flt(1, 2));
    ExpectNoDirection(VecDbl(5, 0.0), VecDbl(5, 2.0));
    ExpectNoDirection(VecFlt(5, 0.0f), VecFlt(5, 2.0f));
}

TEST_F(Exceptions, NullVectorsInALoopThatVectorises)
{
    Vec3Dbl left[64];
    Vec3Dbl right[64];
    int parallel[64];
    for (int i = 0; i < 64; ++i) {
        left[i] = Vec3Dbl(i % 3, 0.0, 0.0);
        right[i] = Vec3Dbl(i % 2, 0.0, 0.0);
    }
    for (int i = 0; i < 64; ++i)
        parallel[i] = left[i].IsParallelTo(right[i]);
    for (int i = 0; i < 64; ++i)
        EXPECT_EQ(parallel[i], i % 3 != 0 && i % 2 != 0);
}

TEST_F(Exceptions, NullVectorsInAnglesAndProjections)
{
    Vec3Dbl const zero(0.0);
    Vec3Dbl const up(0, 0, 1);
    EXPECT_EQ(zero.GetCCWAngleWith(up, up), 0.0);
    EXPECT_EQ(up.GetCCWAngleWith(zero, up), 0.0);
    EXPECT_EQ(Vec2Dbl(0.0).GetCCWAngleWith(Vec2Dbl(1, 0)), 0.0);
    EXPECT_EQ(zero.GetProjectionOnTo(up), zero);
    EXPECT_EQ(zero.Length(), 0.0);
    EXPECT_EQ(zero.GetPerpendicular(), Vec3Dbl(1, 0, 0));
    EXPECT_EQ(Pnt3Dbl(1, 2, 3).DistanceTo(Pnt3Dbl(1, 2, 3)), 0.0);
    EXPECT_EQ(VecDbl(4, 0.0).GetProjectionOnTo(VecDbl(4, 1.0)), VecDbl(4, 0.0));
}

} // namespace
