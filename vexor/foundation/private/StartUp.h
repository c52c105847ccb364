#pragma once
#include <vexor/foundation/private/InstructionSets.h>

// What the library sets when it is loaded, in VexorTolerance.cpp. Another library's constructors may read it
// before: it is 0 then.

namespace vexor::detail {

/// The fastest instruction set of this CPU; before it is set the baseline, which every CPU has.
extern InstructionSet const instructionSet;

/// Whether this CPU has a fused multiply-add; before it is set false, which is slower and gives the same bits.
extern bool const hasFusedMultiplyAdd;

} // namespace vexor::detail
