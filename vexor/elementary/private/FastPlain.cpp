// The fast step without a fused multiply-add.
#define VEXOR_ELEMENTARY_NAMESPACE plain
#define VEXOR_ELEMENTARY_NAME "plain"
#define VEXOR_ELEMENTARY_IS_FUSED 0
#include <vexor/elementary/private/FastFunctions.h>
