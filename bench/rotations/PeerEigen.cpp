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
    Elementwise(
        "SetAxisAngle", "Eigen", MakeTurn, bench::MakeNothing,
        [](Turn const& turn, bench::Nothing) { return Unit(Eigen::AngleAxisd(turn.angle, turn.axis)); },
        ReadQuaternion, bench::axisAngleRule, Must::BeNear);
    Elementwise(
        "Rotate", "Eigen", MakeTurn, MakeVector,
        [](Turn const& turn, Vector const& vector) {
            return Vector(Eigen::AngleAxisd(turn.angle, turn.axis) * vector);
        },
        ReadVector, bench::turnRule, Must::BeNear);
    Elementwise( // the first angle is in another range than in the rule
        "GetEulerAngles", "Eigen", MakeQuaternion, bench::MakeNothing,
        [](Unit const& a, bench::Nothing) { return Vector(a.toRotationMatrix().eulerAngles(2, 1, 0)); },
        ReadVector, bench::eulerRule, Must::BeFast);
    return true;
}();

} // namespace
