# Runs a program that must stop with the given text on its error output.
# Usage: cmake -DPROGRAM=... [-DEMULATOR=a;b] -DTEXT=... -P Stops.cmake
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(status STREQUAL "0" OR NOT errors MATCHES "${TEXT}")
    message(FATAL_ERROR "status ${status}, printed\n${output}\nand the errors\n${errors}")
endif()
