#pragma once
#include <array>

#include "oracle/Registry.h"

// Parts of the vectors' rules that other classes' rules use.

namespace oracle {

template <class E, int N>
Dbl ProductSum(Vec<E, N> const& a, Vec<E, N> const& b)
{
    Dbl sum = Dbl(a[0]) * Dbl(b[0]);
    for (int i = 1; i < N; ++i)
        sum = sum + Dbl(a[i]) * Dbl(b[i]);
    return sum;
}

template <class E, int N>
E DotOf(Vec<E, N> const& a, Vec<E, N> const& b)
{
    return To<E>(ProductSum(a, b));
}

template <class E, int N>
E LengthSquaredOf(Vec<E, N> const& a)
{
    return DotOf(a, a);
}

// Lengths, angles, areas, projections and distances of double vectors have the bits of an unlimited exponent
// range.
template <int N>
using WideVec = std::array<Wide, N>;

template <int N>
WideVec<N> Widened(Vec<Dbl, N> const& a)
{
    if constexpr (N == 2)
        return {Wide(a[0]), Wide(a[1])};
    else
        return {Wide(a[0]), Wide(a[1]), Wide(a[2])};
}

template <std::size_t N>
Wide WideDot(std::array<Wide, N> const& a, std::array<Wide, N> const& b)
{
    Wide sum = a[0] * b[0];
    for (std::size_t i = 1; i < N; ++i)
        sum = sum + a[i] * b[i];
    return sum;
}

template <int N>
Wide WideLength(Vec<Dbl, N> const& a)
{
    return Sqrt(WideDot(Widened(a), Widened(a)));
}

template <int N>
Dbl LengthOf(Vec<Dbl, N> const& a)
{
    return Narrow(WideLength(a));
}

template <int N>
Flt LengthOf(Vec<Flt, N> const& a)
{
    return Single(Sqrt(LengthSquaredOf(a)));
}

template <class E, int N>
bool NullOf(Vec<E, N> const& a)
{
    for (int i = 0; i < N; ++i)
        if (!(Dbl(a[i]) == 0.0))
            return false;
    return true;
}

template <int N>
Vec<Dbl, N> NormalizedOf(Vec<Dbl, N> a)
{
    if (NullOf(a))
        throw Raised{Raise::NullVector};
    Wide const length = WideLength(a);
    for (int i = 0; i < N; ++i)
        a[i] = Quotient(a[i], length);
    return a;
}

template <int N>
Vec<Flt, N> NormalizedOf(Vec<Flt, N> a)
{
    if (NullOf(a))
        throw Raised{Raise::NullVector};
    Flt const length = LengthOf(a);
    for (int i = 0; i < N; ++i)
        a[i] = Single(a[i] / length);
    return a;
}

template <class E, int N>
Vec<E, N> NegatedOf(Vec<E, N> a)
{
    for (int i = 0; i < N; ++i)
        a[i] = To<E>(-Dbl(a[i]));
    return a;
}

template <class E>
Vec<E, 3> CrossOf(Vec<E, 3> const& a, Vec<E, 3> const& b)
{
    return {{To<E>(a[1] * b[2] - b[1] * a[2]), To<E>(a[2] * b[0] - a[0] * b[2]),
             To<E>(b[1] * a[0] - a[1] * b[0])}};
}

template <int N>
Vec<Dbl, N> operator*(Dbl const& factor, Vec<Dbl, N> const& a)
{
    Vec<Dbl, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = a[i] * factor;
    return result;
}

template <int N>
Vec<Dbl, N> operator+(Vec<Dbl, N> const& a, Vec<Dbl, N> const& b)
{
    Vec<Dbl, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = a[i] + b[i];
    return result;
}

template <int N>
Vec<Dbl, N> operator-(Vec<Dbl, N> const& a, Vec<Dbl, N> const& b)
{
    Vec<Dbl, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = a[i] - b[i];
    return result;
}

// A tolerance argument below 0 selects the global's field of the same form.
template <class E>
Dbl ResolvedLength(E const& argument)
{
    return argument < 0.0 ? Dbl(static_cast<double>(globalTolerance.lengthSquared)) : Dbl(argument);
}

/// The squared length up to which a vector has no direction. A vector of squared length 0 never has one.
template <class E>
Dbl DirectionLimit(E const& argument)
{
    Dbl const limit = ResolvedLength(argument);
    return limit > 0.0 ? limit : Dbl(0.0);
}

/// ((d·d) / A) / B. No rule uses it if A or B is 0.
inline Dbl SquaredCosine(Dbl const& d, Dbl const& a, Dbl const& b)
{
    return ((d * d) / a) / b;
}

template <class E>
Dbl ResolvedAngle(E const& argument)
{
    return argument < 0.0 ? Dbl(static_cast<double>(globalTolerance.sin2Angle)) : Dbl(argument);
}

/// 0.0 from 1 on, π down from −1, else acos.
inline Dbl ClampedAcos(Dbl const& cosine)
{
    if (cosine >= 1.0)
        return 0.0;
    if (cosine <= -1.0)
        return pi;
    return Acos(cosine);
}

V3 PerpendicularOf(V3 const& a);
V3 RotatedOf(V3 const& a, V3 const& axis, Dbl const& angle);
Dbl CounterClockwiseAngle(V3 const& a, V3 const& b, V3 const& normal);

} // namespace oracle
