#include "Rules.h"

#include <glm/glm.hpp>

namespace {

using Vector = glm::dvec3;
using Matrix = glm::dmat3; // [column][row]

Vector MakeVector(double const* numbers)
{
    return Vector(numbers[0], numbers[1], numbers[2]);
}

template <class Element>
Matrix MakeMatrix(double const* numbers, Element element)
{
    Matrix matrix(0.0);
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

using Affine = glm::dmat4x3;

Affine MakeAffine(double const* numbers)
{
    return Affine(MakePlain(numbers)[0], MakePlain(numbers)[1], MakePlain(numbers)[2], MakeVector(numbers));
}

using bench::Elementwise;
using bench::Must;

[[maybe_unused]] bool const registered = [] {
    Elementwise(
        "Mat3 x vector", "GLM", MakePlain, MakeVector, [](Matrix const& a, Vector const& b) { return a * b; },
        ReadVector, bench::matrixTimesVectorRule, Must::BeNear);
    Elementwise(
        "Mat3 x Mat3", "GLM", MakePlain, MakePlain, [](Matrix const& a, Matrix const& b) { return a * b; },
        ReadMatrix, bench::matrixTimesMatrixRule, Must::BeNear);
    Elementwise(
        "Affine map x point", "GLM", MakeAffine, MakeVector,
        [](Affine const& a, Vector const& b) { return a * glm::dvec4(b, 1.0); }, ReadVector,
        bench::affineRule, Must::BeNear);
    Elementwise(
        "Solve 3x3", "GLM (cofactors)", MakeWellConditioned, MakeVector,
        [](Matrix const& a, Vector const& b) { return glm::inverse(a) * b; }, ReadVector, bench::solveRule,
        Must::BeNear);
    Elementwise(
        "Invert 3x3", "GLM (cofactors)", MakeWellConditioned, bench::MakeNothing,
        [](Matrix const& a, bench::Nothing) { return glm::inverse(a); }, ReadMatrix, bench::invertRule,
        Must::BeNear);
    return true;
}();

} // namespace
