// A place has no opposite.
// g++: no match for .operator-. .operand type is .const Pnt3Dbl
// clang++: invalid argument type .const Pnt3Dbl. to unary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt3Dbl const& p)
{
#if defined(OFFENCE)
    static_cast<void>(-p);
#endif
}
