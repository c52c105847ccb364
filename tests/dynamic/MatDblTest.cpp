#include "Allocations.h"
#include "Elements.h"

#include <climits>
#include <cmath>

using vexor_test::Dbl;
using vexor_test::HasPivots;
using vexor_test::Holds;
using vexor_test::HoldsRows;
using vexor_test::Mat;

static_assert(sizeof(MatDbl) == (sizeof(void*) == 8 ? 4 : 3) * sizeof(int) + 2 * sizeof(void*));

namespace {

constexpr double notANumber = vexor_test::nan;

MatDbl Factorised(MatDbl matrix)
{
    VecDbl b(matrix.RowCount(), 1.0);
    matrix.Solve(b);
    return matrix;
}

} // namespace

// ---- Construction and shape ------------------------------------------------------------------------

TEST(MatDbl, DefaultConstructor)
{
    MatDbl m;
    EXPECT_EQ(m.RowCount(), 1);
    EXPECT_EQ(m.ColumnCount(), 1);
    m(0, 0) = 3.0;
    EXPECT_TRUE(HoldsRows(m, {{3}}));
}

TEST(MatDbl, ShapeConstructor)
{
    MatDbl const own(2, 3);
    EXPECT_EQ(own.RowCount(), 2);
    EXPECT_EQ(own.ColumnCount(), 3);

    double block[6] = {1, 2, 3, 4, 5, 6};
    {
        MatDbl view(2, 3, block);
        EXPECT_TRUE(HoldsRows(view, {{1, 3, 5}, {2, 4, 6}})); // column by column
        EXPECT_EQ(&view(1, 2), block + 5);
        view(0, 1) = 7.0;
    }
    EXPECT_EQ(block[2], 7.0); // and the block, which is on the stack, was not freed
}

TEST(MatDbl, FillConstructor)
{
    EXPECT_TRUE(HoldsRows(MatDbl(2, 1, 5.0), {{5}, {5}}));
    double block[5] = {1, 2, 3, 4, 5};
    MatDbl view(2, 2, 9.0, block);
    EXPECT_EQ(block[0], 9.0);
    EXPECT_EQ(block[3], 9.0);
    EXPECT_EQ(block[4], 5.0);
}

TEST(MatDbl, SizeBelowOneIsAnAllocationFailure)
{
    double block[1] = {5};
    MatDbl m = Factorised(Mat({{1, 2}, {3, 4}}));
    MatDbl const before(m);
    int const shapes[][2] = {{0, 1}, {1, 0}, {-1, 2}, {2, -1}, {-2, -2}, {INT_MIN, INT_MIN}};
    for (auto const& shape : shapes) {
        EXPECT_THROW(MatDbl(shape[0], shape[1]), VexorAllocationFailed);
        EXPECT_THROW(MatDbl(shape[0], shape[1], block), VexorAllocationFailed);
        EXPECT_THROW(MatDbl(shape[0], shape[1], 1.0), VexorAllocationFailed);
        EXPECT_THROW(MatDbl(shape[0], shape[1], 1.0, block), VexorAllocationFailed);
        EXPECT_THROW(m.ReSize(shape[0], shape[1]), VexorAllocationFailed);
        EXPECT_THROW(m.ReSize(shape[0], shape[1], block), VexorAllocationFailed);
        EXPECT_THROW(m.ReSize(shape[0], shape[1], 1.0), VexorAllocationFailed);
        EXPECT_TRUE(m == before);
        EXPECT_TRUE(HasPivots(m));
    }
    EXPECT_EQ(block[0], 5.0);
}

TEST(MatDbl, CountsOfElementsBeyondMemory)
{
    // The count and its bytes are computed in 64 bits: none of these wraps to a small request.
    EXPECT_THROW(MatDbl(INT_MAX, INT_MAX), VexorAllocationFailed);
    EXPECT_THROW(MatDbl(1 << 30, 1 << 30), VexorAllocationFailed);
    MatDbl m = Mat({{1, 2}});
    EXPECT_THROW(m.ReSize(1 << 30, 2 << 15), VexorAllocationFailed);
    EXPECT_TRUE(HoldsRows(m, {{1, 2}}));
}

TEST(MatDbl, CopyConstructor)
{
    double block[4] = {4, 1, 2, 3};
    MatDbl view(2, 2, block);
    MatDbl copy(view);
    copy(0, 0) = 9.0;
    EXPECT_EQ(block[0], 4.0);
    EXPECT_TRUE(HoldsRows(copy, {{9, 2}, {1, 3}}));
    EXPECT_FALSE(HasPivots(copy));
    EXPECT_TRUE(HasPivots(MatDbl(Factorised(view))));
}

TEST(MatDbl, FromMat3DblTransposes)
{
    Mat3Dbl const m(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, -0.0));
    MatDbl const dynamic(m);
    EXPECT_TRUE(HoldsRows(dynamic, {{1, 4, 7}, {2, 5, 8}, {3, 6, -0.0}}));
    EXPECT_EQ(dynamic(0, 1), m(1, 0));
    EXPECT_EQ(Mat3Dbl(dynamic), m.GetTransposedCopy());
    EXPECT_FALSE(HasPivots(dynamic));
}

TEST(Mat3Dbl, FromMatDblDoesNotTranspose)
{
    MatDbl five(5, 5);
    MatDbl wide(2, 5);
    MatDbl tall(5, 1);
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            five(i, j) = 10 * i + j + 1;
            if (i < 2)
                wide(i, j) = 10 * i + j + 1;
        }
        tall(i, 0) = 10 * i + 1;
    }
    EXPECT_EQ(Mat3Dbl(five), Mat3Dbl(Vec3Dbl(1, 2, 3), Vec3Dbl(11, 12, 13), Vec3Dbl(21, 22, 23)));
    EXPECT_EQ(Mat3Dbl(wide), Mat3Dbl(Vec3Dbl(1, 2, 3), Vec3Dbl(11, 12, 13), Vec3Dbl(0.0)));
    EXPECT_EQ(Mat3Dbl(tall), Mat3Dbl(Vec3Dbl(1, 0, 0), Vec3Dbl(11, 0, 0), Vec3Dbl(21, 0, 0)));
    EXPECT_EQ(Mat3Dbl(Mat({{7}})), Mat3Dbl(Vec3Dbl(7, 0, 0), Vec3Dbl(0.0), Vec3Dbl(0.0)));
}

TEST(MatDbl, Assignment)
{
    MatDbl const source = Mat({{1, 2, 3}, {4, 5, 6}});
    MatDbl m = Mat({{7}});
    EXPECT_EQ(&(m = source), &m);
    EXPECT_TRUE(HoldsRows(m, {{1, 2, 3}, {4, 5, 6}}));

    // The block is kept for the same shape and for the same number of elements.
    for (MatDbl* target : {new MatDbl(2, 3, 0.0), new MatDbl(3, 2, 0.0), new MatDbl(6, 1, 0.0)}) {
        double const* const block = &(*target)(0, 0);
        *target = source;
        EXPECT_EQ(&(*target)(0, 0), block);
        EXPECT_TRUE(HoldsRows(*target, {{1, 2, 3}, {4, 5, 6}}));
        delete target;
    }

    // A view drops the caller's block, also if the shape stays the same.
    for (int columns : {1, 3, 4}) {
        double block[8] = {7, 7, 7, 7, 7, 7, 7, 7};
        MatDbl view(2, columns, block);
        view = source;
        EXPECT_TRUE(HoldsRows(view, {{1, 2, 3}, {4, 5, 6}}));
        view(0, 0) = 5.0;
        for (double element : block)
            EXPECT_EQ(element, 7.0);
    }
}

TEST(MatDbl, AssignmentCarriesThePivots)
{
    MatDbl const factorised = Factorised(Mat({{1, 2}, {3, 4}}));
    for (MatDbl target : {Mat({{9}}), Mat({{9, 9}, {9, 9}}), Factorised(Mat({{0, 1}, {1, 0}}))}) {
        target = factorised;
        VecDbl b = Dbl({5, 11}); // of the solution (1, 2)
        target.ReSolve(b);
        EXPECT_NEAR(b[0], 1.0, 1e-15);
        EXPECT_NEAR(b[1], 2.0, 1e-15);
        target = Mat({{1, 2}, {3, 4}});
        EXPECT_FALSE(HasPivots(target));
    }
}

TEST(MatDbl, AssignmentToItself)
{
    MatDbl own = Factorised(Mat({{1, 2}, {3, 4}}));
    MatDbl const before(own);
    MatDbl const& alias = own;
    own = alias;
    EXPECT_TRUE(own == before);
    EXPECT_TRUE(HasPivots(own));

    double block[4] = {1, 2, 3, 4};
    MatDbl view(2, 2, block);
    VecDbl b(2, 1.0);
    view.Solve(b);
    double const factors[4] = {block[0], block[1], block[2], block[3]};
    MatDbl const& viewAlias = view;
    view = viewAlias;
    EXPECT_NE(&view(0, 0), block); // detached; its elements are unset
    EXPECT_EQ(view.RowCount(), 2);
    view.SetValue(1.0);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(block[i], factors[i]);
    EXPECT_FALSE(HasPivots(view));
}

TEST(MatDbl, AssignmentFromAViewOnItself)
{
    MatDbl m = Mat({{1, 3, 5}, {2, 4, 6}});
    MatDbl const tail(2, 2, &m(0, 1));
    m = tail;
    EXPECT_TRUE(HoldsRows(m, {{3, 5}, {4, 6}}));

    MatDbl n = Mat({{1, 3, 5}, {2, 4, 6}});
    MatDbl const reshaped(3, 2, &n(0, 0));
    n = reshaped;
    EXPECT_TRUE(HoldsRows(n, {{1, 4}, {2, 5}, {3, 6}}));
}

TEST(MatDbl, ReSizeToTheSameShapeChangesNothing)
{
    double block[4] = {7, 7, 7, 7};
    MatDbl m = Factorised(Mat({{1, 2}, {3, 4}}));
    MatDbl const before(m);
    double const* const own = &m(0, 0);
    m.ReSize(2, 2);
    m.ReSize(2, 2, block);
    EXPECT_EQ(&m(0, 0), own);
    EXPECT_TRUE(m == before);
    EXPECT_TRUE(HasPivots(m));
    m.ReSize(2, 2, 6.0, block);
    EXPECT_EQ(&m(0, 0), own);
    EXPECT_TRUE(HoldsRows(m, {{6, 6}, {6, 6}}));
    EXPECT_EQ(block[0], 7.0);
}

TEST(MatDbl, ReSizeToTheSameCountKeepsTheLinearOrder)
{
    MatDbl m = Mat({{1, 2, 3}, {4, 5, 6}}); // in the block: 1 4 2 5 3 6
    double const* const own = &m(0, 0);
    m.ReSize(3, 2);
    EXPECT_EQ(&m(0, 0), own);
    EXPECT_TRUE(HoldsRows(m, {{1, 5}, {4, 3}, {2, 6}}));
    m.ReSize(1, 6);
    EXPECT_TRUE(HoldsRows(m, {{1, 4, 2, 5, 3, 6}}));
    m.ReSize(6, 1);
    EXPECT_EQ(&m(0, 0), own);
    m.ReSize(2, 3);
    EXPECT_TRUE(HoldsRows(m, {{1, 2, 3}, {4, 5, 6}}));
}

TEST(MatDbl, ReSizeReleasesThePivots)
{
    double block[4] = {7, 7, 7, 7};
    MatDbl m = Factorised(Mat({{1, 2}, {3, 4}}));
    m.ReSize(1, 4);
    m.ReSize(2, 2);
    EXPECT_FALSE(HasPivots(m.SetValue(1.0)));
    m = Factorised(Mat({{1, 2}, {3, 4}}));
    m.ReSize(1, 1, block);
    m.ReSize(2, 2, block);
    EXPECT_FALSE(HasPivots(m));
    // For a view, ReSize to the same shape is not a no-op.
    m = Factorised(Mat({{1, 2}, {3, 4}}));
    double other[4] = {4, 1, 2, 3};
    MatDbl view(2, 2, other);
    VecDbl b(2, 1.0);
    view.Solve(b);
    EXPECT_TRUE(HasPivots(view));
    view.ReSize(2, 2, block);
    EXPECT_FALSE(HasPivots(view));
}

TEST(MatDbl, ReSizeBetweenOwnStorageAndViews)
{
    double block[6] = {1, 2, 3, 4, 5, 6};
    double other[6] = {0, 0, 0, 0, 0, 0};
    MatDbl m(1, 1, 9.0);
    m.ReSize(2, 3, block);
    EXPECT_TRUE(HoldsRows(m, {{1, 3, 5}, {2, 4, 6}}));
    m.ReSize(3, 2, block);
    EXPECT_TRUE(HoldsRows(m, {{1, 4}, {2, 5}, {3, 6}}));
    m.ReSize(3, 2, other);
    EXPECT_EQ(&m(0, 0), other);
    m.ReSize(3, 1, 8.0, other);
    EXPECT_EQ(other[2], 8.0);
    EXPECT_EQ(other[3], 0.0);
    // A view of the requested count has no own storage that could be kept.
    m.ReSize(1, 3);
    EXPECT_NE(&m(0, 0), other);
    m.SetValue(4.0);
    EXPECT_EQ(other[0], 8.0);
    m.ReSize(2, 2, block);
    m.ReSize(2, 2);
    EXPECT_NE(&m(0, 0), block);
    m.SetValue(4.0);
    EXPECT_EQ(block[0], 1.0);
}

// ---- Elements, rows and columns --------------------------------------------------------------------

TEST(MatDbl, ElementAccess)
{
    MatDbl m = Mat({{1, 2, 3}, {4, 5, 6}});
    MatDbl const& c = m;
    for (int j = 0; j < 3; ++j) {
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(&m(i, j), &m(0, 0) + (j * 2 + i));
            EXPECT_EQ(&c(i, j), &m(i, j));
        }
    }
    static_assert(std::is_same_v<decltype(m(0, 0)), double&>);
    static_assert(std::is_same_v<decltype(c(0, 0)), double const&>);
}

TEST(MatDbl, GetRowAndGetCol)
{
    MatDbl const m = Mat({{1, 2, 3}, {4, 5, 6}});
    EXPECT_TRUE(Holds(m.GetRow(1), {4, 5, 6}));
    VecDbl column = m.GetCol(2);
    EXPECT_TRUE(Holds(column, {3, 6}));
    column[0] = 9.0;
    EXPECT_EQ(m(0, 2), 3.0);
}

TEST(MatDbl, SetRow)
{
    MatDbl m = Mat({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(&m.SetRow(1, Dbl({7, 8, 9})), &m);
    EXPECT_TRUE(HoldsRows(m, {{1, 2, 3}, {7, 8, 9}}));
    EXPECT_THROW(m.SetRow(0, Dbl({1, 2})), VexorDimensionMismatch);
    EXPECT_THROW(m.SetRow(-1, Dbl({0, 0, 0})), VexorDimensionMismatch);
    EXPECT_THROW(m.SetRow(2, Dbl({0, 0, 0})), VexorDimensionMismatch);
    EXPECT_TRUE(HoldsRows(m, {{1, 2, 3}, {7, 8, 9}}));
}

TEST(MatDbl, SetCol)
{
    MatDbl m = Mat({{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(&m.SetCol(1, Dbl({7, 8})), &m);
    EXPECT_TRUE(HoldsRows(m, {{1, 7, 3}, {4, 8, 6}}));
    EXPECT_THROW(m.SetCol(0, Dbl({1, 2, 3})), VexorDimensionMismatch);
    EXPECT_THROW(m.SetCol(-1, Dbl({0, 0})), VexorDimensionMismatch);
    EXPECT_THROW(m.SetCol(3, Dbl({0, 0})), VexorDimensionMismatch);
    EXPECT_TRUE(HoldsRows(m, {{1, 7, 3}, {4, 8, 6}}));
    // From a view on one of the matrix's own columns.
    m.SetCol(2, VecDbl(2, &m(0, 0)));
    EXPECT_TRUE(HoldsRows(m, {{1, 7, 1}, {4, 8, 4}}));
}

TEST(MatDbl, Diagonal)
{
    MatDbl m = Mat({{1, 2}, {3, 4}});
    EXPECT_TRUE(Holds(m.GetDiagonal(), {1, 4}));
    EXPECT_EQ(&m.SetDiagonal(Dbl({5, 6})), &m);
    EXPECT_TRUE(HoldsRows(m, {{5, 2}, {3, 6}}));
    EXPECT_EQ(&m.SetDiagonal(7.0), &m);
    EXPECT_TRUE(HoldsRows(m, {{7, 2}, {3, 7}}));
    EXPECT_THROW(m.SetDiagonal(Dbl({1})), VexorDimensionMismatch);
    EXPECT_THROW(m.SetDiagonal(Dbl({1, 2, 3})), VexorDimensionMismatch);
    EXPECT_TRUE(HoldsRows(m, {{7, 2}, {3, 7}}));

    for (MatDbl other : {Mat({{1, 2, 3}, {4, 5, 6}}), Mat({{1, 2}, {3, 4}, {5, 6}})}) {
        MatDbl const before(other);
        EXPECT_THROW(other.GetDiagonal(), VexorDimensionMismatch);
        EXPECT_THROW(other.SetDiagonal(Dbl({1, 2})), VexorDimensionMismatch);
        EXPECT_THROW(other.SetDiagonal(1.0), VexorDimensionMismatch);
        EXPECT_TRUE(other == before);
    }
}

TEST(MatDbl, SetValue)
{
    MatDbl m(2, 3);
    EXPECT_EQ(&m.SetValue(-0.0), &m);
    EXPECT_TRUE(HoldsRows(m, {{-0.0, -0.0, -0.0}, {-0.0, -0.0, -0.0}}));
}

TEST(MatDbl, Identity)
{
    MatDbl wide(2, 3, 7.0);
    EXPECT_EQ(&wide.Identity(), &wide);
    EXPECT_TRUE(HoldsRows(wide, {{1, 0, 0}, {0, 1, 0}}));
    EXPECT_TRUE(HoldsRows(MatDbl(3, 2, 7.0).Identity(), {{1, 0}, {0, 1}, {0, 0}}));
    EXPECT_TRUE(HoldsRows(MatDbl(1, 1, 7.0).Identity(), {{1}}));
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(MatDbl, ExactEquality)
{
    MatDbl m = Mat({{1, 2}, {3, 0}});
    EXPECT_EQ(m == Mat({{1, 2}, {3, -0.0}}), 1);
    EXPECT_EQ(m != Mat({{1, 2}, {3, -0.0}}), 0);
    for (MatDbl const& other : {Mat({{1, 2}, {3, 5e-324}}), Mat({{1, 2}}), Mat({{1, 3, 2, 0}}),
                                Mat({{1}, {3}, {2}, {0}}), Mat({{1, notANumber}, {3, 0}})}) {
        EXPECT_EQ(m == other, 0);
        EXPECT_EQ(m != other, 1);
    }
    MatDbl withNan = Mat({{notANumber}});
    EXPECT_EQ(withNan == withNan, 0);
    EXPECT_EQ(withNan != withNan, 1);
    // Equality ignores the pivots.
    MatDbl factorised = Factorised(Mat({{1}}));
    EXPECT_EQ(factorised == Mat({{1}}), 1);
}

// ---- Arithmetic ------------------------------------------------------------------------------------

TEST(MatDbl, CompoundArithmetic)
{
    MatDbl m = Mat({{1, -2}, {3, 0}});
    EXPECT_EQ(&(m *= 2.0), &m);
    EXPECT_TRUE(HoldsRows(m, {{2, -4}, {6, 0}}));
    EXPECT_EQ(&(m += Mat({{1, 1}, {-1, 2}})), &m);
    EXPECT_TRUE(HoldsRows(m, {{3, -3}, {5, 2}}));
    EXPECT_EQ(&(m -= Mat({{1, 2}, {5, 1}})), &m);
    EXPECT_TRUE(HoldsRows(m, {{2, -5}, {0, 1}}));
    EXPECT_EQ(&m.Negate(), &m);
    EXPECT_TRUE(HoldsRows(m, {{-2, 5}, {-0.0, -1}}));
    EXPECT_EQ(&(m /= 2.0), &m);
    EXPECT_TRUE(HoldsRows(m, {{-1, 2.5}, {-0.0, -0.5}}));
}

TEST(MatDbl, DivisionDividesEachElement)
{
    double const three = vexor_test::Opaque(3.0);
    MatDbl m(1, 40);
    bool differs = false;
    for (int j = 0; j < 40; ++j) {
        m(0, j) = j;
        differs = differs || j / three != j * (1.0 / three);
    }
    ASSERT_TRUE(differs);
    MatDbl const quotient = m / three;
    m /= three;
    for (int j = 0; j < 40; ++j) {
        EXPECT_SAME_BITS(quotient(0, j), j / three);
        EXPECT_SAME_BITS(m(0, j), j / three);
    }
    double const infinity = vexor_test::infinity;
    EXPECT_TRUE(HoldsRows(Mat({{1, 0, -1}}) / 0.0, {{infinity, notANumber, -infinity}}));
    MatDbl byZero = Mat({{1, 0, -1}});
    EXPECT_TRUE(HoldsRows(byZero /= 0.0, {{infinity, notANumber, -infinity}}));
}

TEST(MatDbl, DifferentShapesAreRefused)
{
    MatDbl m = Mat({{1, 2}, {3, 4}});
    for (MatDbl const& other :
         {Mat({{1, 2}}), Mat({{1}, {2}}), Mat({{1, 2, 3, 4}}), Mat({{1, 2, 3}, {4, 5, 6}})}) {
        EXPECT_THROW(m += other, VexorDimensionMismatch);
        EXPECT_THROW(m -= other, VexorDimensionMismatch);
        EXPECT_EQ(vexor_test::CountRequests([&] {
                      EXPECT_THROW(m + other, VexorDimensionMismatch);
                      EXPECT_THROW(m - other, VexorDimensionMismatch);
                  }),
                  0);
        EXPECT_TRUE(HoldsRows(m, {{1, 2}, {3, 4}}));
    }
}

TEST(MatDbl, ArithmeticWithItself)
{
    MatDbl m = Mat({{2, 4}, {6, 8}});
    MatDbl const& same = m;
    m += same;
    EXPECT_TRUE(HoldsRows(m, {{4, 8}, {12, 16}}));
    m /= m(0, 0);
    EXPECT_TRUE(HoldsRows(m, {{1, 2}, {3, 4}}));
    m = m * m;
    EXPECT_TRUE(HoldsRows(m, {{7, 10}, {15, 22}}));
    m -= same;
    EXPECT_TRUE(HoldsRows(m, {{0, 0}, {0, 0}}));
}

TEST(MatDbl, Transpose)
{
    MatDbl m = Mat({{1, 2, 3}, {4, 5, 6}});
    double const* const own = &m(0, 0);
    EXPECT_EQ(&m.Transpose(), &m);
    EXPECT_TRUE(HoldsRows(m, {{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(&m(0, 0), own);
    MatDbl square = Mat({{1, 2}, {3, 4}});
    EXPECT_TRUE(HoldsRows(square.Transpose(), {{1, 3}, {2, 4}}));
    EXPECT_TRUE(HoldsRows(MatDbl(1, 1, 5.0).Transpose(), {{5}}));
}

TEST(MatDbl, TransposeOfAView)
{
    double block[6] = {1, 2, 3, 4, 5, 6};
    MatDbl view(2, 3, block); // (1 3 5; 2 4 6)
    view.Transpose();
    EXPECT_TRUE(HoldsRows(view, {{1, 2}, {3, 4}, {5, 6}}));
    EXPECT_EQ(&view(0, 0), block);
    double const expected[6] = {1, 3, 5, 2, 4, 6};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(block[i], expected[i]);
    view(2, 1) = 9.0;
    EXPECT_EQ(block[5], 9.0);

    MatDbl square(2, 2, block);
    EXPECT_TRUE(HoldsRows(square.Transpose(), {{1, 3}, {5, 2}}));
    EXPECT_EQ(&square(0, 0), block);
}

TEST(MatDbl, TransposeAndThePivots)
{
    MatDbl square = Factorised(Mat({{1, 2}, {3, 4}}));
    EXPECT_TRUE(HasPivots(square.Transpose())); // stale, but kept
    double block[4] = {1, 2, 3, 4};
    MatDbl view(2, 2, block);
    VecDbl b(2, 1.0);
    view.Solve(b);
    EXPECT_FALSE(HasPivots(view.Transpose()));
}

TEST(MatDbl, GetTransposedCopy)
{
    MatDbl const m = Mat({{1, 2, 3}, {4, 5, 6}});
    EXPECT_TRUE(HoldsRows(m.GetTransposedCopy(), {{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_TRUE(HoldsRows(m, {{1, 2, 3}, {4, 5, 6}}));
    MatDbl large(67, 41);
    for (int i = 0; i < 67; ++i) {
        for (int j = 0; j < 41; ++j)
            large(i, j) = 100 * i + j;
    }
    MatDbl const transposed = large.GetTransposedCopy();
    ASSERT_EQ(transposed.RowCount(), 41);
    ASSERT_EQ(transposed.ColumnCount(), 67);
    for (int i = 0; i < 67; ++i) {
        for (int j = 0; j < 41; ++j)
            ASSERT_EQ(transposed(j, i), 100 * i + j);
    }
}

TEST(MatDbl, NegatedCopyAndFreeOperators)
{
    MatDbl const m = Mat({{1, 0}, {-2, 3}});
    EXPECT_TRUE(HoldsRows(m.GetNegatedCopy(), {{-1, -0.0}, {2, -3}}));
    EXPECT_TRUE(HoldsRows(-m, {{-1, -0.0}, {2, -3}}));
    EXPECT_TRUE(HoldsRows(m * 2.0, {{2, 0}, {-4, 6}}));
    EXPECT_TRUE(HoldsRows(-2.0 * m, {{-2, -0.0}, {4, -6}}));
    EXPECT_TRUE(HoldsRows(m / 2.0, {{0.5, 0}, {-1, 1.5}}));
    EXPECT_TRUE(HoldsRows(m + Mat({{1, 2}, {3, 4}}), {{2, 2}, {1, 7}}));
    EXPECT_TRUE(HoldsRows(m - Mat({{1, 2}, {3, 4}}), {{0, -2}, {-5, -1}}));
}

TEST(MatDbl, ResultsOwnTheirStorageAndHaveNoPivots)
{
    double block[4] = {1, 2, 3, 4};
    MatDbl view(2, 2, block);
    VecDbl b(2, 1.0);
    view.Solve(b);
    for (MatDbl const& result : {view.GetTransposedCopy(), view.GetNegatedCopy(), -view, view * 2.0,
                                 2.0 * view, view / 2.0, view + view, view - view, view * view}) {
        EXPECT_NE(&result(0, 0), block);
        EXPECT_FALSE(HasPivots(result));
    }
}

TEST(MatDbl, RowSum)
{
    MatDbl m = Mat({{1, 2, 3}, {4, 5, 7}});
    EXPECT_TRUE(Holds(m.RowSum(), {5, 7, 10}));
    EXPECT_TRUE(Holds(m.RowAverage(), {2.5, 3.5, 5}));
    // The sum starts with the first row, not with 0, and runs down the column.
    EXPECT_TRUE(Holds(Mat({{-0.0, 1e16}, {-0.0, 1}, {-0.0, 1}}).RowSum(), {-0.0, 1e16}));
    EXPECT_TRUE(Holds(Mat({{1}, {1}, {1e16}}).RowSum(), {1e16 + 2.0}));
    // The average divides: for 5/3, 7/3 and others, multiplying by 1/3 gives another result.
    MatDbl thirds(3, 40, 0.0);
    for (int j = 0; j < 40; ++j)
        thirds(1, j) = j;
    VecDbl const average = thirds.RowAverage();
    for (int j = 0; j < 40; ++j)
        EXPECT_SAME_BITS(average[j], j / vexor_test::Opaque(3.0));
}

TEST(MatDbl, ProductWithMatDbl)
{
    MatDbl const a = Mat({{1, 2, 3}, {4, 5, 6}});
    MatDbl const b = Mat({{1, 0}, {0, 1}, {2, -1}});
    EXPECT_TRUE(HoldsRows(a * b, {{7, -1}, {16, -1}}));
    EXPECT_TRUE(HoldsRows(b * a, {{1, 2, 3}, {4, 5, 6}, {-2, -1, 0}}));
    EXPECT_THROW(a * a, VexorDimensionMismatch);
    EXPECT_THROW(b * b, VexorDimensionMismatch);
    EXPECT_TRUE(HoldsRows(Mat({{-0.0}}) * Mat({{1.0}}), {{0.0}})); // from 0.0
    EXPECT_TRUE(HoldsRows(Mat({{notANumber, 0}, {1, vexor_test::infinity}}) * Mat({{1}, {0}}),
                          {{notANumber}, {notANumber}}));
    // One running sum, for rising inner index, without a fused multiply-add.
    EXPECT_TRUE(HoldsRows(Mat({{0x1.bb484f9846bd6p+0, 0x1.3cd3c8b54b0c6p-1, 0x1.23ceff5643a36p+0,
                                0x1.192e216819cf1p+0, 0x1.652ea8330a697p+0}})
                              * Mat({{0x1.dec81d09e9078p+0},
                                     {0x1.6ee8645b29fdep-1},
                                     {0x1.86b12ac75e455p-1},
                                     {0x1.39e52c81319e9p-1},
                                     {0x1.1cdd325eb8967p+0}}),
                          {{0x1.b1c4edefed27ep+2}}));
}

TEST(MatDbl, ProductsOfAllShapesKeepTheOrderOfTheSum)
{
    // However the kernels compute the product, each element is its own running sum.
    std::uint64_t state = 1;
    auto const next = [&state] {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<double>(static_cast<std::int64_t>(state) >> 20) * 0x1p-40;
    };
    int const sizes[] = {1, 2, 3, 4, 5, 7, 8, 9, 13, 16, 17, 31, 33, 64, 65, 130};
    for (int rows : sizes) {
        for (int inner : {1, 2, 3, 4, 5, 8, 17, 33, 100}) {
            for (int columns : {1, 2, 3, 4, 5, 6, 8, 9, 17}) {
                MatDbl a(rows, inner);
                MatDbl b(inner, columns);
                VecFlt single(inner);
                for (int k = 0; k < inner; ++k) {
                    for (int i = 0; i < rows; ++i)
                        a(i, k) = next();
                    for (int j = 0; j < columns; ++j)
                        b(k, j) = next();
                    single[k] = static_cast<float>(next());
                }
                MatDbl const product = a * b;
                VecDbl const firstColumn = a * b.GetCol(0);
                VecFlt const inSingle = a * single;
                for (int i = 0; i < rows; ++i) {
                    for (int j = 0; j < columns; ++j) {
                        double sum = 0.0;
                        for (int k = 0; k < inner; ++k) {
                            double volatile const term = a(i, k) * b(k, j);
                            sum += term;
                        }
                        ASSERT_EQ(product(i, j), sum) << rows << " " << inner << " " << columns;
                    }
                    ASSERT_EQ(firstColumn[i], product(i, 0));
                    float sum = 0.0f;
                    for (int k = 0; k < inner; ++k) {
                        float volatile const term = static_cast<float>(double(single[k]) * a(i, k));
                        float volatile const partial = sum + term;
                        sum = partial;
                    }
                    ASSERT_EQ(inSingle[i], sum);
                }
            }
        }
    }
}

TEST(MatDbl, ProductWithVecDbl)
{
    MatDbl const m = Mat({{1, 2, 3}, {4, 5, 6}});
    EXPECT_TRUE(Holds(m * Dbl({1, 10, 100}), {321, 654}));
    EXPECT_THROW(m * Dbl({1, 2}), VexorDimensionMismatch);
    EXPECT_THROW(m * Dbl({1, 2, 3, 4}), VexorDimensionMismatch);
    EXPECT_TRUE(Holds(Mat({{-0.0}}) * Dbl({1.0}), {0.0}));
    EXPECT_TRUE(Holds(Mat({{0x1.bb484f9846bd6p+0, 0x1.3cd3c8b54b0c6p-1, 0x1.23ceff5643a36p+0,
                            0x1.192e216819cf1p+0, 0x1.652ea8330a697p+0}})
                          * Dbl({0x1.dec81d09e9078p+0, 0x1.6ee8645b29fdep-1, 0x1.86b12ac75e455p-1,
                                 0x1.39e52c81319e9p-1, 0x1.1cdd325eb8967p+0}),
                      {0x1.b1c4edefed27ep+2}));
}
