// A literal 0 could be a number or a null pointer, which do different things here. The message shows the remedy.
// g++: .ReSize.* is ambiguous.*write nullptr or 0[.]0
// clang++: .ReSize.* is ambiguous.*write nullptr or 0[.]0

#include <vexor/vexor.h>

void Client([[maybe_unused]] VecFlt& v)
{
#if defined(OFFENCE)
    v.ReSize(3, 0);
#endif
}
