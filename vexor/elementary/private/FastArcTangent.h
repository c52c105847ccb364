#pragma once
#include <vexor/elementary/private/Accurate.h>
#include <vexor/elementary/private/Fast.h>
#include <vexor/elementary/private/FastArithmetic.h>
#include <vexor/foundation/detail/Scalar.h>

#include <cmath>
#include <cstdint>

namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE {

/// The angle to or from which an octant's arc tangent is added or subtracted.
struct Origin {
    double high, low, sign;
};

/// By x < 0 and, times two, |y| > |x|.
inline constexpr Origin origins[4] = {
    {0.0, 0.0, 1.0},
    {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53, -1.0},
    {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54, -1.0},
    {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54, 1.0},
};

/// The magnitude of the angle of a point whose coordinates are from 2^-900 to 2^900 in magnitude, their
/// quotient at least 2^-60.
inline bool ArcTangentOf(double y, double x, double& result)
{
    double const ordinate = std::fabs(y);
    double const abscissa = std::fabs(x);
    bool const isSteep = ordinate > abscissa;
    double const smaller = isSteep ? abscissa : ordinate;
    double const larger = isSteep ? ordinate : abscissa;
    Origin const& origin = origins[(IsNegative(x) ? 1 : 0) + (isSteep ? 2 : 0)];

    // The quotient in two parts, with one division.
    double const inverse = 1.0 / larger;
    double const quotient = smaller * inverse;
    Sum const product = Multiply(quotient, larger);
    double const rest = ((smaller - product.high) - product.low) * inverse;

    Distance const point = NearestPoint(quotient, 0x1p-7);
    double const d = point.value;
    Expansion const& t = arcTangentTable[point.index];
    Sum const sum = MultiplyShortAdd(t.bHigh, d, t.aHigh);
    double const slope = MultiplyAdd(t.c2 + t.c2, d, t.bHigh);
    double const small = MultiplyAdd(slope, rest, MultiplyAdd(t.bLow, d, sum.low + t.aLow));
    double const low = MultiplyAdd(d * d, Tail(t, d), small);

    Sum const angle = AddSmaller(origin.high, origin.sign * sum.high);
    double const error = MultiplyAdd(t.aHigh, 0x1.8p-66, std::fabs(d) * 0x1.4p-66);
    return IsDecided({angle.high, angle.low + MultiplyAdd(origin.sign, low, origin.low)},
                     error + origin.high * 0x1p-100, result);
}

/// Zeros, infinities, NaNs, and numbers that are too large or small for the function above.
VEXOR_COLD inline double RareArcTangent(double y, double x)
{
    if (x != x || y != y)
        return x + y;
    double const ordinate = std::fabs(y);
    double const abscissa = std::fabs(x);
    bool const isInfinite = MagnitudeBits(x) == infinityBits;
    double angle = 0.0;
    if (MagnitudeBits(y) == infinityBits) {
        angle = isInfinite ? (IsNegative(x) ? 0x1.2d97c7f3321d2p+1 : pi / 4.0) : pi / 2.0;
    } else if (isInfinite || ordinate == 0.0) {
        angle = IsNegative(x) ? pi : 0.0;
    } else if (abscissa == 0.0) {
        angle = pi / 2.0;
    } else {
        Parts const upper = Split(y);
        Parts const right = Split(x);
        int const difference = upper.exponent - right.exponent;
        if (difference > 59 || difference < -59)
            return Atan2NearAxis(y, x);
        double const scaledY = static_cast<double>(upper.mantissa) * PowerOfTwo(difference);
        double const scaledX = static_cast<double>(right.mantissa);
        if (!ArcTangentOf(scaledY, IsNegative(x) ? -scaledX : scaledX, angle))
            return AccurateAtan2(y, x);
    }
    return IsNegative(y) ? -angle : angle;
}

double Atan2(double y, double x) // NOLINT(misc-definitions-in-headers)
{
    // From 2^-900 to 2^900, and at most 2^59 apart.
    std::uint64_t const lowest = 0x07b0000000000000;
    std::uint64_t const width = 0x7080000000000000;
    std::uint64_t const upper = MagnitudeBits(y);
    std::uint64_t const right = MagnitudeBits(x);
    std::uint64_t const apart = upper - right + 0x03b0000000000000;
    if (upper - lowest > width || right - lowest > width || apart > 0x0760000000000000)
        return RareArcTangent(y, x);
    double angle = 0.0;
    if (!ArcTangentOf(y, x, angle))
        return AccurateAtan2(y, x);
    return FromBits(BitsOf(angle) | (BitsOf(y) & signBit));
}

} // namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE
