#pragma once
#include <vexor/dynamic/VecDbl.h>
#include <vexor/matrices/Mat3Dbl.h>

namespace vexor::detail {
template <class Element>
struct Workspace;
}

VEXOR_EXACT_BEGIN

/// A matrix of doubles whose shape, at least 1×1, is chosen at run time. It is the only class that calls
/// LAPACK.
///
/// The elements are stored in one contiguous block, column by column, as LAPACK expects. The matrix owns that
/// block, or it is a view on a block of the caller's: at least rows × columns doubles in that order. A view
/// copies nothing, reads and writes the elements in place, and never frees the block. The caller keeps the
/// block alive as long as the view uses it. New elements are unset. Indices count from 0, row first.
///
/// A factorising solve leaves its factors in the elements and its pivots in a separate array; the re-solves
/// need both. A copy has both. Writing elements does not change the pivots.
///
/// A size below 1 or a failed allocation raises `VexorAllocationFailed`; the object is unchanged unless its
/// operation says more. Shapes that do not match raise `VexorDimensionMismatch` before anything is changed.
class VEXOR_CLASS MatDbl {
public:
    // ---- Construction and shape ------------------------------------------------------------------

    /// Creates a 1×1 matrix with an unset element; no matrix is empty.
    VEXOR_API MatDbl();
    /// Creates unset elements of that shape, or a view on the caller's elements if the pointer is not null.
    VEXOR_API MatDbl(int rows, int cols, double* externalStorage = nullptr);
    /// Sets every element to the value, in the caller's block too.
    VEXOR_API MatDbl(int rows, int cols, double value, double* externalStorage = nullptr);
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    MatDbl(int rows, int cols, Integer value) : MatDbl(rows, cols, static_cast<double>(value))
    {}
    /// Copies the elements into own storage, even from a view, and copies the pivots.
    VEXOR_API MatDbl(MatDbl const& other);
    /// Creates the transpose of `other`: its row k becomes column k. The conversion back to `Mat3Dbl` does
    /// not transpose.
    VEXOR_API MatDbl(Mat3Dbl const& other);
    /// Frees own storage; the caller's storage is not freed.
    VEXOR_API ~MatDbl();

    /// Copies the other's shape, elements and pivots into own storage. A view that is assigned to stops being
    /// a view and does not change the caller's block. A view assigned to itself ends with unset elements.
    VEXOR_API MatDbl& operator=(MatDbl const& other);

    /// Changes the shape. Without a pointer a view becomes a matrix with own storage. Own storage with the
    /// same number of elements keeps them in their linear order; otherwise they are unset. The pivots are
    /// dropped. A matrix that already has own storage of that shape is unchanged, and a pointer is ignored.
    ///
    /// A literal 0 does not compile: as a pointer it would keep the elements of an unchanged shape, as a
    /// number it would overwrite them. Compilers show the line of this declaration with their message.
    VEXOR_API void ReSize(int rows, int cols, double* externalStorage = nullptr); // write nullptr or 0.0
    /// As above, then sets every element to the value.
    VEXOR_API void ReSize(int rows, int cols, double value, double* externalStorage = nullptr);
    /// The number of rows, at least 1.
    VEXOR_INLINE int RowCount() const { return rowCount; }
    /// The number of columns, at least 1.
    VEXOR_INLINE int ColumnCount() const { return columnCount; }

    // ---- Elements, rows and columns --------------------------------------------------------------
    // The reading members do not check their indices; `SetRow` and `SetCol` do.

    /// The element of that row and column, counted from 0. The indices are not checked.
    VEXOR_INLINE double& operator()(int row, int column)
    {
        VEXOR_CHECK(row >= 0 && row < rowCount && column >= 0 && column < columnCount, "index out of range");
        return columns[column][row];
    }
    /// The same, read-only.
    VEXOR_INLINE double const& operator()(int row, int column) const
    {
        VEXOR_CHECK(row >= 0 && row < rowCount && column >= 0 && column < columnCount, "index out of range");
        return columns[column][row];
    }
    /// A copy of the row. The index is not checked.
    VEXOR_API VecDbl GetRow(int row) const;
    /// A copy of the column. The index is not checked.
    VEXOR_API VecDbl GetCol(int column) const;
    /// Writes the row. Raises `VexorDimensionMismatch` unless the vector has as many elements as the
    /// matrix has columns, and for an index out of range.
    VEXOR_API MatDbl& SetRow(int row, VecDbl const& rowValues);
    /// Writes the column. Raises `VexorDimensionMismatch` unless the vector has as many elements as the
    /// matrix has rows, and for an index out of range.
    VEXOR_API MatDbl& SetCol(int column, VecDbl const& columnValues);
    /// A copy of the main diagonal. Raises `VexorDimensionMismatch` unless the matrix is square.
    VEXOR_API VecDbl GetDiagonal() const;
    /// Writes the main diagonal; the other elements are unchanged. Raises `VexorDimensionMismatch` unless the
    /// matrix is square and the vector as long as its diagonal.
    VEXOR_API MatDbl& SetDiagonal(VecDbl const& diagonal);
    /// Sets every element of the main diagonal to the value; the other elements are unchanged. Raises
    /// `VexorDimensionMismatch` unless the matrix is square.
    VEXOR_API MatDbl& SetDiagonal(double value);
    /// Sets every element to the value.
    VEXOR_API MatDbl& SetValue(double value);
    /// Sets the main diagonal to 1 and all other elements to 0, for any shape.
    VEXOR_API MatDbl& Identity();

    // ---- Exact comparison: not const, unlike that of the vectors -----------------------------------

    /// Exact equality of all elements; a NaN is unequal to everything. Matrices of different shapes are
    /// unequal; no exception is raised.
    VEXOR_API int operator==(MatDbl const& other);
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(MatDbl const& other) { return !(*this == other); }

    // ---- Arithmetic ------------------------------------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_API MatDbl& operator*=(double scalar);
    /// Divides each element by the scalar. A zero divisor is not checked.
    VEXOR_API MatDbl& operator/=(double scalar);
    /// Adds element by element. Raises `VexorDimensionMismatch` unless both counts match.
    VEXOR_API MatDbl& operator+=(MatDbl const& other);
    /// Subtracts element by element. Raises `VexorDimensionMismatch` unless both counts match.
    VEXOR_API MatDbl& operator-=(MatDbl const& other);
    /// Flips the sign of each element; 0 becomes −0.
    VEXOR_API MatDbl& Negate();
    /// Transposes in place; a view stays a view on its block. Drops the pivots, except in a square matrix
    /// with its own storage, which keeps them although they no longer fit. A matrix that is not square needs
    /// storage for a copy of its elements.
    VEXOR_API MatDbl& Transpose();
    /// The transposed copy.
    VEXOR_API MatDbl GetTransposedCopy() const;
    /// The negated copy.
    VEXOR_API MatDbl GetNegatedCopy() const;
    /// The sum of the rows as vectors, from the first on: element j is the sum down column j.
    VEXOR_API VecDbl RowSum();
    /// `RowSum()` divided by the number of rows.
    VEXOR_API VecDbl RowAverage();

    // ---- Linear systems: LAPACK overwrites the matrix with its factors -----------------------------
    // The argument is the right-hand side, or a matrix with one in each column. The solution overwrites it.
    // Raises `VexorDimensionMismatch` unless the matrix is square and the argument has as many rows. Raises
    // `VexorAllocationFailed`, with matrix and argument unchanged, if a pivot array or workspace cannot be
    // allocated. Raises `VexorComputationFailed` if the driver reports failure, for an exactly singular
    // matrix, say: the matrix is then overwritten, the argument holds no solution, and the pivots are kept.
    // The argument must not share storage with the matrix.

    /// Factorises the matrix into L·U with pivots, and solves.
    VEXOR_API void Solve(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void Solve(MatDbl& b);
    /// Solves with the factors that `Solve` left. Raises `VexorComputationFailed`, with nothing changed, if
    /// the matrix was never factorised, or if a pivot is below 1, which only `SolveSym` leaves. If elements
    /// have changed since, or the factors are those of `SolveSym`, the result is meaningless.
    VEXOR_API void ReSolve(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void ReSolve(MatDbl& b);
    /// Factorises a symmetric matrix, of which only the upper triangle is read, and solves. If workspace
    /// cannot be allocated, the pivots of an earlier factorisation are dropped too.
    VEXOR_API void SolveSym(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void SolveSym(MatDbl& b);
    /// Solves with the factors that `SolveSym` left. Raises `VexorComputationFailed`, with nothing changed,
    /// if the matrix was never factorised. If elements have changed since, or the factors are those of
    /// `Solve`, the result is meaningless.
    VEXOR_API void ReSolveSym(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void ReSolveSym(MatDbl& b);
    /// Computes the least squares solution for a matrix of full rank with more rows than columns, and the
    /// solution of least norm for one with fewer. The argument has as many rows as the matrix. The result in
    /// it has as many rows as the matrix has columns; if the two counts differ, it is in own storage. The
    /// pivots are dropped. Raises `VexorComputationFailed` if there are so many right-hand sides that the
    /// workspace is too small: more than about 127 times the larger dimension.
    VEXOR_API void SolveLinearLeastSquares(VecDbl& b);
    /// As above, for each column. The argument's row count becomes `ColumnCount()`; its column count is
    /// unchanged.
    VEXOR_API void SolveLinearLeastSquares(MatDbl& b);
    /// Replaces the matrix by its inverse in own storage and drops the pivots. If it was a view, the caller's
    /// block holds the factors afterwards. If the matrix is singular, its elements are lost.
    VEXOR_API MatDbl& Invert();
    /// The inverse, by `Invert` on a copy.
    VEXOR_API MatDbl GetInvertedCopy() const;

    // ---- Spectra: the vectors come in the rows of the matrix ---------------------------------------
    // Neither operation changes the pivots.

    /// Computes the singular values in descending order, as many as the smaller dimension. The first rows of
    /// the matrix, as many as there are values, become the right singular vectors; the rows below are
    /// meaningless. Raises `VexorAllocationFailed` if workspace cannot be allocated, and
    /// `VexorComputationFailed` if an element is infinite or NaN, since the iteration might not end. In both
    /// cases the matrix is unchanged and the result has its new size. Raises `VexorComputationFailed` also if
    /// the iteration fails.
    VEXOR_API void Svd(VecDbl& singularValues);
    /// Computes eigenvalues of a symmetric matrix, of which only the upper triangle is read: those from
    /// `firstIndex` to `lastIndex`, both included, counted from 0 in ascending order. The result has the
    /// matrix's size; elements after the selected ones are meaningless. If `wantVectors` is not 0, row k
    /// becomes the unit eigenvector of the value in element k; if it is 0, the matrix's elements are lost. A
    /// selected value that the driver does not find is a NaN; this can happen if the matrix contains a NaN.
    /// Raises `VexorDimensionMismatch`, with nothing changed, unless the matrix is square and 0 ≤ firstIndex
    /// ≤ lastIndex < size; `VexorAllocationFailed` as `Svd`; and `VexorComputationFailed` if the iteration
    /// fails.
    VEXOR_API void EigenSym(VecDbl& eigenValues, int wantVectors, int firstIndex, int lastIndex);

private:
    VEXOR_LOCAL void Init(int rows, int cols, double* externalStorage);
    // As Init, but returns the own block that the matrix released, or null: the caller may still read from
    // it.
    VEXOR_LOCAL double* Shape(int rows, int cols, double* externalStorage);
    VEXOR_LOCAL void ReleasePivots();
    VEXOR_LOCAL void DoSolve(double* rhs, int rhsCount, int factorise);
    VEXOR_LOCAL void DoSolveSym(double* rhs, int rhsCount, int factorise);
    VEXOR_LOCAL void DoSolveLinearLeastSquares(double* rhs, int rhsCount,
                                               vexor::detail::Workspace<double>& work);
    VEXOR_LOCAL void MoveRowsTo(double* block, int rows);
    VEXOR_LOCAL void Adopt(double* block, int rows);

    // Only columns[0] identifies the block; columns[j] is always columns[0] + j·rowCount.
    int rowCount;     // at least 1
    int columnCount;  // at least 1
    int isExternal;   // 1 when the block is the caller's
    double** columns; // columnCount pointers, always own
    int* pivots;      // rowCount integers as LAPACK left them, always own; null until a factorising solve
};

// ---- Free operators: new objects with own storage and without pivots -------------------------------------

/// Each element times the scalar.
VEXOR_API MatDbl operator*(MatDbl const& matrix, double scalar);
/// The same, the scalar on the left.
VEXOR_API MatDbl operator*(double scalar, MatDbl const& matrix);
/// The quotient: each element divided by the scalar. A zero divisor is not checked.
VEXOR_API MatDbl operator/(MatDbl const& matrix, double scalar);
/// The negated copy: flips the sign of each element; 0 becomes −0.
VEXOR_API MatDbl operator-(MatDbl const& matrix);
/// The sum, element by element. Raises `VexorDimensionMismatch` for different shapes.
VEXOR_API MatDbl operator+(MatDbl const& left, MatDbl const& right);
/// The difference, element by element. Raises `VexorDimensionMismatch` for different shapes.
VEXOR_API MatDbl operator-(MatDbl const& left, MatDbl const& right);
/// The matrix product. Each element is the running sum, from 0.0, of its products for rising inner index.
/// Raises `VexorDimensionMismatch` unless the left matrix has as many columns as the right one has rows.
VEXOR_API MatDbl operator*(MatDbl const& left, MatDbl const& right);
/// Matrix times column vector, summed in the same way. Raises `VexorDimensionMismatch` unless the matrix
/// has as many columns as the vector has elements.
VEXOR_API VecDbl operator*(MatDbl const& matrix, VecDbl const& vector);

// ---- Members of Mat3Dbl that name MatDbl -----------------------------------------------------------------

VEXOR_INLINE Mat3Dbl::Mat3Dbl(MatDbl const& other) : Mat3Dbl(0.0)
{
    for (int i = 0; i < 3 && i < other.RowCount(); ++i) {
        for (int j = 0; j < 3 && j < other.ColumnCount(); ++j)
            (*this)(i, j) = other(i, j);
    }
}

VEXOR_EXACT_END
