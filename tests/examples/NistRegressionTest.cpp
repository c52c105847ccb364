#include "Files.h"
#include "regression/Regression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace examples;

/// A problem, and the number of digits that every coefficient must have.
struct Demand {
    char const* name;
    int observations;
    int coefficients;
    double digits;
};

class NistRegression : public testing::TestWithParam<Demand> {
protected:
    NistProblem problem = ReadNistProblem(DataFile(std::string("nist/") + GetParam().name + ".txt"));
};

/// The less accurate way to fit: solves XᵀX b = Xᵀy.
Fit FitByNormalEquations(NistProblem const& problem)
{
    MatDbl const transposed = problem.design.GetTransposedCopy();
    MatDbl square = transposed * problem.design;
    VecDbl coefficients = transposed * problem.response;
    square.SolveSym(coefficients);
    return {coefficients, 0.0};
}

TEST_P(NistRegression, IsReadWhole)
{
    EXPECT_EQ(problem.design.RowCount(), GetParam().observations);
    EXPECT_EQ(problem.design.ColumnCount(), GetParam().coefficients);
    EXPECT_EQ(problem.response.Size(), GetParam().observations);
    EXPECT_EQ(problem.coefficients.size(), static_cast<std::size_t>(GetParam().coefficients));
}

TEST_P(NistRegression, CoefficientsHaveTheDigits)
{
    Fit const fit = FitLeastSquares(problem);
    ASSERT_EQ(fit.coefficients.Size(), GetParam().coefficients);
    for (int i = 0; i < fit.coefficients.Size(); ++i) {
        CertifiedValue const& certified = problem.coefficients[static_cast<std::size_t>(i)];
        EXPECT_GE(CorrectDigits(fit.coefficients[i], certified.estimate), GetParam().digits)
            << certified.name << " = " << fit.coefficients[i];
    }
}

TEST_P(NistRegression, ResidualDeviationHasTheDigits)
{
    Fit const fit = FitLeastSquares(problem);
    EXPECT_GE(CorrectDigits(fit.residualDeviation, problem.residualDeviation), GetParam().digits);
}

TEST_P(NistRegression, DigitsHeldAreRight)
{
    Fit const fit = FitLeastSquares(problem);
    Conditioning const conditioning = Examine(problem, fit);
    double const solversOwn = 1.0; // the bound allows for one rounding of the data, not for the solver's
    for (int i = 0; i < fit.coefficients.Size(); ++i) {
        auto const index = static_cast<std::size_t>(i);
        EXPECT_GE(CorrectDigits(fit.coefficients[i], problem.coefficients[index].estimate),
                  conditioning.digitsHeld[index] - solversOwn);
    }
}

class NormalEquations : public NistRegression {};

// The normal equations square the condition number of the problem.
TEST_P(NormalEquations, FallShort)
{
    double worst = 0.0;
    try {
        worst = WorstDigits(problem, FitByNormalEquations(problem));
    } catch (VexorComputationFailed const&) {
    }
    EXPECT_LT(worst, GetParam().digits);
}

// The accuracy of a Householder factorisation in double precision, less about half a digit for the
// differences between processors and providers.
Demand const norris{"Norris", 36, 2, 12.0};
Demand const pontius{"Pontius", 40, 3, 11.8};
Demand const noInt1{"NoInt1", 11, 1, 14.2};
Demand const noInt2{"NoInt2", 3, 1, 14.2};
Demand const filip{"Filip", 82, 11, 7.3};
Demand const longley{"Longley", 16, 7, 10.3};
Demand const wampler1{"Wampler1", 21, 6, 8.5};
Demand const wampler2{"Wampler2", 21, 6, 12.0};
Demand const wampler3{"Wampler3", 21, 6, 8.5};
Demand const wampler4{"Wampler4", 21, 6, 7.2};
Demand const wampler5{"Wampler5", 21, 6, 5.3};

std::string NameOf(testing::TestParamInfo<Demand> const& test)
{
    return test.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, NistRegression,
                         testing::Values(norris, pontius, noInt1, noInt2, filip, longley, wampler1, wampler2,
                                         wampler3, wampler4, wampler5),
                         NameOf);

// Without the easy problems, and Wampler4 and 5, whose large residuals leave neither way many digits.
INSTANTIATE_TEST_SUITE_P(Hard, NormalEquations,
                         testing::Values(pontius, filip, longley, wampler1, wampler2, wampler3), NameOf);

TEST(CorrectDigits, IsMinusTheLogarithmOfTheRelativeError)
{
    EXPECT_EQ(CorrectDigits(3.5, 3.5), 15.0);
    EXPECT_NEAR(CorrectDigits(1001.0, 1000.0), 3.0, 1e-12);
    EXPECT_NEAR(CorrectDigits(-0.99, -1.0), 2.0, 1e-12);
    EXPECT_EQ(CorrectDigits(2.0, 1.0), 0.0);
    EXPECT_EQ(CorrectDigits(-5.0, 1.0), 0.0);
    EXPECT_NEAR(CorrectDigits(1e-4, 0.0), 4.0, 1e-12);
    EXPECT_EQ(CorrectDigits(std::numeric_limits<double>::quiet_NaN(), 1.0), 0.0);
    EXPECT_EQ(CorrectDigits(std::nextafter(1.0, 2.0), 1.0), 15.0); // 15.65, but 15 are certified
}

// Columns (1, 1) and (1, -1) are perpendicular: condition 1. With (1, 1) and (1, 0) the scaled columns are at
// 45 degrees: the singular values are √(1 ± √½).
TEST(Examine, MeasuresTheConditionOfTheScaledColumns)
{
    ScratchFile square("model linear 1\nB0 0\nB1 2\ndata y x\n2e6 1e6\n-2e6 -1e6\n");
    NistProblem const perpendicular = ReadNistProblem(square.Path());
    EXPECT_NEAR(Examine(perpendicular, FitLeastSquares(perpendicular)).condition, 1.0, 1e-14);

    ScratchFile slanted("model linear 1\nB0 0\nB1 1\ndata y x\n1 1\n0 0\n");
    NistProblem const oblique = ReadNistProblem(slanted.Path());
    EXPECT_NEAR(Examine(oblique, FitLeastSquares(oblique)).condition, 1.0 + std::sqrt(2.0), 1e-14);
}

} // namespace
