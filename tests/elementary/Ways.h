#pragma once
#include <vexor/elementary.h>
#include <vexor/elementary/private/Fast.h>

#include <vector>

namespace vexor_test {

/// One variant of the functions. The library does not export the fast steps, so these programs compile them
/// again.
struct Way {
    char const* name;
    double (*sin)(double);
    double (*cos)(double);
    vexor::SineAndCosine (*sinCos)(double);
    double (*acos)(double);
    double (*atan2)(double, double);
};

/// The library's own functions, and the fast steps that this CPU can run.
inline std::vector<Way> Ways()
{
    namespace elementary = vexor::detail::elementary;
    std::vector<Way> ways = {
        {"library", vexor::Sin, vexor::Cos, vexor::SinCos, vexor::Acos, vexor::Atan2},
        {"plain", elementary::plain::Sin, elementary::plain::Cos, elementary::plain::SinCos,
         elementary::plain::Acos, elementary::plain::Atan2},
    };
#if defined(VEXOR_FUSED_SOMETIMES)
    if (elementary::HasFusedMultiplyAdd())
        ways.push_back({"fused", elementary::fused::Sin, elementary::fused::Cos, elementary::fused::SinCos,
                        elementary::fused::Acos, elementary::fused::Atan2});
#endif
    return ways;
}

} // namespace vexor_test
