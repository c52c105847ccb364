#pragma once
// What every header of the library needs first: export macros, the guards that keep floating-point
// results the same in every client, and the switch for checked builds.

// ---- Export ------------------------------------------------------------------------------------
// VEXOR_API     a function or object that is defined in the shared library.
// VEXOR_INLINE  a function whose body is in a header: inlined into the client's code, and also
//               present in the library's export table, for clients that cannot inline (other
//               languages, unoptimised builds). One source of the library, Exports.cpp, emits them.
//               Defaulted members and templates do not have it and export no symbol.
// VEXOR_CLASS   a class whose members are exported one by one with the two macros above.
// VEXOR_LOCAL   a private member of such a class that only the library's own sources call.
#if defined(_WIN32)
#    if defined(VEXOR_BUILDING_LIBRARY)
#        define VEXOR_API __declspec(dllexport)
#    else
#        define VEXOR_API __declspec(dllimport)
#    endif
#    define VEXOR_CLASS
#    define VEXOR_LOCAL
#    if defined(VEXOR_EMITTING_INLINES) && defined(__GNUC__)
#        define VEXOR_INLINE __declspec(dllexport) __attribute__((used)) inline
#    elif defined(VEXOR_EMITTING_INLINES)
#        define VEXOR_INLINE __declspec(dllexport) inline
#    else
#        define VEXOR_INLINE inline
#    endif
#else
// clang emits a class's debug information only where one of its constructors is compiled. Here that is the
// library, which is shipped without debug information.
#    if defined(__clang__) && __has_attribute(standalone_debug)
#        define VEXOR_DEBUGGABLE __attribute__((standalone_debug))
#    else
#        define VEXOR_DEBUGGABLE
#    endif
#    define VEXOR_API __attribute__((visibility("default")))
#    define VEXOR_CLASS __attribute__((visibility("default"))) VEXOR_DEBUGGABLE
#    define VEXOR_LOCAL __attribute__((visibility("hidden")))
#    if defined(VEXOR_EMITTING_INLINES)
#        define VEXOR_INLINE __attribute__((used, visibility("default"))) inline
#    else
#        define VEXOR_INLINE __attribute__((visibility("default"))) inline
#    endif
#endif

/// Keeps a rare path (a raise, a rescaling) out of the code around its call.
#if defined(__GNUC__)
#    define VEXOR_COLD __attribute__((cold, noinline))
#elif defined(_MSC_VER)
#    define VEXOR_COLD __declspec(noinline)
#else
#    define VEXOR_COLD
#endif

/// Precedes a default constructor that leaves the fields unset. By default (-flifetime-dse=2) g++ drops
/// stores to an object's memory that precede its constructor. With this macro it drops only the stores after
/// the end of the object's lifetime. The constructor is still inlined.
#if defined(__GNUC__) && !defined(__clang__)
#    define VEXOR_KEEP_MEMORY __attribute__((optimize("lifetime-dse=1")))
#else
#    define VEXOR_KEEP_MEMORY
#endif

// ---- The same bits in every client ---------------------------------------------------------------
#if defined(__FAST_MATH__) || defined(_M_FP_FAST)
#    error "vexor: -ffast-math (/fp:fast) changes documented results; build without it"
#endif
#if ((defined(__i386__) || defined(__x86_64__)) && !defined(__SSE2_MATH__))                                  \
    || (defined(__GNUC__) && !defined(__clang__) && __FLT_EVAL_METHOD__ < 0)                                 \
    || (defined(_M_IX86_FP) && _M_IX86_FP < 2)
#    error "vexor: x87 evaluation changes documented results; build with -msse2 -mfpmath=sse (/arch:SSE2)"
#endif

// VEXOR_EXACT_BEGIN and VEXOR_EXACT_END enclose every inline function that handles floating-point numbers.
// They override the client's flags for these functions alone: no fused a*b + c, no reordering, no
// reciprocals; signed zeros, infinities and NaNs are kept. A client defines VEXOR_FP_CONTRACT_OFF to state
// that it is built with -ffp-contract=off; vexor::vexor and vexor.pc pass both to the client.
#if defined(__clang__) && (defined(__FMA__) || defined(__FMA4__)) && !defined(VEXOR_FP_CONTRACT_OFF)
// With -ffp-contract=fast, which no macro reveals, clang's back end fuses despite FP_CONTRACT. It does not
// fuse operations that keep the exception flags exact; it does not vectorise these either.
#    define VEXOR_EXACT_BEGIN                                                                                \
        _Pragma("float_control(push)") _Pragma("float_control(precise, on)")                                 \
            _Pragma("float_control(except, on)") _Pragma("STDC FP_CONTRACT OFF")
#    define VEXOR_EXACT_END _Pragma("float_control(pop)")
#elif defined(__clang__) && (defined(__x86_64__) || defined(__i386__) || __clang_major__ >= 16)
#    define VEXOR_EXACT_BEGIN                                                                                \
        _Pragma("float_control(push)") _Pragma("float_control(precise, on)") _Pragma("STDC FP_CONTRACT OFF")
#    define VEXOR_EXACT_END _Pragma("float_control(pop)")
#elif defined(__clang__)
#    define VEXOR_EXACT_BEGIN _Pragma("STDC FP_CONTRACT OFF")
#    define VEXOR_EXACT_END
#elif defined(__GNUC__)
#    if (defined(__FP_FAST_FMA) || defined(__FP_FAST_FMAF)) && !defined(VEXOR_FP_CONTRACT_OFF)
#        define VEXOR_UNSAFE_FLAGS 1
#    elif defined(__RECIPROCAL_MATH__) || defined(__ASSOCIATIVE_MATH__) || defined(__NO_SIGNED_ZEROS__)      \
        || __FINITE_MATH_ONLY__ + 0 != 0
#        define VEXOR_UNSAFE_FLAGS 1
#    endif
#    if defined(VEXOR_UNSAFE_FLAGS)
// g++ does not inline a function with options of its own into one without them: the results are exact, but
// the calls are slow.
// clang-format off
#        define VEXOR_EXACT_OPTIONS                                                                          \
            _Pragma("GCC optimize(\"fp-contract=off\", \"no-unsafe-math-optimizations\", \"no-associative-math\", \"no-reciprocal-math\", \"no-finite-math-only\", \"signed-zeros\", \"trapping-math\")")
// clang-format on
#        undef VEXOR_UNSAFE_FLAGS
#    else
#        define VEXOR_EXACT_OPTIONS
#    endif
#    if defined(__x86_64__) || defined(__i386__)
// Makes comparisons with a NaN false, even with -mno-ieee-fp, which no macro reveals. Without that flag this
// changes nothing.
#        define VEXOR_EXACT_COMPARISONS _Pragma("GCC target(\"ieee-fp\")")
#    else
#        define VEXOR_EXACT_COMPARISONS
#    endif
#    define VEXOR_EXACT_BEGIN _Pragma("GCC push_options") VEXOR_EXACT_OPTIONS VEXOR_EXACT_COMPARISONS
#    define VEXOR_EXACT_END _Pragma("GCC pop_options")
#elif defined(_MSC_VER)
// Nothing restores this compiler's setting of fp_contract: it stays off to the end of the client's source.
#    define VEXOR_EXACT_BEGIN __pragma(float_control(push)) __pragma(fp_contract(off))
#    define VEXOR_EXACT_END __pragma(float_control(pop))
#else
#    define VEXOR_EXACT_BEGIN
#    define VEXOR_EXACT_END
#endif

// ---- Checked builds ------------------------------------------------------------------------------
// With VEXOR_CHECKED defined, misuse that the interface leaves to the caller (an index out of range,
// say) stops the program with file and line, and elements that a constructor leaves unset hold
// signalling NaNs. No result and no layout changes.
// VEXOR_CHECK           stops unless the condition holds, naming its own line.
// VEXOR_CHECK_AT_PLACE  the same in a helper whose parameters end with VEXOR_CHECK_PLACE, naming the
//                       line that called the helper.
#if defined(VEXOR_CHECKED)
namespace vexor::detail {
[[noreturn]] VEXOR_API VEXOR_COLD void StopOnMisuse(char const* file, int line, char const* what);
}
#    define VEXOR_CHECK(condition, what)                                                                     \
        ((condition) ? static_cast<void>(0) : ::vexor::detail::StopOnMisuse(__FILE__, __LINE__, what))
#    if defined(_MSC_VER) && _MSC_VER < 1926 && !defined(__clang__)
// This compiler cannot pass on the line of the call: the message names the helper's own line.
#        define VEXOR_CHECK_PLACE , char const *file = __FILE__, int line = __LINE__
#    else
#        define VEXOR_CHECK_PLACE , char const *file = __builtin_FILE(), int line = __builtin_LINE()
#    endif
#    define VEXOR_CHECK_AT_PLACE(condition, what)                                                            \
        ((condition) ? static_cast<void>(0) : ::vexor::detail::StopOnMisuse(file, line, what))
#else
#    define VEXOR_CHECK(condition, what) static_cast<void>(0)
#    define VEXOR_CHECK_PLACE
#    define VEXOR_CHECK_AT_PLACE(condition, what) static_cast<void>(0)
#endif
