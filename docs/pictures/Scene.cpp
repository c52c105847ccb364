#include "Scene.h"

#include <cmath>

namespace {

constexpr int stepsOfTurn = 48;

Vec3Dbl Basis(int index)
{
    Vec3Dbl basis(0.0);
    basis[index] = 1.0;
    return basis;
}

std::string const names[] = {"X", "Y", "Z"};
std::string const colours[] = {red, green, blue};
std::string const paleColours[] = {"#f2d7d5", "#d4efdf", "#d4e6f1"};

} // namespace

// ---- Plan --------------------------------------------------------------------------------------------

Plan::Plan(Svg& svg, Pnt2Dbl const& origin, double pixelsPerUnit)
    : svg_(svg), origin_(origin), scale_(pixelsPerUnit)
{}

Pnt2Dbl Plan::At(Vec3Dbl const& position) const
{
    return origin_ + Vec2Dbl(scale_ * position.x, -scale_ * position.y);
}

void Plan::Grid(double left, double bottom, double right, double top) const
{
    std::string const style = "stroke:#ecf0f1;stroke-width:1";
    for (int x = int(std::ceil(left)); x <= right; ++x)
        svg_.Line(At(Vec3Dbl(x, bottom, 0.0)), At(Vec3Dbl(x, top, 0.0)), style);
    for (int y = int(std::ceil(bottom)); y <= top; ++y)
        svg_.Line(At(Vec3Dbl(left, y, 0.0)), At(Vec3Dbl(right, y, 0.0)), style);
}

void Plan::Axes(double lengthX, double lengthY) const
{
    Pnt3Dbl const zero(0.0);
    Arrow(zero, Vec3Dbl(lengthX, 0.0, 0.0), red, 1.5);
    Arrow(zero, Vec3Dbl(0.0, lengthY, 0.0), green, 1.5);
    svg_.Text(At(Vec3Dbl(lengthX, 0.0, 0.0)) + Vec2Dbl(10.0, 5.0), "X", "middle", "fill:" + red);
    svg_.Text(At(Vec3Dbl(0.0, lengthY, 0.0)) + Vec2Dbl(0.0, -7.0), "Y", "middle", "fill:" + green);
}

void Plan::Arrow(Pnt3Dbl const& from, Vec3Dbl const& vector, std::string const& colour, double width) const
{
    svg_.Arrow(At(from), At(from + vector), colour, width);
}

void Plan::Turn(Pnt3Dbl const& centre, Pnt3Dbl const& start, double angle, std::string const& colour) const
{
    std::vector<Pnt2Dbl> way;
    for (int i = 0; i <= stepsOfTurn; ++i) {
        Quaternion const turn(0.0, 0.0, 1.0, angle * i / stepsOfTurn, 1);
        way.push_back(At(centre + turn.RotatePoint(start - centre)));
    }
    svg_.CurvedArrow(way, colour, 1.8);
}

void Plan::Dot(Pnt3Dbl const& point, std::string const& colour) const
{
    svg_.Circle(At(point), 4.0, "fill:" + colour);
}

// ---- View --------------------------------------------------------------------------------------------

View::View(Svg& svg, Pnt2Dbl const& origin, double pixelsPerUnit)
    : svg_(svg), origin_(origin), scale_(pixelsPerUnit), towardsViewer_(Vec3Dbl(0.75, 0.55, 0.5).Normalize())
{
    right_ = Vec3Dbl(0.0, 0.0, 1.0).Cross(towardsViewer_).Normalize();
    up_ = towardsViewer_.Cross(right_);
}

Pnt2Dbl View::At(Vec3Dbl const& position) const
{
    return origin_ + Vec2Dbl(scale_ * position.Dot(right_), -scale_ * position.Dot(up_));
}

void View::Arrow(Vec3Dbl const& from, Vec3Dbl const& to, std::string const& colour, double width) const
{
    svg_.Arrow(At(from), At(to), colour, width);
}

void View::Line(Vec3Dbl const& from, Vec3Dbl const& to, std::string const& style) const
{
    svg_.Line(At(from), At(to), style);
}

void View::Label(Vec3Dbl const& position, std::string const& text, std::string const& colour) const
{
    Pnt2Dbl const at = At(position);
    Vec2Dbl const away = (at - origin_).GetNormalizedCopy();
    std::string const anchor = away.x > 0.15 ? "start" : away.x < -0.15 ? "end" : "middle";
    svg_.Text(at + away * 7.0 + Vec2Dbl(0.0, away.y < -0.8 ? 0.0 : 5.0), text, anchor, "fill:" + colour);
}

void View::Axes(Vec3Dbl const& starts, double length) const
{
    for (int i = 0; i < 3; ++i) {
        Arrow(starts[i] * Basis(i), length * Basis(i), colours[i], 1.5);
        Label(length * Basis(i), names[i], colours[i]);
    }
}

std::vector<Pnt2Dbl> View::Way(Vec3Dbl const& axis, Vec3Dbl const& start, double angle) const
{
    std::vector<Pnt2Dbl> way;
    for (int i = 0; i <= stepsOfTurn; ++i)
        way.push_back(At(Quaternion(axis, angle * i / stepsOfTurn, 1).RotatePoint(start)));
    return way;
}

void View::Turn(Vec3Dbl const& axis, Vec3Dbl const& start, double angle, std::string const& colour) const
{
    svg_.CurvedArrow(Way(axis, start, angle), colour, 1.8);
}

void View::Brick(Quaternion const& rotation) const
{
    Vec3Dbl const half(0.75, 0.5, 0.25);
    for (int i = 0; i < 3; ++i)
        for (double const side : {1.0, -1.0}) {
            Vec3Dbl const normal = side * rotation.GetCol(i);
            if (normal.Dot(towardsViewer_) <= 0.0)
                continue;
            Vec3Dbl const a = half[(i + 1) % 3] * rotation.GetCol((i + 1) % 3);
            Vec3Dbl const b = half[(i + 2) % 3] * rotation.GetCol((i + 2) % 3);
            Vec3Dbl const centre = half[i] * normal;
            svg_.Polygon({At(centre + a + b), At(centre - a + b), At(centre - a - b), At(centre + a - b)},
                         "stroke:" + dark + ";stroke-width:1;stroke-linejoin:round;fill:"
                             + (side > 0.0 ? colours[i] : paleColours[i]));
        }

    // Where each axis leaves the brick: all three come out on its visible side.
    Vec3Dbl starts;
    for (int i = 0; i < 3; ++i) {
        Vec3Dbl const inBrick = rotation.Inverse().RotatePoint(Basis(i));
        starts[i] = 10.0;
        for (int k = 0; k < 3; ++k)
            if (std::fabs(inBrick[k]) * starts[i] > half[k])
                starts[i] = half[k] / std::fabs(inBrick[k]);
    }
    Axes(starts, 1.6);
}
