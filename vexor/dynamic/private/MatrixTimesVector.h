#pragma once
#include <vexor/dynamic/private/Product.h>

// A matrix times a vector in the registers of one instruction set (see Registers.h). As in Product.h, a lane
// of a register belongs to one element of the result and adds its terms in the same order.

VEXOR_SET_BEGIN

namespace vexor::detail::VEXOR_SET {

namespace {

/// The number of columns that are added to the sums at a time. With 4, a matrix of 10 or 20 rows takes 1.3
/// times as long.
constexpr int stripColumns = 8;

/// Adds each column's element times the column's factor to the sum, column by column. Each product and each
/// sum is rounded to the element type.
template <class Element, int width, int columns>
VEXOR_ALWAYS_INLINE void AddColumns(Register<Element, width>& sum, double const* elements, Offset stride,
                                    double const (&factors)[columns])
{
    VEXOR_UNROLL(16)
    for (int k = 0; k < columns; ++k) {
        auto const column = Load<Register<double, width>>(elements + k * stride);
        sum += RoundEach<Element, width>(column * factors[k]);
    }
}

/// Adds some columns, each times its factor, to the result, or to 0.
template <class Element, int width, int columns>
void AddStrip(int rows, bool startsAtZero, double const* matrix, Offset stride, Element const* vector,
              Element* result)
{
    using Sum = Register<Element, width>;
    double factors[columns];
    VEXOR_UNROLL(16)
    for (int k = 0; k < columns; ++k)
        factors[k] = vector[k];

    Offset const lastRow = rows - width;
    Sum last = startsAtZero ? Sum{} : Load<Sum>(result + lastRow); // before the loop changes some of it
    for (Offset i = 0; i < lastRow; i += width) {
        Sum sum = startsAtZero ? Sum{} : Load<Sum>(result + i);
        AddColumns<Element, width>(sum, matrix + i, stride, factors);
        Store(result + i, sum);
    }
    AddColumns<Element, width>(last, matrix + lastRow, stride, factors);
    Store(result + lastRow, last);
}

template <class Element>
using StripFunction = void (*)(int rows, bool startsAtZero, double const* matrix, Offset stride,
                               Element const* vector, Element* result);

/// The strips, indexed by the number of columns: [columns − 1].
template <class Element, int width, class Columns>
struct StripTable;
template <class Element, int width, int... k>
struct StripTable<Element, width, std::integer_sequence<int, k...>> {
    static constexpr StripFunction<Element> strips[stripColumns] = {AddStrip<Element, width, k + 1>...};
};

template <class Element, int width>
void MultiplyVectorBy(int rows, int columns, double const* matrix, Element const* vector, Element* result)
{
    if constexpr (width > 1) {
        if (rows < width)
            return MultiplyVectorBy<Element, width / 2>(rows, columns, matrix, vector, result);
    }
    using Table = StripTable<Element, width, std::make_integer_sequence<int, stripColumns>>;
    for (int k = 0, across = 0; k < columns; k += across) {
        across = NextColumns(columns - k, stripColumns);
        Table::strips[across - 1](rows, k == 0, matrix + Offset(k) * rows, rows, vector + k, result);
    }
}

void MultiplyVector(int rows, int columns, double const* matrix, double const* vector, double* result)
{
    MultiplyVectorBy<double, registerWidth>(rows, columns, matrix, vector, result);
}

void MultiplyVectorSingle(int rows, int columns, double const* matrix, float const* vector, float* result)
{
    MultiplyVectorBy<float, registerWidth>(rows, columns, matrix, vector, result);
}

} // namespace

} // namespace vexor::detail::VEXOR_SET

VEXOR_SET_END
