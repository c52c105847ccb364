#pragma once
#include <support/Bits.h>

#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>
#include <vexor/dynamic/VecFlt.h>

#include <cstring>
#include <initializer_list>
#include <type_traits>
#include <utility>
#include <vector>

namespace vexor_test {

/// The element type of a vector of run-time size.
template <class Vector>
using ElementType = std::decay_t<decltype(std::declval<Vector&>()[0])>;

template <class Vector>
Vector Make(std::initializer_list<ElementType<Vector>> elements)
{
    Vector vector(static_cast<int>(elements.size()));
    int i = 0;
    for (auto element : elements)
        vector[i++] = Opaque(element);
    return vector;
}

inline VecDbl Dbl(std::initializer_list<double> elements)
{
    return Make<VecDbl>(elements);
}

inline VecFlt Flt(std::initializer_list<float> elements)
{
    return Make<VecFlt>(elements);
}

/// Whether the matrix is factorised: only then does a re-solve with a fitting right-hand side run. A checked
/// build would stop it if the factors have changed; there this reads the last field instead.
inline bool HasPivots(MatDbl const& matrix)
{
#if defined(VEXOR_CHECKED)
    int* pivots = nullptr;
    std::memcpy(&pivots, reinterpret_cast<unsigned char const*>(&matrix + 1) - sizeof pivots, sizeof pivots);
    return pivots != nullptr;
#else
    MatDbl copy(matrix);
    VecDbl b(copy.RowCount(), 0.0);
    try {
        copy.ReSolve(b);
        return true;
    } catch (VexorComputationFailed const&) {
        return false;
    }
#endif
}

/// A matrix from its rows.
inline MatDbl Mat(std::initializer_list<std::initializer_list<double>> rows)
{
    MatDbl matrix(static_cast<int>(rows.size()), static_cast<int>(rows.begin()->size()));
    int i = 0;
    for (auto const& row : rows) {
        int j = 0;
        for (double element : row)
            matrix(i, j++) = Opaque(element);
        ++i;
    }
    return matrix;
}

/// The elements in index order.
template <class Vector>
std::vector<ElementType<Vector>> ElementsOf(Vector const& vector)
{
    std::vector<ElementType<Vector>> elements;
    for (int i = 0; i < vector.Size(); ++i)
        elements.push_back(vector[i]);
    return elements;
}

/// The elements in the order of the block: column by column.
inline std::vector<double> ElementsOf(MatDbl const& matrix)
{
    std::vector<double> elements;
    for (int j = 0; j < matrix.ColumnCount(); ++j) {
        for (int i = 0; i < matrix.RowCount(); ++i)
            elements.push_back(matrix(i, j));
    }
    return elements;
}

template <class Number>
testing::AssertionResult SameElements(std::vector<Number> const& actual, std::vector<Number> const& expected)
{
    bool same = actual.size() == expected.size();
    for (std::size_t i = 0; same && i < actual.size(); ++i)
        same = SameBits(actual[i], expected[i]);
    if (same)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << testing::PrintToString(actual) << " instead of " << testing::PrintToString(expected);
}

template <class Vector>
testing::AssertionResult Holds(Vector const& vector, std::initializer_list<ElementType<Vector>> expected)
{
    return SameElements(ElementsOf(vector), std::vector<ElementType<Vector>>(expected));
}

inline testing::AssertionResult HoldsRows(MatDbl const& matrix,
                                          std::initializer_list<std::initializer_list<double>> rows)
{
    MatDbl const expected = Mat(rows);
    if (matrix.RowCount() != expected.RowCount() || matrix.ColumnCount() != expected.ColumnCount())
        return testing::AssertionFailure()
               << "the shape is " << matrix.RowCount() << "×" << matrix.ColumnCount();
    return SameElements(ElementsOf(matrix), ElementsOf(expected));
}

} // namespace vexor_test
