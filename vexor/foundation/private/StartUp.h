#pragma once
#include <vexor/foundation/private/InstructionSets.h>

// Objects that VexorTolerance.cpp initialises when the library is loaded. Another library's constructors may
// read them earlier: they are 0 then.

namespace vexor::detail {

/// The fastest instruction set of this CPU. Before initialisation it is the baseline, which every CPU has.
extern InstructionSet const instructionSet;

/// Whether this CPU has a fused multiply-add. Before initialisation it is false: the code is then slower and
/// gives the same bits.
extern bool const hasFusedMultiplyAdd;

} // namespace vexor::detail
