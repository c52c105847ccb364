// `*=` of a matrix takes only a scalar.
// g++: cannot convert .const Mat3Dbl. to .double|no match for .operator\*=
// clang++: no viable overloaded .\*=|no viable conversion

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat3Dbl& m, [[maybe_unused]] Mat3Dbl const& n)
{
#if defined(OFFENCE)
    m *= n;
#endif
}
