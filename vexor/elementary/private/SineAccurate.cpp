#include <vexor/elementary/private/Accurate.h>

#include <vexor/elementary/private/Fixed.h>
#include <vexor/elementary/private/Quadrant.h>
#include <vexor/elementary/private/Series.h>

namespace vexor::detail::elementary {

namespace {

/// Bound of the error of `Sine` in units; docs/elementary.md derives a sum of less than 16.
constexpr std::uint64_t sineError = 32;

/// The magnitude of sin(x + offset·π/2) and whether it is negative, for x > 0.
template <int N>
bool Sine(double x, int offset, double& result)
{
    Parts const parts = Split(x);
    int quarters = offset;
    Fixed<N> angle;
    bool angleIsNegative = false;
    if (x < 0.75) {
        angle = FromParts<N>(parts.mantissa, parts.exponent);
    } else {
        Quadrant<N> const reduced = ReduceToQuadrant<N>(parts.mantissa, parts.exponent);
        quarters += reduced.quarters;
        Fixed<N> fraction = reduced.fraction;
        if (fraction.word[N - 1] >> 63 != 0) { // beyond half a quarter turn: the distance to the next one
            fraction = WholeNumber<N>(1) - fraction;
            angleIsNegative = true;
            ++quarters;
        }
        angle = fraction * HalfPi<N>();
    }
    bool const isCosine = (quarters & 1) != 0;
    bool const isNegative = ((quarters & 2) != 0) != (angleIsNegative && !isCosine);
    Fixed<N> const magnitude = isCosine ? CosineSeries(angle) : SineSeries(angle);
    bool const decided = Decide(magnitude, sineError, result);
    if (isNegative)
        result = -result;
    return decided;
}

double SineOfAny(double x, int offset)
{
    double result = 0.0;
    // The sine of a number other than 0 is irrational, hence never half-way between two doubles. No
    // argument is known that needs the second attempt, and the third has practically no chance to fail.
    if (!Sine<3>(x, offset, result) && !Sine<6>(x, offset, result))
        Sine<12>(x, offset, result);
    return result;
}

} // namespace

double AccurateSin(double x)
{
    return x < 0.0 ? -SineOfAny(-x, 0) : SineOfAny(x, 0);
}

double AccurateCos(double x)
{
    return SineOfAny(x < 0.0 ? -x : x, 1);
}

} // namespace vexor::detail::elementary
