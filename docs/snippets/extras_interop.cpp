#include <vexor/extras/interop.h>

#include <cstdio>

int main()
{
    AffMat3Dbl map;
    map.SetTranslation(Vec3Dbl(1, 2, 3));
    std::array<float, 16> const uniform = vexor::ToColumnMajor4x4<float>(map); // for a shader
    std::printf("%g %g %g\n", uniform[12], uniform[13], uniform[14]);
    std::printf("%d\n", vexor::FromColumnMajor4x4(uniform) == map);
}
