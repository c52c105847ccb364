// The getters of a tolerance are not const.
// g++: passing .const VexorTolerance. as .this. argument discards qualifiers
// clang++: .this. argument to member function .GetLength. has type .const VexorTolerance., but function is not marked const

#include <vexor/vexor.h>

void Client([[maybe_unused]] VexorTolerance const& t)
{
#if defined(OFFENCE)
    t.GetLength();
#endif
}
