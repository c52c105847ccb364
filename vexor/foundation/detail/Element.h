#pragma once
#include <vexor/foundation/Config.h>

#include <limits>

namespace vexor::detail {

/// Whether the compiler evaluates a constant. A compiler that cannot tell gets the form for run time.
#if defined(__GNUC__) || (defined(_MSC_VER) && _MSC_VER >= 1925)
#    define VEXOR_CONSTANT_EVALUATED() __builtin_is_constant_evaluated()
#else
#    define VEXOR_CONSTANT_EVALUATED() false
#endif

/// A field of no size.
struct Nothing {};

/// The field of that index, for constant expressions: there no object can be read as an array of other
/// objects, as `ElementOf` does. The compiler refuses an index out of range.
template <class Element, class... Elements>
constexpr Element& FieldOf(int index, Element& first, Elements&... others)
{
    Element* const fields[] = {&first, &others...};
    return *fields[index];
}

/// The element of a plain class that is laid out as an array of `count` elements. The address is that
/// of the whole object and not of its first field, so that no compiler may take the access for one
/// that stays within that field. The index is not checked, except in checked builds, which name the
/// place of the call.
template <class Element, int count, class Object>
inline Element& ElementOf(Object& object, int index VEXOR_CHECK_PLACE)
{
    static_assert(sizeof(Object) >= count * sizeof(Element), "the object holds its elements");
    VEXOR_CHECK_AT_PLACE(index >= 0 && index < count, "index out of range");
    return reinterpret_cast<Element*>(&object)[index];
}

/// The same for a matrix that lies row by row. In checked builds row and column must each be in range.
template <class Element, int rows, int columns, class Object>
inline Element& ElementOf(Object& object, int row, int column VEXOR_CHECK_PLACE)
{
    static_assert(sizeof(Object) >= sizeof(Element) * rows * columns, "the object holds its elements");
    VEXOR_CHECK_AT_PLACE(row >= 0 && row < rows && column >= 0 && column < columns, "index out of range");
    return reinterpret_cast<Element*>(&object)[row * columns + column];
}

/// What checked builds put into an unset element: a signalling NaN, or the most negative integer.
template <class Element>
constexpr Element UnsetValue()
{
    return std::numeric_limits<Element>::has_signaling_NaN ? std::numeric_limits<Element>::signaling_NaN()
                                                           : (std::numeric_limits<Element>::min)();
}

/// Leaves the elements as the memory held them; in checked builds marks them as unset.
template <class... Elements>
inline void LeaveUnset([[maybe_unused]] Elements&... elements)
{
#if defined(VEXOR_CHECKED)
    ((elements = UnsetValue<Elements>()), ...);
#endif
}

} // namespace vexor::detail
