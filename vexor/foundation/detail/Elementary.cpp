#include <vexor/foundation/detail/Elementary.h>

#include <vexor/elementary/private/FunctionSet.h>
#include <vexor/elementary/private/StartUp.h>

namespace vexor::detail {

namespace elementary {

#if defined(VEXOR_ELEMENTARY_FUSED_ALWAYS)
bool HasFused()
{
    return true;
}
#elif defined(VEXOR_ELEMENTARY_FUSED)
bool HasFused()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("fma") != 0;
}
#endif

namespace {

#if defined(VEXOR_ELEMENTARY_FUSED_ALWAYS)
FunctionSet const* const chosen = &fused::functions;
#else
FunctionSet const* chosen = &plain::functions; // set before any code runs
#endif

} // namespace

void ChooseFunctions()
{
#if defined(VEXOR_ELEMENTARY_FUSED) && !defined(VEXOR_ELEMENTARY_FUSED_ALWAYS)
    if (HasFused())
        chosen = &fused::functions;
#endif
}

} // namespace elementary

double Sin(double x)
{
    return elementary::chosen->sin(x);
}

double Cos(double x)
{
    return elementary::chosen->cos(x);
}

SineAndCosine SinCos(double x)
{
    return elementary::chosen->sinCos(x);
}

double Acos(double x)
{
    return elementary::chosen->acos(x);
}

double Atan2(double y, double x)
{
    return elementary::chosen->atan2(y, x);
}

} // namespace vexor::detail
