#pragma once
#include <string>

namespace examples {

/// Puts back what a binary PLY file lost when it was transferred as text: each run of bytes 13 before a byte 10. A
/// vertex is taken as intact if its numbers are finite and its normal (nx, ny, nz) has the length 1; in any other,
/// the fewest bytes 13 are inserted that make it, and the vertices behind it, intact. Raises InputError if
/// the file has no normals or cannot be restored.
std::string RestoreLineEnds(std::string const& bytes, std::string const& fileName);

} // namespace examples
