# Configures, builds and tests the examples against an installed library.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status STREQUAL "0")
        list(JOIN ARGN " " command)
        message(FATAL_ERROR "${output}\n${command}\nended with ${status}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

set(build "${SCRATCH}/build")
file(REMOVE_RECURSE "${build}")
run("${CMAKE_COMMAND}" -S "${EXAMPLES}" -B "${build}" -G "${GENERATOR}" "-DCMAKE_PREFIX_PATH=${PREFIX}"
    "-DCMAKE_BUILD_TYPE=${CONFIG}" "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}"
    "-DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}")
run("${CMAKE_COMMAND}" --build "${build}" --config "${CONFIG}")
run("${CMAKE_CTEST_COMMAND}" --test-dir "${build}" --output-on-failure --no-tests=error -C "${CONFIG}")
if(NOT output MATCHES "100% tests passed")
    message(FATAL_ERROR "${output}")
endif()
