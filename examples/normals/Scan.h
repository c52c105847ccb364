#pragma once
#include <vexor/points/Pnt3Dbl.h>

#include <cstddef>
#include <functional>
#include <string>

namespace examples {

/// A point of a scan. The normal is 0 if the scan has none.
struct ScanPoint {
    Pnt3Dbl place;
    Vec3Dbl normal;
};

using ScanVisitor = std::function<void(ScanPoint const&)>;

/// Where the points come from: a PLY file, or a made-up surface. Its points can be read any number of times, so
/// that a process need not keep all of them.
class Scan {
public:
    static Scan OfFile(std::string path, bool restoresLineEnds);
    /// So many points of a wavy surface over a square of side 1, with its exact normals.
    static Scan OfSurface(std::size_t count);

    std::string const& Name() const { return name; }
    /// Visits all points in their order. Raises InputError for a malformed file.
    void ForEach(ScanVisitor const& visit) const;

private:
    std::string name;
    bool isFile = true;
    bool restores = false;
    std::size_t surfaceCount = 0;
};

} // namespace examples
