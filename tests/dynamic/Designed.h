#pragma once
#include "Elements.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

// Matrices with a known spectrum, and the ratios by which LAPACK's own test programs judge its drivers: a
// residual divided by the error that rounding may cause. Those programs accept a driver if the
// ratio is below 30 for linear systems and least squares, and below 50 for spectra. Everything here
// is computed in long double.

namespace vexor_test {

inline constexpr double linearThreshold = 30.0;
inline constexpr double spectralThreshold = 50.0;
inline constexpr long double relativeRounding = 0x1p-53L; // "eps" of the ratios for linear systems
inline constexpr long double lastPlace = 0x1p-52L;        // "ulp" of the ratios for spectra

/// A repeatable source of numbers.
class Numbers {
public:
    explicit Numbers(std::uint64_t seed) : state(seed) {}

    /// Between −1 and 1.
    double Next()
    {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<double>(static_cast<std::int64_t>(state) >> 11) * 0x1p-52;
    }

private:
    std::uint64_t state;
};

/// A matrix of long doubles, column by column.
struct Wide {
    int rows;
    int columns;
    std::vector<long double> elements;

    Wide(int rows0, int columns0)
        : rows(rows0), columns(columns0), elements(static_cast<std::size_t>(rows0) * std::size_t(columns0))
    {}
    explicit Wide(MatDbl const& m) : Wide(m.RowCount(), m.ColumnCount())
    {
        std::vector<double> const narrow = ElementsOf(m);
        std::copy(narrow.begin(), narrow.end(), elements.begin());
    }
    explicit Wide(VecDbl const& v) : Wide(v.Size(), 1)
    {
        for (int i = 0; i < rows; ++i)
            (*this)(i, 0) = v[i];
    }

    long double& operator()(int i, int j)
    {
        return elements[std::size_t(j) * std::size_t(rows) + std::size_t(i)];
    }
    long double operator()(int i, int j) const
    {
        return elements[std::size_t(j) * std::size_t(rows) + std::size_t(i)];
    }

    MatDbl Narrow() const
    {
        MatDbl m(rows, columns);
        for (int j = 0; j < columns; ++j) {
            for (int i = 0; i < rows; ++i)
                m(i, j) = static_cast<double>((*this)(i, j));
        }
        return m;
    }

    Wide Transposed() const
    {
        Wide t(columns, rows);
        for (int j = 0; j < columns; ++j) {
            for (int i = 0; i < rows; ++i)
                t(j, i) = (*this)(i, j);
        }
        return t;
    }

    /// The first rows.
    Wide Top(int count) const
    {
        Wide t(count, columns);
        for (int j = 0; j < columns; ++j) {
            for (int i = 0; i < count; ++i)
                t(i, j) = (*this)(i, j);
        }
        return t;
    }

    /// The largest column sum of magnitudes. It is a NaN if any element is.
    long double Norm() const
    {
        long double norm = 0;
        for (int j = 0; j < columns; ++j) {
            long double sum = 0;
            for (int i = 0; i < rows; ++i)
                sum += std::fabs((*this)(i, j));
            norm = norm >= sum ? norm : sum;
        }
        return norm;
    }
};

inline Wide operator*(Wide const& a, Wide const& b)
{
    Wide result(a.rows, b.columns);
    for (int j = 0; j < b.columns; ++j) {
        for (int k = 0; k < a.columns; ++k) {
            for (int i = 0; i < a.rows; ++i)
                result(i, j) += a(i, k) * b(k, j);
        }
    }
    return result;
}

inline Wide operator-(Wide a, Wide const& b)
{
    for (std::size_t i = 0; i < a.elements.size(); ++i)
        a.elements[i] -= b.elements[i];
    return a;
}

inline Wide Diagonal(int rows, int columns, std::vector<double> const& values)
{
    Wide d(rows, columns);
    for (std::size_t i = 0; i < values.size(); ++i)
        d(static_cast<int>(i), static_cast<int>(i)) = values[i];
    return d;
}

/// An orthogonal matrix: columns of random numbers, orthonormalised one after another, twice.
inline Wide Orthogonal(int n, Numbers& numbers)
{
    Wide q(n, n);
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i)
            q(i, j) = numbers.Next();
        for (int pass = 0; pass < 2; ++pass) {
            for (int k = 0; k < j; ++k) {
                long double dot = 0;
                for (int i = 0; i < n; ++i)
                    dot += q(i, j) * q(i, k);
                for (int i = 0; i < n; ++i)
                    q(i, j) -= dot * q(i, k);
            }
        }
        long double sum = 0;
        for (int i = 0; i < n; ++i)
            sum += q(i, j) * q(i, j);
        for (int i = 0; i < n; ++i)
            q(i, j) /= std::sqrt(sum);
    }
    return q;
}

/// Spectra of n positive values from 1 down to 1 / condition: one small value, one large one, a
/// geometric and an arithmetic sequence, and a cluster.
inline std::vector<std::vector<double>> Spectra(int n, double condition)
{
    std::vector<std::vector<double>> spectra(5, std::vector<double>(std::size_t(n), 1.0));
    for (int i = 1; i < n; ++i) {
        double const t = double(i) / (n - 1);
        auto const at = std::size_t(i);
        spectra[0][at] = i == n - 1 ? 1.0 / condition : 1.0;
        spectra[1][at] = 1.0 / condition;
        spectra[2][at] = std::pow(condition, -t);
        spectra[3][at] = 1.0 - t * (1.0 - 1.0 / condition);
        spectra[4][at] = i < n / 2 ? 1.0 - i * 1e-14 : 1.0 / condition;
    }
    return spectra;
}

/// A matrix with these singular values.
inline Wide WithSingularValues(int rows, int columns, std::vector<double> const& values, Numbers& numbers)
{
    return Orthogonal(rows, numbers) * Diagonal(rows, columns, values)
           * Orthogonal(columns, numbers).Transposed();
}

/// A symmetric matrix with these eigenvalues.
inline Wide WithEigenvalues(std::vector<double> const& values, Numbers& numbers)
{
    int const n = static_cast<int>(values.size());
    Wide const q = Orthogonal(n, numbers);
    Wide a = q * Diagonal(n, n, values) * q.Transposed();
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < j; ++i)
            a(j, i) = a(i, j);
    }
    return a;
}

/// ‖B − A·X‖ / (‖A‖·‖X‖·eps), the largest of all columns.
inline double SolutionRatio(Wide const& a, Wide const& x, Wide const& b)
{
    long double worst = 0;
    for (int j = 0; j < x.columns; ++j) {
        Wide column(x.rows, 1);
        Wide rhs(b.rows, 1);
        for (int i = 0; i < x.rows; ++i)
            column(i, 0) = x(i, j);
        for (int i = 0; i < b.rows; ++i)
            rhs(i, 0) = b(i, j);
        long double const ratio = (rhs - a * column).Norm() / a.Norm() / column.Norm() / relativeRounding;
        worst = worst >= ratio ? worst : ratio;
    }
    return static_cast<double>(worst);
}

/// ‖I − V·Vᵀ‖ / (n·ulp) for vectors in rows of length n.
inline double OrthogonalityRatio(Wide const& v)
{
    Wide const gap =
        v * v.Transposed() - Diagonal(v.rows, v.rows, std::vector<double>(std::size_t(v.rows), 1.0));
    return static_cast<double>(gap.Norm() / v.columns / lastPlace);
}

} // namespace vexor_test
