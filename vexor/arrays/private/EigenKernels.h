#pragma once
#include <vexor/arrays/private/ElementaryLanes.h>
#include <vexor/arrays/private/MatrixKernels.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/vectors/detail/FullRange.h>

#include <algorithm>
#include <limits>

// Eigenvalues and eigenvectors of symmetric matrices in lanes, and angles. See vexor/matrices/Mat3Dbl.cpp for
// the formulas. If a lane needs more (an error, an undecided rounding, equal eigenvalues, a matrix of rank 1
// after its eigenvalue is subtracted), its register is passed to the plain set.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

#if defined(VEXOR_SET_FUSED)

/// `vexor::detail::ClampedArcCosine`; a NaN is never decided. The results are from 0 to π in every lane.
VEXOR_ALWAYS_INLINE Mask ClampedArcCosine(Doubles const& cosine, Doubles& result)
{
    Mask const isZero = LessOrEqual(All(1.0), cosine);
    Mask const isPi = LessOrEqual(cosine, All(-1.0));
    // The bits of other numbers and of a NaN must not become an index of a table.
    Mask const isInside = And(Less(All(-1.0), cosine), Less(cosine, All(1.0)));
    Mask const isDecided = ArcCosine(Select(isInside, cosine, Doubles{}), result);
    result = Select(isZero, Doubles{}, Select(isPi, All(vexor::detail::pi), result));
    return Or(Or(isZero, isPi), And(isDecided, isInside));
}

/// The upper triangles of symmetric matrices:
///     a b c
///       d e
///         f
struct UpperTriangles {
    Doubles a, b, c, d, e, f;
};

/// The roots of characteristic cubics are radius · cos(angle + k · 120°) − shift with 3 · angle = acos(cosine).
struct Cubics {
    Doubles radius, shift, cosine;
    bool isPlain; ///< Whether no lane needs the member.
};

VEXOR_ALWAYS_INLINE Cubics CharacteristicCubics(UpperTriangles const& m)
{
    Doubles const &a = m.a, &b = m.b, &c = m.c, &d = m.d, &e = m.e, &f = m.f;
    Doubles const third = All(0.3333333333333333);
    Doubles const S = -a - d - f;
    Doubles const T = a * d + f * (a + d) - e * e - b * b - c * c;
    Doubles const D = f * (b * b - a * d) + a * (e * e) - All(2.0) * b * c * e + c * c * d;
    Doubles const P = T - S * S * third;
    Doubles const R = All(2.0) * Root(P * -third);
    Doubles const Q = D + (All(2.0) * (S * S * S) / All(27.0) - T * S * third);
    return {R, S * third, ((Q * All(3.0)) / P) / R, HasAll(Less(P, Doubles{}))};
}

/// The roots in ascending order; false if a lane needs the member.
VEXOR_ALWAYS_INLINE bool Roots(Cubics const& cubics, Doubles const& angle, Lanes<3>& values)
{
    Doubles sine;
    Doubles cosine;
    bool const isDecided = HasAll(SineAndCosine(angle, sine, cosine));
    Doubles const scaledSine = All(vexor::detail::squareRootOfThree) * sine;
    Doubles const &R = cubics.radius, &z = cubics.shift;
    Doubles const half = R * All(0.5);
    Doubles const e1 = R * cosine - z;
    Doubles const e2 = half * (scaledSine - cosine) - z;
    Doubles const e3 = half * (-cosine - scaledSine) - z;

    Mask const isFirstLower = Less(e1, e2);
    Doubles const lower = Select(isFirstLower, e1, e2);
    Doubles const higher = Select(isFirstLower, e2, e1);
    Mask const isThirdLeast = LessOrEqual(e3, lower);
    Mask const isThirdGreatest = Less(higher, e3);
    values.c[0] = Select(isThirdLeast, e3, lower);
    values.c[1] = Select(isThirdLeast, lower, Select(isThirdGreatest, higher, e3));
    values.c[2] = Select(isThirdLeast, higher, Select(isThirdGreatest, e3, higher));
    return isDecided && cubics.isPlain;
}

/// Of three values, the one whose index the masks of the indices 0 and 1 select.
VEXOR_ALWAYS_INLINE Doubles PickOne(Mask const& isZeroth, Mask const& isFirst, Doubles const& zeroth,
                                    Doubles const& first, Doubles const& second)
{
    return Select(isZeroth, zeroth, Select(isFirst, first, second));
}

/// The unit eigenvectors to eigenvalues; false if a lane needs the member.
VEXOR_ALWAYS_INLINE bool EigenVectors(UpperTriangles const& m, Doubles const& value, Lanes<3>& vector)
{
    Doubles const w[3][3] = {{m.a - value, m.b, m.c}, {m.b, m.d - value, m.e}, {m.c, m.e, m.f - value}};

    // The first of the largest elements of the upper triangle, row by row: it is in row p and column q.
    Doubles largest = {};
    Mask const none = Less(largest, largest);
    Mask isRow[3] = {none, none, none};
    Mask isColumn[3] = {none, none, none};
    VEXOR_UNROLL(24)
    for (int i = 0; i < 3; ++i) {
        VEXOR_UNROLL(24)
        for (int k = i; k < 3; ++k) {
            Doubles const magnitude = Magnitude(w[i][k]);
            Mask const isLarger = Less(largest, magnitude);
            largest = Select(isLarger, magnitude, largest);
            VEXOR_UNROLL(24)
            for (int n = 0; n < 3; ++n) {
                isRow[n] = n == i ? Or(isRow[n], isLarger) : And(isRow[n], Not(isLarger));
                isColumn[n] = n == k ? Or(isColumn[n], isLarger) : And(isColumn[n], Not(isLarger));
            }
        }
    }

    // The rows p, p + 1 and p + 2 and of each the columns q, q + 1 and q + 2, cyclically.
    Doubles turned[3][3];
    VEXOR_UNROLL(24)
    for (int i = 0; i < 3; ++i) {
        Doubles row[3];
        VEXOR_UNROLL(24)
        for (int k = 0; k < 3; ++k)
            row[k] = PickOne(isRow[0], isRow[1], w[i][k], w[(i + 1) % 3][k], w[(i + 2) % 3][k]);
        VEXOR_UNROLL(24)
        for (int k = 0; k < 3; ++k)
            turned[i][k] = PickOne(isColumn[0], isColumn[1], row[k], row[(k + 1) % 3], row[(k + 2) % 3]);
    }

    // The first of the largest minors with that element: row 1 with columns 1 and 2, then row 2.
    Doubles const(&first)[3] = turned[0];
    Doubles minor = {};
    Mask isLastRow = none;
    Mask isLastColumn = none;
    VEXOR_UNROLL(24)
    for (int i = 1; i < 3; ++i) {
        VEXOR_UNROLL(24)
        for (int k = 1; k < 3; ++k) {
            Doubles const candidate = turned[i][k] * first[0] - first[k] * turned[i][0];
            Mask const isLarger = Less(Magnitude(minor), Magnitude(candidate));
            minor = Select(isLarger, candidate, minor);
            isLastRow = i == 2 ? Or(isLastRow, isLarger) : And(isLastRow, Not(isLarger));
            isLastColumn = k == 2 ? Or(isLastColumn, isLarger) : And(isLastColumn, Not(isLarger));
        }
    }
    Doubles partner[3];
    VEXOR_UNROLL(24)
    for (int k = 0; k < 3; ++k)
        partner[k] = Select(isLastRow, turned[2][k], turned[1][k]);
    Doubles const ownChosen = Select(isLastColumn, first[2], first[1]);
    Doubles const ownLeft = Select(isLastColumn, first[1], first[2]);
    Doubles const chosen = Select(isLastColumn, partner[2], partner[1]);
    Doubles const left = Select(isLastColumn, partner[1], partner[2]);
    Doubles const atQ = ownChosen * left - chosen * ownLeft;
    Doubles const atChosen = partner[0] * ownLeft - first[0] * left;
    Doubles const next = Select(isLastColumn, minor, atChosen);      // column q + 1
    Doubles const afterNext = Select(isLastColumn, atChosen, minor); // column q + 2
    Lanes<3> const result = {{PickOne(isColumn[0], isColumn[1], atQ, afterNext, next),
                              PickOne(isColumn[0], isColumn[1], next, atQ, afterNext),
                              PickOne(isColumn[0], isColumn[1], afterNext, next, atQ)}};
    bool const hasRank = HasAll(Less(Doubles{}, Magnitude(minor)));
    return hasRank && NormalizeRule<double>::Compute(result, vector);
}

/// Whether no lane has two eigenvalues that count as equal. `smaller` and `larger` are in ascending order.
VEXOR_ALWAYS_INLINE bool AreApart(Doubles const& smaller, Doubles const& larger)
{
    Doubles const difference = Magnitude(smaller - larger);
    Doubles const left = Magnitude(smaller);
    Doubles const right = Magnitude(larger);
    Doubles const greater = Select(Less(right, left), left, right);
    constexpr double factor = 10.0 * std::numeric_limits<double>::epsilon();
    return HasAll(And(LessOrEqual(greater * All(factor), difference), Not(Equal(smaller, larger))));
}

VEXOR_ALWAYS_INLINE bool AllVectors(UpperTriangles const& m, Lanes<3> const& values, Lanes<9>& vectors)
{
    if (!AreApart(values.c[0], values.c[1]) || !AreApart(values.c[1], values.c[2]))
        return false;
    for (int i = 0; i < 3; ++i) {
        Lanes<3> vector;
        if (!EigenVectors(m, values.c[i], vector))
            return false;
        for (int k = 0; k < 3; ++k)
            vectors.c[3 * i + k] = vector.c[k];
    }
    return true;
}

VEXOR_ALWAYS_INLINE UpperTriangles LoadTriangles(double const* matrices)
{
    Lanes<9> const all = LoadMatrices(matrices);
    return {all.c[0], all.c[1], all.c[2], all.c[4], all.c[5], all.c[8]};
}

/// Each step runs over several registers before the next one, since each step of a lane waits for the one before:
/// the eigenvalues of 1,000 matrices take 0.63 of the time with AVX2, 0.68 with AVX-512.
/// Long arrays prefetch the next registers: 1,000,000 matrices take 0.8 of the time. They have a function of their own: with
/// the prefetching in the loop, 1,000 take 1.05 times as long with AVX2.
template <bool isLong>
__attribute__((noinline)) void EigenSymOf(double const* matrices, double* values, double* vectors, Size count)
{
    constexpr Size largest = 16;
    Size i = 0;
    while (i + width <= count) {
        Size const registers = std::min(largest, (count - i) / width);
        Cubics cubics[largest];
        Doubles angles[largest];
        for (Size k = 0; k < registers; ++k)
            cubics[k] = CharacteristicCubics(LoadTriangles(matrices + (i + k * width) * matrixStride));
        for (Size k = 0; k < registers; ++k) {
            if constexpr (isLong)
                PrefetchHalf<true>(matrices, i + (largest + k) * width, count);
            bool const isDecided = HasAll(ClampedArcCosine(cubics[k].cosine, angles[k]));
            cubics[k].isPlain = cubics[k].isPlain && isDecided;
            angles[k] = angles[k] * All(0.3333333333333333);
        }
        for (Size k = 0; k < registers; ++k, i += width) {
            if constexpr (isLong) {
                Size const ahead = i + largest * width;
                PrefetchHalf<false>(matrices, ahead, count);
                if (ahead < count) {
                    Prefetch<3 * int(sizeof(Doubles)), true>(values + ahead * 3);
                    if (vectors != nullptr)
                        Prefetch<matrixBytes, true>(vectors + ahead * matrixStride);
                }
            }
            Lanes<3> eigenValues;
            Lanes<9> eigenVectors = {};
            double const* const from = matrices + i * matrixStride;
            double* const to = vectors == nullptr ? nullptr : vectors + i * matrixStride;
            bool isPlain = Roots(cubics[k], angles[k], eigenValues);
            if (to != nullptr)
                isPlain = isPlain && AllVectors(LoadTriangles(from), eigenValues, eigenVectors);
            if (__builtin_expect(!isPlain, 0)) {
                plain::kernels.eigenSym(from, values + i * 3, to, width);
                continue;
            }
            StoreLanes(values + i * 3, eigenValues);
            if (to != nullptr)
                StoreMatrices(to, eigenVectors);
        }
    }
    if (i < count)
        plain::kernels.eigenSym(matrices + i * matrixStride, values + i * 3,
                                vectors == nullptr ? nullptr : vectors + i * matrixStride, count - i);
}

void EigenSym(double const* matrices, double* values, double* vectors, Size count)
{
    if (count > largeCount)
        EigenSymOf<true>(matrices, values, vectors, count);
    else
        EigenSymOf<false>(matrices, values, vectors, count);
}

/// `vexor::detail::IsPlainPair`.
VEXOR_ALWAYS_INLINE bool ArePlainPairs(Doubles const& a, Doubles const& b)
{
    return AreWithin(vexor::detail::smallestOfPlainPair, a, vexor::detail::largestOfPlainPair)
           && AreWithin(vexor::detail::smallestOfPlainPair, b, vexor::detail::largestOfPlainPair);
}

struct GetAngleWithRule {
    template <int size>
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<size> const& left, Lanes<size> const& right,
                                            Lanes<1>& result)
    {
        Doubles const a = SumOfProducts(left, left);
        Doubles const b = SumOfProducts(right, right);
        if (!ArePlainPairs(a, b))
            return false;
        Doubles const cosine = (SumOfProducts(left, right) / Root(a)) / Root(b);
        return HasAll(ClampedArcCosine(cosine, result.c[0]));
    }
};

template <int size, class Element>
constexpr PairKernel<Element> AngleKernel()
{
    if constexpr (sizeof(Element) == sizeof(double))
        return Pair<GetAngleWithRule, PairOperation::GetAngleWith, size, 1, Element>;
    else
        return nullptr;
}

constexpr auto eigenSymKernel = EigenSym;

#else

template <int size, class Element>
constexpr PairKernel<Element> AngleKernel()
{
    return nullptr;
}

constexpr decltype(KernelSet::eigenSym) eigenSymKernel = nullptr;

#endif

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
