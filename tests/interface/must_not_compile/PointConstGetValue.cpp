// Reading three coordinates by reference is not const; the form that fills an array is.
// g++: passing .const Pnt3Dbl. as .this. argument discards qualifiers
// clang++: .this. argument to member function .GetValue. has type .const Pnt3Dbl., but function is not marked const|no matching member function for call to .GetValue

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt3Dbl const& p, [[maybe_unused]] double x)
{
#if defined(OFFENCE)
    p.GetValue(x, x, x);
#endif
}
