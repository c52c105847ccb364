// Included before a source by the compiler's option -include: the library then compiles its code for
// compilers without GNU extensions, above all Microsoft's, although clang++ compiles it. The standard headers
// come first; then the macros that identify clang++ are undefined.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <numeric>
#include <type_traits>
#include <utility>

#undef __GNUC__
#undef __clang__
#undef __x86_64__
#undef __SSE2__
#define _MSC_VER 1929
