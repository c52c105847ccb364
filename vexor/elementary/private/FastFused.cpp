// The fast step with a fused multiply-add. What it shares with other sources is included before the
// target changes, so that no function of theirs is compiled for this target.
#include <vexor/elementary/private/Fast.h>

#include <vexor/elementary/private/Accurate.h>
#include <vexor/elementary/private/Bits.h>
#include <vexor/elementary/private/LargeAngle.h>
#include <vexor/elementary/private/Tables.h>
#include <vexor/foundation/detail/Scalar.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#if defined(VEXOR_FUSED_SOMETIMES)

#    if defined(VEXOR_FUSED_ALWAYS)
#    elif defined(__clang__)
#        pragma clang attribute push(__attribute__((target("avx,fma"))), apply_to = function)
#    else
#        pragma GCC push_options
#        pragma GCC target("avx,fma")
#    endif

#    define VEXOR_ELEMENTARY_NAMESPACE fused
#    define VEXOR_ELEMENTARY_IS_FUSED 1
#    include <vexor/elementary/private/FastArcCosine.h>
#    include <vexor/elementary/private/FastArcTangent.h>
#    include <vexor/elementary/private/FastSine.h>

#    if defined(VEXOR_FUSED_ALWAYS)
#    elif defined(__clang__)
#        pragma clang attribute pop
#    else
#        pragma GCC pop_options
#    endif

#endif
