// RowSum is not const.
// g++: passing .const Mat3Dbl. as .this. argument discards qualifiers
// clang++: .this. argument to member function .RowSum. has type .const Mat3Dbl., but function is not marked const

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat3Dbl const& m)
{
#if defined(OFFENCE)
    m.RowSum();
#endif
}
