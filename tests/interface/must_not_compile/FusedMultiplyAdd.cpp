// Where the target has a fused multiply-add, g++ uses it unless told not to: the client has to confirm.
// g++: this target fuses a\*b \+ c. build with -ffp-contract=off -DVEXOR_FP_CONTRACT_OFF
// offending flags: -march=x86-64-v3

#include <vexor/foundation/Config.h>
