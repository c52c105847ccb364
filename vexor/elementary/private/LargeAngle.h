#pragma once
#include <cstdint>

namespace vexor::detail::elementary {

/// An angle as (index + high + low)·π/256, modulo a turn, with |high| ≤ 1/2.
struct LargeAngle {
    std::uint64_t index; ///< modulo 512
    double high, low;
};

/// For any finite x of at least 1 in magnitude. The error is less than 2^-104 of the rest.
LargeAngle ReduceLarge(double x);

} // namespace vexor::detail::elementary
