#pragma once
#include <vexor/foundation/Config.h>
#include <vexor/foundation/detail/Element.h>
#include <vexor/foundation/detail/Integer.h>
#include <vexor/foundation/detail/Wrapping.h>
#include <vexor/vectors/detail/Extremes.h>

/// A pair of integers with the members of a vector: two ints and nothing else, laid out as an array of two.
///
/// All arithmetic wraps in two's complement, silently. The class has no conversions to or from other classes,
/// uses no tolerance and raises no exceptions. It has no division and no direction tests. `Length`,
/// `IsEqualTo` and `IsZeroLength` differ in meaning from those of the other vectors.
class VEXOR_CLASS Vec2Int {
public:
    int x; ///< Component 0.
    int y; ///< Component 1.

    // ---- Construction ------------------------------------------------------------------------

    /// Leaves the components unset: they keep what was in memory.
    VEXOR_KEEP_MEMORY VEXOR_INLINE Vec2Int() { vexor::detail::LeaveUnset(x, y); }
    /// Sets both components to the value.
    VEXOR_INLINE constexpr Vec2Int(int value) : x(value), y(value) {}
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec2Int(Integer value) : Vec2Int(static_cast<int>(value))
    {}
    /// Sets the components, in order.
    VEXOR_INLINE constexpr Vec2Int(int x0, int y0) : x(x0), y(y0) {}
    /// Copies two ints from the array.
    VEXOR_INLINE constexpr Vec2Int(int* values) : x(values[0]), y(values[1]) {}
    /// Copies both components.
    Vec2Int(Vec2Int const&) = default;
    ~Vec2Int() = default;

    // ---- Assignment and access ---------------------------------------------------------------

    /// Copies both components.
    Vec2Int& operator=(Vec2Int const&) = default;

    /// Sets both components to the value.
    VEXOR_INLINE constexpr Vec2Int& SetValue(int value) { return SetValue(value, value); }
    /// The same for any integer type, so that a literal 0 is a number and not a null pointer.
    template <class Integer, vexor::detail::IfInteger<Integer> = 0>
    constexpr Vec2Int& SetValue(Integer value)
    {
        return SetValue(static_cast<int>(value));
    }
    /// Sets the components, in order.
    VEXOR_INLINE constexpr Vec2Int& SetValue(int x0, int y0)
    {
        x = x0;
        y = y0;
        return *this;
    }
    /// Copies two ints from the array.
    VEXOR_INLINE constexpr Vec2Int& SetValue(int const* const values)
    {
        return SetValue(values[0], values[1]);
    }

    /// Writes the components to the arguments, in order.
    VEXOR_INLINE constexpr void GetValue(int& x0, int& y0) const
    {
        int const copy[2] = {x, y}; // an argument may be one of our own components
        x0 = copy[0];
        y0 = copy[1];
    }
    /// Writes the components to the array, in order.
    VEXOR_INLINE constexpr void GetValue(int* const values) const { GetValue(values[0], values[1]); }

    /// The component of the index 0 or 1. The index is not checked.
    VEXOR_INLINE constexpr int& operator[](int index)
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index, x, y)
                                          : vexor::detail::ElementOf<int, 2>(*this, index);
    }
    /// The same, read-only.
    VEXOR_INLINE constexpr int const& operator[](int index) const
    {
        return VEXOR_CONSTANT_EVALUATED() ? vexor::detail::FieldOf(index, x, y)
                                          : vexor::detail::ElementOf<int const, 2>(*this, index);
    }
    /// The same operation as `operator[]`.
    VEXOR_INLINE constexpr int& operator()(int index) { return (*this)[index]; }
    /// The same, read-only.
    VEXOR_INLINE constexpr int const& operator()(int index) const { return (*this)[index]; }

    // ---- Arithmetic, all of it wrapping ------------------------------------------------------

    /// Multiplies each component by the scalar.
    VEXOR_INLINE constexpr Vec2Int& operator*=(int scalar)
    {
        using vexor::detail::WrappedProduct;
        return SetValue(WrappedProduct(x, scalar), WrappedProduct(y, scalar));
    }
    /// Adds component by component.
    VEXOR_INLINE constexpr Vec2Int& operator+=(Vec2Int const& other)
    {
        using vexor::detail::WrappedSum;
        return SetValue(WrappedSum(x, other.x), WrappedSum(y, other.y));
    }
    /// Subtracts component by component.
    VEXOR_INLINE constexpr Vec2Int& operator-=(Vec2Int const& other)
    {
        using vexor::detail::WrappedDifference;
        return SetValue(WrappedDifference(x, other.x), WrappedDifference(y, other.y));
    }
    /// Flips the sign of each component; the most negative int stays itself.
    VEXOR_INLINE constexpr Vec2Int& Negate() { return *this = GetNegatedCopy(); }
    /// The negated copy.
    VEXOR_INLINE constexpr Vec2Int GetNegatedCopy() const
    {
        using vexor::detail::WrappedNegation;
        return Vec2Int(WrappedNegation(x), WrappedNegation(y));
    }

    // ---- Products ----------------------------------------------------------------------------

    /// The dot product x·ox + y·oy.
    VEXOR_INLINE constexpr int Dot(Vec2Int const& other) const
    {
        using vexor::detail::WrappedProduct;
        return vexor::detail::WrappedSum(WrappedProduct(x, other.x), WrappedProduct(y, other.y));
    }
    /// The component-wise product.
    VEXOR_INLINE constexpr Vec2Int ElemMult(Vec2Int const& other) const
    {
        using vexor::detail::WrappedProduct;
        return Vec2Int(WrappedProduct(x, other.x), WrappedProduct(y, other.y));
    }

    // ---- Length ------------------------------------------------------------------------------

    /// |x| + |y|, the Manhattan length: an integer for every vector, and not the Euclidean length, not even
    /// rounded. That of (3, 4) is 7.
    VEXOR_INLINE int Length() const
    {
        using vexor::detail::WrappedMagnitude;
        return vexor::detail::WrappedSum(WrappedMagnitude(x), WrappedMagnitude(y));
    }

    // ---- Extremes ----------------------------------------------------------------------------
    // On a tie y (index 1) wins, as in Vec2Dbl. The magnitude of the most negative int is that same negative
    // number and compares as negative.

    /// The largest component.
    VEXOR_INLINE constexpr int MaxValue() const { return vexor::detail::MaxOfTwo(x, y); }
    /// The smallest component.
    VEXOR_INLINE constexpr int MinValue() const { return vexor::detail::MinOfTwo(x, y); }
    /// The largest absolute value.
    VEXOR_INLINE constexpr int MaxAbsValue() const
    {
        using vexor::detail::WrappedMagnitude;
        return vexor::detail::MaxOfTwo(WrappedMagnitude(x), WrappedMagnitude(y));
    }
    /// The smallest absolute value.
    VEXOR_INLINE constexpr int MinAbsValue() const
    {
        using vexor::detail::WrappedMagnitude;
        return vexor::detail::MinOfTwo(WrappedMagnitude(x), WrappedMagnitude(y));
    }
    /// The index of the largest component.
    VEXOR_INLINE constexpr int MaxValueIdx() const { return vexor::detail::MaxIndexOfTwo(x, y); }
    /// The index of the smallest component.
    VEXOR_INLINE constexpr int MinValueIdx() const { return vexor::detail::MinIndexOfTwo(x, y); }
    /// The index of the largest absolute value.
    VEXOR_INLINE constexpr int MaxAbsValueIdx() const
    {
        using vexor::detail::WrappedMagnitude;
        return vexor::detail::MaxIndexOfTwo(WrappedMagnitude(x), WrappedMagnitude(y));
    }
    /// The index of the smallest absolute value.
    VEXOR_INLINE constexpr int MinAbsValueIdx() const
    {
        using vexor::detail::WrappedMagnitude;
        return vexor::detail::MinIndexOfTwo(WrappedMagnitude(x), WrappedMagnitude(y));
    }

    // ---- Comparison --------------------------------------------------------------------------
    // The class has no operator<.

    /// 1 if both components are 0.
    VEXOR_INLINE constexpr int IsNull() const { return int(x == 0) & int(y == 0); }
    /// The same as `IsNull`; it takes no tolerance.
    VEXOR_INLINE int IsZeroLength() const { return IsNull(); }
    /// 1 if both components are equal.
    VEXOR_INLINE constexpr int operator==(Vec2Int const& other) const
    {
        return int(x == other.x) & int(y == other.y);
    }
    /// The exact negation of `operator==`.
    VEXOR_INLINE constexpr int operator!=(Vec2Int const& other) const { return !(*this == other); }
    /// 1 if the difference of the two is null. It takes no tolerance. Even with wrapping, the difference is
    /// null only for equal vectors, so the result is that of `operator==`.
    VEXOR_INLINE int IsEqualTo(Vec2Int const& other) const { return *this == other; }
    /// 1 if both components are less than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsLessThan(Vec2Int const& other) const
    {
        return int(x <= other.x) & int(y <= other.y);
    }
    /// 1 if both components are greater than or equal to the other's. Not strict, and not an ordering.
    VEXOR_INLINE constexpr int IsGreaterThan(Vec2Int const& other) const
    {
        return int(x >= other.x) & int(y >= other.y);
    }
};

// ---- Free operators, all of them wrapping ------------------------------------------------------------

/// Each component times the scalar, wrapping.
VEXOR_INLINE constexpr Vec2Int operator*(Vec2Int const& vector, int scalar)
{
    return Vec2Int(vector) *= scalar;
}

/// The same, the scalar on the left.
VEXOR_INLINE constexpr Vec2Int operator*(int scalar, Vec2Int const& vector)
{
    return vector * scalar;
}

/// The sum, component by component, wrapping.
VEXOR_INLINE constexpr Vec2Int operator+(Vec2Int const& left, Vec2Int const& right)
{
    return Vec2Int(left) += right;
}

/// The difference, component by component, wrapping.
VEXOR_INLINE constexpr Vec2Int operator-(Vec2Int const& left, Vec2Int const& right)
{
    return Vec2Int(left) -= right;
}

/// The negated copy, wrapping: the most negative int stays as it is.
VEXOR_INLINE constexpr Vec2Int operator-(Vec2Int const& vector)
{
    return vector.GetNegatedCopy();
}
