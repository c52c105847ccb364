#pragma once
#include <vexor/foundation/Config.h>

// Exceptions are raised out of line, so that inlined members stay small and add no exception code to the
// caller's loop.

namespace vexor::detail {

[[noreturn]] VEXOR_API VEXOR_COLD void RaiseNullVector();
[[noreturn]] VEXOR_API VEXOR_COLD void RaiseSingular();
[[noreturn]] VEXOR_API VEXOR_COLD void RaiseDimensionMismatch();
[[noreturn]] VEXOR_API VEXOR_COLD void RaiseAllocationFailed();
[[noreturn]] VEXOR_API VEXOR_COLD void RaiseComputationFailed();

} // namespace vexor::detail
