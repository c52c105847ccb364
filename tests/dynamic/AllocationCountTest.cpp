#include "Allocations.h"

#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>
#include <string>

// Holds the table of allocations in docs/performance.md: every row names an operation below, and every
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

    /// Puts the pivots of a former solve there for the operations that start from them.
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
