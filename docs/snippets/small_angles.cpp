#include <vexor/vexor.h>

#include <cmath>
#include <cstdio>
#include <initializer_list>

int main()
{
    // [vectors]
    double const angle = 1e-8;
    Vec3Dbl const a(1, 0, 0);
    Vec3Dbl const b(std::cos(angle), std::sin(angle), 0);
    std::printf("GetAngleWith           %.3e\n", a.GetAngleWith(b));
    std::printf("atan2 of both products %.3e\n", std::atan2(a.Cross(b).Length(), a.Dot(b)));
    // [vectors]

    // [quaternion]
    Quaternion const q(0, 0, 1, angle, 0); // about Z
    std::printf("GetAngle               %.3e\n", q.GetAngle());
    std::printf("atan2 of its parts     %.3e\n", 2.0 * std::atan2(Vec3Dbl(q.u, q.v, q.w).Length(), q.s));
    // [quaternion]

    // [snapped]
    Vec2Dbl const east(1, 0);
    std::puts("turn       GetCCWAngleWith");
    for (double turn : {1.1e-5, 0.9e-5, -0.9e-5, -1.1e-5})
        std::printf("%8.1e   %.6f\n", turn, east.GetCCWAngleWith(Vec2Dbl(std::cos(turn), std::sin(turn))));
    // [snapped]
}
