# The names under which the shared library is installed, and the one that its clients ask for at run time.
# Usage: cmake -DFOLDER=<prefix>/lib -DOBJDUMP=... -P FileNames.cmake
# As long as the version is 1.0.0: the SONAME carries the major version alone.
function(expect what got wanted)
    if(NOT got STREQUAL wanted)
        message(SEND_ERROR "${what}: '${got}' and not '${wanted}'")
    endif()
endfunction()

file(GLOB found RELATIVE "${FOLDER}" "${FOLDER}/libvexor.so*")
list(FILTER found EXCLUDE REGEX "-gdb[.]py$")
expect("files" "${found}" "libvexor.so;libvexor.so.1;libvexor.so.1.0.0")
file(READ_SYMLINK "${FOLDER}/libvexor.so" target)
expect("libvexor.so" "${target}" "libvexor.so.1")
file(READ_SYMLINK "${FOLDER}/libvexor.so.1" target)
expect("libvexor.so.1" "${target}" "libvexor.so.1.0.0")

execute_process(COMMAND "${OBJDUMP}" -p "${FOLDER}/libvexor.so.1.0.0" OUTPUT_VARIABLE headers)
string(REGEX MATCH "SONAME +([^\n]*)" soname "${headers}")
expect("SONAME" "${CMAKE_MATCH_1}" "libvexor.so.1")
