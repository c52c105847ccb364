#include <vexor/elementary/private/LargeAngle.h>

#include <vexor/elementary/private/Quadrant.h>

namespace vexor::detail::elementary {

LargeAngle ReduceLarge(double x)
{
    Parts const parts = Split(x);
    Quadrant<3> const reduced = ReduceToQuadrant<3>(parts.mantissa, parts.exponent);
    // In steps of π/256, of which a quarter turn has 128.
    Fixed<3> const inSteps = FromParts<3>(1, 7) * reduced.fraction;
    std::uint64_t index = static_cast<std::uint64_t>(reduced.quarters) * 128 + inSteps.word[3];
    Fixed<3> rest = inSteps;
    rest.word[3] = 0;
    bool isNegative = IsNegative(x);
    if (rest.word[2] >> 63 != 0) {
        rest = WholeNumber<3>(1) - rest;
        ++index;
        isNegative = !isNegative;
    }
    // At most 61 bits lead before the first that is set, so 120 are left.
    double high = Nearest(rest);
    Fixed<3> const nearest = FromDouble<3>(high);
    double low = rest < nearest ? -Nearest(nearest - rest) : Nearest(rest - nearest);
    if (isNegative) {
        high = -high;
        low = -low;
    }
    return {IsNegative(x) ? std::uint64_t(0) - index : index, high, low};
}

} // namespace vexor::detail::elementary
