// An affine map of the plane is reset by assignment.
// g++: has no member named .Identity
// clang++: no member named .Identity. in .AffMat2Dbl

#include <vexor/vexor.h>

void Client([[maybe_unused]] AffMat2Dbl& m)
{
#if defined(OFFENCE)
    m.Identity();
#endif
}
