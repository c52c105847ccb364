#include "oracle/Draws.h"
#include "oracle/Statements.h"
#include "oracle/Vectors.h"

namespace oracle {

namespace {

template <class E, int N, class Rule>
Vec<E, N> Each(Rule rule)
{
    Vec<E, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = To<E>(rule(i));
    return result;
}

/// The sum of the squared differences: in double from start to end, in single rounded at each step.
template <class E, int N>
E DistanceSquared(Vec<E, N> const& a, Vec<E, N> const& b)
{
    constexpr bool single = std::is_same_v<E, Flt>;
    if (single && Slip("rounded at the end only")) {
        Dbl sum = 0.0;
        for (int i = 0; i < N; ++i)
            sum = sum + (a[i] - b[i]) * (a[i] - b[i]);
        return To<E>(sum);
    }
    bool const keptDifference = single && Slip("the differences are not rounded");
    bool const keptSum = single && Slip("the sum is not rounded at each step");
    bool const roundedSquare = single && Slip("the squares are rounded");
    bool const backwards = N == 3 && Slip("from the last on");
    bool const fused = !single && Slip("the squares are fused");
    Dbl sum = 0.0;
    for (int k = 0; k < N; ++k) {
        int const i = backwards ? N - 1 - k : k;
        Dbl const d = keptDifference ? a[i] - b[i] : Dbl(To<E>(a[i] - b[i]));
        Dbl const square = roundedSquare ? Dbl(To<E>(d * d)) : d * d;
        sum = fused ? Fused(d, d, sum) : sum + square;
        if (!keptSum)
            sum = To<E>(sum);
    }
    return To<E>(sum);
}

template <class E, int N>
E Distance(Vec<E, N> const& a, Vec<E, N> const& b)
{
    if constexpr (std::is_same_v<E, Dbl>) {
        if (!Slip("in the range of a double")) {
            bool const fused = Slip("the squares are fused"), backwards = N == 3 && Slip("from the last on");
            Wide sum(0.0);
            for (int k = 0; k < N; ++k) {
                int const i = backwards ? N - 1 - k : k;
                Wide const d = Wide(a[i]) - Wide(b[i]);
                sum = fused ? Fused(d, d, sum) : sum + d * d;
            }
            return Narrow(Sqrt(sum));
        }
    }
    return To<E>(Sqrt(DistanceSquared(a, b)));
}

/// Points whose distance is close to the tolerance. Scalar is the tolerance's type.
template <class P, class Scalar>
auto DrawNeighbours(Source& source)
{
    using T = ElementOf<P>;
    auto [a, b] = Related<P>(source);
    if (source.Below(2)) {
        double const depth = std::pow(10.0, -9.0 * source.Unit());
        for (int i = 0; i < sizeOf<P>; ++i)
            b[i] = Rounded<T>(static_cast<double>(a[i]) + depth * source.Signed());
    }
    double sum = 0.0;
    for (int i = 0; i < sizeOf<P>; ++i) {
        double const d = Rounded<T>(static_cast<double>(a[i]) - static_cast<double>(b[i]));
        sum = Rounded<T>(sum + d * d);
    }
    source.SetGlobal(globalTolerance.lengthSquared, sum);
    return std::tuple(a, b, source.Tolerance(static_cast<Scalar>(std::sqrt(sum))));
}

template <class E, int N>
int Coincide(Vec<E, N> const& a, Vec<E, N> const& b, Dbl const& tolerance, bool limitRounded)
{
    Dbl limit = tolerance * tolerance;
    if (limitRounded && !Slip("the limit is not rounded"))
        limit = To<E>(limit);
    if (Slip("−0 selects the global") ? tolerance <= 0.0 : tolerance < 0.0)
        limit = static_cast<double>(globalTolerance.lengthSquared);
    if (Slip("a squared length") && tolerance >= 0.0)
        limit = tolerance;
    Dbl const sum = DistanceSquared(a, b);
    return Slip("strict") ? sum < limit : sum <= limit;
}

template <class P, class E>
void EnterPointArithmetic(std::string const& name)
{
    constexpr int N = sizeOf<P>;
    using T = ElementOf<P>;
    using Values = Vec<E, N>;
    auto const times = [](Values const& a, E const& s) {
        return Each<E, N>([&](int i) { return a[i] * s; });
    };
    auto const dividedBy = [](Values const& a, E const& s) {
        bool const reciprocal = Slip("by the reciprocal");
        return Each<E, N>([&](int i) { return reciprocal ? a[i] * To<E>(1.0 / s) : a[i] / s; });
    };
    auto const byReciprocal = [](Values const& a, E const& s) {
        bool const division = Slip("by a division");
        Dbl const reciprocal =
            std::is_same_v<E, Flt> && Slip("the reciprocal is not rounded") ? 1.0 / s : Dbl(To<E>(1.0 / s));
        return Each<E, N>([&](int i) { return division ? a[i] / s : a[i] * reciprocal; });
    };
    auto const minus = [](Values const& a, Values const& b) {
        bool const turned = Slip("the other way round");
        return Each<E, N>([&](int i) { return turned ? b[i] - a[i] : a[i] - b[i]; });
    };
    Add(
        "operator*(" + name + ", scalar)", DrawScaled<P, T>, [](P const& a, T s) { return a * s; }, times);
    Add(
        "operator*(scalar, " + name + ")", DrawScaled<P, T>, [](P const& a, T s) { return s * a; }, times);
    Add(
        "operator/(" + name + ", scalar)", DrawScaled<P, T>, [](P const& a, T s) { return a / s; },
        byReciprocal);
    Add(
        name + "::operator*=", DrawScaled<P, T>, [](P a, T s) { return P(a *= s); }, times);
    Add(
        name + "::operator/=", DrawScaled<P, T>, [](P a, T s) { return P(a /= s); }, dividedBy);
    Add(
        name + "::operator-(" + name + ")", DrawPair<P>, [](P const& a, P const& b) { return a - b; }, minus);
    Add(
        name + "::Vector", DrawOne<P>, [](P const& a) { return a.Vector(); },
        [](Values const& a) { return a; });
    Add(
        name + "::DistanceSqTo", DrawPair<P>, [](P const& a, P const& b) { return a.DistanceSqTo(b); },
        DistanceSquared<E, N>);
    Add(
        name + "::DistanceTo", DrawPair<P>, [](P const& a, P const& b) { return a.DistanceTo(b); },
        Distance<E, N>);
}

template <class P, class E>
void EnterPointComparison(std::string const& name)
{
    constexpr int N = sizeOf<P>;
    using Values = Vec<E, N>;
    auto const drawEither = [](Source& source) {
        return source.Below(2) ? DrawTiedPair<P>(source) : DrawPair<P>(source);
    };
    Add(
        name + "::operator==", drawEither, [](P const& a, P const& b) { return a == b; },
        [](Values const& a, Values const& b) {
            int equal = 1;
            for (int i = 0; i < N; ++i)
                if (Slip("a NaN equals anything") ? a[i] < b[i] || a[i] > b[i] : !(Dbl(a[i]) == Dbl(b[i])))
                    equal = 0;
            return equal;
        });
    Add(
        name + "::operator!=", drawEither, [](P const& a, P const& b) { return a != b; },
        [](Values const& a, Values const& b) {
            int different = 0;
            for (int i = 0; i < N; ++i)
                if (Slip("a NaN differs from nothing") ? a[i] < b[i] || a[i] > b[i] : Dbl(a[i]) != Dbl(b[i]))
                    different = 1;
            return different;
        });
    Add(
        name + "::IsLessThan", drawEither, [](P const& a, P const& b) { return a.IsLessThan(b); },
        [](Values const& a, Values const& b) {
            bool const strict = Slip("strict"), passing = Slip("a NaN passes");
            for (int i = 0; i < N; ++i)
                if (strict ? !(a[i] < b[i]) : passing ? a[i] > b[i] : !(a[i] <= b[i]))
                    return 0;
            return 1;
        });
    Add(
        name + "::IsGreaterThan", drawEither, [](P const& a, P const& b) { return a.IsGreaterThan(b); },
        [](Values const& a, Values const& b) {
            bool const strict = Slip("strict"), passing = Slip("a NaN passes");
            for (int i = 0; i < N; ++i)
                if (strict ? !(a[i] > b[i]) : passing ? a[i] < b[i] : !(a[i] >= b[i]))
                    return 0;
            return 1;
        });
}

template <class P, class E>
void EnterPoint(std::string const& name)
{
    EnterPointArithmetic<P, E>(name);
    EnterPointComparison<P, E>(name);
}

template <class P, class E>
void EnterPointOrder(std::string const& name)
{
    constexpr int N = sizeOf<P>;
    Add(
        name + "::operator<",
        [](Source& source) { return source.Below(3) ? DrawTiedPair<P>(source) : DrawPair<P>(source); },
        [](P const& a, P const& b) { return a < b; },
        [](Vec<E, N> const& a, Vec<E, N> const& b) {
            bool const passed = Slip("a NaN counts as equal");
            for (int i = 0; i < N; ++i) {
                if (a[i] < b[i])
                    return true;
                if (passed ? a[i] > b[i] : !(Dbl(a[i]) == Dbl(b[i])))
                    return false;
            }
            return Slip("equal points are less");
        });
}

/// A point and a vector of the same element type that moves it.
template <class P, class V>
auto DrawMoved(Source& source)
{
    auto const [a, b] = Related<P>(source);
    V v;
    for (int i = 0; i < sizeOf<P>; ++i)
        v[i] = b[i];
    return std::tuple(a, v);
}

template <class P, class V, class E>
void EnterMoves(std::string const& name)
{
    constexpr int N = sizeOf<P>;
    using Values = Vec<E, N>;
    auto const plus = [](Values const& a, Values const& b) {
        bool const minus = Slip("subtracted");
        return Each<E, N>([&](int i) { return minus ? a[i] - b[i] : a[i] + b[i]; });
    };
    auto const minus = [](Values const& a, Values const& b) {
        bool const turned = Slip("the other way round");
        return Each<E, N>([&](int i) { return turned ? b[i] - a[i] : a[i] - b[i]; });
    };
    Add(
        name + "::operator+(point)", DrawPair<P>, [](P const& a, P const& b) { return a + b; }, plus);
    Add(
        name + "::operator+(vector)", DrawMoved<P, V>, [](P const& a, V const& b) { return a + b; }, plus);
    Add(
        name + "::operator-(vector)", DrawMoved<P, V>, [](P const& a, V const& b) { return a - b; }, minus);
    Add(
        name + "::operator+=(point)", DrawPair<P>, [](P a, P const& b) { return P(a += b); }, plus);
    Add(
        name + "::operator+=(vector)", DrawMoved<P, V>, [](P a, V const& b) { return P(a += b); }, plus);
    Add(
        name + "::operator-=(vector)", DrawMoved<P, V>, [](P a, V const& b) { return P(a -= b); }, minus);
    EnterPointOrder<P, E>(name);
}

/// Doubles at and around the limits of a float.
template <class P>
auto DrawNarrowed(Source& source)
{
    P v;
    for (int i = 0; i < sizeOf<P>; ++i) {
        v[i] = source.Number<double>();
        if (source.Below(2)) {
            float const near = source.Number<float>();
            v[i] = source.Near(static_cast<double>(near)
                               + (source.Below(2) ? 1.0 : -1.0) * static_cast<double>(HalfUnit(near)));
        }
        if (source.OneIn(6))
            v[i] = std::ldexp(static_cast<double>(source.Below(64)) + 0.5 * source.Below(2),
                              -150 - source.Below(4));
    }
    return std::tuple(v);
}

template <int N>
auto WidenedRule()
{
    return [](Vec<Flt, N> const& a) { return Each<Dbl, N>([&](int i) { return Dbl(a[i]); }); };
}

template <int N>
auto NarrowedRule()
{
    return [](Vec<Dbl, N> const& a) {
        bool const flushed = Slip("denormals are lost");
        return Each<Flt, N>([&](int i) { return flushed && Abs(a[i]) < 0x1p-126 ? Dbl(0.0) : a[i]; });
    };
}

/// Construction and assignment between the classes of one dimension.
template <class PD, class PF, class VD, class VF>
void EnterConversions(std::string const& d)
{
    constexpr int N = sizeOf<PD>;
    std::string const pd = "Pnt" + d + "Dbl", pf = "Pnt" + d + "Flt", vd = "Vec" + d + "Dbl",
                      vf = "Vec" + d + "Flt";
    auto const same = [](auto const& a) { return a; };
    Add(
        pd + "(" + vd + ")", DrawOne<VD>, [](VD const& a) { return PD(a); }, same);
    Add(
        pd + "(" + pf + ")", DrawOne<PF>, [](PF const& a) { return PD(a); }, WidenedRule<N>());
    Add(
        pd + "(" + vf + ")", DrawOne<VF>, [](VF const& a) { return PD(a); }, WidenedRule<N>());
    Add(
        pf + "(" + vf + ")", DrawOne<VF>, [](VF const& a) { return PF(a); }, same);
    auto const assigned = [](auto to) {
        return [to](auto const& a) {
            auto result = to;
            result = a;
            return result;
        };
    };
    Add(pd + "::operator=(" + vd + ")", DrawOne<VD>, assigned(PD(7.0)), same);
    Add(pd + "::operator=(" + pf + ")", DrawOne<PF>, assigned(PD(7.0)), WidenedRule<N>());
    Add(pd + "::operator=(" + vf + ")", DrawOne<VF>, assigned(PD(7.0)), WidenedRule<N>());
    Add(pf + "::operator=(" + vf + ")", DrawOne<VF>, assigned(PF(7.0f)), same);
    Add(pf + "::operator=(" + pd + ")", DrawNarrowed<PD>, assigned(PF(7.0f)), NarrowedRule<N>());
    Add(pf + "::operator=(" + vd + ")", DrawNarrowed<VD>, assigned(PF(7.0f)), NarrowedRule<N>());
    Add(vd + "::operator=(" + pd + ")", DrawOne<PD>, assigned(VD(7.0)), same);
    Add(vd + "::operator=(" + pf + ")", DrawOne<PF>, assigned(VD(7.0)), WidenedRule<N>());
    Add(vf + "::operator=(" + pf + ")", DrawOne<PF>, assigned(VF(7.0f)), same);
    Add(vf + "::operator=(" + pd + ")", DrawNarrowed<PD>, assigned(VF(7.0f)), NarrowedRule<N>());
}

// ---- The float point of the plane, which pairs with doubles -------------------------------------------

/// A float point and doubles: at a tie with it, next to one, or at a tie between two floats.
auto DrawDoublesBeside(Source& source)
{
    Pnt2Flt const p = Filled<Pnt2Flt>(source);
    Vec2Dbl v;
    for (int i = 0; i < 2; ++i) {
        v[i] = source.Number<double>();
        double const half = static_cast<double>(HalfUnit(p[i]));
        switch (source.Below(4)) {
        case 0:
            v[i] = (source.Below(2) ? half : -half) * (1.0 + std::ldexp(source.Signed(), -25));
            break;
        case 1: {
            float const near = source.Number<float>();
            v[i] = source.Near(static_cast<double>(near) + static_cast<double>(HalfUnit(near)));
            break;
        }
        default:
            break;
        }
    }
    return std::tuple(p, v);
}

auto DrawDoubleScalar(Source& source)
{
    auto const [p, v] = DrawDoublesBeside(source);
    return std::tuple(p, v.x);
}

void EnterPnt2Flt()
{
    using P = Pnt2Flt;
    EnterPoint<P, Flt>("Pnt2Flt");
    auto const moved = [](bool minus, bool first) {
        return [minus, first](F2 const& p, V2 const& v) {
            bool const rounded = first != Slip(first ? "at full width" : "rounded to float first");
            bool const turned = Slip("the other way round");
            return Each<Flt, 2>([&](int i) {
                Dbl const other = rounded ? Dbl(Single(v[i])) : v[i];
                return minus != turned ? p[i] - other : p[i] + other;
            });
        };
    };
    Add(
        "Pnt2Flt::operator+(Vec2Dbl)", DrawDoublesBeside, [](P const& p, Vec2Dbl const& v) { return p + v; },
        moved(false, false));
    Add(
        "Pnt2Flt::operator-(Vec2Dbl)", DrawDoublesBeside, [](P const& p, Vec2Dbl const& v) { return p - v; },
        moved(true, false));
    Add(
        "Pnt2Flt::operator+=(Vec2Dbl)", DrawDoublesBeside, [](P p, Vec2Dbl const& v) { return P(p += v); },
        moved(false, true));
    Add(
        "Pnt2Flt::operator-=(Vec2Dbl)", DrawDoublesBeside, [](P p, Vec2Dbl const& v) { return P(p -= v); },
        moved(true, true));

    auto const times = [](F2 const& p, Dbl const& s) {
        Dbl const factor = Slip("at full width") ? s : Dbl(Single(s));
        return Each<Flt, 2>([&](int i) { return p[i] * factor; });
    };
    auto const dividedBy = [](F2 const& p, Dbl const& s) {
        Dbl const divisor = Slip("at full width") ? s : Dbl(Single(s));
        bool const reciprocal = Slip("by the reciprocal");
        return Each<Flt, 2>(
            [&](int i) { return reciprocal ? p[i] * Single(1.0 / divisor) : p[i] / divisor; });
    };
    auto const byReciprocal = [](F2 const& p, Dbl const& s) {
        Dbl const divisor = Slip("at full width") ? s : Dbl(Single(s));
        Dbl const reciprocal =
            Slip("the reciprocal is not rounded") ? 1.0 / divisor : Dbl(Single(1.0 / divisor));
        bool const division = Slip("by a division");
        return Each<Flt, 2>([&](int i) { return division ? p[i] / divisor : p[i] * reciprocal; });
    };
    Add(
        "Pnt2Flt::operator*=(double)", DrawDoubleScalar, [](P p, double s) { return P(p *= s); }, times);
    Add(
        "Pnt2Flt::operator/=(double)", DrawDoubleScalar, [](P p, double s) { return P(p /= s); }, dividedBy);
    Add(
        "operator*(Pnt2Flt, double)", DrawDoubleScalar, [](P const& p, double s) { return p * s; }, times);
    Add(
        "operator*(double, Pnt2Flt)", DrawDoubleScalar, [](P const& p, double s) { return s * p; }, times);
    Add(
        "operator/(Pnt2Flt, double)", DrawDoubleScalar, [](P const& p, double s) { return p / s; },
        byReciprocal);
    Add(
        "Pnt2Flt::IsEqualTo", DrawNeighbours<P, double>,
        [](P const& a, P const& b, double t) { return a.IsEqualTo(b, t); },
        [](F2 const& a, F2 const& b, Dbl const& t) {
            if (Slip("the limit is rounded to float"))
                return Coincide(a, b, t, true);
            return Coincide(a, b, t, false);
        });
}

} // namespace

void EnterPoints()
{
    EnterPoint<Pnt3Dbl, Dbl>("Pnt3Dbl");
    EnterMoves<Pnt3Dbl, Vec3Dbl, Dbl>("Pnt3Dbl");
    EnterPoint<Pnt3Flt, Flt>("Pnt3Flt");
    EnterMoves<Pnt3Flt, Vec3Flt, Flt>("Pnt3Flt");
    Add(
        "Pnt3Dbl::IsEqualTo", DrawNeighbours<Pnt3Dbl, double>,
        [](Pnt3Dbl const& a, Pnt3Dbl const& b, double t) { return a.IsEqualTo(b, t); },
        [](V3 const& a, V3 const& b, Dbl const& t) { return Coincide(a, b, t, false); });
    Add(
        "Pnt3Flt::IsEqualTo", DrawNeighbours<Pnt3Flt, float>,
        [](Pnt3Flt const& a, Pnt3Flt const& b, float t) { return a.IsEqualTo(b, t); },
        [](F3 const& a, F3 const& b, Flt const& t) { return Coincide(a, b, t, true); });
    EnterConversions<Pnt3Dbl, Pnt3Flt, Vec3Dbl, Vec3Flt>("3");
    Add(
        "Pnt3Dbl::ToPnt3Flt", DrawNarrowed<Pnt3Dbl>, [](Pnt3Dbl const& a) { return a.ToPnt3Flt(); },
        NarrowedRule<3>());

    EnterPoint<Pnt2Dbl, Dbl>("Pnt2Dbl");
    EnterMoves<Pnt2Dbl, Vec2Dbl, Dbl>("Pnt2Dbl");
    Add(
        "Pnt2Dbl::IsEqualTo", DrawNeighbours<Pnt2Dbl, double>,
        [](Pnt2Dbl const& a, Pnt2Dbl const& b, double t) { return a.IsEqualTo(b, t); },
        [](V2 const& a, V2 const& b, Dbl const& t) { return Coincide(a, b, t, false); });
    EnterPnt2Flt();
    EnterConversions<Pnt2Dbl, Pnt2Flt, Vec2Dbl, Vec2Flt>("2");
    Add(
        "Pnt2Dbl::ToPnt2Flt", DrawNarrowed<Pnt2Dbl>, [](Pnt2Dbl const& a) { return a.ToPnt2Flt(); },
        NarrowedRule<2>());
}

} // namespace oracle
