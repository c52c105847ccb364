# Compiler flags on which the library's exact results depend.

# Results must not depend on flags: no multiplication is fused with an addition, nothing is reordered. In
# the library this holds for any CMAKE_CXX_FLAGS. Clients get -ffp-contract=off, with the macro that confirms it
# to the headers, which then need no slower options on their inline functions.
function(vexor_exact_floating_point target)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        # These come first: in clang -fno-fast-math also changes the contraction mode.
        target_compile_options(${target} PRIVATE
            -fno-fast-math -fno-unsafe-math-optimizations -fno-associative-math -fno-reciprocal-math
            -fno-finite-math-only -fsigned-zeros)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${target} PRIVATE -fno-single-precision-constant)
            if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86|x86)$")
                target_compile_options(${target} PRIVATE -mieee-fp)
            endif()
        endif()
        target_compile_options(${target} PUBLIC "$<$<COMPILE_LANGUAGE:CXX>:-ffp-contract=off>")
        if(NOT WIN32)
            # In a link command these flags have one effect: they add a start-up routine that flushes denormal
            # numbers to zero in the whole process.
            target_link_options(${target} PUBLIC -fno-fast-math -fno-unsafe-math-optimizations)
        endif()
    endif()
    target_compile_definitions(${target} PUBLIC VEXOR_FP_CONTRACT_OFF)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -fno-math-errno)
        if(NOT WIN32)
            target_compile_options(${target} PRIVATE -fno-semantic-interposition)
        endif()
    endif()
endfunction()

# Comments in the headers contain characters beyond ASCII. Without this option Microsoft's compiler reads a source in
# the machine's code page; in some code pages such a comment then extends over the next line.
function(vexor_source_encoding target)
    target_compile_options(${target} PUBLIC "$<$<CXX_COMPILER_ID:MSVC>:/utf-8>")
endfunction()

function(vexor_warnings target)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
        if(VEXOR_WERROR)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    elseif(MSVC)
        target_compile_options(${target} PRIVATE /W4)
    endif()
endfunction()

# Keeps the standard library's code that a compiler emits out of the export table.
function(vexor_export_own_symbols_only target)
    if(UNIX AND NOT APPLE)
        set(map "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/${target}.map")
        if(NOT EXISTS "${map}")
            set(map "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vexor.map")
        endif()
        target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
    endif()
endfunction()

# The flags of Debian's packages (hardening=+all), and the processor's protection of jumps. They apply to optimised
# builds only, since _FORTIFY_SOURCE needs optimisation; the sanitizers' builds have no build type.
option(VEXOR_HARDENING "Harden optimised builds: stack protector, _FORTIFY_SOURCE, protected jumps, read-only tables" ON)
function(vexor_harden target)
    if(NOT VEXOR_HARDENING OR NOT CMAKE_SYSTEM_NAME STREQUAL "Linux" OR NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        return()
    endif()
    set(flags -fstack-protector-strong -Wformat -Werror=format-security -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
        list(APPEND flags -fcf-protection)
    endif()
    set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
    target_compile_options(${target} PRIVATE "$<${optimised}:${flags}>")
    target_link_options(${target} PRIVATE "$<${optimised}:LINKER:-z,relro;LINKER:-z,now>")
    # The stack protector costs the solvers and spectra of fixed size 2 to 5 %. Their arrays have constant bounds.
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "/vexor/(vectors|points|matrices|rotations)/")
    set_property(SOURCE ${sources} APPEND PROPERTY COMPILE_OPTIONS "$<${optimised}:-fno-stack-protector>")
endfunction()
