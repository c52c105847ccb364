# Configures the library as its users do, by itself and as a subproject, and compares what each build contains.
# Usage: cmake -DSOURCE=... -DBUILD=... -DGENERATOR=... -DCOMPILER=... -P Configurations.cmake
set(unoptimised "vexor is being built without optimisation")
set(shared_only "vexor is a shared library only")

# configure(NAME SOURCE OPTIONS...): leaves all it printed in `output`, and in `files` what the generator wrote.
function(configure name source)
    set(build "${BUILD}/${name}")
    file(REMOVE_RECURSE "${build}")
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G "${GENERATOR}" "-DCMAKE_CXX_COMPILER=${COMPILER}"
            "-DVEXOR_SOURCE=${SOURCE}" ${ARGN}
        RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status STREQUAL "0")
        message(FATAL_ERROR "${name}: configuring ended with ${status}\n${output}")
    endif()
    file(GLOB_RECURSE generated "${build}/build.ninja" "${build}/flags.make" "${build}/cmake_install.cmake"
        "${build}/CTestTestfile.cmake" "${build}/CMakeCache.txt")
    set(files "")
    foreach(file ${generated})
        file(READ "${file}" text)
        string(APPEND files "${text}")
    endforeach()
    set(name "${name}" PARENT_SCOPE)
    set(output "${output}" PARENT_SCOPE)
    set(files "${files}" PARENT_SCOPE)
endfunction()

# has(VARIABLE TEXT) and lacks(VARIABLE TEXT)
function(has variable text)
    string(FIND "${${variable}}" "${text}" place)
    if(place EQUAL -1)
        message(SEND_ERROR "${name}: '${text}' is missing in the ${variable}")
    endif()
endfunction()
function(lacks variable text)
    string(FIND "${${variable}}" "${text}" place)
    if(NOT place EQUAL -1)
        message(SEND_ERROR "${name}: '${text}' is in the ${variable}")
    endif()
endfunction()

configure(plain "${SOURCE}")
has(files "CMAKE_BUILD_TYPE:STRING=Release")
has(files "libvexor.so.1")
has(files "include/vexor") # an install rule
has(files "add_test(")
lacks(files "-Wshadow -Werror")
lacks(output "${unoptimised}")
lacks(output "${shared_only}")

configure(without_tests "${SOURCE}" -DBUILD_TESTING=OFF -DBUILD_SHARED_LIBS=OFF)
lacks(files "add_test(")
has(output "${shared_only}")

configure(without_install "${SOURCE}" -DBUILD_TESTING=OFF -DVEXOR_INSTALL=OFF -DVEXOR_WERROR=ON)
has(files "-Wshadow -Werror")
lacks(files "include/vexor")

set(subproject "${SOURCE}/tests/consumers/add_subdirectory")
configure(subproject "${subproject}")
has(output "${unoptimised}: CMAKE_BUILD_TYPE is ''")
lacks(output "${shared_only}")
lacks(files "add_test(")
lacks(files "include/vexor")
lacks(files "-Wshadow -Werror")

configure(installing_subproject "${subproject}" -DCMAKE_BUILD_TYPE=Release -DVEXOR_INSTALL=ON
    -DBUILD_SHARED_LIBS=OFF)
lacks(output "${unoptimised}")
has(output "${shared_only}")
has(files "include/vexor")
