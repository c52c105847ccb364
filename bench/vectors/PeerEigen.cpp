#include "Rules.h"

#include <Eigen/Dense>

namespace {

using Vector = Eigen::Vector3d;

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
        "Dot", "Eigen", Make, Make, [](Vector const& a, Vector const& b) { return a.dot(b); },
        bench::ReadNumber, bench::dotRule, Must::BeNear);
    Elementwise(
        "Cross", "Eigen", Make, Make, [](Vector const& a, Vector const& b) { return Vector(a.cross(b)); },
        Read, bench::crossRule, Must::BeNear);
    Elementwise(
        "GetNormalizedCopy", "Eigen", Make, bench::MakeNothing,
        [](Vector const& a, bench::Nothing) { return Vector(a.normalized()); }, Read, bench::normalizeRule,
        Must::BeNear);
    Elementwise(
        "IsParallelTo", "Eigen", Make, Make,
        [](Vector const& a, Vector const& b) {
            double const d = a.dot(b);
            double const aa = a.squaredNorm();
            double const bb = b.squaredNorm();
            return int(aa > bench::lengthSquared) & int(bb > bench::lengthSquared)
                   & int(1.0 - d * d / aa / bb <= bench::sineSquared);
        },
        bench::ReadFlag, bench::parallelRule, Must::BeNear);
    return true;
}();

} // namespace
