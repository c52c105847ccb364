// A row of a matrix of the plane is read through GetRow and written by SetRow.
// g++: passing .const Vec2Dbl. as .this. argument discards qualifiers
// clang++: no viable overloaded .=

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat2Dbl& m, [[maybe_unused]] Vec2Dbl const& row)
{
#if defined(OFFENCE)
    m.GetRow(0) = row;
#endif
}
