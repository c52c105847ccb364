#include <vexor/foundation/VexorException.h>
#include <vexor/matrices/Mat3Dbl.h>

#include <iostream>

int main()
{
    // The second row is twice the first.
    Mat3Dbl flat(Vec3Dbl(1, 2, 3), Vec3Dbl(2, 4, 6), Vec3Dbl(0, 0, 1));
    try {
        flat.Invert();
    } catch (VexorSingular const&) {
        std::cout << "no inverse\n";
    }
    return 0;
}
