#pragma once
// The operations of the component's library by their numbers. This header includes nothing, as the sources
// that are compiled for one instruction set include it.

namespace vexor::arrays::detail {

/// An operand as the component's library takes it: an array of plain elements, or the elements of one value
/// that serves for all.
template <class ElementType>
struct Operand {
    ElementType const* data;
    bool isOne;
};

/// What takes two operands and gives elements.
enum class PairOperation {
    Add,          ///< left + right
    Subtract,     ///< left - right
    ElemMult,     ///< left.ElemMult(right)
    Scale,        ///< left * right; right is scalars
    Cross,        ///< left.Cross(right): a vector in space, a scalar in the plane
    Dot,          ///< left.Dot(right)
    DistanceSqTo, ///< left.DistanceSqTo(right)
    DistanceTo,   ///< left.DistanceTo(right)
    GetAngleWith, ///< left.GetAngleWith(right)
};
inline constexpr int pairOperations = 9;

/// What takes one operand and gives elements.
enum class SingleOperation {
    Negate,        ///< -vector
    LengthSquared, ///< vector.LengthSquared()
    Length,        ///< vector.Length()
    Normalize,     ///< vector.GetNormalizedCopy()
};
inline constexpr int singleOperations = 4;

/// What takes two operands and gives 1 or 0.
enum class TestOperation {
    IsParallelTo,
    IsCodirectionalTo,
    IsPerpendicularTo,
    IsUnitParallelTo,
    IsUnitCodirectionalTo,
    IsUnitPerpendicularTo,
    IsEqualTo,      ///< of vectors
    IsPointEqualTo, ///< of points; the angular tolerance is the distance
};
inline constexpr int testOperations = 8;

/// How a matrix acts on vectors or points.
enum class MapOperation {
    Linear,         ///< L·x, rounded once for single elements
    LinearToSingle, ///< L·x of double elements, rounded to single and widened again
    Affine,         ///< L·x + t; for single elements L·x is rounded to single before t is added
};
inline constexpr int mapOperations = 3;

} // namespace vexor::arrays::detail
