#pragma once
#include <vexor/dynamic/VecDbl.h>
#include <vexor/matrices/Mat3Dbl.h>

namespace vexor::detail {
template <class Element>
struct Workspace;
}

VEXOR_EXACT_BEGIN

/// A matrix of doubles whose shape, at least 1×1, is chosen at run time, and the one class that
/// reaches LAPACK.
///
/// The elements lie in one contiguous block, column by column, as LAPACK wants them. The matrix owns
/// that block, or it is a view on a block of the caller's of at least rows × columns doubles in that
/// order: nothing is copied then, the elements are read and written in place, and the block is never
/// freed. The caller keeps it alive as long as the view uses it. Fresh elements are unset. Indices
/// count from 0, row first.
///
/// A factorising solve leaves its factors in the elements and its pivots in an array of their own; the
/// re-solves need both. A copy carries both. Writing elements leaves the pivots as they are.
///
/// A size below 1 and storage that cannot be had raise `VexorAllocationFailed`, the object unchanged
/// unless its operation says more. Shapes that do not fit raise `VexorDimensionMismatch` before
/// anything is changed.
class VEXOR_CLASS MatDbl {
public:
    // ---- Construction and shape ------------------------------------------------------------------

    /// One unset element: there is no empty matrix.
    VEXOR_API MatDbl();
    /// Unset elements of that shape, or a view on the caller's.
    VEXOR_API MatDbl(int rows, int cols, double* externalStorage = nullptr);
    /// Every element takes the value; it is written through into the caller's block as well.
    VEXOR_API MatDbl(int rows, int cols, double value, double* externalStorage = nullptr);
    /// The same for any integer type: a literal 0 is a number here, not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    MatDbl(int rows, int cols, Integer value) : MatDbl(rows, cols, static_cast<double>(value))
    {}
    /// A copy owns its block, also the copy of a view, and carries the pivots.
    VEXOR_API MatDbl(MatDbl const& other);
    /// The transpose of `other`: its row k becomes column k. The way back does not transpose.
    VEXOR_API MatDbl(Mat3Dbl const& other);
    /// Frees own storage; a block of the caller stays.
    VEXOR_API ~MatDbl();

    /// Takes the other's shape, elements and pivots, into own storage: a view that is assigned to
    /// leaves the caller's block as it is. A view assigned to itself is left with unset elements.
    VEXOR_API MatDbl& operator=(MatDbl const& other);

    /// Changes the shape, and lets go of a view unless a pointer is given. Own storage of the same
    /// number of elements keeps them in their linear order, else they are unset; the pivots go. A
    /// matrix with own storage of that shape already stays as it is, pointer or no pointer.
    ///
    /// A literal 0 is refused, since as a pointer it keeps the elements of an unchanged shape and as a number
    /// it overwrites them. Compilers show the line of the declaration with their message.
    VEXOR_API void ReSize(int rows, int cols, double* externalStorage = nullptr); // write nullptr or 0.0
    /// As above, and every element then takes the value.
    VEXOR_API void ReSize(int rows, int cols, double value, double* externalStorage = nullptr);
    /// The number of rows, at least 1.
    VEXOR_INLINE int RowCount() const { return rowCount; }
    /// The number of columns, at least 1.
    VEXOR_INLINE int ColumnCount() const { return columnCount; }

    // ---- Elements, rows and columns --------------------------------------------------------------
    // Reading trusts its indices, `SetRow` and `SetCol` check theirs.

    /// The element of that row and column, from 0, which are not checked.
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
    /// A copy of the row; nothing checks its index.
    VEXOR_API VecDbl GetRow(int row) const;
    /// A copy of the column; nothing checks its index.
    VEXOR_API VecDbl GetCol(int column) const;
    /// Writes the row. Raises `VexorDimensionMismatch` unless the vector has as many elements as the
    /// matrix has columns, and for an index out of range.
    VEXOR_API MatDbl& SetRow(int row, VecDbl const& rowValues);
    /// Writes the column. Raises `VexorDimensionMismatch` unless the vector has as many elements as the
    /// matrix has rows, and for an index out of range.
    VEXOR_API MatDbl& SetCol(int column, VecDbl const& columnValues);
    /// A copy of the main diagonal. Raises `VexorDimensionMismatch` unless the matrix is square.
    VEXOR_API VecDbl GetDiagonal() const;
    /// Writes the main diagonal; the other elements stay. Raises `VexorDimensionMismatch` unless the matrix
    /// is square and the vector as long as its diagonal.
    VEXOR_API MatDbl& SetDiagonal(VecDbl const& diagonal);
    /// Every element of the main diagonal takes the value; the other elements stay. Raises
    /// `VexorDimensionMismatch` unless the matrix is square.
    VEXOR_API MatDbl& SetDiagonal(double value);
    /// Every element takes the value.
    VEXOR_API MatDbl& SetValue(double value);
    /// Ones on the main diagonal, zeros elsewhere; of any shape.
    VEXOR_API MatDbl& Identity();

    // ---- Exact comparison: not const, unlike that of the vectors -----------------------------------

    /// Exact, element by element; a NaN is unequal to everything. Matrices of different shapes are
    /// unequal, without a raise.
    VEXOR_API int operator==(MatDbl const& other);
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(MatDbl const& other) { return !(*this == other); }

    // ---- Arithmetic ------------------------------------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_API MatDbl& operator*=(double scalar);
    /// One division for each element; a zero divisor is not checked.
    VEXOR_API MatDbl& operator/=(double scalar);
    /// Adds element by element. Raises `VexorDimensionMismatch` unless both counts match.
    VEXOR_API MatDbl& operator+=(MatDbl const& other);
    /// Subtracts element by element. Raises `VexorDimensionMismatch` unless both counts match.
    VEXOR_API MatDbl& operator-=(MatDbl const& other);
    /// Flips the sign of each element; 0 becomes −0.
    VEXOR_API MatDbl& Negate();
    /// In place: a view stays a view on its block. The pivots go, but stay, though useless, with a
    /// square matrix that owns its block. Needs storage for a copy of the elements unless it is square.
    VEXOR_API MatDbl& Transpose();
    /// The transposed copy.
    VEXOR_API MatDbl GetTransposedCopy() const;
    /// The negated copy.
    VEXOR_API MatDbl GetNegatedCopy() const;
    /// The rows added up as vectors, from the first on: element j is the sum down column j.
    VEXOR_API VecDbl RowSum();
    /// `RowSum()` divided by the number of rows.
    VEXOR_API VecDbl RowAverage();

    // ---- Linear systems: LAPACK overwrites the matrix with its factors -----------------------------
    // The argument is the right-hand side, or several in the columns of a matrix, and is overwritten
    // with the solution. Raises `VexorDimensionMismatch` unless the matrix is square and the argument
    // has as many rows; `VexorAllocationFailed` where a pivot array or workspace is not to be had,
    // matrix and argument unchanged; `VexorComputationFailed` where the driver reports failure, an
    // exactly singular matrix for one: the matrix is lost then, the argument holds no solution, and
    // the pivots stay. The argument must not share storage with the matrix.

    /// Factorises into L·U with pivots, and solves.
    VEXOR_API void Solve(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void Solve(MatDbl& b);
    /// Solves with the factors that `Solve` left. Raises `VexorComputationFailed`, with nothing changed, if
    /// the matrix was never factorised, or if a pivot is below 1, which only `SolveSym` leaves. If elements
    /// have changed since, or the factors are those of `SolveSym`, the result is meaningless.
    VEXOR_API void ReSolve(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void ReSolve(MatDbl& b);
    /// For a symmetric matrix, of which only the upper triangle is read. Where workspace is not to be
    /// had, the pivots of a former factorisation go as well.
    VEXOR_API void SolveSym(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void SolveSym(MatDbl& b);
    /// Solves with the factors that `SolveSym` left. Raises `VexorComputationFailed`, with nothing changed,
    /// if the matrix was never factorised. If elements have changed since, or the factors are those of
    /// `Solve`, the result is meaningless.
    VEXOR_API void ReSolveSym(VecDbl& b);
    /// As above, for each column.
    VEXOR_API void ReSolveSym(MatDbl& b);
    /// The least squares solution for a matrix of full rank with more rows than columns, the solution
    /// of least norm for one with fewer. The argument has as many rows as the matrix, and comes back
    /// with as many as the matrix has columns; if that is another number, in own storage. The pivots go.
    /// Raises `VexorComputationFailed` if there are so many right-hand sides that the workspace is too small:
    /// more than about 127 times the larger dimension.
    VEXOR_API void SolveLinearLeastSquares(VecDbl& b);
    /// As above for each column; the row count becomes `ColumnCount()`, the column count stays.
    VEXOR_API void SolveLinearLeastSquares(MatDbl& b);
    /// Replaces the matrix by its inverse in own storage, without pivots: a view leaves the factors in
    /// the caller's block. Where the matrix is singular, it is lost.
    VEXOR_API MatDbl& Invert();
    /// As `Invert`, on a copy.
    VEXOR_API MatDbl GetInvertedCopy() const;

    // ---- Spectra: the vectors come in the rows of the matrix ---------------------------------------
    // Neither operation touches the pivots.

    /// The singular values in descending order, as many as the smaller dimension. As many rows of the matrix,
    /// from the first on, become the right singular vectors; the rows below are meaningless. Raises
    /// `VexorAllocationFailed` if there is no workspace, and `VexorComputationFailed` if an element is
    /// infinite or NaN, since the iteration might not end: the matrix is unchanged then, and the result has
    /// its new size. Raises `VexorComputationFailed` also if the iteration fails.
    VEXOR_API void Svd(VecDbl& singularValues);
    /// Of a symmetric matrix, of which only the upper triangle is read, the eigenvalues at the
    /// positions `firstIndex` to `lastIndex` in ascending order, from 0 and both included; the result
    /// has the matrix's size, and elements behind the selected ones mean nothing. With `wantVectors`
    /// not 0, row k becomes the unit eigenvector of the value in element k; without, the matrix is
    /// lost. A selected value that the driver does not find, as can happen beside a NaN, is a NaN. Raises
    /// `VexorDimensionMismatch`, with nothing changed, unless the matrix is square and
    /// 0 ≤ firstIndex ≤ lastIndex < size; `VexorAllocationFailed` as `Svd`; and `VexorComputationFailed`
    /// where the iteration fails.
    VEXOR_API void EigenSym(VecDbl& eigenValues, int wantVectors, int firstIndex, int lastIndex);

private:
    VEXOR_LOCAL void Init(int rows, int cols, double* externalStorage);
    // As Init, but hands the caller the own block that the matrix gave up, or null: data may still be
    // read from it.
    VEXOR_LOCAL double* Shape(int rows, int cols, double* externalStorage);
    VEXOR_LOCAL void ReleasePivots();
    VEXOR_LOCAL void DoSolve(double* rhs, int rhsCount, int factorise);
    VEXOR_LOCAL void DoSolveSym(double* rhs, int rhsCount, int factorise);
    VEXOR_LOCAL void DoSolveLinearLeastSquares(double* rhs, int rhsCount,
                                               vexor::detail::Workspace<double>& work);
    VEXOR_LOCAL void MoveRowsTo(double* block, int rows);
    VEXOR_LOCAL void Adopt(double* block, int rows);

    // The block is known by columns[0] alone; columns[j] is columns[0] + j·rowCount throughout.
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
/// One division for each element; a zero divisor is not checked.
VEXOR_API MatDbl operator/(MatDbl const& matrix, double scalar);
/// The negated copy: flips the sign of each element; 0 becomes −0.
VEXOR_API MatDbl operator-(MatDbl const& matrix);
/// The sum, element by element. Raises `VexorDimensionMismatch` for different shapes.
VEXOR_API MatDbl operator+(MatDbl const& left, MatDbl const& right);
/// The difference, element by element. Raises `VexorDimensionMismatch` for different shapes.
VEXOR_API MatDbl operator-(MatDbl const& left, MatDbl const& right);
/// Each element is the running sum, from 0.0, of its products for rising inner index. Raises
/// `VexorDimensionMismatch` unless the left matrix has as many columns as the right one has rows.
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
