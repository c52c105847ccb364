#pragma once
#include <vexor/points/Pnt3Dbl.h>

#include <cstdint>
#include <vector>

namespace examples {

/// Gives neighbouring normals the same side of the surface, and returns how many connected parts the neighbours form.
/// In each part the signs are carried along the minimum spanning tree in which an edge costs the less, the more
/// parallel its two normals are (Hoppe et al. 1992). Equal edges are told apart by the numbers of their points, so the
/// tree does not depend on the order of the work. `neighbours` has the same number of entries for each point.
///
/// Which of the two sides a part takes, its points do not tell: it is that of most of the `given` normals, which may be 0,
/// or if these say nothing, the one to which the normal at the point farthest from the middle of the cloud
/// points outward.
std::size_t Orient(std::vector<Pnt3Dbl> const& points, std::vector<Vec3Dbl> const& given,
                   std::vector<std::uint32_t> const& neighbours, std::vector<Vec3Dbl>& normals);

} // namespace examples
