#include "Rules.h"

#include <vexor/vectors/Vec3Dbl.h>

namespace {

Vec3Dbl Make(double const* numbers)
{
    return Vec3Dbl(numbers[0], numbers[1], numbers[2]);
}

std::vector<double> Read(Vec3Dbl const& vector)
{
    return {vector.x, vector.y, vector.z};
}

// Like GetNormalizedCopy, but with only the check that every normalisation needs: whether the vector is null.
Vec3Dbl NormalizedOverPlainRange(Vec3Dbl const& vector)
{
    double const length = std::sqrt(vector.LengthSquared());
    if (length == 0.0)
        vexor::detail::RaiseNullVector();
    return Vec3Dbl(vector.x / length, vector.y / length, vector.z / length);
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Dot", "vexor", Make, Make, [](Vec3Dbl const& a, Vec3Dbl const& b) { return a.Dot(b); },
        bench::ReadNumber, bench::dotRule, Must::GiveTheBits);
    Elementwise(
        "Cross", "vexor", Make, Make, [](Vec3Dbl const& a, Vec3Dbl const& b) { return a.Cross(b); }, Read,
        bench::crossRule, Must::GiveTheBits);
    Elementwise(
        "GetNormalizedCopy", "vexor", Make, bench::MakeNothing,
        [](Vec3Dbl const& a, bench::Nothing) { return a.GetNormalizedCopy(); }, Read, bench::normalizeRule,
        Must::GiveTheBits);
    Elementwise(
        "GetNormalizedCopy", "null check alone", Make, bench::MakeNothing,
        [](Vec3Dbl const& a, bench::Nothing) { return NormalizedOverPlainRange(a); }, Read,
        bench::normalizeRule, Must::GiveTheBits);
    Elementwise(
        "IsParallelTo", "vexor", Make, Make,
        [](Vec3Dbl const& a, Vec3Dbl const& b) {
            return a.IsParallelTo(b, bench::sineSquared, bench::lengthSquared);
        },
        bench::ReadFlag, bench::parallelRule, Must::GiveTheBits);
    return true;
}();

} // namespace
