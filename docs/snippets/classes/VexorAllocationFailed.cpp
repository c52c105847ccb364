#include <vexor/dynamic/VecDbl.h>
#include <vexor/foundation/VexorException.h>

#include <iostream>

int main()
{
    try {
        VecDbl const none(0); // a size below 1 counts as an allocation that failed
    } catch (VexorAllocationFailed const&) {
        std::cout << "no storage\n";
    }
    return 0;
}
