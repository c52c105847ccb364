// Vectors and points of both precisions can be assigned, and the number could become any of them.
// g++: ambiguous overload for .operator=
// clang++: use of overloaded operator .=. is ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt2Flt& v)
{
#if defined(OFFENCE)
    v = 0;
#endif
}
