#pragma once
#include <vexor/foundation/Config.h>
#include <vexor/foundation/detail/Scalar.h>

#include <limits>

// Lengths, angles, areas, projections and distances of double vectors over the whole range of a double. The
// plain formulas are right if no intermediate result overflows or loses digits to underflow. This holds for
// components between about 1e-72 and 1e75, and for many others. For all other operands the functions below
// give the bits of arithmetic with the precision of a double and an unlimited exponent range, rounded to a
// double once at the end. They take a few hundred nanoseconds.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

// The suffix L is needed: -fsingle-precision-constant turns constants without it into singles.
inline constexpr double smallestPlainSum = 0x1p-850L;
inline constexpr double smallestOfPlainPair = 0x1p-480L;
inline constexpr double largestOfPlainPair = 0x1p500L;
inline constexpr double smallestPlainProduct = 0x1p-960L;
inline constexpr double largestPlainProduct = 0x1p1022L;

/// Whether a sum of squares of up to four components, added one by one, is free of overflow and of digits
/// lost to underflow. An underflowed square (below 2^-1022) can change the rounding of a partial sum as large
/// as 2^-968, which can change the next up to 2^-914, and the last up to 2^-860. Sums of at least 2^-850 are
/// safe.
inline bool IsPlainSum(double sumOfSquares)
{
    return sumOfSquares >= smallestPlainSum && sumOfSquares <= (std::numeric_limits<double>::max)();
}

/// Whether the plain formulas of an angle and of an area are right for two sums of squares of up to three
/// components. The dot product cannot overflow then, and digits that it loses to underflow are too far below
/// the product of the two to change a result. With a NaN both evaluations give NaN.
inline bool IsPlainPair(double sumOfSquares, double other)
{
    double const smaller = sumOfSquares < other ? sumOfSquares : other;
    double const larger = sumOfSquares > other ? sumOfSquares : other;
    return smaller >= smallestOfPlainPair && larger <= largestOfPlainPair;
}

/// Whether a difference of two products of these magnitudes, and half of it, are right without scaling. A
/// product that lost digits is then too small next to the other to change the difference.
inline bool ArePlainProducts(double product, double other)
{
    double const larger = product > other ? product : other;
    return larger >= smallestPlainProduct && larger <= largestPlainProduct;
}

/// The smaller magnitude. Applied to the three in turn, it lets one comparison test whether all are large
/// enough.
inline double SmallerMagnitude(double smallest, double value)
{
    double const size = std::fabs(value);
    return size < smallest ? size : smallest;
}

/// Whether a result is in the range of normal numbers, where it was rounded to 53 bits. The smallest normal
/// number may come from a result below it, which was rounded to fewer bits.
inline bool IsInNormalRange(double result)
{
    double const size = std::fabs(result);
    return size > (std::numeric_limits<double>::min)() && size <= (std::numeric_limits<double>::max)();
}

/// Whether a component of a projection's target, made unit, and its product with the component of the vector
/// that is projected were rounded to 53 bits. A component of exactly 0 needs no rounding. This is tested if
/// the smallest magnitude is not in the normal range.
inline bool IsPlainTerm(double component, double target, double unit)
{
    return target == 0.0
           || (IsInNormalRange(unit) && (IsInNormalRange(component * unit) || component == 0.0));
}

/// √(Σ v²).
VEXOR_API VEXOR_COLD double FullRangeLength(double const* values, int count);

/// Divides each component by the length. Raises `VexorNullVector`, with nothing changed, if all are exactly
/// 0.
VEXOR_API VEXOR_COLD void FullRangeNormalize(double* values, int count);

/// The unsigned angle, 0 if a vector is null.
VEXOR_API VEXOR_COLD double FullRangeAngle(double const* left, double const* right, int count);

/// 0.5·√(A·B − d·d) of vectors of three components.
VEXOR_API VEXOR_COLD double FullRangeArea(double const* left, double const* right);

/// 0.5·(x·oy − y·ox) of vectors of two components.
VEXOR_API VEXOR_COLD double FullRangePlaneArea(double const* left, double const* right);

/// Writes the component of `vector` along `target` to `result`, which must not overlap `target`. The dot
/// product is added to `start`, a zero. Raises `VexorNullVector` if the target is null.
VEXOR_API VEXOR_COLD void FullRangeProjection(double* result, double const* vector, double const* target,
                                              int count, double start);

/// √(Σ (from − to)²).
VEXOR_API VEXOR_COLD double FullRangeDistance(double const* from, double const* to, int count);

/// `Vec3Dbl::GetCCWAngleWith` of three arrays of three.
double FullRangeCounterClockwiseAngle(double const* from, double const* to, double const* normal);

} // namespace vexor::detail

VEXOR_EXACT_END
