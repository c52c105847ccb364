#pragma once
#include "Svg.h"

/// A view of the plane from the positive Z axis: X to the right, Y upwards.
class Plan {
public:
    Plan(Svg& svg, Pnt2Dbl const& origin, double pixelsPerUnit);

    Pnt2Dbl At(Vec3Dbl const& position) const;
    Pnt2Dbl At(Pnt3Dbl const& point) const { return At(point.Vector()); }

    void Grid(double left, double bottom, double right, double top) const;
    /// The axes from the origin, with their names at the ends.
    void Axes(double lengthX, double lengthY) const;
    void Arrow(Pnt3Dbl const& from, Vec3Dbl const& vector, std::string const& colour,
               double width = 2.5) const;
    /// The way that a point takes as it turns about another, with a head at the end.
    void Turn(Pnt3Dbl const& centre, Pnt3Dbl const& start, double angle, std::string const& colour) const;
    void Dot(Pnt3Dbl const& point, std::string const& colour) const;

private:
    Svg& svg_;
    Pnt2Dbl origin_;
    double scale_;
};

/// A view of space without perspective: X towards the viewer on the left, Y to the right, Z upwards.
class View {
public:
    View(Svg& svg, Pnt2Dbl const& origin, double pixelsPerUnit);

    Pnt2Dbl At(Vec3Dbl const& position) const;

    void Arrow(Vec3Dbl const& from, Vec3Dbl const& to, std::string const& colour, double width = 2.0) const;
    void Line(Vec3Dbl const& from, Vec3Dbl const& to, std::string const& style) const;
    /// The name of something at a place, pushed away from the origin.
    void Label(Vec3Dbl const& position, std::string const& text, std::string const& colour) const;
    /// The three axes, each from the given length on, with their names.
    void Axes(Vec3Dbl const& starts, double length) const;
    /// The way of a point that turns about an axis through the origin, without and with a head.
    std::vector<Pnt2Dbl> Way(Vec3Dbl const& axis, Vec3Dbl const& start, double angle) const;
    void Turn(Vec3Dbl const& axis, Vec3Dbl const& start, double angle, std::string const& colour) const;
    /// A brick about the origin, rotated: of its sides, those that looked along X, Y and Z before are red,
    /// green and blue, the opposite ones pale. The axes that stay in space come out of it.
    void Brick(Quaternion const& rotation) const;

private:
    Svg& svg_;
    Pnt2Dbl origin_;
    double scale_;
    Vec3Dbl right_;
    Vec3Dbl up_;
    Vec3Dbl towardsViewer_;
};

inline constexpr double pi = 3.141592653589793;

inline double Radians(double degrees)
{
    return degrees * (pi / 180.0);
}
