#include <vexor/vectors/Vec2Dbl.h>

#include <vexor/vectors/Vec2Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>
#include <vector>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

constexpr double pi = 3.141592653589793;
constexpr double twoPi = 6.283185307179586;
constexpr double largest = std::numeric_limits<double>::max();

/// Every vector with components out of a few values with ties, both zeros and opposite signs.
std::vector<Vec2Dbl> SmallVectors()
{
    std::vector<Vec2Dbl> all;
    for (double x : {-2.0, -1.0, -0.0, 0.0, 1.0, 2.0})
        for (double y : {-2.0, -1.0, -0.0, 0.0, 1.0, 2.0})
            all.push_back(Vec2Dbl(x, y));
    return all;
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Vec2Dbl, Constructors)
{
    ExpectBits(Vec2Dbl(-0.0), -0.0, -0.0);
    ExpectBits(Vec2Dbl(1.0, -2.0), 1.0, -2.0);
    double values[2] = {4.0, -0.0};
    ExpectBits(Vec2Dbl(values), 4.0, -0.0);
    Vec2Dbl const source(nan, -infinity);
    Vec2Dbl const copy(source);
    ExpectBits(copy, nan, -infinity);
    Vec2Dbl const fromInt = 3; // no constructor is explicit
    ExpectBits(fromInt, 3.0, 3.0);
    ExpectBits(Vec2Dbl(Vec2Flt(0.1f, 0x1p-149f)), 0x1.99999ap-4, 0x1p-149);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Vec2Dbl, Assignment)
{
    Vec2Dbl v(9.0);
    EXPECT_EQ(&(v = Vec2Dbl(-0.0, nan)), &v);
    ExpectBits(v, -0.0, nan);
    Vec2Dbl& same = v;
    v = same;
    ExpectBits(v, -0.0, nan);
    EXPECT_EQ(&(v = Vec2Flt(0.1f, -0.0f)), &v);
    ExpectBits(v, 0x1.99999ap-4, -0.0);
}

TEST(Vec2Dbl, ToVec2FltRoundsToNearest)
{
    Vec2Flt const a = Vec2Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24).ToVec2Flt(); // a tie rounds to even
    EXPECT_SAME_BITS(a.x, 1.0f);
    EXPECT_SAME_BITS(a.y, 1.0f + 0x1p-22f);
    Vec2Flt const b = Vec2Dbl(1.0 + 0x1p-24 + 0x1p-52, -1e300).ToVec2Flt();
    EXPECT_SAME_BITS(b.x, 1.0f + 0x1p-23f);
    EXPECT_SAME_BITS(b.y, -infinityFlt);
    Vec2Flt const c = Vec2Dbl(-1e-300, nan).ToVec2Flt();
    EXPECT_SAME_BITS(c.x, -0.0f);
    EXPECT_SAME_BITS(c.y, nanFlt);
}

// ---- Products --------------------------------------------------------------------------------------

TEST(Vec2Dbl, Dot)
{
    EXPECT_EQ(Vec2Dbl(1.0, 2.0).Dot(Vec2Dbl(4.0, -5.0)), -6.0);
    // (1 + e)(1 − e) = 1 − e², which rounds to 1: a fused multiply-add would keep the −e².
    double const e = Opaque(0x1p-30);
    EXPECT_SAME_BITS(Vec2Dbl(1.0 + e, -1.0).Dot(Vec2Dbl(1.0 - e, 1.0)), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(-1.0, 1.0 + e).Dot(Vec2Dbl(1.0, 1.0 - e)), 0.0);
    // The sum starts with the first product: two products of −0 make −0.
    EXPECT_SAME_BITS(Vec2Dbl(-0.0, 0.0).Dot(Vec2Dbl(1.0, -1.0)), -0.0);
}

TEST(Vec2Dbl, CrossIsAScalar)
{
    static_assert(std::is_same_v<decltype(Vec2Dbl().Cross(Vec2Dbl())), double>, "");
    EXPECT_EQ(Vec2Dbl(2.0, 3.0).Cross(Vec2Dbl(7.0, 11.0)), 22.0 - 21.0);
    EXPECT_EQ(Vec2Dbl(1.0, 0.0).Cross(Vec2Dbl(0.0, 1.0)), 1.0); // above 0 for counter-clockwise
    EXPECT_EQ(Vec2Dbl(0.0, 1.0).Cross(Vec2Dbl(1.0, 0.0)), -1.0);
    double const e = Opaque(0x1p-30); // products rounded before the difference
    EXPECT_SAME_BITS(Vec2Dbl(1.0 + e, 1.0).Cross(Vec2Dbl(1.0, 1.0 - e)), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(1.0, 1.0 + e).Cross(Vec2Dbl(1.0 - e, 1.0)), 0.0);
    // x·oy is the minuend: (−0) − (+0) = −0; in the reverse order it would be +0.
    EXPECT_SAME_BITS(Vec2Dbl(1.0, 1.0).Cross(Vec2Dbl(0.0, -0.0)), -0.0);
}

// ---- Length ----------------------------------------------------------------------------------------

TEST(Vec2Dbl, LengthSquared)
{
    EXPECT_EQ(Vec2Dbl(3.0, -4.0).LengthSquared(), 25.0);
    EXPECT_SAME_BITS(Vec2Dbl(1e200, 0.0).LengthSquared(), infinity);
    EXPECT_SAME_BITS(Vec2Dbl(1e-200, 0.0).LengthSquared(), 0.0);
    // (1 + 2^-27)² loses 2^-54 when it is rounded. If a fused multiply-add kept it, the
    // other square would raise the sum to the next double.
    double const e = Opaque(0x1p-27);
    EXPECT_SAME_BITS(Vec2Dbl(1.0 + e, 1.375 * e).LengthSquared(), 1.0 + 0x1p-26);
    EXPECT_SAME_BITS(Vec2Dbl(1.375 * e, 1.0 + e).LengthSquared(), 1.0 + 0x1p-26);
}

TEST(Vec2Dbl, Length)
{
    EXPECT_EQ(Vec2Dbl(3.0, -4.0).Length(), 5.0);
    EXPECT_SAME_BITS(Vec2Dbl(-0.0, 0.0).Length(), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(infinity, 1.0).Length(), infinity);
    EXPECT_SAME_BITS(Vec2Dbl(1.0, nan).Length(), nan);
    EXPECT_SAME_BITS(Vec2Dbl(infinity, nan).Length(), nan);
    // The root of the rounded sum; the same operands in the middle of the range.
    EXPECT_SAME_BITS(Vec2Dbl(-0x1.a599beef316dcp+2, 0x1.03a09d4a24cd1p+1).Length(), 0x1.b9222390eb37fp+2);
}

// Scaling by a power of two is exact, and so must be the scaling of the length, as long as the scaled numbers
// are normal: the middle of the range, where no square overflows or underflows, gives the expected value.
TEST(Vec2Dbl, LengthOverTheWholeRange)
{
    for (Vec2Dbl const& v : {Vec2Dbl(-0x1.a599beef316dcp+0, 0x1.03a09d4a24cd1p-1),
                             Vec2Dbl(0x1.dbc329bd2e132p+0, -0x1.a940a8a7210c2p-3), Vec2Dbl(1.0, 1.0)}) {
        double const length = std::sqrt(v.x * v.x + v.y * v.y);
        for (int exponent = -1018; exponent <= 1022; ++exponent) {
            double const scale = std::ldexp(1.0, exponent);
            EXPECT_SAME_BITS((scale * v).Length(), scale * length);
        }
    }
    // Computed with an unlimited exponent and rounded to double.
    EXPECT_SAME_BITS(Vec2Dbl(3 * 0x1p-1074, 4 * 0x1p-1074).Length(), 5 * 0x1p-1074);
    EXPECT_SAME_BITS(Vec2Dbl(0x1p-1074, 0.0).Length(), 0x1p-1074);
    EXPECT_SAME_BITS(Vec2Dbl(largest, 0.0).Length(), largest);
    EXPECT_SAME_BITS(Vec2Dbl(largest, 1.0).Length(), largest);
    EXPECT_SAME_BITS(Vec2Dbl(largest, largest).Length(), infinity);
}

TEST(Vec2Dbl, NormalizeDividesByTheLength)
{
    // By exact arithmetic; a multiplication by 1/L gives other bits.
    Vec2Dbl v(-0x1.a599beef316dcp+2, 0x1.03a09d4a24cd1p+1);
    EXPECT_EQ(&v.Normalize(), &v);
    ExpectBits(v, -0x1.e9544f5900177p-1, 0x1.2d55f0804c50fp-2);
    Vec2Dbl w(-0x1.dbc329bd2e132p+2, -0x1.a940a8a7210c2p+0);
    w.Normalize();
    ExpectBits(w, -0x1.f3ad367b80ecbp-1, -0x1.bea0c14de0a48p-3);
}

TEST(Vec2Dbl, NormalizeRaisesForAnExactlyNullVectorOnly)
{
    Vec2Dbl null(0.0, -0.0);
    EXPECT_THROW(null.Normalize(), VexorNullVector);
    ExpectBits(null, 0.0, -0.0);
    for (int i = 0; i < 2; ++i) {
        Vec2Dbl tiny(0.0);
        tiny[i] = -0x1p-1074;
        tiny.Normalize();
        EXPECT_SAME_BITS(tiny[i], -1.0);
        EXPECT_SAME_BITS(tiny[1 - i], 0.0);
    }
}

TEST(Vec2Dbl, NormalizeOverTheWholeRange)
{
    for (int exponent = -1020; exponent <= 1020; ++exponent) {
        Vec2Dbl v = std::ldexp(1.0, exponent) * Vec2Dbl(-0x1.a599beef316dcp+2, 0x1.03a09d4a24cd1p+1);
        v.Normalize();
        ExpectBits(v, -0x1.e9544f5900177p-1, 0x1.2d55f0804c50fp-2);
    }
    Vec2Dbl const denormal(3 * 0x1p-1074, -4 * 0x1p-1074);
    ExpectBits(denormal.GetNormalizedCopy(), 0.6, -0.8);
    // The length itself is beyond the largest double here.
    ExpectBits(Vec2Dbl(largest, largest).GetNormalizedCopy(), 0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bccp-1);
    ExpectBits(Vec2Dbl(largest, 1.0).GetNormalizedCopy(), 1.0, 0x1p-1024);
}

TEST(Vec2Dbl, NormalizeOfNanAndInfinity)
{
    ExpectBits(Vec2Dbl(nan, 0.0).GetNormalizedCopy(), nan, nan);
    ExpectBits(Vec2Dbl(0.0, nan).GetNormalizedCopy(), nan, nan);
    ExpectBits(Vec2Dbl(-0.0, infinity).GetNormalizedCopy(), -0.0, nan);
}

TEST(Vec2Dbl, GetNormalizedCopy)
{
    Vec2Dbl const v(3.0, -4.0);
    ExpectBits(v.GetNormalizedCopy(), 0.6, -0.8);
    ExpectBits(v, 3.0, -4.0);
    EXPECT_THROW(Vec2Dbl(-0.0).GetNormalizedCopy(), VexorNullVector);
}

// ---- Extremes --------------------------------------------------------------------------------------

// Start with x and let an equal y take over, for maximum and minimum alike.
TEST(Vec2Dbl, ExtremesGoToYOnATie)
{
    for (Vec2Dbl const& v : SmallVectors()) {
        SCOPED_TRACE(testing::Message() << v.x << ' ' << v.y);
        EXPECT_SAME_BITS(v.MaxValue(), v.y >= v.x ? v.y : v.x);
        EXPECT_SAME_BITS(v.MinValue(), v.y <= v.x ? v.y : v.x);
        EXPECT_EQ(v.MaxAbsValue(), std::max(std::fabs(v.x), std::fabs(v.y)));
        EXPECT_EQ(v.MinAbsValue(), std::min(std::fabs(v.x), std::fabs(v.y)));
        EXPECT_EQ(v.MaxValueIdx(), v.y >= v.x ? 1 : 0);
        EXPECT_EQ(v.MinValueIdx(), v.y <= v.x ? 1 : 0);
        EXPECT_EQ(v.MaxAbsValueIdx(), std::fabs(v.y) >= std::fabs(v.x) ? 1 : 0);
        EXPECT_EQ(v.MinAbsValueIdx(), std::fabs(v.y) <= std::fabs(v.x) ? 1 : 0);
    }
    EXPECT_SAME_BITS(Vec2Dbl(0.0, -0.0).MaxValue(), -0.0);
    EXPECT_SAME_BITS(Vec2Dbl(-0.0, 0.0).MinValue(), 0.0);
    EXPECT_EQ(Vec2Dbl(2.0).MaxValueIdx(), 1);
    EXPECT_EQ(Vec2Dbl(2.0).MinValueIdx(), 1);
    EXPECT_EQ(Vec2Dbl(2.0).MaxAbsValueIdx(), 1);
    EXPECT_EQ(Vec2Dbl(2.0).MinAbsValueIdx(), 1);
    EXPECT_EQ(Vec2Dbl(-3.0, 2.0).MaxAbsValueIdx(), 0);
    EXPECT_EQ(Vec2Dbl(-3.0, 2.0).MinAbsValueIdx(), 1);
}

TEST(Vec2Dbl, TheMagnitudeOfZeroIsMinusZero)
{
    EXPECT_SAME_BITS(Vec2Dbl(0.0).MaxAbsValue(), -0.0);
    EXPECT_SAME_BITS(Vec2Dbl(-0.0).MaxAbsValue(), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(0.0, 2.0).MinAbsValue(), -0.0);
    EXPECT_SAME_BITS(Vec2Dbl(2.0, -0.0).MinAbsValue(), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(0.0, -0.0).MaxAbsValue(), 0.0); // the tie goes to y
    EXPECT_SAME_BITS(Vec2Dbl(-0.0, 0.0).MinAbsValue(), -0.0);
}

TEST(Vec2Dbl, ExtremesWithNanGoToY)
{
    for (Vec2Dbl const& v : {Vec2Dbl(nan, 1.0), Vec2Dbl(1.0, nan), Vec2Dbl(nan, nan)}) {
        EXPECT_SAME_BITS(v.MaxValue(), v.y);
        EXPECT_SAME_BITS(v.MinValue(), v.y);
        EXPECT_SAME_BITS(v.MaxAbsValue(), v.y);
        EXPECT_SAME_BITS(v.MinAbsValue(), v.y);
        EXPECT_EQ(v.MaxValueIdx(), 1);
        EXPECT_EQ(v.MinValueIdx(), 1);
        EXPECT_EQ(v.MaxAbsValueIdx(), 1);
        EXPECT_EQ(v.MinAbsValueIdx(), 1);
    }
}

// ---- Exact comparison ------------------------------------------------------------------------------

TEST(Vec2Dbl, IsZeroLength)
{
    EXPECT_EQ(Vec2Dbl(1e-5, 0.0).IsZeroLength(), 0);
    EXPECT_EQ(Vec2Dbl(0.0, 0.9e-5).IsZeroLength(), 1);
    EXPECT_EQ(Vec2Dbl(0.9e-5, 0.0).IsZeroLength(-1e-300), 1);
    EXPECT_EQ(Vec2Dbl(0.9e-5, 0.0).IsZeroLength(-0.0), 0); // −0 is not a negative argument
    EXPECT_EQ(Vec2Dbl(3.0, 4.0).IsZeroLength(25.0), 1);
    EXPECT_EQ(Vec2Dbl(3.0, 4.0).IsZeroLength(Below(25.0)), 0);
    EXPECT_EQ(Vec2Dbl(0.0).IsZeroLength(0.0), 1);
    EXPECT_EQ(Vec2Dbl(0.0).IsZeroLength(nan), 0);
    EXPECT_EQ(Vec2Dbl(nan, 0.0).IsZeroLength(), 0);
}

TEST(Vec2Dbl, LessIsLexicographic)
{
    static_assert(std::is_same_v<decltype(Vec2Dbl() < Vec2Dbl()), int>, "");
    EXPECT_EQ(Vec2Dbl(1.0, 5.0) < Vec2Dbl(2.0, 0.0), 1);
    EXPECT_EQ(Vec2Dbl(2.0, 0.0) < Vec2Dbl(1.0, 5.0), 0);
    EXPECT_EQ(Vec2Dbl(1.0, 2.0) < Vec2Dbl(1.0, 3.0), 1);
    EXPECT_EQ(Vec2Dbl(1.0, 2.0) < Vec2Dbl(1.0, 2.0), 0);
    EXPECT_EQ(Vec2Dbl(-0.0, 2.0) < Vec2Dbl(0.0, 3.0), 1);
    EXPECT_EQ(Vec2Dbl(nan, 2.0) < Vec2Dbl(1.0, 3.0), 0);
    EXPECT_EQ(Vec2Dbl(1.0, 2.0) < Vec2Dbl(nan, 3.0), 0);
    EXPECT_EQ(Vec2Dbl(1.0, nan) < Vec2Dbl(1.0, 3.0), 0);
    EXPECT_EQ(Vec2Dbl(1.0, nan) < Vec2Dbl(2.0, nan), 1);
}

// ---- Direction within a tolerance ----------------------------------------------------------------------

TEST(Vec2Dbl, IsEqualTo)
{
    Vec2Dbl const x(1.0, 0.0);
    EXPECT_EQ(x.IsEqualTo(x), 1);
    EXPECT_EQ(x.IsEqualTo(-x, 10.0, 10.0), 0);
    EXPECT_EQ(x.IsEqualTo(Vec2Dbl(1.0, 1e-6)), 0); // close enough, but at an angle
    EXPECT_EQ(x.IsEqualTo(Vec2Dbl(1.000001, 0.0)), 1);
    EXPECT_EQ(Vec2Dbl(nan).IsEqualTo(Vec2Dbl(nan)), 0);
}

TEST(Vec2Dbl, IsEqualToOfNullAndShortVectors)
{
    Vec2Dbl const null(0.0);
    Vec2Dbl const tiny(1e-6, 0.0);
    EXPECT_EQ(null.IsEqualTo(Vec2Dbl(-0.0)), 1);
    EXPECT_EQ(null.IsEqualTo(tiny), 0);
    EXPECT_EQ(tiny.IsEqualTo(null), 0);
    EXPECT_EQ(null.IsEqualTo(tiny, 10.0, 10.0), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, 10.0, 10.0), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, 0.0, 0.0), 0); // the caller's length is not used in the first test
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(1e-7);
    EXPECT_EQ(tiny.IsEqualTo(tiny), 1);
}

TEST(Vec2Dbl, IsEqualToAtTheBoundaries)
{
    Vec2Dbl const a(1.0, 0.0);
    Vec2Dbl const b(3.0, 0.0);
    EXPECT_EQ(a.IsEqualTo(b, 0.0, 4.0), 1);
    EXPECT_EQ(a.IsEqualTo(b, 0.0, Below(4.0)), 0);
    EXPECT_EQ(a.IsEqualTo(b, 0.0, nan), 0);
    EXPECT_EQ(a.IsEqualTo(b, nan, 4.0), 0);
    // The caller's length tolerance covers both vectors, and they are equal nevertheless.
    EXPECT_EQ(a.IsEqualTo(b, 0.0, 100.0), 1);
    Vec2Dbl const c(1.0, 1.0); // at 45°, the squared sine is 0.5
    EXPECT_EQ(a.IsEqualTo(c, 0.5, 1.0), 1);
    EXPECT_EQ(a.IsEqualTo(c, Below(0.5), 1.0), 0);
}

TEST(Vec2Dbl, DirectionTestsOfSimpleVectors)
{
    Vec2Dbl const x(1.0, 0.0);
    Vec2Dbl const back(-2.0, 0.0);
    Vec2Dbl const y(0.0, 3.0);
    EXPECT_EQ(x.IsParallelTo(back), 1);
    EXPECT_EQ(x.IsCodirectionalTo(back), 0);
    EXPECT_EQ(x.IsPerpendicularTo(back), 0);
    EXPECT_EQ(x.IsCodirectionalTo(-back), 1);
    EXPECT_EQ(x.IsParallelTo(y), 0);
    EXPECT_EQ(x.IsPerpendicularTo(y), 1);
    EXPECT_EQ(Vec2Dbl(2.0, 0.0).IsParallelTo(x), 1);
}

TEST(Vec2Dbl, DirectionTestsOfAZeroLengthOperandGive0)
{
    for (Vec2Dbl const& zero : {Vec2Dbl(0.0), Vec2Dbl(0.0, 1e-6), Vec2Dbl(-0.0)})
        for (Vec2Dbl const& v : {Vec2Dbl(1.0, 0.0), Vec2Dbl(0.0), Vec2Dbl(nan)}) {
            EXPECT_EQ(zero.IsParallelTo(v, 10.0) | v.IsParallelTo(zero, 10.0), 0);
            EXPECT_EQ(zero.IsCodirectionalTo(v, 10.0) | v.IsCodirectionalTo(zero, 10.0), 0);
            EXPECT_EQ(zero.IsPerpendicularTo(v, 10.0) | v.IsPerpendicularTo(zero, 10.0), 0);
        }
}

TEST(Vec2Dbl, DirectionTestsAtTheLengthBoundary)
{
    Vec2Dbl const five(3.0, 4.0);
    Vec2Dbl const ten(6.0, 8.0);
    Vec2Dbl const across(-8.0, 6.0);
    struct Case {
        double length;
        int expected;
    };
    for (Case const& each : {Case{25.0, 0}, Case{Below(25.0), 1}, Case{nan, 1}}) {
        EXPECT_EQ(five.IsParallelTo(ten, 0.0, each.length), each.expected);
        EXPECT_EQ(ten.IsParallelTo(five, 0.0, each.length), each.expected);
        EXPECT_EQ(five.IsCodirectionalTo(ten, 0.0, each.length), each.expected);
        EXPECT_EQ(ten.IsCodirectionalTo(five, 0.0, each.length), each.expected);
        EXPECT_EQ(five.IsPerpendicularTo(across, 0.0, each.length), each.expected);
        EXPECT_EQ(across.IsPerpendicularTo(five, 0.0, each.length), each.expected);
    }
}

// The value is that of 1 − ((d·d) / A) / B in this order, worked in exact arithmetic with a rounding at
// each step; with these operands the quotient by A·B and the other order of the divisions give another.
TEST(Vec2Dbl, IsParallelToAtTheAngularBoundary)
{
    struct Case {
        Vec2Dbl a, b;
        double value;
    };
    Case const cases[] = {
        {{-0x1.8a964637f247p+0, -0x1.a578bca79c493p+2},
         {-0x1.bde15a35c99f2p+0, -0x1.1b21c142cb154p+1},
         0x1.6efdf04997098p-3},
        {{0x1.bfd270e86f0d8p+0, 0x1.c59e21e90aa9fp+1},
         {0x1.5cdea02f6e268p+2, 0x1.d162dcefd94dep+2},
         0x1.146d67846b2ep-5},
        {{1.0, 0.0}, {1.0, 1.0}, 0.5},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsParallelTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsParallelTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsParallelTo(-each.b, each.value), 1);
        EXPECT_EQ(each.a.IsParallelTo(-each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsCodirectionalTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsCodirectionalTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsCodirectionalTo(-each.b, 10.0), 0);
    }
}

TEST(Vec2Dbl, IsParallelToPassesWhenRoundingTakesTheCosineAbove1)
{
    // Q is 1 + 2^-52 here: 1 − Q is negative, its magnitude is not taken, and it is within a tolerance of 0.
    for (Vec2Dbl const& v : {Vec2Dbl(0x1.f3c6f11af6264p+2, 0x1.3ee03c5ea78eap+2),
                             Vec2Dbl(0x1.0eda379ad0a8ap+2, 0x1.39216ab7771d8p+2)}) {
        EXPECT_EQ(v.IsParallelTo(3.0 * v, 0.0), 1);
        EXPECT_EQ(v.IsCodirectionalTo(3.0 * v, 0.0), 1);
    }
}

TEST(Vec2Dbl, IsCodirectionalToNeedsADotProductAbove0)
{
    Vec2Dbl const x(1.0, 0.0);
    EXPECT_EQ(x.IsParallelTo(Vec2Dbl(0.0, 1.0), 1.0), 1);
    EXPECT_EQ(x.IsCodirectionalTo(Vec2Dbl(0.0, 1.0), 1.0), 0);
    EXPECT_EQ(x.IsCodirectionalTo(Vec2Dbl(5e-324, 1.0), 1.0), 1);
    EXPECT_EQ(x.IsCodirectionalTo(Vec2Dbl(-5e-324, 1.0), 1.0), 0);
    EXPECT_EQ(x.IsCodirectionalTo(Vec2Dbl(nan, 1.0), 1.0), 0);
}

TEST(Vec2Dbl, IsPerpendicularToAtTheAngularBoundary)
{
    struct Case {
        Vec2Dbl a, b;
        double value;
    };
    Case const cases[] = {
        {{0x1.e9373cefd51bap+1, -0x1.e2ec1762ac6c1p+0},
         {-0x1.1f44b9a360864p+1, -0x1.03170ba6fc6c7p+2},
         0x1.2a230ae3eec72p-9},
        {{1.0, 0.0}, {1.0, -1.0}, 0.5},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsPerpendicularTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsPerpendicularTo(each.b, Below(each.value)), 0);
    }
    // In the other orders it rounds up to the next double.
    Vec2Dbl const a(0x1.eab35711c24cp+2, -0x1.567346eecd37fp+2);
    Vec2Dbl const b(-0x1.467b6e6cb7c8dp+2, -0x1.afd0959e2118cp+3);
    EXPECT_EQ(a.IsPerpendicularTo(b, 0x1.ed19ff2a39334p-5), 1);
    EXPECT_EQ(Vec2Dbl(1.0, 0.0).IsPerpendicularTo(Vec2Dbl(0.0, -1.0), 0.0), 1);
}

TEST(Vec2Dbl, DirectionTestsFollowTheGlobalAngle)
{
    RestoreTolerance const restore;
    Vec2Dbl const x(1.0, 0.0);
    Vec2Dbl const diagonal(1.0, 1.0);
    EXPECT_EQ(x.IsParallelTo(diagonal) | x.IsPerpendicularTo(diagonal), 0);
    gVexorTolerance.sin2Angle = 0.5f;
    EXPECT_EQ(x.IsParallelTo(diagonal), 1);
    EXPECT_EQ(x.IsCodirectionalTo(diagonal), 1);
    EXPECT_EQ(x.IsPerpendicularTo(diagonal), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(0.5 * x), 1);
    EXPECT_EQ(x.IsUnitParallelTo(0.75 * x), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(0.75 * x), 1);
    EXPECT_EQ(x.IsEqualTo(diagonal, -1.0, 1.0), 1);
}

TEST(Vec2Dbl, IsUnitParallelTo)
{
    Vec2Dbl const x(1.0, 0.0);
    EXPECT_EQ(x.IsUnitParallelTo(-x), 1);
    EXPECT_EQ((2.0 * x).IsUnitParallelTo(x), 0); // |1 − 4|: too long fails like too short
    EXPECT_EQ((2.0 * x).IsUnitParallelTo(x, 3.0), 1);
    EXPECT_EQ((2.0 * x).IsUnitParallelTo(x, Below(3.0)), 0);
    EXPECT_EQ(x.IsUnitParallelTo(-0.5 * x, 0.75), 1);
    EXPECT_EQ(x.IsUnitParallelTo(-0.5 * x, Below(0.75)), 0);
    EXPECT_EQ(Vec2Dbl(0.0).IsUnitParallelTo(x, 1.0), 1); // the length is not tested
    EXPECT_EQ(x.IsUnitParallelTo(x, nan), 0);
    EXPECT_EQ(x.IsUnitParallelTo(Vec2Dbl(nan), 1.0), 0);
}

TEST(Vec2Dbl, IsUnitCodirectionalTo)
{
    Vec2Dbl const x(1.0, 0.0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(x), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(-x, 10.0), 0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(Vec2Dbl(0.0, 1.0), 1.0), 0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(Vec2Dbl(5e-324, 1.0), 1.0), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(2.0 * x, 3.0), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(2.0 * x, Below(3.0)), 0);
}

TEST(Vec2Dbl, IsUnitPerpendicularTo)
{
    Vec2Dbl const x(1.0, 0.0);
    EXPECT_EQ(x.IsUnitPerpendicularTo(Vec2Dbl(0.0, 1.0)), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(x), 0);
    EXPECT_EQ(x.IsUnitPerpendicularTo(-0.5 * x, 0.25), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(-0.5 * x, Below(0.25)), 0);
    EXPECT_EQ(Vec2Dbl(0.0).IsUnitPerpendicularTo(x, 0.0), 1); // the length is not tested
}

// ---- Angles and area -------------------------------------------------------------------------------

TEST(Vec2Dbl, GetAngleWith)
{
    Vec2Dbl const x(2.0, 0.0);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec2Dbl(0.0, 5.0)), pi / 2);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec2Dbl(0.0, -5.0)), pi / 2);
    EXPECT_SAME_BITS(x.GetAngleWith(x), 0.0);
    EXPECT_SAME_BITS(x.GetAngleWith(-x), pi);
    EXPECT_NEAR(x.GetAngleWith(Vec2Dbl(-1.0, 1.0)), 3 * pi / 4, 1e-15);
    // The arc cosine of (d / L1) / L2, to 60 digits; the other orders are off by two units and more.
    EXPECT_NEAR(Vec2Dbl(0x1.429f8d89f85bcp+1, -0x1.8f6778e6e4a76p+1)
                    .GetAngleWith(Vec2Dbl(-0x1.139b59596febp+2, 0x1.273efd12c0ef4p+2)),
                0x1.88f7104ba1612p+1, 0x1p-51);
    // For any lengths: neither the dot product nor the squared lengths overflow or underflow.
    EXPECT_NEAR(Vec2Dbl(1e-200, 0.0).GetAngleWith(Vec2Dbl(-1e200, 1e200)), 3 * pi / 4, 1e-15);
    EXPECT_SAME_BITS(Vec2Dbl(1e-200, 0.0).GetAngleWith(Vec2Dbl(1e-200, 0.0)), 0.0);
    EXPECT_NEAR(Vec2Dbl(-1e200, 0.0).GetAngleWith(Vec2Dbl(1e200, 1e200)), 3 * pi / 4, 1e-15);
}

TEST(Vec2Dbl, GetAngleWithNeverLeavesTheDomainOfTheArcCosine)
{
    for (Vec2Dbl const& v :
         {Vec2Dbl(0x1.f3c6f11af6264p+2, 0x1.3ee03c5ea78eap+2), Vec2Dbl(0.1, 0.3), Vec2Dbl(1e-3, 1e3)}) {
        EXPECT_NEAR(v.GetAngleWith(3.0 * v), 0.0, 4e-8);
        EXPECT_NEAR(v.GetAngleWith(-3.0 * v), pi, 4e-8);
    }
}

TEST(Vec2Dbl, GetAngleWithANullVectorIs0)
{
    EXPECT_SAME_BITS(Vec2Dbl(1.0, 2.0).GetAngleWith(Vec2Dbl(-0.0)), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(0.0).GetAngleWith(Vec2Dbl(nan)), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(nan).GetAngleWith(Vec2Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Vec2Dbl(nan).GetAngleWith(Vec2Dbl(1.0)), nan);
}

TEST(Vec2Dbl, GetCCWAngleWith)
{
    Vec2Dbl const x(3.0, 0.0);
    Vec2Dbl const y(0.0, 0.5);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y), pi / 2);
    EXPECT_SAME_BITS(y.GetCCWAngleWith(x), twoPi - pi / 2);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(-x), pi);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(2.0 * x), 0.0);
    EXPECT_NEAR(x.GetCCWAngleWith(Vec2Dbl(-1.0, -1.0)), 5 * pi / 4, 2e-15);
    // A small turn one way, and almost a full one the other way.
    EXPECT_NEAR(x.GetCCWAngleWith(Vec2Dbl(1.0, 1e-4)), 1e-4, 1e-11);
    EXPECT_NEAR(x.GetCCWAngleWith(Vec2Dbl(1.0, -1e-4)), twoPi - 1e-4, 1e-11);
    // Within the angular tolerance, and beyond it with a cross product within the length tolerance.
    for (double e : {1e-8, -1e-8, 1e-6, -1e-6}) {
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec2Dbl(1.0, e)), 0.0);
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec2Dbl(-1.0, e)), pi);
    }
}

TEST(Vec2Dbl, GetCCWAngleWithAllAround)
{
    for (int i = 1; i < 360; ++i) {
        double const angle = i * pi / 180;
        for (double start : {0.0, 1.0, 4.0})
            EXPECT_NEAR(Vec2Dbl(2 * std::cos(start), 2 * std::sin(start))
                            .GetCCWAngleWith(Vec2Dbl(std::cos(start + angle), std::sin(start + angle))),
                        angle, 5e-14);
    }
}

TEST(Vec2Dbl, GetCCWAngleWithOfAShortVectorIs0)
{
    Vec2Dbl const y(0.0, 3.0);
    EXPECT_SAME_BITS(Vec2Dbl(0.0).GetCCWAngleWith(y), 0.0);
    EXPECT_SAME_BITS(y.GetCCWAngleWith(Vec2Dbl(-1e-6, 0.0)), 0.0);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(0.5);
    EXPECT_SAME_BITS(Vec2Dbl(0.5, 0.0).GetCCWAngleWith(y), 0.0); // inclusive
    EXPECT_SAME_BITS(Vec2Dbl(Above(0.5), 0.0).GetCCWAngleWith(y), pi / 2);
    EXPECT_SAME_BITS(y.GetCCWAngleWith(Vec2Dbl(0.5, 0.0)), 0.0);
    EXPECT_SAME_BITS(y.GetCCWAngleWith(Vec2Dbl(Above(0.5), 0.0)), twoPi - pi / 2);
}

TEST(Vec2Dbl, GetAreaFormedByTriangleWithIsSigned)
{
    Vec2Dbl const a(3.0, 0.0);
    Vec2Dbl const b(5.0, 4.0);
    EXPECT_EQ(a.GetAreaFormedByTriangleWith(b), 6.0);
    EXPECT_EQ(b.GetAreaFormedByTriangleWith(a), -6.0);
    EXPECT_SAME_BITS(b.GetAreaFormedByTriangleWith(b), 0.0); // never NaN for parallel vectors
    // Half of the rounded cross product, without a root of A·B − d·d, which would lose these digits.
    EXPECT_SAME_BITS(Vec2Dbl(1.0, 1.0).GetAreaFormedByTriangleWith(Vec2Dbl(1.0, 1.0 + 0x1p-40)), 0x1p-41);
    EXPECT_SAME_BITS(Vec2Dbl(0x1p-1074, 0.0).GetAreaFormedByTriangleWith(Vec2Dbl(0.0, 1.0)), 0.0);
}

// ---- Projection and perpendicular ------------------------------------------------------------------

TEST(Vec2Dbl, GetProjectionOnTo)
{
    ExpectBits(Vec2Dbl(3.0, 4.0).GetProjectionOnTo(Vec2Dbl(-5.0, 0.0)), 3.0, -0.0);
    // By the unit vector, in exact arithmetic with a rounding at each step; (d / B)·target differs.
    ExpectBits(Vec2Dbl(0x1.d37ff65297e51p+0, -0x1.ee6217b54f4e2p+1)
                   .GetProjectionOnTo(Vec2Dbl(-0x1.327a4caa531c8p+2, 0x1.ab2e2a82c6e69p+1)),
               0x1.853de38645341p+1, -0x1.0f451e142589cp+1);
    ExpectBits(Vec2Dbl(0.0).GetProjectionOnTo(Vec2Dbl(1.0, 2.0)), 0.0, 0.0);
    EXPECT_THROW(Vec2Dbl(1.0, 2.0).GetProjectionOnTo(Vec2Dbl(-0.0)), VexorNullVector);
    Vec2Dbl const v(0.0, 2.0);
    ExpectBits(v.GetProjectionOnTo(v), 0.0, 2.0);
}

TEST(Vec2Dbl, GetPerpendicular)
{
    ExpectBits(Vec2Dbl(3.0, 4.0).GetPerpendicular(), -0.8, 0.6);
    ExpectBits(Vec2Dbl(1.0, 0.0).GetPerpendicular(), -0.0, 1.0);
    ExpectBits(Vec2Dbl(0.0, -2.0).GetPerpendicular(), 1.0, 0.0);
    ExpectBits(Vec2Dbl(1e-300, 0.0).GetPerpendicular(), -0.0, 1.0); // no tolerance
    EXPECT_THROW(Vec2Dbl(0.0, -0.0).GetPerpendicular(), VexorNullVector);
}

} // namespace
