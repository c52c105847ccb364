#pragma once
#include <support/Elementwise.h>

// One operation over a whole array: a loop over a member, a peer's loop, or a function of vexor::arrays.

namespace bench {

namespace {

/// Times `pass(left, right, results, count)` over arrays that every library fills with the same numbers.
template <class Result, class MakeLeft, class MakeRight, class Pass>
void OverArrays(std::string const& name, std::string const& library, MakeLeft makeLeft, MakeRight makeRight,
                Pass pass)
{
    using Left = decltype(makeLeft(nullptr));
    using Right = decltype(makeRight(nullptr));
    for (std::size_t size :
         {std::size_t(200), std::size_t(1000), std::size_t(100000), std::size_t(1000000)}) {
        Register(name, library.c_str(), std::to_string(size), [=](benchmark::State& state) {
            std::vector<Left> left;
            std::vector<Right> right;
            for (std::size_t i = 0; i < size; ++i) {
                left.push_back(makeLeft(NumbersOf(i, 0)));
                right.push_back(makeRight(NumbersOf(i, 1)));
            }
            std::vector<Result> results(size);
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
