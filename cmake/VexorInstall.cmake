# Installs the library, its package files for CMake and pkg-config, and the views for debuggers.

include(CMakePackageConfigHelpers)

# The components that together are an installation.
set(VEXOR_INSTALL_COMPONENTS runtime dev)
if(VEXOR_BUILD_ARRAYS)
    list(APPEND VEXOR_INSTALL_COMPONENTS arrays arrays_dev)
endif()

install(TARGETS vexor
    EXPORT vexorTargets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT runtime
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT dev
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT dev
    FILE_SET headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT dev)

set(VEXOR_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/vexor")
install(EXPORT vexorTargets NAMESPACE vexor:: DESTINATION "${VEXOR_PACKAGE_DIR}" COMPONENT dev)
configure_package_config_file(cmake/vexorConfig.cmake.in vexorConfig.cmake
    INSTALL_DESTINATION "${VEXOR_PACKAGE_DIR}")
write_basic_package_version_file(vexorConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/vexorConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/vexorConfigVersion.cmake"
    DESTINATION "${VEXOR_PACKAGE_DIR}"
    COMPONENT dev)

# Relative to the file's own folder, so that an installed tree can be moved.
file(RELATIVE_PATH VEXOR_PC_TO_PREFIX
    "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
set(VEXOR_PC_CHECKED "")
if(VEXOR_CHECKED)
    set(VEXOR_PC_CHECKED " -DVEXOR_CHECKED")
endif()
configure_file(cmake/vexor.pc.in vexor.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vexor.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT dev)

# The component: a separate package, whose targets `find_package(vexor COMPONENTS arrays)` adds.
if(VEXOR_BUILD_ARRAYS)
    # Finds vexor in its own folder; not needed in the system's own folders.
    if(UNIX AND NOT APPLE AND NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set_target_properties(vexor_arrays PROPERTIES INSTALL_RPATH "$ORIGIN")
    endif()
    install(TARGETS vexor_arrays
        EXPORT vexorArraysTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT arrays
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT arrays NAMELINK_COMPONENT arrays_dev
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT arrays_dev
        FILE_SET headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT arrays_dev)
    install(EXPORT vexorArraysTargets NAMESPACE vexor:: DESTINATION "${VEXOR_PACKAGE_DIR}" COMPONENT arrays_dev)
    configure_file(cmake/vexor-arrays.pc.in vexor-arrays.pc @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vexor-arrays.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT arrays_dev)
endif()

# Views for debuggers. gdb finds its views by the library's name: beside the library in any folder, and
# for a library of the system in a folder that gdb trusts by default. The prefix is known only at installation.
install(CODE "
    set(folder \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}\")
    if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
        set(folder \"/usr/${CMAKE_INSTALL_DATADIR}/gdb/auto-load/usr/${CMAKE_INSTALL_LIBDIR}\")
    endif()
    file(INSTALL DESTINATION \"\${folder}\" TYPE FILE
        RENAME \"libvexor.so.${PROJECT_VERSION}-gdb.py\"
        FILES \"${CMAKE_CURRENT_SOURCE_DIR}/debugger/vexor-gdb.py\")"
    COMPONENT dev)
install(FILES debugger/vexor_lldb.py debugger/vexor.natvis
    DESTINATION "${CMAKE_INSTALL_DATADIR}/vexor"
    COMPONENT dev)

if(PROJECT_IS_TOP_LEVEL)
    add_custom_target(uninstall
        COMMAND "${CMAKE_COMMAND}" "-DMANIFEST=${CMAKE_BINARY_DIR}/install_manifest.txt"
            -P "${CMAKE_CURRENT_SOURCE_DIR}/cmake/Uninstall.cmake"
        COMMENT "Removing what the last installation of this build wrote"
        VERBATIM)
endif()
