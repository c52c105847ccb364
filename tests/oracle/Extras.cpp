// The opt-in headers make.h and interpolate.h.
#include <vexor/extras/interpolate.h>
#include <vexor/extras/make.h>

#include "oracle/Matrices.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

using Q = ::Quaternion;

V3 VectorPartOf(Quat const& q)
{
    return {{q[0], q[1], q[2]}};
}

Quat Combined(Dbl const& first, Quat const& a, Dbl const& second, Quat const& b)
{
    Quat result;
    for (int i = 0; i < 4; ++i)
        result[i] = first * a[i] + second * b[i];
    return result;
}

Dbl NormOf(Quat const& q)
{
    return Sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
}

/// Unit but for rounding, now and then the identity or its opposite.
Q DrawnUnit(Source& source)
{
    Q q;
    if (source.OneIn(8)) {
        q.SetValue(0.0, source.Below(2) ? 0.0 : -0.0, 0.0, 1.0 - 2.0 * source.Below(2), 0);
        return q;
    }
    q.SetValue(source.Signed(), source.Signed(), source.Signed(), source.Signed(), 0);
    return q.Normalize();
}

/// Two of them: at random, equal, opposite, nearly equal, or at a right angle.
auto DrawUnits(Source& source)
{
    Q const a = DrawnUnit(source);
    Q b = DrawnUnit(source);
    switch (source.Below(8)) {
    case 0:
        b = a;
        break;
    case 1:
        b.SetValue(-a.u, -a.v, -a.w, -a.s, 0);
        break;
    case 2:
        b = a;
        b.u += std::ldexp(source.Signed(), -20 - source.Below(34));
        break;
    case 3:
        b.SetValue(-a.v, a.u, -a.s, a.w, 0);
        break;
    default:
        break;
    }
    return std::tuple(a, b);
}

double DrawnParameter(Source& source)
{
    static double const special[] = {0.0, 1.0, 0.5, -1.0, 2.0};
    return source.OneIn(3) ? special[source.Below(5)] : 1.5 * source.Signed();
}

/// The plane or line through `origin`: its unit direction, and the distance of the point along it.
template <int N>
Dbl Along(Vec<Dbl, N> const& point, Vec<Dbl, N> const& origin, Vec<Dbl, N> const& unit)
{
    return DotOf(point - origin, unit);
}

template <class P, class V>
auto DrawPlaces(Source& source)
{
    P const point = Filled<P>(source);
    P const origin = source.OneIn(6) ? point : Filled<P>(source);
    V const direction = source.OneIn(12) ? V(0.0) : Filled<V>(source);
    return std::tuple(point, origin, direction);
}

void EnterMatrixExtras()
{
    Add(
        "vexor::Determinant(Mat2Dbl)", DrawMatrix<Mat2Dbl, 2>,
        [](Mat2Dbl const& m) { return vexor::Determinant(m); },
        [](Mat<2> const& m) {
            if (Slip("of the transposed matrix, rows exchanged"))
                return m(1, 0) * m(0, 1) - m(0, 0) * m(1, 1);
            return m(0, 0) * m(1, 1) - m(0, 1) * m(1, 0);
        });
    Add(
        "vexor::Determinant(Mat3Dbl)", DrawMatrix<Mat3Dbl, 3>,
        [](Mat3Dbl const& m) { return vexor::Determinant(m); },
        [](Mat<3> const& m) {
            if (Slip("the last row by the cross product of the others"))
                return DotOf(m.Row(2), CrossOf(m.Row(0), m.Row(1)));
            return DotOf(m.Row(0), CrossOf(m.Row(1), m.Row(2)));
        });
    Add(
        "vexor::Trace(Mat2Dbl)", DrawMatrix<Mat2Dbl, 2>, [](Mat2Dbl const& m) { return vexor::Trace(m); },
        [](Mat<2> const& m) { return m(0, 0) + m(1, 1); });
    Add(
        "vexor::Trace(Mat3Dbl)", DrawMatrix<Mat3Dbl, 3>, [](Mat3Dbl const& m) { return vexor::Trace(m); },
        [](Mat<3> const& m) {
            if (Slip("from the other end"))
                return m(0, 0) + (m(1, 1) + m(2, 2));
            return m(0, 0) + m(1, 1) + m(2, 2);
        });
}

void EnterPlaceExtras()
{
    Add(
        "vexor::ProjectOnPlane", DrawPlaces<Pnt3Dbl, Vec3Dbl>,
        [](Pnt3Dbl const& p, Pnt3Dbl const& o, Vec3Dbl const& n) { return vexor::ProjectOnPlane(p, o, n); },
        [](V3 const& p, V3 const& o, V3 const& n) {
            V3 const unit = NormalizedOf(n);
            if (Slip("without the origin"))
                return p - DotOf(p, unit) * unit;
            return p - Along(p, o, unit) * unit;
        });
    Add(
        "vexor::ProjectOnLine in space", DrawPlaces<Pnt3Dbl, Vec3Dbl>,
        [](Pnt3Dbl const& p, Pnt3Dbl const& o, Vec3Dbl const& d) { return vexor::ProjectOnLine(p, o, d); },
        [](V3 const& p, V3 const& o, V3 const& d) {
            V3 const unit = NormalizedOf(d);
            return o + Along(p, o, unit) * unit;
        });
    Add(
        "vexor::ProjectOnLine in the plane", DrawPlaces<Pnt2Dbl, Vec2Dbl>,
        [](Pnt2Dbl const& p, Pnt2Dbl const& o, Vec2Dbl const& d) { return vexor::ProjectOnLine(p, o, d); },
        [](V2 const& p, V2 const& o, V2 const& d) {
            V2 const unit = NormalizedOf(d);
            return o + Along(p, o, unit) * unit;
        });
    Add(
        "vexor::Lerp",
        [](Source& source) {
            auto const [a, b] = Related<Vec3Dbl>(source);
            return std::tuple(a, b, DrawnParameter(source));
        },
        [](Vec3Dbl const& a, Vec3Dbl const& b, double t) { return vexor::Lerp(a, b, t); },
        [](V3 const& a, V3 const& b, Dbl const& t) {
            if (Slip("a + t (b - a)"))
                return a + t * (b - a);
            return (1.0 - t) * a + t * b;
        });
}

Dbl AngleOf(V3 const& left, V3 const& right)
{
    V3 const a = NormalizedOf(left), b = NormalizedOf(right);
    if (Slip("by the arc cosine"))
        return ClampedAcos(DotOf(a, b));
    return Atan2(LengthOf(CrossOf(a, b)), DotOf(a, b));
}

Dbl RotationAngleOf(Quat const& q)
{
    if (Slip("the sign of s counts"))
        return 2.0 * Atan2(LengthOf(VectorPartOf(q)), q[3]);
    return 2.0 * Atan2(LengthOf(VectorPartOf(q)), q[3] < 0.0 ? -q[3] : q[3]);
}

void EnterAngleExtras()
{
    Add(
        "vexor::Angle(Vec3Dbl)", [](Source& source) { return Related<Vec3Dbl>(source); },
        [](Vec3Dbl const& a, Vec3Dbl const& b) { return vexor::Angle(a, b); }, AngleOf);
    Add(
        "vexor::SignedAngle", [](Source& source) { return Related<Vec2Dbl>(source); },
        [](Vec2Dbl const& a, Vec2Dbl const& b) { return vexor::SignedAngle(a, b); },
        [](V2 const& left, V2 const& right) {
            V2 const a = NormalizedOf(left), b = NormalizedOf(right);
            Dbl const cross = a[0] * b[1] - a[1] * b[0];
            return Slip("clockwise") ? Atan2(-cross, DotOf(a, b)) : Atan2(cross, DotOf(a, b));
        });
    Add(
        "vexor::RotationAngle", [](Source& source) { return std::tuple(DrawnUnit(source)); },
        [](Q const& q) { return vexor::RotationAngle(q); }, RotationAngleOf);
}

Quat SlerpOf(Quat const& a, Quat const& b, Dbl const& t)
{
    Dbl const dot = a[0] * b[0] + a[1] * b[1] + a[2] * b[2] + a[3] * b[3];
    bool const longWay = Slip("the long way"), halfAngle = Slip("half of the angle");
    Quat const end = Combined(0.0, a, dot < 0.0 && !longWay ? -1.0 : 1.0, b);
    Dbl angle = Atan2(NormOf(Combined(-1.0, a, 1.0, end)), NormOf(Combined(1.0, a, 1.0, end)));
    if (!halfAngle)
        angle = 2.0 * angle;
    Dbl const sine = Sin(angle);
    if (sine == 0.0)
        return Combined(1.0 - t, a, t, end);
    return Combined(Sin((1.0 - t) * angle) / sine, a, Sin(t * angle) / sine, end);
}

V3 LogOf(Quat const& q)
{
    V3 const vector = VectorPartOf(q);
    Dbl const length = LengthOf(vector);
    if (length == 0.0)
        return {{0.0, q[3] < 0.0 ? pi : Dbl(0.0), 0.0}};
    if (Slip("the whole angle"))
        return (2.0 * Atan2(length, q[3]) / length) * vector;
    return (Atan2(length, q[3]) / length) * vector;
}

Quat ExpOf(V3 const& half)
{
    Dbl const angle = LengthOf(half);
    if (angle == 0.0)
        return {{0.0, 0.0, 0.0, 1.0}};
    V3 vector = (Sin(angle) / angle) * half;
    if (Slip("divided last"))
        for (int i = 0; i < 3; ++i)
            vector[i] = Sin(angle) * half[i] / angle;
    return {{vector[0], vector[1], vector[2], Cos(angle)}};
}

void EnterRotationExtras()
{
    Add(
        "vexor::Slerp",
        [](Source& source) {
            auto const [a, b] = DrawUnits(source);
            return std::tuple(a, b, DrawnParameter(source));
        },
        [](Q const& a, Q const& b, double t) { return vexor::Slerp(a, b, t); }, SlerpOf);
    Add(
        "vexor::Log", [](Source& source) { return std::tuple(DrawnUnit(source)); },
        [](Q const& q) { return vexor::Log(q); }, LogOf);
    Add(
        "vexor::Exp",
        [](Source& source) { return std::tuple(source.OneIn(8) ? Vec3Dbl(0.0) : Filled<Vec3Dbl>(source)); },
        [](Vec3Dbl const& v) { return vexor::Exp(v); }, ExpOf);
    Add(
        "vexor::Pow", [](Source& source) { return std::tuple(DrawnUnit(source), DrawnParameter(source)); },
        [](Q const& q, double t) { return vexor::Pow(q, t); },
        [](Quat const& q, Dbl const& t) {
            Sound const sound;
            return ExpOf(t * LogOf(q));
        });
}

} // namespace

void EnterExtras()
{
    EnterMatrixExtras();
    EnterPlaceExtras();
    EnterAngleExtras();
    EnterRotationExtras();
}

} // namespace oracle
