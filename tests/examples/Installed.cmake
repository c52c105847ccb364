# Installs a build of the library, then configures, builds and tests the examples against it.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status STREQUAL "0")
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${output}\n${command}\nended with ${status}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

set(prefix "${SCRATCH}/prefix")
set(build "${SCRATCH}/build")
file(REMOVE_RECURSE "${prefix}" "${build}")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${prefix}" --config "${CONFIG}")
run("${CMAKE_COMMAND}" -S "${EXAMPLES}" -B "${build}" -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${prefix}"
    "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}"
    "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}")
run("${CMAKE_COMMAND}" --build "${build}" --config "${CONFIG}")
run("${CMAKE_CTEST_COMMAND}" --test-dir "${build}" --output-on-failure --no-tests=error -C "${CONFIG}")
if(NOT output MATCHES "100% tests passed")
    message(FATAL_ERROR "${output}")
endif()
