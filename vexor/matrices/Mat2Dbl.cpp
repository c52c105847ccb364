#include <vexor/matrices/Mat2Dbl.h>

#include <vexor/foundation/detail/Raise.h>
#include <vexor/foundation/detail/Scalar.h>

#include <cmath>
#include <cstdint>

using vexor::detail::SquareRoot;

// RowSum reads past its object on purpose. That read must be hidden from the sanitizers and from an optimiser
// that sees the caller's object together with this function, as link-time optimisation does.
#if defined(__clang__)
#    define VEXOR_READS_BEHIND                                                                               \
        __attribute__((noinline, no_sanitize("address", "undefined", "memory", "thread")))
#elif defined(__GNUC__)
#    define VEXOR_READS_BEHIND                                                                               \
        __attribute__((noipa, no_sanitize_address, no_sanitize_undefined, no_sanitize_thread))
#elif defined(_MSC_VER) && _MSC_VER >= 1928 // the first version with this sanitizer
#    define VEXOR_READS_BEHIND __declspec(noinline) __declspec(no_sanitize_address)
#elif defined(_MSC_VER)
#    define VEXOR_READS_BEHIND __declspec(noinline)
#else
#    define VEXOR_READS_BEHIND
#endif

namespace {

/// The double at an address, which is passed as an integer so that it refers to no object.
VEXOR_READS_BEHIND double ReadDoubleAt(std::uintptr_t address)
{
    return *reinterpret_cast<double const volatile*>(address); // NOLINT(performance-no-int-to-ptr)
}

/// The symmetric problem (a, b; b, c): r1 is the eigenvalue of larger magnitude, r2 the other; (cosine, sine)
/// is a unit eigenvector of r1, computed only if requested.
struct SymmetricEigen {
    double r1;
    double r2;
    double cosine;
    double sine;
};

SymmetricEigen SolveSymmetric(double a, double b, double c, bool withVectors)
{
    double const sum = a + c;
    double const difference = a - c;
    double const absDifference = std::fabs(difference);
    double const absTwiceB = std::fabs(b + b);
    bool const isCLarger = std::fabs(c) >= std::fabs(a);
    double const larger = isCLarger ? c : a;
    double const smaller = isCLarger ? a : c;

    double root = 0.0;
    if (absDifference > absTwiceB) {
        double const ratio = absTwiceB / absDifference;
        root = absDifference * SquareRoot(1.0 + ratio * ratio);
    } else if (absDifference < absTwiceB) {
        double const ratio = absDifference / absTwiceB;
        root = absTwiceB * SquareRoot(1.0 + ratio * ratio);
    } else {
        root = absTwiceB * SquareRoot(2.0);
    }

    SymmetricEigen result{};
    int sumSign = 1;
    if (sum < 0.0) {
        result.r1 = 0.5 * (sum - root);
        result.r2 = (larger / result.r1) * smaller - (b / result.r1) * b;
        sumSign = -1;
    } else if (sum > 0.0) {
        result.r1 = 0.5 * (sum + root);
        result.r2 = (larger / result.r1) * smaller - (b / result.r1) * b;
    } else {
        result.r1 = 0.5 * root;
        result.r2 = -0.5 * root;
    }

    if (!withVectors)
        return result;

    // (component, 2b) has the direction of an eigenvector. The sign of the root is chosen so that the sum
    // does not cancel.
    int const differenceSign = difference >= 0.0 ? 1 : -1;
    double const component = difference >= 0.0 ? difference + root : difference - root;
    if (std::fabs(component) > absTwiceB) {
        double const cotangent = -(b + b) / component;
        result.sine = 1.0 / SquareRoot(1.0 + cotangent * cotangent);
        result.cosine = cotangent * result.sine;
    } else if (b == 0.0) {
        result.cosine = 1.0;
        result.sine = 0.0;
    } else {
        double const tangent = -component / (b + b);
        result.cosine = 1.0 / SquareRoot(1.0 + tangent * tangent);
        result.sine = tangent * result.cosine;
    }
    if (sumSign == differenceSign) {
        double const formerCosine = result.cosine;
        result.cosine = -result.sine;
        result.sine = formerCosine;
    }
    return result;
}

} // namespace

VEXOR_READS_BEHIND Vec2Dbl Mat2Dbl::RowSum()
{
    std::uintptr_t const behind = reinterpret_cast<std::uintptr_t>(this) + sizeof *this;
    Vec2Dbl const third(ReadDoubleAt(behind), ReadDoubleAt(behind + sizeof(double)));
    return (rows[0] + rows[1]) + third;
}

Vec2Dbl Mat2Dbl::RowAverage()
{
    return RowSum() / 2.0;
}

Mat2Dbl& Mat2Dbl::Invert()
{
    double const d = rows[0].x * rows[1].y - rows[0].y * rows[1].x;
    if (std::fabs(d) < 1e-20)
        vexor::detail::RaiseSingular();
    return SetValue(Vec2Dbl(rows[1].y / d, -(rows[0].y / d)), Vec2Dbl(-(rows[1].x / d), rows[0].x / d));
}

void Mat2Dbl::EigenSym(Vec2Dbl& values, int withVectors)
{
    SymmetricEigen const e = SolveSymmetric(rows[0].x, rows[0].y, rows[1].y, withVectors != 0);
    if (withVectors == 0) {
        // Equal values, including two zeros of different sign, keep this order; below they swap.
        if (e.r2 < e.r1)
            values.SetValue(e.r2, e.r1);
        else
            values.SetValue(e.r1, e.r2);
        return;
    }
    if (e.r2 > e.r1) {
        values.SetValue(e.r1, e.r2);
        SetValue(Vec2Dbl(e.cosine, e.sine), Vec2Dbl(-e.sine, e.cosine));
    } else {
        values.SetValue(e.r2, e.r1);
        SetValue(Vec2Dbl(-e.sine, e.cosine), Vec2Dbl(e.cosine, e.sine));
    }
}
