// An exception tells its kind by its type, and carries no text.
// g++: has no member named .what
// clang++: no member named .what. in .VexorException

#include <vexor/vexor.h>

void Client([[maybe_unused]] VexorException const& raised)
{
#if defined(OFFENCE)
    raised.what();
#endif
}
