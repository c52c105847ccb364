// The pictures of the recipes: narrow enough for their lettering to be read on a phone.
#include "Pictures.h"

#include "Scene.h"

#include <cmath>

namespace {

std::string const bold = "font-weight:bold;";
std::string const italic = "font-style:italic;";

} // namespace

std::string RecipePlane()
{
    Svg svg(440, 300);
    View const view(svg, Pnt2Dbl(222.0, 205.0), 70.0);
    std::vector<Vec3Dbl> const points = {
        Vec3Dbl(-1.6, -1.3, -0.30), Vec3Dbl(-0.2, -1.5, 0.55), Vec3Dbl(1.4, -1.2, 0.35),
        Vec3Dbl(-1.3, 0.1, -0.25),  Vec3Dbl(0.2, 0.2, 0.62),   Vec3Dbl(1.6, 0.1, 0.75),
        Vec3Dbl(-1.5, 1.5, 0.35),   Vec3Dbl(0.1, 1.4, 0.25),   Vec3Dbl(1.3, 1.5, 1.20)};
    Vec3Dbl centre(0.0);
    for (Vec3Dbl const& point : points)
        centre += point / static_cast<double>(points.size());
    MatDbl rows(static_cast<int>(points.size()), 3);
    for (int i = 0; i < rows.RowCount(); ++i)
        rows.SetRow(i, points[static_cast<std::size_t>(i)] - centre);
    VecDbl spread;
    rows.Svd(spread);
    Vec3Dbl normal(rows.GetRow(2));
    if (normal.z < 0.0)
        normal.Negate();

    std::vector<Pnt2Dbl> sheet;
    for (Vec3Dbl corner : {Vec3Dbl(-2.0, -2.0, 0.0), Vec3Dbl(2.0, -2.0, 0.0), Vec3Dbl(2.0, 2.0, 0.0),
                           Vec3Dbl(-2.0, 2.0, 0.0)}) {
        Vec3Dbl const offset = corner - centre;
        corner.z = centre.z - (normal.x * offset.x + normal.y * offset.y) / normal.z;
        sheet.push_back(view.At(corner));
    }
    svg.Polygon(sheet, "fill:#d6eaf8;stroke-width:1;stroke:" + blue);
    for (Vec3Dbl const& point : points) {
        double const distance = (point - centre).Dot(normal);
        view.Line(point, point - distance * normal, "stroke-width:2;stroke:" + orange);
        svg.Circle(view.At(point), 4.5, "fill:" + (distance > 0.0 ? dark : grey));
    }
    view.Arrow(centre, centre + 1.9 * normal, red, 3.0);
    svg.Text(view.At(centre + 1.9 * normal) + Vec2Dbl(10.0, 6.0), "normal", "start", bold + "fill:" + red);
    svg.Circle(view.At(centre), 3.0, "fill:" + red);
    svg.Text(Pnt2Dbl(12.0, 290.0), "orange: distances to the plane", "start", "fill:" + orange);
    return svg.Finish();
}

std::string RecipeFrame()
{
    Svg svg(440, 330);
    Plan const plan(svg, Pnt2Dbl(90.0, 280.0), 62.0);
    plan.Grid(-1.0, -0.5, 5.0, 4.2);
    plan.Axes(4.9, 4.1);
    Quaternion const quarter(0.0, 0.0, 1.0, Radians(90.0), 1);
    Mat3Dbl axes;
    quarter.GetRotationMatrix(axes);
    AffMat3Dbl const tool(axes, Vec3Dbl(3.0, 1.0, 0.0));
    AffMat3Dbl swing;
    swing.SetRotation(Pnt3Dbl(0.0), Vec3Dbl(0.0, 0.0, 1.0), Radians(30.0));
    Pnt3Dbl const tip(2.0, 0.0, 0.0);
    Pnt3Dbl const zero(0.0);
    for (AffMat3Dbl const& frame : {tool, swing * tool}) {
        bool const isMoved = frame != tool;
        plan.Arrow(frame * zero, frame * Vec3Dbl(1.1, 0.0, 0.0), isMoved ? red : "#e6b0aa", 3.0);
        plan.Arrow(frame * zero, frame * Vec3Dbl(0.0, 1.1, 0.0), isMoved ? green : "#a9dfbf", 3.0);
        plan.Dot(frame * tip, isMoved ? dark : grey);
    }
    plan.Turn(zero, tool * tip, Radians(30.0), orange);
    svg.Text(plan.At(tool * tip) + Vec2Dbl(10.0, 6.0), "tip", "start", "fill:#5f6f70;" + italic);
    svg.Code(plan.At(tool * zero) + Vec2Dbl(10.0, 18.0), "tool", "start", "fill:#5f6f70");
    svg.Code(plan.At(swing * tool * zero) + Vec2Dbl(10.0, 6.0), "swing * tool", "start");
    svg.Text(plan.At(Vec3Dbl(2.62, 3.62, 0.0)) + Vec2Dbl(4.0, -8.0), "30°", "start", bold + "fill:" + orange);
    return svg.Finish();
}

std::string RecipeSolve()
{
    Svg svg(440, 300);
    MatDbl stiffness(3, 3, 0.0);
    stiffness.SetDiagonal(2.0);
    stiffness(2, 2) = 1.0;
    stiffness(0, 1) = stiffness(1, 0) = stiffness(1, 2) = stiffness(2, 1) = -1.0;
    VecDbl loads[3] = {VecDbl(3, 0.0), VecDbl(3, 0.0), VecDbl(3, 1.0)};
    loads[1][2] = 1.0;
    stiffness.Solve(loads[1]);
    stiffness.ReSolve(loads[2]);

    std::string const titles[3] = {"at rest", "Solve: a force on the end", "ReSolve: a force on each"};
    for (int row = 0; row < 3; ++row) {
        double const y = 62.0 + 92.0 * row;
        svg.Text(Pnt2Dbl(30.0, y - 30.0), titles[row], "start", bold);
        svg.Line(Pnt2Dbl(30.0, y - 22.0), Pnt2Dbl(30.0, y + 22.0), "stroke-width:4;stroke:" + dark);
        double from = 30.0;
        for (int i = 0; i < 3; ++i) {
            double const to = 30.0 + 75.0 * (i + 1) + 22.0 * loads[row][i];
            std::vector<Pnt2Dbl> spring = {Pnt2Dbl(from, y)};
            for (int turn = 0; turn < 10; ++turn)
                spring.emplace_back(from + 10.0 + (to - from - 30.0) * (turn + 0.5) / 10.0,
                                    y + (turn % 2 ? 9.0 : -9.0));
            spring.emplace_back(to - 11.0, y);
            svg.Polyline(spring, "stroke-width:2;stroke:" + blue);
            svg.Circle(Pnt2Dbl(to, y), 11.0, "fill:" + dark);
            if (row == 2 || (row == 1 && i == 2))
                svg.Arrow(Pnt2Dbl(to + 11.0, y - 16.0), Pnt2Dbl(to + 41.0, y - 16.0), orange, 2.5);
            if (row > 0)
                svg.Text(Pnt2Dbl(to, y + 28.0), Decimal(loads[row][i], 0), "middle");
            from = to + 11.0;
        }
    }
    return svg.Finish();
}

std::string RecipeAlign()
{
    Svg svg(440, 300);
    Plan const plan(svg, Pnt2Dbl(30.0, 290.0), 46.0);
    std::vector<Pnt3Dbl> const fixed = {Pnt3Dbl(0.2, 2.0, 0.0), Pnt3Dbl(1.0, 3.6, 0.0),
                                        Pnt3Dbl(2.2, 4.2, 0.0), Pnt3Dbl(3.0, 3.2, 0.0),
                                        Pnt3Dbl(2.4, 1.8, 0.0), Pnt3Dbl(1.3, 1.3, 0.0)};
    AffMat3Dbl away;
    away.SetRotation(Pnt3Dbl(4.0, 0.2, 0.0), Vec3Dbl(0.0, 0.0, 1.0), Radians(-75.0));
    std::vector<Pnt3Dbl> moving;
    for (std::size_t i = 0; i < fixed.size(); ++i) {
        double const noise = 0.10 * (static_cast<double>(i * 7 % 5) - 2.0) / 2.0;
        moving.push_back(away * (fixed[i] + Vec3Dbl(noise, -0.7 * noise, 0.0)));
    }
    Vec3Dbl fixedCentre(0.0);
    Vec3Dbl movingCentre(0.0);
    for (std::size_t i = 0; i < fixed.size(); ++i) {
        fixedCentre += fixed[i].Vector() / static_cast<double>(fixed.size());
        movingCentre += moving[i].Vector() / static_cast<double>(fixed.size());
    }
    Mat3Dbl correlation(0.0);
    for (std::size_t i = 0; i < fixed.size(); ++i)
        correlation += (fixed[i].Vector() - fixedCentre).OuterProduct(moving[i].Vector() - movingCentre);
    Mat3Dbl left(correlation);
    Vec3Dbl values;
    left.Svd(values);
    Mat3Dbl const transposed = correlation.GetTransposedCopy();
    Vec3Dbl const u0 = left.GetRow(0);
    Vec3Dbl const u1 = left.GetRow(1);
    Vec3Dbl const v0 = (transposed * u0).GetNormalizedCopy();
    Vec3Dbl const v1 = (transposed * u1).GetNormalizedCopy();
    Mat3Dbl const rotation =
        u0.OuterProduct(v0) + u1.OuterProduct(v1) + u0.Cross(u1).OuterProduct(v0.Cross(v1));
    AffMat3Dbl const motion(rotation, fixedCentre - rotation * movingCentre);

    std::vector<Pnt2Dbl> outline[3];
    for (std::size_t i = 0; i < fixed.size(); ++i) {
        outline[0].push_back(plan.At(fixed[i]));
        outline[1].push_back(plan.At(moving[i]));
        outline[2].push_back(plan.At(motion * moving[i]));
    }
    std::string const line = "stroke-width:2;stroke-linejoin:round;";
    svg.Polygon(outline[0], line + "fill:#d6eaf8;stroke:" + blue);
    svg.Polygon(outline[1], line + "fill:#ecf0f1;stroke:" + grey);
    svg.Polygon(outline[2], line + "fill:none;stroke-dasharray:5 4;stroke:" + orange);
    for (std::size_t i = 0; i < fixed.size(); ++i) {
        svg.Circle(outline[0][i], 5.0, "fill:" + blue);
        svg.Circle(outline[1][i], 5.0, "fill:" + grey);
        svg.Circle(outline[2][i], 3.5, "fill:" + orange);
    }
    Pnt3Dbl const from(movingCentre);
    std::vector<Pnt2Dbl> way;
    for (int i = 0; i <= 40; ++i) {
        AffMat3Dbl part;
        part.SetRotation(Pnt3Dbl(4.0, 0.2, 0.0), Vec3Dbl(0.0, 0.0, 1.0), Radians(12.0 + 50.0 * i / 40.0));
        way.push_back(plan.At(part * from));
    }
    svg.CurvedArrow(way, orange, 2.5);
    svg.Text(Pnt2Dbl(30.0, 285.0), "fixed", "start", bold + "fill:" + blue);
    svg.Text(Pnt2Dbl(110.0, 285.0), "moved onto it", "start", bold + "fill:" + orange);
    svg.Text(Pnt2Dbl(410.0, 285.0), "moving", "end", bold + "fill:#7f8c8d");
    return svg.Finish();
}

std::string RecipeDrift()
{
    Svg svg(440, 300);
    double const left = 70.0;
    double const bottom = 240.0;
    auto const at = [&](double steps, double error) {
        return Pnt2Dbl(left + 66.0 * std::log10(steps),
                       bottom - 24.0 * (std::log10(std::fmax(error, 1e-17)) + 17.0));
    };
    for (int power = 0; power <= 5; ++power) {
        svg.Line(at(std::pow(10.0, power), 1e-17), at(std::pow(10.0, power), 1e-9),
                 "stroke-width:1;stroke:#ecf0f1");
        svg.Text(at(std::pow(10.0, power), 1e-17) + Vec2Dbl(0.0, 20.0),
                 power < 4    ? Decimal(std::pow(10.0, power), 0)
                 : power == 4 ? "10 000"
                              : "100 000",
                 "middle");
    }
    for (int power = -16; power <= -10; power += 2) {
        svg.Line(at(1.0, std::pow(10.0, power)), at(1e5, std::pow(10.0, power)),
                 "stroke-width:1;stroke:#ecf0f1");
        svg.Text(at(1.0, std::pow(10.0, power)) + Vec2Dbl(-8.0, 5.0), "1e" + Decimal(power, 0), "end");
    }
    svg.Text(Pnt2Dbl(235.0, 290.0), "steps of one turn", "middle");
    svg.Text(Pnt2Dbl(12.0, 24.0), "error of the scale", "start", bold);

    Quaternion const step(Vec3Dbl(0.6, 0.0, 0.8), 2.0 * pi / 100000, 0);
    Mat3Dbl stepMatrix;
    step.GetRotationMatrix(stepMatrix);
    Quaternion attitude;
    Mat3Dbl matrix(0.0);
    matrix.Identity();
    std::vector<Pnt2Dbl> ofQuaternion;
    std::vector<Pnt2Dbl> ofMatrix;
    double next = 1.0;
    for (int i = 1; i <= 100000; ++i) {
        attitude = step * attitude;
        attitude.Normalize();
        matrix = stepMatrix * matrix;
        if (i < next)
            continue;
        next *= 1.25;
        Vec3Dbl const axis(attitude.u, attitude.v, attitude.w);
        double const scale = matrix.GetRow(0).Cross(matrix.GetRow(1)).Dot(matrix.GetRow(2));
        ofQuaternion.push_back(at(i, std::fabs(axis.LengthSquared() + attitude.s * attitude.s - 1.0)));
        ofMatrix.push_back(at(i, std::fabs(scale - 1.0)));
    }
    svg.Polyline(ofMatrix, "stroke-width:2.5;stroke:" + red);
    svg.Polyline(ofQuaternion, "stroke-width:2.5;stroke:" + blue);
    svg.Text(Pnt2Dbl(280.0, 90.0), "matrix", "end", bold + "fill:" + red);
    svg.Text(Pnt2Dbl(395.0, 205.0), "quaternion", "end", bold + "fill:" + blue);
    return svg.Finish();
}
