#pragma once
#include "oracle/Draws.h"
#include "oracle/Vectors.h"

// Parts of the matrices' rules that other classes' rules use.

namespace oracle {

template <int N>
Vec<Dbl, N> operator*(Mat<N> const& m, Vec<Dbl, N> const& v)
{
    Vec<Dbl, N> result;
    for (int r = 0; r < N; ++r)
        result[r] = ProductSum(m.Row(r), v);
    return result;
}

template <int N>
Mat<N> UnitMatrix()
{
    Mat<N> m;
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c)
            m(r, c) = r == c ? 1.0 : 0.0;
    return m;
}

/// The product: in three dimensions each sum starts with 0.0, in two it is written out.
Mat<3> operator*(Mat<3> const& a, Mat<3> const& b);
Mat<2> operator*(Mat<2> const& a, Mat<2> const& b);

Mat<3> InverseOf(Mat<3> m);
Mat<2> InverseOf(Mat<2> const& m);

/// The solution that `Mat3Dbl::Solve` computes for the right-hand side. Raises Singular.
V3 SolutionOf(Mat<3> const& m, V3 b);

/// `Quaternion::SetFromMatrix` and `Quaternion::GetRotationMatrix`.
Quat QuaternionOf(Mat<3> const& m);
Mat<3> RotationMatrixOf(Quat const& q);

template <class M, int N>
M FilledMatrix(Source& source)
{
    M m;
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c)
            m(r, c) = source.Number<double>();
    return m;
}

/// A matrix that may be singular, nearly so, have equal rows, a zero row, or be symmetric.
template <class M, int N>
M DrawnMatrix(Source& source)
{
    M m = FilledMatrix<M, N>(source);
    int const from = source.Below(N), to = source.Below(N);
    switch (source.Below(10)) {
    case 0:
    case 1: {
        double const factor = source.Below(2) ? source.Ordinary<double>() : 1.0 - 2.0 * source.Below(2);
        for (int c = 0; c < N; ++c)
            m(to, c) = m(from, c) * factor;
        if (source.Below(2))
            m(to, source.Below(N)) *= 1.0 + std::pow(10.0, -16.0 * source.Unit());
        break;
    }
    case 2:
        for (int c = 0; c < N; ++c)
            m(to, c) = source.Below(2) ? 0.0 : -0.0;
        break;
    case 3:
        for (int r = 0; r < N; ++r)
            m(r, to) = source.Below(2) ? 0.0 : -0.0;
        break;
    case 4:
        for (int r = 0; r < N; ++r)
            for (int c = 0; c < N; ++c)
                if (source.Below(2) && r != c)
                    m(r, c) = 0.0;
        break;
    case 5:
        for (int r = 0; r < N; ++r) {
            int const scale = source.Below(600) - 300;
            for (int c = 0; c < N; ++c)
                m(r, c) = std::ldexp(m(r, c), scale);
        }
        break;
    case 6:
        for (int r = 0; r < N; ++r)
            m(r, from) = source.Below(2) ? m(0, from) : -m(0, from);
        break;
    default:
        break;
    }
    return m;
}

template <class M, int N>
auto DrawMatrix(Source& source)
{
    return std::tuple(DrawnMatrix<M, N>(source));
}

template <class M, int N>
auto DrawMatrices(Source& source)
{
    M const a = DrawnMatrix<M, N>(source);
    M b = source.OneIn(4) ? a : DrawnMatrix<M, N>(source);
    if (source.OneIn(4))
        b(source.Below(N), source.Below(N)) = source.Number<double>();
    return std::tuple(a, b);
}

template <class M, int N>
auto DrawScaledMatrix(Source& source)
{
    M const m = DrawnMatrix<M, N>(source);
    return std::tuple(m, source.Number<double>());
}

/// A matrix and a vector; some rows are related to the vector, so that sums are at ties and cancel.
template <class M, int N, class V>
auto DrawApplied(Source& source)
{
    M m = DrawnMatrix<M, N>(source);
    V v;
    for (int i = 0; i < N; ++i)
        v[i] = source.Number<ElementOf<V>>();
    if (source.Below(2)) {
        auto const [a, b] = Related<V>(source);
        v = a;
        int const r = source.Below(N);
        for (int c = 0; c < N; ++c)
            m(r, c) = static_cast<double>(b[c]);
        if (source.Below(2))
            m(r, source.Below(N)) *= 1.0 + 0x1p-50;
    }
    return std::tuple(m, v);
}

/// The midpoint of two floats, or a neighbour, as a sum of products of doubles.
template <class M, int N, class V>
auto DrawAppliedAtFloatTie(Source& source)
{
    if (source.Below(3))
        return DrawApplied<M, N, V>(source);
    M m = FilledMatrix<M, N>(source);
    V v;
    for (int i = 0; i < N; ++i)
        v[i] = ElementOf<V>(1);
    for (int r = 0; r < N; ++r) {
        float const near = source.Ordinary<float>();
        int const i = source.Below(N), j = (i + 1) % N;
        for (int c = 0; c < N; ++c)
            m(r, c) = std::ldexp(source.Signed(), -50 - source.Below(20));
        m(r, i) = static_cast<double>(near);
        m(r, j) = static_cast<double>(HalfUnit(near)) * (source.Below(2) ? 1.0 : -1.0);
    }
    return std::tuple(m, v);
}

} // namespace oracle
