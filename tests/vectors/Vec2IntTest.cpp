#include <vexor/vectors/Vec2Int.h>

#include <support/Bits.h>
#include <support/Fixtures.h>

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <type_traits>
#include <utility>

using namespace vexor_test;

namespace {

void ExpectIs(Vec2Int const& actual, int x, int y)
{
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
}

// ---- Construction ----------------------------------------------------------------------------------

TEST(Vec2Int, Layout)
{
    static_assert(sizeof(Vec2Int) == 2 * sizeof(int) && std::is_standard_layout_v<Vec2Int>, "");
    static_assert(offsetof(Vec2Int, y) == sizeof(int) && std::is_trivially_copyable_v<Vec2Int>, "");
}

TEST(Vec2Int, DefaultConstructor)
{
#if defined(VEXOR_CHECKED)
    GTEST_SKIP() << "a checked build fills the components";
#else
    EXPECT_TRUE(DefaultConstructorWritesNothing<Vec2Int>());
#endif
}

TEST(Vec2Int, Constructors)
{
    ExpectIs(Vec2Int(-5), -5, -5);
    ExpectIs(Vec2Int(1, -2), 1, -2);
    int values[2] = {INT_MIN, INT_MAX};
    ExpectIs(Vec2Int(values), INT_MIN, INT_MAX);
    Vec2Int const source(3, 4);
    Vec2Int const copy(source);
    ExpectIs(copy, 3, 4);
    Vec2Int const implicitOne = 7; // no constructor is explicit
    ExpectIs(implicitOne, 7, 7);
}

// ---- Assignment and access -------------------------------------------------------------------------

TEST(Vec2Int, Assignment)
{
    Vec2Int v(9);
    EXPECT_EQ(&(v = Vec2Int(1, 2)), &v);
    ExpectIs(v, 1, 2);
    Vec2Int& same = v;
    v = same;
    ExpectIs(v, 1, 2);
}

TEST(Vec2Int, SetValue)
{
    Vec2Int v(9);
    EXPECT_EQ(&v.SetValue(-1), &v);
    ExpectIs(v, -1, -1);
    EXPECT_EQ(&v.SetValue(1, 2), &v);
    ExpectIs(v, 1, 2);
    int const values[2] = {4, 5};
    EXPECT_EQ(&v.SetValue(values), &v);
    ExpectIs(v, 4, 5);
    v.SetValue(v.y, v.x);
    ExpectIs(v, 5, 4);
}

TEST(Vec2Int, GetValue)
{
    Vec2Int const v(1, 2);
    int x = 9;
    int y = 9;
    v.GetValue(x, y);
    ExpectIs(Vec2Int(x, y), 1, 2);
    int values[3] = {9, 9, 9};
    v.GetValue(values);
    ExpectIs(Vec2Int(values), 1, 2);
    EXPECT_EQ(values[2], 9);
    Vec2Int w(1, 2);
    w.GetValue(w.y, w.x); // each reference gets the value that the vector held before
    ExpectIs(w, 2, 1);
}

TEST(Vec2Int, Index)
{
    Vec2Int v(1, 2);
    EXPECT_EQ(&v[0], &v.x);
    EXPECT_EQ(&v[1], &v.y);
    Vec2Int const& constant = v;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(&v(i), &v[i]);
        EXPECT_EQ(&constant[i], &v[i]);
        EXPECT_EQ(&constant(i), &v[i]);
    }
    v[Opaque(0)] = 7;
    v(Opaque(1)) = 8;
    ExpectIs(v, 7, 8);
}

// ---- Arithmetic: wraps in two's complement -----------------------------------------------------------

TEST(Vec2Int, MultiplyAssign)
{
    Vec2Int v(3, -4);
    EXPECT_EQ(&(v *= -2), &v);
    ExpectIs(v, -6, 8);
    v *= v.x; // the scalar is one of the components
    ExpectIs(v, 36, -48);
    Vec2Int big(65536, INT_MIN);
    big *= Opaque(65537); // 2^32 + 2^16, and −2^31·(2^16 + 1) = −2^47 − 2^31
    ExpectIs(big, 65536, INT_MIN);
}

TEST(Vec2Int, AddAssign)
{
    Vec2Int v(1, 2);
    EXPECT_EQ(&(v += Vec2Int(10, -5)), &v);
    ExpectIs(v, 11, -3);
    Vec2Int const& same = v;
    v += same;
    ExpectIs(v, 22, -6);
    Vec2Int big(INT_MAX, INT_MIN);
    big += Vec2Int(1, -1);
    ExpectIs(big, INT_MIN, INT_MAX);
}

TEST(Vec2Int, SubtractAssign)
{
    Vec2Int v(1, 2);
    EXPECT_EQ(&(v -= Vec2Int(10, -5)), &v);
    ExpectIs(v, -9, 7);
    Vec2Int big(INT_MAX, INT_MIN);
    big -= Vec2Int(-1, 1);
    ExpectIs(big, INT_MIN, INT_MAX);
}

TEST(Vec2Int, Negate)
{
    Vec2Int v(5, INT_MIN);
    EXPECT_EQ(&v.Negate(), &v);
    ExpectIs(v, -5, INT_MIN);
    Vec2Int const most(INT_MIN, 0);
    ExpectIs(most.GetNegatedCopy(), INT_MIN, 0);
    ExpectIs(-most, INT_MIN, 0);
    ExpectIs(-Vec2Int(INT_MAX, -7), -INT_MAX, 7);
}

TEST(Vec2Int, Dot)
{
    EXPECT_EQ(Vec2Int(1, 2).Dot(Vec2Int(4, -5)), -6);
    EXPECT_EQ(Vec2Int(65536, 3).Dot(Vec2Int(65536, 4)), 12);             // 2^32 + 12
    EXPECT_EQ(Vec2Int(INT_MAX, 1).Dot(Vec2Int(1, 1)), INT_MIN);          // the sum wraps
    EXPECT_EQ(Vec2Int(INT_MIN, 0).Dot(Vec2Int(Opaque(-1), 0)), INT_MIN); // and so does this product
}

TEST(Vec2Int, ElemMult)
{
    ExpectIs(Vec2Int(3, INT_MIN).ElemMult(Vec2Int(-4, 3)), -12, INT_MIN);
}

// ---- Length ----------------------------------------------------------------------------------------

TEST(Vec2Int, LengthIsTheSumOfTheMagnitudes)
{
    static_assert(std::is_same_v<decltype(Vec2Int().Length()), int>, "");
    EXPECT_EQ(Vec2Int(3, 4).Length(), 7);
    EXPECT_EQ(Vec2Int(-3, 4).Length(), 7);
    EXPECT_EQ(Vec2Int(-3, -4).Length(), 7);
    EXPECT_EQ(Vec2Int(0).Length(), 0);
    EXPECT_EQ(Vec2Int(INT_MIN, 0).Length(), INT_MIN);
    EXPECT_EQ(Vec2Int(INT_MIN, -1).Length(), INT_MIN + 1);
    EXPECT_EQ(Vec2Int(INT_MIN, INT_MIN).Length(), 0);
    EXPECT_EQ(Vec2Int(INT_MAX, 1).Length(), INT_MIN);
}

// ---- Extremes --------------------------------------------------------------------------------------

TEST(Vec2Int, ExtremesGoToYOnATie)
{
    for (int x = -3; x <= 3; ++x)
        for (int y = -3; y <= 3; ++y) {
            SCOPED_TRACE(testing::Message() << x << ' ' << y);
            Vec2Int const v(x, y);
            EXPECT_EQ(v.MaxValue(), x <= y ? y : x);
            EXPECT_EQ(v.MinValue(), x >= y ? y : x);
            EXPECT_EQ(v.MaxValueIdx(), x <= y ? 1 : 0);
            EXPECT_EQ(v.MinValueIdx(), x >= y ? 1 : 0);
            EXPECT_EQ(v.MaxAbsValue(), std::abs(x) <= std::abs(y) ? std::abs(y) : std::abs(x));
            EXPECT_EQ(v.MinAbsValue(), std::abs(x) >= std::abs(y) ? std::abs(y) : std::abs(x));
            EXPECT_EQ(v.MaxAbsValueIdx(), std::abs(x) <= std::abs(y) ? 1 : 0);
            EXPECT_EQ(v.MinAbsValueIdx(), std::abs(x) >= std::abs(y) ? 1 : 0);
        }
    EXPECT_EQ(Vec2Int(5).MaxValueIdx(), 1);
    EXPECT_EQ(Vec2Int(5).MinValueIdx(), 1);
    EXPECT_EQ(Vec2Int(-5, 5).MaxAbsValueIdx(), 1);
    EXPECT_EQ(Vec2Int(-5, 5).MinAbsValueIdx(), 1);
}

TEST(Vec2Int, TheMagnitudeOfTheMostNegativeIntIsNegative)
{
    Vec2Int const v(INT_MIN, 0);
    EXPECT_EQ(v.MaxAbsValue(), 0);
    EXPECT_EQ(v.MinAbsValue(), INT_MIN);
    EXPECT_EQ(v.MaxAbsValueIdx(), 1);
    EXPECT_EQ(v.MinAbsValueIdx(), 0);
    Vec2Int const w(-7, INT_MIN);
    EXPECT_EQ(w.MaxAbsValue(), 7);
    EXPECT_EQ(w.MinAbsValue(), INT_MIN);
    EXPECT_EQ(w.MaxAbsValueIdx(), 0);
    EXPECT_EQ(w.MinAbsValueIdx(), 1);
}

// ---- Comparison ------------------------------------------------------------------------------------

TEST(Vec2Int, IsNullAndIsZeroLengthAreOne)
{
    EXPECT_EQ(Vec2Int(0).IsNull(), 1);
    EXPECT_EQ(Vec2Int(0).IsZeroLength(), 1);
    for (Vec2Int const& v : {Vec2Int(1, 0), Vec2Int(0, 1), Vec2Int(1, -1), Vec2Int(INT_MIN)}) {
        EXPECT_EQ(v.IsNull(), 0); // of the last one, the length wraps to 0
        EXPECT_EQ(v.IsZeroLength(), 0);
    }
}

TEST(Vec2Int, EqualUnequalAndIsEqualTo)
{
    Vec2Int const v(1, 2);
    static_assert(std::is_same_v<decltype(v == v), int> && std::is_same_v<decltype(v != v), int>, "");
    EXPECT_EQ(v == Vec2Int(1, 2), 1);
    EXPECT_EQ(v != Vec2Int(1, 2), 0);
    EXPECT_EQ(v.IsEqualTo(Vec2Int(1, 2)), 1);
    for (Vec2Int const& other : {Vec2Int(2, 2), Vec2Int(1, 3), Vec2Int(2, 1)}) {
        EXPECT_EQ(v == other, 0);
        EXPECT_EQ(v != other, 1);
        EXPECT_EQ(v.IsEqualTo(other), 0);
    }
    EXPECT_EQ(Vec2Int(INT_MAX, 0).IsEqualTo(Vec2Int(INT_MIN, 0)), 0);
    EXPECT_EQ(Vec2Int(INT_MIN, 0).IsEqualTo(Vec2Int(INT_MIN, 0)), 1);
}

TEST(Vec2Int, IsLessThanAndIsGreaterThanAreNotStrict)
{
    Vec2Int const v(1, 2);
    EXPECT_EQ(v.IsLessThan(v), 1);
    EXPECT_EQ(v.IsGreaterThan(v), 1);
    EXPECT_EQ(Vec2Int(1, 5).IsLessThan(Vec2Int(2, 0)), 0);
    EXPECT_EQ(Vec2Int(1, 5).IsGreaterThan(Vec2Int(2, 0)), 0);
    for (int i = 0; i < 2; ++i) {
        Vec2Int w(v);
        w[i] += 1;
        EXPECT_EQ(v.IsLessThan(w), 1);
        EXPECT_EQ(w.IsLessThan(v), 0);
        EXPECT_EQ(v.IsGreaterThan(w), 0);
        EXPECT_EQ(w.IsGreaterThan(v), 1);
    }
    EXPECT_EQ(Vec2Int(INT_MIN).IsLessThan(Vec2Int(INT_MAX)), 1); // compared, not subtracted
}

// ---- Free operators --------------------------------------------------------------------------------

TEST(Vec2Int, MultiplyByScalar)
{
    ExpectIs(Vec2Int(3, -4) * -2, -6, 8);
    ExpectIs(-2 * Vec2Int(3, -4), -6, 8);
    ExpectIs(Vec2Int(INT_MAX, 1) * Opaque(2), -2, 2);
    ExpectIs(Opaque(-1) * Vec2Int(INT_MIN, 1), INT_MIN, -1);
}

TEST(Vec2Int, AddAndSubtract)
{
    ExpectIs(Vec2Int(1, 2) + Vec2Int(10, -5), 11, -3);
    ExpectIs(Vec2Int(INT_MAX, INT_MIN) + Vec2Int(1, -1), INT_MIN, INT_MAX);
    ExpectIs(Vec2Int(1, 2) - Vec2Int(10, -5), -9, 7);
    ExpectIs(Vec2Int(0, INT_MIN) - Vec2Int(INT_MIN, 1), INT_MIN, INT_MAX);
}

} // namespace
