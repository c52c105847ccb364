#include "principal_axes/PrincipalAxes.h"
#include "common/InputError.h"
#include "Files.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace {

using namespace examples;

std::vector<CloudPoint> CloudOf(std::vector<Pnt3Dbl> const& places)
{
    std::vector<CloudPoint> cloud;
    for (Pnt3Dbl const& place : places)
        cloud.push_back({place, Colour()});
    return cloud;
}

/// The corners of a box, one of them at the given place.
std::vector<CloudPoint> Box(Pnt3Dbl const& corner, Vec3Dbl const& size)
{
    std::vector<Pnt3Dbl> places;
    for (int i = 0; i < 8; ++i)
        places.push_back(corner + Vec3Dbl(i & 1, (i >> 1) & 1, (i >> 2) & 1).ElemMult(size));
    return CloudOf(places);
}

TEST(PrincipalAxes, OfABoxAreItsEdges)
{
    PrincipalAxes const found = FindPrincipalAxes(Box(Pnt3Dbl(0.0), Vec3Dbl(2.0, 8.0, 4.0)));
    EXPECT_EQ(found.centroid, Pnt3Dbl(1.0, 4.0, 2.0));
    // Eight points at half the edge from the middle: 8/7 of its square.
    EXPECT_NEAR(found.variances.x, 16.0 * 8.0 / 7.0, 1e-13);
    EXPECT_NEAR(found.variances.y, 4.0 * 8.0 / 7.0, 1e-13);
    EXPECT_NEAR(found.variances.z, 1.0 * 8.0 / 7.0, 1e-13);
    EXPECT_NEAR(std::fabs(found.axes(0, 1)), 1.0, 1e-15);
    EXPECT_NEAR(std::fabs(found.axes(1, 2)), 1.0, 1e-15);
    EXPECT_NEAR(std::fabs(found.axes(2, 0)), 1.0, 1e-15);
    Mat3Dbl const& axes = found.axes;
    EXPECT_NEAR(axes.GetRow(0).Cross(axes.GetRow(1)).Dot(axes.GetRow(2)), 1.0, 1e-15); // right-handed
}

// All coordinates and their sums are integers below 2⁵³, so the shift must not change the result at all.
TEST(PrincipalAxes, LoseNothingFarFromTheOrigin)
{
    Vec3Dbl const size(2.0, 8.0, 4.0);
    PrincipalAxes const near = FindPrincipalAxes(Box(Pnt3Dbl(0.0), size));
    PrincipalAxes const far = FindPrincipalAxes(Box(Pnt3Dbl(1e12, -3e13, 7e14), size));
    EXPECT_EQ(far.variances, near.variances);
    EXPECT_EQ(far.centroid, Pnt3Dbl(1e12 + 1.0, -3e13 + 4.0, 7e14 + 2.0));
}

// Points of the plane z = 2x − y + 3.
TEST(BestPlane, ContainsPointsThatLieInAPlane)
{
    std::vector<Pnt3Dbl> places;
    for (int x = -2; x <= 3; ++x)
        for (int y = -1; y <= 2; ++y)
            places.push_back(Pnt3Dbl(x, y, 2 * x - y + 3));
    BestPlane const plane = FindBestPlane(CloudOf(places));
    EXPECT_NEAR(plane.rmsDistance, 0.0, 1e-14);
    Vec3Dbl const expected = Vec3Dbl(2.0, -1.0, -1.0).Normalize();
    EXPECT_NEAR(plane.normal.Cross(expected).Length(), 0.0, 1e-14);
}

TEST(BestPlane, OfABoxLiesAcrossItsShortestEdge)
{
    BestPlane const plane = FindBestPlane(Box(Pnt3Dbl(5.0), Vec3Dbl(2.0, 8.0, 4.0)));
    EXPECT_NEAR(std::fabs(plane.normal.x), 1.0, 1e-15);
    EXPECT_NEAR(plane.rmsDistance, 1.0, 1e-14);
}

TEST(BestPlane, RefusesPointsThatDefineNone)
{
    EXPECT_THROW(FindBestPlane(CloudOf({Pnt3Dbl(0.0), Pnt3Dbl(1.0)})), InputError);
    EXPECT_THROW(FindBestPlane(CloudOf({Pnt3Dbl(0.0), Pnt3Dbl(1.0), Pnt3Dbl(7.0), Pnt3Dbl(-2.0)})),
                 InputError);
    EXPECT_THROW(FindBestPlane(CloudOf(std::vector<Pnt3Dbl>(5, Pnt3Dbl(1.0, 2.0, 3.0)))), InputError);
}

// The expected figures come from rational arithmetic for centroid and covariance and from an eigensolver
// with 40 digits.
TEST(PrincipalAxes, OfThePond)
{
    std::vector<CloudPoint> const cloud = ReadPointCloud(DataFile("pond/pond.xyz"));
    ASSERT_EQ(cloud.size(), 4999U);
    PrincipalAxes const found = FindPrincipalAxes(cloud);
    EXPECT_NEAR(found.centroid.x, 0.63635898485677135, 1e-14);
    EXPECT_NEAR(found.centroid.y, 0.83752197299459892, 1e-14);
    EXPECT_NEAR(found.centroid.z, -0.93913837288097620, 1e-14);
    EXPECT_NEAR(found.variances.x, 0.33012623370748136, 1e-14);
    EXPECT_NEAR(found.variances.y, 0.17302127181342085, 1e-14);
    EXPECT_NEAR(found.variances.z, 0.00314982247348899, 1e-15);

    Vec3Dbl const normal(-0.00096340156763542824, 0.98648361018240753, 0.16385712892304472);
    BestPlane const plane = FindBestPlane(cloud);
    EXPECT_NEAR(found.axes.GetRow(2).Cross(normal).Length(), 0.0, 1e-13);
    EXPECT_NEAR(plane.normal.Cross(normal).Length(), 0.0, 1e-13);
    EXPECT_NEAR(plane.rmsDistance, std::sqrt(0.0031498224734889950 * 4998.0 / 4999.0), 1e-14);
    Agreement const agreement = Compare(found, plane, cloud.size());
    EXPECT_LT(agreement.normalAngle, 1e-13);
    EXPECT_LT(agreement.relativeVariance, 1e-13);
}

TEST(Compare, SeesADifference)
{
    std::vector<CloudPoint> const cloud = Box(Pnt3Dbl(0.0), Vec3Dbl(2.0, 8.0, 4.0));
    PrincipalAxes const axes = FindPrincipalAxes(cloud);
    BestPlane plane = FindBestPlane(cloud);
    plane.normal = Vec3Dbl(std::cos(0.25), 0.0, std::sin(0.25));
    plane.singularValues.y *= std::sqrt(1.5);
    Agreement const agreement = Compare(axes, plane, cloud.size());
    EXPECT_NEAR(agreement.normalAngle, 0.25, 1e-14);
    EXPECT_NEAR(agreement.relativeVariance, 0.5 * 4.0 / 16.0, 1e-14);
}

TEST(ReadPointCloud, TakesColoursFromText)
{
    ScratchFile scratch("1 2 3 10 20 30\n4 5 6\n7 8 9 0.5 20 30\n1 1 1 256 0 0\n");
    std::vector<CloudPoint> const cloud = ReadPointCloud(scratch.Path());
    ASSERT_EQ(cloud.size(), 4U);
    EXPECT_EQ(cloud[0].place, Pnt3Dbl(1.0, 2.0, 3.0));
    EXPECT_EQ(cloud[0].colour.red, 10);
    EXPECT_EQ(cloud[0].colour.green, 20);
    EXPECT_EQ(cloud[0].colour.blue, 30);
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_EQ(cloud[i].colour.red, Colour().red) << i;
}

TEST(ReadPointCloud, ReadsBinaryPly)
{
    std::string text = "ply\nformat binary_little_endian 1.0\nelement vertex 2\nproperty uchar red\n"
                       "property float y\nproperty double x\nproperty short z\nproperty uchar green\n"
                       "property uchar blue\nend_header\n";
    auto const append = [&text](auto value) {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        text.append(bytes, sizeof value);
    };
    for (int i = 0; i < 2; ++i) {
        append(static_cast<unsigned char>(200 + i));
        append(1.5F + static_cast<float>(i));
        append(-0.1 * i);
        append(static_cast<short>(-300 - i));
        append(static_cast<unsigned char>(13));
        append(static_cast<unsigned char>(10));
    }
    ScratchFile whole(text);
    std::vector<CloudPoint> const cloud = ReadPointCloud(whole.Path());
    ASSERT_EQ(cloud.size(), 2U);
    EXPECT_EQ(cloud[0].place, Pnt3Dbl(0.0, 1.5, -300.0));
    EXPECT_EQ(cloud[1].place, Pnt3Dbl(-0.1, 2.5, -301.0));
    EXPECT_EQ(cloud[1].colour.red, 201);
    EXPECT_EQ(cloud[1].colour.green, 13);
    EXPECT_EQ(cloud[1].colour.blue, 10);

    ScratchFile cut(text.substr(0, text.size() - 1));
    EXPECT_THROW(ReadPointCloud(cut.Path()), InputError);
}

TEST(ReadPointCloud, RefusesABinaryCoordinateThatIsNoNumber)
{
    std::string text = "ply\nformat binary_little_endian 1.0\nelement vertex 1\nproperty float x\n"
                       "property float y\nproperty float z\nend_header\n";
    text += std::string("\0\0\x80\x3f\0\0\x80\x7f\0\0\x80\x3f", 12); // 1, infinity, 1
    ScratchFile scratch(text);
    try {
        ReadPointCloud(scratch.Path());
        FAIL() << "no complaint";
    } catch (InputError const& error) {
        EXPECT_EQ(error.what(),
                  scratch.Path() + ": byte 115, point 1 of 1: the property 'y' is not a finite number");
    }
}

} // namespace
