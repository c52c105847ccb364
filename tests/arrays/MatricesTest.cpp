#include <arrays/Loops.h>

#include <cstdint>

// Matrices.h compared with loops over the members, byte for byte, in every instruction set.

namespace {

using namespace arrays_test;

Mat3Dbl Inverse(Mat3Dbl const& matrix)
{
    return matrix.GetInvertedCopy();
}

Vec3Dbl Solution(Mat3Dbl const& matrix, Vec3Dbl const& rightSide)
{
    Mat3Dbl factors(matrix);
    Vec3Dbl solution(rightSide);
    factors.Solve(solution);
    return solution;
}

auto const invert = [](Mat3Dbl const* from, Mat3Dbl* to, std::size_t count) {
    vexor::arrays::Invert(from, to, count);
};
auto const solve = [](auto const& matrices, auto const& rightSides, Vec3Dbl* results, std::size_t count) {
    vexor::arrays::Solve(matrices, rightSides, results, count);
};

TEST(ArraysMatrices, Invert)
{
    ExamineSingle<Mat3Dbl>("Invert", invert, Inverse);
}

TEST(ArraysMatrices, Solve)
{
    ExaminePair<Mat3Dbl, Vec3Dbl>("Solve", solve, Solution);
}

// So many matrices have loops of their own. The second time one of them is singular.
TEST(ArraysMatrices, ManyMatrices)
{
    Operands operands(12);
    auto matrices = operands.Many<Mat3Dbl>(vexor::arrays::detail::manyMatrices + laneCount, Kind::Ordinary);
    auto const rightSides = operands.Many<Vec3Dbl>(matrices.size(), Kind::Ordinary);
    for (Mat3Dbl const& matrix : matrices)
        ASSERT_NO_THROW(Inverse(matrix)) << "the loops would end early";
    CompareSingle("Invert", matrices, invert, Inverse, false);
    ComparePair("Solve", matrices, rightSides, solve, Solution, false);
    matrices[200003] = Mat3Dbl(Vec3Dbl(1.0, 2.0, 3.0), Vec3Dbl(2.0, 4.0, 6.0), Vec3Dbl(0.0, 1.0, 1.0));
    CompareSingle("Invert", matrices, invert, Inverse, false);
    ComparePair("Solve", matrices, rightSides, solve, Solution, false);
}

// Small integers: ties between candidates for the pivot, zeros in every place, singular matrices.
TEST(ArraysMatrices, PivotsThatTie)
{
    Operands operands(7);
    for (int repeat = 0; repeat < 300; ++repeat) {
        std::vector<Mat3Dbl> matrices(laneCount);
        std::vector<Vec3Dbl> rightSides(laneCount);
        for (std::size_t i = 0; i < laneCount; ++i) {
            for (int k = 0; k < 9; ++k)
                SetNumber(matrices[i], k, double(operands.Pick(5)) - 2.0);
            if (repeat % 2 == 0) { // regular, with a diagonal that does not determine a pivot
                for (int k = 0; k < 3; ++k)
                    matrices[i](k, (k + int(operands.Pick(3))) % 3) += 4.0;
            }
            for (int k = 0; k < 3; ++k)
                SetNumber(rightSides[i], k, operands.Pick(2) ? 0.0 : double(operands.Pick(3)) - 1.0);
        }
        ASSERT_NO_FATAL_FAILURE(CompareSingle("Invert", matrices, invert, Inverse, false));
        ASSERT_NO_FATAL_FAILURE(ComparePair("Solve", matrices, rightSides, solve, Solution, false));
    }
}

// Each of the six orders of the rows, in each lane.
TEST(ArraysMatrices, EveryOrderOfPivots)
{
    int const orders[6][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    Operands operands(8);
    for (std::size_t lane = 0; lane < laneCount; ++lane) {
        for (auto const& order : orders) {
            auto matrices = operands.Many<Mat3Dbl>(laneCount, Kind::Ordinary);
            for (int k = 0; k < 3; ++k)
                matrices[lane](order[k], k) = 100.0 + k;
            auto const rightSides = operands.Many<Vec3Dbl>(laneCount, Kind::Ordinary);
            CompareSingle("Invert", matrices, invert, Inverse, false);
            ComparePair("Solve", matrices, rightSides, solve, Solution, false);
        }
    }
}

// The solution skips leading zeros of the right-hand side in the order of the pivots: a −0 behind them is not
// subtracted from.
TEST(ArraysMatrices, LeadingZeros)
{
    Mat3Dbl const matrix(Vec3Dbl(4.0, 0.0, 0.0), Vec3Dbl(-2.0, 4.0, 0.0), Vec3Dbl(0.0, 0.0, 4.0));
    WithEachSet([&](std::string const& set) {
        std::vector<Mat3Dbl> const matrices(laneCount, matrix);
        std::vector<Vec3Dbl> const rightSides(laneCount, Vec3Dbl(0.0, -0.0, 4.0));
        std::vector<Vec3Dbl> solutions(laneCount);
        vexor::arrays::Solve(matrices, rightSides, solutions);
        for (Vec3Dbl const& solution : solutions)
            EXPECT_TRUE(SameNumbers(solution, Vec3Dbl(0.0, -0.0, 1.0))) << set;
    });

    Operands operands(10);
    double const numbers[4] = {0.0, -0.0, 1.0, -3.0};
    for (int repeat = 0; repeat < 100; ++repeat) {
        auto const matrices = operands.Many<Mat3Dbl>(laneCount, Kind::Ordinary);
        std::vector<Vec3Dbl> rightSides(laneCount);
        for (Vec3Dbl& rightSide : rightSides)
            rightSide =
                Vec3Dbl(numbers[operands.Pick(4)], numbers[operands.Pick(4)], numbers[operands.Pick(4)]);
        ASSERT_NO_FATAL_FAILURE(ComparePair("Solve", matrices, rightSides, solve, Solution, false));
    }
}

// A matrix without a first, second or third pivot, and one with a row of zeros or NaN, in each lane.
TEST(ArraysMatrices, SingularInEachLane)
{
    using vexor_test::nan;
    Mat3Dbl const singular[] = {
        Mat3Dbl(Vec3Dbl(0.0, 1.0, 2.0), Vec3Dbl(0.0, 3.0, 5.0), Vec3Dbl(0.0, 2.0, 7.0)),
        Mat3Dbl(Vec3Dbl(1.0, 2.0, 3.0), Vec3Dbl(2.0, 4.0, 1.0), Vec3Dbl(4.0, 8.0, 5.0)),
        Mat3Dbl(Vec3Dbl(1.0, 2.0, 3.0), Vec3Dbl(2.0, 1.0, 0.0), Vec3Dbl(3.0, 3.0, 3.0)),
        Mat3Dbl(Vec3Dbl(1.0, 2.0, 3.0), Vec3Dbl(0.0, 0.0, 0.0), Vec3Dbl(3.0, 1.0, 3.0)),
        Mat3Dbl(Vec3Dbl(nan, nan, nan), Vec3Dbl(2.0, 1.0, 0.0), Vec3Dbl(3.0, 1.0, 3.0)),
    };
    Operands operands(11);
    for (Mat3Dbl const& matrix : singular) {
        for (std::size_t lane = 0; lane < laneCount; ++lane) {
            auto matrices = operands.Many<Mat3Dbl>(laneCount, Kind::Ordinary);
            auto const rightSides = operands.Many<Vec3Dbl>(laneCount, Kind::Ordinary);
            matrices[lane] = matrix;
            EXPECT_THROW(Inverse(matrix), VexorSingular);
            ASSERT_NO_FATAL_FAILURE(CompareSingle("Invert", matrices, invert, Inverse, false));
            ASSERT_NO_FATAL_FAILURE(ComparePair("Solve", matrices, rightSides, solve, Solution, false));
        }
    }
}

TEST(ArraysMatrices, EigenValues)
{
    auto const values = [](Mat3Dbl const* from, Vec3Dbl* to, std::size_t count) {
        vexor::arrays::EigenSymValues(from, to, count);
    };
    auto const member = [](Mat3Dbl const& matrix) {
        Mat3Dbl copy(matrix);
        Vec3Dbl eigenValues;
        copy.EigenSym(eigenValues, 0);
        return eigenValues;
    };
    ExamineSingle<Mat3Dbl>("EigenSymValues", values, member);
}

/// Symmetric matrices of kinds that occur in scans: of rank 1, 2 and 3, flat, equal, diagonal, tiny and huge.
std::vector<Mat3Dbl> SymmetricMatrices(std::size_t count, Operands& operands)
{
    std::vector<Mat3Dbl> matrices;
    for (std::size_t i = 0; i < count; ++i) {
        Mat3Dbl sum(0.0);
        unsigned const rank = 1 + operands.Pick(4);
        for (unsigned r = 0; r < rank; ++r) {
            auto vectors = operands.Many<Vec3Dbl>(1, Kind::Ordinary);
            if (operands.Pick(6) == 0)
                vectors[0].z = 0.0;
            sum += vectors[0].OuterProduct(vectors[0]);
        }
        if (operands.Pick(8) == 0) {
            double const value = sum(0, 0);
            sum = Mat3Dbl(0.0);
            sum.SetDiagonal(Vec3Dbl(value, value, operands.Pick(2) ? value : 3.0));
        }
        if (operands.Pick(10) == 0)
            sum *= operands.Pick(2) ? 1e-120 : 1e90;
        matrices.push_back(sum);
    }
    return matrices;
}

TEST(ArraysMatrices, EigenSym)
{
    Operands operands(9);
    std::size_t failures = 0;
    for (int repeat = 0; repeat < 200; ++repeat) {
        auto const matrices = SymmetricMatrices(laneCount, operands);
        std::vector<Mat3Dbl> vectors;
        auto const expected = Loop<Vec3Dbl>(laneCount, [&](std::size_t i) {
            Mat3Dbl copy(matrices[i]);
            Vec3Dbl eigenValues;
            copy.EigenSym(eigenValues, 1);
            vectors.push_back(copy);
            return eigenValues;
        });
        failures += expected.results.size() < laneCount;
        Outcome<Mat3Dbl> const expectedVectors{vectors, expected.exception};
        WithEachSet([&](std::string const& set) {
            Block<Vec3Dbl> values(laneCount);
            Block<Vec3Dbl> alone(laneCount);
            Block<Mat3Dbl> rows(laneCount);
            Block<Mat3Dbl> beside(laneCount);
            Block<Mat3Dbl> inPlace(matrices, laneCount);
            ASSERT_TRUE(Matches(expected, laneCount, values.Data(), [&] {
                vexor::arrays::EigenSym(matrices.data(), values.Data(), rows.Data(), laneCount);
            })) << set;
            ASSERT_TRUE(Matches(expected, laneCount, alone.Data(), [&] {
                vexor::arrays::EigenSymValues(matrices.data(), alone.Data(), laneCount);
            })) << set;
            ASSERT_TRUE(Matches(expectedVectors, laneCount, beside.Data(), [&] {
                vexor::arrays::EigenSym(matrices.data(), values.Data(), beside.Data(), laneCount);
            })) << set;
            ASSERT_TRUE(Matches(expectedVectors, laneCount, inPlace.Data(), [&] {
                vexor::arrays::EigenSym(inPlace.Data(), values.Data(), inPlace.Data(), laneCount);
            })) << set;
            for (std::size_t i = 0; i < vectors.size(); ++i)
                ASSERT_TRUE(SameNumbers(rows.Data()[i], vectors[i])) << set << ", element " << i;
        });
        if (testing::Test::HasFatalFailure())
            return;
    }
    EXPECT_GT(failures, 0U) << "no matrix on which EigenSym fails was among them";
}

// The lanes compute indices of tables from the bits of cosines. A NaN has any bits, and a matrix with one passes it on.
TEST(ArraysMatrices, EigenSymOfEveryKindOfNaN)
{
    Operands operands(18);
    auto const ordinary = SymmetricMatrices(laneCount, operands);
    for (std::uint64_t payload = 0; payload < 256 + 51; ++payload) {
        std::uint64_t const low = payload < 256 ? payload : std::uint64_t(1) << (payload - 256U);
        for (std::uint64_t sign : {std::uint64_t(0), std::uint64_t(1) << 63U}) {
            std::uint64_t const bits = sign | 0x7ff8000000000000U | low;
            double nan;
            std::memcpy(&nan, &bits, sizeof nan);
            auto matrices = ordinary;
            std::size_t const lane = std::size_t(payload) % laneCount;
            matrices[lane] = Mat3Dbl(1.0);
            matrices[lane](int(payload % 3), int(payload % 3)) = nan;
            auto const expected = Loop<Vec3Dbl>(laneCount, [&](std::size_t i) {
                Mat3Dbl copy(matrices[i]);
                Vec3Dbl eigenValues;
                copy.EigenSym(eigenValues, 0);
                return eigenValues;
            });
            WithEachSet([&](std::string const& set) {
                Block<Vec3Dbl> values(laneCount);
                ASSERT_TRUE(Matches(
                    expected, laneCount, values.Data(),
                    [&] { vexor::arrays::EigenSymValues(matrices.data(), values.Data(), laneCount); }))
                    << set << ", payload " << low;
            });
        }
    }
}

} // namespace
