// A sample of every class, computed by C++: name and bits, a line each. sample.py computes the same in Python.
#include <vexor/extras/detail/Layout.h>
#include <vexor/vexor.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

std::uint64_t state = 20261122;

/// A double in [-2, 2) with 20 bits, which both languages draw alike (SplitMix64).
double Draw()
{
    state += 0x9e3779b97f4a7c15u;
    std::uint64_t bits = state;
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9u;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebu;
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 44) / 262144.0 - 2.0;
}

void Print(double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof(bits));
    std::printf(" %016llx", static_cast<unsigned long long>(bits));
}

/// Widened, which loses nothing.
template <class Value>
void PrintElements(Value const& value)
{
    using namespace vexor::detail;
    if constexpr (std::is_arithmetic_v<Value>) {
        Print(static_cast<double>(value));
    } else if constexpr (std::is_same_v<Value, Quaternion>) {
        for (int i = 0; i < 4; ++i)
            Print(value[i]);
    } else if constexpr (isMatrix<Value>) {
        for (int i = 0; i < RowsOf(value); ++i) {
            for (int j = 0; j < ColumnsOf(value); ++j)
                Print(value(i, j));
        }
    } else {
        for (int i = 0; i < VectorSize(value); ++i)
            Print(static_cast<double>(value[i]));
    }
}

template <class... Values>
void Line(char const* name, Values const&... values)
{
    std::printf("%s", name);
    (PrintElements(values), ...);
    std::printf("\n");
}

template <class Value>
Value Drawn()
{
    Value value(0);
    for (int i = 0; i < vexor::detail::VectorSize(value); ++i)
        value[i] = static_cast<vexor::detail::ElementType<Value>>(Draw());
    return value;
}

template <class Vector>
void Vectors(char const* name)
{
    using Element = vexor::detail::ElementType<Vector>;
    auto const a = Drawn<Vector>();
    auto const b = Drawn<Vector>();
    auto const s = static_cast<Element>(Draw());
    Line(name, a + b, a - b, a * s, a / s, -a, a.Dot(b), a.Cross(b), a.Length(), a.GetNormalizedCopy(),
         a.GetAngleWith(b), a.GetAreaFormedByTriangleWith(b), a.GetProjectionOnTo(b), a.GetPerpendicular(),
         a.OuterProduct(b), a.IsParallelTo(b), a.IsPerpendicularTo(b, Element(0.5), Element(0)),
         a.MaxAbsValue(), a.MinValueIdx());
}

template <class Point, class Vector>
void Points(char const* name)
{
    auto const a = Drawn<Point>();
    auto const b = Drawn<Point>();
    auto const v = Drawn<Vector>();
    Line(name, a - b, a + v, a - v, a.DistanceTo(b), a.DistanceSqTo(b), a.IsEqualTo(b, 2),
         a * static_cast<decltype(a.x)>(0.3));
}

template <class Vector>
void RunTimeVectors(char const* name, int size)
{
    using Element = vexor::detail::ElementType<Vector>;
    Vector a(size, Element(0));
    Vector b(size, Element(0));
    for (int i = 0; i < size; ++i) {
        a[i] = static_cast<Element>(Draw());
        b[i] = static_cast<Element>(Draw());
    }
    Line(name, a + b, a.Dot(b), a.Length(), a.GetNormalizedCopy(), a.GetProjectionOnTo(b), a.GetAngleWith(b),
         a / b[0], a.MaxAbsValueIdx());
}

MatDbl Matrix(int rows, int columns)
{
    MatDbl matrix(rows, columns, 0.0);
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < columns; ++j)
            matrix(i, j) = Draw();
    }
    return matrix;
}

void Matrices()
{
    // Braces draw from left to right.
    Mat3Dbl const m{Drawn<Vec3Dbl>(), Drawn<Vec3Dbl>(), Drawn<Vec3Dbl>()};
    auto const v = Drawn<Vec3Dbl>();
    Mat3Dbl factors(m);
    Vec3Dbl solution(v);
    factors.Solve(solution);
    Mat3Dbl vectors(m + m.GetTransposedCopy());
    Vec3Dbl values;
    vectors.EigenSym(values, 1);
    Line("Mat3Dbl", m * m, m * v, m * Pnt3Dbl(v), m.GetInvertedCopy(), solution, values, vectors,
         Mat3Dbl(m).RowAverage());
    Mat2Dbl plane{Drawn<Vec2Dbl>(), Drawn<Vec2Dbl>()};
    auto const w = Drawn<Vec2Dbl>();
    Vec2Dbl solved(w);
    Mat2Dbl(plane).Solve(solved);
    Line("Mat2Dbl", plane * plane, plane * w, plane.GetInvertedCopy(), solved);
    AffMat3Dbl map(m, v);
    AffMat3Dbl turn;
    turn.SetRotation(Pnt3Dbl(v), Vec3Dbl(0.0, 0.0, 1.0), Draw());
    Line("AffMat3Dbl", map * Pnt3Dbl(v), map * v, (map * turn).LinearPart(), (map * turn).Translation(),
         map.GetInvertedCopy().Translation(), map * v.ToVec3Flt());
    AffMat2Dbl const planeMap(plane, w);
    Line("AffMat2Dbl", planeMap * Pnt2Dbl(w), planeMap * w, planeMap * w.ToVec2Flt(),
         planeMap.GetInvertedCopy().Translation());
    Quaternion q;
    q.SetFromMatrix(turn.LinearPart());
    Quaternion const r(v, Draw(), 1);
    Mat3Dbl rotation;
    r.GetRotationMatrix(rotation);
    Line("Quaternion", q, r, q * r, r.RotatePoint(v), rotation, r.GetEulerAngles(), r.GetAngle(),
         r.Distance(q), r.GetAxis(1));
    MatDbl const a = Matrix(5, 4);
    MatDbl const b = Matrix(4, 5);
    Line("MatDbl", a * b, a.GetTransposedCopy() + b, MatDbl(a).RowAverage(), a.GetRow(2), b / 3.0);
}

} // namespace

int main()
{
    for (int i = 0; i < 50; ++i) {
        Vectors<Vec3Dbl>("Vec3Dbl");
        Vectors<Vec3Flt>("Vec3Flt");
        Vectors<Vec2Dbl>("Vec2Dbl");
        Vectors<Vec2Flt>("Vec2Flt");
        Points<Pnt3Dbl, Vec3Dbl>("Pnt3Dbl");
        Points<Pnt3Flt, Vec3Flt>("Pnt3Flt");
        Points<Pnt2Dbl, Vec2Dbl>("Pnt2Dbl");
        Points<Pnt2Flt, Vec2Dbl>("Pnt2Flt");
        Vec2Int const n{static_cast<int>(1e9 * Draw()), static_cast<int>(1e9 * Draw())};
        Line("Vec2Int", n + n, n * 5, n.Dot(n), n.Length());
        UInt64 const c(static_cast<__int64>(1e15 * Draw()));
        Line("UInt64", (c * c).lowWord, (c * c).highWord, (c / UInt64(static_cast<__int64>(7))).int64());
        RunTimeVectors<VecDbl>("VecDbl", 1 + i);
        RunTimeVectors<VecFlt>("VecFlt", 1 + i);
        Matrices();
    }
    gVexorTolerance.SetAngle(0.1);
    Line("VexorTolerance", gVexorTolerance.angle, gVexorTolerance.sin2Angle);
}
