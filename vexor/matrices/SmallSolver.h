#pragma once
#include <vexor/foundation/Config.h>

/// @file
/// A solver for small dense systems, row-major arrays of up to 255 rows. It allocates nothing.

/// Factorises a `size`×`size` matrix in place, by Crout's method with implicitly scaled partial
/// pivoting, and writes the order of its rows to `pivotOrder`, an array of `size` bytes.
///
/// Rows are not moved: stored row `pivotOrder[i]` acts as row i of the factors. Left of column i it holds the
/// multipliers of the unit lower factor, right of it the upper factor, and in column i the reciprocal of the
/// pivot. On a tie between candidates for a pivot the first in the current order is taken.
///
/// Returns 0 on success; −1 for a size above 255, with nothing changed; −2 if all elements of a row are zeros
/// or NaN, with no element changed; −3 if all candidates for a pivot are exactly zero or NaN, with the matrix
/// partly transformed. No tolerance is used: a nearly singular matrix is factorised. A size below 1 changes
/// nothing and returns 0.
VEXOR_API int small_decompose(double* matrix, unsigned char* pivotOrder, int size);

/// Overwrites `count` right-hand sides with the solutions. Uses the factors and the row order that
/// `small_decompose` left.
///
/// Right-hand side k begins at element k·`count`, not at k·`size`: for a count of 1, and for a count equal to
/// the size, the vectors are stored one after the other. With another count they overlap or leave gaps, and
/// extend to element (`count` − 1)·`count` + `size` − 1. A count below 1, a size below 1 or a size above 255
/// changes nothing.
VEXOR_API void small_substitution(double* factors, double* rightSides, unsigned char* pivotOrder, int size,
                                  int count);
