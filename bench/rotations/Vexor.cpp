#include "Rules.h"

#include <vexor/rotations/Quaternion.h>

namespace {

Quaternion MakeQuaternion(double const* numbers)
{
    bench::UnitQuaternion const unit(numbers);
    Quaternion result;
    result.SetValue(unit.u, unit.v, unit.w, unit.s, 0);
    return result;
}

Vec3Dbl MakeVector(double const* numbers)
{
    return Vec3Dbl(numbers[0], numbers[1], numbers[2]);
}

std::vector<double> ReadQuaternion(Quaternion const& q)
{
    return {q.u, q.v, q.w, q.s};
}

std::vector<double> ReadVector(Vec3Dbl const& vector)
{
    return {vector.x, vector.y, vector.z};
}

std::vector<double> ReadMatrix(Mat3Dbl const& matrix)
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
    Vec3Dbl axis;
    double angle;
};

Turn MakeTurn(double const* numbers)
{
    bench::TurnNumbers const turn(numbers);
    return {Vec3Dbl(turn.axis[0], turn.axis[1], turn.axis[2]), turn.angle};
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Quaternion product", "vexor", MakeQuaternion, MakeQuaternion,
        [](Quaternion const& a, Quaternion const& b) { return a * b; }, ReadQuaternion, bench::productRule,
        Must::GiveTheBits);
    Elementwise(
        "RotatePoint", "vexor", MakeQuaternion, MakeVector,
        [](Quaternion const& a, Vec3Dbl const& b) { return a.RotatePoint(b); }, ReadVector, bench::rotateRule,
        Must::GiveTheBits);
    Elementwise(
        "GetRotationMatrix", "vexor", MakeQuaternion, bench::MakeNothing,
        [](Quaternion const& a, bench::Nothing) {
            Mat3Dbl matrix;
            a.GetRotationMatrix(matrix);
            return matrix;
        },
        ReadMatrix, bench::matrixRule, Must::GiveTheBits);
    Elementwise(
        "SetAxisAngle", "vexor", MakeTurn, bench::MakeNothing,
        [](Turn const& turn, bench::Nothing) {
            Quaternion result;
            result.SetAxisAngle(turn.axis, turn.angle, 0);
            return result;
        },
        ReadQuaternion, bench::axisAngleRule, Must::BeNear);
    Elementwise(
        "Rotate", "vexor", MakeTurn, MakeVector,
        [](Turn const& turn, Vec3Dbl const& vector) {
            Vec3Dbl result(vector);
            result.Rotate(turn.axis, turn.angle);
            return result;
        },
        ReadVector, bench::turnRule, Must::BeNear);
    Elementwise(
        "GetAngleWith", "vexor", MakeVector, MakeVector,
        [](Vec3Dbl const& a, Vec3Dbl const& b) { return a.GetAngleWith(b); }, bench::ReadNumber,
        bench::angleRule, Must::BeNear);
    Elementwise(
        "GetEulerAngles", "vexor", MakeQuaternion, bench::MakeNothing,
        [](Quaternion const& a, bench::Nothing) { return a.GetEulerAngles(); }, ReadVector, bench::eulerRule,
        Must::BeNear);
    return true;
}();

} // namespace
