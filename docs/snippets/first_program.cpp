#include <vexor/vexor.h>

#include <cstdio>

int main()
{
    Vec3Dbl const axis(0, 0, 1);
    Quaternion const quarter(axis, 1.5707963267948966, 0); // a quarter turn about z
    Vec3Dbl const turned = quarter.RotatePoint(Vec3Dbl(1, 0, 0));
    std::printf("(%.3f, %.3f, %.3f)\n", turned.x, turned.y, turned.z);
    std::printf("along y: %d\n", turned.IsCodirectionalTo(Vec3Dbl(0, 2, 0)));

    MatDbl matrix(2, 2, 1.0); // (3, 1; 1, 2)
    matrix(0, 0) = 3.0;
    matrix(1, 1) = 2.0;
    VecDbl solution(2, 5.0);
    matrix.Solve(solution); // through LAPACK, in place
    std::printf("%.3f %.3f\n", solution[0], solution[1]);
}
