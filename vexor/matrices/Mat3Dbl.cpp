#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>
#include <vexor/foundation/detail/StartUp.h>
#include <vexor/matrices/detail/Crout.h>
#include <vexor/matrices/Mat3Dbl.h>
#include <vexor/matrices/SmallSolver.h>

#include <cmath>
#include <limits>

using vexor::detail::LocalRowsOfThree;

// ---- Solving ---------------------------------------------------------------------------------------

void Mat3Dbl::Solve(Vec3Dbl& rightSide)
{
    double* const elements = Elements();
    LocalRowsOfThree factors(elements);
    if (vexor::detail::Decompose(factors) != 0) {
        small_decompose(elements, pivotOrder, 3); // leaves what a failing factorisation leaves
        vexor::detail::RaiseSingular();
    }
    // Read before the factors are stored: the right-hand side may be one of our own rows.
    double solution[3] = {rightSide[factors.Order(0)], rightSide[factors.Order(1)],
                          rightSide[factors.Order(2)]};
    factors.Store(elements, pivotOrder);
    vexor::detail::Substitute(factors, [&](int i) -> double& { return solution[i]; });
    rightSide.SetValue(solution[0], solution[1], solution[2]);
}

void Mat3Dbl::Solve(Vec3Dbl* const rightSides, int count)
{
    if (small_decompose(Elements(), pivotOrder, 3) != 0)
        vexor::detail::RaiseSingular();
    ReSolve(rightSides, count);
}

void Mat3Dbl::ReSolve(Vec3Dbl& rightSide)
{
    ReSolve(&rightSide, 1);
}

void Mat3Dbl::ReSolve(Vec3Dbl* const rightSides, int count)
{
    VEXOR_CHECK(pivotOrder[0] < 3 && pivotOrder[1] < 3 && pivotOrder[2] < 3,
                "ReSolve on a matrix that was not factorised");
    small_substitution(Elements(), reinterpret_cast<double*>(rightSides), pivotOrder, 3, count);
}

Mat3Dbl& Mat3Dbl::Invert()
{
    double* const elements = Elements();
    LocalRowsOfThree factors(elements);
    if (vexor::detail::Decompose(factors) != 0) {
        small_decompose(elements, pivotOrder, 3); // leaves what a failing factorisation leaves
        vexor::detail::RaiseSingular();
    }
    factors.StoreOrder(pivotOrder);
    // The columns of the unit matrix are solved for in the order of the pivot rows: the 1 then stands at
    // a known place in the factors' order, whichever row was the pivot.
    auto const storeColumn = [&](double y0, double y1, double y2, int column) {
        double solution[3] = {y0, y1, y2};
        vexor::detail::Substitute(factors, [&](int i) -> double& { return solution[i]; });
        elements[column] = solution[0];
        elements[3 + column] = solution[1];
        elements[6 + column] = solution[2];
    };
    storeColumn(1.0, 0.0, 0.0, factors.Order(0));
    storeColumn(0.0, 1.0, 0.0, factors.Order(1));
    storeColumn(0.0, 0.0, 1.0, factors.Order(2));
    return *this;
}

Mat3Dbl Mat3Dbl::GetInvertedCopy() const
{
    Mat3Dbl copy(*this);
    copy.Invert();
    return copy;
}

// ---- Spectra ---------------------------------------------------------------------------------------

void Mat3Dbl::Svd(Vec3Dbl& singularValues)
{
    MatDbl transposed(*this);
    VecDbl values(3);
    transposed.Svd(values);
    // The right singular vectors of the transpose, in its rows, are our left ones.
    singularValues.SetValue(values[0], values[1], values[2]);
    *this = Mat3Dbl(transposed);
}

namespace {

constexpr double third = 0.3333333333333333;

// Relative and without a floor: two values do not coincide merely for being small.
bool EigenValuesCoincide(double x, double y, double factor)
{
    if (y == x)
        return true;
    double const difference = std::fabs(x - y);
    double const larger = std::fabs(x) > std::fabs(y) ? std::fabs(x) : std::fabs(y);
    return difference < larger * (factor * std::numeric_limits<double>::epsilon());
}

/// A symmetric matrix by its upper triangle:
///     a b c
///       d e
///         f
struct UpperTriangle {
    explicit UpperTriangle(Mat3Dbl const& matrix)
        : a(matrix(0, 0)), b(matrix(0, 1)), c(matrix(0, 2)), d(matrix(1, 1)), e(matrix(1, 2)), f(matrix(2, 2))
    {}

    Vec3Dbl EigenValues() const;
    Vec3Dbl EigenVector(double eigenValue) const;

    double a, b, c, d, e, f;
};

// The roots of the characteristic cubic x³ + S·x² + T·x + D in ascending order.
Vec3Dbl UpperTriangle::EigenValues() const
{
    double const S = -a - d - f;
    double const T = a * d + f * (a + d) - e * e - b * b - c * c;
    double const D = f * (b * b - a * d) + a * (e * e) - 2.0 * b * c * e + c * c * d;

    // Without its square term, x³ + P·x + Q. With three equal roots P is 0; a NaN goes on to the result.
    double const P = T - S * S * third;
    if (P >= 0.0)
        vexor::detail::RaiseComputationFailed();
    double const R = 2.0 * std::sqrt(P * -third);
    double const Q = D + (2.0 * (S * S * S) / 27.0 - T * S * third);

    double const h = vexor::detail::ClampedArcCosine(((Q * 3.0) / P) / R) * third;
    double const cosine = std::cos(h); // the two calls stand together so that they become one
    double const sine = std::sin(h);
    double const sn = vexor::detail::squareRootOfThree * sine;
    double const z = S * third;
    double const e1 = R * cosine - z;
    double const e2 = (R * 0.5) * (sn - cosine) - z;
    double const e3 = (R * 0.5) * (-cosine - sn) - z;

    double const lower = e1 < e2 ? e1 : e2;
    double const higher = e1 < e2 ? e2 : e1;
    if (lower >= e3)
        return Vec3Dbl(e3, lower, higher);
    if (higher < e3)
        return Vec3Dbl(lower, higher, e3);
    return Vec3Dbl(lower, e3, higher);
}

// The cross product of two rows of the matrix less the eigenvalue, chosen by their largest 2×2 minor. Rank
// means comparison with exactly 0.
Vec3Dbl UpperTriangle::EigenVector(double eigenValue) const
{
    double const w[3][3] = {{a - eigenValue, b, c}, {b, d - eigenValue, e}, {c, e, f - eigenValue}};

    // The largest element of the upper triangle, the first of equals.
    int p = 0;
    int q = 0;
    double largest = 0.0;
    for (int i = 0; i < 3; ++i)
        for (int k = i; k < 3; ++k)
            if (std::fabs(w[i][k]) > largest) {
                largest = std::fabs(w[i][k]);
                p = i;
                q = k;
            }
    if (largest == 0.0)
        return Vec3Dbl(1.0, 0.0, 0.0); // every vector is an eigenvector

    int const q1 = (q + 1) % 3;
    int const q2 = (q + 2) % 3;

    // The largest 2×2 minor through it, the first of equals.
    double best = 0.0;
    double minor = 0.0;
    int r = 0;
    int A = 0;
    int B = 0;
    for (int step = 1; step <= 2; ++step) {
        int const partner = (p + step) % 3;
        double const minor1 = w[partner][q1] * w[p][q] - w[p][q1] * w[partner][q];
        if (std::fabs(minor1) > best) {
            best = std::fabs(minor1);
            minor = minor1;
            r = partner;
            A = q1;
            B = q2;
        }
        double const minor2 = w[partner][q2] * w[p][q] - w[p][q2] * w[partner][q];
        if (std::fabs(minor2) > best) {
            best = std::fabs(minor2);
            minor = minor2;
            r = partner;
            A = q2;
            B = q1;
        }
    }

    Vec3Dbl result(0.0);
    if (best != 0.0) { // rank two
        result[q] = w[p][A] * w[r][B] - w[r][A] * w[p][B];
        result[A] = w[r][q] * w[p][B] - w[p][q] * w[r][B];
        result[B] = minor;
    } else { // rank one: perpendicular to row p
        double const a1 = std::fabs(w[p][q1]);
        double const a2 = std::fabs(w[p][q2]);
        if (a2 < a1) {
            result[q1] = 1.0;
            result[q] = -w[p][q1] / w[p][q];
        } else if (a2 > a1) {
            result[q2] = 1.0;
            result[q] = -w[p][q2] / w[p][q];
        } else {
            result[q1] = 1.0;
            result[q2] = -1.0;
        }
    }
    return result.Normalize();
}

} // namespace

void Mat3Dbl::EigenSym(Vec3Dbl& eigenValues, int wantVectors)
{
    UpperTriangle const matrix(*this);
    Vec3Dbl const values = matrix.EigenValues();
    eigenValues = values;
    if (wantVectors == 0)
        return;

    constexpr double factor = 10.0;
    bool const lowerCoincide = EigenValuesCoincide(values.x, values.y, factor);
    bool const upperCoincide = EigenValuesCoincide(values.y, values.z, factor);
    if (lowerCoincide && upperCoincide) {
        Identity();
        return;
    }
    Vec3Dbl const first = matrix.EigenVector(values.x);
    if (upperCoincide) {
        Vec3Dbl const second = matrix.EigenVector(values.y);
        SetValue(first, second, first.Cross(second));
    } else if (lowerCoincide) {
        Vec3Dbl const last = matrix.EigenVector(values.z);
        SetValue(first, first.Cross(last), last);
    } else {
        Vec3Dbl const second = matrix.EigenVector(values.y);
        SetValue(first, second, matrix.EigenVector(values.z));
    }
}

void Mat3Dbl::GetEigenVectorGivenEigenValue(Vec3Dbl& eigenVector, double eigenValue)
{
    eigenVector = UpperTriangle(*this).EigenVector(eigenValue);
}
