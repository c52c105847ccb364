#pragma once
#include "normals/Normals.h"
#include "normals/Scan.h"

#include <vexor/arrays/Arrays.h>

#include <vector>

namespace examples {

/// What every process learns of a scan by reading it once.
class Overview {
public:
    void Add(Pnt3Dbl const& point);
    /// Raises InputError if the points are too few, or too far apart or too close together for their squared distances.
    void Check(std::string const& name, std::size_t neighbourCount) const;

    std::size_t Count() const { return count; }
    /// The axis along which the points extend farthest.
    int LongestAxis() const;
    double Extent(int axis) const { return box.upper[axis] - box.lower[axis]; }
    /// The coordinates along an axis at which the points are cut into so many slabs of about the same number of points;
    /// −∞ and +∞ at the ends.
    std::vector<double> Cuts(int axis, int slabCount) const;

private:
    vexor::arrays::Box<Pnt3Dbl> box = vexor::arrays::BoxOfBlock(static_cast<Pnt3Dbl const*>(nullptr), 0);
    std::size_t count = 0;
    std::size_t stride = 1; // a sample: every so many points
    std::vector<Pnt3Dbl> sample;
};

/// Computes the normals of the share of process `rank` of `size`. Reads the scan once more, and again with a wider
/// margin as long as a neighbour could lie outside of it.
SlabNormals ComputeShare(Scan const& scan, Overview const& overview, int rank, int size,
                         std::size_t neighbourCount, bool showsProgress);

} // namespace examples
