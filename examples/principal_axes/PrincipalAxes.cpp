#include "principal_axes/PrincipalAxes.h"

#include "common/Finite.h"
#include "common/InputError.h"

#include <vexor/dynamic/MatDbl.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace examples {

namespace {

/// The points as displacements from their centroid, one a row.
MatDbl CentredRows(std::vector<CloudPoint> const& cloud)
{
    Pnt3Dbl const centroid = Centroid(cloud);
    MatDbl rows(static_cast<int>(cloud.size()), 3);
    for (int i = 0; i < rows.RowCount(); ++i) {
        Vec3Dbl const offset = cloud[static_cast<std::size_t>(i)].place - centroid;
        for (int j = 0; j < 3; ++j)
            rows(i, j) = offset[j];
    }
    RequireFinite("the points about their centroid", rows);
    return rows;
}

} // namespace

// Summed as displacements from the first point, so that a cloud far from the origin loses no digits.
Pnt3Dbl Centroid(std::vector<CloudPoint> const& cloud)
{
    Pnt3Dbl const first = cloud.front().place;
    Vec3Dbl sum(0.0);
    for (CloudPoint const& point : cloud)
        sum += point.place - first;
    return first + sum / static_cast<double>(cloud.size());
}

PrincipalAxes FindPrincipalAxes(std::vector<CloudPoint> const& cloud)
{
    MatDbl const rows = CentredRows(cloud);
    MatDbl covariance = rows.GetTransposedCopy() * rows / static_cast<double>(cloud.size() - 1);
    RequireFinite("the covariance", covariance);
    VecDbl ascending;
    covariance.EigenSym(ascending, 1, 0, 2); // the eigenvectors replace the matrix, in its rows

    Vec3Dbl const longest(covariance.GetRow(2));
    Vec3Dbl const middle(covariance.GetRow(1));
    return {Centroid(cloud), Vec3Dbl(ascending[2], ascending[1], ascending[0]),
            Mat3Dbl(longest, middle, longest.Cross(middle))};
}

BestPlane FindBestPlane(std::vector<CloudPoint> const& cloud)
{
    if (cloud.size() < 3)
        throw InputError("a plane needs at least three points, found " + std::to_string(cloud.size()));
    MatDbl rows = CentredRows(cloud);
    VecDbl values;
    rows.Svd(values); // the right singular vectors replace the first rows

    double const rounding = std::numeric_limits<double>::epsilon() * static_cast<double>(cloud.size());
    if (values[1] <= rounding * values[0])
        throw InputError("the points lie on a line: every plane through it fits");
    RequireFinite("the singular values of the points", Vec3Dbl(values));
    double const rmsDistance = values[2] / std::sqrt(static_cast<double>(cloud.size()));
    return {Vec3Dbl(rows.GetRow(2)), rmsDistance, Vec3Dbl(values)};
}

Agreement Compare(PrincipalAxes const& axes, BestPlane const& plane, std::size_t pointCount)
{
    // The sine, unlike the cosine, distinguishes small angles.
    double const sine = axes.axes.GetRow(2).Cross(plane.normal).Length();
    Vec3Dbl const variances =
        plane.singularValues.ElemMult(plane.singularValues) / static_cast<double>(pointCount - 1);
    RequireFinite("the variances", variances);
    double const difference = std::fabs((variances - axes.variances).MaxAbsValue());
    return {std::asin(std::min(sine, 1.0)), difference / axes.variances.x};
}

} // namespace examples
