# Finds LAPACK and links it to the library.

set(BLA_VENDOR "OpenBLAS" CACHE STRING "LAPACK and BLAS provider, as CMake's FindLAPACK names it")
find_package(LAPACK REQUIRED)

function(vexor_link_lapack target)
    target_link_libraries(${target} PRIVATE LAPACK::LAPACK)
endfunction()
