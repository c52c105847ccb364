#pragma once
#include "normals/Scan.h"

#include <string>
#include <vector>

namespace examples {

/// What the command line says.
struct Options {
    Scan scan;
    std::size_t neighbourCount = 16;
    bool showsProgress = false;
    std::string cloudPath;   ///< Of the PLY file to write, empty for none.
    std::string picturePath; ///< Of the picture to draw, empty for none.
};

extern char const* const normalsUsage;

/// False if the arguments are not those of the usage.
bool ReadOptions(std::vector<std::string> const& arguments, Options& options);

} // namespace examples
