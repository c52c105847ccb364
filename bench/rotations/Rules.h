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

} // namespace

} // namespace bench
