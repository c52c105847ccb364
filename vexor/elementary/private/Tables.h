#pragma once
#include <cstdint>

// Tables of the elementary functions. Tables.cpp is written by scripts/elementary-tables.

namespace vexor::detail::elementary {

/// Sine and cosine of a multiple of π/256, each followed by the remainder.
struct SineEntry {
    double sine, sineLow;
    double cosine, cosineLow;
};

/// A Taylor expansion about a point p: f(p + d) = a + b·d + c2·d² + … + c8·d⁸. The high part of b has
/// 27 bits.
struct Expansion {
    double aHigh, aLow;
    double bHigh, bLow;
    double c2, c3, c4, c5, c6, c7, c8;
};

/// At k·π/256.
extern SineEntry const sineTable[256];
/// The arc tangent about i/128.
extern Expansion const arcTangentTable[129];
/// The arc sine about i/128.
extern Expansion const arcSineTable[65];
/// acos(1 − t) / √(2t) about t = i/64.
extern Expansion const arcCosineQuotientTable[33];

/// π − 3 in words of 64 bits, the most significant first.
extern std::uint64_t const piFraction[12];
/// 2/π in words of 64 bits, the most significant first.
extern std::uint64_t const twoOverPi[31];
/// 1/n! for n from 2 in words of 64 bits, the most significant first.
extern std::uint64_t const inverseFactorial[136][12];

} // namespace vexor::detail::elementary
