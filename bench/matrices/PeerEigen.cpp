#include "Rules.h"

#include <Eigen/Dense>

namespace {

using Vector = Eigen::Vector3d;
using Matrix = Eigen::Matrix3d;

Vector MakeVector(double const* numbers)
{
    return Vector(numbers[0], numbers[1], numbers[2]);
}

template <class Element>
Matrix MakeMatrix(double const* numbers, Element element)
{
    Matrix matrix;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            matrix(i, j) = element(numbers, i, j);
    }
    return matrix;
}

Matrix MakePlain(double const* numbers)
{
    return MakeMatrix(numbers, [](double const* n, int i, int j) { return n[3 * i + j]; });
}

Matrix MakeWellConditioned(double const* numbers)
{
    return MakeMatrix(numbers, bench::WellConditioned);
}

Matrix MakeSymmetric(double const* numbers)
{
    return MakeMatrix(numbers, bench::Symmetric);
}

std::vector<double> ReadVector(Vector const& vector)
{
    return {vector[0], vector[1], vector[2]};
}

std::vector<double> ReadMatrix(Matrix const& matrix)
{
    std::vector<double> numbers;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            numbers.push_back(matrix(i, j));
    }
    return numbers;
}

std::vector<double> ReadValues(Vector const& values)
{
    return bench::ReadSpectrum(values[0], values[1], values[2]);
}

using Affine = Eigen::Transform<double, 3, Eigen::AffineCompact>;

Affine MakeAffine(double const* numbers)
{
    Affine map;
    map.linear() = MakePlain(numbers);
    map.translation() = MakeVector(numbers);
    return map;
}

struct Spectrum {
    Vector values;
    Matrix vectors;
};

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Mat3 x vector", "Eigen", MakePlain, MakeVector,
        [](Matrix const& a, Vector const& b) { return Vector(a * b); }, ReadVector,
        bench::matrixTimesVectorRule, Must::BeNear);
    Elementwise(
        "Mat3 x Mat3", "Eigen", MakePlain, MakePlain,
        [](Matrix const& a, Matrix const& b) { return Matrix(a * b); }, ReadMatrix,
        bench::matrixTimesMatrixRule, Must::BeNear);
    Elementwise(
        "Affine map x point", "Eigen", MakeAffine, MakeVector,
        [](Affine const& a, Vector const& b) { return Vector(a * b); }, ReadVector, bench::affineRule,
        Must::BeNear);
    Elementwise(
        "Solve 3x3", "Eigen", MakeWellConditioned, MakeVector,
        [](Matrix const& a, Vector const& b) { return Vector(a.partialPivLu().solve(b)); }, ReadVector,
        bench::solveRule, Must::BeNear);
    Elementwise(
        "Invert 3x3", "Eigen", MakeWellConditioned, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) { return Matrix(a.partialPivLu().inverse()); }, ReadMatrix,
        bench::invertRule, Must::BeNear);
    Elementwise(
        "Invert 3x3", "Eigen (cofactors)", MakeWellConditioned, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) { return Matrix(a.inverse()); }, ReadMatrix, bench::invertRule,
        Must::BeNear);
    Elementwise(
        "EigenSym 3x3", "Eigen", MakeSymmetric, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) {
            Eigen::SelfAdjointEigenSolver<Matrix> solver;
            return Vector(solver.computeDirect(a, Eigen::EigenvaluesOnly).eigenvalues());
        },
        ReadValues, bench::spectrumRule, Must::BeNear);
    Elementwise(
        "EigenSym 3x3 with vectors", "Eigen", MakeSymmetric, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) {
            Eigen::SelfAdjointEigenSolver<Matrix> solver;
            solver.computeDirect(a);
            return Spectrum{solver.eigenvalues(), solver.eigenvectors()};
        },
        [](Spectrum const& spectrum) { return ReadValues(spectrum.values); }, bench::spectrumRule,
        Must::BeNear);
    return true;
}();

} // namespace
