// The x87 unit rounds neither when nor as a double does. (The header includes nothing, so that this needs
// no libraries for 32 bits.)
// clang++: x87 evaluation changes documented results
// flags: -m32 -msse2
// offending flags: -mno-sse2

#include <vexor/foundation/Config.h>
