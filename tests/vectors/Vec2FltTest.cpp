#include <vexor/vectors/Vec2Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <cmath>
#include <type_traits>
#include <utility>
#include <vector>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

constexpr float pi = 0x1.921fb6p+1f; // the single nearest π

// ---- Construction ----------------------------------------------------------------------------------

// To narrow, assign or call Vec2Dbl::ToVec2Flt, so that narrowing is always visible.
TEST(Vec2Flt, NoConstructorNarrows)
{
    static_assert(!std::is_constructible_v<Vec2Flt, Vec2Dbl>, "");
    static_assert(std::is_assignable_v<Vec2Flt&, Vec2Dbl>, "");
}

template <class Vector, class = void>
constexpr bool isOrdered = false;
template <class Vector>
constexpr bool
    isOrdered<Vector, std::void_t<decltype(std::declval<Vector const&>() < std::declval<Vector const&>())>> =
        true;

template <class Vector, class = void>
constexpr bool hasCCWAngle = false;
template <class Vector>
constexpr bool hasCCWAngle<Vector, std::void_t<decltype(std::declval<Vector const&>().GetCCWAngleWith(
                                       std::declval<Vector const&>()))>> = true;

TEST(Vec2Flt, LacksWhatOnlyTheDoubleVectorHas)
{
    static_assert(isOrdered<Vec2Dbl> && !isOrdered<Vec2Flt>, "");
    static_assert(hasCCWAngle<Vec2Dbl> && !hasCCWAngle<Vec2Flt>, "");
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Vec2Flt, AssignmentFromVec2DblRoundsToNearest)
{
    Vec2Flt v(9.0f);
    EXPECT_EQ(&(v = Vec2Dbl(1e-50, 1e40)), &v);
    ExpectBits(v, 0.0f, infinityFlt);
    v = Vec2Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24); // a tie rounds to even
    ExpectBits(v, 1.0f, 1.0f + 0x1p-22f);
    v = Vec2Dbl(1.0 + 0x1p-24 + 0x1p-52, nan);
    ExpectBits(v, 1.0f + 0x1p-23f, nanFlt);
}

// ---- Products: rounded once ------------------------------------------------------------------------

// By exact arithmetic; products rounded separately give a neighbouring single.
TEST(Vec2Flt, Dot)
{
    Vec2Flt const a(0x1.f2b86cp+1f, -0x1.523fdap+2f);
    Vec2Flt const b(0x1.6237acp+1f, 0x1.15c8d4p+2f);
    EXPECT_SAME_BITS(a.Dot(b), -0x1.850924p+3f);
    // Products beyond the largest single, a sum within it.
    EXPECT_SAME_BITS(Vec2Flt(1e30f, 1e30f).Dot(Vec2Flt(1e30f, -1e30f)), 0.0f);
    EXPECT_SAME_BITS(Vec2Flt(1e30f, 0.0f).Dot(Vec2Flt(1e30f, 0.0f)), infinityFlt);
}

TEST(Vec2Flt, Cross)
{
    Vec2Flt const a(0x1.f2b86cp+1f, -0x1.523fdap+2f);
    Vec2Flt const b(0x1.6237acp+1f, 0x1.15c8d4p+2f);
    static_assert(std::is_same_v<decltype(a.Cross(b)), float>, "");
    EXPECT_SAME_BITS(a.Cross(b), 0x1.f89752p+4f);
    EXPECT_SAME_BITS(b.Cross(a), -0x1.f89752p+4f);
    EXPECT_SAME_BITS(Vec2Flt(1e30f, 1e30f).Cross(Vec2Flt(1e30f, 1e30f)), 0.0f);
}

// ---- Length ----------------------------------------------------------------------------------------

TEST(Vec2Flt, LengthSquaredIsRoundedOnce)
{
    EXPECT_SAME_BITS(Vec2Flt(0x1.f2b86cp+1f, -0x1.523fdap+2f).LengthSquared(), 0x1.58e896p+5f);
    EXPECT_SAME_BITS(Vec2Flt(1e20f, 0.0f).LengthSquared(), infinityFlt);
    EXPECT_SAME_BITS(Vec2Flt(1e-30f, 0.0f).LengthSquared(), 0.0f);
}

// The root of the rounded sum: that of the sum in double rounds to the next single below.
TEST(Vec2Flt, Length)
{
    EXPECT_SAME_BITS(Vec2Flt(-0x1.9a1a78p+1f, 0x1.75a098p+2f).Length(), 0x1.aa3258p+2f);
    EXPECT_SAME_BITS(Vec2Flt(0x1.16db34p+2f, 0x1.11b00ep+2f).Length(), 0x1.86b986p+2f);
    EXPECT_SAME_BITS(Vec2Flt(3.0f, -4.0f).Length(), 5.0f);
    // Unlike that of a double vector, its range is limited by the rounded square.
    EXPECT_SAME_BITS(Vec2Flt(1e20f, 0.0f).Length(), infinityFlt);
    EXPECT_SAME_BITS(Vec2Flt(1e-30f, 0.0f).Length(), 0.0f);
    EXPECT_SAME_BITS(Vec2Flt(nanFlt, 0.0f).Length(), nanFlt);
}

// By exact arithmetic; the length left in double, at either step, and a multiplication by 1/L differ.
TEST(Vec2Flt, Normalize)
{
    Vec2Flt v(0x1.16db34p+2f, 0x1.11b00ep+2f);
    EXPECT_EQ(&v.Normalize(), &v);
    ExpectBits(v, 0x1.6d68c2p-1f, 0x1.66a2ecp-1f);
    Vec2Flt null(0.0f, -0.0f);
    EXPECT_THROW(null.Normalize(), VexorNullVector);
    ExpectBits(null, 0.0f, -0.0f);
    Vec2Flt tiny(1e-30f, 0.0f); // not null: does not raise, but divides by a length that rounds to 0
    tiny.Normalize();
    ExpectBits(tiny, infinityFlt, nanFlt);
    Vec2Flt big(1e30f, -1.0f);
    big.Normalize();
    ExpectBits(big, 0.0f, -0.0f);
}

TEST(Vec2Flt, GetNormalizedCopy)
{
    Vec2Flt const v(-0x1.9a1a78p+1f, 0x1.75a098p+2f);
    ExpectBits(v.GetNormalizedCopy(), -0x1.ecaab2p-2f, 0x1.c0d8e4p-1f);
    ExpectBits(v, -0x1.9a1a78p+1f, 0x1.75a098p+2f);
    EXPECT_THROW(Vec2Flt(-0.0f).GetNormalizedCopy(), VexorNullVector);
}

// ---- Extremes --------------------------------------------------------------------------------------

TEST(Vec2Flt, ExtremesGoToYOnATieAndForNan)
{
    for (float x : {-2.0f, -1.0f, -0.0f, 0.0f, 1.0f, 2.0f, nanFlt})
        for (float y : {-2.0f, -1.0f, -0.0f, 0.0f, 1.0f, 2.0f, nanFlt}) {
            SCOPED_TRACE(testing::Message() << x << ' ' << y);
            Vec2Flt const v(x, y);
            bool const isXGreater = x > y;
            bool const isXLess = x < y;
            EXPECT_SAME_BITS(v.MaxValue(), isXGreater ? x : y);
            EXPECT_SAME_BITS(v.MinValue(), isXLess ? x : y);
            EXPECT_EQ(v.MaxValueIdx(), isXGreater ? 0 : 1);
            EXPECT_EQ(v.MinValueIdx(), isXLess ? 0 : 1);
            // A magnitude is the value with its sign flipped unless the value is above 0.
            float const a = x > 0.0f ? x : -x;
            float const b = y > 0.0f ? y : -y;
            EXPECT_SAME_BITS(v.MaxAbsValue(), std::fabs(x) > std::fabs(y) ? a : b);
            EXPECT_SAME_BITS(v.MinAbsValue(), std::fabs(x) < std::fabs(y) ? a : b);
            EXPECT_EQ(v.MaxAbsValueIdx(), std::fabs(x) > std::fabs(y) ? 0 : 1);
            EXPECT_EQ(v.MinAbsValueIdx(), std::fabs(x) < std::fabs(y) ? 0 : 1);
        }
    EXPECT_SAME_BITS(Vec2Flt(0.0f).MaxAbsValue(), -0.0f);
    EXPECT_SAME_BITS(Vec2Flt(0.0f).MinAbsValue(), -0.0f);
}

// ---- Exact comparison ------------------------------------------------------------------------------

TEST(Vec2Flt, IsZeroLength)
{
    // The global's squared length is that of the single 1e-5, so that this is the boundary itself.
    EXPECT_EQ(Vec2Flt(1e-5f, 0.0f).IsZeroLength(), 1);
    EXPECT_EQ(Vec2Flt(Above(1e-5f), 0.0f).IsZeroLength(), 0);
    EXPECT_EQ(Vec2Flt(1e-5f, 0.0f).IsZeroLength(-1e-30f), 1);
    EXPECT_EQ(Vec2Flt(1e-5f, 0.0f).IsZeroLength(-0.0f), 0);
    EXPECT_EQ(Vec2Flt(3.0f, 4.0f).IsZeroLength(25.0f), 1);
    EXPECT_EQ(Vec2Flt(3.0f, 4.0f).IsZeroLength(Below(25.0f)), 0);
    // The squared length rounds to 0 although the vector is not null.
    EXPECT_EQ(Vec2Flt(1e-30f, 0.0f).IsZeroLength(0.0f), 1);
    EXPECT_EQ(Vec2Flt(1e-30f, 0.0f).IsNull(), 0);
    EXPECT_EQ(Vec2Flt(0.0f).IsZeroLength(nanFlt), 0);
    // The rounded square is compared: 0x1.58e896p+5 here, slightly below the exact one,
    // for which the given tolerance would be too small.
    EXPECT_EQ(Vec2Flt(0x1.f2b86cp+1f, -0x1.523fdap+2f).IsZeroLength(0x1.58e896p+5f), 1);
    EXPECT_EQ(Vec2Flt(0x1.f2b86cp+1f, -0x1.523fdap+2f).IsZeroLength(Below(0x1.58e896p+5f)), 0);
}

// ---- Direction within a tolerance --------------------------------------------------------------------

TEST(Vec2Flt, IsEqualTo)
{
    Vec2Flt const x(1.0f, 0.0f);
    Vec2Flt const null(0.0f);
    Vec2Flt const tiny(1e-6f, 0.0f);
    EXPECT_EQ(x.IsEqualTo(x), 1);
    EXPECT_EQ(x.IsEqualTo(-x, 10.0f, 10.0f), 0);
    EXPECT_EQ(x.IsEqualTo(Vec2Flt(1.000001f, 0.0f)), 1);
    EXPECT_EQ(null.IsEqualTo(Vec2Flt(-0.0f)), 1);
    EXPECT_EQ(null.IsEqualTo(tiny, 10.0f, 10.0f), 0);
    EXPECT_EQ(tiny.IsEqualTo(null, 10.0f, 10.0f), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, 10.0f, 0.0f), 0);
    EXPECT_EQ(x.IsEqualTo(Vec2Flt(3.0f, 0.0f), 0.0f, 4.0f), 1);
    EXPECT_EQ(x.IsEqualTo(Vec2Flt(3.0f, 0.0f), 0.0f, Below(4.0f)), 0);
    EXPECT_EQ(x.IsEqualTo(Vec2Flt(3.0f, 0.0f), 0.0f, nanFlt), 0);
    EXPECT_EQ(x.IsEqualTo(Vec2Flt(1.0f, 1.0f), 0.5f, 1.0f), 1);
    EXPECT_EQ(x.IsEqualTo(Vec2Flt(1.0f, 1.0f), Below(0.5f), 1.0f), 0);
}

// By exact arithmetic: the squared length of the rounded difference rounds to the given tolerance. The
// unrounded difference, and rounded squares, give the next single above; the sum left in double would
// be above the tolerance.
TEST(Vec2Flt, IsEqualToRoundsTheDifferenceAndItsSquare)
{
    Vec2Flt const a(0x1.f884dp+5f, 0x1.d7de0cp+5f);
    Vec2Flt const b(0x1.03ad66p-1f, 0x1.a3ef52p-1f);
    EXPECT_EQ(a.IsEqualTo(b, 10.0f, 0x1.c806c6p+12f), 1);
    EXPECT_EQ(a.IsEqualTo(b, 10.0f, Below(0x1.c806c6p+12f)), 0);
}

TEST(Vec2Flt, DirectionTestsOfSimpleVectors)
{
    Vec2Flt const x(1.0f, 0.0f);
    Vec2Flt const back(-2.0f, 0.0f);
    Vec2Flt const y(0.0f, 3.0f);
    EXPECT_EQ(x.IsParallelTo(back), 1);
    EXPECT_EQ(x.IsCodirectionalTo(back), 0);
    EXPECT_EQ(x.IsPerpendicularTo(back), 0);
    EXPECT_EQ(x.IsCodirectionalTo(-back), 1);
    EXPECT_EQ(x.IsParallelTo(y), 0);
    EXPECT_EQ(x.IsPerpendicularTo(y), 1);
    EXPECT_EQ(x.IsCodirectionalTo(y, 1.0f), 0); // the dot product must be above 0
    EXPECT_EQ(x.IsCodirectionalTo(Vec2Flt(0x1p-149f, 1.0f), 1.0f), 1);
}

TEST(Vec2Flt, DirectionTestsOfAZeroLengthOperandGive0)
{
    for (Vec2Flt const& zero : {Vec2Flt(0.0f), Vec2Flt(0.0f, 1e-6f), Vec2Flt(1e-5f, 0.0f)})
        for (Vec2Flt const& v : {Vec2Flt(1.0f, 0.0f), Vec2Flt(0.0f), Vec2Flt(nanFlt)}) {
            EXPECT_EQ(zero.IsParallelTo(v, 10.0f) | v.IsParallelTo(zero, 10.0f), 0);
            EXPECT_EQ(zero.IsCodirectionalTo(v, 10.0f) | v.IsCodirectionalTo(zero, 10.0f), 0);
            EXPECT_EQ(zero.IsPerpendicularTo(v, 10.0f) | v.IsPerpendicularTo(zero, 10.0f), 0);
        }
    Vec2Flt const five(3.0f, 4.0f);
    Vec2Flt const ten(6.0f, 8.0f);
    EXPECT_EQ(five.IsParallelTo(ten, 0.0f, 25.0f) | ten.IsParallelTo(five, 0.0f, 25.0f), 0);
    EXPECT_EQ(five.IsParallelTo(ten, 0.0f, Below(25.0f)) & ten.IsParallelTo(five, 0.0f, Below(25.0f)), 1);
    EXPECT_EQ(five.IsParallelTo(ten, 0.0f, nanFlt), 1);
}

// By exact arithmetic with d, A and B rounded, Q in double and 1 − Q rounded: with one unit less the test
// fails. With d, A and B left in double, or with d·d or Q rounded, the value differs; 1 − Q left in
// double is above the tolerance.
TEST(Vec2Flt, IsParallelToAtTheAngularBoundary)
{
    struct Case {
        Vec2Flt a, b;
        float value;
    };
    Case const cases[] = {
        {{-0x1.1d4232p+2f, 0x1.81b4bp+2f}, {-0x1.3dbe4cp+2f, 0x1.61425ap+2f}, 0x1.2b5362p-7f},
        {{-0x1.6163acp+2f, 0x1.3d91eep+2f}, {-0x1.cfa378p+2f, 0x1.a2fbfap+2f}, 0x1.021086p-17f},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsParallelTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsParallelTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsParallelTo(-each.b, each.value), 1);
        EXPECT_EQ(each.a.IsCodirectionalTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsCodirectionalTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsCodirectionalTo(-each.b, 10.0f), 0);
    }
}

// The same for Q: the first one rounds down, so Q left in double is above the tolerance.
TEST(Vec2Flt, IsPerpendicularToAtTheAngularBoundary)
{
    Vec2Flt const a(-0x1.5397dep+1f, -0x1.27fc8ep+2f);
    Vec2Flt const b(0x1.04c96p+2f, -0x1.27d7ep+0f);
    EXPECT_EQ(a.IsPerpendicularTo(b, 0x1.dff55cp-5f), 1);
    EXPECT_EQ(a.IsPerpendicularTo(b, Below(0x1.dff55cp-5f)), 0);
    Vec2Flt const c(-0x1.e95c14p+1f, 0x1.2fc7cap+0f);
    Vec2Flt const d(-0x1.4424dp+1f, -0x1.149d52p+2f);
    EXPECT_EQ(c.IsPerpendicularTo(d, 0x1.a64808p-5f), 1);
    EXPECT_EQ(c.IsPerpendicularTo(d, Below(0x1.a64808p-5f)), 0);
}

TEST(Vec2Flt, IsUnitParallelTo)
{
    Vec2Flt const x(1.0f, 0.0f);
    EXPECT_EQ(x.IsUnitParallelTo(-x), 1);
    EXPECT_EQ((2.0f * x).IsUnitParallelTo(x), 0);
    EXPECT_EQ((2.0f * x).IsUnitParallelTo(x, 3.0f), 1);
    EXPECT_EQ((2.0f * x).IsUnitParallelTo(x, Below(3.0f)), 0);
    EXPECT_EQ(x.IsUnitParallelTo(x, nanFlt), 0);
    // d and 1 − d² are rounded, d² is not; 1 − d² left in double is above the tolerance.
    Vec2Flt const a(0x1.8cfc8ep-1f, -0x1.0d09e2p-1f);
    Vec2Flt const b(0x1.82c508p-1f, -0x1.934636p-1f);
    EXPECT_EQ(a.IsUnitParallelTo(b, 0x1.a52a56p-11f), 1);
    EXPECT_EQ(a.IsUnitParallelTo(b, Below(0x1.a52a56p-11f)), 0);
    EXPECT_EQ(a.IsUnitParallelTo(-b, 0x1.a52a56p-11f), 1);
    // The magnitude of a negative difference, rounded away from 0 and above the value in double.
    Vec2Flt const c(0x1.74eb5p-1f, 0x1.2e808ap-1f);
    Vec2Flt const e(0x1.81f76ep-1f, 0x1.973b2ap-1f);
    EXPECT_EQ(c.IsUnitParallelTo(e, 0x1.3a1decp-5f), 1);
    EXPECT_EQ(c.IsUnitParallelTo(e, Below(0x1.3a1decp-5f)), 0);
}

TEST(Vec2Flt, IsUnitCodirectionalTo)
{
    Vec2Flt const x(1.0f, 0.0f);
    EXPECT_EQ(x.IsUnitCodirectionalTo(x), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(-x, 10.0f), 0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(Vec2Flt(0.0f, 1.0f), 1.0f), 0);
    Vec2Flt const a(0x1.8cfc8ep-1f, -0x1.0d09e2p-1f);
    Vec2Flt const b(0x1.82c508p-1f, -0x1.934636p-1f);
    EXPECT_EQ(a.IsUnitCodirectionalTo(b, 0x1.a52a56p-11f), 1);
    EXPECT_EQ(a.IsUnitCodirectionalTo(b, Below(0x1.a52a56p-11f)), 0);
}

TEST(Vec2Flt, IsUnitPerpendicularTo)
{
    Vec2Flt const x(1.0f, 0.0f);
    EXPECT_EQ(x.IsUnitPerpendicularTo(Vec2Flt(0.0f, 1.0f)), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(x), 0);
    // d rounded, then d² rounded: d² left in double is above the tolerance, and that of the unrounded
    // d rounds to the next single.
    Vec2Flt const a(-0x1.229de4p-1f, -0x1.95aba8p-1f);
    Vec2Flt const b(-0x1.68edd4p-1f, -0x1.55704p-1f);
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, 0x1.b9696ap-1f), 1);
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, Below(0x1.b9696ap-1f)), 0);
}

TEST(Vec2Flt, DirectionTestsFollowTheGlobalAngle)
{
    RestoreTolerance const restore;
    Vec2Flt const x(1.0f, 0.0f);
    Vec2Flt const diagonal(1.0f, 1.0f);
    EXPECT_EQ(x.IsParallelTo(diagonal) | x.IsPerpendicularTo(diagonal), 0);
    gVexorTolerance.sin2Angle = 0.5f;
    EXPECT_EQ(x.IsParallelTo(diagonal), 1);
    EXPECT_EQ(x.IsCodirectionalTo(diagonal), 1);
    EXPECT_EQ(x.IsPerpendicularTo(diagonal), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(0.5f * x), 1);
    EXPECT_EQ(x.IsUnitParallelTo(0.75f * x), 1);
    EXPECT_EQ(x.IsEqualTo(diagonal, -1.0f, 1.0f), 1);
}

// ---- Angle and area --------------------------------------------------------------------------------

TEST(Vec2Flt, GetAngleWith)
{
    Vec2Flt const x(2.0f, 0.0f);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec2Flt(0.0f, -5.0f)), pi / 2);
    EXPECT_SAME_BITS(x.GetAngleWith(x), 0.0f);
    EXPECT_SAME_BITS(Vec2Flt(1.0f, 0.0f).GetAngleWith(Vec2Flt(-1.0f, 0.0f)), pi);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec2Flt(0.0f)), 0.0f);
    EXPECT_SAME_BITS(Vec2Flt(0.0f).GetAngleWith(Vec2Flt(nanFlt)), 0.0f);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec2Flt(1e-30f, 1e-30f)), 0.0f); // a length that rounds to 0
    EXPECT_SAME_BITS(x.GetAngleWith(Vec2Flt(nanFlt)), nanFlt);
}

// The arc cosine to 60 digits of the quotient with d, L1 and L2 rounded and C left in double; d, the
// lengths, or C rounded otherwise give another single.
TEST(Vec2Flt, GetAngleWithRoundsDAndTheLengths)
{
    EXPECT_SAME_BITS(
        Vec2Flt(-0x1.9250bcp+2f, 0x1.8d583p+2f).GetAngleWith(Vec2Flt(-0x1.a1f28cp+3f, 0x1.7c3a66p+3f)),
        0x1.4fea34p-5f);
    EXPECT_SAME_BITS(
        Vec2Flt(-0x1.b3fc8cp+2f, -0x1.68c172p+2f).GetAngleWith(Vec2Flt(-0x1.595dbcp+2f, -0x1.32ac6cp+2f)),
        0x1.1dae5cp-5f);
}

TEST(Vec2Flt, GetAreaFormedByTriangleWithIsSignedAndRoundedOnce)
{
    EXPECT_EQ(Vec2Flt(3.0f, 0.0f).GetAreaFormedByTriangleWith(Vec2Flt(5.0f, 4.0f)), 6.0f);
    EXPECT_EQ(Vec2Flt(5.0f, 4.0f).GetAreaFormedByTriangleWith(Vec2Flt(3.0f, 0.0f)), -6.0f);
    // Half of a cross product that is itself beyond the largest single.
    EXPECT_SAME_BITS(Vec2Flt(0x1p+64f, 0.0f).GetAreaFormedByTriangleWith(Vec2Flt(0.0f, 0x1p+64f)), 0x1p+127f);
    // Half of 2.59375·2^-149, which as a single rounds up to 3·2^-149, whose half would round up again.
    Vec2Flt const a(0x1.4cp-75f, 0.0f);
    Vec2Flt const b(0.0f, 0x1p-73f);
    EXPECT_SAME_BITS(a.Cross(b), 0x1.8p-148f);
    EXPECT_SAME_BITS(a.GetAreaFormedByTriangleWith(b), 0x1p-149f);
}

// ---- Projection and perpendicular ------------------------------------------------------------------

// By exact arithmetic; the dot product left in double gives other singles.
TEST(Vec2Flt, GetProjectionOnTo)
{
    ExpectBits(
        Vec2Flt(-0x1.3d0d66p+2f, -0x1.011f3ap+2f).GetProjectionOnTo(Vec2Flt(0x1.88556cp+2f, 0x1.c5d0e8p+1f)),
        -0x1.5d0426p+2f, -0x1.93b5d6p+1f);
    ExpectBits(
        Vec2Flt(-0x1.f7a92ap+2f, -0x1.c41e6cp+2f).GetProjectionOnTo(Vec2Flt(-0x1.a44058p+2f, 0x1.8c3138p+0f)),
        -0x1.78344ep+2f, 0x1.62aabap+0f);
    ExpectBits(Vec2Flt(0.0f).GetProjectionOnTo(Vec2Flt(1.0f, 2.0f)), 0.0f, 0.0f);
    EXPECT_THROW(Vec2Flt(1.0f, 2.0f).GetProjectionOnTo(Vec2Flt(0.0f)), VexorNullVector);
}

TEST(Vec2Flt, GetPerpendicular)
{
    ExpectBits(Vec2Flt(3.0f, 4.0f).GetPerpendicular(), -0x1.99999ap-1f, 0x1.333334p-1f);
    ExpectBits(Vec2Flt(1.0f, 0.0f).GetPerpendicular(), -0.0f, 1.0f);
    ExpectBits(Vec2Flt(0.0f, -2.0f).GetPerpendicular(), 1.0f, 0.0f);
    EXPECT_THROW(Vec2Flt(0.0f, -0.0f).GetPerpendicular(), VexorNullVector);
}

} // namespace
