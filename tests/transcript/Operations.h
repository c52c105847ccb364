#pragma once

// Seeded operations over the whole interface, except those that depend on LAPACK, each class with a function
// that hashes the results of one round.

#include "../support/Sizes.h"
#include "Source.h"

#include <vexor/elementary.h>

namespace transcript {

namespace {

VecDbl AnyVecDbl(Source& source, int size)
{
    VecDbl result(size);
    for (int i = 0; i < size; ++i)
        result[i] = source.Double();
    return result;
}

MatDbl AnyMatDbl(Source& source, int rows, int columns)
{
    MatDbl result(rows, columns);
    for (int j = 0; j < columns; ++j)
        for (int i = 0; i < rows; ++i)
            result(i, j) = source.Double();
    return result;
}

// ---- What many classes share -------------------------------------------------------------------------

/// Arithmetic, products, comparisons and direction tests of every floating-point vector class.
template <class Vector, class Number>
void SharedByVectors(Transcript& out, Vector const& a, Vector const& b, Number scalar, Number angular,
                     Number length)
{
    Vector changed = a;
    out.Add(changed *= scalar);
    changed = a;
    out.Add(changed /= scalar);
    changed = a;
    out.Add(changed += b);
    changed = a;
    out.Add(changed -= b);
    changed = a;
    out.Add(changed.Negate());
    out.Add(a.GetNegatedCopy());
    out.Add(a * scalar);
    out.Add(scalar * a);
    out.Add(a / scalar);
    out.Add(a + b);
    out.Add(a - b);
    out.Add(-a);
    out.Add(a.ElemMult(b));
    out.Add(a.ElemDiv(b));
    out.Add(a.Dot(b));
    out.Add(a.LengthSquared());
    out.Add(a.Length());
    out.Try([&] { return a.GetNormalizedCopy(); });
    out.Try([&] { return a.GetProjectionOnTo(b); });
    out.Add(a.GetAreaFormedByTriangleWith(b));
    out.Add(a.MaxValue());
    out.Add(a.MinValue());
    out.Add(a.MaxAbsValue());
    out.Add(a.MinAbsValue());
    out.Add(a == b);
    out.Add(a != b);
    out.Add(a.IsNull());
    out.Add(a.IsZeroLength(length));
    out.Add(a.IsEqualTo(b, angular, length));
    out.Add(a.IsParallelTo(b, angular, length));
    out.Add(a.IsCodirectionalTo(b, angular, length));
    out.Add(a.IsPerpendicularTo(b, angular, length));
    out.Add(a.IsUnitParallelTo(b, angular));
    out.Add(a.IsUnitCodirectionalTo(b, angular));
    out.Add(a.IsUnitPerpendicularTo(b, angular));
}

template <class Vector>
void IndicesOf(Transcript& out, Vector const& a, Vector const& b)
{
    out.Add(a.MaxValueIdx());
    out.Add(a.MinValueIdx());
    out.Add(a.MaxAbsValueIdx());
    out.Add(a.MinAbsValueIdx());
    out.Add(a.IsLessThan(b));
    out.Add(a.IsGreaterThan(b));
}

template <class Matrix>
void SharedByMatrices(Transcript& out, Matrix a, Matrix b, double scalar)
{
    Matrix changed = a;
    out.Add(changed *= scalar);
    changed = a;
    out.Add(changed /= scalar);
    changed = a;
    out.Add(changed += b);
    changed = a;
    out.Add(changed -= b);
    out.Add(a * scalar);
    out.Add(scalar * a);
    out.Add(a / scalar);
    out.Add(-a);
    out.Add(a + b);
    out.Add(a - b);
    out.Add(a * b);
    out.Add(a.GetTransposedCopy());
    out.Add(changed.Transpose());
    out.Add(changed.Negate());
    out.Add(a == b);
    out.Add(a != b);
}

/// Comparison with and without a tolerance, and the scalar arithmetic of every point class.
template <class Point, class Number, class Tolerance>
void SharedByPoints(Transcript& out, Point const& a, Point const& b, Number scalar, Tolerance length)
{
    Point changed = a;
    out.Add(changed *= scalar);
    changed = a;
    out.Add(changed /= scalar);
    out.Add(a * scalar);
    out.Add(scalar * a);
    out.Add(a / scalar);
    out.Add(a - b);
    out.Add(a.Vector());
    out.Add(a.DistanceSqTo(b));
    out.Add(a.DistanceTo(b));
    out.Add(a == b);
    out.Add(a != b);
    out.Add(a.IsEqualTo(b, length));
    out.Add(a.IsLessThan(b));
    out.Add(a.IsGreaterThan(b));
}

// ---- The classes -------------------------------------------------------------------------------------

void RunVexorTolerance(Transcript& out, Source& source)
{
    VexorTolerance tolerance;
    tolerance.SetLength(source.Double());
    out.Add(tolerance.GetLength());
    out.Add(tolerance.GetLengthSquared());
}

void RunUInt64(Transcript& out, Source& source)
{
    __int64 const first = static_cast<__int64>(source.Below(2) ? source.Word() : source.Word() % 5);
    __int64 const second = static_cast<__int64>(source.Below(2) ? source.Word() : source.Word() % 5 + 1);
    UInt64 a(first);
    UInt64 b(second);
    out.Add(a + b);
    out.Add(a - b);
    out.Add(a * b);
    if (b.int64() != 0)
        out.Add(a / b);
    out.Add(a == b);
    out.Add(a != b);
    out.Add(a >= b);
    out.Add(a <= b);
    out.Add(a *= b);
    out.Add(a += source.Int());
    out.Add(a -= source.Int());
    out.Add(++a);
    out.Add(a++);
    out.Add(--a);
    out.Add(a--);
    out.Add(static_cast<int>(a));
    out.Add(static_cast<float>(a));
    out.Add(static_cast<double>(a));
    out.Add(a);
}

void RunVec3Dbl(Transcript& out, Source& source)
{
    Vec3Dbl const a = AnyVec3Dbl(source);
    Vec3Dbl const b = Companion(source, a, AnyVec3Dbl(source));
    double const scalar = source.Double();
    double const angular = source.Tolerance();
    SharedByVectors(out, a, b, scalar, angular, source.Tolerance());
    IndicesOf(out, a, b);
    out.Add(a.Cross(b));
    out.Add(a < b);
    int i = 0;
    int j = 0;
    int k = 0;
    a.ValueOrder(i, j, k);
    out.Add(i), out.Add(j), out.Add(k);
    a.AbsValueOrder(i, j, k);
    out.Add(i), out.Add(j), out.Add(k);
    out.Add(a.GetPerpendicular());
    out.Add(a.GetPerpendicularNearestTo(b));
    out.Add(a.ToVec3Flt());
    out.Add(a.OuterProduct(b));
}

void RunVec3Flt(Transcript& out, Source& source)
{
    Vec3Flt const a = AnyVec3Dbl(source).ToVec3Flt();
    Vec3Flt const b = Companion(source, Vec3Dbl(a), AnyVec3Dbl(source)).ToVec3Flt();
    float const scalar = source.Float();
    float const angular = static_cast<float>(source.Tolerance());
    SharedByVectors(out, a, b, scalar, angular, static_cast<float>(source.Tolerance()));
    IndicesOf(out, a, b);
    out.Add(a.Cross(b));
    out.Try([&] { return a.GetPerpendicular(); });
    out.Add(a.GetPerpendicularNearestTo(b));
    out.Add(Vec3Dbl(a));
    out.Add(a.OuterProduct(b));
}

void RunVec2Dbl(Transcript& out, Source& source)
{
    Vec2Dbl const a = AnyVec2Dbl(source);
    Vec2Dbl const b = Companion(source, a, AnyVec2Dbl(source));
    double const scalar = source.Double();
    double const angular = source.Tolerance();
    SharedByVectors(out, a, b, scalar, angular, source.Tolerance());
    IndicesOf(out, a, b);
    out.Add(a.Cross(b));
    out.Add(a < b);
    out.Try([&] { return a.GetPerpendicular(); });
    out.Add(a.ToVec2Flt());
    out.Add(a.OuterProduct(b));
}

void RunVec2Flt(Transcript& out, Source& source)
{
    Vec2Flt const a = AnyVec2Dbl(source).ToVec2Flt();
    Vec2Flt const b = Companion(source, Vec2Dbl(a), AnyVec2Dbl(source)).ToVec2Flt();
    float const scalar = source.Float();
    float const angular = static_cast<float>(source.Tolerance());
    SharedByVectors(out, a, b, scalar, angular, static_cast<float>(source.Tolerance()));
    IndicesOf(out, a, b);
    out.Add(a.Cross(b));
    out.Try([&] { return a.GetPerpendicular(); });
    out.Add(Vec2Dbl(a));
    out.Add(a.OuterProduct(b));
}

void RunVec2Int(Transcript& out, Source& source)
{
    int const x = source.Int();
    int const y = source.Int();
    Vec2Int const a(x, y);
    int const bx = source.Int();
    int const by = source.Int();
    Vec2Int const b(bx, by);
    int const scalar = source.Int();
    Vec2Int changed = a;
    out.Add(changed *= scalar);
    out.Add(changed += b);
    out.Add(changed -= a);
    out.Add(changed.Negate());
    out.Add(a * scalar);
    out.Add(scalar * a);
    out.Add(-a);
    out.Add(a + b);
    out.Add(a - b);
    out.Add(a.Dot(b));
    out.Add(a.ElemMult(b));
    out.Add(a.Length());
    out.Add(a.MaxValue());
    out.Add(a.MinValue());
    out.Add(a.MaxAbsValue());
    out.Add(a.MinAbsValue());
    IndicesOf(out, a, b);
    out.Add(a == b);
    out.Add(a != b);
    out.Add(a.IsEqualTo(b));
    out.Add(a.IsNull());
    out.Add(a.IsZeroLength());
}

void RunPnt3Dbl(Transcript& out, Source& source)
{
    Pnt3Dbl const a(AnyVec3Dbl(source));
    Vec3Dbl const v = Companion(source, a.Vector(), AnyVec3Dbl(source));
    Pnt3Dbl const b(v);
    double const scalar = source.Double();
    SharedByPoints(out, a, b, scalar, source.Tolerance());
    out.Add(a + b);
    out.Add(a + v);
    out.Add(a - v);
    Pnt3Dbl changed = a;
    out.Add(changed += b);
    out.Add(changed += v);
    out.Add(changed -= v);
    out.Add(a < b);
    out.Add(a.ToPnt3Flt());
}

void RunPnt3Flt(Transcript& out, Source& source)
{
    Pnt3Flt const a(AnyVec3Dbl(source).ToVec3Flt());
    Vec3Flt const v = Companion(source, Vec3Dbl(a.Vector()), AnyVec3Dbl(source)).ToVec3Flt();
    Pnt3Flt const b(v);
    float const scalar = source.Float();
    SharedByPoints(out, a, b, scalar, static_cast<float>(source.Tolerance()));
    out.Add(a + b);
    out.Add(a + v);
    out.Add(a - v);
    Pnt3Flt changed = a;
    out.Add(changed += b);
    out.Add(changed += v);
    out.Add(changed -= v);
    out.Add(a < b);
    out.Add(Pnt3Dbl(a));
}

void RunPnt2Dbl(Transcript& out, Source& source)
{
    Pnt2Dbl const a(AnyVec2Dbl(source));
    Vec2Dbl const v = Companion(source, a.Vector(), AnyVec2Dbl(source));
    Pnt2Dbl const b(v);
    double const scalar = source.Double();
    SharedByPoints(out, a, b, scalar, source.Tolerance());
    out.Add(a + b);
    out.Add(a + v);
    out.Add(a - v);
    Pnt2Dbl changed = a;
    out.Add(changed += b);
    out.Add(changed += v);
    out.Add(changed -= v);
    out.Add(a < b);
    out.Add(a.ToPnt2Flt());
}

void RunPnt2Flt(Transcript& out, Source& source)
{
    Pnt2Flt const a(AnyVec2Dbl(source).ToVec2Flt());
    Vec2Dbl const v = Companion(source, Vec2Dbl(a.Vector()), AnyVec2Dbl(source));
    Pnt2Flt const b(v.ToVec2Flt());
    float const scalar = source.Float();
    SharedByPoints(out, a, b, scalar, source.Tolerance());
    double const wide = source.Double();
    out.Add(a * wide);
    out.Add(wide * a);
    out.Add(a / wide);
    out.Add(a + v);
    out.Add(a - v);
    Pnt2Flt changed = a;
    out.Add(changed += v);
    out.Add(changed -= v);
    out.Add(changed *= wide);
    out.Add(changed /= wide);
}

void RunMat3Dbl(Transcript& out, Source& source)
{
    Mat3Dbl a = AnyMat3Dbl(source);
    Mat3Dbl const b = AnyMat3Dbl(source);
    Vec3Dbl const v = AnyVec3Dbl(source);
    SharedByMatrices(out, a, b, source.Double());
    out.Add(a * v);
    out.Add(a * Pnt3Dbl(v));
    out.Add(a * v.ToVec3Flt());
    out.Add(a * Pnt3Flt(v.ToVec3Flt()));
    out.Add(a.RowSum());
    out.Add(a.RowAverage());
    out.Try([&] { return a.GetInvertedCopy(); });
    out.Try([&] {
        Mat3Dbl factors = a;
        Vec3Dbl solution = v;
        factors.Solve(solution);
        out.Add(solution);
        solution = b.GetRow(0);
        factors.ReSolve(solution);
        out.Add(solution);
        return factors;
    });
    out.Try([&] {
        Vec3Dbl vector;
        a.GetEigenVectorGivenEigenValue(vector, v.x);
        return vector;
    });
}

void RunSmallSolver(Transcript& out, Source& source)
{
    constexpr int most = 12;
    double matrix[most * most];
    double solution[2 * most * most];
    unsigned char order[most];
    int const size = 1 + source.Below(most);
    for (int i = 0; i < size * size; ++i)
        matrix[i] = source.Below(3) ? source.Plain() : source.Double();
    for (double& value : solution)
        value = source.Double();
    int const status = small_decompose(matrix, order, size);
    out.Add(status);
    for (int i = 0; i < size * size; ++i)
        out.Add(matrix[i]);
    if (status != 0)
        return;
    for (int i = 0; i < size; ++i)
        out.Add(int(order[i]));
    small_substitution(matrix, solution, order, size, size);
    for (int i = 0; i < size * size; ++i)
        out.Add(solution[i]);
}

void RunMat2Dbl(Transcript& out, Source& source)
{
    Mat2Dbl const a = AnyMat2Dbl(source);
    Mat2Dbl const b = AnyMat2Dbl(source);
    Vec2Dbl const v = AnyVec2Dbl(source);
    SharedByMatrices(out, a, b, source.Double());
    out.Add(a * v);
    out.Add(a * v.ToVec2Flt());
    out.Try([&] { return a.GetInvertedCopy(); });
    out.Try([&] {
        Mat2Dbl inverse = a;
        Vec2Dbl solution = v;
        inverse.Solve(solution);
        inverse.ReSolve(solution);
        return solution;
    });
    for (int withVectors = 0; withVectors < 2; ++withVectors) {
        Mat2Dbl symmetric = a;
        Vec2Dbl values;
        symmetric.EigenSym(values, withVectors);
        out.Add(values);
        out.Add(symmetric);
    }
}

void RunAffMat3Dbl(Transcript& out, Source& source)
{
    AffMat3Dbl a = AnyAffMat3Dbl(source);
    AffMat3Dbl b = AnyAffMat3Dbl(source);
    Vec3Dbl const v = AnyVec3Dbl(source);
    double const scalar = source.Double();
    AffMat3Dbl changed = a;
    out.Add(changed *= scalar);
    changed = a;
    out.Add(changed /= scalar);
    changed = a;
    out.Add(changed += b);
    changed = a;
    out.Add(changed -= b);
    out.Add(a + b);
    out.Add(a - b);
    out.Add(a * b);
    out.Add(a * v);
    out.Add(a * Pnt3Dbl(v));
    out.Add(a * v.ToVec3Flt());
    out.Add(a * Pnt3Flt(v.ToVec3Flt()));
    out.Add(a == b);
    out.Add(a != b);
    out.Try([&] { return a.GetInvertedCopy(); });
    double twelve[12];
    a.GetMatrixData(twelve);
    for (double const value : twelve)
        out.Add(value);
    b.SetMatrixData(twelve);
    out.Add(b);
}

void RunAffMat2Dbl(Transcript& out, Source& source)
{
    AffMat2Dbl a = AnyAffMat2Dbl(source);
    AffMat2Dbl const b = AnyAffMat2Dbl(source);
    Vec2Dbl const v = AnyVec2Dbl(source);
    out.Add(a * b);
    out.Add(a * v);
    out.Add(a * Pnt2Dbl(v));
    out.Add(a * v.ToVec2Flt());
    out.Add(a * Pnt2Flt(v.ToVec2Flt()));
    out.Add(a.LinearPart().RowSum());
    out.Add(a.LinearPart().RowAverage());
    out.Try([&] { return a.GetInvertedCopy(); });
}

void RunQuaternion(Transcript& out, Source& source)
{
    auto const any = [&source] {
        double const u = source.Double();
        double const v = source.Double();
        double const w = source.Double();
        double const s = source.Double();
        return Quaternion().SetValue(u, v, w, s, source.Below(2));
    };
    Quaternion a = any();
    Quaternion const b = source.Below(4) ? any() : a;
    Vec3Dbl const v = AnyVec3Dbl(source);
    out.Add(a);
    out.Add(a * b);
    out.Add(a.Inverse());
    out.Add(a == b);
    out.Add(a != b);
    out.Add(a < b);
    out.Add(a.IsIdentity());
    out.Add(a.RotatePoint(v));
    out.Add(a.RotatePoint(Pnt3Dbl(v)));
    Mat3Dbl matrix(0.0);
    a.GetRotationMatrix(matrix);
    out.Add(matrix);
    out.Add(Quaternion(matrix));
    out.Add(Quaternion(AnyMat3Dbl(source)));
    out.Try([&] { return Quaternion().SetAxisCosAngle(v, b.s, 1); });
    out.Add(Quaternion().SetAxisCosAngle(v, b.u, 0));
    out.Add(a.GetAxis(source.Below(2)));
    for (int i = 0; i < 3; ++i) {
        out.Add(a.GetCol(i));
        out.Add(a.GetRow(i));
    }
    out.Add(a.Normalize());
    out.Add(a.Invert());
}

void RunVecDbl(Transcript& out, Source& source)
{
    int const size = 1 + source.Below(9);
    VecDbl const a = AnyVecDbl(source, size);
    VecDbl b = AnyVecDbl(source, size);
    if (source.Below(2))
        b = a * 3.0;
    double const scalar = source.Double();
    double const angular = source.Tolerance();
    SharedByVectors(out, a, b, scalar, angular, source.Tolerance());
    out.Add(a.Sum());
    out.Add(Vec3Dbl(a));
    out.Add(VecDbl(AnyVec3Dbl(source)));
}

void RunVecFlt(Transcript& out, Source& source)
{
    int const size = 1 + source.Below(9);
    VecFlt a;
    VecFlt b;
    a = AnyVecDbl(source, size);
    b = AnyVecDbl(source, size);
    if (source.Below(2))
        b = a * 3.0f;
    float const scalar = source.Float();
    float const angular = static_cast<float>(source.Tolerance());
    SharedByVectors(out, a, b, scalar, angular, static_cast<float>(source.Tolerance()));
    out.Add(VecDbl(a));
}

void RunMatDbl(Transcript& out, Source& source)
{
    int const rows = 1 + source.Below(9);
    int const columns = 1 + source.Below(9);
    int const inner = 1 + source.Below(9);
    MatDbl a = AnyMatDbl(source, rows, inner);
    MatDbl const b = AnyMatDbl(source, inner, columns);
    VecDbl const v = AnyVecDbl(source, inner);
    VecFlt narrow;
    narrow = v;
    double const scalar = source.Double();
    out.Add(a * b);
    out.Add(a * v);
    out.Add(a * narrow);
    out.Add(a * scalar);
    out.Add(a / scalar);
    out.Add(a + a);
    out.Add(-a);
    out.Add(a.RowSum());
    out.Add(a.RowAverage());
    out.Add(a.GetTransposedCopy());
    out.Add(a.Transpose());
    out.Add(MatDbl(AnyMat3Dbl(source)));
    out.Add(Mat3Dbl(a));
}

Vec3Dbl UnitAxis(Source& source)
{
    double const x = source.Plain();
    double const y = source.Plain();
    return Vec3Dbl(x, y, source.Below(3) - 1.0).GetNormalizedCopy();
}

void RunTurns(Transcript& out, Source& source)
{
    VexorTolerance tolerance;
    tolerance.SetAngle(source.Double());
    out.Add(tolerance.GetSin2Angle());

    double const angle = source.Double();
    Vec3Dbl const v = AnyVec3Dbl(source);
    Vec3Dbl const axis = UnitAxis(source);
    Pnt3Dbl const point(AnyVec3Dbl(source));
    out.Add(Vec3Dbl(v).Rotate(axis, angle));
    out.Try([&] { return AffMat3Dbl(1.0).SetRotation(point, axis, angle); });
    out.Try([&] { return AffMat3Dbl(1.0).SetRotation(point, v, axis); });
    out.Try([&] { return Quaternion(v, angle, 1); });
    out.Try([&] { return Quaternion(v.x, v.y, v.z, angle, 1); });
    Quaternion a(axis, angle, 0);
    out.Add(a);
    out.Add(a.GetAngle());
    out.Add(a.GetAbsoluteAngle());
    out.Add(a.Distance(Quaternion(axis, source.Double(), 0)));
    out.Add(a.GetEulerAngles());
    Vec3Dbl angles = AnyVec3Dbl(source);
    out.Add(a.SetFromEulerAngles(angles));
    out.Add(angles);
    out.Add(a.GetEulerAngles());
}

void RunAngles(Transcript& out, Source& source)
{
    Vec3Dbl const a = AnyVec3Dbl(source);
    Vec3Dbl const b = AnyVec3Dbl(source);
    Vec3Dbl const normal = AnyVec3Dbl(source);
    out.Try([&] { return a.GetAngleWith(b); });
    out.Try([&] { return a.GetCCWAngleWith(b, normal); });
    out.Try([&] { return a.ToVec3Flt().GetAngleWith(b.ToVec3Flt()); });
    out.Try([&] { return Vec2Dbl(a.x, a.y).GetAngleWith(Vec2Dbl(b.x, b.y)); });
    out.Try([&] { return Vec2Dbl(a.x, a.y).GetCCWAngleWith(Vec2Dbl(b.x, b.y)); });
    out.Try([&] { return Vec2Dbl(a.x, a.y).ToVec2Flt().GetAngleWith(Vec2Dbl(b.x, b.y).ToVec2Flt()); });
    VecDbl const left(a);
    VecDbl const right(b);
    out.Try([&] { return left.GetAngleWith(right); });
    VecFlt narrowLeft;
    VecFlt narrowRight;
    narrowLeft = left;
    narrowRight = right;
    out.Try([&] { return narrowLeft.GetAngleWith(narrowRight); });
}

void RunSpectra(Transcript& out, Source& source)
{
    double const xx = source.Plain(), xy = source.Plain(), xz = source.Plain();
    double const yy = source.Plain(), yz = source.Plain(), zz = source.Plain();
    for (int withVectors = 0; withVectors < 2; ++withVectors) {
        out.Try([&] {
            Mat3Dbl m(0.0);
            m(0, 0) = xx, m(0, 1) = m(1, 0) = xy, m(0, 2) = m(2, 0) = xz;
            m(1, 1) = yy, m(1, 2) = m(2, 1) = yz, m(2, 2) = zz;
            Vec3Dbl values(0.0);
            m.EigenSym(values, withVectors);
            if (withVectors != 0)
                out.Add(m);
            return values;
        });
    }
}

void RunElementary(Transcript& out, Source& source)
{
    double const any = FromBits(source.Word());
    double const other = FromBits(source.Word());
    double const a = source.Double();
    double const b = source.Double();
    out.Add(vexor::Sin(any));
    out.Add(vexor::Cos(any));
    out.Add(vexor::Sin(a));
    out.Add(vexor::Cos(a));
    vexor::SineAndCosine const both = vexor::SinCos(b);
    out.Add(both.sine);
    out.Add(both.cosine);
    out.Add(vexor::Acos(any));
    out.Add(vexor::Acos(a));
    out.Add(vexor::Atan2(any, other));
    out.Add(vexor::Atan2(a, b));
}

// ---- All sizes ---------------------------------------------------------------------------------------
// Mostly plain numbers: in a long vector, one infinity or NaN would hide everything else.

VecDbl PlainVecDbl(Source& source, int size)
{
    bool const hasSpecial = source.Below(8) == 0;
    VecDbl result(size);
    for (int i = 0; i < size; ++i)
        result[i] = hasSpecial ? source.Double() : source.Plain();
    return result;
}

/// Visits all sizes, with two vectors of a size. The second is any, a multiple of the first, or the first
/// with sometimes one of its last elements changed; sometimes one of the last elements of the first is its
/// largest.
template <class Vector, class Number>
void RunSizes(Transcript& out, Source& source)
{
    sizes::ForEach([&](int size) {
        Vector a;
        Vector b;
        a = PlainVecDbl(source, size);
        int const place = size - 1 - source.Below(size < 9 ? size : 9);
        int const sign = source.Below(3) - 1;
        if (sign != 0)
            a[place] = static_cast<Number>(sign * 0x1p21);
        b = PlainVecDbl(source, size);
        int const kind = source.Below(3);
        if (kind != 0)
            b = a * static_cast<Number>(kind == 1 ? 3 : 1);
        if (kind == 2 && source.Below(2))
            b[place] += static_cast<Number>(0.25);
        Number const scalar = static_cast<Number>(source.Plain());
        Number const angular = static_cast<Number>(source.Tolerance());
        SharedByVectors(out, a, b, scalar, angular, static_cast<Number>(source.Tolerance()));
        // The last element alone decides.
        b = a;
        b[size - 1] = static_cast<Number>(0x1p22);
        out.Add(a == b);
        out.Add(a.IsEqualTo(b, static_cast<Number>(1), static_cast<Number>(0)));
        out.Add(b.MaxValue());
        out.Add(b.MaxAbsValueIdx());
        out.Add(b.GetNegatedCopy().MinValueIdx());
        a *= static_cast<Number>(0);
        out.Add(a.IsNull());
        a[size - 1] = static_cast<Number>(1);
        out.Add(a.IsNull());
        out.Add(a.IsZeroLength(static_cast<Number>(0)));
    });
}

void RunVecDblSizes(Transcript& out, Source& source)
{
    RunSizes<VecDbl, double>(out, source);
    sizes::ForEach([&](int size) { out.Add(PlainVecDbl(source, size).Sum()); });
}

void RunVecFltSizes(Transcript& out, Source& source)
{
    RunSizes<VecFlt, float>(out, source);
}

void RunShape(Transcript& out, Source& source, int rows, int inner, int columns)
{
    MatDbl a(rows, inner);
    for (int j = 0; j < inner; ++j)
        a.SetCol(j, PlainVecDbl(source, rows));
    MatDbl b(inner, columns);
    for (int j = 0; j < columns; ++j)
        b.SetCol(j, PlainVecDbl(source, inner));
    VecDbl const v = PlainVecDbl(source, inner);
    VecFlt narrow;
    narrow = v;
    double const scalar = source.Plain();
    out.Add(a * b);
    out.Add(a * v);
    out.Add(a * narrow);
    out.Add(a / scalar);
    out.Add(-a);
    out.Add(a.RowSum());
    out.Add(a.RowAverage());
    out.Add(a.GetRow(rows - 1));
    out.Add(a.GetTransposedCopy());
    MatDbl c = a * scalar;
    out.Add(a + c);
    out.Add(a - c);
    c = a;
    out.Add(a == c);
    c(rows - 1, inner - 1) += 0.25;
    out.Add(a == c);
    out.Add(a != c);
    out.Add(a.Transpose());
    out.Add(c.Identity());
}

void RunMatDblSizes(Transcript& out, Source& source)
{
    for (int size = 1; size <= sizes::matricesUpTo; ++size) {
        int const inner = 1 + source.Below(sizes::matricesUpTo);
        int const columns = 1 + source.Below(sizes::matricesUpTo);
        RunShape(out, source, size, inner, columns);
        RunShape(out, source, size, size, size);
    }
    for (sizes::Shape const& shape : sizes::largeMatrices)
        RunShape(out, source, shape.rows, shape.columns, 1 + source.Below(4));
}

constexpr Class classes[] = {
    {"VexorTolerance", RunVexorTolerance},
    {"UInt64", RunUInt64},
    {"Vec3Dbl", RunVec3Dbl},
    {"Vec3Flt", RunVec3Flt},
    {"Vec2Dbl", RunVec2Dbl},
    {"Vec2Flt", RunVec2Flt},
    {"Vec2Int", RunVec2Int},
    {"Pnt3Dbl", RunPnt3Dbl},
    {"Pnt3Flt", RunPnt3Flt},
    {"Pnt2Dbl", RunPnt2Dbl},
    {"Pnt2Flt", RunPnt2Flt},
    {"Mat3Dbl", RunMat3Dbl},
    {"small solver", RunSmallSolver},
    {"Mat2Dbl", RunMat2Dbl},
    {"AffMat3Dbl", RunAffMat3Dbl},
    {"AffMat2Dbl", RunAffMat2Dbl},
    {"Quaternion", RunQuaternion},
    {"VecDbl", RunVecDbl},
    {"VecFlt", RunVecFlt},
    {"MatDbl", RunMatDbl},
    {"turns", RunTurns},
    {"angles", RunAngles},
    {"spectra", RunSpectra},
    {"elementary", RunElementary},
    {"VecDbl sizes", RunVecDblSizes, 5000},
    {"VecFlt sizes", RunVecFltSizes, 5000},
    {"MatDbl sizes", RunMatDblSizes, 10000},
};

} // namespace

} // namespace transcript
