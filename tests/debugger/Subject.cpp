// A program for the debugger to stop in, with one object of every class.

#include <vexor/vexor.h>

void Here() {}

int main()
{
    Vec3Dbl const vec3Dbl(1, 2.5, -3);
    Vec3Flt const vec3Flt(0.1f, 2, 3);
    Vec2Dbl const vec2Dbl(0.1, 2);
    Vec2Flt const vec2Flt(1, 2);
    Vec2Int const vec2Int(-1, 2);
    Pnt3Dbl const pnt3Dbl(1, 2, 3);
    Pnt3Flt const pnt3Flt(1, 2, 3);
    Pnt2Dbl const pnt2Dbl(1, 2);
    Pnt2Flt const pnt2Flt(1, 2);
    Mat3Dbl const mat3Dbl(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 9));
    Mat2Dbl const mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4));
    AffMat2Dbl const affMat2Dbl(mat2Dbl, Vec2Dbl(5, 6));
    Quaternion const quaternion;
    UInt64 const counter(-5);
    double block[6] = {1, 2, 3, 4, 5, 6};
    VecDbl const view(3, block);
    VecDbl const vecDbl(2, 7.0);
    VecFlt const vecFlt(2, 0.5f);
    VecDbl const longVector(20, 1.0);
    MatDbl const matrixView(2, 3, block);
    MatDbl matrix(2, 2, 0.0);
    matrix.SetDiagonal(2.0);
    VecDbl right(2, 4.0);
    matrix.Solve(right);
    VexorTolerance const tolerance;
    Here();
    return 0;
}
