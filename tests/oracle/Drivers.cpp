#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "oracle/DynamicDraws.h"
#include "oracle/Matrices.h"
#include "oracle/Statements.h"

// The rule of an operation that depends on LAPACK is the call itself: these statements make it.

extern "C" {
using StringLength = std::size_t;
void dgesv_(int const*, int const*, double*, int const*, int*, double*, int const*, int*);
void dgetrs_(char const*, int const*, int const*, double const*, int const*, int const*, double*, int const*,
             int*, StringLength);
void dsysv_(char const*, int const*, int const*, double*, int const*, int*, double*, int const*, double*,
            int const*, int*, StringLength);
void dsytrs_(char const*, int const*, int const*, double const*, int const*, int const*, double*, int const*,
             int*, StringLength);
void dgels_(char const*, int const*, int const*, int const*, double*, int const*, double*, int const*,
            double*, int const*, int*, StringLength);
void dgesvd_(char const*, char const*, int const*, int const*, double*, int const*, double*, double*,
             int const*, double*, int const*, double*, int const*, int*, StringLength, StringLength);
void dsyevx_(char const*, char const*, char const*, int const*, double*, int const*, double const*,
             double const*, int const*, int const*, double const*, int*, double*, double*, int const*,
             double*, int const*, int*, int*, int*, StringLength, StringLength, StringLength);
}

namespace oracle {

namespace {

/// Column by column, as LAPACK takes it; a vector is one column. Both sides use it: there is nothing
/// for MPFR to compute, so the sizes have no bound.
struct Block {
    int rows = 0;
    int columns = 0;
    std::vector<double> e;

    Block(int rowCount, int columnCount)
        : rows(rowCount), columns(columnCount), e(static_cast<std::size_t>(rowCount * columnCount))
    {}
    explicit Block(Mat<3> const& m) : Block(3, 3)
    {
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                At(r, c) = m(r, c).Value();
    }
    explicit Block(MatDbl const& m) : Block(m.RowCount(), m.ColumnCount())
    {
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < columns; ++c)
                At(r, c) = m(r, c);
    }
    explicit Block(VecDbl const& v) : Block(v.Size(), 1)
    {
        for (int r = 0; r < rows; ++r)
            At(r, 0) = v[r];
    }
    double& At(int r, int c) { return e[static_cast<std::size_t>(c * rows + r)]; }
    double At(int r, int c) const { return e[static_cast<std::size_t>(c * rows + r)]; }

    Block FirstColumn() const
    {
        Block column(rows, 1);
        for (int r = 0; r < rows; ++r)
            column.At(r, 0) = At(r, 0);
        return column;
    }
    MatDbl Matrix() const
    {
        MatDbl m(rows, columns, nullptr);
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < columns; ++c)
                m(r, c) = At(r, c);
        return m;
    }
    VecDbl Vector() const
    {
        VecDbl v(rows, nullptr);
        for (int r = 0; r < rows; ++r)
            v[r] = At(r, 0);
        return v;
    }
};

Block const& Converted(Block const& block)
{
    return block;
}

void Put(Outcome& out, Block const& block)
{
    out.Put(block.rows);
    out.Put(block.columns);
    for (double const e : block.e)
        out.Put(e);
}

std::vector<double> Work(int size)
{
    return std::vector<double>(static_cast<std::size_t>(size));
}

void DemandSuccess(int info)
{
    if (info != 0)
        throw Raised{Raise::ComputationFailed};
}

/// A matrix in the course of the solvers.
struct Solver {
    Block a;
    std::vector<int> pivots;

    void Check(Block const& b) const
    {
        if (a.rows != a.columns || b.rows != a.rows)
            throw Raised{Raise::DimensionMismatch};
    }
    void NeedPivots()
    {
        if (pivots.empty())
            throw Raised{Raise::ComputationFailed};
    }
    void MakePivots()
    {
        if (pivots.empty())
            pivots.assign(static_cast<std::size_t>(a.rows), 0);
    }
    void Solve(Block& b)
    {
        Check(b);
        MakePivots();
        int info = 0;
        dgesv_(&a.rows, &b.columns, a.e.data(), &a.rows, pivots.data(), b.e.data(), &a.rows, &info);
        DemandSuccess(info);
    }
    void ReSolve(Block& b)
    {
        Check(b);
        NeedPivots();
        // DGETRS would write outside the right-hand side.
        for (int const pivot : pivots)
            if (pivot < 1)
                throw Raised{Raise::ComputationFailed};
        int info = 0;
        dgetrs_("N", &a.rows, &b.columns, a.e.data(), &a.rows, pivots.data(), b.e.data(), &a.rows, &info, 1);
        DemandSuccess(info);
    }
    void SolveSym(Block& b)
    {
        Check(b);
        MakePivots();
        int info = 0, size = 128 * a.rows;
        std::vector<double> work = Work(size);
        dsysv_(Slip("the lower triangle") ? "L" : "U", &a.rows, &b.columns, a.e.data(), &a.rows,
               pivots.data(), b.e.data(), &a.rows, work.data(), &size, &info, 1);
        DemandSuccess(info);
    }
    void ReSolveSym(Block& b)
    {
        Check(b);
        NeedPivots();
        int info = 0;
        dsytrs_("U", &a.rows, &b.columns, a.e.data(), &a.rows, pivots.data(), b.e.data(), &a.rows, &info, 1);
        DemandSuccess(info);
    }
    /// b has room for the larger dimension, or gets it, and ends with the solution's rows.
    void LeastSquares(Block& b)
    {
        if (b.rows != a.rows)
            throw Raised{Raise::DimensionMismatch};
        pivots.clear();
        int const larger = a.rows > a.columns ? a.rows : a.columns;
        Block padded(larger, b.columns);
        for (int r = 0; r < b.rows; ++r)
            for (int c = 0; c < b.columns; ++c)
                padded.At(r, c) = b.At(r, c);
        int info = 0, size = 128 * larger;
        std::vector<double> work = Work(size);
        dgels_("N", &a.rows, &a.columns, &b.columns, a.e.data(), &a.rows, padded.e.data(), &larger,
               work.data(), &size, &info, 1);
        if (info != 0) {
            if (a.rows < a.columns)
                throw Open{}; // the rest of the right-hand side was never set
            b = padded;
            throw Raised{Raise::ComputationFailed};
        }
        Block solution(a.columns, b.columns);
        for (int r = 0; r < a.columns; ++r)
            for (int c = 0; c < b.columns; ++c)
                solution.At(r, c) = padded.At(r, c);
        b = solution;
    }
};

/// Mostly small, sometimes up to 20, rarely up to sizes::matricesUpTo.
int DrawnSize(Source& source)
{
    return 1 + source.Below(source.OneIn(100) ? sizes::matricesUpTo : source.OneIn(12) ? 20 : 5);
}

/// An operand for LAPACK: sometimes symmetric if it is square, sometimes singular; sometimes with 1e±300 side
/// by side, with infinities or with NaNs.
Block DrawnSystem(Source& source, int rows, int columns)
{
    Block block(rows, columns);
    bool const integers = source.OneIn(3), wild = source.OneIn(12), extreme = source.OneIn(16);
    for (int c = 0; c < columns; ++c)
        for (int r = 0; r < rows; ++r) {
            double& e = block.At(r, c);
            e = source.OneIn(10) ? (source.Below(2) ? 0.0 : -0.0) : source.Number<double>();
            if (extreme)
                e = std::ldexp(source.Signed(), (source.Below(3) - 1) * 1000);
            else if (integers)
                e = source.Below(7) - 3;
            else if (!wild || !(std::fabs(e) < 1e150))
                e = source.Signed();
        }
    if (rows == columns && source.OneIn(6))
        for (int c = 0; c < columns; ++c)
            for (int r = c + 1; r < rows; ++r)
                block.At(r, c) = block.At(c, r);
    if (source.OneIn(8))
        for (int c = 0; c < columns; ++c)
            block.At(source.Below(rows), c) = 0.0;
    if (source.OneIn(8))
        for (int c = 0; c < columns; ++c)
            block.At(rows - 1, c) = 2.0 * block.At(0, c);
    if (source.OneIn(12)) {
        double const bad = source.Below(2) ? std::numeric_limits<double>::quiet_NaN() : HUGE_VAL;
        for (int count = 1 + source.Below(3); count > 0; --count)
            block.At(source.Below(rows), source.Below(columns)) = source.Below(2) ? bad : -bad;
    }
    return block;
}

auto DrawSystem(Source& source)
{
    int const n = DrawnSize(source);
    Block const a = DrawnSystem(source, n, source.OneIn(20) ? DrawnSize(source) : n);
    int const rows = source.OneIn(20) ? DrawnSize(source) : n;
    Block const b = DrawnSystem(source, rows, 1 + source.Below(3)),
                c = DrawnSystem(source, n, 1 + source.Below(3));
    return std::tuple(a, b, c);
}

/// Two calls in sequence: the first may raise, and the second runs in any case.
template <class First, class Second>
void EnterSolves(std::string const& name, First first, Second second, void (Solver::*firstRule)(Block&),
                 void (Solver::*secondRule)(Block&))
{
    Add(
        name + "(MatDbl)", DrawSystem,
        [=](Block const& a, Block const& b, Block const& c) {
            MatDbl m = a.Matrix(), x = b.Matrix(), y = c.Matrix();
            Raise const one = RaisedBy([&] { first(m, x); }), two = RaisedBy([&] { second(m, y); });
            return std::tuple(one, two, Block(m), Block(x), Block(y));
        },
        [=](Block const& a, Block const& b, Block const& c) {
            Solver solver = {a, {}};
            Block x = b, y = c;
            Raise const one = RaisedBy([&] { (solver.*firstRule)(x); });
            Raise const two = RaisedBy([&] { (solver.*secondRule)(y); });
            return std::tuple(one, two, solver.a, x, y);
        });
    Add(
        name + "(VecDbl)", DrawSystem,
        [=](Block const& a, Block const& b, Block const& c) {
            MatDbl m = a.Matrix();
            VecDbl x = b.FirstColumn().Vector(), y = c.FirstColumn().Vector();
            Raise const one = RaisedBy([&] { first(m, x); }), two = RaisedBy([&] { second(m, y); });
            return std::tuple(one, two, Block(m), Block(x), Block(y));
        },
        [=](Block const& a, Block const& b, Block const& c) {
            Solver solver = {a, {}};
            Block x = b.FirstColumn(), y = c.FirstColumn();
            Raise const one = RaisedBy([&] { (solver.*firstRule)(x); });
            Raise const two = RaisedBy([&] { (solver.*secondRule)(y); });
            return std::tuple(one, two, solver.a, x, y);
        });
}

void Decompose(Block& a, std::vector<double>& values)
{
    int const smaller = a.rows < a.columns ? a.rows : a.columns, larger = a.rows + a.columns - smaller;
    values.assign(static_cast<std::size_t>(smaller), 0.0);
    int info = 0, size = 128 * larger, one = 1;
    double dummy = 0.0;
    std::vector<double> work = Work(size);
    // If an element is not finite, the iteration may not end.
    if (!std::all_of(a.e.begin(), a.e.end(), [](double e) { return std::isfinite(e); }))
        throw Raised{Raise::ComputationFailed};
    dgesvd_("N", Slip("no vectors") ? "N" : "O", &a.rows, &a.columns, a.e.data(), &a.rows, values.data(),
            &dummy, &one, &dummy, &one, work.data(), &size, &info, 1, 1);
    DemandSuccess(info);
}

} // namespace

namespace {

void EnterSystems()
{
    auto const solve = [](MatDbl& m, auto& b) { m.Solve(b); };
    auto const reSolve = [](MatDbl& m, auto& b) { m.ReSolve(b); };
    auto const solveSym = [](MatDbl& m, auto& b) { m.SolveSym(b); };
    auto const reSolveSym = [](MatDbl& m, auto& b) { m.ReSolveSym(b); };
    auto const leastSquares = [](MatDbl& m, auto& b) { m.SolveLinearLeastSquares(b); };
    EnterSolves("MatDbl::Solve, ReSolve", solve, reSolve, &Solver::Solve, &Solver::ReSolve);
    EnterSolves("MatDbl::SolveSym, ReSolveSym", solveSym, reSolveSym, &Solver::SolveSym, &Solver::ReSolveSym);
    EnterSolves("MatDbl::SolveSym, ReSolve", solveSym, reSolve, &Solver::SolveSym, &Solver::ReSolve);
    EnterSolves("MatDbl::ReSolve, Solve", reSolve, solve, &Solver::ReSolve, &Solver::Solve);
    EnterSolves("MatDbl::Solve, SolveLinearLeastSquares", solve, leastSquares, &Solver::Solve,
                &Solver::LeastSquares);
    auto const drawLeast = [](Source& source) {
        int const rows = DrawnSize(source);
        Block const a = DrawnSystem(source, rows, DrawnSize(source));
        Block const b = DrawnSystem(source, source.OneIn(20) ? DrawnSize(source) : rows, 1 + source.Below(3));
        return std::tuple(a, b);
    };
    Add(
        "MatDbl::SolveLinearLeastSquares(MatDbl)", drawLeast,
        [](Block const& a, Block const& b) {
            MatDbl m = a.Matrix(), x = b.Matrix();
            Raise const raised = RaisedBy([&] { m.SolveLinearLeastSquares(x); });
            return std::tuple(raised, Block(m), Block(x));
        },
        [](Block const& a, Block const& b) {
            Solver solver = {a, {}};
            Block x = b;
            Raise const raised = RaisedBy([&] { solver.LeastSquares(x); });
            return std::tuple(raised, solver.a, x);
        });
    Add(
        "MatDbl::SolveLinearLeastSquares(VecDbl)", drawLeast,
        [](Block const& a, Block const& b) {
            MatDbl m = a.Matrix();
            VecDbl x = b.FirstColumn().Vector();
            Raise const raised = RaisedBy([&] { m.SolveLinearLeastSquares(x); });
            return std::tuple(raised, Block(m), Block(x));
        },
        [](Block const& a, Block const& b) {
            Solver solver = {a, {}};
            Block x = b.FirstColumn();
            Raise const raised = RaisedBy([&] { solver.LeastSquares(x); });
            return std::tuple(raised, solver.a, x);
        });
    auto const drawSquare = [](Source& source) {
        int const n = DrawnSize(source);
        return std::tuple(DrawnSystem(source, n, source.OneIn(20) ? DrawnSize(source) : n));
    };
    auto const inverse = [](Block const& m) {
        Solver solver = {m, {}};
        if (m.rows != m.columns)
            throw Raised{Raise::DimensionMismatch};
        Block unit(m.rows, m.rows);
        for (int i = 0; i < m.rows; ++i)
            unit.At(i, i) = 1.0;
        solver.Solve(unit);
        return unit;
    };
    Add(
        "MatDbl::GetInvertedCopy", drawSquare,
        [](Block const& g) { return Block(g.Matrix().GetInvertedCopy()); }, inverse);
    Add(
        "MatDbl::Invert", drawSquare,
        [](Block const& g) {
            MatDbl m = g.Matrix();
            m.Invert();
            VecDbl side(g.rows, 1.0, nullptr);
            return std::tuple(Block(m), RaisedBy([&] { m.ReSolve(side); }));
        },
        [inverse](Block const& m) { return std::tuple(inverse(m), Raise::ComputationFailed); });
}

void EnterSingularValues()
{
    Add(
        "MatDbl::Svd",
        [](Source& source) {
            int const rows = DrawnSize(source);
            return std::tuple(DrawnSystem(source, rows, DrawnSize(source)));
        },
        [](Block const& g) {
            MatDbl m = g.Matrix();
            VecDbl values(2, 7.0, nullptr);
            Raise const raised = RaisedBy([&] { m.Svd(values); });
            // After a failure only the size is defined.
            Block const result = raised == Raise::None ? Block(values) : Block(values.Size(), 1);
            return std::tuple(raised, result, Block(m));
        },
        [](Block const& m) {
            Block a = m;
            std::vector<double> values(2, 7.0);
            Raise const raised = RaisedBy([&] { Decompose(a, values); });
            Block result(static_cast<int>(values.size()), 1);
            if (raised == Raise::None)
                result.e = values;
            return std::tuple(raised, result, a);
        });
    Add(
        "Mat3Dbl::Svd",
        [](Source& source) {
            Block const system = DrawnSystem(source, 3, 3);
            Mat3Dbl m(0.0);
            for (int i = 0; i < 9; ++i)
                m(i / 3, i % 3) = system.At(i / 3, i % 3);
            return std::tuple(m);
        },
        [](Mat3Dbl m) {
            Vec3Dbl values(7.0);
            Raise const raised = RaisedBy([&] { m.Svd(values); });
            return std::tuple(raised, values, m);
        },
        [](Mat<3> const& m) {
            Block a(3, 3);
            bool const straight = Slip("not transposed");
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 3; ++c)
                    a.At(straight ? r : c, straight ? c : r) = m(r, c).Value();
            std::vector<double> values(3, 7.0);
            V3 result = {{7.0, 7.0, 7.0}};
            Mat<3> rows = m;
            Raise const raised = RaisedBy([&] { Decompose(a, values); });
            if (raised == Raise::None)
                for (int r = 0; r < 3; ++r) {
                    result[r] = values[static_cast<std::size_t>(r)];
                    for (int c = 0; c < 3; ++c)
                        rows(r, c) = a.At(r, c);
                }
            return std::tuple(raised, result, rows);
        });
}

void EnterEigenvalues()
{
    Add(
        "MatDbl::EigenSym",
        [](Source& source) {
            int const n = DrawnSize(source);
            Block const system = DrawnSystem(source, n, source.OneIn(20) ? DrawnSize(source) : n);
            int first = 0, last = n - 1;
            if (source.Below(2)) {
                first = source.Below(n + 1) - source.OneIn(10);
                last = first + source.Below(n + 1) - source.OneIn(10);
            }
            return std::tuple(system, source.Below(3) - 1, first, last);
        },
        [](Block const& g, int wanted, int first, int last) {
            MatDbl m = g.Matrix();
            VecDbl values(1, 7.0, nullptr);
            Raise const raised = RaisedBy([&] { m.EigenSym(values, wanted, first, last); });
            int const size = values.Size();
            // After the selected values nothing is defined, and nothing at all after a driver that fails.
            Block selected(raised == Raise::None ? last - first + 1 : 0, 1);
            for (int i = 0; i < selected.rows; ++i)
                selected.At(i, 0) = values[i];
            return std::tuple(raised, size, selected,
                              raised == Raise::ComputationFailed ? Block(1, 1) : Block(m));
        },
        [](Block const& m, int wanted, int first, int last) {
            Block a = m;
            int size = 1;
            Block selected(0, 1);
            Raise const raised = RaisedBy([&] {
                int const n = a.rows;
                if (a.rows != a.columns || first < 0 || first > last || last >= n)
                    throw Raised{Raise::DimensionMismatch};
                size = n;
                int const low = first + 1, high = last + 1, count = last - first + 1;
                int found = 0, info = 0, length = 140 * n;
                double const tolerance = 0.0;
                double unset = 0.0;
                // A value that the driver does not find, as with a NaN in the matrix, is a NaN.
                std::vector<double> w(static_cast<std::size_t>(n), std::numeric_limits<double>::quiet_NaN()),
                    z = Work(n * count), work = Work(length);
                std::vector<int> iwork(static_cast<std::size_t>(5 * n)), fail(static_cast<std::size_t>(n));
                bool const all = low == 1 && high == n;
                dsyevx_(wanted ? "V" : "N", all ? "A" : "I", Slip("the lower triangle") ? "L" : "U", &n,
                        a.e.data(), &n, &unset, &unset, &low, &high, &tolerance, &found, w.data(), z.data(),
                        &n, work.data(), &length, iwork.data(), fail.data(), &info, 1, 1, 1);
                bool const columns = Slip("vectors in columns");
                if (wanted)
                    for (int i = 0; i < n; ++i)
                        for (int j = 0; j < count; ++j)
                            a.At(columns ? i : j, columns ? j : i) = z[static_cast<std::size_t>(j * n + i)];
                DemandSuccess(info);
                selected = Block(count, 1);
                std::copy(w.begin(), w.begin() + count, selected.e.begin());
            });
            return std::tuple(raised, size, selected, raised == Raise::ComputationFailed ? Block(1, 1) : a);
        });
}

} // namespace

void EnterDrivers()
{
    EnterSystems();
    EnterSingularValues();
    EnterEigenvalues();
}

} // namespace oracle
