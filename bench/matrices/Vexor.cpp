#include "Rules.h"

#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/matrices/Mat3Dbl.h>

namespace {

Vec3Dbl MakeVector(double const* numbers)
{
    return Vec3Dbl(numbers[0], numbers[1], numbers[2]);
}

Mat3Dbl MakePlain(double const* n)
{
    return Mat3Dbl(MakeVector(n), MakeVector(n + 3), MakeVector(n + 6));
}

template <class Element>
Mat3Dbl MakeMatrix(double const* numbers, Element element)
{
    Mat3Dbl matrix;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            matrix(i, j) = element(numbers, i, j);
    }
    return matrix;
}

Mat3Dbl MakeWellConditioned(double const* numbers)
{
    return MakeMatrix(numbers, bench::WellConditioned);
}

Mat3Dbl MakeSymmetric(double const* numbers)
{
    return MakeMatrix(numbers, bench::Symmetric);
}

std::vector<double> ReadVector(Vec3Dbl const& vector)
{
    return {vector.x, vector.y, vector.z};
}

std::vector<double> ReadMatrix(Mat3Dbl const& matrix)
{
    std::vector<double> numbers;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            numbers.push_back(matrix(i, j));
    }
    return numbers;
}

std::vector<double> ReadValues(Vec3Dbl const& values)
{
    return bench::ReadSpectrum(values.x, values.y, values.z);
}

AffMat3Dbl MakeAffine(double const* numbers)
{
    return AffMat3Dbl(MakePlain(numbers), MakeVector(numbers));
}

Pnt3Dbl MakePoint(double const* numbers)
{
    return Pnt3Dbl(numbers[0], numbers[1], numbers[2]);
}

std::vector<double> ReadPoint(Pnt3Dbl const& point)
{
    return {point.x, point.y, point.z};
}

/// The result of a symmetric eigenproblem: the values, and the vectors in the rows.
struct Spectrum {
    Vec3Dbl values;
    Mat3Dbl vectors;
};

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Mat3 x vector", "vexor", MakePlain, MakeVector,
        [](Mat3Dbl const& a, Vec3Dbl const& b) { return a * b; }, ReadVector, bench::matrixTimesVectorRule,
        Must::GiveTheBits);
    Elementwise(
        "Mat3 x Mat3", "vexor", MakePlain, MakePlain,
        [](Mat3Dbl const& a, Mat3Dbl const& b) { return a * b; }, ReadMatrix, bench::matrixTimesMatrixRule,
        Must::GiveTheBits);
    Elementwise(
        "Affine map x point", "vexor", MakeAffine, MakePoint,
        [](AffMat3Dbl const& a, Pnt3Dbl const& b) { return a * b; }, ReadPoint, bench::affineRule,
        Must::GiveTheBits);
    Elementwise(
        "Solve 3x3", "vexor", MakeWellConditioned, MakeVector,
        [](Mat3Dbl const& a, Vec3Dbl const& b) {
            Mat3Dbl factors(a);
            Vec3Dbl solution(b);
            factors.Solve(solution);
            return solution;
        },
        ReadVector, bench::solveRule, Must::BeNear);
    Elementwise(
        "Invert 3x3", "vexor", MakeWellConditioned, bench::MakeNothing,
        [](Mat3Dbl const& a, bench::Nothing) { return a.GetInvertedCopy(); }, ReadMatrix, bench::invertRule,
        Must::BeNear);
    Elementwise(
        "EigenSym 3x3", "vexor", MakeSymmetric, bench::MakeNothing,
        [](Mat3Dbl const& a, bench::Nothing) {
            Mat3Dbl matrix(a);
            Vec3Dbl values;
            matrix.EigenSym(values, 0);
            return values;
        },
        ReadValues, bench::spectrumRule, Must::BeNear);
    Elementwise(
        "EigenSym 3x3 with vectors", "vexor", MakeSymmetric, bench::MakeNothing,
        [](Mat3Dbl const& a, bench::Nothing) {
            Spectrum spectrum;
            spectrum.vectors = a;
            spectrum.vectors.EigenSym(spectrum.values, 1);
            return spectrum;
        },
        [](Spectrum const& spectrum) { return ReadValues(spectrum.values); }, bench::spectrumRule,
        Must::BeNear);
    return true;
}();

} // namespace
