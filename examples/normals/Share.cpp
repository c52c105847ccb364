#include "normals/Share.h"

#include "common/InputError.h"
#include "normals/Progress.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace examples {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::size_t largestSample = 65536;

/// The points of a slab and its margin.
void Fill(Slab& slab, Scan const& scan)
{
    slab.points.clear();
    slab.numbers.clear();
    std::uint32_t number = 0;
    scan.ForEach([&](ScanPoint const& point) {
        if (slab.IsInMargin(point.place)) {
            slab.points.push_back(point.place);
            slab.numbers.push_back(number);
        }
        ++number;
    });
}

} // namespace

void Overview::Add(Pnt3Dbl const& point)
{
    box = vexor::arrays::Combine(box, vexor::arrays::BoxOfBlock(&point, 1));
    if (count++ % stride != 0)
        return;
    sample.push_back(point);
    if (sample.size() < largestSample)
        return;
    for (std::size_t i = 0; 2 * i < sample.size(); ++i)
        sample[i] = sample[2 * i];
    sample.resize((sample.size() + 1) / 2, Pnt3Dbl(0.0));
    stride *= 2;
}

void Overview::Check(std::string const& name, std::size_t neighbourCount) const
{
    if (count < neighbourCount)
        throw InputError(name + ": has " + std::to_string(count) + " points, fewer than the "
                         + std::to_string(neighbourCount) + " of a neighbourhood");
    double const extent = Extent(LongestAxis());
    if (extent > 1e150)
        throw InputError(name + ": the points are too far apart: their squared distances overflow");
    if (extent < 1e-130)
        throw InputError(name + ": the points are too close together: their squared distances underflow");
}

int Overview::LongestAxis() const
{
    int longest = 0;
    for (int axis = 1; axis < 3; ++axis)
        if (Extent(axis) > Extent(longest))
            longest = axis;
    return longest;
}

std::vector<double> Overview::Cuts(int axis, int slabCount) const
{
    std::vector<double> coordinates;
    for (Pnt3Dbl const& point : sample)
        coordinates.push_back(point[axis]);
    std::sort(coordinates.begin(), coordinates.end());
    std::vector<double> cuts = {-infinity};
    for (int i = 1; i < slabCount; ++i)
        cuts.push_back(coordinates[coordinates.size() * static_cast<std::size_t>(i)
                                   / static_cast<std::size_t>(slabCount)]);
    cuts.push_back(infinity);
    return cuts;
}

SlabNormals ComputeShare(Scan const& scan, Overview const& overview, int rank, int size,
                         std::size_t neighbourCount, bool showsProgress)
{
    int const axis = overview.LongestAxis();
    std::vector<double> const cuts = overview.Cuts(axis, size);
    Slab slab{};
    slab.axis = axis;
    slab.begin = cuts[static_cast<std::size_t>(rank)];
    slab.end = cuts[static_cast<std::size_t>(rank) + 1];

    // On a surface, this is about twice the radius of a neighbourhood.
    double margin = 2.0 * overview.Extent(axis)
                    * std::sqrt(static_cast<double>(neighbourCount) / static_cast<double>(overview.Count()));
    for (SlabNormals results;; margin *= 2.0) {
        slab.marginBegin = slab.begin - margin;
        slab.marginEnd = slab.end + margin;
        Fill(slab, scan);
        auto const ownCount = static_cast<std::size_t>(std::count_if(
            slab.points.begin(), slab.points.end(), [&](Pnt3Dbl const& point) { return slab.IsOwn(point); }));
        Progress progress("normals", ownCount, showsProgress);
        if (ComputeNormals(slab, neighbourCount, results, [&](std::size_t done) { progress.Show(done); }))
            return results;
    }
}

} // namespace examples
