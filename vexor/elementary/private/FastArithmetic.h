#pragma once
#include <vexor/elementary/private/Bits.h>
#include <vexor/elementary/private/Tables.h>

#include <cmath>
#include <cstddef>

// Part of the fast step, which two sources compile, each in its own namespace: without and with a fused
// multiply-add. So the functions that the headers define are each compiled once.
#if !defined(VEXOR_ELEMENTARY_NAMESPACE)
#    error "Include this from FastPlain.cpp or FastFused.cpp"
#endif

namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE {

/// The unevaluated sum of two doubles.
struct Sum {
    double high, low;
};

/// The exact sum of a number that is 0, not less in magnitude or a multiple of the other's last place,
/// and of that other.
inline Sum AddSmaller(double larger, double smaller)
{
    double const high = larger + smaller;
    return {high, smaller - (high - larger)};
}

/// a·b + c, rounded once or twice.
inline double MultiplyAdd(double a, double b, double c)
{
#if VEXOR_ELEMENTARY_IS_FUSED
    return __builtin_fma(a, b, c);
#else
    return a * b + c;
#endif
}

#if !VEXOR_ELEMENTARY_IS_FUSED
/// Two numbers of at most 26 bits that add up to the value (Veltkamp).
inline Sum Halves(double value)
{
    double const scaled = value * 134217729.0; // 2^27 + 1
    double const high = scaled - (scaled - value);
    return {high, value - high};
}

/// The exact product with a number of 27 bits. The high part is not the product rounded, but that of b's upper
/// half.
inline Sum MultiplyShort(double shortFactor, double b)
{
    Sum const halves = Halves(b);
    return {shortFactor * halves.high, shortFactor * halves.low};
}
#endif

/// The exact product (Dekker), if it neither overflows nor comes near the denormals.
inline Sum Multiply(double a, double b)
{
    double const product = a * b;
#if VEXOR_ELEMENTARY_IS_FUSED
    return {product, __builtin_fma(a, b, -product)};
#else
    Sum const left = Halves(a);
    Sum const right = Halves(b);
    double const rest = left.high * right.high - product + left.high * right.low + left.low * right.high;
    return {product, left.low * right.low + rest};
#endif
}

/// square − root², exactly, where root is the square's root rounded.
inline double Remainder(double square, double root)
{
#if VEXOR_ELEMENTARY_IS_FUSED
    return __builtin_fma(-root, root, square);
#else
    Sum const squared = Multiply(root, root);
    return square - squared.high - squared.low;
#endif
}

/// a·b + c in two parts, the low one rounded once or twice, for a number a of 27 bits and |a·b| ≤ |c|/2 or
/// c = 0. The sum's difference from c is then exact (Sterbenz's lemma).
inline Sum MultiplyShortAdd(double a, double b, double c)
{
#if VEXOR_ELEMENTARY_IS_FUSED
    double const high = __builtin_fma(a, b, c);
    return {high, __builtin_fma(a, b, c - high)};
#else
    Sum const product = MultiplyShort(a, b);
    Sum const sum = AddSmaller(c, product.high);
    return {sum.high, sum.low + product.low};
#endif
}

/// A number's leading 27 bits, and the rest with what follows it. A fused multiply-add takes any number in place of a
/// short one.
inline Sum Shorten(double value, double low)
{
#if VEXOR_ELEMENTARY_IS_FUSED
    return {value, low};
#else
    double const high = FromBits(BitsOf(value) & 0xfffffffffc000000);
    return {high, value - high + low};
#endif
}

/// Whether all numbers within `error` of high + low have the same nearest double, which `result` receives.
inline bool IsDecided(Sum const& value, double error, double& result)
{
    result = value.high + (value.low + error);
    return result == value.high + (value.low - error);
}

/// The same with an error of relative·scale, of either sign.
inline bool IsDecided(Sum const& value, double scale, double relative, double& result)
{
    result = value.high + MultiplyAdd(scale, relative, value.low);
    return result == value.high + MultiplyAdd(scale, -relative, value.low);
}

/// The distance from a point of an expansion.
struct Distance {
    std::size_t index;
    double value;
};

/// From the nearest of the points that are `spacing` apart, for a positive number. The factor moves the middles up a
/// little. So a distance from the second point is less than half of it: the difference is exact, and the distance's
/// product with the derivative is less than half of the function's value.
inline Distance NearestPoint(double value, double spacing)
{
    // The sum with this constant rounds to a multiple of the spacing, whose index then stands in the last bits.
    double const shift = 0x1.8p+52 * spacing;
    double const shifted = MultiplyAdd(value, 1.0 - 0x1p-14, shift);
    return {static_cast<std::size_t>(BitsOf(shifted) & 255), value - (shifted - shift)};
}

/// c2 + c3·d + … + c8·d⁶.
inline double Tail(Expansion const& t, double d)
{
    double const square = d * d;
    double const low = MultiplyAdd(square, MultiplyAdd(d, t.c5, t.c4), MultiplyAdd(d, t.c3, t.c2));
    double const high = MultiplyAdd(square, t.c8, MultiplyAdd(d, t.c7, t.c6));
    return MultiplyAdd(square * square, high, low);
}

} // namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE
