// Draws a mesh in perspective: model, view and projection transforms, faces from the farthest to the nearest, each in
// one shade.
//
//   mesh_viewer MESH.obj PICTURE.svg [AZIMUTH ELEVATION]

#include "common/Finite.h"
#include "common/InputError.h"
#include "common/Program.h"
#include "common/Svg.h"
#include "common/TextFile.h"

#include <vexor/dynamic/MatDbl.h>
#include <vexor/extras/interop.h>
#include <vexor/extras/make.h>
#include <vexor/extras/range.h>
#include <vexor/extras/stream.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iomanip>
#include <iostream>
#include <map>
#include <set>

namespace examples {

namespace {

constexpr double degree = 3.141592653589793 / 180.0;
constexpr double distance = 4.0; // of the eye from the middle, for a mesh as large as the unit sphere
Vec3Dbl const toTheLight = Vec3Dbl(0.4, 0.7, 0.6).GetNormalizedCopy(); // in the axes of the eye
constexpr double halfAngleOfView = 15.0 * degree;

struct Mesh {
    std::vector<Pnt3Dbl> vertices;
    std::vector<std::vector<std::size_t>> faces; // the corners counter-clockwise, seen from outside
};

/// The place of a vertex that a face names: 1 is the first, −1 the last so far. What follows a slash is left out.
std::size_t Index(TextFile const& file, std::string const& field, std::size_t count)
{
    double number = 0.0;
    bool const isNumber =
        ParseNumber(field.substr(0, field.find('/')), number) && number == std::floor(number);
    if (!isNumber || number == 0.0 || std::fabs(number) > static_cast<double>(count))
        file.Fail("'" + field + "' is none of the " + std::to_string(count) + " vertices before it");
    return static_cast<std::size_t>(number > 0.0 ? number - 1.0 : static_cast<double>(count) + number);
}

Mesh ReadMesh(std::string const& path)
{
    Mesh mesh;
    TextFile file(path);
    while (file.NextLine()) {
        if (file.Field(0) == "v")
            mesh.vertices.emplace_back(file.Number(1), file.Number(2), file.Number(3));
        if (file.Field(0) != "f")
            continue;
        std::vector<std::size_t> corners;
        for (std::size_t i = 1; i < file.Fields().size(); ++i)
            corners.push_back(Index(file, file.Field(i), mesh.vertices.size()));
        if (corners.size() < 3)
            file.Fail("a face has at least 3 corners, found " + std::to_string(corners.size()));
        mesh.faces.push_back(corners);
    }
    if (mesh.faces.empty())
        throw InputError(path + ": holds no face");
    return mesh;
}

/// The area of a polygon times its normal: half the sum of the cross products of the edges from its first corner.
Vec3Dbl AreaVector(std::vector<Pnt3Dbl> const& corners)
{
    Vec3Dbl sum(0.0);
    for (std::size_t i = 2; i < corners.size(); ++i)
        sum += (corners[i - 1] - corners[0]).Cross(corners[i] - corners[0]);
    return 0.5 * sum;
}

std::vector<Pnt3Dbl> Corners(std::vector<std::size_t> const& face, std::vector<Pnt3Dbl> const& vertices)
{
    std::vector<Pnt3Dbl> corners;
    for (std::size_t const index : face)
        corners.push_back(vertices[index]);
    return corners;
}

/// Prints what does not depend on the view: the box, the area, and the volume if each edge joins two faces.
void Measure(Mesh const& mesh, vexor::Box<Pnt3Dbl> const& box)
{
    std::set<std::pair<std::size_t, std::size_t>> edges;
    double area = 0.0, volume = 0.0;
    for (std::vector<std::size_t> const& face : mesh.faces) {
        for (std::size_t i = 0; i < face.size(); ++i)
            edges.insert({face[i], face[(i + 1) % face.size()]});
        std::vector<Pnt3Dbl> const corners = Corners(face, mesh.vertices);
        area += AreaVector(corners).Length();
        for (std::size_t i = 2; i < corners.size(); ++i) // a tetrahedron for each triangle
            volume +=
                (corners[0] - box.min).Dot((corners[i - 1] - box.min).Cross(corners[i] - box.min)) / 6.0;
    }
    RequireFinite("the area", area);
    RequireFinite("the volume", volume);
    bool const isClosed = std::all_of(edges.begin(), edges.end(), [&edges](auto const& edge) {
        return edges.count({edge.second, edge.first}) == 1;
    });
    std::cout << std::fixed << std::setprecision(6) << mesh.vertices.size() << " vertices, "
              << mesh.faces.size() << " faces\nbox     " << box.min << " to " << box.max << "\narea    "
              << area << '\n';
    if (isClosed)
        std::cout << "volume  " << volume << '\n';
}

/// The matrix of a perspective with a square picture, as graphics interfaces have it: the eye at the origin looks along
/// −z, and what is seen becomes the cube from −1 to 1.
MatDbl Perspective(double halfAngle, double nearest, double farthest)
{
    double const f = 1.0 / std::tan(halfAngle), depth = nearest - farthest;
    return vexor::Matrix({{f, 0, 0, 0},
                          {0, f, 0, 0},
                          {0, 0, (farthest + nearest) / depth, 2.0 * farthest * nearest / depth},
                          {0, 0, -1, 0}});
}

void Draw(Mesh const& mesh, AffMat3Dbl const& modelView, MatDbl const& clip, std::string const& path)
{
    AffMat2Dbl const map(vexor::Diagonal(Vec2Dbl(250.0, -250.0)), Vec2Dbl(250.0, 250.0));
    using Face = std::pair<std::vector<Pnt2Dbl>, double>; // corners, and the cosine of the light
    std::multimap<double, Face, std::greater<>> faces;    // by their distances, the farthest first
    for (std::vector<std::size_t> const& face : mesh.faces) {
        std::vector<Pnt3Dbl> const corners = Corners(face, mesh.vertices);
        std::vector<Pnt2Dbl> places;
        Vec3Dbl middle(0.0);
        for (Pnt3Dbl const& corner : corners) {
            VecDbl const h = clip * vexor::Vector({corner.x, corner.y, corner.z, 1.0});
            places.push_back(map * Pnt2Dbl(h[0] / h[3], h[1] / h[3]));
            middle += (modelView * corner).Vector() / static_cast<double>(corners.size());
        }
        Vec3Dbl const normal = modelView * AreaVector(corners); // turned and scaled alike in all directions
        if (normal.Dot(middle) < 0.0)                           // the outside is turned to the eye
            faces.insert(
                {middle.Length(), {places, std::max(0.0, normal.GetNormalizedCopy().Dot(toTheLight))}});
    }
    std::cout << faces.size() << " faces turned to the eye\n";
    Svg picture(500.0, 500.0);
    for (auto const& [depth, face] : faces) {
        std::string rgb;
        for (double const colour : {120.0, 170.0, 225.0})
            rgb += (rgb.empty() ? "rgb(" : ",") + Decimals((0.25 + 0.75 * face.second) * colour, 0);
        picture.Polygon(face.first, "fill=\"" + rgb + ")\" stroke=\"" + rgb + ")\" stroke-width=\"0.7\"");
    }
    picture.Save(path);
}

int Run(std::vector<std::string> const& arguments)
{
    double azimuth = 30.0, elevation = 60.0;
    bool isUsage = arguments.size() != 2 && arguments.size() != 4;
    if (arguments.size() == 4)
        isUsage = !ParseNumber(arguments[2], azimuth) || !ParseNumber(arguments[3], elevation);
    if (isUsage) {
        std::cerr << "usage: mesh_viewer MESH.obj PICTURE.svg [AZIMUTH ELEVATION]\n";
        return badUsage;
    }
    Mesh const mesh = ReadMesh(arguments[0]);
    vexor::Box<Pnt3Dbl> const box = vexor::BoundingBox(mesh.vertices.begin(), mesh.vertices.end());
    Vec3Dbl const diagonal = box.max - box.min;
    if (diagonal.IsNull())
        throw InputError(arguments[0] + ": all vertices are in one place");
    RequireFinite("the size", diagonal.Length());
    Measure(mesh, box);
    double const scale = 2.0 / diagonal.Length(); // to the unit sphere
    AffMat3Dbl const model(vexor::Diagonal(Vec3Dbl(scale)), -scale * (box.min + 0.5 * diagonal).Vector());
    Quaternion const turn(Vec3Dbl(0, 0, 1), -(azimuth + 90.0) * degree,
                          0); // z upwards; azimuth 0 sees from x
    Quaternion const tilt(Vec3Dbl(1, 0, 0), (elevation - 90.0) * degree, 0);
    AffMat3Dbl const modelView = vexor::AffineMap(tilt * turn, Vec3Dbl(0.0, 0.0, -distance)) * model;
    std::array<double, 16> columns = vexor::ToColumnMajor4x4<double>(modelView);
    MatDbl const clip =
        Perspective(halfAngleOfView, distance - 1.0, distance + 1.0) * MatDbl(4, 4, columns.data());
    std::cout << "transform from the mesh to the cube of the view\n";
    for (int row = 0; row < 4; ++row)
        std::cout << "  " << clip.GetRow(row) << '\n';
    Draw(mesh, modelView, clip, arguments[1]);
    std::cout << "Wrote " << arguments[1] << '\n';
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("mesh_viewer", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
