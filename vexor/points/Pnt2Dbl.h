#pragma once
#include <vexor/points/detail/Distance.h>
#include <vexor/vectors/Vec2Dbl.h>
#include <vexor/vectors/Vec2Flt.h>

class Pnt2Flt;

VEXOR_EXACT_BEGIN

/// A point in the plane: two doubles and nothing else, laid out as an array of two, as in `Vec2Dbl`.
///
/// A point is a place and a vector a displacement, as `Pnt3Dbl` explains. Predicates return 1 or 0; here
/// `operator<` does too.
class VEXOR_CLASS Pnt2Dbl {
public:
    double x; ///< Coordinate 0.
    double y; ///< Coordinate 1.

    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the coordinates unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Pnt2Dbl() { vexor::detail::LeaveUnset(x, y); }
    /// Sets both coordinates to the value.
    VEXOR_INLINE constexpr Pnt2Dbl(double value) : x(value), y(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Pnt2Dbl(Integer value) : Pnt2Dbl(static_cast<double>(value))
    {}
    /// Sets the coordinates, in order.
    VEXOR_INLINE constexpr Pnt2Dbl(double x0, double y0) : x(x0), y(y0) {}
    /// Copies two doubles from the array.
    VEXOR_INLINE constexpr Pnt2Dbl(double* values) : x(values[0]), y(values[1]) {}
    /// Copies both coordinates.
    Pnt2Dbl(Pnt2Dbl const&) = default;
    /// The point at the end of the vector from the origin.
    VEXOR_INLINE constexpr Pnt2Dbl(Vec2Dbl const& vector) : x(vector.x), y(vector.y) {}
    /// Widens each coordinate exactly. Requires Pnt2Flt.h.
    VEXOR_INLINE Pnt2Dbl(Pnt2Flt const& other);
    /// Widens each component exactly.
    VEXOR_INLINE Pnt2Dbl(Vec2Flt const& vector) : x(vector.x), y(vector.y) {}
    ~Pnt2Dbl() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies both coordinates.
    Pnt2Dbl& operator=(Pnt2Dbl const&) = default;
    /// Copies the vector's components as coordinates.
    VEXOR_INLINE constexpr Pnt2Dbl& operator=(Vec2Dbl const& vector) { return SetValue(vector.x, vector.y); }
    /// Widens each coordinate exactly. Requires Pnt2Flt.h.
    VEXOR_INLINE Pnt2Dbl& operator=(Pnt2Flt const& other);
    /// Widens each component exactly.
    VEXOR_INLINE Pnt2Dbl& operator=(Vec2Flt const& vector) { return SetValue(vector.x, vector.y); }

    /// Sets both coordinates to the value.
    VEXOR_INLINE constexpr Pnt2Dbl& SetValue(double value) { return SetValue(value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Pnt2Dbl& SetValue(Integer value)
    {
        return SetValue(static_cast<double>(value));
    }
    /// Sets the coordinates, in order.
    VEXOR_INLINE constexpr Pnt2Dbl& SetValue(double x0, double y0)
    {
        x = x0;
        y = y0;
        return *this;
    }
    /// Copies two doubles from the array.
    VEXOR_INLINE constexpr Pnt2Dbl& SetValue(double const* const values)
    {
        return SetValue(values[0], values[1]);
    }

    /// Writes the coordinates to the arguments, in order. Not const; the form that fills an array is const.
    VEXOR_INLINE constexpr void GetValue(double& x0, double& y0)
    {
        double const copy[2] = {x, y}; // an argument may be one of our own coordinates
        x0 = copy[0];
        y0 = copy[1];
    }
    /// Writes the coordinates to the array, in order.
    VEXOR_INLINE constexpr void GetValue(double* const values) const
    {
        double const copy[2] = {x, y}; // the array may overlap this object
        values[0] = copy[0];
        values[1] = copy[1];
    }

    /// The coordinate of the index 0 or 1. The index is not checked.
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

    /// The vector from the origin to this point.
    VEXOR_INLINE constexpr Vec2Dbl Vector() const { return Vec2Dbl(x, y); }
    /// Rounds each coordinate to single. Requires Pnt2Flt.h.
    VEXOR_INLINE Pnt2Flt ToPnt2Flt() const;

    // ---- Arithmetic --------------------------------------------------------------------------

    /// Adds coordinates: the sum of two points is a point.
    VEXOR_INLINE constexpr Pnt2Dbl operator+(Pnt2Dbl const& other) const
    {
        return Pnt2Dbl(x + other.x, y + other.y);
    }
    /// This point moved by the vector.
    VEXOR_INLINE constexpr Pnt2Dbl operator+(Vec2Dbl const& vector) const
    {
        return Pnt2Dbl(x + vector.x, y + vector.y);
    }
    /// The vector from `other` to this point.
    VEXOR_INLINE constexpr Vec2Dbl operator-(Pnt2Dbl const& other) const
    {
        return Vec2Dbl(x - other.x, y - other.y);
    }
    /// This point moved back by the vector.
    VEXOR_INLINE constexpr Pnt2Dbl operator-(Vec2Dbl const& vector) const
    {
        return Pnt2Dbl(x - vector.x, y - vector.y);
    }
    /// Adds coordinate by coordinate.
    VEXOR_INLINE constexpr Pnt2Dbl& operator+=(Pnt2Dbl const& other)
    {
        return SetValue(x + other.x, y + other.y);
    }
    /// Adds coordinate by coordinate.
    VEXOR_INLINE constexpr Pnt2Dbl& operator+=(Vec2Dbl const& vector)
    {
        return SetValue(x + vector.x, y + vector.y);
    }
    // No operator-= takes a point, since the difference of two points is a vector.
    /// Subtracts coordinate by coordinate.
    VEXOR_INLINE constexpr Pnt2Dbl& operator-=(Vec2Dbl const& vector)
    {
        return SetValue(x - vector.x, y - vector.y);
    }
    /// Multiplies each coordinate by the scalar.
    VEXOR_INLINE constexpr Pnt2Dbl& operator*=(double scalar) { return SetValue(x * scalar, y * scalar); }
    /// Divides each coordinate by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE constexpr Pnt2Dbl& operator/=(double scalar) { return SetValue(x / scalar, y / scalar); }

    // ---- Distance ----------------------------------------------------------------------------

    /// The squared distance (0 + dx²) + dy², with d this point minus the other: a plain sum. It has full
    /// precision for differences between about 1e-146 and 1e153. Above, it overflows to infinity. Below, it
    /// loses digits; below about 1e-162 it is 0.
    VEXOR_INLINE constexpr double DistanceSqTo(Pnt2Dbl const& other) const
    {
        using vexor::detail::AddSquare;
        return AddSquare(AddSquare<double>(0.0, x - other.x), y - other.y);
    }
    /// The square root of that sum, accurate over the whole range of a double, like a vector's `Length`.
    VEXOR_INLINE double DistanceTo(Pnt2Dbl const& other) const
    {
        double const sum = DistanceSqTo(other);
        if (vexor::detail::IsPlainSum(sum))
            return vexor::detail::SquareRoot(sum);
        double const from[] = {x, y};
        double const to[] = {other.x, other.y};
        return vexor::detail::FullRangeDistance(from, to, 2);
    }

    // ---- Comparison --------------------------------------------------------------------------

    /// Exact equality of all coordinates; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(Pnt2Dbl const& other) const
    {
        return int(x == other.x) & int(y == other.y);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Pnt2Dbl const& other) const { return !(*this == other); }
    /// Strict lexicographic order: the first coordinate that is not equal decides. A NaN there gives 0.
    /// The result is an int here and a bool on `Pnt3Dbl`: callers may store or add it as such.
    VEXOR_INLINE constexpr int operator<(Pnt2Dbl const& other) const
    {
        if (!(x == other.x))
            return x < other.x;
        return y < other.y;
    }
    /// 1 if the distance to the other is at most `tolerance`, a plain length and not squared, unlike the
    /// tolerances of the vectors' predicates. A negative one, the default, selects the global's length
    /// tolerance.
    VEXOR_INLINE int IsEqualTo(Pnt2Dbl const& other, double tolerance = -1.0) const
    {
        return DistanceSqTo(other) <= vexor::detail::SquaredDistanceLimit(tolerance);
    }
    /// 1 if both coordinates are less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsLessThan(Pnt2Dbl const& other) const
    {
        return int(x <= other.x) & int(y <= other.y);
    }
    /// 1 if both coordinates are greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsGreaterThan(Pnt2Dbl const& other) const
    {
        return int(x >= other.x) & int(y >= other.y);
    }
};

// ---- Free operators --------------------------------------------------------------------------------

/// Each coordinate times the scalar.
VEXOR_INLINE constexpr Pnt2Dbl operator*(Pnt2Dbl const& point, double scalar)
{
    return Pnt2Dbl(point.x * scalar, point.y * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Pnt2Dbl operator*(double scalar, Pnt2Dbl const& point)
{
    return point * scalar;
}

/// Computes 1 / scalar once and multiplies by it; `operator/=` divides. The two results may differ in the
/// last place.
VEXOR_INLINE constexpr Pnt2Dbl operator/(Pnt2Dbl const& point, double scalar)
{
    return point * (1.0 / scalar);
}

// ---- Members of Vec2Dbl that name Pnt2Dbl --------------------------------------------------------------

VEXOR_INLINE constexpr Vec2Dbl& Vec2Dbl::operator=(Pnt2Dbl const& point)
{
    return SetValue(point.x, point.y);
}

VEXOR_EXACT_END
