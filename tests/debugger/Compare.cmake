# Usage: cmake -DGDB=... -DPROGRAM=... -DVIEWS=... -DEXPECTED=... -P Compare.cmake
set(names vec3Dbl vec3Flt vec2Dbl vec2Flt vec2Int pnt3Dbl pnt3Flt pnt2Dbl pnt2Flt mat3Dbl mat2Dbl
    affMat2Dbl quaternion counter view vecDbl vecFlt longVector matrixView matrix tolerance)
set(prints)
foreach(name ${names})
    list(APPEND prints -ex "print ${name}")
endforeach()
execute_process(
    COMMAND "${GDB}" -nx -batch -ex "source ${VIEWS}" -ex "set debuginfod enabled off"
        -ex "break Here" -ex run -ex up ${prints} "${PROGRAM}"
    OUTPUT_VARIABLE output ERROR_VARIABLE errors)
string(REGEX MATCHALL "\\$[0-9]+ = [^\n]*\n" shown "${output}")
string(REPLACE ";" "" joined "${shown}")
file(READ "${EXPECTED}" expected)
string(REPLACE ";" "" expected "${expected}")
if(NOT joined STREQUAL expected)
    message(FATAL_ERROR "gdb shows\n${joined}\nand not\n${expected}\n${output}\n${errors}")
endif()
message(STATUS "gdb shows every class as expected")
