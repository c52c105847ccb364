#pragma once

namespace vexor::detail::elementary {

/// Takes the functions with a fused multiply-add if the CPU has one. Called when the library is loaded;
/// the functions work before it, too.
void ChooseFunctions();

} // namespace vexor::detail::elementary
