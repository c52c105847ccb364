#pragma once
#include <mpfr.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>

namespace vexor_test {

/// Arguments of the elementary functions, drawn from strata that cover the different cases.
class Strata {
public:
    explicit Strata(std::uint64_t seed) : bits_(seed)
    {
        mpfr_init2(halfPi_, 1200);
        mpfr_const_pi(halfPi_, MPFR_RNDN);
        mpfr_div_2ui(halfPi_, halfPi_, 1, MPFR_RNDN);
        mpfr_init2(product_, 53);
    }
    Strata(Strata const&) = delete;
    Strata& operator=(Strata const&) = delete;
    ~Strata()
    {
        mpfr_clear(halfPi_);
        mpfr_clear(product_);
    }

    double Angle()
    {
        switch (bits_() % 4) {
        case 0:
            return Signed() * 25.0; // a few turns
        case 1:
            return Any();
        case 2:
            return Signed() * std::ldexp(1.0, Below(60) - 30);
        default:
            return NearQuarterTurn();
        }
    }

    double Cosine()
    {
        double const distance = Signed() * std::ldexp(1.0, -Below(56));
        switch (bits_() % 8) {
        case 0:
            return distance;
        case 1:
            return 1.0 - std::fabs(distance);
        case 2:
            return std::fabs(distance) - 1.0;
        case 3:
            return 0.5 + distance * 0.5;
        case 4:
            return distance * 0.5 - 0.5;
        case 5:
            return Any();
        default:
            return Signed();
        }
    }

    void Point(double& y, double& x)
    {
        x = Any();
        switch (bits_() % 8) {
        case 0: // all pairs of exponents
            y = Any();
            break;
        case 1: // near the diagonals
            y = (bits_() & 1 ? x : -x) * (1.0 + Signed() * std::ldexp(1.0, -Below(54)));
            break;
        case 2: // near the axes
            y = x * Signed() * std::ldexp(1.0, Below(140) - 70);
            break;
        case 3: // exact quotients, with results down to below the smallest double
            x = std::ldexp(1.0 + Below(2000), Below(2090) - 1074);
            y = std::ldexp(1.0 + Below(2000), Below(100) - 50) * x;
            break;
        case 4: // quotients that underflow, including exact ones and ties of the last place
            x = std::ldexp(1.0 + Below(64), Below(900) + 60);
            y = std::ldexp(1.0 + Below(4096), -1074 + Below(990));
            break;
        case 5: // quotients that are nearly exact
            x = Signed() * std::ldexp(1.0, Below(200) - 100);
            y = x * std::ldexp(1.0 + Below(100000), Below(60) - 60);
            break;
        default:
            x = Signed();
            y = Signed();
        }
        if (bits_() & 1)
            y = -y;
        if (bits_() & 1)
            x = -x;
    }

    /// Any double, NaNs and infinities included; each exponent is equally likely.
    double Any()
    {
        std::uint64_t const bits = bits_();
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }

    double Signed() { return std::ldexp(static_cast<double>(bits_() >> 10), -53) - 1.0 + 0x1p-54; }

    int Below(int limit) { return static_cast<int>(bits_() % static_cast<std::uint64_t>(limit)); }

private:
    /// The double nearest to a multiple of π/2 up to 2^1023, or one close to it.
    double NearQuarterTurn()
    {
        double const multiple = std::floor(std::ldexp(1.0 + std::fabs(Signed()), Below(1022)));
        mpfr_mul_d(product_, halfPi_, multiple, MPFR_RNDN);
        double x = mpfr_get_d(product_, MPFR_RNDN);
        for (int steps = Below(4); steps > 0; --steps)
            x = std::nextafter(x, 0.0);
        return bits_() & 1 ? -x : x;
    }

    std::mt19937_64 bits_;
    mpfr_t halfPi_, product_;
};

} // namespace vexor_test
