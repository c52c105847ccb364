#include <vexor/points/Pnt2Dbl.h>

#include <vexor/points/Pnt2Flt.h>
#include <vexor/points/Pnt3Dbl.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

// ---- Construction ----------------------------------------------------------------------------------

TEST(Pnt2Dbl, ConstructorsFromOtherClasses)
{
    ExpectBits(Pnt2Dbl(Vec2Dbl(0.1, -0.0)), 0.1, -0.0);
    ExpectBits(Pnt2Dbl(Pnt2Flt(0.1f, 0x1p-149f)), 0x1.99999ap-4, 0x1p-149);
    ExpectBits(Pnt2Dbl(Vec2Flt(0.1f, nanFlt)), 0x1.99999ap-4, nan);
    Pnt2Dbl const implicitOne = Vec2Dbl(1.0, 2.0); // no constructor is explicit
    ExpectBits(implicitOne, 1.0, 2.0);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Pnt2Dbl, Assignment)
{
    Pnt2Dbl p(9.0);
    EXPECT_EQ(&(p = Pnt2Dbl(-0.0, nan)), &p);
    ExpectBits(p, -0.0, nan);
    EXPECT_EQ(&(p = Vec2Dbl(0.1, 2.0)), &p);
    ExpectBits(p, 0.1, 2.0);
    EXPECT_EQ(&(p = Pnt2Flt(0.1f, -0.0f)), &p);
    ExpectBits(p, 0x1.99999ap-4, -0.0);
    EXPECT_EQ(&(p = Vec2Flt(4.0f, 0.1f)), &p);
    ExpectBits(p, 4.0, 0x1.99999ap-4);
    Pnt2Dbl& same = p;
    p = same;
    ExpectBits(p, 4.0, 0x1.99999ap-4);
}

TEST(Pnt2Dbl, Vector)
{
    Pnt2Dbl const p(0.1, -0.0);
    static_assert(std::is_same_v<decltype(p.Vector()), Vec2Dbl>, "");
    ExpectBits(p.Vector(), 0.1, -0.0);
}

TEST(Pnt2Dbl, ToPnt2FltRoundsToNearest)
{
    Pnt2Flt const a = Pnt2Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24).ToPnt2Flt(); // a tie rounds to even
    EXPECT_SAME_BITS(a.x, 1.0f);
    EXPECT_SAME_BITS(a.y, 1.0f + 0x1p-22f);
    Pnt2Flt const b = Pnt2Dbl(1.0 + 0x1p-24 + 0x1p-52, -1e300).ToPnt2Flt();
    EXPECT_SAME_BITS(b.x, 1.0f + 0x1p-23f);
    EXPECT_SAME_BITS(b.y, -infinityFlt);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Pnt2Dbl, Add)
{
    Pnt2Dbl const p(-0.0, 1.0);
    static_assert(std::is_same_v<decltype(p + p), Pnt2Dbl>, "");
    static_assert(std::is_same_v<decltype(p + Vec2Dbl()), Pnt2Dbl>, "");
    ExpectBits(p + Pnt2Dbl(-0.0, 0x1p-53), -0.0, 1.0);
    ExpectBits(p + Vec2Dbl(3.0, 0x1p-52), 3.0, 1.0 + 0x1p-52);
    ExpectBits((p + Pnt2Dbl(3.0, 5.0)) / 2, 1.5, 3.0); // the midpoint
}

TEST(Pnt2Dbl, Subtract)
{
    Pnt2Dbl const p(-0.0, 1.0);
    static_assert(std::is_same_v<decltype(p - p), Vec2Dbl>, "");
    static_assert(std::is_same_v<decltype(p - Vec2Dbl()), Pnt2Dbl>, "");
    ExpectBits(p - Pnt2Dbl(0.0, 3.0), -0.0, -2.0);
    ExpectBits(p - Vec2Dbl(0.0, 1.0), -0.0, 0.0);
}

TEST(Pnt2Dbl, AddAssign)
{
    Pnt2Dbl p(1.0, -0.0);
    EXPECT_EQ(&(p += Pnt2Dbl(10.0, -0.0)), &p);
    ExpectBits(p, 11.0, -0.0);
    EXPECT_EQ(&(p += Vec2Dbl(1.0, 2.0)), &p);
    ExpectBits(p, 12.0, 2.0);
    Pnt2Dbl const& same = p;
    p += same;
    ExpectBits(p, 24.0, 4.0);
}

TEST(Pnt2Dbl, SubtractAssign)
{
    static_assert(subtractAssigns<Pnt2Dbl, Vec2Dbl> && !subtractAssigns<Pnt2Dbl, Pnt2Dbl>, "");
    Pnt2Dbl p(1.0, -0.0);
    EXPECT_EQ(&(p -= Vec2Dbl(10.0, 0.0)), &p);
    ExpectBits(p, -9.0, -0.0);
}

// ---- Distance --------------------------------------------------------------------------------------

// By exact arithmetic with a rounding at each step; a fused multiply-add gives a neighbour.
TEST(Pnt2Dbl, DistanceSqTo)
{
    EXPECT_SAME_BITS(Pnt2Dbl(0x1.19ed018de6431p+6, -0x1.fa51ff020efccp+5)
                         .DistanceSqTo(Pnt2Dbl(-0x1.8b0ba092a4fe9p-2, 0x1.dfb90ff65f617p-2)),
                     0x1.1bfa82b701b84p+13);
    EXPECT_SAME_BITS(Pnt2Dbl(0x1.4840b89d3c472p+1, -0x1.76959b69c8f7fp+6)
                         .DistanceSqTo(Pnt2Dbl(0x1.9f111af39743cp-2, -0x1.37249be6df9d3p-1)),
                     0x1.0ea671f84c082p+13);
    EXPECT_SAME_BITS(Pnt2Dbl(1.0, 2.0).DistanceSqTo(Pnt2Dbl(4.0, 6.0)), 25.0);
    EXPECT_SAME_BITS(Pnt2Dbl(-0.0).DistanceSqTo(Pnt2Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Pnt2Dbl(1.0, nan).DistanceSqTo(Pnt2Dbl(4.0, 6.0)), nan);
}

TEST(Pnt2Dbl, DistanceTo)
{
    EXPECT_SAME_BITS(Pnt2Dbl(0x1.19ed018de6431p+6, -0x1.fa51ff020efccp+5)
                         .DistanceTo(Pnt2Dbl(-0x1.8b0ba092a4fe9p-2, 0x1.dfb90ff65f617p-2)),
                     0x1.7d4f42d189f82p+6);
    EXPECT_SAME_BITS(Pnt2Dbl(1.0, 2.0).DistanceTo(Pnt2Dbl(4.0, 6.0)), 5.0);
    // Correct over the whole range of a double, although the squares overflow and underflow.
    EXPECT_SAME_BITS(Pnt2Dbl(0x3p+600, 0x4p+600).DistanceTo(Pnt2Dbl(0.0)), 0x5p+600);
    EXPECT_SAME_BITS(Pnt2Dbl(0x3p-600, 0x4p-600).DistanceTo(Pnt2Dbl(0.0)), 0x5p-600);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Pnt2Dbl, LessIsLexicographicAndAnInt)
{
    static_assert(std::is_same_v<decltype(Pnt2Dbl() < Pnt2Dbl()), int>, "");
    static_assert(std::is_same_v<decltype(Pnt3Dbl() < Pnt3Dbl()), bool>, "");
    EXPECT_EQ(Pnt2Dbl(1.0, 5.0) < Pnt2Dbl(2.0, 0.0), 1);
    EXPECT_EQ(Pnt2Dbl(2.0, 0.0) < Pnt2Dbl(1.0, 5.0), 0);
    EXPECT_EQ(Pnt2Dbl(1.0, 2.0) < Pnt2Dbl(1.0, 3.0), 1);
    EXPECT_EQ(Pnt2Dbl(1.0, 2.0) < Pnt2Dbl(1.0, 2.0), 0);
    EXPECT_EQ(Pnt2Dbl(-0.0, 2.0) < Pnt2Dbl(0.0, 3.0), 1);
    EXPECT_EQ(Pnt2Dbl(nan, 2.0) < Pnt2Dbl(1.0, 3.0), 0);
    EXPECT_EQ(Pnt2Dbl(1.0, nan) < Pnt2Dbl(1.0, 3.0), 0);
    EXPECT_EQ(Pnt2Dbl(1.0, nan) < Pnt2Dbl(2.0, nan), 1);
}

TEST(Pnt2Dbl, IsEqualToTakesAPlainLength)
{
    Pnt2Dbl const p(1.0, 2.0);
    Pnt2Dbl const q(4.0, 6.0); // at the distance 5
    EXPECT_EQ(p.IsEqualTo(q, 5.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, Below(5.0)), 0);
    EXPECT_EQ(p.IsEqualTo(p, 0.0), 1);
    EXPECT_EQ(p.IsEqualTo(p, nan), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(nan), infinity), 0);
}

TEST(Pnt2Dbl, IsEqualToWithTheGlobal)
{
    Pnt2Dbl const p(0.0);
    Pnt2Dbl const q(1e-5, 0.0);
    EXPECT_EQ(p.IsEqualTo(q), 0); // the global's single is slightly below 1e-10
    EXPECT_EQ(p.IsEqualTo(q, -1e-300), 0);
    EXPECT_EQ(p.IsEqualTo(q, 1e-5), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(0.0, 9.9e-6)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(1e-6, 0.0), -0.0), 0);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(5.0);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(3.0, 4.0)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(3.0, Above(4.0))), 0);
}

// ---- Members of Vec2Dbl that name Pnt2Dbl --------------------------------------------------------------

TEST(Pnt2Dbl, AssignmentToVec2Dbl)
{
    Vec2Dbl v(9.0);
    EXPECT_EQ(&(v = Pnt2Dbl(0.1, -0.0)), &v);
    ExpectBits(v, 0.1, -0.0);
}

} // namespace
