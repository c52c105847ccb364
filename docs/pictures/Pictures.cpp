#include "Pictures.h"

#include "Scene.h"

namespace {

std::string const bold = "font-weight:bold;";

std::string Degrees(double radians)
{
    return Decimal(radians * (180.0 / pi), 0) + "°";
}

std::string Tuple(Vec3Dbl const& vector, int digits)
{
    return "(" + Decimal(vector.x, digits) + ", " + Decimal(vector.y, digits) + ", "
           + Decimal(vector.z, digits) + ")";
}

} // namespace

std::string ActiveRotation(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 380 : 720, isNarrow ? 660 : 330);
    double const angle = Radians(50.0);
    for (int side = 0; side < 2; ++side) {
        double const left = isNarrow ? 10.0 : 360.0 * side;
        double const top = isNarrow ? 330.0 * side : 0.0;
        Vec3Dbl const axis(0.0, 0.0, side == 0 ? 1.0 : -1.0);
        Quaternion const q(axis, angle, 1);
        Vec3Dbl const p = side == 0 ? Vec3Dbl(2.0, 0.5, 0.0) : Vec3Dbl(0.8, 1.9, 0.0);
        Vec3Dbl const rotated = q.RotatePoint(p);

        Plan const plan(svg, Pnt2Dbl(left + 90.0, top + 250.0), 80.0);
        plan.Grid(-0.6, -0.6, 3.0, 2.6);
        plan.Axes(2.9, 2.5);
        Pnt3Dbl const zero(0.0);
        plan.Arrow(zero, p, grey);
        plan.Arrow(zero, rotated, dark);
        plan.Turn(zero, Pnt3Dbl(0.55 * p), axis.z * angle, orange);
        svg.Text(plan.At(Quaternion(axis, 0.5 * angle, 1).RotatePoint(0.75 * p)) + Vec2Dbl(0.0, 5.0),
                 Degrees(angle), "middle", "fill:" + orange);
        svg.Text(plan.At(p) + Vec2Dbl(8.0, -4.0), "p", "start", "font-style:italic;fill:#7f8c8d");
        svg.Code(plan.At(rotated) + (side == 0 ? Vec2Dbl(8.0, -4.0) : Vec2Dbl(25.0, -14.0)),
                 "q.RotatePoint(p)", side == 0 ? "start" : "middle");

        // The axis: the tip of an arrow that points at the viewer, or its feathers.
        svg.Circle(plan.At(zero), 9.0, "fill:white;stroke-width:2;stroke:" + blue);
        if (side == 0) {
            svg.Circle(plan.At(zero), 3.0, "fill:" + blue);
        } else {
            for (double const slope : {1.0, -1.0})
                svg.Line(plan.At(zero) + Vec2Dbl(-6.0, -6.0 * slope),
                         plan.At(zero) + Vec2Dbl(6.0, 6.0 * slope), "stroke-width:2;stroke:" + blue);
        }
        svg.Text(plan.At(zero) + Vec2Dbl(-14.0, 24.0), "axis", "end", "fill:" + blue);
        svg.Code(Pnt2Dbl(left + 180.0, top + 318.0), "Quaternion q(Vec3Dbl" + Tuple(axis, 0) + ", a, 1)",
                 "middle", "font-size:13px");
    }
    return svg.Finish();
}

std::string ProductOrder(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 440 : 740, isNarrow ? 830 : 500);
    Quaternion const a(1.0, 0.0, 0.0, Radians(90.0), 1);
    Quaternion const b(0.0, 0.0, 1.0, Radians(90.0), 1);
    Vec3Dbl const xAxis(1.0, 0.0, 0.0);
    Vec3Dbl const zAxis(0.0, 0.0, 1.0);

    for (int row = 0; row < 2; ++row) {
        bool const isAB = row == 0;
        Quaternion const first = isAB ? b : a;
        Quaternion const both = isAB ? a * b : b * a;
        Quaternion const states[] = {Quaternion(), first, both};
        std::string const titles[] = {"start", isAB ? "after b" : "after a", isAB ? "a * b" : "b * a"};
        for (int i = 0; i < 3; ++i) {
            // Each order is a row, or a column on a narrow screen.
            double const middle = isNarrow ? 110.0 + 220.0 * row : 110.0 + 260.0 * i;
            double const top = isNarrow ? 265.0 * i : 240.0 * row;
            View const view(svg, Pnt2Dbl(middle, top + 115.0), 62.0);
            view.Brick(states[i]);
            svg.Text(Pnt2Dbl(middle, top + 222.0), titles[i], "middle", bold);
            if (i == 0)
                continue;
            // The turn that led here.
            bool const aboutX = (i == 1) != isAB;
            view.Turn(aboutX ? xAxis : zAxis, aboutX ? Vec3Dbl(1.3, 0.3, 0.0) : Vec3Dbl(0.3, 0.0, 1.3),
                      Radians(250.0), orange);
            Pnt2Dbl const step =
                isNarrow ? Pnt2Dbl(middle, top - 20.0) : Pnt2Dbl(middle - 130.0, top + 115.0);
            Vec2Dbl const half = isNarrow ? Vec2Dbl(0.0, 13.0) : Vec2Dbl(17.0, 0.0);
            svg.Arrow(step - half, step + half, grey, 2.5);
            svg.Text(step + (isNarrow ? Vec2Dbl(14.0, 3.0) : Vec2Dbl(0.0, -11.0)), aboutX ? "a" : "b",
                     "middle", bold + "fill:" + orange);
        }
    }
    svg.Text(Pnt2Dbl(isNarrow ? 220.0 : 370.0, isNarrow ? 815.0 : 490.0),
             "a: a quarter turn about X,  b: a quarter turn about Z", "middle", "fill:" + orange);
    return svg.Finish();
}

std::string RowsAndColumns(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 440 : 770, isNarrow ? 590 : 285);
    auto const lettering = [&](int size) {
        return "font-size:" + std::to_string(isNarrow ? 14 : size) + "px";
    };
    std::string const object = isNarrow ? "" : "m."; // no room
    Quaternion const q(Vec3Dbl(0.2, 0.3, 1.0), Radians(40.0), 1);
    Mat3Dbl m;
    q.GetRotationMatrix(m);
    std::string const colours[] = {red, green, blue};
    std::string const axes[] = {"q.XAxis()", "q.YAxis()", "q.ZAxis()"};

    // The matrix: columns in the colours of the axes whose images they are.
    double const left = isNarrow ? 20.0 : 50.0;
    double const top = 55.0;
    double const width = isNarrow ? 100.0 : 90.0;
    double const height = 44.0;
    for (int c = 0; c < 3; ++c) {
        double const x = left + width * c;
        svg.Polygon({Pnt2Dbl(x + 3.0, top), Pnt2Dbl(x + width - 3.0, top),
                     Pnt2Dbl(x + width - 3.0, top + 3.0 * height), Pnt2Dbl(x + 3.0, top + 3.0 * height)},
                    "fill:none;stroke-width:1.5;stroke:" + colours[c]);
        svg.Code(Pnt2Dbl(x + width / 2.0, top - 30.0), axes[c], "middle",
                 lettering(13) + ";fill:" + colours[c]);
        svg.Code(Pnt2Dbl(x + width / 2.0, top - 12.0), object + "GetCol(" + Decimal(c, 0) + ")", "middle",
                 lettering(12) + ";fill:" + colours[c]);
        for (int r = 0; r < 3; ++r) {
            Pnt2Dbl const at(x + width / 2.0, top + height * (r + 0.5));
            svg.Code(at, Decimal(m(r, c), 3), "middle", "font-size:15px;fill:" + colours[c]);
            svg.Code(at + Vec2Dbl(0.0, 16.0), "m(" + Decimal(r, 0) + "," + Decimal(c, 0) + ")", "middle",
                     lettering(10) + ";fill:#7f8c8d");
        }
    }
    for (int r = 0; r < 3; ++r) {
        double const y = top + height * r;
        svg.Polygon({Pnt2Dbl(left - 6.0, y + 3.0), Pnt2Dbl(left + 3.0 * width + 6.0, y + 3.0),
                     Pnt2Dbl(left + 3.0 * width + 6.0, y + height - 1.0),
                     Pnt2Dbl(left - 6.0, y + height - 1.0)},
                    "fill:none;stroke-width:1;stroke-dasharray:3 3;stroke:" + grey);
        svg.Code(Pnt2Dbl(left + 3.0 * width + 12.0, y + height / 2.0 + 5.0),
                 object + "GetRow(" + Decimal(r, 0) + ")", "start", lettering(12));
    }

    // The nine doubles as they lie in memory.
    double const cell = isNarrow ? 44.0 : 30.0;
    svg.Text(Pnt2Dbl(left, 223.0), "in memory, row by row", "start", lettering(12));
    for (int i = 0; i < 9; ++i) {
        double const x = left + cell * i;
        svg.Polygon(
            {Pnt2Dbl(x, 232.0), Pnt2Dbl(x + cell, 232.0), Pnt2Dbl(x + cell, 256.0), Pnt2Dbl(x, 256.0)},
            "fill:none;stroke-width:1;stroke:" + grey);
        svg.Code(Pnt2Dbl(x + cell / 2.0, 248.0), std::to_string(i / 3) + "," + std::to_string(i % 3),
                 "middle", lettering(11) + ";fill:" + colours[i % 3]);
    }
    for (int r = 0; r < 3; ++r)
        svg.Text(Pnt2Dbl(left + cell * (3 * r + 1.5), 272.0), "row " + Decimal(r, 0), "middle",
                 lettering(11));

    // The images of the basis vectors, among the axes that stay.
    View const view(svg, isNarrow ? Pnt2Dbl(200.0, 460.0) : Pnt2Dbl(575.0, 155.0), 105.0);
    for (int i = 0; i < 3; ++i) {
        Vec3Dbl basis(0.0);
        basis[i] = 1.0;
        view.Line(Vec3Dbl(0.0), 1.15 * basis, "stroke-dasharray:4 4;stroke-width:1.2;stroke:" + colours[i]);
        view.Label(1.15 * basis, std::string(1, "XYZ"[i]), colours[i]);
    }
    for (int i = 0; i < 3; ++i)
        view.Arrow(Vec3Dbl(0.0), q.GetCol(i), colours[i], 3.0);
    for (int i = 0; i < 3; ++i)
        view.Label(q.GetCol(i), "column " + Decimal(i, 0), colours[i]);
    return svg.Finish();
}

std::string EulerOrder(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 440 : 960, isNarrow ? 500 : 235);
    Vec3Dbl angles(Radians(25.0), Radians(40.0), Radians(70.0));
    Vec3Dbl onlyX(angles.x, 0.0, 0.0);
    Vec3Dbl xThenY(angles.x, angles.y, 0.0);
    Quaternion states[4];
    states[1].SetFromEulerAngles(onlyX);
    states[2].SetFromEulerAngles(xThenY);
    states[3].SetFromEulerAngles(angles);
    std::string const titles[] = {"start", "1. about X by x = ", "2. about Y by y = ", "3. about Z by z = "};

    for (int i = 0; i < 4; ++i) {
        // One row, or two on a narrow screen.
        double const middle = isNarrow ? 110.0 + 220.0 * (i % 2) : 120.0 + 238.0 * i;
        double const top = isNarrow ? 245.0 * (i / 2) : 0.0;
        View const view(svg, Pnt2Dbl(middle, top + 110.0), 62.0);
        view.Brick(states[i]);
        if (i > 0) {
            Vec3Dbl axis(0.0);
            axis[i - 1] = 1.0;
            Vec3Dbl start = 1.3 * axis;
            start[i % 3] = 0.3;
            view.Turn(axis, start, Radians(250.0), orange);
            if (!isNarrow)
                svg.Arrow(Pnt2Dbl(middle - 137.0, 110.0), Pnt2Dbl(middle - 103.0, 110.0), grey, 2.5);
        }
        svg.Text(Pnt2Dbl(middle, top + 222.0), i == 0 ? titles[i] : titles[i] + Degrees(angles[i - 1]),
                 "middle", bold);
    }
    return svg.Finish();
}

std::string AxisAndAngle(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 440 : 720, isNarrow ? 430 : 290);
    Vec3Dbl const axis = Vec3Dbl(0.25, 0.5, 1.0).Normalize();
    double const angle = Radians(100.0);
    Quaternion const q(axis, angle, 1);
    Vec3Dbl const p(1.05, -0.15, 0.4);
    Vec3Dbl const rotated = q.RotatePoint(p);
    Vec3Dbl const centre = p.Dot(axis) * axis;
    std::string const thin = "stroke-width:1.2;stroke:" + grey;

    View const view(svg, Pnt2Dbl(205.0, 190.0), 140.0);
    view.Axes(Vec3Dbl(0.0), 1.1);
    svg.Polyline(view.Way(axis, p, 2.0 * pi), thin + ";stroke-dasharray:5 4");
    svg.Circle(view.At(centre), 2.5, "fill:" + grey);
    view.Line(centre, p, thin);
    view.Line(centre, rotated, thin);
    view.Arrow(Vec3Dbl(0.0), 1.45 * axis, dark, 3.0);
    svg.Text(view.At(1.45 * axis) + Vec2Dbl(10.0, 4.0), "axis n", "start", bold);
    view.Arrow(Vec3Dbl(0.0), p, grey, 2.0);
    view.Arrow(Vec3Dbl(0.0), rotated, dark, 2.0);
    view.Turn(axis, centre + 0.45 * (p - centre), angle, orange);
    svg.Text(view.At(centre + 0.62 * (Quaternion(axis, 0.5 * angle, 1).RotatePoint(p) - centre)), "a",
             "middle", bold + "fill:" + orange);
    svg.Text(view.At(p) + Vec2Dbl(-6.0, 18.0), "p", "middle", "font-style:italic;fill:#7f8c8d");
    if (isNarrow)
        svg.Code(view.At(rotated) + Vec2Dbl(20.0, 22.0), "q.RotatePoint(p)", "middle");
    else
        svg.Code(view.At(rotated) + Vec2Dbl(8.0, 5.0), "q.RotatePoint(p)", "start", "font-size:12px");

    // The formulas, on the right or below.
    double const left = isNarrow ? 20.0 : 500.0;
    double const second = isNarrow ? 240.0 : left;
    double const top = isNarrow ? 310.0 : 50.0;
    double const lower = isNarrow ? 334.0 : 182.0;
    svg.Text(Pnt2Dbl(left, top), "n = " + Tuple(axis, 3), "start");
    svg.Text(Pnt2Dbl(left, top + 24.0), "a = " + Degrees(angle) + " = " + Decimal(angle, 3), "start");
    svg.Text(Pnt2Dbl(left, top + 66.0), "(u, v, w) = n · sin(a/2)", "start");
    svg.Text(Pnt2Dbl(left, top + 90.0), "s = cos(a/2)", "start");
    svg.Code(Pnt2Dbl(second, lower), "Quaternion q(n, a, 1);", "start");
    svg.Text(Pnt2Dbl(second, lower + 24.0), "u = " + Decimal(q.u, 3), "start");
    svg.Text(Pnt2Dbl(second + 95.0, lower + 24.0), "v = " + Decimal(q.v, 3), "start");
    svg.Text(Pnt2Dbl(second, lower + 48.0), "w = " + Decimal(q.w, 3), "start");
    svg.Text(Pnt2Dbl(second + 95.0, lower + 48.0), "s = " + Decimal(q.s, 3), "start");
    return svg.Finish();
}

std::string RotationAboutALine(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 440 : 640, isNarrow ? 345 : 455);
    Plan const plan(svg, isNarrow ? Pnt2Dbl(60.0, 285.0) : Pnt2Dbl(110.0, 395.0), isNarrow ? 53.0 : 75.0);
    plan.Grid(-0.5, -0.3, 6.5, 4.7);
    plan.Axes(6.4, 4.5);

    Pnt3Dbl const p(2.6, 0.8, 0.0);
    Vec3Dbl const axis(0.0, 0.0, 1.0);
    double const angle = Radians(50.0);
    AffMat3Dbl map;
    map.SetRotation(p, axis, angle);
    AffMat3Dbl aboutOrigin;
    aboutOrigin.SetLinearPart(map.LinearPart());

    // A flag, and where the map takes it; pale, where the linear part alone would.
    std::vector<Pnt3Dbl> flag;
    for (Vec3Dbl const& corner : {Vec3Dbl(0.6, 0.0, 0.0), Vec3Dbl(2.3, 0.0, 0.0), Vec3Dbl(2.3, 0.8, 0.0),
                                  Vec3Dbl(1.6, 0.4, 0.0), Vec3Dbl(1.6, 0.0, 0.0)})
        flag.push_back(p + corner);
    std::vector<Pnt2Dbl> before;
    std::vector<Pnt2Dbl> after;
    std::vector<Pnt2Dbl> linear;
    for (Pnt3Dbl const& point : flag) {
        before.push_back(plan.At(point));
        after.push_back(plan.At(map * point));
        linear.push_back(plan.At(aboutOrigin * point));
    }
    std::string const outline = "stroke-width:2;stroke-linejoin:round;";
    svg.Polygon(linear, outline + "stroke-dasharray:4 4;fill:none;stroke:" + grey);
    svg.Polygon(before, outline + "fill:#d5dbdb;stroke:" + grey);
    svg.Polygon(after, outline + "fill:#d6eaf8;stroke:" + dark);
    plan.Turn(p, p + Vec3Dbl(1.3, 0.0, 0.0), angle, orange);
    svg.Text(plan.At(p + 1.1 * Quaternion(axis, 0.5 * angle, 1).XAxis()), "w", "middle",
             bold + "fill:" + orange);

    // The translation carries the flag turned about the origin to the flag turned about p.
    plan.Arrow(aboutOrigin * flag[1], map.Translation(), green, 2.0);
    Pnt3Dbl const halfway = aboutOrigin * flag[1] + 0.5 * map.Translation();
    svg.Text(plan.At(halfway) + Vec2Dbl(12.0, -6.0), isNarrow ? "t" : "t = (L · −p) + p", "start",
             "fill:" + green);
    plan.Dot(p, red);
    svg.Text(plan.At(p) + Vec2Dbl(0.0, 22.0), "p = m * p", "middle", "fill:" + red);
    svg.Text(plan.At(flag[2]) + Vec2Dbl(8.0, -4.0), "x", "start", "font-style:italic;fill:#7f8c8d");
    svg.Code(plan.At(map * flag[2]) + Vec2Dbl(-10.0, 12.0), "m * x", "end");
    svg.Code(plan.At(aboutOrigin * flag[2]) + Vec2Dbl(8.0, -6.0), "m.LinearPart() * x", "start",
             isNarrow ? "fill:#7f8c8d" : "font-size:12px;fill:#7f8c8d");
    svg.Code(isNarrow ? Pnt2Dbl(220.0, 335.0) : Pnt2Dbl(340.0, 447.0),
             "m.SetRotation(p, Vec3Dbl(0, 0, 1), w)", "middle", isNarrow ? "" : "font-size:13px");
    return svg.Finish();
}

std::string PointsAndVectors(Format format)
{
    bool const isNarrow = format == Format::Narrow;
    Svg svg(isNarrow ? 440 : 640, isNarrow ? 290 : 400);
    Plan const plan(svg, isNarrow ? Pnt2Dbl(40.0, 262.0) : Pnt2Dbl(70.0, 360.0), isNarrow ? 56.0 : 80.0);
    plan.Grid(-0.4, -0.3, 6.9, 4.4);
    plan.Axes(6.7, 4.1);

    Mat3Dbl linear;
    Quaternion(0.0, 0.0, 1.0, Radians(30.0), 1).GetRotationMatrix(linear);
    AffMat3Dbl const map(linear, Vec3Dbl(3.5, 0.5, 0.0));
    Pnt3Dbl const p(0.6, 1.9, 0.0);
    Vec3Dbl const v(1.8, 0.4, 0.0);
    Pnt3Dbl const end = p + v;

    plan.Arrow(p, v, grey);
    plan.Dot(p, dark);
    plan.Dot(end, dark);
    plan.Arrow(map * p, map * v, orange);
    plan.Dot(map * p, dark);
    plan.Dot(map * end, dark);
    svg.Text(plan.At(p) + Vec2Dbl(-10.0, 16.0), "P", "middle", bold);
    svg.Text(plan.At(end) + Vec2Dbl(10.0, 14.0), "Q", "middle", bold);
    svg.Code(plan.At(p + 0.5 * v) + Vec2Dbl(6.0, 24.0), "v = Q - P", "middle", "fill:#7f8c8d");
    svg.Code(plan.At(map * p) + Vec2Dbl(10.0, 18.0), "m * P", "start", bold);
    svg.Code(plan.At(map * end) + Vec2Dbl(10.0, 6.0), "m * Q", "start", bold);
    svg.Code(plan.At(map * p + 0.5 * (map * v)) + Vec2Dbl(8.0, 16.0),
             isNarrow ? "m * v" : "m * v = m * Q - m * P", "start", "fill:" + orange);

    // The translation acts on the points, here on the origin.
    Pnt3Dbl const zero(0.0);
    plan.Arrow(zero, map * zero - zero, green, 2.0);
    svg.Text(plan.At(zero + 0.6 * map.Translation()) + Vec2Dbl(0.0, -8.0), "t", "middle",
             bold + "fill:" + green);
    // The vector from the origin turns and is not carried away.
    plan.Arrow(zero, map * v, orange, 1.5);
    svg.Code(plan.At(map * v) + Vec2Dbl(-6.0, -8.0), "m * v", "middle", "fill:" + orange);
    return svg.Finish();
}
