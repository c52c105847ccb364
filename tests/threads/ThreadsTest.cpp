// Distinct objects in many threads: the library shares only the tolerances, which all threads read. Each
// operation runs in several threads at once, with operands of each thread's own, and must give the same
// result as alone. ThreadSanitizer also detects shared state that does not change a result.

#include "../transcript/Operations.h"
#if defined(VEXOR_THREADS_OF_ARRAYS)
#    include "../transcript/ArrayOperations.h"
#endif

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using transcript::Class;
using transcript::PlainVecDbl;
using transcript::Source;
using transcript::Transcript;

#if defined(__SANITIZE_THREAD__)
constexpr int rounds = 5000;
#elif defined(__has_feature)
#    if __has_feature(thread_sanitizer)
constexpr int rounds = 5000;
#    else
constexpr int rounds = 20000;
#    endif
#else
constexpr int rounds = 20000;
#endif

// ---- What rests on LAPACK, which the transcript leaves out -------------------------------------------------

MatDbl PlainMatDbl(Source& source, int rows, int columns)
{
    MatDbl matrix(rows, columns);
    for (int j = 0; j < columns; ++j)
        matrix.SetCol(j, PlainVecDbl(source, rows));
    return matrix;
}

/// A square system. The matrix is symmetric, and sometimes singular.
struct System {
    explicit System(Source& source) : n(1 + source.Below(20)), a(n, n), b(n), several(n, 3)
    {
        MatDbl const any = PlainMatDbl(source, n, n);
        a = any + any.GetTransposedCopy();
        if (source.Below(8) == 0)
            a *= 0.0;
        b = PlainVecDbl(source, n);
        several = PlainMatDbl(source, n, 3);
    }
    int n;
    MatDbl a;
    VecDbl b;
    MatDbl several;
};

void RunSolve(Transcript& out, Source& source)
{
    System s(source);
    out.Try([&] { return s.a.Solve(s.b), s.b; });
    out.Try([&] { return s.a.ReSolve(s.several), s.several; });
}

void RunSolveSeveral(Transcript& out, Source& source)
{
    System s(source);
    out.Try([&] { return s.a.Solve(s.several), s.several; });
    out.Try([&] { return s.a.ReSolve(s.b), s.b; });
}

void RunSolveSym(Transcript& out, Source& source)
{
    System s(source);
    out.Try([&] { return s.a.SolveSym(s.b), s.b; });
    out.Try([&] { return s.a.ReSolveSym(s.several), s.several; });
    out.Try([&] { return s.a.ReSolveSym(s.b), s.b; });
}

void RunLeastSquares(Transcript& out, Source& source)
{
    int const rows = 1 + source.Below(20);
    int const columns = 1 + source.Below(20);
    MatDbl const a = PlainMatDbl(source, rows, columns);
    VecDbl b = PlainVecDbl(source, rows);
    MatDbl several = PlainMatDbl(source, rows, 2);
    out.Try([&] { return MatDbl(a).SolveLinearLeastSquares(b), b; });
    out.Try([&] { return MatDbl(a).SolveLinearLeastSquares(several), several; });
}

void RunInvert(Transcript& out, Source& source)
{
    System s(source);
    out.Try([&] { return s.a.GetInvertedCopy(); });
    out.Try([&] { return s.a.Invert(), s.a; });
}

void RunSvd(Transcript& out, Source& source)
{
    int const rows = 1 + source.Below(20);
    MatDbl a = PlainMatDbl(source, rows, 1 + source.Below(20));
    VecDbl values;
    out.Try([&] { return a.Svd(values), values; });
    Mat3Dbl fixed = transcript::AnyMat3Dbl(source);
    Vec3Dbl three;
    out.Try([&] { return fixed.Svd(three), three; });
}

void RunEigenSym(Transcript& out, Source& source)
{
    System s(source);
    VecDbl values;
    MatDbl copy(s.a);
    out.Try([&] { return copy.EigenSym(values, 0, 0, s.n - 1), values; });
    out.Try([&] { return s.a.EigenSym(values, 1, 0, s.n - 1), s.a; });
}

void RunStorage(Transcript& out, Source& source)
{
    int const size = 1 + source.Below(40);
    double block[40 * 40];
    MatDbl view(size, size, 0.5, block);
    view.SetDiagonal(PlainVecDbl(source, size));
    view.SetRow(size - 1, PlainVecDbl(source, size));
    out.Add(view.Transpose());
    out.Add(view.GetDiagonal());
    MatDbl resized(view);
    resized.ReSize(1, size * size);
    out.Add(resized);
    VecDbl vector(size, block);
    vector.ReSize(size + 1, 2.0);
    out.Add(vector);
    out.Try([&] { return vector.OuterProduct(vector); });
    resized = MatDbl(transcript::AnyMat3Dbl(source));
    out.Add(resized);
}

/// Little but transpositions, so that two of them meet.
void RunTranspose(Transcript& out, Source& source)
{
    int const rows = 30 + source.Below(30);
    int const columns = 30 + source.Below(30);
    MatDbl a = PlainMatDbl(source, rows, columns);
    for (int i = 0; i < 20; ++i)
        a.Transpose();
    out.Add(a);
}

/// Further operations, and those of the transcript.
std::vector<Class> AllOperations()
{
    std::vector<Class> operations = {
        {"Solve", RunSolve, 40},         {"Solve, several", RunSolveSeveral, 40},
        {"SolveSym", RunSolveSym, 40},   {"least squares", RunLeastSquares, 40},
        {"Invert", RunInvert, 40},       {"Svd", RunSvd, 80},
        {"EigenSym", RunEigenSym, 80},   {"storage", RunStorage, 20},
        {"Transpose", RunTranspose, 40},
    };
    for (Class each : transcript::classes) {
        if (each.share == 1)
            each.share = 20;
        operations.push_back(each);
    }
#if defined(VEXOR_THREADS_OF_ARRAYS)
    for (Class each : transcript::arrayClasses) {
        each.share *= 10;
        operations.push_back(each);
    }
#endif
    return operations;
}

std::uint64_t HashOf(Class const& operation, int seed)
{
    Transcript out;
    Source source(static_cast<std::uint64_t>(seed));
    for (int i = 0; i < rounds; i += operation.share)
        operation.run(out, source);
    return out.Hash();
}

} // namespace

TEST(Threads, DistinctObjectsAreIndependent)
{
    constexpr int threads = 4;
    for (Class const& operation : AllOperations()) {
        std::vector<std::uint64_t> expected;
        for (int i = 0; i < threads; ++i)
            expected.push_back(HashOf(operation, i));
        ASSERT_NE(expected[0], Transcript().Hash()) << operation.name << " gave no result";

        std::vector<std::uint64_t> results(threads);
        std::vector<std::thread> running;
        std::atomic<int> waiting{threads};
        for (int i = 0; i < threads; ++i)
            running.emplace_back([&, i] {
                --waiting;
                while (waiting > 0) // all start together
                    std::this_thread::yield();
                results[static_cast<std::size_t>(i)] = HashOf(operation, i);
            });
        for (std::thread& each : running)
            each.join();
        EXPECT_EQ(results, expected) << operation.name;
    }
}

TEST(Threads, EveryThreadReadsTheSameTolerances)
{
    gVexorTolerance.SetLength(0.5);
    std::vector<int> answers(4);
    std::vector<std::thread> running;
    for (std::size_t i = 0; i < answers.size(); ++i)
        running.emplace_back([&answers, i] { answers[i] = Vec3Dbl(0.25, 0, 0).IsZeroLength(); });
    for (std::thread& each : running)
        each.join();
    gVexorTolerance = VexorTolerance();
    EXPECT_EQ(answers, std::vector<int>(4, 1));
}
