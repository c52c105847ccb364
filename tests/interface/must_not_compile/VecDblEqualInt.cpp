// A size is no vector: the constructor that takes it is explicit.
// g++: no match for .operator==
// clang++: invalid operands to binary expression

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecDbl const& v)
{
#if defined(OFFENCE)
    static_cast<void>(v == 0);
#endif
}
