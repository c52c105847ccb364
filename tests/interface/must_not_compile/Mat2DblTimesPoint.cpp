// A 2×2 matrix has no product with a point; an affine map has.
// g++: no match for .operator\*. .operand types are .const Mat2Dbl. and .const Pnt2Dbl
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat2Dbl const& m, [[maybe_unused]] Pnt2Dbl const& p)
{
#if defined(OFFENCE)
    static_cast<void>(m * p);
#endif
}
