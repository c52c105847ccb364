// A size in braces does not lose a fraction.
// g++: narrowing conversion of .* from .double. to .int.
// clang++: type .double. cannot be narrowed to .int.

#include <vexor/vexor.h>

void Client()
{
#if defined(OFFENCE)
    VecDbl const v{3.9};
#endif
}
