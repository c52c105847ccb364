// Only the type tells exceptions apart; they have no text.
// g++: has no member named .what
// clang++: no member named .what. in .VexorException

#include <vexor/vexor.h>

void Client([[maybe_unused]] VexorException const& raised)
{
#if defined(OFFENCE)
    raised.what();
#endif
}
