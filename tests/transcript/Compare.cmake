# Usage: cmake -DPROGRAM=... [-DEMULATOR=a;b] -DEXPECTED=... -P Compare.cmake
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" RESULT_VARIABLE status OUTPUT_VARIABLE output)
string(REPLACE "\r\n" "\n" output "${output}")
file(READ "${EXPECTED}" expected)
if(NOT status STREQUAL "0" OR NOT output STREQUAL expected)
    message(FATAL_ERROR "other bits than expected (status ${status})\n${output}\nexpected:\n${expected}")
endif()
message(STATUS "the transcript's hashes are the expected ones")
