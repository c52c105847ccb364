#include <vexor/extras/stream.h>
#include <vexor/vexor.h>

#include <iomanip>
#include <iostream>

int main()
{
    Mat2Dbl const matrix(Vec2Dbl(1, 2), Vec2Dbl(3, 4));
    std::cout << Vec3Dbl(1, 2, 3) << '\n'
              << matrix << '\n'
              << Quaternion() << '\n'
              << std::setprecision(17) << Pnt2Dbl(0.1, 1.0 / 3.0) << '\n';
}
