#pragma once

// Seeded operations of vexor::arrays over arrays of up to 40 elements, and sums over more than one block. The arrays are
// on the stack, so that a heap request is the component's.

#include "Source.h"

#include <vexor/arrays/Arrays.h>

#include <type_traits>

namespace transcript {

namespace {

constexpr std::size_t mostElements = 40;

template <class Value>
using ElementOf = vexor::arrays::detail::Element<Value>;
template <class Value>
constexpr int sizeOf = vexor::arrays::detail::ShapeOf<Value>::size;

// ---- Operands ----------------------------------------------------------------------------------------

template <class Value>
void Draw(Source& source, Value& value)
{
    ElementOf<Value> numbers[sizeOf<Value>];
    for (auto& number : numbers) {
        if constexpr (std::is_same_v<ElementOf<Value>, float>)
            number = source.Float();
        else
            number = source.Double();
    }
    std::memcpy(static_cast<void*>(&value), numbers, sizeof numbers);
}

void Draw(Source& source, Mat3Dbl& matrix)
{
    matrix = AnyMat3Dbl(source);
    if (source.Below(2) == 0) // symmetric
        matrix = matrix + matrix.GetTransposedCopy();
}

void Draw(Source& source, Quaternion& quaternion)
{
    for (double* number : {&quaternion.u, &quaternion.v, &quaternion.w, &quaternion.s})
        *number = source.Plain();
}

template <class Value>
struct Array {
    Value values[mostElements];
    Array() = default;
    Array(Source& source, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            Draw(source, values[i]);
    }
};

// ---- Results -----------------------------------------------------------------------------------------

/// Hashes what an array function leaves: results that were 1 before, and the exception.
template <class Result, class Operation>
void Record(Transcript& out, std::size_t count, Operation operation)
{
    Result results[mostElements];
    for (Result& result : results)
        std::memset(static_cast<void*>(&result), 0, sizeof result);
    out.Try([&] {
        operation(results);
        return true;
    });
    for (std::size_t i = 0; i < count; ++i) {
        if constexpr (std::is_same_v<Result, unsigned char>)
            out.Add(results[i] != 0);
        else
            out.Add(results[i]);
    }
}

/// An operation on two arrays, on an array and one value, and on one value and an array.
template <class Result, class Left, class Right, class Operation>
void RecordPairs(Transcript& out, std::size_t count, Left const* left, Right const* right,
                 Operation operation)
{
    Record<Result>(out, count, [&](Result* results) { operation(left, right, results); });
    Record<Result>(out, count, [&](Result* results) { operation(left, right[0], results); });
    Record<Result>(out, count, [&](Result* results) { operation(left[0], right, results); });
}

std::size_t AnyCount(Source& source)
{
    return 1 + static_cast<std::size_t>(source.Below(static_cast<int>(mostElements)));
}

// ---- Vectors and points ------------------------------------------------------------------------------

template <class Vector>
void RunVectorArrays(Transcript& out, Source& source)
{
    using namespace vexor::arrays;
    using Number = ElementOf<Vector>;
    using Product = decltype(Vector(Number(0)).Cross(Vector(Number(0))));
    using Angle = decltype(Vector(Number(0)).GetAngleWith(Vector(Number(0))));
    using Measure = decltype(Vector(Number(0)).Length());
    std::size_t const count = AnyCount(source);
    Array<Vector> const left(source, count);
    Array<Vector> right(source, count);
    for (std::size_t i = 0; i < count; ++i)
        right.values[i] = Companion(source, left.values[i], right.values[i]);
    Array<Number> const scalars(source, count);
    Vector const* const a = left.values;
    Vector const* const b = right.values;
    auto const angular = static_cast<Number>(source.Tolerance());
    auto const length = static_cast<Number>(source.Tolerance());

    RecordPairs<Vector>(out, count, a, b,
                        [&](auto const& l, auto const& r, Vector* c) { Add(l, r, c, count); });
    RecordPairs<Vector>(out, count, a, b,
                        [&](auto const& l, auto const& r, Vector* c) { Subtract(l, r, c, count); });
    RecordPairs<Vector>(out, count, a, b,
                        [&](auto const& l, auto const& r, Vector* c) { ElemMult(l, r, c, count); });
    Record<Vector>(out, count, [&](Vector* c) { Scale(a, scalars.values, c, count); });
    Record<Vector>(out, count, [&](Vector* c) { Scale(a, scalars.values[0], c, count); });
    Record<Vector>(out, count, [&](Vector* c) { Negate(a, c, count); });
    RecordPairs<Measure>(out, count, a, b,
                         [&](auto const& l, auto const& r, Measure* c) { Dot(l, r, c, count); });
    RecordPairs<Product>(out, count, a, b,
                         [&](auto const& l, auto const& r, Product* c) { Cross(l, r, c, count); });
    RecordPairs<Angle>(out, count, a, b,
                       [&](auto const& l, auto const& r, Angle* c) { GetAngleWith(l, r, c, count); });
    Record<Measure>(out, count, [&](Measure* c) { LengthSquared(a, c, count); });
    Record<Measure>(out, count, [&](Measure* c) { Length(a, c, count); });
    Record<Vector>(out, count, [&](Vector* c) { Normalize(a, c, count); });

    using Byte = unsigned char;
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsParallelTo(l, r, c, count, angular, length);
    });
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsCodirectionalTo(l, r, c, count, angular, length);
    });
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsPerpendicularTo(l, r, c, count, angular, length);
    });
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsUnitParallelTo(l, r, c, count, angular);
    });
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsUnitCodirectionalTo(l, r, c, count, angular);
    });
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsUnitPerpendicularTo(l, r, c, count, angular);
    });
    RecordPairs<Byte>(out, count, a, b, [&](auto const& l, auto const& r, Byte* c) {
        IsEqualTo(l, r, c, count, angular, length);
    });
}

template <class Point, class Vector, class Other>
void RunPointArrays(Transcript& out, Source& source)
{
    using namespace vexor::arrays;
    using Measure = decltype(Point(ElementOf<Point>(0)).DistanceTo(Point(ElementOf<Point>(0))));
    std::size_t const count = AnyCount(source);
    Array<Point> const left(source, count);
    Array<Point> right(source, count);
    Array<Vector> const vectors(source, count);
    Point const* const a = left.values;
    Point const* const b = right.values;
    auto const distance = static_cast<ElementOf<Point>>(source.Tolerance());

    RecordPairs<Point>(out, count, a, vectors.values,
                       [&](auto const& l, auto const& r, Point* c) { Add(l, r, c, count); });
    RecordPairs<Vector>(out, count, a, b,
                        [&](auto const& l, auto const& r, Vector* c) { Subtract(l, r, c, count); });
    RecordPairs<Measure>(out, count, a, b,
                         [&](auto const& l, auto const& r, Measure* c) { DistanceSqTo(l, r, c, count); });
    RecordPairs<Measure>(out, count, a, b,
                         [&](auto const& l, auto const& r, Measure* c) { DistanceTo(l, r, c, count); });
    RecordPairs<unsigned char>(out, count, a, b, [&](auto const& l, auto const& r, unsigned char* c) {
        IsEqualTo(l, r, c, count, distance);
    });
    Record<Other>(out, count, [&](Other* c) { Convert(a, c, count); });
}

// ---- Maps --------------------------------------------------------------------------------------------

template <class Map, class Value>
void RecordMap(Transcript& out, Source& source, Map const& map, std::size_t count)
{
    Array<Value> const values(source, count);
    using Result = std::decay_t<decltype(map * values.values[0])>;
    Record<Result>(out, count, [&](Result* c) { vexor::arrays::Multiply(map, values.values, c, count); });
}

void RunMapArrays(Transcript& out, Source& source)
{
    std::size_t const count = AnyCount(source);
    AffMat3Dbl const map = AnyAffMat3Dbl(source);
    AffMat2Dbl const planeMap = AnyAffMat2Dbl(source);
    RecordMap<AffMat3Dbl, Pnt3Dbl>(out, source, map, count);
    RecordMap<AffMat3Dbl, Vec3Dbl>(out, source, map, count);
    RecordMap<AffMat2Dbl, Pnt2Dbl>(out, source, planeMap, count);
    RecordMap<AffMat2Dbl, Vec2Dbl>(out, source, planeMap, count);
    RecordMap<Mat3Dbl, Vec3Dbl>(out, source, map.LinearPart(), count);
    RecordMap<Mat2Dbl, Vec2Dbl>(out, source, planeMap.LinearPart(), count);
}

void RunQuaternionArrays(Transcript& out, Source& source)
{
    using namespace vexor::arrays;
    std::size_t const count = AnyCount(source);
    Array<Quaternion> const left(source, count);
    Array<Quaternion> const right(source, count);
    Array<Pnt3Dbl> const points(source, count);
    Array<Vec3Dbl> const vectors(source, count);
    RecordPairs<Quaternion>(out, count, left.values, right.values,
                            [&](auto const& l, auto const& r, Quaternion* c) { Multiply(l, r, c, count); });
    RecordPairs<Pnt3Dbl>(out, count, left.values, points.values,
                         [&](auto const& l, auto const& r, Pnt3Dbl* c) { RotatePoint(l, r, c, count); });
    RecordPairs<Vec3Dbl>(out, count, left.values, vectors.values,
                         [&](auto const& l, auto const& r, Vec3Dbl* c) { RotatePoint(l, r, c, count); });
    Record<Mat3Dbl>(out, count, [&](Mat3Dbl* c) { GetRotationMatrix(left.values, c, count); });
}

void RunMatrixArrays(Transcript& out, Source& source)
{
    using namespace vexor::arrays;
    std::size_t const count = AnyCount(source);
    Array<Mat3Dbl> const left(source, count);
    Array<Mat3Dbl> const right(source, count);
    Array<Vec3Dbl> const vectors(source, count);
    RecordPairs<Mat3Dbl>(out, count, left.values, right.values,
                         [&](auto const& l, auto const& r, Mat3Dbl* c) { Multiply(l, r, c, count); });
    RecordPairs<Vec3Dbl>(out, count, left.values, vectors.values,
                         [&](auto const& l, auto const& r, Vec3Dbl* c) { Multiply(l, r, c, count); });
    RecordPairs<Vec3Dbl>(out, count, left.values, vectors.values,
                         [&](auto const& l, auto const& r, Vec3Dbl* c) { Solve(l, r, c, count); });
    Record<Mat3Dbl>(out, count, [&](Mat3Dbl* c) { Invert(left.values, c, count); });
    Record<Vec3Dbl>(out, count, [&](Vec3Dbl* c) { EigenSymValues(left.values, c, count); });
    Record<Mat3Dbl>(out, count, [&](Mat3Dbl* c) {
        Vec3Dbl values[mostElements];
        EigenSym(left.values, values, c, count);
    });
}

// ---- Sums --------------------------------------------------------------------------------------------

/// Up to three blocks.
template <class Value>
void RecordSums(Transcript& out, Source& source)
{
    using namespace vexor::arrays;
    constexpr std::size_t most = 2 * blockSize + 100;
    Value values[most];
    std::size_t const count = 1 + static_cast<std::size_t>(source.Below(static_cast<int>(most)));
    for (std::size_t i = 0; i < count; ++i) {
        ElementOf<Value> numbers[sizeOf<Value>];
        for (auto& number : numbers)
            number = static_cast<ElementOf<Value>>(source.Plain());
        std::memcpy(static_cast<void*>(&values[i]), numbers, sizeof numbers);
    }
    out.Add(Sum(values, count));
    auto const box = BoundingBox(values, count);
    out.Add(box.lower);
    out.Add(box.upper);
    if constexpr (sizeOf < Value >> 1) {
        out.Add(Centroid(values, count));
        out.Add(Covariance(values, count));
    }
}

void RunArraySums(Transcript& out, Source& source)
{
    RecordSums<double>(out, source);
    RecordSums<float>(out, source);
    RecordSums<Vec3Dbl>(out, source);
    RecordSums<Vec2Dbl>(out, source);
    RecordSums<Pnt3Dbl>(out, source);
    RecordSums<Pnt3Flt>(out, source);
    RecordSums<Pnt2Dbl>(out, source);
    RecordSums<Pnt2Flt>(out, source);
}

constexpr Class arrayClasses[] = {
    {"Vec3Dbl[]", RunVectorArrays<Vec3Dbl>, 20},
    {"Vec3Flt[]", RunVectorArrays<Vec3Flt>, 20},
    {"Vec2Dbl[]", RunVectorArrays<Vec2Dbl>, 20},
    {"Vec2Flt[]", RunVectorArrays<Vec2Flt>, 20},
    {"Pnt3Dbl[]", RunPointArrays<Pnt3Dbl, Vec3Dbl, Pnt3Flt>, 20},
    {"Pnt3Flt[]", RunPointArrays<Pnt3Flt, Vec3Flt, Pnt3Dbl>, 20},
    {"Pnt2Dbl[]", RunPointArrays<Pnt2Dbl, Vec2Dbl, Pnt2Flt>, 20},
    {"Pnt2Flt[]", RunPointArrays<Pnt2Flt, Vec2Flt, Pnt2Dbl>, 20},
    {"maps[]", RunMapArrays, 20},
    {"Quaternion[]", RunQuaternionArrays, 20},
    {"Mat3Dbl[]", RunMatrixArrays, 20},
    {"array sums", RunArraySums, 200},
};

} // namespace

} // namespace transcript
