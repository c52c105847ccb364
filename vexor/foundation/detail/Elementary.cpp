#include <vexor/foundation/detail/Elementary.h>

#include <vexor/elementary/private/Fast.h>
#include <vexor/foundation/private/StartUp.h>

// The branch on the CPU always goes the same way, so it is predicted and costs nothing.
#if defined(VEXOR_FUSED_ALWAYS)
#    define VEXOR_ELEMENTARY_CALL(call) return elementary::fused::call
#elif defined(VEXOR_FUSED_SOMETIMES)
#    define VEXOR_ELEMENTARY_CALL(call)                                                                      \
        return hasFusedMultiplyAdd ? elementary::fused::call : elementary::plain::call
#else
#    define VEXOR_ELEMENTARY_CALL(call) return elementary::plain::call
#endif

namespace vexor::detail {

double Sin(double x)
{
    VEXOR_ELEMENTARY_CALL(Sin(x));
}

double Cos(double x)
{
    VEXOR_ELEMENTARY_CALL(Cos(x));
}

SineAndCosine SinCos(double x)
{
    VEXOR_ELEMENTARY_CALL(SinCos(x));
}

double Acos(double x)
{
    VEXOR_ELEMENTARY_CALL(Acos(x));
}

double Atan2(double y, double x)
{
    VEXOR_ELEMENTARY_CALL(Atan2(y, x));
}

} // namespace vexor::detail
