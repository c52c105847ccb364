// Either matrix could be converted to the type of the other. C++17 takes the conversion, which transposes.
// g++: ambiguous overload for .operator==
// clang++: use of overloaded operator .==. is ambiguous
// flags: -std=c++20

#include <vexor/vexor.h>

void Client([[maybe_unused]] MatDbl& a, [[maybe_unused]] Mat3Dbl const& b)
{
#if defined(OFFENCE)
    static_cast<void>(a == b);
#endif
}
