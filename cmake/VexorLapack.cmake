# Finds LAPACK, checks that it reports a bad parameter instead of ending the process, and links it
# to the library.
#
# A driver with a bad parameter calls XERBLA and then returns a negative INFO, which
# the library turns into an exception. OpenBLAS's XERBLA prints and returns. The XERBLA of the reference LAPACK
# stops the program, with exit status 0. So the check below refuses it as a shared library. As an archive
# linked into the library, it works with the library's own hidden XERBLA.

option(VEXOR_LAPACK_STATIC
    "Link the reference LAPACK and BLAS archives into the library, with a parameter-error routine that returns"
    OFF)

option(VEXOR_LAPACK_REPRODUCIBLE
    "Link the archives of scripts/reproducible-lapack: the solvers give the same bits on every platform"
    OFF)
if(VEXOR_LAPACK_REPRODUCIBLE)
    set(folder "${PROJECT_SOURCE_DIR}/build/reproducible-lapack/native")
    if(NOT VEXOR_LAPACK_ARCHIVE AND NOT EXISTS "${folder}/liblapack.a")
        message(FATAL_ERROR "VEXOR_LAPACK_REPRODUCIBLE needs the archives that scripts/reproducible-lapack builds")
    endif()
    set(VEXOR_LAPACK_ARCHIVE "${folder}/liblapack.a" CACHE FILEPATH "Archive of the reference LAPACK")
    set(VEXOR_BLAS_ARCHIVE "${folder}/libblas.a" CACHE FILEPATH "Archive of the reference BLAS")
    set(VEXOR_LAPACK_STATIC ON)
endif()

if(VEXOR_LAPACK_STATIC)
    find_library(VEXOR_LAPACK_ARCHIVE NAMES liblapack.a lapack.lib PATH_SUFFIXES lapack
        DOC "Archive of the reference LAPACK")
    find_library(VEXOR_BLAS_ARCHIVE NAMES libblas.a blas.lib PATH_SUFFIXES blas
        DOC "Archive of the reference BLAS")
    if(NOT VEXOR_LAPACK_ARCHIVE OR NOT VEXOR_BLAS_ARCHIVE)
        message(FATAL_ERROR
            "VEXOR_LAPACK_STATIC needs the LAPACK and BLAS archives (on Debian: liblapack-dev and "
            "libblas-dev, and gfortran for its runtime library). Name them in VEXOR_LAPACK_ARCHIVE "
            "and VEXOR_BLAS_ARCHIVE if they are elsewhere.")
    endif()
    set(VEXOR_LAPACK_LIBRARIES "${VEXOR_LAPACK_ARCHIVE}" "${VEXOR_BLAS_ARCHIVE}" gfortran)
else()
    set(BLA_VENDOR "OpenBLAS" CACHE STRING "LAPACK and BLAS provider, as CMake's FindLAPACK names it")
    find_package(LAPACK REQUIRED)
    set(VEXOR_LAPACK_LIBRARIES LAPACK::LAPACK)
endif()

# Calls a driver with a parameter that it rejects. The program must get INFO = -10 and reach
# its last line; its exit status alone proves nothing.
function(vexor_require_returning_xerbla)
    set(subject "${VEXOR_LAPACK_LIBRARIES};${LAPACK_LIBRARIES}")
    if(VEXOR_LAPACK_VERIFIED STREQUAL subject)
        return()
    endif()
    if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
        message(WARNING "Cross-compiling: cannot verify that LAPACK's XERBLA returns to its caller")
        return()
    endif()

    set(sources "${PROJECT_SOURCE_DIR}/cmake/check_xerbla.cpp")
    if(VEXOR_LAPACK_STATIC)
        list(APPEND sources "${PROJECT_SOURCE_DIR}/vexor/dynamic/private/ParameterError.cpp")
        set(own_routine COMPILE_DEFINITIONS -DVEXOR_LAPACK_STATIC)
    endif()
    try_run(status compiled SOURCES ${sources}
        NO_CACHE
        CMAKE_FLAGS "-DINCLUDE_DIRECTORIES=${PROJECT_SOURCE_DIR}"
        ${own_routine}
        LINK_LIBRARIES ${VEXOR_LAPACK_LIBRARIES}
        CXX_STANDARD 17
        COMPILE_OUTPUT_VARIABLE build_output
        RUN_OUTPUT_VARIABLE run_output)
    if(NOT compiled)
        message(FATAL_ERROR "A program that calls LAPACK (${subject}) does not link:\n${build_output}")
    endif()
    if(NOT status STREQUAL "0" OR NOT run_output MATCHES "returned INFO -10, integers of 32 bits")
        message(FATAL_ERROR
            "This LAPACK cannot be used: ${subject}\n"
            "A driver called with a bad parameter must return to its caller with a negative INFO, and "
            "integers must have 32 bits. Here the program ended with status '${status}' and printed:\n"
            "${run_output}\n"
            "The XERBLA of the reference LAPACK ends the process. Choose OpenBLAS "
            "(-DBLA_VENDOR=OpenBLAS), or link the reference archives into the library "
            "(-DVEXOR_LAPACK_STATIC=ON), which then brings an XERBLA of its own.")
    endif()
    set(VEXOR_LAPACK_VERIFIED "${subject}" CACHE INTERNAL "LAPACK whose XERBLA was seen to return")
    message(STATUS "LAPACK returns from a bad parameter: yes")
endfunction()

vexor_require_returning_xerbla()

function(vexor_link_lapack target)
    target_link_libraries(${target} PRIVATE ${VEXOR_LAPACK_LIBRARIES})
    if(VEXOR_LAPACK_STATIC)
        target_compile_definitions(${target} PRIVATE VEXOR_LAPACK_STATIC)
        # Only the library uses the archives' routines; they are hidden from other users of LAPACK in the process.
        if(NOT APPLE AND NOT MSVC)
            target_link_options(${target} PRIVATE "LINKER:--exclude-libs,ALL")
        endif()
    endif()
endfunction()
