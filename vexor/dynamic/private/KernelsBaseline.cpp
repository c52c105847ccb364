#include <vexor/dynamic/private/KernelSet.h>
#include <vexor/foundation/detail/Rounding.h>

#include <cstddef>
#include <cstdint>
#include <utility>

#if defined(__GNUC__)

#    define VEXOR_KERNEL_NAMESPACE baseline
#    define VEXOR_KERNEL_NAME "baseline"
#    define VEXOR_KERNEL_WIDTH 2
#    if defined(__aarch64__)
#        define VEXOR_KERNEL_COLUMNS 8 // 32 registers
#    else
#        define VEXOR_KERNEL_COLUMNS 4 // 16 registers
#    endif
#    include <vexor/dynamic/private/KernelTemplate.h>

#endif
