#include <vexor/matrices/SmallSolver.h>

#include <iostream>

int main()
{
    double matrix[] = {4, 1, 0, //
                       1, 4, 1, //
                       0, 1, 4};
    unsigned char order[3];
    if (small_decompose(matrix, order, 3) != 0) // the factors replace the matrix
        return 1;
    double x[] = {5, 6, 5};
    small_substitution(matrix, x, order, 3, 1); // x is the solution now
    std::cout << x[0] << ' ' << x[1] << ' ' << x[2] << '\n';
    return 0;
}
