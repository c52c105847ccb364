#pragma once
#include <cstdint>

#if !defined(__SIZEOF_INT128__)
#    include <gmp.h>

#    include <type_traits>
#endif

namespace oracle {

// Integers large enough for every product of two integers of 64 bits: the compiler's own, or else GMP's.
// GMP's elsewhere.
#if defined(__SIZEOF_INT128__)

__extension__ using Large = __int128;

/// The low 64 bits, as a signed number.
inline std::int64_t Wrapped(Large value)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(value));
}

#else

class Large {
public:
    template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
    Large(Integer value)
    {
        bool const negative = value < 0;
        std::uint64_t const bits = static_cast<std::uint64_t>(value);
        std::uint64_t const magnitude = negative ? 0 - bits : bits;
        mpz_init_set_ui(number, static_cast<unsigned long>(magnitude >> 32)); // which may have only 32 bits
        mpz_mul_2exp(number, number, 32);
        mpz_add_ui(number, number, static_cast<unsigned long>(magnitude & 0xffffffff));
        if (negative)
            mpz_neg(number, number);
    }
    Large(Large const& other) { mpz_init_set(number, other.number); }
    ~Large() { mpz_clear(number); }
    Large& operator=(Large const& other)
    {
        mpz_set(number, other.number);
        return *this;
    }

    friend Large operator+(Large a, Large const& b) { return Changed(a, b, mpz_add); }
    friend Large operator-(Large a, Large const& b) { return Changed(a, b, mpz_sub); }
    friend Large operator*(Large a, Large const& b) { return Changed(a, b, mpz_mul); }
    friend Large operator/(Large a, Large const& b) { return Changed(a, b, mpz_tdiv_q); }
    friend Large operator%(Large a, Large const& b) { return Changed(a, b, mpz_tdiv_r); }
    friend Large operator&(Large a, Large const& b) { return Changed(a, b, mpz_and); }
    friend Large operator-(Large const& a) { return 0 - a; }
    friend Large operator<<(Large a, int by)
    {
        mpz_mul_2exp(a.number, a.number, static_cast<mp_bitcnt_t>(by));
        return a;
    }
    friend Large operator>>(Large a, int by)
    {
        mpz_fdiv_q_2exp(a.number, a.number, static_cast<mp_bitcnt_t>(by));
        return a;
    }
    friend bool operator!=(Large const& a, Large const& b) { return mpz_cmp(a.number, b.number) != 0; }

    /// The low 64 bits, as a signed number.
    explicit operator std::int64_t() const
    {
        Large rest = *this;
        mpz_fdiv_r_2exp(rest.number, number, 64);
        std::uint64_t const low = mpz_get_ui(rest.number) & 0xffffffff;
        mpz_fdiv_q_2exp(rest.number, rest.number, 32);
        return static_cast<std::int64_t>((std::uint64_t{mpz_get_ui(rest.number)} << 32) | low);
    }

private:
    using Operation = void (*)(mpz_ptr, mpz_srcptr, mpz_srcptr);

    static Large Changed(Large& a, Large const& b, Operation operation)
    {
        operation(a.number, a.number, b.number);
        return a;
    }

    mpz_t number;
};

inline std::int64_t Wrapped(Large const& value)
{
    return static_cast<std::int64_t>(value);
}

#endif

} // namespace oracle
