#pragma once
#include <support/Elementwise.h>

// The rule of each operation, on plain numbers: four of them, normalised, are a quaternion, the scalar last.

// Every source has its own copy, compiled with its own flags: a peer's may fuse, these must not.

namespace bench {

namespace {

struct UnitQuaternion {
    explicit UnitQuaternion(double const* n)
    {
        double const norm = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2] + n[3] * n[3]);
        u = n[0] / norm;
        v = n[1] / norm;
        w = n[2] / norm;
        s = n[3] / norm;
    }

    double u, v, w, s;
};

inline Rule const productRule = [](double const* left, double const* right) {
    UnitQuaternion const a(left);
    UnitQuaternion const b(right);
    return std::vector<double>{
        a.s * b.u + a.u * b.s + a.v * b.w - a.w * b.v, a.s * b.v + a.v * b.s + a.w * b.u - a.u * b.w,
        a.s * b.w + a.w * b.s + a.u * b.v - a.v * b.u, a.s * b.s - a.u * b.u - a.v * b.v - a.w * b.w};
};

inline Rule const rotateRule = [](double const* left, double const* p) {
    UnitQuaternion const q(left);
    double const n[3] = {q.u, q.v, q.w};
    double const cross[3] = {n[1] * p[2] - p[1] * n[2], n[2] * p[0] - n[0] * p[2], p[1] * n[0] - n[1] * p[0]};
    double const t[3] = {q.s * p[0] + cross[0], q.s * p[1] + cross[1], q.s * p[2] + cross[2]};
    double const d = (p[0] * n[0] + p[1] * n[1]) + p[2] * n[2];
    double const back[3] = {t[1] * n[2] - n[1] * t[2], t[2] * n[0] - t[0] * n[2], n[1] * t[0] - t[1] * n[0]};
    std::vector<double> result;
    for (int i = 0; i < 3; ++i)
        result.push_back((d * n[i] + q.s * t[i]) - back[i]);
    return result;
};

inline Rule const matrixRule = [](double const* left, double const*) {
    UnitQuaternion const q(left);
    double const u = q.u, v = q.v, w = q.w, s = q.s;
    double const uu = u * u, vv = v * v, ww = w * w, ss = s * s;
    return std::vector<double>{ss + uu - vv - ww,     2.0 * (u * v - w * s), 2.0 * (u * w + v * s),
                               2.0 * (u * v + w * s), ss - uu + vv - ww,     2.0 * (v * w - u * s),
                               2.0 * (u * w - v * s), 2.0 * (v * w + u * s), ss - uu - vv + ww};
};

/// A turn about a unit axis by an angle in radians.
struct TurnNumbers {
    explicit TurnNumbers(double const* n) : angle(n[3])
    {
        double const length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
        for (int i = 0; i < 3; ++i)
            axis[i] = n[i] / length;
    }

    double axis[3];
    double angle;
};

inline Rule const axisAngleRule = [](double const* left, double const*) {
    TurnNumbers const turn(left);
    double const sine = std::sin(turn.angle * 0.5);
    return std::vector<double>{turn.axis[0] * sine, turn.axis[1] * sine, turn.axis[2] * sine,
                               std::cos(turn.angle * 0.5)};
};

// Rodrigues' formula.
inline Rule const turnRule = [](double const* left, double const* p) {
    TurnNumbers const turn(left);
    double const* n = turn.axis;
    double const cross[3] = {n[1] * p[2] - p[1] * n[2], n[2] * p[0] - n[0] * p[2], p[1] * n[0] - n[1] * p[0]};
    double const along = n[0] * p[0] + n[1] * p[1] + n[2] * p[2];
    double const cosine = std::cos(turn.angle);
    std::vector<double> result;
    for (int i = 0; i < 3; ++i)
        result.push_back(p[i] * cosine + cross[i] * std::sin(turn.angle) + n[i] * (along * (1.0 - cosine)));
    return result;
};

inline Rule const angleRule = [](double const* a, double const* b) {
    double const d = a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    double const aa = a[0] * a[0] + a[1] * a[1] + a[2] * a[2];
    double const bb = b[0] * b[0] + b[1] * b[1] + b[2] * b[2];
    return std::vector<double>{std::acos(d / std::sqrt(aa) / std::sqrt(bb))};
};

// The angles of Rz(z)·Ry(y)·Rx(x).
inline Rule const eulerRule = [](double const* left, double const* right) {
    std::vector<double> const m = matrixRule(left, right);
    return std::vector<double>{std::atan2(m[7], m[8]), std::asin(-m[6]), std::atan2(m[3], m[0])};
};

} // namespace

} // namespace bench
