#include <vexor/dynamic/private/KernelSet.h>
#include <vexor/foundation/detail/Rounding.h>

#include <cstddef>

VEXOR_EXACT_BEGIN

namespace vexor::detail::plain {

namespace {

// The innermost loop runs down columns, where the elements are contiguous.
template <class Element, class Product>
void AddColumn(int rows, double const* column, Element* result, Product product)
{
    for (int i = 0; i < rows; ++i)
        result[i] += product(column[i]);
}

template <class Element>
void Clear(int count, Element* result)
{
    for (int i = 0; i < count; ++i)
        result[i] = Element(0);
}

void MultiplyVector(int rows, int columns, double const* matrix, double const* vector, double* result)
{
    Clear(rows, result);
    for (int k = 0; k < columns; ++k, matrix += rows) {
        double const factor = vector[k];
        AddColumn(rows, matrix, result, [factor](double element) { return element * factor; });
    }
}

void MultiplyVectorSingle(int rows, int columns, double const* matrix, float const* vector, float* result)
{
    Clear(rows, result);
    for (int k = 0; k < columns; ++k, matrix += rows) {
        double const factor = vector[k];
        AddColumn(rows, matrix, result, [factor](double element) { return RoundToSingle(factor * element); });
    }
}

void MultiplyColumnMajor(int rows, int columns, int inner, double const* left, double const* right,
                         double* result)
{
    for (int j = 0; j < columns; ++j, right += inner, result += rows)
        MultiplyVector(rows, inner, left, right, result);
}

void TransposeInto(int rows, int columns, double const* matrix, double* result)
{
    for (int j = 0; j < columns; ++j, matrix += rows) {
        for (int i = 0; i < rows; ++i)
            result[static_cast<std::ptrdiff_t>(i) * columns + j] = matrix[i];
    }
}

void TransposeSquare(int rows, double* matrix)
{
    std::ptrdiff_t const stride = rows;
    for (int j = 1; j < rows; ++j) {
        for (int i = 0; i < j; ++i) {
            double const above = matrix[j * stride + i];
            matrix[j * stride + i] = matrix[i * stride + j];
            matrix[i * stride + j] = above;
        }
    }
}

} // namespace

KernelSet const kernels = {"plain",       MultiplyColumnMajor, MultiplyVector, MultiplyVectorSingle,
                           TransposeInto, TransposeSquare};

} // namespace vexor::detail::plain

VEXOR_EXACT_END
