// The comparison of two 2×2 matrices is not const, unlike that of 3×3 matrices.
// g++: discards qualifiers|no match for .operator==
// clang++: invalid operands to binary expression|is not marked const

#include <vexor/vexor.h>

void Client([[maybe_unused]] Mat2Dbl const& m)
{
#if defined(OFFENCE)
    static_cast<void>(m == m);
#endif
}
