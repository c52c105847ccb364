// Four numbers do not say whether they are an axis to be normalised.
// g++: no matching function for call to .Quaternion::Quaternion.double, double, double, double
// clang++: no matching constructor for initialization of .(const )?Quaternion

#include <vexor/vexor.h>

void Client()
{
#if defined(OFFENCE)
    Quaternion const turn(0.0, 0.0, 1.0, 0.5);
#endif
}
