// Finds the principal axes and the best-fit plane of a point cloud, each by its own method, and prints how
// well they agree.
//
//   principal_axes CLOUD PICTURE.svg

#include "common/Program.h"
#include "common/Svg.h"
#include "principal_axes/PrincipalAxes.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace examples {

namespace {

char const* const axisColours[3] = {"#d62728", "#2ca02c", "#1f77b4"};

void PrintVector(char const* name, Vec3Dbl const& vector)
{
    std::printf("%-18s % .9f  % .9f  % .9f\n", name, vector.x, vector.y, vector.z);
}

void Print(PrincipalAxes const& axes, BestPlane const& plane, std::size_t pointCount)
{
    std::printf("%zu points\n\n", pointCount);
    PrintVector("centroid", axes.centroid.Vector());
    for (unsigned k = 0; k < 3; ++k) {
        PrintVector(("axis " + std::to_string(k + 1)).c_str(), axes.axes.GetRow(k));
        std::printf("%-18s % .9f\n", "  deviation", std::sqrt(axes.variances[static_cast<int>(k)]));
    }
    PrintVector("plane normal", plane.normal);
    std::printf("%-18s % .9f\n\n", "  rms distance", plane.rmsDistance);

    Agreement const agreement = Compare(axes, plane, pointCount);
    std::printf("Eigenvectors of the covariance and singular vectors of the points agree:\n"
                "  third axis against normal  %.1e rad\n"
                "  variances                  %.1e of the largest\n",
                agreement.normalAngle, agreement.relativeVariance);
}

/// Points farther than this many standard deviations from the centroid, along any axis, are left out
/// of the picture: a few outliers would make the rest small.
double const reach = 3.0;

/// The coordinates of a point along the axes.
Vec3Dbl AlongAxes(PrincipalAxes const& axes, Pnt3Dbl const& point)
{
    return axes.axes * (point - axes.centroid);
}

std::vector<CloudPoint> WithoutStrays(PrincipalAxes const& axes, std::vector<CloudPoint> cloud)
{
    auto const isStray = [&](CloudPoint const& point) {
        Vec3Dbl const place = AlongAxes(axes, point.place);
        return !place.ElemMult(place).IsLessThan(axes.variances * (reach * reach));
    };
    cloud.erase(std::remove_if(cloud.begin(), cloud.end(), isStray), cloud.end());
    return cloud;
}

/// A view of the cloud along one of its axes: the coordinates along the two others.
class View {
public:
    View(PrincipalAxes const& principalAxes, int horizontalAxis, int verticalAxis, Panel const& panel)
        : axes(principalAxes), horizontal(horizontalAxis), vertical(verticalAxis)
    {
        Vec2Dbl const extent(reach * Deviation(horizontal), reach * Deviation(vertical));
        Bounds bounds;
        bounds.Include(Pnt2Dbl(0.0) - extent);
        bounds.Include(Pnt2Dbl(0.0) + extent);
        map = MapInto(panel, bounds);
    }

    Pnt2Dbl Place(Pnt3Dbl const& point) const
    {
        Vec3Dbl const place = AlongAxes(axes, point);
        return map * Pnt2Dbl(place[horizontal], place[vertical]);
    }

    /// Two standard deviations from the centroid along an axis.
    Pnt3Dbl TipOf(int axis) const
    {
        return axes.centroid + axes.axes.GetRow(static_cast<unsigned>(axis)) * (2.0 * Deviation(axis));
    }

private:
    double Deviation(int axis) const { return std::sqrt(axes.variances[axis]); }

    PrincipalAxes axes;
    int horizontal, vertical;
    AffMat2Dbl map;
};

void DrawCloud(Svg& picture, View const& view, std::vector<CloudPoint> const& cloud)
{
    for (CloudPoint const& point : cloud) {
        Colour const& c = point.colour;
        picture.Circle(view.Place(point.place), 2.2,
                       "fill=\"rgb(" + std::to_string(c.red) + "," + std::to_string(c.green) + ","
                           + std::to_string(c.blue) + ")\"");
    }
}

void DrawAxis(Svg& picture, View const& view, PrincipalAxes const& axes, int axis)
{
    Pnt2Dbl const tip = view.Place(view.TipOf(axis));
    picture.Arrow(view.Place(axes.centroid), tip, axisColours[axis]);
    picture.Text(tip + Vec2Dbl(7.0, -7.0), std::to_string(axis + 1),
                 std::string("font-size=\"18\" font-weight=\"bold\" stroke=\"white\" stroke-width=\"3\" "
                             "paint-order=\"stroke\" fill=\"")
                     + axisColours[axis] + "\"");
}

/// The plane seen edge-on: its line of intersection with the plane of the view.
void DrawPlane(Svg& picture, View const& view, PrincipalAxes const& axes, BestPlane const& plane)
{
    Vec3Dbl along = axes.axes.GetRow(1).Cross(plane.normal);
    along.Normalize() *= reach * std::sqrt(axes.variances.x);
    picture.Line(view.Place(axes.centroid - along), view.Place(axes.centroid + along),
                 "stroke=\"#444\" stroke-width=\"1.5\" stroke-dasharray=\"7 5\"");
}

void Draw(PrincipalAxes const& axes, BestPlane const& plane, std::vector<CloudPoint> const& cloud,
          std::string const& path)
{
    std::vector<CloudPoint> const drawn = WithoutStrays(axes, cloud);
    View const fromAbove(axes, 0, 1, {30.0, 120.0, 840.0, 620.0});
    View const fromTheSide(axes, 0, 2, {30.0, 820.0, 840.0, 120.0});

    Svg picture(900.0, 970.0);
    picture.Title("Principal axes of a point cloud",
                  std::to_string(cloud.size()) + " points, " + std::to_string(cloud.size() - drawn.size())
                      + " of them strays outside the picture; the arrows are two standard deviations long");
    picture.Text(Pnt2Dbl(30.0, 100.0), "Seen along the plane normal: axes 1 and 2", "fill=\"#333\"");
    DrawCloud(picture, fromAbove, drawn);
    DrawAxis(picture, fromAbove, axes, 0);
    DrawAxis(picture, fromAbove, axes, 1);

    picture.Text(Pnt2Dbl(30.0, 790.0),
                 "Seen edge-on: axes 1 and 3, with the best-fit plane (rms distance "
                     + Decimals(plane.rmsDistance, 4) + ")",
                 "fill=\"#333\"");
    DrawCloud(picture, fromTheSide, drawn);
    DrawPlane(picture, fromTheSide, axes, plane);
    DrawAxis(picture, fromTheSide, axes, 0);
    DrawAxis(picture, fromTheSide, axes, 2);
    picture.Save(path);
}

int Run(std::vector<std::string> const& arguments)
{
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: principal_axes CLOUD PICTURE.svg\n");
        return badUsage;
    }
    std::vector<CloudPoint> const cloud = ReadPointCloud(arguments[0]);
    BestPlane const plane = FindBestPlane(cloud);
    PrincipalAxes const axes = FindPrincipalAxes(cloud);
    Print(axes, plane, cloud.size());
    Draw(axes, plane, cloud, arguments[1]);
    std::printf("Wrote %s\n", arguments[1].c_str());
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("principal_axes", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
