// The members that call the drivers are private.
// g++: is private within this context
// clang++: is a private member of .MatDbl

#include <vexor/vexor.h>

void Client([[maybe_unused]] MatDbl& m)
{
#if defined(OFFENCE)
    m.DoSolve(nullptr, 1, 1);
#endif
}
