// The difference of two points is a vector, and no point.
// g++: no match for .operator-=. .operand types are .Pnt3Dbl. and .const Pnt3Dbl
// clang++: no viable overloaded .-=

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt3Dbl& p, [[maybe_unused]] Pnt3Dbl const& q)
{
#if defined(OFFENCE)
    p -= q;
#endif
}
