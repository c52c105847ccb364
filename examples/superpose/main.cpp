// Superposes one protein structure on another: the best rotation and translation, found by two independent
// methods.
//
//   superpose FIXED.pdb MOVING.pdb PICTURE.svg [--mirror]
//
// --mirror reflects the moving structure first. No rotation can undo that; the best one is found
// nevertheless.

#include "common/Program.h"
#include "common/Svg.h"
#include "superpose/Superposition.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace examples {

namespace {

char const* const fixedColour = "#1f77b4";
char const* const movingColour = "#ff7f0e";
double const degreesPerRadian = 180.0 / 3.141592653589793;

void Mirror(std::vector<Residue>& residues)
{
    for (Residue& residue : residues)
        residue.place.x = -residue.place.x;
}

void Print(char const* name, Superposition const& found, PointPairs const& pairs)
{
    Vec3Dbl const axis = found.rotation.GetAxis(1);
    Vec3Dbl const& shift = found.motion.Translation();
    std::printf("%s\n", name);
    std::printf("  turn         %.9f degrees about (% .9f, % .9f, % .9f)\n",
                found.rotation.GetAngle() * degreesPerRadian, axis.x, axis.y, axis.z);
    std::printf("  shift        (%.6f, %.6f, %.6f) A\n", shift.x, shift.y, shift.z);
    std::printf("  RMSD after   %.9f A (predicted %.9f A)\n", Rmsd(pairs, found.motion), found.predictedRmsd);
}

void PrintComparison(Superposition const& bySvd, Superposition const& byQuaternion)
{
    std::printf("Angle between the two rotations: %.1e rad by Distance, which ends in an arc cosine and\n"
                "tells nothing below about 3e-08; %.1e rad by the sine of the half angle.\n",
                std::fabs(bySvd.rotation.Distance(byQuaternion.rotation)), // equal rotations give −0
                SmallAngleBetween(bySvd.rotation, byQuaternion.rotation));
}

// ---- The picture -----------------------------------------------------------------------------------

/// The directions to the right and upwards in a picture.
struct Viewpoint {
    Vec3Dbl right, up;
};

/// Looks along the axis in which the points extend least, or along the middle one.
Viewpoint LookAlong(bool isMiddleAxis, std::vector<Pnt3Dbl> const& points)
{
    Mat3Dbl scatter(0.0);
    for (Pnt3Dbl const& point : points) {
        Vec3Dbl const offset = point - points[points.size() / 2];
        scatter += offset.OuterProduct(offset);
    }
    Vec3Dbl ascending;
    scatter.EigenSym(ascending, 1);
    return {scatter.GetRow(2), scatter.GetRow(isMiddleAxis ? 0 : 1)};
}

std::vector<Pnt2Dbl> Project(std::vector<Pnt3Dbl> const& points, Viewpoint const& viewpoint)
{
    std::vector<Pnt2Dbl> projected;
    for (Pnt3Dbl const& point : points)
        projected.push_back(Pnt2Dbl(viewpoint.right.Dot(point.Vector()), viewpoint.up.Dot(point.Vector())));
    return projected;
}

std::vector<Pnt2Dbl> Apply(AffMat2Dbl const& map, std::vector<Pnt2Dbl> points)
{
    for (Pnt2Dbl& point : points)
        point = map * point;
    return points;
}

void DrawPanel(Svg& picture, Panel const& panel, std::string const& title, std::vector<Pnt2Dbl> const& fixed,
               std::vector<Pnt2Dbl> const& moving)
{
    Bounds bounds;
    for (auto const* points : {&fixed, &moving})
        for (Pnt2Dbl const& point : *points)
            bounds.Include(point);
    AffMat2Dbl const map = MapInto(panel, bounds);
    std::vector<Pnt2Dbl> const drawnFixed = Apply(map, fixed);
    std::vector<Pnt2Dbl> const drawnMoving = Apply(map, moving);

    picture.Text(Pnt2Dbl(panel.left, panel.top - 16.0), title, "fill=\"#333\"");
    for (std::size_t i = 0; i < drawnFixed.size(); ++i)
        picture.Line(drawnFixed[i], drawnMoving[i], "stroke=\"#bbb\" stroke-width=\"0.7\"");
    auto const style = [](char const* colour) {
        return std::string("stroke=\"") + colour + "\" stroke-width=\"3.2\" stroke-opacity=\"0.85\"";
    };
    picture.Polyline(drawnFixed, style(fixedColour));
    picture.Polyline(drawnMoving, style(movingColour));
    picture.ScaleBar({panel.left, panel.top, panel.width, panel.height + 24.0}, ScaleOf(map), "\u00c5");
}

/// The remaining distance between the atoms of each residue, as bars.
void DrawDistances(Svg& picture, Panel const& panel, PointPairs const& pairs, AffMat3Dbl const& motion)
{
    std::vector<double> distances;
    for (std::size_t i = 0; i < pairs.fixed.size(); ++i)
        distances.push_back(pairs.fixed[i].DistanceTo(motion * pairs.moving[i]));
    std::size_t const farthest =
        static_cast<std::size_t>(std::max_element(distances.begin(), distances.end()) - distances.begin());
    double const step = panel.width / static_cast<double>(distances.size());
    double const floor = panel.top + panel.height;
    picture.Text(Pnt2Dbl(panel.left, panel.top - 16.0),
                 "Distance that remains, residue by residue: largest " + Decimals(distances[farthest], 2)
                     + " \u00c5, at residue " + pairs.numbers[farthest],
                 "fill=\"#333\"");
    for (std::size_t i = 0; i < distances.size(); ++i) {
        double const height = panel.height * distances[i] / std::max(distances[farthest], 1e-300);
        picture.Rectangle({panel.left + step * static_cast<double>(i), floor - height, 0.8 * step, height},
                          i == farthest ? "fill=\"#d62728\"" : "fill=\"#888\"");
    }
    picture.Line(Pnt2Dbl(panel.left, floor), Pnt2Dbl(panel.left + panel.width, floor), "stroke=\"#333\"");
}

/// Mirror images match best along their longest axes, so the remaining difference shows only
/// in a view along another axis.
void Draw(PointPairs const& pairs, AffMat3Dbl const& motion, bool areMirrored, std::string const& subtitle,
          std::string const& path)
{
    std::vector<Pnt3Dbl> moved;
    for (Pnt3Dbl const& point : pairs.moving)
        moved.push_back(motion * point);
    std::vector<Pnt3Dbl> all(pairs.fixed);
    all.insert(all.end(), pairs.moving.begin(), pairs.moving.end());
    Viewpoint const beforeView = LookAlong(false, all);
    Viewpoint const afterView = LookAlong(areMirrored, pairs.fixed);

    Svg picture(1100.0, 800.0);
    picture.Title("Two protein structures, before and after superposition", subtitle);
    DrawPanel(picture, {30.0, 120.0, 500.0, 450.0},
              "Before: RMSD " + Decimals(Rmsd(pairs, AffMat3Dbl()), 3) + " \u00c5",
              Project(pairs.fixed, beforeView), Project(pairs.moving, beforeView));
    DrawPanel(picture, {570.0, 120.0, 500.0, 450.0},
              "After: RMSD " + Decimals(Rmsd(pairs, motion), 3) + " \u00c5", Project(pairs.fixed, afterView),
              Project(moved, afterView));
    DrawDistances(picture, {30.0, 660.0, 1040.0, 110.0}, pairs, motion);
    picture.Save(path);
}

// ---- The program -----------------------------------------------------------------------------------

int Run(std::vector<std::string> arguments)
{
    auto const option = std::find(arguments.begin(), arguments.end(), "--mirror");
    bool const mirror = option != arguments.end();
    if (mirror)
        arguments.erase(option);
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: superpose FIXED.pdb MOVING.pdb PICTURE.svg [--mirror]\n");
        return badUsage;
    }
    std::vector<Residue> const fixed = ReadStructure(arguments[0]);
    std::vector<Residue> moving = ReadStructure(arguments[1]);
    if (mirror)
        Mirror(moving);
    PointPairs const pairs = PairByNumber(fixed, moving);
    Correlation const correlation(pairs);
    Superposition const bySvd = correlation.BySvd();
    Superposition const byQuaternion = correlation.ByQuaternion();

    std::printf("%zu pairs of C-alpha atoms\nRMSD before    %.9f A\n", pairs.fixed.size(),
                Rmsd(pairs, AffMat3Dbl()));
    if (correlation.IsMirrored())
        std::printf(
            "The structures are nearer to mirror images: the best orthogonal matrix is a reflection.\n"
            "What follows is the best rotation.\n");
    Print("Singular value decomposition of the 3x3 correlation", bySvd, pairs);
    Print("Eigenvector of the symmetric 4x4 form, a quaternion", byQuaternion, pairs);
    PrintComparison(bySvd, byQuaternion);
    Draw(pairs, bySvd.motion, correlation.IsMirrored(),
         std::to_string(pairs.fixed.size()) + " C-alpha atoms; blue stays, orange moves"
             + (mirror ? " (mirrored on purpose)" : ""),
         arguments[2]);
    std::printf("Wrote %s\n", arguments[2].c_str());
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("superpose", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
