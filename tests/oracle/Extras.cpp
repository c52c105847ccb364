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

/// Unit up to rounding, sometimes the identity or its opposite.
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

// ---- Screw motions ---------------------------------------------------------------------------------------

AffMat3Dbl DrawnRigid(Source& source)
{
    Mat3Dbl rotation;
    DrawnUnit(source).GetRotationMatrix(rotation);
    return AffMat3Dbl(rotation, source.OneIn(6) ? Vec3Dbl(0.0) : Filled<Vec3Dbl>(source));
}

/// Two rigid maps: a turn of any size, none, a slight one, or half a revolution apart; sometimes a map that
/// is not rigid.
auto DrawRigids(Source& source)
{
    AffMat3Dbl const a = DrawnRigid(source);
    AffMat3Dbl b = DrawnRigid(source);
    switch (source.Below(8)) {
    case 0:
        b.LinearPart() = a.LinearPart();
        break;
    case 1:
    case 2: { // a turn of 2^-30 to 1, so that either form of (a − sin a)/a³ is used
        Q turn;
        turn.SetValue(source.Signed(), source.Signed(), source.Signed(), std::ldexp(1.0, source.Below(31)),
                      0);
        Mat3Dbl rotation;
        turn.Normalize().GetRotationMatrix(rotation);
        b.LinearPart() = rotation * a.LinearPart();
        break;
    }
    case 3:
        b.LinearPart() =
            Mat3Dbl(a.LinearPart().GetRow(0), -a.LinearPart().GetRow(1), -a.LinearPart().GetRow(2));
        break;
    case 4:
        if (source.OneIn(3))
            b.LinearPart() = DrawnMatrix<Mat3Dbl, 3>(source);
        break;
    default:
        break;
    }
    return std::tuple(a, b, DrawnParameter(source));
}

Mat<3> TransposedOf(Mat<3> const& m)
{
    Mat<3> result;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            result(r, c) = m(c, r);
    return result;
}

/// ½·(sin(a/2)/(a/2))².
Dbl OneMinusCosineOverSquare(Dbl const& angle)
{
    Dbl const half = 0.5 * angle;
    Dbl const quotient = half == 0.0 ? Dbl(1.0) : Sin(half) / half;
    return 0.5 * (quotient * quotient);
}

/// (a − sin a)/a³: below 0.5 the sum over k of (−1)^k a^(2k)/(2k + 3)!, up to 1/15!, from the last term on.
Dbl AngleMinusSineOverCube(Dbl const& angle)
{
    Dbl const square = angle * angle;
    if (angle >= 0.5 && !Slip("the series for every angle"))
        return (angle - Sin(angle)) / (square * angle);
    int const last = Slip("a term too few") ? 5 : 6;
    Dbl sum = 0.0;
    for (int k = last; k >= 0; --k) {
        double factorial = 1.0; // exact up to 15!
        for (int i = 2; i <= 2 * k + 3; ++i)
            factorial *= i;
        sum = 1.0 / Dbl(factorial) - square * sum;
    }
    return sum;
}

/// I + A·W + B·W², from the left, with W the matrix of the cross product by w.
Mat<3> ScrewIntegral(V3 const& w)
{
    Mat<3> cross = UnitMatrix<3>();
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3, k = (i + 2) % 3;
        cross(i, i) = 0.0;
        cross(k, j) = w[i];
        cross(j, k) = -w[i];
    }
    Dbl const angle = LengthOf(w);
    Dbl const first = OneMinusCosineOverSquare(angle);
    Dbl const second = AngleMinusSineOverCube(angle);
    Mat<3> square = cross * cross;
    Mat<3> const unit = UnitMatrix<3>();
    if (Slip("W² as w wᵀ − |w|² I"))
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 3; ++c)
                square(r, c) = w[r] * w[c] - unit(r, c) * DotOf(w, w);
    Mat<3> result;
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            result(r, c) = unit(r, c) + cross(r, c) * first + square(r, c) * second;
    return result;
}

Aff<3> ScrewOf(Aff<3> const& a, Aff<3> const& b, Dbl const& t)
{
    if (t == 0.0 && !Slip("the first end computed"))
        return a;
    if (t == 1.0 && !Slip("the second end computed"))
        return b;
    Mat<3> const rotation = b.linear * TransposedOf(a.linear);
    V3 const shift = b.shift - rotation * a.shift;
    Quat turn = QuaternionOf(rotation);
    if (turn[3] < 0.0 && !Slip("the long way"))
        turn = Combined(0.0, turn, -1.0, turn);
    V3 const w = [&] {
        Sound const sound;
        return 2.0 * LogOf(turn);
    }();
    V3 const velocity =
        Slip("the translation itself as velocity") ? shift : SolutionOf(ScrewIntegral(w), shift);
    Mat<3> const step = [&] {
        Sound const sound;
        return RotationMatrixOf(ExpOf((0.5 * t) * w));
    }();
    V3 const moved = Slip("t after the integral") ? t * (ScrewIntegral(t * w) * velocity)
                                                  : ScrewIntegral(t * w) * (t * velocity);
    if (Slip("the step before a"))
        return {a.linear * step, a.linear * moved + a.shift};
    return {step * a.linear, step * a.shift + moved};
}

void EnterRigidExtras()
{
    Add(
        "vexor::InterpolateRigid", DrawRigids,
        [](AffMat3Dbl const& a, AffMat3Dbl const& b, double t) { return vexor::InterpolateRigid(a, b, t); },
        ScrewOf);
}

} // namespace

void EnterExtras()
{
    EnterMatrixExtras();
    EnterPlaceExtras();
    EnterAngleExtras();
    EnterRotationExtras();
    EnterRigidExtras();
}

} // namespace oracle
