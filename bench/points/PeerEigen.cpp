#include "Rules.h"

#include <Eigen/Dense>

namespace {

using Vector = Eigen::Vector3d;

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
        "DistanceTo", "Eigen", Make, Make, [](Vector const& a, Vector const& b) { return (a - b).norm(); },
        bench::ReadNumber, bench::distanceRule, Must::BeNear);
    Elementwise(
        "Point + vector", "Eigen", Make, Make, [](Vector const& a, Vector const& b) { return Vector(a + b); },
        Read, bench::translateRule, Must::BeNear);
    return true;
}();

} // namespace
