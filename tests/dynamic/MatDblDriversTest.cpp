#include "Allocations.h"
#include "Designed.h"

#include <climits>
#include <functional>

using namespace vexor_test;

namespace {

MatDbl Factorised(MatDbl matrix)
{
    VecDbl b(matrix.RowCount(), 1.0);
    matrix.Solve(b);
    return matrix;
}

MatDbl RandomMatrix(int rows, int columns, Numbers& numbers)
{
    MatDbl m(rows, columns);
    for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < rows; ++i)
            m(i, j) = numbers.Next();
    }
    return m;
}

VecDbl RandomVector(int size, Numbers& numbers)
{
    VecDbl v(size);
    for (int i = 0; i < size; ++i)
        v[i] = numbers.Next();
    return v;
}

/// A symmetric matrix whose factorisation uses a 2×2 pivot, which the pivots mark by negative numbers.
MatDbl WithPairPivot()
{
    return Mat({{0, 1}, {1, 0}});
}

/// Runs the operation, which may return or raise one of the library's exceptions.
template <class Operation>
void ReturnsOrRaises(Operation operation)
{
    try {
        operation();
    } catch (VexorException const&) {
    }
}

/// Solves for one and for many right-hand sides, each with new factors and with kept ones.
template <class Solve, class ReSolve>
void ExpectSolutions(MatDbl const& a, Numbers& numbers, Solve solve, ReSolve reSolve)
{
    Wide const wide(a);
    auto const expectSolution = [&](MatDbl& factors, auto const& side, auto const& method) {
        auto x(side);
        method(factors, x);
        EXPECT_LT(SolutionRatio(wide, Wide(x), Wide(side)), linearThreshold);
    };
    MatDbl factors(a);
    expectSolution(factors, RandomVector(a.RowCount(), numbers), solve);
    expectSolution(factors, RandomVector(a.RowCount(), numbers), reSolve);
    MatDbl const many = RandomMatrix(a.RowCount(), 3, numbers);
    expectSolution(factors, many, reSolve);
    MatDbl again(a);
    expectSolution(again, many, solve);
}

std::vector<double> const conditions = {2.0, 1e7, 1e13};
int const sizes[] = {1, 2, 3, 4, 5, 8, 17, 40};

} // namespace

// ---- Solve -----------------------------------------------------------------------------------------

TEST(MatDbl, SolveOfDesignedSystems)
{
    Numbers numbers(1);
    for (int n : sizes) {
        for (double condition : conditions) {
            for (auto const& spectrum : Spectra(n, condition)) {
                MatDbl const a = WithSingularValues(n, n, spectrum, numbers).Narrow();
                ExpectSolutions(
                    a, numbers, [](MatDbl& m, auto& side) { m.Solve(side); },
                    [](MatDbl& m, auto& side) { m.ReSolve(side); });
            }
        }
    }
}

TEST(MatDbl, SolveChecksShapesFirst)
{
    for (MatDbl m : {Mat({{1, 2, 3}, {4, 5, 6}}), Mat({{1, 2}, {3, 4}, {5, 6}})}) {
        MatDbl const before(m);
        VecDbl b(m.RowCount(), 1.0);
        MatDbl c(m.RowCount(), 2, 1.0);
        EXPECT_THROW(m.Solve(b), VexorDimensionMismatch);
        EXPECT_THROW(m.Solve(c), VexorDimensionMismatch);
        EXPECT_THROW(m.SolveSym(b), VexorDimensionMismatch);
        EXPECT_THROW(m.SolveSym(c), VexorDimensionMismatch);
        // A mismatch of shapes is raised even if factors are missing too.
        EXPECT_THROW(m.ReSolve(b), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolve(c), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolveSym(b), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolveSym(c), VexorDimensionMismatch);
        EXPECT_THROW(m.Invert(), VexorDimensionMismatch);
        EXPECT_THROW(m.GetInvertedCopy(), VexorDimensionMismatch);
        EXPECT_TRUE(m == before);
    }
    MatDbl m = Mat({{1, 2}, {3, 4}});
    for (int size : {1, 3}) {
        VecDbl b(size, 1.0);
        MatDbl c(size, 2, 1.0);
        EXPECT_THROW(m.Solve(b), VexorDimensionMismatch);
        EXPECT_THROW(m.Solve(c), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolve(b), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolve(c), VexorDimensionMismatch);
        EXPECT_THROW(m.SolveSym(b), VexorDimensionMismatch);
        EXPECT_THROW(m.SolveSym(c), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolveSym(b), VexorDimensionMismatch);
        EXPECT_THROW(m.ReSolveSym(c), VexorDimensionMismatch);
        EXPECT_THROW(m.SolveLinearLeastSquares(b), VexorDimensionMismatch);
        EXPECT_THROW(m.SolveLinearLeastSquares(c), VexorDimensionMismatch);
        EXPECT_TRUE(
            Holds(b, size == 1 ? std::initializer_list<double>{1} : std::initializer_list<double>{1, 1, 1}));
    }
    EXPECT_TRUE(HoldsRows(m, {{1, 2}, {3, 4}}));
    EXPECT_FALSE(HasPivots(m));
}

TEST(MatDbl, SolveOverwritesTheMatrixWithItsFactors)
{
    // The larger element of the first column becomes the pivot: L = (1; 1/2 1), U = (4 2; 0 2).
    MatDbl m = Mat({{2, 3}, {4, 2}});
    VecDbl b = Dbl({8, 8});
    m.Solve(b);
    EXPECT_TRUE(Holds(b, {1, 2}));
    EXPECT_TRUE(HoldsRows(m, {{4, 2}, {0.5, 2}}));
    // A second solve, without new elements, factorises those factors.
    b = Dbl({8, 8});
    m.Solve(b);
    EXPECT_NE(b[0], 1.0);
    EXPECT_NEAR(4 * b[0] + 2 * b[1], 8.0, 1e-14);
    EXPECT_NEAR(0.5 * b[0] + 2 * b[1], 8.0, 1e-14);
}

TEST(MatDbl, SolveWorksInPlaceOnViews)
{
    double block[4] = {2, 4, 3, 2};
    double rhs[4] = {8, 8, 3, 2};
    MatDbl m(2, 2, block);
    VecDbl b(2, rhs);
    m.Solve(b);
    EXPECT_EQ(&m(0, 0), block);
    EXPECT_EQ(block[0], 4.0);
    EXPECT_EQ(rhs[0], 1.0);
    EXPECT_EQ(rhs[1], 2.0);
    MatDbl c(2, 1, rhs + 2);
    m.ReSolve(c);
    EXPECT_EQ(rhs[2], 0.0);
    EXPECT_EQ(rhs[3], 1.0);
}

TEST(MatDbl, SolveOfASingularMatrix)
{
    MatDbl m = Mat({{1, 2}, {2, 4}});
    VecDbl b(2, 1.0);
    EXPECT_THROW(m.Solve(b), VexorComputationFailed);
    EXPECT_NO_THROW(m.ReSolve(b)); // not refused, but meaningless
    m = Mat({{1, 2}, {2, 4}});
    EXPECT_THROW(m.SolveSym(b), VexorComputationFailed);
    EXPECT_NO_THROW(m.ReSolveSym(b));
    MatDbl zero(3, 3, 0.0);
    MatDbl c(3, 2, 1.0);
    EXPECT_THROW(zero.Solve(c), VexorComputationFailed);
    EXPECT_THROW(MatDbl(3, 3, 0.0).SolveSym(c), VexorComputationFailed);
}

// ---- The life of the pivots ------------------------------------------------------------------------

TEST(MatDbl, ReSolveOfAPlainMatrix)
{
    MatDbl m = Mat({{1, 2}, {3, 4}});
    VecDbl b = Dbl({5, 6});
    MatDbl c = Mat({{5}, {6}});
    EXPECT_THROW(m.ReSolve(b), VexorComputationFailed);
    EXPECT_THROW(m.ReSolve(c), VexorComputationFailed);
    EXPECT_THROW(m.ReSolveSym(b), VexorComputationFailed);
    EXPECT_THROW(m.ReSolveSym(c), VexorComputationFailed);
    EXPECT_TRUE(Holds(b, {5, 6}));
    EXPECT_TRUE(HoldsRows(c, {{5}, {6}}));
    EXPECT_TRUE(HoldsRows(m, {{1, 2}, {3, 4}}));
}

TEST(MatDbl, ReSolveChangesNothingInTheMatrix)
{
    MatDbl general = Factorised(Mat({{1, 2}, {3, 4}}));
    MatDbl const factors(general);
    MatDbl symmetric = WithPairPivot();
    VecDbl b = Dbl({5, 6});
    symmetric.SolveSym(b);
    EXPECT_TRUE(Holds(b, {6, 5}));
    MatDbl const symmetricFactors(symmetric);
    for (int i = 0; i < 3; ++i) {
        VecDbl c = Dbl({5, 11});
        general.ReSolve(c);
        EXPECT_NEAR(c[0], 1.0, 1e-15);
        EXPECT_NEAR(c[1], 2.0, 1e-15);
        VecDbl d = Dbl({5, 6});
        symmetric.ReSolveSym(d);
        EXPECT_TRUE(Holds(d, {6, 5}));
    }
    EXPECT_TRUE(general == factors);
    EXPECT_TRUE(symmetric == symmetricFactors);
}

TEST(MatDbl, CopiesCarryTheFactors)
{
    MatDbl m = Factorised(Mat({{1, 2}, {3, 4}}));
    MatDbl copy(m);
    m.SetValue(0.0);
    VecDbl b = Dbl({5, 11});
    copy.ReSolve(b);
    EXPECT_NEAR(b[0], 1.0, 1e-15);
    EXPECT_NEAR(b[1], 2.0, 1e-15);
}

TEST(MatDbl, PivotsSurviveWritesAndSpectra)
{
    MatDbl m = Factorised(Mat({{1, 2}, {3, 4}}));
    m(0, 0) = 7.0;
    m.SetRow(0, Dbl({1, 2}));
    m.SetCol(0, Dbl({1, 2}));
    m.SetDiagonal(3.0);
    m += m;
    m *= 2.0;
    EXPECT_TRUE(HasPivots(m));
    m.Identity();
    EXPECT_TRUE(HasPivots(m));
#if !defined(VEXOR_CHECKED) // a checked build stops on factors that were written to
    VecDbl b = Dbl({5, 6});
    m.ReSolve(b); // with the elements as they are: the identity with rows exchanged
    EXPECT_TRUE(Holds(b, {6, 5}));
#endif
    VecDbl w;
    m.Svd(w);
    EXPECT_TRUE(HasPivots(m));
    m.EigenSym(w, 1, 0, 1);
    EXPECT_TRUE(HasPivots(m));
}

TEST(MatDbl, PivotsAreThereAlthoughTheDriverFailed)
{
    MatDbl m(2, 2, 0.0);
    VecDbl b(2, 1.0);
    EXPECT_THROW(m.Solve(b), VexorComputationFailed);
    EXPECT_TRUE(HasPivots(m));
    MatDbl s(2, 2, 0.0);
    EXPECT_THROW(s.SolveSym(b), VexorComputationFailed);
    EXPECT_TRUE(HasPivots(s));
}

TEST(MatDbl, LeastSquaresAndInverseReleaseThePivots)
{
    MatDbl m = Factorised(Mat({{1, 2}, {3, 4}}));
    VecDbl b(2, 1.0);
    m.SolveLinearLeastSquares(b);
    EXPECT_FALSE(HasPivots(m));
    m = Factorised(Mat({{1, 2}, {3, 4}}));
    MatDbl c(2, 2, 1.0);
    m.SolveLinearLeastSquares(c);
    EXPECT_FALSE(HasPivots(m));
    // The result is detached also if the driver fails.
    m = Factorised(Mat({{1, 2}, {3, 4}}));
    m.SetCol(1, Dbl({0, 0}));
    EXPECT_THROW(m.SolveLinearLeastSquares(b), VexorComputationFailed);
    EXPECT_FALSE(HasPivots(m));
    // But not if the shapes do not match.
    m = Factorised(Mat({{1, 2}, {3, 4}}));
    VecDbl wrong(3, 1.0);
    EXPECT_THROW(m.SolveLinearLeastSquares(wrong), VexorDimensionMismatch);
    EXPECT_TRUE(HasPivots(m));
    EXPECT_FALSE(HasPivots(Factorised(Mat({{1, 2}, {3, 4}})).Invert()));
    EXPECT_FALSE(HasPivots(Factorised(Mat({{1, 2}, {3, 4}})).GetInvertedCopy()));
}

TEST(MatDbl, PivotsOfTheOtherKindStayWithinTheRightHandSide)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build stops on the pivots of the other kind";
#endif
    // The negative pivots of a symmetric factorisation are no row numbers: refused, with nothing changed.
    MatDbl m = WithPairPivot();
    VecDbl b(2, 1.0);
    m.SolveSym(b);
    MatDbl const factors(m);
    b = Dbl({5, 6});
    MatDbl c = Mat({{5}, {6}});
    EXPECT_THROW(m.ReSolve(b), VexorComputationFailed);
    EXPECT_THROW(m.ReSolve(c), VexorComputationFailed);
    EXPECT_TRUE(Holds(b, {5, 6}));
    EXPECT_TRUE(HoldsRows(c, {{5}, {6}}));
    EXPECT_TRUE(m == factors);
    m.ReSolveSym(b);
    EXPECT_TRUE(Holds(b, {6, 5}));
    // The same if the pair is among single pivots.
    MatDbl larger = Mat({{4, 0, 0, 0}, {0, 0, 1, 0}, {0, 1, 0, 0}, {0, 0, 0, 2}});
    VecDbl d(4, 1.0);
    larger.SolveSym(d);
    EXPECT_THROW(larger.ReSolve(d), VexorComputationFailed);
    EXPECT_NO_THROW(larger.ReSolveSym(d));
    // In the reverse case each pivot is a row number: the re-solve runs, and its result is meaningless.
    Numbers numbers(2);
    for (int n = 1; n < 12; ++n) {
        MatDbl general = Factorised(RandomMatrix(n, n, numbers));
        VecDbl e(n, 1.0);
        EXPECT_NO_THROW(general.ReSolveSym(e));
    }
    // And the pivots of every symmetric factorisation are accepted.
    for (int n = 1; n < 40; ++n) {
        MatDbl symmetric = RandomMatrix(n, n, numbers);
        for (int i = 0; i < n; ++i)
            symmetric(i, i) = 0.0;
        VecDbl e(n, 1.0);
        if (n == 1) {
            EXPECT_THROW(symmetric.SolveSym(e), VexorComputationFailed);
        } else {
            symmetric.SolveSym(e);
        }
        EXPECT_NO_THROW(symmetric.ReSolveSym(e));
    }
}

// ---- SolveSym --------------------------------------------------------------------------------------

TEST(MatDbl, SolveSymOfDesignedSystems)
{
    Numbers numbers(3);
    for (int n : sizes) {
        for (double condition : conditions) {
            for (auto spectrum : Spectra(n, condition)) {
                for (std::size_t i = 0; i < spectrum.size(); i += 2)
                    spectrum[i] = -spectrum[i]; // indefinite
                MatDbl const a = WithEigenvalues(spectrum, numbers).Narrow();
                ExpectSolutions(
                    a, numbers, [](MatDbl& m, auto& side) { m.SolveSym(side); },
                    [](MatDbl& m, auto& side) { m.ReSolveSym(side); });
            }
        }
    }
}

TEST(MatDbl, SolveSymReadsTheUpperTriangleOnly)
{
    MatDbl symmetric = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
    MatDbl rubbish = Mat({{4, 1, 2}, {vexor_test::nan, 5, 3}, {1e300, infinity, 6}});
    VecDbl x = Dbl({1, 2, 3});
    VecDbl y(x);
    symmetric.SolveSym(x);
    rubbish.SolveSym(y);
    EXPECT_TRUE(x == y);
    EXPECT_SAME_BITS(rubbish(1, 0), vexor_test::nan);
    EXPECT_SAME_BITS(rubbish(2, 0), 1e300);
    EXPECT_SAME_BITS(rubbish(2, 1), infinity);
    x = Dbl({3, 2, 1});
    y = x;
    symmetric.ReSolveSym(x);
    rubbish.ReSolveSym(y);
    EXPECT_TRUE(x == y);
}

// ---- Least squares ---------------------------------------------------------------------------------

TEST(MatDbl, LeastSquaresOfDesignedSystems)
{
    Numbers numbers(4);
    int const shapes[][2] = {{1, 1}, {3, 3}, {4, 2}, {2, 4}, {9, 1}, {1, 9}, {30, 11}, {11, 30}, {40, 40}};
    for (auto const& shape : shapes) {
        int const rows = shape[0];
        int const columns = shape[1];
        for (double condition : {2.0, 1e7}) {
            for (auto const& spectrum : Spectra(std::min(rows, columns), condition)) {
                MatDbl const a = WithSingularValues(rows, columns, spectrum, numbers).Narrow();
                Wide const wide(a);
                MatDbl const b = RandomMatrix(rows, 3, numbers);
                MatDbl x(b);
                MatDbl(a).SolveLinearLeastSquares(x);
                ASSERT_EQ(x.RowCount(), columns);
                ASSERT_EQ(x.ColumnCount(), 3);
                VecDbl first = b.GetCol(0);
                MatDbl(a).SolveLinearLeastSquares(first);
                ASSERT_EQ(first.Size(), columns);
                for (int i = 0; i < columns; ++i)
                    EXPECT_NEAR(first[i], x(i, 0),
                                1e-13 * condition * std::fabs(x(i, 0)) + 1e-12 * condition);

                Wide const residual = Wide(b) - wide * Wide(x);
                long double const larger = std::max({rows, columns, 3});
                if (rows > columns) {
                    // The residual is orthogonal to the columns, within the rounding of A·X.
                    long double const size = wide.Norm() * Wide(x).Norm() + Wide(b).Norm();
                    long double const ratio = (wide.Transposed() * residual).Norm() / wide.Norm() / size
                                              / larger / relativeRounding;
                    EXPECT_LT(static_cast<double>(ratio), linearThreshold);
                } else {
                    // The system is solved …
                    EXPECT_LT(SolutionRatio(wide, Wide(x), Wide(b)) / double(larger), linearThreshold);
                }
                if (rows < columns) {
                    // … and no solution is shorter: this one is orthogonal to what the matrix maps to 0.
                    MatDbl basis(a);
                    VecDbl values;
                    basis.Svd(values);
                    Wide const inRows = Wide(basis).Top(rows);
                    Wide const outside = Wide(x) - inRows.Transposed() * (inRows * Wide(x));
                    long double const ratio =
                        outside.Norm() / Wide(x).Norm() / larger / relativeRounding / condition;
                    EXPECT_LT(static_cast<double>(ratio), linearThreshold);
                }
            }
        }
    }
}

TEST(MatDbl, LeastSquaresByHand)
{
    // The line y = 1 + 2·t, and four points, three of them on it.
    MatDbl tall = Mat({{1, 0}, {1, 1}, {1, 2}, {1, 3}});
    VecDbl b = Dbl({1, 3, 5, 7});
    tall.SolveLinearLeastSquares(b);
    ASSERT_EQ(b.Size(), 2);
    EXPECT_NEAR(b[0], 1.0, 1e-14);
    EXPECT_NEAR(b[1], 2.0, 1e-14);
    // x + y + z = 3 and x − y = 0: the shortest solution is (1, 1, 1).
    MatDbl wide = Mat({{1, 1, 1}, {1, -1, 0}});
    VecDbl c = Dbl({3, 0});
    wide.SolveLinearLeastSquares(c);
    ASSERT_EQ(c.Size(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(c[i], 1.0, 1e-15);
}

TEST(MatDbl, LeastSquaresResizesTheRightHandSide)
{
    for (int rows : {2, 3, 4}) {
        int const columns = 6 - rows;
        MatDbl const a = Mat({{1, 2, 3, 4}, {2, 7, 1, 8}, {3, 1, 4, 1}, {5, 9, 2, 6}});
        MatDbl m(rows, columns);
        for (int i = 0; i < rows; ++i) {
            for (int j = 0; j < columns; ++j)
                m(i, j) = a(i, j);
        }

        double array[4] = {1, 2, 3, 4};
        VecDbl view(rows, array);
        MatDbl(m).SolveLinearLeastSquares(view);
        EXPECT_EQ(view.Size(), columns);
        EXPECT_EQ(&view[0] == array, rows == columns); // a view stays one only if nothing is resized
        if (rows < columns) {
            EXPECT_EQ(array[0], 1.0); // it detached before the driver ran
        }

        double block[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
        MatDbl manyView(rows, 3, block);
        MatDbl(m).SolveLinearLeastSquares(manyView);
        EXPECT_EQ(manyView.RowCount(), columns);
        EXPECT_EQ(manyView.ColumnCount(), 3);
        EXPECT_EQ(&manyView(0, 0) == block, rows == columns);

        // The columns are independent: each is the solution of its own right-hand side.
        VecDbl own = Dbl({1, 2, 3, 4});
        own = VecDbl(rows, &own[0]);
        MatDbl many(rows, 3);
        for (int j = 0; j < 3; ++j)
            many.SetCol(j, own * (j + 1.0));
        MatDbl(m).SolveLinearLeastSquares(own);
        MatDbl(m).SolveLinearLeastSquares(many);
        for (int i = 0; i < columns; ++i) {
            EXPECT_NEAR(many(i, 0), own[i], 1e-13);
            EXPECT_NEAR(many(i, 2), own[i] * 3.0, 1e-13);
        }
        // The table of columns has the new number of rows.
        for (int j = 0; j < 3; ++j)
            EXPECT_EQ(&many(0, j), &many(0, 0) + j * columns);

        // A factorised right-hand side whose shape changes is no longer factorised.
        MatDbl square = Factorised(MatDbl(rows, rows, 0.0).Identity());
        MatDbl(m).SolveLinearLeastSquares(square);
        EXPECT_EQ(square.RowCount(), columns);
        EXPECT_EQ(square.ColumnCount(), rows);
#if !defined(_WIN32) // the library's allocations cannot be counted
        // A copy allocates a table, a block and, of a factorised matrix, pivots.
        EXPECT_EQ(CountRequests([&] { MatDbl const copy(square); }), rows == columns ? 3 : 2);
#endif
    }
}

TEST(MatDbl, LeastSquaresFailures)
{
    // For a column of zeros the driver finds an exact zero on the diagonal of its triangle.
    MatDbl tall = Mat({{1, 0}, {1, 0}, {1, 0}});
    VecDbl b(3, 1.0);
    EXPECT_THROW(tall.SolveLinearLeastSquares(b), VexorComputationFailed);
    MatDbl wide = Mat({{1, 1, 1}, {0, 0, 0}});
    VecDbl c(2, 1.0);
    EXPECT_THROW(wide.SolveLinearLeastSquares(c), VexorComputationFailed);
    EXPECT_EQ(c.Size(), 3); // resized before the driver ran
}

TEST(MatDbl, LeastSquaresWithVeryManyRightHandSides)
{
    // The driver needs more workspace than 128 times the larger dimension and reports that by a negative
    // INFO: its parameter-error routine must return, and the library must raise.
    MatDbl const one = Mat({{2}});
    MatDbl few(1, 127, 4.0);
    MatDbl(one).SolveLinearLeastSquares(few);
    EXPECT_EQ(few(0, 126), 2.0);
    MatDbl many(1, 128, 4.0);
    EXPECT_THROW(MatDbl(one).SolveLinearLeastSquares(many), VexorComputationFailed);
    EXPECT_EQ(many(0, 0), 4.0);
}

// ---- Inverse ---------------------------------------------------------------------------------------

TEST(MatDbl, InvertOfDesignedMatrices)
{
    Numbers numbers(5);
    for (int n : sizes) {
        for (double condition : conditions) {
            for (auto const& spectrum : Spectra(n, condition)) {
                MatDbl const a = WithSingularValues(n, n, spectrum, numbers).Narrow();
                MatDbl const inverse = a.GetInvertedCopy();
                Wide const gap =
                    Wide(a) * Wide(inverse) - Diagonal(n, n, std::vector<double>(std::size_t(n), 1.0));
                long double const ratio =
                    gap.Norm() / n / Wide(a).Norm() / Wide(inverse).Norm() / relativeRounding;
                EXPECT_LT(static_cast<double>(ratio), linearThreshold);
                MatDbl inPlace(a);
                EXPECT_EQ(&inPlace.Invert(), &inPlace);
                EXPECT_TRUE(inPlace == inverse);
            }
        }
    }
}

TEST(MatDbl, InvertStorage)
{
    MatDbl own = Mat({{2, 0}, {0, 4}});
    double const* const block = &own(0, 0);
    own.Invert();
    EXPECT_TRUE(HoldsRows(own, {{0.5, 0}, {0, 0.25}}));
    EXPECT_EQ(&own(0, 0), block);

    // The inverse of a view is in own storage, and the factors are left in the caller's block.
    double caller[4] = {2, 4, 3, 2};
    MatDbl view(2, 2, caller);
    view.Invert();
    EXPECT_NE(&view(0, 0), caller);
    double const factors[4] = {4, 0.5, 2, 2};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(caller[i], factors[i]);
    EXPECT_TRUE(HoldsRows(view, {{-0.25, 0.375}, {0.5, -0.25}}));
    EXPECT_FALSE(HasPivots(view));
    view.SetValue(1.0);
    view.ReSize(2, 2, caller); // own storage of that shape is kept
    EXPECT_NE(&view(0, 0), caller);
    EXPECT_EQ(caller[0], 4.0);
}

TEST(MatDbl, InvertOfASingularMatrix)
{
    MatDbl m = Mat({{1, 2}, {2, 4}});
    EXPECT_THROW(m.GetInvertedCopy(), VexorComputationFailed);
    EXPECT_TRUE(HoldsRows(m, {{1, 2}, {2, 4}}));
    EXPECT_FALSE(HasPivots(m));
    EXPECT_THROW(m.Invert(), VexorComputationFailed);
    EXPECT_EQ(m(0, 0), 2.0); // the factors replace it
    EXPECT_TRUE(HasPivots(m));
}

// ---- Singular values -------------------------------------------------------------------------------

TEST(MatDbl, SvdOfDesignedMatrices)
{
    Numbers numbers(6);
    int const shapes[][2] = {{1, 1}, {2, 2}, {3, 3},   {2, 3},   {3, 2},
                             {1, 7}, {7, 1}, {17, 17}, {40, 11}, {11, 40}};
    for (auto const& shape : shapes) {
        int const rows = shape[0];
        int const columns = shape[1];
        int const smaller = std::min(rows, columns);
        for (double condition : conditions) {
            for (double scale : {1.0, 0x1p-600, 0x1p600}) {
                for (auto spectrum : Spectra(smaller, condition)) {
                    std::sort(spectrum.begin(), spectrum.end(), std::greater<>());
                    MatDbl const a = WithSingularValues(rows, columns, spectrum, numbers).Narrow() * scale;
                    MatDbl vectors(a);
                    VecDbl values(1, 99.0);
                    vectors.Svd(values);

                    ASSERT_EQ(values.Size(), smaller);
                    Wide const unscaled(a / scale);
                    long double const unit = unscaled.Norm() * std::max(rows, columns) * lastPlace;
                    for (int i = 0; i < smaller; ++i) {
                        if (i > 0) {
                            EXPECT_GE(values[i - 1], values[i]);
                        }
                        long double const gap =
                            std::fabs((long double)(values[i]) / scale - spectrum[std::size_t(i)]);
                        EXPECT_LT(static_cast<double>(gap / unit), spectralThreshold);
                    }
                    Wide const v = Wide(vectors).Top(smaller);
                    EXPECT_LT(OrthogonalityRatio(v), spectralThreshold);
                    // A·V has orthogonal columns, whose lengths are the singular values.
                    Wide const av = unscaled * v.Transposed();
                    Wide gap = av.Transposed() * av;
                    for (int i = 0; i < smaller; ++i)
                        gap(i, i) -= (long double)(values[i]) / scale * ((long double)(values[i]) / scale);
                    EXPECT_LT(static_cast<double>(gap.Norm() / unscaled.Norm() / unit), spectralThreshold);
                }
            }
        }
    }
}

TEST(MatDbl, SvdByHand)
{
    MatDbl one = Mat({{-2}});
    VecDbl values;
    one.Svd(values);
    EXPECT_TRUE(Holds(values, {2}));
    EXPECT_EQ(std::fabs(one(0, 0)), 1.0);

    // Rows that are already orthogonal: the vectors are their directions, the longer row first.
    MatDbl m = Mat({{3, 0, 0}, {0, 0, 5}});
    m.Svd(values);
    EXPECT_TRUE(Holds(values, {5, 3}));
    double const expected[2][3] = {{0, 0, 1}, {1, 0, 0}};
    for (int i = 0; i < 2; ++i) {
        for (int j = 0; j < 3; ++j)
            EXPECT_NEAR(std::fabs(m(i, j)), expected[i][j], 1e-15);
    }
}

TEST(MatDbl, SvdShapesItsResult)
{
    double array[4] = {9, 9, 9, 9};
    for (int size : {1, 2, 4}) {
        VecDbl view(size, array);
        Mat({{1, 2, 3}, {4, 5, 6}}).Svd(view);
        EXPECT_EQ(view.Size(), 2);
        EXPECT_NE(&view[0], array);
    }
    for (double element : array)
        EXPECT_EQ(element, 9.0);
    // Own storage of that size is kept, and a view is overwritten in place.
    VecDbl own(2, 9.0);
    double const* const block = &own[0];
    double elements[6] = {1, 4, 2, 5, 3, 6};
    MatDbl(2, 3, elements).Svd(own);
    EXPECT_EQ(&own[0], block);
    EXPECT_LT(std::fabs(elements[0]), 1.0);
}

TEST(MatDbl, SvdRefusesInfinitiesAndNans)
{
    for (double bad : {infinity, -infinity, vexor_test::nan}) {
        for (int rows : {1, 2, 3, 5}) {
            for (int columns : {1, 3, 4}) {
                for (int at = 0; at < rows * columns; ++at) {
                    MatDbl m(rows, columns, 1.0);
                    m(at % rows, at / rows) = bad;
                    if (at > 0)
                        m(0, 0) = vexor_test::nan;
                    std::vector<double> const before = ElementsOf(m);
                    VecDbl values(7, 9.0);
                    EXPECT_THROW(m.Svd(values), VexorComputationFailed);
                    EXPECT_TRUE(SameElements(ElementsOf(m), before));
                    EXPECT_EQ(values.Size(), std::min(rows, columns)); // the state after a driver that fails
                }
            }
        }
    }
}

// ---- Eigenvalues -----------------------------------------------------------------------------------

TEST(MatDbl, EigenSymOfDesignedMatrices)
{
    Numbers numbers(7);
    for (int n : sizes) {
        for (double condition : conditions) {
            for (auto spectrum : Spectra(n, condition)) {
                for (std::size_t i = 1; i < spectrum.size(); i += 3)
                    spectrum[i] = -spectrum[i];
                MatDbl const a = WithEigenvalues(spectrum, numbers).Narrow();
                std::sort(spectrum.begin(), spectrum.end());
                Wide const wide(a);
                long double const unit = wide.Norm() * n * lastPlace;
                int const ranges[][2] = {{0, n - 1}, {0, 0}, {n - 1, n - 1}, {n / 3, n / 2}, {n / 2, n - 1}};
                for (auto const& range : ranges) {
                    int const selected = range[1] - range[0] + 1;
                    MatDbl vectors(a);
                    VecDbl values;
                    vectors.EigenSym(values, 1, range[0], range[1]);
                    ASSERT_EQ(values.Size(), n);
                    MatDbl lost(a);
                    VecDbl alone;
                    lost.EigenSym(alone, 0, range[0], range[1]);
                    ASSERT_EQ(alone.Size(), n);
                    for (int k = 0; k < selected; ++k) {
                        if (k > 0) {
                            EXPECT_LE(values[k - 1], values[k]);
                        }
                        for (double value : {values[k], alone[k]}) {
                            long double const gap =
                                std::fabs(value - (long double)(spectrum[std::size_t(range[0] + k)]));
                            EXPECT_LT(static_cast<double>(gap / unit), spectralThreshold);
                        }
                    }
                    Wide const v = Wide(vectors).Top(selected);
                    EXPECT_LT(OrthogonalityRatio(v), spectralThreshold);
                    Wide gap = wide * v.Transposed();
                    for (int k = 0; k < selected; ++k) {
                        for (int i = 0; i < n; ++i)
                            gap(i, k) -= values[k] * v(k, i);
                    }
                    EXPECT_LT(static_cast<double>(gap.Norm() / unit), spectralThreshold);
                }
            }
        }
    }
}

TEST(MatDbl, EigenSymByHand)
{
    MatDbl diagonal = Mat({{3, 0, 0}, {0, -1, 0}, {0, 0, 2}});
    VecDbl values;
    MatDbl(diagonal).EigenSym(values, 0, 0, 2);
    EXPECT_TRUE(Holds(values, {-1, 2, 3}));

    // The middle one of three values, and its vector in row 0. Any number other than 0 requests vectors.
    for (int wantVectors : {1, -7}) {
        MatDbl m(diagonal);
        m.EigenSym(values, wantVectors, 1, 1);
        EXPECT_EQ(values.Size(), 3);
        EXPECT_NEAR(values[0], 2.0, 1e-15);
        EXPECT_NEAR(m(0, 0), 0.0, 1e-15);
        EXPECT_NEAR(m(0, 1), 0.0, 1e-15);
        EXPECT_NEAR(std::fabs(m(0, 2)), 1.0, 1e-15);
    }
    MatDbl one = Mat({{-4}});
    one.EigenSym(values, 1, 0, 0);
    EXPECT_TRUE(Holds(values, {-4}));
    EXPECT_EQ(std::fabs(one(0, 0)), 1.0);
}

TEST(MatDbl, EigenSymReadsTheUpperTriangleOnly)
{
    MatDbl const symmetric = Mat({{4, 1, 2}, {1, 5, 3}, {2, 3, 6}});
    MatDbl const rubbish = Mat({{4, 1, 2}, {vexor_test::nan, 5, 3}, {1e300, infinity, 6}});
    for (int last : {0, 2}) {
        VecDbl a;
        VecDbl b;
        MatDbl v(symmetric);
        MatDbl w(rubbish);
        v.EigenSym(a, 1, 0, last);
        w.EigenSym(b, 1, 0, last);
        for (int k = 0; k <= last; ++k) {
            EXPECT_SAME_BITS(a[k], b[k]);
            for (int j = 0; j < 3; ++j)
                EXPECT_SAME_BITS(v(k, j), w(k, j));
        }
    }
}

TEST(MatDbl, EigenSymChecksItsArgumentsFirst)
{
    VecDbl values(5, 9.0);
    MatDbl const square = Mat({{1, 2}, {2, 1}});
    int const ranges[][2] = {{1, 0}, {-1, 0}, {-1, -1}, {0, 2}, {2, 2}, {INT_MIN, INT_MAX}, {0, INT_MAX}};
    for (auto const& range : ranges) {
        MatDbl m(square);
        EXPECT_THROW(m.EigenSym(values, 1, range[0], range[1]), VexorDimensionMismatch);
        EXPECT_TRUE(m == square);
    }
    for (MatDbl m : {Mat({{1, 2, 3}, {4, 5, 6}}), Mat({{1}, {2}})}) {
        MatDbl const before(m);
        EXPECT_THROW(m.EigenSym(values, 1, 0, 0), VexorDimensionMismatch);
        EXPECT_TRUE(m == before);
    }
    EXPECT_TRUE(Holds(values, {9, 9, 9, 9, 9}));
}

TEST(MatDbl, EigenSymShapesItsResult)
{
    double array[4] = {9, 9, 9, 9};
    for (int size : {1, 3, 4}) {
        VecDbl view(size, array);
        Mat({{1, 0, 0}, {0, 2, 0}, {0, 0, 3}}).EigenSym(view, 1, 0, 2);
        EXPECT_TRUE(Holds(view, {1, 2, 3}));
        EXPECT_NE(&view[0], array);
    }
    for (double element : array)
        EXPECT_EQ(element, 9.0);
}

TEST(MatDbl, EigenSymLeavesNoValueUnsetBesideNans)
{
    Numbers numbers(12);
    for (int n : {2, 3, 4, 5, 8}) {
        for (int at = 0; at < n * n; ++at) {
            for (int first : {0, n / 2, n - 1}) {
                MatDbl m = RandomMatrix(n, n, numbers);
                for (int i = 0; i < n; ++i)
                    m(i, (i + at) % n) = 0.0;
                m(std::min(at / n, at % n), std::max(at / n, at % n)) = vexor_test::nan;
                VecDbl values(n, 7e77); // elements that the driver leaves unchanged would keep it
                ReturnsOrRaises([&] { m.EigenSym(values, at % 2, first, n - 1); });
                for (int i = 0; i < n - first; ++i)
                    EXPECT_NE(values[i], 7e77) << n << ", " << at << ", " << first;
            }
        }
    }
}

// ---- All drivers -----------------------------------------------------------------------------------

TEST(MatDbl, NoDriverHangsOnNanOrInfinity)
{
    Numbers numbers(8);
    for (double bad : {vexor_test::nan, infinity, -infinity, 1e308}) {
        for (int n : {1, 2, 3, 4, 7, 20, 65}) {
            for (int at : {0, 1, n - 1, n, n * n / 2, n * n - 1, -1}) {
                MatDbl a = RandomMatrix(n, n, numbers);
                for (int i = 0; i < n; ++i) {
                    for (int j = 0; j < i; ++j)
                        a(i, j) = a(j, i);
                }
                if (at < 0)
                    a.SetValue(bad);
                else if (at < n * n)
                    a(at / n, at % n) = a(at % n, at / n) = bad;
                for (bool badRhs : {false, true}) {
                    VecDbl b(n, 1.0);
                    if (badRhs)
                        b[n / 2] = bad;
                    MatDbl m(a);
                    ReturnsOrRaises([&] { m.Solve(b); });
                    ReturnsOrRaises([&] { m.ReSolve(b); });
                    m = a;
                    ReturnsOrRaises([&] { m.SolveSym(b); });
                    ReturnsOrRaises([&] { m.ReSolveSym(b); });
#if !defined(VEXOR_CHECKED) // a checked build stops on the factors of the other kind
                    ReturnsOrRaises([&] { m.ReSolve(b); });
#endif
                    m = a;
                    ReturnsOrRaises([&] { m.SolveLinearLeastSquares(b); });
                }
                ReturnsOrRaises([&] { (void)a.GetInvertedCopy(); });
                VecDbl values;
                MatDbl m(a);
                ReturnsOrRaises([&] { m.Svd(values); });
                for (int wantVectors : {0, 1}) {
                    m = a;
                    ReturnsOrRaises([&] { m.EigenSym(values, wantVectors, 0, n - 1); });
                    m = a;
                    ReturnsOrRaises([&] { m.EigenSym(values, wantVectors, n / 2, n / 2); });
                }
                for (MatDbl oblong : {MatDbl(n + 3, n, 1.0), MatDbl(n, n + 3, 1.0)}) {
                    for (int i = 0; i < oblong.RowCount(); ++i) {
                        for (int j = 0; j < oblong.ColumnCount(); ++j)
                            oblong(i, j) = numbers.Next();
                    }
                    oblong(n / 2, n - 1) = bad;
                    VecDbl b(oblong.RowCount(), 1.0);
                    MatDbl copy(oblong);
                    ReturnsOrRaises([&] { copy.SolveLinearLeastSquares(b); });
                    ReturnsOrRaises([&] { oblong.Svd(values); });
                }
            }
        }
    }
}

TEST(MatDbl, WorkspaceBeyondAnIntIsAFailedAllocation)
{
    // 128 times 2^24 is 2^31. LAPACK is not called: a driver would have changed the elements.
    int const rows = 1 << 24;
    MatDbl m(rows, 1, 1.0);
    VecDbl b(rows, 1.0);
    EXPECT_THROW(m.SolveLinearLeastSquares(b), VexorAllocationFailed);
    EXPECT_EQ(b.Size(), rows);
    EXPECT_EQ(b[0], 1.0);
    VecDbl values(2, 9.0);
    EXPECT_THROW(m.Svd(values), VexorAllocationFailed);
    EXPECT_EQ(values.Size(), 1);
    EXPECT_EQ(m(0, 0), 1.0);
    // If the workspace cannot be allocated, that is raised even if an element is not finite.
    m(1, 0) = infinity;
    values.ReSize(2);
    EXPECT_THROW(m.Svd(values), VexorAllocationFailed);
    EXPECT_EQ(values.Size(), 1);
    EXPECT_EQ(m(rows - 1, 0), 1.0);

    MatDbl turned(1, rows, 1.0);
    VecDbl c = Dbl({4});
    EXPECT_THROW(turned.SolveLinearLeastSquares(c), VexorAllocationFailed);
    EXPECT_TRUE(Holds(c, {4}));
}

#if UINTPTR_MAX > 0xffffffffu
TEST(MatDbl, SymmetricWorkspaceBeyondAnIntIsAFailedAllocation)
{
    // A square matrix of that size does not fit in memory. A view on a smaller block is possible, as long as
    // nothing reads beyond the block.
    int const n = 1 << 24;
    double block[1] = {5};
    MatDbl m(n, n, block);
    VecDbl b(n, 1.0);
    EXPECT_THROW(m.SolveSym(b), VexorAllocationFailed);
    EXPECT_THROW(m.ReSolveSym(b), VexorComputationFailed); // the pivots are dropped
    EXPECT_THROW(m.EigenSym(b, 0, 0, n - 1), VexorAllocationFailed);
    EXPECT_EQ(block[0], 5.0);
    EXPECT_EQ(b[n - 1], 1.0);
}
#endif
