# Runs a program and compares its exit status and what it printed, on both streams, with what is expected.
# Usage: cmake -DPROGRAM=... -DARGUMENTS=a;b -DSTATUS=0 -DPATTERNS=p;q [-DOUTPUT=file] -P RunProgram.cmake
# OUTPUT takes the program's standard output instead.
if(OUTPUT)
    set(output_to OUTPUT_FILE "${OUTPUT}")
else()
    set(output_to OUTPUT_VARIABLE output)
endif()
execute_process(COMMAND "${PROGRAM}" ${ARGUMENTS} RESULT_VARIABLE status ${output_to} ERROR_VARIABLE errors)
message("${output}${errors}")
if(NOT status STREQUAL "${STATUS}")
    message(FATAL_ERROR "the exit status is ${status}, not ${STATUS}")
endif()
foreach(pattern IN LISTS PATTERNS)
    if(NOT "${output}${errors}" MATCHES "${pattern}")
        message(FATAL_ERROR "nothing printed matches: ${pattern}")
    endif()
endforeach()
