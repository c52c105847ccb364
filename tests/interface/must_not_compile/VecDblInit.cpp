// The shape is changed through ReSize.
// g++: is private within this context
// clang++: is a private member of .VecDbl

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecDbl& v)
{
#if defined(OFFENCE)
    v.Init(1, nullptr);
#endif
}
