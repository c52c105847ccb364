#include <vexor/dynamic/MatDbl.h>
#include <vexor/dynamic/VecDbl.h>
#include <vexor/foundation/detail/Elementary.h>
#include <vexor/foundation/detail/Scalar.h>
#include <vexor/matrices/Mat3Dbl.h>
#include <vexor/matrices/private/Crout.h>
#include <vexor/matrices/private/FactorMark.h>
#include <vexor/matrices/SmallSolver.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

using vexor::detail::LocalRowsOfThree;
using vexor::detail::SquareRoot;

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

// Keeps the compiler from loading an element together with its neighbour. A matrix that was copied a moment
// ago was stored row by row, two doubles and one; a load of two that spans such stores has to wait for both
// (failed store forwarding). With clang 14 the eigenvalues then take 1.6 times as long.
double LoadAlone(double element)
{
#if defined(__GNUC__) && defined(__SSE2__)
    __asm__("" : "+x"(element));
#endif
    return element;
}

/// A symmetric matrix by its upper triangle:
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

    // Without its square term, x³ + P·x + Q. With three equal roots P is 0; a NaN goes on to the result.
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

// The magnitudes of doubles are ordered as their bits are, seen as integers, with the NaNs on top.
std::uint64_t MagnitudeBits(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits & 0x7fffffffffffffff;
}

constexpr std::uint64_t infinityBits = 0x7ff0000000000000;

VEXOR_COLD int IndexOfLargestAmongNaNs(double const* values, int count)
{
    std::uint64_t largest = 0;
    int index = -1;
    for (int i = 0; i < count; ++i) {
        std::uint64_t const magnitude = MagnitudeBits(values[i]);
        if (magnitude <= infinityBits && magnitude > largest) {
            largest = magnitude;
            index = i;
        }
    }
    return index;
}

struct Candidate {
    std::uint64_t magnitude;
    int index;
};

// The larger of the largest of either half, of equals the earlier.
template <int begin, int end, int count>
inline Candidate Largest(double const (&values)[count])
{
    if constexpr (end - begin == 1) {
        return Candidate{MagnitudeBits(values[begin]), begin};
    } else {
        constexpr int middle = (begin + end) / 2;
        Candidate const left = Largest<begin, middle>(values);
        Candidate const right = Largest<middle, end>(values);
        bool const isRight = right.magnitude > left.magnitude;
        return Candidate{isRight ? right.magnitude : left.magnitude,
                         isRight ? right.index : left.index};
    }
}

/// The index of the largest magnitude, of equals the first; −1 if all are 0. NaNs are passed over.
template <int count>
inline int IndexOfLargest(double const (&values)[count])
{
    Candidate const largest = Largest<0, count>(values);
    if (largest.magnitude > 0 && largest.magnitude <= infinityBits)
        return largest.index;
    return IndexOfLargestAmongNaNs(values, count);
}

// The index of an element of a symmetric matrix among the six of its upper triangle, row by row.
constexpr int TriangleIndex(int i, int k)
{
    return i > k ? TriangleIndex(k, i) : i == 0 ? k : i + k + 1;
}

/// For the place (p, q) of an element: the rows and columns that follow it cyclically, the four 2×2
/// minors through it and the cross product of rows that belongs to each. These are given by their
/// indices among the twelve products in `EigenVector`.
struct Pivot {
    int p, q, q1, q2;
    int minors[4];
    int products[4][3];
};

constexpr Pivot PivotAt(int p, int q)
{
    int const p1 = (p + 1) % 3;
    int const p2 = (p + 2) % 3;
    int const q1 = (q + 1) % 3;
    int const q2 = (q + 2) % 3;
    // The row that each minor leaves out and the column that it leaves out. With the columns in the order
    // q, q1, q2 the product is row p × the partner, otherwise the partner × row p; for the partner p1 the
    // former is the forward one, for p2 the latter.
    int const rows[4] = {p2, p2, p1, p1};
    int const columns[4] = {q2, q1, q2, q1};
    int const offsets[4] = {0, 6, 6, 0};
    Pivot pivot{p, q, q1, q2, {}, {}};
    for (int i = 0; i < 4; ++i) {
        pivot.minors[i] = TriangleIndex(rows[i], columns[i]);
        for (int k = 0; k < 3; ++k)
            pivot.products[i][k] = TriangleIndex(rows[i], k) + offsets[i];
    }
    return pivot;
}

constexpr Pivot pivots[6] = {PivotAt(0, 0), PivotAt(0, 1), PivotAt(0, 2),
                             PivotAt(1, 1), PivotAt(1, 2), PivotAt(2, 2)};

// A vector perpendicular to row p, where all rows are multiples of one.
VEXOR_COLD Vec3Dbl RankOneEigenVector(Vec3Dbl const& row0, Vec3Dbl const& row1, Vec3Dbl const& row2,
                                      Pivot const& at)
{
    Vec3Dbl const row = at.p == 0 ? row0 : at.p == 1 ? row1 : row2;
    double const a1 = std::fabs(row[at.q1]);
    double const a2 = std::fabs(row[at.q2]);
    Vec3Dbl result(0.0);
    if (a2 < a1) {
        result[at.q1] = 1.0;
        result[at.q] = -row[at.q1] / row[at.q];
    } else if (a2 > a1) {
        result[at.q2] = 1.0;
        result[at.q] = -row[at.q2] / row[at.q];
    } else { // whatever the signs of the two elements
        result[at.q1] = 1.0;
        result[at.q2] = -1.0;
    }
    return result.Normalize();
}

// The cross product of two rows of the matrix less the eigenvalue: those with the largest 2×2 minor
// through the largest element. Rank means comparison with exactly 0.
//
// Which element and which minor is largest is as good as random, so that branches on it would be
// mispredicted; hence all cross products are formed, and the one wanted is taken by its index. Inlined,
// what the vectors of one matrix have in common is computed once, and their computations overlap.
VEXOR_ALWAYS_INLINE Vec3Dbl UpperTriangle::EigenVector(double eigenValue) const
{
    Vec3Dbl const row0(a - eigenValue, b, c);
    Vec3Dbl const row1(b, d - eigenValue, e);
    Vec3Dbl const row2(c, e, f - eigenValue);

    int const place = IndexOfLargest({row0.x, row0.y, row0.z, row1.y, row1.z, row2.z});
    if (place < 0)
        return Vec3Dbl(1.0, 0.0, 0.0); // every vector is an eigenvector
    Pivot const& pivot = pivots[place];

    // The cross products row1 × row2, row2 × row0, row0 × row1, whose components form a symmetric matrix;
    // then the reverse products. These are not made by a change of sign, which would give other zeros.
    Vec3Dbl const forward[3] = {row1.Cross(row2), row2.Cross(row0), row0.Cross(row1)};
    Vec3Dbl const reverse[3] = {row2.Cross(row1), row0.Cross(row2), row1.Cross(row0)};
    double const products[12] = {forward[0].x, forward[0].y, forward[0].z, forward[1].y,
                                 forward[1].z, forward[2].z, reverse[0].x, reverse[0].y,
                                 reverse[0].z, reverse[1].y, reverse[1].z, reverse[2].z};
    int const minor = IndexOfLargest({products[pivot.minors[0]], products[pivot.minors[1]],
                                      products[pivot.minors[2]], products[pivot.minors[3]]});
    if (minor < 0)
        return RankOneEigenVector(row0, row1, row2, pivot);
    int const(&product)[3] = pivot.products[minor];
    return Vec3Dbl(products[product[0]], products[product[1]], products[product[2]]).Normalize();
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
