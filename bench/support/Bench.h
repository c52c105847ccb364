#pragma once
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

// What the benchmarks share. A benchmark's name is operation/library/size, or operation/library/call
// and operation/library/chain: scripts/bench matches them by the operation and the last field.

namespace bench {

/// Numbers of both signs and of magnitude 0.5 to 2, the same ones for every library.
inline std::vector<double> Numbers(std::size_t count, unsigned seed = 1)
{
    std::mt19937_64 engine(seed);
    std::uniform_real_distribution<double> magnitude(0.5, 2.0);
    std::vector<double> numbers(count);
    for (double& number : numbers)
        number = engine() & 1 ? magnitude(engine) : -magnitude(engine);
    return numbers;
}

/// Ends the program unless the condition holds: a time is worthless if the result is wrong.
inline void Require(bool condition, std::string const& what)
{
    if (condition)
        return;
    std::fprintf(stderr, "bench: wrong result: %s\n", what.c_str());
    std::exit(1);
}

inline void RequireSameBits(std::vector<double> const& actual, std::vector<double> const& expected,
                            std::string const& what)
{
    Require(actual.size() == expected.size()
                && std::memcmp(actual.data(), expected.data(), actual.size() * sizeof(double)) == 0,
            what + " differs from the plain rule");
}

/// For a peer, which may fuse, reorder and multiply by reciprocals.
inline void RequireClose(std::vector<double> const& actual, std::vector<double> const& expected,
                         std::string const& what)
{
    Require(actual.size() == expected.size(), what + " has another size");
    double largest = 0.0;
    for (double value : expected)
        largest = std::max(largest, std::fabs(value));
    for (std::size_t i = 0; i < actual.size(); ++i)
        Require(std::fabs(actual[i] - expected[i]) <= 1e-9 * largest, what + " is not near the plain rule");
}

/// Registers a benchmark that times `body` once an iteration.
template <class Body>
void Register(std::string const& operation, char const* library, std::string const& size, Body body)
{
    std::string const name = operation + "/" + library + "/" + size;
    benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State& state) { body(state); });
}

} // namespace bench
