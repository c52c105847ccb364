#pragma once
#include <vexor/foundation/detail/Elementary.h>

// The fast step exists twice, with and without fused multiply-add. Both give the same bits, since the
// accurate step takes over where the fast one does not decide the rounding.

#if defined(__FMA__) || (defined(__aarch64__) && defined(__GNUC__))
#    define VEXOR_ELEMENTARY_FUSED_ALWAYS
#    define VEXOR_ELEMENTARY_FUSED
#elif defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#    define VEXOR_ELEMENTARY_FUSED
#endif

namespace vexor::detail::elementary {

struct FunctionSet {
    char const* name;
    double (*sin)(double x);
    double (*cos)(double x);
    SineAndCosine (*sinCos)(double x);
    double (*acos)(double x);
    double (*atan2)(double y, double x);
};

namespace plain {
extern FunctionSet const functions;
}
#if defined(VEXOR_ELEMENTARY_FUSED)
namespace fused {
extern FunctionSet const functions;
}
/// Whether the CPU has a fused multiply-add.
bool HasFused();
#endif

} // namespace vexor::detail::elementary
