#include <vexor/arrays/Arrays.h>

#include <cstdio>
#include <vector>

int main()
{
    std::vector<Pnt3Dbl> points;
    for (int i = 0; i < 1000; ++i)
        points.emplace_back(0.1 * i, 2.0 - i, 0.5);

    Quaternion const turn(Vec3Dbl(0, 0, 1), 1.5707963267948966, 0);
    vexor::arrays::RotatePoint(turn, points, points); // over its operand

    std::vector<Vec3Dbl> directions(points.size());
    vexor::arrays::Subtract(points, points[0], directions);
    directions[0] = Vec3Dbl(1, 0, 0); // the others are not null
    vexor::arrays::Normalize(directions, directions);

    std::vector<unsigned char> alongFirst(points.size());
    vexor::arrays::IsParallelTo(directions, directions[1], alongFirst);
    int count = 0;
    for (unsigned char flag : alongFirst)
        count += flag;

    Pnt3Dbl const centre = vexor::arrays::Centroid(points);
    std::printf("%d parallel; centroid (%.3f, %.3f, %.3f)\n", count, centre.x, centre.y, centre.z);
}
