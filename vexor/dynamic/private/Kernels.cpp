#include <vexor/dynamic/private/Kernels.h>

#include <vexor/dynamic/private/KernelSet.h>
#include <vexor/foundation/private/StartUp.h>

namespace vexor::detail {

namespace {

/// The kernels for the instruction set that was found at load. Earlier, in another library's constructors,
/// they are the baseline's.
KernelSet const& Chosen()
{
#if defined(VEXOR_WIDE_SETS)
    if (instructionSet == InstructionSet::Avx512)
        return avx512::kernels;
    if (instructionSet == InstructionSet::Avx2)
        return avx2::kernels;
#endif
#if defined(__GNUC__)
    return baseline::kernels;
#else
    return plain::kernels;
#endif
}

} // namespace

void MultiplyColumnMajor(int rows, int columns, int inner, double const* left, double const* right,
                         double* result)
{
    Chosen().multiplyColumnMajor(rows, columns, inner, left, right, result);
}

void MultiplyVector(int rows, int columns, double const* matrix, double const* vector, double* result)
{
    Chosen().multiplyVector(rows, columns, matrix, vector, result);
}

void MultiplyVector(int rows, int columns, double const* matrix, float const* vector, float* result)
{
    Chosen().multiplyVectorSingle(rows, columns, matrix, vector, result);
}

void TransposeInto(int rows, int columns, double const* matrix, double* result)
{
    Chosen().transposeInto(rows, columns, matrix, result);
}

void TransposeSquare(int rows, double* matrix)
{
    Chosen().transposeSquare(rows, matrix);
}

} // namespace vexor::detail
