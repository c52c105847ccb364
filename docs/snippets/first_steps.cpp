#include <vexor/vexor.h>

#include <cmath>
#include <cstdio>

/// To six digits behind the point, and a zero without its sign.
static double Tidy(double value)
{
    return std::round(value * 1e6) / 1e6 + 0.0;
}

static void Print(char const* what, Vec3Dbl const& v)
{
    std::printf("%-22s (%g, %g, %g)\n", what, Tidy(v.x), Tidy(v.y), Tidy(v.z));
}

int main()
{
    // [vectors]
    Vec3Dbl const a(1, 2, 2);
    Vec3Dbl const b(0, 3, 4);
    Print("sum", a + b);
    Print("cross product", a.Cross(b));
    Print("unit vector", a.GetNormalizedCopy()); // a stays as it is
    std::printf("%-22s %g, %g\n", "length, dot product", a.Length(), a.Dot(b));
    // [vectors]

    // [points]
    Pnt3Dbl const start(1, 1, 1);
    Pnt3Dbl const end = start + a;       // a point moves by a vector
    Vec3Dbl const between = end - start; // and two points differ by one
    Print("between", between);
    std::printf("%-22s %g\n", "distance", start.DistanceTo(end));
    // [points]

    // [maps]
    AffMat3Dbl map;
    map.SetRotation(Pnt3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1), 3.141592653589793); // half a turn about x = 1
    Print("a point goes to", (map * Pnt3Dbl(0, 0, 0)).Vector());
    Print("a vector goes to", map * Vec3Dbl(0, 1, 0)); // no translation
    // [maps]

    // [failures]
    try {
        Vec3Dbl(0.0).Normalize();
    } catch (VexorNullVector const&) {
        std::puts("a null vector has no direction");
    }
    // [failures]
}
