#include <vexor/dynamic/VecFlt.h>
#include <vexor/extras/stream.h>

#include <iomanip>
#include <iostream>

int main()
{
    VecFlt samples(3, 0.5f);
    samples[1] = 2;
    std::cout << samples << '\n' << samples.Dot(samples) << '\n';

    VecDbl const precise(samples); // exact
    samples = precise / 3.0;       // an assignment rounds each element
    std::cout << std::setprecision(10) << samples[1] << '\n';
    return 0;
}
