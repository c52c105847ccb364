#pragma once
#include <vexor/foundation/Config.h>
#include <vexor/foundation/detail/Element.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/foundation/VexorException.h>
#include <vexor/matrices/Mat3Dbl.h>
#include <vexor/points/Pnt3Dbl.h>
#include <vexor/vectors/Vec3Dbl.h>

VEXOR_EXACT_BEGIN

/// A rotation in space as four doubles and nothing else: the vector part (u, v, w), which has the layout of a
/// `Vec3Dbl`, then the scalar s. A turn by the angle a about the unit axis n is u, v, w = n·sin(a/2) and s =
/// cos(a/2).
///
/// Rotations are active: they turn the vector, counter-clockwise as seen with the axis pointing at the
/// viewer. Angles are in radians. q and −q are distinct values of the same rotation; no operation picks one
/// of the two. Only `Normalize`, and members that say they call it, make a quaternion unit. A quaternion that
/// is not unit rotates and scales by the squared norm. No member uses a tolerance.
///
/// The trailing int of `SetValue`, of the axis forms and of `GetAxis` is a normalisation flag: 0 uses the
/// input unchanged. It has no default, so that every call states its choice.
class VEXOR_CLASS Quaternion {
public:
    double u; ///< Component 0: the vector part along X.
    double v; ///< Component 1: the vector part along Y.
    double w; ///< Component 2: the vector part along Z.
    double s; ///< Component 3: the scalar part.

    // ---- Construction ------------------------------------------------------------------------

    /// The identity, (0, 0, 0, 1).
    VEXOR_INLINE constexpr Quaternion() : u(0.0), v(0.0), w(0.0), s(1.0) {}
    /// Copies the four components.
    Quaternion(Quaternion const&) = default;
    /// Calls `SetAxisAngle`. The arguments are an axis and an angle, not the four components that `SetValue`
    /// takes.
    VEXOR_INLINE Quaternion(double x, double y, double z, double angle, int normalize)
    {
        SetAxisAngle(x, y, z, angle, normalize);
    }
    /// Calls `SetAxisAngle`.
    VEXOR_INLINE Quaternion(Vec3Dbl const& axis, double angle, int normalize)
    {
        SetAxisAngle(axis, angle, normalize);
    }
    /// Calls `SetFromMatrix`.
    VEXOR_INLINE Quaternion(Mat3Dbl const& matrix) { SetFromMatrix(matrix); }
    ~Quaternion() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies the four components.
    Quaternion& operator=(Quaternion const&) = default;

    /// Component 0, 1 or 2 of the vector part; every index of 3 or more is the scalar. A negative index is
    /// not checked.
    VEXOR_INLINE constexpr double& operator[](int index)
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index < 3 ? index : 3, u, v, w, s)
                                          : vexor::detail::ElementOf<double, 4>(*this, index < 3 ? index : 3);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator[](int index) const
    {
        return VEXOR_CONSTANT_EVALUATED()
                   ? vexor::detail::FieldOf(index < 3 ? index : 3, u, v, w, s)
                   : vexor::detail::ElementOf<double const, 4>(*this, index < 3 ? index : 3);
    }

    // ---- Exact comparison --------------------------------------------------------------------

    /// Exact equality of all four components; a NaN is unequal to everything. q and −q are unequal.
    VEXOR_INLINE constexpr bool operator==(Quaternion const& other) const
    {
        return u == other.u && v == other.v && w == other.w && s == other.s;
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr bool operator!=(Quaternion const& other) const { return !(*this == other); }
    /// Strict lexicographic order of (u, v, w, s): the first component that is not equal decides. A NaN
    /// there gives false.
    VEXOR_INLINE constexpr bool operator<(Quaternion const& other) const
    {
        Vec3Dbl const mine(u, v, w);
        Vec3Dbl const others(other.u, other.v, other.w);
        return mine < others || (mine == others && s < other.s);
    }

    // ---- Components --------------------------------------------------------------------------

    /// The scalar part. Deliberately not const.
    VEXOR_INLINE constexpr double GetSParam() { return s; }
    /// A copy of the vector part.
    VEXOR_INLINE constexpr Vec3Dbl GetUvwParam() { return Vec3Dbl(u, v, w); }
    /// Sets (0, 0, 0, 1).
    VEXOR_INLINE constexpr Quaternion& Identity() { return SetValue(0.0, 0.0, 0.0, 1.0, 0); }
    /// 1 if the vector part is exactly 0. The scalar is not tested: (0, 0, 0, −1) and even (0, 0, 0, 0) give
    /// 1.
    VEXOR_INLINE constexpr int IsIdentity() const { return Vec3Dbl(u, v, w).IsNull(); }
    /// Stores the four components. A flag other than 0 then calls `Normalize`.
    VEXOR_INLINE constexpr Quaternion& SetValue(double u0, double v0, double w0, double s0, int normalize)
    {
        u = u0;
        v = v0;
        w = w0;
        s = s0;
        return normalize != 0 ? Normalize() : *this;
    }
    /// Multiplies by 1 / √(((u² + v²) + w²) + s²), a reciprocal formed once, then clamps s into [−1, 1]. If
    /// the vector part is exactly 0, s becomes 1 whatever it was: (0, 0, 0, 0) and (0, 0, 0, −1) become the
    /// identity, without an exception. Unlike in the vectors, the sum is a plain one. For components above
    /// about 1e154 it overflows and below 1e-162 it is 0: the components then become zeros, infinities or
    /// NaN. Between 1e-162 and 1e-154 they lose digits.
    VEXOR_INLINE Quaternion& Normalize()
    {
        if (IsIdentity()) {
            s = 1.0;
            return *this;
        }
        double const reciprocal = 1.0 / vexor::detail::SquareRoot(((u * u + v * v) + w * w) + s * s);
        SetValue(u * reciprocal, v * reciprocal, w * reciprocal, s * reciprocal, 0);
        if (s > 1.0)
            s = 1.0;
        else if (s < -1.0)
            s = -1.0;
        return *this;
    }

    // ---- Algebra -----------------------------------------------------------------------------

    /// Conjugates: flips the signs of u, v and w. It does not divide by the squared norm, so the result is
    /// the inverse of a unit quaternion only.
    VEXOR_INLINE constexpr Quaternion& Invert() { return SetValue(-u, -v, -w, s, 0); }
    /// The same operation as `Invert`.
    VEXOR_INLINE constexpr Quaternion& NegateAngle() { return Invert(); }
    /// The inverse, by `Invert` on a copy.
    VEXOR_INLINE constexpr Quaternion Inverse() const
    {
        Quaternion result(*this);
        result.Invert();
        return result;
    }
    /// The Hamilton product, this quaternion on the left: the rotation that applies `right` first. The
    /// terms of each sum are added from left to right, and the result is not normalised.
    VEXOR_INLINE constexpr Quaternion operator*(Quaternion const& right) const
    {
        Quaternion result;
        result.u = s * right.u + u * right.s + v * right.w - w * right.v;
        result.v = s * right.v + v * right.s + w * right.u - u * right.w;
        result.w = s * right.w + w * right.s + u * right.v - v * right.u;
        result.s = s * right.s - u * right.u - v * right.v - w * right.w;
        return result;
    }
    /// The rotated vector: with n = (u, v, w) and t = s·p + n × p, it is ((p·n)·n + s·t) − t × n. That is
    /// the vector part of q·p·q̄, so a quaternion that is not unit scales by its squared norm.
    VEXOR_INLINE constexpr Vec3Dbl RotatePoint(Vec3Dbl const& vector) const
    {
        Vec3Dbl const n(u, v, w);
        Vec3Dbl const t = s * vector + n.Cross(vector);
        double const d = vector.Dot(n);
        return (d * n + s * t) - t.Cross(n);
    }
    /// The point turned about the origin, by the rotation of its position vector.
    VEXOR_INLINE constexpr Pnt3Dbl RotatePoint(Pnt3Dbl const& point) const
    {
        return RotatePoint(point.Vector());
    }

    // ---- Angles ------------------------------------------------------------------------------

    /// The signed angle in radians about the stored axis, above −π and up to π: 2·acos(s), minus 2π if that
    /// is above π. So a negative s gives a negative angle, and s = 0 gives π. The axis is not used. An arc
    /// cosine loses half the digits near 0: below about 2e-8 the angle is 0. docs/conventions.md shows how to
    /// get a small angle with all digits.
    VEXOR_INLINE double GetAngle() const
    {
        double const angle = 2.0 * vexor::detail::ClampedArcCosine(s);
        return angle > vexor::detail::pi ? angle - vexor::detail::twoPi : angle;
    }
    /// The unsigned angle in radians, from 0 to π: 2·acos(|s|). q and −q give the same angle. Small angles
    /// lose digits as in `GetAngle`.
    VEXOR_INLINE double GetAbsoluteAngle() const
    {
        return 2.0 * vexor::detail::ClampedArcCosine(vexor::detail::Magnitude(s));
    }
    /// The unsigned angle in radians, from 0 to π, of the rotation that leads from one to the other; −0.0 if
    /// the two are equal or opposite. Small angles lose digits as in `GetAngle`.
    VEXOR_INLINE double Distance(Quaternion const& other) const
    {
        Quaternion relative = *this * other.Inverse();
        relative.Normalize();
        return vexor::detail::Magnitude(relative.GetAbsoluteAngle());
    }

    // ---- Axis and angle ----------------------------------------------------------------------
    // A flag other than 0 normalises the axis by `Vec3Dbl::Normalize`, which divides each component. It
    // raises `VexorNullVector` for a null axis, which is then stored in u, v and w; s is unchanged. With the
    // flag 0 the axis is used unchanged: one that is not unit gives a quaternion that is not unit.

    /// (axis·sin(angle/2), cos(angle/2)). The angle is not wrapped: 2π gives s = −1.
    VEXOR_API Quaternion& SetAxisAngle(double x, double y, double z, double angle, int normalize);
    /// As above, with the axis as a vector.
    VEXOR_INLINE Quaternion& SetAxisAngle(Vec3Dbl const& axis, double angle, int normalize)
    {
        return SetAxisAngle(axis.x, axis.y, axis.z, angle, normalize);
    }
    /// (axis·√((1 − c)/2), √((c + 1)/2)), without a trigonometric call: the angle is the one from 0 to π. A
    /// cosine outside [−1, 1] is not clamped and gives NaN.
    VEXOR_API Quaternion& SetAxisCosAngle(Vec3Dbl const& axis, double cosine, int normalize);
    /// The vector part, normalised if the flag is not 0; (0, 1, 0) if it is exactly 0, for either flag.
    VEXOR_INLINE Vec3Dbl GetAxis(int normalize) const
    {
        Vec3Dbl axis(u, v, w);
        if (axis.IsNull())
            return Vec3Dbl(0.0, 1.0, 0.0);
        return normalize != 0 ? axis.Normalize() : axis;
    }

    // ---- Matrices and basis vectors ----------------------------------------------------------

    /// Sets the rotation that the matrix describes, then calls `Normalize`. The formula starts from the
    /// largest of the trace and the three diagonal elements, the earliest on a tie. If it starts from the
    /// trace, s is positive; if from a diagonal element, the component of that index is. The matrix is not
    /// checked to be a rotation; the zero matrix gives the identity.
    VEXOR_API Quaternion& SetFromMatrix(Mat3Dbl const& matrix);
    /// Writes the rotation as a matrix that acts on column vectors from the left. A quaternion that is not
    /// unit gives the rotation times the squared norm.
    VEXOR_INLINE constexpr void GetRotationMatrix(Mat3Dbl& matrix) const
    {
        double const uu = u * u;
        double const vv = v * v;
        double const ww = w * w;
        double const ss = s * s;
        matrix.SetValue(Vec3Dbl(ss + uu - vv - ww, 2.0 * (u * v - w * s), 2.0 * (u * w + v * s)),
                        Vec3Dbl(2.0 * (u * v + w * s), ss - uu + vv - ww, 2.0 * (v * w - u * s)),
                        Vec3Dbl(2.0 * (u * w - v * s), 2.0 * (v * w + u * s), ss - uu - vv + ww));
    }
    /// Column 0, 1 or 2 of the rotation: the basis vector of that index, rotated by `RotatePoint`. The
    /// index is not checked.
    VEXOR_INLINE constexpr Vec3Dbl GetCol(int index) const
    {
        Vec3Dbl basis(0.0);
        basis[index] = 1.0;
        return RotatePoint(basis);
    }
    /// Row 0, 1 or 2 of the rotation: that column of the conjugate.
    VEXOR_INLINE constexpr Vec3Dbl GetRow(int index) const { return Inverse().GetCol(index); }
    /// The rotated X axis, `GetCol(0)`.
    VEXOR_INLINE constexpr Vec3Dbl XAxis() const { return GetCol(0); }
    /// The rotated Y axis, `GetCol(1)`.
    VEXOR_INLINE constexpr Vec3Dbl YAxis() const { return GetCol(1); }
    /// The rotated Z axis, `GetCol(2)`.
    VEXOR_INLINE constexpr Vec3Dbl ZAxis() const { return GetCol(2); }

    // ---- Euler angles ------------------------------------------------------------------------
    // The rotation matrix is Rz(z)·Ry(y)·Rx(x) about the fixed axes: the turn about X acts first.

    /// The angles in radians: y from −π/2 to π/2, x and z from −π to π. If the cosine of y is within 1e-10 of
    /// 0 (gimbal lock), z is 0 and x holds the whole turn about the axis that X and Z then share.
    VEXOR_API Vec3Dbl GetEulerAngles() const;
    /// The normalised product qz·(qy·qx) of the three turns. The angles are in radians; the argument is not
    /// changed.
    VEXOR_API Quaternion& SetFromEulerAngles(Vec3Dbl& angles);
};

VEXOR_EXACT_END
