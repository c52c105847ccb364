#include <vexor/arrays/private/KernelSet.h>

#if defined(VEXOR_ARRAYS_REGISTERS)
#    include <vexor/arrays/private/Kernels.h>
#endif
