#include "oracle/Large.h"
#include "oracle/Registry.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

int Wrapped32(std::int64_t value)
{
    return static_cast<int>(static_cast<std::uint32_t>(static_cast<std::uint64_t>(value)));
}

std::int64_t DrawnWide(Source& source)
{
    switch (source.Below(6)) {
    case 0:
        return static_cast<std::int64_t>(source.Next());
    case 1:
        return source.Below(7) - 3;
    case 2:
        return Wrapped(Large(1) << source.Below(64)) + (source.Below(3) - 1);
    case 3:
        return Wrapped(static_cast<Large>(source.Next() >> source.Below(64)) * (source.Below(2) ? 1 : -1));
    case 4: {
        // At and around the midpoint of two floats, or of two doubles.
        int const shift = 1 + source.Below(39);
        std::int64_t const top = (std::int64_t{1} << 23) | static_cast<std::int64_t>(source.Next() >> 41);
        std::int64_t const value = (top << shift) + (std::int64_t{1} << (shift - 1)) + (source.Below(5) - 2);
        return source.Below(2) ? value : -value;
    }
    default: {
        int const shift = 1 + source.Below(10);
        std::int64_t const top = (std::int64_t{1} << 52) | static_cast<std::int64_t>(source.Next() >> 12);
        std::int64_t const value = (top << shift) + (std::int64_t{1} << (shift - 1)) + (source.Below(3) - 1);
        return source.Below(2) ? value : -value;
    }
    }
}

int DrawnInt(Source& source)
{
    switch (source.Below(4)) {
    case 0:
        return static_cast<int>(source.Next());
    case 1:
        return source.Below(2) ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    case 2:
        return Wrapped32((std::int64_t{1} << source.Below(32)) + (source.Below(3) - 1));
    default:
        return source.Below(9) - 4;
    }
}

auto DrawWide(Source& source)
{
    return std::tuple(DrawnWide(source));
}

auto DrawWides(Source& source)
{
    std::int64_t const a = DrawnWide(source);
    std::int64_t const b = source.OneIn(3) ? Wrapped(Large(a) + (source.Below(3) - 1)) : DrawnWide(source);
    return std::tuple(a, b);
}

auto DrawWideAndInt(Source& source)
{
    std::int64_t const a = DrawnWide(source);
    return std::tuple(a, DrawnInt(source));
}

std::int64_t Value(UInt64 const& value)
{
    // By the fields.
    return Wrapped((static_cast<Large>(value.highWord) << 32) + value.lowWord);
}

template <class Change>
auto Changed(std::int64_t value, Change change)
{
    UInt64 number(value);
    UInt64 const result = change(number);
    return std::tuple(Value(number), Value(result));
}

/// Rounded once to this many bits.
double Nearest(std::int64_t value, int bits)
{
    mpfr_t number;
    mpfr_init2(number, bits);
    // In two exact halves: an integer of 64 bits may not fit the widest type that MPFR takes.
    mpfr_t whole;
    mpfr_init2(whole, 80);
    mpfr_set_si_2exp(whole, static_cast<long>(value >> 32), 32, MPFR_RNDN);
    mpfr_add_ui(whole, whole, static_cast<unsigned long>(value & 0xffffffff), MPFR_RNDN);
    mpfr_set(number, whole, MPFR_RNDN);
    double const result = mpfr_get_d(number, MPFR_RNDN);
    mpfr_clear(whole);
    mpfr_clear(number);
    return result;
}

void EnterUInt64Values()
{
    using I = std::int64_t;
    Add(
        "UInt64(int64), operator=, int64", DrawWides,
        [](I a, I b) {
            UInt64 const number(a);
            UInt64 other;
            I const zero = other.int64();
            other = b;
            return std::tuple(static_cast<I>(number.lowWord), static_cast<I>(number.highWord), Value(other),
                              zero, static_cast<I>(number.int64()),
                              static_cast<I>(static_cast<decltype(other.int64())>(other)));
        },
        [](I a, I b) {
            Large const bits = static_cast<Large>(a) & ((Large(1) << 64) - 1);
            I const low = static_cast<I>(bits % (Large(1) << 32)),
                    high = static_cast<I>(bits / (Large(1) << 32));
            return Slip("the words in the other order") ? std::tuple(high, low, b, I(0), a, b)
                                                        : std::tuple(low, high, b, I(0), a, b);
        });
    Add(
        "UInt64::operator==, !=, >=, <=", DrawWides,
        [](I a, I b) {
            UInt64 first(a), second(b);
            return std::tuple(first == second, first != second, first >= second, first <= second);
        },
        [](I a, I b) {
            if (Slip("unsigned"))
                return std::tuple(a == b, a != b,
                                  static_cast<std::uint64_t>(a) >= static_cast<std::uint64_t>(b),
                                  static_cast<std::uint64_t>(a) <= static_cast<std::uint64_t>(b));
            if (Slip("strict"))
                return std::tuple(a == b, a != b, a > b, a < b);
            if (Slip("the low words alone"))
                return std::tuple((a ^ b) % (I(1) << 32) == 0, (a ^ b) % (I(1) << 32) != 0, a >= b, a <= b);
            return std::tuple(a == b, a != b, a >= b, a <= b);
        });
    Add(
        "UInt64::operator+", DrawWides, [](I a, I b) { return Value(UInt64(a) + UInt64(b)); },
        [](I a, I b) {
            return Slip("no carry") ? Wrapped(((Large(a) >> 32) + (Large(b) >> 32)) * (Large(1) << 32)
                                              + static_cast<std::uint32_t>(static_cast<std::uint64_t>(a)
                                                                           + static_cast<std::uint64_t>(b)))
                                    : Wrapped(Large(a) + Large(b));
        });
    Add(
        "UInt64::operator-", DrawWides, [](I a, I b) { return Value(UInt64(a) - UInt64(b)); },
        [](I a, I b) {
            return Slip("the other way round") ? Wrapped(Large(b) - Large(a)) : Wrapped(Large(a) - Large(b));
        });
    Add(
        "UInt64::operator*", DrawWides, [](I a, I b) { return Value(UInt64(a) * UInt64(b)); },
        [](I a, I b) {
            return Slip("of the low words")
                       ? Wrapped(Large(static_cast<std::uint32_t>(a)) * static_cast<std::uint32_t>(b))
                       : Wrapped(Large(a) * Large(b));
        });
}

void EnterUInt64Changes()
{
    using I = std::int64_t;
    Add(
        "UInt64::operator/",
        [](Source& source) {
            auto [a, b] = DrawWides(source);
            if (b == 0 || (b == -1 && a == std::numeric_limits<I>::min()))
                b = 7;
            if (source.Below(2))
                b = b > 0 ? 1 + b % 1000 : -1 - (b == std::numeric_limits<I>::min() ? 5 : (-b) % 1000);
            if (b == -1 && a == std::numeric_limits<I>::min())
                b = -2;
            return std::tuple(a, b);
        },
        [](I a, I b) { return Value(UInt64(a) / UInt64(b)); },
        [](I a, I b) {
            if (Slip("unsigned"))
                return static_cast<I>(static_cast<std::uint64_t>(a) / static_cast<std::uint64_t>(b));
            Large const quotient = (a < 0 ? -Large(a) : Large(a)) / (b < 0 ? -Large(b) : Large(b));
            bool const negative = (a < 0) != (b < 0);
            if (Slip("downwards") && negative
                && quotient * (b < 0 ? -Large(b) : Large(b)) != (a < 0 ? -Large(a) : Large(a)))
                return Wrapped(-quotient - 1);
            return Wrapped(negative ? -quotient : quotient);
        });
    Add(
        "UInt64::operator*=", DrawWides,
        [](I a, I b) { return Changed(a, [&](UInt64& n) { return n *= UInt64(b); }); },
        [](I a, I b) {
            I const value = Slip("multiplies") ? Wrapped(Large(a) * Large(b)) : a;
            return std::tuple(value, value);
        });
    Add(
        "UInt64::operator+=", DrawWideAndInt,
        [](I a, int b) { return Changed(a, [&](UInt64& n) { return n += b; }); },
        [](I a, int b) {
            I const value =
                Wrapped(Large(a) + (Slip("not sign-extended") ? Large(static_cast<unsigned>(b)) : Large(b)));
            return std::tuple(value, Slip("returns the old value") ? a : value);
        });
    Add(
        "UInt64::operator-=", DrawWideAndInt,
        [](I a, int b) { return Changed(a, [&](UInt64& n) { return n -= b; }); },
        [](I a, int b) {
            I const value =
                Wrapped(Large(a) - (Slip("not sign-extended") ? Large(static_cast<unsigned>(b)) : Large(b)));
            return std::tuple(value, value);
        });
    Add(
        "UInt64::operator++, --", DrawWide,
        [](I a) {
            return std::tuple(
                Changed(a, [](UInt64& n) { return ++n; }), Changed(a, [](UInt64& n) { return n++; }),
                Changed(a, [](UInt64& n) { return --n; }), Changed(a, [](UInt64& n) { return n--; }));
        },
        [](I a) {
            I const up = Wrapped(Large(a) + 1), down = Wrapped(Large(a) - 1);
            bool const turned = Slip("the new value from the postfix form");
            return std::tuple(up, up, up, turned ? up : a, down, down, down, turned ? down : a);
        });
    Add(
        "UInt64::operator int, float, double", DrawWide,
        [](I a) {
            UInt64 const number(a);
            return std::tuple(static_cast<int>(number), static_cast<float>(number),
                              static_cast<double>(number));
        },
        [](I a) {
            float const single = Slip("a float by way of a double") ? static_cast<float>(Nearest(a, 53))
                                                                    : static_cast<float>(Nearest(a, 24));
            double const wide = Slip("a double by way of a float") ? Nearest(a, 24) : Nearest(a, 53);
            if (Slip("unsigned") && a < 0)
                return std::tuple(Wrapped32(a), single + 0x1p64f, wide + 0x1p64);
            return std::tuple(Wrapped32(a), single, wide);
        });
}

void EnterUInt64()
{
    EnterUInt64Values();
    EnterUInt64Changes();
}

// ---- The integer vector of the plane -------------------------------------------------------------------

using Pair = IntPair;

Vec2Int DrawnPair(Source& source)
{
    int const x = DrawnInt(source);
    int const y = source.Below(3) ? DrawnInt(source) : source.Below(2) ? x : Wrapped32(-std::int64_t{x});
    return Vec2Int(x, y);
}

auto DrawIntVector(Source& source)
{
    return std::tuple(DrawnPair(source));
}

auto DrawIntVectors(Source& source)
{
    Vec2Int const a = DrawnPair(source);
    Vec2Int b = DrawnPair(source);
    if (source.Below(2))
        b.x = a.x;
    if (source.Below(2))
        b.y = a.y;
    return std::tuple(a, b);
}

auto DrawIntScaled(Source& source)
{
    Vec2Int const a = DrawnPair(source);
    return std::tuple(a, DrawnInt(source));
}

/// The magnitude wraps: that of the most negative number is the number itself.
std::int64_t Size(std::int64_t value)
{
    return value < 0 ? Wrapped32(-value) : value;
}

void EnterVec2IntArithmetic()
{
    using V = Vec2Int;
    auto const times = [](Pair const& a, int s) { return Pair{a.x * s, a.y * s}; };
    auto const plus = [](Pair const& a, Pair const& b) { return Pair{a.x + b.x, a.y + b.y}; };
    auto const minus = [](Pair const& a, Pair const& b) { return Pair{a.x - b.x, a.y - b.y}; };
    auto const negated = [](Pair const& a) { return Pair{-a.x, -a.y}; };
    auto const one = DrawIntVector;
    auto const two = DrawIntVectors;
    Add(
        "Vec2Int::operator*=", DrawIntScaled, [](V a, int s) { return V(a *= s); }, times);
    Add(
        "Vec2Int::operator+=", two, [](V a, V const& b) { return V(a += b); }, plus);
    Add(
        "Vec2Int::operator-=", two, [](V a, V const& b) { return V(a -= b); }, minus);
    Add(
        "Vec2Int::Negate", one, [](V a) { return V(a.Negate()); }, negated);
    Add(
        "Vec2Int::GetNegatedCopy", one, [](V const& a) { return a.GetNegatedCopy(); }, negated);
    Add(
        "operator*(Vec2Int, int)", DrawIntScaled, [](V const& a, int s) { return a * s; }, times);
    Add(
        "operator*(int, Vec2Int)", DrawIntScaled, [](V const& a, int s) { return s * a; }, times);
    Add(
        "operator-(Vec2Int)", one, [](V const& a) { return -a; }, negated);
    Add(
        "operator+(Vec2Int, Vec2Int)", two, [](V const& a, V const& b) { return a + b; }, plus);
    Add(
        "operator-(Vec2Int, Vec2Int)", two, [](V const& a, V const& b) { return a - b; }, minus);
    Add(
        "Vec2Int::ElemMult", two, [](V const& a, V const& b) { return a.ElemMult(b); },
        [](Pair const& a, Pair const& b) {
            return Pair{a.x * b.x, a.y * b.y};
        });
    Add(
        "Vec2Int::Dot", two, [](V const& a, V const& b) { return a.Dot(b); },
        [](Pair const& a, Pair const& b) {
            return Wrapped32(Slip("the cross product") ? Wrapped(Large(a.x) * b.y - Large(a.y) * b.x)
                                                       : Wrapped(Large(a.x) * b.x + Large(a.y) * b.y));
        });
    Add(
        "Vec2Int::Length", one, [](V const& a) { return a.Length(); },
        [](Pair const& a) {
            if (Slip("Euclidean"))
                return static_cast<int>(std::sqrt(double(a.x) * double(a.x) + double(a.y) * double(a.y)));
            return Wrapped32(Size(a.x) + Size(a.y));
        });
    Add(
        "Vec2Int::IsNull, IsZeroLength", one,
        [](V const& a) { return std::tuple(a.IsNull(), a.IsZeroLength()); },
        [](Pair const& a) {
            int const null = Slip("x decides") ? a.x == 0 : a.x == 0 && a.y == 0;
            return std::tuple(null, null);
        });
    Add(
        "Vec2Int::operator==, !=, IsEqualTo", two,
        [](V const& a, V const& b) { return std::tuple(a == b, a != b, a.IsEqualTo(b)); },
        [](Pair const& a, Pair const& b) {
            int const equal = Slip("either field") ? a.x == b.x || a.y == b.y : a.x == b.x && a.y == b.y;
            return std::tuple(equal, 1 - equal, equal);
        });
    Add(
        "Vec2Int::IsLessThan, IsGreaterThan", two,
        [](V const& a, V const& b) { return std::tuple(a.IsLessThan(b), a.IsGreaterThan(b)); },
        [](Pair const& a, Pair const& b) {
            if (Slip("strict"))
                return std::tuple(int(a.x < b.x && a.y < b.y), int(a.x > b.x && a.y > b.y));
            return std::tuple(int(a.x <= b.x && a.y <= b.y), int(a.x >= b.x && a.y >= b.y));
        });
}

void EnterVec2IntExtremes()
{
    using V = Vec2Int;
    auto const one = DrawIntVector;
    Add(
        "Vec2Int extremes", one,
        [](V const& a) {
            return std::tuple(a.MaxValue(), a.MinValue(), a.MaxAbsValue(), a.MinAbsValue(), a.MaxValueIdx(),
                              a.MinValueIdx(), a.MaxAbsValueIdx(), a.MinAbsValueIdx());
        },
        [](Pair const& a) {
            bool const unwrapped = Slip("the magnitudes are compared before they wrap");
            std::int64_t const x = unwrapped && a.x < 0 ? -a.x : Size(a.x),
                               y = unwrapped && a.y < 0 ? -a.y : Size(a.y);
            bool const first = Slip("a tie goes to x");
            return std::tuple(int(a.x > a.y ? a.x : a.y), int(a.x < a.y ? a.x : a.y),
                              Wrapped32(x > y ? x : y), Wrapped32(x < y ? x : y),
                              int(first ? a.x < a.y : a.x <= a.y), int(first ? a.x > a.y : a.x >= a.y),
                              int(first ? x < y : x <= y), int(first ? x > y : x >= y));
        });
}

void EnterVec2Int()
{
    EnterVec2IntArithmetic();
    EnterVec2IntExtremes();
}

} // namespace

void EnterIntegers()
{
    EnterUInt64();
    EnterVec2Int();
}

} // namespace oracle
