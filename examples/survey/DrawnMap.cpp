#include "survey/DrawnMap.h"

#include "common/Finite.h"
#include "common/InputError.h"
#include "common/TextFile.h"

#include <vexor/dynamic/MatDbl.h>

#include <cmath>

namespace examples {

namespace {

/// Reads the lines of one scrap, up to its `endscrap`.
class ScrapReader {
public:
    explicit ScrapReader(TextFile& mapFile) : file(mapFile) {}

    DrawnMap Read()
    {
        while (NextLine()) {
            std::string const& word = file.Field(0);
            if (word == "endscrap")
                return map;
            if (word == "line")
                ReadLine();
            else if (word == "area")
                SkipArea();
            else if (word == "point")
                ReadPoint();
        }
        file.Fail("the file ends inside the scrap");
    }

private:
    bool NextLine() { return file.NextLine(); }

    void ReadPoint()
    {
        if (file.Field(3) != "station")
            return;
        for (std::size_t i = 4; i + 1 < file.Fields().size(); ++i)
            if (file.Field(i) == "-name")
                map.stations[file.Field(i + 1)] = Pnt2Dbl(file.Number(1), file.Number(2));
    }

    /// The first line of coordinates is the start of the drawn line, each further one a segment. All
    /// other lines (`smooth off`, `subtype sand`) only affect the style.
    void ReadLine()
    {
        DrawnLine line{file.Field(1), Pnt2Dbl(0.0), {}};
        bool hasStart = false;
        while (NextLine()) {
            if (file.Field(0) == "endline") {
                if (hasStart)
                    map.lines.push_back(line);
                return;
            }
            double number = 0.0;
            if (!ParseNumber(file.Field(0), number))
                continue;
            std::vector<Pnt2Dbl> const points = ReadPoints();
            if (hasStart)
                line.segments.push_back(points);
            else
                line.start = points.back();
            hasStart = true;
        }
        file.Fail("the file ends inside a line");
    }

    void SkipArea()
    {
        while (NextLine())
            if (file.Field(0) == "endarea")
                return;
        file.Fail("the file ends inside an area");
    }

    std::vector<Pnt2Dbl> ReadPoints() const
    {
        std::size_t const count = file.Fields().size();
        if (count != 2 && count != 6)
            file.Fail("a segment has 2 or 6 coordinates, found " + std::to_string(count));
        std::vector<Pnt2Dbl> points;
        for (std::size_t i = 0; i < count; i += 2)
            points.push_back(Pnt2Dbl(file.Number(i), file.Number(i + 1)));
        return points;
    }

    TextFile& file;
    DrawnMap map;
};

Vec2Dbl Mean(std::vector<Vec2Dbl> const& vectors)
{
    Vec2Dbl sum(0.0);
    for (Vec2Dbl const& vector : vectors)
        sum += vector;
    return sum / static_cast<double>(vectors.size());
}

/// The 2×2 matrix L that minimises the sum of |L ground − grid|².
Mat2Dbl FitLinearPart(std::vector<Vec2Dbl> const& ground, std::vector<Vec2Dbl> const& grid)
{
    auto const count = static_cast<int>(ground.size());
    MatDbl coefficients(count, 2);
    MatDbl solution(count, 2);
    for (int i = 0; i < count; ++i)
        for (int j = 0; j < 2; ++j) {
            coefficients(i, j) = ground[static_cast<std::size_t>(i)][j];
            solution(i, j) = grid[static_cast<std::size_t>(i)][j];
        }
    RequireFinite("the control points about their mean", coefficients);
    RequireFinite("the control points about their mean", solution);
    coefficients.SolveLinearLeastSquares(solution); // column k of the solution is row k of L
    return Mat2Dbl(Vec2Dbl(solution(0, 0), solution(1, 0)), Vec2Dbl(solution(0, 1), solution(1, 1)));
}

} // namespace

DrawnMap ReadDrawnMap(std::string const& path, std::string const& scrap)
{
    TextFile file(path);
    while (file.NextLine())
        if (file.Field(0) == "scrap" && file.Field(1) == scrap)
            return ScrapReader(file).Read();
    throw InputError(path + ": holds no scrap '" + scrap + "'");
}

std::vector<ControlPoint> CommonStations(Network const& network, DrawnMap const& map)
{
    std::vector<ControlPoint> controls;
    for (Station const& station : network.stations) {
        auto const drawn = map.stations.find(station.name);
        if (drawn != map.stations.end())
            controls.push_back(
                {station.name, Pnt2Dbl(station.adjusted.x, station.adjusted.y), drawn->second});
    }
    return controls;
}

Vec2Dbl GridFit::ResidualOf(ControlPoint const& point) const
{
    return point.ground - toGrid.GetInvertedCopy() * point.grid;
}

// Relative to the two means the best translation is 0, so only the linear part is solved for.
GridFit FitToGrid(std::vector<ControlPoint> const& controls)
{
    if (controls.size() < 3)
        throw InputError("an affine map needs at least three control points, found "
                         + std::to_string(controls.size()));
    std::vector<Vec2Dbl> ground, grid;
    for (ControlPoint const& control : controls) {
        ground.push_back(control.ground.Vector());
        grid.push_back(control.grid.Vector());
    }
    Vec2Dbl const groundMean = Mean(ground);
    Vec2Dbl const gridMean = Mean(grid);
    for (Vec2Dbl& vector : ground)
        vector -= groundMean;
    for (Vec2Dbl& vector : grid)
        vector -= gridMean;

    Mat2Dbl const linear = FitLinearPart(ground, grid);
    GridFit fit{AffMat2Dbl(linear, gridMean - linear * groundMean), controls, 0.0};
    double squares = 0.0;
    for (ControlPoint const& control : controls)
        squares += fit.ResidualOf(control).LengthSquared();
    fit.rmsResidual = std::sqrt(squares / static_cast<double>(controls.size()));
    RequireFinite("the residuals of the control points", fit.rmsResidual);
    return fit;
}

int FindBlunder(std::vector<ControlPoint> const& controls)
{
    if (controls.size() < 8)
        return -1;
    double best = 0.5 * FitToGrid(controls).rmsResidual;
    int blunder = -1;
    for (std::size_t i = 0; i < controls.size(); ++i) {
        std::vector<ControlPoint> others(controls);
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(i));
        double const residual = FitToGrid(others).rmsResidual;
        if (residual < best) {
            best = residual;
            blunder = static_cast<int>(i);
        }
    }
    return blunder;
}

} // namespace examples
