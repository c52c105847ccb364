#pragma once
#include <vexor/foundation/Config.h>

// Attributes and pragmas for functions and loops of the library's sources.

/// Inlines the function at every call, even if the compiler thinks that it is too large.
#if defined(__GNUC__)
#    define VEXOR_ALWAYS_INLINE inline __attribute__((always_inline))
#elif defined(_MSC_VER)
#    define VEXOR_ALWAYS_INLINE __forceinline
#else
#    define VEXOR_ALWAYS_INLINE inline
#endif

/// Unrolls the loop that follows by `count`. A loop with at most `count` iterations is unrolled completely.
#define VEXOR_PRAGMA(text) _Pragma(#text)
#if defined(__clang__)
#    define VEXOR_UNROLL(count) VEXOR_PRAGMA(clang loop unroll_count(count))
#elif defined(__GNUC__)
#    define VEXOR_UNROLL(count) VEXOR_PRAGMA(GCC unroll count)
#else
#    define VEXOR_UNROLL(count)
#endif
