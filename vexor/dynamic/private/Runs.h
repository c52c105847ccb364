#pragma once
#include <vexor/foundation/detail/Rounding.h>
#include <vexor/foundation/detail/Scalar.h>

#include <cstdint>
#include <cstring>

// Loops over runs of elements, in index order, for the classes of run-time size. A sum is a running sum: it
// starts at 0 and is rounded to the element type after each term, unlike the sums of the fixed-size classes
// in single precision, which are rounded once. A term is formed in double.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

template <class Element>
inline void FillRun(Element* values, std::int64_t count, Element value)
{
    for (std::int64_t i = 0; i < count; ++i)
        values[i] = value;
}

/// Copies a run. The two runs may overlap, as they do if an object is assigned to itself.
template <class Element>
inline void CopyRun(Element* to, Element const* from, std::int64_t count)
{
    std::memmove(to, from, static_cast<std::size_t>(count) * sizeof(Element));
}

/// Writes the result of `operation` on each element.
template <class Element, class Operation>
inline void MapRun(Element* result, Element const* values, std::int64_t count, Operation operation)
{
    for (std::int64_t i = 0; i < count; ++i)
        result[i] = operation(values[i]);
}

/// Writes the result of `operation` on each pair of elements.
template <class Element, class Operation>
inline void CombineRuns(Element* result, Element const* left, Element const* right, std::int64_t count,
                        Operation operation)
{
    for (std::int64_t i = 0; i < count; ++i)
        result[i] = operation(left[i], right[i]);
}

/// 1 if all pairs compare equal: a NaN is unequal to everything, and 0 equals −0.
template <class Element>
inline int AreRunsEqual(Element const* left, Element const* right, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i) {
        if (!(left[i] == right[i]))
            return 0;
    }
    return 1;
}

/// 1 if every element is exactly 0, of either sign.
template <class Element>
inline int IsRunNull(Element const* values, std::int64_t count)
{
    for (std::int64_t i = 0; i < count; ++i) {
        if (!(values[i] == Element(0)))
            return 0;
    }
    return 1;
}

template <class Element>
inline Element RunningDot(Element const* left, Element const* right, std::int64_t count)
{
    Element sum(0);
    for (std::int64_t i = 0; i < count; ++i) {
        double const product = double(left[i]) * double(right[i]);
        sum = Round<Element>(double(sum) + product);
    }
    return sum;
}

/// The running sum of the squares of left − right, each difference rounded to the element type.
template <class Element>
inline Element RunningSquaredDistance(Element const* left, Element const* right, std::int64_t count)
{
    Element sum(0);
    for (std::int64_t i = 0; i < count; ++i) {
        double const difference = left[i] - right[i];
        sum = Round<Element>(double(sum) + difference * difference);
    }
    return sum;
}

// ---- Extremes ----------------------------------------------------------------------------------

/// The result of a scan for an extreme. If no element passed the bound, `value` is the bound and `index` is
/// 0, which is a valid index of every vector.
template <class Element>
struct Extreme {
    Element value;
    int index;
};

/// The first of the greatest keys above the bound −1e20. A NaN is never greater.
template <class Element, class Key>
inline Extreme<Element> FindGreatest(Element const* values, int count, Key key)
{
    Extreme<Element> best = {static_cast<Element>(-1e20), 0};
    for (int i = 0; i < count; ++i) {
        Element const candidate = key(values[i]);
        if (candidate > best.value)
            best = {candidate, i};
    }
    return best;
}

/// The first of the smallest keys below the bound 1e20. A NaN is never smaller.
template <class Element, class Key>
inline Extreme<Element> FindSmallest(Element const* values, int count, Key key)
{
    Extreme<Element> best = {static_cast<Element>(1e20), 0};
    for (int i = 0; i < count; ++i) {
        Element const candidate = key(values[i]);
        if (candidate < best.value)
            best = {candidate, i};
    }
    return best;
}

template <class Element>
inline Element ItsValue(Element value)
{
    return value;
}

} // namespace vexor::detail

VEXOR_EXACT_END
