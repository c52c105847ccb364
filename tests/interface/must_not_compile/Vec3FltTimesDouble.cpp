// A single vector times a double could be a product of singles as well as one of doubles. (Without
// -pedantic-errors g++ warns of that and takes the product of singles.)
// g++: ambiguous overload for .operator\*.
// clang++: use of overloaded operator .\*. is ambiguous
// flags: -pedantic-errors

#include <vexor/vexor.h>

void Client([[maybe_unused]] Vec3Flt const& v)
{
#if defined(OFFENCE)
    static_cast<void>(v * 2.0);
#endif
}
