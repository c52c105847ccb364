#include <vexor/dynamic/MatDbl.h>
#include <vexor/foundation/VexorException.h>

#include <iostream>

int main()
{
    MatDbl singular(2, 2, 1.0);
    VecDbl x(2, 1.0);
    try {
        singular.Solve(x);
    } catch (VexorComputationFailed const&) {
        std::cout << "LAPACK found no solution\n";
    }
    return 0;
}
