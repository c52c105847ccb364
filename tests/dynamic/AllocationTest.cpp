// Every allocation is refused in turn. Each operation must then raise `VexorAllocationFailed`, however the
// allocator refuses, keep what it promises to keep, and leak nothing. It must succeed when it is tried
// again.

#include "Allocations.h"
#include "Elements.h"

#include <algorithm>
#include <cstddef>
#include <memory>

using namespace vexor_test;

namespace {

/// Refuses each allocation of an operation on a fresh state in turn. `survives` is called after each
/// refusal; then the operation must succeed on the same state, if the refusal left it usable.
template <class State>
void RefuseEach(int expectedRequests, std::function<std::unique_ptr<State>()> const& make,
                std::function<void(State&)> const& operation,
                std::function<void(State const&, int)> const& survives)
{
#if defined(_WIN32)
    if (CountRequests([] { VecDbl const v; }) == 0)
        GTEST_SKIP() << "a DLL has heap operators of its own, which a program cannot replace";
#endif
    for (Refusal form : {Refusal::BadAlloc, Refusal::OddException, Refusal::Null}) {
        int k = 1;
        for (;; ++k) {
            long const before = LiveBlocks();
            {
                std::unique_ptr<State> const state = make();
                if (!RunWithRefusal(k, form, [&] { operation(*state); }))
                    break;
                survives(*state, k);
                EXPECT_NO_THROW(operation(*state)) << "after the refusal of request " << k;
            }
            EXPECT_EQ(LiveBlocks(), before) << "request " << k;
        }
        EXPECT_EQ(k - 1, expectedRequests);
    }
}

/// The same for an operation whose operands, all const, are unchanged afterwards.
void RefuseEach(int expectedRequests, std::function<void()> const& operation)
{
    struct Nothing {};
    RefuseEach<Nothing>(
        expectedRequests, [] { return std::make_unique<Nothing>(); }, [&](Nothing&) { operation(); },
        [](Nothing const&, int) {});
}

struct Vectors {
    VecDbl dbl = Dbl({1, 2, 3});
    VecFlt flt = Flt({1, 2, 3});
    double array[3] = {4, 5, 6};
    float singles[3] = {4, 5, 6};
    VecDbl view{3, array};
    VecFlt singleView{3, singles};
};

void AreAsTheyWere(Vectors const& v, int /*k*/)
{
    EXPECT_TRUE(Holds(v.dbl, {1, 2, 3}));
    EXPECT_TRUE(Holds(v.flt, {1, 2, 3}));
    EXPECT_TRUE(Holds(v.view, {4, 5, 6}));
    EXPECT_EQ(&v.view[0], v.array);
    EXPECT_TRUE(Holds(v.singleView, {4, 5, 6}));
    EXPECT_EQ(&v.singleView[0], v.singles);
}

void RefuseEachOfVectors(int expectedRequests, std::function<void(Vectors&)> const& operation)
{
    RefuseEach<Vectors>(
        expectedRequests, [] { return std::make_unique<Vectors>(); }, operation, AreAsTheyWere);
}

/// A matrix, own or a view, factorised or not, and a right-hand side of each kind, own or a view.
struct System {
    double block[12] = {4, 1, 2, 1, 5, 3, 2, 3, 6, 7, 8, 9};
    double rhsBlock[14] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
    MatDbl a;
    VecDbl b;
    MatDbl many;
    std::vector<double> elements;
    std::vector<double> rhs;

    System(int rows, int columns, bool views, bool factorised)
    {
        if (views) {
            a.ReSize(rows, columns, block);
            b.ReSize(rows, rhsBlock);
            many.ReSize(rows, 2, rhsBlock + 6);
        } else {
            a = MatDbl(rows, columns, block);
            b = VecDbl(rows, rhsBlock);
            many = MatDbl(rows, 2, rhsBlock + 6);
        }
        if (factorised) {
            VecDbl x(rows, 1.0);
            a.Solve(x);
        }
        elements = ElementsOf(a);
        rhs = ElementsOf(b);
    }

    bool IsFactorised() const { return HasPivots(a); }

    void ExpectUnchanged() const
    {
        EXPECT_TRUE(SameElements(ElementsOf(a), elements));
        EXPECT_TRUE(SameElements(ElementsOf(b), rhs));
        EXPECT_EQ(many.RowCount(), b.Size());
        EXPECT_EQ(many(0, 0), 7.0);
        EXPECT_EQ(many(many.RowCount() - 1, 1), 6.0 + 2 * many.RowCount());
    }
};

void RefuseEachOfSystem(int expectedRequests, int rows, int columns, bool views, bool factorised,
                        std::function<void(System&)> const& operation,
                        std::function<void(System const&, int)> const& survives)
{
    RefuseEach<System>(
        expectedRequests, [&] { return std::make_unique<System>(rows, columns, views, factorised); },
        operation, survives);
}

} // namespace

TEST(Allocation, VectorConstruction)
{
    Vec3Dbl const fixed(1, 2, 3);
    VecDbl const dbl = Dbl({1, 2});
    VecFlt const flt = Flt({1, 2});
    RefuseEach(1, [] { VecDbl v; });
    RefuseEach(1, [] { VecDbl v(5); });
    RefuseEach(1, [] { VecDbl v(5, 1.0); });
    RefuseEach(1, [&] { VecDbl v(dbl); });
    RefuseEach(1, [&] { VecDbl v(fixed); });
    RefuseEach(1, [&] { VecDbl v(flt); });
    RefuseEach(1, [] { VecFlt v; });
    RefuseEach(1, [] { VecFlt v(5); });
    RefuseEach(1, [] { VecFlt v(5, 1.0f); });
    RefuseEach(1, [&] { VecFlt v(flt); });
    double array[2] = {};
    float singles[2] = {};
    RefuseEach(0, [&] { VecDbl v(2, array); });
    RefuseEach(0, [&] { VecFlt v(2, 1.0f, singles); });
}

TEST(Allocation, VectorSizing)
{
    VecDbl const other = Dbl({7, 8});
    VecFlt const single = Flt({7, 8});
    RefuseEachOfVectors(1, [](Vectors& v) { v.dbl.ReSize(4); });
    RefuseEachOfVectors(1, [](Vectors& v) { v.dbl.ReSize(4, 1.0); });
    RefuseEachOfVectors(1, [](Vectors& v) { v.view.ReSize(3); });
    RefuseEachOfVectors(1, [&](Vectors& v) { v.dbl = other; });
    RefuseEachOfVectors(1, [&](Vectors& v) { v.dbl = single; });
    RefuseEachOfVectors(1, [](Vectors& v) { v.view = v.dbl; });
    RefuseEachOfVectors(1, [](Vectors& v) { v.flt.ReSize(4); });
    RefuseEachOfVectors(1, [](Vectors& v) { v.flt.ReSize(4, 1.0f); });
    RefuseEachOfVectors(1, [](Vectors& v) { v.singleView.ReSize(3); });
    RefuseEachOfVectors(1, [&](Vectors& v) { v.flt = other; });
    RefuseEachOfVectors(1, [&](Vectors& v) { v.flt = single; });
    RefuseEachOfVectors(1, [](Vectors& v) { v.singleView = v.flt; });
    // Nothing is allocated if the block is kept, or is the caller's.
    RefuseEachOfVectors(0, [](Vectors& v) {
        v.dbl.ReSize(3);
        v.dbl = v.view;
        v.dbl = v.flt;
        v.flt = v.dbl;
        v.view.ReSize(2, v.array);
        v.singleView.ReSize(2, v.singles);
    });
}

TEST(Allocation, VectorResults)
{
    VecDbl const a = Dbl({1, 2, 3});
    VecFlt const b = Flt({1, 2, 3});
    MatDbl const m(2, 3, 1.0);
    RefuseEach(1, [&] { a * 2.0; });
    RefuseEach(1, [&] { 2.0 * a; });
    RefuseEach(1, [&] { a / 2.0; });
    RefuseEach(1, [&] { -a; });
    RefuseEach(1, [&] { a + a; });
    RefuseEach(1, [&] { a - a; });
    RefuseEach(1, [&] { a.GetNegatedCopy(); });
    RefuseEach(1, [&] { a.GetNormalizedCopy(); });
    RefuseEach(1, [&] { a.ElemMult(a); });
    RefuseEach(1, [&] { a.ElemDiv(a); });
    RefuseEach(1, [&] { a.GetProjectionOnTo(a); });
    RefuseEach(2, [&] { a.OuterProduct(a); });
    RefuseEach(1, [&] { b * 2.0f; });
    RefuseEach(1, [&] { b / 2.0f; });
    RefuseEach(1, [&] { -b; });
    RefuseEach(1, [&] { b + b; });
    RefuseEach(1, [&] { b - b; });
    RefuseEach(1, [&] { b.GetNormalizedCopy(); });
    RefuseEach(1, [&] { b.ElemMult(b); });
    RefuseEach(1, [&] { b.ElemDiv(b); });
    RefuseEach(1, [&] { b.GetProjectionOnTo(b); });
    RefuseEach(1, [&] { m* a; });
    RefuseEach(1, [&] { m* b; });
}

TEST(Allocation, MatrixConstruction)
{
    MatDbl factorised = Mat({{4, 1}, {1, 3}});
    VecDbl x(2, 1.0);
    factorised.Solve(x);
    MatDbl const plain(2, 3, 1.0);
    Mat3Dbl const fixed(1.0);
    double block[6] = {};
    RefuseEach(2, [] { MatDbl m; });
    RefuseEach(2, [] { MatDbl m(2, 3); });
    RefuseEach(2, [] { MatDbl m(2, 3, 1.0); });
    RefuseEach(1, [&] { MatDbl m(2, 3, block); });
    RefuseEach(2, [&] { MatDbl m(plain); });
    RefuseEach(3, [&] { MatDbl m(factorised); });
    RefuseEach(2, [&] { MatDbl m(fixed); });
}

TEST(Allocation, MatrixSizing)
{
    auto const unchanged = [](bool factorised) {
        return [factorised](System const& s, int) {
            s.ExpectUnchanged();
            EXPECT_EQ(s.IsFactorised(), factorised);
        };
    };
    MatDbl const source(1, 2, 1.0);
    for (bool views : {false, true}) {
        // Another count and another number of columns: a table and a block.
        RefuseEachOfSystem(
            2, 3, 3, views, true, [](System& s) { s.a.ReSize(2, 4); }, unchanged(true));
        RefuseEachOfSystem(
            2, 3, 3, views, true, [](System& s) { s.a.ReSize(2, 4, 1.0); }, unchanged(true));
        // The same number of columns: only a block.
        RefuseEachOfSystem(
            1, 3, 3, views, true, [](System& s) { s.a.ReSize(2, 3); }, unchanged(true));
        RefuseEachOfSystem(
            2, 3, 3, views, true, [&](System& s) { s.a = source; },
            [](System const& s, int) { s.ExpectUnchanged(); });
    }
    // Own storage of the same count: only a table.
    RefuseEachOfSystem(
        1, 3, 3, false, true, [](System& s) { s.a.ReSize(9, 1); }, unchanged(true));
    // Into a view: only a table, or nothing.
    RefuseEachOfSystem(
        1, 3, 3, false, true, [](System& s) { s.a.ReSize(2, 2, s.rhsBlock); }, unchanged(true));
    RefuseEachOfSystem(
        0, 3, 3, false, true, [](System& s) { s.a.ReSize(2, 3, s.rhsBlock); }, unchanged(true));
    // A view that gets own storage of the same shape.
    RefuseEachOfSystem(
        1, 3, 3, true, true, [](System& s) { s.a.ReSize(3, 3); }, unchanged(true));
}

TEST(Allocation, MatrixAssignment)
{
    MatDbl factorised = Mat({{4, 1}, {1, 3}});
    VecDbl x(2, 1.0);
    factorised.Solve(x);
    auto const unchanged = [](System const& s, int) {
        s.ExpectUnchanged();
        EXPECT_FALSE(s.IsFactorised());
    };
    RefuseEachOfSystem(
        3, 3, 3, false, false, [&](System& s) { s.a = factorised; }, unchanged);
    RefuseEachOfSystem(
        1, 2, 2, false, false, [&](System& s) { s.a = factorised; }, unchanged);
    RefuseEachOfSystem(
        2, 2, 2, true, false, [&](System& s) { s.a = factorised; }, unchanged);
    RefuseEachOfSystem(
        0, 2, 2, false, true, [&](System& s) { s.a = factorised; }, unchanged);
}

TEST(Allocation, MatrixResults)
{
    MatDbl a = Mat({{4, 1}, {1, 3}});
    VecDbl const v = Dbl({1, 2});
    RefuseEach(2, [&] { a * 2.0; });
    RefuseEach(2, [&] { 2.0 * a; });
    RefuseEach(2, [&] { a / 2.0; });
    RefuseEach(2, [&] { -a; });
    RefuseEach(2, [&] { a + a; });
    RefuseEach(2, [&] { a - a; });
    RefuseEach(2, [&] { a* a; });
    RefuseEach(2, [&] { a.GetTransposedCopy(); });
    RefuseEach(2, [&] { a.GetNegatedCopy(); });
    RefuseEach(1, [&] { a.GetRow(0); });
    RefuseEach(1, [&] { a.GetCol(0); });
    RefuseEach(1, [&] { a.GetDiagonal(); });
    RefuseEach(1, [&] { a.RowSum(); });
    RefuseEach(1, [&] { a.RowAverage(); });
    // Two for the copy, the inverse's block, and the pivots.
    RefuseEach(4, [&] { a.GetInvertedCopy(); });
    EXPECT_TRUE(HoldsRows(a, {{4, 1}, {1, 3}}));
}

TEST(Allocation, Transpose)
{
    auto const unchanged = [](System const& s, int) { s.ExpectUnchanged(); };
    for (bool views : {false, true}) {
        RefuseEachOfSystem(
            2, 2, 3, views, false, [](System& s) { s.a.Transpose(); }, unchanged);
        // A square matrix is transposed in place.
        RefuseEachOfSystem(
            0, 3, 3, views, false, [](System& s) { s.a.Transpose(); }, [](System const&, int) {});
    }
}

TEST(Allocation, Solve)
{
    for (bool views : {false, true}) {
        auto const plain = [](System const& s, int) {
            s.ExpectUnchanged();
            EXPECT_FALSE(s.IsFactorised());
        };
        RefuseEachOfSystem(
            1, 3, 3, views, false, [](System& s) { s.a.Solve(s.b); }, plain);
        RefuseEachOfSystem(
            1, 3, 3, views, false, [](System& s) { s.a.Solve(s.many); }, plain);
        // Existing pivots are used again, and re-solves allocate nothing.
        RefuseEachOfSystem(
            0, 3, 3, views, true, [](System& s) { s.a.Solve(s.b); }, plain);
        RefuseEachOfSystem(
            0, 3, 3, views, true, [](System& s) { s.a.ReSolve(s.b); }, plain);
        RefuseEachOfSystem(
            0, 3, 3, views, true, [](System& s) { s.a.ReSolve(s.many); }, plain);
#if !defined(VEXOR_CHECKED) // a checked build stops on the factors of the other kind
        RefuseEachOfSystem(
            0, 3, 3, views, true, [](System& s) { s.a.ReSolveSym(s.b); }, plain);
#endif
    }
}

TEST(Allocation, SolveSym)
{
    for (bool views : {false, true}) {
        auto const plain = [](System const& s, int) {
            s.ExpectUnchanged();
            EXPECT_FALSE(s.IsFactorised());
        };
        RefuseEachOfSystem(
            2, 3, 3, views, false, [](System& s) { s.a.SolveSym(s.b); }, plain);
        RefuseEachOfSystem(
            2, 3, 3, views, false, [](System& s) { s.a.SolveSym(s.many); }, plain);
        // Without workspace the pivots of an earlier factorisation are dropped too.
        RefuseEachOfSystem(
            1, 3, 3, views, true, [](System& s) { s.a.SolveSym(s.b); }, plain);
        RefuseEachOfSystem(
            1, 3, 3, views, true, [](System& s) { s.a.SolveSym(s.many); }, plain);
    }
}

TEST(Allocation, SolveLinearLeastSquares)
{
    for (bool views : {false, true}) {
        for (bool factorised : {false, true}) {
            RefuseEachOfSystem(
                1, 3, 3, views, factorised, [](System& s) { s.a.SolveLinearLeastSquares(s.b); },
                [](System const& s, int) {
                    s.ExpectUnchanged();
                    EXPECT_FALSE(s.IsFactorised()); // the pivots are dropped first
                });
        }
        for (int rows : {2, 4}) {
            int const columns = 6 - rows;
            auto const unchanged = [](System const& s, int) { s.ExpectUnchanged(); };
            RefuseEachOfSystem(
                2, rows, columns, views, false,
                [](System& s) {
                    // A second run would find the first solution as right-hand side; its size does not match.
                    s.a.SolveLinearLeastSquares(s.b);
                },
                unchanged);
            RefuseEachOfSystem(
                2, rows, columns, views, false, [](System& s) { s.a.SolveLinearLeastSquares(s.many); },
                unchanged);
        }
    }
}

TEST(Allocation, Invert)
{
    auto const plain = [](System const& s, int) {
        s.ExpectUnchanged();
        EXPECT_FALSE(s.IsFactorised());
    };
    RefuseEachOfSystem(
        2, 3, 3, false, false, [](System& s) { s.a.Invert(); }, plain);
    // A view's own storage is that of the inverse: nothing is allocated after the driver has run.
    RefuseEachOfSystem(
        2, 3, 3, true, false, [](System& s) { s.a.Invert(); }, plain);
}

TEST(Allocation, Svd)
{
    for (bool views : {false, true}) {
        RefuseEachOfSystem(
            2, 3, 2, views, false, [](System& s) { s.a.Svd(s.b); },
            [views](System const& s, int k) {
                EXPECT_TRUE(SameElements(ElementsOf(s.a), s.elements));
                // The result already has its new size when the workspace is refused.
                EXPECT_EQ(s.b.Size(), k == 1 ? 3 : 2);
                EXPECT_EQ(&s.b[0] == s.rhsBlock, views && k == 1);
            });
    }
}

TEST(Allocation, EigenSym)
{
    for (bool views : {false, true}) {
        for (int wantVectors : {0, 1}) {
            RefuseEachOfSystem(
                5, 3, 3, views, true,
                [wantVectors](System& s) {
                    if (s.b.Size() == 3)
                        s.b.ReSize(2, s.rhsBlock);
                    s.a.EigenSym(s.b, wantVectors, 0, 2);
                },
                [](System const& s, int k) {
                    EXPECT_TRUE(SameElements(ElementsOf(s.a), s.elements));
                    EXPECT_EQ(s.b.Size(), k == 1 ? 2 : 3);
                    EXPECT_TRUE(s.IsFactorised());
                });
        }
    }
}

// The fixed-size matrix allocates one of run-time size (two blocks), a vector and that one's workspace.
TEST(Allocation, SvdOfMat3Dbl)
{
    struct Fixed {
        Mat3Dbl matrix = Mat3Dbl(Vec3Dbl(4, 1, 2), Vec3Dbl(1, 5, 3), Vec3Dbl(2, 3, 6));
        Vec3Dbl values = Vec3Dbl(7, 8, 9);
    };
    RefuseEach<Fixed>(
        4, [] { return std::make_unique<Fixed>(); }, [](Fixed& s) { s.matrix.Svd(s.values); },
        [](Fixed const& s, int) {
            EXPECT_EQ(s.matrix, Fixed().matrix);
            EXPECT_EQ(s.values, Fixed().values);
        });
}
