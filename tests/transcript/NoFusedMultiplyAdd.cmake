# Usage: cmake -DOBJDUMP=... -DFILES=a;b -P NoFusedMultiplyAdd.cmake
if(NOT FILES)
    message(FATAL_ERROR "no file to read")
endif()
foreach(file ${FILES})
    execute_process(COMMAND "${OBJDUMP}" -d -C --no-show-raw-insn "${file}"
        RESULT_VARIABLE status OUTPUT_VARIABLE code)
    if(NOT status STREQUAL "0" OR NOT code MATCHES "mulsd")
        message(FATAL_ERROR "${file}: cannot be disassembled")
    endif()
    # The elementary functions have such a path on purpose: each result is the nearest double, by any path.
    string(REGEX REPLACE "\n[0-9a-f]+ <vexor::detail::elementary::fused::[^\n]*\n([^\n]+\n)*" "\n" code "${code}")
    string(REGEX MATCHALL "[^\n]*v?fn?m(add|sub)[^\n]*" fused "${code}")
    if(fused)
        message(FATAL_ERROR "${file}: fused multiply-adds:\n${fused}")
    endif()
    message(STATUS "${file}: no fused multiply-add")
endforeach()
