# Compiler flags that carry the library's promises.

# Results must not depend on flags: no multiplication is fused with an addition, neither in the
# library nor in a client that inlines its members. GCC headers demand the confirming macro on
# targets that have a fused multiply-add.
function(vexor_exact_floating_point target)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PUBLIC "$<$<COMPILE_LANGUAGE:CXX>:-ffp-contract=off>")
    endif()
    target_compile_definitions(${target} PUBLIC VEXOR_FP_CONTRACT_OFF)
    if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
        target_compile_options(${target} PRIVATE -fno-math-errno)
        if(NOT WIN32)
            target_compile_options(${target} PRIVATE -fno-semantic-interposition)
        endif()
    endif()
endfunction()

# Comments in the headers hold letters beyond ASCII. Microsoft's compiler takes a source for one in the
# machine's code page, in some of which such a comment swallows the next line.
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

# Keeps what a compiler emits of the standard library out of the export table.
function(vexor_export_own_symbols_only target)
    if(UNIX AND NOT APPLE)
        set(map "${PROJECT_SOURCE_DIR}/cmake/${target}.map")
        if(NOT EXISTS "${map}")
            set(map "${PROJECT_SOURCE_DIR}/cmake/vexor.map")
        endif()
        target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${map}")
    endif()
endfunction()
