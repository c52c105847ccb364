#pragma once
#include <vexor/dynamic/MatDbl.h>
#include <vexor/elementary.h>
#include <vexor/matrices/AffMat2Dbl.h>
#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/matrices/Mat2Dbl.h>
#include <vexor/rotations/Quaternion.h>

// Functions that make a value in one expression, and compositions that programs would otherwise write by
// hand. Sums are added in the order shown; each operation rounds once.

VEXOR_EXACT_BEGIN

namespace vexor {

// ---- Matrices ------------------------------------------------------------------------------------

/// The identity of a fixed-size class: `vexor::Identity<Mat3Dbl>()`; also `Mat2Dbl`, `AffMat3Dbl` and
/// `Quaternion`.
template <class Value>
Value Identity()
{
    Value result;
    result.Identity();
    return result;
}

/// The n×n unit matrix. Raises `VexorAllocationFailed` for n below 1.
inline MatDbl Identity(int n)
{
    MatDbl result(n, n);
    result.Identity();
    return result;
}

/// The 2×2 matrix with these values on the diagonal, zeros elsewhere.
inline Mat2Dbl Diagonal(Vec2Dbl const& values)
{
    return Mat2Dbl(0.0).SetDiagonal(values);
}
/// The 3×3 matrix with these values on the diagonal, zeros elsewhere.
inline Mat3Dbl Diagonal(Vec3Dbl const& values)
{
    return Mat3Dbl(0.0).SetDiagonal(values);
}
/// The n×n matrix with the n values on the diagonal, zeros elsewhere.
inline MatDbl Diagonal(VecDbl const& values)
{
    MatDbl result(values.Size(), values.Size(), 0.0);
    result.SetDiagonal(values);
    return result;
}

/// The 2×2 matrix with these rows.
inline Mat2Dbl FromRows(Vec2Dbl const& row0, Vec2Dbl const& row1)
{
    return Mat2Dbl(row0, row1);
}
/// The 3×3 matrix with these rows.
inline Mat3Dbl FromRows(Vec3Dbl const& row0, Vec3Dbl const& row1, Vec3Dbl const& row2)
{
    return Mat3Dbl(row0, row1, row2);
}
/// The 2×2 matrix with these columns, such as the axes of a frame.
inline Mat2Dbl FromColumns(Vec2Dbl const& column0, Vec2Dbl const& column1)
{
    return Mat2Dbl(column0, column1).GetTransposedCopy();
}
/// The 3×3 matrix with these columns.
inline Mat3Dbl FromColumns(Vec3Dbl const& column0, Vec3Dbl const& column1, Vec3Dbl const& column2)
{
    return Mat3Dbl(column0, column1, column2).GetTransposedCopy();
}

/// The determinant m00·m11 − m01·m10.
inline double Determinant(Mat2Dbl const& matrix)
{
    return matrix.GetRow(0).Cross(matrix.GetRow(1));
}
/// The determinant row 0 · (row 1 × row 2), by `Cross` and `Dot`.
inline double Determinant(Mat3Dbl const& matrix)
{
    return matrix.GetRow(0).Dot(matrix.GetRow(1).Cross(matrix.GetRow(2)));
}

/// The trace m00 + m11.
inline double Trace(Mat2Dbl const& matrix)
{
    return matrix(0, 0) + matrix(1, 1);
}
/// The trace (m00 + m11) + m22.
inline double Trace(Mat3Dbl const& matrix)
{
    return (matrix(0, 0) + matrix(1, 1)) + matrix(2, 2);
}
/// The trace, the sum of the diagonal elements in index order. Raises `VexorDimensionMismatch` unless the
/// matrix is square.
inline double Trace(MatDbl const& matrix)
{
    if (matrix.RowCount() != matrix.ColumnCount())
        throw VexorDimensionMismatch();
    double sum = matrix(0, 0);
    for (int i = 1; i < matrix.RowCount(); ++i)
        sum += matrix(i, i);
    return sum;
}

// ---- Rotations and rigid motions -----------------------------------------------------------------

/// The matrix of `Quaternion::GetRotationMatrix`, returned by value.
inline Mat3Dbl RotationMatrix(Quaternion const& rotation)
{
    Mat3Dbl result;
    rotation.GetRotationMatrix(result);
    return result;
}

/// The map x ↦ R·x + t, with R by `Quaternion::GetRotationMatrix`. A quaternion that is not unit scales as
/// well.
inline AffMat3Dbl AffineMap(Quaternion const& rotation, Vec3Dbl const& translation)
{
    return AffMat3Dbl(RotationMatrix(rotation), translation);
}

/// The two parts of a rigid motion: the rotation acts first.
struct RigidParts {
    Quaternion rotation; ///< Acts first.
    Vec3Dbl translation; ///< Acts on the turned point.
};

/// Splits a map into its two parts, with the rotation by `Quaternion::SetFromMatrix`. The linear part is not
/// checked to be a rotation.
inline RigidParts ToRigidParts(AffMat3Dbl const& map)
{
    return {Quaternion(map.LinearPart()), map.Translation()};
}

/// The rotation by the angle in radians about the line through the point along the direction. The direction
/// may have any length: `GetNormalizedCopy` normalises it before `AffMat3Dbl::SetRotation`. Raises
/// `VexorNullVector` for a null direction.
inline AffMat3Dbl RotationAboutLine(Pnt3Dbl const& point, Vec3Dbl const& direction, double angle)
{
    AffMat3Dbl result;
    result.SetRotation(point, direction.GetNormalizedCopy(), angle);
    return result;
}

// ---- Places --------------------------------------------------------------------------------------

/// The foot of the perpendicular from the point to the plane: p − ((p − o)·n)·n, with n the normal normalised
/// by `GetNormalizedCopy`. Raises `VexorNullVector` for a null normal.
inline Pnt3Dbl ProjectOnPlane(Pnt3Dbl const& point, Pnt3Dbl const& origin, Vec3Dbl const& normal)
{
    Vec3Dbl const unit = normal.GetNormalizedCopy();
    return point - (point - origin).Dot(unit) * unit;
}

/// The foot of the perpendicular from the point to the line: o + ((p − o)·d)·d, with d the direction
/// normalised by `GetNormalizedCopy`. Raises `VexorNullVector` for a null direction.
inline Pnt3Dbl ProjectOnLine(Pnt3Dbl const& point, Pnt3Dbl const& origin, Vec3Dbl const& direction)
{
    Vec3Dbl const unit = direction.GetNormalizedCopy();
    return origin + (point - origin).Dot(unit) * unit;
}
/// The same for a point and a line in the plane.
inline Pnt2Dbl ProjectOnLine(Pnt2Dbl const& point, Pnt2Dbl const& origin, Vec2Dbl const& direction)
{
    Vec2Dbl const unit = direction.GetNormalizedCopy();
    return origin + (point - origin).Dot(unit) * unit;
}

/// An axis-parallel box: `min` to `max` in each coordinate.
template <class Point>
struct Box {
    Point min; ///< The least coordinates.
    Point max; ///< The greatest coordinates.
};

/// The smallest box that holds the points from `first` up to `last`, `Pnt3Dbl` or `Pnt2Dbl`. A NaN coordinate
/// is skipped; of 0.0 and −0.0 the first one stays. If there are no points, or all values of a coordinate are
/// NaN, `min` is +∞ and `max` is −∞ there.
template <class Iterator>
auto BoundingBox(Iterator first, Iterator last)
{
    using Point = std::decay_t<decltype(*first)>;
    constexpr int dimensions = sizeof(Point) / sizeof(double);
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Box<Point> box = {Point(infinity), Point(-infinity)};
    for (; first != last; ++first) {
        Point const& point = *first;
        for (int i = 0; i < dimensions; ++i) {
            if (point[i] < box.min[i])
                box.min[i] = point[i];
            if (point[i] > box.max[i])
                box.max[i] = point[i];
        }
    }
    return box;
}

// ---- Angles at full precision ---------------------------------------------------------------------
// An arc cosine loses half of the digits near 0 and π. These use the arc tangent of sine and cosine: the
// absolute error is a few units of 1e-16 everywhere.

/// The unsigned angle in radians, from 0 to π: Atan2(|a × b|, a·b) of the normalised vectors. Raises
/// `VexorNullVector` for a null vector, unlike `GetAngleWith`, which gives 0.
inline double Angle(Vec3Dbl const& left, Vec3Dbl const& right)
{
    Vec3Dbl const a = left.GetNormalizedCopy();
    Vec3Dbl const b = right.GetNormalizedCopy();
    return Atan2(a.Cross(b).Length(), a.Dot(b));
}
/// The signed angle in radians, above −π and up to π, counter-clockwise from `left` to `right`: Atan2(a × b,
/// a·b) of the normalised vectors. Raises `VexorNullVector` for a null vector.
inline double SignedAngle(Vec2Dbl const& left, Vec2Dbl const& right)
{
    Vec2Dbl const a = left.GetNormalizedCopy();
    Vec2Dbl const b = right.GetNormalizedCopy();
    return Atan2(a.Cross(b), a.Dot(b));
}
/// The unsigned angle of a rotation in radians, from 0 to π: 2·Atan2(|(u, v, w)|, |s|). q and −q give the
/// same angle. The quaternion may have any length except 0.
inline double RotationAngle(Quaternion const& rotation)
{
    double const sine = Vec3Dbl(rotation.u, rotation.v, rotation.w).Length();
    return 2.0 * Atan2(sine, rotation.s < 0.0 ? -rotation.s : rotation.s);
}
/// The unsigned angle in radians, from 0 to π, of the rotation that leads from one to the other:
/// `RotationAngle` of right·left⁻¹, both unit.
inline double Angle(Quaternion const& left, Quaternion const& right)
{
    return RotationAngle(right * left.Inverse());
}

} // namespace vexor

VEXOR_EXACT_END
