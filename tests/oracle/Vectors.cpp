#include "oracle/Vectors.h"

#include "oracle/Draws.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

// ---- Direction ---------------------------------------------------------------------------------------

enum class Direction { Parallel, Codirectional, Perpendicular };

// A product of two floats is exact in double precision, so its rounding hides no mistake.
template <class E>
constexpr bool isSingle = std::is_same_v<E, Flt>;

/// Rounded to the class's element type if the rule rounds; a slip leaves the rounding out.
template <class E>
Dbl Stored(Dbl const& value, char const* slip)
{
    if (isSingle<E> && Slip(slip))
        return value;
    return Dbl(To<E>(value));
}

template <class E, int N>
int DirectionOf(Direction kind, Vec<E, N> const& a, Vec<E, N> const& b, E const& angular, E const& length,
                bool ownLength = true)
{
    Dbl const limit = ownLength && Slip("length argument of 0 selects the global") && Dbl(length) <= 0.0
                          ? DirectionLimit(E(-1))
                          : DirectionLimit(length);
    Dbl const A = Stored<E>(ProductSum(a, a), "A is not rounded");
    if (Slip("strict length test of the object") ? A < limit : A <= limit)
        return 0;
    Dbl const B = Stored<E>(ProductSum(b, b), "B is not rounded");
    if (ownLength && Slip("strict length test of the other")
            ? B < limit
            : !Slip("no length test of the other") && B <= limit)
        return 0;
    Dbl const tolerance = ResolvedAngle(angular);
    Dbl const d = Stored<E>(ProductSum(a, b), "d is not rounded");
    if (kind == Direction::Codirectional && !(d > 0.0))
        return 0;
    Dbl q = SquaredCosine(d, A, B);
    if (!isSingle<
            E> || (ownLength && kind != Direction::Perpendicular)) { // else the rounding to float hides it
        if (Slip("d² is divided by A·B"))
            q = (d * d) / (A * B);
        if (Slip("d² is divided by B first"))
            q = ((d * d) / B) / A;
        if (Slip("d/A times d/B"))
            q = (d / A) * (d / B);
    }
    Dbl value = kind == Direction::Perpendicular ? q : 1.0 - q;
    if (kind != Direction::Perpendicular && Slip("a value below 0 fails") && value < 0.0)
        return 0;
    if (isSingle<E>) {
        if (kind != Direction::Perpendicular && Slip("Q is rounded too"))
            value = 1.0 - Single(q);
        if (!Slip("the value is not rounded before the test"))
            value = To<E>(value);
    }
    return Slip("strict angular test") ? value < tolerance : value <= tolerance;
}

template <class E, int N>
int UnitDirectionOf(Direction kind, Vec<E, N> const& a, Vec<E, N> const& b, E const& angular)
{
    Dbl const tolerance = ResolvedAngle(angular);
    Dbl const d = Stored<E>(ProductSum(a, b), "d is not rounded");
    if (kind == Direction::Codirectional && !(Slip("a right angle counts") ? d >= 0.0 : d > 0.0))
        return 0;
    Dbl value = kind == Direction::Perpendicular ? d * d : 1.0 - d * d;
    if (!isSingle<E> && kind != Direction::Perpendicular && Slip("(1 − d)(1 + d)"))
        value = (1.0 - d) * (1.0 + d);
    if (!isSingle<E> && kind != Direction::Perpendicular && Slip("the product is fused"))
        value = Fused(-d, d, 1.0);
    value = Stored<E>(value, "the value is not rounded before the test");
    if (!(kind != Direction::Perpendicular && Slip("no absolute value")))
        value = Abs(value);
    return Slip("strict angular test") ? value < tolerance : value <= tolerance;
}

/// Null vectors, direction under the global length, distance.
template <class E, int N>
int EqualOf(Vec<E, N> const& a, Vec<E, N> const& b, E const& angular, E const& length)
{
    if (NullOf(a))
        return NullOf(b) || Slip("a null object equals anything");
    if (NullOf(b))
        return Slip("a null argument equals anything");
    if (!DirectionOf(Direction::Codirectional, a, b, angular,
                     Slip("the caller's length goes on") ? length : E(-1), false))
        return 0;
    Vec<E, N> e;
    for (int i = 0; i < N; ++i)
        e[i] = To<E>(a[i] - b[i]);
    Dbl const square = Stored<E>(ProductSum(e, e), "the squared distance is not rounded");
    Dbl const limit = ResolvedLength(length);
    if (Slip("plain length"))
        return square <= limit * limit;
    return Slip("strict distance test") ? square < limit : square <= limit;
}

template <int N>
Dbl WideAngleOf(Vec<Dbl, N> const& a, Vec<Dbl, N> const& b)
{
    if (NullOf(a) || NullOf(b))
        return 0.0;
    Wide const first = WideLength(a), second = WideLength(b);
    Wide const d = WideDot(Widened(a), Widened(b));
    Wide c = (d / first) / second;
    if (Slip("divided by the product of the lengths"))
        c = d / (first * second);
    if (Slip("divided by the other length first"))
        c = (d / second) / first;
    if (Slip("in the range of a double"))
        c = Wide((ProductSum(a, b) / LengthOf(a)) / LengthOf(b));
    return Slip("no clamp") ? Acos(Narrow(c)) : ClampedAcos(Narrow(c));
}

template <class E, int N>
E AngleOf(Vec<E, N> const& a, Vec<E, N> const& b)
{
    if constexpr (!isSingle<E>)
        return WideAngleOf(a, b);
    E const first = LengthOf(a);
    if (first == 0.0)
        return E(0);
    E const second = LengthOf(b);
    if (second == 0.0)
        return E(0);
    Dbl const d = Stored<E>(ProductSum(a, b), "d is not rounded");
    Dbl c = (d / first) / second;
    if (Slip("divided by the product of the lengths"))
        c = d / (first * second);
    if (Slip("divided by the other length first"))
        c = (d / second) / first;
    if (isSingle<E> && Slip("the cosine is rounded"))
        c = Single(c);
    if (Slip("no clamp"))
        return To<E>(Acos(c));
    return To<E>(ClampedAcos(c));
}

// ---- Extremes ----------------------------------------------------------------------------------------

/// The rules of three components.
template <class V, class E>
void EnterExtremesOfThree(std::string const& name)
{
    using Values = Vec<E, 3>;
    auto const draw = DrawTied<V>;
    Add(
        name + "::MaxValue", draw, [](V const& v) { return v.MaxValue(); },
        [](Values const& v) {
            E const m = v[1] < v[0] ? v[0] : v[1];
            if (Slip("a NaN in z is passed over"))
                return v[2] > m ? v[2] : m;
            if (Slip("a NaN in y leaves x"))
                return (v[1] >= v[0] ? v[1] : v[0]) > v[2] ? (v[1] >= v[0] ? v[1] : v[0]) : v[2];
            return m > v[2] ? m : v[2];
        });
    Add(
        name + "::MinValue", draw, [](V const& v) { return v.MinValue(); },
        [](Values const& v) {
            E const m = v[1] > v[0] ? v[0] : v[1];
            if (Slip("a NaN in z is passed over"))
                return v[2] < m ? v[2] : m;
            return m < v[2] ? m : v[2];
        });
    Add(
        name + "::MaxAbsValue", draw, [](V const& v) { return v.MaxAbsValue(); },
        [](Values const& v) {
            bool const plain = Slip("a zero counts as +0");
            auto size = [&](int i) { return To<E>(plain ? Abs(v[i]) : Magnitude(v[i])); };
            E const a = size(0), b = size(1), c = size(2);
            E const m = b < a ? a : b;
            if (Slip("a NaN in z is passed over"))
                return c > m ? c : m;
            return c < m ? m : c;
        });
    Add(
        name + "::MinAbsValue", draw, [](V const& v) { return v.MinAbsValue(); },
        [](Values const& v) {
            bool const plain = Slip("a zero counts as +0");
            auto size = [&](int i) { return To<E>(plain ? Abs(v[i]) : Magnitude(v[i])); };
            E const a = size(0), b = size(1), c = size(2);
            E const m = b > a ? a : b;
            if (Slip("a NaN in z is passed over"))
                return c < m ? c : m;
            return c > m ? m : c;
        });
    Add(
        name + "::MaxValueIdx", draw, [](V const& v) { return v.MaxValueIdx(); },
        [](Values const& v) {
            if (Slip("the earlier of x and y wins") ? v[1] <= v[0] : v[1] < v[0])
                return (Slip("x wins over z") ? v[2] <= v[0] : v[2] < v[0]) ? 0 : 2;
            return (Slip("y wins over z") ? v[2] <= v[1] : v[2] < v[1]) ? 1 : 2;
        });
    Add(
        name + "::MinValueIdx", draw, [](V const& v) { return v.MinValueIdx(); },
        [](Values const& v) {
            if (Slip("the earlier of x and y wins") ? v[1] >= v[0] : v[1] > v[0])
                return (Slip("x wins over z") ? v[2] >= v[0] : v[2] > v[0]) ? 0 : 2;
            return (Slip("y wins over z") ? v[2] >= v[1] : v[2] > v[1]) ? 1 : 2;
        });
    Add(
        name + "::MaxAbsValueIdx", draw, [](V const& v) { return v.MaxAbsValueIdx(); },
        [](Values const& v) {
            Dbl const a = Magnitude(v[0]), b = Magnitude(v[1]), c = Magnitude(v[2]);
            if (Slip("the earlier of x and y wins") ? a >= b : a > b)
                return (Slip("x wins over z") ? a >= c : a > c) ? 0 : 2;
            return (Slip("y wins over z") ? b >= c : b > c) ? 1 : 2;
        });
    Add(
        name + "::MinAbsValueIdx", draw, [](V const& v) { return v.MinAbsValueIdx(); },
        [](Values const& v) {
            Dbl const a = Magnitude(v[0]), b = Magnitude(v[1]), c = Magnitude(v[2]);
            if (Slip("the earlier of x and y wins") ? a <= b : a < b)
                return (Slip("x wins over z") ? a <= c : a < c) ? 0 : 2;
            return (Slip("y wins over z") ? b <= c : b < c) ? 1 : 2;
        });
}

// ---- What every fixed-size vector has ----------------------------------------------------------------

template <class V, class E>
void EnterVectorArithmetic(std::string const& name)
{
    constexpr int N = sizeOf<V>;
    using T = ElementOf<V>;
    using Values = Vec<E, N>;
    auto each = [](auto rule) {
        return [rule](Values const& a, auto const& b) {
            Values result;
            for (int i = 0; i < N; ++i)
                result[i] = rule(a[i], b, i);
            return result;
        };
    };
    auto const times = each([](E const& a, E const& s, int) {
        return Slip("by way of a float") ? To<E>(Dbl(Single(a)) * Dbl(Single(s * (1.0 + 0x1p-20))))
                                         : To<E>(a * s);
    });
    auto const dividedBy = each([](E const& a, E const& s, int) {
        if (Slip("by the reciprocal"))
            return To<E>(a * To<E>(1.0 / s));
        return To<E>(a / s);
    });
    auto const byReciprocal = each([](E const& a, E const& s, int) {
        if (Slip("by a division"))
            return To<E>(a / s);
        if (isSingle<E> && Slip("the reciprocal is not rounded"))
            return To<E>(a * (1.0 / s));
        return To<E>(a * To<E>(1.0 / s));
    });
    auto const plus = each([](E const& a, Values const& b, int i) {
        if (Slip("a zero sum is +0"))
            return To<E>((a + b[i]) + 0.0);
        return To<E>(a + b[i]);
    });
    auto const minus = each([](E const& a, Values const& b, int i) {
        return Slip("the other way round") ? To<E>(b[i] - a) : To<E>(a - b[i]);
    });
    Add(
        name + "::operator*=", DrawScaled<V, T>, [](V v, T s) { return V(v *= s); }, times);
    Add(
        name + "::operator/=", DrawScaled<V, T>, [](V v, T s) { return V(v /= s); }, dividedBy);
    Add(
        name + "::operator+=", DrawPair<V>, [](V a, V const& b) { return V(a += b); }, plus);
    Add(
        name + "::operator-=", DrawPair<V>, [](V a, V const& b) { return V(a -= b); }, minus);
    Add(
        "operator*(" + name + ", scalar)", DrawScaled<V, T>, [](V const& v, T s) { return v * s; }, times);
    Add(
        "operator*(scalar, " + name + ")", DrawScaled<V, T>, [](V const& v, T s) { return s * v; }, times);
    Add(
        "operator/(" + name + ", scalar)", DrawScaled<V, T>, [](V const& v, T s) { return v / s; },
        byReciprocal);
    Add(
        "operator+(" + name + ", " + name + ")", DrawPair<V>, [](V const& a, V const& b) { return a + b; },
        plus);
    Add(
        "operator-(" + name + ", " + name + ")", DrawPair<V>, [](V const& a, V const& b) { return a - b; },
        minus);
    Add(
        name + "::ElemMult", DrawPair<V>, [](V const& a, V const& b) { return a.ElemMult(b); },
        each([](E const& a, Values const& b, int i) { return To<E>(a * b[i]); }));
    Add(
        name + "::ElemDiv", DrawPair<V>, [](V const& a, V const& b) { return a.ElemDiv(b); },
        each([](E const& a, Values const& b, int i) {
            if (Slip("by the reciprocal"))
                return To<E>(a * To<E>(1.0 / b[i]));
            return Slip("the other way round") ? To<E>(b[i] / a) : To<E>(a / b[i]);
        }));
}

template <class V, class E>
void EnterVectorProducts(std::string const& name)
{
    constexpr int N = sizeOf<V>;
    using Values = Vec<E, N>;
    auto const negated = [](Values const& a) {
        Values result;
        for (int i = 0; i < N; ++i)
            result[i] = To<E>(Slip("from zero") ? 0.0 - a[i] : -Dbl(a[i]));
        return result;
    };
    Add(
        name + "::Negate", DrawOne<V>, [](V a) { return V(a.Negate()); }, negated);
    Add(
        name + "::GetNegatedCopy", DrawOne<V>, [](V const& a) { return a.GetNegatedCopy(); }, negated);
    Add(
        "operator-(" + name + ")", DrawOne<V>, [](V const& a) { return -a; }, negated);
    Add(
        name + "::Dot", DrawPair<V>, [](V const& a, V const& b) { return a.Dot(b); },
        [](Values const& a, Values const& b) {
            Dbl const first = a[0] * b[0], second = a[1] * b[1];
            if (!isSingle<E> && Slip("the first product is fused"))
                return N == 2 ? To<E>(Fused(a[0], b[0], second))
                              : To<E>(Fused(a[0], b[0], second) + a[N - 1] * b[N - 1]);
            if (!isSingle<E> && Slip("the last product is fused"))
                return N == 2 ? To<E>(Fused(a[1], b[1], first))
                              : To<E>(Fused(a[N - 1], b[N - 1], first + second));
            if (N == 3 && Slip("the last two first"))
                return To<E>(first + (second + a[2] * b[2]));
            if (N == 3 && Slip("from the last on"))
                return To<E>((a[2] * b[2] + second) + first);
            if (isSingle<E> && Slip("the products are rounded"))
                return To<E>(N == 2 ? Single(first) + Single(second)
                                    : (Single(first) + Single(second)) + Single(a[N - 1] * b[N - 1]));
            if (isSingle<E> && N == 3 && Slip("the partial sum is rounded"))
                return To<E>(Single(first + second) + a[N - 1] * b[N - 1]);
            return N == 2 ? To<E>(first + second) : To<E>((first + second) + a[N - 1] * b[N - 1]);
        });
    Add(
        name + "::LengthSquared", DrawOne<V>, [](V const& a) { return a.LengthSquared(); },
        [](Values const& a) {
            if (N == 3 && Slip("the last two first"))
                return To<E>(a[0] * a[0] + (a[1] * a[1] + a[N - 1] * a[N - 1]));
            if (!isSingle<E> && Slip("the last square is fused"))
                return To<E>(Fused(a[N - 1], a[N - 1], N == 3 ? a[0] * a[0] + a[1] * a[1] : a[0] * a[0]));
            return LengthSquaredOf(a);
        });
    Add(
        name + "::Length", DrawOne<V>, [](V const& a) { return a.Length(); },
        [](Values const& a) {
            if (isSingle<E> && Slip("the sum is not rounded"))
                return To<E>(Sqrt(ProductSum(a, a)));
            if (!isSingle<E> && Slip("in the range of a double"))
                return To<E>(Sqrt(ProductSum(a, a)));
            return LengthOf(a);
        });
}

template <class V, class E>
void EnterVectorNormalisation(std::string const& name)
{
    constexpr int N = sizeOf<V>;
    using T = ElementOf<V>;
    using Values = Vec<E, N>;
    auto const normalized = [](Values const& a) {
        if (!isSingle<E> && Slip("in the range of a double")) {
            Values result = a;
            Dbl const length = Sqrt(ProductSum(a, a));
            for (int i = 0; i < N; ++i)
                result[i] = To<E>(a[i] / length);
            return result;
        }
        if (Slip("by the reciprocal")) {
            Values result = a;
            E const reciprocal = To<E>(1.0 / LengthOf(a));
            for (int i = 0; i < N; ++i)
                result[i] = To<E>(a[i] * reciprocal);
            return result;
        }
        if (isSingle<E> && Slip("the length is not rounded")) {
            Values result = a;
            for (int i = 0; i < N; ++i)
                result[i] = To<E>(a[i] / Sqrt(LengthSquaredOf(a)));
            return result;
        }
        if (Slip("the null test has a tolerance") && LengthSquaredOf(a) <= ResolvedLength(E(-1)))
            throw Raised{Raise::NullVector};
        return NormalizedOf(a);
    };
    Add(
        name + "::Normalize", DrawOne<V>, [](V const& a) { return Kept(a, [](V& v) { v.Normalize(); }); },
        [normalized](Values const& a) {
            Values result = a;
            Raise const raised = RaisedBy([&] { result = normalized(a); });
            return std::tuple(raised, result);
        });
    Add(
        name + "::GetNormalizedCopy", DrawOne<V>, [](V const& a) { return a.GetNormalizedCopy(); },
        normalized);
    Add(
        name + "::IsNull",
        [](Source& source) {
            V v;
            for (int i = 0; i < N; ++i)
                v[i] = source.Below(8) ? (source.Below(2) ? T(0) : -T(0)) : source.Special<T>();
            return std::tuple(v);
        },
        [](V const& a) { return a.IsNull(); },
        [](Values const& a) {
            if (Slip("under the global tolerance"))
                return int(LengthSquaredOf(a) <= ResolvedLength(E(-1)));
            int null = 1;
            for (int i = 0; i < N; ++i)
                if (Slip("a NaN counts") ? a[i] > 0.0 || a[i] < 0.0 : !(Dbl(a[i]) == 0.0))
                    null = 0;
            return null;
        });
}

template <class V, class E>
void EnterVectorComparison(std::string const& name)
{
    constexpr int N = sizeOf<V>;
    using T = ElementOf<V>;
    using Values = Vec<E, N>;
    // Tests and order.
    auto const drawEither = [](Source& source) {
        return source.Below(2) ? DrawTiedPair<V>(source) : DrawPair<V>(source);
    };
    Add(
        name + "::IsZeroLength",
        [](Source& source) {
            V v = Filled<V>(source);
            T const small = source.OneIn(3) ? static_cast<T>(std::ldexp(1.0, -15 - source.Below(5))) : T(1);
            for (int i = 0; i < N; ++i)
                v[i] *= small;
            double const square = PlainDot(v, v);
            source.SetGlobal(globalTolerance.lengthSquared, square);
            return std::tuple(v, source.Tolerance(Rounded<T>(square)));
        },
        [](V const& a, T length) { return a.IsZeroLength(length); },
        [](Values const& a, E const& length) {
            Dbl const square = Stored<E>(ProductSum(a, a), "the square is not rounded");
            if (Slip("−0 selects the global") && length == 0.0)
                return int(square <= ResolvedLength(E(-1)));
            if (Slip("a plain length"))
                return int(square <= ResolvedLength(length) * ResolvedLength(length));
            if (Slip("the global's angle"))
                return int(square <= ResolvedAngle(length));
            return int(Slip("strict") ? square < ResolvedLength(length) : square <= ResolvedLength(length));
        });
    Add(
        name + "::operator==", drawEither, [](V const& a, V const& b) { return a == b; },
        [](Values const& a, Values const& b) {
            int equal = 1;
            for (int i = 0; i < N; ++i)
                if (!(Dbl(a[i]) == Dbl(b[i])))
                    equal = 0;
            if (Slip("a NaN equals anything"))
                for (int i = 0; i < N; ++i)
                    if (Dbl(a[i]) != Dbl(a[i]))
                        equal = 1;
            if (Slip("x decides"))
                equal = Dbl(a[0]) == Dbl(b[0]);
            return equal;
        });
    Add(
        name + "::operator!=", drawEither, [](V const& a, V const& b) { return a != b; },
        [](Values const& a, Values const& b) {
            int different = 0;
            for (int i = 0; i < N; ++i)
                if (Slip("a NaN differs from nothing") ? Dbl(a[i]) < Dbl(b[i]) || Dbl(a[i]) > Dbl(b[i])
                                                       : Dbl(a[i]) != Dbl(b[i]))
                    different = 1;
            return different;
        });
    Add(
        name + "::IsLessThan", drawEither, [](V const& a, V const& b) { return a.IsLessThan(b); },
        [](Values const& a, Values const& b) {
            int less = 1;
            for (int i = 0; i < N; ++i)
                if (Slip("strict") ? !(a[i] < b[i]) : Slip("a NaN passes") ? a[i] > b[i] : !(a[i] <= b[i]))
                    less = 0;
            return less;
        });
    Add(
        name + "::IsGreaterThan", drawEither, [](V const& a, V const& b) { return a.IsGreaterThan(b); },
        [](Values const& a, Values const& b) {
            int greater = 1;
            for (int i = 0; i < N; ++i)
                if (Slip("strict") ? !(a[i] > b[i]) : Slip("a NaN passes") ? a[i] < b[i] : !(a[i] >= b[i]))
                    greater = 0;
            return greater;
        });
}

template <class V, class E>
void EnterVectorDirections(std::string const& name)
{
    constexpr int N = sizeOf<V>;
    using T = ElementOf<V>;
    using Values = Vec<E, N>;
    // Direction.
    auto const drawDirection = [](bool perpendicular) {
        return [perpendicular](Source& source) {
            auto const [a, b] = Related<V>(source);
            double const A = Rounded<T>(PlainDot(a, a)), B = Rounded<T>(PlainDot(b, b));
            double const d = Rounded<T>(PlainDot(a, b));
            double const q = ((d * d) / A) / B;
            double const value = perpendicular ? q : 1.0 - q;
            source.SetGlobal(globalTolerance.sin2Angle, value);
            if (source.Below(2))
                source.SetGlobal(globalTolerance.lengthSquared, source.Below(2) ? A : B);
            T const angular = source.Tolerance(Rounded<T>(value));
            T const length = source.Below(3) ? T(-1) : source.Tolerance(Rounded<T>(source.Below(2) ? A : B));
            return std::tuple(a, b, angular, length);
        };
    };
    Add(
        name + "::IsParallelTo", drawDirection(false),
        [](V const& a, V const& b, T s, T l) { return a.IsParallelTo(b, s, l); },
        [](Values const& a, Values const& b, E const& s, E const& l) {
            return DirectionOf(Direction::Parallel, a, b, s, l);
        });
    Add(
        name + "::IsCodirectionalTo", drawDirection(false),
        [](V const& a, V const& b, T s, T l) { return a.IsCodirectionalTo(b, s, l); },
        [](Values const& a, Values const& b, E const& s, E const& l) {
            if (Slip("antiparallel counts"))
                return DirectionOf(Direction::Parallel, a, b, s, l);
            return DirectionOf(Direction::Codirectional, a, b, s, l);
        });
    Add(
        name + "::IsPerpendicularTo", drawDirection(true),
        [](V const& a, V const& b, T s, T l) { return a.IsPerpendicularTo(b, s, l); },
        [](Values const& a, Values const& b, E const& s, E const& l) {
            return DirectionOf(Direction::Perpendicular, a, b, s, l);
        });
    auto const drawUnit = [](bool perpendicular) {
        return [perpendicular](Source& source) {
            auto [a, b] = Related<V>(source);
            if (source.Below(4)) {
                a = Unitised(a);
                b = Unitised(b);
            }
            double const d = Rounded<T>(PlainDot(a, b));
            double const value = perpendicular ? d * d : std::fabs(1.0 - d * d);
            source.SetGlobal(globalTolerance.sin2Angle, value);
            return std::tuple(a, b, source.Tolerance(Rounded<T>(value)));
        };
    };
    Add(
        name + "::IsUnitParallelTo", drawUnit(false),
        [](V const& a, V const& b, T s) { return a.IsUnitParallelTo(b, s); },
        [](Values const& a, Values const& b, E const& s) {
            return UnitDirectionOf(Direction::Parallel, a, b, s);
        });
    Add(
        name + "::IsUnitCodirectionalTo", drawUnit(false),
        [](V const& a, V const& b, T s) { return a.IsUnitCodirectionalTo(b, s); },
        [](Values const& a, Values const& b, E const& s) {
            return UnitDirectionOf(Direction::Codirectional, a, b, s);
        });
    Add(
        name + "::IsUnitPerpendicularTo", drawUnit(true),
        [](V const& a, V const& b, T s) { return a.IsUnitPerpendicularTo(b, s); },
        [](Values const& a, Values const& b, E const& s) {
            return UnitDirectionOf(Direction::Perpendicular, a, b, s);
        });
}

template <class V, class E>
void EnterVectorAngles(std::string const& name)
{
    constexpr int N = sizeOf<V>;
    using T = ElementOf<V>;
    using Values = Vec<E, N>;
    Add(
        name + "::IsEqualTo",
        [](Source& source) {
            auto const pair = Related<V>(source);
            V const a = pair.first;
            V b = pair.second;
            if (source.Below(2)) {
                // Nearly the same vector, so that direction and distance are both close to the tolerance.
                double const size = std::sqrt(PlainDot(a, a));
                double const depth = std::pow(10.0, -3.0 - 10.0 * source.Unit());
                bool const along = source.Below(2) != 0;
                for (int i = 0; i < N; ++i)
                    b[i] = Rounded<T>(along ? static_cast<double>(a[i]) * (1.0 + depth)
                                            : static_cast<double>(a[i]) + depth * size * source.Signed());
            }
            V e;
            for (int i = 0; i < N; ++i)
                e[i] = Rounded<T>(static_cast<double>(a[i]) - static_cast<double>(b[i]));
            if (source.OneIn(8))
                for (int i = 0; i < N; ++i)
                    b[i] = T(0);
            double const distance = Rounded<T>(PlainDot(e, e));
            double const A = Rounded<T>(PlainDot(a, a)), B = Rounded<T>(PlainDot(b, b));
            double const d = Rounded<T>(PlainDot(a, b));
            double const value = 1.0 - ((d * d) / A) / B;
            source.SetGlobal(globalTolerance.sin2Angle, value);
            if (source.Below(2))
                source.SetGlobal(globalTolerance.lengthSquared, source.Below(2)   ? distance
                                                                : source.Below(2) ? A
                                                                                  : B);
            T const angular = source.OneIn(3) ? T(1) : source.Tolerance(Rounded<T>(value));
            return std::tuple(a, b, angular, source.Tolerance(Rounded<T>(distance)));
        },
        [](V const& a, V const& b, T s, T l) { return a.IsEqualTo(b, s, l); }, EqualOf<E, N>);
    Add(
        name + "::GetAngleWith", DrawPair<V>, [](V const& a, V const& b) { return a.GetAngleWith(b); },
        AngleOf<E, N>);
    Add(
        name + "::GetProjectionOnTo", DrawPair<V>,
        [](V const& a, V const& b) { return a.GetProjectionOnTo(b); },
        [](Values const& a, Values const& b) {
            if constexpr (!isSingle<E>) {
                if (!Slip("in the range of a double") && !Slip("(a · b) / (b · b) times b")) {
                    if (NullOf(b))
                        throw Raised{Raise::NullVector};
                    WideVec<N> u = Widened(b);
                    Wide const length = WideLength(b);
                    for (Wide& component : u)
                        component = component / length;
                    Wide const along = WideDot(Widened(a), u);
                    Values result;
                    for (int i = 0; i < N; ++i)
                        result[i] = Product(along, u[static_cast<std::size_t>(i)]);
                    return result;
                }
            }
            Values const u = NormalizedOf(b);
            Values result;
            Dbl const along = Stored<E>(ProductSum(a, u), "the dot product is not rounded");
            for (int i = 0; i < N; ++i)
                result[i] =
                    To<E>(Slip("(a · b) / (b · b) times b") ? (DotOf(a, b) / LengthSquaredOf(b)) * b[i]
                                                            : along * u[i]);
            return result;
        });
}

template <class V, class E>
void EnterVector(std::string const& name)
{
    EnterVectorArithmetic<V, E>(name);
    EnterVectorProducts<V, E>(name);
    EnterVectorNormalisation<V, E>(name);
    EnterVectorComparison<V, E>(name);
    EnterVectorDirections<V, E>(name);
    EnterVectorAngles<V, E>(name);
}

// ---- Three components ----------------------------------------------------------------------------------

template <class V, class E>
void EnterVectorOfThree(std::string const& name)
{
    using Values = Vec<E, 3>;
    Add(
        name + "::Cross", DrawPair<V>, [](V const& a, V const& b) { return a.Cross(b); },
        [](Values const& a, Values const& b) {
            if (!isSingle<E> && Slip("the second products are fused"))
                return Values{{To<E>(Fused(-Dbl(b[1]), a[2], a[1] * b[2])),
                               To<E>(Fused(-Dbl(a[0]), b[2], a[2] * b[0])),
                               To<E>(Fused(-Dbl(a[1]), b[0], b[1] * a[0]))}};
            Values const left = CrossOf(a, b);
            if (Slip("left-handed"))
                return NegatedOf(left);
            if (isSingle<E> && Slip("the products are rounded"))
                return Values{{To<E>(Single(a[1] * b[2]) - Single(b[1] * a[2])),
                               To<E>(Single(a[2] * b[0]) - Single(a[0] * b[2])),
                               To<E>(Single(b[1] * a[0]) - Single(a[1] * b[0]))}};
            return Values{{To<E>(a[1] * b[2] - b[1] * a[2]), To<E>(a[2] * b[0] - a[0] * b[2]),
                           To<E>(b[1] * a[0] - a[1] * b[0])}};
        });
    Add(
        name + "::GetAreaFormedByTriangleWith", DrawPair<V>,
        [](V const& a, V const& b) { return a.GetAreaFormedByTriangleWith(b); },
        [](Values const& a, Values const& b) {
            if constexpr (!isSingle<E>) {
                if (!Slip("in the range of a double") && !Slip("by the cross product")) {
                    Wide const d = WideDot(Widened(a), Widened(b));
                    Wide const A = WideDot(Widened(a), Widened(a)), B = WideDot(Widened(b), Widened(b));
                    Wide const difference =
                        Slip("the difference is fused") ? Fused(A, B, -(d * d)) : A * B - d * d;
                    if (Slip("clamped at 0") && difference.Number() < 0.0)
                        return Dbl(0.0);
                    return Product(Dbl(0.5), Sqrt(difference));
                }
            }
            Dbl const d = Stored<E>(ProductSum(a, b), "d is not rounded");
            Dbl const A = Stored<E>(ProductSum(a, a), "A is not rounded");
            Dbl const B = Stored<E>(ProductSum(b, b), "B is not rounded");
            Dbl difference = Stored<E>(A * B - d * d, "the difference is not rounded");
            if (isSingle<E> && Slip("clamped at 0") && difference < 0.0)
                difference = 0.0;
            if (Slip("by the cross product"))
                return To<E>(0.5 * LengthOf(CrossOf(a, b)));
            return To<E>(0.5 * To<E>(Sqrt(difference)));
        });
    EnterExtremesOfThree<V, E>(name);
}

void EnterOrder()
{
    using V = Vec3Dbl;
    auto const order = [](int i0, int i1) { return std::tuple(i0, i1, 3 - i0 - i1); };
    // In the two decision trees a strict comparison with a NaN counts as true.
    static auto const less = [](Dbl const& a, Dbl const& b) {
        return Slip("a NaN compares false") ? a < b : !(a >= b);
    };
    Add(
        "Vec3Dbl::ValueOrder", DrawTied<V>,
        [](V const& v) {
            int i0 = -1, i1 = -1, i2 = -1;
            v.ValueOrder(i0, i1, i2);
            return std::tuple(i0, i1, i2);
        },
        [order](V3 const& v) {
            Dbl const &x = v[0], &y = v[1], &z = v[2];
            if (Slip("equal values change places") ? !(y <= x) : !less(y, x)) {
                if (less(z, x))
                    return order(2, 0);
                return order(0, (Slip("z goes before an equal y") ? z <= y : less(z, y)) ? 2 : 1);
            }
            if (less(z, y))
                return order(2, 1);
            return order(1, less(z, x) ? 2 : 0);
        });
    Add(
        "Vec3Dbl::AbsValueOrder", DrawTied<V>,
        [](V const& v) {
            int i0 = -1, i1 = -1, i2 = -1;
            v.AbsValueOrder(i0, i1, i2);
            return std::tuple(i0, i1, i2);
        },
        [order](V3 const& v) {
            Dbl const a = Magnitude(v[0]), b = Magnitude(v[1]), c = Magnitude(v[2]);
            if (Slip("equal values change places") ? !(a >= b) : !less(b, a)) {
                if (less(c, a))
                    return order(2, 0);
                return order(0, (Slip("z goes before an equal y") ? b < c : b <= c) ? 1 : 2);
            }
            if (less(c, b))
                return order(2, 1);
            return order(1, less(c, a) ? 2 : 0);
        });
    Add(
        "Vec3Dbl::operator<",
        [](Source& source) { return source.Below(3) ? DrawTiedPair<V>(source) : DrawPair<V>(source); },
        [](V const& a, V const& b) { return a < b; },
        [](V3 const& a, V3 const& b) {
            for (int i = 0; i < 3; ++i) {
                if (a[i] < b[i])
                    return 1;
                if (Slip("a NaN counts as equal") ? a[i] > b[i] : !(a[i] == b[i]))
                    return 0;
                if (Slip("x decides"))
                    break;
            }
            return Slip("equal vectors are less") ? 1 : 0;
        });
}

auto DrawTurn(Source& source)
{
    auto const [a, axis] = Related<Vec3Dbl>(source);
    return std::tuple(a, source.Below(5) ? Unitised(axis) : axis, source.Angle());
}

void EnterPerpendiculars()
{
    using V = Vec3Dbl;
    Add(
        "Vec3Dbl::GetPerpendicular",
        [](Source& source) {
            V v = source.Below(2) ? Tied<V>(source) : Filled<V>(source);
            if (source.Below(2)) {
                double const small = std::ldexp(1.0, -14 - source.Below(5));
                v *= small;
            }
            // The squared length of the smallest and largest components decides.
            double const x = std::fabs(v.x), y = std::fabs(v.y), z = std::fabs(v.z);
            double const most = std::fmax(x, std::fmax(y, z)), least = std::fmin(x, std::fmin(y, z));
            source.SetGlobal(globalTolerance.lengthSquared, most * most + least * least);
            return std::tuple(v);
        },
        [](V const& a) { return a.GetPerpendicular(); }, PerpendicularOf);
    Add(
        "Vec3Dbl::GetPerpendicularNearestTo",
        [](Source& source) {
            auto const [a, b] = Related<V>(source);
            // Approximately the rule's w: it sets the global.
            double const cx = a.y * b.z - b.y * a.z, cy = a.z * b.x - a.x * b.z, cz = b.x * a.y - a.x * b.y;
            double const wx = cy * a.z - a.y * cz, wy = cz * a.x - cx * a.z, wz = a.x * cy - cx * a.y;
            source.SetGlobal(globalTolerance.lengthSquared, (wx * wx + wy * wy) + wz * wz);
            return std::tuple(a, b);
        },
        [](V const& a, V const& b) { return a.GetPerpendicularNearestTo(b); },
        [](V3 const& a, V3 const& b) {
            V3 const w = CrossOf(CrossOf(a, b), a);
            Dbl const square = LengthSquaredOf(w);
            Dbl const limit = ResolvedLength(Dbl(-1.0));
            if (Slip("strict") ? square < limit : square <= limit)
                return PerpendicularOf(a);
            if (Slip("not normalised"))
                return w;
            if (Slip("a × (b × a)"))
                return NormalizedOf(CrossOf(a, CrossOf(b, a)));
            if (Slip("b − (a·b / a·a) a")) {
                return NormalizedOf(b - (DotOf(a, b) / LengthSquaredOf(a)) * a);
            }
            return NormalizedOf(w);
        });
    Add(
        "Vec3Dbl::GetCCWAngleWith",
        [](Source& source) {
            auto const [a, b] = Related<V>(source);
            V normal = Filled<V>(source);
            if (source.Below(2))
                normal = a.Cross(b);
            if (source.Below(2))
                normal = V(-normal.x, -normal.y, -normal.z);
            if (source.OneIn(4))
                source.SetGlobal(globalTolerance.lengthSquared,
                                 source.Below(2) ? PlainDot(a, a) : PlainDot(b, b));
            return std::tuple(a, b, normal);
        },
        [](V const& a, V const& b, V const& normal) { return a.GetCCWAngleWith(b, normal); },
        CounterClockwiseAngle);
    Add(
        "Vec3Dbl::Rotate", DrawTurn,
        [](V a, V const& axis, double angle) { return V(a.Rotate(axis, angle)); }, RotatedOf);
    Add(
        "Vec3Dbl(Vec3Flt)", DrawOne<Vec3Flt>, [](Vec3Flt const& a) { return Vec3Dbl(a); },
        [](F3 const& a) {
            return V3{{a[0], a[1], a[2]}};
        });
}

void EnterWidening()
{
    Add(
        "Vec3Dbl::operator=(Vec3Flt)", DrawOne<Vec3Flt>,
        [](Vec3Flt const& a) {
            Vec3Dbl result(7.0);
            result = a;
            return result;
        },
        [](F3 const& a) {
            return V3{{a[0], a[1], a[2]}};
        });
}

void EnterVec3Dbl()
{
    using V = Vec3Dbl;
    EnterVector<V, Dbl>("Vec3Dbl");
    EnterVectorOfThree<V, Dbl>("Vec3Dbl");
    EnterOrder();
    EnterPerpendiculars();
    EnterWidening();
}

/// Doubles at and around the limits of a float.
auto DrawNarrowed(Source& source)
{
    Vec3Dbl v;
    for (int i = 0; i < 3; ++i) {
        v[i] = source.Number<double>();
        if (source.Below(2)) {
            float const near = source.Number<float>();
            v[i] = static_cast<double>(near)
                   + static_cast<double>(HalfUnit(near)) * (source.Below(2) ? 1.0 : -1.0);
            v[i] = source.Near(v[i]);
        }
        if (source.OneIn(6))
            v[i] = std::ldexp(static_cast<double>(source.Below(64)) + 0.5 * source.Below(2),
                              -150 - source.Below(4));
    }
    return std::tuple(v);
}

void EnterVec3Flt()
{
    using V = Vec3Flt;
    EnterVector<V, Flt>("Vec3Flt");
    EnterVectorOfThree<V, Flt>("Vec3Flt");

    auto const narrowed = [](V3 const& a) {
        if (Slip("not rounded to the denormals of a float")) {
            F3 result = {{Single(a[0]), Single(a[1]), Single(a[2])}};
            for (int i = 0; i < 3; ++i)
                if (Abs(a[i]) < 0x1p-126)
                    result[i] = Flt(0.0f);
            return result;
        }
        return F3{{Single(a[0]), Single(a[1]), Single(a[2])}};
    };
    Add(
        "Vec3Dbl::ToVec3Flt", DrawNarrowed, [](Vec3Dbl const& a) { return a.ToVec3Flt(); }, narrowed);
    Add(
        "Vec3Flt::operator=(Vec3Dbl)", DrawNarrowed,
        [](Vec3Dbl const& a) {
            Vec3Flt result(7.0f);
            result = a;
            return result;
        },
        narrowed);
    Add(
        "Vec3Flt::GetPerpendicular",
        [](Source& source) {
            V v = Filled<V>(source);
            int const kind = source.Below(8);
            if (kind < 4) {
                v.x = kind & 1 ? source.Near(0.015625f) : static_cast<float>(0.015 * source.Signed());
                v.y = kind & 2 ? source.Near(-0.015625f) : static_cast<float>(0.015 * source.Signed());
            } else if (kind < 6) {
                v.x = source.Below(2) ? 0.0f : static_cast<float>(1e-5 * source.Signed());
                v.y = source.Below(2) ? 0.0f : static_cast<float>(1e-5 * source.Signed());
                v.z = source.Below(2) ? 0.0f : static_cast<float>(2e-5 * source.Signed());
            }
            source.SetGlobal(globalTolerance.lengthSquared,
                             static_cast<double>(v.x) * static_cast<double>(v.x)
                                 + static_cast<double>(v.z) * static_cast<double>(v.z));
            return std::tuple(v);
        },
        [](V const& a) { return a.GetPerpendicular(); },
        [](F3 const& a) {
            auto const far = [](Flt const& v) {
                return Slip("strict switch") ? Abs(v) > 0.015625 : Abs(v) >= 0.015625;
            };
            F3 const first = {{Single(-Dbl(a[1])), a[0], Flt(0.0f)}};
            if (far(a[0]) || (!Slip("y is not looked at") && far(a[1])))
                return NormalizedOf(first);
            F3 const second = {{a[2], Flt(0.0f), Single(-Dbl(a[0]))}};
            if (!Slip("no return to the first form")
                && (Slip("exact test") ? NullOf(second)
                                       : LengthSquaredOf(second) <= ResolvedLength(Flt(-1.0f))))
                return NormalizedOf(first);
            if (Slip("(−z, 0, x)"))
                return NormalizedOf(NegatedOf(second));
            return NormalizedOf(second);
        });
    Add(
        "Vec3Flt::GetPerpendicularNearestTo", DrawPair<V>,
        [](V const& a, V const& b) { return a.GetPerpendicularNearestTo(b); },
        [](F3 const& a, F3 const& b) {
            if (Slip("normalised"))
                return NormalizedOf(CrossOf(CrossOf(a, b), a));
            if (Slip("the inner product is not rounded")) {
                V3 const c = CrossOf(V3{{a[0], a[1], a[2]}}, V3{{b[0], b[1], b[2]}});
                V3 const w = CrossOf(c, V3{{a[0], a[1], a[2]}});
                return F3{{Single(w[0]), Single(w[1]), Single(w[2])}};
            }
            return CrossOf(CrossOf(a, b), a);
        });
}

// ---- Two components ------------------------------------------------------------------------------------

/// On a tie, or with a NaN, y wins.
template <class V, class E>
void EnterExtremesOfTwo(std::string const& name)
{
    using Values = Vec<E, 2>;
    auto const draw = DrawTied<V>;
    struct Side {
        static bool Y(Dbl const& x, Dbl const& y, bool largest)
        {
            if (Slip("a tie goes to x"))
                return largest ? !(y <= x) : !(y >= x);
            if (Slip("a NaN goes to x"))
                return largest ? y >= x : y <= x;
            return largest ? !(y < x) : !(y > x);
        }
    };
    auto const magnitude = [](E const& v) { return Slip("a zero counts as +0") ? Abs(v) : Magnitude(v); };
    auto const size = [](E const& v) { return Magnitude(v); };
    Add(
        name + "::MaxValueIdx", draw, [](V const& v) { return v.MaxValueIdx(); },
        [](Values const& v) { return int(Side::Y(v[0], v[1], true)); });
    Add(
        name + "::MinValueIdx", draw, [](V const& v) { return v.MinValueIdx(); },
        [](Values const& v) { return int(Side::Y(v[0], v[1], false)); });
    Add(
        name + "::MaxAbsValueIdx", draw, [](V const& v) { return v.MaxAbsValueIdx(); },
        [size](Values const& v) { return int(Side::Y(size(v[0]), size(v[1]), true)); });
    Add(
        name + "::MinAbsValueIdx", draw, [](V const& v) { return v.MinAbsValueIdx(); },
        [size](Values const& v) { return int(Side::Y(size(v[0]), size(v[1]), false)); });
    Add(
        name + "::MaxValue", draw, [](V const& v) { return v.MaxValue(); },
        [](Values const& v) { return Side::Y(v[0], v[1], true) ? v[1] : v[0]; });
    Add(
        name + "::MinValue", draw, [](V const& v) { return v.MinValue(); },
        [](Values const& v) { return Side::Y(v[0], v[1], false) ? v[1] : v[0]; });
    Add(
        name + "::MaxAbsValue", draw, [](V const& v) { return v.MaxAbsValue(); },
        [magnitude](Values const& v) {
            Dbl const x = magnitude(v[0]), y = magnitude(v[1]);
            return To<E>((Slip("a NaN is passed over") ? y >= x : !(y < x)) ? y : x);
        });
    Add(
        name + "::MinAbsValue", draw, [](V const& v) { return v.MinAbsValue(); },
        [magnitude](Values const& v) {
            Dbl const x = magnitude(v[0]), y = magnitude(v[1]);
            return To<E>((Slip("a NaN is passed over") ? y <= x : !(y > x)) ? y : x);
        });
}

template <class V, class E>
void EnterVectorOfTwo(std::string const& name)
{
    using Values = Vec<E, 2>;
    EnterVector<V, E>(name);
    EnterExtremesOfTwo<V, E>(name);
    auto const cross = [](Values const& a, Values const& b) {
        if (Slip("clockwise"))
            return a[1] * b[0] - a[0] * b[1];
        if (!isSingle<E> && Slip("the first product is fused"))
            return Fused(a[0], b[1], -(a[1] * b[0]));
        if (!isSingle<E> && Slip("the second product is fused"))
            return Fused(-Dbl(a[1]), b[0], a[0] * b[1]);
        if (isSingle<E> && Slip("the products are rounded"))
            return Single(a[0] * b[1]) - Single(a[1] * b[0]);
        return a[0] * b[1] - a[1] * b[0];
    };
    Add(
        name + "::Cross", DrawPair<V>, [](V const& a, V const& b) { return a.Cross(b); },
        [cross](Values const& a, Values const& b) { return To<E>(cross(a, b)); });
    Add(
        name + "::GetAreaFormedByTriangleWith", DrawPair<V>,
        [](V const& a, V const& b) { return a.GetAreaFormedByTriangleWith(b); },
        [cross](Values const& a, Values const& b) {
            if (isSingle<E> && Slip("rounded before it is halved"))
                return To<E>(0.5 * Single(cross(a, b)));
            if (Slip("without its sign"))
                return To<E>(0.5 * Abs(cross(a, b)));
            if constexpr (!isSingle<E>) {
                if (!Slip("in the range of a double") && !Slip("clockwise"))
                    return Product(Dbl(0.5), Wide(a[0]) * Wide(b[1]) - Wide(a[1]) * Wide(b[0]));
            }
            return To<E>(0.5 * cross(a, b));
        });
    Add(
        name + "::GetPerpendicular", DrawOne<V>, [](V const& a) { return a.GetPerpendicular(); },
        [](Values const& a) {
            if (Slip("clockwise"))
                return NormalizedOf(Values{{a[1], To<E>(-Dbl(a[0]))}});
            if (Slip("by the reciprocal")) {
                Values const turned = {{To<E>(-Dbl(a[1])), a[0]}};
                if (NullOf(turned))
                    throw Raised{Raise::NullVector};
                E const reciprocal = To<E>(1.0 / LengthOf(turned));
                return Values{{To<E>(turned[0] * reciprocal), To<E>(turned[1] * reciprocal)}};
            }
            return NormalizedOf(Values{{To<E>(-Dbl(a[1])), a[0]}});
        });
}

void EnterVec2()
{
    EnterVectorOfTwo<Vec2Dbl, Dbl>("Vec2Dbl");
    EnterVectorOfTwo<Vec2Flt, Flt>("Vec2Flt");
    using V = Vec2Dbl;
    Add(
        "Vec2Dbl::operator<",
        [](Source& source) { return source.Below(3) ? DrawTiedPair<V>(source) : DrawPair<V>(source); },
        [](V const& a, V const& b) { return a < b; },
        [](V2 const& a, V2 const& b) {
            if (a[0] < b[0])
                return 1;
            if (Slip("a NaN counts as equal") ? a[0] > b[0] : !(a[0] == b[0]))
                return 0;
            return int(Slip("not strict") ? a[1] <= b[1] : a[1] < b[1]);
        });
    Add(
        "Vec2Dbl::GetCCWAngleWith",
        [](Source& source) {
            auto const [a, b] = Related<V>(source);
            if (source.OneIn(4))
                source.SetGlobal(globalTolerance.lengthSquared,
                                 source.Below(2) ? PlainDot(a, a) : PlainDot(b, b));
            return std::tuple(a, b);
        },
        [](V const& a, V const& b) { return a.GetCCWAngleWith(b); },
        [](V2 const& a, V2 const& b) {
            Dbl const up = Slip("about −z") ? -1.0 : 1.0;
            return CounterClockwiseAngle(V3{{a[0], a[1], 0.0}}, V3{{b[0], b[1], 0.0}}, V3{{0.0, 0.0, up}});
        });
    auto const widened = [](F2 const& a) { return V2{{a[0], a[1]}}; };
    Add(
        "Vec2Dbl(Vec2Flt)", DrawOne<Vec2Flt>, [](Vec2Flt const& a) { return Vec2Dbl(a); }, widened);
    Add(
        "Vec2Dbl::operator=(Vec2Flt)", DrawOne<Vec2Flt>,
        [](Vec2Flt const& a) {
            Vec2Dbl result(7.0);
            result = a;
            return result;
        },
        widened);
    auto const narrowed = [](V2 const& a) {
        F2 result = {{Single(a[0]), Single(a[1])}};
        if (Slip("denormals are lost"))
            for (int i = 0; i < 2; ++i)
                if (Abs(a[i]) < 0x1p-126)
                    result[i] = Flt(0.0f);
        return result;
    };
    auto const draw = [](Source& source) {
        Vec3Dbl const v = std::get<0>(DrawNarrowed(source));
        return std::tuple(Vec2Dbl(v.x, v.y));
    };
    Add(
        "Vec2Dbl::ToVec2Flt", draw, [](Vec2Dbl const& a) { return a.ToVec2Flt(); }, narrowed);
    Add(
        "Vec2Flt::operator=(Vec2Dbl)", draw,
        [](Vec2Dbl const& a) {
            Vec2Flt result(7.0f);
            result = a;
            return result;
        },
        narrowed);
}

} // namespace

V3 PerpendicularOf(V3 const& a)
{
    // Ascending order of the magnitudes; a > with a NaN counts as true, a <= as false.
    Dbl const x = Magnitude(a[0]), y = Magnitude(a[1]), z = Magnitude(a[2]);
    auto const greater = [](Dbl const& p, Dbl const& q) { return !(p <= q); };
    int s, m;
    if (!greater(x, y)) {
        if (greater(x, z)) {
            s = 2;
            m = 0;
        } else {
            s = 0;
            m = y <= z ? 1 : 2;
        }
    } else if (greater(y, z)) {
        s = 2;
        m = 1;
    } else {
        s = 1;
        m = greater(x, z) ? 2 : 0;
    }
    int const l = 3 - s - m;
    V3 r;
    r[l] = a[s];
    r[s] = -a[l];
    if (Slip("turned the other way"))
        r = NegatedOf(r);
    Dbl const square = LengthSquaredOf(r);
    Dbl const limit = ResolvedLength(Dbl(-1.0));
    if (Slip("strict length test of the perpendicular") ? square < limit : square <= limit)
        r[s] = 1.0;
    return NormalizedOf(r);
}

V3 RotatedOf(V3 const& a, V3 const& axis, Dbl const& angle)
{
    V3 const p = [&] {
        Sound const sound;
        return PerpendicularOf(axis);
    }();
    V3 const q = CrossOf(axis, p);
    Dbl const c1 = DotOf(a, p), c2 = DotOf(a, q), t = DotOf(a, axis);
    Dbl const c = Cos(angle), s = Sin(angle);
    if (Slip("the other way round"))
        return ((c * c1 + s * c2) * p + (c * c2 - s * c1) * q) + t * axis;
    if (Slip("the last two first"))
        return (c * c1 - s * c2) * p + ((c * c2 + s * c1) * q + t * axis);
    if (Slip("fused coefficients"))
        return (Fused(c, c1, -(s * c2)) * p + Fused(c, c2, s * c1) * q) + t * axis;
    if (Slip("the axis is normalised")) {
        Sound const sound;
        return RotatedOf(a, NormalizedOf(axis), angle);
    }
    return ((c * c1 - s * c2) * p + (c * c2 + s * c1) * q) + t * axis;
}

Dbl CounterClockwiseAngle(V3 const& a, V3 const& b, V3 const& normal)
{
    Dbl const limit = ResolvedLength(Dbl(-1.0)), sine = ResolvedAngle(Dbl(-1.0));
    auto const within = [&](Wide const& square, char const* slip = nullptr) {
        return slip && Slip(slip) ? square.Number() < limit : square.Number() <= limit;
    };
    WideVec<3> u = Widened(a), v = Widened(b);
    Wide const A = WideDot(u, u), B = WideDot(v, v);
    if (within(A, "strict length test of the first") || within(B, "strict length test of the second"))
        return 0.0;
    if (Slip("in the range of a double") && (LengthSquaredOf(a) <= limit || LengthSquaredOf(b) <= limit))
        return 0.0;
    for (Wide& component : u)
        component = component / Sqrt(A);
    for (Wide& component : v)
        component = component / Sqrt(B);

    // Equality of u with v and with −v: null vectors (there are none), direction, distance.
    Wide const U = WideDot(u, u), V = WideDot(v, v), d = WideDot(u, v);
    auto const equal = [&](bool opposite) {
        if (within(U) || within(V) || !(opposite ? d.Number() < 0.0 : d.Number() > 0.0))
            return false;
        if (!((Wide(1.0) - ((d * d) / U) / V).Number() <= sine))
            return false;
        WideVec<3> e = u;
        for (std::size_t i = 0; i < 3; ++i)
            e[i] = opposite ? u[i] + v[i] : u[i] - v[i];
        return within(WideDot(e, e));
    };
    bool const same = equal(false), opposite = equal(true);
    Dbl const angle = ClampedAcos(Narrow((d / Sqrt(U)) / Sqrt(V)));
    if (same) // no mistake here shows: the test of the cross product would catch the pair
        return 0.0;
    if (opposite)
        return pi;
    WideVec<3> const c = {u[1] * v[2] - v[1] * u[2], u[2] * v[0] - u[0] * v[2], v[1] * u[0] - u[1] * v[0]};
    if (within(WideDot(c, c)) && !Slip("no test of the cross product"))
        return d.Number() < 0.0 ? Dbl(pi) : Dbl(0.0);
    Dbl const side = WideDot(Widened(normal), c).Number();
    if (Slip("a side of exactly 0 turns back") ? side <= 0.0 : side < 0.0)
        return twoPi - angle;
    return angle;
}

void EnterVectors()
{
    EnterVec3Dbl();
    EnterVec3Flt();
    EnterVec2();
}

} // namespace oracle
