# Usage: cmake -DPROGRAM=... [-DEMULATOR=a;b] -DEXPECTED=... -P Compare.cmake
# EXPECTED is a file with the output, or a folder with one NAME.out for each NAME.cpp: the program then prints
# "[NAME]" and the output of each, in the order of the names.
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" RESULT_VARIABLE status OUTPUT_VARIABLE output)
string(REPLACE "\r\n" "\n" output "${output}")
if(IS_DIRECTORY "${EXPECTED}")
    file(GLOB programs "${EXPECTED}/*.cpp")
    foreach(program ${programs})
        get_filename_component(name "${program}" NAME_WE)
        file(READ "${EXPECTED}/${name}.out" part)
        string(APPEND expected "[${name}]\n${part}")
    endforeach()
else()
    file(READ "${EXPECTED}" expected)
endif()
if(NOT status STREQUAL "0" OR NOT output STREQUAL expected)
    message(FATAL_ERROR "status ${status}, printed\n${output}\nand not\n${expected}")
endif()
