#include "normals/Progress.h"

#include <cstdio>

#if defined(_WIN32)
#    include <io.h>
#else
#    include <unistd.h>
#endif

namespace examples {

bool Progress::IsTerminal()
{
#if defined(_WIN32)
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

Progress::Progress(char const* workName, std::size_t totalCount, bool isWanted)
    : work(workName), total(totalCount), isShown(isWanted), next(std::chrono::steady_clock::now())
{}

Progress::~Progress()
{
    if (hasWritten)
        std::fprintf(stderr, "\n");
}

void Progress::Show(std::size_t done)
{
    if (!isShown || total == 0 || (std::chrono::steady_clock::now() < next && done != total))
        return;
    next = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
    hasWritten = true;
    std::fprintf(stderr, "\r%s: %3.0f %%", work,
                 100.0 * static_cast<double>(done) / static_cast<double>(total));
    std::fflush(stderr);
}

} // namespace examples
