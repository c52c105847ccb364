#include <vexor/arrays/Arrays.h>

#include <array>
#include <vector>

#include <gtest/gtest.h>

// The forms of the arguments, and the arguments that are refused.

namespace {

Vec3Dbl const x(1.0, 0.0, 0.0);
Vec3Dbl const y(0.0, 1.0, 0.0);
Vec3Dbl const z(0.0, 0.0, 1.0);

/// A view like C++20's span, whose data() and size() are const.
template <class Value>
struct Span {
    Value* first;
    std::size_t count;
    Value* data() const { return first; }
    std::size_t size() const { return count; }
};

TEST(ArraysForms, Containers)
{
    std::vector<Vec3Dbl> const left = {x, y, z};
    std::array<Vec3Dbl, 3> const right = {y, z, x};
    Vec3Dbl results[3];
    vexor::arrays::Cross(left, right, results);
    EXPECT_TRUE(results[0] == z);
    EXPECT_TRUE(results[1] == x);
    EXPECT_TRUE(results[2] == y);

    std::vector<double> dots(3, 9.0);
    vexor::arrays::Dot(left, left, Span<double>{dots.data(), 3});
    EXPECT_EQ(dots, std::vector<double>(3, 1.0));
    vexor::arrays::Dot(Span<Vec3Dbl const>{left.data(), 3}, x, dots);
    EXPECT_EQ(dots, (std::vector<double>{1.0, 0.0, 0.0}));
}

TEST(ArraysForms, PointersAndACount)
{
    Vec3Dbl const left[3] = {x, y, z};
    Vec3Dbl results[3] = {x, x, x};
    vexor::arrays::Cross(left, z, results, 2);
    EXPECT_TRUE(results[0] == -y);
    EXPECT_TRUE(results[1] == x);
    EXPECT_TRUE(results[2] == x) << "behind the count";
}

TEST(ArraysForms, TolerancesOfTheCaller)
{
    std::vector<Vec3Dbl> const left = {x, y};
    std::vector<Vec3Dbl> const right = {x + y, x};
    unsigned char results[2] = {9, 9};
    vexor::arrays::IsParallelTo(left, right, results, 0.6); // the sine squared is 0.5
    EXPECT_EQ(results[0], 1);
    EXPECT_EQ(results[1], 0);
    vexor::arrays::IsParallelTo(left.data(), right.data(), results, 2, 0.4);
    EXPECT_EQ(results[0], 0);
}

TEST(ArraysForms, ScalarOfAnotherType)
{
    std::vector<Vec3Flt> const vectors = {Vec3Flt(1.0f, 2.0f, 3.0f)};
    std::vector<Vec3Flt> results(1);
    vexor::arrays::Scale(vectors, 2, results);
    EXPECT_TRUE(results[0] == Vec3Flt(2.0f, 4.0f, 6.0f));
    std::vector<float> const factors = {0.5f};
    vexor::arrays::Scale(vectors, factors, results);
    EXPECT_TRUE(results[0] == Vec3Flt(0.5f, 1.0f, 1.5f));
}

TEST(ArraysForms, OtherSizesAreRefused)
{
    std::vector<Vec3Dbl> const three(3, x);
    std::vector<Vec3Dbl> const two(2, x);
    std::vector<Vec3Dbl> results(3, z);
    std::vector<double> numbers(2, 7.0);
    EXPECT_THROW(vexor::arrays::Add(three, two, results), VexorDimensionMismatch);
    EXPECT_THROW(vexor::arrays::Add(two, three, results), VexorDimensionMismatch);
    EXPECT_THROW(vexor::arrays::Normalize(two, results), VexorDimensionMismatch);
    EXPECT_THROW(vexor::arrays::Length(three, numbers), VexorDimensionMismatch);
    EXPECT_TRUE(results[0] == z) << "written before the sizes were compared";
    EXPECT_EQ(numbers[0], 7.0);
}

TEST(ArraysForms, NothingIsDoneForNone)
{
    std::vector<Vec3Dbl> const none;
    std::vector<Vec3Dbl> results;
    EXPECT_NO_THROW(vexor::arrays::Normalize(none, results));
    Vec3Dbl const* const nowhere = nullptr;
    Vec3Dbl* const noResults = nullptr;
    EXPECT_NO_THROW(vexor::arrays::Cross(nowhere, nowhere, noResults, 0));
    EXPECT_NO_THROW(vexor::arrays::Normalize(nowhere, noResults, 0));
}

// Checked builds stop on arrays that overlap without being the same.
TEST(ArraysForms, PartialOverlapIsKnown)
{
    using vexor::arrays::detail::OverlapPartly;
    Vec3Dbl vectors[10];
    auto* const numbers = reinterpret_cast<double*>(vectors);
    EXPECT_FALSE(OverlapPartly(vectors, 10, vectors, 10)) << "one and the same";
    EXPECT_FALSE(OverlapPartly(vectors, 5, vectors + 5, 5)) << "side by side";
    EXPECT_TRUE(OverlapPartly(vectors, 5, vectors + 4, 5));
    EXPECT_TRUE(OverlapPartly(vectors + 1, 5, vectors, 5));
    EXPECT_TRUE(OverlapPartly(vectors, 5, numbers, 5)) << "numbers over vectors";
    EXPECT_FALSE(OverlapPartly(vectors, 0, vectors, 5)) << "none";
#if defined(VEXOR_CHECKED)
    EXPECT_DEATH(vexor::arrays::Cross(vectors, vectors, vectors + 1, 5), "the results overlap an operand");
#endif
}

// A null vector at place 20 of 40: the results before it, at it and after it.
TEST(ArraysForms, FailureLeavesTheRest)
{
    std::vector<Vec3Dbl> vectors(40, Vec3Dbl(3.0, 0.0, 4.0));
    vectors[20] = Vec3Dbl(0.0, -0.0, 0.0);
    EXPECT_THROW(vexor::arrays::Normalize(vectors, vectors), VexorNullVector);
    EXPECT_TRUE(vectors[0] == Vec3Dbl(0.6, 0.0, 0.8));
    EXPECT_TRUE(vectors[19] == Vec3Dbl(0.6, 0.0, 0.8));
    EXPECT_TRUE(vectors[20].IsNull());
    EXPECT_TRUE(vectors[21] == Vec3Dbl(3.0, 0.0, 4.0));
    EXPECT_TRUE(vectors[39] == Vec3Dbl(3.0, 0.0, 4.0));
}

} // namespace
