#pragma once
#include <vexor/vectors/Vec3Dbl.h>

class Vec2Flt;
class Pnt2Dbl;
class Pnt2Flt;
class Mat2Dbl;

VEXOR_EXACT_BEGIN

/// A vector in the plane: two doubles and nothing else, laid out as an array of two.
///
/// Rounding, tolerances and results of predicates are as in `Vec3Dbl`. The differences: the cross product is
/// a scalar, the area of a triangle is signed, a perpendicular has a definite side, the counter-clockwise
/// angle needs no normal, and on a tie the second component wins.
class VEXOR_CLASS Vec2Dbl {
public:
    double x; ///< Component 0.
    double y; ///< Component 1.

    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the components unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Vec2Dbl() { vexor::detail::LeaveUnset(x, y); }
    /// Sets both components to the value.
    VEXOR_INLINE constexpr Vec2Dbl(double value) : x(value), y(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec2Dbl(Integer value) : Vec2Dbl(static_cast<double>(value))
    {}
    /// Sets the components, in order.
    VEXOR_INLINE constexpr Vec2Dbl(double x0, double y0) : x(x0), y(y0) {}
    /// Copies two doubles from the array.
    VEXOR_INLINE constexpr Vec2Dbl(double* values) : x(values[0]), y(values[1]) {}
    /// Copies both components.
    Vec2Dbl(Vec2Dbl const&) = default;
    /// Widens each component exactly. Requires Vec2Flt.h.
    VEXOR_INLINE Vec2Dbl(Vec2Flt const& other);
    ~Vec2Dbl() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies both components.
    Vec2Dbl& operator=(Vec2Dbl const&) = default;
    /// Widens each component exactly. Requires Vec2Flt.h.
    VEXOR_INLINE Vec2Dbl& operator=(Vec2Flt const& other);
    /// Copies the point's coordinates. Requires Pnt2Dbl.h.
    VEXOR_INLINE constexpr Vec2Dbl& operator=(Pnt2Dbl const& point);
    /// Copies the point's coordinates, widened exactly. Requires Pnt2Flt.h.
    VEXOR_INLINE Vec2Dbl& operator=(Pnt2Flt const& point);

    /// Sets both components to the value.
    VEXOR_INLINE constexpr Vec2Dbl& SetValue(double value) { return SetValue(value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec2Dbl& SetValue(Integer value)
    {
        return SetValue(static_cast<double>(value));
    }
    /// Sets the components, in order.
    VEXOR_INLINE constexpr Vec2Dbl& SetValue(double x0, double y0)
    {
        x = x0;
        y = y0;
        return *this;
    }
    /// Copies two doubles from the array.
    VEXOR_INLINE constexpr Vec2Dbl& SetValue(double const* const values)
    {
        return SetValue(values[0], values[1]);
    }

    /// Writes the components to the arguments, in order.
    VEXOR_INLINE constexpr void GetValue(double& x0, double& y0) const
    {
        double const copy[2] = {x, y}; // an argument may be one of our own components
        x0 = copy[0];
        y0 = copy[1];
    }
    /// Writes the components to the array, in order.
    VEXOR_INLINE constexpr void GetValue(double* const values) const { GetValue(values[0], values[1]); }

    /// The component of the index 0 or 1. The index is not checked.
    VEXOR_INLINE constexpr double& operator[](int index)
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index, x, y)
                                          : vexor::detail::ElementOf<double, 2>(*this, index);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator[](int index) const
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index, x, y)
                                          : vexor::detail::ElementOf<double const, 2>(*this, index);
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE constexpr double& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator()(int index) const { return (*this)[index]; }

    /// Rounds each component to single. Requires Vec2Flt.h.
    VEXOR_INLINE Vec2Flt ToVec2Flt() const;

    // ---- Arithmetic --------------------------------------------------------------------------

    /// Multiplies each component by the scalar.
    VEXOR_INLINE constexpr Vec2Dbl& operator*=(double scalar) { return SetValue(x * scalar, y * scalar); }
    /// Divides each component by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE constexpr Vec2Dbl& operator/=(double scalar) { return SetValue(x / scalar, y / scalar); }
    /// Adds component by component.
    VEXOR_INLINE constexpr Vec2Dbl& operator+=(Vec2Dbl const& other)
    {
        return SetValue(x + other.x, y + other.y);
    }
    /// Subtracts component by component.
    VEXOR_INLINE constexpr Vec2Dbl& operator-=(Vec2Dbl const& other)
    {
        return SetValue(x - other.x, y - other.y);
    }
    /// Flips the sign of each component; 0 becomes −0.
    VEXOR_INLINE constexpr Vec2Dbl& Negate() { return SetValue(-x, -y); }
    /// The negated copy.
    VEXOR_INLINE constexpr Vec2Dbl GetNegatedCopy() const { return Vec2Dbl(-x, -y); }

    // ---- Products ----------------------------------------------------------------------------

    /// The dot product x·ox + y·oy, a plain sum, with the range of `Vec3Dbl::Dot`.
    VEXOR_INLINE constexpr double Dot(Vec2Dbl const& other) const { return x * other.x + y * other.y; }
    /// The cross product, the scalar x·oy − y·ox: above 0 if `other` lies counter-clockwise of this vector.
    VEXOR_INLINE constexpr double Cross(Vec2Dbl const& other) const { return x * other.y - y * other.x; }
    /// The component-wise product.
    VEXOR_INLINE constexpr Vec2Dbl ElemMult(Vec2Dbl const& other) const
    {
        return Vec2Dbl(x * other.x, y * other.y);
    }
    /// The component-wise quotient. A zero divisor is not checked.
    VEXOR_INLINE constexpr Vec2Dbl ElemDiv(Vec2Dbl const& other) const
    {
        return Vec2Dbl(x / other.x, y / other.y);
    }
    /// The outer product: row i, column j is this[i]·other[j]. Requires Mat2Dbl.h.
    VEXOR_INLINE constexpr Mat2Dbl OuterProduct(Vec2Dbl const& other) const;

    // ---- Length ------------------------------------------------------------------------------

    /// The squared length x² + y², a plain sum, with the range of `Vec3Dbl::LengthSquared`.
    VEXOR_INLINE constexpr double LengthSquared() const { return x * x + y * y; }
    /// The square root of x² + y², accurate over the whole range of a double, as in `Vec3Dbl`.
    VEXOR_INLINE double Length() const
    {
        double const sum = LengthSquared();
        if (vexor::detail::IsPlainSum(sum))
            return vexor::detail::SquareRoot(sum);
        double const components[] = {x, y};
        return vexor::detail::FullRangeLength(components, 2);
    }
    /// Divides each component by `Length()`. Raises `VexorNullVector`, with the vector unchanged, if both
    /// components are exactly 0. Any other vector is normalised, even if `Length()` itself is outside the
    /// range of a double.
    VEXOR_INLINE Vec2Dbl& Normalize()
    {
        double const sum = LengthSquared();
        if (vexor::detail::IsPlainSum(sum))
            return *this /= vexor::detail::SquareRoot(sum);
        // Works on a copy, so that nothing takes the address of a vector that could stay in registers.
        double components[] = {x, y};
        vexor::detail::FullRangeNormalize(components, 2);
        return SetValue(components[0], components[1]);
    }
    /// The normalised vector, by `Normalize` on a copy.
    VEXOR_INLINE Vec2Dbl GetNormalizedCopy() const
    {
        Vec2Dbl copy(*this);
        copy.Normalize();
        return copy;
    }

    // ---- Extremes ----------------------------------------------------------------------------
    // On a tie, or if either component is NaN, y (index 1) wins, for maximum and minimum alike. The absolute
    // value is v if v > 0, else −v, so that of (0, 0) is −0.

    /// The largest component.
    VEXOR_INLINE constexpr double MaxValue() const { return vexor::detail::MaxOfTwo(x, y); }
    /// The smallest component.
    VEXOR_INLINE constexpr double MinValue() const { return vexor::detail::MinOfTwo(x, y); }
    /// The largest absolute value.
    VEXOR_INLINE constexpr double MaxAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxOfTwo(Magnitude(x), Magnitude(y));
    }
    /// The smallest absolute value.
    VEXOR_INLINE constexpr double MinAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinOfTwo(Magnitude(x), Magnitude(y));
    }
    /// The index of the largest component.
    VEXOR_INLINE constexpr int MaxValueIdx() const { return vexor::detail::MaxIndexOfTwo(x, y); }
    /// The index of the smallest component.
    VEXOR_INLINE constexpr int MinValueIdx() const { return vexor::detail::MinIndexOfTwo(x, y); }
    /// The index of the largest absolute value.
    VEXOR_INLINE constexpr int MaxAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxIndexOfTwo(Magnitude(x), Magnitude(y));
    }
    /// The index of the smallest absolute value.
    VEXOR_INLINE constexpr int MinAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinIndexOfTwo(Magnitude(x), Magnitude(y));
    }

    // ---- Exact comparison --------------------------------------------------------------------

    /// 1 if both components are exactly 0, of either sign. Uses no tolerance.
    VEXOR_INLINE constexpr int IsNull() const { return int(x == 0.0) & int(y == 0.0); }
    /// 1 if `LengthSquared()` is within the tolerance, a squared length.
    VEXOR_INLINE int IsZeroLength(double length = -1.0) const
    {
        return LengthSquared() <= vexor::detail::LengthTolerance(length);
    }
    /// Exact equality of all components; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(Vec2Dbl const& other) const
    {
        return int(x == other.x) & int(y == other.y);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Vec2Dbl const& other) const { return !(*this == other); }
    /// Strict lexicographic order: the first component that is not equal decides. A NaN there gives 0.
    VEXOR_INLINE constexpr int operator<(Vec2Dbl const& other) const
    {
        if (!(x == other.x))
            return x < other.x;
        return y < other.y;
    }
    /// 1 if both components are less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsLessThan(Vec2Dbl const& other) const
    {
        return int(x <= other.x) & int(y <= other.y);
    }
    /// 1 if both components are greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsGreaterThan(Vec2Dbl const& other) const
    {
        return int(x >= other.x) & int(y >= other.y);
    }

    // ---- Direction within a tolerance: as in Vec3Dbl -----------------------------------------
    // With d the dot product and A, B the squared lengths, Q = ((d·d) / A) / B is the squared cosine. A
    // vector whose squared length is within the length tolerance has no direction: `IsParallelTo`,
    // `IsCodirectionalTo` and `IsPerpendicularTo` return 0 for it. The unit forms do not test the length. The
    // results are correct for vectors of length between about 1e-77 and 1e77; `Vec3Dbl` documents the results
    // for others.

    /// 1 if the directions agree within `angular`, a sine squared, and the difference is within `length`, a
    /// squared length. Two exactly null vectors are equal. A vector that is not null but within the global's
    /// length tolerance is unequal to everything, even to itself, for every `length`.
    VEXOR_INLINE int IsEqualTo(Vec2Dbl const& other, double angular = -1.0, double length = -1.0) const;
    /// 1 if 1 − Q is within `angular`, a sine squared (parallel or antiparallel); `length` is a squared
    /// length.
    VEXOR_INLINE int IsParallelTo(Vec2Dbl const& other, double angular = -1.0, double length = -1.0) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::AreParallel(Dot(other), a, b, angular);
    }
    /// 1 if parallel (`angular` a sine squared, `length` a squared length) and the dot product is above 0.
    VEXOR_INLINE int IsCodirectionalTo(Vec2Dbl const& other, double angular = -1.0,
                                       double length = -1.0) const
    {
        return int(Dot(other) > 0.0) & IsParallelTo(other, angular, length);
    }
    /// 1 if Q is within `angular`, a sine squared; `length` is a squared length.
    VEXOR_INLINE int IsPerpendicularTo(Vec2Dbl const& other, double angular = -1.0,
                                       double length = -1.0) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::ArePerpendicular(Dot(other), a, b, angular);
    }
    /// For two unit vectors: 1 if |1 − d·d| is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitParallelTo(Vec2Dbl const& other, double angular = -1.0) const
    {
        return vexor::detail::AreUnitParallel(Dot(other), angular);
    }
    /// For two unit vectors: 1 if parallel as above, within a sine squared, and d is above 0.
    VEXOR_INLINE int IsUnitCodirectionalTo(Vec2Dbl const& other, double angular = -1.0) const
    {
        return int(Dot(other) > 0.0) & IsUnitParallelTo(other, angular);
    }
    /// For two unit vectors: 1 if d·d is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitPerpendicularTo(Vec2Dbl const& other, double angular = -1.0) const
    {
        return vexor::detail::AreUnitPerpendicular(Dot(other), angular);
    }

    // ---- Angles and area ---------------------------------------------------------------------

    /// The unsigned angle in radians, from 0 to π; 0 if one of the vectors is exactly null. Correct over the
    /// whole range of a double. An arc cosine loses half the digits near 0 and π: below about 1.5e-8 the
    /// angle is 0. docs/conventions.md shows how to get a small angle with all digits.
    VEXOR_INLINE double GetAngleWith(Vec2Dbl const& other) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        if (vexor::detail::IsPlainPair(a, b))
            return vexor::detail::UnsignedAngle(Dot(other), vexor::detail::SquareRoot(a),
                                                vexor::detail::SquareRoot(b));
        double const left[] = {x, y};
        double const right[] = {other.x, other.y};
        return vexor::detail::FullRangeAngle(left, right, 2);
    }
    /// The angle in radians from this vector to `other`, counter-clockwise, from 0 up to 2π: a quarter turn
    /// clockwise gives 3π/2. The result is 0 for a vector within the global's length tolerance and for an
    /// angle within about 1e-5 of 0 or 2π. It is π for an angle within about 1e-5 of π, as in `Vec3Dbl`.
    VEXOR_API double GetCCWAngleWith(Vec2Dbl const& other) const;
    /// The area 0.5·(x·oy − y·ox), correct over the whole range of a double. Unlike in space it is signed:
    /// below 0 if `other` lies clockwise.
    VEXOR_INLINE double GetAreaFormedByTriangleWith(Vec2Dbl const& other) const
    {
        if (vexor::detail::ArePlainProducts(std::fabs(x * other.y), std::fabs(y * other.x)))
            return 0.5 * Cross(other);
        double const left[] = {x, y};
        double const right[] = {other.x, other.y};
        return vexor::detail::FullRangePlaneArea(left, right);
    }

    // ---- Projection and perpendicular --------------------------------------------------------

    /// The component of this vector along `target`. Raises `VexorNullVector` if `target` is null. Correct
    /// over the whole range of a double.
    VEXOR_INLINE Vec2Dbl GetProjectionOnTo(Vec2Dbl const& target) const;
    /// (−y, x) normalised: this vector turned a quarter counter-clockwise. Unlike in space, a null vector
    /// raises `VexorNullVector`.
    VEXOR_INLINE Vec2Dbl GetPerpendicular() const { return Vec2Dbl(-y, x).GetNormalizedCopy(); }
};

// ---- Free operators --------------------------------------------------------------------------------

/// Each component times the scalar.
VEXOR_INLINE constexpr Vec2Dbl operator*(Vec2Dbl const& vector, double scalar)
{
    return Vec2Dbl(vector.x * scalar, vector.y * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Vec2Dbl operator*(double scalar, Vec2Dbl const& vector)
{
    return vector * scalar;
}

/// Computes 1 / scalar once and multiplies by it; `operator/=` divides. The two results may differ in the
/// last place.
VEXOR_INLINE constexpr Vec2Dbl operator/(Vec2Dbl const& vector, double scalar)
{
    return vector * (1.0 / scalar);
}

/// The sum, component by component.
VEXOR_INLINE constexpr Vec2Dbl operator+(Vec2Dbl const& left, Vec2Dbl const& right)
{
    return Vec2Dbl(left.x + right.x, left.y + right.y);
}

/// The difference, component by component.
VEXOR_INLINE constexpr Vec2Dbl operator-(Vec2Dbl const& left, Vec2Dbl const& right)
{
    return Vec2Dbl(left.x - right.x, left.y - right.y);
}

/// The negated copy: flips the sign of each component; 0 becomes −0.
VEXOR_INLINE constexpr Vec2Dbl operator-(Vec2Dbl const& vector)
{
    return vector.GetNegatedCopy();
}

// ---- Members that use them ---------------------------------------------------------------------------

VEXOR_INLINE int Vec2Dbl::IsEqualTo(Vec2Dbl const& other, double angular, double length) const
{
    return vexor::detail::AreEqual(*this, other, angular, length, [](Vec2Dbl const& a, Vec2Dbl const& b) {
        return (a - b).LengthSquared();
    });
}

VEXOR_INLINE Vec2Dbl Vec2Dbl::GetProjectionOnTo(Vec2Dbl const& target) const
{
    using vexor::detail::IsInNormalRange;
    using vexor::detail::IsPlainTerm;
    using vexor::detail::SmallerMagnitude;
    double const sum = target.LengthSquared();
    if (vexor::detail::IsPlainSum(sum)) {
        Vec2Dbl unit(target);
        unit /= vexor::detail::SquareRoot(sum);
        double const along = Dot(unit);
        double smallest = SmallerMagnitude(std::fabs(unit.x), x * unit.x);
        smallest = SmallerMagnitude(SmallerMagnitude(smallest, unit.y), y * unit.y);
        bool const isPlain = IsInNormalRange(smallest)
                             || (IsPlainTerm(x, target.x, unit.x) && IsPlainTerm(y, target.y, unit.y));
        if (isPlain && std::isfinite(along))
            return along * unit;
    }
    double const components[] = {x, y};
    double const direction[] = {target.x, target.y};
    double projection[2];
    vexor::detail::FullRangeProjection(projection, components, direction, 2, -0.0);
    return Vec2Dbl(projection[0], projection[1]);
}

VEXOR_EXACT_END
