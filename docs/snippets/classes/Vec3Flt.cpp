#include <vexor/extras/stream.h>
#include <vexor/vectors/Vec3Flt.h>

#include <iomanip>
#include <iostream>

int main()
{
    Vec3Flt const a(1, 2, 2);
    Vec3Flt const b(0, 3, 4);
    std::cout << a.Cross(b) << '\n' << a.Length() << '\n' << a.GetNormalizedCopy() << '\n';

    Vec3Dbl const tenth(0.1);
    std::cout << std::setprecision(10) << tenth.ToVec3Flt().x << '\n'; // the float nearest to 0.1
    return 0;
}
