#pragma once
#include <vexor/vectors/Vec3Dbl.h>

namespace vexor::detail {

/// Whether checked builds accept the axis of a rotation that does not normalise it. It must be a unit vector:
/// a squared length within 1e-6 of 1 leaves room for an axis of single precision and for one that went
/// through many rotations. A null axis has a documented result and is accepted. A NaN is also accepted, as by
/// all checks.
inline bool IsRotationAxis(Vec3Dbl const& axis)
{
    double const lengthSquared = axis.LengthSquared();
    return !(std::fabs(lengthSquared - 1.0) > 1e-6) || axis.IsNull();
}

} // namespace vexor::detail
