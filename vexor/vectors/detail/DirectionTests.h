#pragma once
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/foundation/detail/Tolerance.h>

#include <limits>

// The geometry that all six floating-point vector classes share, as templates over the element type. Each
// class passes its own dot product d and squared lengths A and B, rounded by its own rules. Everything else
// is computed in double and rounded at the points named here; for double elements these do nothing.
//
// Tests of direction return int and combine with &, without branches, so that a caller's loop vectorises.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// 1 unless one of the two squared lengths counts as zero. A squared length of 0 always does, even if the
/// tolerance is NaN. If either is NaN, the result is meaningless, and the squared cosine is NaN.
template <class Element>
inline int AreBothLonger(Element a, Element b, Element lengthArgument)
{
    Element const argument = LengthTolerance(lengthArgument);
    Element const tolerance = argument > Element(0) ? argument : Element(0);
    Element const smaller = a < b ? a : b;
    return !(smaller <= tolerance);
}

/// The squared cosine ((d·d) / A) / B, in double and without a root.
///
/// 0 / 0 would raise FE_INVALID for vectors that count as zero anyway. So the divisor is the larger of itself
/// and the smallest double. In a loop over vectors that costs up to 3 %; with g++ for AVX2, which uses
/// blends, 10 to 15 %. A comparison with 0 costs 5 to 20 %, and a branch keeps the loop from vectorising. A
/// NaN is replaced as well; the dot product is a NaN then, and so is the result.
template <class Element>
inline double SquaredCosine(Element d, Element a, Element b)
{
    constexpr double least = std::numeric_limits<double>::denorm_min();
    double const dot = d;
    double const wideA = a;
    double const wideB = b;
    return ((dot * dot) / (wideA > least ? wideA : least)) / (wideB > least ? wideB : least);
}

/// 1 if 1 − cos² is within the tolerance, a sine squared. It is not clamped: a value that rounding makes
/// negative passes.
template <class Element>
inline int AreParallel(Element d, Element a, Element b, Element angularArgument)
{
    return Round<Element>(1.0 - SquaredCosine(d, a, b)) <= AngularTolerance(angularArgument);
}

/// 1 if cos² is within the tolerance, the sine squared of the deviation from a right angle.
template <class Element>
inline int ArePerpendicular(Element d, Element a, Element b, Element angularArgument)
{
    return Round<Element>(SquaredCosine(d, a, b)) <= AngularTolerance(angularArgument);
}

/// 1 if |1 − d²| is within the tolerance, a sine squared, for unit vectors. The caller ensures that they are
/// unit.
template <class Element>
inline int AreUnitParallel(Element d, Element angularArgument)
{
    double const dot = d;
    return Magnitude(Round<Element>(1.0 - dot * dot)) <= AngularTolerance(angularArgument);
}

/// 1 if d² is within the tolerance, a sine squared, for unit vectors. The caller ensures that they are unit.
template <class Element>
inline int AreUnitPerpendicular(Element d, Element angularArgument)
{
    double const dot = d;
    return Round<Element>(dot * dot) <= AngularTolerance(angularArgument);
}

/// The angle in radians, from 0 to π; 0 if a length is exactly 0. The quotient stays in double.
template <class Element>
inline Element UnsignedAngle(Element d, Element lengthA, Element lengthB)
{
    if (lengthA == Element(0) || lengthB == Element(0))
        return Element(0);
    double const dot = d;
    return Round<Element>(ClampedArcCosine((dot / lengthA) / lengthB));
}

/// 0.5·√(A·B − d·d), the area of the triangle that two vectors span. The difference is not clamped:
/// for nearly parallel vectors rounding can make it negative, and the area is then NaN.
template <class Element>
inline Element TriangleArea(Element d, Element a, Element b)
{
    double const dot = d;
    double const squaredA = a;
    double const difference = Round<Element>(squaredA * b - dot * dot);
    double const root = Round<Element>(SquareRoot(difference));
    return Round<Element>(0.5 * root);
}

/// Equality within tolerances: the same direction within a sine squared, and a difference within a squared
/// length. Exactly null vectors equal only each other. The direction test uses the global length tolerance
/// and not the caller's, so a vector within it that is not null is unequal even to itself. `squaredDistance`
/// gives the squared length of the difference of the two.
template <class Vector, class Element, class SquaredDistance>
inline int AreEqual(Vector const& left, Vector const& right, Element angular, Element length,
                    SquaredDistance squaredDistance)
{
    if (left.IsNull())
        return right.IsNull();
    if (right.IsNull())
        return 0;
    if (!left.IsCodirectionalTo(right, angular, Element(-1)))
        return 0;
    return squaredDistance(left, right) <= LengthTolerance(length);
}

} // namespace vexor::detail

VEXOR_EXACT_END
