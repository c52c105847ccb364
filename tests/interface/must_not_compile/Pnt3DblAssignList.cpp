// Vectors and points of either precision can be assigned, and the list could be any of them.
// g++: ambiguous overload for .operator=
// clang++: use of overloaded operator .=. is ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt3Dbl& v)
{
#if defined(OFFENCE)
    v = {1, 2, 3};
#endif
}
