#pragma once
#include <vexor/foundation/private/InstructionSets.h>

// The constants that the library sets when it is loaded, all in VexorTolerance.cpp. Another library's
// constructors may read them before: they are 0 then.

namespace vexor::detail {

/// The fastest instruction set of this CPU; before it is set the baseline, which every CPU has.
extern InstructionSet const instructionSet;

/// Whether this CPU has a fused multiply-add; before it is set false, which is slower and gives the same bits.
extern bool const hasFusedMultiplyAdd;

/// The double nearest the square root of 3, for the closed-form eigenvalues of a 3×3 matrix.
extern double const squareRootOfThree;

} // namespace vexor::detail
