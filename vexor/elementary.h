#pragma once
#include <vexor/foundation/detail/Elementary.h>

// Sine, cosine, arc cosine and arc tangent with the same bits on every platform. Each result is the
// double nearest to the true value, for every argument, while the rounding mode is to nearest. The C
// library's functions of these names differ from one platform to another in the last place. A NaN gives
// a NaN.

namespace vexor {

/// The sine of an angle in radians. ±0 stays as it is; an infinity gives NaN.
inline double Sin(double x)
{
    return detail::Sin(x);
}

/// The cosine of an angle in radians. An infinity gives NaN.
inline double Cos(double x)
{
    return detail::Cos(x);
}

/// Both, in about the time of one.
inline SineAndCosine SinCos(double x)
{
    return detail::SinCos(x);
}

/// The arc cosine in radians, from 0 to π; NaN outside of [−1, 1].
inline double Acos(double x)
{
    return detail::Acos(x);
}

/// The angle in radians, from −π to π, of the point with the abscissa x and the ordinate y. Zeros and
/// infinities are as in the C standard's Annex F: the sign of y is that of the result, and
/// Atan2(0, −0) is π.
inline double Atan2(double y, double x)
{
    return detail::Atan2(y, x);
}

} // namespace vexor
