#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>
#include <vexor/foundation/detail/Elementary.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/matrices/Mat3Dbl.h>
#include <vexor/matrices/private/Crout.h>
#include <vexor/matrices/private/FactorMark.h>
#include <vexor/matrices/private/LargestMagnitude.h>
#include <vexor/matrices/SmallSolver.h>

#include <cmath>
#include <limits>

using vexor::detail::IndexOfLargest;
using vexor::detail::LocalRowsOfThree;
using vexor::detail::SquareRoot;

// ---- Solving ---------------------------------------------------------------------------------------

void Mat3Dbl::Solve(Vec3Dbl& rightSide)
{
    double* const elements = Elements();
    LocalRowsOfThree factors(elements);
    if (vexor::detail::Decompose(factors) != 0) {
        small_decompose(elements, pivotOrder, 3); // stores the partial result of the failing factorisation
        vexor::detail::RaiseSingular();
    }
    // Read before the factors are stored, since the right-hand side may be one of our own rows.
    double solution[3] = {rightSide[factors.Order(0)], rightSide[factors.Order(1)],
                          rightSide[factors.Order(2)]};
    factors.Store(elements, pivotOrder);
    vexor::detail::MarkAsFactors(elements, pivotOrder);
    vexor::detail::Substitute(factors, [&](int i) -> double& { return solution[i]; });
    rightSide.SetValue(solution[0], solution[1], solution[2]);
}

void Mat3Dbl::Solve(Vec3Dbl* const rightSides, int count)
{
    VEXOR_CHECK(count <= 3, "Solve for more than three right-hand sides");
    if (small_decompose(Elements(), pivotOrder, 3) != 0)
        vexor::detail::RaiseSingular();
    vexor::detail::MarkAsFactors(Elements(), pivotOrder);
    ReSolve(rightSides, count);
}

void Mat3Dbl::ReSolve(Vec3Dbl& rightSide)
{
    ReSolve(&rightSide, 1);
}

void Mat3Dbl::ReSolve(Vec3Dbl* const rightSides, int count)
{
    VEXOR_CHECK(count <= 3, "ReSolve for more than three right-hand sides");
    VEXOR_CHECK(count < 1 || vexor::detail::AreMarkedFactors(Elements(), pivotOrder),
                "ReSolve on a matrix that was not factorised or has changed since");
    unsigned char room[3];
    small_substitution(Elements(), reinterpret_cast<double*>(rightSides),
                       vexor::detail::PlainRowOrder(pivotOrder, room), 3, count);
}

Mat3Dbl& Mat3Dbl::Invert()
{
    double* const elements = Elements();
    LocalRowsOfThree factors(elements);
    if (vexor::detail::Decompose(factors) != 0) {
        small_decompose(elements, pivotOrder, 3); // stores the partial result of the failing factorisation
        vexor::detail::RaiseSingular();
    }
    factors.StoreOrder(pivotOrder);
    // The columns of the identity matrix are solved in the order of the pivot rows: the 1 is then at a known
    // place in the factors' order, whichever row was the pivot.
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

// The test is relative without a minimum: two values do not coincide only because they are small.
bool EigenValuesCoincide(double x, double y, double factor)
{
    if (y == x)
        return true;
    double const difference = std::fabs(x - y);
    double const larger = std::fabs(x) > std::fabs(y) ? std::fabs(x) : std::fabs(y);
    return difference < larger * (factor * std::numeric_limits<double>::epsilon());
}

// Keeps the compiler from loading an element together with its neighbour. A matrix that was just copied was
// stored row by row, two doubles and one. A load of two doubles that spans such stores stalls until both
// finish (failed store forwarding). With clang 14 the eigenvalues then take 1.6 times as long.
double LoadAlone(double element)
{
#if defined(__GNUC__) && defined(__SSE2__)
    __asm__("" : "+x"(element));
#endif
    return element;
}

/// The upper triangle of a symmetric matrix:
///     a b c
///       d e
///         f
struct UpperTriangle {
    explicit UpperTriangle(Mat3Dbl const& matrix)
        : a(LoadAlone(matrix(0, 0))),
          b(LoadAlone(matrix(0, 1))),
          c(LoadAlone(matrix(0, 2))),
          d(LoadAlone(matrix(1, 1))),
          e(LoadAlone(matrix(1, 2))),
          f(LoadAlone(matrix(2, 2)))
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

    // Without its square term, x³ + P·x + Q. With three equal roots P is 0; a NaN propagates to the result.
    double const P = T - S * S * third;
    if (P >= 0.0)
        vexor::detail::RaiseComputationFailed();
    double const R = 2.0 * SquareRoot(P * -third);
    double const Q = D + (2.0 * (S * S * S) / 27.0 - T * S * third);

    double const h = vexor::detail::ClampedArcCosine(((Q * 3.0) / P) / R) * third;
    auto const [sine, cosine] = vexor::detail::SinCos(h);
    double const scaledSine = vexor::detail::squareRootOfThree * sine;
    double const z = S * third;
    double const e1 = R * cosine - z;
    double const e2 = (R * 0.5) * (scaledSine - cosine) - z;
    double const e3 = (R * 0.5) * (-cosine - scaledSine) - z;

    double const lower = e1 < e2 ? e1 : e2;
    double const higher = e1 < e2 ? e2 : e1;
    if (lower >= e3)
        return Vec3Dbl(e3, lower, higher);
    if (higher < e3)
        return Vec3Dbl(lower, higher, e3);
    return Vec3Dbl(lower, e3, higher);
}

// For the largest element (p, q): the rows and columns after it, cyclically. `products` has the cross product, by its
// index in `EigenVector`, for each minor through the element: that of row p1 and column q1, of p1 and q2, p2 and q1, p2
// and q2.
struct Pivot {
    constexpr Pivot(int row, int column)
        : p(row),
          p1((p + 1) % 3),
          p2((p + 2) % 3),
          q(column),
          q1((q + 1) % 3),
          q2((q + 2) % 3),
          products{p2, p2 + 3, p1 + 3, p1}
    {}

    int p, p1, p2, q, q1, q2;
    int products[4];
};

constexpr Pivot pivots[] = {{0, 0}, {0, 1}, {0, 2}, {1, 1}, {1, 2}, {2, 2}};

// An eigenvector if all rows are multiples of this one, whose largest element is in column q.
VEXOR_COLD Vec3Dbl RankOneEigenVector(Vec3Dbl const& row, int q, int q1, int q2)
{
    double const a1 = std::fabs(row[q1]);
    double const a2 = std::fabs(row[q2]);
    Vec3Dbl result(0.0);
    if (a2 < a1) {
        result[q1] = 1.0;
        result[q] = -row[q1] / row[q];
    } else if (a2 > a1) {
        result[q2] = 1.0;
        result[q] = -row[q2] / row[q];
    } else { // for any signs of the two elements
        result[q1] = 1.0;
        result[q2] = -1.0;
    }
    return result.Normalize();
}

// The cross product of two rows of the matrix minus the eigenvalue on its diagonal: the two rows with the
// largest 2×2 minor that contains the largest element. On a tie the first wins; a NaN never wins. The rank is
// decided by comparison with exactly 0. All products are computed, and the choice is an index.
VEXOR_ALWAYS_INLINE Vec3Dbl UpperTriangle::EigenVector(double eigenValue) const
{
    Vec3Dbl const row0(a - eigenValue, b, c);
    Vec3Dbl const row1(b, d - eigenValue, e);
    Vec3Dbl const row2(c, e, f - eigenValue);
    int const largest = IndexOfLargest({row0.x, row0.y, row0.z, row1.y, row1.z, row2.z});
    if (largest < 0)
        return Vec3Dbl(1.0, 0.0, 0.0); // every vector is an eigenvector

    // The second three are the first with the other order of rows. A change of sign would give other zeros.
    Vec3Dbl const products[] = {row1.Cross(row2), row2.Cross(row0), row0.Cross(row1),
                                row2.Cross(row1), row0.Cross(row2), row1.Cross(row0)};
    auto const& [p, p1, p2, q, q1, q2, product] = pivots[largest];
    int const minor =
        IndexOfLargest({products[p2][q2], products[p2][q1], products[p1][q2], products[p1][q1]});
    if (minor < 0)
        return RankOneEigenVector(p == 0 ? row0 : p == 1 ? row1 : row2, q, q1, q2);
    Vec3Dbl const& chosen = products[product[minor]];
    return Vec3Dbl(chosen.x, chosen.y, chosen.z).Normalize();
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
        rows[0] = first;
        rows[1] = matrix.EigenVector(values.y);
        rows[2] = matrix.EigenVector(values.z);
    }
}

void Mat3Dbl::GetEigenVectorGivenEigenValue(Vec3Dbl& eigenVector, double eigenValue)
{
    eigenVector = UpperTriangle(*this).EigenVector(eigenValue);
}
