#include <vexor/extras/make.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

constexpr double pi = 3.141592653589793;

TEST(Make, Identity)
{
    EXPECT_EQ(vexor::Identity<Mat3Dbl>(), Mat3Dbl(Vec3Dbl(1, 0, 0), Vec3Dbl(0, 1, 0), Vec3Dbl(0, 0, 1)));
    Mat2Dbl unit = vexor::Identity<Mat2Dbl>();
    EXPECT_TRUE(unit == Mat2Dbl(Vec2Dbl(1, 0), Vec2Dbl(0, 1)));
    EXPECT_EQ(vexor::Identity<AffMat3Dbl>(), AffMat3Dbl());
    EXPECT_EQ(vexor::Identity<Quaternion>(), Quaternion());
    MatDbl const large = vexor::Identity(3);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            EXPECT_EQ(large(i, j), i == j ? 1.0 : 0.0);
    }
    EXPECT_THROW(vexor::Identity(0), VexorAllocationFailed);
}

TEST(Make, DiagonalRowsAndColumns)
{
    EXPECT_EQ(vexor::Diagonal(Vec3Dbl(1, 2, 3)),
              Mat3Dbl(Vec3Dbl(1, 0, 0), Vec3Dbl(0, 2, 0), Vec3Dbl(0, 0, 3)));
    Mat2Dbl two = vexor::Diagonal(Vec2Dbl(1, 2));
    EXPECT_TRUE(two == Mat2Dbl(Vec2Dbl(1, 0), Vec2Dbl(0, 2)));
    VecDbl values(2, 5.0);
    MatDbl const dynamic = vexor::Diagonal(values);
    EXPECT_EQ(dynamic(0, 0), 5.0);
    EXPECT_EQ(dynamic(0, 1), 0.0);
    EXPECT_EQ(dynamic(1, 1), 5.0);

    Vec3Dbl const a(1, 2, 3), b(4, 5, 6), c(7, 8, 9);
    EXPECT_EQ(vexor::FromRows(a, b, c)(0, 1), 2.0);
    EXPECT_EQ(vexor::FromColumns(a, b, c)(0, 1), 4.0);
    EXPECT_EQ(vexor::FromColumns(a, b, c).GetCol(2), c);
    EXPECT_EQ(vexor::FromRows(Vec2Dbl(1, 2), Vec2Dbl(3, 4))(0, 1), 2.0);
    EXPECT_EQ(vexor::FromColumns(Vec2Dbl(1, 2), Vec2Dbl(3, 4))(0, 1), 3.0);
}

TEST(Make, DeterminantIsThatOfTheRowsInOrder)
{
    EXPECT_EQ(vexor::Determinant(Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 5))), -1.0);
    // 2·(5·10 − 6·8) − 3·(4·10 − 6·7) + 1·(4·8 − 5·7) = 4 + 6 − 3
    EXPECT_EQ(vexor::Determinant(Mat3Dbl(Vec3Dbl(2, 3, 1), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 10))), 7.0);
    EXPECT_EQ(vexor::Determinant(Mat3Dbl(Vec3Dbl(0, 1, 0), Vec3Dbl(1, 0, 0), Vec3Dbl(0, 0, 1))), -1.0);
}

TEST(Make, TraceAddsDownTheDiagonal)
{
    // (1 + 2^53) is 2^53 and 2^53 − 2^53 is 0; from the other end the sum would be 1.
    EXPECT_EQ(vexor::Trace(vexor::Diagonal(Vec3Dbl(1, 0x1p53, -0x1p53))), 0.0);
    EXPECT_EQ(vexor::Trace(Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4))), 5.0);
    MatDbl matrix(3, 3, 2.0);
    EXPECT_EQ(vexor::Trace(matrix), 6.0);
    EXPECT_THROW(vexor::Trace(MatDbl(2, 3, 0.0)), VexorDimensionMismatch);
}

TEST(Make, RotationsAndRigidMaps)
{
    Quaternion const quarter(Vec3Dbl(0, 0, 1), pi / 2, 0);
    Vec3Dbl const turned = vexor::RotationMatrix(quarter) * Vec3Dbl(1, 0, 0);
    EXPECT_NEAR(turned.x, 0, 1e-15);
    EXPECT_NEAR(turned.y, 1, 1e-15);
    AffMat3Dbl const map = vexor::AffineMap(quarter, Vec3Dbl(10, 20, 30));
    Pnt3Dbl const moved = map * Pnt3Dbl(1, 0, 0);
    EXPECT_NEAR(moved.x, 10, 1e-15);
    EXPECT_NEAR(moved.y, 21, 1e-14);
    EXPECT_NEAR(moved.z, 30, 1e-15);
    vexor::RigidParts const parts = vexor::ToRigidParts(map);
    EXPECT_EQ(parts.translation, Vec3Dbl(10, 20, 30));
    EXPECT_NEAR(parts.rotation.w, std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(parts.rotation.s, std::sqrt(0.5), 1e-15);
}

TEST(Make, RotationAboutALineKeepsTheLine)
{
    AffMat3Dbl const map = vexor::RotationAboutLine(Pnt3Dbl(1, 0, 0), Vec3Dbl(0, 0, 25), pi / 2);
    Pnt3Dbl const onLine = map * Pnt3Dbl(1, 0, 7);
    EXPECT_NEAR(onLine.x, 1, 1e-15);
    EXPECT_NEAR(onLine.y, 0, 1e-15);
    EXPECT_NEAR(onLine.z, 7, 1e-15);
    Pnt3Dbl const turned = map * Pnt3Dbl(2, 0, 0);
    EXPECT_NEAR(turned.x, 1, 1e-15);
    EXPECT_NEAR(turned.y, 1, 1e-15);
    EXPECT_THROW(vexor::RotationAboutLine(Pnt3Dbl(0, 0, 0), Vec3Dbl(0, 0, 0), 1.0), VexorNullVector);
}

TEST(Make, Projections)
{
    // The plane z = 2, its normal of length 8: the foot keeps x and y.
    EXPECT_EQ(vexor::ProjectOnPlane(Pnt3Dbl(3, 4, 9), Pnt3Dbl(0, 0, 2), Vec3Dbl(0, 0, -8)), Pnt3Dbl(3, 4, 2));
    EXPECT_EQ(vexor::ProjectOnLine(Pnt3Dbl(3, 4, 9), Pnt3Dbl(0, 0, 2), Vec3Dbl(0, 0, -8)), Pnt3Dbl(0, 0, 9));
    EXPECT_EQ(vexor::ProjectOnLine(Pnt2Dbl(3, 4), Pnt2Dbl(1, 1), Vec2Dbl(5, 0)), Pnt2Dbl(3, 1));
    EXPECT_THROW(vexor::ProjectOnPlane(Pnt3Dbl(3, 4, 9), Pnt3Dbl(0, 0, 2), Vec3Dbl(0, 0, 0)),
                 VexorNullVector);
    EXPECT_THROW(vexor::ProjectOnLine(Pnt3Dbl(3, 4, 9), Pnt3Dbl(0, 0, 2), Vec3Dbl(0, 0, 0)), VexorNullVector);
}

TEST(Make, BoundingBoxSkipsNaN)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    std::vector<Pnt3Dbl> const points = {Pnt3Dbl(nan, 5, 1), Pnt3Dbl(2, -1, 1), Pnt3Dbl(-3, nan, 1)};
    auto const box = vexor::BoundingBox(points.begin(), points.end());
    EXPECT_EQ(box.min, Pnt3Dbl(-3, -1, 1));
    EXPECT_EQ(box.max, Pnt3Dbl(2, 5, 1));
    auto const empty = vexor::BoundingBox(points.begin(), points.begin());
    EXPECT_EQ(empty.min, Pnt3Dbl(infinity));
    EXPECT_EQ(empty.max, Pnt3Dbl(-infinity));
    Pnt2Dbl const plane[] = {Pnt2Dbl(1, 2), Pnt2Dbl(0, 3)};
    EXPECT_EQ(vexor::BoundingBox(plane, plane + 2).min, Pnt2Dbl(0, 2));
}

TEST(Make, AnglesKeepFullPrecisionNearZeroAndPi)
{
    // tan a = 1e-8, and a differs from it by less than 1e-24.
    EXPECT_NEAR(vexor::Angle(Vec3Dbl(1, 0, 0), Vec3Dbl(1, 1e-8, 0)), 1e-8, 1e-23);
    EXPECT_EQ(Vec3Dbl(1, 0, 0).GetAngleWith(Vec3Dbl(1, 1e-9, 0)), 0.0); // the result of the arc cosine
    EXPECT_NEAR(vexor::Angle(Vec3Dbl(1, 0, 0), Vec3Dbl(-1, 1e-8, 0)), pi - 1e-8, 1e-15);
    EXPECT_EQ(vexor::Angle(Vec3Dbl(1e300, 0, 0), Vec3Dbl(0, 1e-300, 0)), pi / 2);
    EXPECT_THROW(vexor::Angle(Vec3Dbl(0, 0, 0), Vec3Dbl(1, 0, 0)), VexorNullVector);
    EXPECT_EQ(vexor::SignedAngle(Vec2Dbl(1, 0), Vec2Dbl(0, -2)), -pi / 2);
    EXPECT_NEAR(vexor::SignedAngle(Vec2Dbl(1, 0), Vec2Dbl(1, -1e-8)), -1e-8, 1e-23);

    Quaternion small;
    small.SetValue(0.0, 0.0, 0.5e-8, 1.0, 0);
    EXPECT_NEAR(vexor::RotationAngle(small), 1e-8, 1e-23);
    small.SetValue(0.0, 0.0, 0.5e-8, -1.0, 0);
    EXPECT_NEAR(vexor::RotationAngle(small), 1e-8, 1e-23);
    Quaternion const third(Vec3Dbl(1, 0, 0), 2 * pi / 3, 0);
    EXPECT_NEAR(vexor::Angle(Quaternion(), third), 2 * pi / 3, 1e-15);
    EXPECT_EQ(vexor::Angle(third, third), 0.0);
}

} // namespace
