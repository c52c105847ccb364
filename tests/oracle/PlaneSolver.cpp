#include "oracle/Matrices.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

auto InvertedRule(Mat<2> const& m)
{
    Raise raised = Raise::None;
    Mat<2> result = m;
    Dbl d = m(0, 0) * m(1, 1) - m(0, 1) * m(1, 0);
    if (Slip("the determinant is fused"))
        d = Fused(m(0, 0), m(1, 1), -(m(0, 1) * m(1, 0)));
    if (Slip("the threshold itself fails") ? Abs(d) <= 1e-20
        : Slip("only an exact zero fails") ? d == 0.0
        : Slip("a NaN fails")              ? !(Abs(d) >= 1e-20)
                                           : Abs(d) < 1e-20) {
        raised = Raise::Singular;
    } else if (Slip("by the reciprocal")) {
        Dbl const r = 1.0 / d;
        result(0, 0) = m(1, 1) * r;
        result(1, 1) = m(0, 0) * r;
        result(0, 1) = -(m(0, 1) * r);
        result(1, 0) = -(m(1, 0) * r);
    } else {
        result(0, 0) = m(1, 1) / d;
        result(1, 1) = m(0, 0) / d;
        result(0, 1) = -(m(0, 1) / d);
        result(1, 0) = -(m(1, 0) / d);
    }
    return std::tuple(raised, result);
}

/// Determinants at and around the threshold, and others.
Mat2Dbl DrawnNearThreshold(Source& source)
{
    Mat2Dbl m = DrawnMatrix<Mat2Dbl, 2>(source);
    if (source.OneIn(3)) {
        double const x = std::ldexp(source.Ordinary<double>(), source.Below(20) - 10);
        m(0, 0) = x;
        m(1, 1) = source.Near((source.Below(2) ? 1e-20 : -1e-20) / x);
        m(0, 1) = source.Below(2) ? 0.0 : source.Ordinary<double>();
        m(1, 0) = 0.0;
        if (source.Below(2))
            m(0, 0) = 1.0, m(1, 1) = source.Near(1e-20);
    }
    return m;
}

auto DrawSystem(Source& source)
{
    Mat2Dbl const m = DrawnNearThreshold(source);
    Vec2Dbl const b = Filled<Vec2Dbl>(source), c = Filled<Vec2Dbl>(source);
    return std::tuple(m, b, c);
}

auto EigenRule(Mat<2> m, int wanted)
{
    Dbl const a = m(0, 0), b = m(0, 1), c = m(1, 1);
    Dbl const sm = a + c, ad = Abs(a - c), tb = Abs(b + b);
    bool const cLarger = Slip("the smaller magnitude for the larger") ? Abs(c) < Abs(a) : Abs(c) >= Abs(a);
    Dbl const acmx = cLarger ? c : a, acmn = cLarger ? a : c;
    Dbl rt;
    if (Slip("the root of the sum of squares"))
        rt = Sqrt(ad * ad + tb * tb);
    else if (ad > tb)
        rt = ad * Sqrt(1.0 + (tb / ad) * (tb / ad));
    else if (ad < tb)
        rt = tb * Sqrt(1.0 + (ad / tb) * (ad / tb));
    else
        rt = tb * Sqrt(2.0);
    Dbl r1, r2;
    int s1 = 1;
    if (sm < 0.0 || sm > 0.0) {
        s1 = sm < 0.0 ? -1 : 1;
        r1 = 0.5 * (sm < 0.0 ? sm - rt : sm + rt);
        r2 =
            Slip("(acmx·acmn − b²) over r1") ? (acmx * acmn - b * b) / r1 : (acmx / r1) * acmn - (b / r1) * b;
    } else {
        r1 = 0.5 * rt;
        r2 = -0.5 * rt;
    }
    if (!wanted) {
        if (r2 < r1)
            return std::tuple(V2{{r2, r1}}, m);
        return std::tuple(V2{{r1, r2}}, m);
    }
    Dbl const df = a - c;
    int const s2 = df >= 0.0 ? 1 : -1;
    Dbl const cs = df >= 0.0 ? df + rt : df - rt;
    Dbl co, sn;
    if (Slip("equality takes the first form") ? Abs(cs) >= 2.0 * Abs(b) : Abs(cs) > 2.0 * Abs(b)) {
        Dbl const ct = -(b + b) / cs;
        sn = 1.0 / Sqrt(1.0 + ct * ct);
        co = ct * sn;
    } else if (b == 0.0) {
        co = 1.0;
        sn = 0.0;
    } else {
        Dbl const tn = -cs / (b + b);
        co = 1.0 / Sqrt(1.0 + tn * tn);
        sn = tn * co;
    }
    if (Slip("the signs are not compared") || s1 == s2) {
        Dbl const old = co;
        co = -sn;
        sn = old;
    }
    if (Slip("equal values keep their places") ? r2 >= r1 : r2 > r1) {
        m(0, 0) = co;
        m(0, 1) = sn;
        m(1, 0) = -sn;
        m(1, 1) = co;
        return std::tuple(V2{{r1, r2}}, m);
    }
    m(0, 0) = -sn;
    m(0, 1) = co;
    m(1, 0) = co;
    m(1, 1) = sn;
    return std::tuple(V2{{r2, r1}}, m);
}

} // namespace

Mat<2> InverseOf(Mat<2> const& m)
{
    auto const [raised, result] = InvertedRule(m);
    if (raised != Raise::None)
        throw Raised{raised};
    return result;
}

void EnterPlaneSolver()
{
    auto const draw = [](Source& source) { return std::tuple(DrawnNearThreshold(source)); };
    Add(
        "Mat2Dbl::Invert", draw, [](Mat2Dbl const& m) { return Kept(m, [](Mat2Dbl& k) { k.Invert(); }); },
        InvertedRule);
    Add(
        "Mat2Dbl::GetInvertedCopy", draw,
        [](Mat2Dbl const& m) {
            Mat2Dbl const copy = m.GetInvertedCopy();
            return std::tuple(copy, m);
        },
        [](Mat<2> const& m) {
            Mat<2> const copy = InverseOf(m);
            return std::tuple(copy, m);
        });
    Add(
        "Mat2Dbl::Solve, ReSolve", DrawSystem,
        [](Mat2Dbl m, Vec2Dbl b, Vec2Dbl c) {
            Raise const raised = RaisedBy([&] { m.Solve(b); });
            m.ReSolve(c);
            return std::tuple(raised, m, b, c);
        },
        [](Mat<2> const& m, V2 b, V2 c) {
            auto const [raised, inverse] = InvertedRule(m);
            if (raised == Raise::None)
                b = inverse * b;
            c = inverse * c;
            return std::tuple(raised, inverse, b, c);
        });
    Add(
        "Mat2Dbl::Solve, ReSolve(array)",
        [](Source& source) { return std::tuple_cat(DrawSystem(source), std::tuple(source.Below(4) - 1)); },
        [](Mat2Dbl m, Vec2Dbl const& b, Vec2Dbl const& c, int count) {
            Vec2Dbl sides[2] = {b, c}, again[2] = {c, b};
            Raise const raised = RaisedBy([&] { m.Solve(sides, count); });
            m.ReSolve(again, count);
            return std::tuple(raised, m, sides[0], sides[1], again[0], again[1]);
        },
        [](Mat<2> const& m, V2 const& b, V2 const& c, int count) {
            auto const [raised, inverse] = InvertedRule(m);
            V2 sides[2] = {b, c}, again[2] = {c, b};
            for (int i = 0; i < count; ++i) {
                if (raised == Raise::None)
                    sides[i] = inverse * sides[i];
                again[i] = inverse * again[i];
            }
            return std::tuple(raised, inverse, sides[0], sides[1], again[0], again[1]);
        });
    Add(
        "Mat2Dbl::EigenSym",
        [](Source& source) {
            Mat2Dbl m = DrawnMatrix<Mat2Dbl, 2>(source);
            switch (source.Below(6)) {
            case 0:
                m(1, 1) = source.Below(2) ? m(0, 0) : -m(0, 0);
                break;
            case 1:
                m(0, 1) = source.Below(2) ? 0.0 : -0.0;
                break;
            case 2:
                m(0, 1) = 0.5 * (m(0, 0) - m(1, 1));
                break;
            default:
                break;
            }
            if (source.OneIn(8))
                m(1, 1) = source.Near(m(0, 0));
            return std::tuple(m, source.Below(4) - 1);
        },
        [](Mat2Dbl m, int wanted) {
            Vec2Dbl values(7.0);
            m.EigenSym(values, wanted);
            return std::tuple(values, m);
        },
        EigenRule);
}

} // namespace oracle
