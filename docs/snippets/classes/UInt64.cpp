#include <vexor/extras/stream.h>
#include <vexor/foundation/UInt64.h>

#include <iostream>

int main()
{
    UInt64 count(4294967295); // all bits of the low word
    ++count;
    std::cout << count << ": " << count.highWord << ", " << count.lowWord << '\n';

    count -= 1;
    std::cout << static_cast<double>(count) << '\n';
    return 0;
}
