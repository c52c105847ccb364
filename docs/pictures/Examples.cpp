// Pictures of the example programs that draw none themselves.
#include "Pictures.h"

#include "Scene.h"

#include <cmath>
#include <fstream>

std::string ExampleRegression()
{
    // The problem Filip of NIST: a polynomial of degree 10.
    std::ifstream file(VEXOR_NIST_FOLDER "/Filip.txt");
    std::string line;
    while (std::getline(file, line) && line.rfind("data", 0) != 0) {
    }
    std::vector<Pnt2Dbl> observations;
    Pnt2Dbl observation;
    while (file >> observation.y >> observation.x)
        observations.push_back(observation);

    int const count = static_cast<int>(observations.size());
    MatDbl design(count, 11, 1.0);
    VecDbl coefficients(count);
    for (int i = 0; i < count; ++i) {
        Pnt2Dbl const& at = observations[static_cast<std::size_t>(i)];
        for (int power = 1; power <= 10; ++power)
            design(i, power) = design(i, power - 1) * at.x;
        coefficients[i] = at.y;
    }
    design.SolveLinearLeastSquares(coefficients);

    Svg svg(440, 300);
    auto const at = [](double x, double y) {
        return Pnt2Dbl(60.0 + 60.0 * (x + 9.0), 250.0 - 1100.0 * (y - 0.75));
    };
    for (int x = -9; x <= -3; ++x) {
        svg.Line(at(x, 0.75), at(x, 0.95), "stroke-width:1;stroke:#ecf0f1");
        svg.Text(at(x, 0.75) + Vec2Dbl(0.0, 20.0), Decimal(x, 0), "middle");
    }
    for (double y = 0.75; y < 0.96; y += 0.05) {
        svg.Line(at(-9.0, y), at(-3.0, y), "stroke-width:1;stroke:#ecf0f1");
        svg.Text(at(-9.0, y) + Vec2Dbl(-8.0, 5.0), Decimal(y, 2), "end");
    }
    std::vector<Pnt2Dbl> curve;
    for (double x = -8.8; x < -3.1; x += 0.05) {
        double y = 0.0;
        for (int power = 10; power >= 0; --power)
            y = y * x + coefficients[power];
        curve.push_back(at(x, y));
    }
    svg.Polyline(curve, "stroke-width:2.5;stroke:" + red);
    for (Pnt2Dbl const& point : observations)
        svg.Circle(at(point.x, point.y), 3.0, "fill:none;stroke-width:1.2;stroke:" + dark);
    svg.Text(Pnt2Dbl(240.0, 292.0), "Filip: 82 observations, degree 10", "middle");
    return svg.Finish();
}

std::string ExampleTurningBody()
{
    // Euler's equations of a body without a torque, by the midpoint rule.
    Vec3Dbl const inertia(1.0, 2.0, 3.0);
    auto const acceleration = [&](Vec3Dbl const& w) {
        return Vec3Dbl((inertia.y - inertia.z) * (w.y * w.z), (inertia.z - inertia.x) * (w.z * w.x),
                       (inertia.x - inertia.y) * (w.x * w.y))
            .ElemDiv(inertia);
    };
    double const step = 1e-3;
    Vec3Dbl velocity(0.05, 1.5, 0.05);
    Quaternion orientation;

    Svg svg(440, 330);
    View const view(svg, Pnt2Dbl(220.0, 165.0), 140.0);
    svg.Circle(Pnt2Dbl(220.0, 165.0), 140.0, "fill:#f4f6f7;stroke-width:1;stroke:" + grey);
    std::vector<Pnt2Dbl> front;
    std::vector<Pnt2Dbl> back;
    Vec3Dbl const towardsViewer = Vec3Dbl(0.75, 0.55, 0.5).Normalize();
    auto const flush = [&](std::vector<Pnt2Dbl>& way, std::string const& style) {
        if (way.size() > 1)
            svg.Polyline(way, style);
        way.clear();
    };
    std::string const thin = "stroke-width:1;stroke:#a9cce3";
    std::string const thick = "stroke-width:2;stroke:" + blue;
    for (int i = 0; i <= 30000; ++i) {
        if (i % 40 == 0) {
            Vec3Dbl const axis = orientation.XAxis();
            bool const isInFront = axis.Dot(towardsViewer) > 0.0;
            (isInFront ? front : back).push_back(view.At(axis));
            flush(isInFront ? back : front, isInFront ? thin : thick);
        }
        Vec3Dbl const middle = velocity + (0.5 * step) * acceleration(velocity);
        orientation = orientation * Quaternion(middle, step * middle.Length(), 1);
        orientation.Normalize();
        velocity += step * acceleration(middle);
    }
    flush(front, thick);
    flush(back, thin);
    view.Arrow(Vec3Dbl(0.0), orientation.XAxis(), red, 3.0);
    view.Label(orientation.XAxis(), "the body's X axis", red);
    return svg.Finish();
}
