# Usage: cmake -DOBJDUMP=... -DFILES=a;b -P NoFusedMultiplyAdd.cmake
if(NOT FILES)
    message(FATAL_ERROR "no file to read")
endif()
foreach(file ${FILES})
    # Only the names of the functions and a few instructions: CMake takes long over the whole code.
    execute_process(COMMAND "${OBJDUMP}" -d -C --no-show-raw-insn "${file}"
        COMMAND grep -E ">:$|mulsd|fn?m(add|sub)"
        RESULT_VARIABLE status OUTPUT_VARIABLE code)
    if(NOT status STREQUAL "0" OR NOT code MATCHES "mulsd")
        message(FATAL_ERROR "${file}: cannot be disassembled")
    endif()
    # Where a result is the nearest double, by any path, such instructions may compute it: in a path of the elementary
    # functions; in the arrays' kernels of normalising, of angles and of eigenvalues.
    foreach(function "vexor::detail::elementary::fused::" "[^\n]*(::Normalize<[23]>|GetAngleWithRule|::EigenSymOf<)")
        string(REGEX REPLACE "\n[0-9a-f]+ <${function}[^\n]*(\n +[^\n]+)*" "" code "${code}")
    endforeach()
    string(REGEX MATCHALL "[^\n]*v?fn?m(add|sub)[^\n]*" fused "${code}")
    if(fused)
        message(FATAL_ERROR "${file}: fused multiply-adds:\n${fused}")
    endif()
    message(STATUS "${file}: no fused multiply-add")
endforeach()
