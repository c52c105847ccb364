#pragma once
#include <vexor/arrays/detail/Functions.h>

// Matrices, affine maps and quaternions over arrays of vectors and points: `map * x[i]` and
// `quaternion.RotatePoint(x[i])`, with the bits of the operator for those classes. The forms, with and
// without a count, are those of Vectors.h.

namespace vexor::arrays {

namespace detail {

/// The elements of a map row by row, then its translation. `ElementsOfMap` lists them all, since g++ clears an array that is
/// assigned element by element first: 10 ns a call.
template <int count>
struct MapElements {
    double values[count];
};

inline MapElements<12> ElementsOfMap(Mat3Dbl const& matrix, Vec3Dbl const& translation = Vec3Dbl(0.0))
{
    return {{matrix(0, 0), matrix(0, 1), matrix(0, 2), matrix(1, 0), matrix(1, 1), matrix(1, 2), matrix(2, 0),
             matrix(2, 1), matrix(2, 2), translation.x, translation.y, translation.z}};
}

inline MapElements<6> ElementsOfMap(Mat2Dbl const& matrix, Vec2Dbl const& translation = Vec2Dbl(0.0))
{
    return {{matrix(0, 0), matrix(0, 1), matrix(1, 0), matrix(1, 1), translation.x, translation.y}};
}

inline MapElements<12> ElementsOfMap(AffMat3Dbl const& map)
{
    return ElementsOfMap(map.LinearPart(), map.Translation());
}

inline MapElements<6> ElementsOfMap(AffMat2Dbl const& map)
{
    return ElementsOfMap(map.LinearPart(), map.Translation());
}

template <class Value>
inline constexpr bool isMap =
    std::is_same_v<
        Value,
        Mat3Dbl> || std::is_same_v<Value, Mat2Dbl> || std::is_same_v<Value, AffMat3Dbl> || std::is_same_v<Value, AffMat2Dbl>;

/// How the operator of these two classes works: a map in space translates points, one in the plane singles
/// of both kinds, and a `Mat3Dbl` rounds a point's coordinates to single.
template <class MapClass, class Value>
constexpr MapOperation OperationOf()
{
    constexpr bool isAffine = std::is_same_v<MapClass, AffMat3Dbl> || std::is_same_v<MapClass, AffMat2Dbl>;
    constexpr bool isTranslated =
        std::is_same_v<
            Value,
            Pnt3Dbl> || std::is_same_v<Value, Pnt3Flt> || std::is_same_v<Value, Pnt2Dbl> || std::is_same_v<Value, Pnt2Flt> || std::is_same_v<Value, Vec2Flt>;
    if (isAffine && isTranslated)
        return MapOperation::Affine;
    return std::is_same_v<MapClass, Mat3Dbl> && std::is_same_v<Value, Pnt3Dbl> ? MapOperation::LinearToSingle
                                                                               : MapOperation::Linear;
}

template <class Value>
Matrices MatricesOf(View<Value> const& view)
{
    static_assert(std::is_same_v<Value, Mat3Dbl>, "matrices are Mat3Dbl");
    return {view.data, view.isOne};
}

inline Operand<double> OperandOfQuaternions(View<Quaternion> const& view)
{
    return {&view.data->u, view.isOne};
}

/// The product of two views, by what they consist of.
template <class Left, class Right, class Result>
void MultiplyViews(View<Left> const& left, View<Right> const& right, Range<Result> const& results)
{
    static_assert(std::is_same_v<Result, std::decay_t<decltype(*left.data * *right.data)>>,
                  "the results have the type that the operator gives");
    CheckOperands(results, left, right);
    if constexpr (std::is_same_v<Left, Quaternion>) {
        MultiplyQuaternions(OperandOfQuaternions(left), OperandOfQuaternions(right), &results.data->u,
                            results.count);
    } else if constexpr (std::is_same_v<Left, Mat3Dbl> && std::is_same_v<Right, Mat3Dbl>) {
        MultiplyMatrices(MatricesOf(left), MatricesOf(right), results.data, results.count);
    } else {
        static_assert(
            isMap<Left> && !isMap<Right>,
            "products are of matrices or affine maps and vectors or points, of Mat3Dbl, of quaternions");
        if (left.isOne && !right.isOne) {
            auto const map = ElementsOfMap(*left.data);
            Map<Element<Right>, ShapeOf<Right>::size>(OperationOf<Left, Right>(), map.values,
                                                      OperandOf(right).data, ElementsOf(results.data),
                                                      results.count);
        } else if constexpr (std::is_same_v<Left, Mat3Dbl> && std::is_same_v<Right, Vec3Dbl>) {
            MultiplyVectors(MatricesOf(left), OperandOf(right), ElementsOf(results.data), results.count);
        } else {
            Left const map(*left.data); // the results may be written over one value
            Right const value(*right.data);
            for (std::size_t i = 0; i < results.count; ++i)
                results.data[i] = (left.isOne ? map : left.data[i]) * (right.isOne ? value : right.data[i]);
        }
    }
}

} // namespace detail

/// left[i] * right[i]: `Mat3Dbl`, `AffMat3Dbl`, `Mat2Dbl` and `AffMat2Dbl` times vectors and points,
/// `Mat3Dbl` times `Mat3Dbl`, `Quaternion` times `Quaternion`.
template <class Left, class Right, class Results, class... Count>
void Multiply(Left const& left, Right const& right, Results&& results, Count... count)
{
    detail::MultiplyViews(detail::ViewOf(left, static_cast<std::size_t>(count)...),
                          detail::ViewOf(right, static_cast<std::size_t>(count)...),
                          detail::RangeOf(results, static_cast<std::size_t>(count)...));
}

/// quaternions[i].RotatePoint(points[i]), of vectors or points.
template <class Quaternions, class Points, class Results, class... Count>
void RotatePoint(Quaternions const& quaternions, Points const& points, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(quaternions, static_cast<std::size_t>(count)...);
    auto const b = detail::ViewOf(points, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    static_assert(
        std::is_same_v<std::decay_t<decltype(*c.data)>, std::decay_t<decltype(a.data->RotatePoint(*b.data))>>,
        "the results have the type that the member gives");
    detail::CheckOperands(c, a, b);
    detail::RotatePoint(detail::OperandOfQuaternions(a), detail::OperandOf(b), detail::ElementsOf(c.data),
                        c.count);
}

/// quaternions[i].GetRotationMatrix(results[i]).
template <class Quaternions, class Results, class... Count>
void GetRotationMatrix(Quaternions const& quaternions, Results&& results, Count... count)
{
    auto const a = detail::ViewOf(quaternions, static_cast<std::size_t>(count)...);
    auto const c = detail::RangeOf(results, static_cast<std::size_t>(count)...);
    detail::CheckOperands(c, a);
    detail::GetRotationMatrix(a.data, c.data, c.count);
}

} // namespace vexor::arrays
