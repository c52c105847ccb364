#pragma once
#include <vexor/foundation/Config.h>

/// An angular tolerance and a length tolerance, each with the form in which predicates compare it.
///
/// Only `gVexorTolerance` is ever read by the library, and of it only `sin2Angle` and
/// `lengthSquared`; `angle` and `length` are kept for the caller.
class VEXOR_CLASS VexorTolerance {
public:
    float angle;         ///< Radians.
    float sin2Angle;     ///< Square of the sine of the angle.
    float length;        ///< In the caller's unit of length.
    float lengthSquared; ///< Square of the length.

    /// An angle of 1e-7 and a length of 1e-5: constants, the same in every rounding mode.
    VEXOR_API VexorTolerance();
    /// Copies.
    VexorTolerance(VexorTolerance const&) = default;
    /// Copies.
    VexorTolerance& operator=(VexorTolerance const&) = default;
    ~VexorTolerance() = default;

    /// Sets the angle in radians. The sine is taken of the double argument and rounded to single;
    /// its square, formed in double, is rounded to single again. Nothing is validated.
    VEXOR_API void SetAngle(double radians);
    /// The angle in radians, as stored.
    VEXOR_INLINE float GetAngle() { return angle; }
    /// The square of its sine, as stored.
    VEXOR_INLINE float GetSin2Angle() { return sin2Angle; }

    /// Sets the length. The argument is rounded to single first; the square of that single, formed in
    /// double, is rounded to single again. Nothing is validated.
    VEXOR_API void SetLength(double length);
    /// The length, as stored.
    VEXOR_INLINE float GetLength() { return length; }
    /// The square of the length, as stored.
    VEXOR_INLINE float GetLengthSquared() { return lengthSquared; }
};

/// The tolerances that every predicate falls back on when its tolerance argument is negative. They
/// are read at each call. Nothing locks them: change them while no predicate runs.
extern VEXOR_API VexorTolerance gVexorTolerance;
