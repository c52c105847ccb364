#include <vexor/extras/stream.h>
#include <vexor/rotations/Quaternion.h>

#include <iomanip>
#include <iostream>

int main()
{
    // The last argument 0: the axis has length 1 and needs no normalisation.
    double const quarter = 1.5707963267948966;
    Quaternion const aboutX(Vec3Dbl(1, 0, 0), quarter, 0);
    Quaternion const aboutZ(Vec3Dbl(0, 0, 1), quarter, 0);
    Quaternion const both = aboutX * aboutZ; // the right factor acts first

    std::cout << std::fixed << std::setprecision(3);
    std::cout << aboutZ.RotatePoint(Vec3Dbl(1, 0, 0)) << '\n';
    std::cout << both.RotatePoint(Vec3Dbl(1, 0, 0)) << '\n';
    std::cout << both.GetAngle() << " about " << both.GetAxis(1) << '\n';
    std::cout << both.Distance(aboutX) << '\n'; // the angle between the two rotations
    return 0;
}
