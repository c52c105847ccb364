#pragma once
#include <vexor/arrays/detail/Export.h>
#include <vexor/arrays/detail/Operands.h>
#include <vexor/arrays/detail/Operations.h>

// The exported functions of the component: few, over plain elements. The headers in the folder above add
// the classes. `dimension` is 2 or 3, and the element type double or float.

namespace vexor::arrays::detail {

template <class ElementType, int dimension>
VEXOR_ARRAYS_API void Compute(PairOperation operation, Operand<ElementType> left, Operand<ElementType> right,
                              ElementType* results, std::size_t count);

template <class ElementType, int dimension>
VEXOR_ARRAYS_API void Compute(SingleOperation operation, ElementType const* operands, ElementType* results,
                              std::size_t count);

/// The tolerances as in the members: a negative one selects the global's.
template <class ElementType, int dimension>
VEXOR_ARRAYS_API void Test(TestOperation operation, Operand<ElementType> left, Operand<ElementType> right,
                           ElementType angular, ElementType length, unsigned char* results,
                           std::size_t count);

/// The matrix row by row, then the translation: dimension·(dimension + 1) numbers.
template <class ElementType, int dimension>
VEXOR_ARRAYS_API void Map(MapOperation operation, double const* map, ElementType const* operands,
                          ElementType* results, std::size_t count);

/// Rounds doubles to single, or widens singles; the count is that of elements.
VEXOR_ARRAYS_API void Convert(double const* from, float* to, std::size_t count);
VEXOR_ARRAYS_API void Convert(float const* from, double* to, std::size_t count);

/// Vectors of three doubles, turned by `Quaternion::RotatePoint`.
VEXOR_ARRAYS_API void RotatePoint(Operand<double> quaternions, Operand<double> points, double* results,
                                  std::size_t count);
/// Products of quaternions.
VEXOR_ARRAYS_API void MultiplyQuaternions(Operand<double> left, Operand<double> right, double* results,
                                          std::size_t count);
VEXOR_ARRAYS_API void GetRotationMatrix(Quaternion const* quaternions, Mat3Dbl* results, std::size_t count);

/// One matrix, or an array of them.
struct Matrices {
    Mat3Dbl const* data;
    bool isOne;
};

VEXOR_ARRAYS_API void MultiplyMatrices(Matrices left, Matrices right, Mat3Dbl* results, std::size_t count);
VEXOR_ARRAYS_API void MultiplyVectors(Matrices matrices, Operand<double> vectors, double* results,
                                      std::size_t count);
VEXOR_ARRAYS_API void Invert(Mat3Dbl const* matrices, Mat3Dbl* results, std::size_t count);
VEXOR_ARRAYS_API void Solve(Matrices matrices, Operand<double> rightSides, double* results,
                            std::size_t count);
/// `vectors` is null if they are not requested.
VEXOR_ARRAYS_API void EigenSym(Mat3Dbl const* matrices, Vec3Dbl* eigenValues, Mat3Dbl* vectors,
                               std::size_t count);

/// The pieces of Sums.h for a block; `dimension` is 1, 2 or 3. The products are those of the upper triangle,
/// row by row.
template <class ElementType, int dimension>
VEXOR_ARRAYS_API void SumBlock(ElementType const* elements, std::size_t count, double* sum);
template <class ElementType, int dimension>
VEXOR_ARRAYS_API void CovarianceBlock(ElementType const* elements, std::size_t count, double const* centroid,
                                      double* products);
template <class ElementType, int dimension>
VEXOR_ARRAYS_API void ExtremesBlock(ElementType const* elements, std::size_t count, ElementType* least,
                                    ElementType* greatest);

} // namespace vexor::arrays::detail
