// The counter is not divided in place.
// g++: no match for .operator/=|ambiguous overload for .operator/=|invalid operands
// clang++: no viable overloaded ./=|ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] UInt64& a, [[maybe_unused]] UInt64 const& b)
{
#if defined(OFFENCE)
    a /= b;
#endif
}
