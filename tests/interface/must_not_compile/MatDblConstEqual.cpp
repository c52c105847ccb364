// The comparison of two matrices of run-time size is not const, unlike that of vectors.
// g++: discards qualifiers|no match for .operator==
// clang++: invalid operands to binary expression|is not marked const

#include <vexor/vexor.h>

void Client([[maybe_unused]] MatDbl const& m)
{
#if defined(OFFENCE)
    static_cast<void>(m == m);
#endif
}
