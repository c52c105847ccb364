#pragma once
#include <vexor/elementary/private/Accurate.h>
#include <vexor/elementary/private/Fast.h>
#include <vexor/elementary/private/FastArithmetic.h>
#include <vexor/foundation/detail/Scalar.h>

#include <cmath>
#include <limits>

namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE {

/// The expansion's value at a distance d from its point.
inline Sum Evaluate(Expansion const& t, double d)
{
    Sum const sum = MultiplyShortAdd(t.bHigh, d, t.aHigh);
    double const small = MultiplyAdd(t.bLow, d, sum.low + t.aLow);
    return {sum.high, MultiplyAdd(d * d, Tail(t, d), small)};
}

/// acos(x) = π/2 − asin(x) for |x| ≤ 1/2.
inline bool ArcCosineBelowHalf(double x, double& result)
{
    Distance const d = NearestPoint(std::fabs(x), 0x1p-7);
    Sum const arcSine = Evaluate(arcSineTable[d.index], d.value);
    double const sign = x < 0.0 ? 1.0 : -1.0;
    Sum const sum = AddSmaller(0x1.921fb54442d18p+0, sign * arcSine.high);
    double const low = sum.low + MultiplyAdd(sign, arcSine.low, 0x1.1a62633145c07p-54);
    return IsDecided({sum.high, low}, 0x1.4p-67, result);
}

/// acos(x) = √(2t) · f(t) with t = 1 − x for 1/2 < x < 1, and π less that for the negative.
inline bool ArcCosineBeyondHalf(double x, double& result)
{
    double const t = 1.0 - std::fabs(x);
    Distance const d = NearestPoint(t, 0x1p-6);
    Sum const factor = Evaluate(arcCosineQuotientTable[d.index], d.value);

    // The root's error, relative to it, is half of the remainder divided by the square.
    double const square = t + t;
    double const half = 0.5 / square;
    double const root = SquareRoot(square);
    double const error = Remainder(square, root) * half;

    Sum const product = Multiply(root, factor.high);
    double const low = MultiplyAdd(root, factor.low, MultiplyAdd(error, product.high, product.low));
    if (x > 0.0)
        return IsDecided({product.high, low}, product.high, 0x1p-68, result);
    Sum const sum = AddSmaller(0x1.921fb54442d18p+1, -product.high);
    return IsDecided({sum.high, sum.low + (0x1.1a62633145c07p-53 - low)}, product.high, 0x1.1p-68, result);
}

double Acos(double x) // NOLINT(misc-definitions-in-headers)
{
    double const magnitude = std::fabs(x);
    double result = 0.0;
    if (magnitude <= 0.5) {
        if (ArcCosineBelowHalf(x, result))
            return result;
    } else if (magnitude < 1.0) {
        if (ArcCosineBeyondHalf(x, result))
            return result;
    } else if (magnitude == 1.0) {
        return x < 0.0 ? pi : 0.0;
    } else {
        return x != x ? x : std::numeric_limits<double>::quiet_NaN();
    }
    return AccurateAcos(x);
}

} // namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE
