// Distinct objects in many threads: nothing in the library is shared but the tolerances, which all of
// them read. Under ThreadSanitizer this proves that there is no hidden state.

#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

/// A little of everything on objects of this thread's own; a number that depends on all of it.
double Work(int seed)
{
    double sum = 0.0;
    for (int round = 1; round <= 40; ++round) {
        double const value = seed + round * 0.125;
        Vec3Dbl vector(value, 1.0, -value);
        vector.Rotate(Vec3Dbl(0, 0, 1), value);
        sum += vector.IsParallelTo(Vec3Dbl(1, 2, 3)) + vector.GetPerpendicular().x;

        Mat3Dbl small(Vec3Dbl(4, 1, 0), Vec3Dbl(1, value + 5, 2), Vec3Dbl(0, 2, 9));
        Vec3Dbl eigenvalues;
        Mat3Dbl(small).EigenSym(eigenvalues, 1);
        small.Solve(vector);
        sum += vector.z + eigenvalues.y;

        MatDbl dense(6, 6, 0.25);
        dense.SetDiagonal(value + 8);
        MatDbl const product = dense * dense;
        VecDbl right(6, value);
        dense.Solve(right);
        VecDbl spectrum;
        MatDbl(product).EigenSym(spectrum, 1, 0, 5);
        VecDbl singular;
        MatDbl(product).Svd(singular);
        sum += right[3] + spectrum[5] - singular[0];
        try {
            MatDbl(2, 2, 1.0).Invert();
        } catch (VexorComputationFailed const&) {
            sum += 1.0;
        }
        sum += Quaternion(Vec3Dbl(0, 1, 0), value, 0).RotatePoint(Vec3Dbl(1, 0, 0)).x;
    }
    return sum;
}

} // namespace

TEST(Threads, DistinctObjectsAreIndependent)
{
    constexpr int threads = 8;
    std::vector<double> expected;
    for (int i = 0; i < threads; ++i)
        expected.push_back(Work(i));

    std::vector<double> results(threads);
    std::vector<std::thread> running;
    for (int i = 0; i < threads; ++i)
        running.emplace_back([&results, i] { results[static_cast<std::size_t>(i)] = Work(i); });
    for (std::thread& each : running)
        each.join();
    EXPECT_EQ(results, expected);
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
