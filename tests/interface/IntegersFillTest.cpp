#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

// If a number and a pointer are both accepted, an integer is a number; a literal 0 and NULL too.

namespace {

template <class Value>
void ExpectFilled(Value const& value, int count, double expected)
{
    for (int i = 0; i < count; ++i)
        EXPECT_EQ(static_cast<double>(value[i]), expected) << i;
}

template <class Value, int count>
void LiteralsFill()
{
    ExpectFilled(Value(0), count, 0.0);
    ExpectFilled(Value(0L), count, 0.0);
    ExpectFilled(Value(0u), count, 0.0);
    ExpectFilled(Value{0}, count, 0.0);
    ExpectFilled(Value(7), count, 7.0);
    ExpectFilled(Value(-7), count, -7.0);
    ExpectFilled(Value(true), count, 1.0);
    ExpectFilled(Value('\x05'), count, 5.0);
    Value const converted = 0;
    ExpectFilled(converted, count, 0.0);
    Value set(1);
    ExpectFilled(set.SetValue(0), count, 0.0);
    EXPECT_EQ(&set.SetValue(3), &set);
    ExpectFilled(set, count, 3.0);
    ExpectFilled(set.SetValue(0L), count, 0.0);
}

} // namespace

TEST(IntegersFill, FixedSizes)
{
    LiteralsFill<Vec3Dbl, 3>();
    LiteralsFill<Vec3Flt, 3>();
    LiteralsFill<Vec2Dbl, 2>();
    LiteralsFill<Vec2Flt, 2>();
    LiteralsFill<Vec2Int, 2>();
    LiteralsFill<Pnt3Dbl, 3>();
    LiteralsFill<Pnt3Flt, 3>();
    LiteralsFill<Pnt2Dbl, 2>();
    LiteralsFill<Pnt2Flt, 2>();
}

TEST(IntegersFill, AreRoundedOnce)
{
    // 2^53 + 1 and 2^24 + 1 are midpoints between two numbers of their class and round to the even one.
    EXPECT_EQ(Vec3Dbl(9007199254740993LL).x, 9007199254740992.0);
    EXPECT_EQ(Vec3Flt(16777217).x, 16777216.0f);
    // The single nearest to 2^60 + 2^36 + 1 is above it; rounding to a double first would give the one below.
    EXPECT_EQ(Vec3Flt(1152921573326323713LL).x, 1152921642045800448.0f);
}

TEST(IntegersFill, PointersAreRead)
{
    double doubles[3] = {1.0, 2.0, 3.0};
    EXPECT_EQ(Vec3Dbl(doubles), Vec3Dbl(1.0, 2.0, 3.0));
    EXPECT_EQ(Pnt3Dbl(doubles), Pnt3Dbl(1.0, 2.0, 3.0));
    int integers[2] = {4, 5};
    EXPECT_EQ(Vec2Int(integers), Vec2Int(4, 5));
    EXPECT_EQ(VecDbl(3, doubles)[2], 3.0);
}

TEST(IntegersFill, SizedStorage)
{
    VecDbl const doubles(6, 0);
    EXPECT_EQ(doubles.Size(), 6);
    ExpectFilled(doubles, 6, 0.0);
    ExpectFilled(VecFlt(6, 0), 6, 0.0);
    ExpectFilled(VecDbl(2, 5), 2, 5.0);
    ExpectFilled(VecFlt(2, -5L), 2, -5.0);
    ExpectFilled(VecDbl(4).SetValue(0), 4, 0.0);
    ExpectFilled(VecFlt(4).SetValue(0), 4, 0.0);
    MatDbl const matrix(2, 3, 0);
    EXPECT_EQ(matrix.RowCount(), 2);
    EXPECT_EQ(matrix.ColumnCount(), 3);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(matrix(i % 2, i / 2), 0.0);
    EXPECT_EQ(MatDbl(1, 1, 4)(0, 0), 4.0);
    EXPECT_THROW(VecDbl(0, 0), VexorAllocationFailed);
    EXPECT_THROW(MatDbl(0, 1, 0), VexorAllocationFailed);
}

TEST(IntegersFill, AnIntegerThatIsNoLiteralFillsOnReSize)
{
    VecDbl vector(2, 1);
    vector.ReSize(3, 5);
    ExpectFilled(vector, 3, 5.0);
    int const zero[1] = {0};
    vector.ReSize(3, zero[0]);
    ExpectFilled(vector, 3, 0.0);
}

TEST(Sizes, AreExplicit)
{
    EXPECT_EQ(VecDbl(3).Size(), 3);
    EXPECT_EQ(VecFlt(3).Size(), 3);
    EXPECT_EQ(VecDbl{4}.Size(), 4);
    EXPECT_THROW(VecDbl(0), VexorAllocationFailed);
    EXPECT_THROW(VecFlt(-1), VexorAllocationFailed);
}

TEST(UInt64Conversions, BothSignedTypesOf64Bits)
{
    UInt64 const negative(-5);
    std::int64_t const b = negative;
    EXPECT_EQ(b, -5);
    EXPECT_EQ(static_cast<std::int64_t>(negative), -5);
    EXPECT_EQ(static_cast<long long>(negative), -5);
    UInt64 const large(0x7fffffffffffffff);
    EXPECT_EQ(static_cast<std::int64_t>(large), 0x7fffffffffffffff);
    EXPECT_EQ(static_cast<long long>(large), 0x7fffffffffffffff);
    EXPECT_EQ(static_cast<double>(negative), -5.0);
    EXPECT_EQ(static_cast<int>(negative), -5);
}
