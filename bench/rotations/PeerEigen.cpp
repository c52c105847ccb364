#include "Rules.h"

#include <Eigen/Dense>

namespace {

using Unit = Eigen::Quaterniond;
using Vector = Eigen::Vector3d;
using Matrix = Eigen::Matrix3d;

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
    return {q.x(), q.y(), q.z(), q.w()};
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
            numbers.push_back(matrix(i, j));
    }
    return numbers;
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Quaternion product", "Eigen", MakeQuaternion, MakeQuaternion,
        [](Unit const& a, Unit const& b) { return Unit(a * b); }, ReadQuaternion, bench::productRule,
        Must::BeNear);
    Elementwise(
        "RotatePoint", "Eigen", MakeQuaternion, MakeVector,
        [](Unit const& a, Vector const& b) { return Vector(a * b); }, ReadVector, bench::rotateRule,
        Must::BeNear);
    Elementwise(
        "GetRotationMatrix", "Eigen", MakeQuaternion, bench::MakeNothing,
        [](Unit const& a, bench::Nothing) { return Matrix(a.toRotationMatrix()); }, ReadMatrix,
        bench::matrixRule, Must::BeNear);
    return true;
}();

} // namespace
