#include "Rules.h"

#include <vexor/points/Pnt3Dbl.h>

namespace {

Pnt3Dbl MakePoint(double const* numbers)
{
    return Pnt3Dbl(numbers[0], numbers[1], numbers[2]);
}

Vec3Dbl MakeVector(double const* numbers)
{
    return Vec3Dbl(numbers[0], numbers[1], numbers[2]);
}

std::vector<double> Read(Pnt3Dbl const& point)
{
    return {point.x, point.y, point.z};
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "DistanceTo", "vexor", MakePoint, MakePoint,
        [](Pnt3Dbl const& a, Pnt3Dbl const& b) { return a.DistanceTo(b); }, bench::ReadNumber,
        bench::distanceRule, Must::GiveTheBits);
    Elementwise(
        "Point + vector", "vexor", MakePoint, MakeVector,
        [](Pnt3Dbl const& a, Vec3Dbl const& b) { return a + b; }, Read, bench::translateRule,
        Must::GiveTheBits);
    return true;
}();

} // namespace
