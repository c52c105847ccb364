#pragma once
#include <vexor/points/Pnt3Dbl.h>

#include <string>
#include <vector>

namespace examples {

struct Colour {
    int red = 90, green = 90, blue = 90;
};

struct CloudPoint {
    Pnt3Dbl place;
    Colour colour;
};

/// Reads a point cloud: a PLY file (text or little-endian binary; vertices first), or text with x y z
/// on each line and, if three whole numbers up to 255 follow, a colour. Raises InputError, which names
/// the line, or in binary data the point, for anything else.
std::vector<CloudPoint> ReadPointCloud(std::string const& path);

} // namespace examples
