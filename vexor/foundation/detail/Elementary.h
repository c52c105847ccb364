#pragma once
#include <vexor/foundation/Config.h>

namespace vexor {

/// The two coordinates of a point of the unit circle.
struct SineAndCosine {
    double sine;
    double cosine;
};

namespace detail {

// Each result is the double nearest to the true value, for every argument, if the rounding mode is to
// nearest. <vexor/elementary.h> documents the functions.
VEXOR_API double Sin(double x);
VEXOR_API double Cos(double x);
VEXOR_API SineAndCosine SinCos(double x);
VEXOR_API double Acos(double x);
VEXOR_API double Atan2(double y, double x);

} // namespace detail
} // namespace vexor
