#pragma once
#include <type_traits>

namespace vexor::detail {

/// Lets a template take integers only. A literal 0 fits a number and a pointer equally well, so a class that
/// takes either also takes an integer as it stands, and reads it as a number.
template <class Number>
using IfInteger = std::enable_if_t<std::is_integral_v<Number>, int>;

} // namespace vexor::detail
