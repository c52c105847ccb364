# Runs a test program, which passes only if it exits with 0 and its last line is the closing line
# that the tests' main prints: a library that ends the process with status 0 must not count as passed.
# Usage: cmake -DPROGRAM=... [-DARGUMENTS=a;b] [-DEMULATOR=a;b] -P RunTest.cmake
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" ${ARGUMENTS}
    RESULT_VARIABLE status
    OUTPUT_VARIABLE output
    ECHO_OUTPUT_VARIABLE)
if(NOT status STREQUAL "0")
    message(FATAL_ERROR "${PROGRAM} ended with ${status}")
endif()
if(NOT output MATCHES "(^|\n)vexor tests completed\r?\n$")
    message(FATAL_ERROR "${PROGRAM} ended before its closing line")
endif()
