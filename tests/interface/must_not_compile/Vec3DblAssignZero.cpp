// Vectors and points of either precision can be assigned, and the number could be any of them.
// g++: ambiguous overload for .operator=
// clang++: use of overloaded operator .=. is ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec3Dbl& v)
{
#if defined(OFFENCE)
    v = 0;
#endif
}
