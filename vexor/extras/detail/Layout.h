#pragma once
#include <cstddef>
#include <type_traits>

// The element type and shape of each class, for the opt-in headers. The classes are only declared here; a
// program includes the headers of those that it uses.

class Pnt2Dbl;
class Pnt2Flt;
class Pnt3Dbl;
class Pnt3Flt;
class Vec2Dbl;
class Vec2Flt;
class Vec2Int;
class Vec3Dbl;
class Vec3Flt;
class VecDbl;
class VecFlt;
class Mat2Dbl;
class Mat3Dbl;
class MatDbl;

namespace vexor::detail {

enum class Kind { none, fixedVector, dynamicVector, fixedMatrix, dynamicMatrix };

template <class ElementType, Kind kindOfClass, int elementCount>
struct LayoutOf {
    using Element = ElementType;
    static constexpr Kind kind = kindOfClass;
    static constexpr int count = elementCount; ///< 0 for a size that is chosen at run time.
};

/// The layout of a class of the library; `Kind::none` for any other type.
template <class Value>
struct Layout : LayoutOf<void, Kind::none, 0> {};

template <>
struct Layout<Pnt2Dbl> : LayoutOf<double, Kind::fixedVector, 2> {};
template <>
struct Layout<Pnt2Flt> : LayoutOf<float, Kind::fixedVector, 2> {};
template <>
struct Layout<Pnt3Dbl> : LayoutOf<double, Kind::fixedVector, 3> {};
template <>
struct Layout<Pnt3Flt> : LayoutOf<float, Kind::fixedVector, 3> {};
template <>
struct Layout<Vec2Dbl> : LayoutOf<double, Kind::fixedVector, 2> {};
template <>
struct Layout<Vec2Flt> : LayoutOf<float, Kind::fixedVector, 2> {};
template <>
struct Layout<Vec2Int> : LayoutOf<int, Kind::fixedVector, 2> {};
template <>
struct Layout<Vec3Dbl> : LayoutOf<double, Kind::fixedVector, 3> {};
template <>
struct Layout<Vec3Flt> : LayoutOf<float, Kind::fixedVector, 3> {};
template <>
struct Layout<VecDbl> : LayoutOf<double, Kind::dynamicVector, 0> {};
template <>
struct Layout<VecFlt> : LayoutOf<float, Kind::dynamicVector, 0> {};
template <>
struct Layout<Mat2Dbl> : LayoutOf<double, Kind::fixedMatrix, 4> {};
template <>
struct Layout<Mat3Dbl> : LayoutOf<double, Kind::fixedMatrix, 9> {};
template <>
struct Layout<MatDbl> : LayoutOf<double, Kind::dynamicMatrix, 0> {};

template <class Value>
using ElementType = typename Layout<std::remove_cv_t<Value>>::Element;

template <class Value>
inline constexpr Kind kindOf = Layout<std::remove_cv_t<Value>>::kind;

template <class Value>
inline constexpr bool isVector = kindOf<Value> == Kind::fixedVector || kindOf<Value> == Kind::dynamicVector;

template <class Value>
inline constexpr bool isMatrix = kindOf<Value> == Kind::fixedMatrix || kindOf<Value> == Kind::dynamicMatrix;

/// The number of elements of a vector or point.
template <class Vector>
int VectorSize([[maybe_unused]] Vector const& vector)
{
    if constexpr (kindOf<Vector> == Kind::fixedVector)
        return Layout<Vector>::count;
    else
        return vector.Size();
}

/// The number of rows of a matrix.
template <class Matrix>
int RowsOf([[maybe_unused]] Matrix const& matrix)
{
    if constexpr (kindOf<Matrix> == Kind::fixedMatrix)
        return Layout<Matrix>::count == 4 ? 2 : 3;
    else
        return matrix.RowCount();
}

/// The number of columns of a matrix.
template <class Matrix>
int ColumnsOf([[maybe_unused]] Matrix const& matrix)
{
    if constexpr (kindOf<Matrix> == Kind::fixedMatrix)
        return RowsOf(matrix);
    else
        return matrix.ColumnCount();
}

/// The address of the first element; all elements follow it without gaps, a `MatDbl` column by column, a
/// fixed-size matrix row by row.
template <class Value>
auto* FirstElement(Value& value)
{
    if constexpr (isMatrix<Value>)
        return &value(0, 0);
    else
        return &value[0];
}

/// The number of elements.
template <class Value>
std::size_t ElementCount(Value const& value)
{
    if constexpr (isMatrix<Value>)
        return static_cast<std::size_t>(RowsOf(value)) * static_cast<std::size_t>(ColumnsOf(value));
    else
        return static_cast<std::size_t>(VectorSize(value));
}

} // namespace vexor::detail
