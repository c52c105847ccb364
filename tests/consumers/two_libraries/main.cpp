#include <vexor/vexor.h>

#include <cstdio>

void Throw(int which);
int CatchInLibrary(int which);
VexorTolerance* ToleranceSeenByThrower();
VexorTolerance* ToleranceSeenByCatcher();

int main()
{
    for (int which = 0; which < 3; ++which) {
        if (CatchInLibrary(which) != which)
            return std::printf("the other library caught %d wrongly\n", which), 1;
    }
    try {
        Throw(1);
        return std::puts("nothing arrived"), 1;
    } catch (VexorComputationFailed&) {
    }
    // The process has one tolerance object, seen from both libraries.
    if (ToleranceSeenByThrower() != &gVexorTolerance || ToleranceSeenByCatcher() != &gVexorTolerance)
        return std::puts("more than one gVexorTolerance"), 1;
    std::puts("0 wrong");
    return 0;
}
