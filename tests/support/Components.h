#pragma once
#include <support/Bits.h>

#include <type_traits>
#include <utility>

// What the tests of single vectors, points and matrices share.

namespace vexor_test {

/// Compares the components of a vector or point with numbers of its element type, by bits.
template <class Pair>
void ExpectBits(Pair const& actual, decltype(Pair::x) x, decltype(Pair::y) y)
{
    EXPECT_SAME_BITS(actual.x, x);
    EXPECT_SAME_BITS(actual.y, y);
}

template <class Triple>
void ExpectBits(Triple const& actual, decltype(Triple::x) x, decltype(Triple::y) y, decltype(Triple::z) z)
{
    EXPECT_SAME_BITS(actual.x, x);
    EXPECT_SAME_BITS(actual.y, y);
    EXPECT_SAME_BITS(actual.z, z);
}

/// Whether left -= right compiles.
template <class Left, class Right, class = void>
constexpr bool subtractAssigns = false;
template <class Left, class Right>
constexpr bool subtractAssigns<Left, Right,
                               std::void_t<decltype(std::declval<Left&>() -= std::declval<Right const&>())>> =
    true;

} // namespace vexor_test
