#pragma once
#include <vexor/foundation/Config.h>

#include <type_traits>

// Integer arithmetic that wraps in two's complement. Signed overflow is undefined in C++, so each operation
// runs in the unsigned type of the same width, where it wraps, and the result is converted back.

namespace vexor::detail {

template <class Signed>
using UnsignedOf = std::make_unsigned_t<Signed>;

template <class Signed>
constexpr Signed WrappedSum(Signed a, Signed b)
{
    return static_cast<Signed>(static_cast<UnsignedOf<Signed>>(a) + static_cast<UnsignedOf<Signed>>(b));
}

template <class Signed>
constexpr Signed WrappedDifference(Signed a, Signed b)
{
    return static_cast<Signed>(static_cast<UnsignedOf<Signed>>(a) - static_cast<UnsignedOf<Signed>>(b));
}

template <class Signed>
constexpr Signed WrappedProduct(Signed a, Signed b)
{
    return static_cast<Signed>(static_cast<UnsignedOf<Signed>>(a) * static_cast<UnsignedOf<Signed>>(b));
}

/// −a; the most negative number stays itself.
template <class Signed>
constexpr Signed WrappedNegation(Signed a)
{
    return WrappedDifference(Signed(0), a);
}

/// |a|, formed by negating a negative value; the most negative number stays itself and so stays negative.
template <class Signed>
constexpr Signed WrappedMagnitude(Signed a)
{
    return a < Signed(0) ? WrappedNegation(a) : a;
}

} // namespace vexor::detail
