#include "Rules.h"

#include <ImathMatrix.h>
#include <ImathMatrixAlgo.h>
#include <ImathVec.h>

namespace {

using Vector = Imath::V3d;
using Matrix = Imath::M33d; // multiplies row vectors from the right: so all are transposed

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
            matrix[j][i] = element(numbers, i, j);
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
            numbers.push_back(matrix[j][i]);
    }
    return numbers;
}

Imath::M44d MakeAffine(double const* numbers)
{
    return Imath::M44d(MakePlain(numbers), MakeVector(numbers));
}

struct Spectrum {
    Vector values;
    Matrix vectors;
};

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Mat3 x vector", "Imath", MakePlain, MakeVector,
        [](Matrix const& a, Vector const& b) { return b * a; }, ReadVector, bench::matrixTimesVectorRule,
        Must::BeNear);
    Elementwise(
        "Mat3 x Mat3", "Imath", MakePlain, MakePlain, [](Matrix const& a, Matrix const& b) { return b * a; },
        ReadMatrix, bench::matrixTimesMatrixRule, Must::BeNear);
    Elementwise(
        "Affine map x point", "Imath", MakeAffine, MakeVector,
        [](Imath::M44d const& a, Vector const& b) {
            Vector result;
            a.multVecMatrix(b, result); // divides by the fourth coordinate
            return result;
        },
        ReadVector, bench::affineRule, Must::BeNear);
    Elementwise(
        "Solve 3x3", "Imath", MakeWellConditioned, MakeVector,
        [](Matrix const& a, Vector const& b) { return b * a.gjInverse(); }, ReadVector, bench::solveRule,
        Must::BeNear);
    Elementwise(
        "Invert 3x3", "Imath", MakeWellConditioned, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) { return a.gjInverse(); }, ReadMatrix, bench::invertRule,
        Must::BeNear);
    Elementwise(
        "Invert 3x3", "Imath (cofactors)", MakeWellConditioned, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) { return a.inverse(); }, ReadMatrix, bench::invertRule,
        Must::BeNear);
    Elementwise(
        "EigenSym 3x3 with vectors", "Imath", MakeSymmetric, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) {
            Matrix work(a);
            Spectrum spectrum;
            Imath::jacobiEigenSolver(work, spectrum.values, spectrum.vectors);
            return spectrum;
        },
        [](Spectrum const& s) { return bench::ReadSpectrum(s.values[0], s.values[1], s.values[2]); },
        bench::spectrumRule, Must::BeNear);
    return true;
}();

} // namespace
