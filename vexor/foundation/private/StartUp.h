#pragma once

namespace vexor::detail {

/// The double nearest the square root of 3, for the closed-form eigenvalues of a 3×3 matrix. Set when
/// the library is loaded.
extern double const squareRootOfThree;

} // namespace vexor::detail
