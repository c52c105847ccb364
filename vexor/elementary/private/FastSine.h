#pragma once
#include <vexor/elementary/private/Accurate.h>
#include <vexor/elementary/private/Fast.h>
#include <vexor/elementary/private/FastArithmetic.h>
#include <vexor/elementary/private/LargeAngle.h>

#include <cstdint>

namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE {

/// An angle as index·π/256 + high + low, modulo a turn, the rest at most π/512 and a little.
struct Reduced {
    std::uint64_t index; ///< modulo 512
    double high, low;
    double count; ///< the multiple of π/256 that was subtracted, 0 if that left no error
};

/// For |x| < 65536: Cody and Waite's method, with π/256 in three parts.
inline Reduced ReduceSmall(double x)
{
    // The sum with this constant rounds to a whole number, which then stands in the last bits.
    double const shift = 0x1.8p+52;
    double const shifted = MultiplyAdd(x, 0x1.45f306dc9c883p+6, shift);
    double const count = shifted - shift;
#if VEXOR_ELEMENTARY_IS_FUSED
    double const rest = __builtin_fma(-count, 0x1.921fb54442d18p-7, x);
    Sum const middle = Multiply(count, 0x1.1a62633145c07p-61);
    Sum const sum = AddSmaller(rest, -middle.high);
    double const low = sum.low - __builtin_fma(count, -0x1.f1976b7ed8fbcp-117, middle.low);
    return {BitsOf(shifted), sum.high, low, count};
#else
    // Two parts of 30 bits, whose products with the count are exact.
    double const rest = x - count * 0x1.921fb54800000p-7;
    Sum const sum = AddSmaller(rest, count * 0x1.de973dc800000p-38);
    double const low = sum.low + count * 0x1.9d9cceba3f91fp-69;
    // Unlike above, the low part can exceed a place of the high one, which the series does not allow for.
    Sum const angle = AddSmaller(sum.high, low);
    return {BitsOf(shifted), angle.high, angle.low, count};
#endif
}

inline Reduced ReduceAny(double x)
{
    if (Absolute(x) < 65536.0)
        return ReduceSmall(x);
    LargeAngle const angle = ReduceLarge(x);
    Sum const product = Multiply(angle.high, 0x1.921fb54442d18p-7);
    double const low = product.low + (angle.low * 0x1.921fb54442d18p-7 + angle.high * 0x1.1a62633145c07p-61);
    return {angle.index, product.high, low, 0.0};
}

/// sin r − r and cos r − 1 for the rest r of a reduced angle, by the Taylor series.
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
    return {r * square * odd, MultiplyAdd(square, even, -(r * angle.low))};
}

/// Of a multiple's sine; docs/elementary.md derives it.
#if VEXOR_ELEMENTARY_IS_FUSED
inline constexpr double sineError = 0x1.28p-66;
#else
inline constexpr double sineError = 0x1.8p-66;
#endif

/// Of the sine in the two half turns.
inline constexpr double signs[2] = {1.0, -1.0};

/// The sine of the angle plus offset·π/256; false if that needs the accurate step.
inline bool SineOf(Reduced const& angle, RestTerms const& terms, std::uint64_t offset, double& result)
{
    std::uint64_t const index = angle.index + offset;
    SineEntry const& t = sineTable[index & 255];
    double const sine = t.sineHigh + t.sineLow;
    double const cosine = t.cosineHigh + t.cosineLow;
    // sin(p + r) = sin p + cos p · r + sin p · (cos r − 1) + cos p · (sin r − r)
    Sum const product = MultiplyShort(t.cosineHigh, angle.high);
    Sum const sum = AddSmaller(t.sineHigh, product.high);
    double const small = MultiplyAdd(t.cosineLow, angle.high, product.low + t.sineLow);
    double const low = MultiplyAdd(sine, terms.even, MultiplyAdd(cosine, terms.odd + angle.low, small));
    // docs/elementary.md derives the three bounds.
    double const error =
        MultiplyAdd(Absolute(sine), sineError,
                    MultiplyAdd(Absolute(angle.high), 0x1p-67, Absolute(angle.count) * 0x1p-120));
    bool const decided = IsDecided({sum.high, sum.low + low}, error, result);
    result *= signs[index >> 8 & 1];
    return decided;
}

double Sin(double x) // NOLINT(misc-definitions-in-headers)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    if (magnitude < 0x3e50000000000000) // 2^-26: x³/6 is less than half a place
        return x;
    if (magnitude >= infinityBits)
        return x - x;
    Reduced const angle = ReduceAny(x);
    double result = 0.0;
    if (SineOf(angle, Terms(angle), 0, result))
        return result;
    return AccurateSin(x);
}

double Cos(double x) // NOLINT(misc-definitions-in-headers)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    if (magnitude < 0x3e40000000000000) // 2^-27: x²/2 is less than half a place
        return 1.0;
    if (magnitude >= infinityBits)
        return x - x;
    Reduced const angle = ReduceAny(x);
    double result = 0.0;
    if (SineOf(angle, Terms(angle), 128, result))
        return result;
    return AccurateCos(x);
}

SineAndCosine SinCos(double x) // NOLINT(misc-definitions-in-headers)
{
    std::uint64_t const magnitude = MagnitudeBits(x);
    if (magnitude < 0x3e40000000000000)
        return {x, 1.0};
    if (magnitude >= infinityBits)
        return {x - x, x - x};
    Reduced const angle = ReduceAny(x);
    RestTerms const terms = Terms(angle);
    SineAndCosine result = {};
    if (!SineOf(angle, terms, 0, result.sine))
        result.sine = AccurateSin(x);
    if (!SineOf(angle, terms, 128, result.cosine))
        result.cosine = AccurateCos(x);
    return result;
}

} // namespace vexor::detail::elementary::VEXOR_ELEMENTARY_NAMESPACE
