#pragma once
#include <sstream>
#include <string>

namespace examples {

/// The bytes of a file, from its beginning. Raises InputError if the file cannot be read, is a directory, is
/// empty or begins with a byte order mark, which the parsers would take for a part of the first word.
std::istringstream ReadInputFile(std::string const& path);

} // namespace examples
