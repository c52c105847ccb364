#pragma once
#include "oracle/Outcome.h"

#include <cstddef>
#include <vector>

// The oracle's own values: numbers in rows, without behaviour.

namespace oracle {

template <class Element, int N>
struct Vec {
    Element e[N];
    Element& operator[](int i) { return e[i]; }
    Element const& operator[](int i) const { return e[i]; }
};

using V2 = Vec<Dbl, 2>;
using V3 = Vec<Dbl, 3>;
using F2 = Vec<Flt, 2>;
using F3 = Vec<Flt, 3>;
using Quat = Vec<Dbl, 4>; // vector part, then scalar

template <int N>
struct Mat {
    Dbl m[N][N];
    Dbl& operator()(int r, int c) { return m[r][c]; }
    Dbl const& operator()(int r, int c) const { return m[r][c]; }
    Vec<Dbl, N> Row(int r) const
    {
        Vec<Dbl, N> row;
        for (int c = 0; c < N; ++c)
            row[c] = m[r][c];
        return row;
    }
};

template <int N>
struct Aff {
    Mat<N> linear;
    Vec<Dbl, N> shift;
};

/// A vector of run-time size.
template <class Element>
struct Dyn {
    int size = 0;
    std::vector<Element> e;

    Dyn() = default;
    explicit Dyn(int newSize) : size(newSize), e(static_cast<std::size_t>(newSize)) {}
    Element& operator[](int i) { return e[static_cast<std::size_t>(i)]; }
    Element const& operator[](int i) const { return e[static_cast<std::size_t>(i)]; }
};

/// A matrix of run-time shape.
struct DynMat {
    int rows = 0;
    int columns = 0;
    std::vector<Dbl> m;

    DynMat() = default;
    DynMat(int newRows, int newColumns)
        : rows(newRows), columns(newColumns), m(static_cast<std::size_t>(newRows * newColumns))
    {}
    Dbl& operator()(int r, int c) { return m[static_cast<std::size_t>(r * columns + c)]; }
    Dbl const& operator()(int r, int c) const { return m[static_cast<std::size_t>(r * columns + c)]; }
};

template <class T>
void Put(Outcome& out, T const& value)
{
    out.Put(value);
}

template <class Element, int N>
void Put(Outcome& out, Vec<Element, N> const& value)
{
    for (int i = 0; i < N; ++i)
        out.Put(value[i]);
}

template <int N>
void Put(Outcome& out, Mat<N> const& value)
{
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c)
            out.Put(value(r, c));
}

template <int N>
void Put(Outcome& out, Aff<N> const& value)
{
    Put(out, value.linear);
    Put(out, value.shift);
}

template <class Element>
void Put(Outcome& out, Dyn<Element> const& value)
{
    out.Put(value.size);
    for (int i = 0; i < value.size; ++i)
        out.Put(value[i]);
}

inline void Put(Outcome& out, DynMat const& value)
{
    out.Put(value.rows);
    out.Put(value.columns);
    for (int r = 0; r < value.rows; ++r)
        for (int c = 0; c < value.columns; ++c)
            out.Put(value(r, c));
}

} // namespace oracle
