// A place has no length; its vector has.
// g++: has no member named .Length
// clang++: no member named .Length. in .Pnt2Dbl

#include <vexor/vexor.h>

void Client([[maybe_unused]] Pnt2Dbl const& p)
{
#if defined(OFFENCE)
    p.Length();
#endif
}
