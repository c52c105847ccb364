#pragma once
#include <vexor/foundation/detail/Scalar.h>

#include <cmath>

// Arithmetic with the precision of a double and an exponent that never overflows or underflows. It is slow
// and serves only the rare operands whose intermediate results leave the range of a double.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

/// significand · 2^exponent. Each operation rounds once to 53 bits. The significand is 0, infinite, NaN, or
/// in [0.5, 1) in magnitude; the exponent of the first three is 0.
class Wide {
public:
    explicit Wide(double value) : Wide(value, 0) {}

    double Significand() const { return significand; }

    Wide operator-() const { return Wide(-significand, exponent); }

    friend Wide operator+(Wide const& left, Wide const& right)
    {
        if (!left.IsRegular() || !right.IsRegular())
            return left.significand == 0.0 && right.significand != 0.0 ? right
                   : right.significand == 0.0 && left.significand != 0.0
                       ? left
                       : Wide(left.significand + right.significand);
        Wide const& larger = left.exponent >= right.exponent ? left : right;
        Wide const& smaller = left.exponent >= right.exponent ? right : left;
        int const gap = larger.exponent - smaller.exponent;
        if (gap > 60) // less than half a unit in the last place of the larger
            return larger;
        return Wide(larger.significand + std::ldexp(smaller.significand, -gap), larger.exponent);
    }
    friend Wide operator-(Wide const& left, Wide const& right) { return left + -right; }
    friend Wide operator*(Wide const& left, Wide const& right)
    {
        return Wide(left.significand * right.significand, left.exponent + right.exponent);
    }
    friend Wide operator/(Wide const& left, Wide const& right)
    {
        return Wide(left.significand / right.significand, left.exponent - right.exponent);
    }
    friend bool operator<=(Wide const& left, Wide const& right)
    {
        // Finite numbers compare by the sign of their difference, which rounding never changes. An infinity
        // or a NaN compares by its significand, since that of a finite number is finite.
        return left.IsFinite() && right.IsFinite() ? (left - right).significand <= 0.0
                                                   : left.significand <= right.significand;
    }

    friend Wide SquareRoot(Wide const& value)
    {
        int const odd = value.exponent % 2;
        return Wide(SquareRoot(std::ldexp(value.significand, odd)), (value.exponent - odd) / 2);
    }

    /// The product, rounded once to a double even if it is subnormal.
    friend double NarrowProduct(Wide const& left, Wide const& right)
    {
        int const power = Clamped(left.exponent + right.exponent);
        return std::ldexp(left.significand, power / 2) * std::ldexp(right.significand, power - power / 2);
    }
    /// The quotient, rounded once to a double even if it is subnormal.
    friend double NarrowQuotient(Wide const& left, Wide const& right)
    {
        int const power = Clamped(left.exponent - right.exponent);
        return std::ldexp(left.significand, power / 2) / std::ldexp(right.significand, power / 2 - power);
    }
    /// The value, rounded once to a double.
    friend double Narrow(Wide const& value) { return NarrowProduct(value, Wide(1.0)); }

private:
    Wide(double value, int power) : significand(value), exponent(0)
    {
        if (!IsRegular())
            return;
        significand = std::frexp(value, &exponent);
        exponent += power;
    }

    bool IsFinite() const { return std::isfinite(significand); }
    bool IsRegular() const { return IsFinite() && significand != 0.0; }

    // Limits a power of two to the range beyond which every result is infinite or 0; half the power is in the
    // range of a double.
    static int Clamped(int power) { return power < -1200 ? -1200 : power > 1200 ? 1200 : power; }

    double significand;
    int exponent;
};

} // namespace vexor::detail

VEXOR_EXACT_END
