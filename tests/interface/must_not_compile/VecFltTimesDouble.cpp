// Rounding the scalar and widening the vector are equally good; g++ only warns.
// g++: ISO C\+\+ says that these are ambiguous
// clang++: use of overloaded operator .\*. is ambiguous
// flags: -Werror

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecFlt const& v)
{
#if defined(OFFENCE)
    static_cast<void>(v * 2.0);
#endif
}
