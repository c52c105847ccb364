#pragma once
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/VexorTolerance.h>

// The distance of two points, for all four point classes: a running sum of squares over the element type, and
// the interpretation of the tolerance by the points' `IsEqualTo`.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// sum + d², computed in double. For single elements the square is exact and the sum is rounded to single.
/// For double elements the square and the sum are each rounded. The caller passes d rounded to the element
/// type.
template <class Element>
constexpr Element AddSquare(Element sum, Element difference)
{
    double const d = difference;
    return Round<Element>(sum + d * d);
}

/// The squared distance up to which two points count as equal. The tolerance of a point's predicate is a
/// plain length, unlike a vector's; it is squared here, in the argument's own type. Only a negative argument
/// selects the global's squared length. 0, −0 and NaN are used as given.
template <class Argument>
inline Argument SquaredDistanceLimit(Argument tolerance)
{
    return tolerance < Argument(0) ? Argument(gVexorTolerance.lengthSquared) : tolerance * tolerance;
}

} // namespace vexor::detail

VEXOR_EXACT_END
