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
        "Dot", "GLM", Make, Make, [](Vector const& a, Vector const& b) { return glm::dot(a, b); },
        bench::ReadNumber, bench::dotRule, Must::BeNear);
    Elementwise(
        "Cross", "GLM", Make, Make, [](Vector const& a, Vector const& b) { return Vector(glm::cross(a, b)); },
        Read, bench::crossRule, Must::BeNear);
    Elementwise(
        "GetNormalizedCopy", "GLM", Make, bench::MakeNothing,
        [](Vector const& a, bench::Nothing) { return Vector(glm::normalize(a)); }, Read, bench::normalizeRule,
        Must::BeNear);
    Elementwise(
        "IsParallelTo", "GLM", Make, Make,
        [](Vector const& a, Vector const& b) {
            double const d = glm::dot(a, b);
            double const aa = glm::dot(a, a);
            double const bb = glm::dot(b, b);
            return int(aa > bench::lengthSquared) & int(bb > bench::lengthSquared)
                   & int(1.0 - d * d / aa / bb <= bench::sineSquared);
        },
        bench::ReadFlag, bench::parallelRule, Must::BeNear);
    return true;
}();

} // namespace
