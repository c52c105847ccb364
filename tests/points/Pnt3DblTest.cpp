#include <vexor/points/Pnt3Dbl.h>

#include <vexor/points/Pnt3Flt.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

#include <cstddef>
#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

template <class Triple>
void ExpectBits(Triple const& actual, double x, double y, double z)
{
    EXPECT_SAME_BITS(actual.x, x);
    EXPECT_SAME_BITS(actual.y, y);
    EXPECT_SAME_BITS(actual.z, z);
}

void ExpectSingleBits(Pnt3Flt const& actual, float x, float y, float z)
{
    EXPECT_SAME_BITS(actual.x, x);
    EXPECT_SAME_BITS(actual.y, y);
    EXPECT_SAME_BITS(actual.z, z);
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Pnt3Dbl, Layout)
{
    static_assert(sizeof(Pnt3Dbl) == 3 * sizeof(double) && std::is_standard_layout_v<Pnt3Dbl>, "");
    static_assert(offsetof(Pnt3Dbl, y) == sizeof(double) && offsetof(Pnt3Dbl, z) == 2 * sizeof(double), "");
    static_assert(std::is_trivially_copyable_v<Pnt3Dbl>, "");
}

TEST(Pnt3Dbl, DefaultConstructor)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build fills the coordinates";
#else
    EXPECT_TRUE(DefaultConstructorWritesNothing<Pnt3Dbl>());
#endif
}

TEST(Pnt3Dbl, Constructors)
{
    ExpectBits(Pnt3Dbl(-0.0), -0.0, -0.0, -0.0);
    ExpectBits(Pnt3Dbl(1.0, -2.0, 3.0), 1.0, -2.0, 3.0);
    double values[3] = {4.0, 5.0, -0.0};
    ExpectBits(Pnt3Dbl(values), 4.0, 5.0, -0.0);
    Pnt3Dbl const source(7.0, nan, -infinity);
    Pnt3Dbl const copy(source);
    ExpectBits(copy, 7.0, nan, -infinity);
}

TEST(Pnt3Dbl, ConstructorsFromOtherClasses)
{
    ExpectBits(Pnt3Dbl(Vec3Dbl(0.1, -0.0, 3.0)), 0.1, -0.0, 3.0);
    ExpectBits(Pnt3Dbl(Pnt3Flt(0.1f, -0.0f, 0x1p-149f)), 0x1.99999ap-4, -0.0, 0x1p-149);
    ExpectBits(Pnt3Dbl(Vec3Flt(0.1f, nanFlt, -infinityFlt)), 0x1.99999ap-4, nan, -infinity);
    Pnt3Dbl const implicitOne = Vec3Dbl(1.0, 2.0, 3.0); // no constructor is explicit
    ExpectBits(implicitOne, 1.0, 2.0, 3.0);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Pnt3Dbl, Assignment)
{
    Pnt3Dbl p(9.0);
    EXPECT_EQ(&(p = Pnt3Dbl(1.0, -0.0, nan)), &p);
    ExpectBits(p, 1.0, -0.0, nan);
    Pnt3Dbl& same = p;
    p = same;
    ExpectBits(p, 1.0, -0.0, nan);
    EXPECT_EQ(&(p = Vec3Dbl(0.1, 2.0, -0.0)), &p);
    ExpectBits(p, 0.1, 2.0, -0.0);
    EXPECT_EQ(&(p = Pnt3Flt(0.1f, -0.0f, 3.0f)), &p);
    ExpectBits(p, 0x1.99999ap-4, -0.0, 3.0);
    EXPECT_EQ(&(p = Vec3Flt(4.0f, 0.1f, -0.0f)), &p);
    ExpectBits(p, 4.0, 0x1.99999ap-4, -0.0);
}

TEST(Pnt3Dbl, SetValue)
{
    Pnt3Dbl p(9.0);
    EXPECT_EQ(&p.SetValue(-0.0), &p);
    ExpectBits(p, -0.0, -0.0, -0.0);
    EXPECT_EQ(&p.SetValue(1.0, 2.0, 3.0), &p);
    ExpectBits(p, 1.0, 2.0, 3.0);
    double const values[3] = {4.0, 5.0, 6.0};
    EXPECT_EQ(&p.SetValue(values), &p);
    ExpectBits(p, 4.0, 5.0, 6.0);
    p.SetValue(p.z, p.y, p.x);
    ExpectBits(p, 6.0, 5.0, 4.0);
    p.SetValue(&p.x);
    ExpectBits(p, 6.0, 5.0, 4.0);
}

TEST(Pnt3Dbl, GetValue)
{
    Pnt3Dbl p(1.0, -0.0, nan);
    double x = 9.0;
    double y = 9.0;
    double z = 9.0;
    p.GetValue(x, y, z);
    ExpectBits(Pnt3Dbl(x, y, z), 1.0, -0.0, nan);
    Pnt3Dbl const& constant = p;
    double values[4] = {9.0, 9.0, 9.0, 9.0};
    constant.GetValue(values);
    ExpectBits(Pnt3Dbl(values), 1.0, -0.0, nan);
    EXPECT_EQ(values[3], 9.0);
    p.SetValue(1.0, 2.0, 3.0);
    p.GetValue(p.z, p.x, p.y); // what each reference gets is what the point held before
    ExpectBits(p, 2.0, 3.0, 1.0);
}

// The form with references is not const, unlike that of the vectors.
template <class Point, class Number, class = void>
constexpr bool gives = false;
template <class Point, class Number>
constexpr bool gives<Point, Number,
                     std::void_t<decltype(std::declval<Point>().GetValue(
                         std::declval<Number&>(), std::declval<Number&>(), std::declval<Number&>()))>> = true;

TEST(Pnt3Dbl, GetValueIsNotConst)
{
    static_assert(gives<Pnt3Dbl&, double> && !gives<Pnt3Dbl const&, double>, "");
    static_assert(gives<Vec3Dbl const&, double>, "");
}

TEST(Pnt3Dbl, Index)
{
    Pnt3Dbl p(1.0, 2.0, 3.0);
    EXPECT_EQ(&p[0], &p.x);
    EXPECT_EQ(&p[1], &p.y);
    EXPECT_EQ(&p[2], &p.z);
    Pnt3Dbl const& constant = p;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(&p(i), &p[i]);
        EXPECT_EQ(&constant[i], &p[i]);
        EXPECT_EQ(&constant(i), &p[i]);
    }
    p[Opaque(1)] = 7.0;
    p(Opaque(2)) = 8.0;
    ExpectBits(p, 1.0, 7.0, 8.0);
}

TEST(Pnt3Dbl, Vector)
{
    Pnt3Dbl const p(0.1, -0.0, nan);
    static_assert(std::is_same_v<decltype(p.Vector()), Vec3Dbl>, "");
    ExpectBits(p.Vector(), 0.1, -0.0, nan);
}

TEST(Pnt3Dbl, ToPnt3FltRoundsToNearest)
{
    // Halfway cases go to the even single; beyond the largest single by half a unit lies infinity.
    ExpectSingleBits(Pnt3Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24, 1.0 + 0x1p-24 + 0x1p-52).ToPnt3Flt(), 1.0f,
                     1.0f + 0x1p-22f, 1.0f + 0x1p-23f);
    ExpectSingleBits(Pnt3Dbl(1e300, -1e-300, nan).ToPnt3Flt(), infinityFlt, -0.0f, nanFlt);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Pnt3Dbl, Add)
{
    Pnt3Dbl const p(1.0, -0.0, 1.0);
    static_assert(std::is_same_v<decltype(p + p), Pnt3Dbl>, "");
    static_assert(std::is_same_v<decltype(p + Vec3Dbl()), Pnt3Dbl>, "");
    ExpectBits(p + Pnt3Dbl(2.0, -0.0, 0x1p-53), 3.0, -0.0, 1.0);
    ExpectBits(p + Vec3Dbl(2.0, 0.0, 0x1p-52), 3.0, 0.0, 1.0 + 0x1p-52);
    ExpectBits((p + Pnt3Dbl(3.0, 4.0, 5.0)) / 2, 2.0, 2.0, 3.0); // the midpoint
}

TEST(Pnt3Dbl, Subtract)
{
    Pnt3Dbl const p(1.0, -0.0, 1.0);
    static_assert(std::is_same_v<decltype(p - p), Vec3Dbl>, "");
    static_assert(std::is_same_v<decltype(p - Vec3Dbl()), Pnt3Dbl>, "");
    ExpectBits(p - Pnt3Dbl(2.0, 0.0, 1.0), -1.0, -0.0, 0.0);
    ExpectBits(p - Vec3Dbl(3.0, 0.0, 0.5), -2.0, -0.0, 0.5);
}

TEST(Pnt3Dbl, AddAssign)
{
    Pnt3Dbl p(1.0, 2.0, -0.0);
    EXPECT_EQ(&(p += Pnt3Dbl(10.0, -2.0, -0.0)), &p);
    ExpectBits(p, 11.0, 0.0, -0.0);
    EXPECT_EQ(&(p += Vec3Dbl(1.0, 2.0, 3.0)), &p);
    ExpectBits(p, 12.0, 2.0, 3.0);
    Pnt3Dbl const& same = p;
    p += same;
    ExpectBits(p, 24.0, 4.0, 6.0);
}

// What a point minus a point yields is a vector, so no compound form takes a point.
template <class Point, class Other, class = void>
constexpr bool subtracts = false;
template <class Point, class Other>
constexpr bool
    subtracts<Point, Other, std::void_t<decltype(std::declval<Point&>() -= std::declval<Other const&>())>> =
        true;

TEST(Pnt3Dbl, SubtractAssign)
{
    static_assert(subtracts<Pnt3Dbl, Vec3Dbl> && !subtracts<Pnt3Dbl, Pnt3Dbl>, "");
    Pnt3Dbl p(1.0, 2.0, -0.0);
    EXPECT_EQ(&(p -= Vec3Dbl(10.0, 2.0, 0.0)), &p);
    ExpectBits(p, -9.0, 0.0, -0.0);
}

TEST(Pnt3Dbl, MultiplyAssign)
{
    Pnt3Dbl p(1.0, -2.0, 0.0);
    EXPECT_EQ(&(p *= -3.0), &p);
    ExpectBits(p, -3.0, 6.0, -0.0);
    p *= p.y; // the scalar is one of the coordinates
    ExpectBits(p, -18.0, 36.0, -0.0);
    Pnt3Dbl all(3.0, 5.0, 7.0);
    all *= 4.0;
    ExpectBits(all, 12.0, 20.0, 28.0);
}

TEST(Pnt3Dbl, DivideAssignTrulyDivides)
{
    Pnt3Dbl p(7.0, 20.0, 17.0); // of each, the product with 1/3 lies one unit below the quotient
    EXPECT_EQ(&(p /= Opaque(3.0)), &p);
    ExpectBits(p, 0x1.2aaaaaaaaaaabp+1, 0x1.aaaaaaaaaaaabp+2, 0x1.6aaaaaaaaaaabp+2);
    Pnt3Dbl zero(0.0, 1.0, -1.0);
    zero /= Opaque(0.0);
    ExpectBits(zero, nan, infinity, -infinity);
    // 1/s would overflow where the quotient does not.
    Pnt3Dbl tiny(0x1p-1050, 0.0, -0x1p-1050);
    tiny /= Opaque(0x1p-1050);
    ExpectBits(tiny, 1.0, 0.0, -1.0);
    Pnt3Dbl self(2.0, 4.0, 6.0);
    self /= self[0];
    ExpectBits(self, 1.0, 2.0, 3.0);
}

// ---- Distance --------------------------------------------------------------------------------------

// By exact arithmetic with a rounding at each step: with these operands the other orders of the three
// squares, and fused multiply-adds, give the next double below.
TEST(Pnt3Dbl, DistanceSqTo)
{
    Pnt3Dbl const p(0x1.5b5de2bd061dfp+5, -0x1.63acb8388d871p+5, -0x1.1bdc97e46c8cp+3);
    Pnt3Dbl const q(-0x1.cd2092c070ffdp-4, -0x1.b850033c27ac6p-1, 0x1.8e835d1026588p-1);
    EXPECT_SAME_BITS(p.DistanceSqTo(q), 0x1.e6254eeccc6e8p+11);
    EXPECT_SAME_BITS(q.DistanceSqTo(p), 0x1.e6254eeccc6e8p+11);
    EXPECT_SAME_BITS(Pnt3Dbl(1.0, 2.0, 3.0).DistanceSqTo(Pnt3Dbl(3.0, 5.0, 9.0)), 49.0);
    EXPECT_SAME_BITS(Pnt3Dbl(-0.0).DistanceSqTo(Pnt3Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Pnt3Dbl(1.0, 2.0, 3.0).DistanceSqTo(Pnt3Dbl(3.0, nan, 9.0)), nan);
    EXPECT_SAME_BITS(Pnt3Dbl(infinity).DistanceSqTo(Pnt3Dbl(infinity)), nan);
}

TEST(Pnt3Dbl, DistanceTo)
{
    Pnt3Dbl const p(0x1.5b5de2bd061dfp+5, -0x1.63acb8388d871p+5, -0x1.1bdc97e46c8cp+3);
    Pnt3Dbl const q(-0x1.cd2092c070ffdp-4, -0x1.b850033c27ac6p-1, 0x1.8e835d1026588p-1);
    EXPECT_SAME_BITS(p.DistanceTo(q), 0x1.f2e7c9819ff41p+5);
    EXPECT_SAME_BITS(Pnt3Dbl(1.0, 2.0, 3.0).DistanceTo(Pnt3Dbl(3.0, 5.0, 9.0)), 7.0);
    // The root of the plain sum: it overflows and underflows where the squares do.
    EXPECT_SAME_BITS(Pnt3Dbl(1e200).DistanceTo(Pnt3Dbl(0.0)), infinity);
    EXPECT_SAME_BITS(Pnt3Dbl(1e-200).DistanceTo(Pnt3Dbl(0.0)), 0.0);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Pnt3Dbl, Equal)
{
    Pnt3Dbl const p(1.0, -0.0, 3.0);
    static_assert(std::is_same_v<decltype(p == p), int>, "");
    EXPECT_EQ(p == Pnt3Dbl(1.0, 0.0, 3.0), 1);
    for (int i = 0; i < 3; ++i) {
        Pnt3Dbl q(p);
        q[i] = q[i] + 0x1p-50;
        EXPECT_EQ(p == q, 0);
        q = p;
        q[i] = nan;
        EXPECT_EQ(p == q, 0);
        EXPECT_EQ(q == q, 0);
    }
}

TEST(Pnt3Dbl, NotEqual)
{
    Pnt3Dbl const p(1.0, -0.0, 3.0);
    static_assert(std::is_same_v<decltype(p != p), int>, "");
    EXPECT_EQ(p != Pnt3Dbl(1.0, 0.0, 3.0), 0);
    for (int i = 0; i < 3; ++i) {
        Pnt3Dbl q(p);
        q[i] = q[i] + 0x1p-50;
        EXPECT_EQ(p != q, 1);
        q[i] = nan;
        EXPECT_EQ(q != q, 1);
    }
}

TEST(Pnt3Dbl, LessIsLexicographic)
{
    static_assert(std::is_same_v<decltype(Pnt3Dbl() < Pnt3Dbl()), bool>, "");
    EXPECT_TRUE(Pnt3Dbl(1.0, 5.0, 0.0) < Pnt3Dbl(2.0, 0.0, 0.0));
    EXPECT_FALSE(Pnt3Dbl(2.0, 0.0, 0.0) < Pnt3Dbl(1.0, 5.0, 0.0));
    EXPECT_TRUE(Pnt3Dbl(1.0, 2.0, 9.0) < Pnt3Dbl(1.0, 3.0, 0.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 3.0, 0.0) < Pnt3Dbl(1.0, 2.0, 9.0));
    EXPECT_TRUE(Pnt3Dbl(1.0, 2.0, 3.0) < Pnt3Dbl(1.0, 2.0, 4.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 2.0, 4.0) < Pnt3Dbl(1.0, 2.0, 3.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 2.0, 3.0) < Pnt3Dbl(1.0, 2.0, 3.0));
    EXPECT_TRUE(Pnt3Dbl(0.0, -0.0, 1.0) < Pnt3Dbl(-0.0, 0.0, 2.0));
    // A NaN at the first coordinate that is not equal decides for false, in both directions.
    EXPECT_FALSE(Pnt3Dbl(nan, 1.0, 1.0) < Pnt3Dbl(1.0, 2.0, 2.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 1.0, 1.0) < Pnt3Dbl(1.0, nan, 2.0));
    EXPECT_FALSE(Pnt3Dbl(1.0, 1.0, nan) < Pnt3Dbl(1.0, 1.0, 2.0));
    EXPECT_TRUE(Pnt3Dbl(1.0, nan, nan) < Pnt3Dbl(2.0, nan, nan));
}

TEST(Pnt3Dbl, IsEqualToTakesAPlainLength)
{
    Pnt3Dbl const p(1.0, 2.0, 3.0);
    Pnt3Dbl const q(3.0, 5.0, 9.0); // at the distance 7
    EXPECT_EQ(p.IsEqualTo(q, 7.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, Below(7.0)), 0);
    EXPECT_EQ(q.IsEqualTo(p, 7.0), 1);
    EXPECT_EQ(p.IsEqualTo(p, 0.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, nan), 0);
    EXPECT_EQ(p.IsEqualTo(p, nan), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(nan), infinity), 0);
    // The distance counts, not each coordinate by itself.
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(0.9, 0.9, 0.0), 1.0), 0);
    // 1e-4 is a length of 1e-4 here; for a vector's predicate it would be one of 1e-2.
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(0.99e-4, 0.0, 0.0), 1e-4), 1);
    EXPECT_EQ(Pnt3Dbl(0.0).IsEqualTo(Pnt3Dbl(1.01e-4, 0.0, 0.0), 1e-4), 0);
}

TEST(Pnt3Dbl, IsEqualToWithTheGlobal)
{
    Pnt3Dbl const p(0.0);
    Pnt3Dbl const q(1e-5, 0.0, 0.0);
    EXPECT_EQ(p.IsEqualTo(q), 0); // the global's single lies a little below 1e-10
    EXPECT_EQ(p.IsEqualTo(q, -1.0), 0);
    EXPECT_EQ(p.IsEqualTo(q, -1e-300), 0);
    EXPECT_EQ(p.IsEqualTo(q, 1e-5), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(9.9e-6, 0.0, 0.0)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1e-300, 0.0, 0.0), -0.0), 1); // −0 is not negative: its square is 0,
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1e-6, 0.0, 0.0), -0.0), 0);   // and so is that of 1e-300
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(3.0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1.0, 2.0, 2.0)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1.0, 2.0, Above(2.0))), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt3Dbl(1.0, 2.0, 2.0), 2.9), 0);
}

TEST(Pnt3Dbl, IsLessThanIsNotStrict)
{
    Pnt3Dbl const p(1.0, 5.0, 0.0);
    static_assert(std::is_same_v<decltype(p.IsLessThan(p)), int>, "");
    EXPECT_EQ(p.IsLessThan(p), 1);
    EXPECT_EQ(p.IsLessThan(Pnt3Dbl(2.0, 0.0, 0.0)), 0);
    EXPECT_EQ(p.IsLessThan(Pnt3Dbl(1.0, 5.0, 1.0)), 1);
    for (int i = 0; i < 3; ++i) {
        Pnt3Dbl q(p);
        q[i] -= 0.5;
        EXPECT_EQ(p.IsLessThan(q), 0);
        EXPECT_EQ(q.IsLessThan(p), 1);
        q[i] = nan;
        EXPECT_EQ(p.IsLessThan(q), 0);
        EXPECT_EQ(q.IsLessThan(p), 0);
    }
}

TEST(Pnt3Dbl, IsGreaterThanIsNotStrict)
{
    Pnt3Dbl const p(1.0, 5.0, 0.0);
    EXPECT_EQ(p.IsGreaterThan(p), 1);
    EXPECT_EQ(p.IsGreaterThan(Pnt3Dbl(2.0, 0.0, 0.0)), 0);
    EXPECT_EQ(p.IsGreaterThan(Pnt3Dbl(1.0, 4.0, 0.0)), 1);
    for (int i = 0; i < 3; ++i) {
        Pnt3Dbl q(p);
        q[i] += 0.5;
        EXPECT_EQ(p.IsGreaterThan(q), 0);
        EXPECT_EQ(q.IsGreaterThan(p), 1);
        q[i] = nan;
        EXPECT_EQ(p.IsGreaterThan(q), 0);
        EXPECT_EQ(q.IsGreaterThan(p), 0);
    }
}

// ---- Free operators --------------------------------------------------------------------------------

TEST(Pnt3Dbl, MultiplyByScalar)
{
    ExpectBits(Pnt3Dbl(1.0, -2.0, 0.0) * -3.0, -3.0, 6.0, -0.0);
    ExpectBits(-3.0 * Pnt3Dbl(1.0, -2.0, 0.0), -3.0, 6.0, -0.0);
    static_assert(std::is_same_v<decltype(Pnt3Dbl() * 1.0), Pnt3Dbl>, "");
    static_assert(std::is_same_v<decltype(1.0 * Pnt3Dbl()), Pnt3Dbl>, "");
    ExpectBits(Pnt3Dbl(3.0, 5.0, 7.0) * 4.0, 12.0, 20.0, 28.0);
    ExpectBits(4.0 * Pnt3Dbl(3.0, 5.0, 7.0), 12.0, 20.0, 28.0);
}

TEST(Pnt3Dbl, DivideByScalarMultipliesByTheReciprocal)
{
    ExpectBits(Pnt3Dbl(7.0, 20.0, 17.0) / Opaque(3.0), 0x1.2aaaaaaaaaaaap+1, 0x1.aaaaaaaaaaaaap+2,
               0x1.6aaaaaaaaaaaap+2);
    ExpectBits(Pnt3Dbl(0.0, 1.0, -1.0) / Opaque(0.0), nan, infinity, -infinity);
    // 1/s overflows where the quotient would not.
    ExpectBits(Pnt3Dbl(0x1p-1050, 0.0, -0x1p-1050) / Opaque(0x1p-1050), infinity, nan, -infinity);
}

// ---- Members of Vec3Dbl that name Pnt3Dbl --------------------------------------------------------------

TEST(Pnt3Dbl, AssignmentToVec3Dbl)
{
    Vec3Dbl v(9.0);
    EXPECT_EQ(&(v = Pnt3Dbl(0.1, -0.0, nan)), &v);
    ExpectBits(v, 0.1, -0.0, nan);
}

} // namespace
