#pragma once
#include <vexor/elementary/private/Bits.h>
#include <vexor/elementary/private/Tables.h>

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
#endif

/// The exact product with a number of 27 bits. Without a fused multiply-add the high part is not the
/// product rounded, but that of b's upper half.
inline Sum MultiplyShort(double shortFactor, double b)
{
#if VEXOR_ELEMENTARY_IS_FUSED
    double const product = shortFactor * b;
    return {product, __builtin_fma(shortFactor, b, -product)};
#else
    Sum const halves = Halves(b);
    return {shortFactor * halves.high, shortFactor * halves.low};
#endif
}

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

inline double Absolute(double value)
{
    return FromBits(BitsOf(value) & ~signBit);
}

/// Whether all numbers within `error` of high + low have the same nearest double, which `result` receives.
inline bool IsDecided(Sum const& value, double error, double& result)
{
    result = value.high + (value.low + error);
    return result == value.high + (value.low - error);
}

/// The nearest point of an expansion, of points that are 1/perUnit apart, for a positive number. The constant
/// is the double below 1/2: with 1/2 itself, the double below half a distance would go to the second point, and its
/// difference to that would not be exact.
inline int NearestPoint(double value, double perUnit)
{
    return static_cast<int>(value * perUnit + 0x1.fffffffffffffp-2);
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
