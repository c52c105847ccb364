#include <vexor/extras/interpolate.h>

#include <cstdio>

int main()
{
    // A gripper turns by half a radian about the vertical line through (1, 0, 0) while it rises by 2.
    AffMat3Dbl const start;
    AffMat3Dbl end;
    end.SetRotation(Pnt3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1), 0.5);
    end.Translation().z += 2.0;
    for (double t = 0.0; t <= 1.0; t += 0.25) {
        Pnt3Dbl const tool = vexor::InterpolateRigid(start, end, t) * Pnt3Dbl(3, 0, 0);
        std::printf("%.2f: (%.3f, %.3f, %.3f)\n", t, tool.x, tool.y, tool.z);
    }

    Quaternion const half = vexor::Slerp(Quaternion(), Quaternion(Vec3Dbl(0, 0, 1), 0.5, 0), 0.5);
    std::printf("%.3f\n", half.GetAngle());
}
