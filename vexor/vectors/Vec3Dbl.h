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
/// multiplication is ever fused with an addition. A tolerance argument is compared as it stands: an
/// angular one is the square of a sine, a length one is a squared length; a negative one, the default,
/// selects the value of `gVexorTolerance`. Every tolerance test is inclusive. Predicates return 1 or 0.
class VEXOR_CLASS Vec3Dbl {
public:
    double x; ///< Component 0.
    double y; ///< Component 1.
    double z; ///< Component 2.

    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the components as the memory held them.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Vec3Dbl() { vexor::detail::LeaveUnset(x, y, z); }
    /// All three components take the value.
    VEXOR_INLINE constexpr Vec3Dbl(double value) : x(value), y(value), z(value) {}
    /// The same for any integer type: a literal 0 is a number here, not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec3Dbl(Integer value) : Vec3Dbl(static_cast<double>(value))
    {}
    /// The components, in order.
    VEXOR_INLINE constexpr Vec3Dbl(double x0, double y0, double z0) : x(x0), y(y0), z(z0) {}
    /// Copies three doubles from the array.
    VEXOR_INLINE constexpr Vec3Dbl(double* values) : x(values[0]), y(values[1]), z(values[2]) {}
    /// Copies.
    Vec3Dbl(Vec3Dbl const&) = default;
    /// Widens each component exactly. Comes with Vec3Flt.h.
    VEXOR_INLINE Vec3Dbl(Vec3Flt const& other);
    /// The first three elements; a shorter vector is padded with zeros. Comes with VecDbl.h.
    VEXOR_INLINE Vec3Dbl(VecDbl const& other);
    ~Vec3Dbl() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies.
    Vec3Dbl& operator=(Vec3Dbl const&) = default;
    /// Widens each component exactly. Comes with Vec3Flt.h.
    VEXOR_INLINE Vec3Dbl& operator=(Vec3Flt const& other);
    /// Takes the point's coordinates. Comes with Pnt3Dbl.h.
    VEXOR_INLINE constexpr Vec3Dbl& operator=(Pnt3Dbl const& point);
    /// Takes the point's coordinates, widened exactly. Comes with Pnt3Flt.h.
    VEXOR_INLINE Vec3Dbl& operator=(Pnt3Flt const& point);

    /// All three components take the value.
    VEXOR_INLINE constexpr Vec3Dbl& SetValue(double value) { return SetValue(value, value, value); }
    /// The same for any integer type: a literal 0 is a number here, not a null pointer.
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

    /// The component of the index 0, 1 or 2, which is not checked.
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

    /// Rounds each component to single. Comes with Vec3Flt.h.
    VEXOR_INLINE Vec3Flt ToVec3Flt() const;

    // ---- Arithmetic --------------------------------------------------------------------------

    /// Multiplies each component by the scalar.
    VEXOR_INLINE constexpr Vec3Dbl& operator*=(double scalar)
    {
        return SetValue(x * scalar, y * scalar, z * scalar);
    }
    /// Three divisions, unlike the free `operator/`, which multiplies by a reciprocal.
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

    /// (x·ox + y·oy) + z·oz, a plain sum: components between about 1e-77 and 1e77, or 0, lose nothing. Larger
    /// products give an infinity, or NaN where two infinities cancel; smaller ones lose digits or are 0.
    VEXOR_INLINE constexpr double Dot(Vec3Dbl const& other) const
    {
        return (x * other.x + y * other.y) + z * other.z;
    }
    /// The right-handed cross product, this vector on the left.
    VEXOR_INLINE constexpr Vec3Dbl Cross(Vec3Dbl const& other) const
    {
        return Vec3Dbl(y * other.z - other.y * z, z * other.x - x * other.z, other.y * x - y * other.x);
    }
    /// The products of the components.
    VEXOR_INLINE constexpr Vec3Dbl ElemMult(Vec3Dbl const& other) const
    {
        return Vec3Dbl(x * other.x, y * other.y, z * other.z);
    }
    /// Each component divided by the other's; a zero divisor is not checked.
    VEXOR_INLINE constexpr Vec3Dbl ElemDiv(Vec3Dbl const& other) const
    {
        return Vec3Dbl(x / other.x, y / other.y, z / other.z);
    }
    /// Row i, column j is this[i]·other[j]. Comes with Mat3Dbl.h.
    VEXOR_INLINE constexpr Mat3Dbl OuterProduct(Vec3Dbl const& other) const;

    // ---- Length ------------------------------------------------------------------------------

    /// (x² + y²) + z², a plain sum. It has all its digits for components between about 1e-146 and 1e153.
    /// Beyond, it is infinity; below, it loses digits, and from about 1e-162 on it is 0.
    VEXOR_INLINE constexpr double LengthSquared() const { return (x * x + y * y) + z * z; }
    /// The square root of (x² + y²) + z², right over the whole range of a double: where that sum would
    /// overflow or lose digits, it is formed with an exponent of any size.
    VEXOR_INLINE double Length() const
    {
        double const sum = LengthSquared();
        if (vexor::detail::IsPlainSum(sum))
            return vexor::detail::SquareRoot(sum);
        double const components[] = {x, y, z};
        return vexor::detail::FullRangeLength(components, 3);
    }
    /// Divides each component by `Length()`: three divisions. Raises `VexorNullVector`, the vector
    /// unchanged, if all components are exactly 0; however short or long, any other vector is normalised,
    /// also where `Length()` itself is out of a double's range.
    VEXOR_INLINE Vec3Dbl& Normalize()
    {
        double const sum = LengthSquared();
        if (vexor::detail::IsPlainSum(sum))
            return *this /= vexor::detail::SquareRoot(sum);
        // Of a copy, so that nothing takes the address of a vector that may live in registers.
        double components[] = {x, y, z};
        vexor::detail::FullRangeNormalize(components, 3);
        return SetValue(components[0], components[1], components[2]);
    }
    /// As `Normalize`, on a copy.
    VEXOR_INLINE Vec3Dbl GetNormalizedCopy() const
    {
        Vec3Dbl copy(*this);
        copy.Normalize();
        return copy;
    }

    // ---- Extremes and order ------------------------------------------------------------------
    // Of equal candidates the later index wins, for maximum and minimum alike. Absolute values are
    // formed as v if v > 0, else −v, so that of (0, 0, 0) is −0.

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
    /// The indices of the components in ascending order. Equal components keep their index order:
    /// unlike above, the first of them stays first.
    VEXOR_API void ValueOrder(int& smallest, int& middle, int& largest) const;
    /// The indices of the components in ascending order of absolute value, equal ones in index order.
    VEXOR_API void AbsValueOrder(int& smallest, int& middle, int& largest) const;

    // ---- Exact comparison --------------------------------------------------------------------

    /// All components exactly 0, of either sign. No tolerance.
    VEXOR_INLINE constexpr int IsNull() const { return int(x == 0.0) & int(y == 0.0) & int(z == 0.0); }
    /// `LengthSquared()` within the squared length given.
    VEXOR_INLINE int IsZeroLength(double length = -1.0) const
    {
        return LengthSquared() <= vexor::detail::LengthTolerance(length);
    }
    /// Exact, component by component; a NaN is unequal to everything.
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
    /// Every component less than or equal to the other's: not strict, and no order.
    VEXOR_INLINE constexpr int IsLessThan(Vec3Dbl const& other) const
    {
        return int(x <= other.x) & int(y <= other.y) & int(z <= other.z);
    }
    /// Every component greater than or equal to the other's: not strict, and no order.
    VEXOR_INLINE constexpr int IsGreaterThan(Vec3Dbl const& other) const
    {
        return int(x >= other.x) & int(y >= other.y) & int(z >= other.z);
    }

    // ---- Direction within a tolerance --------------------------------------------------------
    // With d the dot product and A, B the squared lengths, Q = ((d·d) / A) / B is the squared cosine.
    // A vector whose squared length is within the length tolerance has no direction: `IsParallelTo`,
    // `IsCodirectionalTo` and `IsPerpendicularTo` answer 0 for it. The unit forms ask for no length.
    // d, A and B are plain sums, so that loops vectorise. The answers are true for vectors between about 1e-77
    // and 1e77 long. Longer ones, whose d·d overflows, count as parallel and not as perpendicular; above 1e154,
    // where A or B overflows too, they count as neither. Shorter ones, whose d·d underflows, count as
    // perpendicular and not as parallel; below 1e-162, where A or B is 0, they count as neither. Vectors that
    // are exactly perpendicular by their zeros keep the right answer.

    /// The same direction within the angle (sine squared) and a difference within the length
    /// (squared). Two exactly null vectors are equal; a vector that is not null but within the
    /// global's length tolerance equals nothing, not even itself, whatever `length` says.
    VEXOR_INLINE int IsEqualTo(Vec3Dbl const& other, double angular = -1.0, double length = -1.0) const;
    /// Parallel or antiparallel: 1 − Q within the sine squared.
    VEXOR_INLINE int IsParallelTo(Vec3Dbl const& other, double angular = -1.0, double length = -1.0) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::AreParallel(Dot(other), a, b, angular);
    }
    /// Parallel, and the dot product above 0.
    VEXOR_INLINE int IsCodirectionalTo(Vec3Dbl const& other, double angular = -1.0,
                                       double length = -1.0) const
    {
        return int(Dot(other) > 0.0) & IsParallelTo(other, angular, length);
    }
    /// Q itself within the sine squared.
    VEXOR_INLINE int IsPerpendicularTo(Vec3Dbl const& other, double angular = -1.0,
                                       double length = -1.0) const
    {
        double const a = LengthSquared();
        double const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::ArePerpendicular(Dot(other), a, b, angular);
    }
    /// For two vectors known to be unit: |1 − d·d| within the sine squared.
    VEXOR_INLINE int IsUnitParallelTo(Vec3Dbl const& other, double angular = -1.0) const
    {
        return vexor::detail::AreUnitParallel(Dot(other), angular);
    }
    /// For two vectors known to be unit: parallel as above, and d above 0.
    VEXOR_INLINE int IsUnitCodirectionalTo(Vec3Dbl const& other, double angular = -1.0) const
    {
        return int(Dot(other) > 0.0) & IsUnitParallelTo(other, angular);
    }
    /// For two vectors known to be unit: d·d within the sine squared.
    VEXOR_INLINE int IsUnitPerpendicularTo(Vec3Dbl const& other, double angular = -1.0) const
    {
        return vexor::detail::AreUnitPerpendicular(Dot(other), angular);
    }

    // ---- Angles and area ---------------------------------------------------------------------

    /// The unsigned angle in radians, from 0 to π; 0 if one of the vectors is exactly null. Right over the
    /// whole range of a double. An arc cosine loses half the digits near 0 and π: below about 1.5e-8 the angle
    /// is 0. docs/conventions.md shows how to get a small angle with all digits.
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
    /// The angle in radians from this vector to `other`, counter-clockwise as seen with `normal`
    /// pointing at the viewer, from 0 up to 2π. Only the sign of `normal`·(this × other) is used. A
    /// vector within the global's length tolerance gives 0. So does an angle within about 1e-5 of 0 or 2π, and
    /// one within about 1e-5 of π gives π: the unit vectors' cross product counts as zero below the global's
    /// length. Right over the whole range of a double.
    VEXOR_API double GetCCWAngleWith(Vec3Dbl const& other, Vec3Dbl const& normal) const;
    /// 0.5·√(A·B − d·d), right over the whole range of a double. Nearly parallel vectors can give NaN: the
    /// difference is not clamped.
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

    /// The component of this vector along `target`. Raises `VexorNullVector` if `target` is null.
    /// Right over the whole range of a double.
    VEXOR_INLINE Vec3Dbl GetProjectionOnTo(Vec3Dbl const& target) const;
    /// A unit vector perpendicular to this one, in the plane of its smallest and largest component.
    /// Never raises: a null vector yields (1, 0, 0). Where the squares of those two components sum up to
    /// no more than the global's length tolerance, the result is only roughly perpendicular.
    VEXOR_API Vec3Dbl GetPerpendicular() const;
    /// The unit vector perpendicular to this one and nearest to `reference`. Where (this × reference) ×
    /// this lies within the global's length tolerance, `GetPerpendicular()`.
    VEXOR_API Vec3Dbl GetPerpendicularNearestTo(Vec3Dbl const& reference) const;
    /// Turns this vector about `axis`, a unit vector, by the angle in radians: counter-clockwise as
    /// seen with the axis pointing at the viewer. The axis is not normalised here. A null axis leaves the
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

/// Forms 1 / scalar once and multiplies by it, unlike `operator/=`, which divides: the two may differ
/// in the last place.
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
