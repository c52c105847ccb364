#include <vexor/vexor.h>

#include "Interface.h"

namespace {

static_assert(std::is_same_v<decltype(small_decompose), int(double*, unsigned char*, int)>);
static_assert(std::is_same_v<decltype(small_substitution), void(double*, double*, unsigned char*, int, int)>);
static_assert(std::is_same_v<decltype(&::small_decompose), int (*)(double*, unsigned char*, int)>);
static_assert(
    std::is_same_v<decltype(&::small_substitution), void (*)(double*, double*, unsigned char*, int, int)>);

} // namespace
