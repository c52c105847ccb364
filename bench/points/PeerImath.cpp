#include "Rules.h"

#include <ImathVec.h>

namespace {

using Vector = Imath::V3d;

Vector Make(double const* numbers)
{
    return Vector(numbers[0], numbers[1], numbers[2]);
}

std::vector<double> Read(Vector const& vector)
{
    return {vector[0], vector[1], vector[2]};
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "DistanceTo", "Imath", Make, Make, [](Vector const& a, Vector const& b) { return (a - b).length(); },
        bench::ReadNumber, bench::distanceRule, Must::BeNear);
    Elementwise(
        "Point + vector", "Imath", Make, Make, [](Vector const& a, Vector const& b) { return Vector(a + b); },
        Read, bench::translateRule, Must::BeNear);
    return true;
}();

} // namespace
