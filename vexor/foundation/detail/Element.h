#pragma once
#include <vexor/foundation/Config.h>

#include <limits>

namespace vexor::detail {

/// The element of a plain class that is laid out as an array of `count` elements. The address is that
/// of the whole object and not of its first field, so that no compiler may take the access for one
/// that stays within that field. The index is not checked, except in checked builds.
template <class Element, int count, class Object>
inline Element& ElementOf(Object& object, int index)
{
    static_assert(sizeof(Object) >= count * sizeof(Element), "the object holds its elements");
    VEXOR_CHECK(index >= 0 && index < count, "index out of range");
    return reinterpret_cast<Element*>(&object)[index];
}

/// Leaves the elements as the memory held them; in checked builds fills them with signalling NaNs.
template <class... Elements>
inline void LeaveUnset([[maybe_unused]] Elements&... elements)
{
#if defined(VEXOR_CHECKED)
    ((elements = std::numeric_limits<Elements>::signaling_NaN()), ...);
#endif
}

} // namespace vexor::detail
