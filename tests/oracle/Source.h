#pragma once
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace oracle {

/// The fields of the global tolerance that predicates read, as set by the case.
struct GlobalTolerance {
    float sin2Angle;
    float lengthSquared;
};
extern GlobalTolerance globalTolerance;

/// Draws the operands of one case: the same seed, operation and case number give the same operands.
class Source {
public:
    Source(std::uint64_t seed, std::uint64_t operation, std::uint64_t caseNumber);

    /// Draws from the bytes, which must outlive it: one chooses the kind, usually the operands' bits
    /// unchanged, one the scale. When the bytes are used up, draws continue as for a seed.
    Source(std::uint8_t const* bytes, std::size_t count);

    std::uint64_t Next();
    /// 0 to count − 1.
    int Below(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }
    /// From 0 up to 1.
    double Unit() { return static_cast<double>(Next() >> 11) * 0x1p-53; }
    double Signed() { return 2.0 * Unit() - 1.0; }

    /// The kinds of operands; one is chosen for each case.
    enum class Mood { Plain, Integers, Short, Special, Scaled, Mixed, AnyBits };
    Mood mood;

    /// An operand of the kind of the case.
    template <class T>
    T Number();
    /// A full significand near 1, with sign.
    template <class T>
    T Ordinary();
    template <class T>
    T Special();
    template <class T>
    T AnyBits();

    /// The value, its neighbours, and similar numbers.
    template <class T>
    T Near(T value)
    {
        switch (Below(6)) {
        case 0:
        case 1:
            return std::nextafter(value, std::numeric_limits<T>::infinity());
        case 2:
        case 3:
            return std::nextafter(value, -std::numeric_limits<T>::infinity());
        default:
            return value;
        }
    }

    /// A tolerance argument for a test of this value: a neighbour, the global, or an unusual one.
    template <class T>
    T Tolerance(T value);

    /// Sets a field of the global: near the value, or its default.
    void SetGlobal(float& field, double value);

    double Angle();

    int exponent = 0; // the common scale of a scaled case

private:
    std::uint8_t const* bytes = nullptr;
    std::size_t left = 0;
    std::uint64_t state[4];
};

template <>
inline double Source::AnyBits<double>()
{
    std::uint64_t const bits = Next();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

template <>
inline float Source::AnyBits<float>()
{
    std::uint32_t const bits = static_cast<std::uint32_t>(Next());
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

template <class T>
T Source::Ordinary()
{
    T value = static_cast<T>(std::ldexp(1.0 + Unit(), Below(5) - 2));
    return Below(2) ? value : -value;
}

template <class T>
T Source::Special()
{
    using Limits = std::numeric_limits<T>;
    T value = T(0);
    switch (Below(18)) {
    case 0:
    case 1:
    case 2:
    case 3:
        value = T(0);
        break;
    case 4:
        value = Limits::quiet_NaN();
        break;
    case 5:
        value = Limits::infinity();
        break;
    case 6:
        value = Limits::denorm_min();
        break;
    case 7:
        value = Limits::min() - Limits::denorm_min();
        break;
    case 8:
        value = Limits::min();
        break;
    case 9:
        value = Limits::max();
        break;
    case 10:
        value = T(1) + Limits::epsilon();
        break;
    case 11:
        value = T(1) - Limits::epsilon() / 2;
        break;
    case 12:
        value = static_cast<T>(1e-5);
        break;
    case 13:
        value = T(0.015625);
        break;
    case 14:
        value = static_cast<T>(1e20);
        break;
    case 15:
        value = static_cast<T>(std::ldexp(1.0, Below(40) - 20));
        break;
    case 16:
        value = static_cast<T>(std::ldexp(1.0 + Unit(), Limits::min_exponent - 1 - Below(Limits::digits)));
        break;
    default:
        value = T(1);
        break;
    }
    if (OneIn(4))
        value = std::nextafter(value, Below(2) ? T(0) : Limits::infinity());
    return Below(2) ? value : -value;
}

template <class T>
T Source::Number()
{
    constexpr bool single = sizeof(T) == sizeof(float);
    switch (mood) {
    case Mood::Plain:
        return OneIn(24) ? Special<T>() : Ordinary<T>();
    case Mood::Integers: {
        T const value = static_cast<T>(Below(4));
        T const scaled = OneIn(8) ? value / 2 : value;
        return Below(2) ? scaled : -scaled;
    }
    case Mood::Short: {
        int const bits = 1 + Below(12);
        T const value =
            static_cast<T>(std::ldexp(static_cast<double>(Next() >> (64 - bits)), Below(9) - 4 - bits / 2));
        return Below(2) ? value : -value;
    }
    case Mood::Special:
        return Below(2) ? Special<T>() : Ordinary<T>();
    case Mood::Scaled:
        return static_cast<T>(std::ldexp(Ordinary<double>(), exponent / (single ? 8 : 1)));
    case Mood::Mixed:
        return static_cast<T>(
            std::ldexp(Ordinary<double>(), (single ? 40 : 330) * (Below(7) - 3) / 2 + Below(3)));
    default:
        return AnyBits<T>();
    }
}

template <class T>
T Source::Tolerance(T value)
{
    switch (Below(12)) {
    case 0:
        return T(-1);
    case 1:
        return -std::numeric_limits<T>::denorm_min();
    case 2:
        return -T(0);
    case 3:
        return T(0);
    case 4:
        return OneIn(4) ? std::numeric_limits<T>::quiet_NaN() : T(-1);
    case 5:
        return static_cast<T>(std::pow(10.0, -20.0 * Unit()));
    case 6:
        return OneIn(4) ? T(2) : T(-1);
    default:
        return Near<T>(value);
    }
}

/// a's double with the rounding of T.
template <class T>
T Rounded(double value)
{
    T volatile rounded = static_cast<T>(value);
    return rounded;
}

} // namespace oracle
