# The component vexor::arrays: functions over arrays of the library's classes, in a separate shared library.

file(GLOB_RECURSE VEXOR_ARRAYS_SOURCES CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/vexor/arrays/*.cpp")
file(GLOB_RECURSE VEXOR_ARRAYS_HEADERS CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/vexor/arrays/*.h")
list(FILTER VEXOR_ARRAYS_HEADERS EXCLUDE REGEX "/private/")

add_library(vexor_arrays SHARED ${VEXOR_ARRAYS_SOURCES})
add_library(vexor::arrays ALIAS vexor_arrays)

target_sources(vexor_arrays PUBLIC FILE_SET headers TYPE HEADERS
    BASE_DIRS "${CMAKE_CURRENT_SOURCE_DIR}"
    FILES ${VEXOR_ARRAYS_HEADERS})
target_link_libraries(vexor_arrays PUBLIC vexor)
target_compile_definitions(vexor_arrays PRIVATE VEXOR_BUILDING_ARRAYS)
set_target_properties(vexor_arrays PROPERTIES
    EXPORT_NAME arrays
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
vexor_exact_floating_point(vexor_arrays)
vexor_warnings(vexor_arrays)
vexor_harden(vexor_arrays)
vexor_export_own_symbols_only(vexor_arrays)
# The loops call no function of the C library, but Debian's checks require that it is linked.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(vexor_arrays PRIVATE "LINKER:--push-state,--no-as-needed,-lc,--pop-state")
endif()
