#include <vexor/extras/stream.h>
#include <vexor/matrices/AffMat2Dbl.h>

#include <iostream>

int main()
{
    // A map of 1:2000, whose sheet begins 10 to the right and 5 up.
    AffMat2Dbl const sheet(Mat2Dbl(Vec2Dbl(0.5, 0), Vec2Dbl(0, 0.5)), Vec2Dbl(10, 5));
    std::cout << sheet * Pnt2Dbl(4, 2) << '\n' // a place: scaled and moved
              << sheet * Vec2Dbl(4, 2) << '\n' // a displacement: only scaled
              << sheet.GetInvertedCopy() * Pnt2Dbl(12, 6) << '\n';
    return 0;
}
