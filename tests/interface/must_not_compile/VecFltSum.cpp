// Only the double vector adds up its elements.
// g++: has no member named .Sum
// clang++: no member named .Sum. in .VecFlt

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecFlt const& v)
{
#if defined(OFFENCE)
    v.Sum();
#endif
}
