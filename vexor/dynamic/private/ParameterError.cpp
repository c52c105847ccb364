// Only where LAPACK is linked into the library statically: its parameter-error routine, which a driver
// calls before it returns with a negative INFO. The one in the reference archive ends the process; this
// one takes its place and returns, and the library raises `VexorComputationFailed`. It is hidden, so
// that no other user of LAPACK in the process meets it.
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
