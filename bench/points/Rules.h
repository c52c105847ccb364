#pragma once
#include <support/Elementwise.h>

// The rule of each operation, on plain numbers.

// Every source has its own copy, compiled with its own flags: a peer's may fuse, these must not.

namespace bench {

namespace {

inline Rule const distanceRule = [](double const* a, double const* b) {
    double const d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return std::vector<double>{std::sqrt((d[0] * d[0] + d[1] * d[1]) + d[2] * d[2])};
};

inline Rule const translateRule = [](double const* a, double const* b) {
    return std::vector<double>{a[0] + b[0], a[1] + b[1], a[2] + b[2]};
};

} // namespace

} // namespace bench
