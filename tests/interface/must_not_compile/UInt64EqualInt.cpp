// Converting the number and converting the counter are equally good.
// g++: ambiguous overload for .operator==
// clang++: use of overloaded operator .==. is ambiguous

#include <vexor/vexor.h>

void Client([[maybe_unused]] UInt64& u)
{
#if defined(OFFENCE)
    static_cast<void>(u == 0);
#endif
}
