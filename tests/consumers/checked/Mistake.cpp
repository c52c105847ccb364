#include <vexor/vexor.h>

#include <cstdio>

/// Without arguments it reads a fourth component.
int main(int count, char**)
{
    Vec3Dbl const vector(1, 2, 3);
    std::printf("%g\n", vector[2 + count]);
    return 0;
}
