#pragma once
#include <vexor/foundation/detail/Elementary.h>

// The fast step exists twice, without and with a fused multiply-add. Both give the same bits, since the
// accurate step replaces the fast one if that does not decide the rounding.

#if defined(__FMA__) || (defined(__aarch64__) && defined(__GNUC__))
#    define VEXOR_FUSED_ALWAYS
#    define VEXOR_FUSED_SOMETIMES
#elif defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#    define VEXOR_FUSED_SOMETIMES
#endif

namespace vexor::detail::elementary {

/// Whether this CPU has a fused multiply-add that the library can use.
inline bool HasFusedMultiplyAdd()
{
#if defined(VEXOR_FUSED_ALWAYS)
    return true;
#elif defined(VEXOR_FUSED_SOMETIMES)
    __builtin_cpu_init(); // the function may be called before the constructors have run
    return __builtin_cpu_supports("fma") != 0;
#else
    return false;
#endif
}

namespace plain {
double Sin(double x);
double Cos(double x);
SineAndCosine SinCos(double x);
double Acos(double x);
double Atan2(double y, double x);
} // namespace plain

#if defined(VEXOR_FUSED_SOMETIMES)
namespace fused {
double Sin(double x);
double Cos(double x);
SineAndCosine SinCos(double x);
double Acos(double x);
double Atan2(double y, double x);
} // namespace fused
#endif

} // namespace vexor::detail::elementary
