#include <vexor/elementary.h>

#include <iomanip>
#include <iostream>

int main()
{
    // The nearest doubles, on every platform.
    std::cout << std::setprecision(17) << vexor::Sin(1.0) << '\n'
              << vexor::Cos(1e22) << '\n'
              << vexor::Atan2(1.0, -1.0) << '\n';
    return 0;
}
