#pragma once
#include <vexor/foundation/private/InstructionSets.h>

// Each useful instruction set has its own kernels. All give the same bits, so the choice affects only speed.
// The library chooses at load, by what the CPU supports.

namespace vexor::detail {

/// One instruction set's kernels; Kernels.h documents what each computes.
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
/// Registers of 128 bits, which every target of the library has (SSE2, NEON).
namespace baseline {
extern KernelSet const kernels;
}
#endif

#if defined(VEXOR_WIDE_SETS)
namespace avx2 {
extern KernelSet const kernels;
}
namespace avx512 {
extern KernelSet const kernels;
}
#endif

} // namespace vexor::detail
