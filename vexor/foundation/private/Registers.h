#pragma once
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/private/Compiler.h>
#include <vexor/foundation/private/InstructionSets.h>

#include <cstddef>
#include <cstdint>
#include <utility>

// Registers of one instruction set, for loops that are compiled once for each. A source is compiled for one
// set: it defines VEXOR_SET_AVX512 or VEXOR_SET_AVX2, or neither for the baseline, and then includes this
// file and the loops. Needs the vector types of GCC and Clang.
//
// A header with such loops includes all other headers first and puts its text between VEXOR_SET_BEGIN and
// VEXOR_SET_END, in namespace vexor::detail::VEXOR_SET. Only the code between the two is compiled for the
// set. An inline function that other sources share must run on every CPU.
//
// VEXOR_SET       the namespace of the set
// VEXOR_SET_NAME  its name, a string

#if defined(VEXOR_SET_AVX512)
#    define VEXOR_SET avx512
#    define VEXOR_SET_NAME "AVX-512"
#    define VEXOR_SET_FEATURES "avx512f,avx512vl,avx512dq"
#elif defined(VEXOR_SET_AVX2)
#    define VEXOR_SET avx2
#    define VEXOR_SET_NAME "AVX2"
#    define VEXOR_SET_FEATURES "avx2,fma"
#else
#    define VEXOR_SET baseline
#    define VEXOR_SET_NAME "baseline"
#endif

#if !defined(VEXOR_SET_FEATURES)
#    define VEXOR_SET_BEGIN VEXOR_EXACT_BEGIN
#    define VEXOR_SET_END VEXOR_EXACT_END
#elif defined(__clang__)
#    define VEXOR_SET_ATTRIBUTE(features)                                                                    \
        VEXOR_PRAGMA(clang attribute push(__attribute__((target(features))), apply_to = function))
#    define VEXOR_SET_BEGIN                                                                                  \
        VEXOR_EXACT_BEGIN                                                                                    \
        VEXOR_SET_ATTRIBUTE(VEXOR_SET_FEATURES)
#    define VEXOR_SET_END VEXOR_PRAGMA(clang attribute pop) VEXOR_EXACT_END
#else
#    define VEXOR_SET_TARGET(features) VEXOR_PRAGMA(GCC target(features))
#    define VEXOR_SET_BEGIN                                                                                  \
        VEXOR_EXACT_BEGIN                                                                                    \
        VEXOR_PRAGMA(GCC push_options) VEXOR_SET_TARGET(VEXOR_SET_FEATURES)
#    define VEXOR_SET_END VEXOR_PRAGMA(GCC pop_options) VEXOR_EXACT_END
#endif

VEXOR_SET_BEGIN

namespace vexor::detail::VEXOR_SET {

namespace {

/// How many doubles the widest register holds, and how many registers there are.
#if defined(VEXOR_SET_AVX512)
constexpr int registerWidth = 8;
constexpr int registerCount = 32;
#elif defined(VEXOR_SET_AVX2)
constexpr int registerWidth = 4;
constexpr int registerCount = 16;
#elif defined(__aarch64__)
constexpr int registerWidth = 2;
constexpr int registerCount = 32;
#else
constexpr int registerWidth = 2;
constexpr int registerCount = 16;
#endif

/// A distance between two places, in elements.
using Offset = std::ptrdiff_t;

/// A register of `width` elements; for a width of 1 the element itself. Operators work on each element
/// separately and round it like a scalar. A scalar operand is broadcast to all elements.
template <class Element, int width>
struct RegisterOf {
    typedef Element Type __attribute__((vector_size(width * sizeof(Element))));
};
template <class Element>
struct RegisterOf<Element, 1> {
    typedef Element Type;
};
template <class Element, int width>
using Register = typename RegisterOf<Element, width>::Type;

/// Reads a register from any address, aligned to an element or not.
template <class Vector, class Element>
VEXOR_ALWAYS_INLINE Vector Load(Element const* from)
{
    Vector vector;
    __builtin_memcpy(&vector, from, sizeof vector);
    return vector;
}

template <class Vector, class Element>
VEXOR_ALWAYS_INLINE void Store(Element* to, Vector const& vector)
{
    __builtin_memcpy(to, &vector, sizeof vector);
}

/// Broadcasts one value to a register. The expression value + Vector{} would change −0.
template <class Vector, class Element>
VEXOR_ALWAYS_INLINE Vector Broadcast(Element value)
{
    if constexpr (sizeof(Vector) == sizeof(Element))
        return value;
    else
        return value - Vector{};
}

/// Rounds each element to the element type: to single, or not at all.
template <class Element, int width>
VEXOR_ALWAYS_INLINE Register<Element, width> RoundEach(Register<double, width> const& values)
{
    if constexpr (width == 1)
        return Round<Element>(values);
    else
        return __builtin_convertvector(values, Register<Element, width>);
}

/// The elements of two registers at the given indices; the indices of `b` continue those of `a`.
template <class Vector, int... places>
VEXOR_ALWAYS_INLINE Vector Shuffle(Vector const& a, Vector const& b, std::integer_sequence<int, places...>)
{
#if defined(__clang__)
    return __builtin_shufflevector(a, b, places...);
#else
    if constexpr (sizeof(Vector) / sizeof...(places) == sizeof(double)) {
        typedef long long Places __attribute__((vector_size(sizeof(Vector))));
        return __builtin_shuffle(a, b, Places{places...});
    } else {
        typedef int Places __attribute__((vector_size(sizeof(Vector))));
        return __builtin_shuffle(a, b, Places{places...});
    }
#endif
}

} // namespace

} // namespace vexor::detail::VEXOR_SET

VEXOR_SET_END
