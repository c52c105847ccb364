#pragma once
#include <vexor/points/Pnt3Dbl.h>

VEXOR_EXACT_BEGIN

/// A point in space in single precision: three floats and nothing else, laid out as an array of three.
///
/// `Pnt3Dbl` explains what a point is. Each coordinate of a sum, difference, product or quotient is rounded
/// to single once. Distances are rounded to single at every step, so they overflow as floats do.
class VEXOR_CLASS Pnt3Flt {
public:
    float x; ///< Coordinate 0.
    float y; ///< Coordinate 1.
    float z; ///< Coordinate 2.

    // ---- Construction ------------------------------------------------------------------------
    // No constructor takes a `Pnt3Dbl` or `Vec3Dbl`: to narrow one, assign it or call `Pnt3Dbl::ToPnt3Flt`.

    /// Leaves the coordinates unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Pnt3Flt() { vexor::detail::LeaveUnset(x, y, z); }
    /// Sets all three coordinates to the value.
    VEXOR_INLINE Pnt3Flt(float value) : x(value), y(value), z(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Pnt3Flt(Integer value) : Pnt3Flt(static_cast<float>(value))
    {}
    /// Sets the coordinates, in order.
    VEXOR_INLINE Pnt3Flt(float x0, float y0, float z0) : x(x0), y(y0), z(z0) {}
    /// Copies three floats from the array.
    VEXOR_INLINE Pnt3Flt(float* values) : x(values[0]), y(values[1]), z(values[2]) {}
    /// Copies the three coordinates.
    Pnt3Flt(Pnt3Flt const&) = default;
    /// The point at the end of the vector from the origin.
    VEXOR_INLINE Pnt3Flt(Vec3Flt const& vector) : x(vector.x), y(vector.y), z(vector.z) {}
    ~Pnt3Flt() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies the three coordinates.
    Pnt3Flt& operator=(Pnt3Flt const&) = default;
    /// Copies the vector's components as coordinates.
    VEXOR_INLINE Pnt3Flt& operator=(Vec3Flt const& vector) { return SetValue(vector.x, vector.y, vector.z); }
    /// Rounds each coordinate to single.
    VEXOR_INLINE Pnt3Flt& operator=(Pnt3Dbl const& other)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(RoundToSingle(other.x), RoundToSingle(other.y), RoundToSingle(other.z));
    }
    /// Rounds each component to single.
    VEXOR_INLINE Pnt3Flt& operator=(Vec3Dbl const& vector)
    {
        using vexor::detail::RoundToSingle;
        return SetValue(RoundToSingle(vector.x), RoundToSingle(vector.y), RoundToSingle(vector.z));
    }

    /// Sets all three coordinates to the value.
    VEXOR_INLINE Pnt3Flt& SetValue(float value) { return SetValue(value, value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    Pnt3Flt& SetValue(Integer value)
    {
        return SetValue(static_cast<float>(value));
    }
    /// Sets the coordinates, in order.
    VEXOR_INLINE Pnt3Flt& SetValue(float x0, float y0, float z0)
    {
        x = x0;
        y = y0;
        z = z0;
        return *this;
    }
    /// Copies three floats from the array.
    VEXOR_INLINE Pnt3Flt& SetValue(float const* const values)
    {
        return SetValue(values[0], values[1], values[2]);
    }

    /// Writes the coordinates to the arguments, in order. Not const; the form that fills an array is const.
    VEXOR_INLINE void GetValue(float& x0, float& y0, float& z0)
    {
        float const copy[3] = {x, y, z}; // an argument may be one of our own coordinates
        x0 = copy[0];
        y0 = copy[1];
        z0 = copy[2];
    }
    /// Writes the coordinates to the array, in order.
    VEXOR_INLINE void GetValue(float* const values) const
    {
        float const copy[3] = {x, y, z}; // the array may overlap this object
        values[0] = copy[0];
        values[1] = copy[1];
        values[2] = copy[2];
    }

    /// The coordinate of the index 0, 1 or 2. The index is not checked.
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

    /// The vector from the origin to this point.
    VEXOR_INLINE Vec3Flt Vector() const { return Vec3Flt(x, y, z); }

    // ---- Arithmetic: each coordinate rounded once --------------------------------------------

    /// Adds coordinates: the sum of two points is a point.
    VEXOR_INLINE Pnt3Flt operator+(Pnt3Flt const& other) const
    {
        return Pnt3Flt(x + other.x, y + other.y, z + other.z);
    }
    /// This point moved by the vector.
    VEXOR_INLINE Pnt3Flt operator+(Vec3Flt const& vector) const
    {
        return Pnt3Flt(x + vector.x, y + vector.y, z + vector.z);
    }
    /// The vector from `other` to this point.
    VEXOR_INLINE Vec3Flt operator-(Pnt3Flt const& other) const
    {
        return Vec3Flt(x - other.x, y - other.y, z - other.z);
    }
    /// This point moved back by the vector.
    VEXOR_INLINE Pnt3Flt operator-(Vec3Flt const& vector) const
    {
        return Pnt3Flt(x - vector.x, y - vector.y, z - vector.z);
    }
    /// Adds coordinate by coordinate.
    VEXOR_INLINE Pnt3Flt& operator+=(Pnt3Flt const& other)
    {
        return SetValue(x + other.x, y + other.y, z + other.z);
    }
    /// Adds coordinate by coordinate.
    VEXOR_INLINE Pnt3Flt& operator+=(Vec3Flt const& vector)
    {
        return SetValue(x + vector.x, y + vector.y, z + vector.z);
    }
    // No operator-= takes a point, since the difference of two points is a vector.
    /// Subtracts coordinate by coordinate.
    VEXOR_INLINE Pnt3Flt& operator-=(Vec3Flt const& vector)
    {
        return SetValue(x - vector.x, y - vector.y, z - vector.z);
    }
    /// Multiplies each coordinate by the scalar.
    VEXOR_INLINE Pnt3Flt& operator*=(float scalar) { return SetValue(x * scalar, y * scalar, z * scalar); }
    /// Divides each coordinate by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE Pnt3Flt& operator/=(float scalar) { return SetValue(x / scalar, y / scalar, z / scalar); }

    // ---- Distance ----------------------------------------------------------------------------

    /// The squared distance ((0 + dx²) + dy²) + dz², with d this point minus the other. Each difference is
    /// rounded to single before it is squared, and the running sum after each addition; the squares
    /// themselves are exact.
    VEXOR_INLINE float DistanceSqTo(Pnt3Flt const& other) const
    {
        using vexor::detail::AddSquare;
        return AddSquare(AddSquare(AddSquare(0.0f, x - other.x), y - other.y), z - other.z);
    }
    /// The square root of the rounded `DistanceSqTo`, rounded. It is infinite if the square overflows a
    /// float.
    VEXOR_INLINE float DistanceTo(Pnt3Flt const& other) const
    {
        return vexor::detail::RoundToSingle(vexor::detail::SquareRoot(double(DistanceSqTo(other))));
    }

    // ---- Comparison --------------------------------------------------------------------------

    /// Exact equality of all coordinates; a NaN is unequal to everything.
    VEXOR_INLINE int operator==(Pnt3Flt const& other) const
    {
        return int(x == other.x) & int(y == other.y) & int(z == other.z);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE int operator!=(Pnt3Flt const& other) const { return !(*this == other); }
    /// Strict lexicographic order: the first coordinate that is not equal decides. A NaN there gives
    /// false.
    VEXOR_INLINE bool operator<(Pnt3Flt const& other) const
    {
        if (!(x == other.x))
            return x < other.x;
        if (!(y == other.y))
            return y < other.y;
        return z < other.z;
    }
    /// 1 if the distance to the other is at most `tolerance`, a plain length and not squared. Its square is
    /// rounded to single. A negative one, the default, selects the global's length tolerance.
    VEXOR_INLINE int IsEqualTo(Pnt3Flt const& other, float tolerance = -1.0f) const
    {
        return DistanceSqTo(other) <= vexor::detail::SquaredDistanceLimit(tolerance);
    }
    /// 1 if every coordinate is less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsLessThan(Pnt3Flt const& other) const
    {
        return int(x <= other.x) & int(y <= other.y) & int(z <= other.z);
    }
    /// 1 if every coordinate is greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE int IsGreaterThan(Pnt3Flt const& other) const
    {
        return int(x >= other.x) & int(y >= other.y) & int(z >= other.z);
    }
};

// ---- Free operators: each coordinate rounded once ----------------------------------------------------

/// Each coordinate times the scalar, rounded once.
VEXOR_INLINE Pnt3Flt operator*(Pnt3Flt const& point, float scalar)
{
    return Pnt3Flt(point.x * scalar, point.y * scalar, point.z * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE Pnt3Flt operator*(float scalar, Pnt3Flt const& point)
{
    return point * scalar;
}

/// Rounds the reciprocal 1 / scalar to single and multiplies by it; `operator/=` divides.
VEXOR_INLINE Pnt3Flt operator/(Pnt3Flt const& point, float scalar)
{
    return point * (1.0f / scalar);
}

// ---- Members of earlier classes that name Pnt3Flt ------------------------------------------------------

VEXOR_INLINE Pnt3Dbl::Pnt3Dbl(Pnt3Flt const& other) : x(other.x), y(other.y), z(other.z) {}

VEXOR_INLINE Pnt3Dbl& Pnt3Dbl::operator=(Pnt3Flt const& other)
{
    return SetValue(other.x, other.y, other.z);
}

VEXOR_INLINE Pnt3Flt Pnt3Dbl::ToPnt3Flt() const
{
    using vexor::detail::RoundToSingle;
    return Pnt3Flt(RoundToSingle(x), RoundToSingle(y), RoundToSingle(z));
}

VEXOR_INLINE Vec3Dbl& Vec3Dbl::operator=(Pnt3Flt const& point)
{
    return SetValue(point.x, point.y, point.z);
}

VEXOR_INLINE Vec3Flt& Vec3Flt::operator=(Pnt3Flt const& point)
{
    return SetValue(point.x, point.y, point.z);
}

VEXOR_INLINE Vec3Flt& Vec3Flt::operator=(Pnt3Dbl const& point)
{
    using vexor::detail::RoundToSingle;
    return SetValue(RoundToSingle(point.x), RoundToSingle(point.y), RoundToSingle(point.z));
}

VEXOR_EXACT_END
