#if defined(VEXOR_CHECKED)

#    include <vexor/foundation/Config.h>

#    include <cstdio>
#    include <cstdlib>

void vexor::detail::StopOnMisuse(char const* file, int line, char const* what)
{
    // The program stops even if the message cannot be written.
    static_cast<void>(std::fprintf(stderr, "%s:%d: vexor: %s\n", file, line, what));
    std::abort();
}

#endif
