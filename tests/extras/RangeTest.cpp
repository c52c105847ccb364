#include <vexor/extras/range.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <type_traits>
#include <vector>

namespace {

template <class Value>
std::vector<double> Elements(Value const& value)
{
    std::vector<double> elements;
    for (auto const element : value)
        elements.push_back(static_cast<double>(element));
    return elements;
}

using Doubles = std::vector<double>;

TEST(Range, RunsOverTheComponentsInOrder)
{
    EXPECT_EQ(Elements(Vec3Dbl(1, 2, 3)), (Doubles{1, 2, 3}));
    EXPECT_EQ(Elements(Vec3Flt(1, 2, 3)), (Doubles{1, 2, 3}));
    EXPECT_EQ(Elements(Vec2Dbl(1, 2)), (Doubles{1, 2}));
    EXPECT_EQ(Elements(Vec2Flt(1, 2)), (Doubles{1, 2}));
    EXPECT_EQ(Elements(Vec2Int(1, 2)), (Doubles{1, 2}));
    EXPECT_EQ(Elements(Pnt3Dbl(1, 2, 3)), (Doubles{1, 2, 3}));
    EXPECT_EQ(Elements(Pnt3Flt(1, 2, 3)), (Doubles{1, 2, 3}));
    EXPECT_EQ(Elements(Pnt2Dbl(1, 2)), (Doubles{1, 2}));
    EXPECT_EQ(Elements(Pnt2Flt(1, 2)), (Doubles{1, 2}));
    EXPECT_EQ(Elements(vexor::Vector({1, 2, 3, 4})), (Doubles{1, 2, 3, 4}));
    EXPECT_EQ(Elements(VecFlt(2, 0.5f)), (Doubles{0.5, 0.5}));
}

TEST(Range, FixedMatricesRunAlongTheirRowsAndMatDblDownItsColumns)
{
    EXPECT_EQ(Elements(Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4))), (Doubles{1, 2, 3, 4}));
    EXPECT_EQ(Elements(Mat3Dbl(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 9))),
              (Doubles{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(Elements(vexor::Matrix({{1, 2, 3}, {4, 5, 6}})), (Doubles{1, 4, 2, 5, 3, 6}));
}

TEST(Range, WritesThroughReferences)
{
    Vec3Dbl vector(1, 2, 3);
    for (double& element : vector)
        element *= 2;
    EXPECT_EQ(vector, Vec3Dbl(2, 4, 6));
    MatDbl matrix = vexor::Matrix({{3, 1}, {2, 0}});
    std::sort(begin(matrix), end(matrix));
    EXPECT_TRUE(matrix == vexor::Matrix({{0, 2}, {1, 3}}));
}

TEST(Range, ConstObjectsGiveConstElements)
{
    Mat3Dbl const matrix(1.0);
    static_assert(std::is_same_v<decltype(begin(matrix)), double const*>);
    static_assert(std::is_same_v<decltype(data(matrix)), double const*>);
    VecDbl const vector(3, 2.0);
    static_assert(std::is_same_v<decltype(begin(vector)), double const*>);
    EXPECT_EQ(std::accumulate(begin(matrix), end(matrix), 0.0), 9.0);
    EXPECT_EQ(size(matrix), 9u);
    EXPECT_EQ(size(vector), 3u);
    EXPECT_EQ(data(vector), &vector[0]);
}

TEST(Range, ListsRefuseWhatIsNoMatrix)
{
    EXPECT_THROW(vexor::Matrix({{1, 2}, {3}}), VexorDimensionMismatch);
    EXPECT_THROW(vexor::Matrix({{}, {}}), VexorAllocationFailed);
    EXPECT_THROW(vexor::Matrix({}), VexorAllocationFailed);
    EXPECT_THROW(vexor::Vector({}), VexorAllocationFailed);
    MatDbl const matrix = vexor::Matrix({{1, 2}, {3, 4}});
    EXPECT_EQ(matrix(0, 1), 2);
    EXPECT_EQ(matrix(1, 0), 3);
}

} // namespace
