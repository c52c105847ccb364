// The angles are taken by a reference that is not const.
// g++: binding reference of type .Vec3Dbl&. to .const Vec3Dbl. discards qualifiers
// clang++: drops .const. qualifier

#include <vexor/vexor.h>

void Client([[maybe_unused]] Quaternion& q, [[maybe_unused]] Vec3Dbl const& angles)
{
#if defined(OFFENCE)
    q.SetFromEulerAngles(angles);
#endif
}
