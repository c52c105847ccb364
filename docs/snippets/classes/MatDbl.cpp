#include <vexor/dynamic/MatDbl.h>
#include <vexor/extras/stream.h>

#include <iomanip>
#include <iostream>

int main()
{
    MatDbl matrix(2, 2, 1.0); // two rows, two columns, each element 1
    matrix(0, 0) = 3;
    matrix(1, 1) = 2;
    MatDbl factors(matrix);
    VecDbl x(2, 5.0);
    factors.Solve(x); // through LAPACK; the factors stay for further right-hand sides
    VecDbl y(2, 10.0);
    factors.ReSolve(y);
    std::cout << std::setprecision(4) << x << ' ' << y << '\n' << matrix * x << '\n';

    MatDbl symmetric(matrix);
    VecDbl values;
    symmetric.EigenSym(values, 1, 0, 1); // ascending; the vectors replace the rows
    std::cout << values << '\n';
    return 0;
}
