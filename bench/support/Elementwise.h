#pragma once
#include <support/Bench.h>

#include <functional>
#include <type_traits>

// One operation of the fixed-size classes, timed over arrays, as a single call and in a chain in which
// each call waits for the one before it. Every library starts from the same numbers.

namespace bench {

/// How many numbers there are for one operand.
inline constexpr std::size_t numbersEach = 9;

inline double const* NumbersOf(std::size_t index, unsigned seed)
{
    // A processor remembers the branches of some thousand elements, and then only the loop that it remembers better is fast.
    constexpr std::size_t different = 100003;
    static std::vector<double> const numbers[] = {Numbers(different * numbersEach, 1),
                                                  Numbers(different * numbersEach, 2)};
    return numbers[seed].data() + index % different * numbersEach;
}

/// The result by the plain rule, from the numbers of the two operands.
using Rule = std::function<std::vector<double>(double const* left, double const* right)>;

/// How closely a library must follow the rule.
enum class Must { GiveTheBits, BeNear, BeFast };

template <class MakeLeft, class MakeRight, class Operation, class Read>
void Elementwise(std::string const& name, char const* library, MakeLeft makeLeft, MakeRight makeRight,
                 Operation operation, Read read, Rule const& rule, Must must)
{
    using Left = decltype(makeLeft(nullptr));
    using Right = decltype(makeRight(nullptr));
    using Result =
        std::decay_t<decltype(operation(std::declval<Left const&>(), std::declval<Right const&>()))>;

    for (std::size_t i = 0; i < 100 && must != Must::BeFast; ++i) {
        Left const left = makeLeft(NumbersOf(i, 0));
        Right const right = makeRight(NumbersOf(i, 1));
        std::vector<double> const actual = read(operation(left, right));
        std::vector<double> const expected = rule(NumbersOf(i, 0), NumbersOf(i, 1));
        if (must == Must::GiveTheBits)
            RequireSameBits(actual, expected, name + " of " + library);
        else
            RequireClose(actual, expected, name + " of " + library);
    }

    for (std::size_t size : {std::size_t(200), std::size_t(1000), std::size_t(1000000)}) {
        Register(name, library, std::to_string(size), [=](benchmark::State& state) {
            std::vector<Left> left;
            std::vector<Right> right;
            for (std::size_t i = 0; i < size; ++i) {
                left.push_back(makeLeft(NumbersOf(i, 0)));
                right.push_back(makeRight(NumbersOf(i, 1)));
            }
            std::vector<Result> result(size);
            auto const pass = [&] {
                for (std::size_t i = 0; i < size; ++i)
                    result[i] = operation(left[i], right[i]);
                benchmark::DoNotOptimize(result.data());
                benchmark::ClobberMemory();
            };
            pass(); // writes the result, which a default constructor need not do
            for (auto _ : state)
                pass();
        });
    }
    Register(name, library, "call", [=](benchmark::State& state) {
        Left left = makeLeft(NumbersOf(0, 0));
        Right right = makeRight(NumbersOf(0, 1));
        for (auto _ : state) {
            benchmark::DoNotOptimize(left);
            benchmark::DoNotOptimize(right);
            Result result = operation(left, right);
            benchmark::DoNotOptimize(result);
        }
    });
    if constexpr (std::is_same_v<Left, Result>) {
        Register(name, library, "chain", [=](benchmark::State& state) {
            Left value = makeLeft(NumbersOf(0, 0));
            Right right = makeRight(NumbersOf(0, 1));
            benchmark::DoNotOptimize(right);
            for (auto _ : state) {
                for (int i = 0; i < 100; ++i)
                    value = operation(value, right);
                benchmark::DoNotOptimize(value);
            }
        });
    }
}

/// For an operation without a second operand.
struct Nothing {};
inline Nothing MakeNothing(double const*)
{
    return {};
}

inline std::vector<double> ReadNumber(double value)
{
    return {value};
}

} // namespace bench
