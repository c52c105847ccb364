// Narrowing takes an assignment, and is no construction.
// g++: no matching function for call to .VecFlt::VecFlt.const VecDbl
// clang++: no matching constructor for initialization of .(const )?VecFlt

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecDbl const& wide)
{
#if defined(OFFENCE)
    VecFlt const narrow(wide);
#endif
}
