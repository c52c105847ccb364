// Put before a source by the compiler's option -include: makes the library take what it offers to compilers
// without GNU extensions, Microsoft's above all, while clang++ compiles it. The standard headers come first,
// and then what tells clang++ from others is taken away.

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
