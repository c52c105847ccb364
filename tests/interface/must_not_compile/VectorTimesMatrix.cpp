// A vector is a column: it stands on the right of a matrix.
// g++: no match for .operator\*. .operand types are .const Vec3Dbl. and .const Mat3Dbl
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec3Dbl const& v, [[maybe_unused]] Mat3Dbl const& m)
{
#if defined(OFFENCE)
    static_cast<void>(v * m);
#endif
}
