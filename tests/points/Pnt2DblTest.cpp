#include <vexor/points/Pnt2Dbl.h>

#include <vexor/points/Pnt2Flt.h>
#include <vexor/points/Pnt3Dbl.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

#include <cstddef>
#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

template <class Pair>
void ExpectBits(Pair const& actual, double x, double y)
{
    EXPECT_SAME_BITS(actual.x, x);
    EXPECT_SAME_BITS(actual.y, y);
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Pnt2Dbl, Layout)
{
    static_assert(sizeof(Pnt2Dbl) == 2 * sizeof(double) && std::is_standard_layout_v<Pnt2Dbl>, "");
    static_assert(offsetof(Pnt2Dbl, y) == sizeof(double) && std::is_trivially_copyable_v<Pnt2Dbl>, "");
}

TEST(Pnt2Dbl, DefaultConstructor)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build fills the coordinates";
#else
    EXPECT_TRUE(DefaultConstructorWritesNothing<Pnt2Dbl>());
#endif
}

TEST(Pnt2Dbl, Constructors)
{
    ExpectBits(Pnt2Dbl(-0.0), -0.0, -0.0);
    ExpectBits(Pnt2Dbl(1.0, -2.0), 1.0, -2.0);
    double values[2] = {4.0, -0.0};
    ExpectBits(Pnt2Dbl(values), 4.0, -0.0);
    Pnt2Dbl const source(nan, -infinity);
    Pnt2Dbl const copy(source);
    ExpectBits(copy, nan, -infinity);
}

TEST(Pnt2Dbl, ConstructorsFromOtherClasses)
{
    ExpectBits(Pnt2Dbl(Vec2Dbl(0.1, -0.0)), 0.1, -0.0);
    ExpectBits(Pnt2Dbl(Pnt2Flt(0.1f, 0x1p-149f)), 0x1.99999ap-4, 0x1p-149);
    ExpectBits(Pnt2Dbl(Vec2Flt(0.1f, nanFlt)), 0x1.99999ap-4, nan);
    Pnt2Dbl const implicitOne = Vec2Dbl(1.0, 2.0); // no constructor is explicit
    ExpectBits(implicitOne, 1.0, 2.0);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Pnt2Dbl, Assignment)
{
    Pnt2Dbl p(9.0);
    EXPECT_EQ(&(p = Pnt2Dbl(-0.0, nan)), &p);
    ExpectBits(p, -0.0, nan);
    EXPECT_EQ(&(p = Vec2Dbl(0.1, 2.0)), &p);
    ExpectBits(p, 0.1, 2.0);
    EXPECT_EQ(&(p = Pnt2Flt(0.1f, -0.0f)), &p);
    ExpectBits(p, 0x1.99999ap-4, -0.0);
    EXPECT_EQ(&(p = Vec2Flt(4.0f, 0.1f)), &p);
    ExpectBits(p, 4.0, 0x1.99999ap-4);
    Pnt2Dbl& same = p;
    p = same;
    ExpectBits(p, 4.0, 0x1.99999ap-4);
}

TEST(Pnt2Dbl, SetValue)
{
    Pnt2Dbl p(9.0);
    EXPECT_EQ(&p.SetValue(-0.0), &p);
    ExpectBits(p, -0.0, -0.0);
    EXPECT_EQ(&p.SetValue(1.0, 2.0), &p);
    ExpectBits(p, 1.0, 2.0);
    double const values[2] = {4.0, 5.0};
    EXPECT_EQ(&p.SetValue(values), &p);
    ExpectBits(p, 4.0, 5.0);
    p.SetValue(p.y, p.x);
    ExpectBits(p, 5.0, 4.0);
}

// The form with references is not const, unlike that of the vectors.
template <class Point, class = void>
constexpr bool givesTwoDoubles = false;
template <class Point>
constexpr bool givesTwoDoubles<Point, std::void_t<decltype(std::declval<Point>().GetValue(
                                          std::declval<double&>(), std::declval<double&>()))>> = true;

TEST(Pnt2Dbl, GetValue)
{
    static_assert(givesTwoDoubles<Pnt2Dbl&> && !givesTwoDoubles<Pnt2Dbl const&>, "");
    static_assert(givesTwoDoubles<Vec2Dbl const&>, "");
    Pnt2Dbl p(-0.0, nan);
    double x = 9.0;
    double y = 9.0;
    p.GetValue(x, y);
    ExpectBits(Pnt2Dbl(x, y), -0.0, nan);
    Pnt2Dbl const& constant = p;
    double values[3] = {9.0, 9.0, 9.0};
    constant.GetValue(values);
    ExpectBits(Pnt2Dbl(values), -0.0, nan);
    EXPECT_EQ(values[2], 9.0);
    p.SetValue(1.0, 2.0);
    p.GetValue(p.y, p.x); // what each reference gets is what the point held before
    ExpectBits(p, 2.0, 1.0);
}

TEST(Pnt2Dbl, Index)
{
    Pnt2Dbl p(1.0, 2.0);
    EXPECT_EQ(&p[0], &p.x);
    EXPECT_EQ(&p[1], &p.y);
    Pnt2Dbl const& constant = p;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(&p(i), &p[i]);
        EXPECT_EQ(&constant[i], &p[i]);
        EXPECT_EQ(&constant(i), &p[i]);
    }
    p[Opaque(0)] = 7.0;
    p(Opaque(1)) = 8.0;
    ExpectBits(p, 7.0, 8.0);
}

TEST(Pnt2Dbl, Vector)
{
    Pnt2Dbl const p(0.1, -0.0);
    static_assert(std::is_same_v<decltype(p.Vector()), Vec2Dbl>, "");
    ExpectBits(p.Vector(), 0.1, -0.0);
}

TEST(Pnt2Dbl, ToPnt2FltRoundsToNearest)
{
    Pnt2Flt const a = Pnt2Dbl(1.0 + 0x1p-24, 1.0 + 3 * 0x1p-24).ToPnt2Flt(); // halfway goes to even
    EXPECT_SAME_BITS(a.x, 1.0f);
    EXPECT_SAME_BITS(a.y, 1.0f + 0x1p-22f);
    Pnt2Flt const b = Pnt2Dbl(1.0 + 0x1p-24 + 0x1p-52, -1e300).ToPnt2Flt();
    EXPECT_SAME_BITS(b.x, 1.0f + 0x1p-23f);
    EXPECT_SAME_BITS(b.y, -infinityFlt);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Pnt2Dbl, Add)
{
    Pnt2Dbl const p(-0.0, 1.0);
    static_assert(std::is_same_v<decltype(p + p), Pnt2Dbl>, "");
    static_assert(std::is_same_v<decltype(p + Vec2Dbl()), Pnt2Dbl>, "");
    ExpectBits(p + Pnt2Dbl(-0.0, 0x1p-53), -0.0, 1.0);
    ExpectBits(p + Vec2Dbl(3.0, 0x1p-52), 3.0, 1.0 + 0x1p-52);
    ExpectBits((p + Pnt2Dbl(3.0, 5.0)) / 2, 1.5, 3.0); // the midpoint
}

TEST(Pnt2Dbl, Subtract)
{
    Pnt2Dbl const p(-0.0, 1.0);
    static_assert(std::is_same_v<decltype(p - p), Vec2Dbl>, "");
    static_assert(std::is_same_v<decltype(p - Vec2Dbl()), Pnt2Dbl>, "");
    ExpectBits(p - Pnt2Dbl(0.0, 3.0), -0.0, -2.0);
    ExpectBits(p - Vec2Dbl(0.0, 1.0), -0.0, 0.0);
}

TEST(Pnt2Dbl, AddAssign)
{
    Pnt2Dbl p(1.0, -0.0);
    EXPECT_EQ(&(p += Pnt2Dbl(10.0, -0.0)), &p);
    ExpectBits(p, 11.0, -0.0);
    EXPECT_EQ(&(p += Vec2Dbl(1.0, 2.0)), &p);
    ExpectBits(p, 12.0, 2.0);
    Pnt2Dbl const& same = p;
    p += same;
    ExpectBits(p, 24.0, 4.0);
}

template <class Point, class Other, class = void>
constexpr bool subtracts = false;
template <class Point, class Other>
constexpr bool
    subtracts<Point, Other, std::void_t<decltype(std::declval<Point&>() -= std::declval<Other const&>())>> =
        true;

TEST(Pnt2Dbl, SubtractAssign)
{
    static_assert(subtracts<Pnt2Dbl, Vec2Dbl> && !subtracts<Pnt2Dbl, Pnt2Dbl>, "");
    Pnt2Dbl p(1.0, -0.0);
    EXPECT_EQ(&(p -= Vec2Dbl(10.0, 0.0)), &p);
    ExpectBits(p, -9.0, -0.0);
}

TEST(Pnt2Dbl, MultiplyAssign)
{
    Pnt2Dbl p(-2.0, 0.0);
    EXPECT_EQ(&(p *= -3.0), &p);
    ExpectBits(p, 6.0, -0.0);
    p *= p.x; // the scalar is one of the coordinates
    ExpectBits(p, 36.0, -0.0);
    Pnt2Dbl all(3.0, 5.0);
    all *= 4.0;
    ExpectBits(all, 12.0, 20.0);
}

TEST(Pnt2Dbl, DivideAssignTrulyDivides)
{
    Pnt2Dbl p(7.0, 20.0); // of each, the product with 1/3 lies one unit below the quotient
    EXPECT_EQ(&(p /= Opaque(3.0)), &p);
    ExpectBits(p, 0x1.2aaaaaaaaaaabp+1, 0x1.aaaaaaaaaaaabp+2);
    Pnt2Dbl zero(0.0, -1.0);
    zero /= Opaque(0.0);
    ExpectBits(zero, nan, -infinity);
    Pnt2Dbl self(2.0, 4.0);
    self /= self[0];
    ExpectBits(self, 1.0, 2.0);
}

// ---- Distance --------------------------------------------------------------------------------------

// By exact arithmetic with a rounding at each step; a fused multiply-add gives a neighbour.
TEST(Pnt2Dbl, DistanceSqTo)
{
    EXPECT_SAME_BITS(Pnt2Dbl(0x1.19ed018de6431p+6, -0x1.fa51ff020efccp+5)
                         .DistanceSqTo(Pnt2Dbl(-0x1.8b0ba092a4fe9p-2, 0x1.dfb90ff65f617p-2)),
                     0x1.1bfa82b701b84p+13);
    EXPECT_SAME_BITS(Pnt2Dbl(0x1.4840b89d3c472p+1, -0x1.76959b69c8f7fp+6)
                         .DistanceSqTo(Pnt2Dbl(0x1.9f111af39743cp-2, -0x1.37249be6df9d3p-1)),
                     0x1.0ea671f84c082p+13);
    EXPECT_SAME_BITS(Pnt2Dbl(1.0, 2.0).DistanceSqTo(Pnt2Dbl(4.0, 6.0)), 25.0);
    EXPECT_SAME_BITS(Pnt2Dbl(-0.0).DistanceSqTo(Pnt2Dbl(0.0)), 0.0);
    EXPECT_SAME_BITS(Pnt2Dbl(1.0, nan).DistanceSqTo(Pnt2Dbl(4.0, 6.0)), nan);
}

TEST(Pnt2Dbl, DistanceTo)
{
    EXPECT_SAME_BITS(Pnt2Dbl(0x1.19ed018de6431p+6, -0x1.fa51ff020efccp+5)
                         .DistanceTo(Pnt2Dbl(-0x1.8b0ba092a4fe9p-2, 0x1.dfb90ff65f617p-2)),
                     0x1.7d4f42d189f82p+6);
    EXPECT_SAME_BITS(Pnt2Dbl(1.0, 2.0).DistanceTo(Pnt2Dbl(4.0, 6.0)), 5.0);
    // The root of the plain sum: it overflows and underflows where the squares do.
    EXPECT_SAME_BITS(Pnt2Dbl(1e200).DistanceTo(Pnt2Dbl(0.0)), infinity);
    EXPECT_SAME_BITS(Pnt2Dbl(1e-200).DistanceTo(Pnt2Dbl(0.0)), 0.0);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Pnt2Dbl, EqualAndNotEqual)
{
    static_assert(std::is_same_v<decltype(Pnt2Dbl() == Pnt2Dbl()), int>, "");
    static_assert(std::is_same_v<decltype(Pnt2Dbl() != Pnt2Dbl()), int>, "");
    Pnt2Dbl const p(1.0, -0.0);
    EXPECT_EQ(p == Pnt2Dbl(1.0, 0.0), 1);
    EXPECT_EQ(p != Pnt2Dbl(1.0, 0.0), 0);
    for (int i = 0; i < 2; ++i) {
        Pnt2Dbl q(p);
        q[i] += 0x1p-50;
        EXPECT_EQ(p == q, 0);
        EXPECT_EQ(p != q, 1);
        q[i] = nan;
        EXPECT_EQ(q == q, 0);
        EXPECT_EQ(q != q, 1);
    }
}

TEST(Pnt2Dbl, LessIsLexicographicAndAnInt)
{
    static_assert(std::is_same_v<decltype(Pnt2Dbl() < Pnt2Dbl()), int>, "");
    static_assert(std::is_same_v<decltype(Pnt3Dbl() < Pnt3Dbl()), bool>, "");
    EXPECT_EQ(Pnt2Dbl(1.0, 5.0) < Pnt2Dbl(2.0, 0.0), 1);
    EXPECT_EQ(Pnt2Dbl(2.0, 0.0) < Pnt2Dbl(1.0, 5.0), 0);
    EXPECT_EQ(Pnt2Dbl(1.0, 2.0) < Pnt2Dbl(1.0, 3.0), 1);
    EXPECT_EQ(Pnt2Dbl(1.0, 2.0) < Pnt2Dbl(1.0, 2.0), 0);
    EXPECT_EQ(Pnt2Dbl(-0.0, 2.0) < Pnt2Dbl(0.0, 3.0), 1);
    EXPECT_EQ(Pnt2Dbl(nan, 2.0) < Pnt2Dbl(1.0, 3.0), 0);
    EXPECT_EQ(Pnt2Dbl(1.0, nan) < Pnt2Dbl(1.0, 3.0), 0);
    EXPECT_EQ(Pnt2Dbl(1.0, nan) < Pnt2Dbl(2.0, nan), 1);
}

TEST(Pnt2Dbl, IsEqualToTakesAPlainLength)
{
    Pnt2Dbl const p(1.0, 2.0);
    Pnt2Dbl const q(4.0, 6.0); // at the distance 5
    EXPECT_EQ(p.IsEqualTo(q, 5.0), 1);
    EXPECT_EQ(p.IsEqualTo(q, Below(5.0)), 0);
    EXPECT_EQ(p.IsEqualTo(p, 0.0), 1);
    EXPECT_EQ(p.IsEqualTo(p, nan), 0);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(nan), infinity), 0);
}

TEST(Pnt2Dbl, IsEqualToWithTheGlobal)
{
    Pnt2Dbl const p(0.0);
    Pnt2Dbl const q(1e-5, 0.0);
    EXPECT_EQ(p.IsEqualTo(q), 0); // the global's single lies a little below 1e-10
    EXPECT_EQ(p.IsEqualTo(q, -1e-300), 0);
    EXPECT_EQ(p.IsEqualTo(q, 1e-5), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(0.0, 9.9e-6)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(1e-6, 0.0), -0.0), 0);
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(5.0);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(3.0, 4.0)), 1);
    EXPECT_EQ(p.IsEqualTo(Pnt2Dbl(3.0, Above(4.0))), 0);
}

TEST(Pnt2Dbl, IsLessThanAndIsGreaterThanAreNotStrict)
{
    Pnt2Dbl const p(1.0, 5.0);
    EXPECT_EQ(p.IsLessThan(p), 1);
    EXPECT_EQ(p.IsGreaterThan(p), 1);
    EXPECT_EQ(p.IsLessThan(Pnt2Dbl(2.0, 0.0)), 0);
    EXPECT_EQ(p.IsGreaterThan(Pnt2Dbl(2.0, 0.0)), 0);
    for (int i = 0; i < 2; ++i) {
        Pnt2Dbl q(p);
        q[i] = Above(q[i]);
        EXPECT_EQ(p.IsLessThan(q), 1);
        EXPECT_EQ(q.IsLessThan(p), 0);
        EXPECT_EQ(p.IsGreaterThan(q), 0);
        EXPECT_EQ(q.IsGreaterThan(p), 1);
        q[i] = nan;
        EXPECT_EQ(p.IsLessThan(q) | q.IsLessThan(p) | p.IsGreaterThan(q) | q.IsGreaterThan(p), 0);
    }
}

// ---- Free operators --------------------------------------------------------------------------------

TEST(Pnt2Dbl, MultiplyByScalar)
{
    ExpectBits(Pnt2Dbl(-2.0, 0.0) * -3.0, 6.0, -0.0);
    ExpectBits(-3.0 * Pnt2Dbl(-2.0, 0.0), 6.0, -0.0);
    ExpectBits(Pnt2Dbl(3.0, 5.0) * 4.0, 12.0, 20.0);
    ExpectBits(4.0 * Pnt2Dbl(3.0, 5.0), 12.0, 20.0);
}

TEST(Pnt2Dbl, DivideByScalarMultipliesByTheReciprocal)
{
    ExpectBits(Pnt2Dbl(7.0, 20.0) / Opaque(3.0), 0x1.2aaaaaaaaaaaap+1, 0x1.aaaaaaaaaaaaap+2);
    ExpectBits(Pnt2Dbl(0.0, -1.0) / Opaque(0.0), nan, -infinity);
    // 1/s overflows where the quotient would not.
    ExpectBits(Pnt2Dbl(0x1p-1050, 0.0) / Opaque(0x1p-1050), infinity, nan);
}

// ---- Members of Vec2Dbl that name Pnt2Dbl --------------------------------------------------------------

TEST(Pnt2Dbl, AssignmentToVec2Dbl)
{
    Vec2Dbl v(9.0);
    EXPECT_EQ(&(v = Pnt2Dbl(0.1, -0.0)), &v);
    ExpectBits(v, 0.1, -0.0);
}

} // namespace
