#include <vexor/vexor.h>

#include <cmath>
#include <cstdio>

// A predicate as a function of the one tolerance that is looked at.
template <class Predicate>
void Show(char const* call, double tolerance, Predicate predicate)
{
    std::printf("%-44s %d %15d\n", call, predicate(tolerance), predicate(std::nextafter(tolerance, 0.0)));
}

int main()
{
    std::printf("%-44s %s %s\n", "", "at t", "just below t");

    Vec3Dbl const v(3, 4, 0); // squared length 25
    Show("v.IsZeroLength(t), t = 25", 25, [&](double t) { return v.IsZeroLength(t); });

    Vec3Dbl const a(1, 0, 0);
    Vec3Dbl const b(1, 1, 0); // 45°: d = 1, A = 1, B = 2, so Q = 1 − Q = 1/2
    Show("a.IsParallelTo(b, t), t = 1/2", 0.5, [&](double t) { return a.IsParallelTo(b, t); });
    Show("a.IsCodirectionalTo(b, t), t = 1/2", 0.5, [&](double t) { return a.IsCodirectionalTo(b, t); });
    Show("a.IsPerpendicularTo(b, t), t = 1/2", 0.5, [&](double t) { return a.IsPerpendicularTo(b, t); });
    Show("v.IsParallelTo(v, 0, t), t = 25", 25, [&](double t) { return v.IsParallelTo(v, 0, t); });

    Vec3Dbl const u(0.5, std::sqrt(0.75), 0); // a unit vector at 60°: d = 1/2
    Show("a.IsUnitParallelTo(u, t), t = 3/4", 0.75, [&](double t) { return a.IsUnitParallelTo(u, t); });
    Show("a.IsUnitCodirectionalTo(u, t), t = 3/4", 0.75,
         [&](double t) { return a.IsUnitCodirectionalTo(u, t); });
    Show("a.IsUnitPerpendicularTo(u, t), t = 1/4", 0.25,
         [&](double t) { return a.IsUnitPerpendicularTo(u, t); });

    Vec3Dbl const c(1.5, 0, 0); // the difference from a has the squared length 1/4
    Show("a.IsEqualTo(c, 0, t), t = 1/4", 0.25, [&](double t) { return a.IsEqualTo(c, 0, t); });
    Show("a.IsEqualTo(b, t, 1), t = 1/2", 0.5, [&](double t) { return a.IsEqualTo(b, t, 1); });

    Pnt3Dbl const p(0, 0, 0);
    Pnt3Dbl const q(3, 4, 0); // 5 away
    Show("p.IsEqualTo(q, t), t = 5, a point", 5, [&](double t) { return p.IsEqualTo(q, t); });
}
