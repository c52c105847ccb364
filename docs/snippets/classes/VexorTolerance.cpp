#include <vexor/foundation/VexorTolerance.h>
#include <vexor/vectors/Vec3Dbl.h>

#include <iostream>

int main()
{
    Vec3Dbl const a(1, 0, 0);
    Vec3Dbl const b(1, 1e-6, 0);
    std::cout << a.IsParallelTo(b) << '\n';        // gVexorTolerance: an angle of 1e-7
    std::cout << a.IsParallelTo(b, 1e-10) << '\n'; // the square of a sine: 1e-5 or less

    VexorTolerance const before = gVexorTolerance;
    gVexorTolerance.SetAngle(1e-5);
    std::cout << a.IsParallelTo(b) << '\n';
    gVexorTolerance = before;
    return 0;
}
