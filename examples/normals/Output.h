#pragma once
#include "common/Svg.h"

#include <vexor/points/Pnt3Dbl.h>

#include <ostream>
#include <string>
#include <vector>

namespace examples {

/// The points with their normals as a binary PLY file, each coloured by its normal.
void WriteCloud(std::ostream& stream, std::vector<Pnt3Dbl> const& points,
                std::vector<Vec3Dbl> const& normals);

/// The cloud seen along the axis in which it extends least, from the side to which most oriented normals point: on the
/// left coloured by the normals as the solver gave them, on the right by the oriented ones. Red is the component to the
/// right, green that upward, blue that towards the viewer. Raises NotFiniteError.
Svg DrawNormals(std::string const& name, std::vector<Pnt3Dbl> const& points,
                std::vector<Vec3Dbl> const& unoriented, std::vector<Vec3Dbl> const& oriented);

} // namespace examples
