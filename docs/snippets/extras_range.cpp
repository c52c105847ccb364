#include <vexor/extras/range.h>

#include <cstdio>
#include <numeric>

int main()
{
    Vec3Dbl vector(1, 2, 3);
    for (double& element : vector)
        element *= 10;
    std::printf("%g\n", std::accumulate(begin(vector), end(vector), 0.0));

    MatDbl const matrix = vexor::Matrix({{1, 2}, {3, 4}});
    for (double const element : matrix) // down the columns
        std::printf("%g ", element);
    VecDbl const right = vexor::Vector({5, 6});
    VecDbl const product = matrix * right;
    std::printf("\n%g %g\n", product[0], product[1]);
}
