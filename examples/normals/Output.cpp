#include "normals/Output.h"

#include "common/Finite.h"

#include <vexor/arrays/Arrays.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <map>

namespace examples {

namespace {

/// 0 to 255 for −1 to 1.
int ShadeOf(double component)
{
    return static_cast<int>(std::floor(127.5 * (component + 1.0) + 0.5));
}

template <class Bits, class Number>
void Put(std::string& record, Number number)
{
    Bits bits = 0;
    static_assert(sizeof bits == sizeof number, "the bits of the number");
    std::memcpy(&bits, &number, sizeof bits);
    for (std::size_t byte = 0; byte < sizeof bits; ++byte)
        record += static_cast<char>(bits >> (8 * byte) & 0xffU);
}

// ---- Picture ---------------------------------------------------------------------------------------------

constexpr double cell = 2.0;  // pixels
constexpr double reach = 2.5; // standard deviations from the centroid that the picture shows
constexpr int shadeStep = 32; // equal shades share one path, so that the file stays small

/// The cells of a panel, each with the point that lies nearest to the viewer.
class Raster {
public:
    Raster(Panel const& rasterPanel, AffMat2Dbl const& planeToPanel)
        : panel(rasterPanel),
          map(planeToPanel),
          columns(static_cast<int>(panel.width / cell)),
          rows(static_cast<int>(panel.height / cell)),
          nearest(static_cast<std::size_t>(columns * rows), nothing)
    {}

    /// A point by its coordinates to the right, upward and towards the viewer.
    void Add(std::size_t index, std::vector<Vec3Dbl> const& coordinates)
    {
        Vec3Dbl const& own = coordinates[index];
        Pnt2Dbl const place = map * Pnt2Dbl(own.x, own.y);
        double const column = std::floor((place.x - panel.left) / cell);
        double const row = std::floor((place.y - panel.top) / cell);
        if (!(column >= 0.0 && column < columns && row >= 0.0 && row < rows))
            return;
        std::size_t& kept = nearest[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns)
                                    + static_cast<std::size_t>(column)];
        if (kept == nothing || own.z > coordinates[kept].z)
            kept = index;
    }

    /// Draws the cells, moved to the right by `shift`, in the colours of these normals.
    void Draw(Svg& picture, double shift, std::vector<Vec3Dbl> const& normals) const
    {
        std::map<std::array<int, 3>, std::vector<Pnt2Dbl>> cellsOfColour;
        for (std::size_t i = 0; i < nearest.size(); ++i) {
            if (nearest[i] == nothing)
                continue;
            std::array<int, 3> colour{};
            for (int k = 0; k < 3; ++k)
                colour[static_cast<std::size_t>(k)] =
                    std::min(ShadeOf(normals[nearest[i]][k]) / shadeStep * shadeStep + shadeStep / 2, 255);
            auto const column = static_cast<double>(i % static_cast<std::size_t>(columns));
            auto const row = static_cast<double>(i / static_cast<std::size_t>(columns));
            cellsOfColour[colour].emplace_back(panel.left + shift + cell * column, panel.top + cell * row);
        }
        for (auto const& [colour, corners] : cellsOfColour)
            picture.Squares(corners, cell,
                            "rgb(" + std::to_string(colour[0]) + "," + std::to_string(colour[1]) + ","
                                + std::to_string(colour[2]) + ")");
    }

private:
    static constexpr std::size_t nothing = static_cast<std::size_t>(-1);
    Panel panel;
    AffMat2Dbl map;
    int columns, rows;
    std::vector<std::size_t> nearest;
};

/// Rows to the right, upward and towards the viewer.
struct View {
    Mat3Dbl axes;
    Vec3Dbl deviations;
};

View ViewOf(std::vector<Pnt3Dbl> const& points, std::vector<Vec3Dbl> const& oriented)
{
    Mat3Dbl vectors = vexor::arrays::Covariance(points);
    for (unsigned row = 0; row < 3; ++row)
        RequireFinite("the covariance of the points", vectors.GetRow(row));
    Vec3Dbl variances(0.0);
    vectors.EigenSym(variances, 1);
    Vec3Dbl const longest = vectors.GetRow(2);
    Vec3Dbl shortest = vectors.GetRow(0);
    if (vexor::arrays::Sum(oriented).Dot(shortest) < 0.0)
        shortest = -shortest;
    auto const deviation = [](double variance) { return std::sqrt(std::max(variance, 0.0)); };
    return {Mat3Dbl(longest, shortest.Cross(longest), shortest),
            Vec3Dbl(deviation(variances.z), deviation(variances.y), deviation(variances.x))};
}

} // namespace

void WriteCloud(std::ostream& stream, std::vector<Pnt3Dbl> const& points, std::vector<Vec3Dbl> const& normals)
{
    stream
        << "ply\nformat binary_little_endian 1.0\ncomment written by the example 'normals'\nelement vertex "
        << points.size()
        << "\nproperty double x\nproperty double y\nproperty double z\nproperty float nx\nproperty float ny\n"
           "property float nz\nproperty uchar red\nproperty uchar green\nproperty uchar blue\nend_header\n";
    std::string record;
    for (std::size_t i = 0; i < points.size(); ++i) {
        record.clear();
        for (int k = 0; k < 3; ++k)
            Put<std::uint64_t>(record, points[i][k]);
        for (int k = 0; k < 3; ++k)
            Put<std::uint32_t>(record, static_cast<float>(normals[i][k]));
        for (int k = 0; k < 3; ++k)
            record += static_cast<char>(ShadeOf(normals[i][k]));
        stream.write(record.data(), static_cast<std::streamsize>(record.size()));
    }
}

Svg DrawNormals(std::string const& name, std::vector<Pnt3Dbl> const& points,
                std::vector<Vec3Dbl> const& unoriented, std::vector<Vec3Dbl> const& oriented)
{
    View const view = ViewOf(points, oriented);
    Pnt3Dbl const centroid = vexor::arrays::Centroid(points);
    std::vector<Vec3Dbl> coordinates(points.size(), Vec3Dbl(0.0));
    vexor::arrays::Subtract(points, centroid, coordinates);
    vexor::arrays::Multiply(view.axes, coordinates, coordinates);

    Panel const left{30.0, 110.0, 410.0, 400.0};
    double const shift = 430.0;
    Bounds bounds;
    bounds.Include(Pnt2Dbl(-reach * view.deviations.x, -reach * view.deviations.y));
    bounds.Include(Pnt2Dbl(reach * view.deviations.x, reach * view.deviations.y));
    Raster raster(left, MapInto(left, bounds));
    for (std::size_t i = 0; i < points.size(); ++i)
        raster.Add(i, coordinates);

    Svg picture(900.0, 530.0);
    picture.Title("Normals of " + name.substr(name.find_last_of("/\\") + 1),
                  std::to_string(points.size())
                      + " points; red: to the right, green: upward, blue: towards the viewer");
    std::vector<Vec3Dbl> turned(points.size(), Vec3Dbl(0.0));
    vexor::arrays::Multiply(view.axes, unoriented, turned);
    picture.Text(Pnt2Dbl(left.left, 98.0), "As the eigenproblem gives them", "fill=\"#333\"");
    raster.Draw(picture, 0.0, turned);
    vexor::arrays::Multiply(view.axes, oriented, turned);
    picture.Text(Pnt2Dbl(left.left + shift, 98.0), "Oriented", "fill=\"#333\"");
    raster.Draw(picture, shift, turned);
    return picture;
}

} // namespace examples
