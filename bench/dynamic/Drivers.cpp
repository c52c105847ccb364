#include "Shapes.h"

#include <vexor/dynamic/private/Lapack.h>
#include <vexor/vexor.h>

#include <support/Bench.h>

#include <functional>
#include <memory>
#include <new>

// Each driver of MatDbl beside the call to LAPACK that it makes. Both start with a fresh copy of the
// operands in existing storage; the direct call also has existing workspace.

namespace {

using namespace vexor::detail;

/// A random matrix, symmetric if requested, with a dominant diagonal.
MatDbl Matrix(int rows, int columns, bool isSymmetric = false)
{
    std::vector<double> numbers = bench::Numbers(std::size_t(rows) * std::size_t(columns));
    MatDbl const view(rows, columns, numbers.data());
    MatDbl matrix(view); // owns its block
    for (int i = 0; i < rows && i < columns; ++i) {
        matrix(i, i) += 4.0 + i;
        for (int j = 0; isSymmetric && j < i; ++j)
            matrix(i, j) = matrix(j, i);
    }
    return matrix;
}

/// The operands, and everything that a direct call needs.
struct Problem {
    Problem(int rows, int columns, bool isSymmetric)
        : original(Matrix(rows, columns, isSymmetric)),
          matrix(original),
          rightHandSide(rows, 1.0),
          solution(rows),
          values(rows),
          vectors(rows, columns),
          work(std::size_t(140 * rows)),
          integerWork(std::size_t(5 * rows)),
          pivots(std::size_t(rows)),
          failed(std::size_t(rows)),
          m(rows),
          n(columns),
          length(128 * rows)
    {}

    double* Block() { return &matrix(0, 0); }
    void Reset()
    {
        std::memcpy(Block(), &original(0, 0), sizeof(double) * std::size_t(m) * std::size_t(n));
        std::memcpy(&solution[0], &rightHandSide[0], sizeof(double) * std::size_t(m));
    }

    MatDbl const original;
    MatDbl matrix;
    VecDbl const rightHandSide;
    VecDbl solution;
    VecDbl values;
    MatDbl vectors;
    std::vector<double> work;
    std::vector<int> integerWork;
    std::vector<int> pivots;
    std::vector<int> failed;
    int m;
    int n;
    int length;
    int one = 1;
    int info = 0;
};

using Step = std::function<void(Problem&)>;

void RegisterLibrary(std::string const& operation, char const* library, int rows, int columns,
                     bool isSymmetric, Step const& prepare, Step const& step)
{
    bench::Register(operation, library, std::to_string(columns), [=](benchmark::State& state) {
        Problem problem(rows, columns, isSymmetric);
        problem.Reset();
        prepare(problem);
        for (auto _ : state) {
            problem.Reset();
            step(problem);
            benchmark::ClobberMemory();
        }
        bench::Require(problem.info == 0, operation);
    });
}

void RegisterDriver(std::string const& operation, int rows, int columns, bool isSymmetric,
                    Step const& prepare, Step const& wrapper, Step const& direct)
{
    RegisterLibrary(operation, "vexor", rows, columns, isSymmetric, prepare, wrapper);
    RegisterLibrary(operation, "LAPACK", rows, columns, isSymmetric, prepare, direct);
}

void Nothing(Problem&) {}

void Dgesv(Problem& p)
{
    dgesv_(&p.m, &p.one, p.Block(), &p.m, p.pivots.data(), &p.solution[0], &p.m, &p.info);
}

void Dsysv(Problem& p)
{
    dsysv_("U", &p.m, &p.one, p.Block(), &p.m, p.pivots.data(), &p.solution[0], &p.m, p.work.data(),
           &p.length, &p.info, oneLetter);
}

/// Keeps one problem's factors as the start of the next ones.
void KeepFactors(Problem& p)
{
    std::memcpy(const_cast<double*>(&p.original(0, 0)), p.Block(),
                sizeof(double) * std::size_t(p.m) * std::size_t(p.n));
}

void RegisterDrivers(int n)
{
    RegisterDriver(
        "Solve", n, n, false, Nothing, [](Problem& p) { p.matrix.Solve(p.solution); }, Dgesv);
    RegisterDriver(
        "ReSolve", n, n, false,
        [](Problem& p) {
            p.matrix.Solve(p.solution);
            KeepFactors(p);
            p.matrix = p.original;
            p.matrix.Solve(p.solution); // makes the pivot array of the wrapper
            for (int i = 0; i < p.n; ++i)
                p.pivots[std::size_t(i)] = i + 1;
        },
        [](Problem& p) { p.matrix.ReSolve(p.solution); },
        [](Problem& p) {
            dgetrs_("N", &p.m, &p.one, p.Block(), &p.m, p.pivots.data(), &p.solution[0], &p.m, &p.info,
                    oneLetter);
        });
    RegisterDriver(
        "SolveSym", n, n, true, Nothing, [](Problem& p) { p.matrix.SolveSym(p.solution); }, Dsysv);
    // The direct call, with the allocation that the wrapper makes for each call.
    RegisterLibrary("SolveSym", "with workspace", n, n, true, Nothing, [](Problem& p) {
        void* const work = ::operator new(sizeof(double) * std::size_t(p.length), std::nothrow);
        bench::Require(work != nullptr, "workspace");
        dsysv_("U", &p.m, &p.one, p.Block(), &p.m, p.pivots.data(), &p.solution[0], &p.m,
               static_cast<double*>(work), &p.length, &p.info, oneLetter);
        ::operator delete(work);
    });
    RegisterDriver(
        "SolveLinearLeastSquares", 2 * n, n, false, Nothing,
        [](Problem& p) {
            p.solution.ReSize(p.m);
            std::memcpy(&p.solution[0], &p.rightHandSide[0], sizeof(double) * std::size_t(p.m));
            p.matrix.SolveLinearLeastSquares(p.solution);
            p.solution.ReSize(p.m);
        },
        [](Problem& p) {
            dgels_("N", &p.m, &p.n, &p.one, p.Block(), &p.m, &p.solution[0], &p.m, p.work.data(), &p.length,
                   &p.info, oneLetter);
        });
    RegisterDriver(
        "Invert", n, n, false, Nothing, [](Problem& p) { p.matrix.Invert(); },
        [](Problem& p) {
            p.vectors.Identity();
            dgesv_(&p.m, &p.n, p.Block(), &p.m, p.pivots.data(), &p.vectors(0, 0), &p.m, &p.info);
            std::memcpy(p.Block(), &p.vectors(0, 0), sizeof(double) * std::size_t(p.m) * std::size_t(p.n));
        });
    RegisterDriver(
        "Svd", n, n, false, Nothing, [](Problem& p) { p.matrix.Svd(p.values); },
        [](Problem& p) {
            double none = 0.0;
            dgesvd_("N", "O", &p.m, &p.n, p.Block(), &p.m, &p.values[0], &none, &p.one, &none, &p.one,
                    p.work.data(), &p.length, &p.info, oneLetter, oneLetter);
        });
    for (char const* job : {"N", "V"}) {
        bool const wantsVectors = *job == 'V';
        RegisterDriver(
            wantsVectors ? "EigenSym with vectors" : "EigenSym", n, n, true, Nothing,
            [wantsVectors](Problem& p) { p.matrix.EigenSym(p.values, wantsVectors, 0, p.n - 1); },
            [job, wantsVectors](Problem& p) {
                double const unused = 0.0;
                int const workLength = 140 * p.n;
                int found = 0;
                dsyevx_(job, "A", "U", &p.n, p.Block(), &p.n, &unused, &unused, &p.one, &p.n, &unused, &found,
                        &p.values[0], &p.vectors(0, 0), &p.n, p.work.data(), &workLength,
                        p.integerWork.data(), p.failed.data(), &p.info, oneLetter, oneLetter, oneLetter);
                for (int j = 0; wantsVectors && j < p.n; ++j) { // into rows, as the wrapper returns them
                    for (int i = 0; i < p.n; ++i)
                        p.matrix(j, i) = p.vectors(i, j);
                }
            });
    }
}

[[maybe_unused]] bool const registered = [] {
    for (int size : bench::driverSizes)
        RegisterDrivers(size);
    return true;
}();

} // namespace
