// Measures how accurate the two symmetric eigenproblems of the library are, `Mat3Dbl::EigenSym` (closed
// form) and `MatDbl::EigenSym` (LAPACK), against MPFR over designed spectra, and writes the page
// docs/eigen-accuracy.md. Usage: vexor_eigen_accuracy <file>

#include <vexor/vexor.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include <mpfr.h>

namespace {

// ---- Arithmetic of 400 bits ------------------------------------------------------------------------

class Real {
public:
    Real(double value = 0.0)
    {
        mpfr_init2(value_, 400);
        mpfr_set_d(value_, value, MPFR_RNDN);
    }
    Real(Real const& other) : Real() { mpfr_set(value_, other.value_, MPFR_RNDN); }
    ~Real() { mpfr_clear(value_); }
    Real& operator=(Real const& other)
    {
        mpfr_set(value_, other.value_, MPFR_RNDN);
        return *this;
    }

    friend Real operator+(Real const& a, Real const& b) { return Binary(mpfr_add, a, b); }
    friend Real operator-(Real const& a, Real const& b) { return Binary(mpfr_sub, a, b); }
    friend Real operator*(Real const& a, Real const& b) { return Binary(mpfr_mul, a, b); }
    friend Real operator/(Real const& a, Real const& b) { return Binary(mpfr_div, a, b); }
    friend bool operator<(Real const& a, Real const& b) { return mpfr_less_p(a.value_, b.value_) != 0; }
    friend Real Sqrt(Real const& a)
    {
        Real result;
        mpfr_sqrt(result.value_, a.value_, MPFR_RNDN);
        return result;
    }
    friend Real Abs(Real const& a)
    {
        Real result;
        mpfr_abs(result.value_, a.value_, MPFR_RNDN);
        return result;
    }
    double ToDouble() const { return mpfr_get_d(value_, MPFR_RNDN); }

private:
    template <class Operation>
    static Real Binary(Operation operation, Real const& a, Real const& b)
    {
        Real result;
        operation(result.value_, a.value_, b.value_, MPFR_RNDN);
        return result;
    }

    mpfr_t value_;
};

using Vector = std::array<Real, 3>;
using Matrix = std::array<Vector, 3>;

Real Dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

struct Spectrum {
    std::array<Real, 3> values; // ascending
    std::array<Vector, 3> vectors;
};

/// Jacobi's rotations until nothing is left off the diagonal at this precision.
Spectrum Decompose(Matrix a)
{
    Matrix v = {{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}};
    for (int sweep = 0; sweep < 40; ++sweep) {
        for (std::size_t p = 0; p < 2; ++p) {
            for (std::size_t q = p + 1; q < 3; ++q) {
                if (!(Real(0.0) < Abs(a[p][q])))
                    continue;
                Real const theta = (a[q][q] - a[p][p]) / (Real(2.0) * a[p][q]);
                Real const root = Sqrt(theta * theta + Real(1.0));
                Real const t = theta < Real(0.0) ? Real(-1.0) / (root - theta) : Real(1.0) / (root + theta);
                Real const c = Real(1.0) / Sqrt(t * t + Real(1.0));
                Real const s = t * c;
                for (std::size_t k = 0; k < 3; ++k) {
                    Real const x = a[k][p];
                    Real const y = a[k][q];
                    a[k][p] = c * x - s * y;
                    a[k][q] = s * x + c * y;
                }
                for (std::size_t k = 0; k < 3; ++k) {
                    Real const x = a[p][k];
                    Real const y = a[q][k];
                    a[p][k] = c * x - s * y;
                    a[q][k] = s * x + c * y;
                    Real const vx = v[p][k];
                    Real const vy = v[q][k];
                    v[p][k] = c * vx - s * vy;
                    v[q][k] = s * vx + c * vy;
                }
                a[p][q] = a[q][p] = Real(0.0);
            }
        }
    }
    std::array<std::size_t, 3> order = {0, 1, 2};
    std::sort(order.begin(), order.end(), [&](std::size_t i, std::size_t k) { return a[i][i] < a[k][k]; });
    Spectrum spectrum;
    for (std::size_t i = 0; i < 3; ++i) {
        spectrum.values[i] = a[order[i]][order[i]];
        spectrum.vectors[i] = v[order[i]];
    }
    return spectrum;
}

// ---- Designed matrices -----------------------------------------------------------------------------

class Draws {
public:
    std::uint64_t Next()
    {
        state_ += 0x9e3779b97f4a7c15;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
        z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
        return z ^ (z >> 31);
    }
    double Between(double low, double high)
    {
        return low + (high - low) * std::ldexp(static_cast<double>(Next() >> 11), -53);
    }

private:
    std::uint64_t state_ = 2026;
};

using Elements = std::array<std::array<double, 3>, 3>;

/// Qᵀ·diag(values)·Q for a random rotation Q, each element rounded to double once.
Elements WithSpectrum(Draws& draws, std::array<Real, 3> const& values)
{
    std::array<Real, 4> q;
    Real sum;
    for (Real& component : q) {
        component = draws.Between(-1, 1);
        sum = sum + component * component;
    }
    for (Real& component : q)
        component = component / Sqrt(sum);
    Real const two(2.0);
    Real const one(1.0);
    Matrix const rotation = {{{one - two * (q[2] * q[2] + q[3] * q[3]), two * (q[1] * q[2] - q[0] * q[3]),
                               two * (q[1] * q[3] + q[0] * q[2])},
                              {two * (q[1] * q[2] + q[0] * q[3]), one - two * (q[1] * q[1] + q[3] * q[3]),
                               two * (q[2] * q[3] - q[0] * q[1])},
                              {two * (q[1] * q[3] - q[0] * q[2]), two * (q[2] * q[3] + q[0] * q[1]),
                               one - two * (q[1] * q[1] + q[2] * q[2])}}};
    Elements elements;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k) {
            Real element;
            for (std::size_t j = 0; j < 3; ++j)
                element = element + rotation[j][i] * values[j] * rotation[j][k];
            elements[i][k] = element.ToDouble();
        }
    }
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < i; ++k)
            elements[i][k] = elements[k][i];
    }
    return elements;
}

/// A group of matrices. Eigenvalues `pairBegin` and the next one form a close pair, unless it is `none`.
struct Group {
    static constexpr int none = -2;

    std::string name;
    int pairBegin;
    Elements (*make)(Draws&, double);
    double parameter;
};

Elements Separated(Draws& draws, double scale)
{
    return WithSpectrum(draws, {Real(scale) * Real(draws.Between(0.02, 0.04)),
                                Real(scale) * Real(draws.Between(0.1, 0.2)),
                                Real(scale) * Real(draws.Between(0.5, 1))});
}

Elements MixedSigns(Draws& draws, double)
{
    return WithSpectrum(
        draws, {Real(draws.Between(-4, -3)), Real(draws.Between(-0.5, 0.5)), Real(draws.Between(3, 4))});
}

Elements Graded(Draws& draws, double ratio)
{
    return WithSpectrum(draws, {Real(ratio) * Real(ratio) * Real(draws.Between(0.5, 1)),
                                Real(ratio) * Real(draws.Between(0.5, 1)), Real(draws.Between(0.5, 1))});
}

Elements LowerPair(Draws& draws, double gap)
{
    Real const value(draws.Between(1, 2));
    return WithSpectrum(draws, {value, value * (Real(1.0) + Real(gap)), Real(draws.Between(4, 5))});
}

Elements UpperPair(Draws& draws, double gap)
{
    Real const value(draws.Between(4, 5));
    return WithSpectrum(draws, {Real(draws.Between(1, 2)), value, value * (Real(1.0) + Real(gap))});
}

/// I ± u·uᵀ with integers in u: two eigenvalues are exactly 1.
Elements ExactPair(Draws& draws, double sign)
{
    std::array<double, 3> u;
    do {
        for (double& component : u)
            component = std::floor(draws.Between(-9, 10));
    } while (u[0] == 0 && u[1] == 0 && u[2] == 0);
    Elements elements;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k)
            elements[i][k] = (i == k ? 1.0 : 0.0) + sign * u[i] * u[k];
    }
    return elements;
}

Elements NearUnit(Draws& draws, double distance)
{
    double const value = draws.Between(1, 2);
    Elements elements;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = i; k < 3; ++k)
            elements[i][k] = elements[k][i] =
                (i == k ? value : 0.0) + value * distance * draws.Between(-1, 1);
    }
    return elements;
}

Elements MultipleOfUnit(Draws& draws, double)
{
    double const value = draws.Between(1, 2);
    return {{{value, 0, 0}, {0, value, 0}, {0, 0, value}}};
}

Group const groups[] = {
    {"well separated, 1 : 5 : 25", Group::none, Separated, 1.0},
    {"well separated, of both signs", Group::none, MixedSigns, 0.0},
    {"graded, 1e-8 : 1e-4 : 1", Group::none, Graded, 1e-4},
    {"graded, 1e-16 : 1e-8 : 1", Group::none, Graded, 1e-8},
    {"lower two close, gap 1e-4", 0, LowerPair, 1e-4},
    {"lower two close, gap 1e-8", 0, LowerPair, 1e-8},
    {"lower two close, gap 1e-12", 0, LowerPair, 1e-12},
    {"upper two close, gap 1e-4", 1, UpperPair, 1e-4},
    {"upper two close, gap 1e-8", 1, UpperPair, 1e-8},
    {"upper two close, gap 1e-12", 1, UpperPair, 1e-12},
    {"lower two equal, rounded", 0, LowerPair, 0.0},
    {"upper two equal, rounded", 1, UpperPair, 0.0},
    {"lower two equal, exact (I + u·uᵀ)", 0, ExactPair, 1.0},
    {"upper two equal, exact (I − u·uᵀ)", 1, ExactPair, -1.0},
    {"multiple of I, off by 1e-4", Group::none, NearUnit, 1e-4},
    {"multiple of I, off by 1e-8", Group::none, NearUnit, 1e-8},
    {"multiple of I, off by 1e-12", Group::none, NearUnit, 1e-12},
    {"multiple of I", Group::none, MultipleOfUnit, 0.0},
    {"well separated, times 1e100", Group::none, Separated, 1e100},
    {"well separated, times 1e-100", Group::none, Separated, 1e-100},
    {"well separated, times 1e110", Group::none, Separated, 1e110},
    {"well separated, times 1e-110", Group::none, Separated, 1e-110},
};

// ---- Measuring -------------------------------------------------------------------------------------

struct Result {
    bool isRefused = false;
    std::array<double, 3> values = {};
    std::array<std::array<double, 3>, 3> vectors = {};
};

Result ClosedForm(Elements const& elements)
{
    Mat3Dbl matrix;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            matrix(i, k) = elements[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)];
    }
    Result result;
    Vec3Dbl values;
    try {
        matrix.EigenSym(values, 1);
    } catch (VexorException const&) {
        result.isRefused = true;
        return result;
    }
    for (int i = 0; i < 3; ++i) {
        result.values[static_cast<std::size_t>(i)] = values[i];
        for (int k = 0; k < 3; ++k)
            result.vectors[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)] = matrix(i, k);
    }
    return result;
}

Result ThroughLapack(Elements const& elements)
{
    MatDbl matrix(3, 3);
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 3; ++k)
            matrix(i, k) = elements[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)];
    }
    Result result;
    VecDbl values(3);
    try {
        matrix.EigenSym(values, 1, 0, 2);
    } catch (VexorException const&) {
        result.isRefused = true;
        return result;
    }
    for (int i = 0; i < 3; ++i) {
        result.values[static_cast<std::size_t>(i)] = values[i];
        for (int k = 0; k < 3; ++k)
            result.vectors[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)] = matrix(i, k);
    }
    return result;
}

/// The worst and the median of what was measured on the matrices of a group.
class Sample {
public:
    void Add(double value) { values_.push_back(value); }
    bool IsEmpty() const { return values_.empty(); }
    std::string Worst() const
    {
        return values_.empty() ? "–" : Text(*std::max_element(values_.begin(), values_.end()));
    }
    std::string Median() const
    {
        if (values_.empty())
            return "–";
        std::vector<double> sorted(values_);
        auto const middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
        std::nth_element(sorted.begin(), middle, sorted.end());
        return Text(*middle);
    }

private:
    static std::string Text(double value)
    {
        if (value == 0.0)
            return "0";
        char text[32];
        std::snprintf(text, sizeof text, "%.0e", value);
        return text;
    }

    std::vector<double> values_;
};

struct Measured {
    int refused = 0;
    int notFinite = 0;
    Sample absolute, scaled, relative, angle, planeAngle, thirdAngle, residual, orthogonality;
};

Vector ToReal(std::array<double, 3> const& v)
{
    return {Real(v[0]), Real(v[1]), Real(v[2])};
}

void Measure(Measured& measured, Result const& result, Elements const& elements, Spectrum const& exact,
             int pairBegin)
{
    if (result.isRefused) {
        ++measured.refused;
        return;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        bool isFinite = std::isfinite(result.values[i]);
        for (double component : result.vectors[i])
            isFinite = isFinite && std::isfinite(component);
        if (!isFinite) {
            ++measured.notFinite;
            return;
        }
    }

    Real const norm =
        Abs(exact.values[0]) < Abs(exact.values[2]) ? Abs(exact.values[2]) : Abs(exact.values[0]);
    double absolute = 0.0;
    double scaled = 0.0;
    double relative = 0.0;
    double angle = 0.0;
    double planeAngle = 0.0;
    double thirdAngle = 0.0;
    double residual = 0.0;
    double orthogonality = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        Real error = Abs(Real(result.values[i]) - exact.values[i]);
        if (error < norm * Real(0x1p-300))
            error = Real(0.0); // what the reference itself errs by
        absolute = std::max(absolute, error.ToDouble());
        scaled = std::max(scaled, (error / norm).ToDouble());
        if (norm * Real(0x1p-300) < Abs(exact.values[i]))
            relative = std::max(relative, (error / Abs(exact.values[i])).ToDouble());

        Vector const v = ToReal(result.vectors[i]);
        Real const squared = Dot(v, v);
        // The sine of the angle between a vector and a space is the length of what lies outside it.
        auto const isInPair = [pairBegin](std::size_t k) {
            return static_cast<int>(k) == pairBegin || static_cast<int>(k) == pairBegin + 1;
        };
        Real outsideVector;
        Real outsidePlane;
        for (std::size_t k = 0; k < 3; ++k) {
            Real const part = Dot(v, exact.vectors[k]);
            if (k != i)
                outsideVector = outsideVector + part * part;
            if (!isInPair(k))
                outsidePlane = outsidePlane + part * part;
        }
        angle = std::max(angle, Sqrt(outsideVector / squared).ToDouble());
        if (isInPair(i))
            planeAngle = std::max(planeAngle, Sqrt(outsidePlane / squared).ToDouble());
        else
            thirdAngle = std::max(thirdAngle, Sqrt(outsideVector / squared).ToDouble());

        Real rest;
        for (std::size_t r = 0; r < 3; ++r) {
            Real const component = Dot(ToReal(elements[r]), v) - Real(result.values[i]) * v[r];
            rest = rest + component * component;
        }
        residual = std::max(residual, (Sqrt(rest) / norm).ToDouble());
        for (std::size_t k = 0; k <= i; ++k) {
            Real const product = Dot(v, ToReal(result.vectors[k]));
            orthogonality = std::max(orthogonality, Abs(product - Real(k == i ? 1.0 : 0.0)).ToDouble());
        }
    }
    measured.absolute.Add(absolute);
    measured.scaled.Add(scaled);
    measured.relative.Add(relative);
    measured.angle.Add(angle);
    if (pairBegin != Group::none) {
        measured.planeAngle.Add(planeAngle);
        measured.thirdAngle.Add(thirdAngle);
    }
    measured.residual.Add(residual);
    measured.orthogonality.Add(orthogonality);
}

constexpr int matricesPerGroup = 1000;

struct Row {
    std::string name;
    Measured closedForm, lapack;
};

Row MeasureGroup(Group const& group)
{
    Row row{group.name, {}, {}};
    Draws draws;
    for (int i = 0; i < matricesPerGroup; ++i) {
        Elements const elements = group.make(draws, group.parameter);
        Spectrum const exact = Decompose({ToReal(elements[0]), ToReal(elements[1]), ToReal(elements[2])});
        Measure(row.closedForm, ClosedForm(elements), elements, exact, group.pairBegin);
        Measure(row.lapack, ThroughLapack(elements), elements, exact, group.pairBegin);
    }
    return row;
}

// ---- The page --------------------------------------------------------------------------------------

constexpr char introduction[] = R"(# How accurate the eigenvalues of a symmetric 3×3 matrix are

<!-- Written by docs/tools/EigenAccuracy.cpp; do not edit. To measure anew, with MPFR installed:
     cmake --preset docs && cmake --build --preset docs --target vexor_update_eigen_accuracy -->

The library solves the symmetric eigenproblem in two ways. `Mat3Dbl::EigenSym` evaluates the closed
trigonometric solution of the characteristic cubic; it takes about 0.1 µs and allocates nothing.
`MatDbl::EigenSym` goes through LAPACK (DSYEVX), takes some microseconds and allocates workspace. The tables
show how much accuracy the speed costs.

## Which to use

- Eigenvalues that differ by a tenth of the largest or more: both are right to about 1e-15 of the largest
  eigenvalue, with vectors to match. Use `Mat3Dbl::EigenSym`.
- Two close eigenvalues: the error of the closed form grows as they approach each other, up to about 1e-8
  of the largest. That is the square root of the rounding unit: a double root of a cubic moves by the root
  of the error in its coefficients. The vectors lose accuracy too: with a relative gap of 1e-4 they are
  right to 1e-7. From a gap of 1e-8 down they are arbitrary and may be nearly parallel to each other; if
  the two are equal up to rounding, they may even leave their plane. The third vector stays right. If the pair
  matters, use `MatDbl::EigenSym`: its vectors are always orthogonal to 1e-15 and span the right plane.
- Eigenvalues of very different size: the error of both is a fraction of the largest one, so small
  eigenvalues have large relative errors. The closed form loses more digits. Of 1e-8 : 1e-4 : 1 it gives the
  smallest to four digits and LAPACK to seven. Of 1e-16 : 1e-8 : 1 neither gives the smallest, and only LAPACK
  gives the middle one.
- A matrix near a multiple of the identity matrix: depending on rounding, the closed form refuses it
  (`VexorComputationFailed`) or has an error of up to about 1e-6 of the value, with arbitrary vectors. Use
  `MatDbl::EigenSym`.
- Elements beyond about 1e±100: the cubes in the closed form overflow or underflow. Scale the matrix by a
  power of two first, or use `MatDbl::EigenSym`, which scales by itself.

## How it was measured

Each row holds 1000 matrices, the same in every run. A matrix with a designed spectrum is a random rotation
of a diagonal one, formed in 400 bits and rounded to double; "exact" ones are integers. Its exact
eigenvalues and eigenvectors, those of the rounded matrix, come from Jacobi's method in MPFR with 400 bits.
Each cell gives the closed form first and LAPACK (OpenBLAS on x86-64, glibc 2.36) second. For each matrix
the largest error of its three eigenvalues or vectors counts.

- *Absolute*: the error of an eigenvalue; *of the largest*: that divided by the largest magnitude of an
  eigenvalue; *relative*: divided by the eigenvalue itself. It is left out if an exact eigenvalue is 0.
- *Angle*: the sine of the angle between a vector and the exact eigenvector. For a pair of equal eigenvalues
  the exact vectors are arbitrary, and the angle is meaningless; *plane of the pair* is the angle between the two
  computed vectors of the pair and the exact plane, *third vector* the angle of the one outside the pair.
- *Residual*: the length of A·v − λ·v divided by the largest magnitude of an eigenvalue.
- *Orthogonality*: the largest deviation of a dot product of two vectors from 0, or of a vector with itself
  from 1.
)";

std::string Both(std::string const& closedForm, std::string const& lapack)
{
    return closedForm + " / " + lapack;
}

std::string Pair(Sample const& closedForm, Sample const& lapack)
{
    return lapack.IsEmpty() ? "" : Both(closedForm.Worst(), lapack.Worst());
}

std::string Count(int refused, int notFinite)
{
    if (refused == 0 && notFinite == 0)
        return "";
    std::string text;
    if (refused > 0)
        text += std::to_string(refused) + " refused";
    if (notFinite > 0)
        text += (text.empty() ? "" : ", ") + std::to_string(notFinite) + " not finite";
    return text;
}

void WritePage(std::FILE* page, std::vector<Row> const& rows)
{
    std::fputs(introduction, page);
    std::fputs("\n## Eigenvalues\n\n"
               "| Spectrum | Absolute, worst | Of the largest, worst | Relative, worst | Relative, median | "
               "`Mat3Dbl::EigenSym` gave no result |\n|---|---|---|---|---|---|\n",
               page);
    for (Row const& row : rows) {
        Measured const& a = row.closedForm;
        Measured const& b = row.lapack;
        std::fprintf(page, "| %s | %s | %s | %s | %s | %s |\n", row.name.c_str(),
                     Both(a.absolute.Worst(), b.absolute.Worst()).c_str(),
                     Both(a.scaled.Worst(), b.scaled.Worst()).c_str(),
                     Both(a.relative.Worst(), b.relative.Worst()).c_str(),
                     Both(a.relative.Median(), b.relative.Median()).c_str(),
                     Count(a.refused, a.notFinite).c_str());
    }
    std::fputs("\n## Eigenvectors\n\n"
               "| Spectrum | Angle, worst | Angle, median | Plane of the pair, worst | Third vector, worst | "
               "Residual, worst | Orthogonality, worst |\n|---|---|---|---|---|---|---|\n",
               page);
    for (Row const& row : rows) {
        Measured const& a = row.closedForm;
        Measured const& b = row.lapack;
        std::fprintf(page, "| %s | %s | %s | %s | %s | %s | %s |\n", row.name.c_str(),
                     Both(a.angle.Worst(), b.angle.Worst()).c_str(),
                     Both(a.angle.Median(), b.angle.Median()).c_str(),
                     Pair(a.planeAngle, b.planeAngle).c_str(), Pair(a.thirdAngle, b.thirdAngle).c_str(),
                     Both(a.residual.Worst(), b.residual.Worst()).c_str(),
                     Both(a.orthogonality.Worst(), b.orthogonality.Worst()).c_str());
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: %s <file>\n", arguments[0]);
        return 2;
    }
    std::vector<Row> rows;
    for (Group const& group : groups)
        rows.push_back(MeasureGroup(group));
    std::FILE* const page = std::fopen(arguments[1], "w");
    if (page == nullptr) {
        std::fprintf(stderr, "%s: cannot write %s\n", arguments[0], arguments[1]);
        return 1;
    }
    WritePage(page, rows);
    if (std::fclose(page) != 0) {
        std::fprintf(stderr, "%s: cannot write %s\n", arguments[0], arguments[1]);
        return 1;
    }
    std::printf("%s written\n", arguments[1]);
    return 0;
}
