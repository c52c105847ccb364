#pragma once
#include <vexor/arrays/private/VectorKernels.h>

#include <algorithm>

// Arrays of quaternions and of matrices.

VEXOR_SET_BEGIN

namespace vexor::arrays::detail::VEXOR_SET {

namespace {

// ---- Quaternions -------------------------------------------------------------------------------------

VEXOR_ALWAYS_INLINE Lanes<3> Times(Doubles const& factor, Lanes<3> const& v)
{
    return {{v.c[0] * factor, v.c[1] * factor, v.c[2] * factor}};
}

VEXOR_ALWAYS_INLINE Lanes<3> Plus(Lanes<3> const& a, Lanes<3> const& b)
{
    return {{a.c[0] + b.c[0], a.c[1] + b.c[1], a.c[2] + b.c[2]}};
}

VEXOR_ALWAYS_INLINE Lanes<3> Minus(Lanes<3> const& a, Lanes<3> const& b)
{
    return {{a.c[0] - b.c[0], a.c[1] - b.c[1], a.c[2] - b.c[2]}};
}

struct RotatePointRule {
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<4> const& q, Lanes<3> const& v, Lanes<3>& result)
    {
        Lanes<3> const n = {{q.c[0], q.c[1], q.c[2]}};
        Lanes<3> const t = Plus(Times(q.c[3], v), Cross(n, v));
        Doubles const d = SumOfProducts(v, n);
        result = Minus(Plus(Times(d, n), Times(q.c[3], t)), Cross(t, n));
        return true;
    }
};

void RotatePoint(Operand<double> quaternions, Operand<double> points, double* results, Size count)
{
    RunPair<RotatePointRule, 4, 3, 3>(quaternions, points, results, count, plain::kernels.rotatePoint);
}

struct QuaternionProductRule {
    VEXOR_ALWAYS_INLINE static bool Compute(Lanes<4> const& a, Lanes<4> const& b, Lanes<4>& result)
    {
        Doubles const &u = a.c[0], &v = a.c[1], &w = a.c[2], &s = a.c[3];
        result.c[0] = s * b.c[0] + u * b.c[3] + v * b.c[2] - w * b.c[1];
        result.c[1] = s * b.c[1] + v * b.c[3] + w * b.c[0] - u * b.c[2];
        result.c[2] = s * b.c[2] + w * b.c[3] + u * b.c[1] - v * b.c[0];
        result.c[3] = s * b.c[3] - u * b.c[0] - v * b.c[1] - w * b.c[2];
        return true;
    }
};

void MultiplyQuaternions(Operand<double> left, Operand<double> right, double* results, Size count)
{
    RunPair<QuaternionProductRule, 4, 4, 4>(left, right, results, count, plain::kernels.multiplyQuaternions);
}

// ---- Matrices ----------------------------------------------------------------------------------------

/// The elements of an array of matrices, row by row. The first eight of each are a few registers, which are
/// transposed; the ninth elements come one by one.
VEXOR_ALWAYS_INLINE Lanes<9> LoadMatrices(double const* from)
{
    Lanes<9> matrices;
    VEXOR_UNROLL(24)
    for (int part = 0; part < 8; part += width) {
        Doubles rows[width];
        VEXOR_UNROLL(24)
        for (int j = 0; j < width; ++j)
            rows[j] = Load<Doubles>(from + j * matrixStride + part);
        Transpose(rows);
        VEXOR_UNROLL(24)
        for (int j = 0; j < width; ++j)
            matrices.c[part + j] = rows[j];
    }
    double last[width];
    VEXOR_UNROLL(24)
    for (int j = 0; j < width; ++j)
        last[j] = from[j * matrixStride + 8];
    matrices.c[8] = Load<Doubles>(last);
    return matrices;
}

VEXOR_ALWAYS_INLINE void StoreMatrices(double* to, Lanes<9> const& matrices)
{
    VEXOR_UNROLL(24)
    for (int part = 0; part < 8; part += width) {
        Doubles rows[width];
        VEXOR_UNROLL(24)
        for (int j = 0; j < width; ++j)
            rows[j] = matrices.c[part + j];
        Transpose(rows);
        VEXOR_UNROLL(24)
        for (int j = 0; j < width; ++j)
            Store(to + j * matrixStride + part, rows[j]);
    }
    double last[width];
    Store(last, matrices.c[8]);
    VEXOR_UNROLL(24)
    for (int j = 0; j < width; ++j)
        to[j * matrixStride + 8] = last[j];
}

/// The bytes of a register's matrices.
constexpr int matrixBytes = width * int(matrixStride) * int(sizeof(double));

/// Matrices in lanes, from an array or from one.
struct MatrixSource {
    VEXOR_ALWAYS_INLINE explicit MatrixSource(Operand<double> const& from) : operand(from), one()
    {
        if (operand.isOne) {
            VEXOR_UNROLL(24)
            for (int k = 0; k < 9; ++k)
                one.c[k] = All(operand.data[k]);
        }
    }

    VEXOR_ALWAYS_INLINE Lanes<9> From(Size i) const
    {
        return operand.isOne ? one : LoadMatrices(operand.data + i * matrixStride);
    }

    VEXOR_ALWAYS_INLINE void PrefetchFrom(Size i) const
    {
        if (!operand.isOne)
            Prefetch<matrixBytes, false>(operand.data + i * matrixStride);
    }

    Operand<double> operand;
    Lanes<9> one;
};

void GetRotationMatrix(double const* quaternions, double* results, Size count)
{
    // Two lanes pay off only where prefetching does.
    if (width == 2 && count < largeCount) {
        plain::kernels.getRotationMatrix(quaternions, results, count);
        return;
    }
    bool const isLarge = count > largeCount;
    Size i = 0;
    for (; i + width <= count; i += width) {
        if (isLarge && i + prefetchDistance < count)
            Prefetch<matrixBytes, true>(results + (i + prefetchDistance) * matrixStride);
        Lanes<4> const q = LoadLanes<4>(quaternions + i * 4);
        Doubles const &u = q.c[0], &v = q.c[1], &w = q.c[2], &s = q.c[3];
        Doubles const uu = u * u, vv = v * v, ww = w * w, ss = s * s;
        Doubles const two = All(2.0);
        StoreMatrices(results + i * matrixStride,
                      {{ss + uu - vv - ww, two * (u * v - w * s), two * (u * w + v * s),
                        two * (u * v + w * s), ss - uu + vv - ww, two * (v * w - u * s),
                        two * (u * w - v * s), two * (v * w + u * s), ss - uu - vv + ww}});
    }
    if (i < count)
        plain::kernels.getRotationMatrix(quaternions + i * 4, results + i * matrixStride, count - i);
}

void MultiplyMatrices(Operand<double> left, Operand<double> right, double* results, Size count)
{
    MatrixSource const leftSource(left);
    MatrixSource const rightSource(right);
    bool const isLarge = count > largeCount;
    Size i = 0;
    for (; i + width <= count; i += width) {
        if (isLarge && i + prefetchDistance < count) {
            Prefetch<matrixBytes, true>(results + (i + prefetchDistance) * matrixStride);
            leftSource.PrefetchFrom(i + prefetchDistance);
            rightSource.PrefetchFrom(i + prefetchDistance);
        }
        Lanes<9> const a = leftSource.From(i);
        Lanes<9> const b = rightSource.From(i);
        Lanes<9> product;
        VEXOR_UNROLL(24)
        for (int row = 0; row < 9; row += 3) {
            VEXOR_UNROLL(24)
            for (int column = 0; column < 3; ++column)
                product.c[row + column] =
                    ((Doubles{} + a.c[row] * b.c[column]) + a.c[row + 1] * b.c[3 + column])
                    + a.c[row + 2] * b.c[6 + column];
        }
        StoreMatrices(results + i * matrixStride, product);
    }
    if (i < count)
        plain::kernels.multiplyMatrices(After(left, i, matrixStride), After(right, i, matrixStride),
                                        results + i * matrixStride, count - i);
}

void MultiplyVectors(Operand<double> matrices, Operand<double> vectors, double* results, Size count)
{
    // As long as the matrices fit in the first-level cache, the plain loop takes 0.85 of the time.
    if (!matrices.isOne && count < 400) {
        plain::kernels.multiplyVectors(matrices, vectors, results, count);
        return;
    }
    MatrixSource const matrixSource(matrices);
    Source<3, double> const vectorSource(vectors);
    bool const isLarge = count > largeCount;
    Size i = 0;
    for (; i + width <= count; i += width) {
        if (isLarge && i + prefetchDistance < count) {
            Prefetch<3 * width* int(sizeof(double)), true>(results + (i + prefetchDistance) * 3);
            matrixSource.PrefetchFrom(i + prefetchDistance);
            vectorSource.PrefetchFrom(i + prefetchDistance);
        }
        Lanes<9> const m = matrixSource.From(i);
        Lanes<3> const v = vectorSource.From(i);
        Lanes<3> product;
        VEXOR_UNROLL(24)
        for (int row = 0; row < 3; ++row)
            product.c[row] = (m.c[3 * row] * v.c[0] + m.c[3 * row + 1] * v.c[1]) + m.c[3 * row + 2] * v.c[2];
        StoreLanes(results + i * 3, product);
    }
    if (i < count)
        plain::kernels.multiplyVectors(After(matrices, i, matrixStride), After(vectors, i, 3),
                                       results + i * 3, count - i);
}

/// The factorisation of `Mat3Dbl::Solve` in three steps. Rows are exchanged by masks.
struct Factors {
    Doubles rows[3][3]; ///< reciprocals on the diagonal
    Doubles scales[3];
    Mask withSecond;   ///< where the first row was exchanged with the second
    Mask withThird;    ///< where the first row was exchanged with the third
    Mask areExchanged; ///< where the last two rows were exchanged after that
    Mask areRegular;   ///< where each pivot is greater than 0

    VEXOR_ALWAYS_INLINE void Begin(Lanes<9> const& matrices)
    {
        VEXOR_UNROLL(24)
        for (int i = 0; i < 3; ++i) {
            Doubles largest = Magnitude(matrices.c[3 * i]);
            VEXOR_UNROLL(24)
            for (int k = 0; k < 3; ++k) {
                rows[i][k] = matrices.c[3 * i + k];
                if (k > 0)
                    largest = Greater(Magnitude(rows[i][k]), largest);
            }
            // A NaN counts only in the first place. It makes the scale factor a NaN, zeros make it infinite: then
            // all candidates of the row are NaN, and it is left for the last pivot, where the lane is singular.
            scales[i] = All(1.0) / largest;
        }
    }

    VEXOR_ALWAYS_INLINE void EliminateFirst()
    {
        Doubles candidates[3];
        VEXOR_UNROLL(24)
        for (int i = 0; i < 3; ++i)
            candidates[i] = Magnitude(rows[i][0]) * scales[i];
        // The first of equals is kept. A NaN never wins; if it is the first, the lane counts as singular.
        Doubles const better = Greater(candidates[1], candidates[0]);
        withThird = Less(better, candidates[2]);
        withSecond = And(Less(candidates[0], candidates[1]), Not(withThird));
        areRegular = Less(Doubles{}, Greater(candidates[2], better));
        VEXOR_UNROLL(24)
        for (int k = 0; k < 3; ++k)
            Exchange(withSecond, withThird, rows[0][k], rows[1][k], rows[2][k]);
        scales[1] = Select(withSecond, scales[0], scales[1]);
        scales[2] = Select(withThird, scales[0], scales[2]);
        rows[0][0] = All(1.0) / rows[0][0];
    }

    VEXOR_ALWAYS_INLINE void EliminateOthers()
    {
        rows[1][0] = rows[1][0] * rows[0][0];
        rows[2][0] = rows[2][0] * rows[0][0];
        rows[1][1] = rows[1][1] - rows[0][1] * rows[1][0];
        rows[2][1] = rows[2][1] - rows[0][1] * rows[2][0];
        Doubles const candidate = Magnitude(rows[1][1]) * scales[1];
        Doubles const other = Magnitude(rows[2][1]) * scales[2];
        areExchanged = Less(candidate, other);
        VEXOR_UNROLL(24)
        for (int k = 0; k < 3; ++k)
            Exchange(areExchanged, rows[1][k], rows[2][k]);
        scales[2] = Select(areExchanged, scales[1], scales[2]);
        rows[1][1] = All(1.0) / rows[1][1];
        rows[2][1] = rows[2][1] * rows[1][1];
        rows[1][2] = rows[1][2] - rows[0][2] * rows[1][0];
        rows[2][2] = rows[2][2] - (rows[0][2] * rows[2][0] + rows[1][2] * rows[2][1]);
        Doubles const last = Magnitude(rows[2][2]) * scales[2];
        rows[2][2] = All(1.0) / rows[2][2];
        areRegular = And(And(areRegular, Less(Doubles{}, Greater(other, candidate))), Less(Doubles{}, last));
    }

    /// Brings values that belong to the rows of the matrices into the order of the factors.
    VEXOR_ALWAYS_INLINE void Order(Doubles& a, Doubles& b, Doubles& c) const
    {
        Exchange(withSecond, withThird, a, b, c);
        Exchange(areExchanged, b, c);
    }

    /// The converse of `Order`.
    VEXOR_ALWAYS_INLINE void Restore(Doubles& a, Doubles& b, Doubles& c) const
    {
        Exchange(areExchanged, b, c);
        Exchange(withSecond, withThird, a, b, c);
    }
};

/// Finishes a register's matrices from i on: `task.Finish`, or `task.RunPlain` if one of them is singular.
template <class Task>
VEXOR_ALWAYS_INLINE void FinishRegister(Task const& task, Factors const& factors, Size i)
{
    if (__builtin_expect(HasAll(factors.areRegular), 1))
        task.Finish(factors, i);
    else
        task.RunPlain(i, width);
}

/// How many matrices ahead the loops below prefetch.
constexpr Size matricesAhead = 32;

/// Prefetches the first or second half of a register's matrices.
template <bool first>
VEXOR_ALWAYS_INLINE void PrefetchHalf(double const* matrices, Size i, Size count)
{
    constexpr int half = matrixBytes / 64 / 2 * 64;
    if (i < count)
        Prefetch<first ? half : matrixBytes - half, false>(matrices + i * matrixStride
                                                           + (first ? 0 : half / int(sizeof(double))));
}

/// The factorisation of a register's matrices is a chain of four divisions. Each step is a loop over several
/// registers, so that the CPU overlaps their chains: 1.3 to 1.4 times as fast as register by register.
template <class Task>
VEXOR_ALWAYS_INLINE void RunFactorsTogether(Task const& task, Size count)
{
    constexpr Size most = 4;
    Factors factors[most];
    Size i = 0;
    while (count - i >= width) {
        Size const registers = std::min(most, (count - i) / width);
        for (Size k = 0; k < registers; ++k) {
            Size const at = i + k * width;
            PrefetchHalf<true>(task.matrices, at + matricesAhead, count);
            factors[k].Begin(task.MatricesFrom(at));
        }
        for (Size k = 0; k < registers; ++k) {
            PrefetchHalf<false>(task.matrices, i + k * width + matricesAhead, count);
            factors[k].EliminateFirst();
        }
        for (Size k = 0; k < registers; ++k) {
            if (i + k * width + matricesAhead < count)
                task.PrefetchFrom(i + k * width + matricesAhead);
            factors[k].EliminateOthers();
        }
        for (Size k = 0; k < registers; ++k, i += width)
            FinishRegister(task, factors[k], i);
    }
    if (i < count)
        task.RunPlain(i, count - i);
}

/// The same for arrays in memory. A turn of the loop computes one step for each of four registers, so that memory works
/// evenly: with AVX2 a million matrices take 0.94 of the time of the loop above. They take 1.3 times as long without prefetching.
template <class Task>
VEXOR_ALWAYS_INLINE void RunFactorsInTurn(Task const& task, Size count)
{
    constexpr Size steps = 4;
    Factors factors[steps];
    Size const registers = count / width;
    for (Size turn = 0; turn < registers + steps - 1; ++turn) {
        auto const at = [&](Size step) -> Factors& { return factors[(turn - step) % steps]; };
        auto const isThere = [&](Size step) { return turn >= step && turn - step < registers; };
        Size const ahead = turn * width + matricesAhead;
        if (isThere(3))
            FinishRegister(task, at(3), (turn - 3) * width);
        if (ahead < count)
            task.PrefetchFrom(ahead);
        if (isThere(2))
            at(2).EliminateOthers();
        PrefetchHalf<true>(task.matrices, ahead, count);
        if (isThere(1))
            at(1).EliminateFirst();
        PrefetchHalf<false>(task.matrices, ahead, count);
        if (isThere(0))
            at(0).Begin(task.MatricesFrom(turn * width));
    }
    if (registers * width < count)
        task.RunPlain(registers * width, count - registers * width);
}

template <class Task>
VEXOR_ALWAYS_INLINE void RunFactors(Task const& task, Size count)
{
    if (width < 8 && count > manyMatrices)
        RunFactorsInTurn(task, count);
    else
        RunFactorsTogether(task, count);
}

struct MatrixTask {
    VEXOR_ALWAYS_INLINE Lanes<9> MatricesFrom(Size i) const
    {
        return LoadMatrices(matrices + i * matrixStride);
    }

    double const* matrices;
    double* results;
};

struct SolveTask : MatrixTask {
    Source<3, double> rightSides;

    VEXOR_ALWAYS_INLINE void PrefetchFrom(Size i) const
    {
        rightSides.PrefetchFrom(i);
        Prefetch<3 * width* int(sizeof(double)), true>(results + i * 3);
    }

    VEXOR_ALWAYS_INLINE static Lanes<3> Solutions(Factors const& factors, Lanes<3> v)
    {
        auto const& rows = factors.rows;
        factors.Order(v.c[0], v.c[1], v.c[2]);
        // Leading zeros are skipped.
        Mask const isZero = Equal(v.c[0], Doubles{});
        Mask const areZeros = And(isZero, Equal(v.c[1], Doubles{}));
        v.c[1] = Select(isZero, v.c[1], v.c[1] - v.c[0] * rows[1][0]);
        Doubles const product = v.c[1] * rows[2][1];
        Doubles const sum = Select(isZero, product, v.c[0] * rows[2][0] + product);
        v.c[2] = Select(areZeros, v.c[2], v.c[2] - sum);
        v.c[2] = v.c[2] * rows[2][2];
        v.c[1] = (v.c[1] - v.c[2] * rows[1][2]) * rows[1][1];
        v.c[0] = (v.c[0] - (v.c[1] * rows[0][1] + v.c[2] * rows[0][2])) * rows[0][0];
        return v;
    }

    VEXOR_ALWAYS_INLINE void Finish(Factors const& factors, Size i) const
    {
        StoreLanes(results + i * 3, Solutions(factors, rightSides.From(i)));
    }

    void RunPlain(Size i, Size count) const
    {
        plain::kernels.solve({matrices + i * matrixStride, false}, After(rightSides.operand, i, 3),
                             results + i * 3, count);
    }
};

/// The solutions for one matrix.
void SolveWithOne(Operand<double> matrix, Operand<double> rightSides, double* results, Size count)
{
    Factors factors;
    factors.Begin(MatrixSource(matrix).From(0));
    factors.EliminateFirst();
    factors.EliminateOthers();
    Size i = 0;
    if (HasAll(factors.areRegular)) {
        SolveTask const task{{matrix.data, results}, Source<3, double>(rightSides)};
        for (; i + width <= count; i += width)
            task.Finish(factors, i);
    }
    if (i < count)
        plain::kernels.solve(matrix, After(rightSides, i, 3), results + i * 3, count - i);
}

void Solve(Operand<double> matrices, Operand<double> rightSides, double* results, Size count)
{
#if defined(VEXOR_SET_AVX512)
    // Half as wide loads and stores let memory work evenly: 0.97 of the time.
    if (!matrices.isOne && count > manyMatrices) {
        avx2::kernels.solve(matrices, rightSides, results, count);
        return;
    }
#endif
    if (matrices.isOne)
        SolveWithOne(matrices, rightSides, results, count);
    else
        RunFactors(SolveTask{{matrices.data, results}, Source<3, double>(rightSides)}, count);
}

struct InvertTask : MatrixTask {
    VEXOR_ALWAYS_INLINE void PrefetchFrom(Size i) const
    {
        Prefetch<matrixBytes, true>(results + i * matrixStride);
    }

    /// Column j of the inverse, but for the order, is the solution for a 1 in row j of the factors. Leading zeros
    /// are skipped, and products with the 1 are left out.
    VEXOR_ALWAYS_INLINE static Lanes<9> Inverses(Factors const& factors)
    {
        auto const& rows = factors.rows;
        Doubles const zero = {};
        Doubles const one = All(1.0);
        Doubles columns[3][3];
        Doubles const first = zero - rows[1][0];
        columns[0][2] = (zero - (rows[2][0] + first * rows[2][1])) * rows[2][2];
        columns[1][2] = (zero - rows[2][1]) * rows[2][2];
        columns[2][2] = rows[2][2];
        columns[0][1] = (first - columns[0][2] * rows[1][2]) * rows[1][1];
        columns[1][1] = (one - columns[1][2] * rows[1][2]) * rows[1][1];
        columns[2][1] = (zero - columns[2][2] * rows[1][2]) * rows[1][1];
        VEXOR_UNROLL(24)
        for (int j = 0; j < 3; ++j)
            columns[j][0] =
                ((j == 0 ? one : zero) - (columns[j][1] * rows[0][1] + columns[j][2] * rows[0][2]))
                * rows[0][0];
        Lanes<9> inverse;
        VEXOR_UNROLL(24)
        for (int k = 0; k < 3; ++k) {
            factors.Restore(columns[0][k], columns[1][k], columns[2][k]);
            VEXOR_UNROLL(24)
            for (int j = 0; j < 3; ++j)
                inverse.c[3 * k + j] = columns[j][k];
        }
        return inverse;
    }

    VEXOR_ALWAYS_INLINE void Finish(Factors const& factors, Size i) const
    {
        StoreMatrices(results + i * matrixStride, Inverses(factors));
    }

    void RunPlain(Size i, Size count) const
    {
        plain::kernels.invert(matrices + i * matrixStride, results + i * matrixStride, count);
    }
};

void Invert(double const* matrices, double* results, Size count)
{
#if defined(VEXOR_SET_AVX512)
    if (count > manyMatrices) { // as in Solve
        avx2::kernels.invert(matrices, results, count);
        return;
    }
#endif
    RunFactors(InvertTask{{matrices, results}}, count);
}

} // namespace

} // namespace vexor::arrays::detail::VEXOR_SET

VEXOR_SET_END
