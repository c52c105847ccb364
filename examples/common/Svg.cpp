#include "common/Svg.h"

#include "common/Finite.h"
#include "common/OutputFile.h"
#include "common/Text.h"

#include <vexor/extras/interpolate.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace examples {

namespace {

std::string Coordinates(Pnt2Dbl const& point)
{
    return Decimals(point.x, 2) + "," + Decimals(point.y, 2);
}

std::string Attribute(char const* name, double value)
{
    return std::string(" ") + name + "=\"" + Decimals(value, 2) + "\"";
}

/// The largest of 1, 2 and 5 times a power of ten that does not exceed the limit.
double RoundLength(double limit)
{
    double const power = std::pow(10.0, std::floor(std::log10(limit)));
    for (double const factor : {5.0, 2.0})
        if (factor * power <= limit)
            return factor * power;
    return power;
}

} // namespace

std::string Decimals(double number, int decimals)
{
    RequireFinite("a number of the picture", number);
    char text[400]; // the largest double has 309 digits before its point
    std::snprintf(text, sizeof text, "%.*f", decimals, number);
    return text;
}

std::string DivergingFill(double part)
{
    Vec3Dbl const end = part < 0.0 ? Vec3Dbl(33.0, 102.0, 172.0) : Vec3Dbl(178.0, 24.0, 43.0);
    Vec3Dbl const colour = vexor::Lerp(Vec3Dbl(247.0), end, std::min(std::fabs(part), 1.0));
    return "fill=\"rgb(" + Decimals(colour.x, 0) + "," + Decimals(colour.y, 0) + "," + Decimals(colour.z, 0)
           + ")\"";
}

void Bounds::Include(Pnt2Dbl const& point)
{
    if (isEmpty) {
        lowest = highest = point;
        isEmpty = false;
    }
    lowest.SetValue(std::min(lowest.x, point.x), std::min(lowest.y, point.y));
    highest.SetValue(std::max(highest.x, point.x), std::max(highest.y, point.y));
}

AffMat2Dbl MapInto(Panel const& panel, Bounds const& bounds)
{
    Vec2Dbl const size = bounds.Highest() - bounds.Lowest();
    double const extent = size.IsNull() ? 1.0 : size.MaxValue();
    double const scale = std::min(panel.width / std::max(size.x, 1e-9 * extent),
                                  panel.height / std::max(size.y, 1e-9 * extent));
    Mat2Dbl const flipped(Vec2Dbl(scale, 0.0), Vec2Dbl(0.0, -scale));
    Vec2Dbl const middle = ((bounds.Lowest() + bounds.Highest()) * 0.5).Vector();
    Vec2Dbl const centre(panel.left + 0.5 * panel.width, panel.top + 0.5 * panel.height);
    return AffMat2Dbl(flipped, centre - flipped * middle);
}

double ScaleOf(AffMat2Dbl const& map)
{
    return (map * Vec2Dbl(1.0, 0.0)).Length();
}

Svg::Svg(double pictureWidth, double pictureHeight) : width(pictureWidth), height(pictureHeight) {}

void Svg::Line(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& style)
{
    body += "<line" + Attribute("x1", from.x) + Attribute("y1", from.y) + Attribute("x2", to.x)
            + Attribute("y2", to.y) + " " + style + "/>\n";
}

void Svg::Arrow(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& colour)
{
    Vec2Dbl const shaft = to - from;
    if (shaft.IsNull())
        return;
    Vec2Dbl const along = shaft.GetNormalizedCopy() * 11.0;
    Vec2Dbl const across = shaft.GetPerpendicular() * 4.5;
    Line(from, to - along * 0.8, "stroke=\"" + colour + "\" stroke-width=\"2.5\"");
    body += "<polygon points=\"" + Coordinates(to) + " " + Coordinates(to - along + across) + " "
            + Coordinates(to - along - across) + "\" fill=\"" + colour + "\"/>\n";
}

void Svg::Polygon(std::vector<Pnt2Dbl> const& corners, std::string const& style)
{
    body += "<polygon points=\"";
    for (Pnt2Dbl const& corner : corners)
        body += Coordinates(corner) + " ";
    body += "\" " + style + "/>\n";
}

void Svg::Polyline(std::vector<Pnt2Dbl> const& points, std::string const& style)
{
    body += "<polyline points=\"";
    for (Pnt2Dbl const& point : points)
        body += Coordinates(point) + " ";
    body += "\" fill=\"none\" stroke-linejoin=\"round\" stroke-linecap=\"round\" " + style + "/>\n";
}

void Svg::Circle(Pnt2Dbl const& centre, double radius, std::string const& style)
{
    body += "<circle" + Attribute("cx", centre.x) + Attribute("cy", centre.y) + Attribute("r", radius) + " "
            + style + "/>\n";
}

void Svg::Rectangle(Panel const& panel, std::string const& style)
{
    body += "<rect" + Attribute("x", panel.left) + Attribute("y", panel.top) + Attribute("width", panel.width)
            + Attribute("height", panel.height) + " " + style + "/>\n";
}

void Svg::Path(Pnt2Dbl const& start, std::vector<std::vector<Pnt2Dbl>> const& segments,
               std::string const& style)
{
    body += "<path d=\"M" + Coordinates(start);
    for (std::vector<Pnt2Dbl> const& segment : segments) {
        body += segment.size() == 3 ? " C" : " L";
        for (Pnt2Dbl const& point : segment)
            body += " " + Coordinates(point);
    }
    body += "\" fill=\"none\" stroke-linejoin=\"round\" " + style + "/>\n";
}

void Svg::Text(Pnt2Dbl const& place, std::string const& text, std::string const& style)
{
    body += "<text" + Attribute("x", place.x) + Attribute("y", place.y) + " " + style + ">"
            + EscapedForXml(text) + "</text>\n";
}

void Svg::Title(std::string const& title, std::string const& subtitle)
{
    Text(Pnt2Dbl(30.0, 38.0), title, "font-size=\"20\" font-weight=\"bold\"");
    Text(Pnt2Dbl(30.0, 62.0), subtitle, "fill=\"#555\"");
}

void Svg::ScaleBar(Panel const& panel, double pixelsPerUnit, std::string const& unit)
{
    double const length = RoundLength(0.25 * panel.width / pixelsPerUnit);
    RequireFinite("the length of the scale bar", length);
    Pnt2Dbl const from(panel.left, panel.top + panel.height);
    Pnt2Dbl const to = from + Vec2Dbl(length * pixelsPerUnit, 0.0);
    Vec2Dbl const tick(0.0, 5.0);
    std::string const style = "stroke=\"#333\" stroke-width=\"1.5\"";
    Line(from, to, style);
    Line(from - tick, from + tick, style);
    Line(to - tick, to + tick, style);
    char label[32];
    std::snprintf(label, sizeof label, "%g ", length);
    Text(from + Vec2Dbl(4.0, -8.0), label + unit, "fill=\"#333\"");
}

// Lines as thick as they are long take fewer characters than rectangles.
void Svg::Squares(std::vector<Pnt2Dbl> const& corners, double side, std::string const& colour)
{
    body += "<path d=\"";
    for (Pnt2Dbl const& corner : corners)
        body +=
            "M" + Decimals(corner.x, 0) + "," + Decimals(corner.y + 0.5 * side, 0) + "h" + Decimals(side, 0);
    body += "\" stroke=\"" + colour + "\" stroke-width=\"" + Decimals(side, 0) + "\"/>\n";
}

void Svg::Write(std::ostream& stream) const
{
    stream << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << Decimals(width, 0) << "\" height=\""
           << Decimals(height, 0) << "\" viewBox=\"0 0 " << Decimals(width, 0) << " " << Decimals(height, 0)
           << "\" font-family=\"Helvetica, Arial, 'Liberation Sans', 'DejaVu Sans', sans-serif\" "
              "font-size=\"14\">\n"
           << "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
           << body << "</svg>\n";
}

void Svg::Save(std::string const& path) const
{
    OutputFile file(path);
    Write(file.Stream());
    file.Finish();
}

} // namespace examples
