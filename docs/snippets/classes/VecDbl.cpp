#include <vexor/dynamic/VecDbl.h>
#include <vexor/extras/stream.h>

#include <iostream>

int main()
{
    VecDbl readings(4, 2.0); // four times 2
    readings[3] = 6;
    std::cout << readings << '\n'
              << readings.Sum() / readings.Size() << '\n'
              << readings.MaxValueIdx() << '\n';

    double block[] = {1, 2, 3};
    VecDbl view(3, block); // no copy: writing to the view writes to the block
    view *= 10;
    std::cout << block[2] << '\n';
    return 0;
}
