#pragma once
#include <functional>

namespace examples {

// Exit statuses of the example programs.
constexpr int succeeded = 0;
constexpr int badInput = 1; // also an output that cannot be written
constexpr int badUsage = 2;
constexpr int notComputable = 3;

/// Runs the body of a program. Exceptions become a message on standard error and an exit status, and so does
/// standard output that cannot be written.
int RunProgram(char const* name, std::function<int()> const& body);

} // namespace examples
