#include <support/Bench.h>

#include <vexor/elementary.h>
#include <vexor/elementary/private/Fast.h>

// The four functions beside the C library's. "1000" computes independent results; in "chain" each
// argument depends on the result before it. The library chooses the code for this CPU. The code without fused
// multiply-add is compiled once more, so that it can be timed on every CPU.

namespace {

namespace plain = vexor::detail::elementary::plain;

using One = double (*)(double);
using Two = double (*)(double, double);

template <vexor::SineAndCosine (*function)(double)>
double Both(double x)
{
    vexor::SineAndCosine const both = function(x);
    return both.sine + both.cosine;
}

double BothOfLibc(double x)
{
    return std::sin(x) + std::cos(x); // one call of sincos, optimised
}

void Run(benchmark::State& state, std::vector<double> const& x, std::vector<double> const& y, Two function,
         double link)
{
    for (auto _ : state) {
        double last = 0.0;
        double sum = 0.0;
        for (std::size_t i = 0; i < x.size(); ++i) {
            last = function(link != 0.0 ? y[i] + last * link : y[i], x[i]);
            sum += last;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(x.size()));
}

void Register(std::string const& name, char const* library, Two function, double scale)
{
    std::vector<double> const x = bench::Numbers(1000, 1);
    std::vector<double> y = bench::Numbers(1000, 2);
    for (double& each : y)
        each *= scale;
    benchmark::RegisterBenchmark((name + "/" + library + "/1000").c_str(),
                                 [=](benchmark::State& state) { Run(state, x, y, function, 0.0); });
    // Too small to change the argument.
    benchmark::RegisterBenchmark((name + "/" + library + "/chain").c_str(),
                                 [=](benchmark::State& state) { Run(state, x, y, function, 0x1p-900); });
}

template <One function>
double Ignoring(double y, double)
{
    return function(y);
}

[[maybe_unused]] bool const registered = [] {
    char const* const withoutFused = "without fused multiply-add";
    Register("Sin", "vexor", Ignoring<vexor::Sin>, 1.6);
    Register("Sin", withoutFused, Ignoring<plain::Sin>, 1.6);
    Register("Sin", "libc", Ignoring<static_cast<One>(std::sin)>, 1.6);
    Register("Cos", "vexor", Ignoring<vexor::Cos>, 1.6);
    Register("Cos", withoutFused, Ignoring<plain::Cos>, 1.6);
    Register("Cos", "libc", Ignoring<static_cast<One>(std::cos)>, 1.6);
    Register("SinCos", "vexor", Ignoring<Both<vexor::SinCos>>, 1.6);
    Register("SinCos", withoutFused, Ignoring<Both<plain::SinCos>>, 1.6);
    Register("SinCos", "libc", Ignoring<BothOfLibc>, 1.6);
    Register("Acos", "vexor", Ignoring<vexor::Acos>, 0.5);
    Register("Acos", withoutFused, Ignoring<plain::Acos>, 0.5);
    Register("Acos", "libc", Ignoring<static_cast<One>(std::acos)>, 0.5);
    Register("Atan2", "vexor", vexor::Atan2, 1.0);
    Register("Atan2", withoutFused, plain::Atan2, 1.0);
    Register("Atan2", "libc", static_cast<Two>(std::atan2), 1.0);
    return true;
}();

} // namespace
