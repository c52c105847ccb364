#include "VectorRules.h"

using vexor_test::Dbl;
using vexor_test::Flt;
using vexor_test::Holds;

INSTANTIATE_TYPED_TEST_SUITE_P(VecFlt, VectorRules, VecFlt, );

// Hexadecimal operands were searched so that rounding at any other place (a product before it is added, a sum
// only at its end, a quotient at each step, a length not at all) gives another result. The expected values
// come from the stated steps, carried out independently.

static_assert(sizeof(VecFlt) == sizeof(void*) + 2 * sizeof(int));
static_assert(!std::is_constructible_v<VecFlt, VecDbl const&>, "narrowing takes an assignment");
static_assert(!std::is_constructible_v<VecFlt, Vec3Dbl const&>);
static_assert(!std::is_constructible_v<VecFlt, Vec3Flt const&>);

namespace {

float Less(float value)
{
    return std::nextafter(value, -1.0f);
}

} // namespace

TEST(VecFlt, AssignmentFromVecDblRounds)
{
    // Just above and at the midpoint between 1 and the next single, ties to even, too large, too small.
    VecDbl const source =
        Dbl({0x1.0000010000001p+0, 0x1.000001p+0, 0x1.000003p+0, 1e300, -1e300, 0x1.fffffefffffffp+127,
             0x1.ffffffp+127, 1e-60, -1e-60, vexor_test::nan, 0.1, 0x1.8p-149});
    VecFlt v(2, 7.0f);
    EXPECT_EQ(&(v = source), &v);
    float const infinity = vexor_test::infinityFlt;
    EXPECT_TRUE(Holds(v, {0x1.000002p+0f, 1.0f, 0x1.000004p+0f, infinity, -infinity, 0x1.fffffep+127f,
                          infinity, 0.0f, -0.0f, vexor_test::nanFlt, 0x1.99999ap-4f, 0x1p-148f}));

    float array[2] = {1, 2};
    VecFlt view(2, array);
    view = Dbl({5, 6});
    EXPECT_TRUE(Holds(view, {5, 6}));
    EXPECT_EQ(array[0], 1.0f);
    // The same size keeps the block.
    VecFlt own(2, 0.0f);
    float const* const block = &own[0];
    own = Dbl({5, 6});
    EXPECT_EQ(&own[0], block);
}

TEST(VecFlt, LengthSquared)
{
    EXPECT_SAME_BITS(Flt({0x1.386080p+0f, 0x1.aa6d7cp+0f, 0x1.69ebd2p-1f, 0x1.90e1f8p-1f}).LengthSquared(),
                     0x1.5815d6p+2f);
}

TEST(VecFlt, LengthSquaredStopsRising)
{
    // From 2^24 on, singles are 2 apart, and a tie rounds to the even one.
    VecFlt const ones(16777217, 1.0f);
    EXPECT_SAME_BITS(ones.LengthSquared(), 16777216.0f);
    EXPECT_SAME_BITS(ones.Dot(ones), 16777216.0f);
    EXPECT_SAME_BITS(ones.Length(), 4096.0f);
}

TEST(VecFlt, Length)
{
    EXPECT_SAME_BITS(Flt({0x1.fe2786p+0f, 0x1.e981eap+0f, 0x1.f63d84p-1f}).Length(), 0x1.77253ap+1f);
}

TEST(VecFlt, Dot)
{
    VecFlt const a = Flt({0x1.14f6fep+0f, 0x1.bcb5a2p-1f, 0x1.b67760p-1f, 0x1.2c03e0p+0f});
    VecFlt const b = Flt({0x1.7d3128p+0f, 0x1.af5562p-1f, 0x1.0cd242p-1f, 0x1.01d300p-1f});
    EXPECT_SAME_BITS(a.Dot(b), 0x1.b0f512p+1f);
}

TEST(VecFlt, Normalize)
{
    VecFlt v = Flt({0x1.17741cp+0f, 0x1.fff984p+0f, 0x1.185ea6p+0f});
    EXPECT_TRUE(Holds(v.GetNormalizedCopy(), {0x1.ba2d50p-2f, 0x1.950beep-1f, 0x1.bba06cp-2f}));
    EXPECT_TRUE(Holds(v.Normalize(), {0x1.ba2d50p-2f, 0x1.950beep-1f, 0x1.bba06cp-2f}));
}

TEST(VecFlt, GetProjectionOnTo)
{
    VecFlt const v = Flt({0x1.75ebf2p+0f, 0x1.c8307ap+0f, 0x1.7f5e96p+0f});
    VecFlt const target = Flt({0x1.f9defap+0f, 0x1.70ee30p+0f, 0x1.3751d8p+0f});
    EXPECT_TRUE(Holds(v.GetProjectionOnTo(target), {0x1.ed5316p+0f, 0x1.67c7c4p+0f, 0x1.2f9934p+0f}));
}

TEST(VecFlt, GetAngleWith)
{
    VecFlt const a = Flt({0x1.a796bep-1f, 0x1.6420ecp+0f, 0x1.c0599ap-1f});
    VecFlt const b = Flt({0x1.a4a89ep-1f, 0x1.62deap+0f, 0x1.c24bdap-1f});
    EXPECT_SAME_BITS(a.GetAngleWith(b), 0x1.ff9p-9f);
}

TEST(VecFlt, GetAreaFormedByTriangleWith)
{
    VecFlt const a = Flt({0x1.5f12fep+0f, 0x1.bacf6ap-1f, 0x1.e4a3ccp-1f});
    VecFlt const b = Flt({0x1.a75d30p+0f, 0x1.44fd4ep+0f, 0x1.663d14p+0f});
    EXPECT_SAME_BITS(a.GetAreaFormedByTriangleWith(b), 0x1.e22232p-3f);
}

TEST(VecFlt, MaxValue)
{
    EXPECT_SAME_BITS(Flt({-1e30f}).MaxValue(), -0x1.5af1d8p+66f); // −1e20 rounded
    EXPECT_SAME_BITS(Flt({1e30f}).MinValue(), 0x1.5af1d8p+66f);
}

TEST(VecFlt, IsZeroLength)
{
    // The global's squared length, a single, is used unchanged.
    EXPECT_SAME_BITS(gVexorTolerance.GetLengthSquared(), 0x1.b7cdfcp-34f);
    float const at = 0x1.4f8b58p-17f; // its rounded square equals the global's
    EXPECT_SAME_BITS(Flt({at}).LengthSquared(), 0x1.b7cdfcp-34f);
    EXPECT_EQ(Flt({at}).IsZeroLength(-1.0f), 1);
    EXPECT_EQ(Flt({std::nextafter(at, 1.0f)}).IsZeroLength(-1.0f), 0);
}

TEST(VecFlt, IsParallelTo)
{
    // 1 − Q is computed in double and rounded once. Here it rounds down …
    VecFlt a = Flt({0x1.220ea0p-1f, 0x1.22fd40p-1f, 0x1.68670ap-1f});
    VecFlt b = Flt({0x1.f12780p-1f, 0x1.d63aeep+0f, 0x1.4b53dcp-1f});
    EXPECT_EQ(a.IsParallelTo(b, 0x1.c5a766p-3f), 1);
    EXPECT_EQ(a.IsParallelTo(b, Less(0x1.c5a766p-3f)), 0);
    EXPECT_EQ(a.IsCodirectionalTo(b, 0x1.c5a766p-3f), 1);
    EXPECT_EQ(a.IsCodirectionalTo(b, Less(0x1.c5a766p-3f)), 0);
    // … and here up: the next lower single is above the unrounded value.
    a = Flt({0x1.9a0b1ap-1f, 0x1.27e678p-1f, 0x1.d015c2p-1f});
    b = Flt({0x1.ed3d28p+0f, 0x1.e250ccp+0f, 0x1.d6a44ap+0f});
    EXPECT_EQ(a.IsParallelTo(b, 0x1.157c44p-5f), 1);
    EXPECT_EQ(a.IsParallelTo(b, Less(0x1.157c44p-5f)), 0);
}

TEST(VecFlt, IsPerpendicularTo)
{
    VecFlt a = Flt({0x1.5d9754p+0f, 0x1.bf2406p-1f, 0x1.4361f0p+0f});
    VecFlt b = Flt({0x1.0c94cep+0f, 0x1.75bf4ep+0f, 0x1.f08f9ep+0f});
    EXPECT_EQ(a.IsPerpendicularTo(b, 0x1.cd200ap-1f), 1);
    EXPECT_EQ(a.IsPerpendicularTo(b, Less(0x1.cd200ap-1f)), 0);
    a = Flt({0x1.422a6ap+0f, 0x1.22a9c4p-1f, 0x1.2bb046p+0f});
    b = Flt({0x1.a9b382p-1f, 0x1.7f9018p-1f, 0x1.147b92p-1f});
    EXPECT_EQ(a.IsPerpendicularTo(b, 0x1.bfe8cap-1f), 1);
    EXPECT_EQ(a.IsPerpendicularTo(b, Less(0x1.bfe8cap-1f)), 0);
}

TEST(VecFlt, IsUnitParallelTo)
{
    VecFlt a = Flt({0x1.260196p-1f, 0x1.3c6510p-1f});
    VecFlt b = Flt({0x1.226136p-1f, 0x1.646d78p-1f});
    EXPECT_EQ(a.IsUnitParallelTo(b, 0x1.b6f516p-2f), 1);
    EXPECT_EQ(a.IsUnitParallelTo(b, Less(0x1.b6f516p-2f)), 0);
    EXPECT_EQ(a.IsUnitCodirectionalTo(b, 0x1.b6f516p-2f), 1);
    EXPECT_EQ(a.IsUnitCodirectionalTo(b, Less(0x1.b6f516p-2f)), 0);
    a = Flt({0x1.95736ap-1f, 0x1.3a648cp-1f});
    b = Flt({0x1.98450cp-1f, 0x1.1bf12ap-1f});
    EXPECT_EQ(a.IsUnitParallelTo(b, 0x1.c4693cp-5f), 1);
    EXPECT_EQ(a.IsUnitParallelTo(b, Less(0x1.c4693cp-5f)), 0);
}

TEST(VecFlt, IsUnitPerpendicularTo)
{
    VecFlt a = Flt({0x1.233b74p-1f, 0x1.b4ea34p-2f});
    VecFlt b = Flt({0x1.2793d6p-1f, 0x1.1dc5bap-1f});
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, 0x1.48a6e4p-2f), 1);
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, Less(0x1.48a6e4p-2f)), 0);
    a = Flt({0x1.bd4b3ap-2f, 0x1.647e34p-2f});
    b = Flt({0x1.7116fap-2f, 0x1.07287ep-1f});
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, 0x1.cd87a0p-4f), 1);
    EXPECT_EQ(a.IsUnitPerpendicularTo(b, Less(0x1.cd87a0p-4f)), 0);
}

TEST(VecFlt, IsEqualTo)
{
    VecFlt const a = Flt({0x1.873ff8p+0f, 0x1.5ca988p+0f});
    VecFlt const b = Flt({0x1.9ffbd6p-4f, 0x1.968d74p-5f});
    EXPECT_EQ(a.IsEqualTo(b, 1.0f, 0x1.e101cep+1f), 1);
    EXPECT_EQ(a.IsEqualTo(b, 1.0f, Less(0x1.e101cep+1f)), 0);
    // The rounded sum of squares of (1, 1e-6) is 1: in single precision the two are codirectional.
    EXPECT_EQ(Flt({1, 0}).IsEqualTo(Flt({1, 1e-6f})), 1);
}

TEST(VecFlt, ProductWithMatDbl)
{
    using vexor_test::Mat;
    MatDbl const m = Mat({{1, 2, 3}, {4, 5, 6}});
    EXPECT_TRUE(Holds(m * Flt({1, 10, 100}), {321, 654}));
    EXPECT_THROW(m * Flt({1, 2}), VexorDimensionMismatch);
    EXPECT_THROW(m * Flt({1, 2, 3, 4}), VexorDimensionMismatch);

    // The sum is a single, although the matrix is double.
    EXPECT_TRUE(Holds(Mat({{1.0, 1e-9}}) * Flt({1, 1}), {1.0f}));
    EXPECT_TRUE(
        Holds(Mat({{0x1.f7076c56582b8p+0, 0x1.0a0f5ce1c8851p+0, 0x1.e35d44d3a9724p+0, 0x1.9f1c10a7d9e28p+0}})
                  * Flt({0x1.29e6a6p+0f, 0x1.6c96d8p-1f, 0x1.506c3cp+0f, 0x1.130510p+0f}),
              {0x1.cfff14p+2f}));
    // A product too large for a single is infinite; the matrix's elements are not rounded first.
    EXPECT_TRUE(Holds(Mat({{0x1p1000}, {0x1p130}}) * Flt({0x1p-10f}), {vexor_test::infinityFlt, 0x1p120f}));
    EXPECT_TRUE(Holds(Mat({{-0.0}}) * Flt({1.0f}), {0.0f}));
}
