#pragma once
#include "principal_axes/PointCloud.h"

#include <vexor/matrices/Mat3Dbl.h>

namespace examples {

/// The position and the shape of a cloud: its centroid, and the directions in which it extends.
struct PrincipalAxes {
    Pnt3Dbl centroid;
    Vec3Dbl variances; ///< Along the axes, the largest first.
    Mat3Dbl axes;      ///< Unit vectors in the rows: a right-handed set.
};

/// A plane through the centroid.
struct BestPlane {
    Vec3Dbl normal;         ///< A unit vector.
    double rmsDistance;     ///< Of the points from the plane.
    Vec3Dbl singularValues; ///< Of the matrix of the points about their centroid, descending.
};

/// How much the two methods differ.
struct Agreement {
    double normalAngle;      ///< In radians, between the third axis and the normal.
    double relativeVariance; ///< The largest difference of variances, by the largest variance.
};

Pnt3Dbl Centroid(std::vector<CloudPoint> const& cloud);

/// From the eigenvalues and eigenvectors of the covariance matrix. At least two points.
PrincipalAxes FindPrincipalAxes(std::vector<CloudPoint> const& cloud);

/// The plane with the smallest sum of squared distances, from the singular value decomposition of the
/// points about their centroid, without a covariance matrix. Raises InputError for fewer than three points
/// and if the points lie on a line.
BestPlane FindBestPlane(std::vector<CloudPoint> const& cloud);

Agreement Compare(PrincipalAxes const& axes, BestPlane const& plane, std::size_t pointCount);

} // namespace examples
