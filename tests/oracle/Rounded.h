#pragma once
#include <cstddef>
#include <string>

#include <mpfr.h>

// The numbers in which the oracle states its rules: each operation is computed by MPFR and rounded
// once, to nearest with ties to even, in the range of the format, denormals included.

namespace oracle {

class Flt;

/// A number with 53 bits in the range of a double.
class Dbl {
public:
    Dbl() { mpfr_custom_init_set(number, MPFR_ZERO_KIND, 0, bits, limbs); }
    Dbl(double value);
    Dbl(int value) : Dbl(static_cast<double>(value)) {}
    /// NaN with this many bits: storage for a result.
    static Dbl Blank(mpfr_prec_t precision = bits) { return Dbl(BlankTag{precision}); }
    Dbl(Flt const& value);
    Dbl(Dbl const& other) { Take(other); }
    Dbl& operator=(Dbl const& other)
    {
        Take(other);
        return *this;
    }

    /// The double that holds this number.
    double Value() const { return mpfr_get_d(number, MPFR_RNDN); }

    mpfr_srcptr Get() const { return number; }
    mpfr_ptr Get() { return number; }

    static constexpr mpfr_prec_t bits = 53;
    static constexpr mpfr_prec_t mostBits = 192;

private:
    static constexpr std::size_t limbCount = (mostBits + GMP_NUMB_BITS - 1) / GMP_NUMB_BITS;

    struct BlankTag {
        mpfr_prec_t precision;
    };
    explicit Dbl(BlankTag tag) { mpfr_custom_init_set(number, MPFR_NAN_KIND, 0, tag.precision, limbs); }

    void Take(Dbl const& other)
    {
        *number = *other.number;
        for (std::size_t i = 0; i < limbCount; ++i)
            limbs[i] = other.limbs[i];
        mpfr_custom_move(number, limbs);
    }

    mpfr_t number;
    mp_limb_t limbs[limbCount] = {};
};

/// A number with 24 bits in the range of a float. Arithmetic on it is arithmetic at double precision;
/// To<Flt>() is the only way back.
class Flt {
public:
    Flt() = default;
    Flt(float value) : number(static_cast<double>(value)) {}

    float Value() const { return mpfr_get_flt(number.Get(), MPFR_RNDN); }
    Dbl const& Widened() const { return number; }

private:
    friend Flt Single(Dbl const& value);
    explicit Flt(Dbl const& value) : number(value) {}

    Dbl number;
};

inline Dbl::Dbl(Flt const& value) : Dbl(value.Widened()) {}

/// A number with 53 bits and an unlimited exponent range.
class Wide {
public:
    explicit Wide(Dbl const& value) : number(value) {}
    Dbl const& Number() const { return number; }

private:
    Dbl number;
};

Dbl operator+(Dbl const& left, Dbl const& right);
Dbl operator-(Dbl const& left, Dbl const& right);
Dbl operator*(Dbl const& left, Dbl const& right);
Dbl operator/(Dbl const& left, Dbl const& right);
Dbl operator-(Dbl const& value);
Dbl Sqrt(Dbl const& value);
Dbl Abs(Dbl const& value);

/// left · right ± addend with one rounding: the result of a fused operation.
Dbl Fused(Dbl const& left, Dbl const& right, Dbl const& addend);

bool operator<(Dbl const& left, Dbl const& right);
bool operator<=(Dbl const& left, Dbl const& right);
bool operator>(Dbl const& left, Dbl const& right);
bool operator>=(Dbl const& left, Dbl const& right);
bool operator==(Dbl const& left, Dbl const& right);
bool operator!=(Dbl const& left, Dbl const& right);

Wide operator+(Wide const& left, Wide const& right);
Wide operator-(Wide const& left, Wide const& right);
Wide operator-(Wide const& value);
Wide operator*(Wide const& left, Wide const& right);
Wide Sqrt(Wide const& value);
Wide operator/(Wide const& left, Wide const& right);
Wide Fused(Wide const& left, Wide const& right, Wide const& addend);
/// Rounded once, to a double.
Dbl Product(Dbl const& left, Wide const& right);
Dbl Product(Wide const& left, Wide const& right);
Dbl Quotient(Dbl const& left, Wide const& right);
Dbl Narrow(Wide const& value);

/// Rounded once, to a float.
Flt Single(Dbl const& value);

/// Rounded to the element type of a class; a double stays unchanged.
template <class Element>
Element To(Dbl const& value);
template <>
inline Dbl To<Dbl>(Dbl const& value)
{
    return value;
}
template <>
inline Flt To<Flt>(Dbl const& value)
{
    return Single(value);
}

/// v if v is greater than 0, else −v.
inline Dbl Magnitude(Dbl const& value)
{
    return value > 0.0 ? value : -value;
}

Dbl Sin(Dbl const& value);
Dbl Cos(Dbl const& value);
Dbl Acos(Dbl const& value);
Dbl Atan2(Dbl const& ordinate, Dbl const& abscissa);

inline double const pi = 3.141592653589793;
inline double const twoPi = 6.283185307179586;

// ---- Deviations ------------------------------------------------------------------------------------
// One step of a statement is made wrong on purpose, to see whether the operands would show it.

enum class Deviation {
    None,
    Count,      // nothing is wrong; the steps are counted
    Unrounded,  // the step keeps 160 bits
    TowardZero, // the step rounds towards zero
    ToSingle,   // the step rounds to 24 bits
    Strictness, // an ordered comparison takes or leaves equality
    SingleKept  // a rounding to float is left out
};

struct Steps {
    Deviation deviation = Deviation::None;
    long target = -1;
    long arithmetic = 0;
    long comparisons = 0;
    long singles = 0;

    void Begin(Deviation kind, long step)
    {
        *this = Steps{};
        deviation = kind;
        target = step;
    }
};
extern Steps steps;

} // namespace oracle
