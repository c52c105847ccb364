#pragma once
#include <fstream>
#include <sstream>
#include <string>

namespace examples {

/// The bytes of a file, from its beginning. Raises InputError if the file cannot be read, is a directory, is
/// empty or begins with a byte order mark, which the parsers would read as a part of the first word.
std::istringstream ReadInputFile(std::string const& path);

/// The same for a file that is too long to keep. It must be a file that can be read more than once, not a
/// pipe.
std::ifstream OpenInputFile(std::string const& path);

} // namespace examples
