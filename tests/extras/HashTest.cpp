#include <vexor/extras/hash.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <unordered_map>
#include <unordered_set>

namespace {

template <class Value>
std::size_t Hash(Value const& value)
{
    return std::hash<Value>()(value);
}

TEST(Hash, EqualValuesHashAlikeWhateverTheSignOfAZero)
{
    EXPECT_EQ(Hash(Vec3Dbl(0.0, 1, 2)), Hash(Vec3Dbl(-0.0, 1, 2)));
    EXPECT_EQ(Hash(Vec3Flt(0.0f, 1, 2)), Hash(Vec3Flt(-0.0f, 1, 2)));
    EXPECT_EQ(Hash(Vec2Dbl(1, 0.0)), Hash(Vec2Dbl(1, -0.0)));
    EXPECT_EQ(Hash(Vec2Flt(1, 0.0f)), Hash(Vec2Flt(1, -0.0f)));
    EXPECT_EQ(Hash(Pnt3Dbl(0.0, 1, 2)), Hash(Pnt3Dbl(-0.0, 1, 2)));
    EXPECT_EQ(Hash(Pnt3Flt(0.0f, 1, 2)), Hash(Pnt3Flt(-0.0f, 1, 2)));
    EXPECT_EQ(Hash(Pnt2Dbl(1, 0.0)), Hash(Pnt2Dbl(1, -0.0)));
    EXPECT_EQ(Hash(Pnt2Flt(1, 0.0f)), Hash(Pnt2Flt(1, -0.0f)));
    EXPECT_EQ(Hash(VecDbl(3, 0.0)), Hash(VecDbl(3, -0.0)));
    EXPECT_EQ(Hash(VecFlt(3, 0.0f)), Hash(VecFlt(3, -0.0f)));
    EXPECT_EQ(Hash(Vec2Int(3, 4)), Hash(Vec2Int(3, 4)));
    EXPECT_EQ(Hash(UInt64(-1)), Hash(UInt64(-1)));
}

TEST(Hash, OrderAndNumberOfElementsCount)
{
    EXPECT_NE(Hash(Vec3Dbl(1, 2, 3)), Hash(Vec3Dbl(3, 2, 1)));
    EXPECT_NE(Hash(VecDbl(2, 0.0)), Hash(VecDbl(3, 0.0)));
}

TEST(Hash, AGridOfPointsDoesNotCollide)
{
    std::unordered_set<std::size_t> hashes;
    for (int x = -20; x < 20; ++x) {
        for (int y = -20; y < 20; ++y) {
            for (int z = -20; z < 20; ++z)
                hashes.insert(Hash(Pnt3Dbl(x, y, z)));
        }
    }
    EXPECT_EQ(hashes.size(), 64000u);
}

TEST(Hash, KeysOfContainers)
{
    std::unordered_map<Pnt3Dbl, int> vertices;
    vertices[Pnt3Dbl(0, 0, 0)] = 7;
    EXPECT_EQ(vertices.at(Pnt3Dbl(-0.0, 0, 0)), 7);
    std::unordered_set<UInt64> counters = {UInt64(1), UInt64(2), UInt64(1)};
    EXPECT_EQ(counters.size(), 2u);
    EXPECT_EQ(counters.count(UInt64(2)), 1u);
    std::unordered_set<VecDbl> vectors;
    vectors.insert(VecDbl(2, 1.0));
    EXPECT_EQ(vectors.count(VecDbl(2, 1.0)), 1u);
}

} // namespace
