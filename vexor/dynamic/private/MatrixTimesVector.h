#pragma once
#include <vexor/dynamic/private/Product.h>

// A matrix times a vector in the registers of one instruction set (see Registers.h). As in the product, a
// lane of a register belongs to one element of the result. Its steps along the columns are those of the product.

VEXOR_SET_BEGIN

namespace vexor::detail::VEXOR_SET {

namespace {

/// Adds the product, rounded to the element type of the sum.
template <class Element, int width>
VEXOR_ALWAYS_INLINE void AddProduct(Register<Element, width>& sum, Register<double, width> const& elements,
                                    double factor)
{
    sum += RoundEach<Element, width>(elements * factor);
}

constexpr int stripColumns = 8;

/// Rows whose sums stay in the first-level cache while all columns are added to them.
constexpr int stripRows = 2048;

/// Adds each column's element times the column's factor to the sum, column by column.
template <class Element, int width, int columns>
VEXOR_ALWAYS_INLINE void AddColumns(Register<Element, width>& sum, double const* elements, Offset stride,
                                    double const (&factors)[columns])
{
    VEXOR_UNROLL(16)
    for (int k = 0; k < columns; ++k)
        AddProduct<Element, width>(sum, Load<Register<double, width>>(elements + k * stride), factors[k]);
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

/// The strip for every number of columns: [columns − 1].
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
    // A large matrix comes from memory, which follows a few columns better than many.
    int const most = rows < 512 ? stripColumns : stripColumns / 2;
    for (int i = 0, step = 0; i < rows; i += step) {
        step = rows - i < stripRows + width ? rows - i : stripRows;
        for (int k = 0, across = 0; k < columns; k += across) {
            across = NextColumns(columns - k, most);
            Table::strips[across - 1](step, k == 0, matrix + Offset(k) * rows + i, rows, vector + k,
                                      result + i);
        }
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
