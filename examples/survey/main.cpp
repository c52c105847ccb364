// Computes a traverse or a cave survey: stations from legs, misclosures distributed by least squares, and,
// with a drawn map of it, the survey on the grid of that map.
//
//   survey SURVEY.th PLAN.svg [MAP.th2 SCRAP]

#include "common/Finite.h"
#include "common/Program.h"
#include "common/Svg.h"
#include "survey/DrawnMap.h"

#include <vexor/matrices/Mat2Dbl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace examples {

namespace {

double const squareMetresPerAcre = 4046.8564224;
double const degreesPerRadian = 180.0 / 3.141592653589793;

// ---- What is printed -------------------------------------------------------------------------------

void PrintStations(Network const& network)
{
    std::printf("%-8s %12s %12s %12s %12s\n", "station", "east m", "north m", "height m", "adjusted by");
    for (Station const& station : network.stations)
        std::printf("%-8s %12.3f %12.3f %12.3f %12.4f\n", station.name.c_str(), station.adjusted.x,
                    station.adjusted.y, station.adjusted.z, station.adjusted.DistanceTo(station.traversed));
}

void PrintClosures(Survey const& survey, Network const& network)
{
    if (network.closures.empty())
        std::printf("No leg closes a loop: the legs have nothing to be checked against.\n");
    for (Closure const& closure : network.closures) {
        Leg const& leg = survey.legs[closure.leg];
        Vec3Dbl const& miss = closure.misclosure;
        std::printf("Leg %s to %s closes a loop of %.3f m. Misclosure: east %+.4f, north %+.4f, up %+.4f m",
                    leg.from.c_str(), leg.to.c_str(), closure.loopLength, miss.x, miss.y, miss.z);
        RequireFinite("the length of a misclosure", miss.Length());
        if (miss.IsZeroLength())
            std::printf(" (none)\n");
        else
            std::printf(", 1 in %.0f\n", closure.loopLength / miss.Length());
    }
}

void PrintSurvey(Survey const& survey, Network const& network)
{
    double length = 0.0;
    for (Leg const& leg : survey.legs)
        length += leg.length;
    RequireFinite("the length of all legs", length);
    std::printf("%s: %zu legs, %.3f m, %zu stations\n\n", survey.title.c_str(), survey.legs.size(), length,
                network.stations.size());
    PrintStations(network);
    std::printf("\n");
    PrintClosures(survey, network);
    double area = 0.0;
    if (RingArea(survey, network, area)) {
        RequireFinite("the area", area);
        std::printf("Area within: %.1f m2 (%.4f acres)\n", std::fabs(area),
                    std::fabs(area) / squareMetresPerAcre);
    }
}

/// The smallest and the largest scale of a linear map: roots of the eigenvalues of LᵀL.
Vec2Dbl Scales(Mat2Dbl const& linear)
{
    Mat2Dbl square = linear.GetTransposedCopy() * linear;
    Vec2Dbl ascending;
    square.EigenSym(ascending, 0);
    return Vec2Dbl(std::sqrt(ascending.x), std::sqrt(ascending.y));
}

void PrintGrid(GridFit const& fit)
{
    Vec2Dbl const scales = Scales(fit.toGrid.LinearPart());
    Vec2Dbl const north = fit.toGrid * Vec2Dbl(0.0, 1.0);
    std::printf("Grid of the drawn map, from %zu control points:\n", fit.controls.size());
    std::printf("  %.3f to %.3f map units a metre; north points %.1f degrees clockwise from the top\n",
                scales.x, scales.y, north.GetCCWAngleWith(Vec2Dbl(0.0, 1.0)) * degreesPerRadian);
    std::printf("%-8s %12s %12s %18s\n", "station", "grid x", "grid y", "drawn off by, m");
    for (ControlPoint const& control : fit.controls) {
        Pnt2Dbl const onGrid = fit.toGrid * control.ground;
        std::printf("%-8s %12.1f %12.1f %18.2f\n", control.name.c_str(), onGrid.x, onGrid.y,
                    fit.ResidualOf(control).Length());
    }
    std::printf("%-8s %12s %12s %18.2f\n", "rms", "", "", fit.rmsResidual);
}

/// Fits the grid; names a control point that spoils the fit and leaves it out.
GridFit FitAndPrintGrid(std::vector<ControlPoint> controls)
{
    std::printf("\n");
    int const blunder = FindBlunder(controls);
    if (blunder < 0) {
        GridFit fit = FitToGrid(controls);
        PrintGrid(fit);
        return fit;
    }
    double const rmsOfAll = FitToGrid(controls).rmsResidual;
    ControlPoint const spoiler = controls[static_cast<std::size_t>(blunder)];
    controls.erase(controls.begin() + blunder);
    GridFit fit = FitToGrid(controls);
    std::printf("Station %s is left out: drawn off by %.2f m, it alone raises the rms from %.2f to %.2f m.\n",
                spoiler.name.c_str(), fit.ResidualOf(spoiler).Length(), fit.rmsResidual, rmsOfAll);
    PrintGrid(fit);
    return fit;
}

// ---- The plan --------------------------------------------------------------------------------------

Pnt2Dbl OnPlan(Pnt3Dbl const& place)
{
    return Pnt2Dbl(place.x, place.y);
}

/// A drawn line with every point mapped.
DrawnLine Carried(DrawnLine line, AffMat2Dbl const& map)
{
    line.start = map * line.start;
    for (std::vector<Pnt2Dbl>& segment : line.segments)
        for (Pnt2Dbl& point : segment)
            point = map * point;
    return line;
}

std::string StyleOf(DrawnLine const& line)
{
    if (line.type == "wall")
        return "stroke=\"#5b4636\" stroke-width=\"2.6\"";
    return "stroke=\"#b09a86\" stroke-width=\"1.1\"";
}

/// Letters with a white outline, so that they are readable on lines.
char const* const labelStyle =
    "font-size=\"13\" fill=\"#333\" stroke=\"white\" stroke-width=\"3\" paint-order=\"stroke\"";

class Plan {
public:
    Plan(Survey const& fieldBook, Network const& adjusted, std::vector<DrawnLine> const& drawnLines)
        : survey(fieldBook), network(adjusted), lines(drawnLines)
    {
        Bounds bounds;
        for (Station const& station : network.stations)
            bounds.Include(OnPlan(station.adjusted));
        for (DrawnLine const& line : lines) {
            bounds.Include(line.start);
            for (std::vector<Pnt2Dbl> const& segment : line.segments)
                bounds.Include(segment.back());
        }
        toPicture = MapInto(panel, bounds);
    }

    void Save(std::string const& path, std::string const& subtitle)
    {
        picture.Title(survey.title, subtitle);
        for (DrawnLine const& line : lines) {
            DrawnLine const onPicture = Carried(line, toPicture);
            picture.Path(onPicture.start, onPicture.segments, StyleOf(line));
        }
        for (Leg const& leg : survey.legs)
            DrawLeg(leg);
        for (Station const& station : network.stations)
            DrawStation(station);
        for (Closure const& closure : network.closures)
            DrawMisclosure(closure);
        DrawNorthArrow();
        picture.ScaleBar({panel.left, panel.top, panel.width, panel.height + 40.0}, ScaleOf(toPicture), "m");
        picture.Save(path);
    }

private:
    Pnt2Dbl Place(std::string const& station) const
    {
        return toPicture * OnPlan(network.Find(station).adjusted);
    }

    void DrawLeg(Leg const& leg)
    {
        std::string style = "stroke=\"#d62728\" stroke-width=\"1.6\"";
        if (leg.isOnSurface)
            style += " stroke-dasharray=\"7 5\"";
        Pnt2Dbl const from = Place(leg.from);
        Pnt2Dbl const to = Place(leg.to);
        picture.Line(from, to, style);
        if (lines.empty())
            picture.Text((from + to) / 2.0 + Vec2Dbl(8.0, 4.0), Decimals(leg.length, 2) + " m", labelStyle);
    }

    void DrawStation(Station const& station)
    {
        Pnt2Dbl const place = Place(station.name);
        picture.Circle(place, 3.6, "fill=\"white\" stroke=\"#d62728\" stroke-width=\"1.6\"");
        picture.Text(place + Vec2Dbl(7.0, -6.0), station.name, labelStyle);
    }

    /// The misclosure, a hundred times as large, at the station where it occurs.
    void DrawMisclosure(Closure const& closure)
    {
        Vec2Dbl const miss(closure.misclosure.x, closure.misclosure.y);
        Pnt2Dbl const place = Place(survey.legs[closure.leg].to);
        Pnt2Dbl const tip = place + toPicture * miss * 100.0;
        picture.Arrow(place, tip, "#1f77b4");
        picture.Text(tip + Vec2Dbl(-30.0, 18.0), "misclosure \u00d7 100",
                     "font-size=\"13\" fill=\"#1f77b4\"");
    }

    void DrawNorthArrow()
    {
        Pnt2Dbl const foot(panel.left + panel.width, panel.top + 30.0);
        picture.Arrow(foot, foot - Vec2Dbl(0.0, 60.0), "#333");
        picture.Text(foot + Vec2Dbl(-5.0, 18.0), "N", "fill=\"#333\" font-weight=\"bold\"");
    }

    Panel panel{60.0, 120.0, 780.0, 640.0};
    Survey const& survey;
    Network const& network;
    std::vector<DrawnLine> const& lines;
    AffMat2Dbl toPicture;
    Svg picture{900.0, 830.0};
};

/// The text below the plan's title.
std::string Headline(Survey const& survey, Network const& network)
{
    std::string line = std::to_string(survey.legs.size()) + " legs";
    for (Closure const& closure : network.closures)
        line += ", misclosure " + Decimals(closure.misclosure.Length(), 3) + " m in "
                + Decimals(closure.loopLength, 1) + " m";
    bool const hasSurface =
        std::any_of(survey.legs.begin(), survey.legs.end(), [](Leg const& leg) { return leg.isOnSurface; });
    return hasSurface ? line + " (dashed: on the surface)" : line;
}

// ---- The program -----------------------------------------------------------------------------------

int Run(std::vector<std::string> const& arguments)
{
    if (arguments.size() != 2 && arguments.size() != 4) {
        std::fprintf(stderr, "usage: survey SURVEY.th PLAN.svg [MAP.th2 SCRAP]\n");
        return badUsage;
    }
    Survey const survey = ReadSurvey(arguments[0]);
    Network const network = Adjust(survey);
    PrintSurvey(survey, network);

    std::vector<DrawnLine> lines;
    std::string subtitle = Headline(survey, network);
    if (arguments.size() == 4) {
        DrawnMap const map = ReadDrawnMap(arguments[2], arguments[3]);
        GridFit const fit = FitAndPrintGrid(CommonStations(network, map));
        AffMat2Dbl const toGround = fit.toGrid.GetInvertedCopy();
        for (DrawnLine const& line : map.lines)
            lines.push_back(Carried(line, toGround));
        subtitle += "; walls and rocks from the drawn map, fitted to " + std::to_string(fit.controls.size())
                    + " of its stations";
    }
    Plan(survey, network, lines).Save(arguments[1], subtitle);
    std::printf("Wrote %s\n", arguments[1].c_str());
    return succeeded;
}

} // namespace

} // namespace examples

int main(int argumentCount, char** arguments)
{
    return examples::RunProgram("survey", [&] {
        return examples::Run(std::vector<std::string>(arguments + 1, arguments + argumentCount));
    });
}
