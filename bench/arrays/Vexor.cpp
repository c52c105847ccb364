#include "Passes.h"

#include <vexor/arrays/Arrays.h>
#include <vexor/arrays/private/KernelSet.h>

namespace {

using namespace bench;
using vexor::arrays::detail::KernelSet;

Vec3Dbl MakeVector(double const* n)
{
    return Vec3Dbl(n[0], n[1], n[2]);
}

Pnt3Dbl MakePoint(double const* n)
{
    return Pnt3Dbl(n[0], n[1], n[2]);
}

template <class Element>
Mat3Dbl MakeMatrix(double const* n, Element element)
{
    Mat3Dbl matrix;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            matrix(i, k) = element(n, i, k);
    }
    return matrix;
}

Mat3Dbl MakeRegular(double const* n)
{
    return MakeMatrix(n, Regular);
}

Mat3Dbl MakeSymmetric(double const* n)
{
    return MakeMatrix(n, Symmetrical);
}

Quaternion MakeQuaternion()
{
    return Quaternion(Vec3Dbl(1.0, 2.0, 3.0), 0.7, 1);
}

AffMat3Dbl const map(Mat3Dbl(Vec3Dbl(0.36, 0.48, -0.8), Vec3Dbl(-0.8, 0.6, 0.0), Vec3Dbl(0.48, 0.64, 0.6)),
                     Vec3Dbl(1.5, -2.5, 0.25));

/// Registers the loop over the member and the array function in each instruction set.
template <class Result, class MakeLeft, class MakeRight, class Operation, class Function>
void Compare(std::string const& name, MakeLeft makeLeft, MakeRight makeRight, Operation operation,
             Function function)
{
    OverElements<Result>(name, "loop", makeLeft, makeRight, operation);
    for (int i = 1; KernelSet const* set = vexor::arrays::detail::RunnableSet(i); ++i) {
        OverArrays<Result>(name, set->name, makeLeft, makeRight,
                           [=](auto const* left, auto const* right, Result* results, std::size_t count) {
                               vexor::arrays::detail::chosen = set;
                               function(left, right, results, count);
                           });
    }
}

#define MEMBER(name) [](auto const& a, auto const& b) { return a.name(b); }
#define PAIR(name)                                                                                           \
    [](auto const* a, auto const* b, auto* r, std::size_t n) { vexor::arrays::name(a, b, r, n); }

[[maybe_unused]] bool const registered = [] {
    Compare<Vec3Dbl>(
        "Normalize", MakeVector, MakeNothing, [](Vec3Dbl const& a, Nothing) { return a.GetNormalizedCopy(); },
        [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::Normalize(a, r, n); });
    Compare<double>(
        "Length", MakeVector, MakeNothing, [](Vec3Dbl const& a, Nothing) { return a.Length(); },
        [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::Length(a, r, n); });
    Compare<Vec3Dbl>("Cross", MakeVector, MakeVector, MEMBER(Cross), PAIR(Cross));
    Compare<double>("Dot", MakeVector, MakeVector, MEMBER(Dot), PAIR(Dot));
    Compare<Vec3Dbl>(
        "Sum of two", MakeVector, MakeVector, [](Vec3Dbl const& a, Vec3Dbl const& b) { return a + b; },
        PAIR(Add));
    Compare<double>("DistanceTo", MakePoint, MakePoint, MEMBER(DistanceTo), PAIR(DistanceTo));
    Compare<unsigned char>(
        "IsParallelTo", MakeVector, MakeVector,
        [](Vec3Dbl const& a, Vec3Dbl const& b) { return static_cast<unsigned char>(a.IsParallelTo(b)); },
        PAIR(IsParallelTo));
    Compare<Pnt3Dbl>(
        "Affine map x point", MakePoint, MakeNothing, [](Pnt3Dbl const& a, Nothing) { return map * a; },
        [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::Multiply(map, a, r, n); });
    Quaternion const turn = MakeQuaternion();
    Compare<Pnt3Dbl>(
        "RotatePoint", MakePoint, MakeNothing,
        [turn](Pnt3Dbl const& a, Nothing) { return turn.RotatePoint(a); },
        [turn](auto const* a, auto const*, auto* r, std::size_t n) {
            vexor::arrays::RotatePoint(turn, a, r, n);
        });
    Compare<Mat3Dbl>(
        "Mat3 x Mat3", MakeRegular, MakeRegular, [](Mat3Dbl const& a, Mat3Dbl const& b) { return a * b; },
        PAIR(Multiply));
    Compare<Vec3Dbl>(
        "Solve 3x3", MakeRegular, MakeVector,
        [](Mat3Dbl const& a, Vec3Dbl const& b) {
            Mat3Dbl factors(a);
            Vec3Dbl solution(b);
            factors.Solve(solution);
            return solution;
        },
        PAIR(Solve));
    Compare<Mat3Dbl>(
        "Invert 3x3", MakeRegular, MakeNothing, [](Mat3Dbl const& a, Nothing) { return a.GetInvertedCopy(); },
        [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::Invert(a, r, n); });
    Compare<Vec3Dbl>(
        "EigenSym 3x3", MakeSymmetric, MakeNothing,
        [](Mat3Dbl const& a, Nothing) {
            Mat3Dbl matrix(a);
            Vec3Dbl values;
            matrix.EigenSym(values, 0);
            return values;
        },
        [](auto const* a, auto const*, auto* r, std::size_t n) { vexor::arrays::EigenSymValues(a, r, n); });
    // One sum: only the first result is written.
    OverArrays<Vec3Dbl>("Sum", "loop", MakePoint, MakeNothing,
                        [](Pnt3Dbl const* a, Nothing const*, Vec3Dbl* r, std::size_t n) {
                            Vec3Dbl sum(0.0);
                            for (std::size_t i = 0; i < n; ++i)
                                sum += a[i].Vector();
                            *r = sum;
                        });
    for (int i = 1; KernelSet const* set = vexor::arrays::detail::RunnableSet(i); ++i)
        OverArrays<Vec3Dbl>("Sum", set->name, MakePoint, MakeNothing,
                            [set](Pnt3Dbl const* a, Nothing const*, Vec3Dbl* r, std::size_t n) {
                                vexor::arrays::detail::chosen = set;
                                *r = vexor::arrays::Sum(a, n);
                            });
    return true;
}();

} // namespace
