#if defined(__GNUC__)
#    include <vexor/dynamic/private/KernelTemplate.h>
#endif
