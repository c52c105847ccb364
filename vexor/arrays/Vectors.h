#pragma once
#include <vexor/arrays/detail/Functions.h>

// Arrays of vectors and points, in space and in the plane, double and single. Each function is the loop
// over the member or operator named in its comment: the same bits, the same exception at the same element,
// the elements before it written and the others unchanged.
//
// Each function has two forms:
//     Dot(left, right, results)           containers, C arrays, spans; the sizes must agree, or
//                                         `VexorDimensionMismatch` is raised
//     Dot(left, right, results, count)    pointers
// Instead of an array, an operand may be one value, which is read once and used for every element. The
// results may be the array of an operand; any other overlap is an error, on which checked builds stop.

namespace vexor::arrays {

namespace detail {

/// Runs an operation on two operands whose elements have one type.
template <PairOperation operation, class Left, class Right, class Result>
void ComputePair(View<Left> left, View<Right> right, Range<Result> results)
{
    static_assert(
        std::is_same_v<Element<Left>, Element<Right>> && std::is_same_v<Element<Left>, Element<Result>>,
        "the operands and the results have one element type");
    CheckOperands(results, left, right);
    Compute<Element<Left>, ShapeOf<Left>::size>(operation, OperandOf(left), OperandOf(right),
                                                ElementsOf(results.data), results.count);
}

template <SingleOperation operation, class Value, class Result>
void ComputeSingle(View<Value> operand, Range<Result> results)
{
    static_assert(std::is_same_v<Element<Value>, Element<Result>>,
                  "the operand and the results have one element type");
    CheckOperands(results, operand);
    Compute<Element<Value>, ShapeOf<Value>::size>(operation, OperandOf(operand).data,
                                                  ElementsOf(results.data), results.count);
}

template <TestOperation operation, class Left, class Right>
void ComputeTest(View<Left> left, View<Right> right, Range<unsigned char> results, double angular,
                 double length)
{
    static_assert(std::is_same_v<Left, Right>, "both operands are of one class");
    CheckOperands(results, left, right);
    Test<Element<Left>, ShapeOf<Left>::size>(operation, OperandOf(left), OperandOf(right),
                                             static_cast<Element<Left>>(angular),
                                             static_cast<Element<Left>>(length), results.data, results.count);
}

/// A number is converted to the element type of the vectors, as the operator converts it.
template <class Vector, class Scalar, class Result>
void ComputeScale(View<Vector> vectors, View<Scalar> scalars, Range<Result> results)
{
    if constexpr (std::is_same_v<Scalar, Element<Vector>>) {
        ComputePair<PairOperation::Scale>(vectors, scalars, results);
    } else {
        static_assert(std::is_arithmetic_v<Scalar>, "vectors are scaled by numbers");
        VEXOR_CHECK(scalars.isOne, "an array of factors has the element type of the vectors");
        auto const scalar = static_cast<Element<Vector>>(*scalars.data);
        ComputePair<PairOperation::Scale>(vectors, ViewOf(scalar), results);
    }
}

template <class Vector>
inline constexpr bool isPoint =
    std::is_same_v<
        Vector,
        Pnt3Dbl> || std::is_same_v<Vector, Pnt3Flt> || std::is_same_v<Vector, Pnt2Dbl> || std::is_same_v<Vector, Pnt2Flt>;

/// Prevents the form for containers from reading a pointer with its count as a container with a tolerance.
template <class Angular, class Length>
using AreTolerances = std::enable_if_t<std::is_floating_point_v<Angular> && std::is_floating_point_v<Length>>;

} // namespace detail

// ---- Arithmetic ------------------------------------------------------------------------------------

/// left[i] + right[i].
template <class Left, class Right, class Results, class... Count>
void Add(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(*a.data + *b.data)>>,
                  "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::Add>(a, b, c);
}
/// left[i] - right[i]: of two points a vector.
template <class Left, class Right, class Results, class... Count>
void Subtract(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(*a.data - *b.data)>>,
                  "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::Subtract>(a, b, c);
}
/// vectors[i] * scalars[i]; the scalars have the element type of the vectors. A single number may have any
/// type.
template <class Vectors, class Scalars, class Results, class... Count>
void Scale(Vectors const& vectors, Scalars const& scalars, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(vectors, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(scalars, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(*a.data)>>,
                  "the results have the type that the member gives");
    detail::ComputeScale(a, b, c);
}
/// -vectors[i]: flips the sign of each component.
template <class Operand, class Results, class... Count>
void Negate(Operand const& operand, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(operand, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(-*a.data)>>,
                  "the results have the type that the member gives");
    detail::ComputeSingle<detail::SingleOperation::Negate>(a, c);
}
/// left[i].ElemMult(right[i]): the products of the components.
template <class Left, class Right, class Results, class... Count>
void ElemMult(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->ElemMult(*b.data))>>,
        "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::ElemMult>(a, b, c);
}

// ---- Products and lengths ----------------------------------------------------------------------------

/// left[i].Dot(right[i]).
template <class Left, class Right, class Results, class... Count>
void Dot(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->Dot(*b.data))>>,
        "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::Dot>(a, b, c);
}
/// left[i].Cross(right[i]): a vector in space, a number in the plane.
template <class Left, class Right, class Results, class... Count>
void Cross(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->Cross(*b.data))>>,
        "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::Cross>(a, b, c);
}
/// vectors[i].LengthSquared().
template <class Operand, class Results, class... Count>
void LengthSquared(Operand const& operand, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(operand, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->LengthSquared())>>,
        "the results have the type that the member gives");
    detail::ComputeSingle<detail::SingleOperation::LengthSquared>(a, c);
}
/// vectors[i].Length().
template <class Operand, class Results, class... Count>
void Length(Operand const& operand, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(operand, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->Length())>>,
                  "the results have the type that the member gives");
    detail::ComputeSingle<detail::SingleOperation::Length>(a, c);
}
/// vectors[i].GetNormalizedCopy(). Raises `VexorNullVector` at the first null vector.
template <class Operand, class Results, class... Count>
void Normalize(Operand const& operand, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(operand, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->GetNormalizedCopy())>>,
        "the results have the type that the member gives");
    detail::ComputeSingle<detail::SingleOperation::Normalize>(a, c);
}
/// left[i].DistanceSqTo(right[i]), of points.
template <class Left, class Right, class Results, class... Count>
void DistanceSqTo(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>,
                                 std::decay_t<decltype(a.data->DistanceSqTo(*b.data))>>,
                  "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::DistanceSqTo>(a, b, c);
}
/// left[i].DistanceTo(right[i]), of points.
template <class Left, class Right, class Results, class... Count>
void DistanceTo(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->DistanceTo(*b.data))>>,
        "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::DistanceTo>(a, b, c);
}
/// left[i].GetAngleWith(right[i]), in radians from 0 to π.
template <class Left, class Right, class Results, class... Count>
void GetAngleWith(Left const& left, Right const& right, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(left, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(right, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(std::is_same_v<std::decay_t<decltype(*c.data)>,
                                 std::decay_t<decltype(a.data->GetAngleWith(*b.data))>>,
                  "the results have the type that the member gives");
    detail::ComputePair<detail::PairOperation::GetAngleWith>(a, b, c);
}

// ---- Tests: results[i] is 1 or 0 ---------------------------------------------------------------------
// Tolerances are those of the members: squared, and a negative one selects the global's value at the time
// of the call.

/// left[i].IsParallelTo(right[i], angular, length): a sine squared and a squared length.
template <class Left, class Right>
void IsParallelTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
                  double angular = -1.0, double length = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsParallelTo>(
        detail::ViewOf(left, count), detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
        length);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double, class Length = double,
          class = detail::AreTolerances<Angular, Length>>
void IsParallelTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0,
                  Length length = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsParallelTo>(detail::ViewOf(left), detail::ViewOf(right),
                                                             detail::RangeOf(results), angular, length);
}
/// left[i].IsCodirectionalTo(right[i], angular, length): a sine squared and a squared length.
template <class Left, class Right>
void IsCodirectionalTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
                       double angular = -1.0, double length = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsCodirectionalTo>(
        detail::ViewOf(left, count), detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
        length);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double, class Length = double,
          class = detail::AreTolerances<Angular, Length>>
void IsCodirectionalTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0,
                       Length length = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsCodirectionalTo>(detail::ViewOf(left), detail::ViewOf(right),
                                                                  detail::RangeOf(results), angular, length);
}
/// left[i].IsPerpendicularTo(right[i], angular, length): a sine squared and a squared length.
template <class Left, class Right>
void IsPerpendicularTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
                       double angular = -1.0, double length = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsPerpendicularTo>(
        detail::ViewOf(left, count), detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
        length);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double, class Length = double,
          class = detail::AreTolerances<Angular, Length>>
void IsPerpendicularTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0,
                       Length length = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsPerpendicularTo>(detail::ViewOf(left), detail::ViewOf(right),
                                                                  detail::RangeOf(results), angular, length);
}
/// left[i].IsUnitParallelTo(right[i], angular): a sine squared.
template <class Left, class Right>
void IsUnitParallelTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
                      double angular = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsUnitParallelTo>(
        detail::ViewOf(left, count), detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
        -1.0);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double,
          class = detail::AreTolerances<Angular, double>>
void IsUnitParallelTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsUnitParallelTo>(detail::ViewOf(left), detail::ViewOf(right),
                                                                 detail::RangeOf(results), angular, -1.0);
}
/// left[i].IsUnitCodirectionalTo(right[i], angular): a sine squared.
template <class Left, class Right>
void IsUnitCodirectionalTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
                           double angular = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsUnitCodirectionalTo>(
        detail::ViewOf(left, count), detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
        -1.0);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double,
          class = detail::AreTolerances<Angular, double>>
void IsUnitCodirectionalTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsUnitCodirectionalTo>(
        detail::ViewOf(left), detail::ViewOf(right), detail::RangeOf(results), angular, -1.0);
}
/// left[i].IsUnitPerpendicularTo(right[i], angular): a sine squared.
template <class Left, class Right>
void IsUnitPerpendicularTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
                           double angular = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsUnitPerpendicularTo>(
        detail::ViewOf(left, count), detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
        -1.0);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double,
          class = detail::AreTolerances<Angular, double>>
void IsUnitPerpendicularTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0)
{
    detail::ComputeTest<detail::TestOperation::IsUnitPerpendicularTo>(
        detail::ViewOf(left), detail::ViewOf(right), detail::RangeOf(results), angular, -1.0);
}
/// left[i].IsEqualTo(right[i], angular, length) of vectors (a sine squared and a squared length), and
/// left[i].IsEqualTo(right[i], distance) of points, whose distance, a plain length, takes the angle's place.
template <class Left, class Right>
void IsEqualTo(Left const& left, Right const& right, unsigned char* results, std::size_t count,
               double angular = -1.0, double length = -1.0)
{
    auto const a = detail::ViewOf(left, count);
    constexpr auto operation = detail::isPoint<std::decay_t<decltype(*a.data)>>
                                   ? detail::TestOperation::IsPointEqualTo
                                   : detail::TestOperation::IsEqualTo;
    detail::ComputeTest<operation>(a, detail::ViewOf(right, count), detail::RangeOf(results, count), angular,
                                   length);
}
/// The same for containers.
template <class Left, class Right, class Results, class Angular = double, class Length = double,
          class = detail::AreTolerances<Angular, Length>>
void IsEqualTo(Left const& left, Right const& right, Results&& results, Angular angular = -1.0,
               Length length = -1.0)
{
    auto const a = detail::ViewOf(left);
    constexpr auto operation = detail::isPoint<std::decay_t<decltype(*a.data)>>
                                   ? detail::TestOperation::IsPointEqualTo
                                   : detail::TestOperation::IsEqualTo;
    detail::ComputeTest<operation>(a, detail::ViewOf(right), detail::RangeOf(results), angular, length);
}

// ---- Conversion --------------------------------------------------------------------------------------

/// results[i] = values[i], from double to single, rounded, or from single to double.
template <class Values, class Results, class... Count>
void Convert(Values const& values, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(values, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    using From = std::decay_t<decltype(*a.data)>;
    using To = std::decay_t<decltype(*c.data)>;
    static_assert(
        std::is_assignable_v<To&, From const&> && detail::ShapeOf<From>::size == detail::ShapeOf<To>::size
            && !std::is_same_v<detail::Element<From>, detail::Element<To>>,
        "one class is the other in the other precision");
    detail::CheckOperands(c, a);
    VEXOR_CHECK(!a.isOne, "an array is converted");
    detail::Convert(detail::OperandOf(a).data, detail::ElementsOf(c.data),
                    c.count * static_cast<std::size_t>(detail::ShapeOf<From>::size));
}

} // namespace vexor::arrays
