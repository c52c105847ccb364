#include <vexor/extras/stream.h>
#include <vexor/vectors/Vec3Dbl.h>

#include <iostream>

int main()
{
    Vec3Dbl const east(1, 0, 0);
    Vec3Dbl const slope(3, 0, 4);
    std::cout << east.Cross(slope) << '\n'
              << slope.GetNormalizedCopy() << '\n' // slope stays as it is
              << slope.GetProjectionOnTo(east) << '\n'
              << east.GetAngleWith(slope) << '\n' // radians
              << slope.IsPerpendicularTo(Vec3Dbl(4, 0, -3)) << '\n';

    Vec3Dbl turned(east);
    turned.Rotate(Vec3Dbl(0, 0, 1), 3.141592653589793); // half a turn about Z
    std::cout << turned.IsCodirectionalTo(-east) << '\n';
    return 0;
}
