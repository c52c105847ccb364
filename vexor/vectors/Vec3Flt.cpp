#include <vexor/vectors/Vec3Flt.h>

Vec3Flt Vec3Flt::GetPerpendicular() const
{
    using vexor::detail::Magnitude;
    Vec3Flt const inPlane(-y, x, 0.0f);
    if (Magnitude(x) >= 0.015625f || Magnitude(y) >= 0.015625f)
        return inPlane.GetNormalizedCopy();
    Vec3Flt const acrossY(z, 0.0f, -x);
    return acrossY.IsZeroLength(-1.0f) ? inPlane.GetNormalizedCopy() : acrossY.GetNormalizedCopy();
}
