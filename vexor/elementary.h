#pragma once
#include <vexor/foundation/detail/Elementary.h>

// Sine, cosine, arc cosine and arc tangent with the same bits on every platform. Each result is the
// double nearest to the true value, for every argument, if the rounding mode is to nearest. The C
// library's functions of these names give other bits on other platforms. A NaN gives a NaN.

namespace vexor {

/// The sine of an angle in radians. The sine of 0 is 0 and that of −0 is −0. An infinity gives NaN.
inline double Sin(double x)
{
    return detail::Sin(x);
}

/// The cosine of an angle in radians. An infinity gives NaN.
inline double Cos(double x)
{
    return detail::Cos(x);
}

/// Sine and cosine of an angle in radians, faster than two calls.
inline SineAndCosine SinCos(double x)
{
    return detail::SinCos(x);
}

/// The arc cosine in radians, from 0 to π. An argument outside [−1, 1] gives NaN.
inline double Acos(double x)
{
    return detail::Acos(x);
}

/// The angle of the point (x, y) in radians, from −π to π. The result has the sign of y. Zeros and infinities
/// give the results of the C standard's Annex F: Atan2(0, −0) is π.
inline double Atan2(double y, double x)
{
    return detail::Atan2(y, x);
}

} // namespace vexor
