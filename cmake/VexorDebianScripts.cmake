# CPack runs this before it writes its packages. It removes the maintainer scripts that CPack adds for a library. They
# call ldconfig; Debian's policy is to do that by the package's trigger file.
foreach(package ${CPACK_PACKAGE_FILES})
    if(NOT package MATCHES "\\.deb$")
        continue()
    endif()
    set(tree "${package}.tree")
    file(REMOVE_RECURSE "${tree}")
    execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${tree}" COMMAND_ERROR_IS_FATAL ANY)
    if(EXISTS "${tree}/DEBIAN/postinst")
        file(REMOVE "${tree}/DEBIAN/postinst" "${tree}/DEBIAN/postrm")
        execute_process(COMMAND dpkg-deb --root-owner-group --build "${tree}" "${package}"
            OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    endif()
    file(REMOVE_RECURSE "${tree}")
endforeach()
