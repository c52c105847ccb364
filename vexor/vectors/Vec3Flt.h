#pragma once
#include <vexor/vectors/Vec3Dbl.h>

VEXOR_EXACT_BEGIN

/// A vector in space in single precision: three floats and nothing else, laid out as an array of three.
///
/// An operation computes in double. It rounds to single when it stores or returns a value, and where its
/// comment says so. For one multiplication, division, addition or subtraction that equals the operation on
/// floats, and the code uses floats. Tolerances are as in `Vec3Dbl`.
class VEXOR_CLASS Vec3Flt {
public:
    float x; ///< Component 0.
    float y; ///< Component 1.
    float z; ///< Component 2.

    // ---- Construction ------------------------------------------------------------------------
    // No constructor takes a `Vec3Dbl`: to narrow one, assign it or call `Vec3Dbl::ToVec3Flt`.

    /// Leaves the components unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Vec3Flt() { vexor::detail::LeaveUnset(x, y, z); }
    /// Sets all three components to the value.
    VEXOR_INLINE Vec3Flt(float value) : x(value), y(value), z(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Vec3Flt(Integer value) : Vec3Flt(static_cast<float>(value))
    {}
    /// Sets the components, in order.
    VEXOR_INLINE Vec3Flt(float x0, float y0, float z0) : x(x0), y(y0), z(z0) {}
    /// Copies three floats from the array.
    VEXOR_INLINE Vec3Flt(float* values) : x(values[0]), y(values[1]), z(values[2]) {}
    /// Copies the three components.
    Vec3Flt(Vec3Flt const&) = default;
    ~Vec3Flt() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies the three components.
    Vec3Flt& operator=(Vec3Flt const&) = default;
    /// Rounds each component to single.
    VEXOR_INLINE Vec3Flt& operator=(Vec3Dbl const& other)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(RoundToSingle(other.x), RoundToSingle(other.y), RoundToSingle(other.z));
    }
    /// Copies the point's coordinates. Requires Pnt3Flt.h.
    VEXOR_INLINE Vec3Flt& operator=(Pnt3Flt const& point);
    /// Copies the point's coordinates, rounded to single. Requires Pnt3Flt.h.
    VEXOR_INLINE Vec3Flt& operator=(Pnt3Dbl const& point);

    /// Sets all three components to the value.
    VEXOR_INLINE Vec3Flt& SetValue(float value) { return SetValue(value, value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Vec3Flt& SetValue(Integer value)
    {
        return SetValue(static_cast<float>(value));
    }
    /// Sets the components, in order.
    VEXOR_INLINE Vec3Flt& SetValue(float x0, float y0, float z0)
    {
        x = x0;
        y = y0;
        z = z0;
        return *this;
    }
    /// Copies three floats from the array.
    VEXOR_INLINE Vec3Flt& SetValue(float const* const values)
    {
        return SetValue(values[0], values[1], values[2]);
    }

    /// Writes the components to the arguments, in order.
    VEXOR_INLINE void GetValue(float& x0, float& y0, float& z0) const
    {
        float const copy[3] = {x, y, z}; // an argument may be one of our own components
        x0 = copy[0];
        y0 = copy[1];
        z0 = copy[2];
    }
    /// Writes the components to the array, in order.
    VEXOR_INLINE void GetValue(float* const values) const { GetValue(values[0], values[1], values[2]); }

    /// The component of the index 0, 1 or 2. The index is not checked.
    VEXOR_INLINE float& operator[](int index) { return vexor::detail::ElementOf<float, 3>(*this, index); }
    /// The same, read-only.
    VEXOR_INLINE float const& operator[](int index) const
    {
        return vexor::detail::ElementOf<float const, 3>(*this, index);
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE float& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE float const& operator()(int index) const { return (*this)[index]; }

    // ---- Arithmetic: each component rounded once ---------------------------------------------

    /// Multiplies each component by the scalar.
    VEXOR_INLINE Vec3Flt& operator*=(float scalar) { return SetValue(x * scalar, y * scalar, z * scalar); }
    /// Divides each component by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE Vec3Flt& operator/=(float scalar) { return SetValue(x / scalar, y / scalar, z / scalar); }
    /// Adds component by component.
    VEXOR_INLINE Vec3Flt& operator+=(Vec3Flt const& other)
    {
        return SetValue(x + other.x, y + other.y, z + other.z);
    }
    /// Subtracts component by component.
    VEXOR_INLINE Vec3Flt& operator-=(Vec3Flt const& other)
    {
        return SetValue(x - other.x, y - other.y, z - other.z);
    }
    /// Flips the sign of each component; 0 becomes −0.
    VEXOR_INLINE Vec3Flt& Negate() { return SetValue(-x, -y, -z); }
    /// The negated copy.
    VEXOR_INLINE Vec3Flt GetNegatedCopy() const { return Vec3Flt(-x, -y, -z); }

    // ---- Products ----------------------------------------------------------------------------

    /// The dot product (x·ox + y·oy) + z·oz in double, the sum rounded once.
    VEXOR_INLINE float Dot(Vec3Flt const& other) const
    {
        return vexor::detail::RoundToSingle(Vec3Dbl(*this).Dot(Vec3Dbl(other)));
    }
    /// The right-handed cross product, this vector on the left; each difference of two products
    /// rounded once.
    VEXOR_INLINE Vec3Flt Cross(Vec3Flt const& other) const
    {
        return Vec3Dbl(*this).Cross(Vec3Dbl(other)).ToVec3Flt();
    }
    /// The component-wise product.
    VEXOR_INLINE Vec3Flt ElemMult(Vec3Flt const& other) const
    {
        return Vec3Flt(x * other.x, y * other.y, z * other.z);
    }
    /// The component-wise quotient. A zero divisor is not checked.
    VEXOR_INLINE Vec3Flt ElemDiv(Vec3Flt const& other) const
    {
        return Vec3Flt(x / other.x, y / other.y, z / other.z);
    }
    /// The outer product: row i, column j is this[i]·other[j], in double, where the product is exact.
    /// Requires Mat3Dbl.h.
    VEXOR_INLINE Mat3Dbl OuterProduct(Vec3Flt const& other) const;

    // ---- Length ------------------------------------------------------------------------------

    /// The squared length (x² + y²) + z² in double, the sum rounded once.
    VEXOR_INLINE float LengthSquared() const { return Dot(*this); }
    /// The square root of the rounded `LengthSquared()`, rounded.
    VEXOR_INLINE float Length() const
    {
        return vexor::detail::RoundToSingle(vexor::detail::SquareRoot(double(LengthSquared())));
    }
    /// Divides each component by the rounded `Length()`. Raises `VexorNullVector`, with the vector unchanged,
    /// if all components are exactly 0.
    VEXOR_INLINE Vec3Flt& Normalize()
    {
        if (IsNull())
            vexor::detail::RaiseNullVector();
        return *this /= Length();
    }
    /// The normalised vector, by `Normalize` on a copy.
    VEXOR_INLINE Vec3Flt GetNormalizedCopy() const
    {
        Vec3Flt copy(*this);
        copy.Normalize();
        return copy;
    }

    // ---- Extremes: rules and ties as in Vec3Dbl ------------------------------------------------

    /// The largest component.
    VEXOR_INLINE float MaxValue() const { return vexor::detail::MaxOfThree(x, y, z); }
    /// The smallest component.
    VEXOR_INLINE float MinValue() const { return vexor::detail::MinOfThree(x, y, z); }
    /// The largest absolute value.
    VEXOR_INLINE float MaxAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The smallest absolute value.
    VEXOR_INLINE float MinAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The index of the largest component.
    VEXOR_INLINE int MaxValueIdx() const { return vexor::detail::MaxIndexOfThree(x, y, z); }
    /// The index of the smallest component.
    VEXOR_INLINE int MinValueIdx() const { return vexor::detail::MinIndexOfThree(x, y, z); }
    /// The index of the largest absolute value.
    VEXOR_INLINE int MaxAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxIndexOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }
    /// The index of the smallest absolute value.
    VEXOR_INLINE int MinAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinIndexOfThree(Magnitude(x), Magnitude(y), Magnitude(z));
    }

    // ---- Exact comparison --------------------------------------------------------------------

    /// 1 if all components are exactly 0, of either sign. Uses no tolerance.
    VEXOR_INLINE int IsNull() const { return int(x == 0.0f) & int(y == 0.0f) & int(z == 0.0f); }
    /// 1 if the rounded `LengthSquared()` is within the tolerance, a squared length.
    VEXOR_INLINE int IsZeroLength(float length = -1.0f) const
    {
        return LengthSquared() <= vexor::detail::LengthTolerance(length);
    }
    /// Exact equality of all components; a NaN is unequal to everything.
    VEXOR_INLINE int operator==(Vec3Flt const& other) const
    {
        return int(x == other.x) & int(y == other.y) & int(z == other.z);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(Vec3Flt const& other) const { return !(*this == other); }
    /// 1 if every component is less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsLessThan(Vec3Flt const& other) const
    {
        return int(x <= other.x) & int(y <= other.y) & int(z <= other.z);
    }
    /// 1 if every component is greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsGreaterThan(Vec3Flt const& other) const
    {
        return int(x >= other.x) & int(y >= other.y) & int(z >= other.z);
    }

    // ---- Direction within a tolerance: as in Vec3Dbl -----------------------------------------
    // The dot product and the squared lengths are rounded to single; Q and 1 − Q are computed from them in
    // double, and the value compared with the tolerance is rounded once.

    /// 1 if the directions agree within `angular`, a sine squared, and the difference is within `length`, a
    /// squared length. Each component of the difference is rounded, and its squared length again.
    VEXOR_INLINE int IsEqualTo(Vec3Flt const& other, float angular = -1.0f, float length = -1.0f) const;
    /// 1 if 1 − Q is within `angular`, a sine squared (parallel or antiparallel); `length` is a squared
    /// length.
    VEXOR_INLINE int IsParallelTo(Vec3Flt const& other, float angular = -1.0f, float length = -1.0f) const
    {
        float const a = LengthSquared();
        float const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::AreParallel(Dot(other), a, b, angular);
    }
    /// 1 if parallel (`angular` a sine squared, `length` a squared length) and the dot product is above 0.
    VEXOR_INLINE int IsCodirectionalTo(Vec3Flt const& other, float angular = -1.0f,
                                       float length = -1.0f) const
    {
        return int(Dot(other) > 0.0f) & IsParallelTo(other, angular, length);
    }
    /// 1 if Q is within `angular`, a sine squared; `length` is a squared length.
    VEXOR_INLINE int IsPerpendicularTo(Vec3Flt const& other, float angular = -1.0f,
                                       float length = -1.0f) const
    {
        float const a = LengthSquared();
        float const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::ArePerpendicular(Dot(other), a, b, angular);
    }
    /// For two unit vectors: 1 if |1 − d·d|, rounded, is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitParallelTo(Vec3Flt const& other, float angular = -1.0f) const
    {
        return vexor::detail::AreUnitParallel(Dot(other), angular);
    }
    /// For two unit vectors: 1 if parallel as above, within a sine squared, and d is above 0.
    VEXOR_INLINE int IsUnitCodirectionalTo(Vec3Flt const& other, float angular = -1.0f) const
    {
        return int(Dot(other) > 0.0f) & IsUnitParallelTo(other, angular);
    }
    /// For two unit vectors: 1 if d·d, rounded, is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitPerpendicularTo(Vec3Flt const& other, float angular = -1.0f) const
    {
        return vexor::detail::AreUnitPerpendicular(Dot(other), angular);
    }

    // ---- Angle and area ----------------------------------------------------------------------

    /// The unsigned angle in radians, from 0 to the single nearest π; 0 if one of the rounded lengths
    /// is 0. The cosine stays in double; its arc cosine is rounded.
    VEXOR_INLINE float GetAngleWith(Vec3Flt const& other) const
    {
        return vexor::detail::UnsignedAngle(Dot(other), Length(), other.Length());
    }
    /// The area 0.5·√(A·B − d·d): the difference, its square root and the product are each rounded. The
    /// difference is not clamped: nearly parallel vectors can give NaN.
    VEXOR_INLINE float GetAreaFormedByTriangleWith(Vec3Flt const& other) const
    {
        return vexor::detail::TriangleArea(Dot(other), LengthSquared(), other.LengthSquared());
    }

    // ---- Projection and perpendiculars -------------------------------------------------------
    // The two perpendiculars use different algorithms from those of Vec3Dbl, with different signs and
    // exceptions.

    /// The component of this vector along `target`. Raises `VexorNullVector` if `target` is null.
    VEXOR_INLINE Vec3Flt GetProjectionOnTo(Vec3Flt const& target) const;
    /// A unit vector perpendicular to this one: (−y, x, 0) normalised if x or y is at least 1/64 in
    /// magnitude. Otherwise (z, 0, −x) normalised, or (−y, x, 0) if (z, 0, −x) is within the global's length
    /// tolerance. Raises `VexorNullVector` if the chosen vector is exactly null: for a null vector and for a
    /// short (0, 0, z).
    VEXOR_API Vec3Flt GetPerpendicular() const;
    /// (this × reference) × this, not normalised; null for parallel vectors.
    VEXOR_INLINE Vec3Flt GetPerpendicularNearestTo(Vec3Flt const& reference) const
    {
        return Cross(reference).Cross(*this);
    }
};

// ---- Free operators: each component rounded once -----------------------------------------------------

/// Each component times the scalar, rounded once.
VEXOR_INLINE Vec3Flt operator*(Vec3Flt const& vector, float scalar)
{
    return Vec3Flt(vector.x * scalar, vector.y * scalar, vector.z * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE Vec3Flt operator*(float scalar, Vec3Flt const& vector)
{
    return vector * scalar;
}

/// Rounds the reciprocal 1 / scalar to single and multiplies by it; `operator/=` divides.
VEXOR_INLINE Vec3Flt operator/(Vec3Flt const& vector, float scalar)
{
    return vector * (1.0f / scalar);
}

/// The sum, each component rounded once.
VEXOR_INLINE Vec3Flt operator+(Vec3Flt const& left, Vec3Flt const& right)
{
    return Vec3Flt(left.x + right.x, left.y + right.y, left.z + right.z);
}

/// The difference, each component rounded once.
VEXOR_INLINE Vec3Flt operator-(Vec3Flt const& left, Vec3Flt const& right)
{
    return Vec3Flt(left.x - right.x, left.y - right.y, left.z - right.z);
}

/// The negated copy: flips the sign of each component; 0 becomes −0.
VEXOR_INLINE Vec3Flt operator-(Vec3Flt const& vector)
{
    return vector.GetNegatedCopy();
}

// ---- Members that use them ---------------------------------------------------------------------------

VEXOR_INLINE int Vec3Flt::IsEqualTo(Vec3Flt const& other, float angular, float length) const
{
    return vexor::detail::AreEqual(*this, other, angular, length, [](Vec3Flt const& a, Vec3Flt const& b) {
        return (a - b).LengthSquared();
    });
}

VEXOR_INLINE Vec3Flt Vec3Flt::GetProjectionOnTo(Vec3Flt const& target) const
{
    Vec3Flt const unit = target.GetNormalizedCopy();
    return Dot(unit) * unit;
}

// ---- Members of Vec3Dbl that name Vec3Flt --------------------------------------------------------------

VEXOR_INLINE Vec3Dbl::Vec3Dbl(Vec3Flt const& other) : x(other.x), y(other.y), z(other.z) {}

VEXOR_INLINE Vec3Dbl& Vec3Dbl::operator=(Vec3Flt const& other)
{
    return SetValue(other.x, other.y, other.z);
}

VEXOR_INLINE Vec3Flt Vec3Dbl::ToVec3Flt() const
{
    using vexor::detail::RoundToSingle;
    return Vec3Flt(RoundToSingle(x), RoundToSingle(y), RoundToSingle(z));
}

VEXOR_EXACT_END
