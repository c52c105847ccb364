// Conversions to and from the types of other libraries and the arrays of graphics interfaces. Each section is
// compiled only if that library's header was included before this one. Including this header again adds the
// sections whose libraries were included since, so it has no `#pragma once` as a whole.
//
// `vexor::ToEigen(value)`, `ToGlm`, `ToImath` and `ToArray` copy to the other library;
// `vexor::From<Vec3Dbl>(peer)` copies back to the class that it names. Every copy is exact. Quaternions are
// matched by component, never by position: s is the peer's w or r. Matrices are matched by their effect on a
// vector.

#ifndef VEXOR_EXTRAS_INTEROP_H
#define VEXOR_EXTRAS_INTEROP_H

#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecFlt.h>
#include <vexor/extras/detail/Layout.h>
#include <vexor/matrices/AffMat2Dbl.h>
#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/matrices/Mat2Dbl.h>
#include <vexor/points/Pnt2Flt.h>
#include <vexor/rotations/Quaternion.h>
#include <vexor/vectors/Vec2Int.h>

#include <array>

namespace vexor {

namespace detail {

template <class Value>
inline constexpr bool isFixedVector = kindOf<Value> == Kind::fixedVector;
template <class Value>
inline constexpr int countOf = Layout<Value>::count;
template <class Value>
using IfFixedVector = std::enable_if_t<isFixedVector<Value>, int>;

/// A vector or point whose components are read from `source(i)`.
template <class Value, class Source>
Value MadeOf(Source const& source)
{
    Value result;
    for (int i = 0; i < countOf<Value>; ++i)
        result[i] = static_cast<ElementType<Value>>(source(i));
    return result;
}

template <class Source>
Mat3Dbl Mat3MadeOf(Source const& element)
{
    Mat3Dbl result;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            result(i, j) = element(i, j);
    }
    return result;
}

/// The affine map of a 4×4 matrix that acts on columns. Its last row must be exactly (0, 0, 0, 1).
template <class Source>
AffMat3Dbl AffMat3MadeOf(Source const& element)
{
    if (element(3, 0) != 0 || element(3, 1) != 0 || element(3, 2) != 0 || element(3, 3) != 1)
        throw VexorDimensionMismatch();
    AffMat3Dbl result;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j)
            result(i, j) = static_cast<double>(element(i, j));
    }
    return result;
}

/// The element of the 4×4 matrix of a map, with its implied last row.
inline double Element4x4(AffMat3Dbl const& map, int row, int column)
{
    return row < 3 ? map(row, column) : column == 3 ? 1.0 : 0.0;
}

} // namespace detail

// ---- Arrays --------------------------------------------------------------------------------------

/// Copies the components of a vector or point to an array.
template <class Value, detail::IfFixedVector<Value> = 0>
std::array<detail::ElementType<Value>, static_cast<std::size_t>(detail::countOf<Value>)>
ToArray(Value const& value)
{
    std::array<detail::ElementType<Value>, static_cast<std::size_t>(detail::countOf<Value>)> result;
    for (int i = 0; i < detail::countOf<Value>; ++i)
        result[static_cast<std::size_t>(i)] = value[i];
    return result;
}

/// Makes a vector or point from these components.
template <class Value, detail::IfFixedVector<Value> = 0>
Value From(
    std::array<detail::ElementType<Value>, static_cast<std::size_t>(detail::countOf<Value>)> const& array)
{
    return detail::MadeOf<Value>([&array](int i) { return array[static_cast<std::size_t>(i)]; });
}

/// The 4×4 matrix of the map, column by column: the translation is in elements 12 to 14. OpenGL, Vulkan and
/// Metal use this order. `Element` is double, or float with each number rounded once.
template <class Element>
std::array<Element, 16> ToColumnMajor4x4(AffMat3Dbl const& map)
{
    std::array<Element, 16> result;
    for (int i = 0; i < 16; ++i)
        result[static_cast<std::size_t>(i)] = static_cast<Element>(detail::Element4x4(map, i % 4, i / 4));
    return result;
}

/// The 4×4 matrix of the map, row by row: the translation is in elements 3, 7 and 11.
template <class Element>
std::array<Element, 16> ToRowMajor4x4(AffMat3Dbl const& map)
{
    std::array<Element, 16> result;
    for (int i = 0; i < 16; ++i)
        result[static_cast<std::size_t>(i)] = static_cast<Element>(detail::Element4x4(map, i / 4, i % 4));
    return result;
}

/// The map of a column-by-column array. Raises `VexorDimensionMismatch` unless the matrix is affine: its last
/// row must be exactly (0, 0, 0, 1).
template <class Element>
AffMat3Dbl FromColumnMajor4x4(std::array<Element, 16> const& array)
{
    return detail::AffMat3MadeOf(
        [&array](int i, int j) { return array[static_cast<std::size_t>(4 * j + i)]; });
}

/// The map of a row-by-row array. Raises as above.
template <class Element>
AffMat3Dbl FromRowMajor4x4(std::array<Element, 16> const& array)
{
    return detail::AffMat3MadeOf(
        [&array](int i, int j) { return array[static_cast<std::size_t>(4 * i + j)]; });
}

} // namespace vexor

#endif

// ---- Eigen ---------------------------------------------------------------------------------------

#if defined(EIGEN_WORLD_VERSION) && !defined(VEXOR_EXTRAS_INTEROP_EIGEN)
#define VEXOR_EXTRAS_INTEROP_EIGEN

namespace vexor {

/// A copy of a vector or point as a column.
template <class Value, detail::IfFixedVector<Value> = 0>
Eigen::Matrix<detail::ElementType<Value>, detail::countOf<Value>, 1> ToEigen(Value const& value)
{
    Eigen::Matrix<detail::ElementType<Value>, detail::countOf<Value>, 1> result;
    for (int i = 0; i < detail::countOf<Value>; ++i)
        result[i] = value[i];
    return result;
}
/// Copies a 2×2 matrix.
inline Eigen::Matrix2d ToEigen(Mat2Dbl const& matrix)
{
    Eigen::Matrix2d result;
    result << matrix(0, 0), matrix(0, 1), matrix(1, 0), matrix(1, 1);
    return result;
}
/// Copies a 3×3 matrix.
inline Eigen::Matrix3d ToEigen(Mat3Dbl const& matrix)
{
    return Eigen::Map<Eigen::Matrix<double, 3, 3, Eigen::RowMajor> const>(&matrix(0, 0));
}
/// Copies a vector of doubles of run-time size.
inline Eigen::VectorXd ToEigen(VecDbl const& vector)
{
    return Eigen::Map<Eigen::VectorXd const>(&vector[0], vector.Size());
}
/// Copies a vector of floats of run-time size.
inline Eigen::VectorXf ToEigen(VecFlt const& vector)
{
    return Eigen::Map<Eigen::VectorXf const>(&vector[0], vector.Size());
}
/// Copies a matrix of run-time size.
inline Eigen::MatrixXd ToEigen(MatDbl const& matrix)
{
    return Eigen::Map<Eigen::MatrixXd const>(&matrix(0, 0), matrix.RowCount(), matrix.ColumnCount());
}

/// Maps the elements in place: writing to the map writes to the object, which must outlive it.
template <class Value, detail::IfFixedVector<Value> = 0>
Eigen::Map<Eigen::Matrix<detail::ElementType<Value>, detail::countOf<Value>, 1>> MapEigen(Value& value)
{
    return Eigen::Map<Eigen::Matrix<detail::ElementType<Value>, detail::countOf<Value>, 1>>(&value[0]);
}
/// Maps the elements in place, row-major like the matrix.
inline Eigen::Map<Eigen::Matrix<double, 2, 2, Eigen::RowMajor>> MapEigen(Mat2Dbl& matrix)
{
    return Eigen::Map<Eigen::Matrix<double, 2, 2, Eigen::RowMajor>>(&matrix(0, 0));
}
/// Maps the elements in place, row-major like the matrix.
inline Eigen::Map<Eigen::Matrix<double, 3, 3, Eigen::RowMajor>> MapEigen(Mat3Dbl& matrix)
{
    return Eigen::Map<Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(&matrix(0, 0));
}
/// Maps the elements in place.
inline Eigen::Map<Eigen::VectorXd> MapEigen(VecDbl& vector)
{
    return Eigen::Map<Eigen::VectorXd>(&vector[0], vector.Size());
}
/// Maps the elements in place.
inline Eigen::Map<Eigen::VectorXf> MapEigen(VecFlt& vector)
{
    return Eigen::Map<Eigen::VectorXf>(&vector[0], vector.Size());
}
/// Maps the elements in place.
inline Eigen::Map<Eigen::MatrixXd> MapEigen(MatDbl& matrix)
{
    return Eigen::Map<Eigen::MatrixXd>(&matrix(0, 0), matrix.RowCount(), matrix.ColumnCount());
}

/// Makes a vector or point from a column of that size.
template <class Value, detail::IfFixedVector<Value> = 0>
Value From(Eigen::Matrix<detail::ElementType<Value>, detail::countOf<Value>, 1> const& column)
{
    return detail::MadeOf<Value>([&column](int i) { return column[i]; });
}
/// Copies a 3×3 matrix.
template <class Value, std::enable_if_t<std::is_same_v<Value, Mat3Dbl>, int> = 0>
Mat3Dbl From(Eigen::Matrix3d const& matrix)
{
    return detail::Mat3MadeOf(matrix);
}
/// Copies a 2×2 matrix.
template <class Value, std::enable_if_t<std::is_same_v<Value, Mat2Dbl>, int> = 0>
Mat2Dbl From(Eigen::Matrix2d const& matrix)
{
    return Mat2Dbl(Vec2Dbl(matrix(0, 0), matrix(0, 1)), Vec2Dbl(matrix(1, 0), matrix(1, 1)));
}
/// Copies a vector of run-time size. Raises `VexorAllocationFailed` for an empty vector.
template <class Value, std::enable_if_t<std::is_same_v<Value, VecDbl>, int> = 0>
VecDbl From(Eigen::VectorXd const& vector)
{
    VecDbl result(static_cast<int>(vector.size()));
    MapEigen(result) = vector;
    return result;
}
/// Copies a matrix of run-time size. Raises `VexorAllocationFailed` for an empty matrix.
template <class Value, std::enable_if_t<std::is_same_v<Value, MatDbl>, int> = 0>
MatDbl From(Eigen::MatrixXd const& matrix)
{
    MatDbl result(static_cast<int>(matrix.rows()), static_cast<int>(matrix.cols()));
    MapEigen(result) = matrix;
    return result;
}

/// A view on the elements, without a copy: the Eigen object must outlive it and keep its size.
inline VecDbl ViewOf(Eigen::VectorXd& vector)
{
    return VecDbl(static_cast<int>(vector.size()), vector.data());
}
/// A view on the elements, as above.
inline MatDbl ViewOf(Eigen::MatrixXd& matrix)
{
    return MatDbl(static_cast<int>(matrix.rows()), static_cast<int>(matrix.cols()), matrix.data());
}

} // namespace vexor
#endif

// <Eigen/Geometry> defines transforms and quaternions.
#if defined(EIGEN_GEOMETRY_MODULE_H) && !defined(VEXOR_EXTRAS_INTEROP_EIGEN_GEOMETRY)
#define VEXOR_EXTRAS_INTEROP_EIGEN_GEOMETRY

namespace vexor {

/// Copies the rotation, component by component.
inline Eigen::Quaterniond ToEigen(Quaternion const& q)
{
    return Eigen::Quaterniond(q.s, q.u, q.v, q.w);
}
/// Copies the map.
inline Eigen::Affine3d ToEigen(AffMat3Dbl const& map)
{
    Eigen::Affine3d result = Eigen::Affine3d::Identity();
    result.linear() = ToEigen(map.LinearPart());
    result.translation() = ToEigen(map.Translation());
    return result;
}
/// Copies the map.
inline Eigen::Affine2d ToEigen(AffMat2Dbl const& map)
{
    Eigen::Affine2d result = Eigen::Affine2d::Identity();
    result.linear() = ToEigen(map.LinearPart());
    result.translation() = ToEigen(map.Translation());
    return result;
}
/// Copies the rotation, component by component; not normalised.
template <class Value, std::enable_if_t<std::is_same_v<Value, Quaternion>, int> = 0>
Quaternion From(Eigen::Quaterniond const& q)
{
    Quaternion result;
    result.SetValue(q.x(), q.y(), q.z(), q.w(), 0);
    return result;
}
/// Copies the map.
template <class Value, std::enable_if_t<std::is_same_v<Value, AffMat3Dbl>, int> = 0>
AffMat3Dbl From(Eigen::Affine3d const& map)
{
    return AffMat3Dbl(From<Mat3Dbl>(Eigen::Matrix3d(map.linear())),
                      From<Vec3Dbl>(Eigen::Vector3d(map.translation())));
}
/// Copies the map.
template <class Value, std::enable_if_t<std::is_same_v<Value, AffMat2Dbl>, int> = 0>
AffMat2Dbl From(Eigen::Affine2d const& map)
{
    return AffMat2Dbl(From<Mat2Dbl>(Eigen::Matrix2d(map.linear())),
                      From<Vec2Dbl>(Eigen::Vector2d(map.translation())));
}

} // namespace vexor
#endif

// ---- GLM -----------------------------------------------------------------------------------------
// These are templates over GLM's qualifier, so a program needs only the GLM headers of the functions that it
// calls: <glm/glm.hpp> for vectors and matrices, <glm/gtc/quaternion.hpp> for quaternions.

#if defined(GLM_VERSION) && !defined(VEXOR_EXTRAS_INTEROP_GLM)
#define VEXOR_EXTRAS_INTEROP_GLM

namespace vexor {

/// A copy of a vector or point.
template <class Value, glm::qualifier Q = glm::defaultp, detail::IfFixedVector<Value> = 0>
glm::vec<detail::countOf<Value>, detail::ElementType<Value>, Q> ToGlm(Value const& value)
{
    glm::vec<detail::countOf<Value>, detail::ElementType<Value>, Q> result;
    for (int i = 0; i < detail::countOf<Value>; ++i)
        result[i] = value[i];
    return result;
}
/// Copies the matrix. GLM's matrix is a list of columns, `result[column][row]`.
template <glm::qualifier Q = glm::defaultp>
glm::mat<2, 2, double, Q> ToGlm(Mat2Dbl const& matrix)
{
    return glm::mat<2, 2, double, Q>(matrix(0, 0), matrix(1, 0), matrix(0, 1), matrix(1, 1));
}
/// Copies the matrix. GLM's matrix is a list of columns, `result[column][row]`.
template <glm::qualifier Q = glm::defaultp>
glm::mat<3, 3, double, Q> ToGlm(Mat3Dbl const& matrix)
{
    return glm::mat<3, 3, double, Q>(ToGlm(matrix.GetCol(0)), ToGlm(matrix.GetCol(1)),
                                     ToGlm(matrix.GetCol(2)));
}
/// Copies the map to a 4×4 matrix.
template <glm::qualifier Q = glm::defaultp>
glm::mat<4, 4, double, Q> ToGlm(AffMat3Dbl const& map)
{
    glm::mat<4, 4, double, Q> result;
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row)
            result[column][row] = detail::Element4x4(map, row, column);
    }
    return result;
}
/// Copies the rotation, component by component, whatever the order in which GLM stores them.
template <glm::qualifier Q = glm::defaultp>
glm::qua<double, Q> ToGlm(Quaternion const& q)
{
    glm::qua<double, Q> result;
    result.x = q.u;
    result.y = q.v;
    result.z = q.w;
    result.w = q.s;
    return result;
}

/// Makes a vector or point from these components.
template <class Value, glm::qualifier Q, detail::IfFixedVector<Value> = 0>
Value From(glm::vec<detail::countOf<Value>, detail::ElementType<Value>, Q> const& vector)
{
    return detail::MadeOf<Value>([&vector](int i) { return vector[i]; });
}
/// Copies a 2×2 matrix.
template <class Value, glm::qualifier Q, std::enable_if_t<std::is_same_v<Value, Mat2Dbl>, int> = 0>
Mat2Dbl From(glm::mat<2, 2, double, Q> const& matrix)
{
    return Mat2Dbl(Vec2Dbl(matrix[0][0], matrix[1][0]), Vec2Dbl(matrix[0][1], matrix[1][1]));
}
/// Copies a 3×3 matrix.
template <class Value, glm::qualifier Q, std::enable_if_t<std::is_same_v<Value, Mat3Dbl>, int> = 0>
Mat3Dbl From(glm::mat<3, 3, double, Q> const& matrix)
{
    return detail::Mat3MadeOf([&matrix](int i, int j) { return matrix[j][i]; });
}
/// Copies the map. Raises `VexorDimensionMismatch` unless the last row is exactly (0, 0, 0, 1).
template <class Value, glm::qualifier Q, std::enable_if_t<std::is_same_v<Value, AffMat3Dbl>, int> = 0>
AffMat3Dbl From(glm::mat<4, 4, double, Q> const& matrix)
{
    return detail::AffMat3MadeOf([&matrix](int i, int j) { return matrix[j][i]; });
}
/// Copies the rotation, component by component; not normalised.
template <class Value, glm::qualifier Q, std::enable_if_t<std::is_same_v<Value, Quaternion>, int> = 0>
Quaternion From(glm::qua<double, Q> const& q)
{
    Quaternion result;
    result.SetValue(q.x, q.y, q.z, q.w, 0);
    return result;
}

} // namespace vexor
#endif

// ---- Imath ---------------------------------------------------------------------------------------
// Imath multiplies a row from the left: v * M. So its matrix is the transpose of the one that acts on a
// column.

#if defined(INCLUDED_IMATHVEC_H) && !defined(VEXOR_EXTRAS_INTEROP_IMATH_VECTORS)
#define VEXOR_EXTRAS_INTEROP_IMATH_VECTORS

namespace vexor {

/// A copy of a vector or point.
template <class Value, detail::IfFixedVector<Value> = 0>
auto ToImath(Value const& value)
{
    using Element = detail::ElementType<Value>;
    if constexpr (detail::countOf<Value> == 2)
        return Imath::Vec2<Element>(value[0], value[1]);
    else
        return Imath::Vec3<Element>(value[0], value[1], value[2]);
}
/// Makes a vector or point from these components.
template <class Value, std::enable_if_t<detail::isFixedVector<Value> && detail::countOf<Value> == 2, int> = 0>
Value From(Imath::Vec2<detail::ElementType<Value>> const& vector)
{
    return Value(vector.x, vector.y);
}
/// Makes a vector or point in space from these components.
template <class Value, std::enable_if_t<detail::isFixedVector<Value> && detail::countOf<Value> == 3, int> = 0>
Value From(Imath::Vec3<detail::ElementType<Value>> const& vector)
{
    return Value(vector.x, vector.y, vector.z);
}

} // namespace vexor
#endif

#if defined(INCLUDED_IMATHMATRIX_H) && !defined(VEXOR_EXTRAS_INTEROP_IMATH_MATRICES)
#define VEXOR_EXTRAS_INTEROP_IMATH_MATRICES

namespace vexor {

/// The matrix with the same effect on a row: the transpose.
inline Imath::M33d ToImath(Mat3Dbl const& m)
{
    return Imath::M33d(m(0, 0), m(1, 0), m(2, 0), m(0, 1), m(1, 1), m(2, 1), m(0, 2), m(1, 2), m(2, 2));
}
/// The matrix with the same effect on a row: the translation is in the last row.
inline Imath::M44d ToImath(AffMat3Dbl const& map)
{
    Imath::M44d result;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j)
            result[j][i] = detail::Element4x4(map, i, j);
    }
    return result;
}
/// The matrix with the same effect on a column: the transpose.
template <class Value, std::enable_if_t<std::is_same_v<Value, Mat3Dbl>, int> = 0>
Mat3Dbl From(Imath::M33d const& matrix)
{
    return detail::Mat3MadeOf([&matrix](int i, int j) { return matrix[j][i]; });
}
/// The map with the same effect on a column. Raises `VexorDimensionMismatch` unless the last column is
/// exactly (0, 0, 0, 1).
template <class Value, std::enable_if_t<std::is_same_v<Value, AffMat3Dbl>, int> = 0>
AffMat3Dbl From(Imath::M44d const& matrix)
{
    return detail::AffMat3MadeOf([&matrix](int i, int j) { return matrix[j][i]; });
}

} // namespace vexor
#endif

#if defined(INCLUDED_IMATHQUAT_H) && !defined(VEXOR_EXTRAS_INTEROP_IMATH_QUATERNIONS)
#define VEXOR_EXTRAS_INTEROP_IMATH_QUATERNIONS

namespace vexor {

/// Copies the rotation, component by component.
inline Imath::Quatd ToImath(Quaternion const& q)
{
    return Imath::Quatd(q.s, q.u, q.v, q.w);
}
/// Copies the rotation, component by component; not normalised.
template <class Value, std::enable_if_t<std::is_same_v<Value, Quaternion>, int> = 0>
Quaternion From(Imath::Quatd const& q)
{
    Quaternion result;
    result.SetValue(q.v.x, q.v.y, q.v.z, q.r, 0);
    return result;
}

} // namespace vexor
#endif
