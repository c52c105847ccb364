# The Python module: python/src by pybind11, with docstrings from the headers' comments.

# Debian's interpreter has the packages of Debian; another may come first in PATH.
if(NOT DEFINED Python_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python_EXECUTABLE /usr/bin/python3)
endif()
set(PYBIND11_FINDPYTHON ON)
if(VEXOR_PYTHON STREQUAL "AUTO")
    find_package(Python 3.9 QUIET COMPONENTS Interpreter Development.Module)
    find_package(pybind11 2.10 QUIET CONFIG)
    if(NOT Python_FOUND OR NOT pybind11_FOUND)
        message(STATUS "The Python module and its tests are left out: pybind11 is missing (Debian: pybind11-dev, python3-dev)")
        return()
    endif()
else()
    find_package(Python 3.9 REQUIRED COMPONENTS Interpreter Development.Module)
    find_package(pybind11 2.10 REQUIRED CONFIG)
endif()

file(GLOB VEXOR_PYTHON_SOURCES CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/python/src/*.cpp")
set(python_folder "${CMAKE_CURRENT_BINARY_DIR}/python")
set(commented_headers ${VEXOR_HEADERS} ${VEXOR_ARRAYS_HEADERS})
list(FILTER commented_headers EXCLUDE REGEX "/(detail|extras)/|/vexor[.]h$")
add_custom_command(
    OUTPUT "${python_folder}/Comments.inc"
    COMMAND Python::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/python/docstrings.py" "${python_folder}/Comments.inc" ${commented_headers}
    DEPENDS python/docstrings.py ${commented_headers}
    VERBATIM)

pybind11_add_module(vexor_python MODULE NO_EXTRAS ${VEXOR_PYTHON_SOURCES} "${python_folder}/Comments.inc")
target_link_libraries(vexor_python PRIVATE vexor::arrays)
target_include_directories(vexor_python PRIVATE "${python_folder}")
target_precompile_headers(vexor_python PRIVATE python/src/Bind.h)
# The package in the build's folder can be imported as it is.
set_target_properties(vexor_python PROPERTIES
    OUTPUT_NAME _vexor
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LIBRARY_OUTPUT_DIRECTORY "${python_folder}/vexor")
vexor_warnings(vexor_python)
vexor_harden(vexor_python)
# The bindings only call the libraries. -O1 compiles them in two thirds of the time.
target_compile_options(vexor_python PRIVATE "$<$<CONFIG:Release>:$<$<CXX_COMPILER_ID:GNU,Clang>:-O1>>")

file(GLOB VEXOR_PYTHON_FILES CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/python/vexor/*.py")
foreach(file ${VEXOR_PYTHON_FILES})
    get_filename_component(name "${file}" NAME)
    configure_file("${file}" "${python_folder}/vexor/${name}" COPYONLY)
endforeach()

# The type stubs come from the built module.
add_custom_command(
    OUTPUT "${python_folder}/vexor/__init__.pyi" "${python_folder}/vexor/arrays.pyi" "${python_folder}/vexor/py.typed"
    COMMAND Python::Interpreter "${CMAKE_CURRENT_SOURCE_DIR}/python/stubs.py" "${python_folder}"
    DEPENDS vexor_python python/stubs.py ${VEXOR_PYTHON_FILES}
    VERBATIM)
add_custom_target(vexor_python_stubs ALL DEPENDS "${python_folder}/vexor/__init__.pyi")

# ---- Installation ------------------------------------------------------------------------------

if(VEXOR_INSTALL)
    option(VEXOR_PYTHON_BUNDLE "Install the libraries inside the Python package, for a wheel" OFF)
    mark_as_advanced(VEXOR_PYTHON_BUNDLE)
    if(VEXOR_PYTHON_BUNDLE)
        set(default_folder .)
    elseif(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set(default_folder lib/python3/dist-packages)
    else()
        set(default_folder "${CMAKE_INSTALL_LIBDIR}/python${Python_VERSION_MAJOR}.${Python_VERSION_MINOR}/site-packages")
    endif()
    set(VEXOR_PYTHON_FOLDER "${default_folder}" CACHE STRING "The folder of Python packages, relative to the prefix")
    mark_as_advanced(VEXOR_PYTHON_FOLDER)
    if(VEXOR_PYTHON_BUNDLE)
        set_target_properties(vexor_python PROPERTIES INSTALL_RPATH "$ORIGIN")
        install(TARGETS vexor vexor_arrays LIBRARY DESTINATION "${VEXOR_PYTHON_FOLDER}/vexor" COMPONENT python NAMELINK_SKIP)
    elseif(NOT CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        file(RELATIVE_PATH to_libraries "/${VEXOR_PYTHON_FOLDER}/vexor" "/${CMAKE_INSTALL_LIBDIR}")
        set_target_properties(vexor_python PROPERTIES INSTALL_RPATH "$ORIGIN/${to_libraries}")
    endif()
    install(TARGETS vexor_python LIBRARY DESTINATION "${VEXOR_PYTHON_FOLDER}/vexor" COMPONENT python)
    install(FILES ${VEXOR_PYTHON_FILES} "${python_folder}/vexor/__init__.pyi" "${python_folder}/vexor/arrays.pyi"
        "${python_folder}/vexor/py.typed"
        DESTINATION "${VEXOR_PYTHON_FOLDER}/vexor" COMPONENT python)
endif()
