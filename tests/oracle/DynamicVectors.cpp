#include "oracle/DynamicDraws.h"
#include "oracle/Statements.h"
#include "oracle/Vectors.h"

#include <algorithm>

namespace oracle {

namespace {

template <class E>
constexpr bool isSingle = std::is_same_v<E, Flt>;

template <class E>
void DemandSameSize(Dyn<E> const& a, Dyn<E> const& b)
{
    if (a.size != b.size && !Slip("sizes are not compared"))
        throw Raised{Raise::DimensionMismatch};
    if (a.size != b.size)
        throw Raised{Raise::None};
}

template <class E, class Rule>
Dyn<E> Each(int size, Rule rule)
{
    Dyn<E> result(size);
    for (int i = 0; i < size; ++i)
        result[i] = To<E>(rule(i));
    return result;
}

/// From 0.0 in index order, over the size of the left one; in single rounded after each term.
template <class E>
E Products(Dyn<E> const& a, Dyn<E> const& b)
{
    bool const backwards = Slip("from the last on"), plain = Slip("the start of the sum"),
               fused = !isSingle<E> && Slip("fused"), late = isSingle<E> && Slip("rounded at the end only"),
               products = isSingle<E> && Slip("the products are rounded");
    Dbl sum = plain ? -0.0 : 0.0;
    for (int k = 0; k < a.size; ++k) {
        int const i = backwards ? a.size - 1 - k : k;
        Dbl product = a[i] * b[i];
        if (products)
            product = To<E>(product);
        sum = fused ? Fused(a[i], b[i], sum) : sum + product;
        if (!late)
            sum = To<E>(sum);
    }
    return To<E>(sum);
}

/// The same, as a step of another rule.
template <class E>
E Sum(Dyn<E> const& a, Dyn<E> const& b)
{
    Sound const sound;
    return Products(a, b);
}

/// From 0 in index order, with an unlimited exponent range.
Wide WideSum(Dyn<Dbl> const& a, Dyn<Dbl> const& b)
{
    Wide sum(0.0);
    for (int i = 0; i < a.size; ++i)
        sum = sum + Wide(a[i]) * Wide(b[i]);
    return sum;
}

Wide WideLength(Dyn<Dbl> const& a)
{
    return Sqrt(WideSum(a, a));
}

template <class E>
E Length(Dyn<E> const& a)
{
    if constexpr (!isSingle<E>)
        return Narrow(WideLength(a));
    return To<E>(Sqrt(Sum(a, a)));
}

template <class E>
bool Null(Dyn<E> const& a)
{
    for (int i = 0; i < a.size; ++i)
        if (!(Dbl(a[i]) == 0.0))
            return false;
    return true;
}

template <class E>
Dyn<E> Normalized(Dyn<E> const& a)
{
    if (Null(a))
        throw Raised{Raise::NullVector};
    if (Slip("the null test has a tolerance") && Sum(a, a) <= ResolvedLength(E(-1)))
        throw Raised{Raise::NullVector};
    if constexpr (!isSingle<E>) {
        if (!Slip("by the reciprocal") && !Slip("in the range of a double")) {
            Wide const length = WideLength(a);
            return Each<E>(a.size, [&](int i) { return Quotient(a[i], length); });
        }
    }
    E const length = isSingle<E> ? Length(a) : To<E>(Sqrt(Sum(a, a)));
    bool const reciprocal = Slip("by the reciprocal"),
               kept = isSingle<E> && Slip("the length is not rounded");
    return Each<E>(a.size, [&](int i) {
        return reciprocal ? a[i] * To<E>(1.0 / length) : kept ? a[i] / Sqrt(Sum(a, a)) : a[i] / length;
    });
}

enum class Direction { Parallel, Codirectional, Perpendicular };

template <class E>
int DirectionOf(Direction kind, Dyn<E> const& a, Dyn<E> const& b, E const& angular, E const& length,
                bool ownLength = true)
{
    DemandSameSize(a, b);
    Dbl const limit = DirectionLimit(length);
    E const A = Sum(a, a), B = Sum(b, b);
    if (Slip("strict length test of the object") ? A < limit : A <= limit)
        return 0;
    if (ownLength && Slip("strict length test of the other") ? B < limit : B <= limit)
        return 0;
    E const d = Sum(a, b);
    if (kind == Direction::Codirectional && !(d > 0.0))
        return 0;
    Dbl q = SquaredCosine(d, A, B);
    if (!isSingle<E> || kind == Direction::Parallel) { // else the rounding to float hides the order
        if (Slip("d² is divided by A·B"))
            q = d * d / (A * B);
        if (Slip("d² is divided by B first"))
            q = d * d / B / A;
    }
    Dbl value = kind == Direction::Perpendicular ? q : 1.0 - q;
    if (kind != Direction::Perpendicular && Slip("the absolute value"))
        value = Abs(value);
    if (!isSingle<E> || !Slip("the value is not rounded before the test"))
        value = To<E>(value);
    Dbl const tolerance = ResolvedAngle(angular);
    return Slip("strict angular test") ? value < tolerance : value <= tolerance;
}

template <class E>
int UnitDirectionOf(Direction kind, Dyn<E> const& a, Dyn<E> const& b, E const& angular)
{
    DemandSameSize(a, b);
    E const d = Sum(a, b);
    if (kind == Direction::Codirectional && !(d > 0.0))
        return 0;
    Dbl value = kind == Direction::Perpendicular ? d * d : 1.0 - d * d;
    if (!isSingle<E> || !Slip("the value is not rounded before the test"))
        value = To<E>(value);
    if (kind == Direction::Perpendicular || !Slip("no absolute value"))
        value = Abs(value);
    Dbl const tolerance = ResolvedAngle(angular);
    return Slip("strict angular test") ? value < tolerance : value <= tolerance;
}

template <class E>
int EqualOf(Dyn<E> const& a, Dyn<E> const& b, E const& angular, E const& length)
{
    DemandSameSize(a, b);
    if (Null(a))
        return Null(b);
    if (Null(b))
        return Slip("a null argument equals anything");
    if (!DirectionOf(Direction::Codirectional, a, b, angular,
                     Slip("the caller's length goes on") ? length : E(-1), false))
        return 0;
    Dyn<E> const e = Each<E>(a.size, [&](int i) { return a[i] - b[i]; });
    Dbl const square = Sum(e, e), limit = ResolvedLength(length);
    return Slip("strict distance test") ? square < limit : square <= limit;
}

enum class Extreme { Max, Min, MaxAbs, MinAbs };

/// The index of the element that passes the bound and exceeds all others, or −1.
template <class E>
int ExtremeIndex(Extreme kind, Dyn<E> const& a)
{
    bool const largest = kind == Extreme::Max || kind == Extreme::MaxAbs;
    bool const magnitudes = kind == Extreme::MaxAbs || kind == Extreme::MinAbs;
    bool const last = Slip("the last of equal elements"),
               signedValues = magnitudes && Slip("without the absolute value");
    Dbl best = To<E>(Dbl(largest ? -1e20 : 1e20));
    int index = -1;
    for (int i = 0; i < a.size; ++i) {
        Dbl const value = magnitudes && !signedValues ? Magnitude(a[i]) : Dbl(a[i]);
        if ((largest ? value > best : value < best) || (last && index >= 0 && value == best)) {
            best = value;
            index = i;
        }
    }
    return index;
}

/// The sum of the products, rounded after each, over the elements that both have.
template <class T>
T RunningSum(Array<T> const& a, Array<T> const& b)
{
    T sum = T(0);
    for (int i = 0; i < a.size && i < b.size; ++i)
        sum = Rounded<T>(static_cast<double>(sum) + static_cast<double>(a[i]) * static_cast<double>(b[i]));
    return sum;
}

/// Operands and tolerances for a direction test, sometimes at its boundary.
template <class T>
auto DrawDirection(Direction kind, bool unit, bool equality)
{
    return [kind, unit, equality](Source& source) {
        auto [a, b] = DrawnArrays<T>(source);
        if (equality && (IsLong(a.size) || source.Below(2))) {
            double const depth = std::pow(10.0, -3.0 - 10.0 * source.Unit());
            b = a;
            bool const along = source.Below(2) != 0;
            double const size = std::sqrt(static_cast<double>(RunningSum(a, a)));
            int const only = IsLong(a.size) || source.OneIn(3) ? DrawnPlace(source, a.size)
                                                               : -1; // the only element that differs
            for (int i = 0; i < a.size; ++i)
                if (only < 0 || i == only)
                    b[i] = Rounded<T>(along ? static_cast<double>(a[i]) * (1.0 + depth)
                                            : static_cast<double>(a[i]) + depth * size * source.Signed());
        }
        if (unit && source.Below(4))
            for (Array<T>* v : {&a, &b}) {
                double const size = std::sqrt(static_cast<double>(RunningSum(*v, *v)));
                for (int i = 0; i < v->size; ++i)
                    (*v)[i] = Rounded<T>(static_cast<double>((*v)[i]) / size);
            }
        double const A2 = static_cast<double>(RunningSum(a, a)), B2 = static_cast<double>(RunningSum(b, b));
        double const d = static_cast<double>(RunningSum(a, b));
        double const q = unit ? d * d : d * d / A2 / B2;
        double const value = kind == Direction::Perpendicular ? q : unit ? std::fabs(1.0 - q) : 1.0 - q;
        source.SetGlobal(globalTolerance.sin2Angle, value);
        T length = T(-1);
        if (equality) {
            Array<T> e = a;
            for (int i = 0; i < a.size; ++i)
                e[i] = Rounded<T>(static_cast<double>(a[i]) - static_cast<double>(b[i]));
            double const distance = static_cast<double>(RunningSum(e, e));
            if (source.Below(2))
                source.SetGlobal(globalTolerance.lengthSquared, source.Below(2)   ? distance
                                                                : source.Below(2) ? A2
                                                                                  : B2);
            length = source.Tolerance(Rounded<T>(distance));
        } else {
            if (source.Below(2))
                source.SetGlobal(globalTolerance.lengthSquared, source.Below(2) ? A2 : B2);
            if (source.OneIn(3))
                length = source.Tolerance(Rounded<T>(source.Below(2) ? A2 : B2));
        }
        T const angular = equality && source.OneIn(3) ? T(1) : source.Tolerance(Rounded<T>(value));
        return std::tuple(a, b, angular, length);
    };
}

template <class V, class T, class E>
void EnterDynamicScaling(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    auto const one = DrawArray<T>;
    auto const scaled = DrawScaledArray<T>;
    auto const times = [](Values const& a, E const& s) {
        return Each<E>(a.size, [&](int i) { return a[i] * s; });
    };
    auto const dividedBy = [](Values const& a, E const& s) {
        bool const reciprocal = Slip("by the reciprocal");
        return Each<E>(a.size, [&](int i) { return reciprocal ? a[i] * To<E>(1.0 / s) : a[i] / s; });
    };
    Add(
        name + "::operator*=", scaled,
        [](A const& a, T s) {
            V v = Made(a);
            return V(v *= s);
        },
        times);
    Add(
        name + "::operator/=", scaled,
        [](A const& a, T s) {
            V v = Made(a);
            return V(v /= s);
        },
        dividedBy);
    Add(
        "operator*(" + name + ", scalar)", scaled, [](A const& a, T s) { return Made(a) * s; }, times);
    Add(
        "operator*(scalar, " + name + ")", scaled, [](A const& a, T s) { return s * Made(a); }, times);
    Add(
        "operator/(" + name + ", scalar)", scaled, [](A const& a, T s) { return Made(a) / s; }, dividedBy);
    Add(
        name + "::LengthSquared", one, [](A const& a) { return Made(a).LengthSquared(); },
        [](Values const& a) {
            // A sum of squares shows neither the start nor, sometimes, the rounding of a product.
            bool const backwards = Slip("from the last on"),
                       late = isSingle<E> && Slip("rounded at the end only"),
                       fused = !isSingle<E> && Slip("fused");
            Dbl sum = 0.0;
            for (int k = 0; k < a.size; ++k) {
                int const i = backwards ? a.size - 1 - k : k;
                sum = fused ? Fused(a[i], a[i], sum) : sum + a[i] * a[i];
                if (!late)
                    sum = To<E>(sum);
            }
            return To<E>(sum);
        });
}

template <class V, class T, class E>
void EnterDynamicSums(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    auto const one = DrawArray<T>;
    auto const two = DrawArrays<T>;
    auto const plus = [](Values const& a, Values const& b) {
        DemandSameSize(a, b);
        return Each<E>(a.size, [&](int i) { return a[i] + b[i]; });
    };
    auto const minus = [](Values const& a, Values const& b) {
        DemandSameSize(a, b);
        bool const turned = Slip("the other way round");
        return Each<E>(a.size, [&](int i) { return turned ? b[i] - a[i] : a[i] - b[i]; });
    };
    auto const negated = [](Values const& a) {
        bool const fromZero = Slip("from zero");
        return Each<E>(a.size, [&](int i) { return fromZero ? 0.0 - a[i] : -Dbl(a[i]); });
    };
    // An operation that may raise returns the state of its object too.
    auto const kept = [](auto rule) {
        return [rule](Values const& a, auto const&... rest) {
            Values result = a;
            Raise const raised = RaisedBy([&] { result = rule(a, rest...); });
            return std::tuple(raised, result);
        };
    };
    Add(
        name + "::operator+=", two,
        [](A const& a, A const& b) { return Kept(Made(a), [&](V& v) { v += Made(b); }); }, kept(plus));
    Add(
        name + "::operator-=", two,
        [](A const& a, A const& b) { return Kept(Made(a), [&](V& v) { v -= Made(b); }); }, kept(minus));
    Add(
        name + "::Negate", one,
        [](A const& a) {
            V v = Made(a);
            return V(v.Negate());
        },
        negated);
    Add(
        name + "::GetNegatedCopy", one, [](A const& a) { return Made(a).GetNegatedCopy(); }, negated);
    Add(
        "operator-(" + name + ")", one, [](A const& a) { return -Made(a); }, negated);
    Add(
        "operator+(" + name + ", " + name + ")", two,
        [](A const& a, A const& b) { return Made(a) + Made(b); }, plus);
    Add(
        "operator-(" + name + ", " + name + ")", two,
        [](A const& a, A const& b) { return Made(a) - Made(b); }, minus);
    Add(
        name + "::ElemMult", two, [](A const& a, A const& b) { return Made(a).ElemMult(Made(b)); },
        [](Values const& a, Values const& b) {
            DemandSameSize(a, b);
            return Each<E>(a.size, [&](int i) { return a[i] * b[i]; });
        });
    Add(
        name + "::ElemDiv", two, [](A const& a, A const& b) { return Made(a).ElemDiv(Made(b)); },
        [](Values const& a, Values const& b) {
            DemandSameSize(a, b);
            bool const reciprocal = Slip("by the reciprocal");
            return Each<E>(a.size,
                           [&](int i) { return reciprocal ? a[i] * To<E>(1.0 / b[i]) : a[i] / b[i]; });
        });
    Add(
        name + "::Normalize", one, [](A const& a) { return Kept(Made(a), [](V& v) { v.Normalize(); }); },
        kept(Normalized<E>));
}

template <class V, class T, class E>
void EnterDynamicLengths(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    auto const one = DrawArray<T>;
    auto const two = DrawArrays<T>;
    // The sizes are not compared: of a longer argument as many elements are read as this vector has.
    Add(
        name + "::Dot",
        [](Source& source) {
            auto [a, b] = DrawnArrays<T>(source);
            if (b.size < a.size)
                std::swap(a, b);
            return std::tuple(a, b);
        },
        [](A const& a, A const& b) { return Made(a).Dot(Made(b)); },
        [](Values const& a, Values const& b) {
            if (a.size != b.size && Slip("sizes are compared"))
                throw Raised{Raise::DimensionMismatch};
            return Products(a, b);
        });
    Add(
        name + "::Length", one, [](A const& a) { return Made(a).Length(); },
        [](Values const& a) {
            if (!isSingle<E> && Slip("in the range of a double"))
                return To<E>(Sqrt(Sum(a, a)));
            return Length(a);
        });
    Add(
        name + "::GetNormalizedCopy", one, [](A const& a) { return Made(a).GetNormalizedCopy(); },
        Normalized<E>);
    Add(
        name + "::GetProjectionOnTo", two,
        [](A const& a, A const& b) { return Made(a).GetProjectionOnTo(Made(b)); },
        [](Values const& a, Values const& b) {
            DemandSameSize(a, b);
            if constexpr (!isSingle<E>) {
                if (!Slip("in the range of a double") && !Slip("(a · b) / (b · b) times b")) {
                    if (Null(b))
                        throw Raised{Raise::NullVector};
                    Wide const length = WideLength(b);
                    Wide along(0.0);
                    for (int i = 0; i < a.size; ++i)
                        along = along + Wide(a[i]) * (Wide(b[i]) / length);
                    return Each<E>(a.size, [&](int i) { return Product(along, Wide(b[i]) / length); });
                }
            }
            Values const n = [&] {
                Sound const sound;
                return Normalized(b);
            }();
            E const along = Sum(a, n);
            bool const quotient = Slip("(a · b) / (b · b) times b");
            return Each<E>(a.size,
                           [&](int i) { return quotient ? Sum(a, b) / Sum(b, b) * b[i] : along * n[i]; });
        });
    Add(
        name + "::GetAngleWith", two, [](A const& a, A const& b) { return Made(a).GetAngleWith(Made(b)); },
        [](Values const& a, Values const& b) {
            DemandSameSize(a, b);
            if constexpr (!isSingle<E>) {
                if (Null(a) || Null(b))
                    return E(0);
                if (!Slip("in the range of a double")) {
                    Wide const d = WideSum(a, b), first = WideLength(a), second = WideLength(b);
                    Wide const c = Slip("divided by the product of the lengths") ? d / (first * second)
                                                                                 : d / first / second;
                    return Slip("no clamp") ? Acos(Narrow(c)) : ClampedAcos(Narrow(c));
                }
            }
            E const first = Length(a), second = Length(b);
            if (first == 0.0 || second == 0.0)
                return E(0);
            Dbl c = Sum(a, b) / first / second;
            if (isSingle<E> && Slip("divided by the product of the lengths"))
                c = Sum(a, b) / (first * second);
            if (isSingle<E> && Slip("the cosine is rounded"))
                c = To<E>(c);
            return To<E>(Slip("no clamp") ? Acos(c) : ClampedAcos(c));
        });
}

template <class V, class T, class E>
void EnterDynamicArea(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    auto const two = DrawArrays<T>;
    Add(
        name + "::GetAreaFormedByTriangleWith", two,
        [](A const& a, A const& b) { return Made(a).GetAreaFormedByTriangleWith(Made(b)); },
        [](Values const& a, Values const& b) {
            DemandSameSize(a, b);
            E const d = Sum(a, b);
            Dbl difference = Sum(a, a) * Sum(b, b) - d * d;
            if (!isSingle<E> && Slip("fused"))
                difference = Fused(Sum(a, a), Sum(b, b), -(d * d));
            if (!isSingle<E> || !Slip("the difference is not rounded"))
                difference = To<E>(difference);
            if (Slip("clamped at 0") && difference < 0.0)
                difference = 0.0;
            return To<E>(0.5 * To<E>(Sqrt(difference)));
        });
}

template <class V, class T, class E>
void EnterDynamicExtremes(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    // Extremes. An index that the rule does not set is left open.
    auto const index = [](Extreme kind) {
        return [kind](Values const& a) {
            int const found = ExtremeIndex(kind, a);
            if (found < 0)
                throw Open{};
            return found;
        };
    };
    auto const drawExtremes = [](Source& source) {
        A a(DrawnLength(source));
        Tie(source, a);
        if (IsLong(a.size) || source.OneIn(3)) {
            // One element decides: larger or smaller than all others, in magnitude or with its sign.
            T largest = T(1), smallest = T(1);
            for (int i = 0; i < a.size; ++i) {
                a[i] = source.Ordinary<T>();
                largest = std::max(largest, std::fabs(a[i]));
                smallest = std::min(smallest, std::fabs(a[i]));
            }
            T const decisive = source.Below(2) ? 2 * largest : smallest / 2;
            a[DrawnPlace(source, a.size)] = source.Below(2) ? decisive : -decisive;
        }
        if (source.OneIn(4))
            for (int i = 0; i < a.size; ++i)
                a[i] = source.Near(source.Below(2) ? static_cast<T>(1e20) : static_cast<T>(-1e20))
                       * (source.OneIn(4) ? T(1024) : T(1));
        return std::tuple(a);
    };
    Add(
        name + "::MaxValue", drawExtremes, [](A const& a) { return Made(a).MaxValue(); },
        [](Values const& a) {
            Dbl best = To<E>(Dbl(Slip("no bound") ? -HUGE_VAL : -1e20));
            bool const passed = Slip("a NaN wins");
            for (int i = 0; i < a.size; ++i)
                if (passed ? !(a[i] <= best) : a[i] > best)
                    best = a[i];
            return To<E>(best);
        });
    Add(
        name + "::MinValue", drawExtremes, [](A const& a) { return Made(a).MinValue(); },
        [](Values const& a) {
            Dbl best = To<E>(Dbl(Slip("no bound") ? HUGE_VAL : 1e20));
            bool const passed = Slip("a NaN wins");
            for (int i = 0; i < a.size; ++i)
                if (passed ? !(a[i] >= best) : a[i] < best)
                    best = a[i];
            return To<E>(best);
        });
    Add(
        name + "::MaxAbsValue", drawExtremes, [](A const& a) { return Made(a).MaxAbsValue(); },
        [](Values const& a) {
            Dbl best = To<E>(Dbl(-1e20));
            bool const plain = Slip("a zero counts as +0");
            for (int i = 0; i < a.size; ++i) {
                Dbl const size = plain ? Abs(a[i]) : Magnitude(a[i]);
                if (size > best)
                    best = size;
            }
            return To<E>(best);
        });
    Add(
        name + "::MinAbsValue", drawExtremes, [](A const& a) { return Made(a).MinAbsValue(); },
        [](Values const& a) {
            Dbl best = To<E>(Dbl(Slip("no bound") ? HUGE_VAL : 1e20));
            bool const plain = Slip("a zero counts as +0");
            for (int i = 0; i < a.size; ++i) {
                Dbl const size = plain ? Abs(a[i]) : Magnitude(a[i]);
                if (size < best)
                    best = size;
            }
            return To<E>(best);
        });
    Add(
        name + "::MaxValueIdx", drawExtremes, [](A const& a) { return Made(a).MaxValueIdx(); },
        index(Extreme::Max));
    Add(
        name + "::MinValueIdx", drawExtremes, [](A const& a) { return Made(a).MinValueIdx(); },
        index(Extreme::Min));
    Add(
        name + "::MaxAbsValueIdx", drawExtremes, [](A const& a) { return Made(a).MaxAbsValueIdx(); },
        index(Extreme::MaxAbs));
    Add(
        name + "::MinAbsValueIdx", drawExtremes, [](A const& a) { return Made(a).MinAbsValueIdx(); },
        index(Extreme::MinAbs));
}

template <class V, class T, class E>
void EnterDynamicTests(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    // Tests.
    auto const drawEqual = [](Source& source) {
        auto [a, b] = DrawnArrays<T>(source);
        if (IsLong(a.size) || source.Below(2)) {
            b = a;
            if (IsLong(a.size) ? !source.OneIn(8) : source.Below(2) != 0)
                b[DrawnPlace(source, a.size)] = source.Number<T>();
        }
        return std::tuple(a, b);
    };
    Add(
        name + "::operator==, !=", drawEqual,
        [](A const& a, A const& b) { return std::tuple(Made(a) == Made(b), Made(a) != Made(b)); },
        [](Values const& a, Values const& b) {
            if (a.size != b.size && Slip("sizes must fit"))
                throw Raised{Raise::DimensionMismatch};
            int equal = a.size == b.size;
            bool const passed = Slip("a NaN equals anything");
            for (int i = 0; i < a.size && equal; ++i)
                if (passed ? a[i] < b[i] || a[i] > b[i] : !(Dbl(a[i]) == Dbl(b[i])))
                    equal = 0;
            return std::tuple(equal, 1 - equal);
        });
    Add(
        name + "::IsNull",
        [](Source& source) {
            A a(DrawnLength(source));
            bool const oneAlone = IsLong(a.size) || source.Below(2); // else a long vector is hardly ever null
            for (int i = 0; i < a.size; ++i)
                a[i] = oneAlone || source.Below(6) ? (source.Below(2) ? T(0) : -T(0)) : source.Special<T>();
            if (oneAlone && source.Below(2))
                a[DrawnPlace(source, a.size)] = source.Special<T>();
            return std::tuple(a);
        },
        [](A const& a) { return Made(a).IsNull(); },
        [](Values const& a) {
            return int(Slip("under the global tolerance") ? Sum(a, a) <= ResolvedLength(E(-1)) : Null(a));
        });
    Add(
        name + "::IsZeroLength",
        [](Source& source) {
            A a = DrawnArray<T>(source);
            T const small = source.OneIn(3) ? static_cast<T>(std::ldexp(1.0, -15 - source.Below(5))) : T(1);
            for (int i = 0; i < a.size; ++i)
                a[i] *= small;
            T const sum = RunningSum(a, a);
            source.SetGlobal(globalTolerance.lengthSquared, static_cast<double>(sum));
            return std::tuple(a, source.Tolerance(sum));
        },
        [](A const& a, T l) { return Made(a).IsZeroLength(l); },
        [](Values const& a, E const& l) {
            if (Slip("a plain length"))
                return int(Sum(a, a) <= ResolvedLength(l) * ResolvedLength(l));
            if (Slip("−0 selects the global") && l == 0.0)
                return int(Sum(a, a) <= ResolvedLength(E(-1)));
            return int(Slip("strict") ? Sum(a, a) < ResolvedLength(l) : Sum(a, a) <= ResolvedLength(l));
        });
    auto const general = [](Direction kind) {
        return [kind](Values const& a, Values const& b, E const& s, E const& l) {
            return DirectionOf(kind, a, b, s, l);
        };
    };
    Add(
        name + "::IsParallelTo", DrawDirection<T>(Direction::Parallel, false, false),
        [](A const& a, A const& b, T s, T l) { return Made(a).IsParallelTo(Made(b), s, l); },
        general(Direction::Parallel));
    Add(
        name + "::IsCodirectionalTo", DrawDirection<T>(Direction::Codirectional, false, false),
        [](A const& a, A const& b, T s, T l) { return Made(a).IsCodirectionalTo(Made(b), s, l); },
        general(Direction::Codirectional));
    Add(
        name + "::IsPerpendicularTo", DrawDirection<T>(Direction::Perpendicular, false, false),
        [](A const& a, A const& b, T s, T l) { return Made(a).IsPerpendicularTo(Made(b), s, l); },
        general(Direction::Perpendicular));
}

template <class V, class T, class E>
void EnterDynamicUnitTests(std::string const& name)
{
    using A = Array<T>;
    using Values = Dyn<E>;
    auto const unit = [](Direction kind) {
        return [kind](Values const& a, Values const& b, E const& s, E const&) {
            return UnitDirectionOf(kind, a, b, s);
        };
    };
    Add(
        name + "::IsUnitParallelTo", DrawDirection<T>(Direction::Parallel, true, false),
        [](A const& a, A const& b, T s, T) { return Made(a).IsUnitParallelTo(Made(b), s); },
        unit(Direction::Parallel));
    Add(
        name + "::IsUnitCodirectionalTo", DrawDirection<T>(Direction::Codirectional, true, false),
        [](A const& a, A const& b, T s, T) { return Made(a).IsUnitCodirectionalTo(Made(b), s); },
        unit(Direction::Codirectional));
    Add(
        name + "::IsUnitPerpendicularTo", DrawDirection<T>(Direction::Perpendicular, true, false),
        [](A const& a, A const& b, T s, T) { return Made(a).IsUnitPerpendicularTo(Made(b), s); },
        unit(Direction::Perpendicular));
    Add(
        name + "::IsEqualTo", DrawDirection<T>(Direction::Codirectional, false, true),
        [](A const& a, A const& b, T s, T l) { return Made(a).IsEqualTo(Made(b), s, l); }, EqualOf<E>);
}

template <class V, class T, class E>
void EnterDynamicVector(std::string const& name)
{
    EnterDynamicScaling<V, T, E>(name);
    EnterDynamicSums<V, T, E>(name);
    EnterDynamicLengths<V, T, E>(name);
    EnterDynamicArea<V, T, E>(name);
    EnterDynamicExtremes<V, T, E>(name);
    EnterDynamicTests<V, T, E>(name);
    EnterDynamicUnitTests<V, T, E>(name);
}

} // namespace

void EnterDynamicVectors()
{
    EnterDynamicVector<VecDbl, double, Dbl>("VecDbl");
    EnterDynamicVector<VecFlt, float, Flt>("VecFlt");
    Add(
        "VecDbl::Sum", DrawArray<double>, [](Array<double> const& a) { return Made(a).Sum(); },
        [](Dyn<Dbl> const& a) {
            bool const backwards = Slip("from the last on");
            Dbl sum = Slip("the start of the sum") ? -0.0 : 0.0;
            for (int k = 0; k < a.size; ++k)
                sum = sum + a[backwards ? a.size - 1 - k : k];
            return sum;
        });
    Add(
        "VecDbl(Vec3Dbl)", DrawOne<Vec3Dbl>, [](Vec3Dbl const& v) { return VecDbl(v); },
        [](V3 const& v) { return Each<Dbl>(3, [&](int i) { return v[i]; }); });
    Add(
        "Vec3Dbl(VecDbl)", DrawArray<double>, [](Array<double> const& a) { return Vec3Dbl(Made(a)); },
        [](Dyn<Dbl> const& a) {
            V3 v;
            for (int i = 0; i < 3 && i < a.size; ++i)
                v[i] = a[i];
            return v;
        });
    auto const widened = [](Dyn<Flt> const& a) {
        return Each<Dbl>(a.size, [&](int i) { return Dbl(a[i]); });
    };
    Add(
        "VecDbl(VecFlt)", DrawArray<float>, [](Array<float> const& a) { return VecDbl(Made(a)); }, widened);
    Add(
        "VecDbl::operator=(VecFlt)", DrawArray<float>,
        [](Array<float> const& a) {
            VecDbl v(2, nullptr);
            v = Made(a);
            return v;
        },
        widened);
    Add(
        "VecFlt::operator=(VecDbl)",
        [](Source& source) {
            Array<double> a = DrawnArray<double>(source);
            for (int i = 0; i < a.size; ++i)
                if (source.Below(2)) {
                    float const near = source.Number<float>();
                    a[i] = source.Near(static_cast<double>(near) + static_cast<double>(HalfUnit(near)));
                } else if (source.OneIn(4)) {
                    a[i] = std::ldexp(0.5 * source.Below(64), -150);
                }
            return std::tuple(a);
        },
        [](Array<double> const& a) {
            VecFlt v(2, nullptr);
            v = Made(a);
            return v;
        },
        [](Dyn<Dbl> const& a) {
            bool const flushed = Slip("denormals are lost");
            return Each<Flt>(a.size,
                             [&](int i) { return flushed && Abs(a[i]) < 0x1p-126 ? Dbl(0.0) : a[i]; });
        });
}

} // namespace oracle
