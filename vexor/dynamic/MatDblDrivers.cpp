// The members of MatDbl that call LAPACK.
//
// LAPACK gets the matrix in place: from columns[0], with the row count as leading dimension. Each workspace
// is a fixed multiple of a dimension. It is allocated before the driver runs and freed when the driver has
// returned, before INFO is tested. Any INFO other than 0 raises `VexorComputationFailed`.

#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/private/Lapack.h>
#include <vexor/dynamic/private/PivotMark.h>
#include <vexor/dynamic/private/Runs.h>
#include <vexor/dynamic/private/Storage.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

using namespace vexor::detail;

namespace {

void RequireSuccess(int info)
{
    if (info != 0)
        RaiseComputationFailed();
}

/// The pivots 1 to n, which exchange nothing. The array holds them if a failing driver does not write it.
Owned<int> TakeIdentityPivots(int n)
{
    Owned<int> pivots = TakeOrRaise<Owned<int>>(PivotArrayLength(n));
    std::iota(pivots.get(), pivots.get() + n, 1);
    return pivots;
}

/// Whether DGETRS may be called with these pivots. It exchanges rows of the right-hand side by them, and
/// the pivots that DSYSV left, which may be negative, would make it write outside.
bool AreRowNumbers(int const* pivots, int n)
{
    return std::all_of(pivots, pivots + n, [](int pivot) { return pivot >= 1; });
}

/// The least workspace that DGELS accepts.
std::int64_t LeastSquaresMinimum(int rows, int columns, int rhsCount)
{
    std::int64_t const smaller = std::min(rows, columns);
    return smaller + std::max<std::int64_t>(smaller, rhsCount);
}

} // namespace

// ---- General systems -------------------------------------------------------------------------------

void MatDbl::Solve(VecDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.size, rowCount);
    DoSolve(b.values, 1, 1);
}

void MatDbl::Solve(MatDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.rowCount, rowCount);
    DoSolve(b.columns[0], b.columnCount, 1);
}

void MatDbl::ReSolve(VecDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.size, rowCount);
    DoSolve(b.values, 1, 0);
}

void MatDbl::ReSolve(MatDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.rowCount, rowCount);
    DoSolve(b.columns[0], b.columnCount, 0);
}

void MatDbl::DoSolve(double* rhs, int rhsCount, int factorise)
{
    int info = 0;
    if (factorise) {
        if (!pivots)
            Exchange(pivots, TakeIdentityPivots(rowCount));
        dgesv_(&rowCount, &rhsCount, columns[0], &rowCount, pivots, rhs, &rowCount, &info);
        MarkPivots(pivots, columns, rowCount, Factors::General);
    } else {
        VEXOR_CHECK(!pivots || AreMarkedPivots(pivots, rowCount, Factors::General),
                    "ReSolve on the factors that SolveSym left");
        VEXOR_CHECK(!pivots || AreMarkedFactors(pivots, columns, rowCount, Factors::General),
                    "ReSolve on a matrix that has changed since it was factorised");
        if (!pivots || !AreRowNumbers(pivots, rowCount))
            RaiseComputationFailed();
        dgetrs_("N", &rowCount, &rhsCount, columns[0], &rowCount, pivots, rhs, &rowCount, &info, oneLetter);
    }
    RequireSuccess(info);
}

// ---- Symmetric systems -----------------------------------------------------------------------------

void MatDbl::SolveSym(VecDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.size, rowCount);
    DoSolveSym(b.values, 1, 1);
}

void MatDbl::SolveSym(MatDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.rowCount, rowCount);
    DoSolveSym(b.columns[0], b.columnCount, 1);
}

void MatDbl::ReSolveSym(VecDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.size, rowCount);
    DoSolveSym(b.values, 1, 0);
}

void MatDbl::ReSolveSym(MatDbl& b)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(b.rowCount, rowCount);
    DoSolveSym(b.columns[0], b.columnCount, 0);
}

void MatDbl::DoSolveSym(double* rhs, int rhsCount, int factorise)
{
    int info = 0;
    if (factorise) {
        // If the workspace cannot be allocated, the pivots are dropped, even those of an earlier
        // factorisation.
        Owned<int> kept = Exchange<Owned<int>>(pivots, nullptr);
        if (!kept)
            kept = TakeIdentityPivots(rowCount);
        Workspace<double> work(128, rowCount);
        Exchange(pivots, std::move(kept));
        dsysv_("U", &rowCount, &rhsCount, columns[0], &rowCount, pivots, rhs, &rowCount, work.block.get(),
               &work.length, &info, oneLetter);
        work.block.reset();
        MarkPivots(pivots, columns, rowCount, Factors::Symmetric);
    } else {
        VEXOR_CHECK(!pivots || AreMarkedPivots(pivots, rowCount, Factors::Symmetric),
                    "ReSolveSym on the factors that Solve left");
        VEXOR_CHECK(!pivots || AreMarkedFactors(pivots, columns, rowCount, Factors::Symmetric),
                    "ReSolveSym on a matrix that has changed since it was factorised");
        if (!pivots)
            RaiseComputationFailed();
        dsytrs_("U", &rowCount, &rhsCount, columns[0], &rowCount, pivots, rhs, &rowCount, &info, oneLetter);
    }
    RequireSuccess(info);
}

// ---- Least squares ---------------------------------------------------------------------------------
// DGELS needs a right-hand side with room for the larger dimension, and leaves the solution in its first
// columnCount rows. So a right-hand side whose row count differs from the solution's moves to new storage:
// before the driver runs if it must grow, after it if it must shrink. All storage is allocated before the
// right-hand side changes, so a failed allocation never loses it or the solution.

void MatDbl::SolveLinearLeastSquares(VecDbl& b)
{
    RequireSameSize(b.size, rowCount);
    Owned<double> resized = rowCount == columnCount ? nullptr : TakeOrRaise<Owned<double>>(columnCount);
    ReleasePivots();
    Workspace<double> work(128, std::max(rowCount, columnCount));
    if (rowCount < columnCount)
        b.MoveTo(resized.release(), columnCount);
    DoSolveLinearLeastSquares(b.values, 1, work);
    if (rowCount > columnCount)
        b.MoveTo(resized.release(), columnCount);
}

void MatDbl::SolveLinearLeastSquares(MatDbl& b)
{
    RequireSameSize(b.rowCount, rowCount);
    OwnedBlock resized =
        rowCount == columnCount ? nullptr : TakeOrRaise<OwnedBlock>(CountOf(columnCount, b.columnCount));
    ReleasePivots();
    Workspace<double> work(128, std::max(rowCount, columnCount));
    if (rowCount < columnCount)
        b.MoveRowsTo(resized.release(), columnCount);
    DoSolveLinearLeastSquares(b.columns[0], b.columnCount, work);
    if (rowCount > columnCount)
        b.MoveRowsTo(resized.release(), columnCount);
}

void MatDbl::DoSolveLinearLeastSquares(double* rhs, int rhsCount, Workspace<double>& work)
{
    // DGELS would reject it by calling XERBLA, which ends the process in some LAPACKs.
    if (work.length < LeastSquaresMinimum(rowCount, columnCount, rhsCount))
        RaiseComputationFailed();

    int const larger = std::max(rowCount, columnCount);
    int info = 0;
    dgels_("N", &rowCount, &columnCount, &rhsCount, columns[0], &rowCount, rhs, &larger, work.block.get(),
           &work.length, &info, oneLetter);
    work.block.reset();
    RequireSuccess(info);
}

/// Copies the rows that fit to another block, which becomes own storage with that many rows.
void MatDbl::MoveRowsTo(double* block, int rows)
{
    int const carried = std::min(rows, rowCount);
    for (int j = 0; j < columnCount; ++j)
        CopyRun(block + CountOf(rows, j), columns[j], carried);
    Adopt(block, rows);
}

/// Makes a block of that many rows own storage, without pivots.
void MatDbl::Adopt(double* block, int rows)
{
    ElementBlock<OwnedBlock>(columns[0], isExternal).Own(OwnedBlock(block));
    PointColumns(columns, block, rows, columnCount);
    rowCount = rows;
    ReleasePivots();
}

// ---- Inverse ---------------------------------------------------------------------------------------

MatDbl& MatDbl::Invert()
{
    RequireSameSize(rowCount, columnCount);
    std::int64_t const count = CountOf(rowCount, rowCount);
    auto inverse = TakeOrRaise<OwnedBlock>(count);
    FillRun(inverse.get(), count, 0.0);
    for (int i = 0; i < rowCount; ++i)
        inverse[static_cast<std::size_t>(CountOf(rowCount, i) + i)] = 1.0;
    DoSolve(inverse.get(), rowCount, 1);

    if (isExternal) {
        Adopt(inverse.release(), rowCount); // no longer uses the caller's block
    } else {
        CopyRun(columns[0], inverse.get(), count);
        ReleasePivots();
    }
    return *this;
}

MatDbl MatDbl::GetInvertedCopy() const
{
    RequireSameSize(rowCount, columnCount);
    MatDbl copy(*this);
    copy.Invert();
    return copy;
}

// ---- Spectra ---------------------------------------------------------------------------------------

void MatDbl::Svd(VecDbl& singularValues)
{
    singularValues.Init(std::min(rowCount, columnCount), nullptr);
    Workspace<double> work(128, std::max(rowCount, columnCount));
    // With an infinity in the matrix, or a NaN beside zeros, the iteration of DGESVD may never end.
    if (!std::all_of(columns[0], columns[0] + CountOf(rowCount, columnCount),
                     [](double element) { return std::isfinite(element); }))
        RaiseComputationFailed();

    double noVectors = 0.0;
    int const one = 1;
    int info = 0;
    dgesvd_("N", "O", &rowCount, &columnCount, columns[0], &rowCount, singularValues.values, &noVectors, &one,
            &noVectors, &one, work.block.get(), &work.length, &info, oneLetter, oneLetter);
    work.block.reset();
    RequireSuccess(info);
}

void MatDbl::EigenSym(VecDbl& eigenValues, int wantVectors, int firstIndex, int lastIndex)
{
    RequireSameSize(rowCount, columnCount);
    if (firstIndex < 0 || firstIndex > lastIndex || lastIndex >= rowCount)
        RaiseDimensionMismatch();

    int const il = firstIndex + 1;
    int const iu = lastIndex + 1;
    int const selected = iu - il + 1;
    bool const wantsAll = il == 1 && iu == rowCount;
    eigenValues.Init(rowCount, nullptr);

    // The driver returns the vectors in columns; they are copied into rows. They start as zeros, since a
    // failing driver need not write them.
    std::int64_t const vectorElements = wantVectors ? CountOf(rowCount, selected) : 1;
    auto const vectors = TakeOrRaise<Owned<double>>(vectorElements);
    FillRun(vectors.get(), vectorElements, 0.0);
    Workspace<double> work(140, rowCount);
    Workspace<int> integerWork(5, rowCount);
    Workspace<int> unconverged(1, rowCount);

    // With a NaN in the matrix the driver may find fewer values and still report success.
    FillRun(eigenValues.values, selected, std::numeric_limits<double>::quiet_NaN());

    double const unused = 0.0; // the bounds of an interval, which is not how values are selected here
    double const defaultTolerance = 0.0;
    int found = 0;
    int info = 0;
    dsyevx_(wantVectors ? "V" : "N", wantsAll ? "A" : "I", "U", &rowCount, columns[0], &rowCount, &unused,
            &unused, &il, &iu, &defaultTolerance, &found, eigenValues.values, vectors.get(), &rowCount,
            work.block.get(), &work.length, integerWork.block.get(), unconverged.block.get(), &info,
            oneLetter, oneLetter, oneLetter);
    if (wantVectors) {
        for (int j = 0; j < selected; ++j) {
            for (int i = 0; i < rowCount; ++i)
                columns[i][j] = vectors[static_cast<std::size_t>(CountOf(rowCount, j) + i)];
        }
    }
    unconverged.block.reset();
    integerWork.block.reset();
    work.block.reset();
    RequireSuccess(info);
}
