#pragma once
#include <vexor/arrays/detail/Operations.h>
#include <vexor/foundation/detail/Raise.h>
#include <vexor/matrices/AffMat2Dbl.h>
#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/points/Pnt2Dbl.h>
#include <vexor/points/Pnt2Flt.h>
#include <vexor/points/Pnt3Dbl.h>
#include <vexor/points/Pnt3Flt.h>
#include <vexor/rotations/Quaternion.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <type_traits>
#include <utility>

// How the array functions read their arguments. An argument is one value, which stands for an array of
// copies of it, or an array: a pointer, whose count the caller gives, or anything that std::data and
// std::size take.

namespace vexor::arrays::detail {

// ---- The classes ---------------------------------------------------------------------------------

/// A class whose objects are `size` elements and nothing else.
template <class ElementType, int elementCount>
struct Shape {
    using Element = ElementType;
    static constexpr int size = elementCount;
};

template <class Value>
struct ShapeOf {};
template <>
struct ShapeOf<Vec3Dbl> : Shape<double, 3> {};
template <>
struct ShapeOf<Pnt3Dbl> : Shape<double, 3> {};
template <>
struct ShapeOf<Vec3Flt> : Shape<float, 3> {};
template <>
struct ShapeOf<Pnt3Flt> : Shape<float, 3> {};
template <>
struct ShapeOf<Vec2Dbl> : Shape<double, 2> {};
template <>
struct ShapeOf<Pnt2Dbl> : Shape<double, 2> {};
template <>
struct ShapeOf<Vec2Flt> : Shape<float, 2> {};
template <>
struct ShapeOf<Pnt2Flt> : Shape<float, 2> {};
template <>
struct ShapeOf<double> : Shape<double, 1> {};
template <>
struct ShapeOf<float> : Shape<float, 1> {};

template <class Value>
using Element = typename ShapeOf<Value>::Element;

/// What an array can consist of: any other argument is a pointer or a container.
template <class Argument>
inline constexpr bool
    isValue =
        std::
            is_arithmetic_v<Argument> || std::is_same_v<Argument, Vec3Dbl> || std::is_same_v<Argument, Vec3Flt> || std::is_same_v<Argument, Vec2Dbl> || std::is_same_v<Argument, Vec2Flt> || std::is_same_v<Argument, Pnt3Dbl> || std::is_same_v<Argument, Pnt3Flt> || std::is_same_v<Argument, Pnt2Dbl> || std::is_same_v<Argument, Pnt2Flt> || std::is_same_v<Argument, Quaternion> || std::is_same_v<Argument, Mat3Dbl> || std::is_same_v<Argument, Mat2Dbl> || std::is_same_v<Argument, AffMat3Dbl> || std::is_same_v<Argument, AffMat2Dbl>;

/// Whether std::data and std::size accept the argument.
template <class Argument, class = void>
inline constexpr bool isContainer = false;
template <class Argument>
inline constexpr bool isContainer<Argument, std::void_t<decltype(std::data(std::declval<Argument&>())),
                                                        decltype(std::size(std::declval<Argument&>()))>> =
    true;

// ---- Views -----------------------------------------------------------------------------------------

/// An operand: an array of `count` values, or one value for all of them, then with a count of 0.
template <class ValueType>
struct View {
    using Value = ValueType;
    Value const* data;
    std::size_t count;
    bool isOne;
};

template <class Argument>
auto ViewOf(Argument const& argument)
{
    if constexpr (isValue<Argument>) {
        return View<Argument>{&argument, 0, true};
    } else {
        static_assert(
            isContainer<Argument const>,
            "an operand is one value or a contiguous container; a pointer needs the count as last argument");
        using Value = std::remove_cv_t<std::remove_pointer_t<decltype(std::data(argument))>>;
        return View<Value>{std::data(argument), std::size(argument), false};
    }
}

template <class Argument>
auto ViewOf(Argument const& argument, std::size_t count)
{
    if constexpr (isValue<Argument>) {
        return View<Argument>{&argument, 0, true};
    } else {
        static_assert(std::is_pointer_v<std::decay_t<Argument>>,
                      "beside a count an operand is one value or a pointer");
        using Value = std::remove_cv_t<std::remove_pointer_t<std::decay_t<Argument>>>;
        return View<Value>{argument, count, false};
    }
}

/// The destination of the results.
template <class ValueType>
struct Range {
    using Value = ValueType;
    Value* data;
    std::size_t count;
};

template <class Results>
auto RangeOf(Results& results)
{
    static_assert(isContainer<Results>,
                  "the results are a contiguous container; a pointer needs the count as last argument");
    return Range<std::remove_pointer_t<decltype(std::data(results))>>{std::data(results), std::size(results)};
}

template <class Result>
auto RangeOf(Result* results, std::size_t count)
{
    return Range<Result>{results, count};
}

/// Whether two pieces of memory share a byte without being the same array of one type.
template <class Left, class Right>
bool OverlapPartly([[maybe_unused]] Left const* left, std::size_t leftCount,
                   [[maybe_unused]] Right const* right, std::size_t rightCount)
{
    if (leftCount == 0 || rightCount == 0)
        return false;
    if (static_cast<void const*>(left) == static_cast<void const*>(right) && sizeof(Left) == sizeof(Right))
        return false;
    auto const leftBegin = reinterpret_cast<std::uintptr_t>(left);
    auto const rightBegin = reinterpret_cast<std::uintptr_t>(right);
    return leftBegin < rightBegin + rightCount * sizeof(Right)
           && rightBegin < leftBegin + leftCount * sizeof(Left);
}

/// Raises `VexorDimensionMismatch` unless every operand that is an array has the count of the results. In
/// checked builds also stops if an operand and the results overlap without being the same array.
template <class Result, class... Values>
void CheckOperands(Range<Result> const& results, View<Values> const&... operands)
{
    if (((!operands.isOne && operands.count != results.count) || ...))
        vexor::detail::RaiseDimensionMismatch();
    VEXOR_CHECK(!(OverlapPartly(operands.data, operands.count, results.data, results.count) || ...),
                "the results overlap an operand without being the same array");
}

template <class Value>
Operand<Element<Value>> OperandOf(View<Value> const& view)
{
    static_assert(sizeof(Value) == sizeof(Element<Value>) * ShapeOf<Value>::size,
                  "elements and nothing else");
    return {reinterpret_cast<Element<Value> const*>(view.data), view.isOne};
}

template <class Value>
Element<Value>* ElementsOf(Value* values)
{
    return reinterpret_cast<Element<Value>*>(values);
}

} // namespace vexor::arrays::detail
