// Only the type tells exceptions apart; they have no text.
// g++: no matching function for call to .VexorSingular::VexorSingular.const char
// clang++: no matching conversion for functional-style cast

#include <vexor/vexor.h>

void Client()
{
#if defined(OFFENCE)
    throw VexorSingular("pivot");
#endif
}
