// Narrowing takes an assignment or ToVec3Flt, and is no construction.
// g++: no matching function for call to .Vec3Flt::Vec3Flt.const Vec3Dbl
// clang++: no matching constructor for initialization of .(const )?Vec3Flt

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec3Dbl const& wide)
{
#if defined(OFFENCE)
    Vec3Flt const narrow(wide);
#endif
}
