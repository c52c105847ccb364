// The fast step without a fused multiply-add.
#define VEXOR_ELEMENTARY_NAMESPACE plain
#define VEXOR_ELEMENTARY_IS_FUSED 0
#include <vexor/elementary/private/FastArcCosine.h>
#include <vexor/elementary/private/FastArcTangent.h>
#include <vexor/elementary/private/FastSine.h>
