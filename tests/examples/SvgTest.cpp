#include "common/Svg.h"
#include "common/InputError.h"
#include "Files.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

using namespace examples;

std::string Contents(std::string const& path)
{
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// 10 × 5 units into 200 × 400 pixels: the width decides, 20 pixels a unit, centred at (130, 250).
TEST(MapInto, FillsAPanelAndTurnsTheOrdinatesDown)
{
    Bounds bounds;
    bounds.Include(Pnt2Dbl(1.0, 7.0));
    bounds.Include(Pnt2Dbl(11.0, 2.0));
    AffMat2Dbl const map = MapInto({30.0, 50.0, 200.0, 400.0}, bounds);
    EXPECT_DOUBLE_EQ(ScaleOf(map), 20.0);
    EXPECT_LT((map * Pnt2Dbl(6.0, 4.5)).DistanceTo(Pnt2Dbl(130.0, 250.0)), 1e-12);
    EXPECT_LT((map * Pnt2Dbl(1.0, 7.0)).DistanceTo(Pnt2Dbl(30.0, 200.0)), 1e-12);
}

TEST(MapInto, SurvivesASinglePoint)
{
    Bounds bounds;
    bounds.Include(Pnt2Dbl(3.0, 4.0));
    AffMat2Dbl const map = MapInto({0.0, 0.0, 100.0, 100.0}, bounds);
    EXPECT_LT((map * Pnt2Dbl(3.0, 4.0)).DistanceTo(Pnt2Dbl(50.0, 50.0)), 1e-9);
}

TEST(Svg, EscapesTextAndClosesTheFile)
{
    ScratchFile scratch("");
    Svg picture(200.0, 100.0);
    picture.Text(Pnt2Dbl(1.0, 2.0), "a < b & c > d");
    picture.Line(Pnt2Dbl(0.0, 0.0), Pnt2Dbl(10.0, 5.0), "stroke=\"black\"");
    picture.Save(scratch.Path());
    std::string const text = Contents(scratch.Path());
    EXPECT_EQ(text.rfind("<svg ", 0), 0U);
    EXPECT_NE(text.find("a &lt; b &amp; c &gt; d"), std::string::npos);
    EXPECT_NE(text.find("x2=\"10.00\" y2=\"5.00\""), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 7), "</svg>\n");
    EXPECT_THROW(picture.Save("no/such/folder/x.svg"), InputError);
}

TEST(Svg, FillsAPolygon)
{
    ScratchFile scratch("");
    Svg picture(20.0, 10.0);
    picture.Polygon({Pnt2Dbl(1.0, 2.0), Pnt2Dbl(3.5, 4.0), Pnt2Dbl(0.0, 9.0)}, "fill=\"red\"");
    picture.Save(scratch.Path());
    EXPECT_NE(
        Contents(scratch.Path()).find("<polygon points=\"1.00,2.00 3.50,4.00 0.00,9.00 \" fill=\"red\"/>"),
        std::string::npos);
}

// From (33, 102, 172) over 247 to (178, 24, 43); beyond the ends the end.
TEST(DivergingFill, GoesFromBlueOverWhiteToRed)
{
    EXPECT_EQ(examples::DivergingFill(0.0), "fill=\"rgb(247,247,247)\"");
    EXPECT_EQ(examples::DivergingFill(-1.0), "fill=\"rgb(33,102,172)\"");
    EXPECT_EQ(examples::DivergingFill(-0.2), "fill=\"rgb(204,218,232)\"");
    EXPECT_EQ(examples::DivergingFill(2.0), "fill=\"rgb(178,24,43)\"");
}

} // namespace
