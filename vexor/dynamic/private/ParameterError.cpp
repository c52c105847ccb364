// LAPACK's parameter-error routine XERBLA, for builds that link LAPACK into the library statically. A driver
// calls it before it returns with a negative INFO. The one in the reference archive ends the process; this
// one replaces it and returns, and the library raises `VexorComputationFailed`. It is hidden, so other users
// of LAPACK in the process keep their own.
#if defined(VEXOR_LAPACK_STATIC)

#    include <cstddef>

extern "C"
#    if defined(__GNUC__) && !defined(_WIN32) // on Windows what is not exported is hidden
    __attribute__((visibility("hidden")))
#    endif
    void
    xerbla_(char const* /*routine*/, int const* /*parameter*/, std::size_t /*routineLength*/)
{}

#endif
