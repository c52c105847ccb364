#pragma once
#include <vexor/foundation/Config.h>

// Where a value is rounded to single precision is part of each operation's definition. This file does every
// such rounding of a computed double; foundation/private/Registers.h rounds registers of doubles.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// Rounds to the nearest single.
///
/// GCC 12 at -O2 and -O3 drops the rounding in neighbouring `p.x = (float)a; p.y = (float)b;` with double
/// fields: its vectoriser treats the pair of conversions as a no-op. The empty asm emits nothing but hides
/// the value from that pass, in the client's code as well as in ours.
inline float RoundToSingle(double value)
{
    float single = static_cast<float>(value);
#if defined(__GNUC__) && !defined(__clang__)
#    if defined(__x86_64__) || defined(__i386__)
    __asm__("" : "+x"(single));
#    elif defined(__aarch64__)
    __asm__("" : "+w"(single));
#    else
    __asm__("" : "+m"(single));
#    endif
#endif
    return single;
}

/// Rounds a double-precision intermediate to the element type: to single for `float` elements; `double`
/// elements stay unchanged. Templates over the element type call it at each rounding point.
template <class Element>
inline Element Round(double value);

template <>
inline float Round<float>(double value)
{
    return RoundToSingle(value);
}

template <>
constexpr double Round<double>(double value)
{
    return value;
}

} // namespace vexor::detail

VEXOR_EXACT_END
