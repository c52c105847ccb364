# The library's results do not depend on the platform's sin, cos, acos and atan2: it does not import them. A library that
# contains LAPACK has LAPACK's imports too, DLARNV's cosine among them, so there the object files are read.
# Usage: cmake -DNM=... -DFILES=... -DWANTED=... -P NoPlatformFunctions.cmake
# WANTED is a symbol that the files do import.
set(flags --undefined-only --format=posix)
if(NOT FILES MATCHES "[.](o|obj)(;|$)")
    list(APPEND flags --dynamic)
endif()
execute_process(COMMAND "${NM}" ${flags} ${FILES} RESULT_VARIABLE status OUTPUT_VARIABLE imports)
if(NOT status STREQUAL "0" OR NOT imports MATCHES "${WANTED} ")
    message(FATAL_ERROR "${FILES}: no list of imported symbols")
endif()
set(functions "(sin|cos|sincos|tan|asin|acos|atan|atan2)f?l?")
string(REGEX MATCHALL "(^|\n)(__imp_)?_?${functions}(@[^ ]*)? [^\n]*" found "${imports}")
if(found)
    message(FATAL_ERROR "the library imports from the platform:${found}")
endif()
