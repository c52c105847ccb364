#include <vexor/foundation/private/InstructionSets.h>

#if defined(VEXOR_WIDE_SETS)
#    define VEXOR_SET_AVX2
#    include "Limits.h"
#endif
