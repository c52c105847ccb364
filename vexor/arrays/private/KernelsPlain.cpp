#include <vexor/arrays/detail/Operands.h>
#include <vexor/arrays/private/KernelSet.h>
#include <vexor/arrays/private/Neighbours.h>
#include <vexor/matrices/AffMat2Dbl.h>
#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/rotations/Quaternion.h>

#include <algorithm>
#include <limits>
#include <type_traits>

// The loops over the members. They define what the array functions compute. The other sets give the same
// bits, and call these loops for elements that a register of lanes cannot compute.

namespace vexor::arrays::detail::plain {

namespace {

#if defined(VEXOR_ARRAYS_REGISTERS)
static_assert(sizeof(Mat3Dbl) == matrixStride * sizeof(double), "the distance that the kernels take");
#endif
static_assert(sizeof(Quaternion) == 4 * sizeof(double) && sizeof(Vec3Flt) == 3 * sizeof(float)
                  && sizeof(Vec2Flt) == 2 * sizeof(float),
              "elements and nothing else");

template <class Element, int size>
using VectorOf =
    std::conditional_t<size == 3, std::conditional_t<sizeof(Element) == sizeof(float), Vec3Flt, Vec3Dbl>,
                       std::conditional_t<sizeof(Element) == sizeof(float), Vec2Flt, Vec2Dbl>>;
template <class Element, int size>
using PointOf =
    std::conditional_t<size == 3, std::conditional_t<sizeof(Element) == sizeof(float), Pnt3Flt, Pnt3Dbl>,
                       std::conditional_t<sizeof(Element) == sizeof(float), Pnt2Flt, Pnt2Dbl>>;

/// The values of an operand.
template <class Value, class Element>
class Values {
public:
    explicit Values(Operand<Element> const& operand)
        : first(reinterpret_cast<Value const*>(operand.data)), step(operand.isOne ? 0 : 1)
    {}

    Value const& operator[](Size i) const { return first[i * step]; }

private:
    Value const* first;
    Size step;
};

/// Prefetches a few elements of a long array.
template <Size elements, class Value>
void Prefetch([[maybe_unused]] Value const* from)
{
#if defined(__GNUC__)
    for (Size k = 0; k < elements * sizeof(Value); k += 64)
        __builtin_prefetch(reinterpret_cast<char const*>(from) + k);
#endif
}

/// Writes `member(operands[i]...)`. Loops over long arrays prefetch: `IsParallelTo` of 1,000,000 Vec3Dbl takes 0.3 of the
/// time.
template <class Result, class Member, class... Operands>
void Each(Result* results, Size count, Member const& member, Operands const*... operands)
{
    constexpr Size bytes = (sizeof(Result) + ... + sizeof(Operands));
    Size i = 0;
    if (count > largeBytes / bytes) {
        constexpr Size together = 8;
        while (i + prefetchDistance + together <= count) {
            (Prefetch<together>(operands + i + prefetchDistance), ...);
            if constexpr (sizeof(Result) > 1)
                Prefetch<together>(results + i + prefetchDistance);
            for (Size const end = i + together; i < end; ++i)
                results[i] = static_cast<Result>(member(operands[i]...));
        }
    }
    for (; i < count; ++i)
        results[i] = static_cast<Result>(member(operands[i]...));
}

/// Writes the results of `member` on two operands.
template <class Left, class Right, class Result, class Element, class Member>
void Pair(Operand<Element> const& left, Operand<Element> const& right, Element* results, Size count,
          Member const& member)
{
    auto* const to = reinterpret_cast<Result*>(results);
    // A loop over only two arrays can be vectorised.
    if (!left.isOne && !right.isOne) {
        Each(to, count, member, reinterpret_cast<Left const*>(left.data),
             reinterpret_cast<Right const*>(right.data));
        return;
    }
    Values<Left, Element> const a(left);
    Values<Right, Element> const b(right);
    for (Size i = 0; i < count; ++i)
        to[i] = member(a[i], b[i]);
}

template <class Value, class Result, class Element, class Member>
void Single(Element const* operands, Element* results, Size count, Member const& member)
{
    Each(reinterpret_cast<Result*>(results), count, member, reinterpret_cast<Value const*>(operands));
}

template <PairOperation operation, int size, class Element>
void PairKernelOf(Operand<Element> left, Operand<Element> right, Element* results, Size count)
{
    using Vector = VectorOf<Element, size>;
    using Point = PointOf<Element, size>;
    using Operation = PairOperation;
    if constexpr (operation == Operation::Add)
        Pair<Vector, Vector, Vector>(left, right, results, count,
                                     [](auto const& a, auto const& b) { return a + b; });
    if constexpr (operation == Operation::Subtract)
        Pair<Vector, Vector, Vector>(left, right, results, count,
                                     [](auto const& a, auto const& b) { return a - b; });
    if constexpr (operation == Operation::ElemMult)
        Pair<Vector, Vector, Vector>(left, right, results, count,
                                     [](auto const& a, auto const& b) { return a.ElemMult(b); });
    if constexpr (operation == Operation::Scale)
        Pair<Vector, Element, Vector>(left, right, results, count,
                                      [](auto const& a, auto const& b) { return a * b; });
    if constexpr (operation == Operation::Cross)
        Pair<Vector, Vector, std::conditional_t<size == 3, Vector, Element>>(
            left, right, results, count, [](auto const& a, auto const& b) { return a.Cross(b); });
    if constexpr (operation == Operation::Dot)
        Pair<Vector, Vector, Element>(left, right, results, count,
                                      [](auto const& a, auto const& b) { return a.Dot(b); });
    if constexpr (operation == Operation::DistanceSqTo)
        Pair<Point, Point, Element>(left, right, results, count,
                                    [](auto const& a, auto const& b) { return a.DistanceSqTo(b); });
    if constexpr (operation == Operation::DistanceTo)
        Pair<Point, Point, Element>(left, right, results, count,
                                    [](auto const& a, auto const& b) { return a.DistanceTo(b); });
    if constexpr (operation == Operation::GetAngleWith)
        Pair<Vector, Vector, Element>(left, right, results, count,
                                      [](auto const& a, auto const& b) { return a.GetAngleWith(b); });
}

template <SingleOperation operation, int size, class Element>
void SingleKernelOf(Element const* operands, Element* results, Size count)
{
    using Vector = VectorOf<Element, size>;
    using Operation = SingleOperation;
    if constexpr (operation == Operation::Negate)
        Single<Vector, Vector>(operands, results, count, [](auto const& a) { return -a; });
    if constexpr (operation == Operation::LengthSquared)
        Single<Vector, Element>(operands, results, count, [](auto const& a) { return a.LengthSquared(); });
    if constexpr (operation == Operation::Length)
        Single<Vector, Element>(operands, results, count, [](auto const& a) { return a.Length(); });
    if constexpr (operation == Operation::Normalize)
        Single<Vector, Vector>(operands, results, count, [](auto const& a) { return a.GetNormalizedCopy(); });
}

/// Writes the results of the test `member`.
template <class Value, class Element, class Member>
void RunTest(Operand<Element> const& left, Operand<Element> const& right, unsigned char* results, Size count,
             Member const& member)
{
    if (!left.isOne && !right.isOne) {
        Each(results, count, member, reinterpret_cast<Value const*>(left.data),
             reinterpret_cast<Value const*>(right.data));
        return;
    }
    Values<Value, Element> const a(left);
    Values<Value, Element> const b(right);
    for (Size i = 0; i < count; ++i)
        results[i] = static_cast<unsigned char>(member(a[i], b[i]));
}

template <TestOperation operation, int size, class Element>
void TestKernelOf(Operand<Element> left, Operand<Element> right, Limits<Element> const& limits,
                  unsigned char* results, Size count)
{
    using Operation = TestOperation;
    using Value = std::conditional_t<operation == Operation::IsPointEqualTo, PointOf<Element, size>,
                                     VectorOf<Element, size>>;
    if constexpr (operation == Operation::IsParallelTo || operation == Operation::IsCodirectionalTo
                  || operation == Operation::IsPerpendicularTo || operation == Operation::IsEqualTo) {
        // With constant tolerances g++ branches less: `IsEqualTo` of Vec3Flt takes 0.65 of the time, the others 0.95 to
        // 1.1.
        if (limits.areGlobal) {
            RunTest<Value>(left, right, results, count, [](Value const& x, Value const& y) {
                if constexpr (operation == Operation::IsParallelTo)
                    return x.IsParallelTo(y);
                else if constexpr (operation == Operation::IsCodirectionalTo)
                    return x.IsCodirectionalTo(y);
                else if constexpr (operation == Operation::IsPerpendicularTo)
                    return x.IsPerpendicularTo(y);
                else
                    return x.IsEqualTo(y);
            });
            return;
        }
    }
    // By copy: the results are bytes, which may alias anything as far as the compiler knows.
    RunTest<Value>(left, right, results, count, [limits](Value const& x, Value const& y) {
        if constexpr (operation == Operation::IsParallelTo)
            return x.IsParallelTo(y, limits.angular, limits.length);
        if constexpr (operation == Operation::IsCodirectionalTo)
            return x.IsCodirectionalTo(y, limits.angular, limits.length);
        if constexpr (operation == Operation::IsPerpendicularTo)
            return x.IsPerpendicularTo(y, limits.angular, limits.length);
        if constexpr (operation == Operation::IsUnitParallelTo)
            return x.IsUnitParallelTo(y, limits.angular);
        if constexpr (operation == Operation::IsUnitCodirectionalTo)
            return x.IsUnitCodirectionalTo(y, limits.angular);
        if constexpr (operation == Operation::IsUnitPerpendicularTo)
            return x.IsUnitPerpendicularTo(y, limits.angular);
        if constexpr (operation == Operation::IsEqualTo)
            return x.IsEqualTo(y, limits.angular, limits.length);
        if constexpr (operation == Operation::IsPointEqualTo)
            return x.IsEqualTo(y, limits.distance);
    });
}

Mat3Dbl MatrixOf(double const* m, std::integral_constant<int, 3>)
{
    return Mat3Dbl(Vec3Dbl(m[0], m[1], m[2]), Vec3Dbl(m[3], m[4], m[5]), Vec3Dbl(m[6], m[7], m[8]));
}

Mat2Dbl MatrixOf(double const* m, std::integral_constant<int, 2>)
{
    return Mat2Dbl(Vec2Dbl(m[0], m[1]), Vec2Dbl(m[2], m[3]));
}

template <MapOperation operation, int size, class Element>
void MapKernelOf(double const* map, Element const* operands, Element* results, Size count)
{
    using Vector = VectorOf<Element, size>;
    using Point = PointOf<Element, size>;
    using Operation = MapOperation;
    auto const matrix = MatrixOf(map, std::integral_constant<int, size>());
    if constexpr (operation == Operation::Linear)
        Single<Vector, Vector>(operands, results, count, [&](auto const& x) { return matrix * x; });
    if constexpr (operation == Operation::LinearToSingle && size == 3)
        Single<Point, Point>(operands, results, count, [&](auto const& x) { return matrix * x; });
    if constexpr (operation == Operation::Affine) {
        using Translation = VectorOf<double, size>;
        using MapClass = std::conditional_t<size == 3, AffMat3Dbl, AffMat2Dbl>;
        Translation translation;
        for (int k = 0; k < size; ++k)
            translation[k] = map[size * size + k];
        MapClass const affine(matrix, translation);
        Single<Point, Point>(operands, results, count, [&](auto const& x) { return affine * x; });
    }
}

// These sums have their own order: see Sums.h.

template <int size, class Element>
void SumUp(Element const* elements, Size count, double* sum)
{
    double sums[runningSums] = {};
    for (Size j = 0; j < count * size; ++j)
        sums[j % runningSums] += double(elements[j]);
    for (int k = 0; k < size; ++k)
        sum[k] = CombineNeighbours<runningSums / size, size>(sums + k, SumOfTwo());
}

template <int size, class Element>
void FindExtremes(Element const* elements, Size count, Element* least, Element* greatest)
{
    constexpr Element infinity = std::numeric_limits<Element>::infinity();
    Element low[runningSums];
    Element high[runningSums];
    std::fill(low, low + runningSums, infinity);
    std::fill(high, high + runningSums, -infinity);
    for (Size j = 0; j < count * size; ++j) {
        Size const k = j % runningSums;
        low[k] = LesserOfTwo()(low[k], elements[j]);
        high[k] = GreaterOfTwo()(high[k], elements[j]);
    }
    for (int k = 0; k < size; ++k) {
        least[k] = CombineNeighbours<runningSums / size, size>(low + k, LesserOfTwo());
        greatest[k] = CombineNeighbours<runningSums / size, size>(high + k, GreaterOfTwo());
    }
}

template <int size, class Element>
void SumProducts(Element const* elements, Size count, double const* centroid, double* products)
{
    constexpr int productCount = size * (size + 1) / 2;
    double sums[productCount][runningProducts] = {};
    for (Size i = 0; i < count; ++i) {
        double d[size];
        for (int k = 0; k < size; ++k)
            d[k] = double(elements[i * size + static_cast<Size>(k)]) - centroid[k];
        int m = 0;
        for (int k = 0; k < size; ++k) {
            for (int l = k; l < size; ++l, ++m)
                sums[m][i % runningProducts] += d[k] * d[l];
        }
    }
    for (int m = 0; m < productCount; ++m)
        products[m] = CombineNeighbours<runningProducts, 1>(sums[m], SumOfTwo());
}

template <int size, class Element>
constexpr VectorKernels<Element> KernelsOf()
{
    using P = PairOperation;
    using S = SingleOperation;
    using T = TestOperation;
    using M = MapOperation;
    return {{PairKernelOf<P::Add, size, Element>, PairKernelOf<P::Subtract, size, Element>,
             PairKernelOf<P::ElemMult, size, Element>, PairKernelOf<P::Scale, size, Element>,
             PairKernelOf<P::Cross, size, Element>, PairKernelOf<P::Dot, size, Element>,
             PairKernelOf<P::DistanceSqTo, size, Element>, PairKernelOf<P::DistanceTo, size, Element>,
             PairKernelOf<P::GetAngleWith, size, Element>},
            {SingleKernelOf<S::Negate, size, Element>, SingleKernelOf<S::LengthSquared, size, Element>,
             SingleKernelOf<S::Length, size, Element>, SingleKernelOf<S::Normalize, size, Element>},
            {TestKernelOf<T::IsParallelTo, size, Element>, TestKernelOf<T::IsCodirectionalTo, size, Element>,
             TestKernelOf<T::IsPerpendicularTo, size, Element>,
             TestKernelOf<T::IsUnitParallelTo, size, Element>,
             TestKernelOf<T::IsUnitCodirectionalTo, size, Element>,
             TestKernelOf<T::IsUnitPerpendicularTo, size, Element>, TestKernelOf<T::IsEqualTo, size, Element>,
             TestKernelOf<T::IsPointEqualTo, size, Element>},
            {MapKernelOf<M::Linear, size, Element>, MapKernelOf<M::LinearToSingle, size, Element>,
             MapKernelOf<M::Affine, size, Element>},
            {SumUp<size, Element>, FindExtremes<size, Element>},
            SumProducts<size, Element>};
}

void ToSingle(double const* from, float* to, Size count)
{
    for (Size i = 0; i < count; ++i)
        to[i] = vexor::detail::RoundToSingle(from[i]);
}

void ToDouble(float const* from, double* to, Size count)
{
    for (Size i = 0; i < count; ++i)
        to[i] = double(from[i]);
}

void RotatePoint(Operand<double> quaternions, Operand<double> points, double* results, Size count)
{
    Pair<Quaternion, Vec3Dbl, Vec3Dbl>(quaternions, points, results, count,
                                       [](auto const& q, auto const& x) { return q.RotatePoint(x); });
}

void MultiplyQuaternions(Operand<double> left, Operand<double> right, double* results, Size count)
{
    Pair<Quaternion, Quaternion, Quaternion>(left, right, results, count,
                                             [](auto const& a, auto const& b) { return a * b; });
}

void GetRotationMatrix(double const* quaternions, double* results, Size count)
{
    auto const* const from = reinterpret_cast<Quaternion const*>(quaternions);
    auto* const to = reinterpret_cast<Mat3Dbl*>(results);
    for (Size i = 0; i < count; ++i)
        from[i].GetRotationMatrix(to[i]);
}

void MultiplyMatrices(Operand<double> left, Operand<double> right, double* results, Size count)
{
    Pair<Mat3Dbl, Mat3Dbl, Mat3Dbl>(left, right, results, count,
                                    [](auto const& a, auto const& b) { return a * b; });
}

void MultiplyVectors(Operand<double> matrices, Operand<double> vectors, double* results, Size count)
{
    Pair<Mat3Dbl, Vec3Dbl, Vec3Dbl>(matrices, vectors, results, count,
                                    [](auto const& a, auto const& b) { return a * b; });
}

void Invert(double const* matrices, double* results, Size count)
{
    Single<Mat3Dbl, Mat3Dbl>(matrices, results, count, [](auto const& m) { return m.GetInvertedCopy(); });
}

void Solve(Operand<double> matrices, Operand<double> rightSides, double* results, Size count)
{
    Pair<Mat3Dbl, Vec3Dbl, Vec3Dbl>(matrices, rightSides, results, count, [](auto const& m, auto const& b) {
        Mat3Dbl factors(m);
        Vec3Dbl solution(b);
        factors.Solve(solution);
        return solution;
    });
}

/// The copy starts a cache line: elsewhere the place of the stack decides, and the loop takes up to 1.1 times as long.
void EigenSymValues(Mat3Dbl const* matrices, Vec3Dbl* values, Size count)
{
    for (Size i = 0; i < count; ++i) {
        alignas(64) Mat3Dbl matrix(matrices[i]);
        alignas(64) Vec3Dbl eigenValues;
        matrix.EigenSym(eigenValues, 0);
        values[i] = eigenValues;
    }
}

/// Computes in place: the copy of a matrix that has just been written waits for its stores, a tenth of the time.
void EigenSymVectors(Mat3Dbl const* matrices, Vec3Dbl* values, Mat3Dbl* vectors, Size count)
{
    for (Size i = 0; i < count; ++i) {
        Mat3Dbl const matrixBefore(vectors[i]);
        Vec3Dbl const valuesBefore(values[i]);
        try {
            vectors[i] = matrices[i];
            vectors[i].EigenSym(values[i], 1);
        } catch (...) {
            vectors[i] = matrixBefore;
            values[i] = valuesBefore;
            throw;
        }
    }
}

void EigenSym(double const* matrices, double* values, double* vectors, Size count)
{
    auto const* const from = reinterpret_cast<Mat3Dbl const*>(matrices);
    auto* const toValues = reinterpret_cast<Vec3Dbl*>(values);
    if (vectors == nullptr)
        EigenSymValues(from, toValues, count);
    else
        EigenSymVectors(from, toValues, reinterpret_cast<Mat3Dbl*>(vectors), count);
}

} // namespace

KernelSet const kernels = {
    "plain",
    KernelsOf<3, double>(),
    KernelsOf<3, float>(),
    KernelsOf<2, double>(),
    KernelsOf<2, float>(),
    ToSingle,
    ToDouble,
    {SumUp<1, double>, FindExtremes<1, double>},
    {SumUp<1, float>, FindExtremes<1, float>},
    RotatePoint,
    MultiplyQuaternions,
    GetRotationMatrix,
    MultiplyMatrices,
    MultiplyVectors,
    Invert,
    Solve,
    EigenSym,
};

} // namespace vexor::arrays::detail::plain
