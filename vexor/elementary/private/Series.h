#pragma once
#include <vexor/elementary/private/Fixed.h>

#include <cstdint>

namespace vexor::detail::elementary {

/// The number of terms after which those of the two series below are less than a unit: the least k
/// with (2k)! ≥ 2^bits, found with the floors of the logarithms.
constexpr int CountTerms(int bits)
{
    int sum = 0;
    int factor = 1;
    while (sum < bits) {
        for (int power = ++factor; power > 1; power /= 2)
            ++sum;
    }
    return (factor + 1) / 2;
}

/// The even part of e^(i·x) or the odd one divided by x: Σ (−square)^k / (2k + first)!, with 0 for the
/// cosine and 1 for the quotient sin(x)/x. For a square of at most 1, less than three units off.
template <int N>
Fixed<N> AlternatingSeries(Fixed<N> const& square, std::uint32_t first)
{
    Fixed<N> const one = WholeNumber<N>(1);
    Fixed<N> sum = one;
    for (std::uint32_t k = CountTerms(64 * N); k > 0; --k)
        sum = one - square * sum / ((2 * k - 1 + first) * (2 * k + first));
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
