// Run when the project is configured: does LAPACK return from a parameter that it rejects?
#include <vexor/dynamic/private/Lapack.h>

#include <cstdio>

int main()
{
    using namespace vexor::detail;

    // The workspace must hold two elements.
    int const one = 1;
    double matrix = 1.0;
    double rhs = 1.0;
    double work = 0.0;
    int info[2] = {0, 12345}; // an integer of 64 bits would run over into the second
    dgels_("N", &one, &one, &one, &matrix, &one, &rhs, &one, &work, &one, info, oneLetter);
    if (info[1] == 12345)
        std::printf("returned INFO %d, integers of 32 bits\n", info[0]);
    return 0;
}
