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

file(GLOB VEXOR_PYTHON_FILES CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/python/vexor/*.py")
foreach(file ${VEXOR_PYTHON_FILES})
    get_filename_component(name "${file}" NAME)
    configure_file("${file}" "${python_folder}/vexor/${name}" COPYONLY)
endforeach()
