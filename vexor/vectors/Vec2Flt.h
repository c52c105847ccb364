#pragma once
#include <vexor/vectors/Vec2Dbl.h>

VEXOR_EXACT_BEGIN

/// A vector in the plane in single precision: two floats and nothing else, laid out as an array of two.
///
/// An operation computes in double. It rounds to single when it stores or returns a value, and where its
/// comment says so. For one multiplication, division, addition or subtraction that equals the operation on
/// floats, and the code uses floats. Tolerances are as in `Vec3Dbl`.
class VEXOR_CLASS Vec2Flt {
public:
    float x; ///< Component 0.
    float y; ///< Component 1.

    // ---- Construction ------------------------------------------------------------------------
    // No constructor takes a `Vec2Dbl`: to narrow one, assign it or call `Vec2Dbl::ToVec2Flt`.

    /// Leaves the components unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Vec2Flt() { vexor::detail::LeaveUnset(x, y); }
    /// Sets both components to the value.
    VEXOR_INLINE Vec2Flt(float value) : x(value), y(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Vec2Flt(Integer value) : Vec2Flt(static_cast<float>(value))
    {}
    /// Sets the components, in order.
    VEXOR_INLINE Vec2Flt(float x0, float y0) : x(x0), y(y0) {}
    /// Copies two floats from the array.
    VEXOR_INLINE Vec2Flt(float* values) : x(values[0]), y(values[1]) {}
    /// Copies both components.
    Vec2Flt(Vec2Flt const&) = default;
    ~Vec2Flt() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies both components.
    Vec2Flt& operator=(Vec2Flt const&) = default;
    /// Rounds each component to single.
    VEXOR_INLINE Vec2Flt& operator=(Vec2Dbl const& other)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(RoundToSingle(other.x), RoundToSingle(other.y));
    }
    /// Copies the point's coordinates. Requires Pnt2Flt.h.
    VEXOR_INLINE Vec2Flt& operator=(Pnt2Flt const& point);
    /// Copies the point's coordinates, rounded to single. Requires Pnt2Flt.h.
    VEXOR_INLINE Vec2Flt& operator=(Pnt2Dbl const& point);

    /// Sets both components to the value.
    VEXOR_INLINE Vec2Flt& SetValue(float value) { return SetValue(value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Vec2Flt& SetValue(Integer value)
    {
        return SetValue(static_cast<float>(value));
    }
    /// Sets the components, in order.
    VEXOR_INLINE Vec2Flt& SetValue(float x0, float y0)
    {
        x = x0;
        y = y0;
        return *this;
    }
    /// Copies two floats from the array.
    VEXOR_INLINE Vec2Flt& SetValue(float const* const values) { return SetValue(values[0], values[1]); }

    /// Writes the components to the arguments, in order.
    VEXOR_INLINE void GetValue(float& x0, float& y0) const
    {
        float const copy[2] = {x, y}; // an argument may be one of our own components
        x0 = copy[0];
        y0 = copy[1];
    }
    /// Writes the components to the array, in order.
    VEXOR_INLINE void GetValue(float* const values) const { GetValue(values[0], values[1]); }

    /// The component of the index 0 or 1. The index is not checked.
    VEXOR_INLINE float& operator[](int index) { return vexor::detail::ElementOf<float, 2>(*this, index); }
    /// The same, read-only.
    VEXOR_INLINE float const& operator[](int index) const
    {
        return vexor::detail::ElementOf<float const, 2>(*this, index);
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE float& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE float const& operator()(int index) const { return (*this)[index]; }

    // ---- Arithmetic: each component rounded once ---------------------------------------------

    /// Multiplies each component by the scalar.
    VEXOR_INLINE Vec2Flt& operator*=(float scalar) { return SetValue(x * scalar, y * scalar); }
    /// Divides each component by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE Vec2Flt& operator/=(float scalar) { return SetValue(x / scalar, y / scalar); }
    /// Adds component by component.
    VEXOR_INLINE Vec2Flt& operator+=(Vec2Flt const& other) { return SetValue(x + other.x, y + other.y); }
    /// Subtracts component by component.
    VEXOR_INLINE Vec2Flt& operator-=(Vec2Flt const& other) { return SetValue(x - other.x, y - other.y); }
    /// Flips the sign of each component; 0 becomes −0.
    VEXOR_INLINE Vec2Flt& Negate() { return SetValue(-x, -y); }
    /// The negated copy.
    VEXOR_INLINE Vec2Flt GetNegatedCopy() const { return Vec2Flt(-x, -y); }

    // ---- Products ----------------------------------------------------------------------------

    /// The dot product x·ox + y·oy in double, the sum rounded once.
    VEXOR_INLINE float Dot(Vec2Flt const& other) const
    {
        return vexor::detail::RoundToSingle(Vec2Dbl(*this).Dot(Vec2Dbl(other)));
    }
    /// The cross product, the scalar x·oy − y·ox in double, the difference rounded once: above 0 if `other`
    /// lies counter-clockwise of this vector.
    VEXOR_INLINE float Cross(Vec2Flt const& other) const
    {
        return vexor::detail::RoundToSingle(Vec2Dbl(*this).Cross(Vec2Dbl(other)));
    }
    /// The component-wise product.
    VEXOR_INLINE Vec2Flt ElemMult(Vec2Flt const& other) const { return Vec2Flt(x * other.x, y * other.y); }
    /// The component-wise quotient. A zero divisor is not checked.
    VEXOR_INLINE Vec2Flt ElemDiv(Vec2Flt const& other) const { return Vec2Flt(x / other.x, y / other.y); }
    /// The outer product: row i, column j is this[i]·other[j], in double, where the product is exact.
    /// Requires Mat2Dbl.h.
    VEXOR_INLINE Mat2Dbl OuterProduct(Vec2Flt const& other) const;

    // ---- Length ------------------------------------------------------------------------------

    /// The squared length x² + y² in double, the sum rounded once.
    VEXOR_INLINE float LengthSquared() const { return Dot(*this); }
    /// The square root of the rounded `LengthSquared()`, rounded.
    VEXOR_INLINE float Length() const
    {
        return vexor::detail::RoundToSingle(vexor::detail::SquareRoot(double(LengthSquared())));
    }
    /// Divides each component by the rounded `Length()`. Raises `VexorNullVector`, with the vector unchanged,
    /// if both components are exactly 0.
    VEXOR_INLINE Vec2Flt& Normalize()
    {
        if (IsNull())
            vexor::detail::RaiseNullVector();
        return *this /= Length();
    }
    /// The normalised vector, by `Normalize` on a copy.
    VEXOR_INLINE Vec2Flt GetNormalizedCopy() const
    {
        Vec2Flt copy(*this);
        copy.Normalize();
        return copy;
    }

    // ---- Extremes: rules and ties as in Vec2Dbl ------------------------------------------------

    /// The largest component.
    VEXOR_INLINE float MaxValue() const { return vexor::detail::MaxOfTwo(x, y); }
    /// The smallest component.
    VEXOR_INLINE float MinValue() const { return vexor::detail::MinOfTwo(x, y); }
    /// The largest absolute value.
    VEXOR_INLINE float MaxAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxOfTwo(Magnitude(x), Magnitude(y));
    }
    /// The smallest absolute value.
    VEXOR_INLINE float MinAbsValue() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinOfTwo(Magnitude(x), Magnitude(y));
    }
    /// The index of the largest component.
    VEXOR_INLINE int MaxValueIdx() const { return vexor::detail::MaxIndexOfTwo(x, y); }
    /// The index of the smallest component.
    VEXOR_INLINE int MinValueIdx() const { return vexor::detail::MinIndexOfTwo(x, y); }
    /// The index of the largest absolute value.
    VEXOR_INLINE int MaxAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MaxIndexOfTwo(Magnitude(x), Magnitude(y));
    }
    /// The index of the smallest absolute value.
    VEXOR_INLINE int MinAbsValueIdx() const
    {
        using vexor::detail::Magnitude;
        return vexor::detail::MinIndexOfTwo(Magnitude(x), Magnitude(y));
    }

    // ---- Exact comparison --------------------------------------------------------------------
    // The class has no operator<: single-precision vectors are not sorted.

    /// 1 if both components are exactly 0, of either sign. Uses no tolerance.
    VEXOR_INLINE int IsNull() const { return int(x == 0.0f) & int(y == 0.0f); }
    /// 1 if the rounded `LengthSquared()` is within the tolerance, a squared length.
    VEXOR_INLINE int IsZeroLength(float length = -1.0f) const
    {
        return LengthSquared() <= vexor::detail::LengthTolerance(length);
    }
    /// Exact equality of all components; a NaN is unequal to everything.
    VEXOR_INLINE int operator==(Vec2Flt const& other) const { return int(x == other.x) & int(y == other.y); }
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(Vec2Flt const& other) const { return !(*this == other); }
    /// 1 if both components are less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsLessThan(Vec2Flt const& other) const { return int(x <= other.x) & int(y <= other.y); }
    /// 1 if both components are greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsGreaterThan(Vec2Flt const& other) const
    {
        return int(x >= other.x) & int(y >= other.y);
    }

    // ---- Direction within a tolerance: as in Vec2Dbl -----------------------------------------
    // The dot product and the squared lengths are rounded to single; Q and 1 − Q are computed from them in
    // double, and the value compared with the tolerance is rounded once.

    /// 1 if the directions agree within `angular`, a sine squared, and the difference is within `length`, a
    /// squared length. Each component of the difference is rounded, and its squared length again.
    VEXOR_INLINE int IsEqualTo(Vec2Flt const& other, float angular = -1.0f, float length = -1.0f) const;
    /// 1 if 1 − Q is within `angular`, a sine squared (parallel or antiparallel); `length` is a squared
    /// length.
    VEXOR_INLINE int IsParallelTo(Vec2Flt const& other, float angular = -1.0f, float length = -1.0f) const
    {
        float const a = LengthSquared();
        float const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::AreParallel(Dot(other), a, b, angular);
    }
    /// 1 if parallel (`angular` a sine squared, `length` a squared length) and the dot product is above 0.
    VEXOR_INLINE int IsCodirectionalTo(Vec2Flt const& other, float angular = -1.0f,
                                       float length = -1.0f) const
    {
        return int(Dot(other) > 0.0f) & IsParallelTo(other, angular, length);
    }
    /// 1 if Q is within `angular`, a sine squared; `length` is a squared length.
    VEXOR_INLINE int IsPerpendicularTo(Vec2Flt const& other, float angular = -1.0f,
                                       float length = -1.0f) const
    {
        float const a = LengthSquared();
        float const b = other.LengthSquared();
        return vexor::detail::AreBothLonger(a, b, length)
               & vexor::detail::ArePerpendicular(Dot(other), a, b, angular);
    }
    /// For two unit vectors: 1 if |1 − d·d|, rounded, is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitParallelTo(Vec2Flt const& other, float angular = -1.0f) const
    {
        return vexor::detail::AreUnitParallel(Dot(other), angular);
    }
    /// For two unit vectors: 1 if parallel as above, within a sine squared, and d is above 0.
    VEXOR_INLINE int IsUnitCodirectionalTo(Vec2Flt const& other, float angular = -1.0f) const
    {
        return int(Dot(other) > 0.0f) & IsUnitParallelTo(other, angular);
    }
    /// For two unit vectors: 1 if d·d, rounded, is within the tolerance, a sine squared.
    VEXOR_INLINE int IsUnitPerpendicularTo(Vec2Flt const& other, float angular = -1.0f) const
    {
        return vexor::detail::AreUnitPerpendicular(Dot(other), angular);
    }

    // ---- Angle and area ----------------------------------------------------------------------

    /// The unsigned angle in radians, from 0 to the single nearest π; 0 if one of the rounded lengths
    /// is 0. The cosine stays in double; its arc cosine is rounded.
    VEXOR_INLINE float GetAngleWith(Vec2Flt const& other) const
    {
        return vexor::detail::UnsignedAngle(Dot(other), Length(), other.Length());
    }
    /// The signed area 0.5·(x·oy − y·ox) in double, rounded once. It is not half of the rounded `Cross`,
    /// which can overflow or lose digits where this does not. Below 0 if `other` lies clockwise.
    VEXOR_INLINE float GetAreaFormedByTriangleWith(Vec2Flt const& other) const
    {
        return vexor::detail::RoundToSingle(0.5 * Vec2Dbl(*this).Cross(Vec2Dbl(other)));
    }

    // ---- Projection and perpendicular --------------------------------------------------------

    /// The component of this vector along `target`: the dot product with the normalised target is
    /// rounded before it scales. Raises `VexorNullVector` if `target` is null.
    VEXOR_INLINE Vec2Flt GetProjectionOnTo(Vec2Flt const& target) const;
    /// (−y, x) normalised: this vector turned a quarter counter-clockwise. A null vector raises
    /// `VexorNullVector`.
    VEXOR_INLINE Vec2Flt GetPerpendicular() const { return Vec2Flt(-y, x).GetNormalizedCopy(); }
};

// ---- Free operators: each component rounded once -----------------------------------------------------

/// Each component times the scalar, rounded once.
VEXOR_INLINE Vec2Flt operator*(Vec2Flt const& vector, float scalar)
{
    return Vec2Flt(vector.x * scalar, vector.y * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE Vec2Flt operator*(float scalar, Vec2Flt const& vector)
{
    return vector * scalar;
}

/// Rounds the reciprocal 1 / scalar to single and multiplies by it; `operator/=` divides.
VEXOR_INLINE Vec2Flt operator/(Vec2Flt const& vector, float scalar)
{
    return vector * (1.0f / scalar);
}

/// The sum, each component rounded once.
VEXOR_INLINE Vec2Flt operator+(Vec2Flt const& left, Vec2Flt const& right)
{
    return Vec2Flt(left.x + right.x, left.y + right.y);
}

/// The difference, each component rounded once.
VEXOR_INLINE Vec2Flt operator-(Vec2Flt const& left, Vec2Flt const& right)
{
    return Vec2Flt(left.x - right.x, left.y - right.y);
}

/// The negated copy: flips the sign of each component; 0 becomes −0.
VEXOR_INLINE Vec2Flt operator-(Vec2Flt const& vector)
{
    return vector.GetNegatedCopy();
}

// ---- Members that use them ---------------------------------------------------------------------------

VEXOR_INLINE int Vec2Flt::IsEqualTo(Vec2Flt const& other, float angular, float length) const
{
    return vexor::detail::AreEqual(*this, other, angular, length, [](Vec2Flt const& a, Vec2Flt const& b) {
        return (a - b).LengthSquared();
    });
}

VEXOR_INLINE Vec2Flt Vec2Flt::GetProjectionOnTo(Vec2Flt const& target) const
{
    Vec2Flt const unit = target.GetNormalizedCopy();
    return Dot(unit) * unit;
}

// ---- Members of Vec2Dbl that name Vec2Flt --------------------------------------------------------------

VEXOR_INLINE Vec2Dbl::Vec2Dbl(Vec2Flt const& other) : x(other.x), y(other.y) {}

VEXOR_INLINE Vec2Dbl& Vec2Dbl::operator=(Vec2Flt const& other)
{
    return SetValue(other.x, other.y);
}

VEXOR_INLINE Vec2Flt Vec2Dbl::ToVec2Flt() const
{
    using vexor::detail::RoundToSingle;
    return Vec2Flt(RoundToSingle(x), RoundToSingle(y));
}

VEXOR_EXACT_END
