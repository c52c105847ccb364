#pragma once
#include <vexor/vectors/Vec3Dbl.h>

#include <cstdint>
#include <vector>

namespace examples {

/// How normals differ from those that the scan came with. Angles are in degrees, between lines: without sign, so from 0
/// to 90.
struct Comparison {
    std::size_t count; ///< The points that have both normals.
    double mean, median;
    double within90Percent; ///< The angle that 90 % of the points do not exceed.
    double within99Percent;
    double shareBelow5, shareBelow10; ///< Shares of points, from 0 to 1.
    double shareOfSameSide;           ///< The points at which both normals point to the same side.
};

Comparison Compare(std::vector<Vec3Dbl> const& normals, std::vector<Vec3Dbl> const& own);

/// The 64-bit FNV-1a hash of the bits of all components (Fowler, Noll, Vo), the lowest byte of each first.
std::uint64_t HashOf(std::vector<Vec3Dbl> const& vectors);

} // namespace examples
