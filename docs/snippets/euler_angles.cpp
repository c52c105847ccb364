#include <vexor/vexor.h>

#include <cstdio>

static void Print(char const* what, Vec3Dbl const& v)
{
    std::printf("%-26s (%9.6f, %9.6f, %9.6f)\n", what, v.x, v.y, v.z);
}

int main()
{
    // [angles]
    double const degree = 3.141592653589793 / 180.0;
    Vec3Dbl angles(25 * degree, 40 * degree, 70 * degree); // about X, about Y, about Z
    Quaternion q;
    q.SetFromEulerAngles(angles);

    Vec3Dbl p(1, 2, 3);
    Print("rotated at once", q.RotatePoint(p));
    Print("p", p);
    Print("turned about X by angles.x", p.Rotate(Vec3Dbl(1, 0, 0), angles.x));
    Print("then about Y by angles.y", p.Rotate(Vec3Dbl(0, 1, 0), angles.y));
    Print("then about Z by angles.z", p.Rotate(Vec3Dbl(0, 0, 1), angles.z));

    std::printf("u, v, w, s                  %9.6f  %9.6f  %9.6f  %9.6f\n", q.u, q.v, q.w, q.s);
    for (int row = 0; row < 3; ++row)
        Print("a row of the matrix", q.GetRow(row));
    Print("in radians", angles);
    Print("read back", q.GetEulerAngles());
    // [angles]
}
