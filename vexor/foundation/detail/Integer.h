#pragma once
#include <type_traits>

namespace vexor::detail {

/// Restricts a template to integers. A literal 0 converts equally well to a number and to a pointer. So a
/// class that accepts both also has an overload for integers, which treats them as numbers.
template <class Number>
using IfInteger = std::enable_if_t<std::is_integral_v<Number>, int>;

} // namespace vexor::detail
