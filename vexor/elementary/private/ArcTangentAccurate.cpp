#include <vexor/elementary/private/Accurate.h>

#include <vexor/elementary/private/Fixed.h>
#include <vexor/elementary/private/Series.h>
#include <vexor/foundation/detail/Scalar.h>

namespace vexor::detail::elementary {

namespace {

/// Bounds of the errors in units; docs/elementary.md derives sums of less than half of these. The arc
/// cosine's includes the error of a square root near 0.
constexpr std::uint64_t arcTangentError = 256;
constexpr std::uint64_t arcCosineError = std::uint64_t(1) << 28;

/// The quotient of two numbers, for 1/2 ≤ divisor < 2 and dividend ≤ divisor, with an error of less than 50
/// units. Long division with digits of about 40 bits.
template <int N>
Fixed<N> Quotient(Fixed<N> const& dividend, Fixed<N> const& divisor)
{
    // Slightly too small, so that no digit is too large and no remainder negative.
    double const inverse = (1.0 - 0x1p-40) / Nearest(divisor);
    Fixed<N> quotient;
    Fixed<N> rest = dividend;
    while (!(rest < Units<N>(4))) {
        Fixed<N> const digit = FromDouble<N>(Nearest(rest) * inverse);
        quotient = quotient + digit;
        rest = rest - digit * divisor;
    }
    return quotient;
}

/// The square root of a number from 2^-53 to 1, with an error of less than 2^27 units.
template <int N>
Fixed<N> Root(Fixed<N> const& square)
{
    // Every approximation except the last is too small; each adds about 38 bits.
    double const estimate = SquareRoot(Nearest(square));
    double const factor = (1.0 - 0x1p-38) / (2.0 * estimate);
    Fixed<N> root = FromDouble<N>(estimate * (1.0 - 0x1p-40));
    for (;;) {
        Fixed<N> const product = root * root;
        if (square < product)
            return root;
        Fixed<N> const step = FromDouble<N>(Nearest(square - product) * factor);
        if (step.IsZero())
            return root;
        root = root + step;
    }
}

/// atan(y/x) for 0 ≤ y ≤ x and 1/2 ≤ x ≤ 1: the angle of the point less that of an estimate e is the
/// arc tangent of (y·cos e − x·sin e) / (x·cos e + y·sin e), a small number.
template <int N>
Fixed<N> ArcTangentInOctant(Fixed<N> const& y, Fixed<N> const& x)
{
    double const quotient = Nearest(y) / Nearest(x);
    int const i = static_cast<int>(quotient * 128.0);
    Expansion const& t = arcTangentTable[i];
    double const d = quotient - i * 0x1p-7;
    double const estimate =
        t.aHigh + d * (t.bHigh + t.bLow + d * (t.c2 + d * (t.c3 + d * (t.c4 + d * t.c5))));

    Fixed<N> const angle = FromDouble<N>(estimate);
    Fixed<N> const sine = SineSeries(angle);
    Fixed<N> const cosine = CosineSeries(angle);
    Fixed<N> const left = y * cosine;
    Fixed<N> const right = x * sine;
    bool const isTooLarge = left < right;
    Fixed<N> const difference = isTooLarge ? right - left : left - right;
    Fixed<N> const small = Quotient(difference, x * cosine + y * sine);

    // small − small³/3 + small⁵/5 − …
    Fixed<N> const square = small * small;
    Fixed<N> rest = small;
    Fixed<N> power = small;
    for (std::uint32_t k = 3;; k += 2) {
        power = power * square;
        if (power.IsZero())
            break;
        rest = (k & 2) != 0 ? rest - power / k : rest + power / k;
    }
    return isTooLarge ? angle - rest : angle + rest;
}

/// The angle of the point with the coordinates ±x and y, none negative, the larger at least 1/2.
template <int N>
Fixed<N> AngleOfPoint(Fixed<N> const& y, Fixed<N> const& x, bool xIsNegative)
{
    if (x < y) {
        Fixed<N> const fromAxis = ArcTangentInOctant(x, y);
        return xIsNegative ? HalfPi<N>() + fromAxis : HalfPi<N>() - fromAxis;
    }
    Fixed<N> const fromAxis = ArcTangentInOctant(y, x);
    return xIsNegative ? Pi<N>() - fromAxis : fromAxis;
}

template <int N>
bool ArcTangent(Parts const& y, Parts const& x, bool xIsNegative, double& result)
{
    // Scaled so that the larger one is from 1/2 to 1.
    int const scale = -53 - (y.exponent > x.exponent ? y.exponent : x.exponent);
    Fixed<N> const ordinate = FromParts<N>(y.mantissa, y.exponent + scale);
    Fixed<N> const abscissa = FromParts<N>(x.mantissa, x.exponent + scale);
    return Decide(AngleOfPoint(ordinate, abscissa, xIsNegative), arcTangentError, result);
}

template <int N>
bool ArcCosine(double magnitude, bool isNegative, double& result)
{
    Fixed<N> const one = WholeNumber<N>(1);
    Fixed<N> const x = FromDouble<N>(magnitude);
    Fixed<N> const y = Root((one - x) * (one + x));
    return Decide(AngleOfPoint(y, x, isNegative), arcCosineError, result);
}

} // namespace

double AccurateAcos(double x)
{
    bool const isNegative = x < 0.0;
    double const magnitude = isNegative ? -x : x;
    double result = 0.0;
    // An angle other than 0 whose cosine is rational is irrational, hence never half-way between two doubles.
    if (!ArcCosine<3>(magnitude, isNegative, result) && !ArcCosine<6>(magnitude, isNegative, result))
        ArcCosine<12>(magnitude, isNegative, result);
    return result;
}

double Atan2NearAxis(double y, double x)
{
    Parts const ordinate = Split(y);
    Parts const abscissa = Split(x);
    if (ordinate.exponent > abscissa.exponent) // rounding absorbs the difference to π/2
        return IsNegative(y) ? -pi / 2.0 : pi / 2.0;
    if (IsNegative(x))
        return IsNegative(y) ? -pi : pi;

    // The quotient, 56 or 57 bits of it, with its last bit set if there are more. The arc tangent is slightly
    // less than the quotient, too little to pass a multiple of that last place unless the quotient is exact.
    std::uint64_t quotient = 0;
    std::uint64_t rest = ordinate.mantissa;
    for (int i = 0; i <= 56; ++i) {
        quotient <<= 1;
        if (rest >= abscissa.mantissa) {
            rest -= abscissa.mantissa;
            quotient |= 1;
        }
        rest <<= 1;
    }
    if (rest == 0)
        --quotient;
    quotient = quotient << 1 | 1;
    int exponent = ordinate.exponent - abscissa.exponent - 57;

    // Rounded once, to 53 bits or to the last place of the denormals. There is no tie: the last bit is set.
    int drop = 0;
    while (quotient >> (drop + 53) != 0)
        ++drop;
    if (exponent + drop < -1074)
        drop = -1074 - exponent;
    if (drop > 60) // less than half the smallest double
        return IsNegative(y) ? -0.0 : 0.0;
    std::uint64_t mantissa = quotient >> drop;
    mantissa += quotient >> (drop - 1) & 1;
    exponent += drop;
    // Both factors and the product are exact.
    double const scaled = static_cast<double>(mantissa);
    double const result =
        exponent < -1022 ? scaled * 0x1p-1022 * PowerOfTwo(exponent + 1022) : scaled * PowerOfTwo(exponent);
    return IsNegative(y) ? -result : result;
}

double AccurateAtan2(double y, double x)
{
    Parts const ordinate = Split(y);
    Parts const abscissa = Split(x);
    int const difference = ordinate.exponent - abscissa.exponent;
    if (difference > 62 || difference < -62)
        return Atan2NearAxis(y, x);
    double result = 0.0;
    // An angle other than 0 whose tangent is rational is irrational, hence never half-way between two
    // doubles.
    if (!ArcTangent<3>(ordinate, abscissa, IsNegative(x), result)
        && !ArcTangent<6>(ordinate, abscissa, IsNegative(x), result))
        ArcTangent<12>(ordinate, abscissa, IsNegative(x), result);
    return IsNegative(y) ? -result : result;
}

} // namespace vexor::detail::elementary
