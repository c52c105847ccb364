#include "Svg.h"

#include <cmath>
#include <cstdio>

namespace {

std::string Fixed(double number, int digits)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", digits, number);
    return text;
}

/// A coordinate to a hundredth of a pixel. The small shift keeps round numbers, which geometry is full of,
/// away from the ties of that rounding: there the last bit of a sine would decide, which may differ from one
/// mathematical library to another.
std::string Pixel(double coordinate)
{
    return Fixed(coordinate + 0.00137, 2);
}

std::string Pair(Pnt2Dbl const& point)
{
    return Pixel(point.x) + "," + Pixel(point.y);
}

std::string List(std::vector<Pnt2Dbl> const& points)
{
    std::string list;
    for (Pnt2Dbl const& point : points)
        list += (list.empty() ? "" : " ") + Pair(point);
    return list;
}

std::string Escaped(std::string const& text)
{
    std::string result;
    for (char const c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else
            result += c;
    }
    return result;
}

std::string Stroke(std::string const& colour, double width)
{
    return "fill:none;stroke:" + colour + ";stroke-width:" + Fixed(width, 1);
}

} // namespace

Svg::Svg(double width, double height)
    : body_("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Fixed(width, 0) + "\" height=\""
            + Fixed(height, 0) + "\" viewBox=\"0 0 " + Fixed(width, 0) + " " + Fixed(height, 0)
            + "\" font-family=\"Helvetica, Arial, sans-serif\" font-size=\"14\" fill=\"" + dark + "\">\n"
            + "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n")
{}

void Svg::Line(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& style)
{
    Polyline({from, to}, style);
}

void Svg::Arrow(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& colour, double width)
{
    CurvedArrow({from, to}, colour, width);
}

void Svg::Polyline(std::vector<Pnt2Dbl> const& points, std::string const& style)
{
    body_ += "<polyline points=\"" + List(points) + "\" style=\"fill:none;" + style + "\"/>\n";
}

void Svg::CurvedArrow(std::vector<Pnt2Dbl> const& points, std::string const& colour, double width)
{
    // The line ends inside its head, so that its blunt end does not show.
    std::vector<Pnt2Dbl> line = points;
    Pnt2Dbl const& tip = points.back();
    Pnt2Dbl const& before = points[points.size() - 2];
    Vec2Dbl const last = tip - before;
    if (last.Length() > 2.0 * width)
        line.back() = tip - last.GetNormalizedCopy() * (2.0 * width);
    else
        line.pop_back();
    Polyline(line, Stroke(colour, width));
    Head(before, tip, colour, width);
}

void Svg::Head(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& colour, double width)
{
    Vec2Dbl const along = (to - from).GetNormalizedCopy() * (5.0 * width);
    Vec2Dbl const across = Vec2Dbl(-along.y, along.x) * 0.35;
    Polygon({to, to - along + across, to - along - across}, "fill:" + colour);
}

void Svg::Polygon(std::vector<Pnt2Dbl> const& points, std::string const& style)
{
    body_ += "<polygon points=\"" + List(points) + "\" style=\"" + style + "\"/>\n";
}

void Svg::Circle(Pnt2Dbl const& centre, double radius, std::string const& style)
{
    body_ += "<circle cx=\"" + Pixel(centre.x) + "\" cy=\"" + Pixel(centre.y) + "\" r=\"" + Fixed(radius, 1)
             + "\" style=\"" + style + "\"/>\n";
}

void Svg::Text(Pnt2Dbl const& at, std::string const& text, std::string const& anchor,
               std::string const& style)
{
    body_ += "<text x=\"" + Pixel(at.x) + "\" y=\"" + Pixel(at.y) + "\" text-anchor=\"" + anchor + "\""
             + (style.empty() ? "" : " style=\"" + style + "\"") + ">" + Escaped(text) + "</text>\n";
}

void Svg::Code(Pnt2Dbl const& at, std::string const& text, std::string const& anchor,
               std::string const& style)
{
    Text(at, text, anchor, "font-family:monospace;" + style);
}

std::string Svg::Finish() const
{
    return body_ + "</svg>\n";
}

std::string Decimal(double number, int digits)
{
    std::string const text = Fixed(std::fabs(number), digits);
    bool const isZero = text.find_first_not_of("0.") == std::string::npos;
    return (number < 0.0 && !isZero ? "\u2212" : "") + text;
}
