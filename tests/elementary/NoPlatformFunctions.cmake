# The library's results do not rest on the platform's sin, cos, acos and atan2: it does not import them.
# Usage: cmake -DNM=... -DLIBRARY=... -P NoPlatformFunctions.cmake
execute_process(COMMAND "${NM}" --dynamic --undefined-only --format=posix "${LIBRARY}"
    RESULT_VARIABLE status OUTPUT_VARIABLE imports)
if(NOT status STREQUAL "0" OR NOT imports MATCHES "dgesv_")
    message(FATAL_ERROR "${LIBRARY}: no list of imported symbols")
endif()
string(REGEX MATCHALL "(^|\n)(sin|cos|sincos|tan|asin|acos|atan|atan2)f?l?(@[^ ]*)? [^\n]*" found "${imports}")
if(found)
    message(FATAL_ERROR "${LIBRARY} imports from the platform:${found}")
endif()
