#pragma once
#include <tuple>
#include <type_traits>
#include <utility>

#include "oracle/Source.h"

// Operands that provoke decisions. The computations here only choose operands; no expected result depends on
// them.

namespace oracle {

template <class V>
using ElementOf = std::decay_t<decltype(std::declval<V&>()[0])>;

template <class V>
constexpr int sizeOf = static_cast<int>(sizeof(V) / sizeof(ElementOf<V>));

template <class V, class = void>
struct SizeOf {
    static int Of(V const&) { return sizeOf<V>; }
};
template <class V>
struct SizeOf<V, std::void_t<decltype(V::size)>> {
    static int Of(V const& v) { return v.size; }
};
template <class V>
int Size(V const& v)
{
    return SizeOf<V>::Of(v);
}

// Each draw fills an operand, whose size is kept: that of a class of run-time size is drawn before. Those
// with a participle for a name give one of a fixed size.

template <class V>
void Fill(Source& source, V& v)
{
    for (int i = 0; i < Size(v); ++i)
        v[i] = source.Number<ElementOf<V>>();
}

template <class V>
V Filled(Source& source)
{
    V v;
    Fill(source, v);
    return v;
}

/// Equal components, opposite ones, and NaN among them.
template <class V>
void Tie(Source& source, V& v)
{
    using T = ElementOf<V>;
    for (int i = 0; i < Size(v); ++i) {
        v[i] = source.Number<T>();
        if (i > 0 && source.Below(2))
            v[i] = v[source.Below(i)];
        if (source.OneIn(4))
            v[i] = -v[i];
        if (source.OneIn(4) && i > 0)
            v[i] = source.Near(v[i - 1]);
        if (source.OneIn(12))
            v[i] = std::numeric_limits<T>::quiet_NaN();
    }
}

template <class V>
V Tied(Source& source)
{
    V v;
    Tie(source, v);
    return v;
}

template <class V>
double PlainDot(V const& a, V const& b)
{
    double sum = 0.0;
    for (int i = 0; i < Size(a); ++i)
        sum += static_cast<double>(a[i]) * static_cast<double>(b[i]);
    return sum;
}

/// Half a unit in the last place of the value: adding it makes a tie.
template <class T>
T HalfUnit(T value)
{
    T const size = std::fabs(value);
    return (std::nextafter(size, std::numeric_limits<T>::infinity()) - size) / 2;
}

/// Numbers whose sum is at or next to a tie, in any order.
template <class V>
void PutAtTie(Source& source, V& v)
{
    using T = ElementOf<V>;
    T const first = source.Ordinary<T>();
    T parts[4] = {first, HalfUnit(first), T(0), T(0)};
    parts[2] = static_cast<T>(std::ldexp(
        source.Ordinary<double>(), -(std::numeric_limits<T>::digits == 24 ? 30 : 55) - source.Below(30)));
    if (source.Below(2))
        parts[1] = -parts[1];
    for (int i = 0; i < Size(v); ++i)
        v[i] = i < 4 ? parts[i] : T(0);
    for (int i = Size(v) - 1; i > 0; --i)
        std::swap(v[i], v[source.Below(i + 1)]);
}

template <class V>
V AtTie(Source& source)
{
    V v;
    PutAtTie(source, v);
    return v;
}

/// Components whose squares add up to about the midpoint of two floats, as closely as a few tries reach.
template <class V>
void PutSquaresAtTie(Source& source, V& best)
{
    int const n = Size(best);
    Fill(source, best);
    V v = best;
    double nearest = std::numeric_limits<double>::infinity();
    for (int attempt = 0; attempt < 24; ++attempt) {
        double sum = 0.0;
        for (int i = 0; i < n - 1; ++i) {
            v[i] = Rounded<ElementOf<V>>(source.Ordinary<float>());
            sum += static_cast<double>(v[i]) * static_cast<double>(v[i]);
        }
        float const below = static_cast<float>(sum * (1.0 + 0x1p-23));
        double const middle = static_cast<double>(below) + static_cast<double>(HalfUnit(below));
        v[n - 1] = Rounded<ElementOf<V>>(Rounded<float>(std::sqrt(middle - sum)));
        double const miss =
            std::fabs((middle - sum) - static_cast<double>(v[n - 1]) * static_cast<double>(v[n - 1]));
        if (miss < nearest) {
            nearest = miss;
            best = v;
        }
    }
    for (int i = n - 1; i > 0; --i)
        std::swap(best[i], best[source.Below(i + 1)]);
}

template <class V>
V SquaresAtTie(Source& source)
{
    V v;
    PutSquaresAtTie(source, v);
    return v;
}

/// At a right angle to a, or `depth` away from it, in a plane of coordinates or, at times, in space.
template <class V>
V NearlyPerpendicular(Source& source, V const& a, double depth)
{
    using T = ElementOf<V>;
    int const n = Size(a);
    V b = a;
    double const factor = source.Ordinary<double>();
    int const i = source.Below(n), j = (i + 1) % n;
    for (int k = 0; k < n; ++k)
        b[k] = T(0);
    if (n > 2 && source.Below(2)) {
        double const x = source.Ordinary<double>();
        b[(i + 2) % n] = Rounded<T>(x);
        double const square = static_cast<double>(a[i]) * static_cast<double>(a[i])
                              + static_cast<double>(a[j]) * static_cast<double>(a[j]);
        double const along = -x * static_cast<double>(a[(i + 2) % n]) / square;
        b[i] = Rounded<T>(along * static_cast<double>(a[i]));
        b[j] = Rounded<T>(along * static_cast<double>(a[j]));
    } else {
        b[i] = Rounded<T>(-static_cast<double>(a[j]) * factor);
        b[j] = Rounded<T>(static_cast<double>(a[i]) * factor);
    }
    if (source.Below(2))
        for (int k = 0; k < n; ++k)
            b[k] = Rounded<T>(static_cast<double>(b[k]) + depth * static_cast<double>(a[k]));
    return b;
}

/// Two operands with some relation: equal, opposite, scaled, nearly parallel, nearly perpendicular, at a
/// tie, with shared components, or none.
template <class V>
void Relate(Source& source, V& a, V& b)
{
    using T = ElementOf<V>;
    int const n = Size(a);
    Fill(source, a);
    Fill(source, b);
    double const depth = std::pow(
        10.0, -(sizeof(T) == sizeof(float) ? 1.0 + 7.0 * source.Unit() : 3.0 + 14.0 * source.Unit()));
    switch (source.Below(16)) {
    case 0:
        b = a;
        break;
    case 1:
        for (int i = 0; i < n; ++i)
            b[i] = -a[i];
        break;
    case 2: {
        T const factor = static_cast<T>(std::ldexp(1.0, source.Below(5) - 2));
        for (int i = 0; i < n; ++i)
            b[i] = a[i] * factor;
        break;
    }
    case 3:
    case 4: {
        double const factor = source.Ordinary<double>();
        for (int i = 0; i < n; ++i)
            b[i] = Rounded<T>(static_cast<double>(a[i]) * factor);
        break;
    }
    case 5:
    case 6:
    case 7: {
        double const factor = source.Ordinary<double>();
        double const size = std::sqrt(PlainDot(a, a));
        for (int i = 0; i < n; ++i)
            b[i] = Rounded<T>((static_cast<double>(a[i]) + depth * size * source.Signed()) * factor);
        break;
    }
    case 8:
    case 9:
    case 10:
        b = NearlyPerpendicular(source, a, depth);
        break;
    case 11:
        PutAtTie(source, a);
        for (int i = 0; i < n; ++i)
            b[i] = T(1);
        if (source.Below(2))
            b[source.Below(n)] = T(-1);
        break;
    case 12:
        for (int i = 0; i < n; ++i)
            if (source.Below(2))
                b[i] = source.OneIn(3) ? source.Near(a[i]) : a[i];
        break;
    default:
        break;
    }
    if (source.OneIn(10)) {
        T const small = static_cast<T>(std::ldexp(1.0, -15 - source.Below(5)));
        for (int i = 0; i < n; ++i) {
            a[i] *= small;
            if (source.Below(2))
                b[i] *= small;
        }
    }
    if (source.Below(2))
        std::swap(a, b);
}

template <class V>
std::pair<V, V> Related(Source& source)
{
    std::pair<V, V> result;
    Relate(source, result.first, result.second);
    return result;
}

/// A nearly unit vector.
template <class V>
V Unitised(V v)
{
    using T = ElementOf<V>;
    double const size = std::sqrt(PlainDot(v, v));
    for (int i = 0; i < sizeOf<V>; ++i)
        v[i] = Rounded<T>(static_cast<double>(v[i]) / size);
    return v;
}

template <class V>
auto DrawOne(Source& source)
{
    switch (source.Below(16)) {
    case 0:
        return std::tuple(AtTie<V>(source));
    case 1:
        return std::tuple(SquaresAtTie<V>(source));
    default:
        return std::tuple(Filled<V>(source));
    }
}

template <class V>
auto DrawTied(Source& source)
{
    return std::tuple(Tied<V>(source));
}

template <class V>
auto DrawPair(Source& source)
{
    auto const [a, b] = Related<V>(source);
    return std::tuple(a, b);
}

template <class V>
auto DrawTiedPair(Source& source)
{
    V const a = Tied<V>(source);
    V b = a;
    for (int i = 0; i < sizeOf<V>; ++i)
        if (source.OneIn(3))
            b[i] = source.Below(2) ? source.Near(a[i]) : source.Number<ElementOf<V>>();
    return std::tuple(a, b);
}

/// A vector and a factor or divisor of the given type.
template <class V, class Scalar>
auto DrawScaled(Source& source)
{
    V const v = Filled<V>(source);
    return std::tuple(v, source.Number<Scalar>());
}

} // namespace oracle
