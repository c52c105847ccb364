#pragma once
#include <vexor/foundation/Config.h>
#include <vexor/foundation/detail/Wrapping.h>

#include <cstdint>
#include <type_traits>

// The signed 64-bit integer type of the interface. If neither the compiler nor a macro provides the name, it
// stands for `long long`.
#if !defined(__int64) && !defined(_MSC_VER)
#    if !defined(__is_identifier)
#        define VEXOR_LACKS_INT64 1
#    elif __is_identifier(__int64)
#        define VEXOR_LACKS_INT64 1
#    endif
#endif
#if defined(VEXOR_LACKS_INT64)
typedef long long __int64;
#    undef VEXOR_LACKS_INT64
#endif

namespace vexor::detail {

/// The one of `long` and `long long` that differs from `Int64`.
template <class Int64>
using OtherInt64 = std::conditional_t<std::is_same_v<Int64, long>, long long, long>;

} // namespace vexor::detail

/// A 64-bit counter in two 32-bit words, the low one first.
///
/// Despite its name it compares, divides and converts as a signed number V in two's complement; equality,
/// sum, difference and product have the same bits in both readings. Overflow wraps. The set of operators is
/// small and uneven; callers rely on exactly this set. An update is not atomic: it writes the two words
/// separately.
class VEXOR_CLASS UInt64 {
public:
    std::uint32_t lowWord;  ///< Bits 0 to 31.
    std::uint32_t highWord; ///< Bits 32 to 63.

    // ---- Construction and assignment ---------------------------------------------------------

    /// Sets the value 0.
    VEXOR_INLINE UInt64() : lowWord(0), highWord(0) {}
    /// Sets the value of the integer.
    VEXOR_INLINE UInt64(__int64 const& value)
        : lowWord(static_cast<std::uint32_t>(value & 0xFFFFFFFF)),
          highWord(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value) >> 32))
    {}
    /// Copies both words.
    UInt64(UInt64 const&) = default;
    ~UInt64() = default;

    /// Copies both words.
    UInt64& operator=(UInt64 const&) = default;
    /// Takes the value of the integer.
    VEXOR_INLINE UInt64& operator=(__int64 const& value) { return *this = UInt64(value); }

    // ---- Comparison --------------------------------------------------------------------------
    // Only these four exist, and none of them is const.

    /// True if all 64 bits are equal.
    VEXOR_INLINE bool operator==(UInt64 const& other) { return int64() == other.int64(); }
    /// The exact negation of `operator==`.
    VEXOR_INLINE bool operator!=(UInt64 const& other) { return !(*this == other); }
    /// Signed: a set top bit means a negative number.
    VEXOR_INLINE bool operator>=(UInt64 const& other) { return int64() >= other.int64(); }
    /// Signed: a set top bit means a negative number.
    VEXOR_INLINE bool operator<=(UInt64 const& other) { return int64() <= other.int64(); }

    // ---- Arithmetic --------------------------------------------------------------------------

    /// V + other, modulo 2^64.
    VEXOR_INLINE UInt64 operator+(UInt64 const& other) const
    {
        return UInt64(vexor::detail::WrappedSum(int64(), other.int64()));
    }
    /// V − other, modulo 2^64.
    VEXOR_INLINE UInt64 operator-(UInt64 const& other) const
    {
        return UInt64(vexor::detail::WrappedDifference(int64(), other.int64()));
    }
    /// The low 64 bits of V · other.
    VEXOR_INLINE UInt64 operator*(UInt64 const& other) const
    {
        return UInt64(vexor::detail::WrappedProduct(int64(), other.int64()));
    }
    /// Signed division, truncating towards zero. The most negative number divided by −1 wraps to itself.
    /// A division by zero does what the platform's signed 64-bit division does: most raise a signal or
    /// a structured exception, some yield a number.
    VEXOR_API UInt64 operator/(UInt64 const& other) const;

    /// Does nothing: the value is unchanged. To multiply, write `a = a * b`.
    VEXOR_INLINE UInt64& operator*=(UInt64 const&) { return *this; }
    /// Adds to V. The result is a copy of the new value, not a reference.
    VEXOR_INLINE UInt64 operator+=(int value)
    {
        return *this = vexor::detail::WrappedSum(int64(), static_cast<__int64>(value));
    }
    /// Subtracts from V. The result is a copy of the new value, not a reference.
    VEXOR_INLINE UInt64 operator-=(int value)
    {
        return *this = vexor::detail::WrappedDifference(int64(), static_cast<__int64>(value));
    }
    /// Adds 1. The result is a copy of the new value, not a reference.
    VEXOR_INLINE UInt64 operator++() { return *this += 1; }
    /// Adds 1. The result is the old value.
    VEXOR_INLINE UInt64 operator++(int)
    {
        UInt64 const old(*this);
        *this += 1;
        return old;
    }
    /// Subtracts 1. The result is a copy of the new value, not a reference.
    VEXOR_INLINE UInt64 operator--() { return *this -= 1; }
    /// Subtracts 1. The result is the old value.
    VEXOR_INLINE UInt64 operator--(int)
    {
        UInt64 const old(*this);
        *this -= 1;
        return old;
    }

    // ---- Conversion --------------------------------------------------------------------------

    /// The low 32 bits as a signed number; the high word is dropped.
    VEXOR_INLINE operator int() const { return static_cast<int>(lowWord); }
    /// Converts V, rounded once.
    VEXOR_INLINE operator float() const { return static_cast<float>(int64()); }
    /// Converts V, rounded once.
    VEXOR_INLINE operator double() const { return static_cast<double>(int64()); }
    /// Converts V exactly.
    VEXOR_INLINE operator __int64() const { return int64(); }
#if defined(__SIZEOF_LONG__) && __SIZEOF_LONG__ == 8
    /// V as the other signed 64-bit type: if `long` has 64 bits, `std::int64_t` is one of `long` and
    /// `long long`, and `__int64` may be the other.
    operator vexor::detail::OtherInt64<__int64>() const
    {
        return int64();
    }
#endif
    /// V, by the same operation as the conversion.
    VEXOR_INLINE __int64 int64() const
    {
        return static_cast<__int64>((static_cast<std::uint64_t>(highWord) << 32) | lowWord);
    }
};
