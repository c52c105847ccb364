#include <vexor/extras/stream.h>
#include <vexor/points/Pnt3Flt.h>

#include <iostream>

int main()
{
    Pnt3Flt const vertex(1, 2, 3);
    std::cout << vertex + Vec3Flt(0, 0, 1) << '\n'
              << vertex.DistanceSqTo(Pnt3Flt(1, 2, 5)) << '\n'
              << (vertex - Pnt3Flt(1, 1, 1)).Length() << '\n';
    return 0;
}
