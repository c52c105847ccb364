#pragma once
#include <vexor/arrays/private/Lanes.h>
#include <vexor/arrays/private/Neighbours.h>

#include <algorithm>
#include <limits>

// The running sums of a block, in registers. A lane belongs to one of them, however many a register holds.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

/// The registers of the running sums. A chain of additions of 512 bits takes 4 cycles a step on Sapphire Rapids; the
/// six chains of 256 bits together take 3.4.
constexpr int sumWidth = width == 8 ? 4 : width;
using SumLanes = Register<double, sumWidth>;

#if defined(VEXOR_SET_AVX512)
VEXOR_ALWAYS_INLINE SumLanes LoadSumLanes(double const* from)
{
    return Load<SumLanes>(from);
}
VEXOR_ALWAYS_INLINE SumLanes LoadSumLanes(float const* from)
{
    return _mm256_cvtps_pd(Load<__m128>(from));
}
/// The lanes from `begin` up to `end`; the others are 0, and their elements are not read.
VEXOR_ALWAYS_INLINE SumLanes LoadPart(double const* from, Size begin, Size end)
{
    return _mm256_maskz_loadu_pd(static_cast<__mmask8>((1U << end) - (1U << begin)), from);
}
VEXOR_ALWAYS_INLINE SumLanes LoadPart(float const* from, Size begin, Size end)
{
    return _mm256_cvtps_pd(_mm_maskz_loadu_ps(static_cast<__mmask8>((1U << end) - (1U << begin)), from));
}
#else
template <class Element>
VEXOR_ALWAYS_INLINE SumLanes LoadSumLanes(Element const* from)
{
    if constexpr (sizeof(Element) == sizeof(float))
        return ToDoubles(Load<Singles>(from));
    else
        return Load<SumLanes>(from);
}
#    if defined(VEXOR_SET_AVX2)
template <class Integers, class Integer>
VEXOR_ALWAYS_INLINE Integers LanesBetween(Integer begin, Integer end)
{
    constexpr Integers lanes = {0, 1, 2, 3};
    return (lanes >= begin) & (lanes < end);
}
VEXOR_ALWAYS_INLINE SumLanes LoadPart(double const* from, Size begin, Size end)
{
    typedef long long Integers __attribute__((vector_size(32)));
    auto const mask = LanesBetween<Integers>(static_cast<long long>(begin), static_cast<long long>(end));
    return _mm256_maskload_pd(from, reinterpret_cast<__m256i>(mask));
}
VEXOR_ALWAYS_INLINE SumLanes LoadPart(float const* from, Size begin, Size end)
{
    typedef int Integers __attribute__((vector_size(16)));
    auto const mask = LanesBetween<Integers>(static_cast<int>(begin), static_cast<int>(end));
    return ToDoubles(_mm_maskload_ps(from, reinterpret_cast<__m128i>(mask)));
}
#    else
template <class Element>
VEXOR_ALWAYS_INLINE SumLanes LoadPart(Element const* from, Size begin, Size end)
{
    return SumLanes{begin == 0 ? double(from[0]) : 0.0, end == 2 ? double(from[1]) : 0.0};
}
#    endif
#endif

/// How many elements precede the first one at a multiple of a register's length. The sum of 1,000 points from there on
/// takes 0.8 of the time of loads half of which span two cache lines.
template <class Element>
VEXOR_ALWAYS_INLINE Size ElementsBeforeWholeRegisters(Element const* elements, Size count)
{
    constexpr std::uintptr_t length = sumWidth * sizeof(Element);
    std::uintptr_t const distance = reinterpret_cast<std::uintptr_t>(elements) % length / sizeof(Element);
    return distance == 0 || width == 2 || count < sumWidth ? 0 : sumWidth - distance;
}

/// A running sum is never −0, so that another 0 does not change it: the lanes of a register that have no element get a
/// 0.
template <int size, class Element>
void SumUp(Element const* elements, Size count, double* sum)
{
    constexpr int registers = runningSums / sumWidth;
    count *= size;
    // The first elements have the last lanes of the last register.
    Size const first = ElementsBeforeWholeRegisters(elements, count);
    SumLanes running[registers] = {};
    if (first != 0)
        running[registers - 1] =
            running[registers - 1] + LoadPart(elements + first - sumWidth, sumWidth - first, sumWidth);
    elements += first;
    count -= first;
    for (; count >= runningSums; count -= runningSums, elements += runningSums) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < registers; ++k)
            running[k] = running[k] + LoadSumLanes(elements + k * sumWidth);
    }
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k) {
        if (count >= Size(sumWidth)) {
            running[k] = running[k] + LoadSumLanes(elements + k * sumWidth);
            count -= sumWidth;
        } else if (count > 0) {
            running[k] = running[k] + LoadPart(elements + k * sumWidth, 0, count);
            count = 0;
        }
    }
    double lanes[sumWidth + runningSums];
    Store(lanes, running[registers - 1]);
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k)
        Store(lanes + (k + 1) * sumWidth, running[k]);
    for (int k = 0; k < size; ++k)
        sum[k] = CombineNeighbours<runningSums / size, size>(lanes + sumWidth - first + k, SumOfTwo());
}

/// The registers of least and greatest numbers. Singles need not be widened for them. 24 numbers are whole registers.
template <class Element>
constexpr int extremesWidth = sizeof(Element) == sizeof(double) ? width
                              : width == 8                      ? 8
                                                                : 2 * width;

template <int size, class Element>
void FindExtremes(Element const* elements, Size count, Element* least, Element* greatest)
{
    constexpr int lanes = extremesWidth<Element>;
    constexpr int registers = runningSums / lanes;
    using Vector = Register<Element, lanes>;
    count *= size;
    Vector low[registers];
    Vector high[registers];
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k) {
        low[k] = Broadcast<Vector>(std::numeric_limits<Element>::infinity());
        high[k] = -low[k];
    }
    for (; count >= runningSums; count -= runningSums, elements += runningSums) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < registers; ++k) {
            auto const next = Load<Vector>(elements + k * lanes);
            low[k] = Lesser(next, low[k]);
            high[k] = Greater(next, high[k]);
        }
    }
    Size const rest = count;
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k) {
        if (count < Size(lanes))
            break;
        auto const next = Load<Vector>(elements + k * lanes);
        low[k] = Lesser(next, low[k]);
        high[k] = Greater(next, high[k]);
        count -= lanes;
    }
    Element lows[runningSums];
    Element highs[runningSums];
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k) {
        Store(lows + k * lanes, low[k]);
        Store(highs + k * lanes, high[k]);
    }
    for (Size k = rest - count; k < rest; ++k) {
        lows[k] = LesserOfTwo()(lows[k], elements[k]);
        highs[k] = GreaterOfTwo()(highs[k], elements[k]);
    }
    for (int k = 0; k < size; ++k) {
        least[k] = CombineNeighbours<runningSums / size, size>(lows + k, LesserOfTwo());
        greatest[k] = CombineNeighbours<runningSums / size, size>(highs + k, GreaterOfTwo());
    }
}

template <int size, class Element>
void SumProducts(Element const* elements, Size count, double const* centroid, double* sums)
{
    constexpr int products = size * (size + 1) / 2;
    constexpr int parts = runningProducts / width;
    Lanes<size> centre;
    for (int k = 0; k < size; ++k)
        centre.c[k] = All(centroid[k]);
    Doubles running[products][parts] = {};
    Size i = 0;
    for (; i + runningProducts <= count; i += runningProducts) {
        VEXOR_UNROLL(24)
        for (int part = 0; part < parts; ++part) {
            Lanes<size> d = LoadLanes<size>(elements + (i + Size(part * width)) * size);
            VEXOR_UNROLL(24)
            for (int k = 0; k < size; ++k)
                d.c[k] = d.c[k] - centre.c[k];
            int m = 0;
            VEXOR_UNROLL(24)
            for (int k = 0; k < size; ++k) {
                VEXOR_UNROLL(24)
                for (int l = k; l < size; ++l, ++m)
                    running[m][part] = running[m][part] + d.c[k] * d.c[l];
            }
        }
    }
    double lanes[products][runningProducts];
    VEXOR_UNROLL(24)
    for (int m = 0; m < products; ++m) {
        VEXOR_UNROLL(24)
        for (int part = 0; part < parts; ++part)
            Store(lanes[m] + part * width, running[m][part]);
    }
    for (int lane = 0; i < count; ++i, ++lane) {
        int m = 0;
        for (int k = 0; k < size; ++k) {
            for (int l = k; l < size; ++l, ++m) {
                double const dk = double(elements[i * size + Size(k)]) - centroid[k];
                double const dl = double(elements[i * size + Size(l)]) - centroid[l];
                lanes[m][lane] += dk * dl;
            }
        }
    }
    for (int m = 0; m < products; ++m)
        sums[m] = CombineNeighbours<runningProducts, 1>(lanes[m], SumOfTwo());
}

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
