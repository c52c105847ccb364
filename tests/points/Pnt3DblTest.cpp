#include <vexor/points/Pnt3Dbl.h>

#include <vexor/points/Pnt3Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

// ---- Construction ----------------------------------------------------------------------------------

TEST(Pnt3Dbl, ConstructorsFromOtherClasses)
{
    ExpectBits(Pnt3Dbl(Vec3Dbl(0.1, -0.0, 3.0)), 0.1, -0.0, 3.0);
    ExpectBits(Pnt3Dbl(Pnt3Flt(0.1f, -0.0f, 0x1p-149f)), 0x1.99999ap-4, -0.0, 0x1p-149);
    ExpectBits(Pnt3Dbl(Vec3Flt(0.1f, nanFlt, -infinityFlt)), 0x1.99999ap-4, nan, -infinity);
    Pnt3Dbl const implicitOne = Vec3Dbl(1.0, 2.0, 3.0); // no constructor is explicit
    ExpectBits(implicitOne, 1.0, 2.0, 3.0);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Pnt3Dbl, Assignment)
{
    Pnt3Dbl p(9.0);
    EXPECT_EQ(&(p = Pnt3Dbl(1.0, -0.0, nan)), &p);
    ExpectBits(p, 1.0, -0.0, nan);
    Pnt3Dbl& same = p;
    p = same;
    ExpectBits(p, 1.0, -0.0, nan);
    EXPECT_EQ(&(p = Vec3Dbl(0.1, 2.0, -0.0)), &p);
    ExpectBits(p, 0.1, 2.0, -0.0);
    EXPECT_EQ(&(p = Pnt3Flt(0.1f, -0.0f, 3.0f)), &p);
    ExpectBits(p, 0x1.99999ap-4, -0.0, 3.0);
    EXPECT_EQ(&(p = Vec3Flt(4.0f, 0.1f, -0.0f)), &p);
    ExpectBits(p, 4.0, 0x1.99999ap-4, -0.0);
}

TEST(Pnt3Dbl, Vector)
{
    Pnt3Dbl const p(0.1, -0.0, nan);
    static_assert(std::is_same_v<decltype(p.Vector()), Vec3Dbl>, "");
    ExpectBits(p.Vector(), 0.1, -0.0, nan);
}

TEST(Pnt3Dbl, ToPnt3FltRoundsToNearest)
{
    // Ties round to the even single; half a unit beyond the largest single lies infinity.
    ExpectBits(Pnt3Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24, 1.0 + 0x1p-24 + 0x1p-52).ToPnt3Flt(), 1.0f,
               1.0f + 0x1p-22f, 1.0f + 0x1p-23f);
    ExpectBits(Pnt3Dbl(1e300, -1e-300, nan).ToPnt3Flt(), infinityFlt, -0.0f, nanFlt);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Pnt3Dbl, Add)
{
    Pnt3Dbl const p(1.0, -0.0, 1.0);
    static_assert(std::is_same_v<decltype(p + p), Pnt3Dbl>, "");
    static_assert(std::is_same_v<decltype(p + Vec3Dbl()), Pnt3Dbl>, "");
    ExpectBits(p + Pnt3Dbl(2.0, -0.0, 0x1p-53), 3.0, -0.0, 1.0);
    ExpectBits(p + Vec3Dbl(2.0, 0.0, 0x1p-52), 3.0, 0.0, 1.0 + 0x1p-52);
    ExpectBits((p + Pnt3Dbl(3.0, 4.0, 5.0)) / 2, 2.0, 2.0, 3.0); // the midpoint
}

TEST(Pnt3Dbl, Subtract)
{
    Pnt3Dbl const p(1.0, -0.0, 1.0);
    static_assert(std::is_same_v<decltype(p - p), Vec3Dbl>, "");
    static_assert(std::is_same_v<decltype(p - Vec3Dbl()), Pnt3Dbl>, "");
    ExpectBits(p - Pnt3Dbl(2.0, 0.0, 1.0), -1.0, -0.0, 0.0);
    ExpectBits(p - Vec3Dbl(3.0, 0.0, 0.5), -2.0, -0.0, 0.5);
}

TEST(Pnt3Dbl, AddAssign)
{
    Pnt3Dbl p(1.0, 2.0, -0.0);
    EXPECT_EQ(&(p += Pnt3Dbl(10.0, -2.0, -0.0)), &p);
    ExpectBits(p, 11.0, 0.0, -0.0);
    EXPECT_EQ(&(p += Vec3Dbl(1.0, 2.0, 3.0)), &p);
    ExpectBits(p, 12.0, 2.0, 3.0);
    Pnt3Dbl const& same = p;
    p += same;
    ExpectBits(p, 24.0, 4.0, 6.0);
}

// The difference of two points is a vector, so no operator-= takes a point.
TEST(Pnt3Dbl, SubtractAssign)
{
    static_assert(subtractAssigns<Pnt3Dbl, Vec3Dbl> && !subtractAssigns<Pnt3Dbl, Pnt3Dbl>, "");
    Pnt3Dbl p(1.0, 2.0, -0.0);
    EXPECT_EQ(&(p -= Vec3Dbl(10.0, 2.0, 0.0)), &p);
    ExpectBits(p, -9.0, 0.0, -0.0);
}

// ---- Distance --------------------------------------------------------------------------------------

// By exact arithmetic with a rounding at each step: with these operands the other orders of the three
// squares, and fused multiply-adds, give the next double below.
TEST(Pnt3Dbl, DistanceSqTo)
{
    Pnt3Dbl const p(0x1.5b5de2bd061dfp+5, -0x1.63acb8388d871p+5, -0x1.1bdc97e46c8cp+3);
    Pnt3Dbl const q(-0x1.cd2092c070ffdp-4, -0x1.b850033c27ac6p-1, 0x1.8e835d1026588p-1);
    EXPECT_SAME_BITS(p.DistanceSqTo(q), 0x1.e6254eeccc6e8p+11);
    EXPECT_SAME_BITS(q.DistanceSqTo(p), 0x1.e6254eeccc6e8p+11);
    EXPECT_SAME_BITS(Pnt3Dbl(1.0, 2.0, 3.0).DistanceSqTo(Pnt3Dbl(3.0, 5.0, 9.0)), 49.0);
    EXPECT_SAME_BITS(Pnt3Dbl(-0.0).DistanceSqTo(Pnt3Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Pnt3Dbl(1.0, 2.0, 3.0).DistanceSqTo(Pnt3Dbl(3.0, nan, 9.0)), nan);
    EXPECT_SAME_BITS(Pnt3Dbl(infinity).DistanceSqTo(Pnt3Dbl(infinity)), nan);
}

TEST(Pnt3Dbl, DistanceTo)
{
    Pnt3Dbl const p(0x1.5b5de2bd061dfp+5, -0x1.63acb8388d871p+5, -0x1.1bdc97e46c8cp+3);
    Pnt3Dbl const q(-0x1.cd2092c070ffdp-4, -0x1.b850033c27ac6p-1, 0x1.8e835d1026588p-1);
    EXPECT_SAME_BITS(p.DistanceTo(q), 0x1.f2e7c9819ff41p+5);
    EXPECT_SAME_BITS(Pnt3Dbl(1.0, 2.0, 3.0).DistanceTo(Pnt3Dbl(3.0, 5.0, 9.0)), 7.0);
    // Correct over the whole range of a double, although the squares overflow and underflow.
    EXPECT_SAME_BITS(Pnt3Dbl(0x3p+600, 0x4p+600, 0.0).DistanceTo(Pnt3Dbl(0.0)), 0x5p+600);
    EXPECT_SAME_BITS(Pnt3Dbl(0x3p-600, 0x4p-600, 0.0).DistanceTo(Pnt3Dbl(0.0)), 0x5p-600);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Pnt3Dbl, LessIsLexicographic)
{
    static_assert(std::is_same_v<decltype(Pnt3Dbl() < Pnt3Dbl()), bool>, "");
    EXPECT_TRUE(Pnt3Dbl(1.0, 5.0, 0.0) < Pnt3Dbl(2.0, 0.0, 0.0));
    EXPECT_FALSE(Pnt3Dbl(2.0, 0.0, 0.0) < Pnt3Dbl(1.0, 5.0, 0.0));
    EXPECT_TRUE(Pnt3Dbl(1.0, 2.0, 9.0) < Pnt3Dbl(1.0, 3.0, 0.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 3.0, 0.0) < Pnt3Dbl(1.0, 2.0, 9.0));
    EXPECT_TRUE(Pnt3Dbl(1.0, 2.0, 3.0) < Pnt3Dbl(1.0, 2.0, 4.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 2.0, 4.0) < Pnt3Dbl(1.0, 2.0, 3.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 2.0, 3.0) < Pnt3Dbl(1.0, 2.0, 3.0));
    EXPECT_TRUE(Pnt3Dbl(0.0, -0.0, 1.0) < Pnt3Dbl(-0.0, 0.0, 2.0));
    // A NaN in the first unequal coordinate gives false, in both directions.
    EXPECT_FALSE(Pnt3Dbl(nan, 1.0, 1.0) < Pnt3Dbl(1.0, 2.0, 2.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 1.0, 1.0) < Pnt3Dbl(1.0, nan, 2.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 1.0, nan) < Pnt3Dbl(1.0, 1.0, 2.0));
    EXPECT_TRUE(Pnt3Dbl(1.0, nan, nan) < Pnt3Dbl(2.0, nan, nan));
}

TEST(Pnt3Dbl, IsEqualToTakesAPlainLength)
{
    Pnt3Dbl const p(1.0, 2.0, 3.0);
    Pnt3Dbl const q(3.0, 5.0, 9.0); // at the distance 7
    EXPECT_EQ(p.IsEqualTo(q, 7.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, Below(7.0)), 0);
    EXPECT_EQ(q.IsEqualTo(p, 7.0), 1);
    EXPECT_EQ(p.IsEqualTo(p, 0.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, nan), 0);
    EXPECT_EQ(p.IsEqualTo(p, nan), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(nan), infinity), 0);
    // The distance decides, not each coordinate alone.
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(0.9, 0.9, 0.0), 1.0), 0);
    // 1e-4 is a length of 1e-4 here; for a vector's predicate it would be one of 1e-2.
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(0.99e-4, 0.0, 0.0), 1e-4), 1);
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(1.01e-4, 0.0, 0.0), 1e-4), 0);
}

TEST(Pnt3Dbl, IsEqualToWithTheGlobal)
{
    Pnt3Dbl const p(0.0);
    Pnt3Dbl const q(1e-5, 0.0, 0.0);
    EXPECT_EQ(p.IsEqualTo(q), 0); // the global's single is slightly below 1e-10
    EXPECT_EQ(p.IsEqualTo(q, -1.0), 0);
    EXPECT_EQ(p.IsEqualTo(q, -1e-300), 0);
    EXPECT_EQ(p.IsEqualTo(q, 1e-5), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(9.9e-6, 0.0, 0.0)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1e-300, 0.0, 0.0), -0.0), 1); // −0 is not negative: its square is 0,
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1e-6, 0.0, 0.0), -0.0), 0);   // and so is that of 1e-300
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(3.0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1.0, 2.0, 2.0)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1.0, 2.0, Above(2.0))), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1.0, 2.0, 2.0), 2.9), 0);
}

// ---- Members of Vec3Dbl that name Pnt3Dbl --------------------------------------------------------------

TEST(Pnt3Dbl, AssignmentToVec3Dbl)
{
    Vec3Dbl v(9.0);
    EXPECT_EQ(&(v = Pnt3Dbl(0.1, -0.0, nan)), &v);
    ExpectBits(v, 0.1, -0.0, nan);
}

} // namespace
