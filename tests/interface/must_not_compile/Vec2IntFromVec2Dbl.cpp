// An integer vector converts from no other class.
// g++: no matching function for call to .Vec2Int::Vec2Int.const Vec2Dbl
// clang++: no matching constructor for initialization of .(const )?Vec2Int

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec2Dbl const& v)
{
#if defined(OFFENCE)
    Vec2Int const truncated(v);
#endif
}
