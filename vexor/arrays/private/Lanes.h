#pragma once
#include <vexor/arrays/private/KernelSet.h>
#include <vexor/foundation/private/Registers.h>

#if defined(__SSE2__)
#    include <immintrin.h>
#endif

// Objects of the small classes in the registers of one instruction set (see Registers.h): a register holds
// one component of as many objects as it has lanes. A lane takes its object's operations in the order of the
// member, each rounded.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

using namespace vexor::detail::VEXOR_SET;

constexpr int width = registerWidth;
using Doubles = Register<double, width>;
using Singles = Register<float, width>;

VEXOR_ALWAYS_INLINE Doubles All(double value)
{
    return Broadcast<Doubles>(value);
}

VEXOR_ALWAYS_INLINE Singles ToSingles(Doubles const& values)
{
    return __builtin_convertvector(values, Singles);
}

/// A vector conversion to double. If it is written as one, g++ 12 splits it into single steps: all of
/// `DistanceSqTo` of singles 1.5 times as slow.
VEXOR_ALWAYS_INLINE Doubles ToDoubles(Singles const& values)
{
#if defined(VEXOR_SET_AVX512)
    return _mm512_maskz_cvtps_pd(0xff, values);
#elif defined(VEXOR_SET_AVX2)
    return _mm256_cvtps_pd(values);
#elif defined(__SSE2__)
    double both;
    __builtin_memcpy(&both, &values, sizeof both);
    return _mm_cvtps_pd(_mm_castpd_ps(_mm_set_sd(both)));
#else
    return __builtin_convertvector(values, Doubles);
#endif
}

/// Rounds to the element type and continues in double.
template <class Element>
VEXOR_ALWAYS_INLINE Doubles RoundTo(Doubles const& values)
{
    if constexpr (sizeof(Element) == sizeof(float))
        return ToDoubles(ToSingles(values));
    else
        return values;
}

template <int... places>
using At = std::integer_sequence<int, places...>;
template <int count>
using Indices = std::make_integer_sequence<int, count>;

// ---- Masks -----------------------------------------------------------------------------------------

#if defined(VEXOR_SET_AVX512)
using Mask = __mmask8;

VEXOR_ALWAYS_INLINE Mask Less(Doubles const& a, Doubles const& b)
{
    return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ);
}
VEXOR_ALWAYS_INLINE Mask LessOrEqual(Doubles const& a, Doubles const& b)
{
    return _mm512_cmp_pd_mask(a, b, _CMP_LE_OQ);
}
VEXOR_ALWAYS_INLINE Mask Equal(Doubles const& a, Doubles const& b)
{
    return _mm512_cmp_pd_mask(a, b, _CMP_EQ_OQ);
}
VEXOR_ALWAYS_INLINE Mask Not(Mask mask)
{
    return static_cast<Mask>(~mask);
}
VEXOR_ALWAYS_INLINE Mask And(Mask a, Mask b)
{
    return static_cast<Mask>(a & b);
}
VEXOR_ALWAYS_INLINE Mask Or(Mask a, Mask b)
{
    return static_cast<Mask>(a | b);
}
VEXOR_ALWAYS_INLINE unsigned Bits(Mask mask)
{
    return mask;
}
VEXOR_ALWAYS_INLINE Doubles Select(Mask mask, Doubles const& whenTrue, Doubles const& whenFalse)
{
    return _mm512_mask_blend_pd(mask, whenFalse, whenTrue);
}
VEXOR_ALWAYS_INLINE Doubles Root(Doubles const& values)
{
    return _mm512_maskz_sqrt_pd(0xff, values); // GCC 12 warns about the form without a mask
}
VEXOR_ALWAYS_INLINE Singles Root(Singles const& values)
{
    return _mm256_sqrt_ps(values);
}

#else
typedef long long Mask __attribute__((vector_size(sizeof(Doubles))));

VEXOR_ALWAYS_INLINE Mask Less(Doubles const& a, Doubles const& b)
{
    return reinterpret_cast<Mask>(a < b);
}
VEXOR_ALWAYS_INLINE Mask LessOrEqual(Doubles const& a, Doubles const& b)
{
    return reinterpret_cast<Mask>(a <= b);
}
VEXOR_ALWAYS_INLINE Mask Equal(Doubles const& a, Doubles const& b)
{
    return reinterpret_cast<Mask>(a == b);
}
VEXOR_ALWAYS_INLINE Mask Not(Mask const& mask)
{
    return ~mask;
}
VEXOR_ALWAYS_INLINE Mask And(Mask const& a, Mask const& b)
{
    return a & b;
}
VEXOR_ALWAYS_INLINE Mask Or(Mask const& a, Mask const& b)
{
    return a | b;
}

#    if defined(VEXOR_SET_AVX2)
VEXOR_ALWAYS_INLINE unsigned Bits(Mask const& mask)
{
    return static_cast<unsigned>(_mm256_movemask_pd(reinterpret_cast<__m256d>(mask)));
}
VEXOR_ALWAYS_INLINE Doubles Select(Mask const& mask, Doubles const& whenTrue, Doubles const& whenFalse)
{
    return _mm256_blendv_pd(whenFalse, whenTrue, reinterpret_cast<__m256d>(mask));
}
VEXOR_ALWAYS_INLINE Doubles Root(Doubles const& values)
{
    return _mm256_sqrt_pd(values);
}
VEXOR_ALWAYS_INLINE Singles Root(Singles const& values)
{
    return _mm_sqrt_ps(values);
}
#    else
VEXOR_ALWAYS_INLINE unsigned Bits(Mask const& mask)
{
#        if defined(__SSE2__)
    return static_cast<unsigned>(_mm_movemask_pd(reinterpret_cast<__m128d>(mask)));
#        else
    return static_cast<unsigned>((mask[0] & 1) | (mask[1] & 2));
#        endif
}
VEXOR_ALWAYS_INLINE Doubles Select(Mask const& mask, Doubles const& whenTrue, Doubles const& whenFalse)
{
    return reinterpret_cast<Doubles>((reinterpret_cast<Mask>(whenTrue) & mask)
                                     | (reinterpret_cast<Mask>(whenFalse) & ~mask));
}
VEXOR_ALWAYS_INLINE Doubles Root(Doubles const& values)
{
#        if defined(__SSE2__)
    return _mm_sqrt_pd(values);
#        else
    return Doubles{__builtin_sqrt(values[0]), __builtin_sqrt(values[1])};
#        endif
}
VEXOR_ALWAYS_INLINE Singles Root(Singles const& values)
{
    return ToSingles(Root(ToDoubles(values))); // rounding twice gives the bits of rounding once
}
#    endif
#endif

#if defined(VEXOR_SET_AVX512) || defined(VEXOR_SET_AVX2)
#    define VEXOR_SET_FUSED

/// a·b + c, rounded once.
VEXOR_ALWAYS_INLINE Doubles MultiplyAdd(Doubles const& a, Doubles const& b, Doubles const& c)
{
#    if defined(VEXOR_SET_AVX512)
    return _mm512_fmadd_pd(a, b, c);
#    else
    return _mm256_fmadd_pd(a, b, c);
#    endif
}

/// c − a·b, rounded once.
VEXOR_ALWAYS_INLINE Doubles SubtractProduct(Doubles const& c, Doubles const& a, Doubles const& b)
{
#    if defined(VEXOR_SET_AVX512)
    return _mm512_fnmadd_pd(a, b, c);
#    else
    return _mm256_fnmadd_pd(a, b, c);
#    endif
}
#endif

VEXOR_ALWAYS_INLINE bool HasAny(Mask const& mask)
{
    return Bits(mask) != 0;
}

VEXOR_ALWAYS_INLINE bool HasAll(Mask const& mask)
{
    return Bits(mask) == (1U << width) - 1;
}

VEXOR_ALWAYS_INLINE Doubles Magnitude(Doubles const& values)
{
    typedef long long Integers __attribute__((vector_size(sizeof(Doubles))));
    return reinterpret_cast<Doubles>(reinterpret_cast<Integers>(values)
                                     & (0x7fffffffffffffffLL - Integers{}));
}

// Of equal numbers the first one is kept, and of a NaN and a number too. That is what the instructions of x86 for the
// lesser and the greater of two do.
#if defined(VEXOR_SET_AVX512)
VEXOR_ALWAYS_INLINE Doubles Lesser(Doubles const& next, Doubles const& first)
{
    return _mm512_maskz_min_pd(0xff, next, first); // GCC 12 warns about the form without a mask
}
VEXOR_ALWAYS_INLINE Doubles Greater(Doubles const& next, Doubles const& first)
{
    return _mm512_maskz_max_pd(0xff, next, first);
}
#elif defined(VEXOR_SET_AVX2)
VEXOR_ALWAYS_INLINE Doubles Lesser(Doubles const& next, Doubles const& first)
{
    return _mm256_min_pd(next, first);
}
VEXOR_ALWAYS_INLINE Doubles Greater(Doubles const& next, Doubles const& first)
{
    return _mm256_max_pd(next, first);
}
#elif defined(__SSE2__)
VEXOR_ALWAYS_INLINE Doubles Lesser(Doubles const& next, Doubles const& first)
{
    return _mm_min_pd(next, first);
}
VEXOR_ALWAYS_INLINE Doubles Greater(Doubles const& next, Doubles const& first)
{
    return _mm_max_pd(next, first);
}
#endif
#if defined(VEXOR_SET_AVX512) || defined(VEXOR_SET_AVX2)
using MoreSingles = Register<float, 8>;
VEXOR_ALWAYS_INLINE MoreSingles Lesser(MoreSingles const& next, MoreSingles const& first)
{
    return _mm256_min_ps(next, first);
}
VEXOR_ALWAYS_INLINE MoreSingles Greater(MoreSingles const& next, MoreSingles const& first)
{
    return _mm256_max_ps(next, first);
}
#elif defined(__SSE2__)
using MoreSingles = Register<float, 4>;
VEXOR_ALWAYS_INLINE MoreSingles Lesser(MoreSingles const& next, MoreSingles const& first)
{
    return _mm_min_ps(next, first);
}
VEXOR_ALWAYS_INLINE MoreSingles Greater(MoreSingles const& next, MoreSingles const& first)
{
    return _mm_max_ps(next, first);
}
#else
template <class Vector>
VEXOR_ALWAYS_INLINE Vector Lesser(Vector const& next, Vector const& first)
{
    return next < first ? next : first;
}
template <class Vector>
VEXOR_ALWAYS_INLINE Vector Greater(Vector const& next, Vector const& first)
{
    return next > first ? next : first;
}
#endif

/// Exchanges two registers where the mask is set.
VEXOR_ALWAYS_INLINE void Exchange(Mask const& mask, Doubles& a, Doubles& b)
{
    Doubles const before = a;
    a = Select(mask, b, a);
    b = Select(mask, before, b);
}

/// Exchanges the first register with the second or with the third. No lane is set in both masks.
VEXOR_ALWAYS_INLINE void Exchange(Mask const& withSecond, Mask const& withThird, Doubles& a, Doubles& b,
                                  Doubles& c)
{
    Doubles const before = a;
    a = Select(withThird, c, Select(withSecond, b, a));
    b = Select(withSecond, before, b);
    c = Select(withThird, before, c);
}

/// Stores a mask as bytes that are 1 or 0.
VEXOR_ALWAYS_INLINE void StoreBytes(unsigned char* to, Mask const& mask)
{
    unsigned const bits = Bits(mask);
    // Copies the four bits to one bit in each byte and masks the rest off.
    constexpr std::uint32_t spread = 0x00204081U;
    constexpr std::uint32_t ones = 0x01010101U;
    if constexpr (width == 8) {
        std::uint32_t const bytes[2] = {((bits & 15U) * spread) & ones, ((bits >> 4U) * spread) & ones};
        __builtin_memcpy(to, bytes, 8);
    } else if constexpr (width == 4) {
        std::uint32_t const bytes = (bits * spread) & ones;
        __builtin_memcpy(to, &bytes, 4);
    } else {
        to[0] = bits & 1U;
        to[1] = static_cast<unsigned char>(bits >> 1U);
    }
}

// ---- Arrays of small classes in lanes ----------------------------------------------------------------

/// One class's objects, a register for each of its components.
template <int size>
struct Lanes {
    Doubles c[size];
};

/// Which object each lane holds: `ByIndex` object i in lane i, `ByThree` object i in lane 3i mod 8. There the first of
/// three components stays in the lane in which it is loaded. Kernels whose objects and results are of three components
/// take fewer shuffles by threes: with AVX-512 4 instead of 6 to split them and 2 instead of 6 to join them.
///
/// `ByTwo` is the order 0, 2, 1, 3 of AVX2, in which two components are split by 2 shuffles instead of 4.
enum class Order { ByIndex, ByThree, ByTwo };

#if defined(VEXOR_SET_AVX512)
constexpr Order orderOfThrees = Order::ByThree;
#else
constexpr Order orderOfThrees = Order::ByIndex;
#endif

/// The order of kernels whose results are single doubles. `LengthSquared` of 1,000 Vec2Dbl takes 0.77 of the time with
/// AVX2; `Length` of Vec2Flt would take 1.2 times as long.
#if defined(VEXOR_SET_AVX2)
template <int size, class Element>
constexpr Order orderOfNumbers = size == 2 && sizeof(Element) == sizeof(double) ? Order::ByTwo
                                                                                : Order::ByIndex;
#else
template <int size, class Element>
constexpr Order orderOfNumbers = Order::ByIndex;
#endif

/// The index of the object in a lane.
constexpr int ObjectIn(int lane, Order order)
{
    return order == Order::ByThree ? 3 * lane % 8 : lane;
}

/// The source of component c of lane i if it is picked in two steps, from the first two registers and
/// then from that and the third.
template <int c, Order order = Order::ByIndex, int... i>
VEXOR_ALWAYS_INLINE Doubles PickOfThree(Doubles const& r0, Doubles const& r1, Doubles const& r2, At<i...>)
{
    constexpr auto place = [](int lane) { return 3 * ObjectIn(lane, order) + c; };
    Doubles const first = Shuffle(r0, r1, At<(place(i) < 2 * width ? place(i) : i)...>());
    return Shuffle(first, r2, At<(place(i) < 2 * width ? i : place(i) - width)...>());
}

/// Register r of three that hold x, y and z of all lanes in sequence.
template <int r, int... i>
VEXOR_ALWAYS_INLINE Doubles MixOfThree(Lanes<3> const& p, At<i...>)
{
    Doubles const first = Shuffle(p.c[0], p.c[1],
                                  At<((r * width + i) % 3 == 0   ? (r * width + i) / 3
                                      : (r * width + i) % 3 == 1 ? width + (r * width + i) / 3
                                                                 : i)...>());
    return Shuffle(first, p.c[2], At<((r * width + i) % 3 == 2 ? width + (r * width + i) / 3 : i)...>());
}

#if defined(VEXOR_SET_AVX2)
/// Lanes of `a`, and of `b` where the mask has a 1. g++ 12 replaces a shuffle that is a blend by one of the two
/// that run on fewer units: splitting and joining takes 1.7 times as long.
template <int mask>
VEXOR_ALWAYS_INLINE Doubles Blend(Doubles const& a, Doubles const& b)
{
    return _mm256_blend_pd(a, b, mask);
}
#endif

template <Order order = Order::ByIndex>
VEXOR_ALWAYS_INLINE Lanes<3> Split(Doubles const (&r)[3])
{
#if defined(VEXOR_SET_AVX2)
    // Pairs of neighbours first: only one permutation across the halves, and only one other that costs more
    // than a blend.
    Doubles const m0 = Blend<0b1100>(r[0], r[1]);             // x0 y0 x2 y2
    Doubles const m1 = Shuffle(r[0], r[2], At<2, 3, 4, 5>()); // z0 x1 z2 x3
    Doubles const m2 = Blend<0b1100>(r[1], r[2]);             // y1 z1 y3 z3
    return {{Blend<0b1010>(m0, m1), Shuffle(m0, m2, At<1, 4, 3, 6>()), Blend<0b1010>(m1, m2)}};
#else
    return {{PickOfThree<0, order>(r[0], r[1], r[2], Indices<width>()),
             PickOfThree<1, order>(r[0], r[1], r[2], Indices<width>()),
             PickOfThree<2, order>(r[0], r[1], r[2], Indices<width>())}};
#endif
}

VEXOR_ALWAYS_INLINE void Join(Lanes<3> const& p, Doubles (&r)[3])
{
#if defined(VEXOR_SET_AVX2)
    Doubles const m0 = Shuffle(p.c[0], p.c[1], At<0, 4, 2, 6>()); // x0 y0 x2 y2
    Doubles const m1 = Blend<0b1010>(p.c[2], p.c[0]);             // z0 x1 z2 x3
    Doubles const m2 = Shuffle(p.c[1], p.c[2], At<1, 5, 3, 7>()); // y1 z1 y3 z3
    r[0] = Shuffle(m0, m1, At<0, 1, 4, 5>());
    r[1] = Blend<0b1100>(m2, m0);
    r[2] = Shuffle(m1, m2, At<2, 3, 6, 7>());
#else
    r[0] = MixOfThree<0>(p, Indices<width>());
    r[1] = MixOfThree<1>(p, Indices<width>());
    r[2] = MixOfThree<2>(p, Indices<width>());
#endif
}

template <int c, int... i>
VEXOR_ALWAYS_INLINE Doubles PickOfTwo(Doubles const& r0, Doubles const& r1, At<i...>)
{
    return Shuffle(r0, r1, At<(2 * i + c)...>());
}

template <int r, int... i>
VEXOR_ALWAYS_INLINE Doubles MixOfTwo(Lanes<2> const& p, At<i...>)
{
    return Shuffle(p.c[0], p.c[1], At<((r * width + i) % 2 * width + (r * width + i) / 2)...>());
}

template <Order order = Order::ByIndex>
VEXOR_ALWAYS_INLINE Lanes<2> Split(Doubles const (&r)[2])
{
#if defined(VEXOR_SET_AVX2)
    if constexpr (order == Order::ByTwo)
        return {{Shuffle(r[0], r[1], At<0, 4, 2, 6>()), Shuffle(r[0], r[1], At<1, 5, 3, 7>())}};
    Doubles const low = Shuffle(r[0], r[1], At<0, 1, 4, 5>());
    Doubles const high = Shuffle(r[0], r[1], At<2, 3, 6, 7>());
    return {{Shuffle(low, high, At<0, 4, 2, 6>()), Shuffle(low, high, At<1, 5, 3, 7>())}};
#else
    return {{PickOfTwo<0>(r[0], r[1], Indices<width>()), PickOfTwo<1>(r[0], r[1], Indices<width>())}};
#endif
}

VEXOR_ALWAYS_INLINE void Join(Lanes<2> const& p, Doubles (&r)[2])
{
#if defined(VEXOR_SET_AVX2)
    Doubles const even = Shuffle(p.c[0], p.c[1], At<0, 4, 2, 6>());
    Doubles const odd = Shuffle(p.c[0], p.c[1], At<1, 5, 3, 7>());
    r[0] = Shuffle(even, odd, At<0, 1, 4, 5>());
    r[1] = Shuffle(even, odd, At<2, 3, 6, 7>());
#else
    r[0] = MixOfTwo<0>(p, Indices<width>());
    r[1] = MixOfTwo<1>(p, Indices<width>());
#endif
}

template <Order = Order::ByIndex>
VEXOR_ALWAYS_INLINE Lanes<1> Split(Doubles const (&r)[1])
{
    return {{r[0]}};
}

VEXOR_ALWAYS_INLINE void Join(Lanes<1> const& p, Doubles (&r)[1])
{
    r[0] = p.c[0];
}

/// A square of width × width elements in registers; `Transpose` swaps rows and columns.
template <int half, int... i>
VEXOR_ALWAYS_INLINE void SwapOffDiagonal(Doubles (&rows)[width], At<i...>)
{
    VEXOR_UNROLL(24)
    for (int j = 0; j < width; ++j) {
        if (j & half)
            continue;
        Doubles const a = rows[j];
        Doubles const b = rows[j + half];
        rows[j] = Shuffle(a, b, At<(i & half ? width + i - half : i)...>());
        rows[j + half] = Shuffle(a, b, At<(i & half ? width + i : i + half)...>());
    }
}

template <int half = width / 2>
VEXOR_ALWAYS_INLINE void Transpose(Doubles (&rows)[width])
{
    if constexpr (half > 0) {
        SwapOffDiagonal<half>(rows, Indices<width>());
        Transpose<half / 2>(rows);
    }
}

template <Order order = Order::ByIndex>
VEXOR_ALWAYS_INLINE Lanes<4> Split(Doubles const (&r)[4])
{
#if defined(VEXOR_SET_AVX512)
    Doubles const a0 = Shuffle(r[0], r[1], At<0, 4, 8, 12, 1, 5, 9, 13>());
    Doubles const a1 = Shuffle(r[0], r[1], At<2, 6, 10, 14, 3, 7, 11, 15>());
    Doubles const b0 = Shuffle(r[2], r[3], At<0, 4, 8, 12, 1, 5, 9, 13>());
    Doubles const b1 = Shuffle(r[2], r[3], At<2, 6, 10, 14, 3, 7, 11, 15>());
    constexpr bool byIndex = order == Order::ByIndex;
    using Low = std::conditional_t<byIndex, At<0, 1, 2, 3, 8, 9, 10, 11>, At<0, 3, 10, 1, 8, 11, 2, 9>>;
    using High = std::conditional_t<byIndex, At<4, 5, 6, 7, 12, 13, 14, 15>, At<4, 7, 14, 5, 12, 15, 6, 13>>;
    return {
        {Shuffle(a0, b0, Low()), Shuffle(a0, b0, High()), Shuffle(a1, b1, Low()), Shuffle(a1, b1, High())}};
#elif defined(VEXOR_SET_AVX2)
    Doubles rows[4] = {r[0], r[1], r[2], r[3]};
    Transpose(rows);
    return {{rows[0], rows[1], rows[2], rows[3]}};
#else
    return {{Shuffle(r[0], r[2], At<0, 2>()), Shuffle(r[0], r[2], At<1, 3>()),
             Shuffle(r[1], r[3], At<0, 2>()), Shuffle(r[1], r[3], At<1, 3>())}};
#endif
}

VEXOR_ALWAYS_INLINE void Join(Lanes<4> const& p, Doubles (&r)[4])
{
#if defined(VEXOR_SET_AVX512)
    using Low = At<0, 1, 2, 3, 8, 9, 10, 11>;
    using High = At<4, 5, 6, 7, 12, 13, 14, 15>;
    Doubles const a0 = Shuffle(p.c[0], p.c[1], Low());
    Doubles const a1 = Shuffle(p.c[2], p.c[3], Low());
    Doubles const b0 = Shuffle(p.c[0], p.c[1], High());
    Doubles const b1 = Shuffle(p.c[2], p.c[3], High());
    r[0] = Shuffle(a0, a1, At<0, 4, 8, 12, 1, 5, 9, 13>());
    r[1] = Shuffle(a0, a1, At<2, 6, 10, 14, 3, 7, 11, 15>());
    r[2] = Shuffle(b0, b1, At<0, 4, 8, 12, 1, 5, 9, 13>());
    r[3] = Shuffle(b0, b1, At<2, 6, 10, 14, 3, 7, 11, 15>());
#elif defined(VEXOR_SET_AVX2)
    Doubles rows[4] = {p.c[0], p.c[1], p.c[2], p.c[3]};
    Transpose(rows);
    r[0] = rows[0];
    r[1] = rows[1];
    r[2] = rows[2];
    r[3] = rows[3];
#else
    r[0] = Shuffle(p.c[0], p.c[1], At<0, 2>());
    r[1] = Shuffle(p.c[2], p.c[3], At<0, 2>());
    r[2] = Shuffle(p.c[0], p.c[1], At<1, 3>());
    r[3] = Shuffle(p.c[2], p.c[3], At<1, 3>());
#endif
}

template <int size, Order order = Order::ByIndex, class Element>
VEXOR_ALWAYS_INLINE Lanes<size> LoadLanes(Element const* from)
{
    Doubles registers[size];
    VEXOR_UNROLL(24)
    for (int k = 0; k < size; ++k) {
        if constexpr (sizeof(Element) == sizeof(float))
            registers[k] = ToDoubles(Load<Singles>(from + k * width));
        else
            registers[k] = Load<Doubles>(from + k * width);
#if defined(VEXOR_SET_AVX512)
        // Else g++ 12 loads once for each shuffle.
        __asm__("" : "+v"(registers[k]));
#endif
    }
    return Split<order>(registers);
}

#if defined(VEXOR_SET_AVX512)
template <int distance, int... i>
VEXOR_ALWAYS_INLINE Doubles Rotated(Doubles const& values, At<i...>)
{
    return Shuffle(values, values, At<((i + width - distance) % width)...>());
}

/// The lanes of register `part` of joined objects, of each of which component c is in the lane of its place.
template <int c, int part>
constexpr Mask lanesOfThird = Mask(0x249249U << unsigned(c) >> unsigned(8 * part));

VEXOR_ALWAYS_INLINE void StoreSome(double* to, Mask mask, Doubles const& values)
{
    _mm512_mask_storeu_pd(to, mask, values);
}

VEXOR_ALWAYS_INLINE void StoreSome(float* to, Mask mask, Doubles const& values)
{
    _mm256_mask_storeu_ps(to, mask, ToSingles(values));
}

/// Three stores of some lanes are as fast as a blend of three registers and one store as long as the first-level cache
/// holds the results. They need no port that arithmetic needs.
template <int part, bool blends, class Element>
VEXOR_ALWAYS_INLINE void StorePart(Element* to, Doubles const& x, Doubles const& y, Doubles const& z)
{
    if constexpr (blends) {
        StoreSome(to, 0xff, Select(lanesOfThird<2, part>, z, Select(lanesOfThird<1, part>, y, x)));
    } else {
        StoreSome(to, lanesOfThird<0, part>, x);
        StoreSome(to, lanesOfThird<1, part>, y);
        StoreSome(to, lanesOfThird<2, part>, z);
    }
}

/// Stores objects that are in lanes by threes.
template <bool blends, class Element>
VEXOR_ALWAYS_INLINE void StoreThrees(Element* to, Lanes<3> const& lanes)
{
    Doubles const y = Rotated<1>(lanes.c[1], Indices<width>());
    Doubles const z = Rotated<2>(lanes.c[2], Indices<width>());
    StorePart<0, blends>(to, lanes.c[0], y, z);
    StorePart<1, blends>(to + width, lanes.c[0], y, z);
    StorePart<2, blends>(to + 2 * width, lanes.c[0], y, z);
}
#endif

/// Singles are rounded here.
template <int size, Order order = Order::ByIndex, bool blends = true, class Element>
VEXOR_ALWAYS_INLINE void StoreLanes(Element* to, Lanes<size> const& lanes)
{
#if defined(VEXOR_SET_AVX512)
    if constexpr (order == Order::ByThree) {
        static_assert(size == 3, "other sizes are stored by index");
        StoreThrees<blends>(to, lanes);
        return;
    }
#endif
    Doubles registers[size];
    Join(lanes, registers);
#if defined(VEXOR_SET_AVX2)
    if constexpr (order == Order::ByTwo) {
        static_assert(size == 1, "other sizes are stored by index");
        registers[0] = Shuffle(registers[0], registers[0], At<0, 2, 1, 3>());
    }
#endif
    VEXOR_UNROLL(24)
    for (int k = 0; k < size; ++k) {
        if constexpr (sizeof(Element) == sizeof(float))
            Store(to + k * width, ToSingles(registers[k]));
        else
            Store(to + k * width, registers[k]);
    }
}

/// Fetches the lines of some bytes into the first-level cache, for stores or for loads.
template <int bytes, bool forStores>
VEXOR_ALWAYS_INLINE void Prefetch(void const* from)
{
    VEXOR_UNROLL(24)
    for (int k = 0; k < bytes; k += 64) {
        auto const& line = *(static_cast<char const*>(from) + k);
#if defined(VEXOR_SET_AVX512)
        if constexpr (forStores)
            __asm__ volatile("prefetchw %0" : : "m"(line));
        else
            __asm__ volatile("prefetcht0 %0" : : "m"(line));
#else
        __builtin_prefetch(&line, forStores);
#endif
    }
}

/// An operand in lanes, from an array or from one value.
template <int size, class Element, Order order = Order::ByIndex>
struct Source {
    VEXOR_ALWAYS_INLINE explicit Source(Operand<Element> const& from) : operand(from), one()
    {
        if (operand.isOne) {
            VEXOR_UNROLL(24)
            for (int k = 0; k < size; ++k)
                one.c[k] = All(double(operand.data[k]));
        }
    }

    /// The lanes from element i on.
    VEXOR_ALWAYS_INLINE Lanes<size> From(Size i) const
    {
        return operand.isOne ? one : LoadLanes<size, order>(operand.data + i * size);
    }

    VEXOR_ALWAYS_INLINE void PrefetchFrom(Size i) const
    {
        if (!operand.isOne)
            Prefetch<size * width* int(sizeof(Element)), false>(operand.data + i * size);
    }

    Operand<Element> operand;
    Lanes<size> one;
};

/// The operand without its first `count` values of `size` elements.
template <class Element>
VEXOR_ALWAYS_INLINE Operand<Element> After(Operand<Element> const& operand, Size count, int size)
{
    return {operand.isOne ? operand.data : operand.data + count * static_cast<Size>(size), operand.isOne};
}

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
