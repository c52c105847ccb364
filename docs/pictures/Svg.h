#pragma once
#include <string>
#include <vector>

#include <vexor/vexor.h>

/// A picture of fixed size in SVG, drawn from back to front. Coordinates are pixels, y downwards. Colours
/// are those of the page "Conventions": X red, Y green, Z blue.
class Svg {
public:
    Svg(double width, double height);

    void Line(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& style);
    /// A line with a head at its end.
    void Arrow(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& colour, double width = 2.0);
    void Polyline(std::vector<Pnt2Dbl> const& points, std::string const& style);
    /// A polyline with a head at its end.
    void CurvedArrow(std::vector<Pnt2Dbl> const& points, std::string const& colour, double width = 2.0);
    void Polygon(std::vector<Pnt2Dbl> const& points, std::string const& style);
    void Circle(Pnt2Dbl const& centre, double radius, std::string const& style);
    /// `anchor` is start, middle or end.
    void Text(Pnt2Dbl const& at, std::string const& text, std::string const& anchor = "middle",
              std::string const& style = "");
    /// Text in the typeface of code.
    void Code(Pnt2Dbl const& at, std::string const& text, std::string const& anchor = "middle",
              std::string const& style = "");

    /// The whole file.
    std::string Finish() const;

private:
    void Head(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& colour, double width);

    std::string body_;
};

/// The number with so many digits behind the point; a typographic minus sign, and no negative zero.
std::string Decimal(double number, int digits);

inline std::string const red = "#c0392b";
inline std::string const green = "#1e8449";
inline std::string const blue = "#2471a3";
inline std::string const dark = "#2c3e50";
inline std::string const grey = "#95a5a6";
inline std::string const orange = "#d35400";
