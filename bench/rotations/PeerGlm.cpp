#include "Rules.h"

#define GLM_ENABLE_EXPERIMENTAL // for what is in gtx
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtx/rotate_vector.hpp>
#include <glm/gtx/vector_angle.hpp>

namespace {

using Unit = glm::dquat;
using Vector = glm::dvec3;
using Matrix = glm::dmat3; // [column][row]

Unit MakeQuaternion(double const* numbers)
{
    bench::UnitQuaternion const unit(numbers);
    return Unit(unit.s, unit.u, unit.v, unit.w);
}

Vector MakeVector(double const* numbers)
{
    return Vector(numbers[0], numbers[1], numbers[2]);
}

std::vector<double> ReadQuaternion(Unit const& q)
{
    return {q.x, q.y, q.z, q.w};
}

std::vector<double> ReadVector(Vector const& vector)
{
    return {vector[0], vector[1], vector[2]};
}

std::vector<double> ReadMatrix(Matrix const& matrix)
{
    std::vector<double> numbers;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            numbers.push_back(matrix[j][i]);
    }
    return numbers;
}

/// A turn about an axis.
struct Turn {
    Vector axis;
    double angle;
};

Turn MakeTurn(double const* numbers)
{
    bench::TurnNumbers const turn(numbers);
    return {Vector(turn.axis[0], turn.axis[1], turn.axis[2]), turn.angle};
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Quaternion product", "GLM", MakeQuaternion, MakeQuaternion,
        [](Unit const& a, Unit const& b) { return Unit(a * b); }, ReadQuaternion, bench::productRule,
        Must::BeNear);
    Elementwise(
        "RotatePoint", "GLM", MakeQuaternion, MakeVector,
        [](Unit const& a, Vector const& b) { return Vector(a * b); }, ReadVector, bench::rotateRule,
        Must::BeNear);
    Elementwise(
        "GetRotationMatrix", "GLM", MakeQuaternion, bench::MakeNothing,
        [](Unit const& a, bench::Nothing) { return Matrix(glm::mat3_cast(a)); }, ReadMatrix,
        bench::matrixRule, Must::BeNear);
    Elementwise(
        "SetAxisAngle", "GLM", MakeTurn, bench::MakeNothing,
        [](Turn const& turn, bench::Nothing) { return Unit(glm::angleAxis(turn.angle, turn.axis)); },
        ReadQuaternion, bench::axisAngleRule, Must::BeNear);
    Elementwise(
        "Rotate", "GLM", MakeTurn, MakeVector,
        [](Turn const& turn, Vector const& vector) {
            return Vector(glm::rotate(vector, turn.angle, turn.axis));
        },
        ReadVector, bench::turnRule, Must::BeNear);
    Elementwise(
        "GetAngleWith", "GLM", MakeVector, MakeVector,
        [](Vector const& a, Vector const& b) { return glm::angle(glm::normalize(a), glm::normalize(b)); },
        bench::ReadNumber, bench::angleRule, Must::BeNear);
    Elementwise(
        "GetEulerAngles", "GLM", MakeQuaternion, bench::MakeNothing,
        [](Unit const& a, bench::Nothing) { return Vector(glm::eulerAngles(a)); }, ReadVector,
        bench::eulerRule, Must::BeNear);
    return true;
}();

} // namespace
