#pragma once
#include <vexor/foundation/VexorTolerance.h>

// How a predicate interprets its tolerance arguments. Neither is converted: an angular one is a sine squared,
// a length one is a squared length. An argument below 0 selects the global's value at the time of the call.
// 0, −0 and NaN are used as given.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

template <class Element>
inline Element AngularTolerance(Element argument)
{
    return argument < Element(0) ? Element(gVexorTolerance.sin2Angle) : argument;
}

template <class Element>
inline Element LengthTolerance(Element argument)
{
    return argument < Element(0) ? Element(gVexorTolerance.lengthSquared) : argument;
}

} // namespace vexor::detail

VEXOR_EXACT_END
