#include "Passes.h"

#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>

namespace {

using namespace bench;
using Vector = glm::dvec3;

Vector Make(double const* n)
{
    return Vector(n[0], n[1], n[2]);
}

[[maybe_unused]] bool const registered = [] {
    OverElements<Vector>("Normalize", "GLM", Make, MakeNothing,
                         [](Vector const& a, Nothing) { return glm::normalize(a); });
    OverElements<double>("Length", "GLM", Make, MakeNothing,
                         [](Vector const& a, Nothing) { return glm::length(a); });
    OverElements<Vector>("Cross", "GLM", Make, Make,
                         [](Vector const& a, Vector const& b) { return glm::cross(a, b); });
    OverElements<double>("Dot", "GLM", Make, Make,
                         [](Vector const& a, Vector const& b) { return glm::dot(a, b); });
    OverElements<Vector>("Sum of two", "GLM", Make, Make,
                         [](Vector const& a, Vector const& b) { return a + b; });
    OverElements<double>("DistanceTo", "GLM", Make, Make,
                         [](Vector const& a, Vector const& b) { return glm::distance(a, b); });
    OverElements<unsigned char>("IsParallelTo", "GLM", Make, Make, [](Vector const& a, Vector const& b) {
        double const d = glm::dot(a, b);
        double const aa = glm::dot(a, a);
        double const bb = glm::dot(b, b);
        return static_cast<unsigned char>(int(aa > tolerance) & int(bb > tolerance)
                                          & int(1.0 - d * d / aa / bb <= tolerance));
    });
    glm::dmat4x3 map;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            map[k][i] = mapNumbers[3 * i + k];
        map[3][i] = mapNumbers[9 + i];
    }
    OverElements<Vector>("Affine map x point", "GLM", Make, MakeNothing,
                         [map](Vector const& a, Nothing) { return map * glm::dvec4(a, 1.0); });
    glm::dquat const turn = glm::angleAxis(0.7, glm::normalize(Vector(1.0, 2.0, 3.0)));
    OverElements<Vector>("RotatePoint", "GLM", Make, MakeNothing,
                         [turn](Vector const& a, Nothing) { return turn * a; });
    return true;
}();

} // namespace
