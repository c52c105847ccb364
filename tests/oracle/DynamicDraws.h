#pragma once
#include "oracle/Draws.h"
#include "oracle/Registry.h"
#include "support/Sizes.h"

#include <iterator>

namespace oracle {

/// Sizes: small ones most often, since they cost little; every size up to sizes::allUpTo; seldom the larger
/// ones.
inline int DrawnLength(Source& source)
{
    if (source.OneIn(12))
        return 1 + source.Below(sizes::allUpTo);
    if (source.OneIn(150))
        return sizes::larger[source.Below(4)] - 1 + source.Below(3);
    if (source.OneIn(300))
        return sizes::larger[4 + source.Below(2)] + (source.Below(2) ? 1 : -source.Below(2));
    constexpr int small[] = {1, 2, 3, 3, 4, 7};
    return small[source.Below(6)];
}

/// Longer than most: the few operands of this kind must show a mistake.
inline bool IsLong(int size)
{
    return size > sizes::allUpTo;
}

/// An index, at the end of the range more often than within: an element that is forgotten is one of the last.
inline int DrawnPlace(Source& source, int size)
{
    switch (source.Below(4)) {
    case 0:
        return size - 1;
    case 1:
        return size - 1 - source.Below(size < 8 ? size : 8);
    default:
        return IsLong(size) ? size - 1 : source.Below(size);
    }
}

/// An infinity or a NaN would hide what happens to all other elements of a long operand: most often there is none.
template <class T>
bool IsHarmless(T value)
{
    T const size = std::fabs(value);
    return size == T(0) || (size > T(1e-6) && size < T(1e6));
}

template <class T>
Array<T> DrawnArray(Source& source)
{
    Array<T> v(DrawnLength(source));
    switch (source.Below(12)) {
    case 0:
        PutAtTie(source, v);
        break;
    case 1:
        if (v.size > 1 && v.size <= 16)
            PutSquaresAtTie(source, v);
        else
            Fill(source, v);
        break;
    case 2:
        Tie(source, v);
        break;
    case 3:
        if (source.Below(2))
            v[0] = -v[0]; // all are 0
        break;
    default:
        Fill(source, v);
    }
    if (IsLong(v.size) && !source.OneIn(4))
        for (T& element : v.e)
            element = IsHarmless(element) ? element : source.Ordinary<T>();
    return v;
}

/// Two arrays of one size with some relation; sometimes of two sizes.
template <class T>
std::pair<Array<T>, Array<T>> DrawnArrays(Source& source)
{
    Array<T> a(DrawnLength(source)), b(a.size);
    Relate(source, a, b);
    if (IsLong(a.size) && !source.OneIn(4))
        for (int i = 0; i < a.size; ++i)
            if (!IsHarmless(a[i]) || !IsHarmless(b[i]))
                a[i] = b[i] = source.Ordinary<T>();
    if (source.OneIn(12))
        b = DrawnArray<T>(source);
    return {a, b};
}

template <class T>
auto DrawArray(Source& source)
{
    return std::tuple(DrawnArray<T>(source));
}

template <class T>
auto DrawArrays(Source& source)
{
    auto const [a, b] = DrawnArrays<T>(source);
    return std::tuple(a, b);
}

template <class T>
auto DrawScaledArray(Source& source)
{
    Array<T> const a = DrawnArray<T>(source);
    return std::tuple(a, source.Number<T>());
}

inline Grid DrawnGrid(Source& source, int rows, int columns)
{
    Grid grid(rows, columns);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            grid(r, c) = source.OneIn(10) ? (source.Below(2) ? 0.0 : -0.0) : source.Number<double>();
    if ((IsLong(rows) || IsLong(columns)) && !source.OneIn(4))
        for (double& element : grid.e)
            element = IsHarmless(element) ? element : source.Ordinary<double>();
    return grid;
}

/// Shapes: small ones most often, all up to sizes::matricesUpTo, seldom the large ones.
inline Grid DrawnGrid(Source& source)
{
    if (source.OneIn(40)) {
        int const rows = 1 + source.Below(sizes::matricesUpTo);
        return DrawnGrid(source, rows, source.Below(3) ? rows : 1 + source.Below(sizes::matricesUpTo));
    }
    if (source.OneIn(1000)) {
        auto const& shape =
            sizes::largeMatrices[source.Below(static_cast<int>(std::size(sizes::largeMatrices)))];
        return DrawnGrid(source, shape.rows, shape.columns);
    }
    int const rows = 1 + source.Below(5);
    return DrawnGrid(source, rows, source.Below(3) ? rows : 1 + source.Below(5));
}

inline VecDbl Made(Array<double> const& a)
{
    VecDbl v(a.size, nullptr);
    for (int i = 0; i < a.size; ++i)
        v[i] = a[i];
    return v;
}

inline VecFlt Made(Array<float> const& a)
{
    VecFlt v(a.size, nullptr);
    for (int i = 0; i < a.size; ++i)
        v[i] = a[i];
    return v;
}

inline MatDbl Made(Grid const& g)
{
    MatDbl m(g.rows, g.columns, nullptr);
    for (int r = 0; r < g.rows; ++r)
        for (int c = 0; c < g.columns; ++c)
            m(r, c) = g(r, c);
    return m;
}

} // namespace oracle
