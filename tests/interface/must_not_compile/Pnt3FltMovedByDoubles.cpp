// Single points of space move by single vectors only, unlike those of the plane.
// g++: no match for .operator\+. .operand types are .const Pnt3Flt. and .const Vec3Dbl
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt3Flt const& p, [[maybe_unused]] Vec3Dbl const& v)
{
#if defined(OFFENCE)
    static_cast<void>(p + v);
#endif
}
