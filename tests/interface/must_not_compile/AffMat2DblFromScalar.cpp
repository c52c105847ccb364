// An affine map of the plane is not filled with a scalar, unlike one of space.
// g++: no matching function for call to .AffMat2Dbl::AffMat2Dbl.double
// clang++: no matching constructor for initialization of .(const )?AffMat2Dbl

#include <vexor/vexor.h>

void Client()
{
#if defined(OFFENCE)
    AffMat2Dbl const filled(0.0);
#endif
}
