#include <vexor/extras/stream.h>
#include <vexor/matrices/Mat3Dbl.h>

#include <iostream>

int main()
{
    Mat3Dbl const m(Vec3Dbl(2, 0, 0), Vec3Dbl(0, 4, 0), Vec3Dbl(1, 0, 8)); // by rows
    std::cout << m * Vec3Dbl(1, 1, 1) << '\n' << m.GetRow(2) << ' ' << m.GetCol(0) << '\n';

    Mat3Dbl system(m);
    Vec3Dbl x(2, 4, 9);
    system.Solve(x); // x is the solution now, and the matrix holds its factors
    Vec3Dbl y(4, 4, 10);
    system.ReSolve(y); // the same system, another right-hand side
    std::cout << x << ' ' << y << '\n';
    return 0;
}
