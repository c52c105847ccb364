#pragma once
#include "oracle/Draws.h"
#include "oracle/Registry.h"

namespace oracle {

/// A fixed number of elements, for the draws that want one.
template <class T, int N>
struct Few {
    T e[N];
    T& operator[](int i) { return e[i]; }
    T const& operator[](int i) const { return e[i]; }
};

template <class T, int N>
Array<T> Copied(Few<T, N> const& from)
{
    Array<T> result;
    result.size = N;
    for (int i = 0; i < N; ++i)
        result.e[i] = from[i];
    return result;
}

/// Calls the draw with an array type of a drawn size.
template <class T, class Draw>
auto OfSomeSize(Source& source, Draw draw)
{
    switch (source.Below(6)) {
    case 0:
        return draw(Few<T, 1>());
    case 1:
        return draw(Few<T, 2>());
    case 2:
    case 3:
        return draw(Few<T, 3>());
    case 4:
        return draw(Few<T, 4>());
    default:
        return draw(Few<T, 7>());
    }
}

template <class T>
Array<T> DrawnArray(Source& source)
{
    return OfSomeSize<T>(source, [&](auto shape) {
        using V = decltype(shape);
        switch (source.Below(12)) {
        case 0:
            return Copied(AtTie<V>(source));
        case 1:
            if constexpr (sizeOf < V >> 1)
                return Copied(SquaresAtTie<V>(source));
            else
                return Copied(Filled<V>(source));
        case 2:
            return Copied(Tied<V>(source));
        case 3: {
            V v = {};
            if (source.Below(2))
                v[0] = -v[0];
            return Copied(v);
        }
        default:
            return Copied(Filled<V>(source));
        }
    });
}

/// Two arrays of one size that stand in some relation; now and then of two sizes.
template <class T>
std::pair<Array<T>, Array<T>> DrawnArrays(Source& source)
{
    auto result = OfSomeSize<T>(source, [&](auto shape) {
        auto const [a, b] = Related<decltype(shape)>(source);
        return std::pair(Copied(a), Copied(b));
    });
    if (source.OneIn(12))
        result.second = DrawnArray<T>(source);
    return result;
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
    Grid grid;
    grid.rows = rows;
    grid.columns = columns;
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c)
            grid.e[r][c] = source.OneIn(10) ? (source.Below(2) ? 0.0 : -0.0) : source.Number<double>();
    return grid;
}

inline Grid DrawnGrid(Source& source)
{
    int const rows = 1 + source.Below(5);
    return DrawnGrid(source, rows, source.Below(3) ? rows : 1 + source.Below(5));
}

inline VecDbl Made(Array<double> const& a)
{
    VecDbl v(a.size, nullptr);
    for (int i = 0; i < a.size; ++i)
        v[i] = a.e[i];
    return v;
}

inline VecFlt Made(Array<float> const& a)
{
    VecFlt v(a.size, nullptr);
    for (int i = 0; i < a.size; ++i)
        v[i] = a.e[i];
    return v;
}

inline MatDbl Made(Grid const& g)
{
    MatDbl m(g.rows, g.columns, nullptr);
    for (int r = 0; r < g.rows; ++r)
        for (int c = 0; c < g.columns; ++c)
            m(r, c) = g.e[r][c];
    return m;
}

} // namespace oracle
