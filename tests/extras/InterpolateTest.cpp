#include <vexor/extras/interpolate.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double pi = 3.141592653589793;

Quaternion Components(double u, double v, double w, double s)
{
    Quaternion q;
    q.SetValue(u, v, w, s, 0);
    return q;
}

void ExpectNear(Quaternion const& a, Quaternion const& b, double bound)
{
    EXPECT_NEAR(a.u, b.u, bound);
    EXPECT_NEAR(a.v, b.v, bound);
    EXPECT_NEAR(a.w, b.w, bound);
    EXPECT_NEAR(a.s, b.s, bound);
}

void ExpectNear(AffMat3Dbl const& a, AffMat3Dbl const& b, double bound)
{
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j)
            EXPECT_NEAR(a(i, j), b(i, j), bound) << i << ' ' << j;
    }
}

TEST(Interpolate, LerpHitsBothEndsExactly)
{
    Vec3Dbl const a(0.1, 1e16, 3), b(0.7, 1, -3);
    EXPECT_EQ(vexor::Lerp(a, b, 0.0), a);
    EXPECT_EQ(vexor::Lerp(a, b, 1.0), b);
    EXPECT_EQ(vexor::Lerp(Vec2Dbl(1, 2), Vec2Dbl(3, 6), 0.5), Vec2Dbl(2, 4));
    EXPECT_EQ(vexor::Lerp(Pnt3Dbl(0, 0, 0), Pnt3Dbl(4, 8, 12), 0.25), Pnt3Dbl(1, 2, 3));
}

TEST(Interpolate, SlerpTurnsUniformly)
{
    Quaternion const start;
    Quaternion const end(Vec3Dbl(0, 0, 1), 2.0, 0);
    for (double const t : {0.0, 0.125, 0.5, 0.75, 1.0})
        ExpectNear(vexor::Slerp(start, end, t), Quaternion(Vec3Dbl(0, 0, 1), 2.0 * t, 0), 4e-16);
    EXPECT_EQ(vexor::Slerp(start, end, 0.0), start);
    EXPECT_EQ(vexor::Slerp(start, end, 1.0), end);
}

TEST(Interpolate, SlerpTakesTheShortWay)
{
    Quaternion const start;
    Quaternion const end(Vec3Dbl(0, 0, 1), 3 * pi / 2,
                         0); // a quarter turn back, written as three quarters forward
    ExpectNear(vexor::Slerp(start, end, 0.5), Quaternion(Vec3Dbl(0, 0, 1), -pi / 4, 0), 4e-16);
    EXPECT_EQ(vexor::Slerp(start, end, 1.0), Components(-end.u, -end.v, -end.w, -end.s));
}

TEST(Interpolate, SlerpOfOppositeAndOfEqualQuaternionsStays)
{
    Quaternion const q(Vec3Dbl(0.6, 0, 0.8), 1.0, 0);
    Quaternion const opposite = Components(-q.u, -q.v, -q.w, -q.s);
    for (double const t : {0.0, 0.5, 1.0}) {
        EXPECT_EQ(vexor::Slerp(q, opposite, t), q);
        EXPECT_EQ(vexor::Slerp(q, q, t), q);
    }
}

TEST(Interpolate, SlerpKeepsTinyAnglesApart)
{
    Quaternion const start;
    Quaternion const end(Vec3Dbl(1, 0, 0), 1e-9, 0);
    EXPECT_NEAR(vexor::Slerp(start, end, 0.25).u, 0.125e-9, 1e-25);
}

TEST(Interpolate, LogExpAndPow)
{
    Quaternion const q(Vec3Dbl(0, 0.6, 0.8), 1.5, 0);
    Vec3Dbl const logarithm = vexor::Log(q);
    EXPECT_NEAR(logarithm.x, 0, 1e-16);
    EXPECT_NEAR(logarithm.y, 0.6 * 0.75, 2e-16);
    EXPECT_NEAR(logarithm.z, 0.8 * 0.75, 2e-16);
    ExpectNear(vexor::Exp(logarithm), q, 3e-16);
    EXPECT_EQ(vexor::Log(Quaternion()), Vec3Dbl(0, 0, 0));
    EXPECT_EQ(vexor::Exp(Vec3Dbl(0, 0, 0)), Quaternion());
    EXPECT_EQ(vexor::Log(Components(0, 0, 0, -1)), Vec3Dbl(0, pi, 0));
    ExpectNear(vexor::Pow(q, 2.0), q * q, 4e-16);
    ExpectNear(vexor::Pow(q, -1.0), q.Inverse(), 4e-16);
    ExpectNear(vexor::Pow(q, 0.5) * vexor::Pow(q, 0.5), q, 5e-16);
}

TEST(Interpolate, ScrewAboutAFixedAxis)
{
    // A quarter turn about the vertical line through (1, 0, 0), rising by 4: at t it turns by t quarters and
    // rises by 4t.
    auto const screw = [](double t) {
        AffMat3Dbl map;
        map.SetRotation(Pnt3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1), t * pi / 2);
        map.Translation().z += 4 * t;
        return map;
    };
    AffMat3Dbl start;
    start.SetRotation(Pnt3Dbl(0, 3, 1), Vec3Dbl(0.6, 0, 0.8), 0.7);
    AffMat3Dbl const end = screw(1.0) * start;
    for (double const t : {0.1, 0.5, 0.9, 2.0, -1.0})
        ExpectNear(vexor::InterpolateRigid(start, end, t), screw(t) * start, 2e-14);
    EXPECT_EQ(vexor::InterpolateRigid(start, end, 0.0), start);
    EXPECT_EQ(vexor::InterpolateRigid(start, end, 1.0), end);
}

TEST(Interpolate, RigidMotionsWithoutATurnAreStraight)
{
    AffMat3Dbl const start;
    AffMat3Dbl end;
    end.SetTranslation(Vec3Dbl(1, 2, 4));
    AffMat3Dbl const middle = vexor::InterpolateRigid(start, end, 0.5);
    EXPECT_EQ(middle.Translation(), Vec3Dbl(0.5, 1, 2));
    EXPECT_EQ(middle.LinearPart(), start.LinearPart());
}

TEST(Interpolate, RigidMotionsBySmallAngles)
{
    // exp of a twist about z: the path is a circle of radius |v|/w. At half of the angle a the chord from the
    // start is (sin(a/2)/a, (1 − cos(a/2))/a) for a unit velocity along x. The same about x and y.
    for (int first = 0; first < 3; ++first) {
        auto const along = [first](double x, double y, double z) {
            double const numbers[] = {x, y, z};
            return Vec3Dbl(numbers[(3 - first) % 3], numbers[(4 - first) % 3], numbers[(5 - first) % 3]);
        };
        for (double const angle : {1e-9, 1e-4, 0.3, 0.49, 0.51, 1.0, 3.0}) {
            auto const at = [angle, along](double t) {
                double const a = angle * t;
                double const half = std::sin(a / 2);
                Mat3Dbl turn;
                Quaternion(along(0, 0, 1), a, 0).GetRotationMatrix(turn);
                return AffMat3Dbl(turn, along(std::sin(a) / angle, 2 * half * half / angle, 0));
            };
            ExpectNear(vexor::InterpolateRigid(AffMat3Dbl(), at(1.0), 0.5), at(0.5), 4e-15);
        }
    }
}

} // namespace
