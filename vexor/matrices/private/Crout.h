#pragma once
#include <vexor/foundation/private/Compiler.h>

#include <cmath>
#include <utility>

// Crout's factorisation with implicitly scaled partial pivoting, and the substitution with its factors. The
// algorithm is a template over the class that holds the rows: in storage, for any size, or in local
// variables, for size 3, where the compiler unrolls every loop. The operations on the elements and their
// order are the same for both, and so is every bit of the result.

#if defined(__GNUC__) && !defined(__clang__)
#    pragma GCC diagnostic push
// GCC 12 at -O2 warns about iterations of the unrolled loops that are out of bounds and never run.
#    pragma GCC diagnostic ignored "-Warray-bounds"
#endif

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// The largest size: the row order is kept in bytes.
inline constexpr int largestSmallSize = 255;

/// Rows in their storage, accessed through their order: only the order is permuted.
class StoredRows {
public:
    StoredRows(double* storage, unsigned char* rowOrder, int rowCount)
        : elements(storage), order(rowOrder), size(rowCount)
    {}

    int Size() const { return size; }
    void Begin(int i) { order[i] = static_cast<unsigned char>(i); }
    void LoadColumn(int) {}
    /// The element in column k of the row that acts as row i.
    double& operator()(int i, int k) { return elements[order[i] * size + k]; }
    /// The scale factor of the row that acts as row i.
    double& Scale(int i) { return scales[order[i]]; }
    /// Chooses row i if its candidate is greater than the best so far. A later row may replace it.
    void Compare(int i, double candidate, double best) { chosen = candidate > best ? i : chosen; }
    /// Exchanges row j with the chosen row, which is j or a later one.
    void Exchange(int j) { std::swap(order[j], order[chosen]); }

private:
    double* elements;
    unsigned char* order;
    int size;
    int chosen = 0;
    double scales[largestSmallSize];
};

/// Three rows in local variables, in their order. A column is loaded when the factorisation reaches
/// it, and is in order afterwards. Nothing is stored before `Store`.
class LocalRowsOfThree {
public:
    explicit LocalRowsOfThree(double const* storage) : elements(storage) {}

    static constexpr int Size() { return 3; }
    void Begin(int i)
    {
        order[i] = i;
        for (int k = 0; k < 3; ++k)
            rows[i][k] = elements[3 * i + k];
    }
    void LoadColumn(int k)
    {
        VEXOR_UNROLL(3)
        for (int i = 0; i < 3; ++i)
            rows[i][k] = elements[3 * order[i] + k];
    }
    double& operator()(int i, int k) { return rows[i][k]; }
    double& Scale(int i) { return scales[order[i]]; }
    void Compare(int i, double candidate, double best) { chosen = candidate > best ? i : chosen; }
    void Exchange(int j)
    {
        VEXOR_UNROLL(3)
        for (int i = j + 1; i < 3; ++i) {
            int const other = order[i];
            order[i] = i == chosen ? order[j] : order[i];
            order[j] = i == chosen ? other : order[j];
            VEXOR_UNROLL(3)
            for (int k = 0; k <= j; ++k) {
                double const element = rows[i][k];
                rows[i][k] = i == chosen ? rows[j][k] : element;
                rows[j][k] = i == chosen ? element : rows[j][k];
            }
        }
    }

    /// The stored row that acts as row i.
    int Order(int i) const { return order[i]; }
    void StoreOrder(unsigned char* rowOrder) const
    {
        VEXOR_UNROLL(3)
        for (int i = 0; i < 3; ++i)
            rowOrder[i] = static_cast<unsigned char>(order[i]);
    }
    void Store(double* storage, unsigned char* rowOrder) const
    {
        StoreOrder(rowOrder);
        VEXOR_UNROLL(3)
        for (int i = 0; i < 3; ++i) {
            VEXOR_UNROLL(3)
            for (int k = 0; k < 3; ++k)
                storage[3 * order[i] + k] = rows[i][k];
        }
    }
    /// Loads the factors that `Store` has written.
    void Load(unsigned char const* rowOrder)
    {
        VEXOR_UNROLL(3)
        for (int i = 0; i < 3; ++i) {
            order[i] = rowOrder[i];
            VEXOR_UNROLL(3)
            for (int k = 0; k < 3; ++k)
                rows[i][k] = elements[3 * order[i] + k];
        }
    }

private:
    double const* elements;
    double rows[3][3];
    double scales[3];
    int order[3];
    int chosen = 0;
};

/// The sum of the terms from `begin` to `end` − 1 in rising order. There is at least one term; the sum starts
/// with the first and not from 0.0.
template <class Term>
inline double SumOfTerms(int begin, int end, Term term)
{
    double sum = term(begin);
    VEXOR_UNROLL(3)
    for (int k = begin + 1; k < end; ++k)
        sum += term(k);
    return sum;
}

/// Factorises. Returns 0 on success; −2 if the elements of a row are zeros or NaN, with no element changed;
/// −3 if a column has no pivot, with the elements partly transformed.
template <class Rows>
VEXOR_ALWAYS_INLINE int Decompose(Rows& rows)
{
    int const size = rows.Size();
    VEXOR_UNROLL(3)
    for (int i = 0; i < size; ++i) {
        rows.Begin(i);
        double largest = 0.0;
        VEXOR_UNROLL(3)
        for (int k = 0; k < size; ++k) {
            double const magnitude = std::fabs(rows(i, k));
            largest = magnitude > largest ? magnitude : largest; // skips a NaN
        }
        if (largest == 0.0)
            return -2;
        rows.Scale(i) = 1.0 / largest;
    }

    VEXOR_UNROLL(3)
    for (int j = 0; j < size; ++j) {
        rows.LoadColumn(j);
        VEXOR_UNROLL(3)
        for (int i = 1; i < j; ++i)
            rows(i, j) -= SumOfTerms(0, i, [&](int k) { return rows(k, j) * rows(i, k); });

        double best = 0.0;
        VEXOR_UNROLL(3)
        for (int i = j; i < size; ++i) {
            if (j > 0)
                rows(i, j) -= SumOfTerms(0, j, [&](int k) { return rows(k, j) * rows(i, k); });
            double const candidate = std::fabs(rows(i, j)) * rows.Scale(i);
            rows.Compare(i, candidate, best); // on a tie the first wins; a NaN never wins
            best = candidate > best ? candidate : best;
        }
        if (!(best > 0.0))
            return -3;
        rows.Exchange(j);

        double const reciprocal = 1.0 / rows(j, j);
        rows(j, j) = reciprocal;
        VEXOR_UNROLL(3)
        for (int i = j + 1; i < size; ++i)
            rows(i, j) *= reciprocal;
    }
    return 0;
}

/// Overwrites a right-hand side with the solution. `value(i)` is its element at the row that acts as row i.
template <class Rows, class Values>
VEXOR_ALWAYS_INLINE void Substitute(Rows& rows, Values value)
{
    int const size = rows.Size();
    VEXOR_UNROLL(3)
    for (int first = 0; first < size; ++first) {
        if (value(first) == 0.0)
            continue; // leading zeros are unchanged
        VEXOR_UNROLL(3)
        for (int i = first + 1; i < size; ++i)
            value(i) -= SumOfTerms(first, i, [&](int k) { return value(k) * rows(i, k); });
        break;
    }
    VEXOR_UNROLL(3)
    for (int i = size - 1; i >= 0; --i) {
        if (i + 1 < size)
            value(i) -= SumOfTerms(i + 1, size, [&](int k) { return value(k) * rows(i, k); });
        value(i) *= rows(i, i);
    }
}

} // namespace vexor::detail

VEXOR_EXACT_END

#if defined(__GNUC__) && !defined(__clang__)
#    pragma GCC diagnostic pop
#endif
