#pragma once
#include <cstdint>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

// Comparison by bits: distinguishes 0 from −0, and treats all NaNs as equal.

namespace vexor_test {

inline std::uint64_t Bits(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

inline std::uint32_t Bits(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

template <class Number>
bool SameBits(Number left, Number right)
{
    return (left != left && right != right) || Bits(left) == Bits(right);
}

/// `SameBits` as an object, for the macro below.
struct HaveSameBits {
    template <class Number>
    bool operator()(Number left, Number right) const
    {
        return SameBits(left, right);
    }
};

/// Hides a value from the optimiser, so that it is computed at run time.
template <class Number>
Number Opaque(Number value)
{
    Number volatile hidden = value;
    return hidden;
}

inline constexpr double nan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr float nanFlt = std::numeric_limits<float>::quiet_NaN();
inline constexpr float infinityFlt = std::numeric_limits<float>::infinity();

} // namespace vexor_test

#define EXPECT_SAME_BITS(actual, expected) EXPECT_PRED2(vexor_test::HaveSameBits(), actual, expected)
