#include "Passes.h"

#include <Eigen/Dense>

namespace {

using namespace bench;
using Vector = Eigen::Vector3d;
using Matrix = Eigen::Matrix3d;

Vector Make(double const* n)
{
    return Vector(n[0], n[1], n[2]);
}

template <class Element>
Matrix MakeMatrix(double const* n, Element element)
{
    Matrix matrix;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            matrix(i, k) = element(n, i, k);
    }
    return matrix;
}

Matrix MakeRegular(double const* n)
{
    return MakeMatrix(n, Regular);
}

Matrix MakeSymmetric(double const* n)
{
    return MakeMatrix(n, Symmetrical);
}

[[maybe_unused]] bool const registered = [] {
    OverElements<Vector>("Normalize", "Eigen", Make, MakeNothing,
                         [](Vector const& a, Nothing) { return a.normalized(); });
    OverElements<double>("Length", "Eigen", Make, MakeNothing,
                         [](Vector const& a, Nothing) { return a.norm(); });
    OverElements<Vector>("Cross", "Eigen", Make, Make,
                         [](Vector const& a, Vector const& b) { return Vector(a.cross(b)); });
    OverElements<double>("Dot", "Eigen", Make, Make,
                         [](Vector const& a, Vector const& b) { return a.dot(b); });
    OverElements<Vector>("Sum of two", "Eigen", Make, Make,
                         [](Vector const& a, Vector const& b) { return Vector(a + b); });
    OverElements<double>("DistanceTo", "Eigen", Make, Make,
                         [](Vector const& a, Vector const& b) { return (a - b).norm(); });
    OverElements<unsigned char>("IsParallelTo", "Eigen", Make, Make, [](Vector const& a, Vector const& b) {
        double const d = a.dot(b);
        double const aa = a.squaredNorm();
        double const bb = b.squaredNorm();
        return static_cast<unsigned char>(int(aa > tolerance) & int(bb > tolerance)
                                          & int(1.0 - d * d / aa / bb <= tolerance));
    });
    Eigen::Affine3d map;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            map(i, k) = mapNumbers[3 * i + k];
        map(i, 3) = mapNumbers[9 + i];
    }
    OverElements<Vector>("Affine map x point", "Eigen", Make, MakeNothing,
                         [map](Vector const& a, Nothing) { return Vector(map * a); });
    Eigen::Quaterniond const turn(Eigen::AngleAxisd(0.7, Vector(1.0, 2.0, 3.0).normalized()));
    OverElements<Vector>("RotatePoint", "Eigen", Make, MakeNothing,
                         [turn](Vector const& a, Nothing) { return Vector(turn * a); });
    OverElements<Matrix>("Mat3 x Mat3", "Eigen", MakeRegular, MakeRegular,
                         [](Matrix const& a, Matrix const& b) { return Matrix(a * b); });
    OverElements<Vector>("Solve 3x3", "Eigen", MakeRegular, Make,
                         [](Matrix const& a, Vector const& b) { return Vector(a.partialPivLu().solve(b)); });
    OverElements<Matrix>("Invert 3x3", "Eigen", MakeRegular, MakeNothing,
                         [](Matrix const& a, Nothing) { return Matrix(a.partialPivLu().inverse()); });
    OverElements<Vector>("EigenSym 3x3", "Eigen", MakeSymmetric, MakeNothing, [](Matrix const& a, Nothing) {
        Eigen::SelfAdjointEigenSolver<Matrix> solver;
        solver.computeDirect(a, Eigen::EigenvaluesOnly);
        return Vector(solver.eigenvalues());
    });
    OverArrays<Vector>("Sum", "Eigen", Make, MakeNothing,
                       [](Vector const* a, Nothing const*, Vector* r, std::size_t n) {
                           Vector sum = Vector::Zero();
                           for (std::size_t i = 0; i < n; ++i)
                               sum += a[i];
                           *r = sum;
                       });
    return true;
}();

} // namespace
