// The sum of two affine maps is a member that is not const.
// g++: discards qualifiers|no match for .operator\+
// clang++: invalid operands to binary expression|is not marked const

#include <vexor/vexor.h>

void Client([[maybe_unused]] AffMat3Dbl const& m)
{
#if defined(OFFENCE)
    static_cast<void>(m + m);
#endif
}
