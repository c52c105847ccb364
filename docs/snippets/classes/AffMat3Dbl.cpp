#include <vexor/extras/stream.h>
#include <vexor/matrices/AffMat3Dbl.h>

#include <iomanip>
#include <iostream>

int main()
{
    // Half a turn about the line x = 1, y = 0, then a move by 5 along Z.
    AffMat3Dbl turn;
    turn.SetRotation(Pnt3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1), 3.141592653589793);
    AffMat3Dbl lift;
    lift.SetTranslation(Vec3Dbl(0, 0, 5));
    AffMat3Dbl const both = lift * turn; // the right factor acts first

    std::cout << std::fixed << std::setprecision(3);
    std::cout << both * Pnt3Dbl(4, 0, 0) << '\n'; // a place
    std::cout << both * Vec3Dbl(4, 0, 0) << '\n'; // a displacement: no translation
    std::cout << both.GetInvertedCopy() * (both * Pnt3Dbl(4, 0, 0)) << '\n';
    return 0;
}
