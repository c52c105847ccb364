#include <vexor/extras/stream.h>
#include <vexor/vectors/Vec2Flt.h>

#include <iostream>

int main()
{
    Vec2Flt const texel(0.25f, 0.5f);
    std::cout << texel * 2.0f << '\n' << texel.Dot(Vec2Flt(4, 2)) << '\n';

    Vec2Dbl const precise(texel);             // exact
    Vec2Flt const back = precise.ToVec2Flt(); // rounds each component
    std::cout << (back == texel) << '\n';
    return 0;
}
