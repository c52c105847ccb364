#pragma once
#include <vexor/elementary/private/Accurate.h>
#include <vexor/elementary/private/Fast.h>
#include <vexor/elementary/private/FastArithmetic.h>
#include <vexor/elementary/private/LargeAngle.h>
#include <vexor/foundation/Config.h>

#include <cstdint>

namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE {

/// An angle as index·π/256 + high + low, modulo a turn: |high| is slightly above π/512 at most, |low| half a
/// place of it.
struct Reduced {
    std::uint64_t index; ///< modulo 512
    double high, low;
};

/// For 2^-8 ≤ |x| < 65536: Cody and Waite's method. The error is less than 2^-90, which is too much if the
/// sine or cosine is near 0.
inline Reduced ReduceSmall(double x)
{
    // The sum with this constant rounds to an integer, which is then in the last bits.
    double const shift = 0x1.8p+52;
    double const shifted = MultiplyAdd(x, 0x1.45f306dc9c883p+6, shift);
    double const count = shifted - shift;
#if VEXOR_ELEMENTARY_IS_FUSED
    double const rest = __builtin_fma(-count, 0x1.921fb54442d18p-7, x);
    double const high = __builtin_fma(-count, 0x1.1a62633145c07p-61, rest);
    return {BitsOf(shifted), high, __builtin_fma(-count, 0x1.1a62633145c07p-61, rest - high)};
#else
    // Two parts of 30 bits, whose products with the count are exact.
    double const rest = x - count * 0x1.921fb54800000p-7;
    Sum const sum = AddSmaller(rest, count * 0x1.de973dc800000p-38);
    double const low = sum.low + count * 0x1.9d9cceba3f91fp-69;
    // Unlike above, the low part can exceed half a place of the high one.
    Sum const angle = AddSmaller(sum.high, low);
    return {BitsOf(shifted), angle.high, angle.low};
#endif
}

/// For |x| < 65536, at most π/512 from a multiple of π/2. The error is less than 2^-80 of that distance.
/// Three parts of π/2 have 37 bits, so that their products with the count are exact.
inline Reduced ReduceNearQuarterTurn(double x)
{
    double const shift = 0x1.8p+52;
    double const shifted = x * 0x1.45f306dc9c883p-1 + shift;
    double const count = shifted - shift;
    Sum const first = AddSmaller(x - count * 0x1.921fb54440000p+0, -(count * 0x1.68c234c4c0000p-39));
    Sum const second = AddSmaller(first.high, -(count * 0x1.98a2e03700000p-77));
    double const low = first.low + (second.low - count * 0x1.cd129024e088ap-115);
    Sum const angle = AddSmaller(second.high, low);
    return {BitsOf(shifted) << 7, angle.high, angle.low};
}

/// For any finite x of at least 1 in magnitude. The error is less than 2^-100 of the rest.
inline Reduced ReduceAny(double x)
{
    LargeAngle const angle = ReduceLarge(x);
    Sum const product = Multiply(angle.high, 0x1.921fb54442d18p-7);
    double const low = product.low + (angle.low * 0x1.921fb54442d18p-7 + angle.high * 0x1.1a62633145c07p-61);
    Sum const rest = AddSmaller(product.high, low);
    return {angle.index, rest.high, rest.low};
}

/// sin r − r, with the low part of r added, and cos r − 1 for the rest of a reduced angle, by the Taylor
/// series.
struct RestTerms {
    double odd, even;
};

inline RestTerms Terms(Reduced const& angle)
{
    double const r = angle.high;
    double const square = r * r;
    double const odd = MultiplyAdd(square, MultiplyAdd(square, -0x1.a01a01a01a01ap-13, 0x1.1111111111111p-7),
                                   -0x1.5555555555555p-3);
    double const even =
        MultiplyAdd(square, MultiplyAdd(square, -0x1.6c16c16c16c17p-10, 0x1.5555555555555p-5), -0.5);
    return {MultiplyAdd(r * square, odd, angle.low), square * even};
}

/// Of the sine and the cosine in the two half turns.
inline constexpr double signs[2] = {1.0, -1.0};

// docs/elementary.md derives the two bounds.
#if VEXOR_ELEMENTARY_IS_FUSED
inline constexpr double sineError = 0x1.5p-66;
#else
inline constexpr double sineError = 0x1.8p-66;
#endif
inline constexpr double smallSineError = 0x1p-67;

/// The sine of p + r from the sine and cosine of p, a multiple of π/256 but not of π; false if that needs the
/// accurate step.
inline bool SineOf(Sum const& sine, Sum const& cosine, double r, RestTerms const& terms, double& result)
{
    // sin(p + r) = sin p + cos p · r + sin p · (cos r − 1) + cos p · (sin r − r)
    Sum const slope = Shorten(cosine.high, cosine.low);
    Sum const sum = MultiplyShortAdd(slope.high, r, sine.high);
    double const small = MultiplyAdd(slope.low, r, sum.low + sine.low);
    double const low = MultiplyAdd(sine.high, terms.even, MultiplyAdd(cosine.high, terms.odd, small));
    return IsDecided({sum.high, low}, sine.high, sineError, result);
}

/// The same for a reduced angle.
inline bool SineOf(Reduced const& angle, double& result)
{
    SineEntry const& t = sineTable[angle.index & 255];
    bool const decided =
        SineOf({t.sine, t.sineLow}, {t.cosine, t.cosineLow}, angle.high, Terms(angle), result);
    result *= signs[angle.index >> 8 & 1];
    return decided;
}

/// Whether the nearest multiple of π/256 is one of π.
inline bool IsNearPi(std::uint64_t index)
{
    return (index & 255) == 0;
}

inline constexpr std::uint64_t noSine = 0x3e40000000000000;      // below 2^-27 sin x is x, and cos x is 1
inline constexpr std::uint64_t noReduction = 0x3f79000000000000; // slightly below π/512
inline constexpr std::uint64_t manyTurns = 0x40f0000000000000;   // 65536

/// The sine of x + offset·π/256 near a multiple of π, and of large angles, infinities and NaNs.
VEXOR_COLD inline double RareSine(double x, std::uint64_t offset)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    if (magnitude >= infinityBits)
        return x - x;
    Reduced angle = magnitude < manyTurns ? ReduceNearQuarterTurn(x) : ReduceAny(x);
    angle.index += offset;
    double result = 0.0;
    if (!IsNearPi(angle.index)) {
        if (SineOf(angle, result))
            return result;
    } else if (IsDecided({angle.high, Terms(angle).odd}, angle.high, smallSineError, result)) {
        return result * signs[angle.index >> 8 & 1];
    }
    return offset != 0 ? AccurateCos(x) : AccurateSin(x);
}

double Sin(double x) // NOLINT(misc-definitions-in-headers)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    double result = 0.0;
    if (magnitude - noReduction < manyTurns - noReduction) {
        Reduced const angle = ReduceSmall(x);
        if (IsNearPi(angle.index))
            return RareSine(x, 0);
        if (SineOf(angle, result))
            return result;
    } else {
        if (magnitude > noReduction)
            return RareSine(x, 0);
        if (magnitude < noSine || IsDecided({x, Terms({0, x, 0.0}).odd}, x, smallSineError, result))
            return magnitude < noSine ? x : result;
    }
    return AccurateSin(x);
}

double Cos(double x) // NOLINT(misc-definitions-in-headers)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    double result = 0.0;
    if (magnitude - noReduction < manyTurns - noReduction) {
        Reduced angle = ReduceSmall(x);
        angle.index += 128;
        if (IsNearPi(angle.index))
            return RareSine(x, 128);
        if (SineOf(angle, result))
            return result;
    } else {
        if (magnitude > noReduction)
            return RareSine(x, 128);
        if (magnitude < noSine || IsDecided({1.0, Terms({0, x, 0.0}).even}, sineError, result))
            return magnitude < noSine ? 1.0 : result;
    }
    return AccurateCos(x);
}

SineAndCosine SinCos(double x) // NOLINT(misc-definitions-in-headers)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    if (magnitude - noReduction >= manyTurns - noReduction)
        return {Sin(x), Cos(x)};
    Reduced const angle = ReduceSmall(x);
    if ((angle.index & 127) == 0)
        return {Sin(x), Cos(x)};
    RestTerms const terms = Terms(angle);
    SineEntry const& t = sineTable[angle.index & 255];
    SineAndCosine result = {};
    double const sign = signs[angle.index >> 8 & 1];
    if (SineOf({t.sine, t.sineLow}, {t.cosine, t.cosineLow}, angle.high, terms, result.sine))
        result.sine *= sign;
    else
        result.sine = AccurateSin(x);
    if (SineOf({t.cosine, t.cosineLow}, {-t.sine, -t.sineLow}, angle.high, terms, result.cosine))
        result.cosine *= sign;
    else
        result.cosine = AccurateCos(x);
    return result;
}

} // namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE
