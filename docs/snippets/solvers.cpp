#include <vexor/vexor.h>

#include <cstdio>

int main()
{
    // [small]
    Mat3Dbl small(Vec3Dbl(2, 0, 0), Vec3Dbl(0, 4, 0), Vec3Dbl(1, 0, 8)); // by rows
    Vec3Dbl x(2, 4, 9);
    small.Solve(x); // x is the solution now, and the matrix holds its factors
    std::printf("3x3, solved:     %g %g %g\n", x.x, x.y, x.z);
    Vec3Dbl next(4, 4, 10);
    small.ReSolve(next); // the same system, another right-hand side
    std::printf("3x3, re-solved:  %g %g %g\n", next.x, next.y, next.z);
    // [small]

    // [plane]
    Mat2Dbl plane(Vec2Dbl(2, 1), Vec2Dbl(0, 4));
    Vec2Dbl sides[2] = {Vec2Dbl(4, 8), Vec2Dbl(1, 0)};
    plane.Solve(sides, 2); // any number of right-hand sides; the matrix holds its inverse
    std::printf("2x2, both:      (%g, %g) (%g, %g)\n", sides[0].x, sides[0].y, sides[1].x, sides[1].y);
    // [plane]

    // [dense]
    MatDbl dense(3, 3, 0.0);
    dense.SetDiagonal(4.0);
    dense(0, 1) = 2.0;
    VecDbl b(3, 8.0);
    dense.Solve(b);
    MatDbl more(3, 2, 4.0);
    dense.ReSolve(more); // from the kept factors: each column is a right-hand side
    std::printf("solved:     %g %g %g\n", b[0], b[1], b[2]);
    std::printf("re-solved:  %g %g %g\n", more(0, 1), more(1, 1), more(2, 1));
    // [dense]

    // [symmetric]
    MatDbl symmetric(2, 2, 0.0);
    symmetric(0, 0) = 2.0;
    symmetric(0, 1) = 1.0; // the upper triangle is all that is read
    symmetric(1, 1) = -2.0;
    VecDbl s(2, 5.0);
    symmetric.SolveSym(s);
    std::printf("symmetric:  %g %g\n", s[0], s[1]);
    // [symmetric]

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

    // [plain]
    double factors[4] = {0, 2, 4, 0}; // by rows: (0, 2; 4, 0)
    unsigned char order[2];
    double side[2] = {6, 4};
    if (small_decompose(factors, order, 2) == 0)
        small_substitution(factors, side, order, 2, 1);
    std::printf("plain arrays: %g %g\n", side[0], side[1]);
    // [plain]

    // [failure]
    try {
        MatDbl singular(2, 2, 1.0);
        VecDbl rightSide(2, 1.0);
        singular.Solve(rightSide);
    } catch (VexorComputationFailed const&) {
        std::puts("MatDbl: the driver reported failure");
    }
    try {
        MatDbl fresh(2, 2, 1.0);
        VecDbl rightSide(2, 1.0);
        fresh.ReSolve(rightSide);
    } catch (VexorComputationFailed const&) {
        std::puts("MatDbl: never factorised");
    }
    try {
        Mat3Dbl(1.0).Invert(); // all nine elements are 1
    } catch (VexorSingular const&) {
        std::puts("Mat3Dbl: a column without a pivot");
    }
    try {
        Mat2Dbl(Vec2Dbl(1e-11, 0), Vec2Dbl(0, 1e-11)).Invert();
    } catch (VexorSingular const&) {
        std::puts("Mat2Dbl: |determinant| below 1e-20");
    }
    try {
        Vec3Dbl values;
        Mat3Dbl unit(0.0);
        unit.Identity();
        unit.EigenSym(values, 0);
    } catch (VexorComputationFailed const&) {
        std::puts("Mat3Dbl::EigenSym: three equal eigenvalues");
    }
    // [failure]
}
