#include <vexor/extras/stream.h>
#include <vexor/vectors/Vec2Int.h>

#include <iostream>

int main()
{
    Vec2Int const cell(3, -4);
    std::cout << cell + Vec2Int(1, 1) << '\n'
              << cell.Length() << '\n' // the sum of the absolute values
              << cell.MaxAbsValue() << " in element " << cell.MaxAbsValueIdx() << '\n';
    return 0;
}
