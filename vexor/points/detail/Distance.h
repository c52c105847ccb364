#pragma once
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/VexorTolerance.h>

// The distance of two points, for all four point classes: a running sum of squares over the element
// type, and how the points' `IsEqualTo` reads its tolerance.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// sum + d², made in double: for single elements the square is exact there, and the sum is rounded to
/// single; for double elements the square and the sum are rounded each. The caller hands in d rounded to
/// the element type.
template <class Element>
constexpr Element AddSquare(Element sum, Element difference)
{
    double const d = difference;
    return Round<Element>(sum + d * d);
}

/// The squared distance up to which two points count as equal. Unlike a vector's predicate, a point's
/// takes a plain length and squares it here, in the argument's own type; only a negative argument
/// selects the global's squared length. 0, −0 and NaN are used as they are.
template <class Argument>
inline Argument SquaredDistanceLimit(Argument tolerance)
{
    return tolerance < Argument(0) ? Argument(gVexorTolerance.lengthSquared) : tolerance * tolerance;
}

} // namespace vexor::detail

VEXOR_EXACT_END
