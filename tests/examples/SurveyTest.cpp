#include "common/InputError.h"
#include "Files.h"
#include "survey/DrawnMap.h"

#include <vexor/foundation/VexorException.h>

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace {

using namespace examples;

double const pi = 3.141592653589793;

/// A survey with the given legs, one in each line: from, to, length, compass, clino.
Survey SurveyOf(std::string const& legs, std::string const& before = "")
{
    ScratchFile scratch("centreline\n" + before + "\ndata normal from to tape compass clino\n" + legs
                        + "\nendcentreline\n");
    return ReadSurvey(scratch.Path());
}

void ExpectNear(Pnt3Dbl const& found, Pnt3Dbl const& expected, double tolerance)
{
    EXPECT_NEAR(found.x, expected.x, tolerance);
    EXPECT_NEAR(found.y, expected.y, tolerance);
    EXPECT_NEAR(found.z, expected.z, tolerance);
}

void ExpectNear(Vec3Dbl const& found, Vec3Dbl const& expected, double tolerance)
{
    ExpectNear(Pnt3Dbl(found), Pnt3Dbl(expected), tolerance);
}

TEST(PolarLeg, TurnsClockwiseFromNorthAndRises)
{
    ExpectNear(PolarLeg(0.0, 0.0, 2.0), Vec3Dbl(0.0, 2.0, 0.0), 1e-15);
    ExpectNear(PolarLeg(pi / 2.0, 0.0, 2.0), Vec3Dbl(2.0, 0.0, 0.0), 1e-15);
    ExpectNear(PolarLeg(pi, -pi / 2.0, 2.0), Vec3Dbl(0.0, 0.0, -2.0), 1e-15);
    ExpectNear(PolarLeg(pi / 2.0, pi / 6.0, 2.0), Vec3Dbl(std::sqrt(3.0), 0.0, 1.0), 1e-15);
}

TEST(ReadSurvey, KnowsUnitsFlagsAndFixes)
{
    ScratchFile scratch(
        "survey pit -title \"The Old Pit\"\ncenterline\n"
        "  units compass clino grads\n  units length feet\n"
        "  data normal to from length bearing clino\n"
        "  b a 10 100 0 # east\n  flags surface\n  c b 10 0 50\n  flags not surface\n  d c 1 300 0\n"
        "  fix a 1 2 3\nendcenterline\nendsurvey\n");
    Survey const survey = ReadSurvey(scratch.Path());
    EXPECT_EQ(survey.title, "The Old Pit");
    ASSERT_EQ(survey.legs.size(), 3U);
    EXPECT_EQ(survey.legs[0].from, "a");
    EXPECT_EQ(survey.legs[0].to, "b");
    EXPECT_NEAR(survey.legs[0].length, 3.048, 1e-15);
    ExpectNear(survey.legs[0].displacement, Vec3Dbl(3.048, 0.0, 0.0), 1e-15);
    ExpectNear(survey.legs[1].displacement, Vec3Dbl(0.0, 3.048, 3.048) / std::sqrt(2.0), 1e-14);
    ExpectNear(survey.legs[2].displacement, Vec3Dbl(-0.3048, 0.0, 0.0), 1e-15);
    EXPECT_FALSE(survey.legs[0].isOnSurface);
    EXPECT_TRUE(survey.legs[1].isOnSurface);
    EXPECT_FALSE(survey.legs[2].isOnSurface);
    EXPECT_EQ(survey.fixed.at("a"), Pnt3Dbl(1.0, 2.0, 3.0));
}

TEST(Adjust, PlacesAnOpenTraverseByItsLegsAlone)
{
    Network const network = Adjust(SurveyOf("a b 3 90 0\nb c 4 0 0\nd c 5 90 0\n", "fix b 10 20 30"));
    EXPECT_TRUE(network.closures.empty());
    ExpectNear(network.Find("a").adjusted, Pnt3Dbl(7.0, 20.0, 30.0), 1e-13);
    ExpectNear(network.Find("b").adjusted, Pnt3Dbl(10.0, 20.0, 30.0), 0.0);
    ExpectNear(network.Find("c").adjusted, Pnt3Dbl(10.0, 24.0, 30.0), 1e-13);
    ExpectNear(network.Find("d").adjusted, Pnt3Dbl(5.0, 24.0, 30.0), 1e-13);
    EXPECT_THROW(network.Find("e"), std::out_of_range);
}

TEST(Adjust, PutsTheFirstStationAtTheOriginIfNoneIsFixed)
{
    Network const network = Adjust(SurveyOf("a b 3 90 0\n"));
    ExpectNear(network.Find("a").adjusted, Pnt3Dbl(0.0), 0.0);
}

/// Least squares with weights 1 / length, on a single loop, is the compass rule: each station moves by
/// the misclosure, times the part of the loop walked so far, backwards.
void ExpectCompassRule(Survey const& survey, Network const& network)
{
    Vec3Dbl end(0.0);
    double loop = 0.0;
    for (Leg const& leg : survey.legs) {
        end += leg.displacement;
        loop += leg.length;
    }
    ASSERT_EQ(network.closures.size(), 1U);
    EXPECT_EQ(network.closures[0].leg, survey.legs.size() - 1);
    ExpectNear(network.closures[0].misclosure, end, 1e-13);
    EXPECT_NEAR(network.closures[0].loopLength, loop, 1e-12);

    Vec3Dbl place(0.0);
    double walked = 0.0;
    for (Leg const& leg : survey.legs) {
        ExpectNear(network.Find(leg.from).traversed, Pnt3Dbl(place), 1e-12);
        ExpectNear(network.Find(leg.from).adjusted, Pnt3Dbl(place - end * (walked / loop)), 1e-12);
        place += leg.displacement;
        walked += leg.length;
    }
}

TEST(Adjust, FollowsTheCompassRuleRoundAField)
{
    Survey const survey = ReadSurvey(DataFile("traverse/five-sided-field.th"));
    ExpectCompassRule(survey, Adjust(survey));
}

TEST(Adjust, FollowsTheCompassRuleInSpace)
{
    Survey const survey =
        SurveyOf("a b 12.3 17 11\nb c 8.4 102 -35\nc d 15.1 190 4\nd e 6.6 255 28\ne a 9.9 301 -3\n");
    ExpectCompassRule(survey, Adjust(survey));
}

// Three legs along one line measure it as 10, 10.2 and 9.9: the weighted mean, with weights 1 / length, is
// 3 / (1/10 + 1/10.2 + 1/9.9).
TEST(Adjust, WeighsLegsByTheirLengths)
{
    Network const network = Adjust(SurveyOf("a b 10 90 0\na b 10.2 90 0\na b 9.9 90 0\n"));
    ExpectNear(network.Find("b").adjusted, Pnt3Dbl(10.031790184780449, 0.0, 0.0), 1e-13);
    ASSERT_EQ(network.closures.size(), 2U);
    EXPECT_NEAR(network.closures[0].misclosure.x, 0.2, 1e-14);
    EXPECT_NEAR(network.closures[0].loopLength, 20.2, 1e-14);
}

TEST(Adjust, KeepsFixedStationsAndMeasuresBetweenThem)
{
    Network const network = Adjust(SurveyOf("a b 10 90 0\nb c 30 90 0\n", "fix a 0 0 0\nfix c 40.4 0 0"));
    ASSERT_EQ(network.closures.size(), 1U);
    EXPECT_NEAR(network.closures[0].misclosure.x, -0.4, 1e-13);
    EXPECT_NEAR(network.closures[0].loopLength, 40.0, 1e-13);
    ExpectNear(network.Find("a").adjusted, Pnt3Dbl(0.0), 0.0);
    ExpectNear(network.Find("b").adjusted, Pnt3Dbl(10.1, 0.0, 0.0), 1e-13);
    ExpectNear(network.Find("c").adjusted, Pnt3Dbl(40.4, 0.0, 0.0), 0.0);
}

// Each end of the last leg is joined to a fixed station by another leg: 10 and 20 m, and 5 between them.
TEST(Adjust, CountsTheLegsOnBothSidesOfAClosingLeg)
{
    Network const network =
        Adjust(SurveyOf("a b 10 90 0\nd c 20 90 0\nb d 5 90 0\n", "fix a 0 0 0\nfix c 35 0 0"));
    ASSERT_EQ(network.closures.size(), 1U);
    EXPECT_EQ(network.closures[0].leg, 2U);
    EXPECT_NEAR(network.closures[0].loopLength, 35.0, 1e-13);
}

TEST(RingArea, IsPositiveCounterClockwise)
{
    double area = 0.0;
    Survey const clockwise = SurveyOf("a b 3 0 0\nb c 4 90 0\nc d 3 180 0\nd a 4 270 0\n");
    ASSERT_TRUE(RingArea(clockwise, Adjust(clockwise), area));
    EXPECT_NEAR(area, -12.0, 1e-13);
    Survey const counterClockwise = SurveyOf("a b 4 90 0\nb c 3 0 0\nc d 4 270 0\nd a 3 180 0\n");
    ASSERT_TRUE(RingArea(counterClockwise, Adjust(counterClockwise), area));
    EXPECT_NEAR(area, 12.0, 1e-13);
    Survey const open = SurveyOf("a b 4 90 0\nb c 3 0 0\n");
    EXPECT_FALSE(RingArea(open, Adjust(open), area));
    Survey const eight = SurveyOf("a b 4 90 0\nb a 4 270 0\na c 4 0 0\nc a 4 180 0\n");
    EXPECT_FALSE(RingArea(eight, Adjust(eight), area));
}

// ---- The grid of a map -------------------------------------------------------------------------------

AffMat2Dbl const someGrid(Mat2Dbl(Vec2Dbl(3.0, -17.0), Vec2Dbl(19.0, 2.0)), Vec2Dbl(500.0, -20.0));

std::vector<ControlPoint> ControlsOnTheGrid()
{
    std::vector<ControlPoint> controls;
    for (int i = 0; i < 12; ++i) {
        int const row = i / 4;
        Pnt2Dbl const ground(10.0 * (i % 4), 8.0 * row);
        controls.push_back({std::to_string(i), ground, someGrid * ground});
    }
    return controls;
}

TEST(FitToGrid, FindsAnAffineMap)
{
    GridFit const fit = FitToGrid(ControlsOnTheGrid());
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 3; ++column)
            EXPECT_NEAR(fit.toGrid(row, column), someGrid(row, column), 1e-12) << row << column;
    EXPECT_NEAR(fit.rmsResidual, 0.0, 1e-13);
}

// Four corners of a square, one of them moved by d: the affine fit leaves d/4 at each of them.
TEST(FitToGrid, SpreadsWhatDoesNotFit)
{
    std::vector<ControlPoint> controls = {{"a", Pnt2Dbl(0.0, 0.0), Pnt2Dbl(0.0, 0.0)},
                                          {"b", Pnt2Dbl(10.0, 0.0), Pnt2Dbl(20.0, 0.0)},
                                          {"c", Pnt2Dbl(10.0, 10.0), Pnt2Dbl(20.0, 20.0)},
                                          {"d", Pnt2Dbl(0.0, 10.0), Pnt2Dbl(0.0, 20.0)}};
    controls[2].grid += Vec2Dbl(0.08, 0.0);
    GridFit const fit = FitToGrid(controls);
    for (ControlPoint const& control : controls)
        EXPECT_NEAR((fit.toGrid * control.ground - control.grid).Length(), 0.02, 1e-13);
    EXPECT_NEAR(fit.rmsResidual, 0.01, 1e-4); // two units a metre
}

TEST(FitToGrid, RefusesTooFewPointsAndPointsOnALine)
{
    std::vector<ControlPoint> controls = ControlsOnTheGrid();
    controls.resize(2);
    EXPECT_THROW(FitToGrid(controls), InputError);
    std::vector<ControlPoint> line;
    for (int i = 0; i < 4; ++i)
        line.push_back({"", Pnt2Dbl(4.0 * i, 0.0), Pnt2Dbl(8.0 * i, 0.0)});
    EXPECT_THROW(FitToGrid(line), VexorException);
}

/// The residuals without one point, as a fraction of those with it.
double RemainderWithout(std::size_t index, std::vector<ControlPoint> controls)
{
    double const all = FitToGrid(controls).rmsResidual;
    controls.erase(controls.begin() + static_cast<std::ptrdiff_t>(index));
    return FitToGrid(controls).rmsResidual / all;
}

TEST(FindBlunder, FindsAPointWithoutWhichLessThanHalfRemains)
{
    std::vector<ControlPoint> controls = ControlsOnTheGrid();
    for (std::size_t i = 0; i < controls.size(); ++i) // some noise, so that the fit is not exact
        controls[i].grid += Vec2Dbl(i % 2 ? 0.3 : -0.3, i % 3 ? 0.2 : -0.2);
    EXPECT_EQ(FindBlunder(controls), -1);

    std::vector<ControlPoint> slight(controls);
    slight[3].grid += Vec2Dbl(0.5, -0.4);
    ASSERT_GT(RemainderWithout(3, slight), 0.5);
    EXPECT_EQ(FindBlunder(slight), -1);

    std::vector<ControlPoint> marked(controls);
    marked[3].grid += Vec2Dbl(3.0, -2.0);
    ASSERT_LT(RemainderWithout(3, marked), 0.5);
    ASSERT_GT(RemainderWithout(3, marked), 0.1);
    EXPECT_EQ(FindBlunder(marked), 3);

    marked.resize(7);
    EXPECT_EQ(FindBlunder(marked), -1); // too few to decide
}

TEST(CommonStations, AreThoseThatBothHave)
{
    Network const network = Adjust(SurveyOf("a b 3 90 0\nb c 4 0 0\n"));
    DrawnMap map;
    map.stations = {{"c", Pnt2Dbl(7.0, 8.0)}, {"x", Pnt2Dbl(0.0)}, {"a", Pnt2Dbl(1.0, 2.0)}};
    std::vector<ControlPoint> const controls = CommonStations(network, map);
    ASSERT_EQ(controls.size(), 2U);
    EXPECT_EQ(controls[0].name, "a");
    EXPECT_EQ(controls[1].name, "c");
    EXPECT_NEAR(controls[1].ground.x, 3.0, 1e-14);
    EXPECT_NEAR(controls[1].ground.y, 4.0, 1e-14);
    EXPECT_EQ(controls[1].grid, Pnt2Dbl(7.0, 8.0));
}

TEST(ReadDrawnMap, TakesStationsAndLinesOfOneScrap)
{
    ScratchFile scratch(
        "encoding utf-8\n##XTHERION## 1 2\nscrap other\npoint 9 9 station -name 1\nendscrap\n"
        "scrap mine -scale [0 0 1 1 m]\npoint 1.5 2 station -name 1\npoint 3 4 station-name -align b\n"
        "point 5 6 debris\nline wall -close on\n  0 0\n  10 0 # straight\n"
        "  11 1 12 2 13 3\n  smooth off\nendline\narea water\n  l1\nendarea\nline pit\nendline\n"
        "endscrap\n");
    DrawnMap const map = ReadDrawnMap(scratch.Path(), "mine");
    ASSERT_EQ(map.stations.size(), 1U);
    EXPECT_EQ(map.stations.at("1"), Pnt2Dbl(1.5, 2.0));
    ASSERT_EQ(map.lines.size(), 1U);
    EXPECT_EQ(map.lines[0].type, "wall");
    EXPECT_EQ(map.lines[0].start, Pnt2Dbl(0.0));
    ASSERT_EQ(map.lines[0].segments.size(), 2U);
    EXPECT_EQ(map.lines[0].segments[0].size(), 1U);
    ASSERT_EQ(map.lines[0].segments[1].size(), 3U);
    EXPECT_EQ(map.lines[0].segments[1][2], Pnt2Dbl(13.0, 3.0));
}

} // namespace
