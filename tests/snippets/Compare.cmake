# Usage: cmake -DPROGRAM=... [-DEMULATOR=a;b] -DEXPECTED=... -P Compare.cmake
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" RESULT_VARIABLE status OUTPUT_VARIABLE output)
string(REPLACE "\r\n" "\n" output "${output}")
file(READ "${EXPECTED}" expected)
if(NOT status STREQUAL "0" OR NOT output STREQUAL expected)
    message(FATAL_ERROR "status ${status}, printed\n${output}\nand not\n${expected}")
endif()
