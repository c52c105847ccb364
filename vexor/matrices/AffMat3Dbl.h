#pragma once
#include <vexor/matrices/Mat3Dbl.h>

VEXOR_EXACT_BEGIN

/// An affine map of space, x ↦ L·x + t: a linear part L and a translation t. The interface presents it as a
/// 3×4 matrix, with L in columns 0 to 2 and t in column 3. A fourth row (0, 0, 0, 1) is implied and never
/// stored.
///
/// A copy has the twelve numbers but not the row order that a factorisation leaves in L. Indices count from 0
/// and are not checked.
class VEXOR_CLASS AffMat3Dbl {
public:
    // ---- Construction ------------------------------------------------------------------------

    /// The identity map.
    VEXOR_INLINE constexpr AffMat3Dbl()
        : linearPart(Vec3Dbl(1.0, 0.0, 0.0), Vec3Dbl(0.0, 1.0, 0.0), Vec3Dbl(0.0, 0.0, 1.0)), translation(0.0)
    {}
    /// Sets all twelve numbers to the value.
    VEXOR_INLINE constexpr AffMat3Dbl(double value) : linearPart(value), translation(value) {}
    /// The map x ↦ L x + t from its two parts.
    VEXOR_INLINE constexpr AffMat3Dbl(Mat3Dbl const& newLinearPart, Vec3Dbl const& newTranslation)
        : linearPart(newLinearPart), translation(newTranslation)
    {}
    /// Copies the twelve numbers.
    AffMat3Dbl(AffMat3Dbl const&) = default;
    ~AffMat3Dbl() = default;

    /// Copies the twelve numbers.
    AffMat3Dbl& operator=(AffMat3Dbl const&) = default;

    // ---- Exact comparison --------------------------------------------------------------------

    /// Exact equality of all twelve numbers; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(AffMat3Dbl const& other) const
    {
        return linearPart == other.linearPart && translation == other.translation;
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(AffMat3Dbl const& other) const { return !(*this == other); }

    // ---- Access ------------------------------------------------------------------------------

    /// L inside the map: writing to it changes the map.
    VEXOR_INLINE constexpr Mat3Dbl& LinearPart() { return linearPart; }
    /// The same, read-only.
    VEXOR_INLINE constexpr Mat3Dbl const& LinearPart() const { return linearPart; }
    /// t inside the map: writing to it changes the map.
    VEXOR_INLINE constexpr Vec3Dbl& Translation() { return translation; }
    /// The same, read-only.
    VEXOR_INLINE constexpr Vec3Dbl const& Translation() const { return translation; }
    /// Sets L; t is unchanged.
    VEXOR_INLINE constexpr AffMat3Dbl& SetLinearPart(Mat3Dbl const& newLinearPart)
    {
        linearPart = newLinearPart;
        return *this;
    }
    /// Sets t; L is unchanged.
    VEXOR_INLINE constexpr AffMat3Dbl& SetTranslation(Vec3Dbl const& newTranslation)
    {
        translation = newTranslation;
        return *this;
    }
    /// Sets t to `to` − `from`, the displacement that moves the first point to the second if L is the
    /// identity matrix. L is unchanged.
    VEXOR_INLINE constexpr AffMat3Dbl& SetTranslation(Pnt3Dbl const& from, Pnt3Dbl const& to)
    {
        return SetTranslation(to - from);
    }

    /// The element of that row and column; every column of 3 or more is t.
    VEXOR_INLINE constexpr double& operator()(int row, int column)
    {
        return column >= 3 ? translation[row] : linearPart(row, column);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator()(int row, int column) const
    {
        return column >= 3 ? translation[row] : linearPart(row, column);
    }
    /// A copy of a column. Only column 3 is t, unlike in `operator()`.
    VEXOR_INLINE constexpr Vec3Dbl GetCol(int column) const
    {
        return column == 3 ? translation : linearPart.GetCol(static_cast<unsigned int>(column));
    }

    // Twelve doubles, three rows of four, each row of L followed by its element of t. Both forms have the
    // same layout. A fourth row of the caller's array is neither written nor read.

    /// Writes the 3×4 matrix: three rows of four, the translation last in each.
    VEXOR_INLINE constexpr void GetMatrixData(double* const data) const
    {
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 4; ++column)
                data[4 * row + column] = (*this)(row, column);
        }
    }
    /// The same, to an array of rows. A fourth row is unchanged.
    VEXOR_INLINE void GetMatrixData(double (*const data)[4]) const
    {
        GetMatrixData(reinterpret_cast<double*>(data));
    }
    /// Reads the 3×4 matrix: three rows of four, the translation last in each.
    VEXOR_INLINE constexpr void SetMatrixData(double* const data)
    {
        *this = AffMat3Dbl(Mat3Dbl(data, data + 4, data + 8), Vec3Dbl(data[3], data[7], data[11]));
    }
    /// The same, from an array of rows; a fourth row is not read.
    VEXOR_INLINE void SetMatrixData(double (*const data)[4])
    {
        SetMatrixData(reinterpret_cast<double*>(data));
    }

    // ---- Arithmetic on the twelve numbers ----------------------------------------------------

    /// Adds each of the twelve numbers.
    VEXOR_INLINE constexpr AffMat3Dbl& operator+=(AffMat3Dbl const& other)
    {
        linearPart += other.linearPart;
        translation += other.translation;
        return *this;
    }
    /// Subtracts each of the twelve numbers.
    VEXOR_INLINE constexpr AffMat3Dbl& operator-=(AffMat3Dbl const& other)
    {
        linearPart -= other.linearPart;
        translation -= other.translation;
        return *this;
    }
    /// Multiplies each of the twelve numbers, so t too: this is not a composition with a scaling.
    VEXOR_INLINE constexpr AffMat3Dbl& operator*=(double scalar)
    {
        linearPart *= scalar;
        translation *= scalar;
        return *this;
    }
    /// Divides each of the twelve numbers.
    VEXOR_INLINE constexpr AffMat3Dbl& operator/=(double scalar)
    {
        linearPart /= scalar;
        translation /= scalar;
        return *this;
    }
    /// The sum of the twelve numbers. Deliberately not const.
    VEXOR_INLINE constexpr AffMat3Dbl operator+(AffMat3Dbl const& other)
    {
        return AffMat3Dbl(linearPart + other.linearPart, translation + other.translation);
    }
    /// The difference of the twelve numbers. Deliberately not const.
    VEXOR_INLINE constexpr AffMat3Dbl operator-(AffMat3Dbl const& other)
    {
        return AffMat3Dbl(linearPart - other.linearPart, translation - other.translation);
    }

    // ---- The map -----------------------------------------------------------------------------

    /// Sets the identity map.
    VEXOR_INLINE constexpr AffMat3Dbl& Identity()
    {
        linearPart.Identity();
        translation.SetValue(0.0);
        return *this;
    }
    /// Replaces the map by its inverse: `Mat3Dbl::Invert` on L, then t = −(L·t) with the new L. Raises
    /// `VexorSingular`, with t unchanged and L as `Mat3Dbl::Invert` leaves it.
    VEXOR_API AffMat3Dbl& Invert();
    /// The inverse, by `Invert` on a copy.
    VEXOR_API AffMat3Dbl GetInvertedCopy() const;
    /// The rotation by the angle in radians about the line through the point along the axis, a unit vector;
    /// counter-clockwise as seen with the axis pointing at the viewer. The axis is not normalised here. For a
    /// null axis the linear part is cos(angle) at (0, 0) and 0 elsewhere.
    VEXOR_API AffMat3Dbl& SetRotation(Pnt3Dbl const& point, Vec3Dbl const& axis, double angle);
    /// The rotation about the point that turns the direction of `from` into that of `to`. It is the identity
    /// if the squared length of from × to, of `from` or of `to` is within the global's length tolerance: for
    /// parallel, antiparallel and short vectors.
    VEXOR_API AffMat3Dbl& SetRotation(Pnt3Dbl const& point, Vec3Dbl const& from, Vec3Dbl const& to);

private:
    Mat3Dbl linearPart;
    Vec3Dbl translation;
};

// ---- Free operators --------------------------------------------------------------------------------

/// The composition, the right map applied first.
VEXOR_INLINE constexpr AffMat3Dbl operator*(AffMat3Dbl const& left, AffMat3Dbl const& right)
{
    return AffMat3Dbl(left.LinearPart() * right.LinearPart(),
                      (left.LinearPart() * right.Translation()) + left.Translation());
}

/// L·x + t at full precision: L·x is the product with the position vector, since the product with the point
/// rounds to single.
VEXOR_INLINE constexpr Pnt3Dbl operator*(AffMat3Dbl const& map, Pnt3Dbl const& point)
{
    return Pnt3Dbl(map.LinearPart() * point.Vector()) + map.Translation();
}

/// L·x: a vector is not translated.
VEXOR_INLINE constexpr Vec3Dbl operator*(AffMat3Dbl const& map, Vec3Dbl const& vector)
{
    return map.LinearPart() * vector;
}

/// L·x in double, each component rounded to single once: a vector is not translated.
VEXOR_INLINE Vec3Flt operator*(AffMat3Dbl const& map, Vec3Flt const& vector)
{
    return map.LinearPart() * vector;
}

/// L·x rounded to single, then that plus t, formed in double and rounded to single again.
VEXOR_INLINE Pnt3Flt operator*(AffMat3Dbl const& map, Pnt3Flt const& point)
{
    Vec3Flt const product = map.LinearPart() * point.Vector();
    return (Vec3Dbl(product) + map.Translation()).ToVec3Flt();
}

VEXOR_EXACT_END
