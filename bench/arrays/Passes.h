#pragma once
#include <support/Elementwise.h>

#include <map>
#include <utility>

// One operation over a whole array: a loop over a member, a peer's loop, or a function of vexor::arrays.

namespace bench {

namespace {

constexpr std::size_t arraySizes[] = {200, 1000, 100000, 1000000};

/// The largest array's operands. All benchmarks with operands of a kind share them.
template <class Value>
std::vector<Value> const& OperandsOf(Value (*make)(double const*), unsigned seed)
{
    static std::map<std::pair<Value (*)(double const*), unsigned>, std::vector<Value>> made;
    std::vector<Value>& values = made[{make, seed}];
    constexpr std::size_t count = std::end(arraySizes)[-1];
    for (std::size_t i = values.size(); i < count; ++i) {
        values.reserve(count);
        values.push_back(make(NumbersOf(i, seed)));
    }
    return values;
}

/// The largest array's results. All benchmarks with results of a class share them: which of their pages displace operands
/// from a cache is chance, and decides a tenth of the time at the caches' edges.
template <class Result>
std::vector<Result>& ResultsOf()
{
    static std::vector<Result> results(std::end(arraySizes)[-1]);
    return results;
}

/// Times `pass(left, right, results, count)` over arrays that every library fills with the same numbers.
template <class Result, class MakeLeft, class MakeRight, class Pass>
void OverArrays(std::string const& name, std::string const& library, MakeLeft makeLeft, MakeRight makeRight,
                Pass pass)
{
    for (std::size_t size : arraySizes) {
        Register(name, library.c_str(), std::to_string(size), [=](benchmark::State& state) {
            auto const& left = OperandsOf(+makeLeft, 0);
            auto const& right = OperandsOf(+makeRight, 1);
            std::vector<Result>& results = ResultsOf<Result>();
            auto const run = [&] {
                pass(left.data(), right.data(), results.data(), size);
                benchmark::DoNotOptimize(results.data());
                benchmark::ClobberMemory();
            };
            run(); // touches the results
            for (auto _ : state)
                run();
        });
    }
}

/// The same for a loop over an operation on two elements.
template <class Result, class MakeLeft, class MakeRight, class Operation>
void OverElements(std::string const& name, std::string const& library, MakeLeft makeLeft, MakeRight makeRight,
                  Operation operation)
{
    OverArrays<Result>(name, library, makeLeft, makeRight,
                       [operation](auto const* left, auto const* right, Result* results, std::size_t count) {
                           for (std::size_t i = 0; i < count; ++i)
                               results[i] = operation(left[i], right[i]);
                       });
}

/// A matrix that needs no luck to be solved: its diagonal is raised.
inline double Regular(double const* numbers, int i, int k)
{
    return numbers[3 * i + k] + (i == k ? 4.0 : 0.0);
}

inline double Symmetrical(double const* numbers, int i, int k)
{
    return i < k ? numbers[3 * i + k] : numbers[3 * k + i];
}

constexpr double mapNumbers[12] = {0.36, 0.48, -0.8, -0.8, 0.6, 0.0, 0.48, 0.64, 0.6, 1.5, -2.5, 0.25};
constexpr double tolerance = 1e-8;

} // namespace

} // namespace bench
