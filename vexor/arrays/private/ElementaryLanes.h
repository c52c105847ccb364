#pragma once
#include <vexor/arrays/private/Lanes.h>
#include <vexor/elementary/private/Tables.h>

#include <cstdint>

// Arc cosine, sine and cosine of lanes. This is the fast step of vexor/elementary with a fused multiply-add: its
// tables and series, with sums of more operations and without branches. docs/elementary.md derives its error bounds
// and names what differs here. The result is the double nearest
// to the true value. That double is unique, so it does not matter that other code computes it for one number.
// The functions return the lanes whose rounding the bound decides. The others need the scalar function.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

#if defined(VEXOR_SET_FUSED)

/// The unevaluated sum of two registers.
struct Sum {
    Doubles high, low;
};

/// The exact sum of a number that is 0, not less in magnitude or a multiple of the other's last place, and of
/// that other.
VEXOR_ALWAYS_INLINE Sum AddSmaller(Doubles const& larger, Doubles const& smaller)
{
    Doubles const high = larger + smaller;
    return {high, smaller - (high - larger)};
}

VEXOR_ALWAYS_INLINE Sum MultiplyExactly(Doubles const& a, Doubles const& b)
{
    Doubles const product = a * b;
    return {product, MultiplyAdd(a, b, -product)};
}

/// The lanes in which all numbers within `error` of the sum have the same nearest double, which `result` receives.
VEXOR_ALWAYS_INLINE Mask IsDecided(Sum const& value, Doubles const& error, Doubles& result)
{
    result = value.high + (value.low + error);
    return Equal(result, value.high + (value.low - error));
}

/// The sum with this constant rounds a small number to a whole one, which then stands in the last bits.
constexpr double wholePlaces = 0x1.8p+52;

/// Four doubles for each lane, from one row of a table for each.
VEXOR_ALWAYS_INLINE Lanes<4> LoadFours(double const* const (&rows)[width], int offset)
{
    Doubles r[4];
#    if defined(VEXOR_SET_AVX512)
    VEXOR_UNROLL(24)
    for (int k = 0; k < 4; ++k) {
        __m512d const first = _mm512_maskz_broadcast_f64x4(0x0f, _mm256_loadu_pd(rows[2 * k] + offset));
        r[k] = _mm512_mask_broadcast_f64x4(first, 0xf0, _mm256_loadu_pd(rows[2 * k + 1] + offset));
    }
#    else
    VEXOR_UNROLL(24)
    for (int k = 0; k < 4; ++k)
        r[k] = Load<Doubles>(rows[k] + offset);
#    endif
    return Split(r);
}

/// The whole numbers k of the sums k + `wholePlaces`. Nothing bounds them: the callers' comments say why they stay
/// within the tables.
VEXOR_ALWAYS_INLINE void StoreIndices(std::uint64_t (&indices)[width], Doubles const& shifted)
{
    typedef long long Integers __attribute__((vector_size(sizeof(Doubles))));
    Store(indices, reinterpret_cast<Integers>(shifted) - reinterpret_cast<Integers>(All(wholePlaces)));
}

/// The arc cosines of numbers in (−1, 1). Up to 1/2 in magnitude they are π/2 less the arc sine, beyond that
/// √(2t)·f(t) with t = 1 − |x|, and π less that for the negative numbers. Both kinds of lanes take one course: the
/// first with 1 for the root.
///
/// Of a number outside (−1, 1) or a NaN the index is beyond the tables. Within, magnitude · 128 is at most 64 for the
/// first kind and t · 64 below 32 for the second, and so are the whole numbers nearest to them.
VEXOR_ALWAYS_INLINE Mask ArcCosine(Doubles const& x, Doubles& result)
{
    namespace tables = vexor::detail::elementary;
    static_assert(sizeof(tables::Expansion) == 11 * sizeof(double), "the offsets below");
    Doubles const magnitude = Magnitude(x);
    Doubles const t = All(1.0) - magnitude;
    Mask const isBelowHalf = LessOrEqual(magnitude, All(0.5));
    Mask const isNegative = Less(x, Doubles{});

    // The nearest point of the expansion, of ties the even one. So the distance from it is exact.
    Doubles const place = Select(isBelowHalf, magnitude, t);
    Doubles const shifted = MultiplyAdd(place, Select(isBelowHalf, All(128.0), All(64.0)), All(wholePlaces));
    Doubles const d =
        MultiplyAdd(-(shifted - All(wholePlaces)), Select(isBelowHalf, All(0x1p-7), All(0x1p-6)), place);
    std::uint64_t indices[width];
    StoreIndices(indices, shifted);
    double const* rows[width];
    unsigned const below = Bits(isBelowHalf);
    VEXOR_UNROLL(24)
    for (int lane = 0; lane < width; ++lane) {
        tables::Expansion const* const table =
            (below >> lane & 1U) != 0 ? tables::arcSineTable : tables::arcCosineQuotientTable;
        rows[lane] = &table[indices[lane]].aHigh;
    }
    Lanes<4> const line = LoadFours(rows, 0);   // a and b in two parts each
    Lanes<4> const middle = LoadFours(rows, 4); // c2 to c5
    Lanes<4> const last = LoadFours(rows, 7);   // c5 to c8

    Doubles const square = d * d;
    Doubles const lower = MultiplyAdd(square, MultiplyAdd(d, middle.c[3], middle.c[2]),
                                      MultiplyAdd(d, middle.c[1], middle.c[0]));
    Doubles const upper = MultiplyAdd(square, last.c[3], MultiplyAdd(d, last.c[2], last.c[1]));
    Doubles const tail = MultiplyAdd(square * square, upper, lower);
    Sum const linear = MultiplyExactly(line.c[2], d);
    Sum const sum = AddSmaller(line.c[0], linear.high);
    Doubles const small = MultiplyAdd(line.c[3], d, linear.low + line.c[1]);
    Sum const factor = {sum.high, sum.low + MultiplyAdd(square, tail, small)};

    Doubles const doubled = t + t;
    Doubles const plainRoot = Root(doubled);
    Sum const squared = MultiplyExactly(plainRoot, plainRoot);
    Doubles const correction = ((doubled - squared.high) - squared.low) / (plainRoot + plainRoot);
    Doubles const root = Select(isBelowHalf, All(1.0), plainRoot);
    Doubles const rest = Select(isBelowHalf, Doubles{}, correction);
    Sum const product = MultiplyExactly(root, factor.high);
    Doubles const low = MultiplyAdd(root, factor.low, MultiplyAdd(rest, factor.high, product.low));

    Doubles const sign =
        Select(isBelowHalf, Select(isNegative, All(1.0), All(-1.0)), Select(isNegative, All(-1.0), All(1.0)));
    Doubles const originHigh = Select(isBelowHalf, All(0x1.921fb54442d18p+0),
                                      Select(isNegative, All(0x1.921fb54442d18p+1), Doubles{}));
    Doubles const originLow = Select(isBelowHalf, All(0x1.1a62633145c07p-54),
                                     Select(isNegative, All(0x1.1a62633145c07p-53), Doubles{}));
    Sum const angle = AddSmaller(originHigh, sign * product.high);
    Doubles const error = Select(Or(isBelowHalf, isNegative), All(0x1.4p-67), product.high * All(0x1p-67));
    return IsDecided({angle.high, angle.low + MultiplyAdd(sign, low, originLow)}, error, result);
}

/// Of the sum of an angle's multiple of π/256 and its rest: sine + cosine · rest and the terms of higher order.
VEXOR_ALWAYS_INLINE Mask SineOfSum(Sum const& sine, Sum const& cosine, Sum const& rest, Doubles const& odd,
                                   Doubles const& even, Doubles const& reduction, Doubles& result)
{
    Sum const product = MultiplyExactly(cosine.high, rest.high);
    Sum const sum = AddSmaller(sine.high, product.high);
    Doubles const small = MultiplyAdd(cosine.low, rest.high, product.low + sine.low);
    Doubles const s = sine.high + sine.low;
    Doubles const c = cosine.high + cosine.low;
    Doubles const low = MultiplyAdd(s, even, MultiplyAdd(c, odd + rest.low, small));
    Doubles const error = MultiplyAdd(Magnitude(s), All(0x1.28p-66), reduction);
    return IsDecided({sum.high, sum.low + low}, error, result);
}

/// The sines and cosines of angles from 0 to π/2, the nearest multiples of π/256 to which are 0 to 128. Of a greater
/// angle or a NaN the index is beyond the table.
VEXOR_ALWAYS_INLINE Mask SineAndCosine(Doubles const& x, Doubles& sine, Doubles& cosine)
{
    namespace tables = vexor::detail::elementary;
    static_assert(sizeof(tables::SineEntry) == 4 * sizeof(double), "one load takes an entry");
    Doubles const shifted = MultiplyAdd(x, All(0x1.45f306dc9c883p+6), All(wholePlaces));
    Doubles const count = shifted - All(wholePlaces);
    Doubles const reduced = MultiplyAdd(-count, All(0x1.921fb54442d18p-7), x);
    Sum const middle = MultiplyExactly(count, All(0x1.1a62633145c07p-61));
    Sum const rough = AddSmaller(reduced, -middle.high);
    Sum const rest = {rough.high, rough.low - MultiplyAdd(count, All(-0x1.f1976b7ed8fbcp-117), middle.low)};

    std::uint64_t indices[width];
    StoreIndices(indices, shifted);
    double const* rows[width];
    VEXOR_UNROLL(24)
    for (int lane = 0; lane < width; ++lane)
        rows[lane] = &tables::sineTable[indices[lane]].sine;
    Lanes<4> const entry = LoadFours(rows, 0);

    Doubles const r = rest.high;
    Doubles const square = r * r;
    Doubles const odd =
        r * square
        * MultiplyAdd(square, MultiplyAdd(square, All(-0x1.a01a01a01a01ap-13), All(0x1.1111111111111p-7)),
                      All(-0x1.5555555555555p-3));
    Doubles const even = MultiplyAdd(
        square,
        MultiplyAdd(square, MultiplyAdd(square, All(-0x1.6c16c16c16c17p-10), All(0x1.5555555555555p-5)),
                    All(-0.5)),
        -(r * rest.low));
    Doubles const reduction = MultiplyAdd(Magnitude(r), All(0x1.4p-67), count * All(0x1p-120));
    Sum const s = {entry.c[0], entry.c[1]};
    Sum const c = {entry.c[2], entry.c[3]};
    Mask const isSineDecided = SineOfSum(s, c, rest, odd, even, reduction, sine);
    // cos x = sin(x + π/2)
    return And(isSineDecided, SineOfSum(c, {-s.high, -s.low}, rest, odd, even, reduction, cosine));
}

#endif

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
