#include "Rules.h"

#include <ImathQuat.h>

namespace {

using Unit = Imath::Quatd;
using Vector = Imath::V3d;
using Matrix = Imath::M33d; // multiplies row vectors from the right: so it is transposed

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
    return {q.v.x, q.v.y, q.v.z, q.r};
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

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Quaternion product", "Imath", MakeQuaternion, MakeQuaternion,
        [](Unit const& a, Unit const& b) { return Unit(a * b); }, ReadQuaternion, bench::productRule,
        Must::BeNear);
    Elementwise(
        "RotatePoint", "Imath", MakeQuaternion, MakeVector,
        [](Unit const& a, Vector const& b) { return Vector(a.rotateVector(b)); }, ReadVector,
        bench::rotateRule, Must::BeNear);
    Elementwise(
        "GetRotationMatrix", "Imath", MakeQuaternion, bench::MakeNothing,
        [](Unit const& a, bench::Nothing) { return Matrix(a.toMatrix33()); }, ReadMatrix, bench::matrixRule,
        Must::BeNear);
    return true;
}();

} // namespace
