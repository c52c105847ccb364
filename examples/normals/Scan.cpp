#include "normals/Scan.h"

#include "common/InputFile.h"
#include "common/PlyReader.h"
#include "normals/LineEnds.h"

#include <vexor/elementary.h>

#include <cmath>
#include <cstdint>
#include <sstream>
#include <utility>
#include <vector>

namespace examples {

namespace {

void ReadVertices(std::istream& stream, std::string const& name, ScanVisitor const& visit)
{
    PlyReader reader(stream, name);
    auto const x = static_cast<std::size_t>(reader.RequiredIndexOf("x"));
    auto const y = static_cast<std::size_t>(reader.RequiredIndexOf("y"));
    auto const z = static_cast<std::size_t>(reader.RequiredIndexOf("z"));
    int const normal[3] = {reader.IndexOf({"nx"}), reader.IndexOf({"ny"}), reader.IndexOf({"nz"})};
    bool const hasNormals = normal[0] >= 0 && normal[1] >= 0 && normal[2] >= 0;

    std::vector<double> values;
    for (std::size_t i = 0; i < reader.VertexCount(); ++i) {
        reader.Next(values);
        ScanPoint point{Pnt3Dbl(values[x], values[y], values[z]), Vec3Dbl(0.0)};
        if (hasNormals)
            for (int k = 0; k < 3; ++k)
                point.normal[k] = values[static_cast<std::size_t>(normal[k])];
        visit(point);
    }
}

/// A number in [0, 1) from the bits of a counter, well mixed. The constants are those of the finaliser of
/// MurmurHash3 (Appleby 2011).
double Scattered(std::uint64_t counter)
{
    std::uint64_t bits = counter + 0x9e3779b97f4a7c15U;
    bits = (bits ^ bits >> 33U) * 0xff51afd7ed558ccdU;
    bits = (bits ^ bits >> 33U) * 0xc4ceb9fe1a85ec53U;
    bits ^= bits >> 33U;
    return static_cast<double>(bits >> 11U) * 0x1p-53;
}

/// Point i of the surface z = 0.05 · sin 6πx · cos 4πy: one point at random in each cell of a grid.
ScanPoint SurfacePoint(std::size_t i, std::size_t cellsAcross)
{
    constexpr double pi = 3.141592653589793;
    constexpr double height = 0.05;
    double const side = 1.0 / static_cast<double>(cellsAcross);
    double const x = side * (static_cast<double>(i % cellsAcross) + Scattered(2 * i));
    double const y = side * (static_cast<double>(i / cellsAcross) + Scattered(2 * i + 1));
    vexor::SineAndCosine const alongX = vexor::SinCos(6.0 * pi * x);
    vexor::SineAndCosine const alongY = vexor::SinCos(4.0 * pi * y);
    Vec3Dbl const normal(-height * 6.0 * pi * alongX.cosine * alongY.cosine,
                         height * 4.0 * pi * alongX.sine * alongY.sine, 1.0);
    return {Pnt3Dbl(x, y, height * alongX.sine * alongY.cosine), normal.GetNormalizedCopy()};
}

} // namespace

Scan Scan::OfFile(std::string path, bool restoresLineEnds)
{
    Scan scan;
    scan.name = std::move(path);
    scan.restores = restoresLineEnds;
    return scan;
}

Scan Scan::OfSurface(std::size_t count)
{
    Scan scan;
    scan.name = "a wavy surface";
    scan.isFile = false;
    scan.surfaceCount = count;
    return scan;
}

void Scan::ForEach(ScanVisitor const& visit) const
{
    if (!isFile) {
        auto const cellsAcross =
            static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(surfaceCount))));
        for (std::size_t i = 0; i < surfaceCount; ++i)
            visit(SurfacePoint(i, cellsAcross));
    } else if (restores) {
        std::istringstream restored(RestoreLineEnds(ReadInputFile(name).str(), name));
        ReadVertices(restored, name, visit);
    } else {
        std::ifstream file = OpenInputFile(name);
        ReadVertices(file, name, visit);
    }
}

} // namespace examples
