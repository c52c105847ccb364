#include <vexor/extras/format.h>
#include <vexor/vectors/Vec3Dbl.h>

int main()
{
    fmt::print("{}\n", Vec3Dbl(1, 2, 0.1));
    fmt::print("{:.3f}\n", Vec3Dbl(1, 2, 0.1));
    fmt::print("{:a}\n", Vec3Dbl(1, 2, 0.5));
}
