#pragma once
#include <support/Elementwise.h>

// The rule of each operation, on plain numbers.

// Every source has its own copy, compiled with its own flags: a peer's may fuse, these must not.

namespace bench {

namespace {

inline double DotRule(double const* a, double const* b)
{
    return (a[0] * b[0] + a[1] * b[1]) + a[2] * b[2];
}

inline Rule const dotRule = [](double const* a, double const* b) {
    return std::vector<double>{DotRule(a, b)};
};

inline Rule const crossRule = [](double const* a, double const* b) {
    return std::vector<double>{a[1] * b[2] - b[1] * a[2], a[2] * b[0] - a[0] * b[2],
                               b[1] * a[0] - a[1] * b[0]};
};

inline Rule const normalizeRule = [](double const* a, double const*) {
    double const length = std::sqrt(DotRule(a, a));
    return std::vector<double>{a[0] / length, a[1] / length, a[2] / length};
};

inline constexpr double sineSquared = 0.25; // so that both results occur
inline constexpr double lengthSquared = 1e-10;

inline Rule const parallelRule = [](double const* a, double const* b) {
    double const d = DotRule(a, b);
    return std::vector<double>{1.0 - ((d * d) / DotRule(a, a)) / DotRule(b, b) <= sineSquared ? 1.0 : 0.0};
};

inline std::vector<double> ReadFlag(int flag)
{
    return {static_cast<double>(flag)};
}

} // namespace

} // namespace bench
