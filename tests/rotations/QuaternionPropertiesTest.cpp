// Properties of every rotation: round trips through the other forms, composition, the two values q and −q,
// and the agreement of all ways to rotate. The operands are drawn from fixed seeds. Difficult ones (axes
// along the basis, angles at and near the quarter turns, tiny and repeated angles) come more often than by
// chance. If a bound is not exact, the comment derives it; ε is 2^-53.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <vexor/rotations/Quaternion.h>

namespace vexor_test {
namespace {

constexpr double pi = 3.141592653589793;
constexpr double epsilon = 0x1p-53;

/// The same numbers on every platform: the standard fixes the engine, and nothing else is used.
class Draw {
public:
    explicit Draw(std::uint64_t seed) : engine_(seed) {}

    int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(count)); }
    /// From −1 to 1.
    double Number() { return static_cast<double>(static_cast<std::int64_t>(engine_())) * 0x1p-63; }

    Vec3Dbl Vector() { return Vec3Dbl(Number(), Number(), Number()); }

    Vec3Dbl Axis()
    {
        Vec3Dbl axis(0.0);
        switch (Below(4)) {
        case 0: // along the basis
            axis[Below(3)] = Below(2) == 0 ? 1.0 : -1.0;
            break;
        case 1: // nearly along it
            axis = 1e-9 * Vector();
            axis[Below(3)] = 1.0;
            break;
        default:
            axis = Vector();
        }
        return axis.Normalize();
    }

    /// From −π to π.
    double Angle()
    {
        double const sign = Below(2) == 0 ? 1.0 : -1.0;
        switch (Below(6)) {
        case 0:
            return sign * (pi / 2.0) * Below(3);
        case 1:
            return sign * std::ldexp(1.0, -Below(60));
        case 2: // near a quarter turn or a half turn
            return sign * (pi / 2.0 * (1 + Below(2)) - std::ldexp(1.0, -10 - Below(40)));
        default:
            return pi * Number();
        }
    }

    Quaternion Unit()
    {
        if (Below(3) == 0)
            return Quaternion(Axis(), Angle(), 1);
        Quaternion q;
        q.SetValue(Number(), Number(), Number(), Number(), 1);
        return q;
    }

    /// Of any length from about a thousandth to two thousand.
    Quaternion Any()
    {
        Quaternion const q = Unit();
        double const scale = (1.0 + std::fabs(Number())) * std::ldexp(1.0, Below(21) - 10);
        return Quaternion().SetValue(scale * q.u, scale * q.v, scale * q.w, scale * q.s, 0);
    }

private:
    std::mt19937_64 engine_;
};

constexpr int rounds = 20000;

double SquaredNorm(Quaternion const& q)
{
    return q.u * q.u + q.v * q.v + q.w * q.w + q.s * q.s;
}

Quaternion Minus(Quaternion const& q)
{
    return Quaternion().SetValue(-q.u, -q.v, -q.w, -q.s, 0);
}

Mat3Dbl MatrixOf(Quaternion const& q)
{
    Mat3Dbl matrix;
    q.GetRotationMatrix(matrix);
    return matrix;
}

double Difference(Vec3Dbl const& a, Vec3Dbl const& b)
{
    return (a - b).Length();
}

/// The largest difference of two elements.
double Difference(Mat3Dbl const& a, Mat3Dbl const& b)
{
    double largest = 0.0;
    for (int i = 0; i < 9; ++i)
        largest = std::fmax(largest, std::fabs(a(i / 3, i % 3) - b(i / 3, i % 3)));
    return largest;
}

/// The largest difference of two components, of q and the nearer of r and −r.
double DifferenceUpToSign(Quaternion const& q, Quaternion const& r)
{
    double same = 0.0;
    double opposite = 0.0;
    for (int i = 0; i < 4; ++i) {
        same = std::fmax(same, std::fabs(q[i] - r[i]));
        opposite = std::fmax(opposite, std::fabs(q[i] + r[i]));
    }
    return std::fmin(same, opposite);
}

} // namespace

TEST(QuaternionProperties, NormalizeGivesUnitLength)
{
    Draw draw(1);
    for (int i = 0; i < rounds; ++i) {
        Quaternion q = draw.Any();
        Quaternion const before = q;
        q.Normalize();
        // A sum, a root, a reciprocal and a product: 8ε in the squared norm, and 4ε in summing it here.
        ASSERT_NEAR(SquaredNorm(q), 1.0, 12.0 * epsilon);
        // The direction does not change.
        double const norm = std::sqrt(SquaredNorm(before));
        for (int k = 0; k < 4; ++k)
            ASSERT_NEAR(q[k] * norm, before[k], 8.0 * epsilon * norm);
    }
}

TEST(QuaternionProperties, AllWaysToRotateAgree)
{
    Draw draw(2);
    for (int i = 0; i < rounds; ++i) {
        Quaternion const q = draw.Any(); // for any norm, all of them scale by its square
        Vec3Dbl const p = draw.Vector();
        double const bound = 16.0 * epsilon * SquaredNorm(q);

        Vec3Dbl const rotated = q.RotatePoint(p);
        ASSERT_LE(Difference(q.RotatePoint(Pnt3Dbl(p)).Vector(), rotated), 0.0);
        Mat3Dbl const m = MatrixOf(q);
        ASSERT_LE(Difference(m * p, rotated), bound * 2.0);
        ASSERT_LE(Difference(p.x * q.XAxis() + p.y * q.YAxis() + p.z * q.ZAxis(), rotated), bound * 2.0);
        ASSERT_LE(Difference(Vec3Dbl(q.GetRow(0).Dot(p), q.GetRow(1).Dot(p), q.GetRow(2).Dot(p)), rotated),
                  bound * 2.0);
        for (unsigned k = 0; k < 3; ++k) {
            ASSERT_LE(Difference(q.GetCol(static_cast<int>(k)), m.GetCol(k)), bound);
            ASSERT_LE(Difference(q.GetRow(static_cast<int>(k)), m.GetRow(k)), bound);
        }

        // q·p·q̄ by two products of quaternions: its vector part is the result, its scalar part 0.
        Quaternion middle;
        middle.SetValue(p.x, p.y, p.z, 0.0, 0);
        Quaternion product = q * middle * q.Inverse();
        ASSERT_LE(Difference(product.GetUvwParam(), rotated), bound * 2.0);
        ASSERT_NEAR(product.s, 0.0, bound);
    }
}

TEST(QuaternionProperties, RotationKeepsLengthsAnglesAndHandedness)
{
    Draw draw(3);
    for (int i = 0; i < rounds; ++i) {
        Quaternion const q = draw.Unit();
        Vec3Dbl const a = draw.Vector();
        Vec3Dbl const b = draw.Vector();
        double const bound = 64.0 * epsilon;
        ASSERT_NEAR(q.RotatePoint(a).Dot(q.RotatePoint(b)), a.Dot(b), bound);
        ASSERT_LE(Difference(q.RotatePoint(a).Cross(q.RotatePoint(b)), q.RotatePoint(a.Cross(b))), bound);
        ASSERT_LE(Difference(q.Inverse().RotatePoint(q.RotatePoint(a)), a), bound);
        // The axis is not moved.
        ASSERT_LE(Difference(q.RotatePoint(q.GetAxis(0)), q.GetAxis(0)), bound);
    }
}

TEST(QuaternionProperties, AgreesWithTheVectorsOwnRotation)
{
    Draw draw(4);
    for (int i = 0; i < rounds; ++i) {
        Vec3Dbl const axis = draw.Axis();
        double const angle = draw.Angle();
        Vec3Dbl vector = draw.Vector();
        Vec3Dbl const rotated = Quaternion(axis, angle, 1).RotatePoint(vector);
        ASSERT_LE(Difference(vector.Rotate(axis, angle), rotated), 64.0 * epsilon);
    }
}

TEST(QuaternionProperties, MinusIsTheSameRotation)
{
    Draw draw(5);
    for (int i = 0; i < rounds; ++i) {
        Quaternion const q = draw.Any();
        Quaternion const other = draw.Any();
        Quaternion const minus = Minus(q);
        Vec3Dbl const p = draw.Vector();
        // Exact: every product has the same two signs or none.
        ASSERT_TRUE(q.RotatePoint(p) == minus.RotatePoint(p));
        ASSERT_TRUE(MatrixOf(q) == MatrixOf(minus));
        ASSERT_TRUE(q.GetEulerAngles() == minus.GetEulerAngles());
        ASSERT_EQ(q.GetAbsoluteAngle(), minus.GetAbsoluteAngle());
        ASSERT_EQ(q.Distance(minus), 0.0);
        ASSERT_EQ(q.Distance(other), minus.Distance(other));
        ASSERT_EQ(other.Distance(q), other.Distance(minus));
        ASSERT_TRUE(Minus(q * other) == minus * other);
        ASSERT_EQ(q == minus, false);
        ASSERT_NE(q < minus, minus < q);
        // The signed angles belong to opposite axes: they differ by a full turn, or both are a half turn.
        Quaternion const unit = draw.Unit();
        double const sum = unit.GetAngle() + Minus(unit).GetAngle();
        ASSERT_TRUE(std::fabs(sum) <= 8.0 * epsilon || std::fabs(sum - 2.0 * pi) <= 8.0 * epsilon)
            << unit.GetAngle() << " " << Minus(unit).GetAngle();
    }
}

TEST(QuaternionProperties, Composition)
{
    Draw draw(6);
    for (int i = 0; i < rounds; ++i) {
        Quaternion const a = draw.Unit();
        Quaternion const b = draw.Unit();
        Quaternion const c = draw.Unit();
        Vec3Dbl const p = draw.Vector();
        double const bound = 48.0 * epsilon;
        ASSERT_LE(Difference((a * b).RotatePoint(p), a.RotatePoint(b.RotatePoint(p))), bound);
        ASSERT_LE(Difference(MatrixOf(a * b), MatrixOf(a) * MatrixOf(b)), bound);
        ASSERT_LE(DifferenceUpToSign((a * b) * c, a * (b * c)), bound);
        ASSERT_LE(DifferenceUpToSign((a * b).Inverse(), b.Inverse() * a.Inverse()), bound);
        ASSERT_LE(DifferenceUpToSign(a * b * b.Inverse(), a), bound);
        ASSERT_TRUE(Quaternion() * a == a);
        ASSERT_TRUE(a * Quaternion() == a);

        Quaternion const d = draw.Any();
        Quaternion const e = draw.Any();
        ASSERT_NEAR(SquaredNorm(d * e), SquaredNorm(d) * SquaredNorm(e),
                    bound * SquaredNorm(d) * SquaredNorm(e));
        Quaternion const norm = d * d.Inverse();
        ASSERT_TRUE(norm.IsIdentity()); // the vector part is exactly 0
        ASSERT_NEAR(norm.s, SquaredNorm(d), bound * SquaredNorm(d));
    }
}

TEST(QuaternionProperties, AxisAngleRoundTrip)
{
    Draw draw(7);
    for (int i = 0; i < rounds; ++i) {
        Vec3Dbl const axis = draw.Axis();
        double const angle = draw.Angle();
        Quaternion const q(axis, angle, 1);
        ASSERT_NEAR(SquaredNorm(q), 1.0, 12.0 * epsilon);
        if (angle == 0.0) {
            ASSERT_TRUE(q.GetAxis(1) == Vec3Dbl(0.0, 1.0, 0.0));
            ASSERT_EQ(q.GetAngle(), 0.0);
            continue;
        }
        // A negative angle is returned as a positive one about the opposite axis.
        Vec3Dbl const expected = angle > 0.0 ? axis : -axis;
        ASSERT_LE(Difference(q.GetAxis(1), expected), 8.0 * epsilon);
        // Near 0 the arc cosine is only as accurate as its cosine: an error of ε/2 in s is one of
        // ε/sin(a/2) in the angle, and at most the angle of the cosine 1 − ε, 2·√(2ε).
        double const sine = std::fabs(std::sin(angle / 2.0));
        double const bound = std::fmin(2.0 * epsilon / sine, 4.0 * std::sqrt(epsilon)) + 4.0 * epsilon;
        ASSERT_NEAR(q.GetAngle(), std::fabs(angle), bound);
        ASSERT_NEAR(q.GetAbsoluteAngle(), std::fabs(angle), bound);

        // A further full turn: the other of the two values. The angle of sin and cos is up to 3π/2 + π,
        // rounded to 4ε.
        ASSERT_LE(DifferenceUpToSign(Quaternion(axis, angle + 2.0 * pi, 1), q), 8.0 * epsilon);
        ASSERT_LT(Quaternion(axis, angle + 2.0 * pi, 1).s, 1e-15);
    }
}

TEST(QuaternionProperties, CosineAgreesWithTheAngle)
{
    Draw draw(8);
    for (int i = 0; i < rounds; ++i) {
        Vec3Dbl const axis = draw.Axis();
        double const angle = std::fabs(draw.Angle());
        Quaternion q;
        q.SetAxisCosAngle(axis, std::cos(angle), 1);
        ASSERT_GE(q.s, 0.0);
        ASSERT_NEAR(SquaredNorm(q), 1.0, 16.0 * epsilon);
        // An error of ε/2 in the cosine is one of ε/4 in the squares of sin(a/2) and cos(a/2).
        double const sine = std::sin(angle / 2.0);
        double const cosine = std::fabs(std::cos(angle / 2.0));
        auto const bound = [](double value) {
            return std::fmin(epsilon / value, std::sqrt(epsilon)) + 4.0 * epsilon;
        };
        Quaternion const expected(axis, angle, 1);
        ASSERT_LE(Difference(q.GetUvwParam(), Quaternion(expected).GetUvwParam()), bound(sine));
        ASSERT_NEAR(q.s, expected.s, bound(cosine));
    }
}

TEST(QuaternionProperties, MatrixRoundTrip)
{
    Draw draw(9);
    int branches[4] = {};
    for (int i = 0; i < rounds; ++i) {
        Quaternion const q = draw.Unit();
        Mat3Dbl const m = MatrixOf(q);
        Quaternion const back(m);
        ASSERT_LE(DifferenceUpToSign(back, q), 16.0 * epsilon);
        ASSERT_LE(Difference(MatrixOf(back), m), 32.0 * epsilon);
        ASSERT_LE(back.Distance(q), 1e-7); // the angle of a cosine within some ε of 1

        // The chosen component is positive and not smaller than the others by more than rounding.
        double const keys[4] = {m(0, 0), m(1, 1), m(2, 2), m(0, 0) + m(1, 1) + m(2, 2)};
        int chosen = 3;
        for (int k = 0; k < 3; ++k)
            chosen = keys[chosen] < keys[k] ? k : chosen;
        ++branches[chosen];
        ASSERT_GE(back[chosen], 0.5 - 16.0 * epsilon);
        for (int k = 0; k < 4; ++k)
            ASSERT_LE(std::fabs(back[k]), back[chosen] + 16.0 * epsilon);
    }
    for (int const count : branches)
        EXPECT_GT(count, rounds / 20);
}

TEST(QuaternionProperties, EulerAnglesRoundTrip)
{
    Draw draw(10);
    for (int i = 0; i < rounds; ++i) {
        // As close to gimbal lock as a cosine of y of 1e-3.
        Vec3Dbl angles(draw.Angle(), 1.5697 * draw.Number(), draw.Angle());
        Quaternion q;
        q.SetFromEulerAngles(angles);
        Vec3Dbl const back = q.GetEulerAngles();
        // The elements that determine x and z are cos(y) times a sine or a cosine, with an error of a few ε.
        double const bound = 16.0 * epsilon / std::cos(angles.y);
        ASSERT_LE(std::fabs(std::remainder(back.x - angles.x, 2.0 * pi)), bound);
        ASSERT_NEAR(back.y, angles.y, bound);
        ASSERT_LE(std::fabs(std::remainder(back.z - angles.z, 2.0 * pi)), bound);

        // Three turns about the fixed axes, X first.
        Vec3Dbl vector = draw.Vector();
        Vec3Dbl const rotated = q.RotatePoint(vector);
        vector.Rotate(Vec3Dbl(1.0, 0.0, 0.0), angles.x);
        vector.Rotate(Vec3Dbl(0.0, 1.0, 0.0), angles.y);
        vector.Rotate(Vec3Dbl(0.0, 0.0, 1.0), angles.z);
        ASSERT_LE(Difference(vector, rotated), 96.0 * epsilon);
    }
}

TEST(QuaternionProperties, EulerAnglesStayInTheirRanges)
{
    Draw draw(11);
    for (int i = 0; i < rounds; ++i) {
        Quaternion const q = draw.Any();
        Vec3Dbl const angles = q.GetEulerAngles();
        ASSERT_LE(std::fabs(angles.x), pi);
        ASSERT_LE(std::fabs(angles.y), pi / 2.0);
        ASSERT_LE(std::fabs(angles.z), pi);
    }
}

TEST(QuaternionProperties, EulerAnglesOnBothSidesOfGimbalLock)
{
    Draw draw(12);
    for (double const pole : {pi / 2.0, -pi / 2.0}) {
        double const inwards = pole > 0.0 ? -1.0 : 1.0;
        for (double const away : {0.0, 1e-11, -1e-11, 9e-11, -9e-11, 1.1e-10, -1.1e-10, 1e-9, -1e-9, 1e-6}) {
            for (int i = 0; i < 500; ++i) {
                // With `away` below 0, y is beyond the pole, otherwise the rotation is before it.
                Vec3Dbl angles(draw.Angle(), pole + inwards * away, draw.Angle());
                Quaternion q;
                q.SetFromEulerAngles(angles);
                Vec3Dbl back = q.GetEulerAngles();
                Quaternion again;
                again.SetFromEulerAngles(back);

                double const cosine = std::fabs(away);
                ASSERT_NEAR(std::fabs(back.y), pi / 2.0 - cosine, 2e-15) << away;
                if (cosine < 1e-10) {
                    // Locked: z is exactly 0, x is x − z (above) or x + z (below), and the
                    // rotation is right up to the cosine of y.
                    ASSERT_EQ(back.z, 0.0) << away;
                    double const shared = pole > 0.0 ? angles.x - angles.z : angles.x + angles.z;
                    ASSERT_LE(std::fabs(std::remainder(back.x - shared, 2.0 * pi)), 2.0 * cosine + 1e-14);
                    ASSERT_LE(Difference(MatrixOf(again), MatrixOf(q)), 2.0 * cosine + 1e-14) << away;
                } else {
                    // Not locked: x and z come from elements as small as the cosine, each with an error of
                    // a few ε, so both have an error of a few ε/cosine.
                    double const bound = 16.0 * epsilon / cosine;
                    double const turned = away > 0.0 ? 0.0 : pi;
                    ASSERT_LE(std::fabs(std::remainder(back.x - angles.x - turned, 2.0 * pi)), bound) << away;
                    ASSERT_LE(std::fabs(std::remainder(back.z - angles.z - turned, 2.0 * pi)), bound) << away;
                    ASSERT_LE(Difference(MatrixOf(again), MatrixOf(q)), 4.0 * epsilon / cosine) << away;
                }
            }
        }
    }
}

TEST(QuaternionProperties, DistanceIsAMetricOfRotations)
{
    Draw draw(13);
    for (int i = 0; i < rounds; ++i) {
        Quaternion const a = draw.Unit();
        Quaternion const b = draw.Unit();
        Quaternion const c = draw.Unit();
        // Near 0 the arc cosine has an error of up to 2·√(2ε).
        double const bound = 8.0 * std::sqrt(epsilon);
        ASSERT_EQ(a.Distance(a), 0.0);
        ASSERT_TRUE(std::signbit(a.Distance(a)));
        ASSERT_GE(a.Distance(b), 0.0);
        ASSERT_LE(a.Distance(b), pi);
        ASSERT_NEAR(a.Distance(b), b.Distance(a), bound);
        ASSERT_LE(a.Distance(c), a.Distance(b) + b.Distance(c) + bound);
        ASSERT_NEAR((c * a).Distance(c * b), a.Distance(b), bound);
        ASSERT_NEAR((a * c).Distance(b * c), a.Distance(b), bound);
        ASSERT_NEAR(Quaternion().Distance(a), a.GetAbsoluteAngle(), bound);

        // A rotation and its turn by an angle are that angle apart, for operands of any length.
        Vec3Dbl const axis = draw.Axis();
        double const angle = draw.Angle();
        Quaternion const turned = Quaternion(axis, angle, 1) * draw.Any();
        Quaternion const start = Quaternion(axis, -angle, 1) * turned;
        ASSERT_NEAR(turned.Distance(start), std::fabs(angle), bound);
    }
}

TEST(QuaternionProperties, OrderIsTotalOnComponentsFreeOfNan)
{
    // All combinations of a few values, so that prefixes are often equal.
    std::vector<Quaternion> all;
    double const values[] = {-1.0, 0.0, 0.5};
    for (double const u : values)
        for (double const v : values)
            for (double const w : values)
                for (double const s : values)
                    all.push_back(Quaternion().SetValue(u, v, w, s, 0));
    // Made in ascending order: the index order is the order of the values.
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t k = 0; k < all.size(); ++k) {
            ASSERT_EQ(all[i] < all[k], i < k);
            ASSERT_EQ(all[i] == all[k], i == k);
            ASSERT_EQ(all[i] != all[k], i != k);
        }
}

} // namespace vexor_test
