#pragma once
#include <vexor/foundation/detail/Element.h>
#include <vexor/vectors/Vec2Dbl.h>
#include <vexor/vectors/Vec2Flt.h>

VEXOR_EXACT_BEGIN

/// A 2×2 matrix of doubles: two rows, each a `Vec2Dbl`, and nothing else. The four elements are stored row by
/// row.
///
/// `Solve` keeps the explicit inverse here and the factors in `Mat3Dbl`, so a copy of an inverted matrix can
/// solve too. `Mat3Dbl` refuses only exact zeros; this class refuses a determinant below a fixed threshold.
/// Indices count from 0 and are not checked.
class VEXOR_CLASS Mat2Dbl {
public:
    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the elements unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Mat2Dbl() {}
    /// Sets all four elements to the value, not only the diagonal.
    VEXOR_INLINE constexpr Mat2Dbl(double value) : rows{value, value} {}
    /// Sets the rows, in order.
    VEXOR_INLINE constexpr Mat2Dbl(Vec2Dbl const& row0, Vec2Dbl const& row1) : rows{row0, row1} {}
    /// Copies the four elements.
    Mat2Dbl(Mat2Dbl const&) = default;
    ~Mat2Dbl() = default;

    /// Copies the four elements.
    Mat2Dbl& operator=(Mat2Dbl const&) = default;

    // ---- Elements, rows and columns ----------------------------------------------------------

    /// The element of that row and column.
    VEXOR_INLINE constexpr double& operator()(int row, int column)
    {
        return VEXOR_CONSTANT_EVALUATED() ? rows[row][column]
                                          : vexor::detail::ElementOf<double, 2, 2>(*this, row, column);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator()(int row, int column) const
    {
        return VEXOR_CONSTANT_EVALUATED() ? rows[row][column]
                                          : vexor::detail::ElementOf<double const, 2, 2>(*this, row, column);
    }

    /// The row inside the matrix, read-only; `Mat3Dbl` also has a form for writing.
    VEXOR_INLINE constexpr Vec2Dbl const& GetRow(unsigned int row) const
    {
        return VEXOR_CONSTANT_EVALUATED()
                   ? rows[row]
                   : vexor::detail::ElementOf<Vec2Dbl const, 2>(*this, static_cast<int>(row));
    }
    /// Copies the vector into the row.
    VEXOR_INLINE constexpr Mat2Dbl& SetRow(unsigned int row, Vec2Dbl const& values)
    {
        if (VEXOR_CONSTANT_EVALUATED())
            rows[row] = values;
        else
            vexor::detail::ElementOf<Vec2Dbl, 2>(*this, static_cast<int>(row)) = values;
        return *this;
    }
    /// A copy of the column: columns are not stored as vectors.
    VEXOR_INLINE constexpr Vec2Dbl GetCol(unsigned int column) const
    {
        int const c = static_cast<int>(column);
        return Vec2Dbl((*this)(0, c), (*this)(1, c));
    }
    /// Writes the vector down the column.
    VEXOR_INLINE constexpr Mat2Dbl& SetCol(unsigned int column, Vec2Dbl const& values)
    {
        int const c = static_cast<int>(column);
        Vec2Dbl const copy(values); // it may be one of our own rows
        (*this)(0, c) = copy.x;
        (*this)(1, c) = copy.y;
        return *this;
    }
    /// A copy of the main diagonal.
    VEXOR_INLINE constexpr Vec2Dbl GetDiagonal() const { return Vec2Dbl(rows[0].x, rows[1].y); }
    /// Writes the diagonal; the other elements are unchanged.
    VEXOR_INLINE constexpr Mat2Dbl& SetDiagonal(Vec2Dbl const& values)
    {
        rows[0].x = values.x;
        rows[1].y = values.y;
        return *this;
    }
    /// Writes the value on the diagonal; the other elements are unchanged.
    VEXOR_INLINE constexpr Mat2Dbl& SetDiagonal(double value) { return SetDiagonal(Vec2Dbl(value)); }

    /// Sets all four elements to the value.
    VEXOR_INLINE constexpr Mat2Dbl& SetValue(double value)
    {
        Vec2Dbl const row(value);
        return SetValue(row, row);
    }
    /// Sets the rows, in order.
    VEXOR_INLINE constexpr Mat2Dbl& SetValue(Vec2Dbl const& row0, Vec2Dbl const& row1)
    {
        return *this = Mat2Dbl(row0, row1); // an argument may be one of our own rows
    }
    /// Copies the rows to the arguments. Not const, although it changes nothing.
    VEXOR_INLINE constexpr void GetValue(Vec2Dbl& row0, Vec2Dbl& row1)
    {
        row0 = rows[0];
        row1 = rows[1];
    }

    // ---- The whole matrix --------------------------------------------------------------------

    /// Sets the identity matrix.
    VEXOR_INLINE constexpr Mat2Dbl& Identity() { return SetValue(Vec2Dbl(1.0, 0.0), Vec2Dbl(0.0, 1.0)); }
    /// Transposes in place.
    VEXOR_INLINE constexpr Mat2Dbl& Transpose() { return *this = GetTransposedCopy(); }
    /// The transposed copy.
    VEXOR_INLINE constexpr Mat2Dbl GetTransposedCopy() const
    {
        return Mat2Dbl(Vec2Dbl(rows[0].x, rows[1].x), Vec2Dbl(rows[0].y, rows[1].y));
    }
    /// Flips the sign of each element; 0 becomes −0.
    VEXOR_INLINE constexpr Mat2Dbl& Negate()
    {
        rows[0].Negate();
        rows[1].Negate();
        return *this;
    }
    /// The negated copy.
    VEXOR_INLINE constexpr Mat2Dbl GetNegatedCopy() const { return Mat2Dbl(-rows[0], -rows[1]); }

    /// Returns (row 0 + row 1) + THE TWO DOUBLES THAT FOLLOW THE MATRIX IN MEMORY.
    ///
    /// Only call it on the linear part of an `AffMat2Dbl`, where those two are the translation. For any other
    /// matrix the two doubles are unrelated memory: the result is arbitrary, and at the end of a mapped page
    /// the read can end the process. For the sum of the two rows alone write `m.GetRow(0) + m.GetRow(1)`. Not
    /// const, although it changes nothing.
    VEXOR_API Vec2Dbl RowSum();
    /// `RowSum()`, with the same third term and the same warning, times the reciprocal of 2 (not of 3).
    VEXOR_API Vec2Dbl RowAverage();

    // ---- Exact comparison: not const, unlike that of Mat3Dbl ---------------------------------

    /// Exact equality of all elements; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(Mat2Dbl const& other)
    {
        return rows[0] == other.rows[0] && rows[1] == other.rows[1];
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Mat2Dbl const& other) { return !(*this == other); }

    // ---- Arithmetic, element by element ------------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_INLINE constexpr Mat2Dbl& operator*=(double scalar)
    {
        rows[0] *= scalar;
        rows[1] *= scalar;
        return *this;
    }
    /// Divides each element by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE constexpr Mat2Dbl& operator/=(double scalar)
    {
        rows[0] /= scalar;
        rows[1] /= scalar;
        return *this;
    }
    /// Adds element by element.
    VEXOR_INLINE constexpr Mat2Dbl& operator+=(Mat2Dbl const& other)
    {
        rows[0] += other.rows[0];
        rows[1] += other.rows[1];
        return *this;
    }
    /// Subtracts element by element.
    VEXOR_INLINE constexpr Mat2Dbl& operator-=(Mat2Dbl const& other)
    {
        rows[0] -= other.rows[0];
        rows[1] -= other.rows[1];
        return *this;
    }

    // ---- Inverse and solution ----------------------------------------------------------------
    // With the determinant d = m00·m11 − m01·m10. If |d| is below 1e-20, all of these except `ReSolve` raise
    // `VexorSingular`, with the matrix and the right-hand sides unchanged. The threshold is absolute and does
    // not scale with the elements: even a perfectly conditioned matrix of elements around 1e-11 is refused. A
    // NaN is not refused.

    /// Replaces the matrix by its inverse: four divisions by d.
    VEXOR_API Mat2Dbl& Invert();
    /// The inverse, by `Invert` on a copy.
    VEXOR_INLINE Mat2Dbl GetInvertedCopy() const
    {
        Mat2Dbl copy(*this);
        copy.Invert();
        return copy;
    }
    /// Replaces the matrix by its inverse, and the vector by the solution of matrix · x = vector. A
    /// second `Solve` inverts the inverse.
    VEXOR_INLINE void Solve(Vec2Dbl& vector)
    {
        Invert();
        ReSolve(vector);
    }
    /// The same for `count` vectors, any number. With a count below 1 the matrix is still inverted.
    VEXOR_INLINE void Solve(Vec2Dbl* const vectors, int count)
    {
        Invert();
        ReSolve(vectors, count);
    }
    /// Replaces the vector by matrix · vector: after `Solve` or `Invert` that is the solution for another
    /// right-hand side. It checks nothing and uses only the four elements. Not const, although it changes no
    /// element.
    VEXOR_INLINE void ReSolve(Vec2Dbl& vector);
    /// The same for `count` vectors, one after the other. A count below 1 does nothing.
    VEXOR_INLINE void ReSolve(Vec2Dbl* const vectors, int count);

    // ---- Symmetric eigenproblem --------------------------------------------------------------

    /// Computes the eigenvalues, in ascending order, of a symmetric matrix, of which only the upper triangle
    /// is read: m10 is not. If `withVectors` is not 0, also overwrites the matrix: row i is a unit
    /// eigenvector of eigenvalue i. It never fails; unlike in `Mat3Dbl`, a multiple of the identity matrix is
    /// accepted. A NaN on the diagonal may not appear in the result.
    VEXOR_API void EigenSym(Vec2Dbl& values, int withVectors);

private:
    Vec2Dbl rows[2];
};

// ---- Free operators --------------------------------------------------------------------------------

/// Each element times the scalar.
VEXOR_INLINE constexpr Mat2Dbl operator*(Mat2Dbl const& matrix, double scalar)
{
    return Mat2Dbl(matrix.GetRow(0) * scalar, matrix.GetRow(1) * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Mat2Dbl operator*(double scalar, Mat2Dbl const& matrix)
{
    return matrix * scalar;
}

/// Computes 1 / scalar once and multiplies by it; `operator/=` divides. The two results may differ in the
/// last place.
VEXOR_INLINE constexpr Mat2Dbl operator/(Mat2Dbl const& matrix, double scalar)
{
    return matrix * (1.0 / scalar);
}

/// The negated copy: flips the sign of each element; 0 becomes −0.
VEXOR_INLINE constexpr Mat2Dbl operator-(Mat2Dbl const& matrix)
{
    return matrix.GetNegatedCopy();
}

/// The sum, element by element.
VEXOR_INLINE constexpr Mat2Dbl operator+(Mat2Dbl const& left, Mat2Dbl const& right)
{
    return Mat2Dbl(left.GetRow(0) + right.GetRow(0), left.GetRow(1) + right.GetRow(1));
}

/// The difference, element by element.
VEXOR_INLINE constexpr Mat2Dbl operator-(Mat2Dbl const& left, Mat2Dbl const& right)
{
    return Mat2Dbl(left.GetRow(0) - right.GetRow(0), left.GetRow(1) - right.GetRow(1));
}

/// Row r, column c is left(r, 0)·right(0, c) + left(r, 1)·right(1, c). The sum starts from the first product
/// and not from 0 as in `Mat3Dbl`, so two products of −0 give −0.
VEXOR_INLINE constexpr Mat2Dbl operator*(Mat2Dbl const& left, Mat2Dbl const& right)
{
    return Mat2Dbl(Vec2Dbl(left(0, 0) * right(0, 0) + left(0, 1) * right(1, 0),
                           left(0, 0) * right(0, 1) + left(0, 1) * right(1, 1)),
                   Vec2Dbl(left(1, 0) * right(0, 0) + left(1, 1) * right(1, 0),
                           left(1, 0) * right(0, 1) + left(1, 1) * right(1, 1)));
}

/// Matrix times column vector: component r is row r `Dot` the vector.
VEXOR_INLINE constexpr Vec2Dbl operator*(Mat2Dbl const& matrix, Vec2Dbl const& vector)
{
    return Vec2Dbl(matrix.GetRow(0).Dot(vector), matrix.GetRow(1).Dot(vector));
}

/// The same in double; each component rounded to single once.
VEXOR_INLINE Vec2Flt operator*(Mat2Dbl const& matrix, Vec2Flt const& vector)
{
    return (matrix * Vec2Dbl(vector)).ToVec2Flt();
}

// ---- Members that use them ---------------------------------------------------------------------------

VEXOR_INLINE void Mat2Dbl::ReSolve(Vec2Dbl& vector)
{
    vector = *this * vector;
}

VEXOR_INLINE void Mat2Dbl::ReSolve(Vec2Dbl* const vectors, int count)
{
    for (int i = 0; i < count; ++i)
        ReSolve(vectors[i]);
}

// ---- Members of earlier classes that name Mat2Dbl ------------------------------------------------------

VEXOR_INLINE constexpr Mat2Dbl Vec2Dbl::OuterProduct(Vec2Dbl const& other) const
{
    return Mat2Dbl(x * other, y * other);
}

VEXOR_INLINE Mat2Dbl Vec2Flt::OuterProduct(Vec2Flt const& other) const
{
    return Vec2Dbl(*this).OuterProduct(Vec2Dbl(other));
}

VEXOR_EXACT_END
