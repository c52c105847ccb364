#pragma once
#include <vexor/foundation/Config.h>

/// An angular tolerance and a length tolerance, each with the square that predicates use: a sine squared and
/// a squared length.
///
/// The library reads only `gVexorTolerance`, and only its `sin2Angle` and `lengthSquared`. It keeps `angle`
/// and `length` for the caller.
class VEXOR_CLASS VexorTolerance {
public:
    float angle;         ///< Radians.
    float sin2Angle;     ///< Square of the sine of the angle.
    float length;        ///< In the caller's unit of length.
    float lengthSquared; ///< Square of the length.

    /// Sets an angle of 1e-7 and a length of 1e-5. The stored values are constants, the same in every
    /// rounding mode.
    VEXOR_API VexorTolerance();
    /// Copies the four fields.
    VexorTolerance(VexorTolerance const&) = default;
    /// Copies the four fields.
    VexorTolerance& operator=(VexorTolerance const&) = default;
    ~VexorTolerance() = default;

    /// Sets the angle in radians. The sine of the double argument is rounded to single; its square, formed in
    /// double, is rounded to single again. The argument is not validated.
    VEXOR_API void SetAngle(double radians);
    /// The angle in radians, as stored.
    VEXOR_INLINE float GetAngle() { return angle; }
    /// The square of the sine of the angle, as stored.
    VEXOR_INLINE float GetSin2Angle() { return sin2Angle; }

    /// Sets the length in the caller's unit. It is rounded to single first; the square of that single, formed
    /// in double, is rounded to single again. The argument is not validated.
    VEXOR_API void SetLength(double length);
    /// The length, as stored.
    VEXOR_INLINE float GetLength() { return length; }
    /// The square of the length, as stored.
    VEXOR_INLINE float GetLengthSquared() { return lengthSquared; }
};

/// The default tolerances: a predicate uses them if its tolerance argument is negative. Each call reads them
/// without a lock: change them only while no predicate runs.
extern VEXOR_API VexorTolerance gVexorTolerance;
