#pragma once
#include <vexor/elementary/private/Fixed.h>

#include <cstdint>

namespace vexor::detail::elementary {

/// An angle in quarter turns, without whole turns: quarters + fraction.
template <int N>
struct Quadrant {
    int quarters;      ///< 0 to 3
    Fixed<N> fraction; ///< below 1, less than two units too small
};

/// The angle mantissa · 2^exponent in radians, for a mantissa of 53 bits, an exponent from −63 to 971
/// and N up to 12. Payne and Hanek's method: leaves out the words of 2/π that
/// contribute only whole turns or less than a unit.
template <int N>
Quadrant<N> ReduceToQuadrant(std::uint64_t mantissa, int exponent)
{
    // The unit of word j of 2/π is 2^(−64·(j + 1)). Each word before `first` contributes a multiple of 4.
    int const first = exponent >= 66 ? (exponent - 2) / 64 : 0;
    constexpr int count = N + 3;
    std::uint64_t product[count + 1]; // the least significant word first
    std::uint64_t carry = 0;
    for (int i = 0; i < count; ++i) {
        Wide part = MultiplyWords(mantissa, twoOverPi[first + count - 1 - i]);
        part.low += carry;
        carry = part.high + (part.low < carry ? 1 : 0);
        product[i] = part.low;
    }
    product[count] = carry;

    // The unit of the product is 2^(exponent − 64·(first + count)): shifted to units of 2^(−64·N).
    int const shift = 64 * (first + 3) - exponent; // 127 to 255
    int const skipped = shift / 64;
    int const bits = shift % 64;
    Quadrant<N> result;
    for (int i = 0; i <= N; ++i) {
        int const from = i + skipped;
        std::uint64_t word = from <= count ? product[from] >> bits : 0;
        if (bits != 0 && from + 1 <= count)
            word |= product[from + 1] << (64 - bits);
        result.fraction.word[i] = word;
    }
    result.quarters = static_cast<int>(result.fraction.word[N] & 3);
    result.fraction.word[N] = 0;
    return result;
}

} // namespace vexor::detail::elementary
