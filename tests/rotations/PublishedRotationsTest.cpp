// Rotations compared with figures that another project publishes. There a rotation turns the frame and the
// vector stays; here it turns the vector. So a matrix R there is the transpose of the matrix here, a turn by
// φ there is the inverse of a turn by φ here, and the transpose of a product A·B there is Bᵀ·Aᵀ here: read
// from the left in the order in which the frame turns. The tolerances are the published ones.
//
// Its function from a matrix to a rotation vector is not used: the matrix published there has the
// determinant −1.

#include <gtest/gtest.h>

#include <vexor/rotations/Quaternion.h>

#include "erfa_figures.h"

namespace vexor_test {
namespace {

using namespace erfa_figures;

Vec3Dbl Vector(double const (&values)[3])
{
    return Vec3Dbl(values[0], values[1], values[2]);
}

Mat3Dbl Matrix(double const (&m)[9])
{
    return Mat3Dbl(Vec3Dbl(m[0], m[1], m[2]), Vec3Dbl(m[3], m[4], m[5]), Vec3Dbl(m[6], m[7], m[8]));
}

/// A published matrix, converted to one that turns the vector.
Mat3Dbl Active(double const (&m)[9])
{
    return Matrix(m).GetTransposedCopy();
}

Mat3Dbl MatrixOf(Quaternion const& q)
{
    Mat3Dbl matrix;
    q.GetRotationMatrix(matrix);
    return matrix;
}

Quaternion AboutX(double angle)
{
    return Quaternion(1.0, 0.0, 0.0, angle, 1);
}

Quaternion AboutZ(double angle)
{
    return Quaternion(0.0, 0.0, 1.0, angle, 1);
}

void ExpectNear(Vec3Dbl const& actual, Vec3Dbl const& expected, double tolerance)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

void ExpectNear(Mat3Dbl const& actual, Mat3Dbl const& expected, double tolerance,
                double toleranceOffDiagonal = -1.0)
{
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(actual(r, c), expected(r, c),
                        r != c && toleranceOffDiagonal >= 0.0 ? toleranceOffDiagonal : tolerance)
                << "row " << r << ", column " << c;
}

} // namespace

TEST(PublishedRotations, RotationVector)
{
    Vec3Dbl const vector = Vector(rv2m_w);
    Quaternion const q(vector, vector.Length(), 1);
    Mat3Dbl const expected = Active(rv2m_r);
    ExpectNear(MatrixOf(q), expected, 1e-14);
    for (int i = 0; i < 3; ++i) {
        ExpectNear(q.GetRow(i), expected.GetRow(static_cast<unsigned>(i)), 1e-14);
        ExpectNear(q.GetCol(i), expected.GetCol(static_cast<unsigned>(i)), 1e-14);
    }
    // The reverse: from the matrix to the axis and the angle.
    Quaternion const back(expected);
    ExpectNear(back.GetAxis(1) * back.GetAngle(), vector, 1e-14);
    EXPECT_NEAR(back.Distance(q), 0.0, 1e-14);
}

TEST(PublishedRotations, AboutTheAxes)
{
    struct {
        Quaternion turn;
        Mat3Dbl before;
        Mat3Dbl after;
    } const cases[] = {
        {Quaternion(1.0, 0.0, 0.0, rx_angle, 0), Matrix(rx_before), Matrix(rx_after)},
        {Quaternion(0.0, 1.0, 0.0, ry_angle, 0), Matrix(ry_before), Matrix(ry_after)},
        {Quaternion(0.0, 0.0, 1.0, rz_angle, 0), Matrix(rz_before), Matrix(rz_after)},
    };
    for (auto const& c : cases) {
        // The frame turns, so the columns are turned by the inverse.
        Quaternion const back = c.turn.Inverse();
        ExpectNear(MatrixOf(back) * c.before, c.after, 1e-12);
        ExpectNear(MatrixOf(c.turn).GetTransposedCopy() * c.before, c.after, 1e-12);
        for (unsigned column = 0; column < 3; ++column) {
            ExpectNear(back.RotatePoint(c.before.GetCol(column)), c.after.GetCol(column), 1e-12);
            // The reverse, and by the vector's own rotation.
            ExpectNear(c.turn.RotatePoint(c.after.GetCol(column)), c.before.GetCol(column), 1e-12);
            Vec3Dbl turned = c.before.GetCol(column);
            turned.Rotate(c.turn.GetAxis(1), -c.turn.GetAngle());
            ExpectNear(turned, c.after.GetCol(column), 1e-12);
        }
    }
}

TEST(PublishedRotations, ProductsOfMatrices)
{
    EXPECT_TRUE(Matrix(rxr_a) * Matrix(rxr_b) == Matrix(rxr_atb));
    EXPECT_TRUE(Matrix(tr_r).Transpose() == Matrix(tr_rt));
    EXPECT_TRUE(Matrix(tr_r).GetTransposedCopy() == Matrix(tr_rt));
    ExpectNear(Matrix(rxp_r) * Vector(rxp_p), Vector(rxp_rp), 1e-12);
    ExpectNear(Matrix(trxp_r).GetTransposedCopy() * Vector(trxp_p), Vector(trxp_trp), 1e-12);
}

TEST(PublishedRotations, ProductsOfVectors)
{
    EXPECT_TRUE(Vector(pxp_a).Cross(Vector(pxp_b)) == Vector(pxp_axb));
    EXPECT_EQ(Vector(pdp_a).Dot(Vector(pdp_b)), pdp_adb);
    EXPECT_NEAR(Vector(pn_p).Length(), pn_r, 1e-15);
    ExpectNear(Vector(pn_p).GetNormalizedCopy(), Vector(pn_u), 1e-15);
    EXPECT_NEAR(Vector(sepp_a).GetAngleWith(Vector(sepp_b)), sepp_s, 1e-12);
}

TEST(PublishedRotations, SphericalCoordinates)
{
    // A direction is X, raised by the latitude (a turn about Y by the negative angle) and then turned about
    // Z by the longitude: Euler angles with no turn about X.
    auto const direction = [](double longitude, double latitude) {
        Vec3Dbl angles(0.0, -latitude, longitude);
        return Quaternion().SetFromEulerAngles(angles).XAxis();
    };
    ExpectNear(direction(s2c_theta, s2c_phi), Vector(s2c_c), 1e-12);
    EXPECT_NEAR(direction(seps_al, seps_ap).GetAngleWith(direction(seps_bl, seps_bp)), seps_s, 1e-14);

    // The reverse: any rotation with the direction as its first column has these angles about Y and Z.
    Vec3Dbl const x = Vector(c2s_p).GetNormalizedCopy();
    Vec3Dbl const y = x.GetPerpendicular();
    Quaternion const q(Mat3Dbl(x, y, x.Cross(y)).GetTransposedCopy());
    Vec3Dbl const angles = q.GetEulerAngles();
    EXPECT_NEAR(angles.z, c2s_theta, 1e-14);
    EXPECT_NEAR(-angles.y, c2s_phi, 1e-14);
}

TEST(PublishedRotations, EulerAngles)
{
    // The transpose of the frame's Rx(−yp)·Ry(−xp)·Rz(sp) is Rz(sp)·Ry(−xp)·Rx(−yp) here.
    Vec3Dbl angles(-pom00_yp, -pom00_xp, pom00_sp);
    Quaternion q;
    q.SetFromEulerAngles(angles);
    Mat3Dbl const expected = Active(pom00_rpom);
    ExpectNear(MatrixOf(q), expected, 1e-12, 1e-16);
    ExpectNear(Quaternion(expected).GetEulerAngles(), angles, 1e-16);
    ExpectNear(q.GetEulerAngles(), angles, 1e-16);
}

TEST(PublishedRotations, ProductsOfTurnsAboutAxes)
{
    Quaternion const precession =
        AboutZ(fw2m_gamb) * AboutX(fw2m_phib) * AboutZ(-fw2m_psi) * AboutX(-fw2m_eps);
    ExpectNear(MatrixOf(precession), Active(fw2m_r), 1e-12);
    EXPECT_NEAR(precession.Distance(Quaternion(Active(fw2m_r))), 0.0, 1e-12);

    Quaternion const nutation = AboutX(numat_epsa) * AboutZ(-numat_dpsi) * AboutX(-(numat_epsa + numat_deps));
    ExpectNear(MatrixOf(nutation), Active(numat_rmatn), 1e-12);
}

TEST(PublishedRotations, ProductsOfRotations)
{
    Quaternion const bias(Active(bp06_rb));
    Quaternion const precession(Active(bp06_rp));
    ExpectNear(MatrixOf(bias * precession), Active(bp06_rbp), 1e-12, 1e-14);
    ExpectNear(MatrixOf(Quaternion(Active(bp06_rbp))), Active(bp06_rbp), 1e-12, 1e-14);

    Quaternion const celestial(Active(c2tcio_rc2i));
    Quaternion const pole(Active(c2tcio_rpom));
    Quaternion const terrestrial = celestial * AboutZ(c2tcio_era) * pole;
    ExpectNear(MatrixOf(terrestrial), Active(c2tcio_rc2t), 1e-12);
    EXPECT_NEAR(Quaternion(Active(c2tcio_rc2t)).Distance(terrestrial), 0.0, 1e-12);
}

} // namespace vexor_test
