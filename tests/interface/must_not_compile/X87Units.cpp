// The x87 unit rounds neither when nor as a double does, and is the default of g++ for 32-bit x86, even
// where the target has the better unit.
// g++: x87 evaluation changes documented results
// flags: -m32 -msse2 -mfpmath=sse
// offending flags: -mfpmath=387

#include <vexor/foundation/Config.h>
