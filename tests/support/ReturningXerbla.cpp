// The parameter-error routine of a test program that links LAPACK's archives by itself. The one in the reference
// archive ends the process with exit status 0. This one says who called it and returns, as the library's own does.
#include <cstddef>
#include <cstdio>

extern "C" void xerbla_(char const* routine, int const* parameter, std::size_t routineLength)
{
    std::printf("XERBLA: parameter %d of %.*s\n", *parameter, static_cast<int>(routineLength), routine);
}
