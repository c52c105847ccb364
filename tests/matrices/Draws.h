#pragma once
#include <cmath>
#include <cstdint>
#include <limits>

// Operands for comparisons with a reference: the same in every run and on every platform.

namespace vexor_test {

class Draws {
public:
    explicit Draws(std::uint64_t seed) : state(seed) {}

    std::uint64_t Next()
    {
        state += 0x9e3779b97f4a7c15;
        std::uint64_t z = state;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
        z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
        return z ^ (z >> 31);
    }
    int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }
    /// From −1 up to 1.
    double Unit() { return std::ldexp(static_cast<double>(static_cast<std::int64_t>(Next())), -63); }
    /// −1, 0 or 1: many ties and singular matrices.
    double Sign() { return Below(3) - 1; }
    /// A few values with ties, zeros of both signs, infinities, a NaN and the ends of the range.
    double Special()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr double values[] = {
            0.0, -0.0,     1.0,       -1.0,      2.0,      0.5,    -0.5,
            3.0, infinity, -infinity, 0x1p-1074, 0x1p1023, 1e-300, std::numeric_limits<double>::quiet_NaN()};
        return values[Below(14)];
    }
    /// One of the finite values among them, up to 3 in magnitude.
    double SmallSpecial()
    {
        constexpr double values[] = {0.0, -0.0, 1.0, -1.0, 2.0, 0.5, -0.5, 3.0};
        return values[Below(8)];
    }

private:
    std::uint64_t state;
};

} // namespace vexor_test
