#pragma once
#include <vexor/elementary.h>
#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/rotations/Quaternion.h>
#include <vexor/vectors/Vec2Dbl.h>

// Interpolation of places, rotations and rigid motions. The parameter t is 0 at the first argument and 1 at
// the second; values outside [0, 1] extrapolate. Both ends are exact. Terms are added in the order shown;
// each operation rounds once.

VEXOR_EXACT_BEGIN

namespace vexor {

/// (1 − t)·a + t·b for each component. a and b are vectors or points of finite doubles: 0 times an infinity
/// is NaN.
template <class Value>
Value Lerp(Value const& a, Value const& b, double t)
{
    return (1.0 - t) * a + t * b;
}

namespace detail {

inline Quaternion Combined(double first, Quaternion const& a, double second, Quaternion const& b)
{
    Quaternion result;
    result.SetValue(first * a.u + second * b.u, first * a.v + second * b.v, first * a.w + second * b.w,
                    first * a.s + second * b.s, 0);
    return result;
}

inline double Norm(Quaternion const& q)
{
    return SquareRoot(((q.u * q.u + q.v * q.v) + q.w * q.w) + q.s * q.s);
}

} // namespace detail

/// Spherical linear interpolation (slerp) of two unit quaternions along the shorter way. If their dot product
/// ((u·u + v·v) + w·w) + s·s is negative, −b replaces b: the end is then −b, the same rotation as b. With the
/// angle θ = 2·Atan2(|b − a|, |b + a|) the result is sin((1 − t)·θ)/sin θ · a + sin(t·θ)/sin θ · b, and (1 −
/// t)·a + t·b if sin θ is 0. It is not normalised: rounding leaves a few units of 1e-16.
///
/// For b = −a the rotations are equal and the result is a for every t in [0, 1]. For two rotations half a
/// turn apart (dot product 0) both ways are equally short, and b is used unchanged.
inline Quaternion Slerp(Quaternion const& a, Quaternion const& b, double t)
{
    double const dot = ((a.u * b.u + a.v * b.v) + a.w * b.w) + a.s * b.s;
    Quaternion const end = detail::Combined(0.0, a, dot < 0.0 ? -1.0 : 1.0, b);
    double const angle = 2.0
                         * Atan2(detail::Norm(detail::Combined(-1.0, a, 1.0, end)),
                                 detail::Norm(detail::Combined(1.0, a, 1.0, end)));
    double const sine = Sin(angle);
    if (sine == 0.0)
        return detail::Combined(1.0 - t, a, t, end);
    return detail::Combined(Sin((1.0 - t) * angle) / sine, a, Sin(t * angle) / sine, end);
}

/// The logarithm of a unit quaternion, a vector: the axis times half the angle, of length 0 to π. With L the
/// length of (u, v, w) it is (u, v, w) · (Atan2(L, s) / L). The logarithm of the identity is (0, 0, 0); that
/// of −1, whose axis is arbitrary, is (0, π, 0), with the axis of `Quaternion::GetAxis`.
inline Vec3Dbl Log(Quaternion const& q)
{
    Vec3Dbl const vector(q.u, q.v, q.w);
    double const length = vector.Length();
    if (length == 0.0)
        return Vec3Dbl(0.0, q.s < 0.0 ? detail::pi : 0.0, 0.0);
    return (Atan2(length, q.s) / length) * vector;
}

/// The exponential of a vector, the axis times half the angle in radians: with a its length, the unit
/// quaternion (vector · (sin a / a), cos a). That of (0, 0, 0) is the identity.
inline Quaternion Exp(Vec3Dbl const& halfAngleVector)
{
    Quaternion result;
    double const angle = halfAngleVector.Length();
    if (angle == 0.0)
        return result;
    SineAndCosine const turn = SinCos(angle);
    Vec3Dbl const vector = (turn.sine / angle) * halfAngleVector;
    result.SetValue(vector.x, vector.y, vector.z, turn.cosine, 0);
    return result;
}

/// The rotation applied t times, for t of any size and sign: Exp(t · Log(q)).
inline Quaternion Pow(Quaternion const& q, double t)
{
    return Exp(t * Log(q));
}

namespace detail {

/// (1 − cos a)/a² = ½·(sin(a/2)/(a/2))², without cancellation.
inline double OneMinusCosineQuotient(double angle)
{
    double const half = 0.5 * angle;
    double const quotient = half == 0.0 ? 1.0 : Sin(half) / half;
    return 0.5 * (quotient * quotient);
}

/// (a − sin a)/a³. Below 0.5, where the difference would cancel, it uses the Taylor series; the first omitted
/// term is below 1e-17.
inline double AngleMinusSineQuotient(double angle)
{
    double const square = angle * angle;
    if (angle >= 0.5)
        return (angle - Sin(angle)) / (square * angle);
    double const factorials[] = {1307674368000.0, 6227020800.0, 39916800.0, 362880.0, 5040.0, 120.0, 6.0};
    double sum = 0.0;
    for (double const factorial : factorials)
        sum = 1.0 / factorial - square * sum;
    return sum;
}

} // namespace detail

/// The screw motion between two rigid maps: one turn about a fixed axis, along the shorter way, and a shift
/// along it, both uniform in t. The linear parts must be rotations; this is not checked. At t = 0 and t = 1
/// the result is exactly `a` and `b`.
///
/// With D = b∘a⁻¹ the result is exp(t·log D)∘a, by these steps with the operations of the classes:
///  - D has the linear part R = b.L·a.Lᵀ and the translation d = b.t − R·a.t;
///  - q = `Quaternion(R)`, replaced by −q if its scalar is negative, and w = 2·`Log`(q), the axis times the
///    angle;
///  - V(w) = (I + A·W) + B·W², with W the matrix of w×, A = ½·(sin(|w|/2)/(|w|/2))², which is (1 − cos|w|)/|w|²,
///    and B = (|w| − sin|w|)/|w|³, or if |w| < 0.5 the first seven terms of its Taylor series, summed from the
///    last to the first;
///  - v solves V(w)·v = d, by `Mat3Dbl::Solve`;
///  - the step has the rotation of `Exp`((0.5·t)·w) and the translation V(t·w)·(t·v), and is multiplied by `a`.
///
/// Source: Murray, Li and Sastry, A Mathematical Introduction to Robotic Manipulation (1994), chapter 2.
inline AffMat3Dbl InterpolateRigid(AffMat3Dbl const& a, AffMat3Dbl const& b, double t)
{
    if (t == 0.0)
        return a;
    if (t == 1.0)
        return b;
    Mat3Dbl const rotation = b.LinearPart() * a.LinearPart().GetTransposedCopy();
    Vec3Dbl const translation = b.Translation() - rotation * a.Translation();
    Quaternion turn(rotation);
    if (turn.s < 0.0)
        turn = detail::Combined(0.0, turn, -1.0, turn);
    Vec3Dbl const angleVector = 2.0 * Log(turn);
    auto const integral = [](Vec3Dbl const& w) {
        double const angle = w.Length();
        double const first = detail::OneMinusCosineQuotient(angle);
        double const second = detail::AngleMinusSineQuotient(angle);
        Mat3Dbl const cross(Vec3Dbl(0.0, -w.z, w.y), Vec3Dbl(w.z, 0.0, -w.x), Vec3Dbl(-w.y, w.x, 0.0));
        return Mat3Dbl(Vec3Dbl(1.0, 0.0, 0.0), Vec3Dbl(0.0, 1.0, 0.0), Vec3Dbl(0.0, 0.0, 1.0)) + first * cross
               + second * (cross * cross);
    };
    Vec3Dbl velocity = translation;
    Mat3Dbl factors = integral(angleVector);
    factors.Solve(velocity); // never singular, since the turn is at most half a revolution
    Mat3Dbl step;
    Exp((0.5 * t) * angleVector).GetRotationMatrix(step);
    return AffMat3Dbl(step, integral(t * angleVector) * (t * velocity)) * a;
}

} // namespace vexor

VEXOR_EXACT_END
