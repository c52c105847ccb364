#include <vexor/extras/stream.h>
#include <vexor/points/Pnt2Dbl.h>

#include <iostream>

int main()
{
    Pnt2Dbl const station(10, 20);
    Pnt2Dbl const target = station + Vec2Dbl(3, 4); // a point moves by a vector
    std::cout << target << '\n'
              << target - station << '\n' // and two points differ by one
              << station.DistanceTo(target) << '\n'
              << station.IsEqualTo(target, 25.0) << '\n'; // a squared distance
    return 0;
}
