// Sequences of operations on a pool of vectors and matrices of run-time size, with own and callers'
// storage, in any order, compared with a model of shapes, storage, elements and factorisation.
//
// Built with clang's libFuzzer, or with Replay.cpp, which runs the committed corpus without it.

#include "../support/Sizes.h"

#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <vector>

namespace {

#define REQUIRE(condition)                                                                                   \
    ((condition) ? static_cast<void>(0)                                                                      \
                 : (std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition), std::abort()))

/// An element in the model; empty if the interface does not define it.
using Cell = std::optional<double>;

bool Same(double actual, Cell const& expected)
{
    if (!expected || (actual != actual && *expected != *expected))
        return true;
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): compares bytes on purpose
    return std::memcmp(&actual, &*expected, sizeof actual) == 0;
}

/// The bytes of one run, read as small numbers; zeros after the last byte.
class Bytes {
public:
    Bytes(std::uint8_t const* first, std::size_t count) : next(first), end(first + count) {}

    bool AreLeft() const { return next != end; }
    int Below(int bound) { return next == end ? 0 : *next++ % bound; }
    double Number()
    {
        static double const special[] = {0.0, -0.0, 1.0, -2.0, 1e-300, 1e300, 5e-324, 0.1, 3.0, -7.5};
        int const choice = Below(64);
        return choice < 10 ? special[choice] : (choice - 30) * 0.25;
    }

    /// Sizes for a vector or for one side of a matrix: mostly small, refused ones among them, up to sizes::allUpTo,
    /// and seldom one of the larger ones.
    int Size()
    {
        int const choice = Below(128);
        if (choice < 2)
            return choice - 1;
        return choice < 80 ? 1 + choice % 7 : choice < 120 ? choice - 79 : Larger(choice - 120);
    }
    int Larger(int choice) { return sizes::larger[choice < 7 ? choice % 4 : 4 + Below(2)] - 1 + Below(3); }

private:
    std::uint8_t const* next;
    std::uint8_t const* end;
};

// ---- The pool and its model ------------------------------------------------------------------------------

constexpr int blockSize = sizes::matricesUpTo * sizes::matricesUpTo;
constexpr int poolSize = 4;

/// A caller's block for that many elements, or −1 for the object's own storage.
int DrawnBlock(Bytes& bytes, long long count)
{
    int const block = bytes.Below(poolSize + 1) - 1;
    return count <= blockSize ? block : -1;
}

/// Where an object's elements are: in a caller's block, shared by all its views, or in its own.
struct Storage {
    int block = -1; // the caller's block, or −1
    std::vector<Cell> own;
};

struct Pool {
    double blocks[poolSize][blockSize] = {};
    std::vector<Cell> blockModel[poolSize];

    VecDbl vectors[poolSize];
    struct VectorModel {
        int size = 1;
        Storage storage{-1, {Cell()}};
    } vectorModel[poolSize];

    MatDbl matrices[poolSize];
    struct MatrixModel {
        int rows = 1;
        int columns = 1;
        bool factorised = false;
        Storage storage{-1, {Cell()}};
    } matrixModel[poolSize];

    Pool()
    {
        for (auto& model : blockModel)
            model.assign(blockSize, Cell(0.0));
    }

    Cell& At(Storage& storage, int index)
    {
        auto const place = static_cast<std::size_t>(index);
        return storage.block < 0 ? storage.own[place] : blockModel[storage.block][place];
    }

    /// The effect of Init on the model. An own object of the requested shape is kept, whatever the pointer.
    void InitVector(int v, int size, int block)
    {
        VectorModel& model = vectorModel[v];
        if (size == model.size && model.storage.block < 0)
            return;
        model.size = size;
        model.storage = Storage{block, std::vector<Cell>(block < 0 ? static_cast<std::size_t>(size) : 0)};
    }

    void InitMatrix(int m, int rows, int columns, int block)
    {
        MatrixModel& model = matrixModel[m];
        if (rows == model.rows && columns == model.columns && model.storage.block < 0)
            return;
        bool const keeps =
            block < 0 && model.storage.block < 0 && rows * columns == model.rows * model.columns;
        if (!keeps)
            model.storage =
                Storage{block, std::vector<Cell>(block < 0 ? static_cast<std::size_t>(rows * columns) : 0)};
        model.rows = rows;
        model.columns = columns;
        model.factorised = false;
    }

    bool ShareStorage(Storage const& a, Storage const& b) const { return a.block >= 0 && a.block == b.block; }

    /// Copies what a LAPACK driver left, which the model does not predict.
    void ForgetMatrix(int m)
    {
        MatrixModel& model = matrixModel[m];
        for (int i = 0; i < model.rows * model.columns; ++i)
            At(model.storage, i) = Cell();
    }
    void ForgetVector(int v)
    {
        for (int i = 0; i < vectorModel[v].size; ++i)
            At(vectorModel[v].storage, i) = Cell();
    }

    void Check()
    {
        for (int v = 0; v < poolSize; ++v) {
            VectorModel& model = vectorModel[v];
            REQUIRE(vectors[v].Size() == model.size);
            REQUIRE((&vectors[v][0] == blocks[model.storage.block < 0 ? 0 : model.storage.block])
                    == (model.storage.block >= 0));
            for (int i = 0; i < model.size; ++i)
                REQUIRE(Same(vectors[v][i], At(model.storage, i)));
        }
        for (int m = 0; m < poolSize; ++m) {
            MatrixModel& model = matrixModel[m];
            REQUIRE(matrices[m].RowCount() == model.rows && matrices[m].ColumnCount() == model.columns);
            REQUIRE((&matrices[m](0, 0) == blocks[model.storage.block < 0 ? 0 : model.storage.block])
                    == (model.storage.block >= 0));
            for (int j = 0; j < model.columns; ++j)
                for (int i = 0; i < model.rows; ++i)
                    REQUIRE(Same(matrices[m](i, j), At(model.storage, j * model.rows + i)));
        }
    }
};

/// The exception of an operation: 0 nothing, 1 dimensions, 2 computation, 3 allocation, 4 a null vector.
template <class Operation>
int Raised(Operation operation)
{
    try {
        operation();
    } catch (VexorDimensionMismatch const&) {
        return 1;
    } catch (VexorComputationFailed const&) {
        return 2;
    } catch (VexorAllocationFailed const&) {
        return 3;
    } catch (VexorNullVector const&) {
        return 4;
    }
    return 0;
}

Cell Sum(Cell const& a, Cell const& b)
{
    return a && b ? Cell(*a + *b) : Cell();
}

// ---- The operations --------------------------------------------------------------------------------------

/// Operations that read all elements, compared with plain loops.
void RequireReductions(VecDbl const& a, VecDbl const& b)
{
    bool equal = true, null = true;
    double sum = 0.0, most = -1e20;
    for (int i = 0; i < a.Size(); ++i) {
        equal = equal && a[i] == b[i];
        null = null && a[i] == 0.0;
        sum += a[i];
        most = a[i] > most ? a[i] : most;
    }
    REQUIRE((a == b) == equal && (a != b) == !equal);
    REQUIRE(a.IsNull() == null);
    REQUIRE(Same(a.Sum(), sum));
    REQUIRE(Same(a.MaxValue(), most));
}

void RequireReductions(MatDbl& a, MatDbl& b)
{
    bool equal = true;
    VecDbl const sums = a.RowSum();
    MatDbl const difference = a - b;
    for (int j = 0; j < a.ColumnCount(); ++j) {
        double sum = a(0, j);
        for (int i = 0; i < a.RowCount(); ++i) {
            equal = equal && a(i, j) == b(i, j);
            sum = i > 0 ? sum + a(i, j) : sum;
            REQUIRE(Same(difference(i, j), a(i, j) - b(i, j)));
        }
        REQUIRE(Same(sums[j], sum));
    }
    REQUIRE((a == b) == equal && (a != b) == !equal);
}

void StepOnVectors(Pool& pool, Bytes& bytes)
{
    int const v = bytes.Below(poolSize);
    int const w = bytes.Below(poolSize);
    auto& model = pool.vectorModel[v];
    auto& other = pool.vectorModel[w];
    switch (bytes.Below(8)) {
    case 0: {
        int const size = bytes.Size(); // −1 and 0 are refused
        int const block = DrawnBlock(bytes, size);
        int const raised =
            Raised([&] { pool.vectors[v].ReSize(size, block < 0 ? nullptr : pool.blocks[block]); });
        REQUIRE(raised == (size < 1 ? 3 : 0));
        if (size >= 1)
            pool.InitVector(v, size, block);
        break;
    }
    case 1: {
        bool const selfView = v == w && model.storage.block >= 0;
        std::vector<Cell> copy;
        for (int i = 0; i < other.size; ++i)
            copy.push_back(selfView ? Cell() : pool.At(other.storage, i));
        VecDbl const& source = pool.vectors[w];
        pool.vectors[v] = source;
        pool.InitVector(v, static_cast<int>(copy.size()), -1);
        for (int i = 0; i < model.size; ++i)
            pool.At(model.storage, i) = copy[static_cast<std::size_t>(i)];
        break;
    }
    case 2: {
        double const value = bytes.Number();
        pool.vectors[v].SetValue(value);
        for (int i = 0; i < model.size; ++i)
            pool.At(model.storage, i) = value;
        break;
    }
    case 3: {
        int const raised = Raised([&] { pool.vectors[v] += pool.vectors[w]; });
        REQUIRE(raised == (model.size != other.size));
        if (!raised)
            for (int i = 0; i < model.size; ++i)
                pool.At(model.storage, i) = Sum(pool.At(model.storage, i), pool.At(other.storage, i));
        break;
    }
    case 4: {
        int const index = bytes.Below(model.size);
        double const value = bytes.Number();
        pool.vectors[v][index] = value;
        pool.At(model.storage, index) = value;
        break;
    }
    case 5: {
        VecDbl copy(pool.vectors[v]);
        REQUIRE(copy.Size() == model.size);
        REQUIRE(&copy[0] != &pool.vectors[v][0]);
        RequireReductions(copy, pool.vectors[v]);
        copy[model.size - 1 - bytes.Below(model.size)] = 1e19;
        RequireReductions(copy, pool.vectors[v]);
        break;
    }
    case 6:
        REQUIRE(Raised([&] { (void)pool.vectors[v].IsParallelTo(pool.vectors[w]); })
                == (model.size != other.size));
        break;
    default: {
        double scale = bytes.Number();
        pool.vectors[v] *= scale;
        for (int i = 0; i < model.size; ++i)
            if (Cell& cell = pool.At(model.storage, i))
                *cell *= scale;
        break;
    }
    }
}

void StepOnMatrices(Pool& pool, Bytes& bytes)
{
    int const m = bytes.Below(poolSize);
    int const n = bytes.Below(poolSize);
    auto& model = pool.matrixModel[m];
    auto& other = pool.matrixModel[n];
    switch (bytes.Below(10)) {
    case 9: {
        MatDbl copy(pool.matrices[m]);
        RequireReductions(copy, pool.matrices[m]);
        copy(bytes.Below(model.rows), bytes.Below(model.columns)) = 1e19;
        RequireReductions(copy, pool.matrices[m]);
        break;
    }
    case 0: {
        int const rows = bytes.Size();
        int columns = bytes.Size();
        if (rows > sizes::matricesUpTo || columns > sizes::matricesUpTo)
            columns = rows > columns ? 1 + columns % 4 : columns; // a long and narrow one
        if (columns > sizes::matricesUpTo && rows > 4)
            columns = 3;
        int const block = DrawnBlock(bytes, 1LL * rows * columns);
        int const raised =
            Raised([&] { pool.matrices[m].ReSize(rows, columns, block < 0 ? nullptr : pool.blocks[block]); });
        REQUIRE(raised == (rows < 1 || columns < 1 ? 3 : 0));
        if (!raised)
            pool.InitMatrix(m, rows, columns, block);
        break;
    }
    case 1: {
        bool const selfView = m == n && model.storage.block >= 0;
        bool const factorised = other.factorised;
        int const rows = other.rows;
        int const columns = other.columns;
        std::vector<Cell> copy;
        for (int i = 0; i < rows * columns; ++i)
            copy.push_back(selfView ? Cell() : pool.At(other.storage, i));
        MatDbl const& source = pool.matrices[n];
        pool.matrices[m] = source;
        pool.InitMatrix(m, rows, columns, -1);
        for (int i = 0; i < rows * columns; ++i)
            pool.At(model.storage, i) = copy[static_cast<std::size_t>(i)];
        model.factorised = m == n ? model.factorised : factorised;
        break;
    }
    case 2: {
        int const rows = model.rows;
        int const columns = model.columns;
        std::vector<Cell> copy;
        for (int i = 0; i < rows * columns; ++i)
            copy.push_back(pool.At(model.storage, i));
        pool.matrices[m].Transpose();
        if (rows != columns || model.storage.block >= 0)
            model.factorised = false;
        model.rows = columns;
        model.columns = rows;
        for (int j = 0; j < model.columns; ++j)
            for (int i = 0; i < model.rows; ++i)
                pool.At(model.storage, j * model.rows + i) = copy[static_cast<std::size_t>(i * rows + j)];
        break;
    }
    case 3: {
        pool.matrices[m].Identity();
        for (int j = 0; j < model.columns; ++j)
            for (int i = 0; i < model.rows; ++i)
                pool.At(model.storage, j * model.rows + i) = i == j ? 1.0 : 0.0;
        break;
    }
    case 4: {
        int const row = bytes.Below(model.rows);
        int const column = bytes.Below(model.columns);
        double const value = bytes.Number();
        pool.matrices[m](row, column) = value;
        pool.At(model.storage, column * model.rows + row) = value;
        break;
    }
    case 5: {
        int const raised = Raised([&] { pool.matrices[m] += pool.matrices[n]; });
        REQUIRE(raised == (model.rows != other.rows || model.columns != other.columns));
        if (!raised)
            for (int i = 0; i < model.rows * model.columns; ++i)
                pool.At(model.storage, i) = Sum(pool.At(model.storage, i), pool.At(other.storage, i));
        break;
    }
    case 6:
        REQUIRE(Raised([&] {
                    MatDbl const product = pool.matrices[m] * pool.matrices[n];
                    REQUIRE(product.RowCount() == model.rows && product.ColumnCount() == other.columns);
                })
                == (model.columns != other.rows));
        break;
    case 7: {
        double const value = bytes.Number();
        int const raised = Raised([&] { pool.matrices[m].SetDiagonal(value); });
        REQUIRE(raised == (model.rows != model.columns));
        if (!raised)
            for (int i = 0; i < model.rows; ++i)
                pool.At(model.storage, i * model.rows + i) = value;
        break;
    }
    default: {
        double const value = bytes.Number();
        pool.matrices[m].SetValue(value);
        for (int i = 0; i < model.rows * model.columns; ++i)
            pool.At(model.storage, i) = value;
        break;
    }
    }
}

/// The operations that reach LAPACK. The right-hand side never shares storage with the matrix.
void StepOnSolvers(Pool& pool, Bytes& bytes)
{
    int const m = bytes.Below(poolSize);
    int const v = bytes.Below(poolSize);
    MatDbl& matrix = pool.matrices[m];
    VecDbl& vector = pool.vectors[v];
    auto& model = pool.matrixModel[m];
    auto& right = pool.vectorModel[v];
    bool const square = model.rows == model.columns;
    bool const fits = right.size == model.rows;
    int const operation = bytes.Below(8);
    if (pool.ShareStorage(model.storage, right.storage))
        return;

    int raised = 0;
    switch (operation) {
    case 0:
    case 1:
        raised = Raised([&] { operation ? matrix.SolveSym(vector) : matrix.Solve(vector); });
        REQUIRE((raised == 1) == (!square || !fits));
        if (raised == 1)
            return;
        model.factorised = true;
        break;
    case 2:
    case 3:
        raised = Raised([&] { operation == 2 ? matrix.ReSolve(vector) : matrix.ReSolveSym(vector); });
        REQUIRE((raised == 1) == (!square || !fits));
        REQUIRE(raised != 0 || model.factorised);
        if (raised)
            return; // nothing has changed, as the check that follows shows
        break;
    case 4: {
        int const rows = model.rows;
        raised = Raised([&] { matrix.SolveLinearLeastSquares(vector); });
        REQUIRE((raised == 1) == !fits);
        if (raised == 1)
            return;
        model.factorised = false;
        pool.ForgetVector(v); // the driver ran in a caller's block before the vector was detached
        if (rows < model.columns || (raised == 0 && rows > model.columns))
            pool.InitVector(v, model.columns, -1);
        break;
    }
    case 5:
        raised = Raised([&] { matrix.Invert(); });
        REQUIRE((raised == 1) == !square);
        if (raised == 1)
            return;
        pool.ForgetMatrix(m); // the factors, left in a caller's block
        if (raised == 0) {
            pool.InitMatrix(m, model.rows, model.columns, -1);
            model.factorised = false;
        } else {
            model.factorised = true;
        }
        pool.ForgetMatrix(m);
        return;
    case 6: {
        bool isFinite = true;
        for (int j = 0; j < model.columns; ++j)
            for (int i = 0; i < model.rows; ++i)
                isFinite = isFinite && std::isfinite(matrix(i, j));
        raised = Raised([&] { matrix.Svd(vector); });
        REQUIRE(raised == 0 || raised == 2);
        pool.InitVector(v, model.rows < model.columns ? model.rows : model.columns, -1);
        if (!isFinite) {
            REQUIRE(raised == 2);
            pool.ForgetVector(v);
            return; // the matrix is refused, unchanged
        }
        break;
    }
    default: {
        int const first = bytes.Below(model.rows + 2);
        int const last = bytes.Below(model.rows + 2);
        bool const legal = square && first <= last && last < model.rows;
        int const wanted = bytes.Below(2);
        raised = Raised([&] { matrix.EigenSym(vector, wanted, first, last); });
        REQUIRE((raised == 1) == !legal);
        if (raised == 1)
            return;
        pool.InitVector(v, model.rows, -1);
        break;
    }
    }
    pool.ForgetMatrix(m);
    pool.ForgetVector(v);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    Pool pool;
    Bytes bytes(data, size);
    for (int step = 0; step < 200 && bytes.AreLeft(); ++step) {
        switch (bytes.Below(4)) {
        case 0:
            StepOnVectors(pool, bytes);
            break;
        case 1:
        case 2:
            StepOnMatrices(pool, bytes);
            break;
        default:
            StepOnSolvers(pool, bytes);
        }
        pool.Check();
    }
    return 0;
}
