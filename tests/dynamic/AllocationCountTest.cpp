#include "Allocations.h"

#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

// Checks the table of allocations in docs/performance.md: every row names an operation below, and every
// operation has its row.

namespace {

/// The rows of the table under the heading "Allocations".
std::map<std::string, int> DocumentedCounts()
{
    std::map<std::string, int> counts;
    std::ifstream page(VEXOR_PERFORMANCE_PAGE);
    bool isUnderHeading = false;
    for (std::string line; std::getline(page, line);) {
        if (line.rfind("## ", 0) == 0)
            isUnderHeading = line == "## Allocations";
        if (!isUnderHeading || line.rfind("| `", 0) != 0)
            continue;
        std::size_t const end = line.find("` | ");
        if (end != std::string::npos)
            counts[line.substr(3, end - 3)] = std::stoi(line.substr(end + 4));
    }
    return counts;
}

/// Operands of one size, and the operations on them.
class Operations {
public:
    Operations()
        : v(5, 1.5), w(5, -0.5), x(5), single(5, 1.5f), a(5, 5, 1.0), b(5, 5, 2.0), m(5, 5), tall(5, 3, 1.0)
    {
        for (int i = 0; i < 5; ++i) {
            a(i, i) = 10.0 + i;
            tall(i, i % 3) = 7.0 + i;
        }
    }

    std::map<std::string, std::function<void()>> All()
    {
        return {
            {"v == w", [&] { (void)(v == w); }},
            {"v += w", [&] { v += w; }},
            {"v *= 2.0", [&] { v *= 2.0; }},
            {"v.Negate()", [&] { v.Negate(); }},
            {"v.Normalize()", [&] { v.Normalize(); }},
            {"v.Sum()", [&] { v.Sum(); }},
            {"v.Dot(w)", [&] { v.Dot(w); }},
            {"v.Length()", [&] { v.Length(); }},
            {"v.MaxAbsValueIdx()", [&] { v.MaxAbsValueIdx(); }},
            {"v.IsParallelTo(w)", [&] { v.IsParallelTo(w); }},
            {"v.IsEqualTo(w)", [&] { v.IsEqualTo(w); }},
            {"v.GetAngleWith(w)", [&] { v.GetAngleWith(w); }},
            {"v + w", [&] { v + w; }},
            {"v / 2.0", [&] { v / 2.0; }},
            {"-v", [&] { -v; }},
            {"v.ElemMult(w)", [&] { v.ElemMult(w); }},
            {"v.GetNormalizedCopy()", [&] { v.GetNormalizedCopy(); }},
            {"v.GetProjectionOnTo(w)", [&] { v.GetProjectionOnTo(w); }},
            {"x = v", [&] { x = v; }},
            {"x = v + w", [&] { x = v + w; }},
            {"a * single", [&] { (void)(a * single); }},
            {"a == b", [&] { (void)(a == b); }},
            {"a += b", [&] { a += b; }},
            {"a *= 2.0", [&] { a *= 2.0; }},
            {"a.Identity()", [&] { a.Identity(); }},
            {"a.Transpose()", [&] { a.Transpose(); }},
            {"a.GetTransposedCopy()", [&] { a.GetTransposedCopy(); }},
            {"a + b", [&] { a + b; }},
            {"a * 2.0", [&] { a * 2.0; }},
            {"a * b", [&] { a* b; }},
            {"a * v", [&] { a* v; }},
            {"m = a", [&] { m = a; }},
            {"m = a + b", [&] { m = a + b; }},
            {"m = a * b", [&] { m = a * b; }},
            {"a.GetRow(0)", [&] { a.GetRow(0); }},
            {"a.SetRow(0, v)", [&] { a.SetRow(0, v); }},
            {"a.RowSum()", [&] { a.RowSum(); }},
            {"a.RowAverage()", [&] { a.RowAverage(); }},
            {"a.Solve(v)", [&] { a.Solve(v); }},
            {"a.Solve(v), once more", [&] { a.Solve(v); }},
            {"a.ReSolve(v)", [&] { a.ReSolve(v); }},
            {"a.SolveSym(v)", [&] { a.SolveSym(v); }},
            {"a.SolveLinearLeastSquares(v)", [&] { a.SolveLinearLeastSquares(v); }},
            {"tall.SolveLinearLeastSquares(v)", [&] { tall.SolveLinearLeastSquares(v); }},
            {"a.Invert()", [&] { a.Invert(); }},
            {"a.GetInvertedCopy()", [&] { a.GetInvertedCopy(); }},
            {"a.Svd(x)", [&] { a.Svd(x); }},
            {"a.EigenSym(x, 0, 0, 4)", [&] { a.EigenSym(x, 0, 0, 4); }},
            {"a.EigenSym(x, 1, 0, 4)", [&] { a.EigenSym(x, 1, 0, 4); }},
        };
    }

    /// Leaves the pivots of an earlier solve, for the operations that start with pivots.
    void Prepare(std::string const& name)
    {
        if (name == "a.ReSolve(v)" || name == "a.Solve(v), once more")
            a.Solve(w);
    }

private:
    VecDbl v, w, x;
    VecFlt single;
    MatDbl a, b, m, tall;
};

} // namespace

TEST(AllocationCount, AsDocumented)
{
#if defined(_WIN32)
    if (vexor_test::CountRequests([] { VecDbl const v; }) == 0)
        GTEST_SKIP() << "a DLL has heap operators of its own, which a program cannot replace";
#endif
    std::map<std::string, int> const documented = DocumentedCounts();
    ASSERT_FALSE(documented.empty()) << "no table in " << VEXOR_PERFORMANCE_PAGE;

    std::map<std::string, int> counted;
    for (auto const& entry : Operations().All()) {
        Operations fresh;
        fresh.Prepare(entry.first);
        counted[entry.first] = vexor_test::CountRequests(fresh.All().at(entry.first));
    }
    EXPECT_EQ(counted, documented);
}

TEST(AllocationCount, WorkspaceIsAFixedMultipleOfTheDimension)
{
#if defined(_WIN32)
    if (vexor_test::CountRequests([] { VecDbl const v; }) == 0)
        GTEST_SKIP() << "a DLL has heap operators of its own, which a program cannot replace";
#endif
    using Sizes = std::vector<std::size_t>;
    for (int n : {1, 3, 4, 40}) {
        std::size_t const size = std::size_t(n);
        std::size_t const doubles = size * sizeof(double);
        std::size_t const integers = size * sizeof(int);
        MatDbl a(n, n, 0.0);
        for (int i = 0; i < n; ++i)
            a(i, i) = 1.0 + i;
        VecDbl v(n, 1.0);
        VecDbl values(n);

        MatDbl sym(a);
        Sizes const solve = vexor_test::RequestedSizes([&] { sym.SolveSym(v); });
        EXPECT_EQ(solve.back(), 128 * doubles) << n; // after the pivots

        MatDbl square(a);
        EXPECT_EQ(vexor_test::RequestedSizes([&] { square.SolveLinearLeastSquares(v); }),
                  Sizes{128 * doubles});
        MatDbl again(a);
        EXPECT_EQ(vexor_test::RequestedSizes([&] { again.Svd(values); }), Sizes{128 * doubles});

        // The vectors or, without them, one double; then the three workspaces.
        MatDbl alone(a);
        EXPECT_EQ(vexor_test::RequestedSizes([&] { alone.EigenSym(values, 0, 0, n - 1); }),
                  (Sizes{sizeof(double), 140 * doubles, 5 * integers, integers}));
        MatDbl vectors(a);
        EXPECT_EQ(vexor_test::RequestedSizes([&] { vectors.EigenSym(values, 1, 0, n - 1); }),
                  (Sizes{size * doubles, 140 * doubles, 5 * integers, integers}));
    }

    // For a matrix that is not square, the larger dimension counts.
    MatDbl tall(7, 3, 1.0);
    VecDbl values(3);
    EXPECT_EQ(vexor_test::RequestedSizes([&] { tall.Svd(values); }), Sizes{128 * 7 * sizeof(double)});
    MatDbl wide(3, 7, 1.0);
    EXPECT_EQ(vexor_test::RequestedSizes([&] { wide.Svd(values); }), Sizes{128 * 7 * sizeof(double)});
}
