#pragma once
#include <support/Elementwise.h>

#include <algorithm>

// The rule of each operation, on plain numbers; nine of them are a matrix, row by row.

// Every source has its own copy, compiled with its own flags: a peer's may fuse, these must not.

namespace bench {

namespace {

inline Rule const matrixTimesVectorRule = [](double const* a, double const* b) {
    std::vector<double> result;
    for (int i = 0; i < 3; ++i)
        result.push_back((a[3 * i] * b[0] + a[3 * i + 1] * b[1]) + a[3 * i + 2] * b[2]);
    return result;
};

inline Rule const matrixTimesMatrixRule = [](double const* a, double const* b) {
    std::vector<double> result;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            result.push_back(((0.0 + a[3 * i] * b[j]) + a[3 * i + 1] * b[3 + j]) + a[3 * i + 2] * b[6 + j]);
    }
    return result;
};

/// An affine map has the numbers as its linear part, and the first three of them as its translation.
inline Rule const affineRule = [](double const* a, double const* b) {
    std::vector<double> result = matrixTimesVectorRule(a, b);
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = result[i] + a[i];
    return result;
};

/// The elements of a well conditioned matrix: the numbers, with a dominant diagonal.
inline double WellConditioned(double const* numbers, int i, int j)
{
    return numbers[3 * i + j] + (i == j ? 4.0 : 0.0);
}

inline double Symmetric(double const* numbers, int i, int j)
{
    return numbers[3 * std::min(i, j) + std::max(i, j)];
}

/// Cramer's rule, which is accurate enough to check a solver.
inline Rule const solveRule = [](double const* a, double const* b) {
    auto const determinant = [a, b](int replaced) {
        auto const at = [=](int i, int j) { return j == replaced ? b[i] : WellConditioned(a, i, j); };
        return at(0, 0) * (at(1, 1) * at(2, 2) - at(1, 2) * at(2, 1))
               - at(0, 1) * (at(1, 0) * at(2, 2) - at(1, 2) * at(2, 0))
               + at(0, 2) * (at(1, 0) * at(2, 1) - at(1, 1) * at(2, 0));
    };
    double const whole = determinant(3);
    return std::vector<double>{determinant(0) / whole, determinant(1) / whole, determinant(2) / whole};
};

/// The inverse, column by column from unit right-hand sides.
inline Rule const invertRule = [](double const* a, double const*) {
    std::vector<double> result(9);
    for (int j = 0; j < 3; ++j) {
        double unit[3] = {0.0, 0.0, 0.0};
        unit[j] = 1.0;
        std::vector<double> const column = solveRule(a, unit);
        for (int i = 0; i < 3; ++i)
            result[std::size_t(3 * i + j)] = column[std::size_t(i)];
    }
    return result;
};

/// The sum of the eigenvalues, which is the trace, and that of their squares.
inline Rule const spectrumRule = [](double const* a, double const*) {
    double squares = 0.0;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            squares += Symmetric(a, i, j) * Symmetric(a, i, j);
    }
    return std::vector<double>{Symmetric(a, 0, 0) + Symmetric(a, 1, 1) + Symmetric(a, 2, 2), squares};
};

inline std::vector<double> ReadSpectrum(double a, double b, double c)
{
    return {a + b + c, a * a + b * b + c * c};
}

} // namespace

} // namespace bench
