// The parameter-error routine of a test program that links LAPACK's archives itself. The one in the reference
// archive ends the process with exit status 0. This one prints its caller and returns, like the library's
// own.
#include <cstddef>
#include <cstdio>

extern "C" void xerbla_(char const* routine, int const* parameter, std::size_t routineLength)
{
    std::printf("XERBLA: parameter %d of %.*s\n", *parameter, static_cast<int>(routineLength), routine);
}
