// Reading the scalar part is not const, unlike every other query.
// g++: passing .const Quaternion. as .this. argument discards qualifiers
// clang++: .this. argument to member function .GetSParam. has type .const Quaternion., but function is not marked const

#include <vexor/vexor.h>

void Client([[maybe_unused]] Quaternion const& q)
{
#if defined(OFFENCE)
    q.GetSParam();
#endif
}
