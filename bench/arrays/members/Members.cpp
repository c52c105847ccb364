#include "../Passes.h"

#include <vexor/arrays/Arrays.h>
#include <vexor/arrays/private/KernelSet.h>

#include <algorithm>

// Every array function beside the loop over its member, every reduction beside a plain loop, for each class and instruction set.

namespace {

using namespace bench;
using vexor::arrays::detail::KernelSet;

/// Values of a class from numbers. The second operand's lengths are about 1.
template <class Value>
Value Make(double const* n)
{
    using Element = std::decay_t<decltype(Value()[0])>;
    Value value;
    for (int k = 0; k < int(sizeof(Value) / sizeof(Element)); ++k)
        value[k] = static_cast<Element>(n[k]);
    return value;
}

template <class Element>
Element MakeNumber(double const* n)
{
    return static_cast<Element>(n[0]);
}

Quaternion MakeTurn(double const* n)
{
    return Quaternion(Vec3Dbl(n[0], n[1], n[2]), n[3], 1);
}

Mat3Dbl MakeRegular(double const* n)
{
    Mat3Dbl matrix;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            matrix(i, k) = Regular(n, i, k);
    }
    return matrix;
}

Mat3Dbl MakeSymmetric(double const* n)
{
    Mat3Dbl matrix;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            matrix(i, k) = Symmetrical(n, i, k);
    }
    return matrix;
}

/// The loop runs twice: how far its two times differ shows how exact the ratios are.
constexpr char const* ownLoops[] = {"own loop", "own loop again"};

/// Registers a loop over an array and the array function in each instruction set; the plain one, which is the loop again,
/// shows what the call costs.
template <class Result, class MakeLeft, class MakeRight, class Loop, class Function>
void CompareLoops(std::string const& name, MakeLeft makeLeft, MakeRight makeRight, Loop loop,
                  Function function)
{
    for (char const* ownLoop : ownLoops)
        OverArrays<Result>(name, ownLoop, makeLeft, makeRight, loop);
    for (int i = 0; KernelSet const* set = vexor::arrays::detail::RunnableSet(i); ++i) {
        OverArrays<Result>(name, set->name, makeLeft, makeRight,
                           [=](auto const* left, auto const* right, Result* results, std::size_t count) {
                               vexor::arrays::detail::chosen = set;
                               function(left, right, results, count);
                           });
    }
}

/// The same for the loop over an operation on two elements.
template <class Result, class MakeLeft, class MakeRight, class Operation, class Function>
void Compare(std::string const& name, MakeLeft makeLeft, MakeRight makeRight, Operation operation,
             Function function)
{
    CompareLoops<Result>(
        name, makeLeft, makeRight,
        [operation](auto const* left, auto const* right, Result* results, std::size_t count) {
            for (std::size_t i = 0; i < count; ++i)
                results[i] = operation(left[i], right[i]);
        },
        function);
}

#define PAIR(function)                                                                                       \
    [](auto const* a, auto const* b, auto* r, std::size_t n) { vexor::arrays::function(a, b, r, n); }
#define SINGLE(function)                                                                                     \
    [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::function(a, r, n); }
#define MEMBER(name) [](auto const& a, auto const& b) { return a.name(b); }
#define OWN(name) [](auto const& a, Nothing) { return a.name(); }
#define TEST(name) [](auto const& a, auto const& b) { return static_cast<unsigned char>(a.name(b)); }

template <class Vector>
void CompareVectors(std::string const& of)
{
    using Element = decltype(Vector().x);
    using Cross = decltype(Vector().Cross(Vector()));
    auto const make = Make<Vector>;
    Compare<Vector>(
        "Add" + of, make, make, [](auto const& a, auto const& b) { return a + b; }, PAIR(Add));
    Compare<Vector>(
        "Subtract" + of, make, make, [](auto const& a, auto const& b) { return a - b; }, PAIR(Subtract));
    Compare<Vector>("ElemMult" + of, make, make, MEMBER(ElemMult), PAIR(ElemMult));
    Compare<Vector>(
        "Scale" + of, make, MakeNumber<Element>, [](auto const& a, Element b) { return a * b; }, PAIR(Scale));
    Compare<Vector>(
        "Scale by one number" + of, make, MakeNothing, [](auto const& a, Nothing) { return a * Element(3); },
        [](auto const* a, auto const*, auto* r, std::size_t n) {
            vexor::arrays::Scale(a, Element(3), r, n);
        });
    Compare<Vector>(
        "Negate" + of, make, MakeNothing, [](auto const& a, Nothing) { return -a; }, SINGLE(Negate));
    Compare<Element>("Dot" + of, make, make, MEMBER(Dot), PAIR(Dot));
    Compare<Cross>("Cross" + of, make, make, MEMBER(Cross), PAIR(Cross));
    Compare<Element>("LengthSquared" + of, make, MakeNothing, OWN(LengthSquared), SINGLE(LengthSquared));
    Compare<Element>("Length" + of, make, MakeNothing, OWN(Length), SINGLE(Length));
    Compare<Vector>("Normalize" + of, make, MakeNothing, OWN(GetNormalizedCopy), SINGLE(Normalize));
    Compare<Element>("GetAngleWith" + of, make, make, MEMBER(GetAngleWith), PAIR(GetAngleWith));
    Compare<unsigned char>("IsParallelTo" + of, make, make, TEST(IsParallelTo), PAIR(IsParallelTo));
    Compare<unsigned char>("IsCodirectionalTo" + of, make, make, TEST(IsCodirectionalTo),
                           PAIR(IsCodirectionalTo));
    Compare<unsigned char>("IsPerpendicularTo" + of, make, make, TEST(IsPerpendicularTo),
                           PAIR(IsPerpendicularTo));
    Compare<unsigned char>("IsUnitParallelTo" + of, make, make, TEST(IsUnitParallelTo),
                           PAIR(IsUnitParallelTo));
    Compare<unsigned char>("IsUnitCodirectionalTo" + of, make, make, TEST(IsUnitCodirectionalTo),
                           PAIR(IsUnitCodirectionalTo));
    Compare<unsigned char>("IsUnitPerpendicularTo" + of, make, make, TEST(IsUnitPerpendicularTo),
                           PAIR(IsUnitPerpendicularTo));
    Compare<unsigned char>("IsEqualTo" + of, make, make, TEST(IsEqualTo), PAIR(IsEqualTo));
}

template <class Point, class Map>
void ComparePoints(std::string const& of, Map const& map)
{
    using Element = decltype(Point().x);
    auto const make = Make<Point>;
    Compare<Element>("DistanceSqTo" + of, make, make, MEMBER(DistanceSqTo), PAIR(DistanceSqTo));
    Compare<Element>("DistanceTo" + of, make, make, MEMBER(DistanceTo), PAIR(DistanceTo));
    Compare<unsigned char>("IsEqualTo" + of, make, make, TEST(IsEqualTo), PAIR(IsEqualTo));
    Compare<Point>(
        "Affine map x" + of, make, MakeNothing, [&map](auto const& a, Nothing) { return map * a; },
        [&map](auto const* a, auto const*, auto* r, std::size_t n) {
            vexor::arrays::Multiply(map, a, r, n);
        });
}

/// The same for a reduction: `loop` and `function` return one result of an array.
template <class Result, class Make, class Loop, class Function>
void CompareReduction(std::string const& name, Make make, Loop loop, Function function)
{
    CompareLoops<Result>(
        name, make, MakeNothing,
        [loop](auto const* a, Nothing const*, Result* r, std::size_t n) { *r = loop(a, n); },
        [function](auto const* a, Nothing const*, Result* r, std::size_t n) { *r = function(a, n); });
}

#define REDUCTION(function) [](auto const* a, std::size_t n) { return vexor::arrays::function(a, n); }

template <class Vector, class Point>
Vector PlainSum(Point const* points, std::size_t count)
{
    Vector sum(0.0);
    for (std::size_t i = 0; i < count; ++i)
        sum += Vector(points[i].Vector());
    return sum;
}

template <class Point>
Mat3Dbl PlainCovariance(Point const* points, std::size_t count, Vec3Dbl const& centroid)
{
    double xx = 0.0, xy = 0.0, xz = 0.0, yy = 0.0, yz = 0.0, zz = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        Vec3Dbl const d = Vec3Dbl(points[i].Vector()) - centroid;
        xx += d.x * d.x;
        xy += d.x * d.y;
        xz += d.x * d.z;
        yy += d.y * d.y;
        yz += d.y * d.z;
        zz += d.z * d.z;
    }
    return Mat3Dbl(Vec3Dbl(xx, xy, xz), Vec3Dbl(xy, yy, yz), Vec3Dbl(xz, yz, zz)) / double(count);
}

template <class Point>
Mat2Dbl PlainCovariance(Point const* points, std::size_t count, Vec2Dbl const& centroid)
{
    double xx = 0.0, xy = 0.0, yy = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        Vec2Dbl const d = Vec2Dbl(points[i].Vector()) - centroid;
        xx += d.x * d.x;
        xy += d.x * d.y;
        yy += d.y * d.y;
    }
    return Mat2Dbl(Vec2Dbl(xx, xy), Vec2Dbl(xy, yy)) / double(count);
}

template <class Point>
vexor::arrays::Box<Point> PlainBox(Point const* points, std::size_t count)
{
    Point lower = points[0];
    Point upper = points[0];
    for (std::size_t i = 1; i < count; ++i) {
        Point const& next = points[i];
        lower.x = std::min(lower.x, next.x);
        upper.x = std::max(upper.x, next.x);
        lower.y = std::min(lower.y, next.y);
        upper.y = std::max(upper.y, next.y);
        if constexpr (vexor::arrays::detail::ShapeOf<Point>::size == 3) {
            lower.z = std::min(lower.z, next.z);
            upper.z = std::max(upper.z, next.z);
        }
    }
    return {lower, upper};
}

template <class Point, class Vector, class Matrix>
void ComparePointReductions(std::string const& of)
{
    using Centroid = decltype(vexor::arrays::Centroid(static_cast<Point const*>(nullptr), 0));
    auto const make = Make<Point>;
    CompareReduction<Vector>(
        "Sum" + of, make, [](Point const* a, std::size_t n) { return PlainSum<Vector>(a, n); },
        REDUCTION(Sum));
    CompareReduction<Centroid>(
        "Centroid" + of, make,
        [](Point const* a, std::size_t n) { return Centroid(PlainSum<Vector>(a, n) / double(n)); },
        REDUCTION(Centroid));
    CompareReduction<Matrix>(
        "Covariance" + of, make,
        [](Point const* a, std::size_t n) {
            return PlainCovariance(a, n, PlainSum<Vector>(a, n) / double(n));
        },
        REDUCTION(Covariance));
    CompareReduction<vexor::arrays::Box<Point>>(
        "BoundingBox" + of, make, [](Point const* a, std::size_t n) { return PlainBox(a, n); },
        REDUCTION(BoundingBox));
}

template <class Number>
void CompareNumberReductions(std::string const& of)
{
    using Extremes = vexor::arrays::Box<Number>;
    CompareReduction<double>(
        "Sum" + of, MakeNumber<Number>,
        [](Number const* a, std::size_t n) {
            double sum = 0.0;
            for (std::size_t i = 0; i < n; ++i)
                sum += double(a[i]);
            return sum;
        },
        REDUCTION(Sum));
    CompareReduction<Extremes>(
        "MinMax" + of, MakeNumber<Number>,
        [](Number const* a, std::size_t n) {
            Extremes extremes = {a[0], a[0]};
            for (std::size_t i = 1; i < n; ++i)
                extremes = {std::min(extremes.lower, a[i]), std::max(extremes.upper, a[i])};
            return extremes;
        },
        REDUCTION(MinMax));
}

Mat3Dbl const linear(Vec3Dbl(0.36, 0.48, -0.8), Vec3Dbl(-0.8, 0.6, 0.0), Vec3Dbl(0.48, 0.64, 0.6));
AffMat3Dbl const map(linear, Vec3Dbl(1.5, -2.5, 0.25));
AffMat2Dbl const planeMap(Mat2Dbl(Vec2Dbl(0.6, 0.8), Vec2Dbl(-0.8, 0.6)), Vec2Dbl(1.5, -2.5));

[[maybe_unused]] bool const registered = [] {
    CompareVectors<Vec3Dbl>(", Vec3Dbl");
    CompareVectors<Vec3Flt>(", Vec3Flt");
    CompareVectors<Vec2Dbl>(", Vec2Dbl");
    CompareVectors<Vec2Flt>(", Vec2Flt");
    ComparePoints<Pnt3Dbl>(", Pnt3Dbl", map);
    ComparePoints<Pnt3Flt>(", Pnt3Flt", map);
    ComparePoints<Pnt2Dbl>(", Pnt2Dbl", planeMap);
    ComparePoints<Pnt2Flt>(", Pnt2Flt", planeMap);
    ComparePointReductions<Pnt3Dbl, Vec3Dbl, Mat3Dbl>(", Pnt3Dbl");
    ComparePointReductions<Pnt3Flt, Vec3Dbl, Mat3Dbl>(", Pnt3Flt");
    ComparePointReductions<Pnt2Dbl, Vec2Dbl, Mat2Dbl>(", Pnt2Dbl");
    ComparePointReductions<Pnt2Flt, Vec2Dbl, Mat2Dbl>(", Pnt2Flt");
    CompareNumberReductions<double>(", double");
    CompareNumberReductions<float>(", float");
    Compare<Vec3Flt>("Convert, Vec3Dbl to Vec3Flt", Make<Vec3Dbl>, MakeNothing, OWN(ToVec3Flt),
                     SINGLE(Convert));
    Compare<Vec3Dbl>(
        "Convert, Vec3Flt to Vec3Dbl", Make<Vec3Flt>, MakeNothing,
        [](Vec3Flt const& a, Nothing) { return Vec3Dbl(a); }, SINGLE(Convert));
    Compare<Vec3Dbl>(
        "Mat3Dbl x, Vec3Dbl", Make<Vec3Dbl>, MakeNothing, [](auto const& a, Nothing) { return linear * a; },
        [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::Multiply(linear, a, r, n); });
    Compare<Vec3Dbl>(
        "Mat3Dbl x Vec3Dbl, arrays of both", MakeRegular, Make<Vec3Dbl>,
        [](auto const& a, auto const& b) { return a * b; }, PAIR(Multiply));
    Compare<Mat3Dbl>(
        "Mat3Dbl x Mat3Dbl", MakeRegular, MakeRegular, [](auto const& a, auto const& b) { return a * b; },
        PAIR(Multiply));
    Compare<Mat3Dbl>("Invert, Mat3Dbl", MakeRegular, MakeNothing, OWN(GetInvertedCopy), SINGLE(Invert));
    Compare<Vec3Dbl>(
        "Solve, Mat3Dbl", MakeRegular, Make<Vec3Dbl>,
        [](Mat3Dbl const& a, Vec3Dbl const& b) {
            Mat3Dbl factors(a);
            Vec3Dbl solution(b);
            factors.Solve(solution);
            return solution;
        },
        PAIR(Solve));
    Compare<Vec3Dbl>(
        "EigenSymValues, Mat3Dbl", MakeSymmetric, MakeNothing,
        [](Mat3Dbl const& a, Nothing) {
            Mat3Dbl matrix(a);
            Vec3Dbl values;
            matrix.EigenSym(values, 0);
            return values;
        },
        SINGLE(EigenSymValues));
    static std::vector<Vec3Dbl> values(std::end(arraySizes)[-1]);
    CompareLoops<Mat3Dbl>(
        "EigenSym, Mat3Dbl", MakeSymmetric, MakeNothing,
        [](Mat3Dbl const* a, Nothing const*, Mat3Dbl* r, std::size_t n) {
            for (std::size_t i = 0; i < n; ++i) {
                r[i] = a[i];
                r[i].EigenSym(values[i], 1);
            }
        },
        [](auto const* a, auto const*, Mat3Dbl* r, std::size_t n) {
            vexor::arrays::EigenSym(a, values.data(), r, n);
        });
    Compare<Quaternion>(
        "Quaternion x Quaternion", MakeTurn, MakeTurn, [](auto const& a, auto const& b) { return a * b; },
        PAIR(Multiply));
    Compare<Mat3Dbl>(
        "GetRotationMatrix, Quaternion", MakeTurn, MakeNothing,
        [](Quaternion const& a, Nothing) {
            Mat3Dbl matrix;
            a.GetRotationMatrix(matrix);
            return matrix;
        },
        SINGLE(GetRotationMatrix));
    Compare<Pnt3Dbl>("RotatePoint, arrays of both", MakeTurn, Make<Pnt3Dbl>, MEMBER(RotatePoint),
                     PAIR(RotatePoint));
    return true;
}();

} // namespace
