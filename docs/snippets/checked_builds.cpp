#include <vexor/vexor.h>

#include <cstdio>

int main()
{
    // [mistake]
    Mat3Dbl system(Vec3Dbl(2, 0, 0), Vec3Dbl(0, 4, 0), Vec3Dbl(0, 0, 8));
    Vec3Dbl x(2, 4, 8);
    system.Solve(x); // the elements are the factors now
    std::printf("%g %g %g\n", x.x, x.y, x.z);
    system(1, 1) = 5;
    Vec3Dbl y(2, 4, 8);
    system.ReSolve(y); // the factors no longer belong to a matrix: a checked build stops here
    std::printf("%g %g %g\n", y.x, y.y, y.z);
    // [mistake]
}
