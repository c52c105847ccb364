# Debian packages by CPack: libvexor1 (the library), libvexor-dev (headers, package files, debugger
# views), libvexor-arrays1 and libvexor-arrays-dev (the component), and vexor-doc.

find_program(GZIP gzip)

# Debian requires a copyright file and a compressed changelog in each package's folder.
set(debian_files "${CMAKE_CURRENT_BINARY_DIR}/debian")
file(MAKE_DIRECTORY "${debian_files}")
file(READ "${CMAKE_CURRENT_SOURCE_DIR}/LICENSE" license_text)
string(REGEX REPLACE "\n\n" "\n.\n" license_text "${license_text}")
string(REGEX REPLACE "\n" "\n " license_text "${license_text}")
string(STRIP "${license_text}" license_text)
file(WRITE "${debian_files}/copyright"
    "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n"
    "Upstream-Name: vexor\n\nFiles: *\nCopyright: 2026 the vexor authors\nLicense: Expat\n ${license_text}\n")
file(WRITE "${debian_files}/changelog.Debian"
    "vexor (${PROJECT_VERSION}) unstable; urgency=medium\n\n"
    "  * Packaged from the release; CHANGELOG.md tells what is in it.\n\n"
    " -- the vexor authors <authors@vexor.invalid>  Sat, 21 Nov 2026 12:00:00 +0000\n")
if(GZIP)
    execute_process(COMMAND "${GZIP}" -9nkf "${debian_files}/changelog.Debian")
endif()

set(packages libvexor${PROJECT_VERSION_MAJOR} libvexor-dev vexor-doc)
set(components runtime dev doc)
if(VEXOR_BUILD_ARRAYS)
    list(APPEND packages libvexor-arrays${PROJECT_VERSION_MAJOR} libvexor-arrays-dev)
    list(APPEND components arrays arrays_dev)
endif()
if(TARGET vexor_python)
    list(APPEND packages python3-vexor)
    list(APPEND components python)
endif()
foreach(package component IN ZIP_LISTS packages components)
    # The name is "changelog.gz" if the version has no Debian revision, as here.
    install(FILES "${debian_files}/copyright"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component} EXCLUDE_FROM_ALL)
    if(GZIP)
        install(FILES "${debian_files}/changelog.Debian.gz" RENAME changelog.gz
            DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component} EXCLUDE_FROM_ALL)
    endif()
endforeach()

# The documentation: the site that scripts/docs makes, the README with the pages that it links to, and the examples.
set(doc_folder "${CMAKE_INSTALL_DATADIR}/doc/vexor-doc")
set(VEXOR_SITE "${CMAKE_CURRENT_SOURCE_DIR}/build/docs/html" CACHE PATH "The documentation site for the package vexor-doc")
mark_as_advanced(VEXOR_SITE)
install(DIRECTORY "${VEXOR_SITE}/" DESTINATION "${doc_folder}/html" COMPONENT doc EXCLUDE_FROM_ALL OPTIONAL)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION "${doc_folder}" COMPONENT doc EXCLUDE_FROM_ALL)
install(DIRECTORY examples DESTINATION "${doc_folder}" COMPONENT doc EXCLUDE_FROM_ALL)
file(WRITE "${debian_files}/vexor-doc"
    "Document: vexor\nTitle: vexor: guides and reference\nAuthor: the vexor authors\n"
    "Abstract: Geometric and linear-algebra value classes with documented rounding\n"
    "Section: Programming/C++\n\nFormat: HTML\nIndex: /usr/share/doc/vexor-doc/html/index.html\n"
    "Files: /usr/share/doc/vexor-doc/html/*.html\n")
install(FILES "${debian_files}/vexor-doc" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc-base"
    COMPONENT doc EXCLUDE_FROM_ALL)
install(DIRECTORY docs
    DESTINATION "${doc_folder}"
    COMPONENT doc EXCLUDE_FROM_ALL
    FILES_MATCHING PATTERN "*.md" PATTERN "*.svg"
    PATTERN "__pycache__" EXCLUDE
    PATTERN "site" EXCLUDE
    PATTERN "snippets" EXCLUDE
    PATTERN "tools" EXCLUDE)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vexor)
set(CPACK_PACKAGE_VENDOR "the vexor authors")
set(CPACK_PACKAGE_CONTACT "the vexor authors <authors@vexor.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libvexor${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
# The version that added each symbol: scripts/update-abi writes these files, and scripts/package compares them.
configure_file("cmake/debian/libvexor${PROJECT_VERSION_MAJOR}.symbols" "${debian_files}/symbols" COPYONLY)
file(WRITE "${debian_files}/shlibs"
    "libvexor ${PROJECT_VERSION_MAJOR} libvexor${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION})\n")
file(WRITE "${debian_files}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${debian_files}/shlibs;${debian_files}/symbols;${debian_files}/triggers")
set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/cmake/VexorDebianScripts.cmake")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Geometric and linear-algebra value classes (library)
 Vectors, points, small matrices with their own solvers, affine maps,
 rotations, and dense solvers through LAPACK, with every rounding point
 documented.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libvexor-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libvexor${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Geometric and linear-algebra value classes (development files)
 Headers, CMake and pkg-config files and debugger views of vexor.")
set(CPACK_DEBIAN_DOC_PACKAGE_NAME vexor-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_DOC_DESCRIPTION "Geometric and linear-algebra value classes (documentation)
 Guides, reference and examples of vexor: its site as HTML, the README with
 the pages that it links to, and the example programs with their data.")
set(CPACK_DEBIAN_ARRAYS_PACKAGE_NAME libvexor-arrays${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_ARRAYS_PACKAGE_SECTION libs)
# Written by hand: dpkg-shlibdeps finds installed packages only, and libvexor1 is not installed yet.
set(CPACK_DEBIAN_ARRAYS_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_ARRAYS_PACKAGE_DEPENDS
    "libc6, libgcc-s1, libstdc++6 (>= 12), libvexor${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
file(MAKE_DIRECTORY "${debian_files}/arrays")
configure_file("cmake/debian/libvexor-arrays${PROJECT_VERSION_MAJOR}.symbols" "${debian_files}/arrays/symbols" COPYONLY)
file(WRITE "${debian_files}/arrays/shlibs"
    "libvexor_arrays ${PROJECT_VERSION_MAJOR} libvexor-arrays${PROJECT_VERSION_MAJOR} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_ARRAYS_PACKAGE_CONTROL_EXTRA "${debian_files}/arrays/shlibs;${debian_files}/arrays/symbols;${debian_files}/triggers")
set(CPACK_COMPONENT_ARRAYS_DESCRIPTION "Functions over arrays of vexor's classes (library)
 Sums, products, lengths, tests, maps, rotations and small solvers over
 arrays of vectors, points and matrices, with the bits of the loops over
 the classes' members.")
set(CPACK_DEBIAN_ARRAYS_DEV_PACKAGE_NAME libvexor-arrays-dev)
set(CPACK_DEBIAN_ARRAYS_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_ARRAYS_DEV_PACKAGE_DEPENDS
    "libvexor-arrays${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), libvexor-dev (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_ARRAYS_DEV_DESCRIPTION "Functions over arrays of vexor's classes (development files)
 Headers, CMake and pkg-config files of vexor's component for arrays.")
if(TARGET vexor_python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-vexor)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SHLIBDEPS OFF) # as for the arrays
    math(EXPR next_minor "${Python_VERSION_MINOR} + 1")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        "libc6, libgcc-s1, libstdc++6 (>= 12), libvexor${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), libvexor-arrays${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), python3 (>= 3.${Python_VERSION_MINOR}), python3 (<< 3.${next_minor}), python3-numpy")
    # Python compiles the sources to files of its own, which the package removes.
    foreach(script postinst prerm)
        configure_file("cmake/debian/python3-vexor/${script}" "${debian_files}/python/${script}" COPYONLY)
    endforeach()
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA "${debian_files}/python/postinst;${debian_files}/python/prerm")
    set(CPACK_COMPONENT_PYTHON_DESCRIPTION "Geometric and linear-algebra value classes (Python 3 module)
 The classes of vexor in Python, which share their elements with NumPy, and
 functions over NumPy arrays, with the bits of the C++ library.")
endif()
include(CPack)
