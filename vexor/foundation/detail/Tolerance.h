#pragma once
#include <vexor/foundation/VexorTolerance.h>

// How a predicate reads its tolerance arguments. Both are compared as they stand: an angular one is
// the square of a sine, a length is squared. An argument strictly below 0 selects the global's value
// at the moment of the call; 0, −0 and NaN are used as they are.

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
