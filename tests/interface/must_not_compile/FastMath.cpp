// Fast arithmetic would change documented results.
// g++: -ffast-math .* changes documented results
// clang++: -ffast-math .* changes documented results
// offending flags: -ffast-math

#include <vexor/foundation/Config.h>
