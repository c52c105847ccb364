// A single vector has no order.
// g++: no match for .operator<. .operand types are .const Vec3Flt
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec3Flt const& a, [[maybe_unused]] Vec3Flt const& b)
{
#if defined(OFFENCE)
    static_cast<void>(a < b);
#endif
}
