// The rows are private.
// g++: is private within this context
// clang++: is a private member of .Mat3Dbl

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat3Dbl& m)
{
#if defined(OFFENCE)
    m.rows[0] = Vec3Dbl(0.0);
#endif
}
