#include <vexor/extras/make.h>

#include <cstdio>

int main()
{
    Quaternion const quarter(Vec3Dbl(0, 0, 1), 1.5707963267948966, 0);
    AffMat3Dbl const map = vexor::AffineMap(quarter, Vec3Dbl(10, 0, 0));
    Pnt3Dbl const moved = map * Pnt3Dbl(1, 0, 0);
    std::printf("(%.3f, %.3f, %.3f)\n", moved.x, moved.y, moved.z);
    std::printf("determinant %.3f\n", vexor::Determinant(map.LinearPart()));

    Pnt3Dbl const foot = vexor::ProjectOnPlane(Pnt3Dbl(3, 4, 9), Pnt3Dbl(0, 0, 2), Vec3Dbl(0, 0, 1));
    std::printf("(%g, %g, %g)\n", foot.x, foot.y, foot.z);

    Vec3Dbl const a(1, 0, 0);
    Vec3Dbl const b(1, 1e-9, 0);
    std::printf("%g, not %g\n", vexor::Angle(a, b), a.GetAngleWith(b));
}
