#pragma once
#include <vexor/foundation/Config.h>

// The loops of MatDbl that touch each element many times or in two directions. Blocks are column-major
// and contiguous: element (i, j) of a matrix with `rows` rows is block[j·rows + i]. A result never
// overlaps an operand.
//
// Each element of a product is a running sum of its own: it starts at 0 and adds its terms for rising inner
// index, each product and each partial sum rounded. The arrangement of the loops, and the number of elements
// computed at once, never change these bits.

namespace vexor::detail {

/// result(i, j) = Σ right(k, j)·left(i, k), k rising; `left` is rows × inner, `right` inner × columns.
void MultiplyColumnMajor(int rows, int columns, int inner, double const* left, double const* right,
                         double* result);

/// result[i] = Σ matrix(i, k)·vector[k], k rising; `matrix` is rows × columns.
void MultiplyVector(int rows, int columns, double const* matrix, double const* vector, double* result);

/// The same in single precision: each product is formed in double and rounded to single, and so is
/// each partial sum.
void MultiplyVector(int rows, int columns, double const* matrix, float const* vector, float* result);

/// Writes the transpose of a rows × columns matrix, which has `columns` rows, to `result`.
void TransposeInto(int rows, int columns, double const* matrix, double* result);

/// Transposes a square matrix in place.
void TransposeSquare(int rows, double* matrix);

} // namespace vexor::detail
