#pragma once
#include <vexor/foundation/Config.h>
#include <vexor/foundation/detail/Elementary.h>

#include <cmath>
#if defined(__i386__) || defined(_M_IX86)
#    include <emmintrin.h>
#endif

// `condition ? yes : no` of two numbers. With -fno-signed-zeros, clang before 16 loses the sign of a zero in
// this operator, despite VEXOR_EXACT_BEGIN. A branch keeps the sign and compiles to the same instructions.
#if defined(__clang__)
#    define VEXOR_CHOOSE(condition, yes, no) ::vexor::detail::Choose(condition, yes, no)
#else
#    define VEXOR_CHOOSE(condition, yes, no) ((condition) ? (yes) : (no))
#endif

VEXOR_EXACT_BEGIN

namespace vexor::detail {

#if defined(__clang__)
template <class Number>
constexpr Number Choose(bool condition, Number yes, Number no)
{
    if (condition)
        return yes;
    return no;
}
#endif

// The suffix L keeps the constant exact: -fsingle-precision-constant turns constants without it into singles.
inline constexpr double pi = 0x1.921fb54442d18p+1L;
inline constexpr double twoPi = 0x1.921fb54442d18p+2L;
/// The double nearest the square root of 3, for the closed-form eigenvalues of a 3×3 matrix.
inline constexpr double squareRootOfThree = 0x1.bb67ae8584caap+0L;
static_assert(sizeof(1.0) != sizeof(double) || (pi == 3.141592653589793 && twoPi == 6.283185307179586));

/// The absolute value by the library's rule: v if v > 0, else −v. So 0.0 gives −0.0, and a NaN stays a NaN.
template <class Number>
constexpr Number Magnitude(Number value)
{
    return VEXOR_CHOOSE(value > Number(0), value, -value);
}

/// The double nearest the square root; NaN for a negative number.
///
/// On 32-bit x86 the C library may use the x87 unit, which rounds twice; MinGW's does. An optimised build
/// does not call that function; an unoptimised one did, and had other bits.
inline double SquareRoot(double value)
{
#if defined(__i386__) || defined(_M_IX86)
    __m128d const number = _mm_set_sd(value);
    return _mm_cvtsd_f64(_mm_sqrt_sd(number, number));
#else
    return std::sqrt(value);
#endif
}

/// The arc cosine in radians, 0 for 1 or more and π for −1 or less, so that rounding in a cosine never yields
/// NaN. A NaN stays a NaN.
inline double ClampedArcCosine(double cosine)
{
    if (cosine >= 1.0)
        return 0.0;
    if (cosine <= -1.0)
        return pi;
    return Acos(cosine);
}

} // namespace vexor::detail

VEXOR_EXACT_END
