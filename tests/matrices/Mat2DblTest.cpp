#include <vexor/matrices/Mat2Dbl.h>

#include <vexor/matrices/AffMat2Dbl.h>

#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <cmath>
#include <type_traits>
#include <utility>
#include <vector>

using namespace vexor_test;

namespace {

using vexor_test::ExpectBits;
using vexor_test::nan; // and not the function of <cmath>

constexpr double h = 0x1.6a09e667f3bccp-1; // 1 / the double √2

void ExpectBits(Mat2Dbl const& actual, double m00, double m01, double m10, double m11)
{
    EXPECT_SAME_BITS(actual(0, 0), m00);
    EXPECT_SAME_BITS(actual(0, 1), m01);
    EXPECT_SAME_BITS(actual(1, 0), m10);
    EXPECT_SAME_BITS(actual(1, 1), m11);
}

Mat2Dbl Rows(double m00, double m01, double m10, double m11)
{
    return Mat2Dbl(Vec2Dbl(m00, m01), Vec2Dbl(m10, m11));
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Mat2Dbl, Layout)
{
    static_assert(sizeof(Mat2Dbl) == 4 * sizeof(double) && std::is_standard_layout_v<Mat2Dbl>, "");
    static_assert(std::is_trivially_copyable_v<Mat2Dbl>, "");
    Mat2Dbl m;
    EXPECT_EQ(static_cast<void const*>(&m.GetRow(0)), static_cast<void const*>(&m));
    EXPECT_EQ(&m.GetRow(1), &m.GetRow(0) + 1);
}

TEST(Mat2Dbl, DefaultConstructor)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build fills the elements";
#else
    EXPECT_TRUE(DefaultConstructorWritesNothing<Mat2Dbl>());
#endif
}

TEST(Mat2Dbl, Constructors)
{
    ExpectBits(Mat2Dbl(2.0), 2.0, 2.0, 2.0, 2.0); // not only the diagonal
    ExpectBits(Mat2Dbl(Vec2Dbl(1.0, 2.0), Vec2Dbl(3.0, -0.0)), 1.0, 2.0, 3.0, -0.0);
    Mat2Dbl const source = Rows(1.0, nan, -0.0, 4.0);
    Mat2Dbl const copy(source);
    ExpectBits(copy, 1.0, nan, -0.0, 4.0);
}

TEST(Mat2Dbl, Assignment)
{
    Mat2Dbl m(9.0);
    EXPECT_EQ(&(m = Rows(1.0, 2.0, 3.0, 4.0)), &m);
    ExpectBits(m, 1.0, 2.0, 3.0, 4.0);
    Mat2Dbl& same = m;
    m = same;
    ExpectBits(m, 1.0, 2.0, 3.0, 4.0);
}

// ---- Elements, rows and columns --------------------------------------------------------------------

TEST(Mat2Dbl, Index)
{
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    double* const first = &m(0, 0);
    EXPECT_EQ(&m(0, 1), first + 1);
    EXPECT_EQ(&m(1, 0), first + 2);
    EXPECT_EQ(&m(1, 1), first + 3);
    Mat2Dbl const& constant = m;
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 2; ++c)
            EXPECT_EQ(&constant(r, c), &m(r, c));
    m(Opaque(1), Opaque(0)) = 7.0;
    ExpectBits(m, 1.0, 2.0, 7.0, 4.0);
}

TEST(Mat2Dbl, GetRowIsInsideAndReadOnly)
{
    static_assert(std::is_same_v<decltype(std::declval<Mat2Dbl&>().GetRow(0u)), Vec2Dbl const&>, "");
    static_assert(std::is_same_v<decltype(std::declval<Mat2Dbl const&>().GetRow(0u)), Vec2Dbl const&>, "");
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    Vec2Dbl const& row = m.GetRow(1);
    m(1, 0) = 7.0;
    ExpectBits(row, 7.0, 4.0);
    ExpectBits(m.GetRow(0), 1.0, 2.0);
}

TEST(Mat2Dbl, SetRow)
{
    Mat2Dbl m(0.0);
    EXPECT_EQ(&m.SetRow(1, Vec2Dbl(3.0, 4.0)), &m);
    ExpectBits(m, 0.0, 0.0, 3.0, 4.0);
    m.SetRow(0, m.GetRow(1));
    ExpectBits(m, 3.0, 4.0, 3.0, 4.0);
}

TEST(Mat2Dbl, GetColIsACopy)
{
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    static_assert(std::is_same_v<decltype(std::declval<Mat2Dbl const&>().GetCol(0u)), Vec2Dbl>, "");
    Vec2Dbl const column = m.GetCol(1);
    m(0, 1) = 9.0;
    ExpectBits(column, 2.0, 4.0);
    ExpectBits(m.GetCol(0), 1.0, 3.0);
}

TEST(Mat2Dbl, SetCol)
{
    Mat2Dbl m(0.0);
    EXPECT_EQ(&m.SetCol(1, Vec2Dbl(3.0, 4.0)), &m);
    ExpectBits(m, 0.0, 3.0, 0.0, 4.0);
    for (unsigned int column : {0u, 1u})
        for (unsigned int row : {0u, 1u}) { // one of its own rows, before the change
            m.SetValue(Vec2Dbl(1.0, 2.0), Vec2Dbl(3.0, 4.0));
            Vec2Dbl const before = m.GetRow(row);
            m.SetCol(column, m.GetRow(row));
            ExpectBits(m.GetCol(column), before.x, before.y);
        }
}

TEST(Mat2Dbl, Diagonal)
{
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    ExpectBits(m.GetDiagonal(), 1.0, 4.0);
    EXPECT_EQ(&m.SetDiagonal(Vec2Dbl(5.0, 6.0)), &m);
    ExpectBits(m, 5.0, 2.0, 3.0, 6.0);
    EXPECT_EQ(&m.SetDiagonal(-0.0), &m);
    ExpectBits(m, -0.0, 2.0, 3.0, -0.0);
    m.SetDiagonal(m.GetRow(1));
    ExpectBits(m, 3.0, 2.0, 3.0, -0.0);
}

TEST(Mat2Dbl, SetValue)
{
    Mat2Dbl m(9.0);
    EXPECT_EQ(&m.SetValue(-0.0), &m);
    ExpectBits(m, -0.0, -0.0, -0.0, -0.0);
    EXPECT_EQ(&m.SetValue(Vec2Dbl(1.0, 2.0), Vec2Dbl(3.0, 4.0)), &m);
    ExpectBits(m, 1.0, 2.0, 3.0, 4.0);
    m.SetValue(m.GetRow(1), m.GetRow(0));
    ExpectBits(m, 3.0, 4.0, 1.0, 2.0);
}

template <class Matrix, class = void>
constexpr bool givesRows = false;
template <class Matrix>
constexpr bool givesRows<Matrix, std::void_t<decltype(std::declval<Matrix>().GetValue(
                                     std::declval<Vec2Dbl&>(), std::declval<Vec2Dbl&>()))>> = true;

TEST(Mat2Dbl, GetValue)
{
    static_assert(givesRows<Mat2Dbl&> && !givesRows<Mat2Dbl const&>, "not const");
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    Vec2Dbl row0(9.0);
    Vec2Dbl row1(9.0);
    m.GetValue(row0, row1);
    ExpectBits(row0, 1.0, 2.0);
    ExpectBits(row1, 3.0, 4.0);
}

// ---- The whole matrix ------------------------------------------------------------------------------

TEST(Mat2Dbl, Identity)
{
    Mat2Dbl m(nan);
    EXPECT_EQ(&m.Identity(), &m);
    ExpectBits(m, 1.0, 0.0, 0.0, 1.0);
}

TEST(Mat2Dbl, Transpose)
{
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    Mat2Dbl const& constant = m;
    ExpectBits(constant.GetTransposedCopy(), 1.0, 3.0, 2.0, 4.0);
    ExpectBits(m, 1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(&m.Transpose(), &m);
    ExpectBits(m, 1.0, 3.0, 2.0, 4.0);
}

TEST(Mat2Dbl, Negate)
{
    Mat2Dbl m = Rows(0.0, -0.0, nan, 4.0);
    Mat2Dbl const& constant = m;
    ExpectBits(constant.GetNegatedCopy(), -0.0, 0.0, nan, -4.0);
    ExpectBits(-constant, -0.0, 0.0, nan, -4.0);
    EXPECT_EQ(&m.Negate(), &m);
    ExpectBits(m, -0.0, 0.0, nan, -4.0);
}

template <class Matrix, class = void>
constexpr bool sumsRows = false;
template <class Matrix>
constexpr bool sumsRows<Matrix, std::void_t<decltype(std::declval<Matrix>().RowSum()),
                                            decltype(std::declval<Matrix>().RowAverage())>> = true;

// Only inside an affine map do the two doubles after the matrix have a meaning.
TEST(Mat2Dbl, RowSumAddsTheTranslationBehindALinearPart)
{
    static_assert(sumsRows<Mat2Dbl&> && !sumsRows<Mat2Dbl const&>, "not const");
    AffMat2Dbl map(Rows(1.0, 2.0, 10.0, 20.0), Vec2Dbl(100.0, 200.0));
    ExpectBits(map.LinearPart().RowSum(), 111.0, 222.0);
    // They are read at each call, and added after the two rows: (1 + 2^-53) + 2^-53 is 1, in other orders it
    // is more.
    map.Translation() = Vec2Dbl(0x1p-53, 1.0);
    map.LinearPart() = Rows(1.0, 0x1p-53, 0x1p-53, 0x1p-53);
    ExpectBits(map.LinearPart().RowSum(), 1.0, 1.0 + 0x1p-52);
    map.SetTranslation(Vec2Dbl(nan, -infinity));
    ExpectBits(map.LinearPart().RowSum(), nan, -infinity);
    map.LinearPart().SetValue(-0.0);
    map.SetTranslation(Vec2Dbl(-0.0));
    ExpectBits(map.LinearPart().RowSum(), -0.0, -0.0);
}

TEST(Mat2Dbl, RowSumInAnArrayOfMaps)
{
    std::vector<AffMat2Dbl> maps(3);
    for (int i = 0; i < 3; ++i)
        maps[static_cast<std::size_t>(i)].SetTranslation(Vec2Dbl(i, -i));
    for (int i = 0; i < 3; ++i)
        ExpectBits(maps[static_cast<std::size_t>(i)].LinearPart().RowSum(), 1.0 + i, 1.0 - i);
}

TEST(Mat2Dbl, RowAverageHalvesTheThree)
{
    AffMat2Dbl map(Rows(1.0, 2.0, 10.0, 20.0), Vec2Dbl(100.0, 200.0));
    ExpectBits(map.LinearPart().RowAverage(), 55.5, 111.0);
    map.LinearPart().SetValue(0.0);
    map.SetTranslation(Vec2Dbl(3.0, -0x1p-1074)); // half of the smallest double is −0
    ExpectBits(map.LinearPart().RowAverage(), 1.5, -0.0);
}

// ---- Exact comparison ------------------------------------------------------------------------------

template <class Left, class = void>
constexpr bool compares = false;
template <class Left>
constexpr bool compares<Left, std::void_t<decltype(std::declval<Left>() == std::declval<Mat2Dbl const&>())>> =
    true;
template <class Left, class = void>
constexpr bool comparesUnequal = false;
template <class Left>
constexpr bool
    comparesUnequal<Left, std::void_t<decltype(std::declval<Left>() != std::declval<Mat2Dbl const&>())>> =
        true;

TEST(Mat2Dbl, ComparisonIsNotConst)
{
    static_assert(compares<Mat2Dbl&> && !compares<Mat2Dbl const&>, "");
    static_assert(comparesUnequal<Mat2Dbl&> && !comparesUnequal<Mat2Dbl const&>, "");
    static_assert(std::is_same_v<decltype(std::declval<Mat2Dbl&>() == Mat2Dbl()), int>, "");
}

TEST(Mat2Dbl, EqualAndUnequal)
{
    Mat2Dbl m = Rows(1.0, -0.0, 3.0, 4.0);
    EXPECT_EQ(m == Rows(1.0, 0.0, 3.0, 4.0), 1);
    EXPECT_EQ(m != Rows(1.0, 0.0, 3.0, 4.0), 0);
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 2; ++c) {
            Mat2Dbl other(m);
            other(r, c) += 0x1p-50;
            EXPECT_EQ(m == other, 0);
            EXPECT_EQ(m != other, 1);
            other(r, c) = nan;
            EXPECT_EQ(other == other, 0);
            EXPECT_EQ(other != other, 1);
        }
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Mat2Dbl, MultiplyAssign)
{
    Mat2Dbl m = Rows(1.0, -2.0, 0.0, 4.0);
    EXPECT_EQ(&(m *= -3.0), &m);
    ExpectBits(m, -3.0, 6.0, -0.0, -12.0);
    m *= m(0, 1); // the scalar is one of the elements
    ExpectBits(m, -18.0, 36.0, -0.0, -72.0);
    Mat2Dbl all = Rows(3.0, 5.0, 7.0, 9.0);
    all *= 4.0;
    ExpectBits(all, 12.0, 20.0, 28.0, 36.0);
}

TEST(Mat2Dbl, DivideAssignTrulyDivides)
{
    Mat2Dbl m = Rows(7.0, 20.0, 17.0, 0.0); // for each, the product with 1/3 is one unit lower
    EXPECT_EQ(&(m /= Opaque(3.0)), &m);
    ExpectBits(m, 0x1.2aaaaaaaaaaabp+1, 0x1.aaaaaaaaaaaabp+2, 0x1.6aaaaaaaaaaabp+2, 0.0);
    Mat2Dbl self = Rows(2.0, 4.0, 6.0, 8.0);
    self /= self(0, 0);
    ExpectBits(self, 1.0, 2.0, 3.0, 4.0);
}

TEST(Mat2Dbl, AddAssignAndSubtractAssign)
{
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, -0.0);
    EXPECT_EQ(&(m += Rows(10.0, 20.0, 30.0, -0.0)), &m);
    ExpectBits(m, 11.0, 22.0, 33.0, -0.0);
    EXPECT_EQ(&(m -= Rows(1.0, 2.0, 3.0, 0.0)), &m);
    ExpectBits(m, 10.0, 20.0, 30.0, -0.0);
    Mat2Dbl const& same = m;
    m += same;
    ExpectBits(m, 20.0, 40.0, 60.0, -0.0);
    m -= same;
    ExpectBits(m, 0.0, 0.0, 0.0, 0.0);
}

// ---- Inverse and solution --------------------------------------------------------------------------

// By exact arithmetic with a rounding at each step: the four products with 1/d are one unit away here,
// and a fused multiply-add in d changes quotients too.
Mat2Dbl Telling()
{
    return Rows(-0x1.3368a871bb8b6p+1, -0x1.a8bea66b39ffap+2, -0x1.4739e2ab40b99p+2, -0x1.5845434627524p+1);
}

TEST(Mat2Dbl, InvertDividesByTheDeterminant)
{
    Mat2Dbl m = Telling();
    EXPECT_EQ(&m.Invert(), &m);
    ExpectBits(m, 0x1.90ffab7166f0cp-4, -0x1.eebbb56b51b9ap-3, -0x1.7d254df5676a8p-3, 0x1.66101f298d503p-4);
    // The off-diagonal elements are negated quotients: −(0/d).
    Mat2Dbl identity = Rows(1.0, 0.0, -0.0, 1.0);
    identity.Invert();
    ExpectBits(identity, 1.0, -0.0, 0.0, 1.0);
    Mat2Dbl general = Rows(1.0, 2.0, 3.0, 4.0); // d = −2
    general.Invert();
    ExpectBits(general, -2.0, 1.0, 1.5, -0.5);
}

TEST(Mat2Dbl, InvertRefusesASmallDeterminant)
{
    Mat2Dbl singular = Rows(1.0, 2.0, 2.0, 4.0);
    EXPECT_THROW(singular.Invert(), VexorSingular);
    ExpectBits(singular, 1.0, 2.0, 2.0, 4.0);
    // The threshold is absolute: the condition number of this matrix is 1.
    Mat2Dbl small = Rows(1e-11, 0.0, 0.0, 1e-11);
    EXPECT_THROW(small.Invert(), VexorSingular);
    ExpectBits(small, 1e-11, 0.0, 0.0, 1e-11);
    Mat2Dbl zero(0.0);
    EXPECT_THROW(zero.Invert(), VexorSingular);
    // And the global tolerance does not matter.
    RestoreTolerance const restore;
    gVexorTolerance.SetLength(1e-30);
    EXPECT_THROW(small.Invert(), VexorSingular);
    gVexorTolerance.SetLength(1e30);
    EXPECT_NO_THROW(Rows(1.0, 0.0, 0.0, 1.0).GetInvertedCopy());
}

TEST(Mat2Dbl, InvertAtTheThreshold)
{
    for (double sign : {1.0, -1.0}) {
        EXPECT_NO_THROW(Rows(sign * 1e-20, 0.0, 0.0, 1.0).GetInvertedCopy());
        EXPECT_THROW(Rows(sign * Below(1e-20), 0.0, 0.0, 1.0).GetInvertedCopy(), VexorSingular);
        EXPECT_NO_THROW(Rows(0.0, sign, 1e-20, 0.0).GetInvertedCopy());
        EXPECT_THROW(Rows(0.0, sign, Below(1e-20), 0.0).GetInvertedCopy(), VexorSingular);
    }
    // 1e-10 · 1e-10 rounds to the double above 1e-20.
    EXPECT_NO_THROW(Rows(1e-10, 0.0, 0.0, 1e-10).GetInvertedCopy());
    Mat2Dbl const at = Rows(1e-20, 0.0, 0.0, 1.0);
    ExpectBits(at.GetInvertedCopy(), 1e20, -0.0, -0.0, 1.0);
}

TEST(Mat2Dbl, InvertLetsANanPass)
{
    Mat2Dbl m = Rows(nan, 0.0, 0.0, 1.0);
    m.Invert();
    ExpectBits(m, nan, nan, nan, nan);
    Mat2Dbl overflow = Rows(1e200, 1e200, 1e200, 1e200); // ∞ − ∞
    overflow.Invert();
    ExpectBits(overflow, nan, nan, nan, nan);
}

TEST(Mat2Dbl, GetInvertedCopy)
{
    Mat2Dbl const m = Telling();
    ExpectBits(m.GetInvertedCopy(), 0x1.90ffab7166f0cp-4, -0x1.eebbb56b51b9ap-3, -0x1.7d254df5676a8p-3,
               0x1.66101f298d503p-4);
    ExpectBits(m, -0x1.3368a871bb8b6p+1, -0x1.a8bea66b39ffap+2, -0x1.4739e2ab40b99p+2, -0x1.5845434627524p+1);
    EXPECT_THROW(Mat2Dbl(1.0).GetInvertedCopy(), VexorSingular);
}

TEST(Mat2Dbl, SolveKeepsTheInverse)
{
    Mat2Dbl m = Telling();
    Vec2Dbl v(0x1.2271936645134p+2, 0x1.4bb44e013a256p+1);
    m.Solve(v);
    ExpectBits(v, -0x1.742b3cb17aa6p-3, -0x1.3c70990d46fddp-1); // the inverse times v, with this rounding
    ExpectBits(m, 0x1.90ffab7166f0cp-4, -0x1.eebbb56b51b9ap-3, -0x1.7d254df5676a8p-3, 0x1.66101f298d503p-4);

    Mat2Dbl simple = Rows(2.0, 0.0, 0.0, 4.0);
    Vec2Dbl w(6.0, 8.0);
    simple.Solve(w);
    ExpectBits(w, 3.0, 2.0);
    simple.Solve(w); // inverts the inverse, and so multiplies by the first matrix
    ExpectBits(w, 6.0, 8.0);
    ExpectBits(simple, 2.0, 0.0, 0.0, 4.0); // −(−0 / d)
}

TEST(Mat2Dbl, SolveOfASingularMatrixChangesNothing)
{
    Mat2Dbl m = Rows(1.0, 2.0, 2.0, 4.0);
    Vec2Dbl v(5.0, 6.0);
    EXPECT_THROW(m.Solve(v), VexorSingular);
    ExpectBits(v, 5.0, 6.0);
    EXPECT_THROW(m.Solve(&v, 1), VexorSingular);
    ExpectBits(v, 5.0, 6.0);
    ExpectBits(m, 1.0, 2.0, 2.0, 4.0);
    EXPECT_THROW(m.Solve(nullptr, 0), VexorSingular); // the matrix is inverted for any count
}

TEST(Mat2Dbl, SolveOfAnyNumberOfVectors)
{
    for (int count : {-1, 0, 1, 2, 3, 4, 5}) {
        Mat2Dbl m = Rows(2.0, 0.0, 0.0, 4.0);
        Vec2Dbl vectors[6] = {{2.0, 4.0}, {4.0, 8.0}, {6.0, 12.0}, {8.0, 16.0}, {10.0, 20.0}, {12.0, 24.0}};
        m.Solve(vectors, count);
        ExpectBits(m, 0.5, -0.0, -0.0, 0.25);
        for (int i = 0; i < 6; ++i) {
            double const n = i + 1.0;
            if (i < count)
                ExpectBits(vectors[i], n, n);
            else
                ExpectBits(vectors[i], 2.0 * n, 4.0 * n);
        }
    }
}

template <class Matrix, class = void>
constexpr bool reSolves = false;
template <class Matrix>
constexpr bool
    reSolves<Matrix, std::void_t<decltype(std::declval<Matrix>().ReSolve(std::declval<Vec2Dbl&>()))>> = true;

TEST(Mat2Dbl, ReSolveMultipliesByWhatIsStored)
{
    static_assert(reSolves<Mat2Dbl&> && !reSolves<Mat2Dbl const&>, "not const");
    Mat2Dbl m = Rows(1.0, 2.0, 3.0, 4.0);
    Vec2Dbl v(5.0, 6.0);
    m.ReSolve(v); // never inverted: the product itself
    ExpectBits(v, 17.0, 39.0);
    m.Solve(v);
    ExpectBits(v, 5.0, 6.0);
    Mat2Dbl copy(m); // unlike a Mat3Dbl, a copy can still solve
    Vec2Dbl vectors[3] = {{17.0, 39.0}, {1.0, 3.0}, {9.0, 9.0}};
    copy.ReSolve(vectors, 2);
    ExpectBits(vectors[0], 5.0, 6.0);
    ExpectBits(vectors[1], 1.0, 0.0);
    ExpectBits(vectors[2], 9.0, 9.0);
    copy.ReSolve(vectors, 0);
    copy.ReSolve(vectors, -2);
    ExpectBits(vectors[0], 5.0, 6.0);
    Mat2Dbl singular(1.0);
    Vec2Dbl w(1.0, 2.0);
    singular.ReSolve(w); // no check
    ExpectBits(w, 3.0, 3.0);
}

// ---- Symmetric eigenproblem ------------------------------------------------------------------------

struct Eigen {
    Vec2Dbl values;
    Mat2Dbl vectors;
};

Eigen EigenOf(double a, double b, double c)
{
    Eigen result{Vec2Dbl(9.0), Rows(a, b, nan, c)}; // m10 is not read
    result.vectors.EigenSym(result.values, 1);
    return result;
}

Vec2Dbl ValuesOf(double a, double b, double c)
{
    Mat2Dbl m = Rows(a, b, nan, c);
    Vec2Dbl values(9.0);
    m.EigenSym(values, 0);
    ExpectBits(m, a, b, nan, c); // unchanged
    return values;
}

TEST(Mat2Dbl, EigenSymWorkedByHand)
{
    struct Case {
        double a, b, c;
        double value0, value1;
        double m00, m01, m10, m11;
    };
    Case const cases[] = {
        {3.0, 0.0, 1.0, 1.0, 3.0, 0.0, -1.0, -1.0, -0.0},     // sum > 0, a ≥ c
        {1.0, 0.0, 3.0, 1.0, 3.0, -1.0, 0.0, 0.0, 1.0},       // sum > 0, a < c
        {-1.0, 0.0, -3.0, -3.0, -1.0, -0.0, 1.0, -1.0, -0.0}, // sum < 0, a ≥ c
        {-3.0, 0.0, -1.0, -3.0, -1.0, -1.0, 0.0, -0.0, -1.0}, // sum < 0, a < c
        {1.0, 0.0, -1.0, -1.0, 1.0, 0.0, -1.0, -1.0, -0.0},   // sum 0
        // |cs| equals 2|b|: the branch for greater ones would give the opposite signs.
        {2.0, 1.0, 2.0, 1.0, 3.0, -h, h, h, h},
        {-2.0, 1.0, -2.0, -3.0, -1.0, h, -h, h, h},
        {0.0, 1.0, 0.0, -1.0, 1.0, -h, h, h, h},
        {0.0, -1.0, 0.0, -1.0, 1.0, -h, -h, -h, h},
        // A multiple of the identity matrix is accepted.
        {1.0, 0.0, 1.0, 1.0, 1.0, -1.0, -0.0, -0.0, 1.0},
    };
    for (Case const& each : cases) {
        SCOPED_TRACE(testing::Message() << each.a << ' ' << each.b << ' ' << each.c);
        Eigen const e = EigenOf(each.a, each.b, each.c);
        ExpectBits(e.values, each.value0, each.value1);
        ExpectBits(e.vectors, each.m00, each.m01, each.m10, each.m11);
        ExpectBits(ValuesOf(each.a, each.b, each.c), each.value0, each.value1);
    }
}

// The eigenvalue of smaller magnitude is (l / r1)·s − (b / r1)·b, with l the larger and s the smaller of
// a and c in magnitude. By exact arithmetic with a rounding at each step; a single division, the other
// order of l and s, and fused operations give other bits.
TEST(Mat2Dbl, EigenSymRoundsInTheStatedOrder)
{
    struct Case {
        double a, b, c;
        double r1, r2, co, sn;
    };
    Case const cases[] = {
        {0x1.efdffe0d69c3cp+1, -0x1.6369c1bf1adacp+0, -0x1.a3bb0484741efp+2, -0x1.af5a5289bd07p+2,
         0x1.038f4d0bfdc9ep+2, 0x1.099f3f81d7c3p-3, 0x1.fbace6bcf5df1p-1},
        {-0x1.a5dacb20df749p+2, 0x1.872d9d3c74ab2p+2, -0x1.65ae0019090c3p+2, -0x1.87212ce59631p+3,
         0x1.5cc748a1f098p-5, -0x1.788c00d02b07cp-1, 0x1.5aec9c3f520dbp-1},
        {0x1.0670f5aa5fd69p+2, 0x1.38348b52aeabp+2, 0x1.a65c4b2399f6ap+2, 0x1.4c57677ccec1cp+3,
         0x1.41e71d45c49ap-2, 0x1.39ee3d197605bp-1, 0x1.9476ec3debd8p-1},
        {0x1.4d81cdc2eab78p+2, 0x1.3683506ff42e6p+2, 0x1.ec612b7c4c1eep+1, 0x1.2db531ac97325p+3,
         -0x1.7b7ffd81d9dbp-2, -0x1.826bdb9ebf5e8p-1, -0x1.4fe40508051f4p-1},
        {-0x1.ee71639336723p+1, -0x1.634c3edafa103p+2, -0x1.a1cce363049ap+2, -0x1.5cf37d1843ba8p+3,
         0x1.070b281f3d0ecp-1, 0x1.3cfb4138b1b6ep-1, 0x1.9213fa88419d4p-1},
    };
    for (Case const& each : cases) {
        Eigen const e = EigenOf(each.a, each.b, each.c);
        if (each.r2 > each.r1) { // the rows are a rotation
            ExpectBits(e.values, each.r1, each.r2);
            ExpectBits(e.vectors, each.co, each.sn, -each.sn, each.co);
        } else { // and its reflection
            ExpectBits(e.values, each.r2, each.r1);
            ExpectBits(e.vectors, -each.sn, each.co, each.co, each.sn);
        }
        Vec2Dbl const values = ValuesOf(each.a, each.b, each.c);
        ExpectBits(values, e.values.x, e.values.y);
    }
}

TEST(Mat2Dbl, EigenSymOfManyMatrices)
{
    double const entries[] = {-1e150, -7.5, -1.0, -1e-9, 0.0, 1e-160, 0.25, 1.0, 3.0, 1e9, 1e150};
    for (double a : entries)
        for (double b : entries)
            for (double c : entries) {
                SCOPED_TRACE(testing::Message() << a << ' ' << b << ' ' << c);
                Eigen const e = EigenOf(a, b, c);
                double const bound = 4e-16 * (std::fabs(a) + std::fabs(b) + std::fabs(c));
                EXPECT_LE(e.values.x, e.values.y);
                for (unsigned int i : {0u, 1u}) { // A·v = λ·v
                    Vec2Dbl const v = e.vectors.GetRow(i);
                    double const value = e.values[static_cast<int>(i)];
                    EXPECT_NEAR(v.Length(), 1.0, 4e-16);
                    EXPECT_NEAR(a * v.x + b * v.y, value * v.x, 3 * bound);
                    EXPECT_NEAR(b * v.x + c * v.y, value * v.y, 3 * bound);
                }
                EXPECT_NEAR(e.vectors.GetRow(0).Dot(e.vectors.GetRow(1)), 0.0, 1e-16);
            }
}

// As half of sum minus root, the smaller eigenvalue would underflow here; with squares, both would
// overflow.
TEST(Mat2Dbl, EigenSymKeepsTheSmallEigenvalue)
{
    ExpectBits(ValuesOf(1e20, 1.0, 1.0), 1.0, 1e20);
    ExpectBits(ValuesOf(1.0, 1.0, 1e20), 1.0, 1e20);
    ExpectBits(ValuesOf(1e300, 1e300, 1e300), 0.0, 2e300);
    ExpectBits(ValuesOf(-1e20, 1.0, -1.0), -1e20, -1.0);
}

TEST(Mat2Dbl, EigenSymOfZero)
{
    // r1 = 0 and r2 = −0 are equal: without vectors they keep their order, with vectors they swap.
    ExpectBits(ValuesOf(0.0, 0.0, 0.0), 0.0, -0.0);
    Eigen const e = EigenOf(0.0, 0.0, 0.0);
    ExpectBits(e.values, -0.0, 0.0);
    ExpectBits(e.vectors, -1.0, -0.0, -0.0, 1.0);
}

// By hand: an unordered comparison takes the last branch of each choice. A NaN off the diagonal affects
// every result; one on the diagonal leaves root 0 and the sum's last branch, and so the values 0 and −0.
TEST(Mat2Dbl, EigenSymOfNan)
{
    ExpectBits(ValuesOf(1.0, nan, 1.0), nan, nan);
    ExpectBits(EigenOf(1.0, nan, 2.0).values, nan, nan);
    ExpectBits(EigenOf(1.0, nan, 2.0).vectors, nan, nan, nan, nan);
    ExpectBits(ValuesOf(nan, 0.0, 1.0), 0.0, -0.0);
    ExpectBits(ValuesOf(1.0, 0.0, nan), 0.0, -0.0);
    ExpectBits(EigenOf(nan, 0.0, 1.0).values, -0.0, 0.0);
    ExpectBits(EigenOf(nan, 0.0, 1.0).vectors, -0.0, 1.0, 1.0, 0.0);
}

TEST(Mat2Dbl, EigenSymTakesAnyNonZeroForYes)
{
    Mat2Dbl m = Rows(3.0, 0.0, 7.0, 1.0);
    Vec2Dbl values;
    m.EigenSym(values, -2);
    ExpectBits(m, 0.0, -1.0, -1.0, -0.0);
    ExpectBits(values, 1.0, 3.0);
}

// ---- Free operators --------------------------------------------------------------------------------

TEST(Mat2Dbl, MultiplyByScalar)
{
    Mat2Dbl const m = Rows(1.0, -2.0, 0.0, 4.0);
    ExpectBits(m * -3.0, -3.0, 6.0, -0.0, -12.0);
    ExpectBits(-3.0 * m, -3.0, 6.0, -0.0, -12.0);
    ExpectBits(Rows(3.0, 5.0, 7.0, 9.0) * 4.0, 12.0, 20.0, 28.0, 36.0);
}

TEST(Mat2Dbl, DivideByScalarMultipliesByTheReciprocal)
{
    ExpectBits(Rows(7.0, 20.0, 17.0, 0.0) / Opaque(3.0), 0x1.2aaaaaaaaaaaap+1, 0x1.aaaaaaaaaaaaap+2,
               0x1.6aaaaaaaaaaaap+2, 0.0);
    ExpectBits(Rows(0.0, 1.0, -1.0, 2.0) / Opaque(0.0), nan, infinity, -infinity, infinity);
}

TEST(Mat2Dbl, AddAndSubtract)
{
    ExpectBits(Rows(1.0, 2.0, 3.0, -0.0) + Rows(10.0, 20.0, 30.0, -0.0), 11.0, 22.0, 33.0, -0.0);
    ExpectBits(Rows(1.0, 2.0, 3.0, -0.0) - Rows(10.0, 2.0, 30.0, 0.0), -9.0, 0.0, -27.0, -0.0);
}

TEST(Mat2Dbl, MultiplyByMatrix)
{
    ExpectBits(Rows(1.0, 2.0, 3.0, 4.0) * Rows(5.0, 6.0, 7.0, 8.0), 19.0, 22.0, 43.0, 50.0);
    // By exact arithmetic with each product rounded; a fused multiply-add gives a neighbour of each.
    Mat2Dbl const left =
        Rows(-0x1.85d783980daebp+1, 0x1.91d9d720b5e3dp+2, 0x1.d7d3ecdbef64bp+2, 0x1.f50cfb720cf8bp+2);
    Mat2Dbl const right =
        Rows(-0x1.8a3ef3b60bc8ep+2, -0x1.ed21f2b6d9fcbp+1, 0x1.bc9aca4ca849bp+0, -0x1.cdfec35aab9bep+1);
    ExpectBits(left * right, 0x1.daa8f9daeee96p+4, -0x1.5dbb53c8a192p+3, -0x1.fd13d294b5bccp+4,
               -0x1.c5472cb528cccp+5);
    Mat2Dbl m = Rows(1.0, 1.0, 1.0, 0.0);
    m = m * m;
    ExpectBits(m, 2.0, 1.0, 1.0, 1.0);
    // The sum starts with the first product: two products of −0 make −0.
    ExpectBits(Rows(-0.0, 0.0, 1.0, 1.0) * Rows(1.0, 1.0, -1.0, -1.0), -0.0, -0.0, 0.0, 0.0);
}

TEST(Mat2Dbl, MultiplyByVector)
{
    Mat2Dbl const m = Rows(1.0, 2.0, 3.0, 4.0);
    ExpectBits(m * Vec2Dbl(5.0, 6.0), 17.0, 39.0);
    double const e = Opaque(0x1p-30); // products rounded before the sum
    ExpectBits(Rows(1.0 + e, -1.0, -1.0, 1.0 + e) * Vec2Dbl(1.0 - e, 1.0), 0.0, 0x1p-29);
    ExpectBits(Rows(-0.0, 0.0, 0.0, 0.0) * Vec2Dbl(1.0, -1.0), -0.0, 0.0);
    Vec2Dbl v(1.0, 1.0);
    v = m * v;
    ExpectBits(v, 3.0, 7.0);
}

// By exact arithmetic: with the products, or the elements, rounded to single, each component differs.
TEST(Mat2Dbl, MultiplyByVec2FltRoundsOnce)
{
    Mat2Dbl const m =
        Rows(-0x1.ac724620e50aap+1, -0x1.b6cdeb6cf1fdep+2, -0x1.836f09eb37316p+1, -0x1.31c7d53305d54p+2);
    static_assert(std::is_same_v<decltype(m * Vec2Flt()), Vec2Flt>, "");
    Vec2Flt const product = m * Vec2Flt(-0x1.5586d4p+1f, 0x1.390ba4p+1f);
    EXPECT_SAME_BITS(product.x, -0x1.f59594p+2f);
    EXPECT_SAME_BITS(product.y, -0x1.cdef02p+1f);
}

// ---- Members of earlier classes that name Mat2Dbl ----------------------------------------------------

TEST(Mat2Dbl, OuterProductOfVec2Dbl)
{
    Vec2Dbl const v(2.0, -0.0);
    ExpectBits(v.OuterProduct(Vec2Dbl(5.0, 7.0)), 10.0, 14.0, -0.0, -0.0);
    ExpectBits(Vec2Dbl(5.0, 7.0).OuterProduct(v), 10.0, -0.0, 14.0, -0.0);
}

TEST(Mat2Dbl, OuterProductOfVec2FltStaysInDouble)
{
    float const e = 0x1p-23f;
    static_assert(std::is_same_v<decltype(Vec2Flt().OuterProduct(Vec2Flt())), Mat2Dbl>, "");
    ExpectBits(Vec2Flt(1.0f + e, 1e38f).OuterProduct(Vec2Flt(1.0f + e, 1e38f)), 1.0 + 0x1p-22 + 0x1p-46,
               (1.0 + 0x1p-23) * double(1e38f), (1.0 + 0x1p-23) * double(1e38f),
               double(1e38f) * double(1e38f));
}

} // namespace
