#include <vexor/vexor.h>

#include <cstdio>

int main()
{
    // [small]
    Mat3Dbl small(Vec3Dbl(2, 0, 0), Vec3Dbl(0, 4, 0), Vec3Dbl(1, 0, 8));
    Vec3Dbl x(2, 4, 9);
    small.Solve(x); // the matrix now holds its factors
    std::printf("%g %g %g\n", x.x, x.y, x.z);
    Vec3Dbl next(4, 4, 10);
    small.ReSolve(next); // the same matrix, another right-hand side
    std::printf("%g %g %g\n", next.x, next.y, next.z);
    // [small]

    // [dense]
    MatDbl dense(3, 3, 0.0);
    dense.SetDiagonal(4.0);
    dense(0, 1) = 2.0;
    VecDbl b(3, 8.0);
    dense.Solve(b);
    VecDbl c(3, 4.0);
    dense.ReSolve(c); // from the kept factors, as often as there are right-hand sides
    std::printf("%g %g %g, %g %g %g\n", b[0], b[1], b[2], c[0], c[1], c[2]);
    // [dense]

    // [least-squares]
    // A line through (0, 1), (1, 3), (2, 5), (3, 7): one row a point, columns for 1 and x.
    MatDbl design(4, 2, 1.0);
    VecDbl y(4);
    for (int i = 0; i < 4; ++i) {
        design(i, 1) = i;
        y[i] = 1.0 + 2.0 * i;
    }
    design.SolveLinearLeastSquares(y); // y comes back with as many elements as columns
    std::printf("%d coefficients: %.6f + %.6f x\n", y.Size(), y[0], y[1]);
    // [least-squares]

    // [failure]
    try {
        MatDbl singular(2, 2, 1.0);
        VecDbl rightSide(2, 1.0);
        singular.Solve(rightSide);
    } catch (VexorComputationFailed const&) {
        std::puts("MatDbl: the driver reported failure");
    }
    try {
        Mat2Dbl tiny(Vec2Dbl(1e-11, 0), Vec2Dbl(0, 1e-11));
        tiny.Invert();
    } catch (VexorSingular const&) {
        std::puts("Mat2Dbl: |determinant| below 1e-20");
    }
    // [failure]
}
