#include "Rules.h"

#include <glm/glm.hpp>

namespace {

using Vector = glm::dvec3;

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
        "DistanceTo", "GLM", Make, Make, [](Vector const& a, Vector const& b) { return glm::distance(a, b); },
        bench::ReadNumber, bench::distanceRule, Must::BeNear);
    Elementwise(
        "Point + vector", "GLM", Make, Make, [](Vector const& a, Vector const& b) { return Vector(a + b); },
        Read, bench::translateRule, Must::BeNear);
    return true;
}();

} // namespace
