#include <vexor/foundation/VexorTolerance.h>

#include <vexor/vectors/Vec3Dbl.h>
#include <vexor/vectors/Vec3Flt.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

// The singles nearest 1e-7 and 1e-5, the square of the rounded sine of the double 1e-7, and the square
// of the rounded 1e-5, which is one unit in the last place below the single nearest to 1e-10.
constexpr std::uint32_t angleBits = 0x33D6BF95;
constexpr std::uint32_t sin2AngleBits = 0x283424DC;
constexpr std::uint32_t lengthBits = 0x3727C5AC;
constexpr std::uint32_t lengthSquaredBits = 0x2EDBE6FE;

// Read before main, before any test can change it: the state after the library was loaded.
VexorTolerance const atLoad = gVexorTolerance;

TEST(VexorTolerance, Constructor)
{
    VexorTolerance tolerance;
    EXPECT_EQ(Bits(tolerance.angle), angleBits);
    EXPECT_EQ(Bits(tolerance.sin2Angle), sin2AngleBits);
    EXPECT_EQ(Bits(tolerance.length), lengthBits);
    EXPECT_EQ(Bits(tolerance.lengthSquared), lengthSquaredBits);
}

TEST(VexorTolerance, GlobalAfterLoadIsInTheDefaultState)
{
    EXPECT_EQ(Bits(atLoad.angle), angleBits);
    EXPECT_EQ(Bits(atLoad.sin2Angle), sin2AngleBits);
    EXPECT_EQ(Bits(atLoad.length), lengthBits);
    EXPECT_EQ(Bits(atLoad.lengthSquared), lengthSquaredBits);
}

TEST(VexorTolerance, AssignmentCopiesTheFieldsAsTheyStand)
{
    VexorTolerance source;
    source.angle = 1.0f; // four values that do not belong together: a computed field would show
    source.sin2Angle = 2.0f;
    source.length = 3.0f;
    source.lengthSquared = nanFlt;
    VexorTolerance target;
    VexorTolerance& result = (target = source);
    EXPECT_EQ(&result, &target);
    EXPECT_EQ(target.angle, 1.0f);
    EXPECT_EQ(target.sin2Angle, 2.0f);
    EXPECT_EQ(target.length, 3.0f);
    EXPECT_SAME_BITS(target.lengthSquared, nanFlt);
}

TEST(VexorTolerance, Copy)
{
    VexorTolerance source;
    source.SetAngle(0.5);
    VexorTolerance const copy(source);
    EXPECT_SAME_BITS(copy.angle, 0.5f);
    EXPECT_SAME_BITS(copy.sin2Angle, source.sin2Angle);
    EXPECT_EQ(Bits(copy.lengthSquared), lengthSquaredBits);
}

TEST(VexorTolerance, SetAngle)
{
    VexorTolerance tolerance;
    tolerance.SetAngle(0.0);
    EXPECT_SAME_BITS(tolerance.angle, 0.0f);
    EXPECT_SAME_BITS(tolerance.sin2Angle, 0.0f);

    tolerance.SetAngle(1e-7);
    EXPECT_EQ(Bits(tolerance.angle), angleBits);
    EXPECT_EQ(Bits(tolerance.sin2Angle), sin2AngleBits);

    tolerance.SetAngle(100.0); // nothing wraps or clamps it
    EXPECT_SAME_BITS(tolerance.angle, 100.0f);
    EXPECT_NEAR(tolerance.sin2Angle, 0.2564f, 1e-4f); // sin 100 = −0.50637
}

TEST(VexorTolerance, SetAngleOfTheGlobalBringsBackItsStateAfterLoad)
{
    RestoreTolerance const restore;
    gVexorTolerance.SetAngle(0.5);
    gVexorTolerance.SetAngle(1e-7);
    EXPECT_SAME_BITS(gVexorTolerance.GetSin2Angle(), atLoad.sin2Angle);
    EXPECT_SAME_BITS(gVexorTolerance.GetAngle(), atLoad.angle);
}

// For each angle the square of the rounded sine differs both from the rounded square of the sine in
// double and from the result of the sine of the rounded angle.
TEST(VexorTolerance, SetAngleRoundsTheSineOfTheDoubleAngleAndThenItsSquare)
{
    struct Case {
        double argument;
        float angle;
        float sin2Angle;
    };
    Case const cases[] = {
        {0x1.3192f8bcf1209p+1, 0x1.3192f8p+1f, 0x1.e02bbap-2f},
        {0x1.430937ba164e1p+1, 0x1.430938p+1f, 0x1.57a58ep-2f},
        {0x1.6baf3a398b185p+1, 0x1.6baf3ap+1f, 0x1.666cacp-4f},
        {0x1.2a05f2004p+33, 0x1.2a05f2p+33f, 0x1.6565d4p-14f},
    };
    for (Case const& each : cases) {
        VexorTolerance tolerance;
        tolerance.SetAngle(Opaque(each.argument));
        EXPECT_SAME_BITS(tolerance.angle, each.angle);
        EXPECT_SAME_BITS(tolerance.sin2Angle, each.sin2Angle);
    }
}

TEST(VexorTolerance, SetAngleOfANegativeAngle)
{
    VexorTolerance tolerance;
    tolerance.SetAngle(-1e-7);
    EXPECT_EQ(Bits(tolerance.angle), angleBits | 0x80000000u);
    EXPECT_EQ(Bits(tolerance.sin2Angle), sin2AngleBits);
}

TEST(VexorTolerance, SetAngleStoresWhatItGets)
{
    VexorTolerance tolerance;
    tolerance.SetAngle(nan);
    EXPECT_SAME_BITS(tolerance.angle, nanFlt);
    EXPECT_SAME_BITS(tolerance.sin2Angle, nanFlt);
    tolerance.SetAngle(infinity);
    EXPECT_SAME_BITS(tolerance.angle, infinityFlt);
    EXPECT_SAME_BITS(tolerance.sin2Angle, nanFlt);
    tolerance.SetAngle(1e300); // too large for a single, but an angle with a sine
    EXPECT_SAME_BITS(tolerance.angle, infinityFlt);
    EXPECT_GE(tolerance.sin2Angle, 0.0f);
    EXPECT_LE(tolerance.sin2Angle, 1.0f);
}

TEST(VexorTolerance, SetAngleLeavesTheLengths)
{
    VexorTolerance tolerance;
    tolerance.length = 5.0f;
    tolerance.lengthSquared = 7.0f;
    tolerance.SetAngle(0.5);
    EXPECT_EQ(tolerance.length, 5.0f);
    EXPECT_EQ(tolerance.lengthSquared, 7.0f);
}

TEST(VexorTolerance, GettersReturnTheFields)
{
    VexorTolerance tolerance;
    tolerance.angle = 1.0f;
    tolerance.sin2Angle = 2.0f;
    tolerance.length = 3.0f;
    tolerance.lengthSquared = 4.0f;
    EXPECT_EQ(tolerance.GetAngle(), 1.0f);
    EXPECT_EQ(tolerance.GetSin2Angle(), 2.0f);
    EXPECT_EQ(tolerance.GetLength(), 3.0f);
    EXPECT_EQ(tolerance.GetLengthSquared(), 4.0f);
}

TEST(VexorTolerance, SetLength)
{
    VexorTolerance tolerance;
    tolerance.SetLength(1e-5);
    EXPECT_EQ(Bits(tolerance.length), lengthBits);
    EXPECT_EQ(Bits(tolerance.lengthSquared), lengthSquaredBits);
    EXPECT_NE(tolerance.lengthSquared, 1e-10f);
}

// The square of the rounded length differs from the rounded square of the double argument.
TEST(VexorTolerance, SetLengthRoundsTheLengthBeforeTheSquare)
{
    struct Case {
        double argument;
        float length;
        float lengthSquared;
    };
    Case const cases[] = {
        {0x1.5b68ed63875b3p+1, 0x1.5b68eep+1f, 0x1.d775ap+2f},
        {0x1.827ae310926ap-3, 0x1.827ae4p-3f, 0x1.23bb6ap-5f},
        {0x1.63ed952f05e68p-3, 0x1.63ed96p-3f, 0x1.eedccap-6f},
    };
    for (Case const& each : cases) {
        VexorTolerance tolerance;
        tolerance.SetLength(Opaque(each.argument));
        EXPECT_SAME_BITS(tolerance.length, each.length);
        EXPECT_SAME_BITS(tolerance.lengthSquared, each.lengthSquared);
    }
}

TEST(VexorTolerance, SetLengthStoresWhatItGets)
{
    VexorTolerance tolerance;
    tolerance.SetLength(-2.0);
    EXPECT_SAME_BITS(tolerance.length, -2.0f);
    EXPECT_SAME_BITS(tolerance.lengthSquared, 4.0f);
    tolerance.SetLength(-0.0);
    EXPECT_SAME_BITS(tolerance.length, -0.0f);
    EXPECT_SAME_BITS(tolerance.lengthSquared, 0.0f);
    tolerance.SetLength(1e20);
    EXPECT_SAME_BITS(tolerance.length, 1e20f);
    EXPECT_SAME_BITS(tolerance.lengthSquared, infinityFlt);
    tolerance.SetLength(1e-30);
    EXPECT_SAME_BITS(tolerance.length, 1e-30f);
    EXPECT_SAME_BITS(tolerance.lengthSquared, 0.0f);
    tolerance.SetLength(nan);
    EXPECT_SAME_BITS(tolerance.length, nanFlt);
    EXPECT_SAME_BITS(tolerance.lengthSquared, nanFlt);
}

TEST(VexorTolerance, SetLengthLeavesTheAngles)
{
    VexorTolerance tolerance;
    tolerance.angle = 5.0f;
    tolerance.sin2Angle = 7.0f;
    tolerance.SetLength(0.5);
    EXPECT_EQ(tolerance.angle, 5.0f);
    EXPECT_EQ(tolerance.sin2Angle, 7.0f);
}

// ---- The convention by which every predicate reads its tolerance arguments -----------------------

TEST(ToleranceArguments, NegativeSelectsTheGlobalAtTheMomentOfTheCall)
{
    RestoreTolerance const restore;
    Vec3Dbl const v(1e-3, 0.0, 0.0);
    Vec3Flt const f(1e-3f, 0.0f, 0.0f);
    for (double argument : {-1.0, -1e-300, -5e-324, -infinity}) {
        gVexorTolerance = atLoad;
        EXPECT_EQ(v.IsZeroLength(argument), 0) << argument;
        gVexorTolerance.SetLength(1.0);
        EXPECT_EQ(v.IsZeroLength(argument), 1) << argument;
    }
    for (float argument : {-1.0f, -1e-45f, -infinityFlt}) {
        gVexorTolerance = atLoad;
        EXPECT_EQ(f.IsZeroLength(argument), 0) << argument;
        gVexorTolerance.SetLength(1.0);
        EXPECT_EQ(f.IsZeroLength(argument), 1) << argument;
    }
}

TEST(ToleranceArguments, ZeroOfEitherSignIsTheExactTest)
{
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(1.0);
    for (double argument : {0.0, -0.0}) {
        EXPECT_EQ(Vec3Dbl(1e-100, 0.0, 0.0).IsZeroLength(argument), 0);
        EXPECT_EQ(Vec3Dbl(0.0, -0.0, 0.0).IsZeroLength(argument), 1);
        EXPECT_EQ(Vec3Dbl(1e-200, 0.0, 0.0).IsZeroLength(argument), 1); // its square underflows
    }
    for (float argument : {0.0f, -0.0f}) {
        EXPECT_EQ(Vec3Flt(1e-20f, 0.0f, 0.0f).IsZeroLength(argument), 0);
        EXPECT_EQ(Vec3Flt(1e-30f, 0.0f, 0.0f).IsZeroLength(argument), 1);
    }
    gVexorTolerance.SetAngle(1.0);
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, 0.0).IsParallelTo(Vec3Dbl(1.0, 1e-3, 0.0), -0.0, -1.0), 0);
    EXPECT_EQ(Vec3Dbl(2.0, 0.0, 0.0).IsParallelTo(Vec3Dbl(1.0, 0.0, 0.0), -0.0, 0.0), 1);
}

TEST(ToleranceArguments, EveryTestIsInclusive)
{
    Vec3Dbl const v(3.0, 4.0, 12.0);
    EXPECT_EQ(v.IsZeroLength(169.0), 1);
    EXPECT_EQ(v.IsZeroLength(Below(169.0)), 0);
    EXPECT_EQ(v.IsZeroLength(Above(169.0)), 1);
}

TEST(ToleranceArguments, NanFailsEveryTest)
{
    Vec3Dbl const v(1.0, 2.0, 3.0);
    EXPECT_EQ(Vec3Dbl(0.0).IsZeroLength(nan), 0);
    EXPECT_EQ(v.IsParallelTo(v, nan, -1.0), 0);
    // With a NaN as length no vector counts as too short, and the angle decides, here for two vectors that
    // are too short for the global's length.
    EXPECT_EQ(Vec3Dbl(1e-9, 0.0, 0.0).IsParallelTo(Vec3Dbl(1e-9, 0.0, 0.0), -1.0, nan), 1);
    // For two null vectors 0/0 is NaN, which is within no angle.
    EXPECT_EQ(Vec3Dbl(0.0).IsParallelTo(Vec3Dbl(0.0), 1.0, nan), 0);
    EXPECT_EQ(v.IsEqualTo(v, -1.0, nan), 0);
}

TEST(ToleranceArguments, LengthIsComparedAsTheSquareThatItIs)
{
    EXPECT_EQ(Vec3Dbl(1e-2, 0.0, 0.0).IsZeroLength(1e-4), 1);
    EXPECT_EQ(Vec3Dbl(1.1e-2, 0.0, 0.0).IsZeroLength(1e-4), 0);
}

TEST(ToleranceArguments, OnlyTheGlobalIsEverRead)
{
    VexorTolerance other;
    other.SetLength(100.0);
    other.SetAngle(1.5);
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, 0.0).IsZeroLength(), 0);
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, 0.0).IsParallelTo(Vec3Dbl(1.0, 1.0, 0.0)), 0);
}

TEST(ToleranceArguments, OnlyTheSquaredFieldsOfTheGlobalAreRead)
{
    RestoreTolerance const restore;
    gVexorTolerance.angle = 1.5f;
    gVexorTolerance.length = 100.0f;
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, 0.0).IsZeroLength(), 0);
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, 0.0).IsParallelTo(Vec3Dbl(1.0, 1.0, 0.0)), 0);
    gVexorTolerance.sin2Angle = 0.5f;
    gVexorTolerance.lengthSquared = 1.0f;
    EXPECT_EQ(Vec3Dbl(1.0, 0.0, 0.0).IsZeroLength(), 1);
    EXPECT_EQ(Vec3Dbl(2.0, 0.0, 0.0).IsParallelTo(Vec3Dbl(2.0, 2.0, 0.0)), 1);
}

TEST(ToleranceArguments, AGlobalLengthThatOverflowsOrVanishes)
{
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(1e30);
    EXPECT_EQ(Vec3Dbl(1e100, 0.0, 0.0).IsZeroLength(), 1);
    EXPECT_EQ(Vec3Dbl(1e100, 0.0, 0.0).IsParallelTo(Vec3Dbl(1e100, 0.0, 0.0)), 0);
    gVexorTolerance.SetLength(0.0);
    EXPECT_EQ(Vec3Dbl(1e-100, 0.0, 0.0).IsZeroLength(), 0);
    EXPECT_EQ(Vec3Dbl(0.0).IsZeroLength(), 1);
    gVexorTolerance.SetLength(1e-30); // its square underflows in single precision
    EXPECT_EQ(Vec3Dbl(1e-100, 0.0, 0.0).IsZeroLength(), 0);
}

TEST(ToleranceArguments, ANanInTheGlobalFailsEveryTestThatReadsIt)
{
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(nan);
    EXPECT_EQ(Vec3Dbl(0.0).IsZeroLength(), 0);
    gVexorTolerance.SetAngle(nan);
    Vec3Dbl const v(1.0, 2.0, 3.0);
    EXPECT_EQ(v.IsParallelTo(v), 0);
}

TEST(ToleranceArguments, TheGlobalIsWidenedExactlyForADoubleTest)
{
    // lengthSquared is the single 0x2EDBE6FE = 14411518 · 2^-57. A squared length equal to it passes,
    // and one unit in the last place of a double above it does not.
    double const limit = 14411518.0 / 144115188075855872.0;
    EXPECT_EQ(double(atLoad.lengthSquared), limit);
    double const root = std::sqrt(limit);
    double inside = root;
    while (inside * inside > limit)
        inside = Below(inside);
    double outside = root;
    while (outside * outside <= limit)
        outside = Above(outside);
    EXPECT_EQ(Vec3Dbl(0.0, inside, 0.0).IsZeroLength(), 1);
    EXPECT_EQ(Vec3Dbl(0.0, outside, 0.0).IsZeroLength(), 0);
}

} // namespace
