#pragma once
#include <vexor/foundation/Config.h>

// The kernels exist once for each instruction set worth having. They give the same bits, so that
// which one runs is a matter of speed alone; it is chosen once, by what the CPU offers.

// GCC for 64-bit Windows does not align the stack for registers of more than 128 bits.
#if defined(__GNUC__) && defined(__x86_64__) && !(defined(_WIN32) && !defined(__clang__))
#    define VEXOR_WIDE_KERNELS
#endif

namespace vexor::detail {

/// One instruction set's kernels; Kernels.h says what each computes.
struct KernelSet {
    char const* name;
    void (*multiplyColumnMajor)(int rows, int columns, int inner, double const* left, double const* right,
                                double* result);
    void (*multiplyVector)(int rows, int columns, double const* matrix, double const* vector, double* result);
    void (*multiplyVectorSingle)(int rows, int columns, double const* matrix, float const* vector,
                                 float* result);
    void (*transposeInto)(int rows, int columns, double const* matrix, double* result);
    void (*transposeSquare)(int rows, double* matrix);
};

/// Plain loops, for compilers without vector types.
namespace plain {
extern KernelSet const kernels;
}

#if defined(__GNUC__)
/// The registers of 128 bits that every target of the library has (SSE2, NEON).
namespace baseline {
extern KernelSet const kernels;
}
#endif

#if defined(VEXOR_WIDE_KERNELS)
namespace avx2 {
extern KernelSet const kernels;
}
namespace avx512 {
extern KernelSet const kernels;
}

bool HasAvx2();
bool HasAvx512();
#endif

} // namespace vexor::detail
