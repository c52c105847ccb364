#include <vexor/dynamic/private/Kernels.h>

#include <vexor/dynamic/private/KernelSet.h>

#if defined(VEXOR_WIDE_KERNELS)
#    include <cpuid.h>
#endif

namespace vexor::detail {

#if defined(VEXOR_WIDE_KERNELS)

bool HasAvx2()
{
    return __builtin_cpu_supports("avx2");
}

bool HasAvx512()
{
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl")
           && __builtin_cpu_supports("avx512dq");
}

#endif

namespace {

#if defined(VEXOR_WIDE_KERNELS)

/// Zen 4 (AMD family 19h) splits each 512-bit operation in two: its AVX2 kernels measure faster.
bool SplitsWideOperations()
{
    unsigned a = 0, b = 0, c = 0, d = 0;
    __cpuid(0, a, b, c, d);
    bool const isAmd = b == signature_AMD_ebx && c == signature_AMD_ecx && d == signature_AMD_edx;
    __cpuid(1, a, b, c, d);
    unsigned const family = ((a >> 8) & 15) + ((a >> 20) & 255);
    return isAmd && family == 0x19;
}

#endif

/// The fastest set that the CPU has.
KernelSet const& Choose()
{
#if defined(VEXOR_WIDE_KERNELS)
    if (HasAvx512() && !SplitsWideOperations())
        return avx512::kernels;
    if (HasAvx2())
        return avx2::kernels;
#endif
#if defined(__GNUC__)
    return baseline::kernels;
#else
    return plain::kernels;
#endif
}

KernelSet const& Chosen()
{
    static KernelSet const& chosen = Choose();
    return chosen;
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
