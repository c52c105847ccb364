#pragma once
#include <vexor/foundation/Config.h>

#include <limits>

// Lengths of double vectors over the whole range of a double. The plain sum of squares overflows
// from about 1e154 on and can lose digits below about 1e-128; there the components are scaled by a power
// of two first, which gives the bits that arithmetic with an unlimited exponent would.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

// With an L: -fsingle-precision-constant makes singles of constants without.
inline constexpr double smallestPlainSum = 0x1p-850L;

/// Whether a sum of squares, of up to four components and added one by one, has neither overflowed nor
/// lost digits to underflow. A square that did (below 2^-1022) can tip the rounding of a partial sum up
/// to about 2^-968, that sum of the next up to about 2^-914, and that one of a last up to about 2^-860.
inline bool IsPlainSum(double sumOfSquares)
{
    return sumOfSquares >= smallestPlainSum && sumOfSquares <= (std::numeric_limits<double>::max)();
}

/// √((x² + y²) + z²) where the sum is no plain one.
VEXOR_API VEXOR_COLD double FullRangeLength(double x, double y, double z);

/// Divides each component by that length, formed with an exponent of any size; raises `VexorNullVector`,
/// with nothing changed, if all three are exactly zero.
VEXOR_API VEXOR_COLD void FullRangeNormalize(double& x, double& y, double& z);

} // namespace vexor::detail

VEXOR_EXACT_END
