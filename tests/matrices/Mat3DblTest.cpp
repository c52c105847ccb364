#include <vexor/elementary.h>
#include <vexor/matrices/Mat3Dbl.h>

#include <vexor/foundation/VexorException.h>

#include <matrices/Draws.h>
#include <matrices/SmallSolverReference.h>
#include <support/Bits.h>
#include <support/Components.h>
#include <support/Fixtures.h>

#include <array>
#include <cstring>
#include <new>
#include <type_traits>

using namespace vexor_test;

namespace {

using vexor_test::ExpectBits;
using vexor_test::nan; // and not the function of <cmath>

void ExpectBits(Mat3Dbl const& actual, Mat3Dbl const& expected)
{
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            EXPECT_SAME_BITS(actual(r, c), expected(r, c)) << "element (" << r << ", " << c << ")";
    }
}

Mat3Dbl Matrix(double a, double b, double c, double d, double e, double f, double g, double h, double i)
{
    return Mat3Dbl(Vec3Dbl(a, b, c), Vec3Dbl(d, e, f), Vec3Dbl(g, h, i));
}

Mat3Dbl Symmetric(double a, double b, double c, double d, double e, double f)
{
    return Matrix(a, b, c, b, d, e, c, e, f);
}

Mat3Dbl Unit()
{
    return Matrix(1, 0, 0, 0, 1, 0, 0, 0, 1);
}

/// 1 to 9, row by row.
Mat3Dbl Counted()
{
    return Matrix(1, 2, 3, 4, 5, 6, 7, 8, 9);
}

/// The three bytes after the elements.
std::array<unsigned char, 3> PivotOrder(Mat3Dbl const& matrix)
{
    std::array<unsigned char, 3> order = {};
    std::memcpy(order.data(), reinterpret_cast<unsigned char const*>(&matrix) + 9 * sizeof(double), 3);
#if defined(VEXOR_CHECKED)
    for (unsigned char& row : order)
        row &= 3; // the byte above it holds the mark of a checked build
#endif
    return order;
}

using Order = std::array<unsigned char, 3>;

double Determinant(Mat3Dbl const& m)
{
    return m.GetRow(0).Dot(m.GetRow(1).Cross(m.GetRow(2)));
}

// ---- The class as a whole --------------------------------------------------------------------------

TEST(Mat3Dbl, Layout)
{
    static_assert(sizeof(Mat3Dbl) == 10 * sizeof(double) && std::is_standard_layout_v<Mat3Dbl>, "");
    static_assert(std::is_trivially_destructible_v<Mat3Dbl>, "");
    static_assert(!std::is_polymorphic_v<Mat3Dbl>, "");
    static_assert(!std::is_trivially_copyable_v<Mat3Dbl>, "a copy leaves the pivot order out");
    Mat3Dbl m = Counted();
    double elements[9];
    std::memcpy(elements, &m, sizeof elements);
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(elements[i], i + 1.0);
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Mat3Dbl, DefaultConstructor)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build fills the elements";
#else
    EXPECT_TRUE(DefaultConstructorWritesNothing<Mat3Dbl>());
#endif
}

TEST(Mat3Dbl, ConstructorFromOneNumberFillsAllElements)
{
    ExpectBits(Mat3Dbl(2.0), Matrix(2, 2, 2, 2, 2, 2, 2, 2, 2));
    Mat3Dbl const fromInt = -3; // no constructor is explicit
    ExpectBits(fromInt, Matrix(-3, -3, -3, -3, -3, -3, -3, -3, -3));
}

TEST(Mat3Dbl, ConstructorFromRows)
{
    Mat3Dbl const m(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, -0.0));
    EXPECT_EQ(m(0, 1), 2.0);
    EXPECT_EQ(m(1, 0), 4.0);
    EXPECT_SAME_BITS(m(2, 2), -0.0);
}

/// Constructs a matrix in bytes of a pattern and returns its pivot order.
template <class... Arguments>
Order PivotOrderAfterConstruction(Arguments const&... arguments)
{
    alignas(Mat3Dbl) unsigned char memory[sizeof(Mat3Dbl)];
    std::memset(memory, 77, sizeof memory);
    __asm__ volatile("" : : "r"(memory) : "memory");
    Mat3Dbl* const matrix = ::new (static_cast<void*>(memory)) Mat3Dbl(arguments...);
    __asm__ volatile("" : : "r"(memory) : "memory");
    return PivotOrder(*matrix);
}

/// A factorised matrix whose row order is 2, 1, 0.
Mat3Dbl& Factorise(Mat3Dbl& matrix)
{
    matrix = Matrix(0, 2, 3.5, 4, 8, 8, 2, 0, 1);
    Vec3Dbl side(1, 1, 1);
    matrix.Solve(side);
    return matrix;
}

TEST(Mat3Dbl, NoConstructorSetsThePivotOrder)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build marks the row order as unset";
#else
    Order const pattern = {77, 77, 77};
    EXPECT_EQ(PivotOrderAfterConstruction(1.0), pattern);
    EXPECT_EQ(PivotOrderAfterConstruction(Vec3Dbl(1.0), Vec3Dbl(2.0), Vec3Dbl(3.0)), pattern);
    Mat3Dbl factors;
    Factorise(factors);
    EXPECT_EQ(PivotOrder(factors), (Order{2, 1, 0}));
    EXPECT_EQ(PivotOrderAfterConstruction(factors), pattern);
#endif
}

TEST(Mat3Dbl, CopyCarriesTheElements)
{
    Mat3Dbl const source = Matrix(1, -0.0, nan, infinity, 5, 6, 7, 8, 9);
    Mat3Dbl const copy(source);
    ExpectBits(copy, source);
}

TEST(Mat3Dbl, AssignmentKeepsThePivotOrder)
{
    Mat3Dbl factors;
    Factorise(factors);
    Mat3Dbl other = Unit();
    Vec3Dbl side(1, 2, 3);
    other.Solve(side); // its row order is 0, 1, 2
    EXPECT_EQ(&(factors = other), &factors);
    ExpectBits(factors, Unit());
    EXPECT_EQ(PivotOrder(factors), (Order{2, 1, 0}));
    Mat3Dbl& same = factors;
    factors = same;
    ExpectBits(factors, Unit());
}

TEST(Mat3Dbl, NoElementwiseOperationTouchesThePivotOrder)
{
    Mat3Dbl m;
    Factorise(m);
    m.SetValue(1.0).SetDiagonal(2.0).SetRow(1, Vec3Dbl(3.0)).SetCol(2, Vec3Dbl(4.0)).Identity();
    m.Transpose().Negate();
    m *= 2.0;
    m /= 4.0;
    m += m;
    m -= Unit();
    EXPECT_EQ(PivotOrder(m), (Order{2, 1, 0}));
}

// ---- Elements, rows and columns --------------------------------------------------------------------

TEST(Mat3Dbl, CallOperator)
{
    Mat3Dbl m(0.0);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            m(r, c) = 10 * r + c;
    }
    ExpectBits(m, Matrix(0, 1, 2, 10, 11, 12, 20, 21, 22));
    Mat3Dbl const& constant = m;
    EXPECT_EQ(&constant(2, 1), &m(2, 1));
    EXPECT_EQ(&m(2, 2) - &m(0, 0), 8);
}

TEST(Mat3Dbl, GetRow)
{
    Mat3Dbl m = Counted();
    Vec3Dbl& row = m.GetRow(1);
    ExpectBits(row, 4, 5, 6);
    row.y = 50;
    row[2] = 60;
    EXPECT_EQ(m(1, 1), 50.0);
    EXPECT_EQ(m(1, 2), 60.0);
    Mat3Dbl const& constant = m;
    EXPECT_EQ(&constant.GetRow(2), &m.GetRow(2));
    EXPECT_EQ(static_cast<void*>(&m.GetRow(0)), static_cast<void*>(&m));
}

TEST(Mat3Dbl, SetRow)
{
    Mat3Dbl m = Counted();
    EXPECT_EQ(&m.SetRow(1, Vec3Dbl(-1, -0.0, -3)), &m);
    ExpectBits(m, Matrix(1, 2, 3, -1, -0.0, -3, 7, 8, 9));
    m.SetRow(0, m.GetRow(2));
    ExpectBits(m.GetRow(0), 7, 8, 9);
}

TEST(Mat3Dbl, GetCol)
{
    Mat3Dbl m = Counted();
    ExpectBits(m.GetCol(0), 1, 4, 7);
    ExpectBits(m.GetCol(1), 2, 5, 8);
    ExpectBits(m.GetCol(2), 3, 6, 9);
    Vec3Dbl column = m.GetCol(1);
    column.x = 100;
    ExpectBits(m, Counted());
}

TEST(Mat3Dbl, SetCol)
{
    Mat3Dbl m = Counted();
    EXPECT_EQ(&m.SetCol(1, Vec3Dbl(-1, -2, -0.0)), &m);
    ExpectBits(m, Matrix(1, -1, 3, 4, -2, 6, 7, -0.0, 9));
    Mat3Dbl own = Counted();
    own.SetCol(1, own.GetRow(0)); // writes to the row while it is read
    ExpectBits(own, Matrix(1, 1, 3, 4, 2, 6, 7, 3, 9));
}

TEST(Mat3Dbl, GetDiagonal)
{
    ExpectBits(Counted().GetDiagonal(), 1, 5, 9);
}

TEST(Mat3Dbl, SetDiagonal)
{
    Mat3Dbl m = Counted();
    EXPECT_EQ(&m.SetDiagonal(Vec3Dbl(-1, -0.0, -9)), &m);
    ExpectBits(m, Matrix(-1, 2, 3, 4, -0.0, 6, 7, 8, -9));
    EXPECT_EQ(&m.SetDiagonal(2.0), &m);
    ExpectBits(m, Matrix(2, 2, 3, 4, 2, 6, 7, 8, 2));
    Mat3Dbl zero(0.0);
    ExpectBits(zero.SetDiagonal(2.0), Matrix(2, 0, 0, 0, 2, 0, 0, 0, 2));
    for (unsigned int row = 0; row < 3; ++row) {
        Mat3Dbl own = Counted();
        own.SetDiagonal(own.GetRow(row));
        ExpectBits(own.GetDiagonal(), 3.0 * row + 1, 3.0 * row + 2, 3.0 * row + 3);
    }
}

TEST(Mat3Dbl, SetValue)
{
    Mat3Dbl m = Counted();
    EXPECT_EQ(&m.SetValue(-0.0), &m);
    ExpectBits(m, Mat3Dbl(-0.0));
    EXPECT_EQ(&m.SetValue(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 9)), &m);
    ExpectBits(m, Counted());
    m.SetValue(m.GetRow(2), m.GetRow(0), m.GetRow(1));
    ExpectBits(m, Matrix(7, 8, 9, 1, 2, 3, 4, 5, 6));
    ExpectBits(m.SetValue(m(0, 0)), Mat3Dbl(7.0));
}

TEST(Mat3Dbl, GetValue)
{
    Mat3Dbl m = Counted();
    Vec3Dbl a(0.0);
    Vec3Dbl b(0.0);
    Vec3Dbl c(0.0);
    m.GetValue(a, b, c);
    ExpectBits(a, 1, 2, 3);
    ExpectBits(b, 4, 5, 6);
    ExpectBits(c, 7, 8, 9);
    m.GetValue(m.GetRow(2), a, m.GetRow(0)); // rows exchanged through the arguments
    ExpectBits(m, Matrix(7, 8, 9, 4, 5, 6, 1, 2, 3));
}

// ---- The whole matrix ------------------------------------------------------------------------------

TEST(Mat3Dbl, Identity)
{
    Mat3Dbl m(nan);
    EXPECT_EQ(&m.Identity(), &m);
    ExpectBits(m, Unit());
}

TEST(Mat3Dbl, Transpose)
{
    Mat3Dbl m = Counted();
    EXPECT_EQ(&m.Transpose(), &m);
    ExpectBits(m, Matrix(1, 4, 7, 2, 5, 8, 3, 6, 9));
}

TEST(Mat3Dbl, GetTransposedCopy)
{
    Mat3Dbl const m = Counted();
    ExpectBits(m.GetTransposedCopy(), Matrix(1, 4, 7, 2, 5, 8, 3, 6, 9));
    ExpectBits(m, Counted());
}

TEST(Mat3Dbl, Negate)
{
    Mat3Dbl m(0.0);
    EXPECT_EQ(&m.Negate(), &m);
    ExpectBits(m, Mat3Dbl(-0.0));
    EXPECT_EQ(m == Mat3Dbl(0.0), 1);
    m.Negate();
    ExpectBits(m, Mat3Dbl(0.0));
    ExpectBits(Counted().Negate(), Matrix(-1, -2, -3, -4, -5, -6, -7, -8, -9));
}

TEST(Mat3Dbl, GetNegatedCopyAndUnaryMinus)
{
    Mat3Dbl const m = Matrix(0.0, -0.0, 1, 2, 3, infinity, 5, 6, 7);
    Mat3Dbl const expected = Matrix(-0.0, 0.0, -1, -2, -3, -infinity, -5, -6, -7);
    ExpectBits(m.GetNegatedCopy(), expected);
    ExpectBits(-m, expected);
}

TEST(Mat3Dbl, RowSum)
{
    ExpectBits(Counted().RowSum(), 12, 15, 18);
    ExpectBits(Matrix(1, 0, 0, 1, 0, 0, 1, 0, 0).RowSum(), 3, 0, 0);
    // (1 + 2^-53) + 2^-53 is 1; in the reverse order it would be more.
    ExpectBits(Matrix(1, 0x1p-53, -0.0, 0x1p-53, 0x1p-53, -0.0, 0x1p-53, 1, -0.0).RowSum(), 1, 1 + 0x1p-52,
               -0.0);
}

TEST(Mat3Dbl, RowAverageMultipliesByTheReciprocal)
{
    ExpectBits(Matrix(1, 5, 0, 1, 0, -0.0, 1, 0, 0).RowAverage(), 1, 0x1.aaaaaaaaaaaaap+0, 0); // not 5/3
}

// ---- Exact comparison ------------------------------------------------------------------------------

TEST(Mat3Dbl, Equality)
{
    EXPECT_EQ(Counted() == Counted(), 1);
    EXPECT_EQ(Counted() != Counted(), 0);
    EXPECT_EQ(Mat3Dbl(0.0) == Mat3Dbl(-0.0), 1);
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c) {
            Mat3Dbl other = Counted();
            other(r, c) = Above(other(r, c));
            EXPECT_EQ(Counted() == other, 0) << r << c;
            EXPECT_EQ(Counted() != other, 1) << r << c;
            other(r, c) = nan;
            EXPECT_EQ(other == other, 0) << r << c;
            EXPECT_EQ(other != other, 1) << r << c;
        }
    }
}

TEST(Mat3Dbl, EqualityIgnoresThePivotOrder)
{
    Mat3Dbl a;
    Factorise(a);
    Mat3Dbl b = Unit();
    Vec3Dbl side(1.0);
    b.Solve(side);
    b = a;
    EXPECT_NE(PivotOrder(a), PivotOrder(b));
    EXPECT_EQ(a == b, 1);
    EXPECT_EQ(a != b, 0);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(Mat3Dbl, MultiplicationByAScalar)
{
    Mat3Dbl m = Matrix(1, -2, 0.0, -0.0, 0.1, infinity, nan, 0x1p-1074, 3);
    Mat3Dbl const expected = Matrix(-0.5, 1, -0.0, 0.0, -0.05, -infinity, nan, -0.0, -1.5);
    ExpectBits(m * -0.5, expected);
    ExpectBits(-0.5 * m, expected);
    EXPECT_EQ(&(m *= -0.5), &m);
    ExpectBits(m, expected);
    Mat3Dbl own = Counted();
    own *= own(1, 1);
    ExpectBits(own, Matrix(5, 10, 15, 20, 25, 30, 35, 40, 45));
}

TEST(Mat3Dbl, FreeDivisionMultipliesByTheReciprocal)
{
    ExpectBits(Mat3Dbl(5.0) / 3.0, Mat3Dbl(0x1.aaaaaaaaaaaaap+0));
    ExpectBits(Mat3Dbl(0.0) / 0.0, Mat3Dbl(nan));
    ExpectBits(Mat3Dbl(1.0) / 0x1p-1074, Mat3Dbl(infinity));
    ExpectBits(Mat3Dbl(0x1p-1074) / 0x1p-1074, Mat3Dbl(infinity)); // of an infinite reciprocal
}

TEST(Mat3Dbl, DivisionInPlaceDivides)
{
    Mat3Dbl m = Matrix(5, -5, 0.0, -0.0, 5, 5, 5, 5, 5);
    EXPECT_EQ(&(m /= 3.0), &m);
    double const q = 0x1.aaaaaaaaaaaabp+0; // 5/3
    ExpectBits(m, Matrix(q, -q, 0.0, -0.0, q, q, q, q, q));
    ExpectBits(Mat3Dbl(0.0) /= 0.0, Mat3Dbl(nan));
    ExpectBits(Mat3Dbl(-2.0) /= 0.0, Mat3Dbl(-infinity));
    ExpectBits(Mat3Dbl(0x1p-1074) /= 0x1p-1074, Mat3Dbl(1.0));
    Mat3Dbl own = Matrix(2, 4, 6, 8, 10, 12, 14, 16, 18);
    own /= own(0, 0);
    ExpectBits(own, Counted());
}

TEST(Mat3Dbl, SumAndDifference)
{
    Mat3Dbl m = Counted();
    Mat3Dbl const other = Matrix(10, 20, 30, 40, 50, 60, 70, 80, -9);
    ExpectBits(m + other, Matrix(11, 22, 33, 44, 55, 66, 77, 88, 0));
    ExpectBits(m - other, Matrix(-9, -18, -27, -36, -45, -54, -63, -72, 18));
    EXPECT_EQ(&(m += other), &m);
    ExpectBits(m, Matrix(11, 22, 33, 44, 55, 66, 77, 88, 0));
    EXPECT_EQ(&(m -= other), &m);
    ExpectBits(m, Counted());
    Mat3Dbl const& same = m;
    m += same;
    ExpectBits(m, Matrix(2, 4, 6, 8, 10, 12, 14, 16, 18));
    m -= same;
    ExpectBits(m, Mat3Dbl(0.0));
    ExpectBits(Mat3Dbl(-0.0) + Mat3Dbl(-0.0), Mat3Dbl(-0.0));
    ExpectBits(Mat3Dbl(-0.0) - Mat3Dbl(0.0), Mat3Dbl(-0.0));
}

// ---- Products --------------------------------------------------------------------------------------

TEST(Mat3Dbl, ProductOfMatrices)
{
    Mat3Dbl m = Counted();
    Mat3Dbl const other = Matrix(1, 0, 2, -1, 3, 1, 2, 1, 0);
    ExpectBits(m * other, Matrix(5, 9, 4, 11, 21, 13, 17, 33, 22));
    ExpectBits(other * m, Matrix(15, 18, 21, 18, 21, 24, 6, 9, 12));
    m = m * m;
    ExpectBits(m, Matrix(30, 36, 42, 66, 81, 96, 102, 126, 150));
}

TEST(Mat3Dbl, ProductOfMatricesSumsInOrderFromZero)
{
    // ((0 + 1) + 2^-53) + 2^-53 is 1, while (2^-53 + 2^-53) + 1 is more.
    Mat3Dbl const left(Vec3Dbl(1, 0x1p-53, 0x1p-53), Vec3Dbl(0x1p-53, 0x1p-53, 1), Vec3Dbl(-1, -1, -1));
    Mat3Dbl const ones(1.0);
    Mat3Dbl const product = left * ones;
    ExpectBits(product.GetRow(0), 1, 1, 1);
    ExpectBits(product.GetRow(1), 1 + 0x1p-52, 1 + 0x1p-52, 1 + 0x1p-52);
    // Three products of −0 make 0, since the sum starts with 0.0.
    ExpectBits((left * Mat3Dbl(0.0)).GetRow(2), 0.0, 0.0, 0.0);
}

TEST(Mat3Dbl, ProductWithVector)
{
    Mat3Dbl const m = Counted();
    ExpectBits(m * Vec3Dbl(1, 10, 100), 321, 654, 987);
    ExpectBits(Unit() * Vec3Dbl(0.1, 0.2, 0.3), 0.1, 0.2, 0.3);
    // (x + y) + z, with no 0.0 before it: three products of −0 stay −0.
    ExpectBits(Matrix(1, 0x1p-53, 0x1p-53, 0x1p-53, 0x1p-53, 1, 1, 1, 1) * Vec3Dbl(1.0), 1, 1 + 0x1p-52, 3);
    ExpectBits(Mat3Dbl(-1.0) * Vec3Dbl(0.0), -0.0, -0.0, -0.0);
    Mat3Dbl own = Counted();
    own.GetRow(1) = own * own.GetRow(1);
    ExpectBits(own.GetRow(1), 32, 77, 122);
}

TEST(Mat3Dbl, ProductWithPnt3DblRoundsToSingle)
{
    Pnt3Dbl const p = Unit() * Pnt3Dbl(0.1, 0.2, 0.3);
    EXPECT_SAME_BITS(p.x, 0x1.99999ap-4); // 0.1f, 0.2f, 0.3f
    EXPECT_SAME_BITS(p.y, 0x1.99999ap-3);
    EXPECT_SAME_BITS(p.z, 0x1.333334p-2);

    // Only the sum is rounded, not the coordinates or the products: 2^-30 is kept.
    Mat3Dbl const difference = Matrix(1, -1, 0, 1 + 0x1p-30, -1, 0, 1, 0x1p-24, 0x1p-48);
    Pnt3Dbl const q = difference * Pnt3Dbl(1 + 0x1p-30, 1, 1);
    EXPECT_SAME_BITS(q.x, 0x1p-30);
    EXPECT_SAME_BITS(q.y, 0x1p-29); // 2^-29 + 2^-60, rounded
    EXPECT_SAME_BITS(q.z, 1 + 0x1p-23);

    Pnt3Dbl const large = Mat3Dbl(0x1p127) * Pnt3Dbl(2, -4, 8);
    EXPECT_SAME_BITS(large.x, infinity); // beyond the range of a single
    Pnt3Dbl const small = Unit() * Pnt3Dbl(0x1p-200, 0x1p-149, -0x1p-200);
    EXPECT_SAME_BITS(small.x, 0.0);
    EXPECT_SAME_BITS(small.y, 0x1p-149);
    EXPECT_SAME_BITS(small.z, -0.0);
}

TEST(Mat3Dbl, ProductWithVec3Flt)
{
    Mat3Dbl const m = Matrix(1 + 0x1p-30, -1, 0, 0.1, 0, 0, 1, 0x1p-24, 0x1p-48);
    Vec3Flt const v = m * Vec3Flt(1.0f, 1.0f, 1.0f);
    EXPECT_SAME_BITS(v.x, 0x1p-30f); // the elements stay doubles
    EXPECT_SAME_BITS(v.y, 0x1.99999ap-4f);
    EXPECT_SAME_BITS(v.z, 1 + 0x1p-23f); // rounded once, upwards; rounded after each term it would be 1
}

TEST(Mat3Dbl, ProductWithPnt3Flt)
{
    Mat3Dbl const m = Matrix(1 + 0x1p-30, -1, 0, 0.1, 0, 0, 1, 0x1p-24, 0x1p-48);
    Pnt3Flt const p = m * Pnt3Flt(1.0f, 1.0f, 1.0f);
    EXPECT_SAME_BITS(p.x, 0x1p-30f);
    EXPECT_SAME_BITS(p.y, 0x1.99999ap-4f);
    EXPECT_SAME_BITS(p.z, 1 + 0x1p-23f);
}

TEST(Mat3Dbl, OuterProductOfVec3Dbl)
{
    static_assert(
        std::is_same_v<decltype(&Vec3Dbl::OuterProduct), Mat3Dbl (Vec3Dbl::*)(Vec3Dbl const&) const>, "");
    ExpectBits(Vec3Dbl(1, 2, 3).OuterProduct(Vec3Dbl(4, 5, -0.0)),
               Matrix(4, 5, -0.0, 8, 10, -0.0, 12, 15, -0.0));
    Vec3Dbl const v(0.1, -2, 3);
    ExpectBits(v.OuterProduct(v), Matrix(0.1 * 0.1, -0.2, 0.1 * 3, -0.2, 4, -6, 0.1 * 3, -6, 9));
}

TEST(Mat3Dbl, OuterProductOfVec3FltIsExact)
{
    static_assert(
        std::is_same_v<decltype(&Vec3Flt::OuterProduct), Mat3Dbl (Vec3Flt::*)(Vec3Flt const&) const>, "");
    float const x = 1 + 0x1p-23f;
    Mat3Dbl const m = Vec3Flt(x, 2.0f, -0.0f).OuterProduct(Vec3Flt(x, 3.0f, 0x1p-149f));
    ExpectBits(m, Matrix(1 + 0x1p-22 + 0x1p-46, 3 + 0x1.8p-22, 0x1p-149 + 0x1p-172, 2 + 0x1p-22, 6, 0x1p-148,
                         -0.0, -0.0, -0.0));
}

// ---- Solving ---------------------------------------------------------------------------------------

// All steps are exact: the factors and the inverse are worked by hand.
Mat3Dbl Exact()
{
    return Matrix(0, 2, 3.5, 4, 8, 8, 2, 0, 1);
}

Mat3Dbl ExactFactors()
{
    return Matrix(0, 0.25, 0.5, 2, 0.125, 6, 0.5, 0, 1);
}

Mat3Dbl ExactInverse()
{
    return Matrix(-0.25, 0.0625, 0.375, -0.375, 0.21875, -0.4375, 0.5, -0.125, 0.25);
}

TEST(Mat3Dbl, SolveOne)
{
    Mat3Dbl m = Exact();
    Vec3Dbl b(14.5, 44, 5);
    m.Solve(b);
    ExpectBits(b, 1, 2, 3);
    ExpectBits(m, ExactFactors());
    EXPECT_EQ(PivotOrder(m), (Order{2, 1, 0}));
}

TEST(Mat3Dbl, SolveArray)
{
    Mat3Dbl m = Exact();
    Vec3Dbl three[3] = {Vec3Dbl(14.5, 44, 5), Vec3Dbl(2, 8, 0), Vec3Dbl(0, 4, 2)};
    m.Solve(three, 3);
    ExpectBits(three[0], 1, 2, 3);
    ExpectBits(three[1], 0, 1, 0);
    ExpectBits(three[2], 1, 0, 0);
    ExpectBits(m, ExactFactors());
    EXPECT_EQ(PivotOrder(m), (Order{2, 1, 0}));

    Mat3Dbl again = Exact();
    Vec3Dbl one[2] = {Vec3Dbl(14.5, 44, 5), Vec3Dbl(7.0)};
    again.Solve(one, 1);
    ExpectBits(one[0], 1, 2, 3);
    ExpectBits(one[1], 7, 7, 7);
}

TEST(Mat3Dbl, SolveArrayOfTwoReadsTheSecondFromTheThirdElementOn)
{
    Mat3Dbl m = Matrix(0.5, 0, 0, 0, 0.25, 0, 0, 0, 0.125); // multiplies by 2, 4 and 8
    Vec3Dbl two[2] = {Vec3Dbl(1.0), Vec3Dbl(1.0)};
    m.Solve(two, 2);
    ExpectBits(two[0], 2, 4, 16);
    ExpectBits(two[1], 4, 8, 1);
}

TEST(Mat3Dbl, SolveArrayOfNoneFactorises)
{
    Mat3Dbl m = Exact();
    Vec3Dbl b(5.0);
    m.Solve(&b, 0);
    ExpectBits(b, 5, 5, 5);
    ExpectBits(m, ExactFactors());
}

TEST(Mat3Dbl, SolveSmallElements)
{
    Mat3Dbl m = 1e-300 * Matrix(1, 2, 0, 2, 1, 1, 0, 1, 3);
    Vec3Dbl b(5e-300, 7e-300, 11e-300);
    m.Solve(b); // no threshold: the solution is (1, 2, 3)
    EXPECT_NEAR(b.x, 1, 1e-14);
    EXPECT_NEAR(b.y, 2, 1e-14);
    EXPECT_NEAR(b.z, 3, 1e-14);
}

TEST(Mat3Dbl, SolveSingularWithARowOfZeros)
{
    Mat3Dbl const singular = Matrix(1, 2, 3, 0, -0.0, 0, 7, 8, 9);
    Mat3Dbl m(singular);
    Vec3Dbl b(1, 2, 3);
    EXPECT_THROW(m.Solve(b), VexorSingular);
    ExpectBits(m, singular);
    ExpectBits(b, 1, 2, 3);
    EXPECT_THROW(m.Solve(&b, 1), VexorSingular);
    ExpectBits(m, singular);
    ExpectBits(b, 1, 2, 3);
    EXPECT_THROW(m.Invert(), VexorSingular);
    ExpectBits(m, singular);
    EXPECT_THROW(m.GetInvertedCopy(), VexorSingular);
    ExpectBits(m, singular);
}

TEST(Mat3Dbl, SolveSingularWithoutARowOfZeros)
{
    Mat3Dbl const singular = Matrix(1, 2, 3, 2, 4, 6, 1, 1, 1);
    Mat3Dbl const left = Matrix(1, 0.5, 0, 2, 0.5, 4, 1, 1, 1); // as far as the factorisation came
    Mat3Dbl m(singular);
    Vec3Dbl b(1, 2, 3);
    EXPECT_THROW(m.Solve(b), VexorSingular);
    ExpectBits(m, left);
    ExpectBits(b, 1, 2, 3);
    EXPECT_EQ(PivotOrder(m), (Order{2, 1, 0}));
    m = singular;
    EXPECT_THROW(m.Solve(&b, 1), VexorSingular);
    ExpectBits(m, left);
    ExpectBits(b, 1, 2, 3);
    m = singular;
    EXPECT_THROW(m.Invert(), VexorSingular);
    ExpectBits(m, left);
    EXPECT_EQ(PivotOrder(m), (Order{2, 1, 0}));
    m = singular;
    EXPECT_THROW(m.GetInvertedCopy(), VexorSingular);
    ExpectBits(m, singular);
}

TEST(Mat3Dbl, SolveWithOneOfItsRows)
{
    for (unsigned int row = 0; row < 3; ++row) {
        Mat3Dbl m = Exact();
        Vec3Dbl expected = m.GetRow(row);
        Exact().Solve(expected);
        m.Solve(m.GetRow(row));
        ExpectBits(m.GetRow(row), expected.x, expected.y, expected.z);
    }
}

TEST(Mat3Dbl, ReSolveOne)
{
    Mat3Dbl m = Exact();
    Vec3Dbl first(0.0);
    m.Solve(first);
    Vec3Dbl b(14.5, 44, 5);
    m.ReSolve(b);
    ExpectBits(b, 1, 2, 3);
    b.SetValue(2, 8, 0);
    m.ReSolve(b);
    ExpectBits(b, 0, 1, 0);
    ExpectBits(m, ExactFactors());
}

TEST(Mat3Dbl, ReSolveArray)
{
    Mat3Dbl m = Exact();
    Vec3Dbl first(0.0);
    m.Solve(first);
    Vec3Dbl three[3] = {Vec3Dbl(14.5, 44, 5), Vec3Dbl(2, 8, 0), Vec3Dbl(0, 4, 2)};
    m.ReSolve(three, 3);
    ExpectBits(three[0], 1, 2, 3);
    ExpectBits(three[1], 0, 1, 0);
    ExpectBits(three[2], 1, 0, 0);
    Vec3Dbl two[2] = {Vec3Dbl(14.5, 44, 5), Vec3Dbl(7.0)};
    m.ReSolve(two, 1);
    ExpectBits(two[0], 1, 2, 3);
    m.ReSolve(two, 0);
    m.ReSolve(two, -1);
    ExpectBits(two[0], 1, 2, 3);
    ExpectBits(two[1], 7, 7, 7);
}

TEST(Mat3Dbl, ReSolveWithOneOfItsRows)
{
    Mat3Dbl m = Exact();
    Vec3Dbl expected(0.0);
    m.Solve(expected);
    expected = m.GetRow(1);
    m.ReSolve(expected);
    m.ReSolve(m.GetRow(1));
    ExpectBits(m.GetRow(1), expected.x, expected.y, expected.z);
}

TEST(Mat3Dbl, Invert)
{
    Mat3Dbl m = Exact();
    EXPECT_EQ(&m.Invert(), &m);
    ExpectBits(m, ExactInverse());
    EXPECT_EQ(PivotOrder(m), (Order{2, 1, 0}));
}

TEST(Mat3Dbl, GetInvertedCopy)
{
    Mat3Dbl const m = Exact();
    ExpectBits(m.GetInvertedCopy(), ExactInverse());
    ExpectBits(m, Exact());
}

TEST(Mat3Dbl, SolveAndInvertHaveTheBitsOfThePlainAlgorithm)
{
    Draws draws(3);
    int singular = 0;
    for (int round = 0; round < 300000; ++round) {
        double a[9];
        for (double& element : a) {
            element = round % 3 == 0   ? draws.Unit()
                      : round % 3 == 1 ? draws.SmallSpecial()
                      : draws.Below(9) ? draws.Unit()
                                       : draws.Special();
        }
        Mat3Dbl const matrix(a, a + 3, a + 6);
        unsigned char order[3] = {};
        int const status = ReferenceDecompose(a, order, 3);
        Vec3Dbl side(draws.SmallSpecial(), draws.SmallSpecial(), draws.Unit());
        double solution[3] = {side.x, side.y, side.z};
        Mat3Dbl solved(matrix);
        Mat3Dbl inverted(matrix);
        if (status != 0) {
            ++singular;
            ASSERT_THROW(solved.Solve(side), VexorSingular) << "round " << round;
            ASSERT_THROW(inverted.Invert(), VexorSingular) << "round " << round;
            for (int i = 0; i < 9; ++i) {
                ASSERT_TRUE(SameBits(solved(i / 3, i % 3), a[i])) << "round " << round;
                ASSERT_TRUE(SameBits(inverted(i / 3, i % 3), a[i])) << "round " << round;
            }
            continue;
        }
        solved.Solve(side);
        inverted.Invert();
        ASSERT_EQ(PivotOrder(solved), (Order{order[0], order[1], order[2]})) << "round " << round;
        ASSERT_EQ(PivotOrder(inverted), (Order{order[0], order[1], order[2]})) << "round " << round;
        ReferenceSubstitute(a, solution, order, 3, 1);
        double unit[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
        ReferenceSubstitute(a, unit, order, 3, 3);
        for (int i = 0; i < 9; ++i) {
            ASSERT_TRUE(SameBits(solved(i / 3, i % 3), a[i])) << "round " << round;
            ASSERT_TRUE(SameBits(inverted(i % 3, i / 3), unit[i])) << "round " << round;
        }
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(SameBits(side[i], solution[i])) << "round " << round;
    }
    EXPECT_GT(singular, 10000);
}

// ---- Singular values -------------------------------------------------------------------------------

TEST(Mat3Dbl, SvdOfTheUnitMatrix)
{
    Mat3Dbl m = Unit();
    Vec3Dbl values(9.0);
    m.Svd(values);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(values[i], 1.0, 1e-15);
    EXPECT_NEAR(std::fabs(Determinant(m)), 1.0, 1e-14);
}

TEST(Mat3Dbl, SvdGivesTheLeftSingularVectorsInRows)
{
    // Maps (0, 0, 1) to (3, 0, 0), (1, 0, 0) to (0, 2, 0) and (0, 1, 0) to (0, 0, 1).
    Mat3Dbl m = Matrix(0, 0, 3, 2, 0, 0, 0, 1, 0);
    Vec3Dbl values(9.0);
    m.Svd(values);
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(values[i], 3.0 - i, 1e-14);
        for (int k = 0; k < 3; ++k) // on the left the unit vectors are in order, on the right they are not
            EXPECT_NEAR(std::fabs(m(i, k)), i == k, 1e-14);
    }
}

TEST(Mat3Dbl, SvdOfGeneralMatrices)
{
    Draws draws(4);
    for (int round = 0; round < 200; ++round) {
        Mat3Dbl matrix;
        for (int i = 0; i < 9; ++i)
            matrix(i / 3, i % 3) = draws.Unit();
        Mat3Dbl left(matrix);
        Vec3Dbl values(9.0);
        left.Svd(values);
        EXPECT_GE(values.x, values.y);
        EXPECT_GE(values.y, values.z);
        EXPECT_GE(values.z, 0.0);
        // With U in the rows of `left`, U·A·Aᵀ·Uᵀ has the squares of the singular values on its diagonal.
        Mat3Dbl const squares = left * matrix * matrix.GetTransposedCopy() * left.GetTransposedCopy();
        Mat3Dbl const unit = left * left.GetTransposedCopy();
        for (int i = 0; i < 3; ++i) {
            for (int k = 0; k < 3; ++k) {
                EXPECT_NEAR(squares(i, k), i == k ? values[i] * values[i] : 0.0, 1e-13);
                EXPECT_NEAR(unit(i, k), i == k, 1e-14);
            }
        }
    }
}

TEST(Mat3Dbl, SvdThatFailsChangesNothing)
{
    Mat3Dbl const matrix = Matrix(1, 2, 3, 4, infinity, 6, 7, 8, 9);
    Mat3Dbl m(matrix);
    Vec3Dbl values(1, 2, 3);
    EXPECT_THROW(m.Svd(values), VexorComputationFailed);
    ExpectBits(m, matrix);
    ExpectBits(values, 1, 2, 3);
}

TEST(Mat3Dbl, SvdIntoOneOfItsRows)
{
    Mat3Dbl m = Matrix(0, 0, 3, 2, 0, 0, 0, 1, 0);
    m.Svd(m.GetRow(2)); // the vectors are written last
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(std::fabs(m(i, k)), i == k, 1e-14);
    }
}

// ---- Eigenvalues and eigenvectors ------------------------------------------------------------------

/// The eigenvalues by the formulas, from the upper triangle; false if the cubic does not have three roots.
bool ReferenceEigenValues(Mat3Dbl const& m, double (&values)[3])
{
    double const a = m(0, 0), b = m(0, 1), c = m(0, 2), d = m(1, 1), e = m(1, 2), f = m(2, 2);
    double const oneThird = 0.3333333333333333;
    double const S = ((-a) - d) - f;
    double const T = ((((a * d) + (f * (a + d))) - (e * e)) - (b * b)) - (c * c);
    double const D = (((f * ((b * b) - (a * d))) + (a * (e * e))) - (((2.0 * b) * c) * e)) + ((c * c) * d);
    double const P = T - (S * S) * oneThird;
    if (P >= 0.0)
        return false;
    double const R = 2.0 * std::sqrt(P * -oneThird);
    double const Q = D + ((2.0 * ((S * S) * S)) / 27.0 - (T * S) * oneThird);
    double const g = ((Q * 3.0) / P) / R;
    double const angle = g >= 1.0 ? 0.0 : g <= -1.0 ? 3.141592653589793 : vexor::Acos(g);
    double const h = angle * oneThird;
    double const cs = vexor::Cos(h);
    double const sn = 1.7320508075688772 * vexor::Sin(h);
    double const z = S * oneThird;
    double const e1 = R * cs - z;
    double const e2 = (R * 0.5) * (sn - cs) - z;
    double const e3 = (R * 0.5) * (-cs - sn) - z;
    double const lower = e1 < e2 ? e1 : e2;
    double const higher = e1 < e2 ? e2 : e1;
    if (lower >= e3) {
        values[0] = e3;
        values[1] = lower;
        values[2] = higher;
    } else if (higher < e3) {
        values[0] = lower;
        values[1] = higher;
        values[2] = e3;
    } else {
        values[0] = lower;
        values[1] = e3;
        values[2] = higher;
    }
    return true;
}

/// An eigenvector by the scan for the largest element and then for the largest minor through it.
Vec3Dbl ReferenceEigenVector(Mat3Dbl const& m, double x)
{
    double W[3][3];
    for (int i = 0; i < 3; ++i) {
        for (int k = i; k < 3; ++k)
            W[i][k] = W[k][i] = i == k ? m(i, i) - x : m(i, k);
    }
    int p = -1;
    int q = -1;
    double largest = 0.0;
    for (int i = 0; i < 3; ++i) {
        for (int k = i; k < 3; ++k) {
            if (std::fabs(W[i][k]) > largest) {
                largest = std::fabs(W[i][k]);
                p = i;
                q = k;
            }
        }
    }
    if (largest == 0.0)
        return Vec3Dbl(1, 0, 0);
    int const q1 = (q + 1) % 3;
    int const q2 = (q + 2) % 3;
    double best = 0.0;
    double minor = 0.0;
    int r = -1;
    int A = -1;
    int B = -1;
    for (int partner : {(p + 1) % 3, (p + 2) % 3}) {
        double const m1 = W[partner][q1] * W[p][q] - W[p][q1] * W[partner][q];
        if (std::fabs(m1) > best) {
            best = std::fabs(m1);
            minor = m1;
            r = partner;
            A = q1;
            B = q2;
        }
        double const m2 = W[partner][q2] * W[p][q] - W[p][q2] * W[partner][q];
        if (std::fabs(m2) > best) {
            best = std::fabs(m2);
            minor = m2;
            r = partner;
            A = q2;
            B = q1;
        }
    }
    double v[3] = {0.0, 0.0, 0.0};
    if (best != 0.0) {
        v[q] = W[p][A] * W[r][B] - W[r][A] * W[p][B];
        v[A] = W[r][q] * W[p][B] - W[p][q] * W[r][B];
        v[B] = minor;
    } else {
        double const a1 = std::fabs(W[p][q1]);
        double const a2 = std::fabs(W[p][q2]);
        if (a2 < a1) {
            v[q1] = 1.0;
            v[q] = -W[p][q1] / W[p][q];
        } else if (a2 > a1) {
            v[q2] = 1.0;
            v[q] = -W[p][q2] / W[p][q];
        } else {
            v[q1] = 1.0;
            v[q2] = -1.0;
        }
    }
    return Vec3Dbl(v).GetNormalizedCopy();
}

TEST(Mat3Dbl, EigenSymOfADiagonalMatrix)
{
    Mat3Dbl m = Symmetric(3, 0, 0, 1, 0, 2);
    Vec3Dbl values(9.0);
    m.EigenSym(values, 1);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(values[i], i + 1.0, 1e-14);
    int const places[3] = {1, 2, 0}; // where 1, 2 and 3 stand
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(std::fabs(m(i, k)), k == places[i], 1e-14);
    }
}

TEST(Mat3Dbl, EigenSymOfKnownSpectra)
{
    struct {
        Mat3Dbl matrix;
        double values[3];
    } const cases[] = {
        {Symmetric(2, -1, 0, 2, -1, 2), {2 - std::sqrt(2.0), 2, 2 + std::sqrt(2.0)}}, // second difference
        {Symmetric(3, 1, 0, 3, 0, 7), {2, 4, 7}},
        {Symmetric(0, 1, 1, 0, 1, 3),
         {-1, 2 - std::sqrt(3.0), 2 + std::sqrt(3.0)}}, // (1, −1, 0) and (1, 1, t)
    };
    for (auto const& [matrix, expected] : cases) {
        for (int wantVectors : {0, 1}) {
            Mat3Dbl m(matrix);
            Vec3Dbl values(9.0);
            m.EigenSym(values, wantVectors);
            for (int k = 0; k < 3; ++k)
                EXPECT_NEAR(values[k], expected[k], 1e-13);
        }
    }
}

TEST(Mat3Dbl, EigenSymHasTheBitsOfTheFormulas)
{
    Draws draws(5);
    for (int round = 0; round < 200000; ++round) {
        Mat3Dbl m;
        int const scale = draws.Below(3) ? 0 : draws.Below(600) - 300;
        for (int i = 0; i < 9; ++i) // the lower triangle is a different one
            m(i / 3, i % 3) = std::ldexp(round % 4 == 0 ? draws.SmallSpecial() : draws.Unit(), scale);
        double expected[3] = {9, 9, 9};
        Vec3Dbl values(9.0);
        Mat3Dbl vectors(m);
        if (!ReferenceEigenValues(m, expected)) {
            ASSERT_THROW(vectors.EigenSym(values, 1), VexorComputationFailed) << "round " << round;
            continue;
        }
        vectors.EigenSym(values, 0);
        ASSERT_EQ(vectors == m, 1) << "round " << round;
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(SameBits(values[i], expected[i])) << "round " << round;
        if (!(values.x < values.y && values.y < values.z))
            continue;
        bool isSpread = true; // no neighbours coincide
        for (int i = 0; i < 2; ++i)
            isSpread &=
                values[i + 1] - values[i] > 1e-13 * std::fmax(std::fabs(values[i]), std::fabs(values[i + 1]));
        if (!isSpread)
            continue;
        vectors.EigenSym(values, 1);
        for (int i = 0; i < 3; ++i) {
            Vec3Dbl const vector = ReferenceEigenVector(m, values[i]);
            for (int k = 0; k < 3; ++k)
                ASSERT_TRUE(SameBits(vectors(i, k), vector[k])) << "round " << round << ", vector " << i;
        }
    }
}

TEST(Mat3Dbl, EigenSymResiduals)
{
    Draws draws(6);
    for (int round = 0; round < 20000; ++round) {
        Mat3Dbl const m = Symmetric(draws.Unit() + 4, draws.Unit(), draws.Unit(), draws.Unit(), draws.Unit(),
                                    draws.Unit() - 4); // the eigenvalues lie apart
        Mat3Dbl vectors(m);
        Vec3Dbl values(9.0);
        vectors.EigenSym(values, 1);
        EXPECT_LT(values.x, values.y);
        EXPECT_LT(values.y, values.z);
        for (unsigned int i = 0; i < 3; ++i) {
            Vec3Dbl const& v = vectors.GetRow(i);
            EXPECT_LT((m * v - values[static_cast<int>(i)] * v).Length(), 2e-13);
            EXPECT_NEAR(v.Length(), 1.0, 1e-15);
        }
    }
}

TEST(Mat3Dbl, EigenSymReadsTheUpperTriangleOnly)
{
    Mat3Dbl mirrored = Symmetric(4, 1, -2, 3, 0.5, 7);
    Mat3Dbl upper = Matrix(4, 1, -2, nan, 3, 0.5, infinity, 1e300, 7);
    Vec3Dbl first(9.0);
    Vec3Dbl second(9.0);
    mirrored.EigenSym(first, 1);
    upper.EigenSym(second, 1);
    ExpectBits(second, first.x, first.y, first.z);
    ExpectBits(upper, mirrored);
}

TEST(Mat3Dbl, EigenSymRefusesThreeEqualEigenvalues)
{
    for (Mat3Dbl const& matrix : {Unit(), Mat3Dbl(0.0), -7.0 * Unit(), 0x1p-600 * Unit()}) {
        for (int wantVectors : {0, 1}) {
            Mat3Dbl m(matrix);
            Vec3Dbl values(1, 2, 3);
            EXPECT_THROW(m.EigenSym(values, wantVectors), VexorComputationFailed);
            ExpectBits(m, matrix);
            ExpectBits(values, 1, 2, 3);
        }
    }
}

TEST(Mat3Dbl, EigenSymOfNaN)
{
    Mat3Dbl m = Symmetric(1, 0, nan, 2, 0, 3);
    Vec3Dbl values(1, 2, 3);
    m.EigenSym(values, 0);
    ExpectBits(values, nan, nan, nan);
}

TEST(Mat3Dbl, EigenSymAnyNonZeroAsksForVectors)
{
    for (int wantVectors : {1, 2, -1}) {
        Mat3Dbl m = Symmetric(3, 0, 0, 1, 0, 2);
        Vec3Dbl values(9.0);
        m.EigenSym(values, wantVectors);
        EXPECT_NEAR(std::fabs(m(0, 1)), 1.0, 1e-14);
    }
    Mat3Dbl m = Symmetric(3, 0, 0, 1, 0, 2);
    Vec3Dbl values(9.0);
    m.EigenSym(values, 0);
    ExpectBits(m, Symmetric(3, 0, 0, 1, 0, 2));
}

TEST(Mat3Dbl, EigenSymWithACoincidingLowerPairIsLeftHanded)
{
    Mat3Dbl const matrix = Symmetric(2, 1, 1, 2, 1, 2); // 1, 1 and 4
    Mat3Dbl m(matrix);
    Vec3Dbl values(9.0);
    m.EigenSym(values, 1);
    EXPECT_NEAR(values.x, 1, 1e-15);
    EXPECT_NEAR(values.y, 1, 1e-15);
    EXPECT_NEAR(values.z, 4, 1e-14);
    Vec3Dbl const first = ReferenceEigenVector(matrix, values.x);
    Vec3Dbl const last = ReferenceEigenVector(matrix, values.z);
    Vec3Dbl const middle = first.Cross(last);
    ExpectBits(m, Mat3Dbl(first, middle, last));
    EXPECT_NEAR(Determinant(m), -1.0, 1e-14);
}

TEST(Mat3Dbl, EigenSymWithACoincidingUpperPairIsRightHanded)
{
    Mat3Dbl const matrix = Symmetric(0, -1, -1, 0, -1, 0); // −2, 1 and 1
    Mat3Dbl m(matrix);
    Vec3Dbl values(9.0);
    m.EigenSym(values, 1);
    EXPECT_NEAR(values.x, -2, 1e-14);
    EXPECT_NEAR(values.y, 1, 1e-14);
    EXPECT_NEAR(values.z, 1, 1e-14);
    Vec3Dbl const first = ReferenceEigenVector(matrix, values.x);
    Vec3Dbl const middle = ReferenceEigenVector(matrix, values.y);
    ExpectBits(m, Mat3Dbl(first, middle, first.Cross(middle)));
    EXPECT_NEAR(Determinant(m), 1.0, 1e-14);
}

// Two neighbours are a pair if their distance is less than ten units of 2⁻⁵², times the larger one. A
// multiple of an outer product plus a multiple of the identity has two equal eigenvalues, which rounding
// separates by some units.
TEST(Mat3Dbl, EigenSymTakesNeighboursWithinTenUnitsForAPair)
{
    auto const coincide = [](double x, double y) {
        double const larger = std::fabs(x) > std::fabs(y) ? std::fabs(x) : std::fabs(y);
        return y == x || std::fabs(x - y) < larger * (10.0 * 2.220446049250313e-16);
    };
    int within = 0; // gaps of nine to ten units
    int beyond = 0; // gaps of ten to eleven
    for (int round = 0; round < 25 * 17 * 343; ++round) {
        double const shift = round % 25 - 12;
        double const factor = round / 25 % 17 - 8;
        int const direction = round / 25 / 17;
        double const v0 = direction % 7;
        double const v1 = direction / 7 % 7;
        double const v2 = direction / 49 % 7;
        Mat3Dbl const matrix =
            Symmetric(shift + factor * v0 * v0, factor * v0 * v1, factor * v0 * v2, shift + factor * v1 * v1,
                      factor * v1 * v2, shift + factor * v2 * v2);
        double expected[3];
        if (!ReferenceEigenValues(matrix, expected))
            continue;
        for (int i = 0; i < 2; ++i) {
            double const larger = std::fmax(std::fabs(expected[i]), std::fabs(expected[i + 1]));
            double const units = (expected[i + 1] - expected[i]) / (larger * 0x1p-52);
            within += units > 9 && units < 10;
            beyond += units > 10 && units < 11;
        }
        Vec3Dbl const first = ReferenceEigenVector(matrix, expected[0]);
        Vec3Dbl middle = ReferenceEigenVector(matrix, expected[1]);
        Vec3Dbl last = ReferenceEigenVector(matrix, expected[2]);
        if (coincide(expected[1], expected[2]))
            last = first.Cross(middle);
        else if (coincide(expected[0], expected[1]))
            middle = first.Cross(last);

        Mat3Dbl m(matrix);
        Vec3Dbl values(9.0);
        m.EigenSym(values, 1);
        for (int i = 0; i < 3; ++i) {
            ASSERT_TRUE(SameBits(m(0, i), first[i])) << "round " << round;
            ASSERT_TRUE(SameBits(m(1, i), middle[i])) << "round " << round;
            ASSERT_TRUE(SameBits(m(2, i), last[i])) << "round " << round;
        }
    }
    EXPECT_GT(within, 100);
    EXPECT_GT(beyond, 100);
}

TEST(Mat3Dbl, EigenSymIntoOneOfItsRows)
{
    Mat3Dbl expected = Symmetric(4, 1, -2, 3, 0.5, 7);
    Vec3Dbl values(9.0);
    expected.EigenSym(values, 1);
    for (unsigned int row = 0; row < 3; ++row) {
        Mat3Dbl m = Symmetric(4, 1, -2, 3, 0.5, 7);
        m.EigenSym(m.GetRow(row), 0);
        ExpectBits(m.GetRow(row), values.x, values.y, values.z);
        m = Symmetric(4, 1, -2, 3, 0.5, 7);
        m.EigenSym(m.GetRow(row), 1); // the vectors are written last
        ExpectBits(m, expected);
    }
}

TEST(Mat3Dbl, GetEigenVectorGivenEigenValue)
{
    Mat3Dbl const matrix = Matrix(2, 1, 0, nan, 2, 0, nan, nan, 7); // 1, 3 and 7
    Mat3Dbl m(matrix);
    Vec3Dbl v(9.0);
    double const root = std::sqrt(0.5);
    m.GetEigenVectorGivenEigenValue(v, 3.0);
    EXPECT_NEAR(std::fabs(v.x), root, 1e-15);
    EXPECT_SAME_BITS(v.x, v.y);
    EXPECT_EQ(v.z, 0.0);
    m.GetEigenVectorGivenEigenValue(v, 1.0);
    EXPECT_NEAR(std::fabs(v.x), root, 1e-15);
    EXPECT_SAME_BITS(v.x, -v.y);
    m.GetEigenVectorGivenEigenValue(v, 7.0);
    EXPECT_EQ(std::fabs(v.z), 1.0);
    ExpectBits(m, matrix);
}

TEST(Mat3Dbl, GetEigenVectorGivenEigenValueOfRankOne)
{
    // u·uᵀ for its eigenvalue 0: the element of row p with the larger magnitude gets the 1.
    Vec3Dbl v(9.0);
    Vec3Dbl(4, 2, 1).OuterProduct(Vec3Dbl(4, 2, 1)).GetEigenVectorGivenEigenValue(v, 0.0);
    Vec3Dbl expected = Vec3Dbl(-0.5, 1, 0).Normalize();
    ExpectBits(v, expected.x, expected.y, expected.z);
    Vec3Dbl(4, 1, 2).OuterProduct(Vec3Dbl(4, 1, 2)).GetEigenVectorGivenEigenValue(v, 0.0);
    expected = Vec3Dbl(-0.5, 0, 1).Normalize();
    ExpectBits(v, expected.x, expected.y, expected.z);
    // If the largest element is in the middle, columns 2 and 0 follow it.
    Vec3Dbl(1, 4, 2).OuterProduct(Vec3Dbl(1, 4, 2)).GetEigenVectorGivenEigenValue(v, 0.0);
    expected = Vec3Dbl(0, -0.5, 1).Normalize();
    ExpectBits(v, expected.x, expected.y, expected.z);
    // Equal magnitudes give (0, 1, −1), for any signs.
    for (double sign : {1.0, -1.0}) {
        Vec3Dbl const u(4, 2, 2 * sign);
        u.OuterProduct(u).GetEigenVectorGivenEigenValue(v, 0.0);
        expected = Vec3Dbl(0, 1, -1).Normalize();
        ExpectBits(v, expected.x, expected.y, expected.z);
    }
    Symmetric(5, 0, 0, 0, 0, 0).GetEigenVectorGivenEigenValue(v, 0.0);
    ExpectBits(v, expected.x, expected.y, expected.z);
}

TEST(Mat3Dbl, GetEigenVectorGivenEigenValueOfRankZero)
{
    Vec3Dbl v(9.0);
    Unit().GetEigenVectorGivenEigenValue(v, 1.0);
    ExpectBits(v, 1, 0, 0);
    Mat3Dbl(-0.0).GetEigenVectorGivenEigenValue(v, 0.0);
    ExpectBits(v, 1, 0, 0);
    v.SetValue(9.0);
    Mat3Dbl(nan).GetEigenVectorGivenEigenValue(v, 0.0); // a NaN is never the largest element
    ExpectBits(v, 1, 0, 0);
}

TEST(Mat3Dbl, GetEigenVectorGivenEigenValueIntoOneOfItsRows)
{
    for (unsigned int row = 0; row < 3; ++row) {
        Mat3Dbl m = Symmetric(4, 1, -2, 3, 0.5, 7);
        Vec3Dbl const expected = ReferenceEigenVector(m, 2.5);
        m.GetEigenVectorGivenEigenValue(m.GetRow(row), 2.5);
        ExpectBits(m.GetRow(row), expected.x, expected.y, expected.z);
    }
}

TEST(Mat3Dbl, GetEigenVectorGivenEigenValueHasTheBitsOfTheScan)
{
    Draws draws(7);
    for (int round = 0; round < 600000; ++round) {
        Mat3Dbl m;
        double value = round % 2 ? draws.SmallSpecial() : draws.Unit();
        for (int i = 0; i < 9; ++i) {
            m(i / 3, i % 3) = round % 3 == 0   ? draws.Unit()
                              : round % 3 == 1 ? draws.SmallSpecial()
                                               : draws.Special();
        }
        if (round % 7 == 0) { // of rank one
            Vec3Dbl const u(draws.SmallSpecial(), draws.SmallSpecial(), draws.SmallSpecial());
            value = draws.SmallSpecial();
            m = u.OuterProduct(u) + value * Unit();
        }
        Vec3Dbl const expected = ReferenceEigenVector(m, value);
        Vec3Dbl v(9.0);
        m.GetEigenVectorGivenEigenValue(v, value);
        for (int k = 0; k < 3; ++k)
            ASSERT_TRUE(SameBits(v[k], expected[k])) << "round " << round << ", component " << k;
    }
}

} // namespace
