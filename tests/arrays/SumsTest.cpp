#include <arrays/Loops.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <thread>

// Sums.h: the stated order, written again here, every way to share the work, and the error.

namespace {

using namespace arrays_test;
using vexor::arrays::blockSize;

// ---- The order, as it is stated ----------------------------------------------------------------------------

/// Combines neighbours until one is left.
template <class Value, class Operation>
Value InPairs(std::vector<Value> values, Operation operation)
{
    while (values.size() > 1) {
        std::vector<Value> next;
        for (std::size_t i = 0; i < values.size(); i += 2)
            next.push_back(i + 1 < values.size() ? operation(values[i], values[i + 1]) : values[i]);
        values = next;
    }
    return values.at(0);
}

/// The sum of numbers with that many running sums that take turns.
double StatedSum(std::vector<double> const& numbers, std::size_t runningSums)
{
    auto const plus = [](double a, double b) { return a + b; };
    std::vector<double> blocks;
    for (std::size_t begin = 0; begin < numbers.size(); begin += blockSize) {
        std::vector<double> running(runningSums, 0.0);
        for (std::size_t i = begin; i < std::min(numbers.size(), begin + blockSize); ++i) {
            running[(i - begin) % runningSums] += numbers[i];
        }
        blocks.push_back(InPairs(running, plus));
    }
    return blocks.empty() ? 0.0 : InPairs(blocks, plus);
}

template <class Value>
constexpr std::size_t runningSumsOf = std::size_t(24 / numberCount<Value>);

template <class Value>
std::vector<double> Component(std::vector<Value> const& values, int k)
{
    std::vector<double> numbers;
    for (Value const& value : values) {
        Number<Value> number;
        std::memcpy(&number, reinterpret_cast<unsigned char const*>(&value) + std::size_t(k) * sizeof number,
                    sizeof number);
        numbers.push_back(double(number));
    }
    return numbers;
}

template <class Result>
double NumberAt(Result const& result, int k)
{
    double number = 0.0;
    std::memcpy(&number, reinterpret_cast<unsigned char const*>(&result) + std::size_t(k) * sizeof number,
                sizeof number);
    return number;
}

constexpr std::size_t counts[] = {0,   1,    2,    7,    8,    9,    23,    24,    25,    100,
                                  200, 4095, 4096, 4097, 8191, 8192, 12287, 12289, 28672, 40961};

template <class Value>
class ArraysSums : public testing::Test {};
using Values =
    testing::Types<double, float, Vec3Dbl, Vec3Flt, Vec2Dbl, Vec2Flt, Pnt3Dbl, Pnt3Flt, Pnt2Dbl, Pnt2Flt>;
TYPED_TEST_SUITE(ArraysSums, Values, );

TYPED_TEST(ArraysSums, SumHasTheStatedOrder)
{
    Operands operands(11);
    for (std::size_t count : counts) {
        auto const values = operands.Many<TypeParam>(count, Kind::Ordinary);
        Block<TypeParam> block(values, count);
        WithEachSet([&](std::string const& set) {
            auto const sum = vexor::arrays::Sum(block.Data(), count);
            for (int k = 0; k < numberCount<TypeParam>; ++k)
                EXPECT_SAME_BITS(NumberAt(sum, k), StatedSum(Component(values, k), runningSumsOf<TypeParam>))
                    << set << ", " << count;
        });
    }
}

// The kernels begin at a multiple of a register's length and end with a part of one.
TYPED_TEST(ArraysSums, EveryCountAndAlignment)
{
    Operands operands(17);
    auto const strewn = operands.Many<TypeParam>(200, Kind::Strewn);
    std::vector<TypeParam> negativeZeros(200);
    for (TypeParam& value : negativeZeros) {
        for (int k = 0; k < numberCount<TypeParam>; ++k)
            SetNumber(value, k, -0.0);
    }
    for (auto const& all : {strewn, negativeZeros}) {
        for (std::size_t count = 0; count <= 200; ++count) {
            std::vector<TypeParam> const values(all.begin(), all.begin() + std::ptrdiff_t(count));
            for (std::size_t offset = 0; offset < 4; ++offset) {
                Block<TypeParam> block(values, count, offset);
                WithEachSet([&](std::string const& set) {
                    auto const sum = vexor::arrays::Sum(block.Data(), count);
                    auto const box = vexor::arrays::BoundingBox(block.Data(), count);
                    for (int k = 0; k < numberCount<TypeParam>; ++k) {
                        EXPECT_SAME_BITS(NumberAt(sum, k),
                                         StatedSum(Component(values, k), runningSumsOf<TypeParam>))
                            << set << ", " << count << ", " << offset;
                        double least = vexor_test::infinity;
                        for (double number : Component(values, k))
                            least = number < least ? number : least;
                        EXPECT_EQ(Component(std::vector<TypeParam>{box.lower}, k)[0], least)
                            << set << ", " << count << ", " << offset;
                    }
                });
            }
        }
    }
}

TYPED_TEST(ArraysSums, BoundingBoxPassesOverNaN)
{
    Operands operands(12);
    for (std::size_t count : counts) {
        for (Kind kind : {Kind::Ordinary, Kind::Strewn}) {
            auto const values = operands.Many<TypeParam>(count, kind);
            WithEachSet([&](std::string const& set) {
                auto const box = vexor::arrays::BoundingBox(values);
                for (int k = 0; k < numberCount<TypeParam>; ++k) {
                    double least = vexor_test::infinity;
                    double greatest = -vexor_test::infinity;
                    for (double number : Component(values, k)) {
                        if (std::isnan(number))
                            continue;
                        least = std::min(least, number);
                        greatest = std::max(greatest, number);
                    }
                    // Equal as numbers: the order determines whether 0 or −0 is kept.
                    EXPECT_EQ(Component(std::vector<TypeParam>{box.lower}, k)[0], least)
                        << set << ", " << count;
                    EXPECT_EQ(Component(std::vector<TypeParam>{box.upper}, k)[0], greatest)
                        << set << ", " << count;
                }
            });
        }
    }
}

// The sign of a zero in a box, and everything else, is the same in every instruction set.
TYPED_TEST(ArraysSums, AllSetsGiveTheSameBox)
{
    Operands operands(13);
    for (std::size_t count : counts) {
        std::vector<TypeParam> values(count);
        for (TypeParam& value : values) {
            for (int k = 0; k < numberCount<TypeParam>; ++k)
                SetNumber(value, k, operands.Pick(2) ? 0.0 : -0.0);
        }
        vexor::arrays::detail::chosen = vexor::arrays::detail::RunnableSet(0);
        auto const plain = vexor::arrays::BoundingBox(values);
        WithEachSet([&](std::string const& set) {
            auto const box = vexor::arrays::BoundingBox(values);
            EXPECT_TRUE(SameNumbers(box.lower, plain.lower) && SameNumbers(box.upper, plain.upper))
                << set << ", " << count;
        });
    }
}

template <class Value>
class ArraysCovariance : public testing::Test {};
using PlacedValues = testing::Types<Pnt3Dbl, Pnt3Flt, Pnt2Dbl, Pnt2Flt, Vec3Dbl>;
TYPED_TEST_SUITE(ArraysCovariance, PlacedValues, );

TYPED_TEST(ArraysCovariance, HasTheStatedOrder)
{
    constexpr int size = numberCount<TypeParam>;
    Operands operands(14);
    for (std::size_t count : counts) {
        if (count == 0)
            continue;
        auto const values = operands.Many<TypeParam>(count, Kind::Ordinary);
        std::vector<double> differences[size];
        double centre[size];
        for (int k = 0; k < size; ++k) {
            differences[k] = Component(values, k);
            centre[k] = StatedSum(differences[k], runningSumsOf<TypeParam>) / double(count);
            for (double& number : differences[k])
                number -= centre[k];
        }
        WithEachSet([&](std::string const& set) {
            auto const centroid = vexor::arrays::Centroid(values);
            auto const covariance = vexor::arrays::Covariance(values.data(), values.size());
            for (int i = 0; i < size; ++i) {
                EXPECT_SAME_BITS(NumberAt(centroid, i), centre[i]) << set << ", " << count;
                for (int k = 0; k < size; ++k) {
                    std::vector<double> products;
                    for (std::size_t n = 0; n < count; ++n)
                        products.push_back(differences[i][n] * differences[k][n]);
                    EXPECT_SAME_BITS(covariance(i, k), StatedSum(products, 8) / double(count))
                        << set << ", " << count << ", element " << i << ", " << k;
                }
            }
        });
    }
}

TEST(ArraysSumsOfNone, AreZeroOrRaise)
{
    std::vector<Pnt3Dbl> const none;
    EXPECT_TRUE(vexor::arrays::Sum(none) == Vec3Dbl(0.0));
    EXPECT_THROW(vexor::arrays::Centroid(none), VexorComputationFailed);
    EXPECT_THROW(vexor::arrays::Covariance(none), VexorComputationFailed);
    auto const box = vexor::arrays::BoundingBox(none);
    EXPECT_EQ(box.lower.x, vexor_test::infinity);
    EXPECT_EQ(box.upper.z, -vexor_test::infinity);
    std::vector<double> const numbers = {3.0, -1.0, 2.0};
    EXPECT_EQ(vexor::arrays::MinMax(numbers).lower, -1.0);
    EXPECT_EQ(vexor::arrays::MinMax(numbers).upper, 3.0);
}

// ---- Cuts --------------------------------------------------------------------------------------------------

/// Points that a script in another language generates too: three numbers in [−1, 1) from the bits of a linear
/// congruential generator, scaled by powers of two.
std::vector<Pnt3Dbl> ScriptPoints(std::size_t count)
{
    std::uint64_t state = 1;
    auto const next = [&state] {
        state = state * 6364136223846793005u + 1442695040888963407u;
        double const number = double(state >> 11U) * 0x1p-52 - 1.0;
        return std::ldexp(number, int((state >> 3U) % 17U));
    };
    std::vector<Pnt3Dbl> points(count);
    for (Pnt3Dbl& point : points) {
        point.x = next();
        point.y = next();
        point.z = next();
    }
    return points;
}

constexpr std::size_t scriptCount = 100003;

/// The bits of the sum of those points, computed by tests/arrays/stated_sum.py.
constexpr std::uint64_t scriptBits[3] = {0x414e0acdfcd1baacu, 0xc13a08260699b1a9u, 0x4146a820d246c920u};

void ExpectScriptSum(Vec3Dbl const& sum, std::string const& what)
{
    EXPECT_EQ(vexor_test::Bits(sum.x), scriptBits[0]) << what;
    EXPECT_EQ(vexor_test::Bits(sum.y), scriptBits[1]) << what;
    EXPECT_EQ(vexor_test::Bits(sum.z), scriptBits[2]) << what;
}

TEST(ArraysCuts, TheWholeArray)
{
    auto const points = ScriptPoints(scriptCount);
    WithEachSet([&](std::string const& set) { ExpectScriptSum(vexor::arrays::Sum(points), set); });
}

// Any number of threads, each with a range of the blocks.
TEST(ArraysCuts, AnyNumberOfThreads)
{
    auto const points = ScriptPoints(scriptCount);
    std::size_t const blocks = vexor::arrays::BlockCount(points.size());
    for (std::size_t threadCount = 1; threadCount <= 8; ++threadCount) {
        std::vector<Vec3Dbl> partials(blocks);
        std::vector<std::thread> threads;
        for (std::size_t t = 0; t < threadCount; ++t) {
            threads.emplace_back([&, t] {
                for (std::size_t b = t * blocks / threadCount; b < (t + 1) * blocks / threadCount; ++b) {
                    std::size_t const begin = b * blockSize;
                    partials[b] = vexor::arrays::SumOfBlock(points.data() + begin,
                                                            std::min(blockSize, points.size() - begin));
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        ExpectScriptSum(vexor::arrays::CombineAll(partials.data(), blocks, Vec3Dbl(0.0)),
                        std::to_string(threadCount) + " threads");
    }
}

// Blocks whose sums are computed in any order.
TEST(ArraysCuts, AnyOrderOfTheBlocks)
{
    auto const points = ScriptPoints(scriptCount);
    std::vector<std::size_t> blocks(vexor::arrays::BlockCount(points.size()));
    std::iota(blocks.begin(), blocks.end(), std::size_t(0));
    std::mt19937 engine(16);
    for (int round = 0; round < 5; ++round) {
        std::shuffle(blocks.begin(), blocks.end(), engine);
        std::vector<Vec3Dbl> partials(blocks.size());
        for (std::size_t b : blocks) {
            std::size_t const begin = b * blockSize;
            partials[b] =
                vexor::arrays::SumOfBlock(points.data() + begin, std::min(blockSize, points.size() - begin));
        }
        ExpectScriptSum(vexor::arrays::CombineAll(partials.data(), partials.size(), Vec3Dbl(0.0)),
                        "shuffled");
    }
}

// ---- The error ---------------------------------------------------------------------------------------------

// Numbers that are integer multiples of 2^-40 and cancel except for a known rest: the exact sum is known, the
// ratio of Σ|x| to it is 10^12.
TEST(ArraysError, StaysWithinTheBoundForSumsThatCancel)
{
    std::mt19937_64 engine(15);
    std::vector<double> numbers;
    double magnitudes = 0.0;
    for (int i = 0; i < 50000; ++i) {
        double const number = std::ldexp(double(engine() >> 12U), -40); // up to 2^12, integer multiples
        numbers.push_back(number);
        numbers.push_back(-number);
        magnitudes += 2.0 * number;
    }
    double const rest = 0x1p-10;
    numbers.push_back(rest);
    std::shuffle(numbers.begin(), numbers.end(), engine);

    double const blocks = double(vexor::arrays::BlockCount(numbers.size()));
    double const bound = (171.0 + 5.0 + std::ceil(std::log2(blocks))) * 0x1p-53 * magnitudes;
    EXPECT_LE(std::fabs(vexor::arrays::Sum(numbers) - rest), bound);
}

// The next tests use numbers whose exact sums are known, and in which a small addend is half a last place of a large
// running sum: each of them is lost. So the errors come close to their bounds. A loop that adds all 131,072 elements to
// one sum, or all of a block, exceeds the bounds. All numbers below are exact unless a rounding is named.

constexpr std::size_t manyCount = 1U << 17U; // 32 blocks; a product with it is exact
constexpr double sumBound = (512.0 + 3.0 + 5.0) * 0x1p-53;
constexpr double covarianceBound = (519.0 + 5.0) * 0x1p-53;

TEST(ArraysError, OfCentroidStaysWithinTheBound)
{
    // x: 1 and small addends; 131,070 · 2^-53 of them.
    // y: the large numbers, in different running sums of the first block, cancel to 2^-37 of their magnitude.
    // z: far from the origin: 2^22 and multiples of 2^-30.
    std::vector<Pnt3Dbl> points(manyCount, Pnt3Dbl(0x1p-53, 0x1p-53, 0.0));
    points[0].x = 1.0;
    points[1].x = 0x1p-52;
    points[0].y = 1.5;
    points[7].y = -1.5;
    std::mt19937_64 engine(19);
    double offsets = 0.0;
    for (Pnt3Dbl& point : points) {
        double const offset = double(engine() % 1024U) * 0x1p-30;
        offsets += offset;
        point.z = 0x1p+22 + offset;
    }
    double const n = double(manyCount);
    double const sumOfX = 1.0 + n * 0x1p-53;
    double const sumOfY = (n - 2.0) * 0x1p-53;
    WithEachSet([&](std::string const& set) {
        Pnt3Dbl const centroid = vexor::arrays::Centroid(points);
        EXPECT_LE(std::fabs(centroid.x * n - sumOfX), (sumBound + 0x1p-53) * sumOfX) << set;
        EXPECT_LE(std::fabs(centroid.y * n - sumOfY), sumBound * 3.0 + 0x1p-53 * sumOfY) << set;
        EXPECT_LE(std::fabs((centroid.z - 0x1p+22) - offsets / n), (sumBound + 0x1p-53) * (0x1p+22 + 1e-6))
            << set;
    });
}

TEST(ArraysError, OfCovarianceStaysWithinTheBound)
{
    // The centroid is exactly 0. The squares are 2.25 twice and 2^-52, half the last place of 2.25.
    std::vector<Pnt3Dbl> points;
    for (std::size_t i = 0; i < manyCount; ++i) {
        double const number = (i % 2 == 0 ? 1.0 : -1.0) * (i < 2 ? 1.5 : 0x1p-26);
        points.emplace_back(number, 2.0 * number, -number);
    }
    double const n = double(manyCount);
    double const rest = (n - 2.0) * 0x1p-52;
    WithEachSet([&](std::string const& set) {
        ASSERT_TRUE(vexor::arrays::Centroid(points) == Pnt3Dbl(0.0, 0.0, 0.0));
        Mat3Dbl const covariance = vexor::arrays::Covariance(points);
        constexpr double factors[] = {1.0, 2.0, -1.0};
        for (int i = 0; i < 3; ++i) {
            for (int k = 0; k < 3; ++k) {
                double const sum = covariance(i, k) * n / (factors[i] * factors[k]);
                EXPECT_LE(std::fabs((sum - 4.5) - rest), covarianceBound * (4.5 + rest))
                    << set << ", " << i << k;
            }
        }
    });
}

// Points near (2^30, −2^29, 2^30), whose distances from it are integer multiples of 2^-20: the exact covariance is a
// quotient of integers. The digits that a single pass would keep are fewer than those that cancel.
TEST(ArraysError, OfCovarianceFarFromTheOriginStaysWithinTheBound)
{
    constexpr std::int64_t count = 1 << 13;
    constexpr double origin[] = {0x1p+30, -0x1p+29, 0x1p+30};
    std::mt19937_64 engine(20);
    std::vector<Pnt3Dbl> points;
    std::int64_t sums[3] = {};
    std::int64_t products[3][3] = {};
    std::vector<std::array<std::int64_t, 3>> steps;
    for (std::int64_t n = 0; n < count; ++n) {
        std::array<std::int64_t, 3> step;
        for (std::int64_t& each : step)
            each = std::int64_t(engine() >> 45U) - (1 << 18); // below 2^18 in magnitude
        step[2] = step[0] + step[1] / 16;                     // nearly in a plane
        steps.push_back(step);
        points.emplace_back(origin[0] + double(step[0]) * 0x1p-20, origin[1] + double(step[1]) * 0x1p-20,
                            origin[2] + double(step[2]) * 0x1p-20);
        for (int i = 0; i < 3; ++i) {
            sums[i] += step[std::size_t(i)];
            for (int k = 0; k < 3; ++k)
                products[i][k] += step[std::size_t(i)] * step[std::size_t(k)];
        }
    }
    WithEachSet([&](std::string const& set) {
        Pnt3Dbl const centroid = vexor::arrays::Centroid(points);
        Mat3Dbl const covariance = vexor::arrays::Covariance(points);
        double errors[3];
        for (int i = 0; i < 3; ++i) {
            double const exact = double(sums[i]) * 0x1p-20 / double(count);
            errors[i] = std::fabs((NumberAt(centroid, i) - origin[i]) - exact);
            double const bound = (512.0 + 3.0 + 1.0 + 1.0) * 0x1p-53 * (0x1p+30 + 1.0);
            EXPECT_LE(errors[i], bound) << set << ", " << i;
        }
        for (int i = 0; i < 3; ++i) {
            for (int k = 0; k < 3; ++k) {
                // Integers below 2^63; the conversion rounds once, and so do the products below.
                std::int64_t const integer = count * products[i][k] - sums[i] * sums[k];
                double const exact = double(integer) * 0x1p-40 / (double(count) * double(count));
                double magnitudes = 0.0;
                for (auto const& step : steps)
                    magnitudes +=
                        std::fabs((double(step[std::size_t(i)]) - double(sums[i]) / double(count))
                                  * (double(step[std::size_t(k)]) - double(sums[k]) / double(count)));
                magnitudes *= 0x1p-40 / double(count);
                EXPECT_LE(std::fabs(covariance(i, k) - exact),
                          (519.0 + 1.0 + 1.0) * 0x1p-53 * magnitudes + errors[i] * errors[k])
                    << set << ", element " << i << ", " << k;
            }
        }
    });
}

} // namespace
