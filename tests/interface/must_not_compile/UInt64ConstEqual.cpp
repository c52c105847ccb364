// Comparing is not const.
// g++: ambiguous overload for .operator==
// clang++: use of overloaded operator .==. is ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] UInt64 const& a, [[maybe_unused]] UInt64 const& b)
{
#if defined(OFFENCE)
    static_cast<void>(a == b);
#endif
}
