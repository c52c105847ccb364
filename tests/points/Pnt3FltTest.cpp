#include <vexor/points/Pnt3Flt.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

// ---- Construction ----------------------------------------------------------------------------------

TEST(Pnt3Flt, Constructors)
{
    ExpectBits(Pnt3Flt(-0.0f), -0.0f, -0.0f, -0.0f);
    ExpectBits(Pnt3Flt(1.0f, -2.0f, 3.0f), 1.0f, -2.0f, 3.0f);
    float values[3] = {4.0f, 5.0f, -0.0f};
    ExpectBits(Pnt3Flt(values), 4.0f, 5.0f, -0.0f);
    Pnt3Flt const source(7.0f, nanFlt, -infinityFlt);
    Pnt3Flt const copy(source);
    ExpectBits(copy, 7.0f, nanFlt, -infinityFlt);
    ExpectBits(Pnt3Flt(Vec3Flt(1.0f, -0.0f, 3.0f)), 1.0f, -0.0f, 3.0f);
}

// To narrow, assign or call Pnt3Dbl::ToPnt3Flt, so that narrowing is always visible.
TEST(Pnt3Flt, NoConstructorNarrows)
{
    static_assert(!std::is_constructible_v<Pnt3Flt, Pnt3Dbl>, "");
    static_assert(!std::is_constructible_v<Pnt3Flt, Vec3Dbl>, "");
    static_assert(std::is_assignable_v<Pnt3Flt&, Pnt3Dbl> && std::is_assignable_v<Pnt3Flt&, Vec3Dbl>, "");
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Pnt3Flt, Assignment)
{
    Pnt3Flt p(9.0f);
    EXPECT_EQ(&(p = Pnt3Flt(1.0f, -0.0f, nanFlt)), &p);
    ExpectBits(p, 1.0f, -0.0f, nanFlt);
    Pnt3Flt& same = p;
    p = same;
    ExpectBits(p, 1.0f, -0.0f, nanFlt);
    EXPECT_EQ(&(p = Vec3Flt(0.1f, 2.0f, -0.0f)), &p);
    ExpectBits(p, 0.1f, 2.0f, -0.0f);
}

TEST(Pnt3Flt, AssignmentFromDoublesRoundsToNearest)
{
    Pnt3Flt p(9.0f);
    EXPECT_EQ(&(p = Pnt3Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24, 1.0 + 0x1p-24 + 0x1p-52)), &p);
    ExpectBits(p, 1.0f, 1.0f + 0x1p-22f, 1.0f + 0x1p-23f);
    EXPECT_EQ(&(p = Vec3Dbl(1e300, -1e-300, 1.0 + 0x1p-24 + 0x1p-52)), &p);
    ExpectBits(p, infinityFlt, -0.0f, 1.0f + 0x1p-23f);
}

TEST(Pnt3Flt, Vector)
{
    Pnt3Flt const p(0.1f, -0.0f, nanFlt);
    static_assert(std::is_same_v<decltype(p.Vector()), Vec3Flt>, "");
    ExpectBits(p.Vector(), 0.1f, -0.0f, nanFlt);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Pnt3Flt, Add)
{
    Pnt3Flt const p(1.0f, -0.0f, 1.0f);
    static_assert(std::is_same_v<decltype(p + p), Pnt3Flt>, "");
    static_assert(std::is_same_v<decltype(p + Vec3Flt()), Pnt3Flt>, "");
    ExpectBits(p + Pnt3Flt(2.0f, -0.0f, 0x1p-24f), 3.0f, -0.0f, 1.0f);
    ExpectBits(p + Vec3Flt(2.0f, 0.0f, 0x1.8p-24f), 3.0f, 0.0f, 1.0f + 0x1p-23f);
}

TEST(Pnt3Flt, Subtract)
{
    Pnt3Flt const p(1.0f, -0.0f, 1.0f);
    static_assert(std::is_same_v<decltype(p - p), Vec3Flt>, "");
    static_assert(std::is_same_v<decltype(p - Vec3Flt()), Pnt3Flt>, "");
    ExpectBits(p - Pnt3Flt(2.0f, 0.0f, 0x1p-25f), -1.0f, -0.0f, 1.0f);
    ExpectBits(p - Vec3Flt(3.0f, 0.0f, 0x1.8p-25f), -2.0f, -0.0f, 1.0f - 0x1p-24f);
}

TEST(Pnt3Flt, AddAssign)
{
    Pnt3Flt p(1.0f, 2.0f, -0.0f);
    EXPECT_EQ(&(p += Pnt3Flt(10.0f, -2.0f, -0.0f)), &p);
    ExpectBits(p, 11.0f, 0.0f, -0.0f);
    EXPECT_EQ(&(p += Vec3Flt(1.0f, 2.0f, 3.0f)), &p);
    ExpectBits(p, 12.0f, 2.0f, 3.0f);
    Pnt3Flt const& same = p;
    p += same;
    ExpectBits(p, 24.0f, 4.0f, 6.0f);
}

TEST(Pnt3Flt, SubtractAssign)
{
    static_assert(subtractAssigns<Pnt3Flt, Vec3Flt> && !subtractAssigns<Pnt3Flt, Pnt3Flt>, "");
    Pnt3Flt p(1.0f, 2.0f, -0.0f);
    EXPECT_EQ(&(p -= Vec3Flt(10.0f, 2.0f, 0.0f)), &p);
    ExpectBits(p, -9.0f, 0.0f, -0.0f);
}

// ---- Distance --------------------------------------------------------------------------------------

// By exact arithmetic with a rounding at each stated step. With these operands every other choice gives
// a neighbouring single: differences left in double, squares rounded to single, the running sum left in
// double, z first.
TEST(Pnt3Flt, DistanceSqTo)
{
    Pnt3Flt const p(-0x1.8c76b2p+5f, 0x1.3e72bep+5f, -0x1.45432ap+4f);
    Pnt3Flt const q(-0x1.5e9242p-1f, -0x1.ddb518p-1f, -0x1.e5efacp-2f);
    static_assert(std::is_same_v<decltype(p.DistanceSqTo(q)), float>, "");
    EXPECT_SAME_BITS(p.DistanceSqTo(q), 0x1.15a758p+12f);
    EXPECT_SAME_BITS(q.DistanceSqTo(p), 0x1.15a758p+12f);
    Pnt3Flt const r(-0x1.14864p+6f, -0x1.45d57ap+6f, 0x1.810a42p+6f);
    Pnt3Flt const s(-0x1.5bde9ap-2f, -0x1.9716d8p-1f, 0x1.2d8a64p-1f);
    EXPECT_SAME_BITS(r.DistanceSqTo(s), 0x1.3e9f2ap+14f);
    EXPECT_SAME_BITS(Pnt3Flt(-0.0f).DistanceSqTo(Pnt3Flt(0.0f)), 0.0f);
    EXPECT_SAME_BITS(Pnt3Flt(1.0f).DistanceSqTo(Pnt3Flt(1.0f, nanFlt, 1.0f)), nanFlt);
}

// The root of the rounded sum: here the root of the sum in double would round to the next single.
TEST(Pnt3Flt, DistanceTo)
{
    Pnt3Flt const p(-0x1.8c76b2p+5f, 0x1.3e72bep+5f, -0x1.45432ap+4f);
    Pnt3Flt const q(-0x1.5e9242p-1f, -0x1.ddb518p-1f, -0x1.e5efacp-2f);
    static_assert(std::is_same_v<decltype(p.DistanceTo(q)), float>, "");
    EXPECT_SAME_BITS(p.DistanceTo(q), 0x1.0a9b6ap+6f);
    EXPECT_SAME_BITS(Pnt3Flt(1.0f, 2.0f, 3.0f).DistanceTo(Pnt3Flt(3.0f, 5.0f, 9.0f)), 7.0f);
    // Beyond the root of the largest single, although the distance itself is a single.
    EXPECT_SAME_BITS(Pnt3Flt(1e20f).DistanceTo(Pnt3Flt(0.0f)), infinityFlt);
    EXPECT_SAME_BITS(Pnt3Flt(3e38f, 0.0f, 0.0f).DistanceTo(Pnt3Flt(-3e38f, 0.0f, 0.0f)), infinityFlt);
    EXPECT_SAME_BITS(Pnt3Flt(1e-30f).DistanceTo(Pnt3Flt(0.0f)), 0.0f);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Pnt3Flt, LessIsLexicographic)
{
    static_assert(std::is_same_v<decltype(Pnt3Flt() < Pnt3Flt()), bool>, "");
    EXPECT_TRUE(Pnt3Flt(1.0f, 5.0f, 0.0f) < Pnt3Flt(2.0f, 0.0f, 0.0f));
    EXPECT_FALSE(Pnt3Flt(2.0f, 0.0f, 0.0f) < Pnt3Flt(1.0f, 5.0f, 0.0f));
    EXPECT_TRUE(Pnt3Flt(1.0f, 2.0f, 9.0f) < Pnt3Flt(1.0f, 3.0f, 0.0f));
    EXPECT_TRUE(Pnt3Flt(1.0f, 2.0f, 3.0f) < Pnt3Flt(1.0f, 2.0f, 4.0f));
    EXPECT_FALSE(Pnt3Flt(1.0f, 2.0f, 3.0f) < Pnt3Flt(1.0f, 2.0f, 3.0f));
    EXPECT_FALSE(Pnt3Flt(nanFlt, 1.0f, 1.0f) < Pnt3Flt(1.0f, 2.0f, 2.0f));
    EXPECT_FALSE(Pnt3Flt(1.0f, 1.0f, 1.0f) < Pnt3Flt(1.0f, nanFlt, 2.0f));
}

TEST(Pnt3Flt, IsEqualToTakesAPlainLength)
{
    Pnt3Flt const p(1.0f, 2.0f, 3.0f);
    Pnt3Flt const q(3.0f, 5.0f, 9.0f); // at the distance 7
    EXPECT_EQ(p.IsEqualTo(q, 7.0f), 1);
    EXPECT_EQ(p.IsEqualTo(q, Below(7.0f)), 0);
    EXPECT_EQ(p.IsEqualTo(p, 0.0f), 1);
    EXPECT_EQ(p.IsEqualTo(p, nanFlt), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Flt(nanFlt), infinityFlt), 0);
}

// The squared tolerance is rounded to single, unlike that of Pnt2Flt.
TEST(Pnt3Flt, IsEqualToRoundsTheSquaredTolerance)
{
    // tolerance² rounds up to the single 0x1.6b19fap+0, which equals the squared distance.
    float const up = 0x1.30e23p+0f;
    float const tiny = 0x1p-12f; // moves the squared distance by its square, 2^-24
    Pnt3Flt const origin(0.0f);
    EXPECT_SAME_BITS(Pnt3Flt(up, 0.0f, 0.0f).DistanceSqTo(origin), 0x1.6b19fap+0f);
    EXPECT_EQ(Pnt3Flt(up, 0.0f, 0.0f).IsEqualTo(origin, up), 1);
    EXPECT_EQ(Pnt3Flt(up, 2 * tiny, 0.0f).IsEqualTo(origin, up), 0);
    // A square that overflows is infinite and accepts everything except a NaN; one that underflows is 0.
    EXPECT_EQ(Pnt3Flt(1e30f).IsEqualTo(origin, 2e19f), 1);
    EXPECT_EQ(Pnt3Flt(1e-22f, 0.0f, 0.0f).IsEqualTo(origin, 1e-30f), 0);
    EXPECT_EQ(Pnt3Flt(1e-30f, 0.0f, 0.0f).IsEqualTo(origin, 1e-31f), 1);
}

TEST(Pnt3Flt, IsEqualToWithTheGlobal)
{
    Pnt3Flt const origin(0.0f);
    // The global's squared length is that of the single 1e-5, so that this is the boundary itself.
    EXPECT_EQ(origin.IsEqualTo(Pnt3Flt(1e-5f, 0.0f, 0.0f)), 1);
    EXPECT_EQ(origin.IsEqualTo(Pnt3Flt(Above(1e-5f), 0.0f, 0.0f)), 0);
    EXPECT_EQ(origin.IsEqualTo(Pnt3Flt(1e-5f, 0.0f, 0.0f), -1e-30f), 1);
    EXPECT_EQ(origin.IsEqualTo(Pnt3Flt(1e-5f, 0.0f, 0.0f), -0.0f), 0);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(3.0);
    EXPECT_EQ(origin.IsEqualTo(Pnt3Flt(1.0f, 2.0f, 2.0f)), 1);
    EXPECT_EQ(origin.IsEqualTo(Pnt3Flt(1.0f, 2.0f, Above(2.0f))), 0);
}

// ---- Members of earlier classes that name Pnt3Flt ------------------------------------------------------

TEST(Pnt3Flt, AssignmentToVec3Flt)
{
    Vec3Flt v(9.0f);
    EXPECT_EQ(&(v = Pnt3Flt(0.1f, -0.0f, nanFlt)), &v);
    ExpectBits(v, 0.1f, -0.0f, nanFlt);
    EXPECT_EQ(&(v = Pnt3Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24, 1e300)), &v);
    ExpectBits(v, 1.0f, 1.0f + 0x1p-22f, infinityFlt);
}

TEST(Pnt3Flt, AssignmentToVec3Dbl)
{
    Vec3Dbl v(9.0);
    EXPECT_EQ(&(v = Pnt3Flt(0.1f, -0.0f, infinityFlt)), &v);
    EXPECT_SAME_BITS(v.x, 0x1.99999ap-4);
    EXPECT_SAME_BITS(v.y, -0.0);
    EXPECT_SAME_BITS(v.z, infinity);
}

} // namespace
