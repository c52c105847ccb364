#include <vexor/extras/stream.h>
#include <vexor/vectors/Vec2Dbl.h>

#include <iostream>

int main()
{
    Vec2Dbl const leg(3, 4);
    std::cout << leg.Length() << '\n'
              << leg.GetPerpendicular() << '\n'   // to the left, length 1
              << leg.Cross(Vec2Dbl(1, 2)) << '\n' // the area of the parallelogram
              << leg.IsParallelTo(Vec2Dbl(-6, -8)) << '\n';
    return 0;
}
