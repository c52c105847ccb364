#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cstring>

// Vectors, points, matrices, affine maps and the quaternion of doubles and ints are literal types. Operations
// without a root or a rounding to single are allowed in constant expressions, with the bits of run time.

// ---- Constants whose value is told by hand -----------------------------------------------------------

constexpr Vec3Dbl up(0, 0, 1);
static_assert(up.x == 0.0 && up[1] == 0.0 && up(2) == 1.0);
static_assert(Vec3Dbl(1.0, 0.0, 0.0).Cross(Vec3Dbl(0.0, 1.0, 0.0)) == up);
static_assert(Vec3Dbl(1.0, 2.0, 3.0).Dot(Vec3Dbl(4.0, 5.0, 6.0)) == 32.0);
static_assert(2.0 * up - up / 4.0 + -up == Vec3Dbl(0.0, 0.0, 0.75));
static_assert(Vec3Dbl(0) == Vec3Dbl(0.0) && Vec3Dbl(7).LengthSquared() == 147.0);
static_assert(Vec3Dbl(1, 5, 0) < Vec3Dbl(2, 0, 0) && !Vec3Dbl(1, 5, 0).IsLessThan(Vec3Dbl(2, 0, 0)));
static_assert(Vec3Dbl(-3, 2, 1).MaxAbsValueIdx() == 0 && Vec3Dbl(1, 1, 1).MinValueIdx() == 2);
static_assert(Vec3Dbl(1, 2, 3).MaxValue() == 3.0 && Vec3Dbl(1, 2, 3).MinAbsValue() == 1.0);
static_assert(Vec3Dbl(1, 2, 3).ElemMult(Vec3Dbl(4, 5, 6)) == Vec3Dbl(4, 10, 18));
static_assert(Vec3Dbl(4, 10, 18).ElemDiv(Vec3Dbl(4, 5, 6)) == Vec3Dbl(1, 2, 3));
static_assert(Vec2Dbl(3.0, 4.0).Dot(Vec2Dbl(1.0, 2.0)) == 11.0);
static_assert(Vec2Int(2147483647, 1) + Vec2Int(1, 1) == Vec2Int(-2147483647 - 1, 2));
static_assert(Vec2Int(3, 4).Dot(Vec2Int(5, 6)) == 39 && -Vec2Int(3, 4) == Vec2Int(-3, -4));
static_assert(Pnt3Dbl(3, 4, 5) - Pnt3Dbl(1, 1, 1) == Vec3Dbl(2, 3, 4));
static_assert((Pnt3Dbl(1, 2, 3) + up).Vector() == Vec3Dbl(1, 2, 4));
static_assert(Pnt3Dbl(1, 2, 3).DistanceSqTo(Pnt3Dbl(2, 4, 6)) == 14.0);
static_assert(Pnt2Dbl(1, 2).DistanceSqTo(Pnt2Dbl(4, 6)) == 25.0);
constexpr Mat3Dbl turn(Vec3Dbl(0, -1, 0), Vec3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1)); // a quarter about Z
static_assert(turn(0, 1) == -1.0 && turn.GetRow(1) == Vec3Dbl(1, 0, 0) && turn.GetCol(0) == Vec3Dbl(0, 1, 0));
static_assert(turn * Vec3Dbl(1, 0, 0) == Vec3Dbl(0, 1, 0));
static_assert(turn * turn.GetTransposedCopy() == Mat3Dbl(0.0).Identity());
static_assert(Vec3Dbl(1, 2, 3).OuterProduct(Vec3Dbl(4, 5, 6))(2, 1) == 15.0);
constexpr Mat2Dbl plane(Vec2Dbl(1, 2), Vec2Dbl(3, 4));
static_assert((plane * plane)(1, 0) == 15.0 && plane * Vec2Dbl(1, 1) == Vec2Dbl(3, 7));
static_assert(AffMat3Dbl() == AffMat3Dbl(Mat3Dbl(0.0).Identity(), Vec3Dbl(0.0)));
constexpr AffMat3Dbl move(turn, Vec3Dbl(10, 20, 30));
static_assert(move(1, 3) == 20.0 && (move * move).Translation() == Vec3Dbl(-10, 30, 60));
static_assert(move * Pnt3Dbl(1, 2, 3) == Pnt3Dbl(8, 21, 33) && move * Vec3Dbl(1, 2, 3) == Vec3Dbl(-2, 1, 3));
constexpr AffMat2Dbl shift(plane, Vec2Dbl(5, 6));
static_assert((shift * Pnt2Dbl(1, 1)).Vector() == Vec2Dbl(8, 13) && AffMat2Dbl()(1, 1) == 1.0);
constexpr Quaternion half = Quaternion().SetValue(0.0, 0.0, 1.0, 0.0, 0); // a half turn about Z
static_assert(half[2] == 1.0 && half[7] == 0.0 && (half * half).s == -1.0 && half != Quaternion());
static_assert(half.RotatePoint(Vec3Dbl(1, 2, 3)) == Vec3Dbl(-1, -2, 3) && half.XAxis() == Vec3Dbl(-1, 0, 0));
static_assert(half.Inverse() < half && Quaternion().IsIdentity());

// ---- The same bits as at run time ------------------------------------------------------------------------

namespace {

struct Results {
    double values[200] = {};
    int count = 0;

    constexpr void Add(double value) { values[count++] = value; }
    constexpr void Add(Vec3Dbl const& v)
    {
        for (int i = 0; i < 3; ++i)
            Add(v[i]);
    }
    constexpr void Add(Vec2Dbl const& v)
    {
        for (int i = 0; i < 2; ++i)
            Add(v(i));
    }
    constexpr void Add(Mat3Dbl const& m)
    {
        for (int i = 0; i < 9; ++i)
            Add(m(i / 3, i % 3));
    }
    constexpr void Add(Mat2Dbl const& m)
    {
        for (int i = 0; i < 4; ++i)
            Add(m(i / 2, i % 2));
    }
};

// Every operation once, on operands whose sums and products are not exact.
constexpr Results Compute(double const* n)
{
    Results results;
    Vec3Dbl a(n[0], n[1], n[2]);
    Vec3Dbl const b(n[3], n[4], n[5]);
    results.Add(a.Dot(b));
    results.Add(a.LengthSquared());
    results.Add(a.Cross(b));
    results.Add(a + b);
    results.Add(a - b);
    results.Add(a * n[6]);
    results.Add(n[6] * a);
    results.Add(a / n[6]);
    results.Add(-a);
    results.Add(a.ElemMult(b));
    results.Add(a.ElemDiv(b));
    results.Add(a.MaxAbsValue());
    results.Add(a.MinAbsValue());
    results.Add(Vec3Dbl(0.0).MaxAbsValue()); // -0
    results.Add(a.OuterProduct(b));
    a += b;
    a *= n[6];
    a -= b;
    a /= n[7];
    a[1] = n[8];
    results.Add(a.Negate());
    Pnt3Dbl p(n[0], n[1], n[2]);
    results.Add(p.DistanceSqTo(Pnt3Dbl(b)));
    results.Add((p + b).Vector());
    results.Add((p * n[6] / n[7]).Vector());
    Mat3Dbl m(a, b, Vec3Dbl(n[6], n[7], n[8]));
    Mat3Dbl const l(Vec3Dbl(n[8], n[7], n[6]), a, b);
    results.Add(m * l);
    results.Add(m * a);
    results.Add(m + l);
    results.Add(m / n[7]);
    results.Add(m.RowSum());
    results.Add(m.RowAverage());
    m.SetCol(1, a).SetRow(2, b).SetDiagonal(b);
    results.Add(m.Transpose());
    AffMat3Dbl const map(m, a);
    results.Add((map * map).Translation());
    results.Add((map * p).Vector());
    Vec2Dbl const c(n[0], n[1]);
    Vec2Dbl const d(n[2], n[3]);
    Mat2Dbl const q(c, d);
    results.Add(q * q);
    results.Add(q * c);
    results.Add(c.OuterProduct(d));
    results.Add((AffMat2Dbl(q, c) * Pnt2Dbl(d)).Vector());
    Quaternion const r = Quaternion().SetValue(n[0], n[1], n[2], n[3], 0);
    Quaternion const s = Quaternion().SetValue(n[4], n[5], n[6], n[7], 0);
    results.Add((r * s).GetUvwParam());
    results.Add((r * s)[3]);
    results.Add(r.RotatePoint(b));
    results.Add(s.GetCol(1));
    results.Add(s.GetRow(2));
    Mat3Dbl rotation(0.0);
    r.GetRotationMatrix(rotation);
    results.Add(rotation);
    return results;
}

constexpr double ordinary[9] = {0.1, -0.7, 1.0 / 3.0, 2.9, 0.3, -1e-3, 1.7, 0.9, -5.3};
constexpr double withZeros[9] = {0.0, -0.0, 1e-310, 3.0, 1e-170, 0.1, -0.25, 0.7, 5e-324};
constexpr Results ordinaryConstants = Compute(ordinary);
constexpr Results zeroConstants = Compute(withZeros);

void ExpectTheBitsOfRunTime(Results const& constants, double const* operands)
{
    double volatile opaque[9];
    double copy[9];
    for (int i = 0; i < 9; ++i) {
        opaque[i] = operands[i];
        copy[i] = opaque[i];
    }
    Results const results = Compute(copy);
    ASSERT_EQ(results.count, constants.count);
    for (int i = 0; i < results.count; ++i)
        EXPECT_EQ(std::memcmp(&results.values[i], &constants.values[i], sizeof(double)), 0)
            << i << ": " << results.values[i] << " and not " << constants.values[i];
}

} // namespace

TEST(Constants, HaveTheBitsOfRunTime)
{
    ExpectTheBitsOfRunTime(ordinaryConstants, ordinary);
    ExpectTheBitsOfRunTime(zeroConstants, withZeros);
}
