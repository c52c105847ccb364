#pragma once
#include <vexor/elementary/private/Fixed.h>

#include <cstdint>

namespace vexor::detail::elementary {

/// The number of terms after which those of the two series below are less than a unit: the least k
/// with (2k)! ≥ 2^bits, the product rounded down to 32 bits at each factor.
constexpr std::uint32_t CountTerms(int bits)
{
    std::uint64_t product = 1;
    std::uint64_t factor = 1;
    while (bits > 0) {
        product *= ++factor;
        for (; product >> 32 != 0; --bits)
            product >>= 1;
        if (bits <= 32 && product >> (bits - 1) > 1)
            break;
    }
    return static_cast<std::uint32_t>(factor + 1) / 2;
}

/// 1/n!, less than one unit too small.
template <int N>
Fixed<N> InverseFactorial(std::uint32_t n)
{
    if (n < 2)
        return WholeNumber<N>(1);
    Fixed<N> result;
    for (int i = 0; i < N; ++i)
        result.word[N - 1 - i] = inverseFactorial[n - 2][i];
    return result;
}

/// The even part of e^(i·x) or the odd one divided by x: Σ (−square)^k / (2k + first)!, with 0 for the cosine
/// and 1 for the quotient sin(x)/x. For a square of at most 0.63, with an error of less than six units. The
/// factorials are in a table: divisions would take five times as long.
template <int N>
Fixed<N> AlternatingSeries(Fixed<N> const& square, std::uint32_t first)
{
    constexpr std::uint32_t terms = CountTerms(64 * N);
    Fixed<N> sum = InverseFactorial<N>(2 * terms + first);
    for (std::uint32_t k = terms; k > 0; --k)
        sum = InverseFactorial<N>(2 * k - 2 + first) - square * sum;
    return sum;
}

template <int N>
Fixed<N> CosineSeries(Fixed<N> const& angle)
{
    return AlternatingSeries(angle * angle, 0);
}

template <int N>
Fixed<N> SineSeries(Fixed<N> const& angle)
{
    return angle * AlternatingSeries(angle * angle, 1);
}

} // namespace vexor::detail::elementary
