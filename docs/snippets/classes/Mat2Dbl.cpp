#include <vexor/extras/stream.h>
#include <vexor/matrices/Mat2Dbl.h>

#include <iostream>

int main()
{
    Mat2Dbl const stretch(Vec2Dbl(2, 1), Vec2Dbl(1, 2)); // by rows
    std::cout << stretch * Vec2Dbl(1, 0) << '\n' << stretch.GetInvertedCopy() << '\n';

    Mat2Dbl vectors(stretch);
    Vec2Dbl values;
    vectors.EigenSym(values, 1); // the eigenvectors replace the rows
    std::cout << values << '\n';

    Mat2Dbl system(stretch);
    Vec2Dbl x(4, 5);
    system.Solve(x); // x is the solution now
    std::cout << x << '\n';
    return 0;
}
