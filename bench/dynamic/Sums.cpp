#include "Shapes.h"

#include <vexor/vexor.h>

#include <support/Bench.h>

// Running sums beside the limit of their rule: a chain of additions in which each waits for the one
// before it, without loads or multiplications.

namespace {

VecDbl Vector(int size, unsigned seed)
{
    std::vector<double> numbers = bench::Numbers(std::size_t(size), seed);
    VecDbl const view(size, numbers.data());
    return VecDbl(view); // owns its elements
}

/// Prevents the compiler from combining the additions, without a store to memory.
void Opaque(double& value)
{
#if defined(__x86_64__)
    __asm__ volatile("" : "+x"(value));
#elif defined(__aarch64__)
    __asm__ volatile("" : "+w"(value));
#else
    benchmark::DoNotOptimize(value);
#endif
}

double Chain(int size, double term)
{
    double sum = 0.0;
    for (int i = 0; i < size; ++i) {
        sum += term;
        Opaque(sum);
    }
    return sum;
}

template <class Sum>
void RegisterSum(std::string const& operation, int size, Sum sum)
{
    bench::Register(operation, "vexor", std::to_string(size), [=](benchmark::State& state) {
        VecDbl const left = Vector(size, 1);
        VecDbl const right = Vector(size, 2);
        for (auto _ : state) {
            double const result = sum(left, right);
            benchmark::DoNotOptimize(result);
            benchmark::ClobberMemory();
        }
    });
    bench::Register(operation, "additions alone", std::to_string(size), [=](benchmark::State& state) {
        double term = 1.25;
        for (auto _ : state) {
            benchmark::DoNotOptimize(term);
            double const result = Chain(size, term);
            benchmark::DoNotOptimize(result);
        }
    });
}

void CheckSums()
{
    VecDbl const left = Vector(1000, 1);
    VecDbl const right = Vector(1000, 2);
    double sum = 0.0;
    double dot = 0.0;
    double squares = 0.0;
    for (int i = 0; i < 1000; ++i) {
        sum = sum + left[i];
        double const product = left[i] * right[i];
        dot = dot + product;
        double const square = left[i] * left[i];
        squares = squares + square;
    }
    bench::RequireSameBits({left.Sum(), left.Dot(right), left.LengthSquared()}, {sum, dot, squares},
                           "a running sum");
}

[[maybe_unused]] bool const registered = [] {
    CheckSums();
    for (int size : bench::sumSizes) {
        RegisterSum("Sum", size, [](VecDbl const& left, VecDbl const&) { return left.Sum(); });
        RegisterSum("Dot", size, [](VecDbl const& left, VecDbl const& right) { return left.Dot(right); });
        RegisterSum("LengthSquared", size,
                    [](VecDbl const& left, VecDbl const&) { return left.LengthSquared(); });
    }
    return true;
}();

} // namespace
