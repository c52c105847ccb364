# Compiles one client that must be refused. First it proves that the client compiles without its offence,
# then that it does not with it, and that the compiler says why in the words that the file expects.
#
# The client's file carries its expectations in comments:
#   // g++: REGULAR EXPRESSION        the error that g++ must give; without this line g++ is not asked
#   // clang++: REGULAR EXPRESSION    the error that clang++ must give; likewise
#   // flags: FLAGS                   for both compilations
#   // offending flags: FLAGS         for the second one, which also defines OFFENCE
#
# Usage: cmake -DCOMPILER=... -DCOMPILER_ID=... [-DFLAGS=...] -DSOURCE=... -DINCLUDE=... -P MustNotCompile.cmake

function(directive name out)
    file(STRINGS "${SOURCE}" lines REGEX "^// ${name}: ")
    list(LENGTH lines count)
    if(count GREATER 0)
        list(GET lines 0 line)
        string(REGEX REPLACE "^// ${name}: " "" line "${line}")
    endif()
    set(${out} "${line}" PARENT_SCOPE)
endfunction()

if(COMPILER_ID STREQUAL "GNU")
    directive("g\\+\\+" expected)
else()
    directive("clang\\+\\+" expected)
endif()
if(NOT expected)
    message(STATUS "skipped: this compiler is not asked")
    return()
endif()
directive("flags" flags)
directive("offending flags" offendingFlags)
separate_arguments(FLAGS)
separate_arguments(flags)
separate_arguments(offendingFlags)

set(ENV{LC_ALL} C)
set(compile "${COMPILER}" -std=c++17 -fsyntax-only -fdiagnostics-color=never "-I${INCLUDE}" ${FLAGS} ${flags})

execute_process(COMMAND ${compile} "${SOURCE}" RESULT_VARIABLE status ERROR_VARIABLE errors)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "Without its offence the client must compile:\n${errors}")
endif()

execute_process(COMMAND ${compile} ${offendingFlags} -DOFFENCE "${SOURCE}"
    RESULT_VARIABLE status ERROR_VARIABLE errors)
if(status EQUAL 0)
    message(FATAL_ERROR "The client compiles, and must not")
endif()
if(NOT errors MATCHES "${expected}")
    message(FATAL_ERROR "The client is refused, but not with an error that matches\n  ${expected}\nbut with\n${errors}")
endif()
string(REGEX MATCH "[^\n]*error:[^\n]*" firstError "${errors}")
message(STATUS "refused: ${firstError}")
