#include <vexor/dynamic/private/KernelSet.h>
#include <vexor/foundation/detail/Rounding.h>

#include <cstddef>
#include <cstdint>
#include <utility>

#if defined(VEXOR_WIDE_KERNELS)

#    if defined(__clang__)
#        pragma clang attribute push(__attribute__((target("avx512f,avx512vl,avx512dq"))),                   \
                                     apply_to = function)
#    else
#        pragma GCC push_options
#        pragma GCC target("avx512f,avx512vl,avx512dq")
#    endif

#    define VEXOR_KERNEL_NAMESPACE avx512
#    define VEXOR_KERNEL_NAME "AVX-512"
#    define VEXOR_KERNEL_WIDTH 8
#    define VEXOR_KERNEL_COLUMNS 8 // 32 registers
#    include <vexor/dynamic/private/KernelTemplate.h>

#    if defined(__clang__)
#        pragma clang attribute pop
#    else
#        pragma GCC pop_options
#    endif

#endif
