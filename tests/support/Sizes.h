#pragma once
#include <initializer_list>

// The sizes at which the tests call operations of run-time size. Blocked or vectorised code fails at its own
// thresholds: at remainders of a register or of an unrolled loop, and at sizes beyond which it changes its
// method.

namespace sizes {

/// All sizes from 1 to this one.
constexpr int allUpTo = 40;

/// Further sizes, each with its two neighbours.
constexpr int larger[] = {64, 100, 128, 256, 1000, 4096};

template <class Visit>
void ForEach(Visit visit)
{
    for (int size = 1; size <= allUpTo; ++size)
        visit(size);
    for (int const middle : larger)
        for (int const size : {middle - 1, middle, middle + 1})
            visit(size);
}

struct Shape {
    int rows, columns;
};

/// Single large matrices: long and narrow, and with more than 4096 elements.
constexpr Shape largeMatrices[] = {{4097, 1}, {1, 4097}, {1000, 5}, {3, 1001},
                                   {65, 65},  {129, 33}, {33, 129}};

/// All shapes up to this many rows and columns occur.
constexpr int matricesUpTo = 40;

} // namespace sizes
