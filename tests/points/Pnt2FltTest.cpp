#include <vexor/points/Pnt2Flt.h>

#include <vexor/points/Pnt3Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <cmath>
#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

// A component that is not a single: it rounds to 2^-24.
constexpr double halfUnitAndMore = 0x1p-24 + 0x1p-50;

// ---- Construction ----------------------------------------------------------------------------------

TEST(Pnt2Flt, Constructors)
{
    ExpectBits(Pnt2Flt(-0.0f), -0.0f, -0.0f);
    ExpectBits(Pnt2Flt(1.0f, -2.0f), 1.0f, -2.0f);
    float values[2] = {4.0f, -0.0f};
    ExpectBits(Pnt2Flt(values), 4.0f, -0.0f);
    Pnt2Flt const source(nanFlt, -infinityFlt);
    Pnt2Flt const copy(source);
    ExpectBits(copy, nanFlt, -infinityFlt);
    ExpectBits(Pnt2Flt(Vec2Flt(1.0f, -0.0f)), 1.0f, -0.0f);
}

// To narrow, assign or call Pnt2Dbl::ToPnt2Flt, so that narrowing is always visible.
TEST(Pnt2Flt, NoConstructorNarrows)
{
    static_assert(!std::is_constructible_v<Pnt2Flt, Pnt2Dbl>, "");
    static_assert(!std::is_constructible_v<Pnt2Flt, Vec2Dbl>, "");
    static_assert(std::is_assignable_v<Pnt2Flt&, Pnt2Dbl> && std::is_assignable_v<Pnt2Flt&, Vec2Dbl>, "");
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Pnt2Flt, Assignment)
{
    Pnt2Flt p(9.0f);
    EXPECT_EQ(&(p = Pnt2Flt(-0.0f, nanFlt)), &p);
    ExpectBits(p, -0.0f, nanFlt);
    EXPECT_EQ(&(p = Vec2Flt(0.1f, 2.0f)), &p);
    ExpectBits(p, 0.1f, 2.0f);
    Pnt2Flt& same = p;
    p = same;
    ExpectBits(p, 0.1f, 2.0f);
}

TEST(Pnt2Flt, AssignmentFromDoublesRoundsToNearest)
{
    Pnt2Flt p(9.0f);
    EXPECT_EQ(&(p = Pnt2Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24)), &p); // a tie rounds to even
    ExpectBits(p, 1.0f, 1.0f + 0x1p-22f);
    EXPECT_EQ(&(p = Vec2Dbl(1.0 + 0x1p-24 + 0x1p-52, -1e300)), &p);
    ExpectBits(p, 1.0f + 0x1p-23f, -infinityFlt);
}

TEST(Pnt2Flt, Vector)
{
    Pnt2Flt const p(0.1f, -0.0f);
    static_assert(std::is_same_v<decltype(p.Vector()), Vec2Flt>, "");
    ExpectBits(p.Vector(), 0.1f, -0.0f);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

template <class Left, class Right, class = void>
constexpr bool adds = false;
template <class Left, class Right>
constexpr bool
    adds<Left, Right, std::void_t<decltype(std::declval<Left const&>() + std::declval<Right const&>())>> =
        true;

template <class Left, class Right, class = void>
constexpr bool addAssigns = false;
template <class Left, class Right>
constexpr bool
    addAssigns<Left, Right, std::void_t<decltype(std::declval<Left&>() += std::declval<Right const&>())>> =
        true;

template <class Point, class = void>
constexpr bool isOrdered = false;
template <class Point>
constexpr bool
    isOrdered<Point, std::void_t<decltype(std::declval<Point const&>() < std::declval<Point const&>())>> =
        true;

TEST(Pnt2Flt, LacksWhatTheOtherPointsHave)
{
    static_assert(adds<Pnt3Flt, Pnt3Flt> && addAssigns<Pnt3Flt, Pnt3Flt> && isOrdered<Pnt3Flt>, "");
    static_assert(!adds<Pnt2Flt, Pnt2Flt> && !addAssigns<Pnt2Flt, Pnt2Flt> && !isOrdered<Pnt2Flt>, "");
    static_assert(adds<Pnt2Flt, Vec2Dbl> && addAssigns<Pnt2Flt, Vec2Dbl>, "");
    static_assert(subtractAssigns<Pnt2Flt, Vec2Dbl> && !subtractAssigns<Pnt2Flt, Pnt2Flt>, "");
}

TEST(Pnt2Flt, SubtractPoint)
{
    Pnt2Flt const p(-0.0f, 1.0f);
    static_assert(std::is_same_v<decltype(p - p), Vec2Flt>, "");
    ExpectBits(p - Pnt2Flt(0.0f, 0x1p-25f), -0.0f, 1.0f);
    ExpectBits(p - Pnt2Flt(2.0f, 0x1.8p-25f), -2.0f, 1.0f - 0x1p-24f);
}

TEST(Pnt2Flt, AddKeepsTheDoubleToTheEnd)
{
    Pnt2Flt const p(1.0f, 2.0f);
    static_assert(std::is_same_v<decltype(p + Vec2Dbl()), Pnt2Flt>, "");
    ExpectBits(p + Vec2Dbl(halfUnitAndMore, 2 * halfUnitAndMore), 1.0f + 0x1p-23f, 2.0f + 0x1p-22f);
    ExpectBits(p + Vec2Dbl(1e300, -2.0), infinityFlt, 0.0f);
    // 6e38 is beyond the largest single, but the sum is not.
    ExpectBits(Pnt2Flt(-3e38f, -0.0f) + Vec2Dbl(6e38, -0.0), 3e38f, -0.0f);
}

TEST(Pnt2Flt, SubtractKeepsTheDoubleToTheEnd)
{
    Pnt2Flt const p(1.0f, 2.0f);
    static_assert(std::is_same_v<decltype(p - Vec2Dbl()), Pnt2Flt>, "");
    ExpectBits(p - Vec2Dbl(-halfUnitAndMore, -2 * halfUnitAndMore), 1.0f + 0x1p-23f, 2.0f + 0x1p-22f);
    ExpectBits(Pnt2Flt(3e38f, -0.0f) - Vec2Dbl(6e38, 0.0), -3e38f, -0.0f);
}

TEST(Pnt2Flt, AddAssignRoundsTheDoubleFirst)
{
    Pnt2Flt p(1.0f, 2.0f);
    EXPECT_EQ(&(p += Vec2Dbl(halfUnitAndMore, 2 * halfUnitAndMore)), &p);
    ExpectBits(p, 1.0f, 2.0f);
    Pnt2Flt q(-3e38f, -0.0f);
    q += Vec2Dbl(6e38, -0.0);
    ExpectBits(q, infinityFlt, -0.0f);
    // Then the sum is rounded: 1 + 3·2^-24 is a tie and rounds to the even single.
    Pnt2Flt r(1.0f, 1.0f);
    r += Vec2Dbl(3 * 0x1p-24, 0x1p-25);
    ExpectBits(r, 1.0f + 0x1p-22f, 1.0f);
}

TEST(Pnt2Flt, SubtractAssignRoundsTheDoubleFirst)
{
    Pnt2Flt p(1.0f, 2.0f);
    EXPECT_EQ(&(p -= Vec2Dbl(-halfUnitAndMore, -2 * halfUnitAndMore)), &p);
    ExpectBits(p, 1.0f, 2.0f);
    Pnt2Flt q(3e38f, -0.0f);
    q -= Vec2Dbl(6e38, 0.0);
    ExpectBits(q, -infinityFlt, -0.0f);
}

TEST(Pnt2Flt, MultiplyAssignByADoubleRoundsItFirst)
{
    // Of 9 and 13, the products with the double 0.1 round to the next single below.
    Pnt2Flt p(9.0f, 13.0f);
    EXPECT_EQ(&(p *= Opaque(0.1)), &p);
    ExpectBits(p, 0x1.cccccep-1f, 0x1.4ccccep+0f);
    Pnt2Flt q(0x1p-100f, 0.0f); // 1e40 rounds to infinity; the product would be a single
    q *= Opaque(1e40);
    ExpectBits(q, infinityFlt, nanFlt);
}

TEST(Pnt2Flt, DivideAssignByADoubleRoundsItFirst)
{
    // Of 9 and 15, both the quotients by the double 0.3 and the products with the single reciprocal of
    // the single 0.3 are 30 and 50.
    Pnt2Flt p(9.0f, 15.0f);
    EXPECT_EQ(&(p /= Opaque(0.3)), &p);
    ExpectBits(p, 0x1.dffffep+4f, 0x1.8ffffep+5f);
    Pnt2Flt q(0x1p-100f, 0.0f); // 1e-50 rounds to 0
    q /= Opaque(1e-50);
    ExpectBits(q, infinityFlt, nanFlt);
}

// ---- Distance --------------------------------------------------------------------------------------

// By exact arithmetic with a rounding at each stated step: differences left in double, and squares
// rounded to single, give a neighbour; so does, for the distance, the root of the sum in double.
TEST(Pnt2Flt, DistanceSqTo)
{
    static_assert(std::is_same_v<decltype(Pnt2Flt().DistanceSqTo(Pnt2Flt())), float>, "");
    EXPECT_SAME_BITS(
        Pnt2Flt(0x1.b95c34p+3f, 0x1.c99ddap+5f).DistanceSqTo(Pnt2Flt(0x1.78de3p-2f, 0x1.c0f0acp-1f)),
        0x1.a317fap+11f);
    EXPECT_SAME_BITS(
        Pnt2Flt(-0x1.3299cep+5f, -0x1.891342p+4f).DistanceSqTo(Pnt2Flt(0x1.752bb8p-1f, -0x1.ebcd6ep-1f)),
        0x1.044f82p+11f);
    EXPECT_SAME_BITS(Pnt2Flt(-0.0f).DistanceSqTo(Pnt2Flt(0.0f)), 0.0f);
    EXPECT_SAME_BITS(Pnt2Flt(1.0f, nanFlt).DistanceSqTo(Pnt2Flt(1.0f)), nanFlt);
}

TEST(Pnt2Flt, DistanceTo)
{
    static_assert(std::is_same_v<decltype(Pnt2Flt().DistanceTo(Pnt2Flt())), float>, "");
    EXPECT_SAME_BITS(
        Pnt2Flt(0x1.b95c34p+3f, 0x1.c99ddap+5f).DistanceTo(Pnt2Flt(0x1.78de3p-2f, 0x1.c0f0acp-1f)),
        0x1.cf3934p+5f);
    EXPECT_SAME_BITS(Pnt2Flt(1.0f, 2.0f).DistanceTo(Pnt2Flt(4.0f, 6.0f)), 5.0f);
    EXPECT_SAME_BITS(Pnt2Flt(1e20f).DistanceTo(Pnt2Flt(0.0f)), infinityFlt);
    EXPECT_SAME_BITS(Pnt2Flt(1e-30f).DistanceTo(Pnt2Flt(0.0f)), 0.0f);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Pnt2Flt, IsEqualToTakesAPlainLength)
{
    Pnt2Flt const p(1.0f, 2.0f);
    Pnt2Flt const q(4.0f, 6.0f); // at the distance 5
    EXPECT_EQ(p.IsEqualTo(q, 5.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, Below(5.0)), 0);
    EXPECT_EQ(p.IsEqualTo(p, 0.0), 1);
    EXPECT_EQ(p.IsEqualTo(p, nan), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt2Flt(nanFlt), infinity), 0);
    // The squared distance is a single, and can be 0 for a distance that is not.
    EXPECT_EQ(Pnt2Flt(1e-30f, 0.0f).IsEqualTo(Pnt2Flt(0.0f), 0.0), 1);
    EXPECT_EQ(Pnt2Flt(1e-20f, 0.0f).IsEqualTo(Pnt2Flt(0.0f), 0.0), 0);
}

TEST(Pnt2Flt, IsEqualToKeepsTheSquaredToleranceInDouble)
{
    // The squared distance rounds up to a single above the square of the tolerance; for Pnt3Flt, which
    // rounds that square too, the two are equal.
    float const up = 0x1.30e23p+0f;
    EXPECT_EQ(Pnt2Flt(up, 0.0f).IsEqualTo(Pnt2Flt(0.0f), up), 0);
    EXPECT_EQ(Pnt3Flt(up, 0.0f, 0.0f).IsEqualTo(Pnt3Flt(0.0f), up), 1);
    // The tolerance is not rounded to single first: (1 + 2^-23 − 2^-46)² is below the squared
    // distance 1 + 2^-22, and (1 + 2^-23)² is not.
    EXPECT_EQ(Pnt2Flt(1.0f + 0x1p-23f, 0.0f).IsEqualTo(Pnt2Flt(0.0f), 1.0 + 0x1p-23 - 0x1p-46), 0);
    EXPECT_EQ(Pnt2Flt(1.0f + 0x1p-23f, 0.0f).IsEqualTo(Pnt2Flt(0.0f), 1.0 + 0x1p-23), 1);
    // Nor does its square overflow or underflow as a single.
    EXPECT_EQ(Pnt2Flt(1e30f, 0.0f).IsEqualTo(Pnt2Flt(0.0f), 1e25), 0);
    EXPECT_EQ(Pnt2Flt(0x1p-74f, 0.0f).IsEqualTo(Pnt2Flt(0.0f), 0x1p-75), 0);
}

TEST(Pnt2Flt, IsEqualToRoundsTheSquaredDistance)
{
    Pnt2Flt const p(0x1.b95c34p+3f, 0x1.c99ddap+5f);
    Pnt2Flt const q(0x1.78de3p-2f, 0x1.c0f0acp-1f);
    double const root = std::sqrt(double(0x1.a317fap+11f));
    EXPECT_EQ(p.IsEqualTo(q, root * (1.0 + 1e-9)), 1);
    EXPECT_EQ(p.IsEqualTo(q, root * (1.0 - 1e-9)), 0); // any other sum, 1e-7 below, would pass
}

TEST(Pnt2Flt, IsEqualToWithTheGlobal)
{
    Pnt2Flt const origin(0.0f);
    // The global's squared length is that of the single 1e-5, so that this is the boundary itself.
    EXPECT_EQ(origin.IsEqualTo(Pnt2Flt(1e-5f, 0.0f)), 1);
    EXPECT_EQ(origin.IsEqualTo(Pnt2Flt(Above(1e-5f), 0.0f)), 0);
    EXPECT_EQ(origin.IsEqualTo(Pnt2Flt(1e-5f, 0.0f), -1e-300), 1); // negative, as a double
    EXPECT_EQ(origin.IsEqualTo(Pnt2Flt(1e-5f, 0.0f), -0.0), 0);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(5.0);
    EXPECT_EQ(origin.IsEqualTo(Pnt2Flt(3.0f, 4.0f)), 1);
    EXPECT_EQ(origin.IsEqualTo(Pnt2Flt(3.0f, Above(4.0f))), 0);
}

// ---- Free operators --------------------------------------------------------------------------------

TEST(Pnt2Flt, MultiplyByADoubleRoundsItFirst)
{
    Pnt2Flt const p(9.0f, 13.0f);
    static_assert(std::is_same_v<decltype(p * 0.1), Pnt2Flt>, "");
    static_assert(std::is_same_v<decltype(0.1 * p), Pnt2Flt>, "");
    ExpectBits(p * Opaque(0.1), 0x1.cccccep-1f, 0x1.4ccccep+0f);
    ExpectBits(Opaque(0.1) * p, 0x1.cccccep-1f, 0x1.4ccccep+0f);
}

TEST(Pnt2Flt, DivideByADoubleRoundsItFirst)
{
    ExpectBits(Pnt2Flt(7.0f, 20.0f) / Opaque(3.0), 0x1.2aaaacp+1f, 0x1.aaaaacp+2f);
    // The single nearest to 3.0000001 is 3; the reciprocal of the double is another single.
    ExpectBits(Pnt2Flt(5.0f, 7.0f) / Opaque(3.0000001), 0x1.aaaaacp+0f, 0x1.2aaaacp+1f);
    // And 1.1, where the reciprocal left in double and the division give the next single above.
    ExpectBits(Pnt2Flt(3.0f, 6.0f) / Opaque(1.1), 0x1.5d1744p+1f, 0x1.5d1744p+2f);
}

// ---- Members of earlier classes that name Pnt2Flt ------------------------------------------------------

TEST(Pnt2Flt, AssignmentToVec2Flt)
{
    Vec2Flt v(9.0f);
    EXPECT_EQ(&(v = Pnt2Flt(0.1f, -0.0f)), &v);
    ExpectBits(v, 0.1f, -0.0f);
    EXPECT_EQ(&(v = Pnt2Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24)), &v);
    ExpectBits(v, 1.0f, 1.0f + 0x1p-22f);
    v = Pnt2Dbl(1e300, 1.0 + 0x1p-24 + 0x1p-52);
    ExpectBits(v, infinityFlt, 1.0f + 0x1p-23f);
}

TEST(Pnt2Flt, AssignmentToVec2Dbl)
{
    Vec2Dbl v(9.0);
    EXPECT_EQ(&(v = Pnt2Flt(0.1f, -0.0f)), &v);
    EXPECT_SAME_BITS(v.x, 0x1.99999ap-4);
    EXPECT_SAME_BITS(v.y, -0.0);
}

} // namespace
