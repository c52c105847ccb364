#include <vexor/vectors/Vec3Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <algorithm>
#include <array>
#include <vector>

using namespace vexor_test;

// If a case has hexadecimal operands and results, the result was worked outside the library
// in exact arithmetic with a rounding at each step that the class names. Rounding at any other place
// gives other bits.

namespace {

using vexor_test::nan; // and not the function of <cmath>

constexpr float pi = 0x1.921fb6p+1f; // the single nearest π

/// Every vector with components out of a few values with ties, both zeros and opposite signs.
std::vector<Vec3Flt> SmallVectors()
{
    std::vector<Vec3Flt> all;
    for (float x : {-2.0f, -1.0f, -0.0f, 0.0f, 1.0f, 2.0f})
        for (float y : {-2.0f, -1.0f, -0.0f, 0.0f, 1.0f, 2.0f})
            for (float z : {-2.0f, -1.0f, -0.0f, 0.0f, 1.0f, 2.0f})
                all.push_back(Vec3Flt(x, y, z));
    return all;
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Vec3Flt, AssignmentFromVec3DblRoundsToNearest)
{
    Vec3Flt v(9.0f);
    // Ties round to the even single.
    EXPECT_EQ(&(v = Vec3Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24, 1.0 + 0x1p-24 + 0x1p-52)), &v);
    ExpectBits(v, 1.0f, 1.0f + 0x1p-22f, 1.0f + 0x1p-23f);
    v = Vec3Dbl(1e300, -1e-300, nan);
    ExpectBits(v, infinityFlt, -0.0f, nanFlt);
    v = Vec3Dbl(0x1.ffffffp+127, Below(0x1.ffffffp+127), Above(0x1p-150));
    ExpectBits(v, infinityFlt, 0x1.fffffep+127f, 0x1p-149f);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Vec3Flt, DivideAssignTrulyDivides)
{
    Vec3Flt v(356.0f, 478.0f, 496.0f); // for each, the product with 1/3 is one unit higher
    EXPECT_EQ(&(v /= Opaque(3.0f)), &v);
    ExpectBits(v, 0x1.daaaaap+6f, 0x1.3eaaaap+7f, 0x1.4aaaaap+7f);
    Vec3Flt zero(0.0f, 1.0f, -1.0f);
    zero /= Opaque(0.0f);
    ExpectBits(zero, nanFlt, infinityFlt, -infinityFlt);
    Vec3Flt self(2.0f, 4.0f, 6.0f);
    self /= self[0];
    ExpectBits(self, 1.0f, 2.0f, 3.0f);
}

TEST(Vec3Flt, DivideByScalarMultipliesByTheRoundedReciprocal)
{
    ExpectBits(Vec3Flt(356.0f, 478.0f, 496.0f) / Opaque(3.0f), 0x1.daaaacp+6f, 0x1.3eaaacp+7f,
               0x1.4aaaacp+7f);
    // For each, a reciprocal left in double would give the result of the division.
    struct Case {
        float component, scalar, quotient;
    };
    for (Case const& each : {Case{-0x1.d21b5p-1f, 0x1.532a1cp+2f, -0x1.5fd0c4p-3f},
                             Case{-0x1.44d36ep+0f, 0x1.bbae12p+0f, -0x1.76d81cp-1f},
                             Case{0x1.9aca24p+0f, 0x1.11968cp+2f, 0x1.80619cp-2f}}) {
        Vec3Flt const quotient = Vec3Flt(each.component) / Opaque(each.scalar);
        ExpectBits(quotient, each.quotient, each.quotient, each.quotient);
    }
    ExpectBits(Vec3Flt(0.0f, 1.0f, -1.0f) / Opaque(0.0f), nanFlt, infinityFlt, -infinityFlt);
    // 1/s overflows where the quotient would not.
    ExpectBits(Vec3Flt(0x1p-140f, 0.0f, -0x1p-140f) / Opaque(0x1p-140f), infinityFlt, nanFlt, -infinityFlt);
}

// ---- Products --------------------------------------------------------------------------------------

TEST(Vec3Flt, DotRoundsTheWholeSumOnce)
{
    EXPECT_EQ(Vec3Flt(1.0f, 2.0f, 3.0f).Dot(Vec3Flt(4.0f, -5.0f, 6.0f)), 12.0f);
    // (1 + 2^-12)² − 1 keeps its 2^-24, which would be lost if the square were rounded alone.
    EXPECT_SAME_BITS(Vec3Flt(1.0f + 0x1p-12f, 1.0f, 0.0f).Dot(Vec3Flt(1.0f + 0x1p-12f, -1.0f, 0.0f)),
                     0x1p-11f + 0x1p-24f);
    EXPECT_SAME_BITS(Vec3Flt(-0x1.42f15cp+2f, 0x1.d3d05ap+2f, 0x1.21648cp+3f)
                         .Dot(Vec3Flt(0x1.3c58c4p+3f, -0x1.695668p+2f, 0x1.d50586p+1f)),
                     -0x1.d01f88p+5f);
    EXPECT_SAME_BITS(Vec3Flt(0x1.44381cp+2f, 0x1.c9351ep+2f, 0x1.307472p+3f)
                         .Dot(Vec3Flt(-0x1.ce5bdcp-2f, -0x1.d0f288p+1f, 0x1.6f5622p+1f)),
                     -0x1.dd8e2ap-1f);
}

TEST(Vec3Flt, DotAddsXAndYFirstInDouble)
{
    // 2^60 + 1 is 2^60 in double, so the position of the 1 in the sum decides.
    float const big = 0x1p+30f;
    EXPECT_SAME_BITS(Vec3Flt(big, 1.0f, big).Dot(Vec3Flt(big, 1.0f, -big)), 0.0f);
    EXPECT_SAME_BITS(Vec3Flt(1.0f, big, big).Dot(Vec3Flt(1.0f, big, -big)), 0.0f);
    EXPECT_SAME_BITS(Vec3Flt(big, big, 1.0f).Dot(Vec3Flt(big, -big, 1.0f)), 1.0f);
    // No product overflows before the sum is complete.
    EXPECT_SAME_BITS(Vec3Flt(1e30f, 1e30f, 2.0f).Dot(Vec3Flt(1e30f, -1e30f, 3.0f)), 6.0f);
}

TEST(Vec3Flt, CrossRoundsEachDifferenceOnce)
{
    ExpectBits(Vec3Flt(2.0f, 3.0f, 5.0f).Cross(Vec3Flt(7.0f, 11.0f, 13.0f)), -16.0f, 9.0f, 1.0f);
    float const e = 1.0f + 0x1p-12f; // e² − 1·1 in each component in turn
    float const difference = 0x1p-11f + 0x1p-24f;
    EXPECT_SAME_BITS(Vec3Flt(0.0f, e, 1.0f).Cross(Vec3Flt(0.0f, 1.0f, e)).x, difference);
    EXPECT_SAME_BITS(Vec3Flt(1.0f, 0.0f, e).Cross(Vec3Flt(e, 0.0f, 1.0f)).y, difference);
    EXPECT_SAME_BITS(Vec3Flt(e, 1.0f, 0.0f).Cross(Vec3Flt(1.0f, e, 0.0f)).z, difference);
    Vec3Flt const v(1.5f, 2.5f, 3.5f);
    ExpectBits(v.Cross(v), 0.0f, 0.0f, 0.0f);
}

TEST(Vec3Flt, CrossSubtractsInTheStatedOrder)
{
    // (−0) − (+0) is −0, and in the reverse order +0.
    EXPECT_SAME_BITS(Vec3Flt(5.0f, -1.0f, 1.0f).Cross(Vec3Flt(5.0f, 0.0f, 0.0f)).x, -0.0f);
    EXPECT_SAME_BITS(Vec3Flt(1.0f, 5.0f, -1.0f).Cross(Vec3Flt(0.0f, 5.0f, 0.0f)).y, -0.0f);
    EXPECT_SAME_BITS(Vec3Flt(1.0f, 1.0f, 5.0f).Cross(Vec3Flt(0.0f, -0.0f, 5.0f)).z, -0.0f);
}

// ---- Length ----------------------------------------------------------------------------------------

TEST(Vec3Flt, LengthSquaredRoundsTheWholeSumOnce)
{
    EXPECT_EQ(Vec3Flt(2.0f, -3.0f, 6.0f).LengthSquared(), 49.0f);
    // (1 + 2^-12)² is a tie, which the following 2^-26 decides.
    EXPECT_SAME_BITS(Vec3Flt(1.0f + 0x1p-12f, 0x1p-13f, 0.0f).LengthSquared(), 1.0f + 0x1p-11f + 0x1p-23f);
    EXPECT_SAME_BITS(Vec3Flt(0x1.2f7bd6p+3f, 0x1.a2d504p+2f, -0x1.076134p+3f).LengthSquared(),
                     0x1.91072ap+7f);
    EXPECT_SAME_BITS(Vec3Flt(-0x1.ed2706p+2f, -0x1.da3a2p+2f, 0x1.fc3622p+1f).LengthSquared(),
                     0x1.04168ap+7f);
    EXPECT_SAME_BITS(Vec3Flt(1e20f, 0.0f, 0.0f).LengthSquared(), infinityFlt);
    EXPECT_SAME_BITS(Vec3Flt(1e-30f, 0.0f, 0.0f).LengthSquared(), 0.0f);
}

TEST(Vec3Flt, LengthRoundsTheSumAndThenTheRoot)
{
    EXPECT_EQ(Vec3Flt(2.0f, -3.0f, 6.0f).Length(), 7.0f);
    EXPECT_SAME_BITS(Vec3Flt(-0x1.540abp+2f, -0x1.1942fcp+2f, -0x1.08ed0ep+3f).Length(), 0x1.58c672p+3f);
    EXPECT_SAME_BITS(Vec3Flt(0x1.e52f14p+2f, -0x1.706c92p+1f, -0x1.0ba018p+3f).Length(), 0x1.74c532p+3f);
    EXPECT_SAME_BITS(Vec3Flt(0x1.2ddebcp+0f, 0x1.88f552p+2f, -0x1.39babap+2f).Length(), 0x1.fc774cp+2f);
    EXPECT_SAME_BITS(Vec3Flt(-0.0f).Length(), 0.0f);
    EXPECT_SAME_BITS(Vec3Flt(nanFlt, 1.0f, infinityFlt).Length(), nanFlt);
    // The rounded sum has the range of a single, for any size of the root.
    EXPECT_SAME_BITS(Vec3Flt(1e20f, 0.0f, 0.0f).Length(), infinityFlt);
    EXPECT_SAME_BITS(Vec3Flt(1e-30f, 0.0f, 0.0f).Length(), 0.0f);
}

TEST(Vec3Flt, NormalizeDividesByTheRoundedLength)
{
    Vec3Flt v(-0x1.69ee68p+2f, -0x1.ee8016p+1f, 0x1.079cb4p+3f);
    EXPECT_EQ(&v.Normalize(), &v);
    ExpectBits(v, -0x1.0e463p-1f, -0x1.714554p-2f, 0x1.89b524p-1f);
    Vec3Flt w(0x1.013e7ep-1f, -0x1.2c6c26p+2f, -0x1.527d98p+1f);
    w.Normalize();
    ExpectBits(w, 0x1.7c51cap-4f, -0x1.bc27eep-1f, -0x1.f46ff8p-2f);
}

TEST(Vec3Flt, NormalizeRaisesForAnExactlyNullVectorOnly)
{
    Vec3Flt null(0.0f, -0.0f, 0.0f);
    EXPECT_THROW(null.Normalize(), VexorNullVector);
    ExpectBits(null, 0.0f, -0.0f, 0.0f);
    // The rounded squared length underflows, but the vector is not null: the division by 0 is carried out.
    Vec3Flt tiny(1e-30f, 0.0f, -1e-30f);
    tiny.Normalize();
    ExpectBits(tiny, infinityFlt, nanFlt, -infinityFlt);
    Vec3Flt huge(1e20f, 0.0f, -1e20f);
    huge.Normalize();
    ExpectBits(huge, 0.0f, 0.0f, -0.0f);
    Vec3Flt notANumber(0.0f, nanFlt, 0.0f);
    notANumber.Normalize();
    ExpectBits(notANumber, nanFlt, nanFlt, nanFlt);
}

TEST(Vec3Flt, GetNormalizedCopy)
{
    Vec3Flt const v(-0x1.69ee68p+2f, -0x1.ee8016p+1f, 0x1.079cb4p+3f);
    ExpectBits(v.GetNormalizedCopy(), -0x1.0e463p-1f, -0x1.714554p-2f, 0x1.89b524p-1f);
    ExpectBits(v, -0x1.69ee68p+2f, -0x1.ee8016p+1f, 0x1.079cb4p+3f);
    EXPECT_THROW(Vec3Flt(-0.0f).GetNormalizedCopy(), VexorNullVector);
}

// ---- Extremes ----------------------------------------------------------------------------------------

TEST(Vec3Flt, ValuesOfExtremes)
{
    for (Vec3Flt const& v : SmallVectors()) {
        EXPECT_EQ(v.MaxValue(), std::max({v.x, v.y, v.z}));
        EXPECT_EQ(v.MinValue(), std::min({v.x, v.y, v.z}));
        EXPECT_EQ(v.MaxAbsValue(), std::max({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)}));
        EXPECT_EQ(v.MinAbsValue(), std::min({std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)}));
    }
    EXPECT_SAME_BITS(Vec3Flt(0.0f).MaxAbsValue(), -0.0f);
    EXPECT_SAME_BITS(Vec3Flt(0.0f).MinAbsValue(), -0.0f);
    EXPECT_SAME_BITS(Vec3Flt(-0.0f).MinAbsValue(), 0.0f);
}

// On a tie the later index wins, for maximum and minimum alike.
TEST(Vec3Flt, IndicesOfExtremesGoToTheLaterOfEqualOnes)
{
    for (Vec3Flt const& v : SmallVectors()) {
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
}

// A comparison with a NaN is false. Worked by hand along the decision trees.
TEST(Vec3Flt, ExtremesWithNan)
{
    struct Case {
        Vec3Flt v;
        float max, min, maxAbs, minAbs;
        int maxIdx, minIdx, maxAbsIdx, minAbsIdx;
    };
    Case const cases[] = {
        {{nanFlt, 1.0f, 2.0f}, 2.0f, 1.0f, 2.0f, 1.0f, 2, 1, 2, 1},
        {{nanFlt, 2.0f, 1.0f}, 2.0f, 1.0f, 2.0f, 1.0f, 1, 2, 1, 2},
        {{1.0f, nanFlt, 2.0f}, 2.0f, 2.0f, 2.0f, 2.0f, 2, 2, 2, 2},
        {{2.0f, nanFlt, 1.0f}, 1.0f, 1.0f, 1.0f, 1.0f, 2, 2, 2, 2},
        {{1.0f, 2.0f, nanFlt}, nanFlt, nanFlt, nanFlt, nanFlt, 2, 2, 2, 2},
        {{2.0f, 1.0f, nanFlt}, nanFlt, nanFlt, nanFlt, nanFlt, 2, 2, 2, 2},
        {{nanFlt, nanFlt, 1.0f}, 1.0f, 1.0f, 1.0f, 1.0f, 2, 2, 2, 2},
        {{nanFlt, 1.0f, nanFlt}, nanFlt, nanFlt, nanFlt, nanFlt, 2, 2, 2, 2},
        {{nanFlt, nanFlt, nanFlt}, nanFlt, nanFlt, nanFlt, nanFlt, 2, 2, 2, 2},
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

// ---- Exact comparison --------------------------------------------------------------------------------

TEST(Vec3Flt, IsZeroLength)
{
    EXPECT_EQ(Vec3Flt(1.1e-5f, 0.0f, 0.0f).IsZeroLength(), 0);
    EXPECT_EQ(Vec3Flt(0.9e-5f, 0.0f, 0.0f).IsZeroLength(), 1);
    EXPECT_EQ(Vec3Flt(2.0f, 3.0f, 6.0f).IsZeroLength(49.0f), 1);
    EXPECT_EQ(Vec3Flt(2.0f, 3.0f, 6.0f).IsZeroLength(Below(49.0f)), 0);
    EXPECT_EQ(Vec3Flt(0.0f).IsZeroLength(nanFlt), 0);
    EXPECT_EQ(Vec3Flt(nanFlt).IsZeroLength(), 0);
    // The length of the global is a single too: the single 1e-5 is exactly at it, the double 1e-5
    // is above.
    EXPECT_EQ(Vec3Flt(1e-5f, 0.0f, 0.0f).IsZeroLength(), 1);
}

TEST(Vec3Flt, IsZeroLengthTestsTheRoundedSum)
{
    // The sum is 1 + 2^-11 + 2^-24 and rounds down to 1 + 2^-11.
    Vec3Flt const v(1.0f + 0x1p-12f, 0.0f, 0.0f);
    EXPECT_EQ(v.IsZeroLength(1.0f + 0x1p-11f), 1);
    EXPECT_EQ(v.IsZeroLength(Below(1.0f + 0x1p-11f)), 0);
    EXPECT_EQ(Vec3Flt(0x1.002008p+3f, 0x1.46aa6ap+2f, 0x1.cea154p+1f).IsZeroLength(0x1.9cb65cp+6f), 1);
    EXPECT_EQ(Vec3Flt(1e-30f, 0.0f, 0.0f).IsZeroLength(0.0f), 1);
}

// ---- Direction within a tolerance --------------------------------------------------------------------

TEST(Vec3Flt, IsEqualTo)
{
    Vec3Flt const x(1.0f, 0.0f, 0.0f);
    EXPECT_EQ(x.IsEqualTo(x), 1);
    EXPECT_EQ(x.IsEqualTo(Vec3Flt(1.0f, 1e-3f, 0.0f), -1.0f, 1.0f), 0); // close enough, but the angle fails
    EXPECT_EQ(x.IsEqualTo(Vec3Flt(1.000001f, 0.0f, 0.0f)), 1);
    EXPECT_EQ(x.IsEqualTo(Vec3Flt(1.0001f, 0.0f, 0.0f)), 0);
    EXPECT_EQ(x.IsEqualTo(-x, 1.0f, 100.0f), 0);
    EXPECT_EQ(Vec3Flt(2.0f, 0.0f, 0.0f).IsEqualTo(Vec3Flt(3.0f, 0.0f, 0.0f), -1.0f, 100.0f), 1);
}

TEST(Vec3Flt, IsEqualToOfNullAndShortVectors)
{
    Vec3Flt const null(0.0f);
    Vec3Flt const tiny(1e-6f, 0.0f, 0.0f);
    EXPECT_EQ(null.IsEqualTo(Vec3Flt(-0.0f), nanFlt, nanFlt), 1);
    EXPECT_EQ(null.IsEqualTo(tiny, 10.0f, 10.0f), 0);
    EXPECT_EQ(tiny.IsEqualTo(null, 10.0f, 10.0f), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, -1.0f, 1.0f), 0);
    EXPECT_EQ(tiny.IsEqualTo(tiny, 10.0f, 0.0f), 0);
}

TEST(Vec3Flt, IsEqualToRoundsTheDifferenceAndItsSquaredLength)
{
    struct Case {
        Vec3Flt a, b;
        float value;
    };
    Case const cases[] = {
        {{0x1.2f7bd6p+3f, 0x1.a2d504p+2f, -0x1.076134p+3f},
         {0x1.dc3374p+1f, 0x1.2364eep+3f, 0x1.e28418p-2f},
         0x1.ce032cp+6f},
        {{-0x1.d21b5p-1f, 0x1.532a1cp+2f, 0x1.d49398p+2f},
         {0x1.883c86p+2f, -0x1.44d36ep+0f, 0x1.bbae12p+0f},
         0x1.efafp+6f},
        {{1.0f, 0.0f, 0.0f}, {3.0f, 0.0f, 0.0f}, 4.0f},
    };
    for (Case const& each : cases) {
        // With an angle tolerance of 1, a dot product above 0 suffices.
        EXPECT_EQ(each.a.IsEqualTo(each.b, 1.0f, each.value), 1);
        EXPECT_EQ(each.a.IsEqualTo(each.b, 1.0f, Below(each.value)), 0);
    }
}

TEST(Vec3Flt, DirectionTestsOfSimpleVectors)
{
    Vec3Flt const x(1.0f, 0.0f, 0.0f);
    Vec3Flt const back(-2.0f, 0.0f, 0.0f);
    Vec3Flt const y(0.0f, 3.0f, 0.0f);
    EXPECT_EQ(x.IsParallelTo(back), 1);
    EXPECT_EQ(x.IsCodirectionalTo(back), 0);
    EXPECT_EQ(x.IsPerpendicularTo(back), 0);
    EXPECT_EQ(x.IsCodirectionalTo(-back), 1);
    EXPECT_EQ(x.IsParallelTo(y), 0);
    EXPECT_EQ(x.IsCodirectionalTo(y, 1.0f), 0);
    EXPECT_EQ(x.IsPerpendicularTo(y), 1);
}

TEST(Vec3Flt, DirectionTestsOfAZeroLengthOperandGive0)
{
    for (Vec3Flt const& zero : {Vec3Flt(0.0f), Vec3Flt(0.0f, 1e-6f, 0.0f)})
        for (Vec3Flt const& v : {Vec3Flt(1.0f, 0.0f, 0.0f), Vec3Flt(0.0f), Vec3Flt(nanFlt)}) {
            EXPECT_EQ(zero.IsParallelTo(v, 10.0f), 0);
            EXPECT_EQ(v.IsParallelTo(zero, 10.0f), 0);
            EXPECT_EQ(zero.IsCodirectionalTo(v, 10.0f), 0);
            EXPECT_EQ(v.IsCodirectionalTo(zero, 10.0f), 0);
            EXPECT_EQ(zero.IsPerpendicularTo(v, 10.0f), 0);
            EXPECT_EQ(v.IsPerpendicularTo(zero, 10.0f), 0);
        }
}

TEST(Vec3Flt, DirectionTestsAtTheLengthBoundary)
{
    // The squared length 1 + 2^-11 + 2^-24 rounds down to 1 + 2^-11, and the rounded value is compared.
    Vec3Flt const unit(1.0f + 0x1p-12f, 0.0f, 0.0f);
    Vec3Flt const twice(2.0f, 0.0f, 0.0f);
    Vec3Flt const across(0.0f, 2.0f, 0.0f);
    float const limit = 1.0f + 0x1p-11f;
    struct Case {
        float length;
        int expected;
    };
    for (Case const& each : {Case{limit, 0}, Case{Below(limit), 1}, Case{nanFlt, 1}}) {
        EXPECT_EQ(unit.IsParallelTo(twice, 1e-3f, each.length), each.expected);
        EXPECT_EQ(twice.IsParallelTo(unit, 1e-3f, each.length), each.expected);
        EXPECT_EQ(unit.IsCodirectionalTo(twice, 1e-3f, each.length), each.expected);
        EXPECT_EQ(twice.IsCodirectionalTo(unit, 1e-3f, each.length), each.expected);
        EXPECT_EQ(unit.IsPerpendicularTo(across, 1e-3f, each.length), each.expected);
        EXPECT_EQ(across.IsPerpendicularTo(unit, 1e-3f, each.length), each.expected);
    }
}

TEST(Vec3Flt, IsParallelToRoundsTheOperandsAndTheFinalValue)
{
    struct Case {
        Vec3Flt a, b;
        float value;
    };
    Case const cases[] = {
        {{-0x1.1fdc78p+3f, 0x1.d8c2d2p+1f, 0x1.329898p+3f},
         {-0x1.9a2446p+3f, 0x1.51194ap+2f, 0x1.b4e1e4p+3f},
         0x1.931698p-24f},
        {{0x1.055426p+3f, -0x1.2938cep+3f, -0x1.7d4cap-3f},
         {0x1.ef6fdep+3f, -0x1.19f624p+4f, -0x1.6954bcp-2f},
         0x1.703bcap-23f},
        {{1.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 0.0f}, 0.5f},
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

TEST(Vec3Flt, IsParallelToPassesWhenRoundingTakesTheCosineAbove1)
{
    for (Vec3Flt const& v : {Vec3Flt(-0x1.8a982p+2f, -0x1.606b48p+2f, 0x1.b3c28ep+2f),
                             Vec3Flt(-0x1.39f0e6p+3f, 0x1.e969ccp+2f, 0x1.6842e6p+1f)}) {
        EXPECT_EQ(v.IsParallelTo(3.0f * v, 0.0f), 1);
        EXPECT_EQ(v.IsCodirectionalTo(3.0f * v, 0.0f), 1);
    }
}

TEST(Vec3Flt, IsPerpendicularToRoundsTheOperandsAndTheFinalValue)
{
    struct Case {
        Vec3Flt a, b;
        float value;
    };
    Case const cases[] = {
        {{-0x1.14fe46p+3f, 0x1.9ebdccp+2f, 0x1.d3ae4ep+2f},
         {-0x1.2d9f22p+3f, 0x1.20d62ap+3f, 0x1.395a9ep+0f},
         0x1.8491fep-1f},
        {{-0x1.2e7af4p+3f, 0x1.0005c4p+1f, 0x1.ad24aep+1f},
         {-0x1.eda34p+1f, 0x1.318c5ap+2f, -0x1.12dcfcp+3f},
         0x1.a0199ap-6f},
        {{1.0f, 0.0f, 0.0f}, {1.0f, 1.0f, 0.0f}, 0.5f},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsPerpendicularTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsPerpendicularTo(each.b, Below(each.value)), 0);
    }
}

TEST(Vec3Flt, IsUnitParallelToRoundsTheDotProductAndTheDifference)
{
    struct Case {
        Vec3Flt a, b;
        float value;
    };
    Case const cases[] = {
        {{-0x1.863224p-2f, -0x1.33b5eap-2f, -0x1.bfabc6p-1f},
         {-0x1.866638p-2f, -0x1.3441d8p-2f, -0x1.bf885ep-1f},
         0x1.7ffffep-22f},
        {{-0x1.e858a8p-1f, -0x1.a3291ep-4f, 0x1.214068p-2f},
         {-0x1.e84324p-1f, -0x1.a335dep-4f, 0x1.21d06ep-2f},
         0x1.7ffffep-22f},
        {{1.0f, 0.0f, 0.0f}, {0.5f, 0.0f, 0.0f}, 0.75f},
        {{1.0f, 0.0f, 0.0f}, {2.0f, 0.0f, 0.0f}, 3.0f}, // |1 − 4|: too long fails like too short
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsUnitParallelTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsUnitParallelTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsUnitParallelTo(-each.b, each.value), 1);
        EXPECT_EQ(each.a.IsUnitCodirectionalTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsUnitCodirectionalTo(each.b, Below(each.value)), 0);
        EXPECT_EQ(each.a.IsUnitCodirectionalTo(-each.b, 10.0f), 0);
    }
    EXPECT_EQ(Vec3Flt(1.0f, 0.0f, 0.0f).IsUnitCodirectionalTo(Vec3Flt(0.0f, 1.0f, 0.0f), 1.0f), 0);
    EXPECT_EQ(Vec3Flt(1.0f, 0.0f, 0.0f).IsUnitParallelTo(Vec3Flt(1.0f, 0.0f, 0.0f)), 1);
    EXPECT_EQ(Vec3Flt(1.0f, 0.0f, 0.0f).IsUnitParallelTo(Vec3Flt(1.0f, 0.0f, 0.0f), nanFlt), 0);
}

TEST(Vec3Flt, IsUnitPerpendicularToRoundsTheDotProductAndItsSquare)
{
    struct Case {
        Vec3Flt a, b;
        float value;
    };
    Case const cases[] = {
        {{-0x1.e646fp-2f, 0x1.5a5deep-1f, -0x1.20327cp-1f},
         {0x1.7bc8aep-5f, 0x1.756922p-1f, 0x1.5d7e18p-1f},
         0x1.f1a1fcp-8f},
        {{-0x1.a06e4ap-1f, -0x1.d1625p-2f, -0x1.73ef32p-2f},
         {-0x1.03b836p-1f, -0x1.5760a2p-1f, -0x1.151852p-1f},
         0x1.abad7ep-1f},
        {{1.0f, 0.0f, 0.0f}, {-0.5f, 0.0f, 0.0f}, 0.25f},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(each.a.IsUnitPerpendicularTo(each.b, each.value), 1);
        EXPECT_EQ(each.a.IsUnitPerpendicularTo(each.b, Below(each.value)), 0);
    }
    EXPECT_EQ(Vec3Flt(1.0f, 0.0f, 0.0f).IsUnitPerpendicularTo(Vec3Flt(0.0f, 1.0f, 0.0f)), 1);
}

TEST(Vec3Flt, TolerancesFollowTheGlobal)
{
    RestoreTolerance const restore;
    Vec3Flt const x(1.0f, 0.0f, 0.0f);
    Vec3Flt const diagonal(1.0f, 1.0f, 0.0f);
    EXPECT_EQ(x.IsParallelTo(diagonal), 0);
    gVexorTolerance.sin2Angle = 0.5f;
    EXPECT_EQ(x.IsParallelTo(diagonal), 1);
    EXPECT_EQ(x.IsParallelTo(diagonal, -1e-45f, -1e-45f), 1);
    EXPECT_EQ(x.IsParallelTo(diagonal, -0.0f), 0);
    EXPECT_EQ(x.IsPerpendicularTo(diagonal), 1);
    gVexorTolerance.lengthSquared = 1.0f;
    EXPECT_EQ(x.IsParallelTo(diagonal), 0);
    EXPECT_EQ(x.IsZeroLength(-1e-45f), 1);
    EXPECT_EQ(x.IsZeroLength(-0.0f), 0);
}

// ---- Angle and area ------------------------------------------------------------------------------------

TEST(Vec3Flt, GetAngleWith)
{
    Vec3Flt const x(2.0f, 0.0f, 0.0f);
    EXPECT_SAME_BITS(x.GetAngleWith(x), 0.0f);
    EXPECT_SAME_BITS(x.GetAngleWith(-x), pi);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec3Flt(0.0f, 3.0f, 0.0f)), pi / 2);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec3Flt(0.0f)), 0.0f);
    EXPECT_SAME_BITS(Vec3Flt(0.0f).GetAngleWith(x), 0.0f);
    EXPECT_SAME_BITS(x.GetAngleWith(Vec3Flt(nanFlt)), nanFlt);
    // Not null, but its rounded length is 0, and the rounded length is tested.
    EXPECT_SAME_BITS(x.GetAngleWith(Vec3Flt(0.0f, 1e-30f, 0.0f)), 0.0f);
}

TEST(Vec3Flt, GetAngleWithKeepsTheCosineInDouble)
{
    // A cosine this close to 1, rounded to single, would give angles about a tenth off.
    EXPECT_SAME_BITS(Vec3Flt(-0x1.c8ed6cp+2f, 0x1.1498fep+3f, 0x1.0e752ep+3f)
                         .GetAngleWith(Vec3Flt(-0x1.44823ep+2f, 0x1.8898f4p+2f, 0x1.805358p+2f)),
                     0x1.528194p-11f);
    EXPECT_SAME_BITS(Vec3Flt(0x1.b4787p+1f, -0x1.f15e5ap+0f, 0x1.4fe0fap+2f)
                         .GetAngleWith(Vec3Flt(0x1.12e0d8p+1f, -0x1.3967fp+0f, 0x1.a6fc04p+1f)),
                     0x1.79777ep-12f);
}

TEST(Vec3Flt, GetAreaFormedByTriangleWith)
{
    EXPECT_EQ(Vec3Flt(3.0f, 0.0f, 0.0f).GetAreaFormedByTriangleWith(Vec3Flt(5.0f, 4.0f, 0.0f)), 6.0f);
    EXPECT_SAME_BITS(
        Vec3Flt(-0x1.e7fa88p+1f, 0x1.c4d78cp+0f, -0x1.03087ap+3f)
            .GetAreaFormedByTriangleWith(Vec3Flt(-0x1.2edc3ep+2f, -0x1.004684p+3f, -0x1.2916b4p+3f)),
        0x1.6885c2p+5f);
    EXPECT_SAME_BITS(
        Vec3Flt(0x1.12ebd4p+3f, 0x1.512aa8p+2f, 0x1.6fffbep+2f)
            .GetAreaFormedByTriangleWith(Vec3Flt(-0x1.80fb1ep-1f, 0x1.525cf6p+2f, -0x1.04dec8p+3f)),
        0x1.b8ab78p+5f);
    // For parallel vectors rounding can leave a small difference, or make it negative.
    Vec3Flt const v(0x1.dfc99ep-4f, -0x1.1d1828p+3f, -0x1.577c56p+2f);
    EXPECT_SAME_BITS(v.GetAreaFormedByTriangleWith(3.0f * v), nanFlt);
    // The difference is rounded before its root is taken: 1e-48 is 0 as a single.
    EXPECT_SAME_BITS(Vec3Flt(1e-12f, 0.0f, 0.0f).GetAreaFormedByTriangleWith(Vec3Flt(0.0f, 1e-12f, 0.0f)),
                     0.0f);
}

// ---- Projection and perpendiculars -----------------------------------------------------------------------

TEST(Vec3Flt, GetProjectionOnTo)
{
    ExpectBits(Vec3Flt(3.0f, 4.0f, 5.0f).GetProjectionOnTo(Vec3Flt(0.0f, 0.0f, -7.0f)), -0.0f, -0.0f, 5.0f);
    ExpectBits(Vec3Flt(0x1.01221ap+3f, 0x1.1a8314p-2f, -0x1.ba5c6ap-4f)
                   .GetProjectionOnTo(Vec3Flt(0x1.57d87p-1f, -0x1.913f4cp+1f, 0x1.25ae8cp+3f)),
               0x1.9c328p-6f, -0x1.e10282p-4f, 0x1.600fdp-2f);
    ExpectBits(Vec3Flt(-0x1.282e9ap+3f, -0x1.38ee8ep+3f, 0x1.74570cp-1f)
                   .GetProjectionOnTo(Vec3Flt(-0x1.ae47ap+1f, -0x1.c8652cp-1f, 0x1.ed946p+1f)),
               -0x1.542c5p+2f, -0x1.68d1dp+0f, 0x1.86378ep+2f);
    Vec3Flt const v(0.0f, -4.0f, 0.0f);
    ExpectBits(v.GetProjectionOnTo(v), 0.0f, -4.0f, 0.0f);
    EXPECT_THROW(v.GetProjectionOnTo(Vec3Flt(0.0f)), VexorNullVector);
}

TEST(Vec3Flt, GetPerpendicular)
{
    ExpectBits(Vec3Flt(1.0f, 0.0f, 0.0f).GetPerpendicular(), -0.0f, 1.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, 1.0f, 0.0f).GetPerpendicular(), -1.0f, 0.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, 0.0f, 1.0f).GetPerpendicular(), 1.0f, 0.0f, -0.0f);
    ExpectBits(Vec3Flt(3.0f, 4.0f, 100.0f).GetPerpendicular(), -0.8f, 0.6f, 0.0f);
    ExpectBits(Vec3Flt(-3.0f, 4.0f, 0.0f).GetPerpendicular(), -0.8f, -0.6f, 0.0f);
}

TEST(Vec3Flt, GetPerpendicularSwitchesAtOneSixtyFourth)
{
    // (−y, x, 0) from 1/64 on, in x or in y and of either sign; (z, 0, −x) below that.
    float const limit = 0.015625f;
    ExpectBits(Vec3Flt(limit, 0.0f, 1.0f).GetPerpendicular(), -0.0f, 1.0f, 0.0f);
    ExpectBits(Vec3Flt(-limit, 0.0f, 1.0f).GetPerpendicular(), -0.0f, -1.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, limit, 1.0f).GetPerpendicular(), -1.0f, 0.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, -limit, 1.0f).GetPerpendicular(), 1.0f, 0.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, Below(limit), 1.0f).GetPerpendicular(), 1.0f, 0.0f, -0.0f);
    ExpectBits(Vec3Flt(0.0f, -Below(limit), -1.0f).GetPerpendicular(), -1.0f, 0.0f, -0.0f);
    Vec3Flt const below = Vec3Flt(Below(limit), 0.0f, 1.0f).GetPerpendicular();
    EXPECT_GT(below.x, 0.99f);
    EXPECT_SAME_BITS(below.y, 0.0f);
    EXPECT_LT(below.z, -0.0156f);
}

TEST(Vec3Flt, GetPerpendicularOfAShortVector)
{
    // (z, 0, −x) within the global's length tolerance is replaced by (−y, x, 0).
    ExpectBits(Vec3Flt(1e-6f, 0.0f, 0.0f).GetPerpendicular(), -0.0f, 1.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, 1e-2f, 1e-6f).GetPerpendicular(), -1.0f, 0.0f, 0.0f);
    ExpectBits(Vec3Flt(0.0f, 1e-2f, 1e-4f).GetPerpendicular(), 1.0f, 0.0f, -0.0f);
    EXPECT_THROW(Vec3Flt(0.0f).GetPerpendicular(), VexorNullVector);
    EXPECT_THROW(Vec3Flt(-0.0f, 0.0f, 1e-6f).GetPerpendicular(), VexorNullVector);
    // At the tolerance itself and above it.
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(2.0);
    EXPECT_THROW(Vec3Flt(0.0f, 0.0f, 2.0f).GetPerpendicular(), VexorNullVector);
    ExpectBits(Vec3Flt(0.0f, 0.0f, Above(2.0f)).GetPerpendicular(), 1.0f, 0.0f, -0.0f);
}

TEST(Vec3Flt, GetPerpendicularOfNan)
{
    // |NaN| is not at least 1/64, and a NaN does not count as zero length.
    ExpectBits(Vec3Flt(nanFlt, 0.0f, 1.0f).GetPerpendicular(), nanFlt, nanFlt, nanFlt);
    ExpectBits(Vec3Flt(0.0f, nanFlt, 1.0f).GetPerpendicular(), 1.0f, 0.0f, -0.0f);
}

TEST(Vec3Flt, GetPerpendicularNearestToIsNotNormalised)
{
    ExpectBits(Vec3Flt(2.0f, 0.0f, 0.0f).GetPerpendicularNearestTo(Vec3Flt(1.0f, 1.0f, 0.0f)), 0.0f, 4.0f,
               0.0f);
    // (a × r) × a, with each component of the inner product rounded before the outer.
    ExpectBits(Vec3Flt(-0x1.fba7e4p-1f, -0x1.7033a4p+2f, -0x1.1b5d66p+0f)
                   .GetPerpendicularNearestTo(Vec3Flt(-0x1.0fe526p+3f, -0x1.6c0338p+2f, -0x1.083db8p+3f)),
               -0x1.f444a2p+7f, 0x1.61f8dp+6f, -0x1.d7c61ep+7f);
}

TEST(Vec3Flt, GetPerpendicularNearestToAParallelVectorIsNull)
{
    Vec3Flt const x(1.0f, 0.0f, 0.0f);
    EXPECT_EQ(x.GetPerpendicularNearestTo(Vec3Flt(2.0f, 0.0f, 0.0f)).IsNull(), 1);
    EXPECT_EQ(x.GetPerpendicularNearestTo(x).IsNull(), 1);
    EXPECT_EQ(Vec3Flt(0.0f).GetPerpendicularNearestTo(x).IsNull(), 1);
}

} // namespace
