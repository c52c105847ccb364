#include <benchmark/benchmark.h>

// The output names the compiler and the flags.
int main(int argc, char** argv)
{
#if defined(__clang__)
    benchmark::AddCustomContext("compiler", "clang++ " __clang_version__);
#else
    benchmark::AddCustomContext("compiler", "g++ " __VERSION__);
#endif
    benchmark::AddCustomContext("flags", VEXOR_BENCH_FLAGS);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
