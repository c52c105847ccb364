#pragma once
#include <vexor/foundation/Config.h>

// The instruction sets for which loops over registers are compiled, and a test for the ones that this CPU
// supports. The header exports nothing, so each shared library that includes it has its own copy.

// GCC for 64-bit Windows does not align the stack for registers of more than 128 bits.
#if defined(__GNUC__) && defined(__x86_64__) && !(defined(_WIN32) && !defined(__clang__))
#    define VEXOR_WIDE_SETS
#    include <cpuid.h>
#endif

namespace vexor::detail {

/// In rising order of speed. Every target of the library supports the baseline, registers of 128 bits (SSE2,
/// NEON). It is 0, so that a variable of this type is the baseline before its initialiser has run.
enum class InstructionSet { Baseline, Avx2, Avx512 };

#if defined(VEXOR_WIDE_SETS)

/// AVX2 with the fused multiply-add, which came with it in all but a few processors.
inline bool HasAvx2()
{
    __builtin_cpu_init(); // this may run before the constructors do
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
}

inline bool HasAvx512()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vl")
           && __builtin_cpu_supports("avx512dq");
}

/// Zen 4 (AMD family 19h) splits each 512-bit operation in two: AVX2 code measures faster there.
inline bool SplitsWideOperations()
{
    unsigned a = 0, b = 0, c = 0, d = 0;
    __cpuid(0, a, b, c, d);
    bool const isAmd = b == signature_AMD_ebx && c == signature_AMD_ecx && d == signature_AMD_edx;
    __cpuid(1, a, b, c, d);
    unsigned const family = ((a >> 8) & 15) + ((a >> 20) & 255);
    return isAmd && family == 0x19;
}

#endif

inline InstructionSet FastestInstructionSet()
{
#if defined(VEXOR_WIDE_SETS)
    if (HasAvx512() && !SplitsWideOperations())
        return InstructionSet::Avx512;
    if (HasAvx2())
        return InstructionSet::Avx2;
#endif
    return InstructionSet::Baseline;
}

} // namespace vexor::detail
