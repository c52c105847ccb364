#include <vexor/extras/stream.h>
#include <vexor/points/Pnt2Flt.h>

#include <iostream>

int main()
{
    Pnt2Flt const corner(0.5f, 1.5f);
    Pnt2Flt const other = corner + Vec2Flt(6, 8);
    std::cout << other << '\n' << corner.DistanceTo(other) << '\n' << Pnt2Dbl(corner) << '\n';
    return 0;
}
