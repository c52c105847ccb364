#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

// The drivers on matrices with a known spectrum, from LAPACK's own generator DLATMS. As in LAPACK's test
// programs, the measure is a residual divided by the error that rounding may cause. Those programs
// accept ratios below 30 for linear systems and least squares and below 50 for spectra. The ratios are
// scaled by the size of the solution and not by the condition number, so they hold for any condition.

extern "C" void dlatms_(int const* m, int const* n, char const* distribution, int* seed, char const* symmetry,
                        double* d, int const* mode, double const* condition, double const* largest,
                        int const* lower, int const* upper, char const* packing, double* a, int const* lda,
                        double* work, int* info, std::size_t, std::size_t, std::size_t);

namespace {

constexpr double linearThreshold = 30.0;
constexpr double spectralThreshold = 50.0;
constexpr double relativeRounding = 0x1p-53;
constexpr double lastPlace = 0x1p-52;

// How DLATMS spreads the values between the largest and the largest / condition.
enum Mode { oneLarge = 1, oneSmall = 2, geometric = 3, arithmetic = 4, random = 5 };
Mode const modes[] = {oneLarge, oneSmall, geometric, arithmetic, random};
double const conditions[] = {2.0, 1e4, 1e8, 1e12, 1e16};
int const sizes[] = {1, 2, 3, 4, 5, 7, 10, 15, 20, 50};
int const largeSizes[] = {100, 200, 500};

struct Designed {
    MatDbl matrix;
    std::vector<double> spectrum; // singular values, or eigenvalues with their signs
};

int seed[4] = {1988, 1989, 1990, 1991};

/// A full matrix; 'N' without symmetry, 'S' symmetric with eigenvalues of both signs.
Designed Generate(int rows, int columns, char symmetry, int mode, double condition, double largest = 1.0)
{
    auto const smaller = static_cast<std::size_t>(std::min(rows, columns));
    Designed result{MatDbl(rows, columns), std::vector<double>(smaller)};
    std::vector<double> work(3 * static_cast<std::size_t>(std::max(rows, columns)));
    int const lower = rows - 1;
    int const upper = columns - 1;
    int info = 0;
    dlatms_(&rows, &columns, "S", seed, &symmetry, result.spectrum.data(), &mode, &condition, &largest,
            &lower, &upper, "N", &result.matrix(0, 0), &rows, work.data(), &info, 1, 1, 1);
    EXPECT_EQ(info, 0);
    return result;
}

MatDbl RandomMatrix(int rows, int columns)
{
    return Generate(rows, columns, 'N', arithmetic, 2.0).matrix;
}

/// The largest column sum of magnitudes. It is a NaN if any element is.
double Norm(MatDbl const& m)
{
    double norm = 0.0;
    for (int j = 0; j < m.ColumnCount(); ++j) {
        double sum = 0.0;
        for (int i = 0; i < m.RowCount(); ++i)
            sum += std::fabs(m(i, j));
        norm = norm >= sum ? norm : sum;
    }
    return norm;
}

MatDbl FirstRows(MatDbl const& m, int count)
{
    MatDbl rows(count, m.ColumnCount());
    for (int j = 0; j < m.ColumnCount(); ++j) {
        for (int i = 0; i < count; ++i)
            rows(i, j) = m(i, j);
    }
    return rows;
}

/// ‖B − A·X‖ / (‖A‖·‖X‖·eps), the largest of all columns.
double SolutionRatio(MatDbl const& a, MatDbl const& x, MatDbl const& b)
{
    MatDbl const residual = b - a * x;
    double worst = 0.0;
    for (int j = 0; j < x.ColumnCount(); ++j) {
        double size = 0.0;
        double gap = 0.0;
        for (int i = 0; i < x.RowCount(); ++i)
            size += std::fabs(x(i, j));
        for (int i = 0; i < b.RowCount(); ++i)
            gap += std::fabs(residual(i, j));
        double const ratio = gap / Norm(a) / size / relativeRounding;
        worst = worst >= ratio ? worst : ratio;
    }
    return worst;
}

/// ‖I − V·Vᵀ‖ / (n·ulp) for vectors in rows of length n.
double OrthogonalityRatio(MatDbl const& v)
{
    MatDbl gap = v * v.GetTransposedCopy();
    for (int i = 0; i < gap.RowCount(); ++i)
        gap(i, i) -= 1.0;
    return Norm(gap) / v.ColumnCount() / lastPlace;
}

/// The largest difference from the spectrum, as a multiple of the unit.
double SpectrumRatio(VecDbl const& values, std::vector<double> const& spectrum, double unit)
{
    double worst = 0.0;
    for (std::size_t i = 0; i < spectrum.size(); ++i) {
        double const ratio = std::fabs(values[static_cast<int>(i)] - spectrum[i]) / unit;
        worst = worst >= ratio ? worst : ratio;
    }
    return worst;
}

std::string Text(int rows, int columns, int mode, double condition)
{
    return std::to_string(rows) + "×" + std::to_string(columns) + ", mode " + std::to_string(mode)
           + ", condition " + std::to_string(condition);
}

/// All sizes up to 50 with every mode and condition, the large sizes with the hardest few.
void ForEachSize(std::function<void(int n, int mode, double condition)> const& check)
{
    for (int n : sizes) {
        for (Mode mode : modes) {
            for (double condition : conditions) {
                SCOPED_TRACE(Text(n, n, mode, condition));
                check(n, mode, condition);
            }
        }
    }
    for (int n : largeSizes) {
        for (Mode mode : {oneLarge, geometric}) {
            SCOPED_TRACE(Text(n, n, mode, 1e16));
            check(n, mode, 1e16);
        }
    }
}

/// Runs a factorising solve. A matrix of this condition, rounded to doubles, can be exactly singular: the
/// solve then raises. A matrix of a smaller condition cannot. Returns whether there is a solution.
template <class Operation>
bool Solves(double condition, Operation operation)
{
    try {
        operation();
        return true;
    } catch (VexorComputationFailed const&) {
        EXPECT_GE(condition, 1e16);
        return false;
    }
}

void CheckSolve(int n, int mode, double condition, double largest)
{
    MatDbl const a = Generate(n, n, 'N', mode, condition, largest).matrix;
    MatDbl const b = RandomMatrix(n, 3);
    MatDbl factors(a);
    MatDbl x(b);
    if (!Solves(condition, [&] { factors.Solve(x); }))
        return;
    EXPECT_LT(SolutionRatio(a, x, b), linearThreshold);
    MatDbl again(b);
    factors.ReSolve(again);
    EXPECT_LT(SolutionRatio(a, again, b), linearThreshold);
}

void CheckSolveSym(int n, int mode, double condition, double largest)
{
    MatDbl const a = Generate(n, n, 'S', mode, condition, largest).matrix;
    MatDbl const b = RandomMatrix(n, 3);
    MatDbl factors(a);
    MatDbl x(b);
    if (!Solves(condition, [&] { factors.SolveSym(x); }))
        return;
    EXPECT_LT(SolutionRatio(a, x, b), linearThreshold);
    MatDbl again(b);
    factors.ReSolveSym(again);
    EXPECT_LT(SolutionRatio(a, again, b), linearThreshold);
}

void CheckSvd(int rows, int columns, int mode, double condition, double largest)
{
    Designed designed = Generate(rows, columns, 'N', mode, condition, largest);
    MatDbl const& a = designed.matrix;
    int const smaller = std::min(rows, columns);
    MatDbl vectors(a);
    VecDbl values;
    vectors.Svd(values);

    ASSERT_EQ(values.Size(), smaller);
    double const unit = Norm(a) * std::max(rows, columns) * lastPlace;
    std::sort(designed.spectrum.begin(), designed.spectrum.end(), std::greater<>());
    EXPECT_LT(SpectrumRatio(values, designed.spectrum, unit), spectralThreshold);
    for (int i = 0; i < smaller; ++i) {
        EXPECT_GE(values[i], 0.0);
        if (i > 0) {
            EXPECT_LE(values[i], values[i - 1]);
        }
    }
    MatDbl const v = FirstRows(vectors, smaller);
    EXPECT_LT(OrthogonalityRatio(v), spectralThreshold);
    // A·V has orthogonal columns, whose lengths are the singular values.
    MatDbl const scaled = a / largest;
    MatDbl const av = scaled * v.GetTransposedCopy();
    MatDbl gap = av.GetTransposedCopy() * av;
    for (int i = 0; i < smaller; ++i)
        gap(i, i) -= (values[i] / largest) * (values[i] / largest);
    EXPECT_LT(Norm(gap) / Norm(scaled) / (unit / largest), spectralThreshold);
}

void CheckEigenSym(int n, int mode, double condition, double largest)
{
    Designed designed = Generate(n, n, 'S', mode, condition, largest);
    MatDbl const& a = designed.matrix;
    MatDbl vectors(a);
    VecDbl values;
    vectors.EigenSym(values, 1, 0, n - 1);
    double const unit = Norm(a) * n * lastPlace;
    std::sort(designed.spectrum.begin(), designed.spectrum.end());
    EXPECT_LT(SpectrumRatio(values, designed.spectrum, unit), spectralThreshold);
    EXPECT_LT(OrthogonalityRatio(vectors), spectralThreshold);

    // A·V = V·Λ, for all vectors.
    MatDbl gap = a * vectors.GetTransposedCopy();
    for (int k = 0; k < n; ++k) {
        for (int i = 0; i < n; ++i)
            gap(i, k) -= values[k] * vectors(k, i);
    }
    EXPECT_LT(Norm(gap) / unit, spectralThreshold);

    // Part of the spectrum, with and without vectors.
    int const first = n / 3;
    int const last = n / 2;
    std::vector<double> const part(designed.spectrum.begin() + first, designed.spectrum.begin() + last + 1);
    for (int wantVectors : {0, 1}) {
        MatDbl some(a);
        VecDbl someValues;
        some.EigenSym(someValues, wantVectors, first, last);
        EXPECT_LT(SpectrumRatio(someValues, part, unit), spectralThreshold);
        if (wantVectors) {
            EXPECT_LT(OrthogonalityRatio(FirstRows(some, last - first + 1)), spectralThreshold);
        }
    }
}

// Near the ends of the range of a double, where the drivers scale.
double const hugeAndTiny[] = {0x1p-960, 0x1p960};
// Selected eigenvalues are bisected on squares of the elements. These scales, which LAPACK's own tests use
// for the eigenproblem, are the last ones at which no square that matters underflows or overflows.
double const hugeAndTinySquares[] = {0x1p-455, 0x1p455};
// Every shape class: square, tall, wide, and far from square (the drivers use another path).
int const shapes[][2] = {{1, 6}, {6, 1}, {5, 4}, {4, 5}, {20, 12}, {12, 20}, {60, 9}, {9, 60}};
int const largeShapes[][2] = {{500, 100}, {100, 500}};

/// A tall or square system with a residual, and a wide one without.
void CheckLeastSquares(int rows, int columns, int mode, double condition)
{
    MatDbl const a = Generate(rows, columns, 'N', mode, condition).matrix;
    double const larger = std::max({rows, columns, 3});

    // A right-hand side that has an exact solution.
    MatDbl const reached = a * RandomMatrix(columns, 3);
    MatDbl x(reached);
    if (!Solves(condition, [&] { MatDbl(a).SolveLinearLeastSquares(x); }))
        return;
    ASSERT_EQ(x.RowCount(), columns);
    EXPECT_LT(SolutionRatio(a, x, reached) / larger, linearThreshold);

    // Any right-hand side: the residual is orthogonal to the columns, within the rounding of A·X.
    MatDbl const b = RandomMatrix(rows, 3);
    x = b;
    MatDbl(a).SolveLinearLeastSquares(x);
    if (rows >= columns) {
        MatDbl const residual = b - a * x;
        double const size = Norm(a) * Norm(x) + Norm(b);
        double const across = Norm(a.GetTransposedCopy());
        EXPECT_LT(Norm(a.GetTransposedCopy() * residual) / across / size / larger / relativeRounding,
                  linearThreshold);
    } else {
        EXPECT_LT(SolutionRatio(a, x, b) / larger, linearThreshold);
    }
}

} // namespace

TEST(DesignedSpectra, TheGeneratorDeliversTheSpectrum)
{
    // The determinant of a 2×2 matrix: only the generator and this test know its value.
    Designed const designed = Generate(2, 2, 'N', geometric, 1e4, 3.0);
    MatDbl const& a = designed.matrix;
    EXPECT_NEAR(designed.spectrum[0], 3.0, 1e-14);
    EXPECT_NEAR(designed.spectrum[1], 3e-4, 1e-18);
    EXPECT_NEAR(std::fabs(a(0, 0) * a(1, 1) - a(0, 1) * a(1, 0)), 9e-4, 1e-14);
}

TEST(DesignedSpectra, Solve)
{
    ForEachSize([](int n, int mode, double condition) { CheckSolve(n, mode, condition, 1.0); });
    for (double scale : hugeAndTiny) {
        for (double condition : conditions)
            CheckSolve(20, geometric, condition, scale);
    }
}

TEST(DesignedSpectra, SolveSym)
{
    ForEachSize([](int n, int mode, double condition) { CheckSolveSym(n, mode, condition, 1.0); });
    for (double scale : hugeAndTiny) {
        for (double condition : conditions)
            CheckSolveSym(20, geometric, condition, scale);
    }
}

TEST(DesignedSpectra, SolveLinearLeastSquares)
{
    ForEachSize([](int n, int mode, double condition) { CheckLeastSquares(n, n, mode, condition); });
    for (auto const& shape : shapes) {
        for (Mode mode : modes) {
            for (double condition : conditions) {
                SCOPED_TRACE(Text(shape[0], shape[1], mode, condition));
                CheckLeastSquares(shape[0], shape[1], mode, condition);
            }
        }
    }
    for (auto const& shape : largeShapes)
        CheckLeastSquares(shape[0], shape[1], geometric, 1e16);
}

TEST(DesignedSpectra, Svd)
{
    ForEachSize([](int n, int mode, double condition) { CheckSvd(n, n, mode, condition, 1.0); });
    for (auto const& shape : shapes) {
        for (Mode mode : modes) {
            for (double condition : conditions) {
                SCOPED_TRACE(Text(shape[0], shape[1], mode, condition));
                for (double scale : {1.0, hugeAndTiny[0], hugeAndTiny[1]})
                    CheckSvd(shape[0], shape[1], mode, condition, scale);
            }
        }
    }
    for (auto const& shape : largeShapes)
        CheckSvd(shape[0], shape[1], geometric, 1e16, 1.0);
}

TEST(DesignedSpectra, EigenSym)
{
    ForEachSize([](int n, int mode, double condition) { CheckEigenSym(n, mode, condition, 1.0); });
    for (double scale : hugeAndTinySquares) {
        for (double condition : conditions)
            CheckEigenSym(20, geometric, condition, scale);
    }
}
