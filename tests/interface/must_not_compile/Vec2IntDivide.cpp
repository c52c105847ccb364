// Integer vectors are never divided.
// g++: no match for .operator/. .operand types are .const Vec2Int. and .int
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec2Int const& v)
{
#if defined(OFFENCE)
    static_cast<void>(v / 2);
#endif
}
