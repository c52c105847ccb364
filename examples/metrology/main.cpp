// Fits a plane or a sphere to measured points, so that the sum of the squared distances is least, and draws
// how far each point deviates.
//
//   metrology plane|sphere POINTS PICTURE.svg

#include "common/Finite.h"
#include "common/InputError.h"
#include "common/Program.h"
#include "common/Svg.h"
#include "common/TextFile.h"

#include <vexor/dynamic/MatDbl.h>
#include <vexor/extras/make.h>
#include <vexor/extras/stream.h>

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <limits>

namespace examples {

namespace {

/// The deviation of each point from the fitted shape, in millimetres, and its place in the picture.
struct Deviations {
    std::size_t parameters;
    std::vector<double> values = {};
    std::vector<Pnt2Dbl> places = {};
};

std::vector<Pnt3Dbl> ReadPoints(std::string const& path)
{
    std::vector<Pnt3Dbl> points;
    TextFile file(path);
    while (file.NextLine()) {
        if (file.Fields().size() != 3)
            file.Fail("a point has 3 coordinates, found " + std::to_string(file.Fields().size()));
        points.emplace_back(file.Number(0), file.Number(1), file.Number(2));
    }
    return points;
}

/// Summed as displacements from the first point, so that points far from the origin lose no digits.
Pnt3Dbl Centroid(std::vector<Pnt3Dbl> const& points)
{
    Vec3Dbl sum(0.0);
    for (Pnt3Dbl const& point : points)
        sum += point - points.front();
    return points.front() + sum / static_cast<double>(points.size());
}

/// The principal axes of the points in the rows, the longest first. Raises InputError if fewer than `needed`
/// of them have an extent.
Mat3Dbl PrincipalAxes(std::vector<Pnt3Dbl> const& points, Pnt3Dbl const& centroid, int needed,
                      char const* complaint)
{
    MatDbl rows(static_cast<int>(points.size()), 3);
    for (int i = 0; i < rows.RowCount(); ++i)
        for (int j = 0; j < 3; ++j)
            rows(i, j) = (points[static_cast<std::size_t>(i)] - centroid)[j];
    RequireFinite("a distance of two points", rows);
    VecDbl values;
    rows.Svd(values); // the right singular vectors replace the first rows
    double const rounding = std::numeric_limits<double>::epsilon() * static_cast<double>(points.size());
    if (values[needed - 1] <= rounding * values[0])
        throw InputError(complaint);
    return vexor::FromRows(Vec3Dbl(rows.GetRow(0)), Vec3Dbl(rows.GetRow(1)), Vec3Dbl(rows.GetRow(2)));
}

/// The plane through the centroid perpendicular to the shortest axis; its normal points upwards.
Deviations FitPlane(std::vector<Pnt3Dbl> const& points)
{
    if (points.size() < 4)
        throw InputError("the deviations from a plane need at least 4 points, found "
                         + std::to_string(points.size()));
    Pnt3Dbl const centroid = Centroid(points);
    Mat3Dbl const axes =
        PrincipalAxes(points, centroid, 2, "the points lie on a line: every plane through it fits");
    Vec3Dbl const normal = axes.GetRow(2).z < 0.0 ? -axes.GetRow(2) : axes.GetRow(2);
    std::cout << "centroid  " << centroid << " mm\nnormal    " << normal << '\n';

    Deviations result = {3};
    for (Pnt3Dbl const& point : points) {
        result.values.push_back((point - vexor::ProjectOnPlane(point, centroid, normal)).Dot(normal));
        Vec3Dbl const along = axes * (point - centroid);
        result.places.emplace_back(along.x, along.y);
    }
    return result;
}

/// The sphere by the Gauss–Newton method, from the centroid on. The equations of one step are the distances,
/// linearised in the centre and the radius.
Deviations FitSphere(std::vector<Pnt3Dbl> const& points)
{
    int const count = static_cast<int>(points.size());
    if (count < 5)
        throw InputError("the deviations from a sphere need at least 5 points, found "
                         + std::to_string(count));
    Pnt3Dbl const centroid = Centroid(points);
    PrincipalAxes(points, centroid, 3, "the points lie in a plane: no sphere fits best");
    Vec3Dbl centre(0.0); // from the centroid
    double radius = 0.0, step = 1.0;
    for (int steps = 0; step > 1e-12 * radius; ++steps) {
        if (steps == 100)
            throw NotComputableError("the fit of the sphere does not converge");
        MatDbl equations(count, 4, 1.0);
        VecDbl change(count);
        for (int i = 0; i < count; ++i) {
            Vec3Dbl const ray = (points[static_cast<std::size_t>(i)] - centroid) - centre;
            Vec3Dbl const direction = ray.GetNormalizedCopy();
            for (int j = 0; j < 3; ++j)
                equations(i, j) = direction[j];
            change[i] = ray.Length() - radius;
        }
        equations.SolveLinearLeastSquares(
            change); // gives four numbers: the steps of the centre and of the radius
        Vec3Dbl const shift(change[0], change[1], change[2]);
        centre += shift;
        radius += change[3];
        step = shift.Length();
        RequireFinite("the centre", centre);
        RequireFinite("the radius", radius);
    }
    std::cout << "centre    " << centroid + centre << " mm\nradius    " << radius << " mm\n";

    Deviations result = {4};
    Vec3Dbl const pole = centre.IsNull() ? Vec3Dbl(0, 0, 1) : -centre; // in the middle of the picture
    Vec3Dbl const right = pole.GetPerpendicular(), up = pole.GetNormalizedCopy().Cross(right);
    for (Pnt3Dbl const& point : points) {
        Vec3Dbl const ray = (point - centroid) - centre;
        result.values.push_back(ray.Length() - radius);
        Vec2Dbl place(ray.Dot(right), ray.Dot(up)); // at the angle from the pole
        result.places.emplace_back(place.IsNull() ? place : place.Normalize() * vexor::Angle(pole, ray));
    }
    return result;
}

void Draw(Deviations const& deviations, std::string const& title, std::string const& path)
{
    Bounds bounds;
    double largest = 0.0;
    for (std::size_t i = 0; i < deviations.values.size(); ++i) {
        bounds.Include(deviations.places[i]);
        largest = std::max(largest, std::fabs(deviations.values[i]));
    }
    Svg picture(500.0, 440.0);
    picture.Title(title, std::to_string(deviations.values.size()) + " points");
    AffMat2Dbl const map = MapInto({45.0, 105.0, 320.0, 300.0}, bounds);
    for (std::size_t i = 0; i < deviations.values.size(); ++i)
        picture.Circle(map * deviations.places[i], 13.0,
                       DivergingFill(largest > 0.0 ? deviations.values[i] / largest : 0.0)
                           + " stroke=\"#999\"");
    for (int k = -4; k <= 4; ++k) { // the scale of colours
        Pnt2Dbl const corner(410.0, 240.0 - 32.0 * k);
        picture.Rectangle({corner.x, corner.y, 24.0, 32.0}, DivergingFill(0.25 * k));
        picture.Text(corner + Vec2Dbl(30.0, 21.0), Decimals(250.0 * k * largest, 2));
    }
    picture.Text(Pnt2Dbl(410.0, 430.0), "micrometres", "text-anchor=\"middle\"");
    picture.Save(path);
}

int Run(std::vector<std::string> const& arguments)
{
    if (arguments.size() != 3 || (arguments[0] != "plane" && arguments[0] != "sphere")) {
        std::cerr << "usage: metrology plane|sphere POINTS PICTURE.svg\n";
        return badUsage;
    }
    bool const isPlane = arguments[0] == "plane";
    std::vector<Pnt3Dbl> const points = ReadPoints(arguments[1]);
    std::cout << std::fixed << std::setprecision(9) << points.size() << " points\n";
    Deviations const deviations = isPlane ? FitPlane(points) : FitSphere(points);
    double squares = 0.0;
    for (double const value : deviations.values)
        squares += value * value;
    RequireFinite("the sum of the squared deviations", squares);
    auto const [least, greatest] = std::minmax_element(deviations.values.begin(), deviations.values.end());
    double const freedom = static_cast<double>(points.size() - deviations.parameters);
    std::cout << "form      " << 1000.0 * (*greatest - *least) << " um, from " << 1000.0 * *least << " to "
              << 1000.0 * *greatest << "\nstandard deviation " << 1000.0 * std::sqrt(squares / freedom)
              << " um\n";
    Draw(deviations, isPlane ? "Deviations from the fitted plane" : "Deviations from the fitted sphere",
         arguments[2]);
    std::cout << "Wrote " << arguments[2] << '\n';
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("metrology", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
