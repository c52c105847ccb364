#pragma once
#include <vexor/vectors/Vec3Dbl.h>

namespace vexor::detail {

/// What checked builds take for a unit vector where an operation trusts its axis: a squared length within
/// 1e-6 of 1. That leaves room for an axis of single precision, and for one that went through many
/// rotations; a null axis lies outside. A NaN runs through, as everywhere.
inline bool IsUnitAxis(Vec3Dbl const& axis)
{
    return !(std::fabs(axis.LengthSquared() - 1.0) > 1e-6);
}

} // namespace vexor::detail
