#include <vexor/rotations/Quaternion.h>

#include <vexor/foundation/detail/Elementary.h>

#include <cstddef>
#include <type_traits>

using vexor::detail::Atan2;
using vexor::detail::SquareRoot;

static_assert(
    std::is_standard_layout_v<
        Quaternion> && std::is_trivially_copyable_v<Quaternion> && sizeof(Quaternion) == 4 * sizeof(double)
        && offsetof(Quaternion, u) == 0 && offsetof(Quaternion, v) == sizeof(double)
        && offsetof(Quaternion, w) == 2 * sizeof(double) && offsetof(Quaternion, s) == 3 * sizeof(double),
    "four doubles: a vector part that lies as a Vec3Dbl, then the scalar");

namespace {

/// Stores a vector in the vector part; the scalar is unchanged.
void StoreVectorPart(Quaternion& quaternion, Vec3Dbl const& vector)
{
    quaternion.u = vector.x;
    quaternion.v = vector.y;
    quaternion.w = vector.z;
}

/// Stores the axis, normalised if the flag is not 0, times the factor. If the normalisation raises, the axis
/// is stored as given.
void StoreAxis(Quaternion& quaternion, Vec3Dbl axis, int normalize, double factor)
{
    StoreVectorPart(quaternion, axis);
    if (normalize != 0)
        axis.Normalize();
    StoreVectorPart(quaternion, axis * factor);
}

} // namespace

// ---- Axis and angle --------------------------------------------------------------------------------

Quaternion& Quaternion::SetAxisAngle(double x, double y, double z, double angle, int normalize)
{
    double const half = angle * 0.5;
    auto const [sine, cosine] = vexor::detail::SinCos(half);
    StoreAxis(*this, Vec3Dbl(x, y, z), normalize, sine);
    s = cosine;
    return *this;
}

Quaternion& Quaternion::SetAxisCosAngle(Vec3Dbl const& axis, double cosine, int normalize)
{
    double const sineOfHalf = SquareRoot((1.0 - cosine) * 0.5);
    double const cosineOfHalf = SquareRoot((cosine + 1.0) * 0.5);
    StoreAxis(*this, axis, normalize, sineOfHalf);
    s = cosineOfHalf;
    return *this;
}

// ---- Matrices --------------------------------------------------------------------------------------

Quaternion& Quaternion::SetFromMatrix(Mat3Dbl const& matrix)
{
    double const trace = matrix(0, 0) + matrix(1, 1) + matrix(2, 2);
    int candidate = 3;
    double largest = trace;
    for (int i = 0; i < 3; ++i) {
        if (largest < matrix(i, i)) {
            candidate = i;
            largest = matrix(i, i);
        }
    }

    if (candidate == 3) {
        double const root = 2.0 * SquareRoot(trace + 1.0);
        u = (matrix(2, 1) - matrix(1, 2)) / root;
        v = (matrix(0, 2) - matrix(2, 0)) / root;
        w = (matrix(1, 0) - matrix(0, 1)) / root;
        s = root * 0.25;
    } else {
        int const i = candidate;
        int const j = (i + 1) % 3;
        int const k = (i + 2) % 3;
        double const root = 2.0 * SquareRoot(matrix(i, i) - matrix(j, j) - matrix(k, k) + 1.0);
        (*this)[i] = root * 0.25;
        (*this)[j] = (matrix(i, j) + matrix(j, i)) / root;
        (*this)[k] = (matrix(i, k) + matrix(k, i)) / root;
        s = (matrix(k, j) - matrix(j, k)) / root;
    }
    return Normalize();
}

// ---- Euler angles ----------------------------------------------------------------------------------

Vec3Dbl Quaternion::GetEulerAngles() const
{
    Mat3Dbl m;
    GetRotationMatrix(m);
    double const cosineOfY = SquareRoot(m(0, 0) * m(0, 0) + m(1, 0) * m(1, 0));
    double const y = Atan2(-m(2, 0), cosineOfY);
    if (cosineOfY > 1e-10)
        return Vec3Dbl(Atan2(m(2, 1), m(2, 2)), y, Atan2(m(1, 0), m(0, 0)));
    return Vec3Dbl(Atan2(-m(1, 2), m(1, 1)), y, 0.0);
}

Quaternion& Quaternion::SetFromEulerAngles(Vec3Dbl& angles)
{
    Quaternion const aboutX(1.0, 0.0, 0.0, angles.x, 1);
    Quaternion const aboutY(0.0, 1.0, 0.0, angles.y, 1);
    Quaternion const aboutZ(0.0, 0.0, 1.0, angles.z, 1);
    *this = aboutZ * (aboutY * aboutX);
    return Normalize();
}
