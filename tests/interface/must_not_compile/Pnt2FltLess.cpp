// Two points Pnt2Flt have no order, unlike two Pnt3Flt.
// g++: no match for .operator<. .operand types are .const Pnt2Flt. and .const Pnt2Flt
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt2Flt const& p)
{
#if defined(OFFENCE)
    static_cast<void>(p < p);
#endif
}
