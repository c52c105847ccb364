#include <elementary/Reference.h>
#include <elementary/Strata.h>
#include <elementary/Ways.h>
#include <support/Bits.h>

#include <vexor/elementary/private/Accurate.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

// Results are compared with MPFR, all bits, or with C's Annex F.

namespace {

namespace elementary = vexor::detail::elementary;
using vexor_test::infinity;
using vexor_test::nan;
using vexor_test::SameBits;
using vexor_test::Way;

constexpr double pi = 0x1.921fb54442d18p+1;
constexpr double smallest = 0x1p-1074;
constexpr double largest = 0x1.fffffffffffffp+1023;

/// A committed list of doubles, eight bytes each, the lowest first.
std::vector<double> Read(char const* name)
{
    std::string const path = std::string(VEXOR_HARD_CASES "/") + name;
    std::vector<double> values;
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
        unsigned char bytes[8];
        while (std::fread(bytes, 1, 8, file) == 8) {
            std::uint64_t bits = 0;
            for (int i = 7; i >= 0; --i)
                bits = bits << 8 | bytes[i];
            double value = 0.0;
            std::memcpy(&value, &bits, sizeof value);
            values.push_back(value);
        }
        std::fclose(file);
    }
    return values;
}

testing::AssertionResult Are(double actual, double expected, char const* way, double y, double x)
{
    if (SameBits(actual, expected))
        return testing::AssertionSuccess();
    char text[200];
    std::snprintf(text, sizeof text, "%s of %a %a: %a instead of %a", way, y, x, actual, expected);
    return testing::AssertionFailure() << text;
}

/// Each variant, and the accurate step alone for the arguments that reach it.
void CheckSine(double x, double sine, double cosine)
{
    for (Way const& way : vexor_test::Ways()) {
        EXPECT_TRUE(Are(way.sin(x), sine, way.name, 0.0, x));
        EXPECT_TRUE(Are(way.cos(x), cosine, way.name, 0.0, x));
        vexor::SineAndCosine const both = way.sinCos(x);
        EXPECT_TRUE(Are(both.sine, sine, way.name, 0.0, x));
        EXPECT_TRUE(Are(both.cosine, cosine, way.name, 0.0, x));
    }
    if (std::isfinite(x) && std::fabs(x) >= 0x1p-26) {
        EXPECT_TRUE(Are(elementary::AccurateSin(x), sine, "accurate sin", 0.0, x));
        EXPECT_TRUE(Are(elementary::AccurateCos(x), cosine, "accurate cos", 0.0, x));
    }
}

void CheckArcCosine(double x, double expected)
{
    for (Way const& way : vexor_test::Ways())
        EXPECT_TRUE(Are(way.acos(x), expected, way.name, 0.0, x));
    if (std::fabs(x) < 1.0) {
        EXPECT_TRUE(Are(elementary::AccurateAcos(x), expected, "accurate acos", 0.0, x));
    }
}

void CheckArcTangent(double y, double x, double expected)
{
    for (Way const& way : vexor_test::Ways())
        EXPECT_TRUE(Are(way.atan2(y, x), expected, way.name, y, x));
    if (std::isfinite(x) && std::isfinite(y) && x != 0.0 && y != 0.0) {
        EXPECT_TRUE(Are(elementary::AccurateAtan2(y, x), expected, "accurate atan2", y, x));
    }
}

TEST(Elementary, SineAndCosineOfZerosInfinitiesAndNaN)
{
    CheckSine(0.0, 0.0, 1.0);
    CheckSine(-0.0, -0.0, 1.0);
    CheckSine(infinity, nan, nan);
    CheckSine(-infinity, nan, nan);
    CheckSine(nan, nan, nan);
}

TEST(Elementary, SineOfAVerySmallAngleIsTheAngle)
{
    // x − x³/6 is nearer to x than half a place.
    CheckSine(smallest, smallest, 1.0);
    CheckSine(-0x0.fffffffffffffp-1022, -0x0.fffffffffffffp-1022, 1.0);
    CheckSine(0x1.fffffffffffffp-28, 0x1.fffffffffffffp-28, 1.0);
}

TEST(Elementary, ArcCosineAtItsEndsAndBeyond)
{
    CheckArcCosine(1.0, 0.0);
    CheckArcCosine(-1.0, pi);
    CheckArcCosine(0.0, pi / 2.0);
    CheckArcCosine(-0.0, pi / 2.0);
    for (double outside : {0x1.0000000000001p+0, 2.0, infinity, nan}) {
        CheckArcCosine(outside, nan);
        CheckArcCosine(-outside, nan);
    }
}

TEST(Elementary, ArcTangentOfZerosInfinitiesAndNaN)
{
    for (double sign : {1.0, -1.0}) {
        double const zero = sign * 0.0;
        CheckArcTangent(zero, 0.0, zero);
        CheckArcTangent(zero, -0.0, sign * pi);
        CheckArcTangent(zero, 1.5, zero);
        CheckArcTangent(zero, infinity, zero);
        CheckArcTangent(zero, -1.5, sign * pi);
        CheckArcTangent(zero, -infinity, sign * pi);
        for (double x : {0.0, -0.0})
            CheckArcTangent(sign * 2.5, x, sign * pi / 2.0);
        CheckArcTangent(sign * 2.5, infinity, zero);
        CheckArcTangent(sign * 2.5, -infinity, sign * pi);
        for (double x : {0.0, -0.0, 3.0, -3.0})
            CheckArcTangent(sign * infinity, x, sign * pi / 2.0);
        CheckArcTangent(sign * infinity, infinity, sign * pi / 4.0);
        CheckArcTangent(sign * infinity, -infinity, sign * 0x1.2d97c7f3321d2p+1);
        for (double other : {0.0, -0.0, 1.0, infinity, -infinity, nan}) {
            CheckArcTangent(sign * nan, other, nan);
            CheckArcTangent(other, sign * nan, nan);
        }
    }
}

TEST(Elementary, AnArcTangentThatUnderflowsIsRoundedOnce)
{
    // Slightly less than the quotient: half the smallest double becomes 0, 3 halves become 1, and an exact
    // is unchanged.
    CheckArcTangent(smallest, 2.0, 0.0);
    CheckArcTangent(-smallest, 2.0, -0.0);
    CheckArcTangent(3.0 * smallest, 2.0, smallest);
    CheckArcTangent(5.0 * smallest, 2.0, 2.0 * smallest);
    CheckArcTangent(4.0 * smallest, 2.0, 2.0 * smallest);
    CheckArcTangent(smallest, 0x1.fffffffffffffp+0, smallest);
    CheckArcTangent(smallest, largest, 0.0);
    CheckArcTangent(smallest, 1.0, smallest);
    CheckArcTangent(0x1p-1022, 2.0, 0x1p-1023);
    CheckArcTangent(0x1.8p-1022, 3.0, 0x1p-1023);
    CheckArcTangent(smallest, -largest, pi);
    CheckArcTangent(largest, smallest, pi / 2.0);
    CheckArcTangent(-largest, -smallest, -pi / 2.0);
    CheckArcTangent(smallest, smallest, pi / 4.0);
    CheckArcTangent(largest, largest, pi / 4.0);
}

TEST(Elementary, AnglesAtTheLimitsOfTheReductions)
{
    // Multiples of pi/512 are the table's points and the midpoints between them. The last two of the other
    // angles are the limits of the method without reduction, slightly below pi/512, and of that with doubles.
    vexor_test::Reference reference;
    std::vector<double> angles = {0x1p-27, 0x1p-26, 0x1p-8, 0x1p-7, 0x1.9p-8, 0x1p+16};
    for (int i = 1; i < 2048; ++i)
        angles.push_back(i * pi / 512.0);
    for (double turns : {100.0, 10430.0})
        for (int i = -3; i <= 3; ++i)
            angles.push_back(turns * 2.0 * pi + i * pi / 512.0);
    for (double angle : angles) {
        for (double x : {std::nextafter(angle, 0.0), angle, std::nextafter(angle, infinity)}) {
            double sine = 0.0, cosine = 0.0;
            reference.SinCos(x, sine, cosine);
            CheckSine(x, sine, cosine);
            CheckSine(-x, -sine, cosine);
        }
    }
}

TEST(Elementary, QuotientsBetweenTwoPointsOfTheTable)
{
    // The quotient 2^-8 is half-way between the first two points; the computed one is slightly below. Its
    // difference from the second point has 54 bits.
    for (double x : {0x1.8e8p+0, 0x1.88cp-80, -0x1.708p+24, 0x1.b33121eabe1a9p-84}) {
        double const y = x * 0x1p-8;
        CheckArcTangent(std::fabs(y), std::fabs(x), 0x1.ffff5555bbbb7p-9);
    }
    vexor_test::Reference reference;
    for (int i = 0; i < 128; ++i) {
        double const middle = (i + 0.5) * 0x1p-7;
        for (double x : {std::nextafter(middle, 0.0), middle, std::nextafter(middle, 1.0)}) {
            CheckArcCosine(x, reference.Acos(x));
            CheckArcCosine(-x, reference.Acos(-x));
            for (double scale : {1.0, 1.7, 0x1.8e8p+0})
                CheckArcTangent(x * scale, scale, reference.Atan2(x * scale, scale));
        }
    }
}

TEST(Elementary, HardToRoundArguments)
{
    vexor_test::Reference reference;
    double sine = 0.0, cosine = 0.0;
    for (char const* name : {"sin.bin", "cos.bin"}) {
        std::vector<double> const list = Read(name);
        EXPECT_GT(list.size(), 19000u);
        for (double x : list) {
            reference.SinCos(x, sine, cosine);
            CheckSine(x, sine, cosine);
        }
    }
    std::vector<double> const cosines = Read("acos.bin");
    EXPECT_EQ(cosines.size(), 44756u);
    for (double x : cosines)
        CheckArcCosine(x, reference.Acos(x));
    std::vector<double> const points = Read("atan2.bin");
    EXPECT_EQ(points.size(), 2u * 13865u);
    for (std::size_t i = 0; i + 1 < points.size(); i += 2)
        CheckArcTangent(points[i], points[i + 1], reference.Atan2(points[i], points[i + 1]));
}

TEST(Elementary, TheAccurateStepAloneOverTheStrata)
{
    vexor_test::Reference reference;
    vexor_test::Strata strata(20261122);
    int differing = 0;
    auto expect = [&](char const* function, double y, double x, double actual, double expected) {
        if (!SameBits(actual, expected) && ++differing <= 10)
            ADD_FAILURE() << Are(actual, expected, function, y, x).message();
    };
    for (int i = 0; i < VEXOR_ACCURATE_CASES; ++i) {
        double const angle = strata.Angle();
        if (std::isfinite(angle) && std::fabs(angle) >= 0x1p-26) {
            double sine = 0.0, cosine = 0.0;
            reference.SinCos(angle, sine, cosine);
            expect("sin", 0.0, angle, elementary::AccurateSin(angle), sine);
            expect("cos", 0.0, angle, elementary::AccurateCos(angle), cosine);
        }
        double const x = strata.Cosine();
        if (std::fabs(x) < 1.0)
            expect("acos", 0.0, x, elementary::AccurateAcos(x), reference.Acos(x));
        double ordinate = 0.0, abscissa = 0.0;
        strata.Point(ordinate, abscissa);
        if (std::isfinite(ordinate) && std::isfinite(abscissa) && ordinate != 0.0 && abscissa != 0.0)
            expect("atan2", ordinate, abscissa, elementary::AccurateAtan2(ordinate, abscissa),
                   reference.Atan2(ordinate, abscissa));
    }
    EXPECT_EQ(differing, 0);
}

} // namespace
