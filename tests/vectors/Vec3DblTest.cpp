#include <vexor/vectors/Vec3Dbl.h>

#include <vexor/vectors/Vec3Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <algorithm>
#include <array>
#include <vector>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

constexpr double pi = 3.141592653589793;

void ExpectNear(Vec3Dbl const& actual, double x, double y, double z, double bound)
{
    EXPECT_NEAR(actual.x, x, bound);
    EXPECT_NEAR(actual.y, y, bound);
    EXPECT_NEAR(actual.z, z, bound);
}

std::array<int, 3> Order(Vec3Dbl const& v)
{
    std::array<int, 3> order = {-1, -1, -1};
    v.ValueOrder(order[0], order[1], order[2]);
    return order;
}

std::array<int, 3> AbsOrder(Vec3Dbl const& v)
{
    std::array<int, 3> order = {-1, -1, -1};
    v.AbsValueOrder(order[0], order[1], order[2]);
    return order;
}

/// Every vector with components out of a few values with ties, both zeros and opposite signs.
std::vector<Vec3Dbl> SmallVectors()
{
    std::vector<Vec3Dbl> all;
    for (double x : {-2.0, -1.0, -0.0, 0.0, 1.0, 2.0})
        for (double y : {-2.0, -1.0, -0.0, 0.0, 1.0, 2.0})
            for (double z : {-2.0, -1.0, -0.0, 0.0, 1.0, 2.0})
                all.push_back(Vec3Dbl(x, y, z));
    return all;
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Vec3Dbl, ConversionFromOtherNumbers)
{
    Vec3Dbl const fromInt = 3; // no constructor is explicit
    ExpectBits(fromInt, 3.0, 3.0, 3.0);
}

TEST(Vec3Dbl, ConstructorFromVec3FltWidensExactly)
{
    ExpectBits(Vec3Dbl(Vec3Flt(0.1f, -0.0f, 0x1p-149f)), 0x1.99999ap-4, -0.0, 0x1p-149);
    ExpectBits(Vec3Dbl(Vec3Flt(nanFlt, infinityFlt, -infinityFlt)), nan, infinity, -infinity);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Vec3Dbl, AssignmentFromVec3FltWidensExactly)
{
    Vec3Dbl target(9.0);
    EXPECT_EQ(&(target = Vec3Flt(0.1f, -0.0f, 3.0f)), &target);
    ExpectBits(target, 0x1.99999ap-4, -0.0, 3.0);
}

TEST(Vec3Dbl, ToVec3FltRoundsToNearest)
{
    // Ties round to the even single; half a unit beyond the largest single lies infinity.
    ExpectBits(Vec3Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24, 1.0 + 0x1p-24 + 0x1p-52).ToVec3Flt(), 1.0f,
               1.0f + 0x1p-22f, 1.0f + 0x1p-23f);
    ExpectBits(Vec3Dbl(1e300, -1e300, 0x1.ffffffp+127).ToVec3Flt(), infinityFlt, -infinityFlt, infinityFlt);
    ExpectBits(Vec3Dbl(-1e-300, nan, Below(0x1.ffffffp+127)).ToVec3Flt(), -0.0f, nanFlt, 0x1.fffffep+127f);
    ExpectBits(Vec3Dbl(0x1p-150, Above(0x1p-150), 0x1p-149).ToVec3Flt(), 0.0f, 0x1p-149f, 0x1p-149f);
}

// ---- Products --------------------------------------------------------------------------------------

TEST(Vec3Dbl, Dot)
{
    EXPECT_EQ(Vec3Dbl(1.0, 2.0, 3.0).Dot(Vec3Dbl(4.0, -5.0, 6.0)), 12.0);
    Vec3Dbl const v(2.0, 3.0, 6.0);
    EXPECT_EQ(v.Dot(v), 49.0);
}

TEST(Vec3Dbl, DotAddsXAndYFirst)
{
    // 1e16 + 1 is a tie and rounds to 1e16, so only this order gives 0.
    EXPECT_SAME_BITS(Vec3Dbl(1e16, Opaque(1.0), -1e16).Dot(Vec3Dbl(1.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(1e16, -1e16, Opaque(1.0)).Dot(Vec3Dbl(1.0)), 1.0);
    EXPECT_SAME_BITS(Vec3Dbl(Opaque(1.0), 1e16, -1e16).Dot(Vec3Dbl(1.0)), 0.0);
}

TEST(Vec3Dbl, DotRoundsEachProduct)
{
    // (1 + e)(1 − e) = 1 − e², which rounds to 1: a fused multiply-add would keep the −e².
    double const e = Opaque(0x1p-30);
    EXPECT_SAME_BITS(Vec3Dbl(1.0 + e, -1.0, 0.0).Dot(Vec3Dbl(1.0 - e, 1.0, 0.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(-1.0, 1.0 + e, 0.0).Dot(Vec3Dbl(1.0, 1.0 - e, 0.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(-1.0, 0.0, 1.0 + e).Dot(Vec3Dbl(1.0, 0.0, 1.0 - e)), 0.0);
}

TEST(Vec3Dbl, Cross)
{
    ExpectBits(Vec3Dbl(2.0, 3.0, 5.0).Cross(Vec3Dbl(7.0, 11.0, 13.0)), 39.0 - 55.0, 35.0 - 26.0, 22.0 - 21.0);
    ExpectBits(Vec3Dbl(1.0, 0.0, 0.0).Cross(Vec3Dbl(0.0, 1.0, 0.0)), 0.0, 0.0, 1.0);
    Vec3Dbl const v(1.5, 2.5, 3.5);
    ExpectBits(v.Cross(v), 0.0, 0.0, 0.0);
}

TEST(Vec3Dbl, CrossSubtractsInTheStatedOrder)
{
    // With 0 and −0 the sign of a zero difference shows which product is the minuend:
    // y·oz − oy·z = (−0) − (+0) = −0; in the reverse order it would be +0.
    EXPECT_SAME_BITS(Vec3Dbl(5.0, -1.0, 1.0).Cross(Vec3Dbl(5.0, 0.0, 0.0)).x, -0.0);
    EXPECT_SAME_BITS(Vec3Dbl(1.0, 5.0, -1.0).Cross(Vec3Dbl(0.0, 5.0, 0.0)).y, -0.0);
    EXPECT_SAME_BITS(Vec3Dbl(1.0, 1.0, 5.0).Cross(Vec3Dbl(0.0, -0.0, 5.0)).z, -0.0);
}

// ---- Length ----------------------------------------------------------------------------------------

TEST(Vec3Dbl, LengthSquared)
{
    EXPECT_EQ(Vec3Dbl(2.0, -3.0, 6.0).LengthSquared(), 49.0);
    // At 2^54 doubles are 4 apart: adding 2.25 twice gives 8, adding the sum 4.5 once gives 4.
    double const big = 0x1p+27;
    EXPECT_SAME_BITS(Vec3Dbl(Opaque(big), 1.5, 1.5).LengthSquared(), 0x1p+54 + 8.0);
    EXPECT_SAME_BITS(Vec3Dbl(1.5, Opaque(big), 1.5).LengthSquared(), 0x1p+54 + 8.0);
    EXPECT_SAME_BITS(Vec3Dbl(1.5, 1.5, Opaque(big)).LengthSquared(), 0x1p+54 + 4.0);
}

TEST(Vec3Dbl, LengthSquaredHasTheRangeOfADouble)
{
    EXPECT_SAME_BITS(Vec3Dbl(1e200, 0.0, 0.0).LengthSquared(), infinity);
    EXPECT_SAME_BITS(Vec3Dbl(1e-200, 0.0, 0.0).LengthSquared(), 0.0);
}

TEST(Vec3Dbl, Length)
{
    EXPECT_EQ(Vec3Dbl(2.0, -3.0, 6.0).Length(), 7.0);
    EXPECT_SAME_BITS(Vec3Dbl(-0.0, 0.0, -0.0).Length(), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(infinity, 1.0, 1.0).Length(), infinity);
    EXPECT_SAME_BITS(Vec3Dbl(-infinity, 1.0, nan).Length(), nan);
    EXPECT_SAME_BITS(Vec3Dbl(1.0, nan, 1.0).Length(), nan);
}

TEST(Vec3Dbl, NormalizeDividesByTheLength)
{
    // By exact arithmetic, and different from what a multiplication by 1/L gives.
    Vec3Dbl v(0x1.6c1b57737ec53p+0, 0x1.b67495c79f8c2p+2, 0x1.85bdd8448d892p-1);
    EXPECT_EQ(&v.Normalize(), &v);
    ExpectBits(v, 0x1.9ddc9246b3f2cp-3, 0x1.f25eafe956506p-1, 0x1.baffd566b76c6p-4);
    Vec3Dbl w(-0x1.1117c563ec8a3p+3, -0x1.74823e8d754f2p+2, 0x1.1be6a4ce13e1ep+1);
    w.Normalize();
    ExpectBits(w, -0x1.9d90416af1411p-1, -0x1.1a0ed69dc49aap-1, 0x1.adee52c0deadbp-3);
}

TEST(Vec3Dbl, NormalizeRaisesForAnExactlyNullVectorOnly)
{
    Vec3Dbl null(0.0, -0.0, 0.0);
    EXPECT_THROW(null.Normalize(), VexorNullVector);
    ExpectBits(null, 0.0, -0.0, 0.0);
    for (int i = 0; i < 3; ++i) {
        Vec3Dbl tiny(0.0);
        tiny[i] = -5e-324;
        tiny.Normalize();
        Vec3Dbl expected(0.0);
        expected[i] = -1.0;
        ExpectBits(tiny, expected.x, expected.y, expected.z);
    }
    Vec3Dbl shortOne(1e-300, 0.0, 0.0);
    shortOne.Normalize();
    ExpectBits(shortOne, 1.0, 0.0, 0.0);
}

TEST(Vec3Dbl, NormalizeOfNanAndInfinity)
{
    for (int i = 0; i < 3; ++i) {
        Vec3Dbl v(0.0);
        v[i] = nan;
        v.Normalize();
        ExpectBits(v, nan, nan, nan);
    }
    Vec3Dbl v(infinity, 1.0, -0.0);
    v.Normalize();
    ExpectBits(v, nan, 0.0, -0.0);
}

TEST(Vec3Dbl, GetNormalizedCopy)
{
    Vec3Dbl const v(0x1.6c1b57737ec53p+0, 0x1.b67495c79f8c2p+2, 0x1.85bdd8448d892p-1);
    ExpectBits(v.GetNormalizedCopy(), 0x1.9ddc9246b3f2cp-3, 0x1.f25eafe956506p-1, 0x1.baffd566b76c6p-4);
    ExpectBits(v, 0x1.6c1b57737ec53p+0, 0x1.b67495c79f8c2p+2, 0x1.85bdd8448d892p-1);
    EXPECT_THROW(Vec3Dbl(-0.0).GetNormalizedCopy(), VexorNullVector);
}

// ---- Extremes and order ------------------------------------------------------------------------------

TEST(Vec3Dbl, MaxValue)
{
    for (Vec3Dbl const& v : SmallVectors())
        EXPECT_EQ(v.MaxValue(), std::max({v.x, v.y, v.z}));
}

TEST(Vec3Dbl, MinValue)
{
    for (Vec3Dbl const& v : SmallVectors())
        EXPECT_EQ(v.MinValue(), std::min({v.x, v.y, v.z}));
}

TEST(Vec3Dbl, MaxAbsValue)
{
    for (Vec3Dbl const& v : SmallVectors())
        EXPECT_EQ(v.MaxAbsValue(), std::max({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)}));
    EXPECT_SAME_BITS(Vec3Dbl(0.0).MaxAbsValue(), -0.0);
    EXPECT_SAME_BITS(Vec3Dbl(-0.0).MaxAbsValue(), 0.0);
}

TEST(Vec3Dbl, MinAbsValue)
{
    for (Vec3Dbl const& v : SmallVectors())
        EXPECT_EQ(v.MinAbsValue(), std::min({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)}));
    EXPECT_SAME_BITS(Vec3Dbl(0.0).MinAbsValue(), -0.0);
    EXPECT_SAME_BITS(Vec3Dbl(0.0, 1.0, 2.0).MinAbsValue(), -0.0);
    EXPECT_SAME_BITS(Vec3Dbl(-0.0, 1.0, 2.0).MinAbsValue(), 0.0);
}

// On a tie the later index wins, for maximum and minimum alike: scan from the front and let an equal
// component take over.
TEST(Vec3Dbl, IndicesOfExtremesGoToTheLaterOfEqualOnes)
{
    for (Vec3Dbl const& v : SmallVectors()) {
        int largest = 0;
        int smallest = 0;
        int largestAbs = 0;
        int smallestAbs = 0;
        for (int i = 1; i < 3; ++i) {
            largest = v[i] >= v[largest] ? i : largest;
            smallest = v[i] <= v[smallest] ? i : smallest;
            largestAbs = std::fabs(v[i]) >= std::fabs(v[largestAbs]) ? i : largestAbs;
            smallestAbs = std::fabs(v[i]) <= std::fabs(v[smallestAbs]) ? i : smallestAbs;
        }
        EXPECT_EQ(v.MaxValueIdx(), largest) << v.x << ' ' << v.y << ' ' << v.z;
        EXPECT_EQ(v.MinValueIdx(), smallest) << v.x << ' ' << v.y << ' ' << v.z;
        EXPECT_EQ(v.MaxAbsValueIdx(), largestAbs) << v.x << ' ' << v.y << ' ' << v.z;
        EXPECT_EQ(v.MinAbsValueIdx(), smallestAbs) << v.x << ' ' << v.y << ' ' << v.z;
    }
    EXPECT_EQ(Vec3Dbl(1.0).MaxValueIdx(), 2);
    EXPECT_EQ(Vec3Dbl(1.0).MinValueIdx(), 2);
    EXPECT_EQ(Vec3Dbl(1.0).MaxAbsValueIdx(), 2);
    EXPECT_EQ(Vec3Dbl(1.0).MinAbsValueIdx(), 2);
    EXPECT_EQ(Vec3Dbl(2.0, 2.0, 1.0).MaxValueIdx(), 1);
    EXPECT_EQ(Vec3Dbl(3.0, 3.0, 5.0).MinValueIdx(), 1);
    EXPECT_EQ(Vec3Dbl(-2.0, 2.0, 1.0).MaxAbsValueIdx(), 1);
}

// A comparison with a NaN is false. Worked by hand along the decision trees.
TEST(Vec3Dbl, ExtremesWithNan)
{
    struct Case {
        Vec3Dbl v;
        double max, min, maxAbs, minAbs;
        int maxIdx, minIdx, maxAbsIdx, minAbsIdx;
    };
    Case const cases[] = {
        {{nan, 1.0, 2.0}, 2.0, 1.0, 2.0, 1.0, 2, 1, 2, 1}, {{nan, 2.0, 1.0}, 2.0, 1.0, 2.0, 1.0, 1, 2, 1, 2},
        {{1.0, nan, 2.0}, 2.0, 2.0, 2.0, 2.0, 2, 2, 2, 2}, {{2.0, nan, 1.0}, 1.0, 1.0, 1.0, 1.0, 2, 2, 2, 2},
        {{1.0, 2.0, nan}, nan, nan, nan, nan, 2, 2, 2, 2}, {{2.0, 1.0, nan}, nan, nan, nan, nan, 2, 2, 2, 2},
        {{nan, nan, 1.0}, 1.0, 1.0, 1.0, 1.0, 2, 2, 2, 2}, {{nan, 1.0, nan}, nan, nan, nan, nan, 2, 2, 2, 2},
        {{1.0, nan, nan}, nan, nan, nan, nan, 2, 2, 2, 2}, {{nan, nan, nan}, nan, nan, nan, nan, 2, 2, 2, 2},
    };
    for (Case const& each : cases) {
        SCOPED_TRACE(testing::Message() << each.v.x << ' ' << each.v.y << ' ' << each.v.z);
        EXPECT_SAME_BITS(each.v.MaxValue(), each.max);
        EXPECT_SAME_BITS(each.v.MinValue(), each.min);
        EXPECT_SAME_BITS(each.v.MaxAbsValue(), each.maxAbs);
        EXPECT_SAME_BITS(each.v.MinAbsValue(), each.minAbs);
        EXPECT_EQ(each.v.MaxValueIdx(), each.maxIdx);
        EXPECT_EQ(each.v.MinValueIdx(), each.minIdx);
        EXPECT_EQ(each.v.MaxAbsValueIdx(), each.maxAbsIdx);
        EXPECT_EQ(each.v.MinAbsValueIdx(), each.minAbsIdx);
    }
}

TEST(Vec3Dbl, ValueOrderIsAStableSort)
{
    for (Vec3Dbl const& v : SmallVectors()) {
        std::array<int, 3> expected = {0, 1, 2};
        std::stable_sort(expected.begin(), expected.end(), [&v](int i, int j) { return v[i] < v[j]; });
        EXPECT_EQ(Order(v), expected) << v.x << ' ' << v.y << ' ' << v.z;
    }
    EXPECT_EQ(Order(Vec3Dbl(3.0, 3.0, 5.0)), (std::array<int, 3>{0, 1, 2}));
}

TEST(Vec3Dbl, AbsValueOrderIsAStableSort)
{
    for (Vec3Dbl const& v : SmallVectors()) {
        std::array<int, 3> expected = {0, 1, 2};
        std::stable_sort(expected.begin(), expected.end(),
                         [&v](int i, int j) { return std::fabs(v[i]) < std::fabs(v[j]); });
        EXPECT_EQ(AbsOrder(v), expected) << v.x << ' ' << v.y << ' ' << v.z;
    }
    EXPECT_EQ(AbsOrder(Vec3Dbl(-1.0, 0.0, 1.0)), (std::array<int, 3>{1, 0, 2}));
}

// Here `<` and `>` with a NaN count as true and `<=` as false. Worked by hand along the two trees.
TEST(Vec3Dbl, OrdersWithNan)
{
    struct Case {
        Vec3Dbl v;
        std::array<int, 3> order;
    };
    Case const cases[] = {
        {{nan, 1.0, 2.0}, {1, 2, 0}}, {{nan, 2.0, 1.0}, {2, 1, 0}}, {{1.0, nan, 2.0}, {2, 1, 0}},
        {{2.0, nan, 1.0}, {2, 1, 0}}, {{1.0, 2.0, nan}, {2, 0, 1}}, {{2.0, 1.0, nan}, {2, 1, 0}},
        {{nan, nan, 1.0}, {2, 1, 0}}, {{nan, 1.0, nan}, {2, 1, 0}}, {{1.0, nan, nan}, {2, 1, 0}},
        {{nan, nan, nan}, {2, 1, 0}}, {{nan, 1.0, 1.0}, {1, 2, 0}}, {{1.0, 1.0, nan}, {2, 0, 1}},
    };
    for (Case const& each : cases) {
        SCOPED_TRACE(testing::Message() << each.v.x << ' ' << each.v.y << ' ' << each.v.z);
        EXPECT_EQ(Order(each.v), each.order);
        EXPECT_EQ(AbsOrder(each.v), each.order);
    }
}

// ---- Exact comparison --------------------------------------------------------------------------------

TEST(Vec3Dbl, IsZeroLength)
{
    EXPECT_EQ(Vec3Dbl(1e-5, 0.0, 0.0).IsZeroLength(), 0);
    EXPECT_EQ(Vec3Dbl(0.9e-5, 0.0, 0.0).IsZeroLength(), 1);
    EXPECT_EQ(Vec3Dbl(0.9e-5, 0.0, 0.0).IsZeroLength(-1.0), 1);
    EXPECT_EQ(Vec3Dbl(2.0, 3.0, 6.0).IsZeroLength(49.0), 1);
    EXPECT_EQ(Vec3Dbl(2.0, 3.0, 6.0).IsZeroLength(Below(49.0)), 0);
    EXPECT_EQ(Vec3Dbl(0.0).IsZeroLength(0.0), 1);
    EXPECT_EQ(Vec3Dbl(1e-150, 0.0, 0.0).IsZeroLength(0.0), 0);
    EXPECT_EQ(Vec3Dbl(nan, 0.0, 0.0).IsZeroLength(), 0);
    EXPECT_EQ(Vec3Dbl(infinity, 0.0, 0.0).IsZeroLength(infinity), 1);
}

TEST(Vec3Dbl, LessIsLexicographic)
{
    for (Vec3Dbl const& v : SmallVectors())
        for (Vec3Dbl const& w : SmallVectors()) {
            std::array<double, 3> const a = {v.x, v.y, v.z};
            std::array<double, 3> const b = {w.x, w.y, w.z};
            EXPECT_EQ(v < w, std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end()));
        }
    EXPECT_EQ(Vec3Dbl(1.0, 5.0, 0.0) < Vec3Dbl(2.0, 0.0, 0.0), 1);
}

TEST(Vec3Dbl, LessWithNan)
{
    EXPECT_EQ(Vec3Dbl(nan, 0.0, 0.0) < Vec3Dbl(1.0, 1.0, 1.0), 0);
    EXPECT_EQ(Vec3Dbl(0.0, 0.0, 0.0) < Vec3Dbl(nan, 1.0, 1.0), 0);
    EXPECT_EQ(Vec3Dbl(1.0, nan, 0.0) < Vec3Dbl(1.0, 1.0, 1.0), 0);
    EXPECT_EQ(Vec3Dbl(1.0, 1.0, 0.0) < Vec3Dbl(1.0, nan, 1.0), 0);
    EXPECT_EQ(Vec3Dbl(1.0, 1.0, nan) < Vec3Dbl(1.0, 1.0, 1.0), 0);
    EXPECT_EQ(Vec3Dbl(1.0, 1.0, 0.0) < Vec3Dbl(1.0, 1.0, nan), 0);
    // A NaN after the deciding component is not read.
    EXPECT_EQ(Vec3Dbl(0.0, nan, nan) < Vec3Dbl(1.0, 1.0, 1.0), 1);
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, nan) < Vec3Dbl(1.0, 1.0, nan), 1);
}

// ---- Direction within a tolerance --------------------------------------------------------------------

TEST(Vec3Dbl, IsEqualTo)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    EXPECT_EQ(x.IsEqualTo(x), 1);
    EXPECT_EQ(x.IsEqualTo(Vec3Dbl(1.0, 1e-6, 0.0)), 0); // close enough, but the angle fails
    EXPECT_EQ(x.IsEqualTo(Vec3Dbl(1.000001, 0.0, 0.0)), 1);
    EXPECT_EQ(x.IsEqualTo(Vec3Dbl(1.00002, 0.0, 0.0)), 0); // the same direction, but too far
    EXPECT_EQ(x.IsEqualTo(-x, 1.0, 100.0), 0);
    EXPECT_EQ(x.IsEqualTo(Vec3Dbl(nan, 0.0, 0.0), 1.0, 100.0), 0);
}

TEST(Vec3Dbl, IsEqualToOfNullVectors)
{
    Vec3Dbl const null(0.0);
    EXPECT_EQ(null.IsEqualTo(null), 1);
    EXPECT_EQ(null.IsEqualTo(Vec3Dbl(-0.0), 0.0, 0.0), 1);
    EXPECT_EQ(null.IsEqualTo(null, nan, nan), 1);
    EXPECT_EQ(null.IsEqualTo(Vec3Dbl(1e-300, 0.0, 0.0), 10.0, 10.0), 0);
    EXPECT_EQ(Vec3Dbl(1e-300, 0.0, 0.0).IsEqualTo(null, 10.0, 10.0), 0);
    EXPECT_EQ(Vec3Dbl(1.0).IsEqualTo(null, 10.0, 10.0), 0);
}

TEST(Vec3Dbl, IsEqualToOfAShortVectorIsFalseEvenForItself)
{
    Vec3Dbl const tiny(1e-6, 0.0, 0.0);
    EXPECT_EQ(tiny.IsEqualTo(tiny), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, -1.0, 1.0), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, 10.0, 0.0), 0); // a length of 0 is not passed on to the direction test
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(1e-7);
    EXPECT_EQ(tiny.IsEqualTo(tiny), 1);
}

TEST(Vec3Dbl, IsEqualToTestsTheDirectionWithTheGlobalLength)
{
    // The caller's length tolerance covers both vectors, and they are equal nevertheless.
    EXPECT_EQ(Vec3Dbl(2.0, 0.0, 0.0).IsEqualTo(Vec3Dbl(3.0, 0.0, 0.0), -1.0, 100.0), 1);
}

TEST(Vec3Dbl, IsEqualToAtTheBoundaries)
{
    Vec3Dbl const a(1.0, 0.0, 0.0);
    Vec3Dbl const b(3.0, 0.0, 0.0);
    EXPECT_EQ(a.IsEqualTo(b, 0.0, 4.0), 1);
    EXPECT_EQ(a.IsEqualTo(b, 0.0, Below(4.0)), 0);
    EXPECT_EQ(a.IsEqualTo(b, 0.0, nan), 0);
    EXPECT_EQ(a.IsEqualTo(b, nan, 4.0), 0);
    Vec3Dbl const c(1.0, 1.0, 0.0); // at 45°, the squared sine is 0.5
    EXPECT_EQ(a.IsEqualTo(c, 0.5, 1.0), 1);
    EXPECT_EQ(a.IsEqualTo(c, Below(0.5), 1.0), 0);
    EXPECT_EQ(a.IsEqualTo(c, 0.5, Below(1.0)), 0);
}

TEST(Vec3Dbl, DirectionTestsOfSimpleVectors)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    Vec3Dbl const back(-2.0, 0.0, 0.0);
    Vec3Dbl const y(0.0, 3.0, 0.0);
    EXPECT_EQ(x.IsParallelTo(back), 1);
    EXPECT_EQ(x.IsCodirectionalTo(back), 0);
    EXPECT_EQ(x.IsPerpendicularTo(back), 0);
    EXPECT_EQ(x.IsCodirectionalTo(-back), 1);
    EXPECT_EQ(x.IsParallelTo(y), 0);
    EXPECT_EQ(x.IsCodirectionalTo(y), 0);
    EXPECT_EQ(x.IsPerpendicularTo(y), 1);
    EXPECT_EQ(x.IsParallelTo(x), 1);
    EXPECT_EQ(x.IsPerpendicularTo(x), 0);
}

TEST(Vec3Dbl, DirectionTestsOfAZeroLengthOperandGive0)
{
    for (Vec3Dbl const& zero : {Vec3Dbl(0.0), Vec3Dbl(0.0, 1e-6, 0.0), Vec3Dbl(-0.0)})
        for (Vec3Dbl const& v : {Vec3Dbl(1.0, 0.0, 0.0), Vec3Dbl(0.0), Vec3Dbl(nan)}) {
            EXPECT_EQ(zero.IsParallelTo(v, 10.0), 0);
            EXPECT_EQ(v.IsParallelTo(zero, 10.0), 0);
            EXPECT_EQ(zero.IsCodirectionalTo(v, 10.0), 0);
            EXPECT_EQ(v.IsCodirectionalTo(zero, 10.0), 0);
            EXPECT_EQ(zero.IsPerpendicularTo(v, 10.0), 0);
            EXPECT_EQ(v.IsPerpendicularTo(zero, 10.0), 0);
        }
}

TEST(Vec3Dbl, DirectionTestsAtTheLengthBoundary)
{
    Vec3Dbl const five(3.0, 4.0, 0.0);
    Vec3Dbl const ten(6.0, 8.0, 0.0);
    Vec3Dbl const across(-8.0, 6.0, 0.0);
    struct Case {
        double length;
        int expected;
    };
    for (Case const& each : {Case{25.0, 0}, Case{Below(25.0), 1}, Case{Above(25.0), 0}, Case{nan, 1}}) {
        EXPECT_EQ(five.IsParallelTo(ten, 0.0, each.length), each.expected);
        EXPECT_EQ(ten.IsParallelTo(five, 0.0, each.length), each.expected);
        EXPECT_EQ(five.IsCodirectionalTo(ten, 0.0, each.length), each.expected);
        EXPECT_EQ(ten.IsCodirectionalTo(five, 0.0, each.length), each.expected);
        EXPECT_EQ(five.IsPerpendicularTo(across, 0.0, each.length), each.expected);
        EXPECT_EQ(across.IsPerpendicularTo(five, 0.0, each.length), each.expected);
    }
}

// With the given tolerance the test passes, and with one a unit in the last place below it fails. The value
// is that of 1 − ((d·d) / A) / B in this order, worked in exact arithmetic with a rounding at each
// step; the quotient by A·B, the other order of the divisions, and the squared cosine through lengths
// give another.
TEST(Vec3Dbl, IsParallelToAtTheAngularBoundary)
{
    struct Case {
        Vec3Dbl a, b;
        double value;
    };
    Case const cases[] = {
        {{0x1.3b7763791884ap+0, 0x1.4f1e87ad181b7p+0, -0x1.3ec6060061fp+3},
         {-0x1.7d3fd6d0cd7c2p+1, 0x1.1a90a883aadb1p-2, 0x1.1cf5ae9e6bd49p+3},
         0x1.0481a70938fp-4},
        {{-0x1.0c152af33a38cp+2, -0x1.0d8cf13a93abep+2, 0x1.b59c7cad6aff8p-1},
         {-0x1.d4475ceae14d5p+1, -0x1.b10aea6a6264cp+1, 0x1.8d3f617c6850dp+1},
         0x1.4e5b7d6dc225p-3},
        {{1.0, 0.0, 0.0}, {1.0, -1.0, 0.0}, 0.5},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsParallelTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsParallelTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsParallelTo(-each.b, each.value), 1);
        EXPECT_EQ(each.a.IsParallelTo(-each.b, Below(each.value)), 0);
        Vec3Dbl const forward = each.a.Dot(each.b) > 0.0 ? each.b : -each.b;
        EXPECT_EQ(each.a.IsCodirectionalTo(forward, each.value), 1);
        EXPECT_EQ(each.a.IsCodirectionalTo(forward, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsCodirectionalTo(-forward, 10.0), 0);
    }
}

TEST(Vec3Dbl, IsParallelToPassesWhenRoundingTakesTheCosineAbove1)
{
    // Q is 1 + 2^-52 here: 1 − Q is negative, is not clamped, and is within a tolerance of 0.
    for (Vec3Dbl const& v : {Vec3Dbl(0x1.e61c8e095a536p+2, -0x1.e7a0814b7944dp+2, -0x1.f35fd9709523ep+0),
                             Vec3Dbl(-0x1.c5ad7c61187a3p+2, 0x1.2801c1b1d6d1dp+2, -0x1.6926e76f00f33p+2)}) {
        EXPECT_EQ(v.IsParallelTo(3.0 * v, 0.0), 1);
        EXPECT_EQ(v.IsCodirectionalTo(3.0 * v, 0.0), 1);
    }
}

TEST(Vec3Dbl, IsParallelToDividesByATinySquaredLengthAsItStands)
{
    // A = 149 * 2^-1030 has no room for another bit, d = 127 * 2^-515, B = 131. The sine squared
    // 1 - ((d * d) / A) / B was worked out in IEEE doubles.
    Vec3Dbl const tiny(0x1p-512, 0x1.8p-513, 0x1.cp-513);
    Vec3Dbl const other(9, 1, 7);
    double const sineSquared = 0x1.63b0baf938258p-3;
    EXPECT_EQ(tiny.IsParallelTo(other, sineSquared, 0.0), 1);
    EXPECT_EQ(other.IsParallelTo(tiny, 0x1.63b0baf93825cp-3, 0.0), 1); // B and A exchanged
    EXPECT_EQ(other.IsParallelTo(tiny, 0x1.63b0baf93825bp-3, 0.0), 0);
    EXPECT_EQ(tiny.IsParallelTo(other, 0x1.63b0baf938257p-3, 0.0), 0);
    EXPECT_EQ(tiny.IsParallelTo(other, sineSquared), 0); // shorter than the global's tolerance
}

TEST(Vec3Dbl, IsCodirectionalToNeedsADotProductAbove0)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    EXPECT_EQ(x.IsParallelTo(Vec3Dbl(0.0, 1.0, 0.0), 1.0), 1);
    EXPECT_EQ(x.IsCodirectionalTo(Vec3Dbl(0.0, 1.0, 0.0), 1.0), 0);
    EXPECT_EQ(x.IsCodirectionalTo(Vec3Dbl(5e-324, 1.0, 0.0), 1.0), 1);
    EXPECT_EQ(x.IsCodirectionalTo(Vec3Dbl(-5e-324, 1.0, 0.0), 1.0), 0);
    EXPECT_EQ(x.IsCodirectionalTo(Vec3Dbl(nan, 1.0, 0.0), 1.0), 0);
}

TEST(Vec3Dbl, IsPerpendicularToAtTheAngularBoundary)
{
    struct Case {
        Vec3Dbl a, b;
        double value;
    };
    Case const cases[] = {
        {{-0x1.8c0a524c0427ep-1, 0x1.e20d9c4fffc3bp+2, -0x1.3d0ff72290baap+1},
         {0x1.6a3bc111245ccp+2, 0x1.72b8f108b9179p+2, -0x1.fd8f1b491dc9p+1},
         0x1.dde4ac371b346p-2},
        {{0x1.2c4cd99c4743ep+3, -0x1.2298b98a527ap+3, 0x1.3efb0ab334f28p+2},
         {-0x1.5404934a89a0bp-1, -0x1.6793b14778dfp+2, 0x1.97160426f8589p+1},
         0x1.c98ef12157f02p-2},
        {{1.0, 0.0, 0.0}, {1.0, -1.0, 0.0}, 0.5},
        {{1.0, 0.0, 0.0}, {0.0, -1.0, 0.0}, 0.0},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsPerpendicularTo(each.b, each.value), 1);
        if (each.value > 0.0) {
            EXPECT_EQ(each.a.IsPerpendicularTo(each.b, Below(each.value)), 0);
        }
    }
}

TEST(Vec3Dbl, DirectionTestsFollowTheGlobalAngle)
{
    RestoreTolerance const restore;
    Vec3Dbl const x(1.0, 0.0, 0.0);
    Vec3Dbl const diagonal(1.0, 1.0, 0.0);
    EXPECT_EQ(x.IsParallelTo(diagonal), 0);
    EXPECT_EQ(x.IsPerpendicularTo(diagonal), 0);
    gVexorTolerance.sin2Angle = 0.5f;
    EXPECT_EQ(x.IsParallelTo(diagonal), 1);
    EXPECT_EQ(x.IsCodirectionalTo(diagonal), 1);
    EXPECT_EQ(x.IsPerpendicularTo(diagonal), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(0.5 * x), 1);
    EXPECT_EQ(x.IsUnitParallelTo(Vec3Dbl(0.75, 0.0, 0.0)), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(Vec3Dbl(0.75, 0.0, 0.0)), 1);
    EXPECT_EQ(x.IsEqualTo(diagonal, -1.0, 1.0), 1);
}

TEST(Vec3Dbl, IsUnitParallelTo)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    EXPECT_EQ(x.IsUnitParallelTo(x), 1);
    EXPECT_EQ(x.IsUnitParallelTo(-x), 1);
    EXPECT_EQ(x.IsUnitParallelTo(Vec3Dbl(0.0, 1.0, 0.0)), 0);
    EXPECT_EQ((2.0 * x).IsUnitParallelTo(2.0 * x), 0); // |1 − 16|: too long fails like too short
    EXPECT_EQ((2.0 * x).IsParallelTo(2.0 * x), 1);
    for (double d : {0.5, -0.5}) { // 1 − d² is 0.75
        EXPECT_EQ(x.IsUnitParallelTo(d * x, 0.75), 1);
        EXPECT_EQ(x.IsUnitParallelTo(d * x, Below(0.75)), 0);
    }
    EXPECT_EQ(x.IsUnitParallelTo(2.0 * x, 3.0), 1); // |1 − 4|
    EXPECT_EQ(x.IsUnitParallelTo(2.0 * x, Below(3.0)), 0);
    EXPECT_EQ(Vec3Dbl(0.0).IsUnitParallelTo(x, 1.0), 1); // the length is not tested
    EXPECT_EQ(x.IsUnitParallelTo(x, nan), 0);
    EXPECT_EQ(x.IsUnitParallelTo(Vec3Dbl(nan), 1.0), 0);
}

TEST(Vec3Dbl, IsUnitCodirectionalTo)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(x), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(-x, 10.0), 0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(Vec3Dbl(0.0, 1.0, 0.0), 1.0), 0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(Vec3Dbl(5e-324, 1.0, 0.0), 1.0), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(0.5 * x, 0.75), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(0.5 * x, Below(0.75)), 0);
    EXPECT_EQ(x.IsUnitCodirectionalTo(2.0 * x, 3.0), 1);
    EXPECT_EQ(x.IsUnitCodirectionalTo(2.0 * x, Below(3.0)), 0);
}

TEST(Vec3Dbl, IsUnitPerpendicularTo)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    EXPECT_EQ(x.IsUnitPerpendicularTo(Vec3Dbl(0.0, 1.0, 0.0)), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(x), 0);
    EXPECT_EQ(x.IsUnitPerpendicularTo(-0.5 * x, 0.25), 1);
    EXPECT_EQ(x.IsUnitPerpendicularTo(-0.5 * x, Below(0.25)), 0);
    EXPECT_EQ(Vec3Dbl(0.0).IsUnitPerpendicularTo(x, 0.0), 1); // the length is not tested
    EXPECT_EQ(x.IsUnitPerpendicularTo(x, nan), 0);
}

// ---- Angles and area -----------------------------------------------------------------------------------

TEST(Vec3Dbl, GetAngleWith)
{
    Vec3Dbl const x(2.0, 0.0, 0.0);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec3Dbl(0.0, 0.0, 5.0)), pi / 2);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec3Dbl(0.0, -5.0, 0.0)), pi / 2);
    EXPECT_SAME_BITS(x.GetAngleWith(x), 0.0);
    EXPECT_SAME_BITS(x.GetAngleWith(-x), pi);
    EXPECT_NEAR(x.GetAngleWith(Vec3Dbl(1.0, 1.0, 0.0)), pi / 4, 1e-15);
    EXPECT_NEAR(x.GetAngleWith(Vec3Dbl(-1.0, 1.0, 0.0)), 3 * pi / 4, 1e-15);
    // C = (d / L1) / L2, and not d / (L1·L2), whose arc cosine differs by one unit in the last place.
    EXPECT_NEAR(Vec3Dbl(-0x1.239acb410747dp+3, -0x1.76c8822d70c44p+2, -0x1.c2bd71ca3abe9p+0)
                    .GetAngleWith(Vec3Dbl(0x1.c21dae396a536p+0, 0x1.faf44652c9897p+2, 0x1.1ca316cafa8d7p+3)),
                0x1.19f9ce6311ef8p+1, 0x1p-52);
}

TEST(Vec3Dbl, GetAngleWithNeverLeavesTheDomainOfTheArcCosine)
{
    for (Vec3Dbl const& v : {Vec3Dbl(0x1.e61c8e095a536p+2, -0x1.e7a0814b7944dp+2, -0x1.f35fd9709523ep+0),
                             Vec3Dbl(0.1, 0.2, 0.3), Vec3Dbl(1e-3, 1e3, 1.0)}) {
        EXPECT_NEAR(v.GetAngleWith(3.0 * v), 0.0, 4e-8);
        EXPECT_NEAR(v.GetAngleWith(-3.0 * v), pi, 4e-8);
    }
}

// For any lengths: neither the dot product nor the squared lengths overflow or underflow.
TEST(Vec3Dbl, GetAngleWithHasTheRangeOfADouble)
{
    EXPECT_SAME_BITS(Vec3Dbl(1e-200, 0.0, 0.0).GetAngleWith(Vec3Dbl(1e-200, 0.0, 0.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(1e-160, 0.0, 0.0).GetAngleWith(Vec3Dbl(1e-160, 0.0, 0.0)), 0.0);
    EXPECT_NEAR(Vec3Dbl(1e200, 0.0, 0.0).GetAngleWith(Vec3Dbl(1e200, 1e200, 0.0)), pi / 4, 1e-15);
    EXPECT_NEAR(Vec3Dbl(-1e200, 0.0, 0.0).GetAngleWith(Vec3Dbl(1e200, 1e200, 0.0)), 3 * pi / 4, 1e-15);
    EXPECT_NEAR(Vec3Dbl(1e-200, 0.0, 0.0).GetAngleWith(Vec3Dbl(1e200, 1e200, 0.0)), pi / 4, 1e-15);
}

TEST(Vec3Dbl, GetAngleWithANullVectorIs0)
{
    EXPECT_SAME_BITS(Vec3Dbl(1.0, 2.0, 3.0).GetAngleWith(Vec3Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(-0.0).GetAngleWith(Vec3Dbl(1.0, 2.0, 3.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(0.0).GetAngleWith(Vec3Dbl(nan)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(nan).GetAngleWith(Vec3Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(nan).GetAngleWith(Vec3Dbl(1.0)), nan);
}

TEST(Vec3Dbl, GetCCWAngleWith)
{
    Vec3Dbl const x(3.0, 0.0, 0.0);
    Vec3Dbl const y(0.0, 0.5, 0.0);
    Vec3Dbl const up(0.0, 0.0, 1.0);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, up), pi / 2);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, -up), 6.283185307179586 - pi / 2);
    EXPECT_SAME_BITS(y.GetCCWAngleWith(x, up), 6.283185307179586 - pi / 2);
    EXPECT_NEAR(x.GetCCWAngleWith(Vec3Dbl(1.0, 1.0, 0.0), up), pi / 4, 1e-15);
    EXPECT_NEAR(x.GetCCWAngleWith(Vec3Dbl(-1.0, -1.0, 0.0), up), 5 * pi / 4, 2e-15);
    // Only the side of the normal matters, not its length or its slope.
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, Vec3Dbl(100.0, -50.0, 1e-3)), pi / 2);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, Vec3Dbl(0.0, 0.0, -1e-300)), 6.283185307179586 - pi / 2);
    // Without a side the result is the angle itself.
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, Vec3Dbl(0.0)), pi / 2);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, x), pi / 2);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(y, Vec3Dbl(nan)), pi / 2);
}

TEST(Vec3Dbl, GetCCWAngleWithOfParallelVectors)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    for (Vec3Dbl const& normal : {Vec3Dbl(0.0, 0.0, 1.0), Vec3Dbl(0.0, 0.0, -1.0), Vec3Dbl(0.0)}) {
        EXPECT_SAME_BITS(x.GetCCWAngleWith(2.0 * x, normal), 0.0);
        EXPECT_SAME_BITS(x.GetCCWAngleWith(-2.0 * x, normal), pi);
        // Within the angular tolerance of the global: equal, or opposite, after normalising.
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(1.0, 1e-8, 0.0), normal), 0.0);
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(-1.0, 1e-8, 0.0), normal), pi);
        // Beyond it, but with a cross product within the length tolerance.
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(1.0, 1e-6, 0.0), normal), 0.0);
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(1.0, -1e-6, 0.0), normal), 0.0);
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(-1.0, 1e-6, 0.0), normal), pi);
        EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(-1.0, -1e-6, 0.0), normal), pi);
    }
    // Beyond both: a small turn one way, and almost a full one the other way.
    Vec3Dbl const up(0.0, 0.0, 1.0);
    EXPECT_NEAR(x.GetCCWAngleWith(Vec3Dbl(1.0, 1e-4, 0.0), up), 1e-4, 1e-11);
    EXPECT_NEAR(x.GetCCWAngleWith(Vec3Dbl(1.0, -1e-4, 0.0), up), 2 * pi - 1e-4, 1e-11);
}

TEST(Vec3Dbl, GetCCWAngleWithFollowsTheGlobal)
{
    // 41° apart, and as far from opposite: within both tolerances this counts as equal and as opposite.
    RestoreTolerance const restore;
    gVexorTolerance.sin2Angle = 0.5f;
    gVexorTolerance.lengthSquared = 0.9f;
    Vec3Dbl const x(1.0, 0.0, 0.0);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(0.75, 0.65, 0.0), Vec3Dbl(0.0, 0.0, 1.0)), 0.0);
    EXPECT_SAME_BITS(x.GetCCWAngleWith(Vec3Dbl(-0.75, 0.65, 0.0), Vec3Dbl(0.0, 0.0, 1.0)), pi);
}

// Two unit vectors that differ by at most the length tolerance also have a cross product within it, up to
// rounding. Here the rounded difference is within the given tolerance and the rounded cross
// product is not, so only the test for equal and for opposite vectors excludes an angle.
TEST(Vec3Dbl, GetCCWAngleWithTestsEqualAndOppositeVectorsFirst)
{
    RestoreTolerance const restore;
    Vec3Dbl const a(-0x1.7fab47d19c824p+1, -0x1.31fc8c55b65e8p+1, -0x1.225142fcd0584p+0);
    Vec3Dbl const nearA(-0x1.7fab47d7655a3p+1, -0x1.31fc8c53aa144p+1, -0x1.22514308632ddp+0);
    gVexorTolerance.lengthSquared = 0x1.84ba58p-61f;
    EXPECT_EQ(a.GetNormalizedCopy().Cross(nearA.GetNormalizedCopy()).IsZeroLength(), 0);
    EXPECT_SAME_BITS(a.GetCCWAngleWith(nearA, Vec3Dbl(-1.0, 1.0, 1.0)), 0.0); // and not 2π − 0

    Vec3Dbl const b(-0x1.dc988db538f68p-1, -0x1.cdba55155037ep+1, 0x1.854dbdb667850p+0);
    Vec3Dbl const oppositeB(0x1.dc988dac92187p-1, 0x1.cdba5516acda6p+1, -0x1.854dbdc2f8949p+0);
    gVexorTolerance.lengthSquared = 0x1.2005d8p-61f;
    EXPECT_EQ(b.GetNormalizedCopy().Cross(oppositeB.GetNormalizedCopy()).IsZeroLength(), 0);
    EXPECT_SAME_BITS(b.GetCCWAngleWith(oppositeB, Vec3Dbl(0.0)), pi); // the angle itself is 1.5e-8 less
}

TEST(Vec3Dbl, GetCCWAngleWithOfAShortVectorIs0)
{
    Vec3Dbl const up(0.0, 0.0, 1.0);
    EXPECT_SAME_BITS(Vec3Dbl(0.0).GetCCWAngleWith(Vec3Dbl(0.0, 1.0, 0.0), up), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(0.0, 1.0, 0.0).GetCCWAngleWith(Vec3Dbl(0.0), up), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(1e-6, 0.0, 0.0).GetCCWAngleWith(Vec3Dbl(0.0, 1.0, 0.0), up), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(0.0, 1.0, 0.0).GetCCWAngleWith(Vec3Dbl(-1e-6, 0.0, 0.0), up), 0.0);
    // At the squared length of the global itself, and above it. The normalised vectors must stay
    // above it, hence the small tolerance.
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(0.5);
    Vec3Dbl const other(0.0, 3.0, 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(0.5, 0.0, 0.0).GetCCWAngleWith(other, up), 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(Above(0.5), 0.0, 0.0).GetCCWAngleWith(other, up), pi / 2);
    EXPECT_SAME_BITS(other.GetCCWAngleWith(Vec3Dbl(0.5, 0.0, 0.0), -up), 0.0);
    EXPECT_SAME_BITS(other.GetCCWAngleWith(Vec3Dbl(Above(0.5), 0.0, 0.0), -up), pi / 2);
}

TEST(Vec3Dbl, GetAreaFormedByTriangleWith)
{
    EXPECT_EQ(Vec3Dbl(3.0, 0.0, 0.0).GetAreaFormedByTriangleWith(Vec3Dbl(5.0, 4.0, 0.0)), 6.0);
    EXPECT_EQ(Vec3Dbl(5.0, 4.0, 0.0).GetAreaFormedByTriangleWith(Vec3Dbl(3.0, 0.0, 0.0)), 6.0);
    EXPECT_EQ(Vec3Dbl(1.0, 2.0, 3.0).GetAreaFormedByTriangleWith(Vec3Dbl(0.0)), 0.0);
    // The root of A·B − d·d, which differs here from half the length of the cross product.
    Vec3Dbl const a(-0x1.35274d6608139p+0, -0x1.72e315a1e9e8p+1, -0x1.b6b5e7df20339p-1);
    Vec3Dbl const b(-0x1.1c4e46a3f8f5bp+2, -0x1.fb183a02ef9bap+2, -0x1.f05f9445093c3p+2);
    EXPECT_SAME_BITS(a.GetAreaFormedByTriangleWith(b), 0x1.0f6fb9a65ffp+3);
}

TEST(Vec3Dbl, GetAreaFormedByTriangleWithAParallelVectorCanBeNan)
{
    Vec3Dbl const v(-0x1.d7a07ee206d4ep-3, -0x1.bc8d1f948e3a2p+1, 0x1.26f1335450f8fp+3);
    EXPECT_SAME_BITS(v.GetAreaFormedByTriangleWith(3.0 * v), nan); // the difference is −2^-36
}

// ---- Projection, perpendiculars, rotation ------------------------------------------------------------------

TEST(Vec3Dbl, GetProjectionOnTo)
{
    ExpectBits(Vec3Dbl(3.0, 4.0, 5.0).GetProjectionOnTo(Vec3Dbl(0.0, 0.0, -7.0)), -0.0, -0.0, 5.0);
    // (v·u) u with u the normalised target; ((v·t) / (t·t)) t gives other bits.
    ExpectBits(
        Vec3Dbl(0x1.f7e8974c81fa1p+2, -0x1.98b09ed66314p+0, -0x1.438fc9137ed1ap+2)
            .GetProjectionOnTo(Vec3Dbl(0x1.1ff1dcaaececp+3, 0x1.198fdc78959c6p+3, -0x1.a0a09552f72b7p+2)),
        0x1.0156c4f75403ap+2, 0x1.f744e52b5b1ccp+1, -0x1.7457fcfc03d9dp+1);
    ExpectBits(Vec3Dbl(0.0).GetProjectionOnTo(Vec3Dbl(0.0, 2.0, 0.0)), 0.0, 0.0, 0.0);
    Vec3Dbl const v(0.0, -4.0, 0.0);
    ExpectBits(v.GetProjectionOnTo(v), 0.0, -4.0, 0.0);
    EXPECT_THROW(v.GetProjectionOnTo(Vec3Dbl(0.0)), VexorNullVector);
    EXPECT_THROW(Vec3Dbl(0.0).GetProjectionOnTo(Vec3Dbl(-0.0)), VexorNullVector);
    EXPECT_NO_THROW(v.GetProjectionOnTo(Vec3Dbl(1e-300)));
}

TEST(Vec3Dbl, GetPerpendicular)
{
    ExpectBits(Vec3Dbl(1.0, 0.0, 0.0).GetPerpendicular(), 0.0, -1.0, 0.0);
    ExpectBits(Vec3Dbl(0.0, 1.0, 0.0).GetPerpendicular(), -1.0, 0.0, 0.0);
    ExpectBits(Vec3Dbl(0.0, 0.0, 1.0).GetPerpendicular(), -1.0, 0.0, 0.0);
    ExpectBits(Vec3Dbl(-2.0, 0.0, 0.0).GetPerpendicular(), 0.0, 1.0, 0.0);
    ExpectBits(Vec3Dbl(3.0, -5.0, 0.0).GetPerpendicular(), 0.0, 0.0, 1.0);
    // The smallest component takes the largest's place and the largest, negated, the smallest's:
    // 3-4-5 triangles, worked by hand.
    ExpectBits(Vec3Dbl(3.0, 3.5, 4.0).GetPerpendicular(), -4.0 / 5.0, 0.0, 3.0 / 5.0);
    ExpectBits(Vec3Dbl(-4.0, 3.5, 3.0).GetPerpendicular(), 3.0 / 5.0, 0.0, 4.0 / 5.0);
    ExpectBits(Vec3Dbl(3.5, -3.0, 4.0).GetPerpendicular(), 0.0, -4.0 / 5.0, -3.0 / 5.0);
    // All equal: the smallest is x and the largest z.
    double const half = std::sqrt(0.5);
    ExpectNear(Vec3Dbl(2.0).GetPerpendicular(), -half, 0.0, half, 1e-15);
}

TEST(Vec3Dbl, GetPerpendicularOfAShortVectorIsAUnitVector)
{
    ExpectBits(Vec3Dbl(0.0).GetPerpendicular(), 1.0, 0.0, 0.0);
    ExpectBits(Vec3Dbl(-0.0).GetPerpendicular(), 1.0, 0.0, -0.0);
    ExpectBits(Vec3Dbl(1e-6, 0.0, 0.0).GetPerpendicular(), 0.0, 1.0, 0.0); // and not (0, −1, 0)
    ExpectNear(Vec3Dbl(3e-6, 1e-6, 2e-6).GetPerpendicular(), 1e-6, 1.0 - 5e-13, 0.0, 1e-15);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(2.0);
    ExpectBits(Vec3Dbl(2.0, 0.0, 0.0).GetPerpendicular(), 0.0, 1.0, 0.0);
    ExpectBits(Vec3Dbl(Above(2.0), 0.0, 0.0).GetPerpendicular(), 0.0, -1.0, 0.0);
}

TEST(Vec3Dbl, GetPerpendicularNearestTo)
{
    Vec3Dbl const x(1.0, 0.0, 0.0);
    ExpectBits(x.GetPerpendicularNearestTo(Vec3Dbl(1.0, 1.0, 0.0)), 0.0, 1.0, 0.0);
    ExpectBits(x.GetPerpendicularNearestTo(Vec3Dbl(2.0, 0.0, 0.0)), 0.0, -1.0, 0.0);
    ExpectBits(x.GetPerpendicularNearestTo(Vec3Dbl(0.0)), 0.0, -1.0, 0.0);
    ExpectBits(Vec3Dbl(0.0).GetPerpendicularNearestTo(x), 1.0, 0.0, 0.0);
    ExpectBits(x.GetPerpendicularNearestTo(x), 0.0, -1.0, 0.0);
    Vec3Dbl const w = Vec3Dbl(1.0, 2.0, 3.0).GetPerpendicularNearestTo(Vec3Dbl(4.0, 0.0, -1.0));
    EXPECT_NEAR(w.Length(), 1.0, 1e-15);
    EXPECT_NEAR(w.Dot(Vec3Dbl(1.0, 2.0, 3.0)), 0.0, 1e-14);
    // r − (r·n)n of the reference, by hand: 14 r − 1·(1, 2, 3) = (55, −2, −17).
    double const length = std::sqrt(55.0 * 55.0 + 2.0 * 2.0 + 17.0 * 17.0);
    ExpectNear(w, 55.0 / length, -2.0 / length, -17.0 / length, 1e-15);
}

TEST(Vec3Dbl, GetPerpendicularNearestToDependsOnTheScale)
{
    // Only the part of the reference perpendicular to the vector matters, times the vector's squared length.
    Vec3Dbl const reference(0.0, 1e-3, 0.0);
    ExpectBits(Vec3Dbl(1.0, 0.0, 0.0).GetPerpendicularNearestTo(reference), 0.0, 1.0, 0.0);
    ExpectBits(Vec3Dbl(1e-2, 0.0, 0.0).GetPerpendicularNearestTo(reference), 0.0, -1.0, 0.0);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(2.0);
    Vec3Dbl const one(1.0, 0.0, 0.0);
    ExpectBits(one.GetPerpendicularNearestTo(Vec3Dbl(0.0, 0.0, 2.0)), 0.0, 1.0, 0.0); // inclusive
    ExpectBits(one.GetPerpendicularNearestTo(Vec3Dbl(0.0, 0.0, Above(2.0))), -0.0, 0.0, 1.0);
    ExpectBits(Vec3Dbl(3.0, 0.0, 0.0).GetPerpendicularNearestTo(Vec3Dbl(0.0, 0.0, 0.25)), -0.0, 0.0, 1.0);
}

TEST(Vec3Dbl, Rotate)
{
    Vec3Dbl v(1.0, 0.0, 0.0);
    EXPECT_EQ(&v.Rotate(Vec3Dbl(0.0, 0.0, 1.0), pi / 2), &v);
    ExpectNear(v, 0.0, 1.0, 0.0, 1e-15);
    Vec3Dbl along(0.0, 5.0, 0.0);
    along.Rotate(Vec3Dbl(0.0, 1.0, 0.0), 1.234);
    ExpectNear(along, 0.0, 5.0, 0.0, 1e-15);
}

TEST(Vec3Dbl, RotateAgainstRodriguesFormula)
{
    // v cos a + (n × v) sin a + n (n·v)(1 − cos a), in extended precision.
    Vec3Dbl const axes[] = {{2.0 / 7.0, 3.0 / 7.0, 6.0 / 7.0}, {-0.6, 0.0, 0.8}, {0.0, 1.0, 0.0}};
    Vec3Dbl const vectors[] = {{1.0, 2.0, 3.0}, {-4.0, 0.5, 0.25}, {0.0, 0.0, 1.0}};
    for (Vec3Dbl const& n : axes)
        for (Vec3Dbl const& v : vectors)
            for (double angle : {-2.5, -0.3, 0.0, 0.7, 3.0, 100.0}) {
                long double const c = std::cos(static_cast<long double>(angle));
                long double const s = std::sin(static_cast<long double>(angle));
                long double const nx = n.x, ny = n.y, nz = n.z, vx = v.x, vy = v.y, vz = v.z;
                long double const t = (nx * vx + ny * vy + nz * vz) * (1.0L - c);
                Vec3Dbl rotated(v);
                rotated.Rotate(n, angle);
                ExpectNear(rotated, double(vx * c + (ny * vz - nz * vy) * s + nx * t),
                           double(vy * c + (nz * vx - nx * vz) * s + ny * t),
                           double(vz * c + (nx * vy - ny * vx) * s + nz * t), 2e-14);
            }
}

TEST(Vec3Dbl, RotateAboutAnAxisThatIsNotUnit)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build stops on an axis that is not unit";
#endif
    // The axis (0, 0, 2) has p = (−1, 0, 0) and q = axis × p = (0, −2, 0): the components perpendicular
    // to the axis are multiplied by 1 and 4, the one along it by 4.
    Vec3Dbl const axis(0.0, 0.0, 2.0);
    Vec3Dbl v(1.0, 1.0, 1.0);
    v.Rotate(axis, 0.0);
    ExpectBits(v, 1.0, 4.0, 4.0);
}

TEST(Vec3Dbl, RotateAboutANullAxis)
{
    // This axis has p = (1, 0, 0) and q = 0: only x is left, times the cosine.
    Vec3Dbl w(2.0, 3.0, 4.0);
    w.Rotate(Vec3Dbl(0.0), Opaque(1.0));
    ExpectNear(w, 2.0 * 0.54030230586813972, 0.0, 0.0, 1e-15);
}

TEST(Vec3Dbl, RotateAboutItself)
{
    Vec3Dbl v(0.6, 0.0, 0.8);
    v.Rotate(v, 2.0);
    ExpectNear(v, 0.6, 0.0, 0.8, 1e-15);
}

} // namespace
