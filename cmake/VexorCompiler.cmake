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
