#include <vexor/vexor.h>

#include <cstdio>

/// The number, without the sign of what is printed as zero.
static double Tidy(double value)
{
    return value > -0.0005 && value < 0.0005 ? 0.0 : value;
}

static void Print(char const* what, Vec3Dbl const& v)
{
    std::printf("%-26s (%.3f, %.3f, %.3f)\n", what, Tidy(v.x), Tidy(v.y), Tidy(v.z));
}

int main()
{
    double const quarterTurn = 1.5707963267948966;
    Vec3Dbl const x(1, 0, 0);
    Vec3Dbl const y(0, 1, 0);
    Vec3Dbl const z(0, 0, 1);

    // [active]
    Quaternion const q(z, quarterTurn, 1);
    Print("X about Z", q.RotatePoint(x));          // Y
    Print("Y about Z", q.RotatePoint(y));          // −X
    Print("and back", q.Inverse().RotatePoint(y)); // X
    Vec3Dbl vector(x);
    vector.Rotate(z, quarterTurn); // the vector's own rotation turns the same way
    Print("by itself", vector);
    // [active]

    // [product]
    Quaternion const a(x, quarterTurn, 1);
    Quaternion const b(z, quarterTurn, 1);
    Print("(a * b) of X", (a * b).RotatePoint(x)); // X to Y by b, then Y to Z by a
    Print("a of (b of X)", a.RotatePoint(b.RotatePoint(x)));
    Print("(b * a) of X", (b * a).RotatePoint(x)); // X stays by a, then to Y by b
    // [product]

    // [rows]
    Mat3Dbl m;
    q.GetRotationMatrix(m);
    Print("column 0, the image of X", m.GetCol(0));
    Print("the same from q", q.GetCol(0));
    Print("row 0", m.GetRow(0));
    Print("m * X", m * x);
    // [rows]

    // [two-values]
    Quaternion minus;
    minus.SetValue(-q.u, -q.v, -q.w, -q.s, 0);
    std::printf("equal: %d\n", q == minus);
    std::printf("apart as rotations: %.1f\n", Tidy(q.Distance(minus)));
    std::printf("angles: %.4f %.4f\n", q.GetAngle(), minus.GetAngle());
    std::printf("absolute: %.4f %.4f\n", q.GetAbsoluteAngle(), minus.GetAbsoluteAngle());
    // [two-values]
}
