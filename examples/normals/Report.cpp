#include "normals/Report.h"

#include <vexor/arrays/Arrays.h>

#include <algorithm>
#include <cstring>

namespace examples {

namespace {

constexpr double degree = 0.017453292519943295;

double ShareOf(std::size_t part, std::size_t count)
{
    return count > 0 ? static_cast<double>(part) / static_cast<double>(count) : 0.0;
}

/// The share of ascending numbers that are at most the limit.
double ShareUpTo(std::vector<double> const& ascending, double limit)
{
    auto const end = std::upper_bound(ascending.begin(), ascending.end(), limit);
    return ShareOf(static_cast<std::size_t>(end - ascending.begin()), ascending.size());
}

} // namespace

Comparison Compare(std::vector<Vec3Dbl> const& normals, std::vector<Vec3Dbl> const& own)
{
    std::vector<Vec3Dbl> computed;
    std::vector<Vec3Dbl> given;
    for (std::size_t i = 0; i < normals.size(); ++i) {
        if (normals[i].IsNull() || own[i].IsNull())
            continue;
        computed.push_back(normals[i]);
        given.push_back(own[i]);
    }
    std::vector<double> angles(computed.size());
    vexor::arrays::GetAngleWith(computed, given, angles);
    std::size_t onSameSide = 0;
    for (double& angle : angles) {
        angle /= degree;
        if (angle <= 90.0)
            ++onSameSide;
        else
            angle = 180.0 - angle;
    }
    std::sort(angles.begin(), angles.end());

    Comparison result{};
    result.count = angles.size();
    if (angles.empty())
        return result;
    auto const quantile = [&](double share) {
        return angles[static_cast<std::size_t>(share * static_cast<double>(angles.size() - 1))];
    };
    result.mean = vexor::arrays::Sum(angles) / static_cast<double>(angles.size());
    result.median = quantile(0.5);
    result.within90Percent = quantile(0.9);
    result.within99Percent = quantile(0.99);
    result.shareBelow5 = ShareUpTo(angles, 5.0);
    result.shareBelow10 = ShareUpTo(angles, 10.0);
    result.shareOfSameSide = ShareOf(onSameSide, angles.size());
    return result;
}

std::uint64_t HashOf(std::vector<Vec3Dbl> const& vectors)
{
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (Vec3Dbl const& vector : vectors) {
        for (int k = 0; k < 3; ++k) {
            double const component = vector[k];
            std::uint64_t bits = 0;
            std::memcpy(&bits, &component, sizeof bits);
            for (int byte = 0; byte < 8; ++byte, bits >>= 8U)
                hash = (hash ^ (bits & 0xffU)) * 0x100000001b3U;
        }
    }
    return hash;
}

} // namespace examples
