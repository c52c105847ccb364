#include <vexor/vectors/Vec2Dbl.h>

double Vec2Dbl::GetCCWAngleWith(Vec2Dbl const& other) const
{
    return Vec3Dbl(x, y, 0.0).GetCCWAngleWith(Vec3Dbl(other.x, other.y, 0.0), Vec3Dbl(0.0, 0.0, 1.0));
}
