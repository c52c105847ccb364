// The counter has only the inclusive comparisons.
// g++: ambiguous overload for .operator<
// clang++: use of overloaded operator .<. is ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] UInt64& a, [[maybe_unused]] UInt64& b)
{
#if defined(OFFENCE)
    static_cast<void>(a < b);
#endif
}
