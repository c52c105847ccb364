# Declares targets that compile the library's sources: the shared library, and the tests' own builds of the same
# sources. All have the same flags, which only VexorCompiler.cmake names.

get_filename_component(VEXOR_ROOT "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
include("${CMAKE_CURRENT_LIST_DIR}/VexorCompiler.cmake")

file(GLOB_RECURSE VEXOR_SOURCES CONFIGURE_DEPENDS "${VEXOR_ROOT}/vexor/*.cpp")
file(GLOB_RECURSE VEXOR_HEADERS CONFIGURE_DEPENDS "${VEXOR_ROOT}/vexor/*.h")
# Only the library's sources include the headers in `private/`, which are not installed.
list(FILTER VEXOR_HEADERS EXCLUDE REGEX "/private/")
# The component vexor::arrays is a separate library.
foreach(files SOURCES HEADERS)
    set(VEXOR_ARRAYS_${files} ${VEXOR_${files}})
    list(FILTER VEXOR_ARRAYS_${files} INCLUDE REGEX "/vexor/arrays/")
    list(FILTER VEXOR_${files} EXCLUDE REGEX "/vexor/arrays/")
endforeach()
# The library does not export the tables of its elementary functions.
list(APPEND VEXOR_ARRAYS_SOURCES "${VEXOR_ROOT}/vexor/elementary/private/Tables.cpp")

# What the targets of the library and of its component have in common.
function(vexor_library_properties target headers)
    target_sources(${target} PUBLIC FILE_SET headers TYPE HEADERS BASE_DIRS "${VEXOR_ROOT}" FILES ${headers})
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden)
    vexor_exact_floating_point(${target})
    vexor_source_encoding(${target})
    vexor_warnings(${target})
    vexor_harden(${target})
    vexor_export_own_symbols_only(${target})
endfunction()

# vexor_library(TARGET SHARED|STATIC|OBJECT): the library.
function(vexor_library target kind)
    add_library(${target} ${kind} ${VEXOR_SOURCES})
    vexor_library_properties(${target} "${VEXOR_HEADERS}")
    # On Windows, without this macro the headers import every member from a DLL.
    if(kind STREQUAL "SHARED")
        target_compile_definitions(${target} PRIVATE VEXOR_BUILDING_LIBRARY)
    else()
        target_compile_definitions(${target} PUBLIC VEXOR_BUILDING_LIBRARY)
    endif()
    if(VEXOR_CHECKED)
        target_compile_definitions(${target} PUBLIC VEXOR_CHECKED)
    endif()
    vexor_link_lapack(${target})
endfunction()

# vexor_arrays_library(TARGET SHARED|STATIC): the component. A static one lets its user choose the instruction set.
function(vexor_arrays_library target kind)
    add_library(${target} ${kind} ${VEXOR_ARRAYS_SOURCES})
    vexor_library_properties(${target} "${VEXOR_ARRAYS_HEADERS}")
    set_target_properties(${target} PROPERTIES VISIBILITY_INLINES_HIDDEN ON)
    target_link_libraries(${target} PUBLIC vexor)
    if(kind STREQUAL "SHARED")
        target_compile_definitions(${target} PRIVATE VEXOR_BUILDING_ARRAYS)
    else()
        target_compile_definitions(${target} PUBLIC VEXOR_ARRAYS_STATIC)
    endif()
endfunction()
