#include "Shapes.h"

#include <support/Bench.h>

#include <Eigen/Dense>

// Eigen on the operands of the other files, built for this CPU and allowed to fuse.

namespace {

using Matrix = Eigen::MatrixXd;
using Vector = Eigen::VectorXd;

Matrix MakeMatrix(int rows, int columns, unsigned seed)
{
    std::vector<double> const numbers = bench::Numbers(std::size_t(rows) * std::size_t(columns), seed);
    return Eigen::Map<Matrix const>(numbers.data(), rows, columns);
}

void RegisterProduct(bench::ProductShape shape)
{
    bench::Register("Product", "Eigen", shape.Name(), [shape](benchmark::State& state) {
        Matrix const left = MakeMatrix(shape.rows, shape.inner, 1);
        Matrix const right = MakeMatrix(shape.inner, shape.columns, 2);
        Matrix result(shape.rows, shape.columns);
        for (auto _ : state) {
            result.noalias() = left * right;
            benchmark::DoNotOptimize(result.data());
            benchmark::ClobberMemory();
        }
    });
}

void RegisterVector(int size)
{
    bench::Register("MatrixTimesVector", "Eigen", std::to_string(size), [size](benchmark::State& state) {
        Matrix const matrix = MakeMatrix(size, size, 1);
        Vector const vector = MakeMatrix(size, 1, 2);
        Vector result(size);
        for (auto _ : state) {
            result.noalias() = matrix * vector;
            benchmark::DoNotOptimize(result.data());
            benchmark::ClobberMemory();
        }
    });
}

void RegisterTranspose(int size)
{
    bench::Register("Transpose", "Eigen", std::to_string(size), [size](benchmark::State& state) {
        Matrix matrix = MakeMatrix(size, size, 1);
        for (auto _ : state) {
            matrix.transposeInPlace();
            benchmark::DoNotOptimize(matrix.data());
            benchmark::ClobberMemory();
        }
    });
    // A lower bound for every transposition in place: each element is read and written in place, in
    // order and with the widest registers, and only changes its sign.
    bench::Register("Transpose", "moving alone", std::to_string(size), [size](benchmark::State& state) {
        Matrix matrix = MakeMatrix(size, size, 1);
        for (auto _ : state) {
            matrix = -matrix;
            benchmark::DoNotOptimize(matrix.data());
            benchmark::ClobberMemory();
        }
    });
    bench::Register("GetTransposedCopy", "Eigen", std::to_string(size), [size](benchmark::State& state) {
        Matrix const matrix = MakeMatrix(size, size, 1);
        for (auto _ : state) {
            Matrix const result = matrix.transpose();
            benchmark::DoNotOptimize(result.data());
            benchmark::ClobberMemory();
        }
    });
}

void RegisterSums(int size)
{
    bench::Register("Dot", "Eigen", std::to_string(size), [size](benchmark::State& state) {
        Vector const left = MakeMatrix(size, 1, 1);
        Vector const right = MakeMatrix(size, 1, 2);
        for (auto _ : state) {
            double const sum = left.dot(right);
            benchmark::DoNotOptimize(sum);
            benchmark::ClobberMemory();
        }
    });
}

[[maybe_unused]] bool const registered = [] {
    for (bench::ProductShape const& shape : bench::productShapes)
        RegisterProduct(shape);
    for (int size : bench::vectorSizes)
        RegisterVector(size);
    for (int size : bench::transposeSizes)
        RegisterTranspose(size);
    for (int size : bench::sumSizes)
        RegisterSums(size);
    return true;
}();

} // namespace
