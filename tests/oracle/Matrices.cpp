#include "oracle/Matrices.h"

#include "oracle/Statements.h"

namespace oracle {

namespace {

template <int N, class Rule>
Mat<N> EachElement(Rule rule)
{
    Mat<N> result;
    for (int r = 0; r < N; ++r)
        for (int c = 0; c < N; ++c)
            result(r, c) = rule(r, c);
    return result;
}

template <class M, int N>
void EnterElementwise(std::string const& name)
{
    using Values = Mat<N>;
    auto const times = [](Values const& m, Dbl const& s) {
        return EachElement<N>([&](int r, int c) { return m(r, c) * s; });
    };
    auto const dividedBy = [](Values const& m, Dbl const& s) {
        bool const reciprocal = Slip("by the reciprocal");
        return EachElement<N>([&](int r, int c) { return reciprocal ? m(r, c) * (1.0 / s) : m(r, c) / s; });
    };
    auto const byReciprocal = [](Values const& m, Dbl const& s) {
        bool const division = Slip("by a division");
        return EachElement<N>([&](int r, int c) { return division ? m(r, c) / s : m(r, c) * (1.0 / s); });
    };
    auto const plus = [](Values const& a, Values const& b) {
        bool const transposed = Slip("the other one transposed");
        return EachElement<N>([&](int r, int c) { return a(r, c) + (transposed ? b(c, r) : b(r, c)); });
    };
    auto const minus = [](Values const& a, Values const& b) {
        bool const turned = Slip("the other way round");
        return EachElement<N>([&](int r, int c) { return turned ? b(r, c) - a(r, c) : a(r, c) - b(r, c); });
    };
    auto const negated = [](Values const& m) {
        bool const fromZero = Slip("from zero");
        return EachElement<N>([&](int r, int c) { return fromZero ? 0.0 - m(r, c) : -m(r, c); });
    };
    auto const transposed = [](Values const& m) {
        return EachElement<N>([&](int r, int c) { return m(c, r); });
    };
    auto const one = DrawMatrix<M, N>;
    auto const two = DrawMatrices<M, N>;
    auto const scaled = DrawScaledMatrix<M, N>;
    Add(
        name + "::operator*=", scaled, [](M m, double s) { return M(m *= s); }, times);
    Add(
        name + "::operator/=", scaled, [](M m, double s) { return M(m /= s); }, dividedBy);
    Add(
        name + "::operator+=", two, [](M a, M const& b) { return M(a += b); }, plus);
    Add(
        name + "::operator-=", two, [](M a, M const& b) { return M(a -= b); }, minus);
    Add(
        name + "::Negate", one, [](M m) { return M(m.Negate()); }, negated);
    Add(
        name + "::GetNegatedCopy", one, [](M const& m) { return m.GetNegatedCopy(); }, negated);
    Add(
        name + "::Transpose", one, [](M m) { return M(m.Transpose()); }, transposed);
    Add(
        name + "::GetTransposedCopy", one, [](M const& m) { return m.GetTransposedCopy(); }, transposed);
    Add(
        name + "::Identity", one, [](M m) { return M(m.Identity()); },
        [](Values const&) { return UnitMatrix<N>(); });
    Add(
        "operator*(" + name + ", scalar)", scaled, [](M const& m, double s) { return m * s; }, times);
    Add(
        "operator*(scalar, " + name + ")", scaled, [](M const& m, double s) { return s * m; }, times);
    Add(
        "operator/(" + name + ", scalar)", scaled, [](M const& m, double s) { return m / s; }, byReciprocal);
    Add(
        "operator-(" + name + ")", one, [](M const& m) { return -m; }, negated);
    Add(
        "operator+(" + name + ", " + name + ")", two, [](M const& a, M const& b) { return a + b; }, plus);
    Add(
        "operator-(" + name + ", " + name + ")", two, [](M const& a, M const& b) { return a - b; }, minus);
}

template <class M, class V, int N>
void EnterProducts(std::string const& name, std::string const& vector)
{
    using Values = Mat<N>;
    Add(
        "operator*(" + name + ", " + name + ")",
        [](Source& source) {
            auto [a, b] = DrawMatrices<M, N>(source);
            if (source.Below(2)) {
                auto const [x, y] = Related<V>(source);
                int const r = source.Below(N), c = source.Below(N);
                for (int k = 0; k < N; ++k) {
                    a(r, k) = x[k];
                    b(k, c) = y[k];
                }
            }
            return std::tuple(a, b);
        },
        [](M const& a, M const& b) { return a * b; },
        [](Values const& a, Values const& b) {
            bool const started = Slip("the start of the sum"), fused = Slip("fused"),
                       backwards = N == 3 && Slip("from the last on"), swapped = Slip("right operand first");
            Sound const sound;
            if (swapped)
                return b * a;
            if (started || fused || backwards)
                return EachElement<N>([&](int r, int c) {
                    bool const fromZero = (N == 3) != started;
                    int const first = backwards ? N - 1 : 0;
                    Dbl sum = a(r, first) * b(first, c);
                    if (fromZero)
                        sum = 0.0 + sum;
                    for (int i = 1; i < N; ++i) {
                        int const k = backwards ? N - 1 - i : i;
                        sum = fused ? Fused(a(r, k), b(k, c), sum) : sum + a(r, k) * b(k, c);
                    }
                    return sum;
                });
            return a * b;
        });
    Add(
        "operator*(" + name + ", " + vector + "Dbl)", DrawApplied<M, N, V>,
        [](M const& m, V const& v) { return m * v; },
        [](Values const& m, Vec<Dbl, N> const& v) {
            if (Slip("the start of the sum") || Slip("transposed")) {
                bool const columns = Slip("transposed");
                Vec<Dbl, N> result;
                for (int r = 0; r < N; ++r) {
                    Dbl sum = columns ? m(0, r) * v[0] : 0.0 + m(r, 0) * v[0];
                    for (int c = 1; c < N; ++c)
                        sum = sum + (columns ? m(c, r) : m(r, c)) * v[c];
                    result[r] = sum;
                }
                return result;
            }
            if (N == 3 && Slip("from the last on")) {
                Vec<Dbl, N> result;
                for (int r = 0; r < N; ++r)
                    result[r] = (m(r, N - 1) * v[N - 1] + m(r, 1) * v[1]) + m(r, 0) * v[0];
                return result;
            }
            return m * v;
        });
}

/// Storage, element-wise arithmetic and comparison.
template <class M, class V, int N>
void EnterMatrix(std::string const& name, std::string const& vector)
{
    EnterElementwise<M, N>(name);
    EnterProducts<M, V, N>(name, vector);
}

template <class M, class VF, int N>
void EnterFloatProduct(std::string const& name)
{
    Add(
        name, DrawAppliedAtFloatTie<M, N, VF>, [](M const& m, VF const& v) { return m * v; },
        [](Mat<N> const& m, Vec<Flt, N> const& v) {
            bool const roundedProducts = Slip("the products are rounded"),
                       roundedMatrix = Slip("the matrix is rounded"),
                       roundedSums = N == 3 && Slip("the partial sum is rounded"),
                       backwards = N == 3 && Slip("from the last on");
            Vec<Flt, N> result;
            for (int r = 0; r < N; ++r) {
                Dbl sum;
                for (int i = 0; i < N; ++i) {
                    int const c = backwards ? N - 1 - i : i;
                    Dbl product = (roundedMatrix ? Dbl(Single(m(r, c))) : m(r, c)) * v[c];
                    if (roundedProducts)
                        product = Single(product);
                    sum = i == 0 ? product : sum + product;
                    if (roundedSums)
                        sum = Single(sum);
                }
                result[r] = Single(sum);
            }
            return result;
        });
}

template <class M, class V, class T, class E, int N>
void EnterOuterProduct(std::string const& name)
{
    Add(
        name + "::OuterProduct", DrawPair<V>, [](V const& a, V const& b) { return a.OuterProduct(b); },
        [](Vec<E, N> const& a, Vec<E, N> const& b) {
            bool const transposed = Slip("transposed"),
                       rounded = std::is_same_v<E, Flt> && Slip("rounded to float");
            return EachElement<N>([&](int r, int c) {
                Dbl const product = transposed ? a[c] * b[r] : a[r] * b[c];
                return rounded ? Dbl(Single(product)) : product;
            });
        });
}

template <class M, int N>
void EnterMatrixTests(std::string const& name)
{
    // operator== and operator!= are not const in every class.
    Add(
        name + "::operator==", DrawMatrices<M, N>, [](M a, M const& b) { return a == b; },
        [](Mat<N> const& a, Mat<N> const& b) {
            for (int r = 0; r < N; ++r)
                for (int c = 0; c < N; ++c)
                    if (Slip("a NaN equals anything") ? a(r, c) < b(r, c) || a(r, c) > b(r, c)
                                                      : !(a(r, c) == b(r, c)))
                        return 0;
            return 1;
        });
    Add(
        name + "::operator!=", DrawMatrices<M, N>, [](M a, M const& b) { return a != b; },
        [](Mat<N> const& a, Mat<N> const& b) {
            for (int r = 0; r < N; ++r)
                for (int c = 0; c < N; ++c)
                    if (Slip("a NaN differs from nothing") ? a(r, c) < b(r, c) || a(r, c) > b(r, c)
                                                           : !(a(r, c) == b(r, c)))
                        return 1;
            return 0;
        });
}

template <class M, class V, int N>
void EnterMatrixAccess(std::string const& name)
{
    Add(
        name + "::GetCol, GetRow, GetDiagonal", DrawMatrix<M, N>,
        [](M const& m) { return std::tuple(m.GetCol(1), m.GetRow(1), m.GetDiagonal()); },
        [](Mat<N> const& m) {
            Vec<Dbl, N> column, row, diagonal;
            for (int i = 0; i < N; ++i) {
                column[i] = m(i, 1);
                row[i] = m(1, i);
                diagonal[i] = m(i, i);
            }
            return Slip("rows for columns") ? std::tuple(row, column, diagonal)
                                            : std::tuple(column, row, diagonal);
        });
    Add(
        name + "::SetCol, SetRow, SetDiagonal",
        [](Source& source) {
            return std::tuple(FilledMatrix<M, N>(source), Filled<V>(source), Filled<V>(source),
                              Filled<V>(source));
        },
        [](M m, V const& column, V const& row, V const& diagonal) {
            m.SetCol(1, column).SetRow(0, row).SetDiagonal(diagonal);
            return m;
        },
        [](Mat<N> m, Vec<Dbl, N> const& column, Vec<Dbl, N> const& row, Vec<Dbl, N> const& diagonal) {
            for (int i = 0; i < N; ++i)
                m(i, 1) = column[i];
            for (int i = 0; i < N; ++i)
                m(0, i) = row[i];
            for (int i = 0; i < N; ++i)
                m(i, i) = diagonal[i];
            return m;
        });
}

} // namespace

Mat<3> operator*(Mat<3> const& a, Mat<3> const& b)
{
    return EachElement<3>([&](int r, int c) {
        Dbl sum = 0.0;
        for (int k = 0; k < 3; ++k)
            sum = sum + a(r, k) * b(k, c);
        return sum;
    });
}

Mat<2> operator*(Mat<2> const& a, Mat<2> const& b)
{
    return EachElement<2>([&](int r, int c) { return a(r, 0) * b(0, c) + a(r, 1) * b(1, c); });
}

void EnterMatrices()
{
    EnterMatrix<Mat3Dbl, Vec3Dbl, 3>("Mat3Dbl", "Vec3");
    EnterMatrixTests<Mat3Dbl, 3>("Mat3Dbl");
    EnterMatrixAccess<Mat3Dbl, Vec3Dbl, 3>("Mat3Dbl");
    EnterFloatProduct<Mat3Dbl, Vec3Flt, 3>("operator*(Mat3Dbl, Vec3Flt)");
    EnterFloatProduct<Mat3Dbl, Pnt3Flt, 3>("operator*(Mat3Dbl, Pnt3Flt)");
    EnterOuterProduct<Mat3Dbl, Vec3Dbl, double, Dbl, 3>("Vec3Dbl");
    EnterOuterProduct<Mat3Dbl, Vec3Flt, float, Flt, 3>("Vec3Flt");
    Add(
        "operator*(Mat3Dbl, Pnt3Dbl)", DrawAppliedAtFloatTie<Mat3Dbl, 3, Pnt3Dbl>,
        [](Mat3Dbl const& m, Pnt3Dbl const& p) { return m * p; },
        [](Mat<3> const& m, V3 const& p) {
            V3 result = m * p;
            bool const kept = Slip("not rounded"), first = Slip("the point is rounded first");
            if (first) {
                V3 const rounded = {{Single(p[0]), Single(p[1]), Single(p[2])}};
                result = m * rounded;
            }
            for (int i = 0; i < 3; ++i)
                if (!kept)
                    result[i] = Single(result[i]);
            return result;
        });
    auto const sumOfRows = [](Mat<3> const& m) {
        bool const along = Slip("along the rows"), last = Slip("the last two first");
        V3 sum;
        for (int i = 0; i < 3; ++i)
            sum[i] = along  ? (m(i, 0) + m(i, 1)) + m(i, 2)
                     : last ? m(0, i) + (m(1, i) + m(2, i))
                            : (m(0, i) + m(1, i)) + m(2, i);
        return sum;
    };
    Add(
        "Mat3Dbl::RowSum", DrawMatrix<Mat3Dbl, 3>, [](Mat3Dbl m) { return m.RowSum(); }, sumOfRows);
    Add(
        "Mat3Dbl::RowAverage", DrawMatrix<Mat3Dbl, 3>, [](Mat3Dbl m) { return m.RowAverage(); },
        [sumOfRows](Mat<3> const& m) {
            V3 sum = sumOfRows(m);
            bool const divided = Slip("divided by 3");
            for (int i = 0; i < 3; ++i)
                sum[i] = divided ? sum[i] / 3.0 : sum[i] * (1.0 / Dbl(3.0));
            return sum;
        });

    EnterMatrix<Mat2Dbl, Vec2Dbl, 2>("Mat2Dbl", "Vec2");
    EnterMatrixTests<Mat2Dbl, 2>("Mat2Dbl");
    EnterMatrixAccess<Mat2Dbl, Vec2Dbl, 2>("Mat2Dbl");
    EnterFloatProduct<Mat2Dbl, Vec2Flt, 2>("operator*(Mat2Dbl, Vec2Flt)");
    EnterOuterProduct<Mat2Dbl, Vec2Dbl, double, Dbl, 2>("Vec2Dbl");
    EnterOuterProduct<Mat2Dbl, Vec2Flt, float, Flt, 2>("Vec2Flt");
}

} // namespace oracle
