#include <vexor/matrices/SmallSolver.h>

#include <matrices/Draws.h>
#include <matrices/SmallSolverReference.h>
#include <support/Bits.h>

#include <type_traits>
#include <vector>

using namespace vexor_test;

namespace {

using vexor_test::nan; // and not the function of <cmath>

static_assert(std::is_same_v<decltype(small_decompose), int(double*, unsigned char*, int)>, "");
static_assert(std::is_same_v<decltype(small_substitution), void(double*, double*, unsigned char*, int, int)>,
              "");

template <std::size_t count>
void ExpectBits(double const (&actual)[count], double const (&expected)[count])
{
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_SAME_BITS(actual[i], expected[i]) << "element " << i;
}

template <std::size_t count>
void ExpectOrder(unsigned char const (&actual)[count], unsigned char const (&expected)[count])
{
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_EQ(int(actual[i]), int(expected[i])) << "place " << i;
}

bool SameElements(std::vector<double> const& left, std::vector<double> const& right)
{
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!SameBits(left[i], right[i]))
            return false;
    }
    return left.size() == right.size();
}

// ---- small_decompose -------------------------------------------------------------------------------

TEST(small_decompose, FactorsStayInTheirRowsWithReciprocalPivots)
{
    // Column 0: the scaled candidates are 0, 4/8 and 2/2, so row 2 is the pivot and the order becomes
    // 2, 1, 0. Column 1: row 1 gives 8/8, row 0 gives 2/3.5. All steps are exact.
    double a[9] = {0, 2, 3.5, //
                   4, 8, 8,   //
                   2, 0, 1};
    unsigned char order[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(a, order, 3), 0);
    ExpectOrder(order, {2, 1, 0});
    ExpectBits(a, {0, 0.25, 0.5, //
                   2, 0.125, 6,  //
                   0.5, 0, 1});
}

TEST(small_decompose, OfSizeOne)
{
    double a[1] = {-4.0};
    unsigned char order[1] = {9};
    EXPECT_EQ(small_decompose(a, order, 1), 0);
    EXPECT_EQ(order[0], 0);
    EXPECT_SAME_BITS(a[0], -0.25);
}

TEST(small_decompose, OfSizeTwo)
{
    double a[4] = {1, 4, //
                   2, 2};
    unsigned char order[2] = {9, 9};
    EXPECT_EQ(small_decompose(a, order, 2), 0); // candidates 1/4 and 2/2
    ExpectOrder(order, {1, 0});
    ExpectBits(a, {0.5, 1.0 / 3.0, //
                   0.5, 2.0});
}

TEST(small_decompose, EqualCandidatesGoToTheFirst)
{
    double unit[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    unsigned char order[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(unit, order, 3), 0);
    ExpectOrder(order, {0, 1, 2});
    ExpectBits(unit, {1, 0, 0, 0, 1, 0, 0, 0, 1});

    double equal[9] = {1, 1, 1, -1, 1, 1, 1, -1, 1};
    EXPECT_EQ(small_decompose(equal, order, 3), 0); // column 1: 1 − 1·1 = 0, then 2 and −2 tie
    ExpectOrder(order, {0, 1, 2});
}

TEST(small_decompose, EqualCandidatesGoToTheFirstInTheCurrentOrder)
{
    // Row 2 is the first pivot and the order becomes 2, 1, 0; rows 1 and 0 then tie for column 1, and
    // row 1 comes first although it is stored later. The next column has no pivot.
    double a[9] = {1, 2, 3, //
                   2, 4, 6, //
                   1, 1, 1};
    unsigned char order[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(a, order, 3), -3);
    ExpectOrder(order, {2, 1, 0});
    ExpectBits(a, {1, 0.5, 0, //
                   2, 0.5, 4, //
                   1, 1, 1});
}

TEST(small_decompose, CandidatesAreScaledByTheLargestElementOfTheStoredRow)
{
    double a[4] = {10, 1000, //
                   1, 2};
    unsigned char order[2] = {9, 9};
    EXPECT_EQ(small_decompose(a, order, 2), 0); // 10/1000 against 1/2
    ExpectOrder(order, {1, 0});

    // After the first exchange the order is 2, 1, 0. Column 1 holds 1 in both other rows; row 0 has the
    // scale 1/1 and row 1 the scale 1/8. By stored position the scales would be 1/8 and 1/16.
    double b[9] = {0,  1, 1, //
                   0,  1, 8, //
                   16, 0, 0};
    unsigned char byRow[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(b, byRow, 3), 0);
    ExpectOrder(byRow, {2, 0, 1});
}

TEST(small_decompose, SubtractsTheWholeSum)
{
    // The last element is 1 − (−2^-53 − 2^-53); term by term it would stay 1.
    for (int size : {3, 4}) {
        std::vector<double> a(static_cast<std::size_t>(size * size), 0.0);
        auto const at = [&](int i, int k) -> double& { return a[static_cast<std::size_t>(i * size + k)]; };
        for (int i = 0; i < size; ++i)
            at(i, i) = 1.0;
        at(2, 0) = -0x1p-53;
        at(2, 1) = -0x1p-53;
        at(0, 2) = 1.0;
        at(1, 2) = 1.0;
        unsigned char order[4] = {};
        EXPECT_EQ(small_decompose(a.data(), order, size), 0);
        EXPECT_SAME_BITS(at(2, 2), 1.0 / (1.0 + 0x1p-52)) << size;
    }
}

TEST(small_decompose, SumsStartWithTheirFirstTerm)
{
    // The last element of column 1 is −0 − (−1·0) = 0; if the sum started with 0.0 it would stay −0.
    double a[9] = {1, -1,   0, //
                   0, 1,    1, //
                   0, -0.0, 1};
    unsigned char order[3] = {};
    EXPECT_EQ(small_decompose(a, order, 3), 0);
    EXPECT_SAME_BITS(a[7], 0.0);
}

TEST(small_decompose, MultipliesByTheReciprocal)
{
    double a[4] = {3, 0, //
                   5, 8};
    unsigned char order[2] = {};
    EXPECT_EQ(small_decompose(a, order, 2), 0);
    EXPECT_SAME_BITS(a[0], 0x1.5555555555555p-2); // 1/3
    EXPECT_SAME_BITS(a[2], 0x1.aaaaaaaaaaaaap+0); // 5·(1/3); 5/3 ends in b
}

TEST(small_decompose, SizeAbove255IsRefusedUntouched)
{
    std::vector<double> a(256 * 256, 2.0);
    std::vector<unsigned char> order(256, 9);
    EXPECT_EQ(small_decompose(a.data(), order.data(), 256), -1);
    EXPECT_EQ(small_decompose(nullptr, nullptr, 256), -1);
    EXPECT_EQ(small_decompose(nullptr, nullptr, std::numeric_limits<int>::max()), -1);
    EXPECT_EQ(a, std::vector<double>(256 * 256, 2.0));
    EXPECT_EQ(order, std::vector<unsigned char>(256, 9));
}

TEST(small_decompose, SizeBelowOneChangesNothing)
{
    EXPECT_EQ(small_decompose(nullptr, nullptr, 0), 0);
    EXPECT_EQ(small_decompose(nullptr, nullptr, -3), 0);
}

TEST(small_decompose, RowOfZeros)
{
    double a[9] = {1, 2, 3, -0.0, 0, 0, 7, 8, 9};
    unsigned char order[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(a, order, 3), -2);
    ExpectBits(a, {1, 2, 3, -0.0, 0, 0, 7, 8, 9});
    ExpectOrder(order, {0, 1, 9}); // the scan ended at that row
}

TEST(small_decompose, RowOfNaNs)
{
    double a[9] = {1, 2, 3, 4, 5, 6, nan, 0, nan};
    unsigned char order[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(a, order, 3), -2);
    ExpectBits(a, {1, 2, 3, 4, 5, 6, nan, 0, nan});
    ExpectOrder(order, {0, 1, 2});
}

TEST(small_decompose, NaNIsNoPivot)
{
    double a[4] = {nan, 1, //
                   2, 1};
    unsigned char order[2] = {9, 9};
    EXPECT_EQ(small_decompose(a, order, 2), -3); // row 1 is the first pivot; the rest of row 0 is NaN
    ExpectOrder(order, {1, 0});
    double column[9] = {nan, 1, 2, nan, 3, 4, nan, 5, 6};
    unsigned char three[3] = {9, 9, 9};
    EXPECT_EQ(small_decompose(column, three, 3), -3);
    ExpectOrder(three, {0, 1, 2});
    ExpectBits(column, {nan, 1, 2, nan, 3, 4, nan, 5, 6});
}

TEST(small_decompose, NearlySingularIsFactorised)
{
    double a[4] = {1, 1, //
                   1, 1 + 0x1p-52};
    unsigned char order[2] = {};
    EXPECT_EQ(small_decompose(a, order, 2), 0);
    EXPECT_SAME_BITS(a[3], 0x1p52);
}

TEST(small_decompose, SizeThreeHasTheBitsOfThePlainAlgorithm)
{
    Draws draws(1);
    int statuses[4] = {};
    for (int round = 0; round < 1200000; ++round) {
        double a[9];
        for (double& element : a) {
            int const kind = round % 6;
            element = kind == 0                       ? draws.Unit()
                      : kind == 1                     ? draws.Sign()
                      : kind == 2                     ? draws.SmallSpecial()
                      : kind == 3                     ? draws.Special()
                      : kind == 4 && draws.Below(2)   ? draws.Sign() * 0x1p-1050
                      : kind == 5 && !draws.Below(12) ? draws.Special()
                                                      : draws.Unit();
        }
        if (round % 6 == 2 && draws.Below(2)) { // of rank two
            for (int k = 0; k < 3; ++k)
                a[6 + k] = a[k] + a[3 + k];
        }
        double expected[9];
        std::copy(a, a + 9, expected);
        unsigned char order[3] = {9, 9, 9};
        unsigned char expectedOrder[3] = {9, 9, 9};
        int const expectedStatus = ReferenceDecompose(expected, expectedOrder, 3);
        ++statuses[-expectedStatus];
        ASSERT_EQ(small_decompose(a, order, 3), expectedStatus) << "round " << round;
        ASSERT_TRUE(std::equal(order, order + 3, expectedOrder)) << "round " << round;
        for (int i = 0; i < 9; ++i)
            ASSERT_TRUE(SameBits(a[i], expected[i])) << "round " << round << ", element " << i;
        if (expectedStatus != 0)
            continue;

        int const count = round % 2 ? 1 : 3;
        double b[9];
        for (double& element : b)
            element = draws.Below(3) ? draws.Unit() : draws.Below(8) ? draws.SmallSpecial() : draws.Special();
        double solution[9];
        std::copy(b, b + 9, solution);
        ReferenceSubstitute(expected, solution, expectedOrder, 3, count);
        small_substitution(a, b, order, 3, count);
        for (int i = 0; i < 9; ++i)
            ASSERT_TRUE(SameBits(b[i], solution[i])) << "round " << round << ", right-hand side " << i;
    }
    EXPECT_GT(statuses[0], 400000);
    EXPECT_GT(statuses[2], 20000);
    EXPECT_GT(statuses[3], 100000);
}

TEST(small_decompose, EverySizeHasTheBitsOfThePlainAlgorithmAndASmallResidual)
{
    Draws draws(2);
    for (int n = 1; n <= 255; ++n) {
        auto const size = static_cast<std::size_t>(n);
        std::vector<double> matrix(size * size);
        for (double& element : matrix)
            element = n % 2 ? draws.Unit() : draws.Sign() + draws.Sign();
        if (n % 2 == 0) { // ties and zeros, but not singular
            for (std::size_t i = 0; i < size; ++i)
                matrix[i * size + (i + size / 2) % size] += 3.0 + static_cast<double>(n);
        }
        std::vector<double> side(size);
        for (double& element : side)
            element = draws.Unit();
        if (n > 4)
            side[0] = side[3] = 0.0;

        std::vector<double> a(matrix);
        std::vector<double> b(side);
        std::vector<unsigned char> order(size, 9);
        std::vector<double> expected(matrix);
        std::vector<double> solution(side);
        std::vector<unsigned char> expectedOrder(size, 9);
        ASSERT_EQ(small_decompose(a.data(), order.data(), n), 0) << n;
        ASSERT_EQ(ReferenceDecompose(expected.data(), expectedOrder.data(), n), 0) << n;
        ASSERT_EQ(order, expectedOrder) << n;
        ASSERT_TRUE(SameElements(a, expected)) << n;
        small_substitution(a.data(), b.data(), order.data(), n, 1);
        ReferenceSubstitute(expected.data(), solution.data(), expectedOrder.data(), n, 1);
        ASSERT_TRUE(SameElements(b, solution)) << n;

        // ‖b − A·x‖ / (‖A‖·‖x‖·n·ε) stays below 30, the threshold that LAPACK's own tests use.
        long double residual = 0;
        long double norm = 0;
        long double length = 0;
        for (std::size_t i = 0; i < size; ++i) {
            long double rest = side[i];
            long double row = 0;
            for (std::size_t k = 0; k < size; ++k) {
                rest -= static_cast<long double>(matrix[i * size + k]) * b[k];
                row += std::fabs(matrix[i * size + k]);
            }
            residual = std::max(residual, std::fabs(rest));
            norm = std::max(norm, row);
            length = std::max(length, std::fabs(static_cast<long double>(b[i])));
        }
        EXPECT_LT(residual, 30 * norm * length * n * std::numeric_limits<double>::epsilon()) << n;
    }
}

// ---- small_substitution ----------------------------------------------------------------------------

TEST(small_substitution, SolvesWithTheFactors)
{
    // The factors of the first test above; (1, 2, 3) solves for (14.5, 44, 5).
    double a[9] = {0, 0.25, 0.5, 2, 0.125, 6, 0.5, 0, 1};
    unsigned char order[3] = {2, 1, 0};
    double b[3] = {14.5, 44, 5};
    small_substitution(a, b, order, 3, 1);
    ExpectBits(b, {1, 2, 3});
    ExpectBits(a, {0, 0.25, 0.5, 2, 0.125, 6, 0.5, 0, 1});
    ExpectOrder(order, {2, 1, 0});
}

TEST(small_substitution, ElementsComeToStandInTheirPlaces)
{
    // Stored rows 2, 0, 1 act as rows 0, 1, 2 of a diagonal factor.
    double diagonal[9] = {0, 1, 0, 0, 0, 1, 1, 0, 0};
    unsigned char order[3] = {2, 0, 1};
    double b[3] = {10, 20, 30};
    small_substitution(diagonal, b, order, 3, 1);
    ExpectBits(b, {30, 10, 20});
    double four[16] = {0, 0, 0, 1, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0};
    unsigned char orderOfFour[4] = {1, 2, 3, 0};
    double c[4] = {10, 20, 30, 40};
    small_substitution(four, c, orderOfFour, 4, 1);
    ExpectBits(c, {20, 30, 40, 10});
}

TEST(small_substitution, MultipliesByTheStoredReciprocal)
{
    for (int size : {1, 3}) {
        double a[9] = {1.0 / 3.0, 0, 0, 0, 1, 0, 0, 0, 1};
        unsigned char order[3] = {0, 1, 2};
        double b[3] = {5, 0, 0};
        small_substitution(a, b, order, size, 1);
        EXPECT_SAME_BITS(b[0], 0x1.aaaaaaaaaaaaap+0); // 5/3 ends in b
    }
}

TEST(small_substitution, SubtractsTheWholeSum)
{
    // 1 − (−2^-53 − 2^-53); term by term it would stay 1.
    double forward[9] = {1, 0, 0, 0, 1, 0, -0x1p-53, -0x1p-53, 1};
    double backward[9] = {1, -0x1p-53, -0x1p-53, 0, 1, 0, 0, 0, 1};
    unsigned char order[3] = {0, 1, 2};
    double b[3] = {1, 1, 1};
    small_substitution(forward, b, order, 3, 1);
    ExpectBits(b, {1, 1, 1 + 0x1p-52});
    double c[3] = {1, 1, 1};
    small_substitution(backward, c, order, 3, 1);
    ExpectBits(c, {1 + 0x1p-52, 1, 1});
}

TEST(small_substitution, SumsStartWithTheirFirstTerm)
{
    // −0 − (1·−0) is 0; if the sum started with 0.0 it would be −0.
    double two[4] = {1, 0, -0.0, 1};
    unsigned char order[3] = {0, 1, 2};
    double b[2] = {1, -0.0};
    small_substitution(two, b, order, 2, 1);
    ExpectBits(b, {1, 0.0});
    double three[9] = {1, 0, 0, -0.0, 1, 0, 0, 0, 1};
    double c[3] = {1, -0.0, 1};
    small_substitution(three, c, order, 3, 1);
    EXPECT_SAME_BITS(c[1], 0.0);
}

TEST(small_substitution, LeadingZerosAreSkipped)
{
    // A product of a skipped zero with the infinite multiplier would be NaN.
    for (double zero : {0.0, -0.0}) {
        double a[9] = {1, 0, 0, infinity, 1, 0, infinity, infinity, 1};
        unsigned char order[3] = {0, 1, 2};
        double b[3] = {zero, zero, 5};
        small_substitution(a, b, order, 3, 1);
        ExpectBits(b, {zero, zero, 5});
        double second[9] = {1, 0, 0, infinity, 1, 0, infinity, 2, 1};
        double c[3] = {zero, 3, 5};
        small_substitution(second, c, order, 3, 1);
        ExpectBits(c, {zero, 3, -1});

        double four[16] = {1, 0, 0, 0, infinity, 1, 0, 0, infinity, 2, 1, 0, infinity, 0, 0, 1};
        unsigned char orderOfFour[4] = {0, 1, 2, 3};
        double d[4] = {zero, 3, 5, 7};
        small_substitution(four, d, orderOfFour, 4, 1);
        ExpectBits(d, {zero, 3, -1, 7});
    }
}

TEST(small_substitution, ALaterZeroIsNotSkipped)
{
    double a[9] = {1, 0, 0, 0, 1, 0, 0, infinity, 1};
    unsigned char order[3] = {0, 1, 2};
    double b[3] = {1, 0, 5};
    small_substitution(a, b, order, 3, 1);
    EXPECT_SAME_BITS(b[2], nan);
}

TEST(small_substitution, ANaNIsNoLeadingZero)
{
    double a[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    unsigned char order[3] = {0, 1, 2};
    double b[3] = {nan, 1, 2};
    small_substitution(a, b, order, 3, 1);
    ExpectBits(b, {nan, nan, nan});
}

TEST(small_substitution, ZerosAreFoundInTheOrderOfTheRows)
{
    // Row 2 acts as row 0: its right-hand side comes first, although it is stored last.
    double a[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    std::swap(a[0], a[6]);
    a[2] = 1.0;
    a[8] = 0.0;
    a[3] = infinity;
    unsigned char order[3] = {2, 1, 0};
    double b[3] = {7, 3, 0};
    small_substitution(a, b, order, 3, 1);
    ExpectBits(b, {0, 3, 7});
}

TEST(small_substitution, TheStrideIsTheCount)
{
    // Diagonal factors that multiply the three elements by 2, 3 and 5.
    double a[9] = {2, 0, 0, 0, 3, 0, 0, 0, 5};
    unsigned char order[3] = {0, 1, 2};
    double three[10] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    small_substitution(a, three, order, 3, 3);
    ExpectBits(three, {2, 3, 5, 2, 3, 5, 2, 3, 5, 1});
    double two[6] = {1, 1, 1, 1, 1, 1}; // the second right-hand side begins at element 2
    small_substitution(a, two, order, 3, 2);
    ExpectBits(two, {2, 3, 10, 3, 5, 1});
    double four[16] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    small_substitution(a, four, order, 3, 4);
    ExpectBits(four, {2, 3, 5, 1, 2, 3, 5, 1, 2, 3, 5, 1, 2, 3, 5, 1});

    double diagonal[4] = {2, 0, 0, 3};
    double pairs[8] = {1, 1, 1, 1, 1, 1, 1, 1};
    small_substitution(diagonal, pairs, order, 2, 3);
    ExpectBits(pairs, {2, 3, 1, 2, 3, 1, 2, 3});
}

TEST(small_substitution, NothingToSolve)
{
    double a[9] = {2, 0, 0, 0, 3, 0, 0, 0, 5};
    unsigned char order[3] = {0, 1, 2};
    double b[3] = {1, 1, 1};
    for (int count : {0, -1})
        small_substitution(a, b, order, 3, count);
    for (int size : {0, -1, std::numeric_limits<int>::min()})
        small_substitution(a, b, order, size, 1);
    ExpectBits(b, {1, 1, 1});
    small_substitution(nullptr, nullptr, nullptr, 0, 1);
}

TEST(small_substitution, WithNothingToSolveNothingIsRead)
{
    // Without right-hand sides the factors and the row order may be missing too.
    for (int size : {1, 3, 4}) {
        for (int count : {0, -1})
            small_substitution(nullptr, nullptr, nullptr, size, count);
    }
}

TEST(small_substitution, SizeAbove255ChangesNothing)
{
    std::vector<double> a(300 * 300, 1.0);
    std::vector<double> b(300, 2.0);
    std::vector<unsigned char> order(300, 0);
    for (int size : {256, 300})
        small_substitution(a.data(), b.data(), order.data(), size, 1);
    EXPECT_EQ(b, std::vector<double>(300, 2.0));
}

} // namespace
