// The confirmation is what makes the difference, not the target.
// g++: this target fuses a\*b \+ c
// flags: -march=x86-64-v3 -ffp-contract=off -DVEXOR_FP_CONTRACT_OFF
// offending flags: -UVEXOR_FP_CONTRACT_OFF

#include <vexor/foundation/Config.h>
