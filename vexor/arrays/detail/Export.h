#pragma once
#include <vexor/foundation/Config.h>

/// A function or object that the component's shared library exports.
#if defined(VEXOR_ARRAYS_STATIC)
#    define VEXOR_ARRAYS_API
#elif defined(_WIN32) && defined(VEXOR_BUILDING_ARRAYS)
#    define VEXOR_ARRAYS_API __declspec(dllexport)
#elif defined(_WIN32)
#    define VEXOR_ARRAYS_API __declspec(dllimport)
#else
#    define VEXOR_ARRAYS_API __attribute__((visibility("default")))
#endif
