#pragma once
#include <vexor/points/Pnt2Dbl.h>

VEXOR_EXACT_BEGIN

/// A point in the plane in single precision: two floats and nothing else, laid out as an array of two.
///
/// It differs from `Pnt3Flt`: double vectors move it, and it accepts double scalars as well as single ones;
/// its operators round these differently. `p + v` uses the double component unrounded, `p += v` rounds it to
/// single first, so the two can differ. Two of these points cannot be added or ordered. A `Vec2Flt` can be
/// assigned but does not move a point: `p + w` widens w to a `Vec2Dbl`, and `p - w` does not compile, since w
/// could also convert to a point.
class VEXOR_CLASS Pnt2Flt {
public:
    float x; ///< Coordinate 0.
    float y; ///< Coordinate 1.

    // ---- Construction ------------------------------------------------------------------------
    // No constructor takes a `Pnt2Dbl` or `Vec2Dbl`: to narrow one, assign it or call `Pnt2Dbl::ToPnt2Flt`.

    /// Leaves the coordinates unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Pnt2Flt() { vexor::detail::LeaveUnset(x, y); }
    /// Sets both coordinates to the value.
    VEXOR_INLINE Pnt2Flt(float value) : x(value), y(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Pnt2Flt(Integer value) : Pnt2Flt(static_cast<float>(value))
    {}
    /// Sets the coordinates, in order.
    VEXOR_INLINE Pnt2Flt(float x0, float y0) : x(x0), y(y0) {}
    /// Copies two floats from the array.
    VEXOR_INLINE Pnt2Flt(float* values) : x(values[0]), y(values[1]) {}
    /// Copies both coordinates.
    Pnt2Flt(Pnt2Flt const&) = default;
    /// The point at the end of the vector from the origin.
    VEXOR_INLINE Pnt2Flt(Vec2Flt const& vector) : x(vector.x), y(vector.y) {}
    ~Pnt2Flt() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies both coordinates.
    Pnt2Flt& operator=(Pnt2Flt const&) = default;
    /// Copies the vector's components as coordinates.
    VEXOR_INLINE Pnt2Flt& operator=(Vec2Flt const& vector) { return SetValue(vector.x, vector.y); }
    /// Rounds each coordinate to single.
    VEXOR_INLINE Pnt2Flt& operator=(Pnt2Dbl const& other)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(RoundToSingle(other.x), RoundToSingle(other.y));
    }
    /// Rounds each component to single.
    VEXOR_INLINE Pnt2Flt& operator=(Vec2Dbl const& vector)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(RoundToSingle(vector.x), RoundToSingle(vector.y));
    }

    /// Sets both coordinates to the value.
    VEXOR_INLINE Pnt2Flt& SetValue(float value) { return SetValue(value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Pnt2Flt& SetValue(Integer value)
    {
        return SetValue(static_cast<float>(value));
    }
    /// Sets the coordinates, in order.
    VEXOR_INLINE Pnt2Flt& SetValue(float x0, float y0)
    {
        x = x0;
        y = y0;
        return *this;
    }
    /// Copies two floats from the array.
    VEXOR_INLINE Pnt2Flt& SetValue(float const* const values) { return SetValue(values[0], values[1]); }

    /// Writes the coordinates to the arguments, in order. Not const; the form that fills an array is const.
    VEXOR_INLINE void GetValue(float& x0, float& y0)
    {
        float const copy[2] = {x, y}; // an argument may be one of our own coordinates
        x0 = copy[0];
        y0 = copy[1];
    }
    /// Writes the coordinates to the array, in order.
    VEXOR_INLINE void GetValue(float* const values) const
    {
        float const copy[2] = {x, y}; // the array may overlap this object
        values[0] = copy[0];
        values[1] = copy[1];
    }

    /// The coordinate of the index 0 or 1. The index is not checked.
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

    /// The vector from the origin to this point.
    VEXOR_INLINE Vec2Flt Vector() const { return Vec2Flt(x, y); }

    // ---- Arithmetic: the operators round at different points ---------------------------------

    /// The vector from `other` to this point; each component rounded once.
    VEXOR_INLINE Vec2Flt operator-(Pnt2Flt const& other) const { return Vec2Flt(x - other.x, y - other.y); }
    /// This point moved by the vector: added in double, the sum rounded once.
    VEXOR_INLINE Pnt2Flt operator+(Vec2Dbl const& vector) const
    {
        using vexor::detail::RoundToSingle;
        return Pnt2Flt(RoundToSingle(x + vector.x), RoundToSingle(y + vector.y));
    }
    /// This point moved back by the vector: subtracted in double, the difference rounded once.
    VEXOR_INLINE Pnt2Flt operator-(Vec2Dbl const& vector) const
    {
        using vexor::detail::RoundToSingle;
        return Pnt2Flt(RoundToSingle(x - vector.x), RoundToSingle(y - vector.y));
    }
    /// Moves this point by the vector. Unlike `operator+`, rounds each component of the vector to single
    /// first, then the sum.
    VEXOR_INLINE Pnt2Flt& operator+=(Vec2Dbl const& vector)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(x + RoundToSingle(vector.x), y + RoundToSingle(vector.y));
    }
    /// Moves this point back by the vector. Unlike `operator-`, rounds each component of the vector to single
    /// first, then the difference.
    VEXOR_INLINE Pnt2Flt& operator-=(Vec2Dbl const& vector)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(x - RoundToSingle(vector.x), y - RoundToSingle(vector.y));
    }
    /// Multiplies each coordinate by the scalar, rounded once.
    VEXOR_INLINE Pnt2Flt& operator*=(float scalar) { return SetValue(x * scalar, y * scalar); }
    /// The same with a double scalar, which is rounded to single first.
    VEXOR_INLINE Pnt2Flt& operator*=(double scalar) { return *this *= vexor::detail::RoundToSingle(scalar); }
    /// Divides each coordinate by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE Pnt2Flt& operator/=(float scalar) { return SetValue(x / scalar, y / scalar); }
    /// The same with a double scalar, which is rounded to single first.
    VEXOR_INLINE Pnt2Flt& operator/=(double scalar) { return *this /= vexor::detail::RoundToSingle(scalar); }

    // ---- Distance ----------------------------------------------------------------------------

    /// The squared distance (0 + dx²) + dy², with d this point minus the other. Each difference is rounded to
    /// single before it is squared, and the running sum after each addition; the squares themselves are
    /// exact.
    VEXOR_INLINE float DistanceSqTo(Pnt2Flt const& other) const
    {
        using vexor::detail::AddSquare;
        return AddSquare(AddSquare(0.0f, x - other.x), y - other.y);
    }
    /// The square root of the rounded `DistanceSqTo`, rounded. It is infinite if the square overflows a
    /// float.
    VEXOR_INLINE float DistanceTo(Pnt2Flt const& other) const
    {
        return vexor::detail::RoundToSingle(vexor::detail::SquareRoot(double(DistanceSqTo(other))));
    }

    // ---- Comparison --------------------------------------------------------------------------
    // The class has no operator<.

    /// Exact equality of all coordinates; a NaN is unequal to everything.
    VEXOR_INLINE int operator==(Pnt2Flt const& other) const { return int(x == other.x) & int(y == other.y); }
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(Pnt2Flt const& other) const { return !(*this == other); }
    /// 1 if the distance to the other is at most `tolerance`, a plain length and not squared. It is a double,
    /// unlike that of `Pnt3Flt`, and its square is not rounded to single. The squared distance is rounded to
    /// single at every step. A negative one, the default, selects the global's length tolerance.
    VEXOR_INLINE int IsEqualTo(Pnt2Flt const& other, double tolerance = -1.0) const
    {
        return double(DistanceSqTo(other)) <= vexor::detail::SquaredDistanceLimit(tolerance);
    }
    /// 1 if both coordinates are less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsLessThan(Pnt2Flt const& other) const { return int(x <= other.x) & int(y <= other.y); }
    /// 1 if both coordinates are greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsGreaterThan(Pnt2Flt const& other) const
    {
        return int(x >= other.x) & int(y >= other.y);
    }
};

// ---- Free operators: a double scalar is rounded to single first, each product once -------------------

/// Each coordinate times the scalar, rounded once.
VEXOR_INLINE Pnt2Flt operator*(Pnt2Flt const& point, float scalar)
{
    return Pnt2Flt(point.x * scalar, point.y * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE Pnt2Flt operator*(float scalar, Pnt2Flt const& point)
{
    return point * scalar;
}

/// Rounds the scalar to single, then each product once.
VEXOR_INLINE Pnt2Flt operator*(Pnt2Flt const& point, double scalar)
{
    return point * vexor::detail::RoundToSingle(scalar);
}

/// The same, the scalar on the left: it is rounded to single first.
VEXOR_INLINE Pnt2Flt operator*(double scalar, Pnt2Flt const& point)
{
    return point * scalar;
}

/// Rounds the reciprocal 1 / scalar to single and multiplies by it; `operator/=` divides.
VEXOR_INLINE Pnt2Flt operator/(Pnt2Flt const& point, float scalar)
{
    return point * (1.0f / scalar);
}

/// Rounds the scalar to single, and then its reciprocal.
VEXOR_INLINE Pnt2Flt operator/(Pnt2Flt const& point, double scalar)
{
    return point / vexor::detail::RoundToSingle(scalar);
}

// ---- Members of earlier classes that name Pnt2Flt ------------------------------------------------------

VEXOR_INLINE Pnt2Dbl::Pnt2Dbl(Pnt2Flt const& other) : x(other.x), y(other.y) {}

VEXOR_INLINE Pnt2Dbl& Pnt2Dbl::operator=(Pnt2Flt const& other)
{
    return SetValue(other.x, other.y);
}

VEXOR_INLINE Pnt2Flt Pnt2Dbl::ToPnt2Flt() const
{
    using vexor::detail::RoundToSingle;
    return Pnt2Flt(RoundToSingle(x), RoundToSingle(y));
}

VEXOR_INLINE Vec2Dbl& Vec2Dbl::operator=(Pnt2Flt const& point)
{
    return SetValue(point.x, point.y);
}

VEXOR_INLINE Vec2Flt& Vec2Flt::operator=(Pnt2Flt const& point)
{
    return SetValue(point.x, point.y);
}

VEXOR_INLINE Vec2Flt& Vec2Flt::operator=(Pnt2Dbl const& point)
{
    using vexor::detail::RoundToSingle;
    return SetValue(RoundToSingle(point.x), RoundToSingle(point.y));
}

VEXOR_EXACT_END
