# Builds one consumer project against an installed copy of the library and runs it.
# Usage: cmake -DNAME=... -DPROJECT=... -DBUILD=... -DPREFIX=... -DSOURCE=... [-DOPTIONS=a;b]
#              [-DARGUMENTS=...] [-DHASH_FILE=...] [-DGDB=...] -P Consume.cmake
# With HASH_FILE the printed hash must be the one in that file, which the first to come writes.
# With GDB that debugger stops in the program, and must show the library's objects as documented without
# being told more than to trust what lies under the prefix.
function(run what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT status STREQUAL "0")
        message(FATAL_ERROR "${NAME}: ${what} ended with ${status}\n${output}\n${errors}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${BUILD}")
if(PROJECT STREQUAL "pkg_config")
    file(MAKE_DIRECTORY "${BUILD}")
    file(GLOB_RECURSE pc "${PREFIX}/vexor.pc")
    get_filename_component(pc_dir "${pc}" DIRECTORY)
    set(client "${SOURCE}/tests/consumers/client")
    run("g++ with pkg-config" sh -c
        "export PKG_CONFIG_PATH='${pc_dir}' && lib=$(pkg-config --variable=libdir vexor) && ${COMPILER} -std=c++17 -O2 $(pkg-config --cflags vexor) '${client}/main.cpp' '${client}/Client.cpp' -o '${BUILD}/consumer' $(pkg-config --libs vexor) -Wl,-rpath,$lib")
else()
    run("configuring" "${CMAKE_COMMAND}" -S "${SOURCE}/tests/consumers/${PROJECT}" -B "${BUILD}" -G Ninja
        -DCMAKE_BUILD_TYPE=Release "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DVEXOR_SOURCE=${SOURCE}" ${OPTIONS})
    run("building" "${CMAKE_COMMAND}" --build "${BUILD}")
endif()

if(GDB)
    run("gdb" python3 "${SOURCE}/tests/debugger/views.py" gdb "${GDB}" "${BUILD}/consumer" --installed "${PREFIX}")
    message(STATUS "${NAME}: ${output}")
    return()
endif()

run("running" "${BUILD}/consumer" ${ARGUMENTS})
if(NOT output MATCHES "^0 wrong")
    message(FATAL_ERROR "${NAME}: printed '${output}'")
endif()
message(STATUS "${NAME}: ${output}")

if(HASH_FILE)
    string(REGEX MATCH "hash [0-9a-f]+" hash "${output}")
    if(EXISTS "${HASH_FILE}")
        file(READ "${HASH_FILE}" expected)
        if(NOT hash STREQUAL expected)
            message(FATAL_ERROR "${NAME}: other bits than the first consumer's (${expected}): ${hash}")
        endif()
    else()
        file(WRITE "${HASH_FILE}" "${hash}")
    endif()
endif()
