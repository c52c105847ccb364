#pragma once
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/matrices/detail/Pair.h>
#include <vexor/matrices/SmallSolver.h>
#include <vexor/points/Pnt3Dbl.h>
#include <vexor/points/Pnt3Flt.h>
#include <vexor/vectors/Vec3Dbl.h>
#include <vexor/vectors/Vec3Flt.h>

class MatDbl;

VEXOR_EXACT_BEGIN

/// A 3×3 matrix of doubles: three rows, each a `Vec3Dbl`, so that the nine elements are stored row by row.
/// Three bytes with the row order of the last factorisation follow them.
///
/// Only a factorisation writes those bytes; it also overwrites the elements. A copy does not have them. The
/// matrix does not record that it holds factors: every operation except `ReSolve` uses its elements as a
/// plain matrix. Indices count from 0 and are not checked.
class VEXOR_CLASS Mat3Dbl {
public:
    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the elements unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Mat3Dbl() {}
    /// Sets all nine elements to the value, not only the diagonal.
    VEXOR_INLINE constexpr Mat3Dbl(double value) : rows{value, value, value} {}
    /// Sets the rows, in order.
    VEXOR_INLINE constexpr Mat3Dbl(Vec3Dbl const& row0, Vec3Dbl const& row1, Vec3Dbl const& row2)
        : rows{row0, row1, row2}
    {}
    /// Copies the nine elements but not the row order of a factorisation: `ReSolve` works only on the
    /// factorised object.
    VEXOR_INLINE constexpr Mat3Dbl(Mat3Dbl const& other) : rows{other.rows[0], other.rows[1], other.rows[2]}
    {}
    /// Copies the top left block of `other`, not transposed; zeros where `other` is smaller. Requires
    /// MatDbl.h.
    VEXOR_INLINE Mat3Dbl(MatDbl const& other);
    ~Mat3Dbl() = default;

    /// Copies the nine elements; this object keeps its own row order.
    VEXOR_INLINE constexpr Mat3Dbl& operator=(Mat3Dbl const& other)
    {
        rows[0] = other.rows[0];
        rows[1] = other.rows[1];
        rows[2] = other.rows[2];
        return *this;
    }

    // ---- Elements, rows and columns ----------------------------------------------------------

    /// The element of that row and column.
    VEXOR_INLINE constexpr double& operator()(int row, int column)
    {
        return VEXOR_CONSTANT_EVALUATED() ? rows[row][column]
                                          : vexor::detail::ElementOf<double, 3, 3>(*this, row, column);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator()(int row, int column) const
    {
        return VEXOR_CONSTANT_EVALUATED() ? rows[row][column]
                                          : vexor::detail::ElementOf<double const, 3, 3>(*this, row, column);
    }

    /// The row inside the matrix: writing to it changes the matrix.
    VEXOR_INLINE constexpr Vec3Dbl& GetRow(unsigned int row)
    {
        return VEXOR_CONSTANT_EVALUATED()
                   ? rows[row]
                   : vexor::detail::ElementOf<Vec3Dbl, 3>(*this, static_cast<int>(row));
    }
    /// The row, read-only. The index is not checked.
    VEXOR_INLINE constexpr Vec3Dbl const& GetRow(unsigned int row) const
    {
        return VEXOR_CONSTANT_EVALUATED()
                   ? rows[row]
                   : vexor::detail::ElementOf<Vec3Dbl const, 3>(*this, static_cast<int>(row));
    }
    /// Copies the vector into the row.
    VEXOR_INLINE constexpr Mat3Dbl& SetRow(unsigned int row, Vec3Dbl const& values)
    {
        GetRow(row) = values;
        return *this;
    }
    /// A copy of the column: columns are not stored as vectors.
    VEXOR_INLINE constexpr Vec3Dbl GetCol(unsigned int column) const
    {
        int const c = static_cast<int>(column);
        return Vec3Dbl((*this)(0, c), (*this)(1, c), (*this)(2, c));
    }
    /// Writes the vector down the column.
    VEXOR_INLINE constexpr Mat3Dbl& SetCol(unsigned int column, Vec3Dbl const& values)
    {
        int const c = static_cast<int>(column);
        Vec3Dbl const copy(values); // it may be one of our own rows
        (*this)(0, c) = copy.x;
        (*this)(1, c) = copy.y;
        (*this)(2, c) = copy.z;
        return *this;
    }
    /// A copy of the main diagonal.
    VEXOR_INLINE constexpr Vec3Dbl GetDiagonal() const { return Vec3Dbl(rows[0].x, rows[1].y, rows[2].z); }
    /// Writes the diagonal; the other elements are unchanged.
    VEXOR_INLINE constexpr Mat3Dbl& SetDiagonal(Vec3Dbl const& values)
    {
        rows[0].x = values.x;
        rows[1].y = values.y;
        rows[2].z = values.z;
        return *this;
    }
    /// Writes the value on the diagonal; the other elements are unchanged.
    VEXOR_INLINE constexpr Mat3Dbl& SetDiagonal(double value) { return SetDiagonal(Vec3Dbl(value)); }

    /// Sets all nine elements to the value.
    VEXOR_INLINE constexpr Mat3Dbl& SetValue(double value)
    {
        Vec3Dbl const row(value);
        return SetValue(row, row, row);
    }
    /// Sets the rows, in order.
    VEXOR_INLINE constexpr Mat3Dbl& SetValue(Vec3Dbl const& row0, Vec3Dbl const& row1, Vec3Dbl const& row2)
    {
        return *this = Mat3Dbl(row0, row1, row2); // an argument may be one of our own rows
    }
    /// Copies the rows to the arguments. Not const, although it changes nothing.
    VEXOR_INLINE constexpr void GetValue(Vec3Dbl& row0, Vec3Dbl& row1, Vec3Dbl& row2)
    {
        Mat3Dbl const copy(*this); // an argument may be one of our own rows
        row0 = copy.rows[0];
        row1 = copy.rows[1];
        row2 = copy.rows[2];
    }

    // ---- The whole matrix --------------------------------------------------------------------

    /// Sets the identity matrix.
    VEXOR_INLINE constexpr Mat3Dbl& Identity()
    {
        SetValue(0.0);
        return SetDiagonal(1.0);
    }
    /// Transposes in place.
    VEXOR_INLINE constexpr Mat3Dbl& Transpose() { return *this = GetTransposedCopy(); }
    /// The transposed copy.
    VEXOR_INLINE constexpr Mat3Dbl GetTransposedCopy() const
    {
        return Mat3Dbl(Vec3Dbl(rows[0].x, rows[1].x, rows[2].x), Vec3Dbl(rows[0].y, rows[1].y, rows[2].y),
                       Vec3Dbl(rows[0].z, rows[1].z, rows[2].z));
    }
    /// Flips the sign of each element; 0 becomes −0.
    VEXOR_INLINE constexpr Mat3Dbl& Negate()
    {
        rows[0].Negate();
        rows[1].Negate();
        rows[2].Negate();
        return *this;
    }
    /// The negated copy.
    VEXOR_INLINE constexpr Mat3Dbl GetNegatedCopy() const { return Mat3Dbl(-rows[0], -rows[1], -rows[2]); }
    /// The sum of the rows, (row 0 + row 1) + row 2: each component is the sum down a column.
    VEXOR_INLINE constexpr Vec3Dbl RowSum() { return (rows[0] + rows[1]) + rows[2]; }
    /// `RowSum()` times the reciprocal of 3.
    VEXOR_INLINE constexpr Vec3Dbl RowAverage() { return RowSum() / 3.0; }

    // ---- Exact comparison: the elements alone ------------------------------------------------

    /// Exact equality of all elements; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(Mat3Dbl const& other) const
    {
        return rows[0] == other.rows[0] && rows[1] == other.rows[1] && rows[2] == other.rows[2];
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Mat3Dbl const& other) const { return !(*this == other); }

    // ---- Arithmetic, element by element ------------------------------------------------------

    /// Multiplies each element by the scalar.
    VEXOR_INLINE constexpr Mat3Dbl& operator*=(double scalar)
    {
        rows[0] *= scalar;
        rows[1] *= scalar;
        rows[2] *= scalar;
        return *this;
    }
    /// Divides each element by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE constexpr Mat3Dbl& operator/=(double scalar)
    {
        rows[0] /= scalar;
        rows[1] /= scalar;
        rows[2] /= scalar;
        return *this;
    }
    /// Adds element by element.
    VEXOR_INLINE constexpr Mat3Dbl& operator+=(Mat3Dbl const& other)
    {
        rows[0] += other.rows[0];
        rows[1] += other.rows[1];
        rows[2] += other.rows[2];
        return *this;
    }
    /// Subtracts element by element.
    VEXOR_INLINE constexpr Mat3Dbl& operator-=(Mat3Dbl const& other)
    {
        rows[0] -= other.rows[0];
        rows[1] -= other.rows[1];
        rows[2] -= other.rows[2];
        return *this;
    }

    // ---- Solving ---------------------------------------------------------------------------------
    // The matrix is factorised in place by `small_decompose`. It counts as singular if the elements of a row
    // are all zeros or NaN, or if all candidates for a pivot are. No tolerance is used; a nearly singular
    // matrix gives huge results.

    /// Overwrites b with the solution x of A·x = b, and this matrix with its factors, for `ReSolve`. Raises
    /// `VexorSingular`, with b unchanged, for a singular matrix. The matrix is then unchanged if it has a row
    /// of zeros and NaNs, and partly transformed otherwise. A second `Solve` would factorise the factors.
    VEXOR_API void Solve(Vec3Dbl& rightSide);
    /// The same for an array of 1 or 3 right-hand sides outside this matrix. Right-hand side k is read at
    /// element k·`count` of the array of doubles. With another count they overlap or leave gaps; with a count
    /// above 3 they extend beyond the array's end: see `small_substitution`.
    VEXOR_API void Solve(Vec3Dbl* const rightSides, int count);
    /// As `Solve`, with the factors that the last `Solve` left in this object. Nothing is checked. The result
    /// is meaningless on a matrix that was never factorised, on a copy, after `Invert` and after any change
    /// of the elements.
    VEXOR_API void ReSolve(Vec3Dbl& rightSide);
    /// As above for `count` right-hand sides, 1 or 3.
    VEXOR_API void ReSolve(Vec3Dbl* const rightSides, int count);
    /// Replaces the matrix by its inverse. Raises `VexorSingular` as `Solve` does, with the matrix in the
    /// same state.
    VEXOR_API Mat3Dbl& Invert();
    /// The inverse, by `Invert` on a copy.
    VEXOR_API Mat3Dbl GetInvertedCopy() const;

    // ---- Spectra -----------------------------------------------------------------------------------

    /// The singular values in descending order; row k of this matrix becomes the left singular vector of
    /// value k. Calls `MatDbl::Svd`; if that raises, this matrix and the argument are unchanged.
    VEXOR_API void Svd(Vec3Dbl& singularValues);
    /// The eigenvalues of a symmetric matrix in ascending order, by the closed trigonometric solution of
    /// its characteristic cubic; if `wantVectors` is not 0, row i of this matrix becomes the unit
    /// eigenvector of value i. Only the upper triangle is read.
    ///
    /// Well separated eigenvalues are right to the last digits of the largest; close ones may lose half of
    /// all digits, and their vectors more (docs/eigen-accuracy.md). `MatDbl::EigenSym` is reliable.
    ///
    /// Raises `VexorComputationFailed`, with nothing changed, if the arithmetic finds three equal
    /// eigenvalues, as for the identity matrix. If two neighbouring eigenvalues coincide to 10 units of
    /// rounding, the second vector of the pair is a cross product: of rows 0 and 1 for the upper pair; of
    /// rows 0 and 2 for the lower pair, which makes the rows left-handed. If all three coincide, the rows are
    /// those of the identity matrix. The `VexorNullVector` of `GetEigenVectorGivenEigenValue` never occurs in
    /// practice.
    VEXOR_API void EigenSym(Vec3Dbl& eigenValues, int wantVectors);
    /// A unit eigenvector of a symmetric matrix for an eigenvalue, which is not checked. Only the upper
    /// triangle is read. It is (1, 0, 0) if the matrix is that value times the identity matrix. Raises
    /// `VexorNullVector` if the arithmetic gives a null vector. This never occurs in practice, since the
    /// vector is built around an element that was chosen because it is not 0.
    VEXOR_API void GetEigenVectorGivenEigenValue(Vec3Dbl& eigenVector, double eigenValue);

private:
    Vec3Dbl rows[3];
    // pivotOrder[i] is the row that acts as row i of the factors.
#if defined(VEXOR_CHECKED)
    unsigned char pivotOrder[3] = {255, 255, 255}; // an order that no factorisation gives
#else
    // A constant expression must set every field, but a constructor at run time must write none of these
    // bytes. So it sets the empty member.
    union {
        vexor::detail::Nothing noOrder = {};
        unsigned char pivotOrder[3];
    };
#endif

    double* Elements()
    {
        return &vexor::detail::ElementOf<double, 9>(*this, 0);
    }
};

// ---- Free operators --------------------------------------------------------------------------------

/// Each element times the scalar.
VEXOR_INLINE constexpr Mat3Dbl operator*(Mat3Dbl const& matrix, double scalar)
{
    return Mat3Dbl(matrix.GetRow(0) * scalar, matrix.GetRow(1) * scalar, matrix.GetRow(2) * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Mat3Dbl operator*(double scalar, Mat3Dbl const& matrix)
{
    return matrix * scalar;
}

/// Computes 1 / scalar once and multiplies by it; `operator/=` divides. The two results may differ in the
/// last place.
VEXOR_INLINE constexpr Mat3Dbl operator/(Mat3Dbl const& matrix, double scalar)
{
    return matrix * (1.0 / scalar);
}

/// The negated copy: flips the sign of each element; 0 becomes −0.
VEXOR_INLINE constexpr Mat3Dbl operator-(Mat3Dbl const& matrix)
{
    return matrix.GetNegatedCopy();
}

/// The sum, element by element.
VEXOR_INLINE constexpr Mat3Dbl operator+(Mat3Dbl const& left, Mat3Dbl const& right)
{
    return Mat3Dbl(left.GetRow(0) + right.GetRow(0), left.GetRow(1) + right.GetRow(1),
                   left.GetRow(2) + right.GetRow(2));
}

/// The difference, element by element.
VEXOR_INLINE constexpr Mat3Dbl operator-(Mat3Dbl const& left, Mat3Dbl const& right)
{
    return Mat3Dbl(left.GetRow(0) - right.GetRow(0), left.GetRow(1) - right.GetRow(1),
                   left.GetRow(2) - right.GetRow(2));
}

namespace vexor::detail {

/// Matrix times column vector: the dot products of the rows with the vector.
inline Vec3Dbl ProductInPairs(Mat3Dbl const& matrix, Vec3Dbl const& vector)
{
    // Each component is the sum (x + y) + z of `Vec3Dbl::Dot`; rows 0 and 1 are summed in parallel. Over an
    // array this takes 0.9 (g++ -O3) to 0.65 (clang++ -O3 with AVX2) of the time of three dot products.
    Vec3Dbl const& row0 = matrix.GetRow(0);
    Vec3Dbl const& row1 = matrix.GetRow(1);
    Vec3Dbl const& row2 = matrix.GetRow(2);
    Pair const xy = Pair{vector.x, vector.y};
    Pair const terms2 = Pair{row2.x, row2.y} * xy;
    Pair const sums = vexor::detail::HorizontalSums(Pair{row0.x, row0.y} * xy, Pair{row1.x, row1.y} * xy)
                      + Pair{row0.z, row1.z} * Pair{vector.z, vector.z};
    return Vec3Dbl(sums[0], sums[1], (terms2[0] + terms2[1]) + row2.z * vector.z);
}

} // namespace vexor::detail

/// The matrix product. Each element is ((0.0 + l₀·r₀) + l₁·r₁) + l₂·r₂; the sum starts from 0.0, so no
/// element is −0.
VEXOR_INLINE constexpr Mat3Dbl operator*(Mat3Dbl const& left, Mat3Dbl const& right)
{
    auto const row = [&right](Vec3Dbl const& factors) {
        return ((Vec3Dbl(0.0) + factors.x * right.GetRow(0)) + factors.y * right.GetRow(1))
               + factors.z * right.GetRow(2);
    };
    return Mat3Dbl(row(left.GetRow(0)), row(left.GetRow(1)), row(left.GetRow(2)));
}

/// Matrix times column vector: the dot products of the rows with the vector.
VEXOR_INLINE constexpr Vec3Dbl operator*(Mat3Dbl const& matrix, Vec3Dbl const& vector)
{
    if (VEXOR_CONSTANT_EVALUATED())
        return Vec3Dbl(matrix.GetRow(0).Dot(vector), matrix.GetRow(1).Dot(vector),
                       matrix.GetRow(2).Dot(vector));
    return vexor::detail::ProductInPairs(matrix, vector);
}

/// Matrix times column vector in double, each component rounded to single once.
VEXOR_INLINE Vec3Flt operator*(Mat3Dbl const& matrix, Vec3Flt const& vector)
{
    return (matrix * Vec3Dbl(vector)).ToVec3Flt();
}

/// Matrix times point, in single precision: each coordinate of the product is rounded to single before it is
/// stored as a double, so the result has about seven digits. The product with `Pnt3Dbl::Vector()` keeps full
/// precision.
VEXOR_INLINE Pnt3Dbl operator*(Mat3Dbl const& matrix, Pnt3Dbl const& point)
{
    using vexor::detail::RoundToSingle;
    Vec3Dbl const product = matrix * point.Vector();
    return Pnt3Dbl(RoundToSingle(product.x), RoundToSingle(product.y), RoundToSingle(product.z));
}

/// Matrix times point in double, each coordinate rounded to single once.
VEXOR_INLINE Pnt3Flt operator*(Mat3Dbl const& matrix, Pnt3Flt const& point)
{
    return matrix * point.Vector();
}

// ---- Members of the vectors that name Mat3Dbl --------------------------------------------------------

VEXOR_INLINE constexpr Mat3Dbl Vec3Dbl::OuterProduct(Vec3Dbl const& other) const
{
    return Mat3Dbl(x * other, y * other, z * other);
}

VEXOR_INLINE Mat3Dbl Vec3Flt::OuterProduct(Vec3Flt const& other) const
{
    return Vec3Dbl(*this).OuterProduct(Vec3Dbl(other));
}

VEXOR_EXACT_END
