#pragma once
#include <vexor/points/Pnt3Dbl.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace examples {

/// A part of a cloud: the points between two places along an axis, `begin` included, and around them a margin, from
/// which neighbours come. Both in the order of the cloud.
struct Slab {
    int axis;
    double begin, end;
    double marginBegin, marginEnd;
    std::vector<Pnt3Dbl> points;        ///< With those of the margin.
    std::vector<std::uint32_t> numbers; ///< Which points of the cloud they are.

    bool IsOwn(Pnt3Dbl const& point) const { return point[axis] >= begin && point[axis] < end; }
    bool IsInMargin(Pnt3Dbl const& point) const
    {
        return point[axis] >= marginBegin && point[axis] <= marginEnd;
    }
};

/// What was computed of a slab's own points, in their order.
struct SlabNormals {
    std::vector<std::uint32_t> numbers;    ///< Which points of the cloud they are.
    std::vector<Vec3Dbl> normals;          ///< Of either sign; 0 where the neighbours single out no plane.
    std::vector<std::uint32_t> neighbours; ///< So many for each point, as numbers of points of the cloud.
};

/// Told how many points are done.
using ProgressSink = std::function<void(std::size_t)>;

/// The normal of each own point: the direction in which it and its nearest neighbours, together `neighbourCount`
/// points, vary least. False if a neighbour could lie outside of the margin; nothing of the results is then of use.
/// Raises NotFiniteError.
bool ComputeNormals(Slab const& slab, std::size_t neighbourCount, SlabNormals& results,
                    ProgressSink const& progress);

} // namespace examples
