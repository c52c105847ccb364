#pragma once
#include <vexor/arrays/private/Lanes.h>

#include <algorithm>

// Arrays of vectors and points. If a lane needs more than plain arithmetic (a length whose squares underflow,
// a null vector), a loop passes the elements of that register to the plain set, the loop over the members;
// none of them has been stored by then. Most loops pass the few elements outside of whole aligned registers too.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

// ---- The loops -----------------------------------------------------------------------------------------

/// The plain kernels of a shape, for the elements outside of whole registers.
template <int size, class Element>
VEXOR_ALWAYS_INLINE VectorKernels<Element> const& Plain()
{
    if constexpr (sizeof(Element) == sizeof(float))
        return size == 3 ? plain::kernels.inSpaceSingle : plain::kernels.inPlaneSingle;
    else
        return size == 3 ? plain::kernels.inSpace : plain::kernels.inPlane;
}

/// How many elements of an array precede the first one at a multiple of a register's length; 0 if there is
/// none. The loops compute these apart: loads of 64 bytes that all span two cache lines make `Cross`
/// and `Dot` of 1,000 elements 1.5 times as slow.
template <int size, class Element>
VEXOR_ALWAYS_INLINE Size ElementsBeforeAligned(Element const* array, Size count)
{
    constexpr std::uintptr_t length = width * sizeof(Element);
    auto const address = reinterpret_cast<std::uintptr_t>(array);
    // With shorter registers fewer loads span two lines, and short arrays would lose more than they gain.
    constexpr Size least = width == 8 ? 64 : 256;
    if (width == 2 || count < least)
        return 0;
    for (Size i = 0; i < width; ++i) {
        if ((address + i * size * sizeof(Element)) % length == 0)
            return i;
    }
    return 0;
}

/// The same for the first operand that is an array.
template <int leftSize, int rightSize, class Element>
VEXOR_ALWAYS_INLINE Size ElementsBeforeAligned(Operand<Element> const& left, Operand<Element> const& right,
                                               Size count)
{
    return left.isOne ? ElementsBeforeAligned<rightSize>(right.data, count)
                      : ElementsBeforeAligned<leftSize>(left.data, count);
}

#if defined(VEXOR_SET_AVX512)

/// Runs an operation that never fails, `blocks.From(i)` for `width` elements from i on, over at least three registers of
/// elements. The results are stored at multiples of a register's length: if operands and results lie at different places
/// in their cache lines, `RotatePoint` takes 0.9 of the time that it takes with aligned loads. The first and the last
/// elements outside of whole aligned registers are computed with neighbours that are computed twice. Both registers are
/// computed before either is stored, so that results may be written over an operand.
///
/// `RotatePoint` of 1,000,000 points takes 1.05 times as long without prefetching. Few points gain nothing.
template <bool blends, class Blocks, class Element>
VEXOR_ALWAYS_INLINE void RunBlocks(Blocks const& blocks, Element* results, Size count)
{
    constexpr Order order = orderOfThrees;
    Size const before = ElementsBeforeAligned<3>(results, count);
    Size i = before > 0 ? before : width;
    Lanes<3> const first = blocks.From(0);
    Lanes<3> const second = blocks.From(i);
    StoreLanes<3, order, blends>(results, first);
    StoreLanes<3, order, blends>(results + i * 3, second);
    bool const isLarge = count > largeCount;
    i += width;
    for (; i + 2 * width <= count; i += width) {
        if (isLarge && i + prefetchDistance < count) {
            Prefetch<3 * width* int(sizeof(Element)), true>(results + (i + prefetchDistance) * 3);
            blocks.PrefetchFrom(i + prefetchDistance);
        }
        StoreLanes<3, order, blends>(results + i * 3, blocks.From(i));
    }
    Lanes<3> const next = blocks.From(i);
    Lanes<3> const last = blocks.From(count - width);
    StoreLanes<3, order, blends>(results + i * 3, next);
    StoreLanes<3, order, blends>(results + (count - width) * 3, last);
}

/// The results of a rule for two operands, in blocks.
template <class Rule, int leftSize, int rightSize, class Element>
struct PairBlocks {
    VEXOR_ALWAYS_INLINE Lanes<3> From(Size i) const
    {
        Lanes<3> result;
        Rule::Compute(left.From(i), right.From(i), result);
        return result;
    }

    VEXOR_ALWAYS_INLINE void PrefetchFrom(Size i) const
    {
        left.PrefetchFrom(i);
        right.PrefetchFrom(i);
    }

    Source<leftSize, Element, orderOfThrees> left;
    Source<rightSize, Element, orderOfThrees> right;
};

#endif

/// Runs `Rule::Compute(left, right, result)` over two operands. It returns false if a lane needs the plain
/// loop.
template <class Rule, int leftSize, int rightSize, int resultSize, class Element>
VEXOR_ALWAYS_INLINE void RunPair(Operand<Element> const& left, Operand<Element> const& right,
                                 Element* results, Size count, PairKernel<Element> plainKernel)
{
#if defined(VEXOR_SET_AVX512)
    if constexpr (resultSize == 3) {
        if (count >= 3 * width) {
            PairBlocks<Rule, leftSize, rightSize, Element> const blocks = {
                Source<leftSize, Element, orderOfThrees>(left),
                Source<rightSize, Element, orderOfThrees>(right)};
            RunBlocks<rightSize == leftSize>(blocks, results, count);
            return;
        }
    }
#endif
    Size i = ElementsBeforeAligned<leftSize, rightSize>(left, right, count);
    if (i > 0)
        plainKernel(left, right, results, i);
    Source<leftSize, Element> const a(left);
    Source<rightSize, Element> const b(right);
    bool const isLarge = count > largeCount;
    for (; i + width <= count; i += width) {
        if (isLarge && i + prefetchDistance < count) {
            Prefetch<resultSize * width* int(sizeof(Element)), true>(results
                                                                     + (i + prefetchDistance) * resultSize);
            a.PrefetchFrom(i + prefetchDistance);
            b.PrefetchFrom(i + prefetchDistance);
        }
        Lanes<resultSize> result;
        if (__builtin_expect(Rule::Compute(a.From(i), b.From(i), result), 1))
            StoreLanes(results + i * resultSize, result);
        else
            plainKernel(After(left, i, leftSize), After(right, i, rightSize), results + i * resultSize,
                        width);
    }
    if (i < count)
        plainKernel(After(left, i, leftSize), After(right, i, rightSize), results + i * resultSize,
                    count - i);
}

/// Runs `Rule::Compute(operand, result)`. `Length` of 1,000,000 Vec3Dbl takes half of the time without prefetching.
template <class Rule, int size, int resultSize, class Element>
VEXOR_ALWAYS_INLINE void RunSingle(Element const* operands, Element* results, Size count,
                                   SingleKernel<Element> plainKernel)
{
    constexpr Order order = resultSize == 3   ? orderOfThrees
                            : resultSize == 1 ? orderOfNumbers<size, Element>
                                              : Order::ByIndex;
    Size i = ElementsBeforeAligned<size>(operands, count);
    if (i > 0)
        plainKernel(operands, results, i);
    bool const isLarge = count > largeCount;
    for (; i + width <= count; i += width) {
        Lanes<resultSize> result;
        if (isLarge && i + prefetchDistance < count)
            Prefetch<size * width* int(sizeof(Element)), false>(operands + (i + prefetchDistance) * size);
        if (__builtin_expect(Rule::Compute(LoadLanes<size, order>(operands + i * size), result), 1))
            StoreLanes<resultSize, order>(results + i * resultSize, result);
        else
            plainKernel(operands + i * size, results + i * resultSize, width);
    }
    if (i < count)
        plainKernel(operands + i * size, results + i * resultSize, count - i);
}

// ---- Element by element ------------------------------------------------------------------------------

// Sums, differences and products of components need not be split into components. The registers of one
// operand hold its components repeatedly.

struct AddRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Vector Compute(Vector const& a, Vector const& b)
    {
        return a + b;
    }
};
struct SubtractRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Vector Compute(Vector const& a, Vector const& b)
    {
        return a - b;
    }
};
struct MultiplyRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Vector Compute(Vector const& a, Vector const& b)
    {
        return a * b;
    }
};

/// How many elements of a type a register holds.
template <class Element>
constexpr int lanesOf = width* int(sizeof(double) / sizeof(Element));

/// How many registers a turn computes: a multiple of 2 and of 3.
constexpr int flatTurns = 6;

/// A register at a place of an array.
template <class Element>
struct FlatArray {
    Element const* data;

    VEXOR_ALWAYS_INLINE void PrefetchAt(Size j) const
    {
        Prefetch<flatTurns* int(sizeof(Doubles)), false>(data + j);
    }

    template <class Vector>
    VEXOR_ALWAYS_INLINE Vector RegisterAt(Size j, int /*turn*/) const
    {
        return Load<Vector>(data + j);
    }
};

/// No operand, for operations on one.
struct FlatNothing {
    VEXOR_ALWAYS_INLINE void PrefetchAt(Size /*j*/) const {}

    template <class Vector>
    VEXOR_ALWAYS_INLINE Vector RegisterAt(Size /*j*/, int /*turn*/) const
    {
        return Vector{};
    }
};

/// A register of one operand whose `period` components repeat. The first register is that of element `begin`.
template <int size, class Element>
struct FlatOne {
    static constexpr int lanes = lanesOf<Element>;

    VEXOR_ALWAYS_INLINE FlatOne(Element const* data, int period, Size begin)
    {
        Element elements[size * lanes];
        for (int k = 0; k < size * lanes; ++k)
            elements[k] = data[(begin + Size(k)) % Size(period)];
        for (int k = 0; k < size; ++k)
            registers[k] = Load<Register<Element, lanes>>(elements + k * lanes);
    }
    VEXOR_ALWAYS_INLINE void PrefetchAt(Size /*j*/) const {}

    template <class Vector>
    VEXOR_ALWAYS_INLINE Vector RegisterAt(Size /*j*/, int turn) const
    {
        return registers[turn % size];
    }

    Register<Element, lanes> registers[size];
};

/// How many elements precede the first at a multiple of a register's length.
template <class Element>
VEXOR_ALWAYS_INLINE Size ElementsBeforeAligned(Element const* results)
{
    constexpr std::uintptr_t length = width * sizeof(double);
    return (length - reinterpret_cast<std::uintptr_t>(results) % length) % length / sizeof(Element);
}

/// Registers of results from j on.
template <class Rule, class Left, class Right, class Element>
VEXOR_ALWAYS_INLINE Size RunRegisters(Left const& left, Right const& right, Element* results, Size j,
                                      Size end)
{
    constexpr int lanes = lanesOf<Element>;
    using Vector = Register<Element, lanes>;
    constexpr int turns = flatTurns;
    auto const turn = [&](Size at) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < turns; ++k)
            Store(results + at + k * lanes,
                  Rule::Compute(left.template RegisterAt<Vector>(at + Size(k * lanes), k),
                                right.template RegisterAt<Vector>(at + Size(k * lanes), k)));
    };
    if (end - j > 3 * largeCount) {
        constexpr Size ahead = 12 * turns * lanes; // some four thousand bytes with the widest registers
        for (; j + ahead < end; j += turns * lanes) {
            left.PrefetchAt(j + ahead);
            right.PrefetchAt(j + ahead);
            Prefetch<turns* int(sizeof(Vector)), true>(results + j + ahead);
            turn(j);
        }
    }
    for (; j + turns * lanes <= end; j += turns * lanes)
        turn(j);
    return j;
}

/// The results are stored at multiples of a register's length: `Add` of 200 vectors 1.2 times as fast with
/// AVX2.
template <class Rule, int size, PairOperation operation, class Element>
void RunFlat(Operand<Element> left, Operand<Element> right, Element* results, Size count)
{
    constexpr int rightSize = operation == PairOperation::Scale ? 1 : size;
    Size const end = count * size;
    Size const begin = std::min(end, ElementsBeforeAligned(results));
    auto const single = [&](Size j) {
        results[j] =
            Rule::Compute(left.data[left.isOne ? j % size : j], right.data[right.isOne ? j % rightSize : j]);
    };
    Size j = 0;
    for (; j < begin; ++j)
        single(j);
    using Flat = FlatArray<Element>;
    using One = FlatOne<size, Element>;
    if (left.isOne)
        j = RunRegisters<Rule>(One(left.data, size, begin), Flat{right.data}, results, j, end);
    else if (right.isOne)
        j = RunRegisters<Rule>(Flat{left.data}, One(right.data, rightSize, begin), results, j, end);
    else
        j = RunRegisters<Rule>(Flat{left.data}, Flat{right.data}, results, j, end);
    for (; j < end; ++j)
        single(j);
}

/// Register r of `size` registers in which each lane of `values` occurs `size` times.
template <int size, int r, class Vector, int... i>
VEXOR_ALWAYS_INLINE Vector Spread(Vector const& values, At<i...>)
{
    return Shuffle(values, values, At<((r * int(sizeof...(i)) + i) / size)...>());
}

template <int size, class Element, int... r>
VEXOR_ALWAYS_INLINE void ScaleBlock(Element const* vectors, Element const* scalars, Element* results,
                                    At<r...>)
{
    constexpr int lanes = lanesOf<Element>;
    using Vector = Register<Element, lanes>;
    Vector const factors = Load<Vector>(scalars);
    Vector const products[size] = {
        (Load<Vector>(vectors + r * lanes) * Spread<size, r>(factors, Indices<lanes>()))...};
    (Store(results + r * lanes, products[r]), ...);
}

/// Long arrays have a function of their own: with both loops in one, `Scale` of 200 Vec2Dbl takes 1.3 times as long in the
/// baseline.
template <bool isLong, int size, class Element>
__attribute__((noinline)) void ScaleByEach(Operand<Element> vectors, Operand<Element> scalars,
                                           Element* results, Size count)
{
    constexpr int lanes = lanesOf<Element>;
    PairKernel<Element> const plainKernel = Plain<size, Element>().pairs[int(PairOperation::Scale)];
    Size i = ElementsBeforeAligned<size>(vectors.data, count);
    if (i > 0)
        plainKernel(vectors, scalars, results, i);
    for (; i + lanes <= count; i += lanes) {
        if constexpr (isLong) {
            Size const ahead = i + 1024 / (size * sizeof(Element));
            if (ahead < count) {
                Prefetch<size* int(sizeof(Doubles)), true>(results + ahead * size);
                Prefetch<size* int(sizeof(Doubles)), false>(vectors.data + ahead * size);
                Prefetch<int(sizeof(Doubles)), false>(scalars.data + ahead);
            }
        }
        ScaleBlock<size, Element>(vectors.data + i * size, scalars.data + i, results + i * size,
                                  Indices<size>());
    }
    if (i < count)
        plainKernel(After(vectors, i, size), After(scalars, i, 1), results + i * size, count - i);
}

template <int size, class Element>
void Scale(Operand<Element> vectors, Operand<Element> scalars, Element* results, Size count)
{
    // Two lanes need more shuffles for Vec3Dbl than they spare multiplications.
    constexpr bool isSlow = width == 2 && size == 3 && sizeof(Element) == sizeof(double);
    constexpr Size bytes = (2 * size + 1) * sizeof(Element);
    if (scalars.isOne && !vectors.isOne)
        RunFlat<MultiplyRule, size, PairOperation::Scale, Element>(vectors, scalars, results, count);
    else if (vectors.isOne || isSlow)
        Plain<size, Element>().pairs[int(PairOperation::Scale)](vectors, scalars, results, count);
    else if (count > 48 * 1024 / bytes) // 1,000 Vec3Dbl take 1.5 to 1.8 times as long without prefetching.
        ScaleByEach<true, size, Element>(vectors, scalars, results, count);
    else
        ScaleByEach<false, size, Element>(vectors, scalars, results, count);
}

struct NegateRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Vector Compute(Vector const& a, Vector const& /*nothing*/)
    {
        return -a;
    }
};

template <int size, class Element>
void Negate(Element const* operands, Element* results, Size count)
{
    Size const elements = count * size;
    Size const begin = std::min(elements, ElementsBeforeAligned(results));
    Size i = 0;
    for (; i < begin; ++i)
        results[i] = -operands[i];
    i = RunRegisters<NegateRule>(FlatArray<Element>{operands}, FlatNothing(), results, i, elements);
    for (; i < elements; ++i)
        results[i] = -operands[i];
}

void ToSingle(double const* from, float* to, Size count)
{
    Size i = 0;
    for (; i + width <= count; i += width)
        Store(to + i, ToSingles(Load<Doubles>(from + i)));
    if (i < count)
        plain::kernels.toSingle(from + i, to + i, count - i);
}

void ToDouble(float const* from, double* to, Size count)
{
    Size const begin = std::min(count, ElementsBeforeAligned(to));
    Size i = 0;
    for (; i < begin; ++i)
        to[i] = double(from[i]);
    for (; i + 4 * width <= count; i += 4 * width) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < 4; ++k)
            Store(to + i + k * width, ToDoubles(Load<Singles>(from + i + k * width)));
    }
    for (; i < count; ++i)
        to[i] = double(from[i]);
}

// ---- Products and lengths ----------------------------------------------------------------------------

template <int size>
VEXOR_ALWAYS_INLINE Doubles SumOfProducts(Lanes<size> const& a, Lanes<size> const& b)
{
    Doubles sum = a.c[0] * b.c[0];
    VEXOR_UNROLL(24)
    for (int k = 1; k < size; ++k)
        sum = sum + a.c[k] * b.c[k];
    return sum;
}

/// The components of two operands, combined before the registers are split: half as many shuffles.
/// Differences are taken in the element type, so that half as many singles are converted; products of singles
/// are exact as doubles.
template <class Rule, int size, class Element>
struct Combined {
    static constexpr int lanes = width;
    using Vector = Register<Element, lanes>;

    VEXOR_ALWAYS_INLINE Combined(Operand<Element> const& first, Operand<Element> const& second)
        : left(first), right(second), one()
    {
        Operand<Element> const& single = left.isOne ? left : right;
        Element elements[size * lanes];
        for (int k = 0; k < size * lanes; ++k)
            elements[k] = single.data[k % size];
        for (int k = 0; k < size; ++k)
            one[k] = Load<Vector>(elements + k * lanes);
    }

    /// The lanes from element i on. At most one operand is one value.
    template <Order order = Order::ByIndex>
    VEXOR_ALWAYS_INLINE Lanes<size> From(Size i) const
    {
        Doubles registers[size];
        VEXOR_UNROLL(24)
        for (int k = 0; k < size; ++k) {
            Size const place = i * size + Size(k * lanes);
            Vector const a = left.isOne ? one[k] : Load<Vector>(left.data + place);
            Vector const b = right.isOne ? one[k] : Load<Vector>(right.data + place);
            registers[k] = Rule::Combine(a, b);
        }
        return Split<order>(registers);
    }

    VEXOR_ALWAYS_INLINE void PrefetchFrom(Size i) const
    {
        constexpr int bytes = size * width * int(sizeof(Element));
        if (!left.isOne)
            Prefetch<bytes, false>(left.data + i * size);
        if (!right.isOne)
            Prefetch<bytes, false>(right.data + i * size);
    }

    Operand<Element> left;
    Operand<Element> right;
    Vector one[size];
};

VEXOR_ALWAYS_INLINE Doubles AsDoubles(Doubles const& values)
{
    return values;
}

VEXOR_ALWAYS_INLINE Doubles AsDoubles(Singles const& values)
{
    return ToDoubles(values);
}

struct DifferenceRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Doubles Combine(Vector const& a, Vector const& b)
    {
        return AsDoubles(a - b);
    }
};

struct ProductRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Doubles Combine(Vector const& a, Vector const& b)
    {
        return AsDoubles(a) * AsDoubles(b);
    }
};

/// Of points of the plane: the products of x with y and of y with x.
struct CrosswiseRule {
    template <class Vector>
    VEXOR_ALWAYS_INLINE static Doubles Combine(Vector const& a, Vector const& b)
    {
        return CrosswiseProduct(AsDoubles(a), AsDoubles(b), Indices<width>());
    }
    template <int... i>
    VEXOR_ALWAYS_INLINE static Doubles CrosswiseProduct(Doubles const& a, Doubles const& b, At<i...>)
    {
        return a * Shuffle(b, b, At<(i ^ 1)...>());
    }
};

/// Runs `Rule::Compute` over the combined components. It returns false if a lane needs the plain loop.
///
/// Long arrays have a function of their own: with both loops in one, g++ no longer has a loop for each form of the operands,
/// and `Dot` of 1,000 Vec3Dbl takes 1.1 times as long with AVX-512, that of 1,000 Vec2Dbl 1.4 times.
template <bool isLong, class Rule, PairOperation operation, int size, class Element>
__attribute__((noinline)) void RunCombinedOf(Operand<Element> left, Operand<Element> right, Element* results,
                                             Size count)
{
    PairKernel<Element> const plainKernel = Plain<size, Element>().pairs[int(operation)];
    Size i = ElementsBeforeAligned<size, size>(left, right, count);
    if (i > 0)
        plainKernel(left, right, results, i);
    if (!(left.isOne && right.isOne)) {
        constexpr Order order = orderOfNumbers<size, Element>;
        Combined<typename Rule::Components, size, Element> const components(left, right);
        for (; i + width <= count; i += width) {
            if constexpr (isLong) {
                if (i + prefetchDistance < count)
                    components.PrefetchFrom(i + prefetchDistance);
            }
            Lanes<1> result;
            if (__builtin_expect(Rule::Compute(components.template From<order>(i), result), 1))
                StoreLanes<1, order>(results + i, result);
            else
                plainKernel(After(left, i, size), After(right, i, size), results + i, width);
        }
    }
    if (i < count)
        plainKernel(After(left, i, size), After(right, i, size), results + i, count - i);
}

template <class Rule, PairOperation operation, int size, class Element>
void RunCombined(Operand<Element> left, Operand<Element> right, Element* results, Size count)
{
    if (count > largeCount)
        RunCombinedOf<true, Rule, operation, size, Element>(left, right, results, count);
    else
        RunCombinedOf<false, Rule, operation, size, Element>(left, right, results, count);
}

struct DotRule {
    using Components = ProductRule;
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& products, Lanes<1>& result)
    {
        result.c[0] = products.c[0];
        VEXOR_UNROLL(24)
        for (int k = 1; k < size; ++k)
            result.c[0] = result.c[0] + products.c[k];
        return true;
    }
};

struct CrossInPlaneRule {
    using Components = CrosswiseRule;
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<2> const& products, Lanes<1>& result)
    {
        result.c[0] = products.c[0] - products.c[1];
        return true;
    }
};

VEXOR_ALWAYS_INLINE Lanes<3> Cross(Lanes<3> const& a, Lanes<3> const& b)
{
    return {{a.c[1] * b.c[2] - b.c[1] * a.c[2], a.c[2] * b.c[0] - a.c[0] * b.c[2],
             b.c[1] * a.c[0] - a.c[1] * b.c[0]}};
}

struct CrossRule {
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<3> const& a, Lanes<3> const& b, Lanes<3>& result)
    {
        result = Cross(a, b);
        return true;
    }
};

struct LengthSquaredRule {
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& a, Lanes<1>& result)
    {
        result.c[0] = SumOfProducts(a, a);
        return true;
    }
};

constexpr double largestFinite = 1.7976931348623157e308;

/// Whether all are between the limits; false if one of them is a NaN.
VEXOR_ALWAYS_INLINE bool AreWithin(double low, Doubles const& values, double high)
{
    return HasAll(And(LessOrEqual(All(low), values), LessOrEqual(values, All(high))));
}

/// As `vexor::detail::IsPlainSum`: the plain sum of squares holds.
VEXOR_ALWAYS_INLINE bool ArePlainSums(Doubles const& sums)
{
    return AreWithin(0x1p-850, sums, largestFinite);
}

template <class Element>
struct LengthRule {
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& a, Lanes<1>& result)
    {
        Doubles const sum = SumOfProducts(a, a);
        if constexpr (sizeof(Element) == sizeof(float)) {
            result.c[0] = ToDoubles(Root(ToSingles(sum)));
            return true;
        } else {
            result.c[0] = Root(sum);
            return ArePlainSums(sum);
        }
    }
};

template <class Element>
struct NormalizeRule {
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& a, Lanes<size>& result)
    {
        Doubles const sum = SumOfProducts(a, a);
        if constexpr (sizeof(Element) == sizeof(float)) {
            // A null vector raises; a length of 0 or beyond a float is left to the member too.
            Singles const squared = ToSingles(sum);
            Singles const length = Root(squared);
            VEXOR_UNROLL(24)
            for (int k = 0; k < size; ++k)
                result.c[k] = ToDoubles(ToSingles(a.c[k]) / length);
            return AreWithin(0x1p-149, ToDoubles(squared), 3.4028234663852886e38);
        } else {
            if (!ArePlainSums(sum))
                return false;
            Doubles const length = Root(sum);
            VEXOR_UNROLL(24)
            for (int k = 0; k < size; ++k)
                result.c[k] = a.c[k] / length;
            return true;
        }
    }
};

#if defined(VEXOR_SET_FUSED)

/// A reciprocal r of a length with |1 − length·r| < 2^-53: the nearest double, or one hardly farther away.
///
/// An estimate has 14 bits, or 5 and after a cubic step 14 (AVX2). Two steps double them, so that r is within
/// one unit in the last place and its error e = 1 − length·r is exact. The last step adds r·e, and 2^-105 to e:
/// the reciprocal of the significand 2 − 2^-52 lies 2^-107 above the middle between two doubles, and a tie would
/// decide there.
VEXOR_ALWAYS_INLINE Doubles Reciprocal(Doubles const& length, Doubles const& squaredLength)
{
    Doubles const one = All(1.0);
#    if defined(VEXOR_SET_AVX512)
    Doubles reciprocal = _mm512_maskz_rsqrt14_pd(0xff, squaredLength);
#    else
    // Halves and negates the exponent; the constant makes the largest error least (Robertson 2012).
    typedef unsigned long long Integers __attribute__((vector_size(sizeof(Doubles))));
    Doubles const estimate =
        reinterpret_cast<Doubles>(0x5fe6eb50c7b537a9ULL - (reinterpret_cast<Integers>(squaredLength) >> 1));
    Doubles const rough = SubtractProduct(one, length, estimate);
    Doubles reciprocal = MultiplyAdd(MultiplyAdd(rough, rough, rough), estimate, estimate);
#    endif
    VEXOR_UNROLL(2)
    for (int step = 0; step < 2; ++step)
        reciprocal = MultiplyAdd(SubtractProduct(one, length, reciprocal), reciprocal, reciprocal);
    Doubles const error = SubtractProduct(one, length, reciprocal) + All(0x1p-105);
    return MultiplyAdd(error, reciprocal, reciprocal);
}

/// The quotient, rounded to nearest like that of a division (Markstein 1990). The first quotient is off by less than
/// 1.5 units in the last place. Near half a unit, where the rounding is decided, its remainder is exact and the
/// reciprocal close enough. The remainder is negated so that a −0 stays one.
VEXOR_ALWAYS_INLINE Doubles Quotient(Doubles const& value, Doubles const& length, Doubles const& reciprocal)
{
    Doubles const quotient = value * reciprocal;
    Doubles const negatedRemainder = MultiplyAdd(quotient, length, -value);
    return SubtractProduct(quotient, negatedRemainder, reciprocal);
}

/// Vectors whose lengths are being computed.
template <int size>
struct Measured {
    Lanes<size> vectors;
    Doubles squared;
    Doubles lengths;
    Mask ordinary; ///< lanes with a finite sum and no small component

    VEXOR_ALWAYS_INLINE explicit Measured(Lanes<size> const& lanes) : vectors(lanes)
    {
        Doubles least = vectors.c[0] * vectors.c[0];
        VEXOR_UNROLL(24)
        for (int k = 1; k < size; ++k)
            least = Lesser(least, vectors.c[k] * vectors.c[k]);
        squared = SumOfProducts(vectors, vectors);
        lengths = Root(squared);
        // A component of at least 2^-500 leaves remainders far above underflow.
        ordinary = And(LessOrEqual(squared, All(largestFinite)), LessOrEqual(All(0x1p-1000), least));
    }

    /// Whether quotients by the lengths may be formed as above.
    VEXOR_ALWAYS_INLINE bool AreOrdinary() const
    {
        return __builtin_expect(HasAll(ordinary), 1) || (ArePlainSums(squared) && AreClearOfUnderflow());
    }

    /// Whether all components are 0 or at least 2^-500.
    VEXOR_ALWAYS_INLINE bool AreClearOfUnderflow() const
    {
        Mask isClear = Less(Doubles{}, All(1.0));
        VEXOR_UNROLL(24)
        for (int k = 0; k < size; ++k) {
            Doubles const magnitude = Magnitude(vectors.c[k]);
            isClear = And(isClear, Or(Equal(magnitude, Doubles{}), LessOrEqual(All(0x1p-500), magnitude)));
        }
        return HasAll(isClear);
    }

    VEXOR_ALWAYS_INLINE Lanes<size> UnitVectors(Doubles const& reciprocals) const
    {
        Lanes<size> units;
        VEXOR_UNROLL(24)
        for (int k = 0; k < size; ++k)
            units.c[k] = Quotient(vectors.c[k], lengths, reciprocals);
        return units;
    }

    /// Stores the unit vectors of the elements at `from`.
    VEXOR_ALWAYS_INLINE void Divide(Doubles const& reciprocals, double const* from, double* to) const
    {
        if (__builtin_expect(!AreOrdinary(), 0)) {
            RunSingle<NormalizeRule<double>, size, size>(
                from, to, width, Plain<size, double>().singles[int(SingleOperation::Normalize)]);
            return;
        }
        StoreLanes(to, UnitVectors(reciprocals));
    }
};

template <int size>
void Normalize(double const* operands, double* results, Size count)
{
    SingleKernel<double> const plainKernel = Plain<size, double>().singles[int(SingleOperation::Normalize)];
    Size i = ElementsBeforeAligned<size>(operands, count);
    if (i > 0)
        plainKernel(operands, results, i);
    bool const isLarge = count > largeCount;
    // Prefetches the vectors and unit vectors of some registers.
    auto const prefetch = [&](auto registers) {
        constexpr int bytes = registers * width * size * int(sizeof(double));
        Size const ahead = i + prefetchDistance;
        if (isLarge && ahead < count) {
            Prefetch<bytes, false>(operands + ahead * size);
            Prefetch<bytes, true>(results + ahead * size);
        }
    };
#    if defined(VEXOR_SET_AVX512)
    // The root of the next register is under way while this one is divided: 1.06 times as fast.
    if (i + width <= count) {
        Measured<size> next(LoadLanes<size>(operands + i * size));
        for (; i + width <= count; i += width) {
            Measured<size> const current = next;
            prefetch(std::integral_constant<int, 1>());
            if (i + 2 * width <= count)
                next = Measured<size>(LoadLanes<size>(operands + (i + width) * size));
            current.Divide(Reciprocal(current.lengths, current.squared), operands + i * size,
                           results + i * size);
        }
    }
#    else
    // Two of three reciprocals by divisions use both the unit for divisions and those for products: 1.15 times
    // as fast as three.
    constexpr Size turn = 3 * width;
    for (; i + turn <= count; i += turn) {
        prefetch(std::integral_constant<int, 3>());
        double const* const from = operands + i * size;
        double* const to = results + i * size;
        constexpr int step = width * size;
        Measured<size> const first(LoadLanes<size>(from));
        Measured<size> const second(LoadLanes<size>(from + step));
        Measured<size> const third(LoadLanes<size>(from + 2 * step));
        first.Divide(All(1.0) / first.lengths, from, to);
        second.Divide(Reciprocal(second.lengths, second.squared), from + step, to + step);
        third.Divide(All(1.0) / third.lengths, from + 2 * step, to + 2 * step);
    }
    for (; i + width <= count; i += width) {
        Measured<size> const last(LoadLanes<size>(operands + i * size));
        last.Divide(All(1.0) / last.lengths, operands + i * size, results + i * size);
    }
#    endif
    if (i < count)
        plainKernel(operands + i * size, results + i * size, count - i);
}

#endif

/// The running sum of squared differences, rounded at each step.
template <class Element, int size>
VEXOR_ALWAYS_INLINE Doubles SquaredDistance(Lanes<size> const& d)
{
    Doubles sum = {};
    VEXOR_UNROLL(24)
    for (int k = 0; k < size; ++k)
        sum = RoundTo<Element>(sum + d.c[k] * d.c[k]);
    return sum;
}

template <class Element>
struct DistanceSqToRule {
    using Components = DifferenceRule;
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& differences, Lanes<1>& result)
    {
        result.c[0] = SquaredDistance<Element>(differences);
        return true;
    }
};

template <class Element>
struct DistanceToRule {
    using Components = DifferenceRule;
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& differences, Lanes<1>& result)
    {
        Doubles const sum = SquaredDistance<Element>(differences);
        if constexpr (sizeof(Element) == sizeof(float)) {
            result.c[0] = ToDoubles(Root(ToSingles(sum)));
            return AreWithin(0x1p-149, sum, 3.4028234663852886e38);
        } else {
            result.c[0] = Root(sum);
            return ArePlainSums(sum);
        }
    }
};

template <class Rule, PairOperation operation, int size, int resultSize, class Element>
void Pair(Operand<Element> left, Operand<Element> right, Element* results, Size count)
{
    RunPair<Rule, size, size, resultSize>(left, right, results, count,
                                          Plain<size, Element>().pairs[int(operation)]);
}

template <class Rule, SingleOperation operation, int size, int resultSize, class Element>
void Single(Element const* operands, Element* results, Size count)
{
    RunSingle<Rule, size, resultSize>(operands, results, count,
                                      Plain<size, Element>().singles[int(operation)]);
}

// ---- Tests -------------------------------------------------------------------------------------------

/// Squared lengths and a dot product of lanes, rounded to the element type.
struct Directions {
    Doubles dot;
    Doubles a;
    Doubles b;
};

/// Squared lengths for which the quotients of a test are far from overflow and underflow.
template <class Element>
VEXOR_ALWAYS_INLINE bool AreOrdinary(Directions const& d)
{
    constexpr bool isSingle = sizeof(Element) == sizeof(float);
    constexpr double low = isSingle ? 0x1p-149 : 0x1p-400;
    constexpr double high = isSingle ? 3.4028234663852886e38 : 0x1p+400;
    return HasAll(And(And(LessOrEqual(All(low), d.a), LessOrEqual(d.a, All(high))),
                      And(LessOrEqual(All(low), d.b), LessOrEqual(d.b, All(high)))));
}

/// Whether a squared cosine c = (dot·dot / a) / b, or 1 − c, is within a tolerance, without the two
/// divisions: dot·dot is compared with a·b times the tolerance or times 1 minus the tolerance. False if a
/// lane is so close to the limit that the roundings could decide.
///
/// Their relative errors are a few times 2^-53, and 2^-24 where 1 − c or c is rounded to single. The margin
/// is at least twice that. The tests are 1.4 to 1.6 times as fast as with the divisions.
template <bool isPerpendicular, class Element>
VEXOR_ALWAYS_INLINE bool IsWithinAngle(Directions const& d, Doubles const& angular, Mask& result)
{
    constexpr bool isSingle = sizeof(Element) == sizeof(float);
    Doubles const squaredDot = d.dot * d.dot;
    Doubles const lengths = d.a * d.b;
    Doubles const limit = (isPerpendicular ? angular : All(1.0) - angular) * lengths;
    Doubles const difference = isPerpendicular ? limit - squaredDot : squaredDot - limit;
    Doubles margin;
    if constexpr (isPerpendicular) // the quotients may underflow
        margin =
            (squaredDot + Magnitude(limit)) * All(isSingle ? 0x1p-22 : 0x1p-50) + lengths * All(0x1p-140);
    else
        margin = (squaredDot + Magnitude(limit) + lengths) * All(0x1p-50);
    if constexpr (isSingle && !isPerpendicular)
        margin = margin + Magnitude(angular * lengths) * All(0x1p-22);
    result = Less(margin, difference);
    return HasAll(Less(margin, Magnitude(difference)));
}

template <TestOperation operation, class Element, int size>
VEXOR_ALWAYS_INLINE bool TestLanes(Lanes<size> const& left, Lanes<size> const& right,
                                   Limits<Element> const& limits, Mask& result)
{
    using Operation = TestOperation;
    Doubles const angular = All(double(limits.angular));
    Doubles const one = All(1.0);
    Doubles const dot = RoundTo<Element>(SumOfProducts(left, right));
    constexpr bool isUnit = operation == Operation::IsUnitParallelTo
                            || operation == Operation::IsUnitCodirectionalTo
                            || operation == Operation::IsUnitPerpendicularTo;
    if constexpr (isUnit) {
        if constexpr (operation == Operation::IsUnitPerpendicularTo)
            result = LessOrEqual(RoundTo<Element>(dot * dot), angular);
        else
            result = LessOrEqual(Magnitude(RoundTo<Element>(one - dot * dot)), angular);
        if constexpr (operation == Operation::IsUnitCodirectionalTo)
            result = And(result, Less(Doubles{}, dot));
        return true;
    } else {
        Directions const d = {dot, RoundTo<Element>(SumOfProducts(left, left)),
                              RoundTo<Element>(SumOfProducts(right, right))};
        if (!AreOrdinary<Element>(d))
            return false;
        Doubles const length =
            All(double(operation == Operation::IsEqualTo ? limits.globalLength : limits.length));
        constexpr bool isPerpendicular = operation == Operation::IsPerpendicularTo;
        if (!IsWithinAngle<isPerpendicular, Element>(d, angular, result)) {
            Doubles const squaredCosine = ((dot * dot) / d.a) / d.b;
            result =
                LessOrEqual(RoundTo<Element>(isPerpendicular ? squaredCosine : one - squaredCosine), angular);
        }
        result = And(result, Not(Or(LessOrEqual(d.a, length), LessOrEqual(d.b, length))));
        if constexpr (operation == Operation::IsCodirectionalTo || operation == Operation::IsEqualTo)
            result = And(result, Less(Doubles{}, dot));
        if constexpr (operation == Operation::IsEqualTo) {
            Lanes<size> difference;
            VEXOR_UNROLL(24)
            for (int k = 0; k < size; ++k)
                difference.c[k] = RoundTo<Element>(left.c[k] - right.c[k]);
            result = And(result, LessOrEqual(RoundTo<Element>(SumOfProducts(difference, difference)),
                                             All(double(limits.length))));
        }
        return true;
    }
}

/// With AVX2 and AVX-512 `IsParallelTo` of 1,000,000 elements takes 0.6 to 0.7 of the time without prefetching.
template <TestOperation operation, int size, class Element>
void Test(Operand<Element> left, Operand<Element> right, Limits<Element> const& limits,
          unsigned char* results, Size count)
{
    Source<size, Element> const a(left);
    Source<size, Element> const b(right);
    TestKernel<Element> const plainKernel = Plain<size, Element>().tests[int(operation)];
    Size i = ElementsBeforeAligned<size, size>(left, right, count);
    if (i > 0)
        plainKernel(left, right, limits, results, i);
    bool const isLarge = count > largeCount;
    for (; i + width <= count; i += width) {
        Mask result;
        if (isLarge && i + prefetchDistance < count) {
            a.PrefetchFrom(i + prefetchDistance);
            b.PrefetchFrom(i + prefetchDistance);
        }
        if (__builtin_expect(TestLanes<operation, Element>(a.From(i), b.From(i), limits, result), 1))
            StoreBytes(results + i, result);
        else
            plainKernel(After(left, i, size), After(right, i, size), limits, results + i, width);
    }
    if (i < count)
        plainKernel(After(left, i, size), After(right, i, size), limits, results + i, count - i);
}

/// Long arrays have a function of their own as in `RunCombined`: with both loops in one, `IsEqualTo` of 1,000 Pnt2Dbl takes
/// 1.5 times as long in the baseline. 1,000,000 Pnt3Dbl take 1.2 to 1.5 times as long without prefetching.
template <bool isLong, int size, class Element>
__attribute__((noinline)) void TestPointsOf(Operand<Element> left, Operand<Element> right,
                                            Limits<Element> const& limits, unsigned char* results, Size count)
{
    TestKernel<Element> const plainKernel = Plain<size, Element>().tests[int(TestOperation::IsPointEqualTo)];
    Size i = ElementsBeforeAligned<size, size>(left, right, count);
    if (i > 0)
        plainKernel(left, right, limits, results, i);
    if (!(left.isOne && right.isOne)) {
        Combined<DifferenceRule, size, Element> const differences(left, right);
        Doubles const limit = All(double(limits.squaredDistance));
        for (; i + width <= count; i += width) {
            if constexpr (isLong) {
                if (i + prefetchDistance < count)
                    differences.PrefetchFrom(i + prefetchDistance);
            }
            StoreBytes(results + i, LessOrEqual(SquaredDistance<Element>(differences.From(i)), limit));
        }
    }
    if (i < count)
        plainKernel(After(left, i, size), After(right, i, size), limits, results + i, count - i);
}

template <int size, class Element>
void TestPoints(Operand<Element> left, Operand<Element> right, Limits<Element> const& limits,
                unsigned char* results, Size count)
{
    if (count > largeCount)
        TestPointsOf<true, size, Element>(left, right, limits, results, count);
    else
        TestPointsOf<false, size, Element>(left, right, limits, results, count);
}

// ---- Maps --------------------------------------------------------------------------------------------

/// A register of points of the plane, each pair of neighbours with the first or second of them twice.
template <int which, int... i>
VEXOR_ALWAYS_INLINE Doubles Doubled(Doubles const& points, At<i...>)
{
    return Shuffle(points, points, At<((i & ~1) | which)...>());
}

/// Two numbers in turn.
template <int... i>
VEXOR_ALWAYS_INLINE Doubles Alternating(double even, double odd, At<i...>)
{
    return Shuffle(All(even), All(odd), At<(i % 2 == 0 ? i : width + i)...>());
}

/// A map of points of the plane. They need not be split: each register holds x and y of its points in turn.
template <MapOperation operation>
struct MappingInPlane {
    VEXOR_ALWAYS_INLINE explicit MappingInPlane(double const* map)
        : x(Alternating(map[0], map[2], Indices<width>())),
          y(Alternating(map[1], map[3], Indices<width>())),
          translation()
    {
        if constexpr (operation == MapOperation::Affine)
            translation = Alternating(map[4], map[5], Indices<width>());
    }

    /// Maps a register of points.
    VEXOR_ALWAYS_INLINE Doubles Of(double const* points) const
    {
        Doubles const p = Load<Doubles>(points);
        Doubles sum = x * Doubled<0>(p, Indices<width>()) + y * Doubled<1>(p, Indices<width>());
        if constexpr (operation == MapOperation::Affine)
            sum = sum + translation;
        return sum;
    }

    Doubles x;
    Doubles y;
    Doubles translation;
};

/// The results are stored at multiples of a register's length. The first and the last points outside of them are
/// mapped before any result is stored, together with neighbours that are mapped twice.
template <MapOperation operation>
void MapInPlane(double const* map, double const* operands, double* results, Size count)
{
    constexpr Size points = width / 2;
    if (count < points) {
        plain::kernels.inPlane.maps[int(operation)](map, operands, results, count);
        return;
    }
    MappingInPlane<operation> const mapping(map);
    Size const end = count * 2;
    Doubles const first = mapping.Of(operands);
    Doubles const last = mapping.Of(operands + end - width);
    Size j = points == 1 ? 0 : ElementsBeforeAligned(results) & ~Size(1);
    constexpr int turns = 4;
    bool const isLarge = count > largeCount;
    for (; j + turns * width <= end; j += turns * width) {
        if (isLarge && j + 3 * prefetchDistance < end) {
            Prefetch<turns* int(sizeof(Doubles)), true>(results + j + 3 * prefetchDistance);
            Prefetch<turns* int(sizeof(Doubles)), false>(operands + j + 3 * prefetchDistance);
        }
        VEXOR_UNROLL(24)
        for (int k = 0; k < turns; ++k)
            Store(results + j + k * width, mapping.Of(operands + j + k * width));
    }
    for (; j + width <= end; j += width)
        Store(results + j, mapping.Of(operands + j));
    if (points == 1)
        return;
    Store(results, first);
    Store(results + end - width, last);
}

/// A map of points in lanes.
template <MapOperation operation, int size, class Element>
struct Mapping {
    VEXOR_ALWAYS_INLINE explicit Mapping(double const* map)
    {
        for (int r = 0; r < size; ++r) {
            for (int k = 0; k < size; ++k)
                rows[r].c[k] = All(map[r * size + k]);
            translation.c[r] = All(map[size * size + r]);
        }
    }

    VEXOR_ALWAYS_INLINE Lanes<size> Of(Lanes<size> const& x) const
    {
        Lanes<size> y;
        VEXOR_UNROLL(24)
        for (int r = 0; r < size; ++r) {
            y.c[r] = SumOfProducts(rows[r], x);
            if constexpr (operation == MapOperation::Affine)
                y.c[r] = RoundTo<Element>(y.c[r]) + translation.c[r];
            if constexpr (operation == MapOperation::LinearToSingle)
                y.c[r] = RoundTo<float>(y.c[r]);
        }
        return y;
    }

    Lanes<size> rows[size];
    Lanes<size> translation;
};

#if defined(VEXOR_SET_AVX512)
/// Maps at least three registers of points in space, in blocks as `RunBlocks` does. If points and results lie at different
/// places in their cache lines, an affine map takes 0.65 of the time that it takes with aligned loads. 66 points take 50 ns,
/// and 66 ns with the plain loop for the ends; 1,000,000 take 1.1 to 1.3 times as long without prefetching.
///
/// The points of the next register are loaded before those of this one are mapped, and a turn of the loop maps four
/// registers: 0.96 of the time for 1,000 points. `RunBlocks` does not load early: with two operands the registers do not
/// suffice, and `Cross` takes 1.7 times as long.
template <MapOperation operation, class Element>
VEXOR_ALWAYS_INLINE void MapByThrees(Mapping<operation, 3, Element> const& mapping, Element const* operands,
                                     Element* results, Size count)
{
    auto const pointsFrom = [&](Size i) { return LoadLanes<3, Order::ByThree>(operands + i * 3); };
    auto const store = [&](Size i, Lanes<3> const& points) {
        StoreLanes<3, Order::ByThree, false>(results + i * 3, points);
    };
    Size const before = ElementsBeforeAligned<3>(results, count);
    Size i = before > 0 ? before : width;
    Lanes<3> const first = mapping.Of(pointsFrom(0));
    Lanes<3> const second = mapping.Of(pointsFrom(i));
    store(0, first);
    store(i, second);
    i += width;
    Lanes<3> points = pointsFrom(i);
    auto const step = [&](Size at) {
        Lanes<3> const next = pointsFrom(at + width);
        store(at, mapping.Of(points));
        points = next;
    };
    if (count > largeCount) {
        for (; i + prefetchDistance < count; i += width) {
            constexpr int bytes = 3 * width * int(sizeof(Element));
            Prefetch<bytes, true>(results + (i + prefetchDistance) * 3);
            Prefetch<bytes, false>(operands + (i + prefetchDistance) * 3);
            step(i);
        }
    }
    constexpr int turns = 4;
    for (; i + (turns + 1) * width <= count; i += turns * width) {
        VEXOR_UNROLL(24)
        for (int k = 0; k < turns; ++k)
            step(i + Size(k * width));
    }
    for (; i + 2 * width <= count; i += width)
        step(i);
    Lanes<3> const last = mapping.Of(pointsFrom(count - width));
    store(i, mapping.Of(points));
    store(count - width, last);
}
#endif

template <MapOperation operation, int size, class Element>
void Map(double const* map, Element const* operands, Element* results, Size count)
{
    MapKernel<Element> const plainKernel = Plain<size, Element>().maps[int(operation)];
    Mapping<operation, size, Element> const mapping(map);
#if defined(VEXOR_SET_AVX512)
    if constexpr (size == 3) {
        if (count >= 3 * width) {
            MapByThrees(mapping, operands, results, count);
            return;
        }
    }
#endif
    Size i = ElementsBeforeAligned<size>(operands, count);
    if (i > 0)
        plainKernel(map, operands, results, i);
    for (; i + width <= count; i += width)
        StoreLanes(results + i * size, mapping.Of(LoadLanes<size>(operands + i * size)));
    if (i < count)
        plainKernel(map, operands + i * size, results + i * size, count - i);
}

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
