#include <vexor/extras/stream.h>
#include <vexor/matrices/AffMat3Dbl.h>

#include <iomanip>
#include <iostream>

int main()
{
    AffMat3Dbl turn;
    turn.SetRotation(Pnt3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1), 3.141592653589793); // half a turn about x = 1
    AffMat3Dbl lift;
    lift.SetTranslation(Vec3Dbl(0, 0, 5));
    AffMat3Dbl const both = lift * turn;                                               // turns first
    std::cout << std::fixed << std::setprecision(3) << both * Pnt3Dbl(4, 0, 0) << '\n' // a place
              << both * Vec3Dbl(4, 0, 0) << '\n' // a displacement: without the translation
              << both.GetInvertedCopy() * (both * Pnt3Dbl(4, 0, 0)) << '\n';
    return 0;
}
