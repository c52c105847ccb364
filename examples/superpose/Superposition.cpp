#include "superpose/Superposition.h"

#include "common/Finite.h"
#include "common/InputError.h"

#include <vexor/dynamic/MatDbl.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace examples {

namespace {

Pnt3Dbl Centroid(std::vector<Pnt3Dbl> const& points)
{
    Vec3Dbl sum(0.0);
    for (Pnt3Dbl const& point : points)
        sum += point - points.front();
    return points.front() + sum / static_cast<double>(points.size());
}

double Determinant(Mat3Dbl const& m)
{
    return m.GetRow(0).Cross(m.GetRow(1)).Dot(m.GetRow(2));
}

/// The symmetric matrix whose largest eigenvalue belongs to the best rotation, as (s, u, v, w).
MatDbl QuaternionForm(Mat3Dbl const& m)
{
    MatDbl form(4, 4, 0.0);
    form(0, 0) = m(0, 0) + m(1, 1) + m(2, 2);
    for (int i = 0; i < 3; ++i) {
        int const j = (i + 1) % 3;
        int const k = (i + 2) % 3;
        form(0, i + 1) = m(k, j) - m(j, k);
        form(i + 1, i + 1) = m(i, i) - m(j, j) - m(k, k);
        form(std::min(i, j) + 1, std::max(i, j) + 1) = m(i, j) + m(j, i);
    }
    return form; // the solver reads only the upper triangle
}

/// Of the two quaternions of a rotation, the one whose angle is between 0 and π.
Quaternion WithPositiveScalar(Quaternion const& rotation)
{
    Quaternion result(rotation);
    if (rotation[3] < 0.0)
        result.SetValue(-rotation[0], -rotation[1], -rotation[2], -rotation[3], 0);
    return result;
}

} // namespace

Correlation::Correlation(PointPairs const& pairs)
    : matrix(0.0), count(static_cast<double>(pairs.fixed.size()))
{
    if (pairs.fixed.size() < 3)
        throw InputError("a rotation needs at least three pairs of atoms, found "
                         + std::to_string(pairs.fixed.size()));
    fixedCentroid = Centroid(pairs.fixed);
    movingCentroid = Centroid(pairs.moving);
    for (std::size_t i = 0; i < pairs.fixed.size(); ++i) {
        Vec3Dbl const fixed = pairs.fixed[i] - fixedCentroid;
        Vec3Dbl const moving = pairs.moving[i] - movingCentroid;
        matrix += fixed.OuterProduct(moving);
        squares += fixed.LengthSquared() + moving.LengthSquared();
    }
    RequireFinite("the squared distances from the centroid",
                  squares); // each element of the correlation is finite too
}

bool Correlation::IsMirrored() const
{
    return Determinant(matrix) < 0.0;
}

// With M = Σ σk uk vkᵀ, the rotation is u0 v0ᵀ + u1 v1ᵀ + u2 v2ᵀ. The library gives the singular values
// and the left vectors; the right ones are vk = Mᵀ uk / σk. The third pair is made by cross products,
// which keeps both sets right-handed: so the result is never a reflection, and a flat set of points
// (σ2 = 0) needs no special case.
Superposition Correlation::BySvd() const
{
    Mat3Dbl left(matrix);
    Vec3Dbl singular;
    left.Svd(singular);
    if (singular[1] <= 16.0 * std::numeric_limits<double>::epsilon() * singular[0])
        throw InputError("the atoms lie on a line: any turn about it fits as well");

    Mat3Dbl const transposed = matrix.GetTransposedCopy();
    Vec3Dbl const u0 = left.GetRow(0);
    Vec3Dbl const u1 = left.GetRow(1);
    Vec3Dbl const v0 = (transposed * u0).GetNormalizedCopy();
    Vec3Dbl const v1 = (transposed * u1).GetNormalizedCopy();
    Mat3Dbl const rotation =
        u0.OuterProduct(v0) + u1.OuterProduct(v1) + u0.Cross(u1).OuterProduct(v0.Cross(v1));

    double const third = IsMirrored() ? -singular[2] : singular[2];
    return Assemble(Quaternion(rotation), rotation, singular[0] + singular[1] + third);
}

Superposition Correlation::ByQuaternion() const
{
    MatDbl form = QuaternionForm(matrix);
    VecDbl eigenValue;
    form.EigenSym(eigenValue, 1, 3, 3); // only the largest one, its vector in row 0
    Quaternion rotation;
    rotation.SetValue(form(0, 1), form(0, 2), form(0, 3), form(0, 0), 1);
    Mat3Dbl asMatrix;
    rotation.GetRotationMatrix(asMatrix);
    return Assemble(rotation, asMatrix, eigenValue[0]);
}

Superposition Correlation::Assemble(Quaternion const& rotation, Mat3Dbl const& asMatrix, double overlap) const
{
    Vec3Dbl const shift = fixedCentroid.Vector() - asMatrix * movingCentroid.Vector();
    RequireFinite("the sum of the singular values", overlap);
    double const meanSquare = std::max(0.0, squares - 2.0 * overlap) / count;
    return {WithPositiveScalar(rotation), AffMat3Dbl(asMatrix, shift), std::sqrt(meanSquare)};
}

double Rmsd(PointPairs const& pairs, AffMat3Dbl const& motion)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < pairs.fixed.size(); ++i)
        sum += pairs.fixed[i].DistanceSqTo(motion * pairs.moving[i]);
    RequireFinite("the squared distances of the pairs", sum);
    return std::sqrt(sum / static_cast<double>(pairs.fixed.size()));
}

double SmallAngleBetween(Quaternion const& first, Quaternion const& second)
{
    Quaternion relative = first * second.Inverse();
    return 2.0 * std::asin(std::min(relative.GetUvwParam().Length(), 1.0));
}

} // namespace examples
