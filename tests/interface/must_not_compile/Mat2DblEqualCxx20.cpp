// Comparison is not const, so C++20 finds both orders of the operands equally good: clang warns.
// clang++: ISO C\+\+20 considers use of overloaded operator .==. .* to be ambiguous
// flags: -std=c++20 -Werror

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat2Dbl& a, [[maybe_unused]] Mat2Dbl& b)
{
#if defined(OFFENCE)
    static_cast<void>(a == b);
#endif
}
