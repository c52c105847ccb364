#include <vexor/extras/stream.h>
#include <vexor/points/Pnt3Dbl.h>

#include <iostream>

int main()
{
    Pnt3Dbl const start(1, 1, 1);
    Pnt3Dbl const end = start + Vec3Dbl(1, 2, 2); // a point moves by a vector
    std::cout << end << '\n'
              << end - start << '\n' // and two points differ by one
              << start.DistanceTo(end) << '\n'
              << (start + 0.5 * (end - start)) << '\n'; // halfway
    return 0;
}
