#pragma once
#include <vexor/matrices/AffMat2Dbl.h>
#include <vexor/points/Pnt2Dbl.h>

#include <ostream>
#include <string>
#include <vector>

namespace examples {

/// A rectangle that grows to contain the points that it is given.
class Bounds {
public:
    void Include(Pnt2Dbl const& point);
    Pnt2Dbl const& Lowest() const { return lowest; }
    Pnt2Dbl const& Highest() const { return highest; }

private:
    bool isEmpty = true;
    Pnt2Dbl lowest = Pnt2Dbl(0.0);
    Pnt2Dbl highest = Pnt2Dbl(0.0);
};

/// A rectangle of a picture; its ordinates grow downwards.
struct Panel {
    double left, top, width, height;
};

/// The map from a plane whose ordinates grow upwards into a panel: one scale in both directions, with the
/// bounds centred in the panel and as large as fits.
AffMat2Dbl MapInto(Panel const& panel, Bounds const& bounds);

/// The number of pixels for one unit.
double ScaleOf(AffMat2Dbl const& map);

/// A picture that is being drawn, in pixels. A style is a list of SVG attributes. A coordinate that is not
/// finite raises NotFiniteError. Text is escaped.
class Svg {
public:
    Svg(double width, double height);

    void Line(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& style);
    void Arrow(Pnt2Dbl const& from, Pnt2Dbl const& to, std::string const& colour);
    void Polyline(std::vector<Pnt2Dbl> const& points, std::string const& style);
    void Polygon(std::vector<Pnt2Dbl> const& corners, std::string const& style);
    void Circle(Pnt2Dbl const& centre, double radius, std::string const& style);
    void Rectangle(Panel const& panel, std::string const& style);
    /// A path. Each segment is a straight line (one point) or a cubic curve (three points).
    void Path(Pnt2Dbl const& start, std::vector<std::vector<Pnt2Dbl>> const& segments,
              std::string const& style);
    void Text(Pnt2Dbl const& place, std::string const& text, std::string const& style = "");
    void Title(std::string const& title, std::string const& subtitle);
    /// A bar of a round length with its label, at the lower left of the panel.
    void ScaleBar(Panel const& panel, double pixelsPerUnit, std::string const& unit);

    /// Squares of one colour. Their upper left corners and their side, an even number, are integers.
    void Squares(std::vector<Pnt2Dbl> const& corners, double side, std::string const& colour);

    void Write(std::ostream& stream) const;
    /// Writes the complete file or nothing. Raises InputError if that fails.
    void Save(std::string const& path) const;

private:
    double width;
    double height;
    std::string body;
};

/// The number with the requested number of decimals. Raises NotFiniteError if it is not finite.
std::string Decimals(double number, int decimals);

/// The attribute `fill` for a number from −1 (blue) over 0 (white) to 1 (red).
std::string DivergingFill(double part);

} // namespace examples
