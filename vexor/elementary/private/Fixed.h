#pragma once
#include <vexor/elementary/private/Bits.h>
#include <vexor/elementary/private/Tables.h>

#include <cstdint>

// Fixed-point numbers of many words, for the accurate step. "One unit" is the place of the last bit,
// 2^(−64·N). All roundings are downwards.

namespace vexor::detail::elementary {

/// A product of two words.
struct Wide {
    std::uint64_t high, low;
};

inline Wide MultiplyWords(std::uint64_t a, std::uint64_t b)
{
#if defined(__SIZEOF_INT128__)
    __extension__ using Whole = unsigned __int128;
    Whole const product = static_cast<Whole>(a) * b;
    return {static_cast<std::uint64_t>(product >> 64), static_cast<std::uint64_t>(product)};
#else
    std::uint64_t const half = 0xffffffff;
    std::uint64_t const low = (a & half) * (b & half);
    std::uint64_t const left = (a >> 32) * (b & half) + (low >> 32);
    std::uint64_t const right = (a & half) * (b >> 32) + (left & half);
    return {(a >> 32) * (b >> 32) + (left >> 32) + (right >> 32), (right << 32) | (low & half)};
#endif
}

/// A number from 0 to below 2^64 with N words after the point. word[N] stands before the point and
/// word[0] is the last.
template <int N>
struct Fixed {
    std::uint64_t word[N + 1] = {};

    bool IsZero() const
    {
        std::uint64_t any = 0;
        for (std::uint64_t part : word)
            any |= part;
        return any == 0;
    }
};

template <int N>
Fixed<N> operator+(Fixed<N> const& left, Fixed<N> const& right)
{
    Fixed<N> sum;
    std::uint64_t carry = 0;
    for (int i = 0; i <= N; ++i) {
        std::uint64_t const part = left.word[i] + carry;
        carry = part < carry ? 1 : 0;
        sum.word[i] = part + right.word[i];
        carry += sum.word[i] < part ? 1 : 0;
    }
    return sum;
}

/// Modulo 2^64.
template <int N>
Fixed<N> operator-(Fixed<N> const& left, Fixed<N> const& right)
{
    Fixed<N> difference;
    std::uint64_t borrow = 0;
    for (int i = 0; i <= N; ++i) {
        std::uint64_t const part = left.word[i] - right.word[i];
        difference.word[i] = part - borrow;
        borrow = (left.word[i] < right.word[i] ? 1 : 0) + (part < borrow ? 1 : 0);
    }
    return difference;
}

template <int N>
bool operator<(Fixed<N> const& left, Fixed<N> const& right)
{
    for (int i = N; i >= 0; --i) {
        if (left.word[i] != right.word[i])
            return left.word[i] < right.word[i];
    }
    return false;
}

/// Modulo 2^64, less than one unit too small.
template <int N>
Fixed<N> operator*(Fixed<N> const& left, Fixed<N> const& right)
{
    std::uint64_t whole[2 * N + 2] = {};
    for (int i = 0; i <= N; ++i) {
        std::uint64_t carry = 0;
        for (int j = 0; j <= N; ++j) {
            Wide product = MultiplyWords(left.word[i], right.word[j]);
            product.low += carry;
            product.high += product.low < carry ? 1 : 0;
            whole[i + j] += product.low;
            carry = product.high + (whole[i + j] < product.low ? 1 : 0);
        }
        whole[i + N + 1] = carry;
    }
    Fixed<N> result;
    for (int i = 0; i <= N; ++i)
        result.word[i] = whole[i + N];
    return result;
}

/// Less than one unit too small.
template <int N>
Fixed<N> operator/(Fixed<N> const& dividend, std::uint32_t divisor)
{
    Fixed<N> quotient;
    std::uint64_t rest = 0;
    for (int i = N; i >= 0; --i) {
        std::uint64_t const upper = (rest << 32) | (dividend.word[i] >> 32);
        std::uint64_t const lower = ((upper % divisor) << 32) | (dividend.word[i] & 0xffffffff);
        quotient.word[i] = ((upper / divisor) << 32) | (lower / divisor);
        rest = lower % divisor;
    }
    return quotient;
}

template <int N>
Fixed<N> WholeNumber(std::uint64_t value)
{
    Fixed<N> result;
    result.word[N] = value;
    return result;
}

template <int N>
Fixed<N> Units(std::uint64_t count)
{
    Fixed<N> result;
    result.word[0] = count;
    return result;
}

/// mantissa · 2^exponent below 2^64, less than one unit too small.
template <int N>
Fixed<N> FromParts(std::uint64_t mantissa, int exponent)
{
    Fixed<N> result;
    int const place = exponent + 64 * N; // of the mantissa's last bit, counted from word[0]'s
    if (place <= -64)
        return result;
    if (place < 0) {
        result.word[0] = mantissa >> -place;
        return result;
    }
    int const index = place / 64;
    int const shift = place % 64;
    if (index <= N)
        result.word[index] = mantissa << shift;
    if (shift != 0 && index + 1 <= N)
        result.word[index + 1] = mantissa >> (64 - shift);
    return result;
}

/// A non-negative double below 2^64, less than one unit too small.
template <int N>
Fixed<N> FromDouble(double value)
{
    if (!(value > 0.0))
        return {};
    Parts const parts = Split(value);
    return FromParts<N>(parts.mantissa, parts.exponent);
}

/// A number as top · 2^exponent: the highest bit of `top` is set, and `more` is true if bits that `top` does
/// not hold are set. All is 0 for 0.
struct Leading {
    std::uint64_t top;
    int exponent;
    bool more;
};

template <int N>
Leading LeadingBits(Fixed<N> const& value)
{
    int highest = N;
    while (highest >= 0 && value.word[highest] == 0)
        --highest;
    if (highest < 0)
        return {0, 0, false};
    int shift = 0;
    while ((value.word[highest] << shift) >> 63 == 0)
        ++shift;
    Leading result = {value.word[highest] << shift, 64 * (highest - N) - shift, false};
    int next = highest - 1;
    if (shift != 0 && next >= 0) {
        result.top |= value.word[next] >> (64 - shift);
        result.more = value.word[next] << shift != 0;
        --next;
    }
    for (; next >= 0; --next)
        result.more = result.more || value.word[next] != 0;
    return result;
}

/// The double nearest to the value, which must be 0 or at least 2^-1000. A tie gives the
/// even one.
template <int N>
double Nearest(Fixed<N> const& value)
{
    Leading const leading = LeadingBits(value);
    std::uint64_t mantissa = leading.top >> 11;
    bool const half = (leading.top >> 10 & 1) != 0;
    bool const rest = (leading.top & 0x3ff) != 0 || leading.more;
    if (half && (rest || (mantissa & 1) != 0))
        ++mantissa;
    return mantissa == 0 ? 0.0 : static_cast<double>(mantissa) * PowerOfTwo(leading.exponent + 11);
}

/// Whether all numbers that are at most `error` units from the value have the same nearest double,
/// which `result` then receives.
template <int N>
bool Decide(Fixed<N> const& value, std::uint64_t error, double& result)
{
    Fixed<N> const margin = Units<N>(error);
    if (value < margin)
        return false;
    result = Nearest(value - margin);
    return result == Nearest(value + margin);
}

/// π, less than one unit too small.
template <int N>
Fixed<N> Pi()
{
    Fixed<N> result = WholeNumber<N>(3);
    for (int i = 0; i < N; ++i)
        result.word[N - 1 - i] = piFraction[i];
    return result;
}

/// π/2, less than one unit too small.
template <int N>
Fixed<N> HalfPi()
{
    return Pi<N>() / 2;
}

} // namespace vexor::detail::elementary
