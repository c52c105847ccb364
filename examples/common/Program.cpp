#include "common/Program.h"

#include "common/InputError.h"
#include "common/Text.h"

#include <vexor/foundation/VexorException.h>

#include <cstdio>
#include <exception>

namespace examples {

namespace {

// The text may quote a file: control bytes must not reach the terminal.
int Report(char const* name, char const* what, int status)
{
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %s\n", name, Printable(what).c_str());
    return status;
}

/// The body's status, unless its output was lost: on a full disk, for example.
int WithOutputWritten(char const* name, int status)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return status;
    return Report(name, "standard output: cannot be written", badInput);
}

} // namespace

// The library's exceptions have no text: only the type tells them apart.
int RunProgram(char const* name, std::function<int()> const& body)
{
    try {
        return WithOutputWritten(name, body());
    } catch (NotComputableError const& error) {
        return Report(name, error.what(), notComputable);
    } catch (std::exception const& error) {
        return Report(name, error.what(), badInput);
    } catch (VexorSingular const&) {
        return Report(name, "a small matrix is singular", notComputable);
    } catch (VexorDimensionMismatch const&) {
        return Report(name, "operands differ in size", notComputable);
    } catch (VexorAllocationFailed const&) {
        return Report(name, "not enough memory", notComputable);
    } catch (VexorComputationFailed const&) {
        return Report(name, "the solver failed: the problem has no unique solution", notComputable);
    } catch (VexorNullVector const&) {
        return Report(name, "a direction was wanted of a vector of no length", notComputable);
    }
}

} // namespace examples
