#include <vexor/foundation/Config.h>

#if defined(__GNUC__)
#    include <vexor/arrays/private/Kernels.h>
#endif
