#pragma once
#include <vexor/points/detail/Distance.h>
#include <vexor/vectors/Vec3Dbl.h>
#include <vexor/vectors/Vec3Flt.h>

class Pnt3Flt;

VEXOR_EXACT_BEGIN

/// A point in space: three doubles and nothing else, laid out as an array of three, as in `Vec3Dbl`.
///
/// A point is a place; a vector is a displacement. The difference of two points is a vector, and a vector
/// moves a point. A point has no length, no direction and no products; to treat it as a vector, call
/// `Vector`. Points can still be added and scaled, so that means and blends of points can be written.
/// Predicates return 1 or 0.
class VEXOR_CLASS Pnt3Dbl {
public:
    double x; ///< Coordinate 0.
    double y; ///< Coordinate 1.
    double z; ///< Coordinate 2.

    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the coordinates unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Pnt3Dbl() { vexor::detail::LeaveUnset(x, y, z); }
    /// Sets all three coordinates to the value.
    VEXOR_INLINE constexpr Pnt3Dbl(double value) : x(value), y(value), z(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Pnt3Dbl(Integer value) : Pnt3Dbl(static_cast<double>(value))
    {}
    /// Sets the coordinates, in order.
    VEXOR_INLINE constexpr Pnt3Dbl(double x0, double y0, double z0) : x(x0), y(y0), z(z0) {}
    /// Copies three doubles from the array.
    VEXOR_INLINE constexpr Pnt3Dbl(double* values) : x(values[0]), y(values[1]), z(values[2]) {}
    /// Copies the three coordinates.
    Pnt3Dbl(Pnt3Dbl const&) = default;
    /// The point at the end of the vector from the origin.
    VEXOR_INLINE constexpr Pnt3Dbl(Vec3Dbl const& vector) : x(vector.x), y(vector.y), z(vector.z) {}
    /// Widens each coordinate exactly. Requires Pnt3Flt.h.
    VEXOR_INLINE Pnt3Dbl(Pnt3Flt const& other);
    /// Widens each component exactly.
    VEXOR_INLINE Pnt3Dbl(Vec3Flt const& vector) : x(vector.x), y(vector.y), z(vector.z) {}
    ~Pnt3Dbl() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies the three coordinates.
    Pnt3Dbl& operator=(Pnt3Dbl const&) = default;
    /// Copies the vector's components as coordinates.
    VEXOR_INLINE constexpr Pnt3Dbl& operator=(Vec3Dbl const& vector)
    {
        return SetValue(vector.x, vector.y, vector.z);
    }
    /// Widens each coordinate exactly. Requires Pnt3Flt.h.
    VEXOR_INLINE Pnt3Dbl& operator=(Pnt3Flt const& other);
    /// Widens each component exactly.
    VEXOR_INLINE Pnt3Dbl& operator=(Vec3Flt const& vector) { return SetValue(vector.x, vector.y, vector.z); }

    /// Sets all three coordinates to the value.
    VEXOR_INLINE constexpr Pnt3Dbl& SetValue(double value) { return SetValue(value, value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Pnt3Dbl& SetValue(Integer value)
    {
        return SetValue(static_cast<double>(value));
    }
    /// Sets the coordinates, in order.
    VEXOR_INLINE constexpr Pnt3Dbl& SetValue(double x0, double y0, double z0)
    {
        x = x0;
        y = y0;
        z = z0;
        return *this;
    }
    /// Copies three doubles from the array.
    VEXOR_INLINE constexpr Pnt3Dbl& SetValue(double const* const values)
    {
        return SetValue(values[0], values[1], values[2]);
    }

    /// Writes the coordinates to the arguments, in order. Not const; the form that fills an array is const.
    VEXOR_INLINE constexpr void GetValue(double& x0, double& y0, double& z0)
    {
        double const copy[3] = {x, y, z}; // an argument may be one of our own coordinates
        x0 = copy[0];
        y0 = copy[1];
        z0 = copy[2];
    }
    /// Writes the coordinates to the array, in order.
    VEXOR_INLINE constexpr void GetValue(double* const values) const
    {
        double const copy[3] = {x, y, z}; // the array may overlap this object
        values[0] = copy[0];
        values[1] = copy[1];
        values[2] = copy[2];
    }

    /// The coordinate of the index 0, 1 or 2. The index is not checked.
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

    /// The vector from the origin to this point.
    VEXOR_INLINE constexpr Vec3Dbl Vector() const { return Vec3Dbl(x, y, z); }
    /// Rounds each coordinate to single. Requires Pnt3Flt.h.
    VEXOR_INLINE Pnt3Flt ToPnt3Flt() const;

    // ---- Arithmetic --------------------------------------------------------------------------

    /// Adds coordinates: the sum of two points is a point.
    VEXOR_INLINE constexpr Pnt3Dbl operator+(Pnt3Dbl const& other) const
    {
        return Pnt3Dbl(x + other.x, y + other.y, z + other.z);
    }
    /// This point moved by the vector.
    VEXOR_INLINE constexpr Pnt3Dbl operator+(Vec3Dbl const& vector) const
    {
        return Pnt3Dbl(x + vector.x, y + vector.y, z + vector.z);
    }
    /// The vector from `other` to this point.
    VEXOR_INLINE constexpr Vec3Dbl operator-(Pnt3Dbl const& other) const
    {
        return Vec3Dbl(x - other.x, y - other.y, z - other.z);
    }
    /// This point moved back by the vector.
    VEXOR_INLINE constexpr Pnt3Dbl operator-(Vec3Dbl const& vector) const
    {
        return Pnt3Dbl(x - vector.x, y - vector.y, z - vector.z);
    }
    /// Adds coordinate by coordinate.
    VEXOR_INLINE constexpr Pnt3Dbl& operator+=(Pnt3Dbl const& other)
    {
        return SetValue(x + other.x, y + other.y, z + other.z);
    }
    /// Adds coordinate by coordinate.
    VEXOR_INLINE constexpr Pnt3Dbl& operator+=(Vec3Dbl const& vector)
    {
        return SetValue(x + vector.x, y + vector.y, z + vector.z);
    }
    // No operator-= takes a point, since the difference of two points is a vector.
    /// Subtracts coordinate by coordinate.
    VEXOR_INLINE constexpr Pnt3Dbl& operator-=(Vec3Dbl const& vector)
    {
        return SetValue(x - vector.x, y - vector.y, z - vector.z);
    }
    /// Multiplies each coordinate by the scalar.
    VEXOR_INLINE constexpr Pnt3Dbl& operator*=(double scalar)
    {
        return SetValue(x * scalar, y * scalar, z * scalar);
    }
    /// Divides each coordinate by the scalar; the free `operator/` multiplies by a reciprocal.
    VEXOR_INLINE constexpr Pnt3Dbl& operator/=(double scalar)
    {
        return SetValue(x / scalar, y / scalar, z / scalar);
    }

    // ---- Distance ----------------------------------------------------------------------------

    /// The squared distance ((0 + dx²) + dy²) + dz², with d this point minus the other: a plain sum. It has
    /// full precision for differences between about 1e-146 and 1e153. Above, it overflows to infinity. Below,
    /// it loses digits; below about 1e-162 it is 0.
    VEXOR_INLINE constexpr double DistanceSqTo(Pnt3Dbl const& other) const
    {
        using vexor::detail::AddSquare;
        return AddSquare(AddSquare(AddSquare<double>(0.0, x - other.x), y - other.y), z - other.z);
    }
    /// The square root of that sum, accurate over the whole range of a double, like a vector's `Length`.
    VEXOR_INLINE double DistanceTo(Pnt3Dbl const& other) const
    {
        double const sum = DistanceSqTo(other);
        if (vexor::detail::IsPlainSum(sum))
            return vexor::detail::SquareRoot(sum);
        double const from[] = {x, y, z};
        double const to[] = {other.x, other.y, other.z};
        return vexor::detail::FullRangeDistance(from, to, 3);
    }

    // ---- Comparison --------------------------------------------------------------------------

    /// Exact equality of all coordinates; a NaN is unequal to everything.
    VEXOR_INLINE constexpr int operator==(Pnt3Dbl const& other) const
    {
        return int(x == other.x) & int(y == other.y) & int(z == other.z);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Pnt3Dbl const& other) const { return !(*this == other); }
    /// Strict lexicographic order: the first coordinate that is not equal decides. A NaN there gives
    /// false.
    VEXOR_INLINE constexpr bool operator<(Pnt3Dbl const& other) const
    {
        if (!(x == other.x))
            return x < other.x;
        if (!(y == other.y))
            return y < other.y;
        return z < other.z;
    }
    /// 1 if the distance to the other is at most `tolerance`, a plain length and not squared, unlike the
    /// tolerances of the vectors' predicates. A negative one, the default, selects the global's length
    /// tolerance.
    VEXOR_INLINE int IsEqualTo(Pnt3Dbl const& other, double tolerance = -1.0) const
    {
        return DistanceSqTo(other) <= vexor::detail::SquaredDistanceLimit(tolerance);
    }
    /// 1 if every coordinate is less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsLessThan(Pnt3Dbl const& other) const
    {
        return int(x <= other.x) & int(y <= other.y) & int(z <= other.z);
    }
    /// 1 if every coordinate is greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsGreaterThan(Pnt3Dbl const& other) const
    {
        return int(x >= other.x) & int(y >= other.y) & int(z >= other.z);
    }
};

// ---- Free operators --------------------------------------------------------------------------------

/// Each coordinate times the scalar.
VEXOR_INLINE constexpr Pnt3Dbl operator*(Pnt3Dbl const& point, double scalar)
{
    return Pnt3Dbl(point.x * scalar, point.y * scalar, point.z * scalar);
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Pnt3Dbl operator*(double scalar, Pnt3Dbl const& point)
{
    return point * scalar;
}

/// Computes 1 / scalar once and multiplies by it; `operator/=` divides. The two results may differ in the
/// last place.
VEXOR_INLINE constexpr Pnt3Dbl operator/(Pnt3Dbl const& point, double scalar)
{
    return point * (1.0 / scalar);
}

// ---- Members of Vec3Dbl that name Pnt3Dbl --------------------------------------------------------------

VEXOR_INLINE constexpr Vec3Dbl& Vec3Dbl::operator=(Pnt3Dbl const& point)
{
    return SetValue(point.x, point.y, point.z);
}

VEXOR_EXACT_END
