#include "oracle/Matrices.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

template <int N>
Aff<N> operator*(Aff<N> const& a, Aff<N> const& b)
{
    return {a.linear * b.linear, a.linear * b.shift + a.shift};
}

template <class A, class M, class V, int N>
A DrawnMap(Source& source)
{
    M const m = DrawnMatrix<M, N>(source);
    return A(m, Filled<V>(source));
}

template <class A, class M, class V, int N>
auto DrawMaps(Source& source)
{
    A const a = DrawnMap<A, M, V, N>(source);
    A const b = source.OneIn(4) ? a : DrawnMap<A, M, V, N>(source);
    return std::tuple(a, b);
}

template <class A, class M, class V, int N, class X>
auto DrawMapped(Source& source)
{
    auto const [m, x] = DrawAppliedAtFloatTie<M, N, X>(source);
    V t = Filled<V>(source);
    if (source.OneIn(4))
        for (int i = 0; i < N; ++i)
            t[i] = std::ldexp(static_cast<double>(source.Below(3) - 1), -24 - source.Below(2))
                   + std::ldexp(source.Signed(), -50);
    return std::tuple(A(m, t), x);
}

template <int N, class E>
Vec<Flt, N> Rounded(Vec<E, N> const& v)
{
    Vec<Flt, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = Single(v[i]);
    return result;
}

template <int N>
Vec<Dbl, N> Widened(Vec<Flt, N> const& v)
{
    Vec<Dbl, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = v[i];
    return result;
}

/// L x rounded to float, t added in double, rounded again.
template <int N>
Vec<Flt, N> TwiceRounded(Aff<N> const& m, Vec<Flt, N> const& x)
{
    Vec<Dbl, N> const product = m.linear * Widened(x);
    if (Slip("rounded at the end only"))
        return Rounded(product + m.shift);
    if (Slip("t is rounded too"))
        return Rounded(Widened(Rounded(product)) + Widened(Rounded(m.shift)));
    if (Slip("without t"))
        return Rounded(product);
    return Rounded(Widened(Rounded(product)) + m.shift);
}

/// What both maps have.
template <class A, class M, class V, class P, class PF, int N>
void EnterMap(std::string const& name, std::string const& d)
{
    using Values = Aff<N>;
    auto const inverted = [](Values const& m) {
        Values result = {[&] {
                             Sound const sound;
                             return InverseOf(m.linear);
                         }(),
                         m.shift};
        if (Slip("t by the old linear part"))
            result.shift = NegatedOf(m.linear * m.shift);
        else if (Slip("t is subtracted from zero"))
            result.shift = Vec<Dbl, N>() - result.linear * m.shift;
        else
            result.shift = NegatedOf(result.linear * m.shift);
        return result;
    };
    auto const draw = [](Source& source) { return std::tuple(DrawnMap<A, M, V, N>(source)); };
    Add(
        name + "::GetInvertedCopy", draw,
        [](A const& m) {
            A const copy = m.GetInvertedCopy();
            return std::tuple(copy, m);
        },
        [inverted](Values const& m) {
            Values const copy = inverted(m);
            return std::tuple(copy, m);
        });
    Add(
        name + "::Invert", draw,
        [](A const& m) {
            A changed = m;
            Raise const raised = RaisedBy([&] { changed.Invert(); });
            // A failure leaves t as it was.
            return raised == Raise::None ? std::tuple(raised, changed)
                                         : std::tuple(raised, A(M(0.0), changed.Translation()));
        },
        [inverted](Values const& m) {
            Values result = {{}, m.shift};
            Raise const raised = RaisedBy([&] { result = inverted(m); });
            return std::tuple(raised, result);
        });
    Add(
        "operator*(" + name + ", " + name + ")", DrawMaps<A, M, V, N>,
        [](A const& a, A const& b) { return a * b; },
        [](Values const& a, Values const& b) {
            if (Slip("the left one first"))
                return b * a;
            if (Slip("t without the linear part"))
                return Values{a.linear * b.linear, b.shift + a.shift};
            return a * b;
        });
    Add(
        "operator*(" + name + ", Pnt" + d + "Dbl)", DrawMapped<A, M, V, N, P>,
        [](A const& a, P const& p) { return a * p; },
        [](Values const& m, Vec<Dbl, N> const& p) {
            if (Slip("by way of floats"))
                return Widened(Rounded(m.linear * p)) + m.shift;
            if (Slip("from t on")) {
                Vec<Dbl, N> result;
                for (int r = 0; r < N; ++r) {
                    result[r] = m.shift[r];
                    for (int c = 0; c < N; ++c)
                        result[r] = result[r] + m.linear(r, c) * p[c];
                }
                return result;
            }
            return m.linear * p + m.shift;
        });
    Add(
        "operator*(" + name + ", Vec" + d + "Dbl)", DrawMapped<A, M, V, N, V>,
        [](A const& a, V const& v) { return a * v; },
        [](Values const& m, Vec<Dbl, N> const& v) {
            if (Slip("with t"))
                return m.linear * v + m.shift;
            return m.linear * v;
        });
    Add(
        "operator*(" + name + ", Pnt" + d + "Flt)", DrawMapped<A, M, V, N, PF>,
        [](A const& a, PF const& p) { return a * p; }, TwiceRounded<N>);
    Add(
        name + "::operator()", draw,
        [](A const& m) {
            return std::tuple(m(0, 0), m(1, 0), m(0, N), m(1, N), m(N - 1, N + 5), m(1, N - 1));
        },
        [](Values const& m) {
            return std::tuple(m.linear(0, 0), m.linear(1, 0), m.shift[0], m.shift[1], m.shift[N - 1],
                              m.linear(1, N - 1));
        });
}

void EnterAffMat2Dbl()
{
    using A = AffMat2Dbl;
    EnterMap<A, Mat2Dbl, Vec2Dbl, Pnt2Dbl, Pnt2Flt, 2>("AffMat2Dbl", "2");
    Add(
        "operator*(AffMat2Dbl, Vec2Flt)", DrawMapped<A, Mat2Dbl, Vec2Dbl, 2, Vec2Flt>,
        [](A const& a, Vec2Flt const& v) { return a * v; }, TwiceRounded<2>);
    // The third pair of the sum is what lies behind the matrix: of a map's linear part, its translation.
    auto const draw = [](Source& source) { return std::tuple(DrawnMap<A, Mat2Dbl, Vec2Dbl, 2>(source)); };
    auto const sum = [](Aff<2> const& m) {
        V2 result;
        for (int i = 0; i < 2; ++i)
            result[i] = Slip("two rows")             ? m.linear(0, i) + m.linear(1, i)
                        : Slip("the last two first") ? m.linear(0, i) + (m.linear(1, i) + m.shift[i])
                                                     : (m.linear(0, i) + m.linear(1, i)) + m.shift[i];
        return result;
    };
    Add(
        "Mat2Dbl::RowSum (of a map)", draw, [](A m) { return m.LinearPart().RowSum(); }, sum);
    Add(
        "Mat2Dbl::RowAverage (of a map)", draw, [](A m) { return m.LinearPart().RowAverage(); },
        [sum](Aff<2> const& m) {
            V2 result = sum(m);
            double const rows = Slip("three rows") ? 3.0 : 2.0;
            for (int i = 0; i < 2; ++i)
                result[i] = result[i] * (1.0 / Dbl(rows));
            return result;
        });
}

} // namespace

void EnterAffineMaps()
{
    EnterAffMat2Dbl();
}

} // namespace oracle
