#pragma once
#include <vexor/arrays/private/Lanes.h>

// The running sums of a block, in registers. They continue from their present values. A lane belongs to one
// of them, however many a register holds.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

template <class Element>
VEXOR_ALWAYS_INLINE Doubles LoadDoubles(Element const* from)
{
    if constexpr (sizeof(Element) == sizeof(float))
        return ToDoubles(Load<Singles>(from));
    else
        return Load<Doubles>(from);
}

template <class Element>
void AddElements(Element const* elements, Size count, double* sums)
{
    constexpr int registers = runningSums / width;
    Doubles running[registers];
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k)
        running[k] = Load<Doubles>(sums + k * width);
    Size j = 0;
    for (; j + runningSums <= count; j += runningSums) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < registers; ++k)
            running[k] = running[k] + LoadDoubles(elements + j + k * width);
    }
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k)
        Store(sums + k * width, running[k]);
    for (; j < count; ++j)
        *sums++ += double(elements[j]);
}

/// Of equal numbers the first one is kept, and of a NaN and a number too.
VEXOR_ALWAYS_INLINE Doubles Lesser(Doubles const& next, Doubles const& first)
{
    return Select(Less(next, first), next, first);
}

VEXOR_ALWAYS_INLINE Doubles Greater(Doubles const& next, Doubles const& first)
{
    return Select(Less(first, next), next, first);
}

template <class Element>
void FindExtremes(Element const* elements, Size count, double* least, double* greatest)
{
    constexpr int registers = runningSums / width;
    Doubles low[registers];
    Doubles high[registers];
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k) {
        low[k] = Load<Doubles>(least + k * width);
        high[k] = Load<Doubles>(greatest + k * width);
    }
    Size j = 0;
    for (; j + runningSums <= count; j += runningSums) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < registers; ++k) {
            Doubles const next = LoadDoubles(elements + j + k * width);
            low[k] = Lesser(next, low[k]);
            high[k] = Greater(next, high[k]);
        }
    }
    VEXOR_UNROLL(24)
    for (int k = 0; k < registers; ++k) {
        Store(least + k * width, low[k]);
        Store(greatest + k * width, high[k]);
    }
    for (; j < count; ++j, ++least, ++greatest) {
        double const next = elements[j];
        *least = next < *least ? next : *least;
        *greatest = next > *greatest ? next : *greatest;
    }
}

template <int size, class Element>
void AddProducts(Element const* elements, Size count, double const* centroid, double* sums)
{
    constexpr int products = size * (size + 1) / 2;
    constexpr int parts = runningProducts / width;
    Lanes<size> centre;
    for (int k = 0; k < size; ++k)
        centre.c[k] = All(centroid[k]);
    Doubles running[products][parts];
    VEXOR_UNROLL(24)
    for (int m = 0; m < products; ++m) {
        VEXOR_UNROLL(24)
        for (int part = 0; part < parts; ++part)
            running[m][part] = Load<Doubles>(sums + m * runningProducts + part * width);
    }
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
    VEXOR_UNROLL(24)
    for (int m = 0; m < products; ++m) {
        VEXOR_UNROLL(24)
        for (int part = 0; part < parts; ++part)
            Store(sums + m * runningProducts + part * width, running[m][part]);
    }
    for (; i < count; ++i, ++sums) {
        int m = 0;
        for (int k = 0; k < size; ++k) {
            for (int l = k; l < size; ++l, ++m) {
                double const dk = double(elements[i * size + Size(k)]) - centroid[k];
                double const dl = double(elements[i * size + Size(l)]) - centroid[l];
                sums[m * runningProducts] += dk * dl;
            }
        }
    }
}

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
