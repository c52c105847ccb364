// A matrix of the plane moves no points; an affine map does.
// g++: no match for .operator\*. .operand types are .const Mat2Dbl. and .const Pnt2Dbl
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat2Dbl const& m, [[maybe_unused]] Pnt2Dbl const& p)
{
#if defined(OFFENCE)
    static_cast<void>(m * p);
#endif
}
