#include <vexor/vexor.h>

#include <cstdio>

int main()
{
    // [table]
    double const degree = 3.141592653589793 / 180.0;
    std::puts("angle        w        s   GetAngle  GetAbsoluteAngle");
    for (int angle = -90; angle <= 450; angle += 90) {
        Quaternion const q(0, 0, 1, angle * degree, 0); // about Z
        std::printf("%4d°  %7.4f  %7.4f  %9.4f  %16.4f\n", angle, q.w, q.s, q.GetAngle(),
                    q.GetAbsoluteAngle());
    }
    // [table]
}
