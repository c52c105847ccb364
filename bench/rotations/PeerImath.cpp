#include "Rules.h"

#include <ImathEuler.h>
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
    Elementwise(
        "SetAxisAngle", "Imath", MakeTurn, bench::MakeNothing,
        [](Turn const& turn, bench::Nothing) {
            Unit result;
            result.setAxisAngle(turn.axis, turn.angle);
            return result;
        },
        ReadQuaternion, bench::axisAngleRule, Must::BeNear);
    Elementwise(
        "Rotate", "Imath", MakeTurn, MakeVector,
        [](Turn const& turn, Vector const& vector) {
            Unit unit;
            return Vector(unit.setAxisAngle(turn.axis, turn.angle).rotateVector(vector));
        },
        ReadVector, bench::turnRule, Must::BeNear);
    Elementwise(
        "GetEulerAngles", "Imath", MakeQuaternion, bench::MakeNothing,
        [](Unit const& a, bench::Nothing) {
            Imath::Eulerd angles;
            angles.extract(a);
            return Vector(angles.toXYZVector());
        },
        ReadVector, bench::eulerRule, Must::BeNear);
    return true;
}();

} // namespace
