#include <vexor/dynamic/private/KernelSet.h>
#include <vexor/foundation/detail/Rounding.h>

#include <cstddef>
#include <cstdint>
#include <utility>

#if defined(VEXOR_WIDE_KERNELS)

#    if defined(__clang__)
#        pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#    else
#        pragma GCC push_options
#        pragma GCC target("avx2")
#    endif

#    define VEXOR_KERNEL_NAMESPACE avx2
#    define VEXOR_KERNEL_NAME "AVX2"
#    define VEXOR_KERNEL_WIDTH 4
#    define VEXOR_KERNEL_COLUMNS 4 // 16 registers
#    include <vexor/dynamic/private/KernelTemplate.h>

#    if defined(__clang__)
#        pragma clang attribute pop
#    else
#        pragma GCC pop_options
#    endif

#endif
