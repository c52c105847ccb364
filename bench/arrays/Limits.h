#include "Passes.h"

#include <vexor/arrays/private/MatrixKernels.h>

#include <algorithm>
#include <limits>

// What bounds an array function from below: parts of its work that no implementation of the rule can leave out, each
// part alone. Each source that includes this file defines one instruction set.

VEXOR_SET_BEGIN

namespace bench::VEXOR_SET {

namespace {

using namespace vexor::arrays::detail::VEXOR_SET;

/// Hides from the compiler that a register keeps its value.
VEXOR_ALWAYS_INLINE void Hide(Doubles& values)
{
    __asm__ volatile("" : "+v"(values));
}

/// Makes the compiler compute a value that nothing uses.
VEXOR_ALWAYS_INLINE void Keep(Doubles const& values)
{
    __asm__ volatile("" : : "v"(values));
}

template <int... i>
VEXOR_ALWAYS_INLINE Doubles Reversed(Doubles const& values, At<i...>)
{
    return Shuffle(values, values, At<(width - 1 - i)...>());
}

/// As many operations on registers for each `width` elements as given, all independent of each other, without
/// loads and stores: only the execution units bound the time. The kinds are spread evenly.
template <int products, int sums, int shuffles = 0, int roots = 0, int divisions = 0>
void Compute(std::size_t count)
{
    constexpr int steps = std::max({products, sums, shuffles, roots, divisions});
    auto const isNext = [](int k, int number) { return (k + 1) * number / steps > k * number / steps; };
    // A root or quotient of few bits takes less time than others.
    Doubles a = All(1.7320508075688772);
    Doubles b = All(2.2360679774997897);
    for (std::size_t i = 0; i + width <= count; i += width) {
        VEXOR_UNROLL(64)
        for (int k = 0; k < steps; ++k) {
            Hide(a);
            if (isNext(k, shuffles))
                Keep(Reversed(a, Indices<width>()));
            if (isNext(k, products))
                Keep(a * b);
            if (isNext(k, sums))
                Keep(a + b);
            if (isNext(k, roots))
                Keep(Root(a));
            if (isNext(k, divisions))
                Keep(b / a);
        }
    }
}

/// The unit vectors of registers, in the order that the rule and its method of division fix: sum of squares, root,
/// reciprocal, quotients. Without loads, shuffles and stores; registers are independent of each other.
void NormalizeRegisters(std::size_t count)
{
    constexpr int turn = width == 8 ? 1 : 3;
    Lanes<3> vectors = {{All(1.7320508075688772), All(2.2360679774997897), All(1.4142135623730951)}};
    for (std::size_t i = 0; i + width * turn <= count; i += width * turn) {
        VEXOR_UNROLL(3)
        for (int k = 0; k < turn; ++k) {
            Hide(vectors.c[0]);
            Hide(vectors.c[1]);
            Hide(vectors.c[2]);
            Measured<3> const measured(vectors);
            Lanes<3> const units =
                measured.UnitVectors(turn == 3 && k != 1 ? All(1.0) / measured.lengths
                                                         : Reciprocal(measured.lengths, measured.squared));
            Keep(units.c[0]);
            Keep(units.c[1]);
            Keep(units.c[2]);
        }
    }
}

constexpr std::ptrdiff_t line = 64;

/// Two arrays of operands and one of results.
std::vector<double> arrays[3];

/// The whole cache lines among the first bytes of an array.
struct Lines {
    Lines(std::vector<double>& array, std::ptrdiff_t bytes)
        : next(reinterpret_cast<char*>(array.data())), end(next + bytes)
    {
        next += -reinterpret_cast<std::intptr_t>(next) & (line - 1);
    }

    /// How many blocks of so many bytes are left.
    VEXOR_ALWAYS_INLINE std::ptrdiff_t Blocks(std::ptrdiff_t bytes) const
    {
        return bytes > 0 ? (end - next) / bytes : std::numeric_limits<std::ptrdiff_t>::max();
    }

    /// Whether so many bytes are left.
    VEXOR_ALWAYS_INLINE bool Holds(std::ptrdiff_t bytes) const { return end - next >= bytes; }

    char* next;
    char* end;
};

/// Reads `bytes` bytes, which are whole registers.
template <int bytes>
VEXOR_ALWAYS_INLINE void Read(char const* from)
{
    VEXOR_UNROLL(64)
    for (int k = 0; k < bytes; k += int(sizeof(Doubles)))
        Keep(*reinterpret_cast<Doubles const*>(from + k)); // aligned, unlike Load
}

/// Writes whole registers or 8 bytes.
template <int bytes>
VEXOR_ALWAYS_INLINE void Write(char* to, Doubles const& value)
{
    if constexpr (bytes == sizeof(double)) {
        std::memcpy(to, &value, bytes);
    } else {
        VEXOR_UNROLL(64)
        for (int k = 0; k < bytes; k += int(sizeof(Doubles)))
            *reinterpret_cast<Doubles*>(to + k) = value;
    }
}

/// Reads all whole lines of two operands of `left` and `right` bytes an element, writes those of the results,
/// and computes nothing. It goes by 8 elements, with the widest registers, all aligned. The stores, and the loads
/// too, can be prefetched by a number of lines.
template <int left, int right, int result, int storesAhead, int loadsAhead>
void Move(std::size_t count)
{
    Lines a(arrays[0], std::ptrdiff_t(count * left));
    Lines b(arrays[1], std::ptrdiff_t(count * right));
    Lines to(arrays[2], std::ptrdiff_t(count * result));
    Doubles value = All(1.0);
    Hide(value);
    std::ptrdiff_t const blocks = std::min({a.Blocks(8 * left), b.Blocks(8 * right), to.Blocks(8 * result)});
    VEXOR_UNROLL(2)
    for (std::ptrdiff_t i = 0; i < blocks; ++i) {
        char const* const fromA = a.next + i * (8 * left);
        char const* const fromB = b.next + i * (8 * right);
        char* const toResult = to.next + i * (8 * result);
        if constexpr (storesAhead > 0)
            Prefetch<8 * result, true>(toResult + storesAhead * line);
        if constexpr (loadsAhead > 0) {
            Prefetch<8 * left, false>(fromA + loadsAhead * line);
            Prefetch<8 * right, false>(fromB + loadsAhead * line);
        }
        Read<8 * left>(fromA);
        Read<8 * right>(fromB);
        Write<8 * result>(toResult, value);
    }
    a.next += blocks * (8 * left);
    b.next += blocks * (8 * right);
    to.next += blocks * (8 * result);
    for (; a.Holds(line); a.next += line)
        Read<line>(a.next);
    for (; b.Holds(line); b.next += line)
        Read<line>(b.next);
    for (; to.Holds(line); to.next += line)
        Write<line>(to.next, value);
}

/// Registers that lie in memory one behind the other, as if the arrays held components: no shuffles.
template <int size>
VEXOR_ALWAYS_INLINE Lanes<size> LoadComponents(double const* from)
{
    Lanes<size> lanes;
    VEXOR_UNROLL(24)
    for (int k = 0; k < size; ++k)
        lanes.c[k] = Load<Doubles>(from + k * width);
    return lanes;
}

template <int size>
VEXOR_ALWAYS_INLINE void StoreComponents(double* to, Lanes<size> const& lanes)
{
    VEXOR_UNROLL(24)
    for (int k = 0; k < size; ++k)
        Store(to + k * width, lanes.c[k]);
}

/// `Solve` of matrices and right sides that lie in memory as components, or `Invert`.
template <bool isInverse>
struct FactorsOfComponents {
    VEXOR_ALWAYS_INLINE Lanes<9> MatricesFrom(std::size_t i) const
    {
        double const* const from = matrices + i * 10;
        Keep(Load<Doubles>(from + 9 * width)); // the same bytes as those of matrices
        return LoadComponents<9>(from);
    }

    VEXOR_ALWAYS_INLINE void PrefetchFrom(std::size_t i) const
    {
        if constexpr (isInverse) {
            Prefetch<matrixBytes, true>(results + i * 10);
        } else {
            Prefetch<3 * int(sizeof(Doubles)), false>(rightSides + i * 3);
            Prefetch<3 * int(sizeof(Doubles)), true>(results + i * 3);
        }
    }

    VEXOR_ALWAYS_INLINE void Finish(Factors const& factors, std::size_t i) const
    {
        if constexpr (isInverse) {
            Lanes<9> const inverses = InvertTask::Inverses(factors);
            StoreComponents(results + i * 10, inverses);
            Store(results + i * 10 + 9 * width, inverses.c[0]);
        } else {
            StoreComponents(results + i * 3,
                            SolveTask::Solutions(factors, LoadComponents<3>(rightSides + i * 3)));
        }
    }

    void RunPlain(std::size_t /*i*/, std::size_t /*count*/) const {}

    double const* matrices;
    double const* rightSides;
    double* results;
};

/// The rule's operations for each matrix and moving the bytes, in one of the two loops of the kernels.
template <bool isInverse, bool inTurn>
void FactorAndMove(std::size_t count)
{
    auto const begin = [](std::vector<double>& array) {
        return reinterpret_cast<double*>(Lines(array, 0).next);
    };
    FactorsOfComponents<isInverse> const task = {begin(arrays[0]), begin(arrays[1]), begin(arrays[2])};
    if (inTurn)
        RunFactorsInTurn(task, count);
    else
        RunFactorsTogether(task, count);
}

} // namespace

} // namespace bench::VEXOR_SET

VEXOR_SET_END

namespace {

using namespace bench::VEXOR_SET;

/// Registers a limit of an operation for this instruction set: `work(count)` does one part of the work of `count`
/// elements, which `part` names. The page names the parts of a goal that is not reached. Of several ways to do the
/// same, which differ by a remark in parentheses, the fastest counts.
void Limit(std::string const& operation, std::string const& part, void (*work)(std::size_t count))
{
    for (std::size_t size : bench::arraySizes) {
        bench::Register(operation, (part + " alone " VEXOR_SET_NAME).c_str(), std::to_string(size),
                        [=](benchmark::State& state) {
                            work(size); // fetches the memory into the caches
                            for (auto _ : state) {
                                work(size);
                                benchmark::ClobberMemory();
                            }
                        });
    }
}

/// The limit of moving the bytes, for operands and results of the given sizes.
template <int left, int right, int result>
void LimitMoving(std::string const& operation)
{
    Limit(operation, "moving the bytes", Move<left, right, result, 0, 0>);
    Limit(operation, "moving the bytes (stores prefetched)", Move<left, right, result, 48, 0>);
    Limit(operation, "moving the bytes (prefetched)", Move<left, right, result, 32, 32>);
}

[[maybe_unused]] bool const registered = [] {
#if defined(VEXOR_SET_AVX512)
    bool const canRun = vexor::detail::HasAvx512();
#else
    bool const canRun = vexor::detail::HasAvx2();
#endif
    if (!canRun)
        return false;
    constexpr int number = 8;
    constexpr int vector = 3 * number;
    constexpr int matrix = 10 * number;
    for (std::vector<double>& array : arrays) {
        array.resize(10 * std::end(bench::arraySizes)[-1] + line / sizeof(double));
        // Taken as components, regular matrices: numbers from -1 to 1, and 4 more on the diagonal.
        auto* const begin = reinterpret_cast<double*>(Lines(array, 0).next);
        for (std::size_t i = 0; i < array.size() - line / sizeof(double); ++i)
            begin[i] = bench::NumbersOf(i, 0)[0] + (i / width % 10 % 4 == 0 ? 4.0 : 0.0);
    }
    LimitMoving<vector, 0, vector>("Normalize");
    LimitMoving<vector, 0, number>("Length");
    LimitMoving<vector, vector, vector>("Cross");
    LimitMoving<vector, vector, number>("Dot");
    LimitMoving<vector, vector, vector>("Sum of two");
    LimitMoving<vector, vector, number>("DistanceTo");
    LimitMoving<vector, vector, 1>("IsParallelTo");
    LimitMoving<vector, 0, vector>("Affine map x point");
    LimitMoving<vector, 0, vector>("RotatePoint");
    LimitMoving<matrix, matrix, matrix>("Mat3 x Mat3");
    LimitMoving<matrix, vector, vector>("Solve 3x3");
    LimitMoving<matrix, 0, matrix>("Invert 3x3");
    LimitMoving<matrix, 0, vector>("EigenSym 3x3");
    LimitMoving<vector, 0, 0>("Sum");

    // The products and sums of each rule, and the fewest shuffles known that split three registers of vectors into
    // components and join them again. Only one port executes a shuffle. Blends count as sums with AVX-512, where
    // both need one of the same two ports, and do not count with AVX2.
    constexpr bool isWidest = width == 8;
    constexpr int split = isWidest ? 4 : 2;
    constexpr int join = isWidest ? 2 : 4;
    constexpr int blends = isWidest ? 2 : 0; // of one operand's split; the stores of some lanes join without
    Limit("Affine map x point", "arithmetic", Compute<9, 9>);
    Limit("Affine map x point", "arithmetic and shuffles", Compute<9, 9 + blends, split + join>);
    Limit("RotatePoint", "arithmetic", Compute<24, 17>);
    Limit("RotatePoint", "arithmetic and shuffles", Compute<24, 17 + blends, split + join>);
    Limit("Cross", "arithmetic", Compute<6, 3>);
    Limit("Cross", "arithmetic and shuffles", Compute<6, 3 + 2 * blends, 2 * split + join>);
    // Of Normalize, the operations of the method: a root, the reciprocal's and the quotients' fused operations
    // (an estimate of 14 bits counts as one), and four comparisons as sums. Three divisions take longer.
    constexpr int fused = isWidest ? 7 + 9 : 9 + 9;
    Limit("Normalize", "roots", Compute<0, 0, 0, 1>);
    Limit("Normalize", "arithmetic", Compute<3 + fused, 2 + 1 + 4, 0, 1>);
    Limit("Normalize", "arithmetic and shuffles", Compute<3 + fused, 2 + 1 + 4 + blends, split + join, 1>);
    Limit("Normalize", "chain of roots and quotients", NormalizeRegisters);
    Limit("Solve 3x3", "divisions", Compute<0, 0, 0, 0, 6>);
    Limit("Invert 3x3", "divisions", Compute<0, 0, 0, 0, 6>);
    Limit("Solve 3x3", "operations and moving (together)", FactorAndMove<false, false>);
    Limit("Solve 3x3", "operations and moving (in turn)", FactorAndMove<false, true>);
    Limit("Invert 3x3", "operations and moving (together)", FactorAndMove<true, false>);
    Limit("Invert 3x3", "operations and moving (in turn)", FactorAndMove<true, true>);
    return true;
}();

} // namespace
