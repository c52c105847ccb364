#pragma once
#include <vexor/foundation/private/Compiler.h>

// The order in which a block's running sums, least and greatest numbers are combined: in pairs of neighbours, until one
// is left. All sets use it.

namespace vexor::arrays::detail {

struct SumOfTwo {
    template <class Number>
    VEXOR_ALWAYS_INLINE Number operator()(Number left, Number right) const
    {
        return left + right;
    }
};

/// Of equal numbers the left one is kept, and of a NaN and a number too.
struct LesserOfTwo {
    template <class Number>
    VEXOR_ALWAYS_INLINE Number operator()(Number left, Number right) const
    {
        return right < left ? right : left;
    }
};
struct GreaterOfTwo {
    template <class Number>
    VEXOR_ALWAYS_INLINE Number operator()(Number left, Number right) const
    {
        return right > left ? right : left;
    }
};

/// Combines `count` numbers that are `stride` apart. The left part is the largest power of two below the count, as if
/// neighbours were combined level by level, the last one of an odd number carried over.
template <int count, int stride, class Operation, class Number>
VEXOR_ALWAYS_INLINE Number CombineNeighbours(Number const* numbers, Operation const& operation)
{
    if constexpr (count == 1) {
        Number number = numbers[0];
#if defined(__GNUC__) && defined(__SSE2__)
        // Emits no code. It stops g++ from loading pairs of numbers that no single store has written, which waits for
        // the stores: all of the sum of 200 points 1.06 times as fast with AVX-512, 1.2 times with SSE2.
        __asm__("" : "+x"(number));
#endif
        return number;
    } else {
        constexpr int left = count > 16 ? 16 : count > 8 ? 8 : count > 4 ? 4 : count > 2 ? 2 : 1;
        static_assert(count <= 2 * left, "the largest power of two");
        return operation(CombineNeighbours<left, stride>(numbers, operation),
                         CombineNeighbours<count - left, stride>(numbers + left * stride, operation));
    }
}

} // namespace vexor::arrays::detail
