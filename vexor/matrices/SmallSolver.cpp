#include <vexor/matrices/SmallSolver.h>

#include <vexor/matrices/private/Crout.h>

#include <cstddef>

using vexor::detail::largestSmallSize;
using vexor::detail::LocalRowsOfThree;
using vexor::detail::StoredRows;

int small_decompose(double* matrix, unsigned char* pivotOrder, int size)
{
    if (size > largestSmallSize)
        return -1;
    if (size == 3) {
        LocalRowsOfThree rows(matrix);
        if (vexor::detail::Decompose(rows) == 0) {
            rows.Store(matrix, pivotOrder);
            return 0;
        }
        // Nothing is stored yet. The rows in storage are factorised again, since a failing factorisation
        // leaves them partly transformed.
    }
    StoredRows rows(matrix, pivotOrder, size);
    return vexor::detail::Decompose(rows);
}

void small_substitution(double* factors, double* rightSides, unsigned char* pivotOrder, int size, int count)
{
    if (count < 1 || size < 1 || size > largestSmallSize)
        return; // returns before reading anything, since the row order may be unset
    if (size == 3) {
        LocalRowsOfThree rows(factors);
        rows.Load(pivotOrder);
        for (int side = 0; side < count; ++side) {
            double* const values = rightSides + std::ptrdiff_t(side) * count;
            double solution[3] = {values[rows.Order(0)], values[rows.Order(1)], values[rows.Order(2)]};
            vexor::detail::Substitute(rows, [&](int i) -> double& { return solution[i]; });
            values[0] = solution[0];
            values[1] = solution[1];
            values[2] = solution[2];
        }
        return;
    }
    StoredRows rows(factors, pivotOrder, size);
    for (int side = 0; side < count; ++side) {
        double* const values = rightSides + std::ptrdiff_t(side) * count;
        vexor::detail::Substitute(rows, [=](int i) -> double& { return values[pivotOrder[i]]; });
        double solution[largestSmallSize];
        for (int i = 0; i < size; ++i)
            solution[i] = values[pivotOrder[i]];
        for (int i = 0; i < size; ++i)
            values[i] = solution[i];
    }
}
