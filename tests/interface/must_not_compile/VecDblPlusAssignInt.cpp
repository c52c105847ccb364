// A size is no vector: the constructor that takes it is explicit.
// g++: no match for .operator\+=
// clang++: no viable overloaded .\+=

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecDbl& v)
{
#if defined(OFFENCE)
    v += 1;
#endif
}
