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

template <class A, class M, class V, class P, class PF, int N>
void EnterInversesAndPoints(std::string const& name, std::string const& d)
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
            // A failure leaves t unchanged.
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
}

template <class A, class M, class V, class P, class PF, int N>
void EnterVectorsAndElements(std::string const& name, std::string const& d)
{
    using Values = Aff<N>;
    auto const draw = [](Source& source) { return std::tuple(DrawnMap<A, M, V, N>(source)); };
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

/// The operations of both maps.
template <class A, class M, class V, class P, class PF, int N>
void EnterMap(std::string const& name, std::string const& d)
{
    EnterInversesAndPoints<A, M, V, P, PF, N>(name, d);
    EnterVectorsAndElements<A, M, V, P, PF, N>(name, d);
}

void EnterAffMat2Dbl()
{
    using A = AffMat2Dbl;
    EnterMap<A, Mat2Dbl, Vec2Dbl, Pnt2Dbl, Pnt2Flt, 2>("AffMat2Dbl", "2");
    Add(
        "operator*(AffMat2Dbl, Vec2Flt)", DrawMapped<A, Mat2Dbl, Vec2Dbl, 2, Vec2Flt>,
        [](A const& a, Vec2Flt const& v) { return a * v; }, TwiceRounded<2>);
    // The third pair of the sum is behind the matrix: for a map's linear part, its translation.
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

/// The map of a matrix and a translation, twelve numbers as one 3×4 matrix.
template <class Rule>
Aff<3> EachOfTwelve(Rule rule)
{
    Aff<3> result;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            result.linear(r, c) = rule([=](Aff<3> const& m) { return m.linear(r, c); });
        result.shift[r] = rule([=](Aff<3> const& m) { return m.shift[r]; });
    }
    return result;
}

Aff<3> RotationAbout(V3 const& p, V3 const& axis, Dbl const& angle)
{
    Aff<3> first = {UnitMatrix<3>(), NegatedOf(p)}, last = {UnitMatrix<3>(), p}, middle;
    for (int i = 0; i < 3; ++i) {
        V3 e;
        e[i] = 1.0;
        Sound const sound;
        V3 const turned = RotatedOf(e, axis, angle);
        for (int r = 0; r < 3; ++r)
            middle.linear(r, i) = turned[r];
    }
    if (Slip("the rotated vectors as rows")) {
        Aff<3> const columns = middle;
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                middle.linear(r, c) = columns.linear(c, r);
    }
    if (Slip("M3 × (M2 × M1)"))
        return last * (middle * first);
    if (Slip("t = p − L p"))
        return {middle.linear, p - middle.linear * p};
    return (last * middle) * first;
}

void EnterMapArithmetic()
{
    using A = AffMat3Dbl;
    auto const two = DrawMaps<A, Mat3Dbl, Vec3Dbl, 3>;
    auto const scaled = [](Source& source) {
        A const a = DrawnMap<A, Mat3Dbl, Vec3Dbl, 3>(source);
        return std::tuple(a, source.Number<double>());
    };
    auto const plus = [](Aff<3> const& a, Aff<3> const& b) {
        return EachOfTwelve([&](auto at) { return Slip("subtracted") ? at(a) - at(b) : at(a) + at(b); });
    };
    auto const minus = [](Aff<3> const& a, Aff<3> const& b) {
        return EachOfTwelve(
            [&](auto at) { return Slip("the other way round") ? at(b) - at(a) : at(a) - at(b); });
    };
    Add(
        "AffMat3Dbl::operator+=", two, [](A a, A const& b) { return A(a += b); }, plus);
    Add(
        "AffMat3Dbl::operator-=", two, [](A a, A const& b) { return A(a -= b); }, minus);
    Add(
        "AffMat3Dbl::operator+", two, [](A a, A const& b) { return a + b; }, plus);
    Add(
        "AffMat3Dbl::operator-", two, [](A a, A const& b) { return a - b; }, minus);
    Add(
        "AffMat3Dbl::operator*=", scaled, [](A a, double s) { return A(a *= s); },
        [](Aff<3> const& a, Dbl const& s) {
            Aff<3> result = EachOfTwelve([&](auto at) { return at(a) * s; });
            if (Slip("t is left alone"))
                result.shift = a.shift;
            return result;
        });
    Add(
        "AffMat3Dbl::operator/=", scaled, [](A a, double s) { return A(a /= s); },
        [](Aff<3> const& a, Dbl const& s) {
            bool const reciprocal = Slip("by the reciprocal");
            return EachOfTwelve([&](auto at) { return reciprocal ? at(a) * (1.0 / s) : at(a) / s; });
        });
    Add(
        "AffMat3Dbl::operator==, !=",
        [](Source& source) {
            auto [a, b] = DrawMaps<A, Mat3Dbl, Vec3Dbl, 3>(source);
            if (source.Below(2)) {
                b = a;
                b(source.Below(3), source.Below(4)) = source.Number<double>();
            }
            return std::tuple(a, b);
        },
        [](A const& a, A const& b) { return std::tuple(a == b, a != b); },
        [](Aff<3> const& a, Aff<3> const& b) {
            int equal = 1;
            for (int r = 0; r < 3; ++r) {
                for (int c = 0; c < 3; ++c)
                    if (Slip("a NaN equals anything")
                            ? a.linear(r, c) < b.linear(r, c) || a.linear(r, c) > b.linear(r, c)
                            : !(a.linear(r, c) == b.linear(r, c)))
                        equal = 0;
                if (!Slip("t is not compared") && !(a.shift[r] == b.shift[r]))
                    equal = 0;
            }
            return std::tuple(equal, 1 - equal);
        });
    Add(
        "operator*(AffMat3Dbl, Vec3Flt)", DrawMapped<A, Mat3Dbl, Vec3Dbl, 3, Vec3Flt>,
        [](A const& a, Vec3Flt const& v) { return a * v; },
        [](Aff<3> const& m, F3 const& v) {
            if (Slip("with t"))
                return Rounded(Widened(Rounded(m.linear * Widened(v))) + m.shift);
            return Rounded(m.linear * Widened(v));
        });
}

void EnterTranslationsAndTurns()
{
    using A = AffMat3Dbl;
    auto const one = [](Source& source) { return std::tuple(DrawnMap<A, Mat3Dbl, Vec3Dbl, 3>(source)); };
    Add(
        "AffMat3Dbl::GetMatrixData, SetMatrixData", one,
        [](A const& m) {
            double flat[12], square[4][4];
            for (double& value : square[3])
                value = 9.0;
            m.GetMatrixData(flat);
            m.GetMatrixData(square);
            A first, second;
            first.SetMatrixData(square);
            second.SetMatrixData(flat);
            std::tuple<V3, V3, V3, V3> numbers;
            auto const three = [&](int i) { return V3{{flat[i], flat[i + 1], flat[i + 2]}}; };
            numbers = {three(0), three(3), three(6), three(9)};
            return std::tuple(numbers, square[3][0], square[3][3], first, second);
        },
        [](Aff<3> const& m) {
            Dbl flat[12];
            bool const columns = Slip("column by column");
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 4; ++c)
                    flat[columns ? c * 3 + r : r * 4 + c] = c < 3 ? m.linear(r, c) : m.shift[r];
            auto const three = [&](int i) { return V3{{flat[i], flat[i + 1], flat[i + 2]}}; };
            return std::tuple(std::tuple(three(0), three(3), three(6), three(9)), 9.0, 9.0, m, m);
        });
    Add(
        "AffMat3Dbl::SetTranslation(two points)",
        [](Source& source) {
            auto const [p, q] = Related<Pnt3Dbl>(source);
            return std::tuple_cat(std::tuple(DrawnMap<A, Mat3Dbl, Vec3Dbl, 3>(source)), std::tuple(p, q));
        },
        [](A m, Pnt3Dbl const& p, Pnt3Dbl const& q) { return A(m.SetTranslation(p, q)); },
        [](Aff<3> m, V3 const& p, V3 const& q) {
            m.shift = Slip("the first less the second") ? p - q : q - p;
            return m;
        });
    Add(
        "AffMat3Dbl::SetRotation(axis, angle)",
        [](Source& source) {
            Pnt3Dbl const p = Filled<Pnt3Dbl>(source);
            Vec3Dbl const axis = Filled<Vec3Dbl>(source);
            return std::tuple(p, source.Below(5) ? Unitised(axis) : axis, source.Angle());
        },
        [](Pnt3Dbl const& p, Vec3Dbl const& axis, double angle) {
            A m(7.0);
            m.SetRotation(p, axis, angle);
            return m;
        },
        RotationAbout);
}

void EnterTurnBetweenVectors()
{
    using A = AffMat3Dbl;
    Add(
        "AffMat3Dbl::SetRotation(two vectors)",
        [](Source& source) {
            Pnt3Dbl const p = Filled<Pnt3Dbl>(source);
            auto const [f, g] = Related<Vec3Dbl>(source);
            if (source.OneIn(3)) {
                double const cx = f.y * g.z - g.y * f.z, cy = f.z * g.x - f.x * g.z,
                             cz = g.y * f.x - f.y * g.x;
                double const values[3] = {(cx * cx + cy * cy) + cz * cz, PlainDot(f, f), PlainDot(g, g)};
                source.SetGlobal(globalTolerance.lengthSquared, values[source.Below(3)]);
            }
            return std::tuple(p, f, g);
        },
        [](Pnt3Dbl const& p, Vec3Dbl const& f, Vec3Dbl const& g) {
            A m(7.0);
            m.SetRotation(p, f, g);
            return m;
        },
        [](V3 const& p, V3 const& f, V3 const& g) {
            Aff<3> const identity = {UnitMatrix<3>(), V3()};
            Dbl const T = ResolvedLength(Dbl(-1.0));
            V3 const c = CrossOf(f, g);
            auto const isShort = [&](V3 const& v, char const* strict, char const* none) {
                if (Slip(none))
                    return false;
                return Slip(strict) ? LengthSquaredOf(v) < T : LengthSquaredOf(v) <= T;
            };
            if (isShort(c, "strict test of the axis", "no test of the axis")
                || isShort(f, "strict test of the first", "no test of the first")
                || isShort(g, "strict test of the second", "no test of the second"))
                return identity;
            V3 const axis = NormalizedOf(c);
            Sound const sound;
            return RotationAbout(p, axis, CounterClockwiseAngle(f, g, axis));
        });
}

void EnterAffMat3Dbl()
{
    using A = AffMat3Dbl;
    EnterMap<A, Mat3Dbl, Vec3Dbl, Pnt3Dbl, Pnt3Flt, 3>("AffMat3Dbl", "3");
    EnterMapArithmetic();
    EnterTranslationsAndTurns();
    EnterTurnBetweenVectors();
}

} // namespace

void EnterAffineMaps()
{
    EnterAffMat3Dbl();
    EnterAffMat2Dbl();
}

} // namespace oracle
