# Builds one consumer project against an installed copy of the library and runs it.
# Usage: cmake -DNAME=... -DPROJECT=... -DBUILD=... -DPREFIX=... -DSOURCE=... -DGENERATOR=... [-DOPTIONS=a;b]
#              [-DARGUMENTS=...] [-DHASH_FILE=...] [-DGDB=...] [-DCHECKED=ON]
#              [-DTOOLCHAIN=... -DEMULATOR=a;b]
#              -P Consume.cmake
# With HASH_FILE the printed hash must be the one in that file, which the first to come writes.
# With GDB that debugger stops in the program, and must show the library's objects as documented without
# being told more than to trust what lies under the prefix.
# With CHECKED a second program, which reads beyond a vector's end, must stop and name the place.
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
    set(consumers "${SOURCE}/tests/consumers")
    # Without both, results depend on the processor, or clients are slow.
    file(STRINGS "${pc}" cflags REGEX "^Cflags:.* -ffp-contract=off -DVEXOR_FP_CONTRACT_OFF")
    if(NOT cflags)
        message(FATAL_ERROR "${NAME}: vexor.pc does not hand out -ffp-contract=off with its confirmation")
    endif()
    # pkg-config puts a backslash before a space in a path; the shell must read its answer as it reads a command.
    function(compile program)
        list(JOIN ARGN "' '" sources)
        list(JOIN OPTIONS " " flags)
        run("g++ with pkg-config" sh -c
            "export PKG_CONFIG_PATH='${pc_dir}' && eval \"'${COMPILER}' -std=c++17 -O2 ${flags} $(pkg-config --cflags vexor) '${sources}' -o '${BUILD}/${program}' $(pkg-config --libs vexor) -Wl,-rpath,$(pkg-config --variable=libdir vexor)\"")
    endfunction()
    compile(consumer "${consumers}/client/main.cpp" "${consumers}/client/Client.cpp")
    if(CHECKED)
        compile(mistake "${consumers}/checked/Mistake.cpp")
    endif()
else()
    if(TOOLCHAIN)
        # The toolchain looks for packages under its own root alone; programs find DLLs beside them.
        list(APPEND OPTIONS "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}" "-Dvexor_DIR=${PREFIX}/lib/cmake/vexor"
            "-DCMAKE_RUNTIME_OUTPUT_DIRECTORY=${BUILD}")
        file(GLOB dlls "${PREFIX}/bin/*.dll")
        file(COPY ${dlls} DESTINATION "${BUILD}")
    endif()
    run("configuring" "${CMAKE_COMMAND}" -S "${SOURCE}/tests/consumers/${PROJECT}" -B "${BUILD}" -G "${GENERATOR}"
        -DCMAKE_BUILD_TYPE=Release "-DCMAKE_PREFIX_PATH=${PREFIX}" "-DVEXOR_SOURCE=${SOURCE}" ${OPTIONS})
    run("building" "${CMAKE_COMMAND}" --build "${BUILD}")
endif()

if(GDB)
    run("gdb" python3 "${SOURCE}/tests/debugger/views.py" gdb "${GDB}" "${BUILD}/consumer" --installed "${PREFIX}")
    message(STATUS "${NAME}: ${output}")
    return()
endif()

run("running" ${EMULATOR} "${BUILD}/consumer" ${ARGUMENTS})
if(NOT output MATCHES "^0 wrong[,\r\n]")
    message(FATAL_ERROR "${NAME}: printed '${output}'")
endif()
message(STATUS "${NAME}: ${output}")

if(HASH_FILE)
    string(REGEX MATCH "hash [0-9a-f]+" hash "${output}")
    if(NOT hash)
        message(FATAL_ERROR "${NAME}: printed no hash: '${output}'")
    endif()
    if(EXISTS "${HASH_FILE}")
        file(READ "${HASH_FILE}" expected)
        if(NOT hash STREQUAL expected)
            message(FATAL_ERROR "${NAME}: other bits than the first consumer's (${expected}): ${hash}")
        endif()
    else()
        file(WRITE "${HASH_FILE}" "${hash}")
    endif()
endif()

if(CHECKED)
    execute_process(COMMAND "${BUILD}/mistake" RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
    if(NOT status MATCHES "abort|ABRT" OR NOT errors MATCHES "^([^\n]*/Vec3Dbl\\.h):([0-9]+): vexor: index out of range\n$")
        message(FATAL_ERROR "${NAME}: the mistake ended with '${status}' and printed '${output}${errors}'")
    endif()
    # The place is that of the access in the installed header.
    execute_process(COMMAND sed -n "${CMAKE_MATCH_2}p" "${CMAKE_MATCH_1}" OUTPUT_VARIABLE line)
    if(NOT line MATCHES "ElementOf<double const, 3>\\(\\*this, index\\)")
        message(FATAL_ERROR "${NAME}: stopped at '${line}'")
    endif()
    message(STATUS "${NAME}: ${errors}")
endif()
