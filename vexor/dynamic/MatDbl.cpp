#include <vexor/dynamic/MatDbl.h>

#include <vexor/dynamic/private/Kernels.h>
#include <vexor/dynamic/private/PivotMark.h>
#include <vexor/dynamic/private/Runs.h>
#include <vexor/dynamic/private/Storage.h>

#include <algorithm>
#include <utility>

using namespace vexor::detail;

namespace {

std::int64_t CountOf(MatDbl const& matrix)
{
    return vexor::detail::CountOf(matrix.RowCount(), matrix.ColumnCount());
}

void RequireSameShape(MatDbl const& left, MatDbl const& right)
{
    RequireSameSize(left.RowCount(), right.RowCount());
    RequireSameSize(left.ColumnCount(), right.ColumnCount());
}

} // namespace

// ---- Construction and shape ------------------------------------------------------------------------

MatDbl::MatDbl() : MatDbl(1, 1, nullptr) {}

MatDbl::MatDbl(int rows, int cols, double* externalStorage)
    : rowCount(0), columnCount(0), isExternal(0), columns(nullptr), pivots(nullptr)
{
    Init(rows, cols, externalStorage);
}

MatDbl::MatDbl(int rows, int cols, double value, double* externalStorage)
    : MatDbl(rows, cols, externalStorage)
{
    SetValue(value);
}

MatDbl::MatDbl(MatDbl const& other)
    : rowCount(0), columnCount(0), isExternal(0), columns(nullptr), pivots(nullptr)
{
    *this = other;
}

MatDbl::MatDbl(Mat3Dbl const& other) : MatDbl(3, 3, nullptr)
{
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            columns[j][i] = other(j, i);
    }
}

MatDbl::~MatDbl()
{
    ElementBlock<OwnedBlock>(columns[0], isExternal).Release();
    Exchange<Owned<double*>>(columns, nullptr);
    ReleasePivots();
}

MatDbl& MatDbl::operator=(MatDbl const& other)
{
    // All storage is allocated before anything changes.
    bool const staysAsItIs = rowCount == other.rowCount && columnCount == other.columnCount && !isExternal;
    bool const needsPivots = other.pivots && !(staysAsItIs && pivots);
    Owned<int> freshPivots =
        needsPivots ? TakeOrRaise<Owned<int>>(PivotArrayLength(other.rowCount)) : nullptr;
    // The other may be a view on our own block, so that block is freed only after the copy.
    OwnedBlock const former(Shape(other.rowCount, other.columnCount, nullptr));

    CopyRun(columns[0], other.columns[0], CountOf(other));
    if (other.pivots) {
        if (!pivots)
            Exchange(pivots, std::move(freshPivots));
        CopyRun(pivots, other.pivots, PivotArrayLength(rowCount));
    } else {
        ReleasePivots();
    }
    return *this;
}

void MatDbl::ReSize(int rows, int cols, double* externalStorage)
{
    Init(rows, cols, externalStorage);
}

void MatDbl::ReSize(int rows, int cols, double value, double* externalStorage)
{
    Init(rows, cols, externalStorage);
    SetValue(value);
}

void MatDbl::Init(int rows, int cols, double* externalStorage)
{
    OwnedBlock const former(Shape(rows, cols, externalStorage));
}

double* MatDbl::Shape(int rows, int cols, double* externalStorage)
{
    if (rows < 1 || cols < 1)
        RaiseAllocationFailed();
    if (rows == rowCount && cols == columnCount && !isExternal)
        return nullptr;

    Owned<double*> freshTable = cols == columnCount ? nullptr : TakeOrRaise<Owned<double*>>(cols);
    double* start = columns ? columns[0] : nullptr;
    OwnedBlock former = ElementBlock<OwnedBlock>(start, isExternal)
                            .Fit(CountOf(rows, cols), CountOf(rowCount, columnCount), externalStorage);

    // Nothing below can fail.
    if (freshTable)
        Exchange(columns, std::move(freshTable));
    PointColumns(columns, start, rows, cols);
    rowCount = rows;
    columnCount = cols;
    ReleasePivots();
    return former.release();
}

void MatDbl::ReleasePivots()
{
    Exchange<Owned<int>>(pivots, nullptr);
}

// ---- Elements, rows and columns --------------------------------------------------------------------

VecDbl MatDbl::GetRow(int row) const
{
    VEXOR_CHECK(row >= 0 && row < rowCount, "index out of range");
    VecDbl result(columnCount);
    for (int j = 0; j < columnCount; ++j)
        result[j] = columns[j][row];
    return result;
}

VecDbl MatDbl::GetCol(int column) const
{
    VEXOR_CHECK(column >= 0 && column < columnCount, "index out of range");
    VecDbl result(rowCount);
    CopyRun(&result[0], columns[column], rowCount);
    return result;
}

MatDbl& MatDbl::SetRow(int row, VecDbl const& rowValues)
{
    RequireSameSize(rowValues.Size(), columnCount);
    if (row < 0 || row >= rowCount)
        RaiseDimensionMismatch();
    for (int j = 0; j < columnCount; ++j)
        columns[j][row] = rowValues[j];
    return *this;
}

MatDbl& MatDbl::SetCol(int column, VecDbl const& columnValues)
{
    RequireSameSize(columnValues.Size(), rowCount);
    if (column < 0 || column >= columnCount)
        RaiseDimensionMismatch();
    CopyRun(columns[column], &columnValues[0], rowCount);
    return *this;
}

VecDbl MatDbl::GetDiagonal() const
{
    RequireSameSize(rowCount, columnCount);
    VecDbl result(rowCount);
    for (int i = 0; i < rowCount; ++i)
        result[i] = columns[i][i];
    return result;
}

MatDbl& MatDbl::SetDiagonal(VecDbl const& diagonal)
{
    RequireSameSize(rowCount, columnCount);
    RequireSameSize(diagonal.Size(), rowCount);
    for (int i = 0; i < rowCount; ++i)
        columns[i][i] = diagonal[i];
    return *this;
}

MatDbl& MatDbl::SetDiagonal(double value)
{
    RequireSameSize(rowCount, columnCount);
    for (int i = 0; i < rowCount; ++i)
        columns[i][i] = value;
    return *this;
}

MatDbl& MatDbl::SetValue(double value)
{
    FillRun(columns[0], CountOf(*this), value);
    return *this;
}

MatDbl& MatDbl::Identity()
{
    SetValue(0.0);
    for (int i = 0; i < std::min(rowCount, columnCount); ++i)
        columns[i][i] = 1.0;
    return *this;
}

// ---- Comparison and arithmetic ---------------------------------------------------------------------

int MatDbl::operator==(MatDbl const& other)
{
    return rowCount == other.rowCount && columnCount == other.columnCount
           && AreRunsEqual(columns[0], other.columns[0], CountOf(*this));
}

MatDbl& MatDbl::operator*=(double scalar)
{
    MapRun(columns[0], columns[0], CountOf(*this), [scalar](double v) { return v * scalar; });
    return *this;
}

MatDbl& MatDbl::operator/=(double scalar)
{
    MapRun(columns[0], columns[0], CountOf(*this), [scalar](double v) { return v / scalar; });
    return *this;
}

MatDbl& MatDbl::operator+=(MatDbl const& other)
{
    RequireSameShape(*this, other);
    CombineRuns(columns[0], columns[0], other.columns[0], CountOf(*this),
                [](double a, double b) { return a + b; });
    return *this;
}

MatDbl& MatDbl::operator-=(MatDbl const& other)
{
    RequireSameShape(*this, other);
    CombineRuns(columns[0], columns[0], other.columns[0], CountOf(*this),
                [](double a, double b) { return a - b; });
    return *this;
}

MatDbl& MatDbl::Negate()
{
    MapRun(columns[0], columns[0], CountOf(*this), [](double v) { return -v; });
    return *this;
}

MatDbl& MatDbl::Transpose()
{
    if (rowCount == columnCount) {
        Init(rowCount, columnCount, isExternal ? columns[0] : nullptr); // releases a view's pivots
        TransposeSquare(rowCount, columns[0]);
        return *this;
    }
    auto const source = TakeOrRaise<OwnedBlock>(CountOf(*this));
    CopyRun(source.get(), columns[0], CountOf(*this));
    Init(columnCount, rowCount, isExternal ? columns[0] : nullptr);
    TransposeInto(columnCount, rowCount, source.get(), columns[0]);
    return *this;
}

MatDbl MatDbl::GetTransposedCopy() const
{
    MatDbl result(columnCount, rowCount);
    TransposeInto(rowCount, columnCount, columns[0], result.columns[0]);
    return result;
}

MatDbl MatDbl::GetNegatedCopy() const
{
    MatDbl result(rowCount, columnCount);
    MapRun(result.columns[0], columns[0], CountOf(*this), [](double v) { return -v; });
    return result;
}

VecDbl MatDbl::RowSum()
{
    VecDbl result(columnCount);
    for (int j = 0; j < columnCount; ++j) {
        double sum = columns[j][0];
        for (int i = 1; i < rowCount; ++i)
            sum += columns[j][i];
        result[j] = sum;
    }
    return result;
}

VecDbl MatDbl::RowAverage()
{
    VecDbl result = RowSum();
    result /= static_cast<double>(rowCount);
    return result;
}

// ---- Free operators --------------------------------------------------------------------------------
// Element (0, 0) is at the start of the block.

MatDbl operator*(MatDbl const& matrix, double scalar)
{
    MatDbl result(matrix.RowCount(), matrix.ColumnCount());
    MapRun(&result(0, 0), &matrix(0, 0), CountOf(matrix), [scalar](double v) { return v * scalar; });
    return result;
}

MatDbl operator*(double scalar, MatDbl const& matrix)
{
    return matrix * scalar;
}

MatDbl operator/(MatDbl const& matrix, double scalar)
{
    MatDbl result(matrix.RowCount(), matrix.ColumnCount());
    MapRun(&result(0, 0), &matrix(0, 0), CountOf(matrix), [scalar](double v) { return v / scalar; });
    return result;
}

MatDbl operator-(MatDbl const& matrix)
{
    return matrix.GetNegatedCopy();
}

MatDbl operator+(MatDbl const& left, MatDbl const& right)
{
    RequireSameShape(left, right);
    MatDbl result(left.RowCount(), left.ColumnCount());
    CombineRuns(&result(0, 0), &left(0, 0), &right(0, 0), CountOf(left),
                [](double a, double b) { return a + b; });
    return result;
}

MatDbl operator-(MatDbl const& left, MatDbl const& right)
{
    RequireSameShape(left, right);
    MatDbl result(left.RowCount(), left.ColumnCount());
    CombineRuns(&result(0, 0), &left(0, 0), &right(0, 0), CountOf(left),
                [](double a, double b) { return a - b; });
    return result;
}

MatDbl operator*(MatDbl const& left, MatDbl const& right)
{
    RequireSameSize(left.ColumnCount(), right.RowCount());
    MatDbl result(left.RowCount(), right.ColumnCount());
    MultiplyColumnMajor(left.RowCount(), right.ColumnCount(), left.ColumnCount(), &left(0, 0), &right(0, 0),
                        &result(0, 0));
    return result;
}

VecDbl operator*(MatDbl const& matrix, VecDbl const& vector)
{
    RequireSameSize(matrix.ColumnCount(), vector.Size());
    VecDbl result(matrix.RowCount());
    MultiplyVector(matrix.RowCount(), matrix.ColumnCount(), &matrix(0, 0), &vector[0], &result[0]);
    return result;
}

// ---- Members of VecDbl that name MatDbl --------------------------------------------------------------

MatDbl VecDbl::OuterProduct(VecDbl const& other) const
{
    // A product beyond row or column 2 would lie outside the matrix.
    if (size > 3)
        RaiseDimensionMismatch();
    VEXOR_CHECK(other.size >= size, "OuterProduct with a shorter vector");
    MatDbl result(Mat3Dbl(static_cast<double>(size)));
    for (int i = 0; i < size; ++i) {
        for (int j = 0; j < size; ++j)
            result(i, j) = values[i] * other.values[j];
    }
    return result;
}
