// The peers come first, since interop.h compiles only the sections whose library is included.
#if defined(__has_include)
#    if __has_include(<Eigen/Geometry>)
#        include <Eigen/Geometry>
#        define HAVE_EIGEN
#    endif
#    if __has_include(<glm/glm.hpp>)
#        define GLM_FORCE_SILENT_WARNINGS
#        include <glm/glm.hpp>
#        include <glm/gtc/quaternion.hpp>
#        define HAVE_GLM
#    endif
#    if __has_include(<Imath/ImathQuat.h>)
#        include <Imath/ImathMatrix.h>
#        include <Imath/ImathQuat.h>
#        define HAVE_IMATH
#    endif
#endif
#include <vexor/extras/interop.h>
#include <vexor/vexor.h>

#include <gtest/gtest.h>

namespace {

// Nothing here is symmetric, so a transposition, another order of components or the inverse rotation shows.
Mat3Dbl const matrix(Vec3Dbl(1, 2, 3), Vec3Dbl(4, 5, 6), Vec3Dbl(7, 8, 10));
AffMat3Dbl const map(matrix, Vec3Dbl(-1, -2, -3));
Quaternion const rotation(Vec3Dbl(0.6, 0, 0.8), 1.0, 0);
Vec3Dbl const vector(1, -2, 5);

TEST(Interop, ArraysOfComponents)
{
    std::array<double, 3> const array = vexor::ToArray(vector);
    EXPECT_EQ(array, (std::array<double, 3>{1, -2, 5}));
    EXPECT_EQ(vexor::From<Vec3Dbl>(array), vector);
    EXPECT_EQ(vexor::From<Pnt2Flt>(std::array<float, 2>{1, 2}), Pnt2Flt(1, 2));
    EXPECT_EQ(vexor::ToArray(Vec2Int(3, 4)), (std::array<int, 2>{3, 4}));
}

TEST(Interop, FourByFourArraysOfGraphicsInterfaces)
{
    std::array<double, 16> const columns = {1, 4, 7, 0, 2, 5, 8, 0, 3, 6, 10, 0, -1, -2, -3, 1};
    std::array<double, 16> const rows = {1, 2, 3, -1, 4, 5, 6, -2, 7, 8, 10, -3, 0, 0, 0, 1};
    EXPECT_EQ(vexor::ToColumnMajor4x4<double>(map), columns);
    EXPECT_EQ(vexor::ToRowMajor4x4<double>(map), rows);
    EXPECT_EQ(vexor::ToColumnMajor4x4<float>(map)[14], -3.0f);
    EXPECT_EQ(vexor::FromColumnMajor4x4(columns), map);
    EXPECT_EQ(vexor::FromRowMajor4x4(rows), map);
    std::array<float, 16> projective = vexor::ToRowMajor4x4<float>(map);
    projective[14] = 1.0f;
    EXPECT_THROW(vexor::FromRowMajor4x4(projective), VexorDimensionMismatch);
}

#if defined(HAVE_EIGEN)

TEST(Interop, EigenComputesTheSame)
{
    Eigen::Vector3d const product = vexor::ToEigen(matrix) * vexor::ToEigen(vector);
    EXPECT_EQ(vexor::From<Vec3Dbl>(product), matrix * vector);
    Eigen::Vector3d const moved = vexor::ToEigen(map) * vexor::ToEigen(Pnt3Dbl(1, -2, 5));
    EXPECT_EQ(vexor::From<Pnt3Dbl>(moved), map * Pnt3Dbl(1, -2, 5));
    Vec3Dbl const turned = vexor::From<Vec3Dbl>(vexor::ToEigen(rotation) * vexor::ToEigen(vector));
    EXPECT_NEAR((turned - rotation.RotatePoint(vector)).Length(), 0, 1e-15);
    AffMat2Dbl const flat(Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4)), Vec2Dbl(5, 6));
    Eigen::Vector2d const movedFlat = vexor::ToEigen(flat) * Eigen::Vector2d(7, 8);
    EXPECT_EQ(vexor::From<Pnt2Dbl>(movedFlat), flat * Pnt2Dbl(7, 8));
    MatDbl dynamic(2, 3, 1.0);
    dynamic(0, 2) = 5.0;
    EXPECT_EQ(vexor::ToEigen(dynamic)(0, 2), 5.0);
}

TEST(Interop, EigenThereAndBack)
{
    EXPECT_EQ(vexor::From<Mat3Dbl>(vexor::ToEigen(matrix)), matrix);
    EXPECT_EQ(vexor::From<AffMat3Dbl>(vexor::ToEigen(map)), map);
    EXPECT_EQ(vexor::From<Quaternion>(vexor::ToEigen(rotation)), rotation);
    EXPECT_EQ(vexor::From<Vec3Flt>(vexor::ToEigen(Vec3Flt(1, 2, 3))), Vec3Flt(1, 2, 3));
    VecDbl const dynamic = vexor::From<VecDbl>(Eigen::VectorXd(Eigen::Vector2d(1, 2)));
    EXPECT_EQ(dynamic[1], 2.0);
    Eigen::MatrixXd wide(2, 3);
    wide << 1, 2, 3, 4, 5, 6;
    MatDbl const copy = vexor::From<MatDbl>(wide);
    EXPECT_EQ(copy(0, 2), 3.0);
    EXPECT_EQ(vexor::ToEigen(copy), wide);
    EXPECT_THROW(vexor::From<VecDbl>(Eigen::VectorXd()), VexorAllocationFailed);
}

TEST(Interop, EigenMapsAndViewsShareTheElements)
{
    Vec3Dbl changed(1, 2, 3);
    vexor::MapEigen(changed) *= 2.0;
    EXPECT_EQ(changed, Vec3Dbl(2, 4, 6));
    Mat3Dbl written(0.0);
    vexor::MapEigen(written)(0, 2) = 7.0;
    EXPECT_EQ(written(0, 2), 7.0);
    MatDbl dynamic(2, 3, 0.0);
    vexor::MapEigen(dynamic)(1, 2) = 4.0;
    EXPECT_EQ(dynamic(1, 2), 4.0);
    Eigen::MatrixXd block = Eigen::MatrixXd::Zero(2, 3);
    MatDbl view = vexor::ViewOf(block);
    view(0, 2) = 9.0;
    EXPECT_EQ(block(0, 2), 9.0);
    Eigen::VectorXd column = Eigen::VectorXd::Zero(2);
    VecDbl shorter = vexor::ViewOf(column);
    shorter[1] = 3.0;
    EXPECT_EQ(column[1], 3.0);
}

#else
TEST(Interop, Eigen)
{
    GTEST_SKIP() << "Eigen is not installed (Debian: libeigen3-dev)";
}
#endif

#if defined(HAVE_GLM)

TEST(Interop, GlmComputesTheSame)
{
    glm::dvec3 const product = vexor::ToGlm(matrix) * vexor::ToGlm(vector);
    EXPECT_EQ(vexor::From<Vec3Dbl>(product), matrix * vector);
    glm::dvec3 const moved(vexor::ToGlm(map) * glm::dvec4(1, -2, 5, 1));
    EXPECT_EQ(vexor::From<Pnt3Dbl>(moved), map * Pnt3Dbl(1, -2, 5));
    Vec3Dbl const turned = vexor::From<Vec3Dbl>(vexor::ToGlm(rotation) * vexor::ToGlm(vector));
    EXPECT_NEAR((turned - rotation.RotatePoint(vector)).Length(), 0, 2e-15);
    Mat2Dbl const flat(Vec2Dbl(1, 2), Vec2Dbl(3, 4));
    EXPECT_EQ(vexor::From<Vec2Dbl>(vexor::ToGlm(flat) * glm::dvec2(5, 6)), flat * Vec2Dbl(5, 6));
}

TEST(Interop, GlmThereAndBack)
{
    EXPECT_EQ(vexor::From<Mat3Dbl>(vexor::ToGlm(matrix)), matrix);
    EXPECT_EQ(vexor::From<AffMat3Dbl>(vexor::ToGlm(map)), map);
    EXPECT_EQ(vexor::From<Quaternion>(vexor::ToGlm(rotation)), rotation);
    EXPECT_EQ(vexor::From<Pnt3Flt>(vexor::ToGlm(Pnt3Flt(1, 2, 3))), Pnt3Flt(1, 2, 3));
    EXPECT_EQ(vexor::ToGlm(Vec2Int(3, 4)), glm::ivec2(3, 4));
    Mat2Dbl back = vexor::From<Mat2Dbl>(glm::dmat2(1, 3, 2, 4));
    EXPECT_TRUE(back == Mat2Dbl(Vec2Dbl(1, 2), Vec2Dbl(3, 4)));
    glm::dmat4 projective(1.0);
    projective[2][3] = -1.0;
    EXPECT_THROW(vexor::From<AffMat3Dbl>(projective), VexorDimensionMismatch);
}

#else
TEST(Interop, Glm)
{
    GTEST_SKIP() << "GLM is not installed (Debian: libglm-dev)";
}
#endif

#if defined(HAVE_IMATH)

TEST(Interop, ImathComputesTheSame)
{
    Imath::V3d const product = vexor::ToImath(vector) * vexor::ToImath(matrix);
    EXPECT_EQ(vexor::From<Vec3Dbl>(product), matrix * vector);
    Imath::V3d const moved = Imath::V3d(1, -2, 5) * vexor::ToImath(map);
    EXPECT_EQ(vexor::From<Pnt3Dbl>(moved), map * Pnt3Dbl(1, -2, 5));
    Vec3Dbl const turned =
        vexor::From<Vec3Dbl>(vexor::ToImath(rotation).rotateVector(vexor::ToImath(vector)));
    EXPECT_NEAR((turned - rotation.RotatePoint(vector)).Length(), 0, 2e-15);
}

TEST(Interop, ImathThereAndBack)
{
    EXPECT_EQ(vexor::From<Mat3Dbl>(vexor::ToImath(matrix)), matrix);
    EXPECT_EQ(vexor::From<AffMat3Dbl>(vexor::ToImath(map)), map);
    EXPECT_EQ(vexor::From<Quaternion>(vexor::ToImath(rotation)), rotation);
    EXPECT_EQ(vexor::From<Vec2Flt>(vexor::ToImath(Vec2Flt(1, 2))), Vec2Flt(1, 2));
    Imath::M44d projective;
    projective[2][3] = -1.0;
    EXPECT_THROW(vexor::From<AffMat3Dbl>(projective), VexorDimensionMismatch);
}

#else
TEST(Interop, Imath)
{
    GTEST_SKIP() << "Imath is not installed (Debian: libimath-dev)";
}
#endif

} // namespace
