#pragma once
#include <chrono>
#include <cstddef>

namespace examples {

/// A line on standard error that says how much is done, written anew at most five times a second. Only if standard error
/// is a terminal, or if asked for.
class Progress {
public:
    Progress(char const* workName, std::size_t totalCount, bool isWanted);
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;
    ~Progress();
    void Show(std::size_t done);

    /// Whether standard error is a terminal.
    static bool IsTerminal();

private:
    char const* work;
    std::size_t total;
    bool isShown;
    bool hasWritten = false;
    std::chrono::steady_clock::time_point next;
};

} // namespace examples
