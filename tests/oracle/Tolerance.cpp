#include "oracle/Registry.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

auto FieldsOf(VexorTolerance& tolerance)
{
    return std::tuple(tolerance.GetAngle(), tolerance.GetSin2Angle(), tolerance.GetLength(),
                      tolerance.GetLengthSquared());
}

/// A value whose float, or the float's square, is close to a tie.
double Close(Source& source)
{
    double value = source.OneIn(3) ? source.Number<double>() : std::pow(10.0, 2.0 - 12.0 * source.Unit());
    if (source.Below(2)) {
        float const near = static_cast<float>(value);
        value = static_cast<double>(near)
                + 0.5 * (static_cast<double>(std::nextafter(near, 2 * near)) - static_cast<double>(near));
        value = source.Near(value);
    }
    return source.OneIn(4) ? -value : value;
}

auto DrawClose(Source& source)
{
    return std::tuple(Close(source));
}

} // namespace

void EnterTolerance()
{
    // The fields of a fresh object, as bits.
    Flt const angle(0x1.ad7f2ap-24f), length(0x1.4f8b58p-17f);
    Flt const sin2Angle(0x1.6849b8p-47f), lengthSquared(0x1.b7cdfcp-34f);

    Add(
        "VexorTolerance()", [](Source&) { return std::tuple<>(); },
        [] {
            VexorTolerance tolerance;
            return FieldsOf(tolerance);
        },
        [=] {
            Flt const f = Single(Slip("the square of the double") ? 1e-5 : Dbl(length));
            Flt const s = Single(Sin(1e-7));
            Flt const square = Single(Slip("the square of the double") ? Dbl(1e-5) * Dbl(1e-5) : f * f);
            // The sine's square equals the constant that is stored at load.
            Flt const sine = Single(s * s);
            return std::tuple(angle, sine == sin2Angle ? sine : Flt(-1.0f), length,
                              square == lengthSquared || slips.on ? square : Flt(-1.0f));
        });
    Add(
        "VexorTolerance::SetAngle", DrawClose,
        [](double value) {
            VexorTolerance tolerance;
            tolerance.SetAngle(value);
            return FieldsOf(tolerance);
        },
        [=](Dbl const& value) {
            Flt const rounded = Single(value);
            Dbl sine = Sin(Slip("the sine of the rounded angle") ? Dbl(rounded) : value);
            if (!Slip("the sine is not rounded"))
                sine = Single(sine);
            return std::tuple(rounded, Single(sine * sine), length, lengthSquared);
        });
    Add(
        "VexorTolerance::SetLength", DrawClose,
        [](double value) {
            VexorTolerance tolerance;
            tolerance.SetLength(value);
            return FieldsOf(tolerance);
        },
        [=](Dbl const& value) {
            Flt const rounded = Single(value);
            Dbl const factor = Slip("the square of the double") ? value : Dbl(rounded);
            return std::tuple(angle, sin2Angle, rounded, Single(factor * factor));
        });
    Add(
        "VexorTolerance::operator=", [](Source& source) { return std::tuple(Close(source), Close(source)); },
        [](double first, double second) {
            VexorTolerance tolerance, copy;
            tolerance.SetAngle(first);
            tolerance.SetLength(second);
            copy = tolerance;
            return FieldsOf(copy);
        },
        [](Dbl const& first, Dbl const& second) {
            Flt const sine = Single(Sin(first));
            Flt const rounded = Single(second);
            return std::tuple(Single(first), Single(sine * sine), rounded, Single(rounded * rounded));
        });
}

} // namespace oracle
