#include <vexor/vexor.h>

/// Raises from inlined code, from the library's code, and directly.
__attribute__((visibility("default"))) void Throw(int which)
{
    switch (which) {
    case 0:
        Vec3Dbl(0.0).Normalize();
        break;
    case 1:
        MatDbl(2, 2, 0.0).Invert();
        break;
    case 2:
        throw VexorSingular();
    default:
        break;
    }
}

__attribute__((visibility("default"))) VexorTolerance* ToleranceSeenByThrower()
{
    return &gVexorTolerance;
}
