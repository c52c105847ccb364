#pragma once
#include <stdexcept>
#include <string>

namespace examples {

/// Something is wrong with a file that the user gave; the text says what and where.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    InputError(std::string const& file, int line, std::string const& what)
        : std::runtime_error(file + ":" + std::to_string(line) + ": " + what)
    {}
};

/// The input is sound, but the result cannot be computed from it.
class NotComputableError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace examples
