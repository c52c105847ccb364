#include "VectorRules.h"

#include <vexor/elementary.h>

using vexor_test::Dbl;
using vexor_test::Holds;

INSTANTIATE_TYPED_TEST_SUITE_P(VecDbl, VectorRules, VecDbl, );

// Hexadecimal operands were searched so that any other order of the terms, a fused multiply-add, a
// multiplication by a reciprocal, or the exact value rounded once gives another result. The expected values
// come from exact rational arithmetic, with the stated steps carried out
// independently.

static_assert(sizeof(VecDbl) == sizeof(void*) + 2 * sizeof(int));

TEST(VecDbl, FromVec3Dbl)
{
    VecDbl v(Vec3Dbl(1.0, -0.0, 3.0));
    EXPECT_TRUE(Holds(v, {1.0, -0.0, 3.0}));
    v = Vec3Dbl(4.0, 5.0, 6.0);
    EXPECT_TRUE(Holds(v, {4.0, 5.0, 6.0}));
}

TEST(VecDbl, FromVecFltWidens)
{
    VecFlt const source = vexor_test::Flt({0.1f, -0.0f, vexor_test::infinityFlt, vexor_test::nanFlt});
    double const tenth = 0x1.99999ap-4;
    EXPECT_TRUE(Holds(VecDbl(source), {tenth, -0.0, vexor_test::infinity, vexor_test::nan}));

    VecDbl assigned(2, 7.0);
    EXPECT_EQ(&(assigned = source), &assigned);
    EXPECT_TRUE(Holds(assigned, {tenth, -0.0, vexor_test::infinity, vexor_test::nan}));

    double array[4] = {1, 2, 3, 4};
    VecDbl view(4, array);
    view = source;
    EXPECT_TRUE(Holds(view, {tenth, -0.0, vexor_test::infinity, vexor_test::nan}));
    EXPECT_EQ(array[0], 1.0);
}

TEST(VecDbl, Sum)
{
    VecDbl const v = Dbl({0x1.c454529ccc682p+10, 0x1.f8c943193b7dfp-7, 0x1.8c9266ac6e0cap-10,
                          0x1.d04fc0123fc01p+5, 0x1.aebe59a07dd50p-4});
    EXPECT_SAME_BITS(v.Sum(), 0x1.d2dea0c48cdf7p+10);
    EXPECT_SAME_BITS(Dbl({-0.0}).Sum(), 0.0);
    EXPECT_SAME_BITS(Dbl({1e16, 1.0, 1.0}).Sum(), 1e16); // either 1 is lost by rounding ties to even
    EXPECT_SAME_BITS(Dbl({1.0, 1.0, 1e16}).Sum(), 1e16 + 2.0);
}

TEST(VecDbl, LengthSquared)
{
    VecDbl const v =
        Dbl({0x1.18d488a3f6ac3p+0, 0x1.90290d618e138p+0, 0x1.5c2a4757b5f3ap+0, 0x1.d30254eb1d204p+0});
    EXPECT_SAME_BITS(v.LengthSquared(), 0x1.1a60ccd1132f4p+3);
    EXPECT_SAME_BITS(v.Length(), 0x1.7c3bce0899cc1p+1);
    // The running sum is a plain one: it overflows and underflows. The length does neither.
    EXPECT_SAME_BITS(Dbl({1e200}).LengthSquared(), vexor_test::infinity);
    EXPECT_SAME_BITS(Dbl({1e-200}).LengthSquared(), 0.0);
    EXPECT_SAME_BITS(Dbl({1e200}).Length(), 1e200);
    EXPECT_SAME_BITS(Dbl({1e-200}).Length(), 1e-200);
}

TEST(VecDbl, Dot)
{
    VecDbl const a =
        Dbl({0x1.cd98a8f593097p+0, 0x1.e146e93ad8e3ep+0, 0x1.e316a572158d4p+0, 0x1.3cb9d521393b1p+0});
    VecDbl const b =
        Dbl({0x1.f99a7b498b9fcp+0, 0x1.b69c3c4a3e18ap+0, 0x1.e3f0c93556051p-1, 0x1.3b07203cd6ff9p+0});
    EXPECT_SAME_BITS(a.Dot(b), 0x1.42d38899144c6p+3);
    EXPECT_SAME_BITS(b.Dot(a), 0x1.42d38899144c6p+3);
}

TEST(VecDbl, Normalize)
{
    VecDbl v = Dbl({0x1.f269408af62d6p-1, 0x1.03bfc9aa34ba9p+0, 0x1.d25e9ff6409a6p+0});
    EXPECT_TRUE(
        Holds(v.GetNormalizedCopy(), {0x1.b12894e82a035p-2, 0x1.c37c265332cc1p-2, 0x1.954fda4efb3d3p-1}));
    EXPECT_TRUE(Holds(v.Normalize(), {0x1.b12894e82a035p-2, 0x1.c37c265332cc1p-2, 0x1.954fda4efb3d3p-1}));
}

TEST(VecDbl, GetProjectionOnTo)
{
    VecDbl const v = Dbl({0x1.6df5fd94042a1p+0, 0x1.88945b8f7173fp+0, 0x1.327016e69107cp+0});
    VecDbl const target = Dbl({0x1.d70c0854e8b26p+0, 0x1.46445d299286dp+0, 0x1.2fc8bce5f8c09p+0});
    EXPECT_TRUE(Holds(v.GetProjectionOnTo(target),
                      {0x1.b8be87ba1e481p+0, 0x1.314730af1095cp+0, 0x1.1c3dd3bd2bbeap+0}));
}

TEST(VecDbl, GetAngleWith)
{
    VecDbl const a = Dbl({0x1.566e73b899db4p+0, 0x1.3c2069d96a136p-1, 0x1.5608c95c3c968p-1});
    VecDbl const b = Dbl({0x1.c9e9e4ea1c174p-1, 0x1.b735dcb5cd9c2p+0, 0x1.82f1f0d249fbap-1});
    // The cosine is (d / L) / (L of the other); the test uses the platform's arc cosine.
    EXPECT_SAME_BITS(a.GetAngleWith(b), vexor::Acos(vexor_test::Opaque(0x1.a4a3c1f910f02p-1)));
    EXPECT_NEAR(a.GetAngleWith(b), 0x1.369afa5c66f7bp-1, 1e-15);
}

TEST(VecDbl, GetAreaFormedByTriangleWith)
{
    VecDbl const a = Dbl({0x1.7b1713c2acdadp-1, 0x1.11eaed3f92dd6p-1, 0x1.3c0dbd390f29cp+0});
    VecDbl const b = Dbl({0x1.79b5c72cdd029p-1, 0x1.b926face5bee6p+0, 0x1.76e2c222a0153p+0});
    EXPECT_SAME_BITS(a.GetAreaFormedByTriangleWith(b), 0x1.9dd4ac3bd5d24p-1);

    // Not clamped: for some parallel vectors A·B − d² is below 0, and the area is then NaN.
    bool anyNan = false;
    for (int i = 1; i < 200; ++i) {
        VecDbl const v = Dbl({double(i), 1.0 / i, 0.3});
        double const area = v.GetAreaFormedByTriangleWith(v * (1.0 / 3.0));
        anyNan = anyNan || std::isnan(area);
    }
    EXPECT_TRUE(anyNan);
}

TEST(VecDbl, IsParallelTo)
{
    VecDbl const a = Dbl({0x1.b194bd3d9bf7cp+0, 0x1.9bc4ac9ba103cp-1, 0x1.8e8360c180df6p-1});
    VecDbl const b = Dbl({0x1.bfbfb0acae538p+0, 0x1.c56794b4f384ep+0, 0x1.a125116338aebp+0});
    double const deviation = 0x1.f91aa38b68af8p-4; // 1 − ((d·d) / A) / B
    double const less = std::nextafter(deviation, 0.0);
    EXPECT_EQ(a.IsParallelTo(b, deviation), 1);
    EXPECT_EQ(a.IsParallelTo(b, less), 0);
    EXPECT_EQ(a.IsCodirectionalTo(b, deviation), 1);
    EXPECT_EQ(a.IsCodirectionalTo(b, less), 0);

    // Not clamped: some vectors have a Q above 1 with themselves, and pass the exact test.
    bool aboveOne = false;
    for (int i = 1; i < 200; ++i) {
        VecDbl const v = Dbl({double(i), 1.0 / i, 0.3});
        VecDbl const w = v * (1.0 / 3.0);
        double const d = v.Dot(w);
        if ((d * d) / v.LengthSquared() / w.LengthSquared() > 1.0) {
            aboveOne = true;
            EXPECT_EQ(v.IsParallelTo(w, 0.0), 1);
        }
    }
    EXPECT_TRUE(aboveOne);
}

TEST(VecDbl, IsPerpendicularTo)
{
    VecDbl const a = Dbl({0x1.c5247059eba64p+0, 0x1.1ee5da0295c80p-1, 0x1.886b0b0c92609p+0});
    VecDbl const b = Dbl({0x1.28886fdfed1edp+0, 0x1.255652b58c440p+0, 0x1.98874746ca761p+0});
    double const squaredCosine = 0x1.c0627c20a966dp-1;
    EXPECT_EQ(a.IsPerpendicularTo(b, squaredCosine), 1);
    EXPECT_EQ(a.IsPerpendicularTo(b, std::nextafter(squaredCosine, 0.0)), 0);
}

TEST(VecDbl, IsEqualTo)
{
    VecDbl const a = Dbl({0x1.a5fc3a6bca9aap+0, 0x1.e57f11aba9d18p+0});
    VecDbl const b = Dbl({0x1.2a7f9d26c1c4ep-1, 0x1.961793feed4aep+0});
    double const squaredDistance = 0x1.3b31f9416efe4p+0;
    EXPECT_EQ(a.IsEqualTo(b, 1.0, squaredDistance), 1);
    EXPECT_EQ(a.IsEqualTo(b, 1.0, std::nextafter(squaredDistance, 0.0)), 0);
    EXPECT_EQ(Dbl({1, 0}).IsEqualTo(Dbl({1, 1e-6})), 0); // close enough, but not codirectional
}

TEST(VecDbl, OuterProduct)
{
    using vexor_test::HoldsRows;
    EXPECT_TRUE(
        HoldsRows(Dbl({1, 2, 3}).OuterProduct(Dbl({4, 5, -6})), {{4, 5, -6}, {8, 10, -12}, {12, 15, -18}}));
    // With a smaller other vector, the elements beyond its size are unchanged.
    EXPECT_TRUE(HoldsRows(Dbl({1, 2}).OuterProduct(Dbl({3, 4})), {{3, 4, 2}, {6, 8, 2}, {2, 2, 2}}));
    EXPECT_TRUE(HoldsRows(Dbl({7}).OuterProduct(Dbl({3})), {{21, 1, 1}, {1, 1, 1}, {1, 1, 1}}));
    // The sizes are not compared: of a longer operand only the first elements are used.
    EXPECT_TRUE(HoldsRows(Dbl({1, 2}).OuterProduct(Dbl({3, 4, 9, 9})), {{3, 4, 2}, {6, 8, 2}, {2, 2, 2}}));
    // A larger vector has no place in the result.
    EXPECT_THROW(Dbl({1, 2, 3, 4}).OuterProduct(Dbl({1, 2, 3, 4})), VexorDimensionMismatch);
    EXPECT_THROW(Dbl({1, 2, 3, 4}).OuterProduct(Dbl({1})), VexorDimensionMismatch);
    VecDbl const v = Dbl({1, 2, 3});
    EXPECT_TRUE(HoldsRows(v.OuterProduct(v), {{1, 2, 3}, {2, 4, 6}, {3, 6, 9}}));
}

TEST(Vec3Dbl, FromVecDbl)
{
    EXPECT_EQ(Vec3Dbl(Dbl({1})), Vec3Dbl(1.0, 0.0, 0.0));
    EXPECT_EQ(Vec3Dbl(Dbl({1, 2})), Vec3Dbl(1.0, 2.0, 0.0));
    EXPECT_EQ(Vec3Dbl(Dbl({1, 2, 3})), Vec3Dbl(1.0, 2.0, 3.0));
    EXPECT_EQ(Vec3Dbl(Dbl({1, 2, 3, 4, 5})), Vec3Dbl(1.0, 2.0, 3.0));
    EXPECT_SAME_BITS(Vec3Dbl(Dbl({1})).z, 0.0);
    EXPECT_SAME_BITS(Vec3Dbl(Dbl({-0.0})).x, -0.0);
}
