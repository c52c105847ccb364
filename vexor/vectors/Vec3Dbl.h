#pragma once
#include <vexor/foundation/Config.h>
#include <vexor/foundation/detail/Element.h>
#include <vexor/foundation/detail/Integer.h>
#include <vexor/foundation/detail/Raise.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/foundation/VexorException.h>
#include <vexor/foundation/VexorTolerance.h>
#include <vexor/vectors/detail/DirectionTests.h>
#include <vexor/vectors/detail/Extremes.h>
#include <vexor/vectors/detail/FullRange.h>

class Vec3Flt;
class Pnt3Dbl;
class Pnt3Flt;
class Mat3Dbl;
class VecDbl;

VEXOR_EXACT_BEGIN

/// A vector in space: three doubles and nothing else, laid out as an array of three.
///
/// Sums and products are rounded to double at each step, in the order that each member states; no
/// multiplication is ever fused with an addition. A tolerance argument is not converted: an angular one is a
/// sine squared, a length one is a squared length. A negative one, the default, selects the value of
/// `gVexorTolerance`. Every tolerance test is inclusive. Predicates return 1 or 0.
class VEXOR_CLASS Vec3Dbl {
public:
    double x; ///< Component 0.
    double y; ///< Component 1.
    double z; ///< Component 2.

    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the components unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Vec3Dbl() { vexor::detail::LeaveUnset(x, y, z); }
    /// Sets all three components to the value.
    VEXOR_INLINE constexpr Vec3Dbl(double value) : x(value), y(value), z(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec3Dbl(Integer value) : Vec3Dbl(static_cast<double>(value))
    {}
    /// Sets the components, in order.
    VEXOR_INLINE constexpr Vec3Dbl(double x0, double y0, double z0) : x(x0), y(y0), z(z0) {}
    /// Copies three doubles from the array.
    VEXOR_INLINE constexpr Vec3Dbl(double* values) : x(values[0]), y(values[1]), z(values[2]) {}
    /// Copies the three components.
    Vec3Dbl(Vec3Dbl const&) = default;
    /// Widens each component exactly. Requires Vec3Flt.h.
    VEXOR_INLINE Vec3Dbl(Vec3Flt const& other);
    /// The first three elements; a shorter vector is padded with zeros. Requires VecDbl.h.
    VEXOR_INLINE Vec3Dbl(VecDbl const& other);
    ~Vec3Dbl() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies the three components.
    Vec3Dbl& operator=(Vec3Dbl const&) = default;
    /// Widens each component exactly. Requires Vec3Flt.h.
    VEXOR_INLINE Vec3Dbl& operator=(Vec3Flt const& other);
    /// Copies the point's coordinates. Requires Pnt3Dbl.h.
    VEXOR_INLINE constexpr Vec3Dbl& operator=(Pnt3Dbl const& point);
    /// Copies the point's coordinates, widened exactly. Requires Pnt3Flt.h.
    VEXOR_INLINE Vec3Dbl& operator=(Pnt3Flt const& point);

    /// Sets all three components to the value.
    VEXOR_INLINE constexpr Vec3Dbl& SetValue(double value) { return SetValue(value, value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec3Dbl& SetValue(Integer value)
    {
        return SetValue(static_cast<double>(value));
    }
    /// Sets the components, in order.
    VEXOR_INLINE constexpr Vec3Dbl& SetValue(double x0, double y0, double z0)
    {
        x = x0;
        y = y0;
        z = z0;
        return *this;
    }
    /// Copies three doubles from the array.
    VEXOR_INLINE constexpr Vec3Dbl& SetValue(double const* const values)
    {
        return SetValue(values[0], values[1], values[2]);
    }

    /// Writes the components to the arguments, in order.
    VEXOR_INLINE constexpr void GetValue(double& x0, double& y0, double& z0) const
    {
        double const copy[3] = {x, y, z}; // an argument may be one of our own components
        x0 = copy[0];
        y0 = copy[1];
        z0 = copy[2];
    }
    /// Writes the components to the array, in order.
    VEXOR_INLINE constexpr void GetValue(double* const values) const
    {
        GetValue(values[0], values[1], values[2]);
    }

    /// The component of the index 0, 1 or 2. The index is not checked.
    VEXOR_INLINE constexpr double& operator[](int index)
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index, x, y, z)
                                          : vexor::detail::ElementOf<double, 3>(*this, index);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator[](int index) const
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index, x, y, z)
                                          : vexor::detail::ElementOf<double const, 3>(*this, index);
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE constexpr double& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE constexpr double const& operator()(int index) const { return (*this)[index]; }

    /// Rounds each component to single. Requires Vec3Flt.h.
    VEXOR_INLINE Vec3Flt ToVec3Flt() const;

    // ---- Arithmetic --------------------------------------------------------------------------

    /// Multiplies each component by the scalar.
    VEXOR_INLINE constexpr Vec3Dbl& operator*=(double scalar)
    {
        return SetValue(x * scalar, y * scalar, z * scalar);
    }
    /// Divides each component by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE constexpr Vec3Dbl& operator/=(double scalar)
    {
        return SetValue(x / scalar, y / scalar, z / scalar);
    }
    /// Adds component by component.
    VEXOR_INLINE constexpr Vec3Dbl& operator+=(Vec3Dbl const& other)
    {
        return SetValue(x + other.x, y + other.y, z + other.z);
    }
    /// Subtracts component by component.
    VEXOR_INLINE constexpr Vec3Dbl& operator-=(Vec3Dbl const& other)
    {
        return SetValue(x - other.x, y - other.y, z - other.z);
    }
    /// Flips the sign of each component; 0 becomes −0.
    VEXOR_INLINE constexpr Vec3Dbl& Negate() { return SetValue(-x, -y, -z); }
    /// The negated copy.
    VEXOR_INLINE constexpr Vec3Dbl GetNegatedCopy() const { return Vec3Dbl(-x, -y, -z); }

    // ---- Products ----------------------------------------------------------------------------

    /// The dot product (x·ox + y·oy) + z·oz, a plain sum, accurate for components between about 1e-77 and
    /// 1e77, or 0. Larger products give an infinity, or NaN if two infinities cancel; smaller ones lose
    /// digits or are 0.
    VEXOR_INLINE constexpr double Dot(Vec3Dbl const& other) const
    {
        return (x * other.x + y * other.y) + z * other.z;
    }
    /// The right-handed cross product, this vector on the left.
    VEXOR_INLINE constexpr Vec3Dbl Cross(Vec3Dbl const& other) const
    {
        return Vec3Dbl(y * other.z - other.y * z, z * other.x - x * other.z, other.y * x - y * other.x);
    }
    /// The component-wise product.
    VEXOR_INLINE constexpr Vec3Dbl ElemMult(Vec3Dbl const& other) const
    {
        return Vec3Dbl(x * other.x, y * other.y, z * other.z);
    }
    /// The component-wise quotient. A zero divisor is not checked.
    VEXOR_INLINE constexpr Vec3Dbl ElemDiv(Vec3Dbl const& other) const
    {
        return Vec3Dbl(x / other.x, y / other.y, z / other.z);
    }
    /// The outer product: row i, column j is this[i]·other[j]. Requires Mat3Dbl.h.
    VEXOR_INLINE constexpr Mat3Dbl OuterProduct(Vec3Dbl const& other) const;

    // ---- Length ------------------------------------------------------------------------------

    /// The squared length (x² + y²) + z², a plain sum. It has full precision for components between about
    /// 1e-146 and 1e153. Above, it overflows to infinity. Below, it loses digits; below about 1e-162 it is 0.
    VEXOR_INLINE constexpr double LengthSquared() const { return (x * x + y * y) + z * z; }
    /// The square root of (x² + y²) + z², accurate over the whole range of a double: if that sum would
    /// overflow or lose digits, it is computed with an unlimited exponent range.
    VEXOR_INLINE double Length() const
    {
        double const sum = LengthSquared();
        if (vexor::detail::IsPlainSum(sum))
            return vexor::detail::SquareRoot(sum);
        double const components[] = {x, y, z};
        return vexor::detail::FullRangeLength(components, 3);
    }
    /// Divides each component by `Length()`. Raises `VexorNullVector`, with the vector unchanged, if all
    /// components are exactly 0. Any other vector is normalised, even if `Length()` itself is outside the
    /// range of a double.
    VEXOR_INLINE Vec3Dbl& Normalize()
    {
        double const sum = LengthSquared();
        if (vexor::detail::IsPlainSum(sum))
            return *this /= vexor::detail::SquareRoot(sum);
        // Works on a copy, so that nothing takes the address of a vector that could stay in registers.
        double components[] = {x, y, z};
        vexor::detail::FullRangeNormalize(components, 3);
        return SetValue(components[0], components[1], components[2]);
    }
    /// The normalised vector, by `Normalize` on a copy.
    VEXOR_INLINE Vec3Dbl GetNormalizedCopy() const
    {
        Vec3Dbl copy(*this);
        copy.Normalize();
        return copy;
    }

    // ---- Extremes and order ------------------------------------------------------------------
    // On a tie the later index wins, for maximum and minimum alike. The absolute value is v if v > 0, else
    // −v, so that of (0, 0, 0) is −0.

    /// The largest component.
    VEXOR_INLINE constexpr double MaxValue() const { return vexor::detail::MaxOfThree(x, y, z); }
    /// The smallest component.
    VEXOR_INLINE constexpr double MinValue() const { return vexor::detail::MinOfThree(x, y, z); }
    /// The largest absolute value.
    VEXOR_INLINE constexpr double MaxAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The smallest absolute value.
    VEXOR_INLINE constexpr double MinAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The index of the largest component.
    VEXOR_INLINE constexpr int MaxValueIdx() const { return vexor::detail::MaxIndexOfThree(x, y, z); }
    /// The index of the smallest component.
    VEXOR_INLINE constexpr int MinValueIdx() const { return vexor::detail::MinIndexOfThree(x, y, z); }
    /// The index of the largest absolute value.
    VEXOR_INLINE constexpr int MaxAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxIndexOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The index of the smallest absolute value.
    VEXOR_INLINE constexpr int MinAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinIndexOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The indices of the components in ascending order. Equal components keep their index order: the first
    /// of them stays first, unlike in the members above.
    VEXOR_API void ValueOrder(int& smallest, int& middle, int& largest) const;
    /// The indices of the components in ascending order of absolute value, equal ones in index order.
    VEXOR_API void AbsValueOrder(int& smallest, int& middle, int& largest) const;

    // ---- Exact comparison --------------------------------------------------------------------

    /// 1 if all components are exactly 0, of either sign. Uses no tolerance.
    VEXOR_INLINE constexpr int IsNull() const { return int(x == 0.0) & int(y == 0.0) & int(z == 0.0); }
    /// 1 if `LengthSquared()` is within the tolerance, a squared length.
    VEXOR_INLINE int IsZeroLength(double length = -1.0) const
    {
        return LengthSquared() <= vexor::detail::LengthTolerance(length);
    }
    /// Exact equality of all components; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(Vec3Dbl const& other) const
    {
        return int(x == other.x) & int(y == other.y) & int(z == other.z);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Vec3Dbl const& other) const { return !(*this == other); }
    /// Strict lexicographic order: the first component that is not equal decides. A NaN there gives 0.
    VEXOR_INLINE constexpr int operator<(Vec3Dbl const& other) const
    {
        if (!(x == other.x))
            return x < other.x;
        if (!(y == other.y))
            return y < other.y;
        return z < other.z;
    }
    /// 1 if every component is less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsLessThan(Vec3Dbl const& other) const
    {
        return int(x <= other.x) & int(y <= other.y) & int(z <= other.z);
    }
    /// 1 if every component is greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsGreaterThan(Vec3Dbl const& other) const
    {
        return int(x >= other.x) & int(y >= other.y) & int(z >= other.z);
    }

    // ---- Direction within a tolerance --------------------------------------------------------
    // With d the dot product and A, B the squared lengths, Q = ((d·d) / A) / B is the squared cosine. A
    // vector whose squared length is within the length tolerance has no direction: `IsParallelTo`,
    // `IsCodirectionalTo` and `IsPerpendicularTo` return 0 for it. The unit forms do not test the length. d,
    // A and B are plain sums, so that loops vectorise. The results are correct for vectors of length between
    // about 1e-77 and 1e77. For longer ones d·d overflows: they count as parallel and not as perpendicular;
    // above 1e154 A or B overflows too, and they count as neither. For shorter ones d·d underflows: they
    // count as perpendicular and not as parallel; below 1e-162 A or B is 0, and they count as neither. The
    // result stays correct for vectors whose zeros make them exactly perpendicular.

    /// 1 if the directions agree within `angular`, a sine squared, and the difference is within `length`, a
    /// squared length. Two exactly null vectors are equal. A vector that is not null but within the global's
    /// length tolerance is unequal to everything, even to itself, for every `length`.
    VEXOR_INLINE int IsEqualTo(Vec3Dbl const& other, double angular = -1.0, double length = -1.0) const;
    /// 1 if 1 − Q is within `angular`, a sine squared (parallel or antiparallel); `length` is a squared
    /// length.
    VEXOR_INLINE int IsParallelTo(Vec3Dbl const& other, double angular = -1.0, double length = -1.0) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::AreParallel(Dot(other), a, b, angular);
    }
    /// 1 if parallel (`angular` a sine squared, `length` a squared length) and the dot product is above 0.
    VEXOR_INLINE int IsCodirectionalTo(Vec3Dbl const& other, double angular = -1.0,
                                       double length = -1.0) const
    {
        return int(Dot(other) > 0.0) & IsParallelTo(other, angular, length);
    }
    /// 1 if Q is within `angular`, a sine squared; `length` is a squared length.
    VEXOR_INLINE int IsPerpendicularTo(Vec3Dbl const& other, double angular = -1.0,
                                       double length = -1.0) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::ArePerpendicular(Dot(other), a, b, angular);
    }
    /// For two unit vectors: 1 if |1 − d·d| is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitParallelTo(Vec3Dbl const& other, double angular = -1.0) const
    {
        return vexor::detail::AreUnitParallel(Dot(other), angular);
    }
    /// For two unit vectors: 1 if parallel as above, within a sine squared, and d is above 0.
    VEXOR_INLINE int IsUnitCodirectionalTo(Vec3Dbl const& other, double angular = -1.0) const
    {
        return int(Dot(other) > 0.0) & IsUnitParallelTo(other, angular);
    }
    /// For two unit vectors: 1 if d·d is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitPerpendicularTo(Vec3Dbl const& other, double angular = -1.0) const
    {
        return vexor::detail::AreUnitPerpendicular(Dot(other), angular);
    }

    // ---- Angles and area ---------------------------------------------------------------------

    /// The unsigned angle in radians, from 0 to π; 0 if one of the vectors is exactly null. Correct over the
    /// whole range of a double. An arc cosine loses half the digits near 0 and π: below about 1.5e-8 the
    /// angle is 0. docs/conventions.md shows how to get a small angle with all digits.
    VEXOR_INLINE double GetAngleWith(Vec3Dbl const& other) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        if (vexor::detail::IsPlainPair(a, b))
            return vexor::detail::UnsignedAngle(Dot(other), vexor::detail::SquareRoot(a),
                                                vexor::detail::SquareRoot(b));
        double const left[] = {x, y, z};
        double const right[] = {other.x, other.y, other.z};
        return vexor::detail::FullRangeAngle(left, right, 3);
    }
    /// The angle in radians from this vector to `other`, counter-clockwise as seen with `normal` pointing at
    /// the viewer, from 0 up to 2π. Only the sign of `normal`·(this × other) is used. The result is 0 for a
    /// vector within the global's length tolerance and for an angle within about 1e-5 of 0 or 2π. It is π for
    /// an angle within about 1e-5 of π: the unit vectors' cross product counts as zero below the global's
    /// length. Correct over the whole range of a double.
    VEXOR_API double GetCCWAngleWith(Vec3Dbl const& other, Vec3Dbl const& normal) const;
    /// The area 0.5·√(A·B − d·d), correct over the whole range of a double. The difference is not clamped:
    /// nearly parallel vectors can give NaN.
    VEXOR_INLINE double GetAreaFormedByTriangleWith(Vec3Dbl const& other) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        if (vexor::detail::IsPlainPair(a, b))
            return vexor::detail::TriangleArea(Dot(other), a, b);
        double const left[] = {x, y, z};
        double const right[] = {other.x, other.y, other.z};
        return vexor::detail::FullRangeArea(left, right);
    }

    // ---- Projection, perpendiculars, rotation ------------------------------------------------

    /// The component of this vector along `target`. Raises `VexorNullVector` if `target` is null. Correct
    /// over the whole range of a double.
    VEXOR_INLINE Vec3Dbl GetProjectionOnTo(Vec3Dbl const& target) const;
    /// A unit vector perpendicular to this one, in the plane of its smallest and largest component. It never
    /// raises: a null vector gives (1, 0, 0). If the sum of the squares of those two components is within the
    /// global's length tolerance, the result is only roughly perpendicular.
    VEXOR_API Vec3Dbl GetPerpendicular() const;
    /// The unit vector perpendicular to this one and nearest to `reference`. If (this × reference) × this is
    /// within the global's length tolerance, it is `GetPerpendicular()`.
    VEXOR_API Vec3Dbl GetPerpendicularNearestTo(Vec3Dbl const& reference) const;
    /// Turns this vector about `axis`, a unit vector, by the angle in radians: counter-clockwise as seen with
    /// the axis pointing at the viewer. The axis is not normalised here. For a null axis the result is the
    /// part along (1, 0, 0), times cos(angle).
    VEXOR_API Vec3Dbl& Rotate(Vec3Dbl const& axis, double angle);
};

// ---- Free operators --------------------------------------------------------------------------------

/// Each component times the scalar.
VEXOR_INLINE constexpr Vec3Dbl operator*(Vec3Dbl const& vector, double scalar)
{
    return Vec3Dbl(vector.x * scalar, vector.y * scalar, vector.z * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Vec3Dbl operator*(double scalar, Vec3Dbl const& vector)
{
    return vector * scalar;
}

/// Computes 1 / scalar once and multiplies by it; `operator/=` divides. The two results may differ in the
/// last place.
VEXOR_INLINE constexpr Vec3Dbl operator/(Vec3Dbl const& vector, double scalar)
{
    return vector * (1.0 / scalar);
}

/// The sum, component by component.
VEXOR_INLINE constexpr Vec3Dbl operator+(Vec3Dbl const& left, Vec3Dbl const& right)
{
    return Vec3Dbl(left.x + right.x, left.y + right.y, left.z + right.z);
}

/// The difference, component by component.
VEXOR_INLINE constexpr Vec3Dbl operator-(Vec3Dbl const& left, Vec3Dbl const& right)
{
    return Vec3Dbl(left.x - right.x, left.y - right.y, left.z - right.z);
}

/// The negated copy: flips the sign of each component; 0 becomes −0.
VEXOR_INLINE constexpr Vec3Dbl operator-(Vec3Dbl const& vector)
{
    return vector.GetNegatedCopy();
}

// ---- Members that use them ---------------------------------------------------------------------------

VEXOR_INLINE int Vec3Dbl::IsEqualTo(Vec3Dbl const& other, double angular, double length) const
{
    return vexor::detail::AreEqual(*this, other, angular, length, [](Vec3Dbl const& a, Vec3Dbl const& b) {
        return (a - b).LengthSquared();
    });
}

VEXOR_INLINE Vec3Dbl Vec3Dbl::GetProjectionOnTo(Vec3Dbl const& target) const
{
    using vexor::detail::IsInNormalRange;
    using vexor::detail::IsPlainTerm;
    using vexor::detail::SmallerMagnitude;
    double const sum = target.LengthSquared();
    if (vexor::detail::IsPlainSum(sum)) {
        Vec3Dbl unit(target);
        unit /= vexor::detail::SquareRoot(sum);
        double const along = Dot(unit);
        double smallest = SmallerMagnitude(std::fabs(unit.x), x * unit.x);
        smallest = SmallerMagnitude(SmallerMagnitude(smallest, unit.y), y * unit.y);
        smallest = SmallerMagnitude(SmallerMagnitude(smallest, unit.z), z * unit.z);
        bool const isPlain = IsInNormalRange(smallest)
                             || (IsPlainTerm(x, target.x, unit.x) && IsPlainTerm(y, target.y, unit.y)
                                 && IsPlainTerm(z, target.z, unit.z));
        if (isPlain && std::isfinite(along))
            return along * unit;
    }
    double const components[] = {x, y, z};
    double const direction[] = {target.x, target.y, target.z};
    double projection[3];
    vexor::detail::FullRangeProjection(projection, components, direction, 3, -0.0);
    return Vec3Dbl(projection[0], projection[1], projection[2]);
}

VEXOR_EXACT_END
