// Lengths, angles, areas, projections and distances of the double vectors over the whole range of a double.
// Length and Normalize are compared with MPFR with the precision of a double and an unlimited exponent:
// (x² + y²) + z² with a rounding at each step, its root, and the quotients, which are finally rounded to
// double. The oracle does the same for the other operations. Here scaling by a power of two must leave an
// angle unchanged, and scale every other result by that power.

#include <vexor/vexor.h>

#include <support/Bits.h>

#include <mpfr.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

using vexor_test::infinity;

namespace {

/// A number of 53 bits whose exponent is practically unlimited.
class Wide {
public:
    Wide() { mpfr_init2(value_, 53); }
    explicit Wide(double value) : Wide() { mpfr_set_d(value_, value, MPFR_RNDN); }
    Wide(Wide const& other) : Wide() { mpfr_set(value_, other.value_, MPFR_RNDN); }
    Wide& operator=(Wide const&) = delete;
    ~Wide() { mpfr_clear(value_); }

    Wide operator+(Wide const& other) const
    {
        Wide result;
        mpfr_add(result.value_, value_, other.value_, MPFR_RNDN);
        return result;
    }
    Wide Square() const
    {
        Wide result;
        mpfr_sqr(result.value_, value_, MPFR_RNDN);
        return result;
    }
    Wide Root() const
    {
        Wide result;
        mpfr_sqrt(result.value_, value_, MPFR_RNDN);
        return result;
    }
    double ToDouble() const { return mpfr_get_d(value_, MPFR_RNDN); }

    /// The result of a double division: rounded once, also if it is denormal.
    double QuotientBy(Wide const& divisor) const
    {
        mpfr_exp_t const leastExponent = mpfr_get_emin();
        Wide result;
        mpfr_set_emin(-1073); // the exponent of the smallest denormal double, as MPFR counts
        int inexact = mpfr_div(result.value_, value_, divisor.value_, MPFR_RNDN);
        inexact = mpfr_subnormalize(result.value_, inexact, MPFR_RNDN);
        double const quotient = mpfr_get_d(result.value_, MPFR_RNDN);
        mpfr_set_emin(leastExponent);
        return quotient;
    }

private:
    mpfr_t value_;
};

Wide LengthOf(Vec3Dbl const& v)
{
    return (Wide(v.x).Square() + Wide(v.y).Square() + Wide(v.z).Square()).Root();
}

Wide LengthOf(Vec2Dbl const& v)
{
    return (Wide(v.x).Square() + Wide(v.y).Square()).Root();
}

template <class Vector, int count>
void ExpectFullRange(Vector const& v)
{
    SCOPED_TRACE(testing::Message() << std::hexfloat << v[0] << ' ' << v[1] << ' ' << v[count - 1]);
    Wide const length = LengthOf(v);
    EXPECT_SAME_BITS(v.Length(), length.ToDouble());
    Vector const unit = v.GetNormalizedCopy();
    Vector inPlace(v);
    EXPECT_EQ(&inPlace.Normalize(), &inPlace);
    for (int i = 0; i < count; ++i) {
        double const expected = v[i] == 0.0 ? v[i] : Wide(v[i]).QuotientBy(length);
        EXPECT_SAME_BITS(unit[i], expected);
        EXPECT_SAME_BITS(inPlace[i], expected);
    }
}

void ExpectFullRange(Vec3Dbl const& v)
{
    ExpectFullRange<Vec3Dbl, 3>(v);
}

void ExpectFullRange(Vec2Dbl const& v)
{
    ExpectFullRange<Vec2Dbl, 2>(v);
}

/// Components of random digits; the exponents lie near a random one or anywhere, down to the smallest
/// denormal and up to the largest double.
class Components {
public:
    std::array<double, 3> Next()
    {
        int const base = Between(-1074, 1023);
        int const spread = std::array<int, 5>{0, 3, 60, 540, 2200}[static_cast<std::size_t>(Between(0, 4))];
        std::array<double, 3> result = {};
        for (double& component : result) {
            int const exponent = std::clamp(base + Between(-spread, spread), -1074, 1023);
            component = std::ldexp(1.0 + std::generate_canonical<double, 53>(random_), exponent);
            if (Between(0, 1))
                component = -component;
            if (Between(0, 9) == 0)
                component = 0.0;
        }
        if (result[0] == 0.0 && result[1] == 0.0)
            result[0] = std::ldexp(1.0, base);
        return result;
    }

private:
    int Between(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }

    std::mt19937_64 random_{20261121};
};

TEST(FullRange, RandomVectors)
{
    Components components;
    for (int i = 0; i < 40000 && !testing::Test::HasFailure(); ++i) {
        std::array<double, 3> const c = components.Next();
        ExpectFullRange(Vec3Dbl(c[0], c[1], c[2]));
        ExpectFullRange(Vec2Dbl(c[0], c[1]));
    }
}

TEST(FullRange, EdgesOfTheRange)
{
    double const edges[] = {0.0,      5e-324,   -1e-323,    0x1p-1022, 1e-300,
                            0x1p-538, 0x1p-537, 0x1.8p-512, 0x1p-481,  0x1p-480,
                            0x1p-451, 0x1p-425, 1.0,        0x1p+511,  0x1.6p+511,
                            0x1p+512, 1e200,    -3e200,     0x1p+1023, 0x1.fffffffffffffp+1023};
    for (double x : edges)
        for (double y : edges) {
            if (x != 0.0 || y != 0.0)
                ExpectFullRange(Vec2Dbl(x, y));
            for (double z : edges)
                if (x != 0.0 || y != 0.0 || z != 0.0)
                    ExpectFullRange(Vec3Dbl(x, y, z));
        }
}

// The squares of y, below the range of normal doubles, decide a tie in the sum of the first two, and
// that sum decides a tie in the total: the farthest effect that a lost digit can have.
TEST(FullRange, AnUnderflowThatDecidesTwoTies)
{
    for (double z : {0x1.a184840f05a79p-480, 0x1.c49a735ff795dp-480, 0x1.6c036ba83eabfp-480}) {
        Vec3Dbl const v(0x1p-506, 0x1.6a0cba7bc08cbp-533, z);
        EXPECT_SAME_BITS(v.Length(), std::nextafter(z, infinity));
        ExpectFullRange(v);
    }
}

TEST(FullRange, KnownLengths)
{
    EXPECT_DOUBLE_EQ(Vec3Dbl(3e200, 4e200, 0.0).Length(), 5e200); // decimals are not exact
    EXPECT_SAME_BITS(Vec3Dbl(0x1p-1073, 0x1p-1072, 0x1p-1072).Length(), 3 * 0x1p-1073);
    EXPECT_SAME_BITS(Vec2Dbl(0x3p-1074, 0x4p-1074).Length(), 0x5p-1074);
    EXPECT_SAME_BITS(Vec2Dbl(0x3p+1021, 0x4p+1021).Length(), 0x5p+1021);
    double const largest = 0x1.fffffffffffffp+1023;
    EXPECT_SAME_BITS(Vec2Dbl(largest, largest).Length(), infinity);
    EXPECT_SAME_BITS(Vec3Dbl(largest, 0.0, -0.0).Length(), largest);
    // x² + y² rounds to 2^1024 − 2^971, and adding z² makes a tie: the sum overflows only in this order.
    EXPECT_SAME_BITS(Vec3Dbl(0x1.fffffffffffffp+511, 0x1.0000000000001p+485, 0x1p+485).Length(), 0x1p+512);
    Vec3Dbl const cube = Vec3Dbl(largest).GetNormalizedCopy(); // although its length is beyond a double
    EXPECT_SAME_BITS(cube.x, Vec3Dbl(1.0).GetNormalizedCopy().x);
}

VecDbl Dynamic(Vec3Dbl const& v)
{
    VecDbl result(3, 0.0);
    v.GetValue(&result[0]);
    return result;
}

constexpr double right = 1.5707963267948966; // π/2

// Powers of two from the smallest denormal to the largest double.
TEST(FullRange, AnglesDoNotDependOnTheLengths)
{
    gVexorTolerance.SetLength(0.0); // so that the counter-clockwise angle accepts vectors of any length
    Vec3Dbl const up(0, 0, 1);
    for (int i = -1074; i <= 1023; ++i)
        for (int j : {-1074, -1022, -600, -300, 0, 300, 600, 1023}) {
            double const s = std::ldexp(1.0, i);
            double const t = std::ldexp(1.0, j);
            Vec3Dbl const x(s, 0, 0);
            EXPECT_EQ(x.GetAngleWith(Vec3Dbl(t, 0, 0)), 0.0);
            EXPECT_EQ(x.GetAngleWith(Vec3Dbl(-t, 0, 0)), 3.141592653589793);
            EXPECT_EQ(x.GetAngleWith(Vec3Dbl(0, t, 0)), right);
            EXPECT_EQ(x.GetAngleWith(Vec3Dbl(t, t, 0)), Vec3Dbl(1, 0, 0).GetAngleWith(Vec3Dbl(1, 1, 0)));
            EXPECT_EQ(Vec2Dbl(s, 0).GetAngleWith(Vec2Dbl(t, t)), Vec2Dbl(1, 0).GetAngleWith(Vec2Dbl(1, 1)));
            EXPECT_EQ(Dynamic(x).GetAngleWith(Dynamic(Vec3Dbl(t, t, 0))),
                      Vec3Dbl(1, 0, 0).GetAngleWith(Vec3Dbl(1, 1, 0)));
            EXPECT_EQ(x.GetCCWAngleWith(Vec3Dbl(0, t, 0), up), right);
            EXPECT_EQ(x.GetCCWAngleWith(Vec3Dbl(0, t, 0), -t * up), 3 * right);
            EXPECT_EQ(Vec2Dbl(s, 0).GetCCWAngleWith(Vec2Dbl(0, -t)), 3 * right);
        }
    gVexorTolerance = VexorTolerance();
}

TEST(FullRange, AreasDistancesAndProjectionsFollowTheScale)
{
    // The legs 3 and 4: a hypotenuse of 5, an area of 6, and a projection of 3 on (1, 0).
    for (int i = -1070; i <= 1020; ++i) {
        double const s = std::ldexp(1.0, i);
        Vec3Dbl const v(3 * s, 4 * s, 0);
        EXPECT_SAME_BITS(v.Length(), 5 * s);
        EXPECT_SAME_BITS(Pnt3Dbl(v).DistanceTo(Pnt3Dbl(0.0)), 5 * s);
        EXPECT_SAME_BITS(Pnt2Dbl(3 * s, 0).DistanceTo(Pnt2Dbl(0, 4 * s)), 5 * s);
        EXPECT_SAME_BITS(Dynamic(v).Length(), 5 * s);
        EXPECT_SAME_BITS(Dynamic(v).GetNormalizedCopy()[1], 4.0 / 5.0);
        for (double t : {0x1p-1074, 0x1p-600, 1.0, 0x1p+1023}) {
            EXPECT_EQ(v.GetProjectionOnTo(Vec3Dbl(t, 0, 0)), Vec3Dbl(3 * s, 0, 0));
            EXPECT_EQ(Vec2Dbl(3 * s, 4 * s).GetProjectionOnTo(Vec2Dbl(0, t)), Vec2Dbl(0, 4 * s));
            EXPECT_EQ(Dynamic(v).GetProjectionOnTo(Dynamic(Vec3Dbl(t, 0, 0)))[0], 3 * s);
        }
        double const inverse = std::ldexp(1.0, -i - 3);
        if (i > -1000 && i < 1000) { // the other leg is in the range too
            EXPECT_SAME_BITS(Vec3Dbl(3 * s, 0, 0).GetAreaFormedByTriangleWith(Vec3Dbl(0, 4 * inverse, 0)),
                             0.75);
            EXPECT_SAME_BITS(Vec2Dbl(3 * s, 0).GetAreaFormedByTriangleWith(Vec2Dbl(0, 4 * inverse)), 0.75);
        }
    }
}

TEST(FullRange, ResultsOutOfRange)
{
    double const largest = 0x1.fffffffffffffp+1023;
    EXPECT_SAME_BITS(Pnt3Dbl(largest, 0, 0).DistanceTo(Pnt3Dbl(-largest, 0, 0)), infinity);
    EXPECT_SAME_BITS(Pnt3Dbl(0x1p+1023, 0, 0).DistanceTo(Pnt3Dbl(0x1p+1022, 0, 0)), 0x1p+1022);
    EXPECT_SAME_BITS(Vec3Dbl(largest, 0, 0).GetAreaFormedByTriangleWith(Vec3Dbl(0, largest, 0)), infinity);
    EXPECT_SAME_BITS(Vec2Dbl(largest, 0).GetAreaFormedByTriangleWith(Vec2Dbl(0, 2)), largest);
    EXPECT_SAME_BITS(Vec2Dbl(0x1p-1074, 0).GetAreaFormedByTriangleWith(Vec2Dbl(0, 0x1p-1074)), 0.0);
    EXPECT_SAME_BITS(VecDbl(10000, largest).Length(), infinity);
    EXPECT_SAME_BITS(VecDbl(10000, largest).GetNormalizedCopy()[9999], 0.01);
    EXPECT_SAME_BITS(VecDbl(10000, 0x1p-1074).Length(), 100 * 0x1p-1074);
    VecDbl inPlace(10000, 0x1p-1074);
    EXPECT_SAME_BITS(inPlace.Normalize()[0], 0.01);
}

} // namespace
