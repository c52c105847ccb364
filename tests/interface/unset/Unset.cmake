# Builds and runs Unset.cpp with one compiler under each of the usual levels of optimisation, as a client
# does that writes its command line by hand.
# Usage: cmake -DCOMPILER=... -DSOURCE=... -DINCLUDE=... -DFOLDER=... [-DEMULATOR=a;b] -P Unset.cmake
file(MAKE_DIRECTORY "${FOLDER}")
foreach(flags IN ITEMS -O0 -O1 -O2 -O3 -Os "-O2 -flto")
    separate_arguments(arguments UNIX_COMMAND "${flags}")
    execute_process(
        COMMAND "${COMPILER}" -std=c++17 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror ${arguments}
            "-I${INCLUDE}" "${SOURCE}" -o "${FOLDER}/unset"
        RESULT_VARIABLE status ERROR_VARIABLE errors)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${flags}: the client does not compile\n${errors}")
    endif()
    execute_process(COMMAND ${EMULATOR} "${FOLDER}/unset" RESULT_VARIABLE status OUTPUT_VARIABLE output)
    if(NOT status EQUAL 0 OR NOT output MATCHES "every element as the memory held it")
        message(SEND_ERROR "${flags}: a default constructor changed what the memory held\n${output}")
    endif()
endforeach()
