#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>

namespace {

// A signalling NaN by its bits: the exponent is all ones, the first bit of the fraction, which would make it
// quiet, is 0, and another bit of the fraction is set.
bool IsSignalling(double const& value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & 0x7ff8000000000000) == 0x7ff0000000000000 && (bits & 0x0007ffffffffffff) != 0;
}

bool IsSignalling(float const& value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & 0x7fc00000) == 0x7f800000 && (bits & 0x003fffff) != 0;
}

template <class Vector>
void ExpectUnset(Vector const& vector, int size)
{
    for (int i = 0; i < size; ++i)
        EXPECT_TRUE(IsSignalling(vector[i])) << i;
}

template <class Vector>
void ExpectUnset(Vector const& vector)
{
    ExpectUnset(vector, vector.Size());
}

void ExpectUnset(MatDbl const& matrix)
{
    for (int i = 0; i < matrix.RowCount(); ++i) {
        for (int j = 0; j < matrix.ColumnCount(); ++j)
            EXPECT_TRUE(IsSignalling(matrix(i, j))) << i << ' ' << j;
    }
}

} // namespace

TEST(CheckedUnset, VectorsAndPoints)
{
    ExpectUnset(Vec3Dbl(), 3);
    ExpectUnset(Vec3Flt(), 3);
    ExpectUnset(Vec2Dbl(), 2);
    ExpectUnset(Vec2Flt(), 2);
    ExpectUnset(Pnt3Dbl(), 3);
    ExpectUnset(Pnt3Flt(), 3);
    ExpectUnset(Pnt2Dbl(), 2);
    ExpectUnset(Pnt2Flt(), 2);
}

TEST(CheckedUnset, IntegersAreTheMostNegative)
{
    Vec2Int const vector;
    EXPECT_EQ(vector.x, std::numeric_limits<int>::min());
    EXPECT_EQ(vector.y, std::numeric_limits<int>::min());
}

TEST(CheckedUnset, Matrices)
{
    Mat3Dbl const three;
    for (int i = 0; i < 9; ++i)
        EXPECT_TRUE(IsSignalling(three(i / 3, i % 3))) << i;
    Mat2Dbl const two;
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(IsSignalling(two(i / 2, i % 2))) << i;
}

TEST(CheckedUnset, DynamicVectors)
{
    ExpectUnset(VecDbl());
    ExpectUnset(VecFlt());
    ExpectUnset(VecDbl(5));
    ExpectUnset(VecFlt(5));
    VecDbl doubles(2, 1.0);
    doubles.ReSize(3);
    ExpectUnset(doubles);
    VecFlt floats(2, 1.0f);
    floats.ReSize(3);
    ExpectUnset(floats);
}

TEST(CheckedUnset, DynamicMatrices)
{
    ExpectUnset(MatDbl());
    ExpectUnset(MatDbl(3, 2));
    MatDbl matrix(2, 2, 1.0);
    matrix.ReSize(3, 2);
    ExpectUnset(matrix);
}

TEST(CheckedUnset, WhatIsSetOrKeptStays)
{
    double block[2] = {1.0, 2.0};
    VecDbl const view(2, block);
    EXPECT_EQ(view[0], 1.0);
    EXPECT_EQ(view[1], 2.0);
    MatDbl matrix(2, 3, 7.0);
    matrix.ReSize(3, 2); // the same number of elements, which keep their values
    EXPECT_EQ(matrix(2, 1), 7.0);
    EXPECT_EQ(Quaternion().s, 1.0);
    EXPECT_EQ(AffMat3Dbl()(0, 0), 1.0);
    EXPECT_EQ(AffMat2Dbl()(1, 2), 0.0);
}
