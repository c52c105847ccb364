#include "oracle/Rounded.h"

#include <cmath>

namespace oracle {

Steps steps;

namespace {

// Exponents as MPFR counts them: a normal double has 0.5·2^e ≤ |x| with e from −1021 to 1024.
struct Format {
    mpfr_exp_t lowest, highest, lowestNormal;
};
constexpr Format doubleFormat = {-1073, 1024, -1021};
constexpr Format singleFormat = {-148, 128, -125};

// Brings a rounded result into the range of the format; ternary is the direction in which it was rounded.
void Settle(mpfr_ptr number, int ternary, Format const& format)
{
    if (!mpfr_regular_p(number))
        return;
    mpfr_exp_t const exponent = mpfr_get_exp(number);
    if (exponent >= format.lowestNormal && exponent <= format.highest)
        return;
    mpfr_exp_t const low = mpfr_get_emin();
    mpfr_exp_t const high = mpfr_get_emax();
    mpfr_set_emin(format.lowest);
    mpfr_set_emax(format.highest);
    ternary = mpfr_check_range(number, ternary, MPFR_RNDN);
    mpfr_subnormalize(number, ternary, MPFR_RNDN);
    mpfr_set_emin(low);
    mpfr_set_emax(high);
}

template <class Compute>
Dbl Rounded(Compute compute)
{
    Dbl result = Dbl::Blank();
    if (steps.deviation != Deviation::None && steps.arithmetic++ == steps.target) {
        switch (steps.deviation) {
        case Deviation::Unrounded:
            result = Dbl::Blank(160);
            compute(result.Get(), MPFR_RNDN);
            return result;
        case Deviation::TowardZero:
            Settle(result.Get(), compute(result.Get(), MPFR_RNDZ), doubleFormat);
            return result;
        case Deviation::ToSingle:
            Settle(result.Get(), compute(result.Get(), MPFR_RNDN), doubleFormat);
            return Dbl(static_cast<double>(static_cast<float>(result.Value())));
        default:
            break;
        }
    }
    Settle(result.Get(), compute(result.Get(), MPFR_RNDN), doubleFormat);
    return result;
}

template <class Compute>
Wide Unbounded(Compute compute)
{
    Dbl result = Dbl::Blank();
    if (steps.deviation != Deviation::None && steps.arithmetic++ == steps.target
        && (steps.deviation == Deviation::Unrounded || steps.deviation == Deviation::TowardZero)) {
        if (steps.deviation == Deviation::Unrounded)
            result = Dbl::Blank(160);
        compute(result.Get(), steps.deviation == Deviation::Unrounded ? MPFR_RNDN : MPFR_RNDZ);
        return Wide(result);
    }
    compute(result.Get(), MPFR_RNDN);
    return Wide(result);
}

bool EqualityTurned()
{
    return steps.deviation != Deviation::None && steps.comparisons++ == steps.target
           && steps.deviation == Deviation::Strictness;
}

} // namespace

Dbl::Dbl(double value)
{
    mpfr_custom_init_set(number, MPFR_ZERO_KIND, 0, bits, limbs);
    if (value != 0.0 || std::signbit(value))
        mpfr_set_d(number, value, MPFR_RNDN);
}

Dbl operator+(Dbl const& left, Dbl const& right)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_add(r, left.Get(), right.Get(), mode); });
}

Dbl operator-(Dbl const& left, Dbl const& right)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_sub(r, left.Get(), right.Get(), mode); });
}

Dbl operator*(Dbl const& left, Dbl const& right)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_mul(r, left.Get(), right.Get(), mode); });
}

Dbl operator/(Dbl const& left, Dbl const& right)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_div(r, left.Get(), right.Get(), mode); });
}

Dbl operator-(Dbl const& value)
{
    Dbl result(value);
    mpfr_neg(result.Get(), result.Get(), MPFR_RNDN);
    return result;
}

Dbl Abs(Dbl const& value)
{
    Dbl result(value);
    mpfr_abs(result.Get(), result.Get(), MPFR_RNDN);
    return result;
}

Dbl Sqrt(Dbl const& value)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_sqrt(r, value.Get(), mode); });
}

Dbl Fused(Dbl const& left, Dbl const& right, Dbl const& addend)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) {
        return mpfr_fma(r, left.Get(), right.Get(), addend.Get(), mode);
    });
}

bool operator<(Dbl const& left, Dbl const& right)
{
    return EqualityTurned() ? mpfr_lessequal_p(left.Get(), right.Get()) != 0
                            : mpfr_less_p(left.Get(), right.Get()) != 0;
}

bool operator<=(Dbl const& left, Dbl const& right)
{
    return EqualityTurned() ? mpfr_less_p(left.Get(), right.Get()) != 0
                            : mpfr_lessequal_p(left.Get(), right.Get()) != 0;
}

bool operator>(Dbl const& left, Dbl const& right)
{
    return right < left;
}

bool operator>=(Dbl const& left, Dbl const& right)
{
    return right <= left;
}

bool operator==(Dbl const& left, Dbl const& right)
{
    return mpfr_equal_p(left.Get(), right.Get()) != 0;
}

bool operator!=(Dbl const& left, Dbl const& right)
{
    return !(left == right);
}

Wide operator+(Wide const& left, Wide const& right)
{
    return Unbounded([&](mpfr_ptr r, mpfr_rnd_t mode) {
        return mpfr_add(r, left.Number().Get(), right.Number().Get(), mode);
    });
}

Wide operator-(Wide const& left, Wide const& right)
{
    return Unbounded([&](mpfr_ptr r, mpfr_rnd_t mode) {
        return mpfr_sub(r, left.Number().Get(), right.Number().Get(), mode);
    });
}

Wide operator-(Wide const& value)
{
    return Wide(-value.Number());
}

Wide Fused(Wide const& left, Wide const& right, Wide const& addend)
{
    return Unbounded([&](mpfr_ptr r, mpfr_rnd_t mode) {
        return mpfr_fma(r, left.Number().Get(), right.Number().Get(), addend.Number().Get(), mode);
    });
}

Wide operator*(Wide const& left, Wide const& right)
{
    return Unbounded([&](mpfr_ptr r, mpfr_rnd_t mode) {
        return mpfr_mul(r, left.Number().Get(), right.Number().Get(), mode);
    });
}

Wide Sqrt(Wide const& value)
{
    return Unbounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_sqrt(r, value.Number().Get(), mode); });
}

Wide operator/(Wide const& left, Wide const& right)
{
    return Unbounded([&](mpfr_ptr r, mpfr_rnd_t mode) {
        return mpfr_div(r, left.Number().Get(), right.Number().Get(), mode);
    });
}

Dbl Product(Dbl const& left, Wide const& right)
{
    return Rounded(
        [&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_mul(r, left.Get(), right.Number().Get(), mode); });
}

Dbl Product(Wide const& left, Wide const& right)
{
    return Product(left.Number(), right);
}

Dbl Quotient(Dbl const& left, Wide const& right)
{
    return Rounded(
        [&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_div(r, left.Get(), right.Number().Get(), mode); });
}

Dbl Narrow(Wide const& value)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_set(r, value.Number().Get(), mode); });
}

Flt Single(Dbl const& value)
{
    if (steps.deviation != Deviation::None && steps.singles++ == steps.target
        && steps.deviation == Deviation::SingleKept)
        return Flt(value);
    mpfr_t narrow;
    mp_limb_t limb[1];
    mpfr_custom_init_set(narrow, MPFR_ZERO_KIND, 0, 24, limb);
    Settle(narrow, mpfr_set(narrow, value.Get(), MPFR_RNDN), singleFormat);
    Dbl result = Dbl::Blank();
    mpfr_set(result.Get(), narrow, MPFR_RNDN);
    return Flt(result);
}

Dbl Sin(Dbl const& value)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_sin(r, value.Get(), mode); });
}

Dbl Cos(Dbl const& value)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_cos(r, value.Get(), mode); });
}

Dbl Acos(Dbl const& value)
{
    return Rounded([&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_acos(r, value.Get(), mode); });
}

Dbl Atan2(Dbl const& ordinate, Dbl const& abscissa)
{
    return Rounded(
        [&](mpfr_ptr r, mpfr_rnd_t mode) { return mpfr_atan2(r, ordinate.Get(), abscissa.Get(), mode); });
}

} // namespace oracle
