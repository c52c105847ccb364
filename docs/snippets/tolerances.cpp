#include <vexor/vexor.h>

#include <cmath>
#include <cstdio>

int main()
{
    // [forms]
    Vec3Dbl const a(1, 0, 0);
    Vec3Dbl const b(1, 0.001, 0); // about a milliradian off
    double const angle = 0.002;
    double const sine = std::sin(angle);
    std::printf("%d\n", a.IsParallelTo(b));              // the default: 1e-7 radians
    std::printf("%d\n", a.IsParallelTo(b, sine * sine)); // an angular tolerance is a sine squared
    // [forms]

    // [lengths]
    std::printf("%d\n", Vec3Dbl(0.009, 0, 0).IsZeroLength(1e-4));                // a length squared: 0.01²
    std::printf("%d\n", Pnt3Dbl(0.009, 0, 0).IsEqualTo(Pnt3Dbl(0, 0, 0), 1e-4)); // points: a plain length
    // [lengths]

    // [boundary]
    double const squared = Vec3Dbl(3, 4, 0).LengthSquared();                          // 25
    std::printf("%d\n", Vec3Dbl(3, 4, 0).IsZeroLength(squared));                      // inclusive
    std::printf("%d\n", Vec3Dbl(3, 4, 0).IsZeroLength(std::nextafter(squared, 0.0))); // one place less
    // [boundary]

    // [global]
    gVexorTolerance.SetLength(0.5); // every predicate with a negative argument, from now on
    std::printf("%d\n", Vec3Dbl(0.1, 0, 0).IsZeroLength());
    gVexorTolerance = VexorTolerance(); // back to the defaults
    std::printf("%d\n", Vec3Dbl(0.1, 0, 0).IsZeroLength());
    // [global]

    // [short]
    Vec3Dbl const tiny(1e-6, 0, 0); // not null, but within the global's length
    std::printf("%d %d\n", tiny == tiny, tiny.IsEqualTo(tiny));
    // [short]
}
