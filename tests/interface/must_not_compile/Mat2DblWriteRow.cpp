// GetRow of a 2×2 matrix is read-only; SetRow writes.
// g++: passing .const Vec2Dbl. as .this. argument discards qualifiers
// clang++: no viable overloaded .=

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat2Dbl& m, [[maybe_unused]] Vec2Dbl const& row)
{
#if defined(OFFENCE)
    m.GetRow(0) = row;
#endif
}
