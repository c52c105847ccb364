#include <vexor/foundation/VexorException.h>
#include <vexor/vectors/Vec3Dbl.h>

#include <iostream>

int main()
{
    Vec3Dbl nowhere(0, 0, 0);
    try {
        nowhere.Normalize();
    } catch (VexorNullVector const&) {
        std::cout << "no direction\n";
    }
    return 0;
}
