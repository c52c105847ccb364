#include "Designed.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

using namespace vexor_test;

// Every driver on every kind of degenerate matrix, at every size from 1 to 20 and, for matrices that need
// not be square, at every shape: it returns or raises `VexorComputationFailed`, and does so soon.

namespace {

/// Ends the program and names the matrix if a driver does not return; nothing else can stop it.
class TimeLimit {
public:
    TimeLimit() : watcher([this] { Watch(); }) {}
    ~TimeLimit()
    {
        {
            std::lock_guard<std::mutex> const lock(mutex);
            isOver = true;
        }
        changed.notify_one();
        watcher.join();
    }

    void Begin(std::string newName)
    {
        std::lock_guard<std::mutex> const lock(mutex);
        name = std::move(newName);
        ++begun;
    }

private:
    void Watch()
    {
        // Each call takes microseconds; the limit allows for a machine under heavy load.
        constexpr std::chrono::minutes limit(2);
        std::unique_lock<std::mutex> lock(mutex);
        for (long before = begun; !isOver; before = begun) {
            bool const goesOn = changed.wait_for(lock, limit, [&] { return isOver; });
            if (!goesOn && begun == before && before > 0) {
                std::fprintf(stderr, "No driver returned within the limit: %s\n", name.c_str());
                std::_Exit(1);
            }
        }
    }

    std::mutex mutex;
    std::condition_variable changed;
    std::string name;
    long begun = 0;
    bool isOver = false;
    std::thread watcher;
};

/// The value of element (i, j) of an m×n matrix.
struct Kind {
    char const* name;
    std::function<double(int i, int j, int m, int n, Numbers& numbers)> element;
};

double Random(Numbers& numbers)
{
    return numbers.Next();
}

/// In one element, on the diagonal, which a symmetric driver reads too.
bool IsTheOne(int i, int j, int m, int n)
{
    int const middle = std::min(m, n) / 2;
    return i == middle && j == middle;
}

std::vector<Kind> const& BadNumbers()
{
    static std::vector<Kind> const kinds = {
        {"one NaN", [](int i, int j, int m, int n,
                       Numbers& r) { return IsTheOne(i, j, m, n) ? vexor_test::nan : Random(r); }},
        {"a NaN among zeros",
         [](int i, int j, int m, int n, Numbers&) { return IsTheOne(i, j, m, n) ? vexor_test::nan : 0.0; }},
        {"a NaN on a diagonal",
         [](int i, int j, int m, int n, Numbers& r) {
             return IsTheOne(i, j, m, n) ? vexor_test::nan : i == j ? Random(r) : 0.0;
         }},
        {"all NaN", [](int, int, int, int, Numbers&) { return vexor_test::nan; }},
        {"one infinity",
         [](int i, int j, int m, int n, Numbers& r) { return IsTheOne(i, j, m, n) ? infinity : Random(r); }},
        {"one negative infinity",
         [](int i, int j, int m, int n, Numbers& r) { return IsTheOne(i, j, m, n) ? -infinity : Random(r); }},
        {"a row of infinities",
         [](int i, int, int m, int, Numbers& r) { return i == m / 2 ? infinity : Random(r); }},
        {"all infinite, of either sign",
         [](int i, int j, int, int, Numbers&) { return (i + j) % 2 ? infinity : -infinity; }},
        {"NaN and infinity",
         [](int i, int j, int m, int n, Numbers& r) {
             return IsTheOne(i, j, m, n) ? vexor_test::nan : i + j == 0 ? infinity : Random(r);
         }},
        {"nearly overflowing",
         [](int i, int j, int, int, Numbers&) { return (i * j) % 3 ? 1.7e308 : -1.7e308; }},
    };
    return kinds;
}

std::vector<Kind> const& FiniteNumbers()
{
    static std::vector<Kind> const kinds = {
        {"zero", [](int, int, int, int, Numbers&) { return 0.0; }},
        {"zeros of either sign", [](int i, int j, int, int, Numbers&) { return (i + j) % 2 ? 0.0 : -0.0; }},
        {"1e300 and 1e-300",
         [](int i, int j, int, int, Numbers& r) { return Random(r) * ((i + j) % 2 ? 1e300 : 1e-300); }},
        {"rows of 1e300 and 1e-300",
         [](int i, int, int, int, Numbers& r) { return Random(r) * (i % 2 ? 1e300 : 1e-300); }},
        {"1e300", [](int, int, int, int, Numbers& r) { return Random(r) * 1e300; }},
        {"1e-300", [](int, int, int, int, Numbers& r) { return Random(r) * 1e-300; }},
        {"one element of 1e300",
         [](int i, int j, int m, int n, Numbers& r) { return IsTheOne(i, j, m, n) ? 1e300 : Random(r); }},
        {"denormal", [](int, int, int, int, Numbers& r) { return Random(r) * 1e-310; }},
        {"the smallest denormal", [](int, int, int, int, Numbers&) { return 4.9406564584124654e-324; }},
        {"all ones", [](int, int, int, int, Numbers&) { return 1.0; }},
        {"of rank one", [](int i, int j, int, int, Numbers&) { return (i + 1.0) * (j + 1.0); }},
        {"of rank two", [](int i, int j, int, int, Numbers&) { return i + j + 1.0; }},
        {"with a row and a column of zeros",
         [](int i, int j, int m, int n, Numbers& r) {
             int const middle = std::min(m, n) / 2;
             return i == middle || j == middle ? 0.0 : Random(r);
         }},
        {"with one element",
         [](int i, int j, int m, int n, Numbers&) { return IsTheOne(i, j, m, n) ? 3.0 : 0.0; }},
        {"unit", [](int i, int j, int, int, Numbers&) { return i == j ? 1.0 : 0.0; }},
        {"nilpotent", [](int i, int j, int, int, Numbers&) { return j == i + 1 ? 1.0 : 0.0; }},
    };
    return kinds;
}

MatDbl Fill(int rows, int columns, Kind const& kind, Numbers& numbers, bool symmetric)
{
    MatDbl m(rows, columns);
    for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < rows; ++i)
            m(i, j) = symmetric && i > j ? 0.0 : kind.element(i, j, rows, columns, numbers);
    }
    for (int j = 0; symmetric && j < columns; ++j) {
        for (int i = j + 1; i < rows; ++i)
            m(i, j) = m(j, i);
    }
    return m;
}

/// Returns whether the operation returned. Any exception other than `VexorComputationFailed` passes through.
template <class Operation>
bool Returns(Operation operation)
{
    try {
        operation();
        return true;
    } catch (VexorComputationFailed const&) {
        return false;
    }
}

constexpr int largestSize = 20;

template <class Check>
void ForEachSize(std::vector<Kind> const& kinds, Check check)
{
    Numbers numbers(11);
    TimeLimit limit;
    for (Kind const& kind : kinds) {
        for (int n = 1; n <= largestSize; ++n) {
            std::string const name = std::to_string(n) + "×" + std::to_string(n) + ", " + kind.name;
            SCOPED_TRACE(name);
            limit.Begin(name);
            check(Fill(n, n, kind, numbers, false), Fill(n, n, kind, numbers, true));
        }
    }
}

template <class Check>
void ForEachShape(std::vector<Kind> const& kinds, Check check)
{
    Numbers numbers(12);
    TimeLimit limit;
    for (Kind const& kind : kinds) {
        for (int rows = 1; rows <= largestSize; ++rows) {
            for (int columns = 1; columns <= largestSize; ++columns) {
                std::string const name =
                    std::to_string(rows) + "×" + std::to_string(columns) + ", " + kind.name;
                SCOPED_TRACE(name);
                limit.Begin(name);
                check(Fill(rows, columns, kind, numbers, false));
            }
        }
    }
}

/// Solves with the matrix, by each member, for an ordinary right-hand side and one of each bad kind.
void SolveInEveryWay(MatDbl const& general, MatDbl const& symmetric)
{
    int const n = general.RowCount();
    for (double element : {1.0, 1e300, 1e-310, vexor_test::nan, infinity}) {
        MatDbl const b(n, 2, element);
        MatDbl m(general);
        MatDbl x(b);
        Returns([&] { m.Solve(x); });
        x = b;
        Returns([&] { m.ReSolve(x); });
        m = symmetric;
        x = b;
        Returns([&] { m.SolveSym(x); });
        x = b;
        Returns([&] { m.ReSolveSym(x); });
#if !defined(VEXOR_CHECKED) // a checked build stops on the pivots of the other kind
        x = b;
        Returns([&] { m.ReSolve(x); });
#endif
    }
    MatDbl const before(general);
    Returns([&] { (void)general.GetInvertedCopy(); });
    EXPECT_TRUE(SameElements(ElementsOf(general), ElementsOf(before)));
}

void FindEigenvalues(MatDbl const& symmetric)
{
    int const n = symmetric.RowCount();
    for (int wantVectors : {0, 1}) {
        for (int first : {0, n / 2}) {
            MatDbl m(symmetric);
            VecDbl values;
            Returns([&] { m.EigenSym(values, wantVectors, first, n - 1); });
            EXPECT_EQ(values.Size(), n);
        }
    }
}

void SolveLeastSquares(MatDbl const& matrix)
{
    for (double element : {1.0, 1e300, 1e-310, vexor_test::nan, infinity}) {
        MatDbl m(matrix);
        VecDbl b(matrix.RowCount(), element);
        bool const returned = Returns([&] { m.SolveLinearLeastSquares(b); });
        if (returned) {
            EXPECT_EQ(b.Size(), matrix.ColumnCount());
        }
    }
}

void FindSingularValues(MatDbl const& matrix)
{
    MatDbl m(matrix);
    VecDbl values;
    Returns([&] { m.Svd(values); });
}

/// The largest element, by which a matrix is scaled.
double Largest(MatDbl const& m)
{
    double largest = 0.0;
    for (double element : ElementsOf(m))
        largest = std::max(largest, std::fabs(element));
    return largest;
}

} // namespace

TEST(MatDblHostile, SolversMeetBadNumbers)
{
    ForEachSize(BadNumbers(), SolveInEveryWay);
}

TEST(MatDblHostile, SolversMeetDeficientMatrices)
{
    ForEachSize(FiniteNumbers(), SolveInEveryWay);
}

TEST(MatDblHostile, SolversRefuseExactlySingularMatrices)
{
    for (int n = 1; n <= largestSize; ++n) {
        for (bool symmetric : {false, true}) {
            MatDbl m(n, n, 0.0);
            VecDbl b(n, 1.0);
            EXPECT_FALSE(Returns([&] { symmetric ? m.SolveSym(b) : m.Solve(b); }));
            EXPECT_FALSE(Returns([&] { (void)MatDbl(n, n, 0.0).GetInvertedCopy(); }));
        }
    }
}

TEST(MatDblHostile, LeastSquaresMeetBadNumbers)
{
    ForEachShape(BadNumbers(), SolveLeastSquares);
}

TEST(MatDblHostile, LeastSquaresMeetDeficientMatrices)
{
    ForEachShape(FiniteNumbers(), SolveLeastSquares);
}

TEST(MatDblHostile, SvdMeetsBadNumbers)
{
    ForEachShape(BadNumbers(), FindSingularValues);
}

TEST(MatDblHostile, SvdOfDeficientMatrices)
{
    // Every finite matrix has a result: values in order, the sum of their squares that of the elements.
    ForEachShape(FiniteNumbers(), [](MatDbl const& matrix) {
        MatDbl m(matrix);
        VecDbl values;
        ASSERT_TRUE(Returns([&] { m.Svd(values); }));
        int const smaller = std::min(matrix.RowCount(), matrix.ColumnCount());
        ASSERT_EQ(values.Size(), smaller);
        for (int k = 1; k < smaller; ++k)
            EXPECT_LE(values[k], values[k - 1]);
        EXPECT_GE(values[smaller - 1], 0.0);
        EXPECT_LT(OrthogonalityRatio(Wide(m).Top(smaller)), spectralThreshold);

        double const scale = Largest(matrix);
        if (scale == 0.0) {
            EXPECT_EQ(values[0], 0.0);
            return;
        }
        long double elements = 0;
        for (double element : ElementsOf(matrix))
            elements += (long double)(element) / scale * element / scale;
        long double squares = 0;
        for (int k = 0; k < smaller; ++k)
            squares += (long double)(values[k]) / scale * values[k] / scale;
        // If they are denormal, a result has as few digits as they have.
        long double const unit = lastPlace + 0x1p-1074L / scale;
        long double const size = matrix.RowCount() * matrix.ColumnCount();
        EXPECT_LT(static_cast<double>(std::fabs(squares - elements) / elements / size / unit),
                  spectralThreshold);
    });
}

TEST(MatDblHostile, EigenSymMeetsBadNumbers)
{
    ForEachSize(BadNumbers(), [](MatDbl const&, MatDbl const& symmetric) { FindEigenvalues(symmetric); });
}

// DSYEVX finds eigenvalues of these out of order, and DSTEIN refuses them by calling XERBLA. If XERBLA
// ends the process instead of returning, this program ends before its closing line.
TEST(MatDblHostile, EigenSymGoesOnWhereADriverRefusesItsOwnNumbers)
{
    double const bad = vexor_test::nan;
    double const big = infinity;
    for (double scale : {1.0, 1e-310, 1e300}) {
        for (MatDbl const& matrix : {Mat({{-1, 0, -2, 0}, {0, -1, 3, 0}, {-2, 3, bad, 2}, {0, 0, 2, 1}}),
                                     Mat({{2, -1, -2, 0}, {-1, 2, -2, 0}, {-2, -2, bad, -3}, {0, 0, -3, 2}}),
                                     Mat({{0, 0.57, 0.73, -0.76, 0.17, -0.97, -0.46},
                                          {0.57, 0, -big, -0.78, -0.0006, 0.31, 0.21},
                                          {0.73, -big, 0, big, 0.55, 0.37, -0.03},
                                          {-0.76, -0.78, big, big, 0.11, 0.05, 0.31},
                                          {0.17, -0.0006, 0.55, 0.11, 0.22, 0.23, -0.38},
                                          {-0.97, 0.31, 0.37, 0.05, 0.23, -0.93, 0.84},
                                          {-0.46, 0.21, -0.03, 0.31, -0.38, 0.84, -0.95}})}) {
            int const n = matrix.RowCount();
            for (int wantVectors : {0, 1}) {
                MatDbl m = matrix * scale;
                VecDbl values;
                Returns([&] { m.EigenSym(values, wantVectors, 0, n - 1); });
                EXPECT_EQ(values.Size(), n);
            }
        }
    }
}

TEST(MatDblHostile, EigenSymOfDeficientMatrices)
{
    ForEachSize(FiniteNumbers(), [](MatDbl const&, MatDbl const& symmetric) {
        FindEigenvalues(symmetric);
        int const n = symmetric.RowCount();
        MatDbl m(symmetric);
        VecDbl values;
        ASSERT_TRUE(Returns([&] { m.EigenSym(values, 1, 0, n - 1); }));
        for (int k = 1; k < n; ++k)
            EXPECT_LE(values[k - 1], values[k]);
        EXPECT_LT(OrthogonalityRatio(Wide(m)), spectralThreshold);

        // The eigenvalues add up to the diagonal.
        double const scale = Largest(symmetric);
        if (scale == 0.0) {
            EXPECT_EQ(values[0], 0.0);
            EXPECT_EQ(values[n - 1], 0.0);
            return;
        }
        long double gap = 0;
        for (int k = 0; k < n; ++k)
            gap += (long double)(values[k]) / scale - (long double)(symmetric(k, k)) / scale;
        long double const unit = lastPlace + 0x1p-1074L / scale;
        EXPECT_LT(static_cast<double>(std::fabs(gap) / (n * n) / unit), spectralThreshold);
    });
}
