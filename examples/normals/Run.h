#pragma once
#include "normals/Team.h"

#include <string>
#include <vector>

namespace examples {

/// The program, on one process of a team. Returns its exit status.
int RunNormals(std::vector<std::string> const& arguments, Team& team);

} // namespace examples
