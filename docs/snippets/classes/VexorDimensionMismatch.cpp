#include <vexor/dynamic/MatDbl.h>
#include <vexor/foundation/VexorException.h>

#include <iostream>

int main()
{
    MatDbl const matrix(2, 3, 1.0);
    try {
        VecDbl const product = matrix * VecDbl(2, 1.0); // three columns, two elements
    } catch (VexorDimensionMismatch const&) {
        std::cout << "the sizes do not match\n";
    }
    return 0;
}
