#include "oracle/Matrices.h"
#include "oracle/Statements.h"

namespace oracle {

namespace {

// A quaternion is four numbers here: the vector part, then the scalar.

V3 VectorPart(Quat const& q)
{
    return {{q[0], q[1], q[2]}};
}

Quat Joined(V3 const& v, Dbl const& s)
{
    return {{v[0], v[1], v[2], s}};
}

Quat ConjugateOf(Quat const& q)
{
    return Joined(NegatedOf(VectorPart(q)), q[3]);
}

Quat NormalizedQuat(Quat q)
{
    if (q[0] == 0.0 && q[1] == 0.0 && q[2] == 0.0) {
        if (!Slip("a null vector part keeps its scalar"))
            q[3] = 1.0;
        return q;
    }
    bool const scalarFirst = Slip("the scalar's square first"), divided = Slip("divided by the norm");
    Dbl sum = scalarFirst ? q[3] * q[3] : q[0] * q[0];
    for (int i = 1; i < 4; ++i)
        sum = sum + (scalarFirst ? q[i - 1] * q[i - 1] : q[i] * q[i]);
    Dbl const n = Sqrt(sum);
    Dbl const r = 1.0 / n;
    for (int i = 0; i < 4; ++i)
        q[i] = divided ? q[i] / n : q[i] * r;
    if (Slip("not clamped"))
        return q;
    if (q[3] > 1.0)
        q[3] = 1.0;
    if (q[3] < -1.0)
        q[3] = -1.0;
    return q;
}

Quat HamiltonProduct(Quat const& a, Quat const& b)
{
    Dbl const &au = a[0], &av = a[1], &aw = a[2], &as = a[3];
    Dbl const &bu = b[0], &bv = b[1], &bw = b[2], &bs = b[3];
    if (Slip("the last two terms first"))
        return {{as * bu + au * bs + (av * bw - aw * bv), as * bv + av * bs + (aw * bu - au * bw),
                 as * bw + aw * bs + (au * bv - av * bu), as * bs - (au * bu + av * bv + aw * bw)}};
    if (Slip("the vector's own terms in the other order"))
        return {{au * bs + av * bw + as * bu - aw * bv, av * bs + aw * bu + as * bv - au * bw,
                 aw * bs + au * bv + as * bw - av * bu, as * bs - au * bu - av * bv - aw * bw}};
    return {{as * bu + au * bs + av * bw - aw * bv, as * bv + av * bs + aw * bu - au * bw,
             as * bw + aw * bs + au * bv - av * bu, as * bs - au * bu - av * bv - aw * bw}};
}

V3 Turned(Quat const& q, V3 const& p)
{
    V3 const n = VectorPart(q);
    Dbl const& s = q[3];
    V3 const t = s * p + CrossOf(n, p);
    Dbl const d = DotOf(p, n);
    if (Slip("the last two first"))
        return d * n + (s * t - CrossOf(t, n));
    if (Slip("n × t added"))
        return (s * t + CrossOf(n, t)) + d * n;
    if (Slip("by way of two products")) {
        Quat const moved = HamiltonProduct(HamiltonProduct(q, Joined(p, 0.0)), ConjugateOf(q));
        return VectorPart(moved);
    }
    return (d * n + s * t) - CrossOf(t, n);
}

Dbl AngleOfScalar(Dbl const& s)
{
    Dbl const r = 2.0 * ClampedAcos(s);
    if (Slip("half a turn is negative") ? r >= pi : r > pi)
        return r - twoPi;
    return r;
}

Dbl AbsoluteAngle(Dbl const& s)
{
    Dbl const c = s > 0.0 ? s : -s;
    if (c >= 1.0)
        return 0.0;
    return 2.0 * Acos(c);
}

Quat AxisAngle(Quat q, V3 const& axis, Dbl const& angle, int flag, Raise& raised)
{
    Dbl const h = angle * 0.5;
    for (int i = 0; i < 3; ++i)
        q[i] = axis[i];
    if (flag) {
        V3 v = axis;
        raised = RaisedBy([&] { v = NormalizedOf(axis); });
        if (raised != Raise::None)
            return q;
        if (Slip("the axis by the reciprocal of its length")) {
            Dbl const r = 1.0 / LengthOf(axis);
            v = r * axis;
        }
        q = Joined(v, q[3]);
    }
    Dbl const g = Sin(h);
    for (int i = 0; i < 3; ++i)
        q[i] = q[i] * g;
    q[3] = Cos(h);
    if (Slip("normalised as a whole"))
        return NormalizedQuat(q);
    return q;
}

Quat FromMatrix(Mat<3> const& m)
{
    Dbl const t = m(0, 0) + m(1, 1) + m(2, 2);
    Dbl b = t;
    int candidate = -1;
    bool const atLeast = Slip("a tie goes to the later candidate");
    for (int i = 0; i < 3; ++i)
        if (atLeast ? b <= m(i, i) : b < m(i, i)) {
            candidate = i;
            b = m(i, i);
        }
    if (Slip("the scalar for every positive trace") && t > 0.0)
        candidate = -1;
    Quat q;
    if (candidate < 0) {
        Dbl const r = 2.0 * Sqrt(t + 1.0);
        q[0] = (m(2, 1) - m(1, 2)) / r;
        q[1] = (m(0, 2) - m(2, 0)) / r;
        q[2] = (m(1, 0) - m(0, 1)) / r;
        q[3] = r * 0.25;
    } else {
        int const i = candidate, j = (i + 1) % 3, k = (i + 2) % 3;
        Dbl const radicand =
            Slip("the 1 first") ? 1.0 + m(i, i) - m(j, j) - m(k, k) : m(i, i) - m(j, j) - m(k, k) + 1.0;
        Dbl const r = 2.0 * Sqrt(radicand);
        q[i] = r * 0.25;
        q[j] = (m(i, j) + m(j, i)) / r;
        q[k] = (m(i, k) + m(k, i)) / r;
        q[3] = Slip("the scalar's sign turned") ? (m(j, k) - m(k, j)) / r : (m(k, j) - m(j, k)) / r;
    }
    if (Slip("not normalised"))
        return q;
    Sound const sound;
    return NormalizedQuat(q);
}

Mat<3> ToMatrix(Quat const& q)
{
    Dbl const &u = q[0], &v = q[1], &w = q[2], &s = q[3];
    Dbl const uu = u * u, vv = v * v, ww = w * w, ss = s * s;
    Mat<3> m;
    m(0, 0) = ss + uu - vv - ww;
    m(1, 1) = ss - uu + vv - ww;
    m(2, 2) = ss - uu - vv + ww;
    if (Slip("1 less twice the others")) {
        m(0, 0) = 1.0 - 2.0 * (vv + ww);
        m(1, 1) = 1.0 - 2.0 * (uu + ww);
        m(2, 2) = 1.0 - 2.0 * (uu + vv);
    }
    if (Slip("the differences first")) {
        m(0, 0) = (ss - vv) + (uu - ww);
        m(1, 1) = (ss - ww) + (vv - uu);
        m(2, 2) = (ss - uu) + (ww - vv);
    }
    m(0, 1) = 2.0 * (u * v - w * s);
    m(0, 2) = 2.0 * (u * w + v * s);
    m(1, 0) = 2.0 * (u * v + w * s);
    m(1, 2) = 2.0 * (v * w - u * s);
    m(2, 0) = 2.0 * (u * w - v * s);
    m(2, 1) = 2.0 * (v * w + u * s);
    return m;
}

V3 EulerAngles(Quat const& q)
{
    Mat<3> const m = [&] {
        Sound const sound;
        return ToMatrix(q);
    }();
    Dbl const d = Sqrt(m(0, 0) * m(0, 0) + m(1, 0) * m(1, 0));
    if (Slip("the threshold itself is no lock") ? d >= 1e-10
        : Slip("only an exact lock")            ? d > 0.0
                                                : d > 1e-10)
        return {{Atan2(m(2, 1), m(2, 2)), Atan2(-m(2, 0), d), Atan2(m(1, 0), m(0, 0))}};
    return {
        {Atan2(Slip("at lock, the other sign") ? m(1, 2) : -m(1, 2), m(1, 1)), Atan2(-m(2, 0), d), Dbl(0.0)}};
}

// ---- Operands --------------------------------------------------------------------------------------------

using Q = Quaternion;

Q DrawnQuaternion(Source& source)
{
    Q q = Filled<Q>(source);
    switch (source.Below(12)) {
    case 0:
    case 1:
        for (int i = 0; i < 3; ++i)
            q[i] = source.Below(2) ? 0.0 : -0.0;
        break;
    case 2:
    case 3:
        for (int i = 0; i < 3; ++i)
            q[i] = std::ldexp(source.Signed(), -8 - source.Below(60));
        q[3] = source.Below(2) ? 1.0 : -1.0;
        break;
    case 4:
        q[3] = source.Below(2) ? 0.0 : source.Near(0.0);
        break;
    case 5:
        q = AtTie<Q>(source);
        break;
    default:
        break;
    }
    if (source.Below(2))
        q = Unitised(q);
    return q;
}

auto DrawQuaternion(Source& source)
{
    return std::tuple(DrawnQuaternion(source));
}

auto DrawQuaternions(Source& source)
{
    if (source.OneIn(4))
        return DrawPair<Q>(source);
    Q const a = DrawnQuaternion(source);
    Q b = source.OneIn(4) ? a : DrawnQuaternion(source);
    if (source.OneIn(4))
        b[source.Below(4)] *= -1.0;
    return std::tuple(a, b);
}

auto DrawTurned(Source& source)
{
    Q q = DrawnQuaternion(source);
    auto const [p, axis] = Related<Vec3Dbl>(source);
    if (source.OneIn(3))
        for (int i = 0; i < 3; ++i)
            q[i] = axis[i];
    return std::tuple(q, p);
}

auto DrawScalar(Source& source)
{
    Q q = DrawnQuaternion(source);
    switch (source.Below(5)) {
    case 0:
        q[3] = source.Near(source.Below(2) ? 1.0 : -1.0);
        break;
    case 1:
        q[3] = source.Signed();
        break;
    case 2:
        q[3] = source.Near(0.0) * source.Below(2);
        break;
    default:
        break;
    }
    return std::tuple(q);
}

auto DrawAxis(Source& source)
{
    Q const q = DrawnQuaternion(source);
    Vec3Dbl const axis = source.OneIn(10) ? Vec3Dbl(0.0, -0.0, 0.0) : Filled<Vec3Dbl>(source);
    double const angle = source.Angle();
    return std::tuple(q, axis, angle, source.Below(3) - 1);
}

Mat3Dbl DrawnRotation(Source& source)
{
    Mat3Dbl m = DrawnMatrix<Mat3Dbl, 3>(source);
    if (source.Below(4)) {
        Q const q = Unitised(DrawnQuaternion(source));
        double const u = q[0], v = q[1], w = q[2], s = q[3];
        double const e[9] = {
            s * s + u * u - v * v - w * w, 2 * (u * v - w * s),           2 * (u * w + v * s),
            2 * (u * v + w * s),           s * s - u * u + v * v - w * w, 2 * (v * w - u * s),
            2 * (u * w - v * s),           2 * (v * w + u * s),           s * s - u * u - v * v + w * w};
        for (int i = 0; i < 9; ++i)
            m(i / 3, i % 3) = e[i];
    }
    switch (source.Below(8)) {
    case 0:
        for (int i = 0; i < 9; ++i)
            m(i / 3, i % 3) = i % 4 == 0 ? (source.Below(2) ? 1.0 : -1.0) : m(i / 3, i % 3) * source.Below(2);
        break;
    case 1: // a tie between the trace and an element, or between elements
        m(1, 1) = source.Below(2) ? m(0, 0) : -m(2, 2);
        break;
    case 2:
        m(2, 2) = source.Below(2) ? m(0, 0) : m(1, 1);
        break;
    default:
        break;
    }
    return m;
}

void EnterProductsAndAngles()
{
    Add(
        "Quaternion::Normalize", DrawQuaternion, [](Q q) { return Q(q.Normalize()); }, NormalizedQuat);
    Add(
        "Quaternion::Invert", DrawQuaternion, [](Q q) { return Q(q.Invert()); }, ConjugateOf);
    Add(
        "Quaternion::NegateAngle", DrawQuaternion, [](Q q) { return Q(q.NegateAngle()); }, ConjugateOf);
    Add(
        "Quaternion::Inverse", DrawQuaternion, [](Q const& q) { return q.Inverse(); },
        [](Quat const& q) {
            if (Slip("divided by the squared norm")) {
                Dbl const square = ProductSum(q, q);
                Quat result = ConjugateOf(q);
                for (int i = 0; i < 4; ++i)
                    result[i] = result[i] / square;
                return result;
            }
            return ConjugateOf(q);
        });
    Add(
        "Quaternion::operator*", DrawQuaternions, [](Q const& a, Q const& b) { return a * b; },
        [](Quat const& a, Quat const& b) {
            if (Slip("the right operand on the left")) {
                Sound const sound;
                return HamiltonProduct(b, a);
            }
            return HamiltonProduct(a, b);
        });
    Add(
        "Quaternion::RotatePoint(Vec3Dbl)", DrawTurned,
        [](Q const& q, Vec3Dbl const& p) { return q.RotatePoint(p); }, Turned);
    Add(
        "Quaternion::RotatePoint(Pnt3Dbl)", DrawTurned,
        [](Q const& q, Vec3Dbl const& p) { return q.RotatePoint(Pnt3Dbl(p)); }, Turned);
    Add(
        "Quaternion::GetAngle", DrawScalar, [](Q const& q) { return q.GetAngle(); },
        [](Quat const& q) { return AngleOfScalar(q[3]); });
    Add(
        "Quaternion::GetAbsoluteAngle", DrawScalar, [](Q const& q) { return q.GetAbsoluteAngle(); },
        [](Quat const& q) {
            if (Slip("2π less the angle of the scalar as it stands") && q[3] < 0.0)
                return twoPi - 2.0 * ClampedAcos(q[3]);
            return AbsoluteAngle(q[3]);
        });
    Add(
        "Quaternion::Distance", DrawQuaternions, [](Q const& a, Q const& b) { return a.Distance(b); },
        [](Quat const& a, Quat const& b) {
            Quat d = [&] {
                Sound const sound;
                return HamiltonProduct(a, ConjugateOf(b));
            }();
            if (!Slip("not normalised")) {
                Sound const sound;
                d = NormalizedQuat(d);
            }
            Dbl const r = AbsoluteAngle(d[3]);
            if (Slip("identical rotations are at +0"))
                return Abs(r);
            return r > 0.0 ? r : -r;
        });
}

void EnterComparison()
{
    auto const drawEither = [](Source& source) {
        return source.Below(2) ? DrawTiedPair<Q>(source) : DrawQuaternions(source);
    };
    Add(
        "Quaternion::operator==, !=", drawEither,
        [](Q const& a, Q const& b) { return std::tuple(a == b, a != b); },
        [](Quat const& a, Quat const& b) {
            bool equal = true;
            for (int i = 0; i < (Slip("the scalar is not compared") ? 3 : 4); ++i)
                if (!(a[i] == b[i]))
                    equal = false;
            return std::tuple(equal, !equal);
        });
    Add(
        "Quaternion::operator<", drawEither, [](Q const& a, Q const& b) { return a < b; },
        [](Quat const& a, Quat const& b) {
            bool const scalarFirst = Slip("the scalar first"), passed = Slip("a NaN counts as equal");
            for (int k = 0; k < 4; ++k) {
                int const i = scalarFirst ? (k + 3) % 4 : k;
                if (a[i] < b[i])
                    return true;
                if (passed ? a[i] > b[i] : !(a[i] == b[i]))
                    return false;
            }
            return false;
        });
    Add(
        "Quaternion::IsIdentity", DrawQuaternion, [](Q const& q) { return q.IsIdentity(); },
        [](Quat const& q) {
            if (Slip("the scalar must be 1"))
                return int(q[0] == 0.0 && q[1] == 0.0 && q[2] == 0.0 && q[3] == 1.0);
            return int(q[0] == 0.0 && q[1] == 0.0 && q[2] == 0.0);
        });
    Add(
        "Quaternion::SetValue",
        [](Source& source) {
            Q const q = DrawnQuaternion(source);
            return std::tuple(q, source.Below(3) - 1);
        },
        [](Q const& q, int flag) {
            Q result;
            result.SetValue(q.u, q.v, q.w, q.s, flag);
            return result;
        },
        [](Quat const& q, int flag) {
            if (Slip("a positive flag only") ? flag > 0 : flag != 0)
                return NormalizedQuat(q);
            return q;
        });
    Add(
        "Quaternion::operator[], GetSParam, GetUvwParam", DrawQuaternion,
        [](Q q) { return std::tuple(q[0], q[1], q[2], q[3], q[4], q[1000], q.GetSParam(), q.GetUvwParam()); },
        [](Quat const& q) { return std::tuple(q[0], q[1], q[2], q[3], q[3], q[3], q[3], VectorPart(q)); });
}

void EnterAlgebra()
{
    EnterProductsAndAngles();
    EnterComparison();
}

void EnterAxisAndAngle()
{
    auto const axisRule = [](Quat const& q, V3 const& axis, Dbl const& angle, int flag) {
        Raise raised = Raise::None;
        Quat const result = AxisAngle(q, axis, angle, flag, raised);
        return std::tuple(raised, result);
    };
    Add(
        "Quaternion::SetAxisAngle(Vec3Dbl)", DrawAxis,
        [](Q const& q, Vec3Dbl const& axis, double angle, int flag) {
            return Kept(q, [&](Q& k) { k.SetAxisAngle(axis, angle, flag); });
        },
        axisRule);
    Add(
        "Quaternion::SetAxisAngle(4 doubles)", DrawAxis,
        [](Q const& q, Vec3Dbl const& axis, double angle, int flag) {
            return Kept(q, [&](Q& k) { k.SetAxisAngle(axis.x, axis.y, axis.z, angle, flag); });
        },
        axisRule);
    auto const constructed = [](Quat const& q, V3 const& axis, Dbl const& angle, int flag) {
        Raise raised = Raise::None;
        Quat const result = AxisAngle(q, axis, angle, flag, raised);
        if (raised != Raise::None)
            throw Raised{raised};
        return result;
    };
    Add(
        "Quaternion(Vec3Dbl, angle)", DrawAxis,
        [](Q const&, Vec3Dbl const& axis, double angle, int flag) { return Q(axis, angle, flag); },
        constructed);
    Add(
        "Quaternion(4 doubles)", DrawAxis,
        [](Q const&, Vec3Dbl const& axis, double angle, int flag) {
            return Q(axis.x, axis.y, axis.z, angle, flag);
        },
        constructed);
    Add(
        "Quaternion::SetAxisCosAngle",
        [](Source& source) {
            auto [q, axis, angle, flag] = DrawAxis(source);
            switch (source.Below(4)) {
            case 0:
                angle = source.Near(source.Below(2) ? 1.0 : -1.0);
                break;
            case 1:
                break;
            default:
                angle = source.Signed();
                break;
            }
            return std::tuple(q, axis, angle, flag);
        },
        [](Q const& q, Vec3Dbl const& axis, double cosine, int flag) {
            return Kept(q, [&](Q& k) { k.SetAxisCosAngle(axis, cosine, flag); });
        },
        [](Quat q, V3 const& axis, Dbl const& c, int flag) {
            auto const rooted = [&](Dbl const& radicand) {
                return Sqrt(Slip("clamped") && radicand < 0.0 ? Dbl(0.0) : radicand);
            };
            Dbl const g = rooted((1.0 - c) * 0.5), k = rooted((c + 1.0) * 0.5);
            Raise raised = Raise::None;
            V3 v = axis;
            if (flag)
                raised = RaisedBy([&] { v = NormalizedOf(axis); });
            q = Joined(v, q[3]);
            if (raised != Raise::None)
                return std::tuple(raised, q);
            for (int i = 0; i < 3; ++i)
                q[i] = q[i] * g;
            q[3] = Slip("the root of 1 − g²") ? Sqrt(1.0 - g * g) : k;
            return std::tuple(raised, q);
        });
}

void EnterMatricesAndEulerAngles()
{
    Add(
        "Quaternion::SetFromMatrix", [](Source& source) { return std::tuple(DrawnRotation(source)); },
        [](Mat3Dbl const& m) {
            Q q;
            q.SetFromMatrix(m);
            return q;
        },
        FromMatrix);
    Add(
        "Quaternion(Mat3Dbl)", [](Source& source) { return std::tuple(DrawnRotation(source)); },
        [](Mat3Dbl const& m) { return Q(m); }, FromMatrix);
    Add(
        "Quaternion::GetRotationMatrix", DrawQuaternion,
        [](Q const& q) {
            Mat3Dbl m(7.0);
            q.GetRotationMatrix(m);
            return m;
        },
        ToMatrix);
    Add(
        "Quaternion::GetEulerAngles",
        [](Source& source) {
            Q q = DrawnQuaternion(source);
            if (source.OneIn(3)) {
                // A quarter turn about Y, or nearly one.
                double const tilt =
                    0.7853981633974483 + (source.Below(2) ? 0.0 : std::pow(10.0, -9.0 - 3.0 * source.Unit()));
                double const x = source.Signed();
                q.SetValue(std::sin(x) * std::cos(tilt), std::cos(x) * std::sin(tilt),
                           -std::sin(x) * std::sin(tilt), std::cos(x) * std::cos(tilt), 0);
            }
            if (source.OneIn(8)) {
                // The first column's length at the threshold, turned about Z.
                double const turn = 3.0 * source.Signed();
                q.SetValue(0.0, 0.0, 1e-5 * std::sin(turn), 1e-5 * std::cos(turn), 0);
            }
            return std::tuple(q);
        },
        [](Q const& q) { return q.GetEulerAngles(); }, EulerAngles);
    Add(
        "Quaternion::SetFromEulerAngles",
        [](Source& source) { return std::tuple(Vec3Dbl(source.Angle(), source.Angle(), source.Angle())); },
        [](Vec3Dbl e) {
            Q q;
            q.SetFromEulerAngles(e);
            return q;
        },
        [](V3 const& e) {
            Quat q[3];
            for (int i = 0; i < 3; ++i) {
                Sound const sound;
                Raise raised = Raise::None;
                V3 axis;
                axis[i] = 1.0;
                q[i] = AxisAngle(Quat(), axis, e[i], 1, raised);
            }
            if (Slip("(qz · qy) · qx")) {
                Sound const sound;
                return NormalizedQuat(HamiltonProduct(HamiltonProduct(q[2], q[1]), q[0]));
            }
            if (Slip("qx · (qy · qz)")) {
                Sound const sound;
                return NormalizedQuat(HamiltonProduct(q[0], HamiltonProduct(q[1], q[2])));
            }
            Quat const product = [&] {
                Sound const sound;
                return HamiltonProduct(q[2], HamiltonProduct(q[1], q[0]));
            }();
            if (Slip("not normalised"))
                return product;
            Sound const sound;
            return NormalizedQuat(product);
        });
}

void EnterAxes()
{
    Add(
        "Quaternion::GetAxis",
        [](Source& source) {
            Q const q = DrawnQuaternion(source);
            return std::tuple(q, source.Below(3) - 1);
        },
        [](Q const& q, int flag) { return q.GetAxis(flag); },
        [](Quat const& q, int flag) {
            V3 const v = VectorPart(q);
            if (NullOf(v))
                return Slip("the Z axis") ? V3{{0.0, 0.0, 1.0}} : V3{{0.0, 1.0, 0.0}};
            return (Slip("always unit") || flag) ? NormalizedOf(v) : v;
        });
    auto const basis = [](int i) {
        V3 e;
        e[i] = 1.0;
        return e;
    };
    Add(
        "Quaternion::GetCol, XAxis, YAxis, ZAxis", DrawQuaternion,
        [](Q const& q) {
            return std::tuple(q.GetCol(0), q.GetCol(1), q.GetCol(2), q.XAxis(), q.YAxis(), q.ZAxis());
        },
        [basis](Quat const& q) {
            if (Slip("from the matrix")) {
                Sound const sound;
                Mat<3> const m = ToMatrix(q);
                V3 c[3];
                for (int i = 0; i < 9; ++i)
                    c[i % 3][i / 3] = m(i / 3, i % 3);
                return std::tuple(c[0], c[1], c[2], c[0], c[1], c[2]);
            }
            V3 const x = Turned(q, basis(0)), y = Turned(q, basis(1)), z = Turned(q, basis(2));
            return std::tuple(x, y, z, x, y, z);
        });
    Add(
        "Quaternion::GetRow", DrawQuaternion,
        [](Q const& q) { return std::tuple(q.GetRow(0), q.GetRow(1), q.GetRow(2)); },
        [basis](Quat const& q) {
            Quat const inverse = Slip("columns for rows") ? q : ConjugateOf(q);
            Sound const sound;
            return std::tuple(Turned(inverse, basis(0)), Turned(inverse, basis(1)),
                              Turned(inverse, basis(2)));
        });
}

void EnterConversions()
{
    EnterAxisAndAngle();
    EnterMatricesAndEulerAngles();
    EnterAxes();
}

} // namespace

Quat QuaternionOf(Mat<3> const& m)
{
    Sound const sound;
    return FromMatrix(m);
}

Mat<3> RotationMatrixOf(Quat const& q)
{
    Sound const sound;
    return ToMatrix(q);
}

void EnterQuaternions()
{
    EnterAlgebra();
    EnterConversions();
}

} // namespace oracle
