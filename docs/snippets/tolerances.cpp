#include <vexor/vexor.h>

#include <cmath>
#include <cstdio>

int main()
{
    // [forms]
    Vec3Dbl const a(1, 0, 0);
    Vec3Dbl const b(1, 0.001, 0); // a milliradian off
    double const sine = std::sin(0.002);
    std::printf("by default, 1e-7 radians:  %d\n", a.IsParallelTo(b));
    std::printf("within 2 milliradians:     %d\n", a.IsParallelTo(b, sine * sine)); // a sine squared
    // [forms]

    // [lengths]
    std::printf("a vector and 1e-4:         %d\n", Vec3Dbl(0.009, 0, 0).IsZeroLength(1e-4)); // of 0.01²
    std::printf("a point and 1e-4:          %d\n",
                Pnt3Dbl(0.009, 0, 0).IsEqualTo(Pnt3Dbl(0, 0, 0), 1e-4)); // a plain length
    // [lengths]

    // [global]
    gVexorTolerance.SetLength(0.5); // every predicate with a negative argument, from now on
    std::printf("length 0.5 set globally:   %d\n", Vec3Dbl(0.5, 0, 0).IsZeroLength());
    std::printf("0 asks for the exact test: %d\n", Vec3Dbl(0.5, 0, 0).IsZeroLength(0.0));
    gVexorTolerance = VexorTolerance(); // back to the defaults
    std::printf("the default again:         %d\n", Vec3Dbl(0.5, 0, 0).IsZeroLength());
    // [global]

    // [short]
    Vec3Dbl const tiny(1e-6, 0, 0); // not null, but within the global's length
    Vec3Dbl const same(1e-6, 0, 0);
    std::printf("%d %d %d\n", tiny == same, tiny.IsEqualTo(same), tiny.IsEqualTo(same, -1.0, 1.0));
    // [short]
}
