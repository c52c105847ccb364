// Only the double vectors measure counter-clockwise angles.
// g++: has no member named .GetCCWAngleWith
// clang++: no member named .GetCCWAngleWith. in .Vec2Flt

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec2Flt const& v)
{
#if defined(OFFENCE)
    v.GetCCWAngleWith(v);
#endif
}
