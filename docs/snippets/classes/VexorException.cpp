#include <vexor/dynamic/VecDbl.h>
#include <vexor/foundation/VexorException.h>

#include <iostream>

int main()
{
    try {
        VecDbl const sum = VecDbl(2, 1.0) + VecDbl(3, 1.0);
    } catch (VexorException const&) { // any failure of the library
        std::cout << "failed\n";
    }
    return 0;
}
