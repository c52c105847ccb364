#pragma once
#include <vexor/foundation/Config.h>

#include <limits>

namespace vexor::detail {

/// Whether this is a constant evaluation. A compiler that cannot tell uses the run-time form.
#if defined(__GNUC__) || (defined(_MSC_VER) && _MSC_VER >= 1925)
#    define VEXOR_CONSTANT_EVALUATED() __builtin_is_constant_evaluated()
#else
#    define VEXOR_CONSTANT_EVALUATED() false
#endif

/// An empty type for a field that holds no data.
struct Nothing {};

/// The field of that index, for constant expressions. These cannot read an object as an array of its fields,
/// as `ElementOf` does. The compiler refuses an index out of range.
template <class Element, class... Elements>
constexpr Element& FieldOf(int index, Element& first, Elements&... others)
{
    Element* const fields[] = {&first, &others...};
    return *fields[index];
}

/// The element of a plain class that is laid out as an array of `count` elements. Indexes from the object's
/// address, not its first field's, so the compiler cannot assume that the access stays inside that field.
/// Only checked builds check the index; they name the line of the call.
template <class Element, int count, class Object>
inline Element& ElementOf(Object& object, int index VEXOR_CHECK_PLACE)
{
    static_assert(sizeof(Object) >= count * sizeof(Element), "the object holds its elements");
    VEXOR_CHECK_AT_PLACE(index >= 0 && index < count, "index out of range");
    return reinterpret_cast<Element*>(&object)[index];
}

/// The same for a matrix that is stored row by row. In checked builds row and column must each be in range.
template <class Element, int rows, int columns, class Object>
inline Element& ElementOf(Object& object, int row, int column VEXOR_CHECK_PLACE)
{
    static_assert(sizeof(Object) >= sizeof(Element) * rows * columns, "the object holds its elements");
    VEXOR_CHECK_AT_PLACE(row >= 0 && row < rows && column >= 0 && column < columns, "index out of range");
    return reinterpret_cast<Element*>(&object)[row * columns + column];
}

/// The value that checked builds put into an unset element: a signalling NaN, or the most negative integer.
template <class Element>
constexpr Element UnsetValue()
{
    return std::numeric_limits<Element>::has_signaling_NaN ? std::numeric_limits<Element>::signaling_NaN()
                                                           : (std::numeric_limits<Element>::min)();
}

/// Leaves the elements as they are in memory; in checked builds marks them as unset.
template <class... Elements>
inline void LeaveUnset([[maybe_unused]] Elements&... elements)
{
#if defined(VEXOR_CHECKED)
    ((elements = UnsetValue<Elements>()), ...);
#endif
}

} // namespace vexor::detail
