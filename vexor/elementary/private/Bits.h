#pragma once
#include <cstdint>
#include <cstring>

namespace vexor::detail::elementary {

inline std::uint64_t BitsOf(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

inline double FromBits(std::uint64_t bits)
{
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

inline constexpr std::uint64_t signBit = std::uint64_t(1) << 63;
inline constexpr std::uint64_t infinityBits = 0x7ff0000000000000;

/// The magnitude's bits; magnitudes of doubles have the order of these integers, with the NaNs at the top.
inline std::uint64_t MagnitudeBits(double value)
{
    return BitsOf(value) & ~signBit;
}

inline bool IsNegative(double value)
{
    return (BitsOf(value) & signBit) != 0;
}

/// 2^exponent, for −1022 ≤ exponent ≤ 1023.
inline double PowerOfTwo(int exponent)
{
    return FromBits(static_cast<std::uint64_t>(exponent + 1023) << 52);
}

/// A positive finite double as mantissa · 2^exponent, the mantissa normalised to 53 bits.
struct Parts {
    std::uint64_t mantissa;
    int exponent;
};

inline Parts Split(double value)
{
    std::uint64_t const bits = MagnitudeBits(value);
    Parts parts = {bits & 0x000fffffffffffff, static_cast<int>(bits >> 52) - 1075};
    if (bits >> 52 != 0) {
        parts.mantissa |= std::uint64_t(1) << 52;
        return parts;
    }
    parts.exponent = -1074;
    while (parts.mantissa >> 52 == 0) {
        parts.mantissa <<= 1;
        --parts.exponent;
    }
    return parts;
}

} // namespace vexor::detail::elementary
