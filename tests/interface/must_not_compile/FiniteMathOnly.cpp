// Arithmetic that takes NaN and infinity for impossible would change documented results.
// g++: -ffast-math .* changes documented results
// clang++: -ffast-math .* changes documented results
// offending flags: -ffinite-math-only

#include <vexor/foundation/Config.h>
