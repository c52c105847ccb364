#include "Shapes.h"

#include <vexor/vexor.h>

#include <support/Bench.h>

// The products and the transposition of MatDbl, and OpenBLAS on the same operands. Each vexor result is
// a new matrix or vector, as the operators return it; DGEMM and DGEMV write to an existing one, except in
// the row that says otherwise.

extern "C" {
void dgemm_(char const* transa, char const* transb, int const* m, int const* n, int const* k,
            double const* alpha, double const* a, int const* lda, double const* b, int const* ldb,
            double const* beta, double* c, int const* ldc, std::size_t, std::size_t);
void dgemv_(char const* trans, int const* m, int const* n, double const* alpha, double const* a,
            int const* lda, double const* x, int const* incx, double const* beta, double* y, int const* incy,
            std::size_t);
char const* openblas_get_corename(void);
}

namespace {

MatDbl Matrix(int rows, int columns, unsigned seed)
{
    std::vector<double> numbers = bench::Numbers(std::size_t(rows) * std::size_t(columns), seed);
    MatDbl const view(rows, columns, numbers.data());
    return MatDbl(view); // owns its block
}

std::vector<double> Elements(MatDbl const& matrix)
{
    double const* const block = &matrix(0, 0);
    return std::vector<double>(block,
                               block + std::size_t(matrix.RowCount()) * std::size_t(matrix.ColumnCount()));
}

std::vector<double> Elements(VecDbl const& vector)
{
    return std::vector<double>(&vector[0], &vector[0] + vector.Size());
}

MatDbl PlainProduct(MatDbl const& left, MatDbl const& right)
{
    MatDbl result(left.RowCount(), right.ColumnCount(), 0.0);
    for (int j = 0; j < right.ColumnCount(); ++j) {
        for (int k = 0; k < right.RowCount(); ++k) {
            for (int i = 0; i < left.RowCount(); ++i) {
                double const term = right(k, j) * left(i, k);
                result(i, j) = result(i, j) + term;
            }
        }
    }
    return result;
}

void Dgemm(MatDbl const& left, MatDbl const& right, MatDbl& result)
{
    int const rows = left.RowCount();
    int const columns = right.ColumnCount();
    int const inner = left.ColumnCount();
    double const one = 1.0;
    double const zero = 0.0;
    dgemm_("N", "N", &rows, &columns, &inner, &one, &left(0, 0), &rows, &right(0, 0), &inner, &zero,
           &result(0, 0), &rows, 1, 1);
}

void Dgemv(MatDbl const& matrix, VecDbl const& vector, VecDbl& result)
{
    int const rows = matrix.RowCount();
    int const columns = matrix.ColumnCount();
    int const step = 1;
    double const one = 1.0;
    double const zero = 0.0;
    dgemv_("N", &rows, &columns, &one, &matrix(0, 0), &rows, &vector[0], &step, &zero, &result[0], &step, 1);
}

void RegisterProduct(bench::ProductShape shape)
{
    std::string const name = shape.Name();
    bench::Register("Product", "vexor", name, [shape](benchmark::State& state) {
        MatDbl const left = Matrix(shape.rows, shape.inner, 1);
        MatDbl const right = Matrix(shape.inner, shape.columns, 2);
        bench::RequireSameBits(Elements(left * right), Elements(PlainProduct(left, right)), "Product");
        for (auto _ : state) {
            MatDbl const result = left * right;
            benchmark::DoNotOptimize(&result(0, 0));
            benchmark::ClobberMemory();
        }
    });
    bench::Register("Product", "OpenBLAS", name, [shape](benchmark::State& state) {
        MatDbl const left = Matrix(shape.rows, shape.inner, 1);
        MatDbl const right = Matrix(shape.inner, shape.columns, 2);
        MatDbl result(shape.rows, shape.columns, 0.0);
        Dgemm(left, right, result);
        bench::RequireClose(Elements(result), Elements(left * right), "DGEMM");
        for (auto _ : state) {
            Dgemm(left, right, result);
            benchmark::ClobberMemory();
        }
    });
    bench::Register("Product", "OpenBLAS, new result", name, [shape](benchmark::State& state) {
        MatDbl const left = Matrix(shape.rows, shape.inner, 1);
        MatDbl const right = Matrix(shape.inner, shape.columns, 2);
        for (auto _ : state) {
            MatDbl result(shape.rows, shape.columns, nullptr);
            Dgemm(left, right, result);
            benchmark::DoNotOptimize(&result(0, 0));
            benchmark::ClobberMemory();
        }
    });
    if (shape.rows <= 256) {
        bench::Register("Product", "plain loops", name, [shape](benchmark::State& state) {
            MatDbl const left = Matrix(shape.rows, shape.inner, 1);
            MatDbl const right = Matrix(shape.inner, shape.columns, 2);
            for (auto _ : state) {
                MatDbl const result = PlainProduct(left, right);
                benchmark::DoNotOptimize(&result(0, 0));
                benchmark::ClobberMemory();
            }
        });
    }
}

void RegisterVector(int size)
{
    std::string const name = std::to_string(size);
    bench::Register("MatrixTimesVector", "vexor", name, [size](benchmark::State& state) {
        MatDbl const matrix = Matrix(size, size, 1);
        MatDbl const column = Matrix(size, 1, 2);
        VecDbl const vector = column.GetCol(0);
        bench::RequireSameBits(Elements(matrix * vector), Elements(PlainProduct(matrix, column)),
                               "MatrixTimesVector");
        for (auto _ : state) {
            VecDbl const result = matrix * vector;
            benchmark::DoNotOptimize(&result[0]);
            benchmark::ClobberMemory();
        }
    });
    bench::Register("MatrixTimesVector", "OpenBLAS", name, [size](benchmark::State& state) {
        MatDbl const matrix = Matrix(size, size, 1);
        VecDbl const vector = Matrix(size, 1, 2).GetCol(0);
        VecDbl result(size);
        for (auto _ : state) {
            Dgemv(matrix, vector, result);
            benchmark::ClobberMemory();
        }
        bench::RequireClose(Elements(result), Elements(matrix * vector), "DGEMV");
    });
    bench::Register("MatrixTimesSingleVector", "vexor", name, [size](benchmark::State& state) {
        MatDbl const matrix = Matrix(size, size, 1);
        VecFlt vector;
        vector = Matrix(size, 1, 2).GetCol(0);
        for (auto _ : state) {
            VecFlt const result = matrix * vector;
            benchmark::DoNotOptimize(&result[0]);
            benchmark::ClobberMemory();
        }
    });
}

void RegisterTranspose(int size)
{
    std::string const name = std::to_string(size);
    bench::Register("Transpose", "vexor", name, [size](benchmark::State& state) {
        MatDbl matrix = Matrix(size, size, 1);
        MatDbl const original(matrix);
        matrix.Transpose();
        for (int i = 0; i < size; ++i) {
            for (int j = 0; j < size; ++j)
                bench::Require(matrix(i, j) == original(j, i), "Transpose");
        }
        for (auto _ : state) {
            matrix.Transpose();
            benchmark::ClobberMemory();
        }
    });
    bench::Register("GetTransposedCopy", "vexor", name, [size](benchmark::State& state) {
        MatDbl const matrix = Matrix(size, size, 1);
        for (auto _ : state) {
            MatDbl const result = matrix.GetTransposedCopy();
            benchmark::DoNotOptimize(&result(0, 0));
            benchmark::ClobberMemory();
        }
        MatDbl const result = matrix.GetTransposedCopy();
        for (int i = 0; i < size; ++i) {
            for (int j = 0; j < size; ++j)
                bench::Require(result(i, j) == matrix(j, i), "GetTransposedCopy");
        }
    });
    // A lower bound for every transposed copy: the result is allocated, and its bytes are written.
    bench::Register("GetTransposedCopy", "moving alone", name, [size](benchmark::State& state) {
        MatDbl const matrix = Matrix(size, size, 1);
        std::size_t const bytes = sizeof(double) * std::size_t(size) * std::size_t(size);
        for (auto _ : state) {
            MatDbl result(size, size);
            std::memcpy(&result(0, 0), &matrix(0, 0), bytes);
            benchmark::DoNotOptimize(&result(0, 0));
            benchmark::ClobberMemory();
        }
    });
}

[[maybe_unused]] bool const registered = [] {
    benchmark::AddCustomContext("openblas", openblas_get_corename());
    for (bench::ProductShape const& shape : bench::productShapes)
        RegisterProduct(shape);
    for (int size : bench::vectorSizes)
        RegisterVector(size);
    for (int size : bench::transposeSizes)
        RegisterTranspose(size);
    return true;
}();

} // namespace
