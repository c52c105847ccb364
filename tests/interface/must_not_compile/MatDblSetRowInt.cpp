// A size does not convert to a vector: the constructor that takes it is explicit.
// g++: cannot convert .int. to .const VecDbl&
// clang++: could not bind to an rvalue of type .int.

#include <vexor/vexor.h>

void Client([[maybe_unused]] MatDbl& m)
{
#if defined(OFFENCE)
    m.SetRow(0, 1);
#endif
}
