# Builds and installs a checked library as docs/guides/checked-builds.md says.
# Usage: cmake -DSOURCE=... -DBUILD=... -DPREFIX=... -DCOMPILER=... -DGENERATOR=... -P InstallChecked.cmake
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status STREQUAL "0")
        message(FATAL_ERROR "${output}")
    endif()
endfunction()

run("${CMAKE_COMMAND}" -S "${SOURCE}" -B "${BUILD}" -G "${GENERATOR}" -DVEXOR_CHECKED=ON -DVEXOR_BUILD_TESTS=OFF
    -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_COMPILER=${COMPILER}")
run("${CMAKE_COMMAND}" --build "${BUILD}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}")
