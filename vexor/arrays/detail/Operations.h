#pragma once
// The operations of the component's library, numbered. This header includes nothing, since the sources
// that are compiled for one instruction set include it.

namespace vexor::arrays::detail {

/// An operand of the component's library: an array of plain elements, or the elements of one value
/// that is used for all.
template <class ElementType>
struct Operand {
    ElementType const* data;
    bool isOne;
};

/// Operations on two operands that give elements.
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

/// Operations on one operand that give elements.
enum class SingleOperation {
    Negate,        ///< -vector
    LengthSquared, ///< vector.LengthSquared()
    Length,        ///< vector.Length()
    Normalize,     ///< vector.GetNormalizedCopy()
};
inline constexpr int singleOperations = 4;

/// Operations on two operands that give 1 or 0.
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

/// How a matrix is applied to vectors or points.
enum class MapOperation {
    Linear,         ///< L·x, rounded once for single elements
    LinearToSingle, ///< L·x of double elements, rounded to single and widened again
    Affine,         ///< L·x + t; for single elements L·x is rounded to single before t is added
};
inline constexpr int mapOperations = 3;

} // namespace vexor::arrays::detail
