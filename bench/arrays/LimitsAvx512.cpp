#include <vexor/foundation/private/InstructionSets.h>

#if defined(VEXOR_WIDE_SETS)
#    define VEXOR_SET_AVX512
#    include "Limits.h"
#endif
