#include <vexor/vexor.h>

#include <cstdio>

/// The number, without the sign of what is printed as zero.
static double Tidy(double value)
{
    return value > -0.0005 && value < 0.0005 ? 0.0 : value;
}

static void Print(char const* what, Vec3Dbl const& v)
{
    std::printf("%-14s (%.3f, %.3f, %.3f)\n", what, Tidy(v.x), Tidy(v.y), Tidy(v.z));
}

int main()
{
    double const quarterTurn = 1.5707963267948966;

    // [set-rotation]
    Pnt3Dbl const p(2, 1, 0);
    Vec3Dbl const axis(0, 0, 1); // of length 1
    AffMat3Dbl m;
    m.SetRotation(p, axis, quarterTurn);
    Print("p stays", (m * p).Vector());
    Print("a point turns", (m * Pnt3Dbl(3, 1, 0)).Vector()); // about p
    Print("translation", m.Translation());                   // p − L·p
    // [set-rotation]

    // [points-and-vectors]
    Pnt3Dbl const from(1, 0, 0);
    Pnt3Dbl const to(4, 0, 0);
    Vec3Dbl const v = to - from;
    Print("m * point", (m * to).Vector());          // L·x + t
    Print("m * vector", m * v);                     // L·v
    Print("the same", m * to - m * from);           // a difference of places
    Print("as a place", (m * Pnt3Dbl(v)).Vector()); // the same numbers, but a point
    // [points-and-vectors]
}
