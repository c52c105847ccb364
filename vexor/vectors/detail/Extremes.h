#pragma once
#include <vexor/foundation/detail/Scalar.h>

// Extremes of three components and of two. In space the later index wins a tie, by the decision trees below;
// in the plane the second component wins. The form of the conditions decides the result for NaN: a comparison
// with a NaN is false.

VEXOR_EXACT_BEGIN

namespace vexor::detail {

template <class Number>
constexpr Number MaxOfThree(Number x, Number y, Number z)
{
    Number const m = VEXOR_CHOOSE(y < x, x, y);
    return VEXOR_CHOOSE(m > z, m, z);
}

template <class Number>
constexpr Number MinOfThree(Number x, Number y, Number z)
{
    Number const m = VEXOR_CHOOSE(y > x, x, y);
    return VEXOR_CHOOSE(m < z, m, z);
}

template <class Number>
constexpr int MaxIndexOfThree(Number x, Number y, Number z)
{
    if (y < x)
        return z < x ? 0 : 2;
    return z < y ? 1 : 2;
}

template <class Number>
constexpr int MinIndexOfThree(Number x, Number y, Number z)
{
    if (y > x)
        return z > x ? 0 : 2;
    return z > y ? 1 : 2;
}

template <class Number>
constexpr Number MaxOfTwo(Number x, Number y)
{
    return VEXOR_CHOOSE(x > y, x, y);
}

template <class Number>
constexpr Number MinOfTwo(Number x, Number y)
{
    return VEXOR_CHOOSE(x < y, x, y);
}

template <class Number>
constexpr int MaxIndexOfTwo(Number x, Number y)
{
    return x > y ? 0 : 1;
}

template <class Number>
constexpr int MinIndexOfTwo(Number x, Number y)
{
    return x < y ? 0 : 1;
}

} // namespace vexor::detail

VEXOR_EXACT_END
