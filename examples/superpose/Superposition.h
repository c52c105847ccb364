#pragma once
#include "superpose/Structure.h"

#include <vexor/matrices/AffMat3Dbl.h>
#include <vexor/rotations/Quaternion.h>

namespace examples {

/// The rotation and translation that bring the moving points as close to the fixed ones as possible, by
/// the sum of squared distances.
struct Superposition {
    Quaternion rotation; ///< With a scalar part of 0 or more: an angle from 0 to π.
    AffMat3Dbl motion;
    double predictedRmsd; ///< From the singular values or the eigenvalue, without moving a point.
};

/// The input of both methods: the centroids, and the correlation of the points about them.
class Correlation {
public:
    /// Raises InputError unless there are at least three pairs.
    explicit Correlation(PointPairs const& pairs);

    /// By the singular value decomposition of the 3×3 correlation matrix. Raises InputError if the
    /// points lie on a line: a turn about it would not change the fit.
    Superposition BySvd() const;

    /// By the quaternion that is the eigenvector of a symmetric 4×4 matrix to its largest eigenvalue.
    Superposition ByQuaternion() const;

    /// Whether the best orthogonal matrix of all would be a reflection: the moving points are more like
    /// a mirror image of the fixed ones. Both methods give the best true rotation nevertheless.
    bool IsMirrored() const;

private:
    Superposition Assemble(Quaternion const& rotation, Mat3Dbl const& matrix, double overlap) const;

    Pnt3Dbl fixedCentroid;
    Pnt3Dbl movingCentroid;
    Mat3Dbl matrix;       ///< The sum of (fixed − centroid) ⊗ (moving − centroid).
    double squares = 0.0; ///< The sum of all squared distances from the centroids.
    double count = 0.0;
};

/// The root mean square distance of the fixed points from the moved ones.
double Rmsd(PointPairs const& pairs, AffMat3Dbl const& motion);

/// The angle between two rotations from the sine of its half: unlike an arc cosine near 1, it resolves
/// angles down to rounding.
double SmallAngleBetween(Quaternion const& first, Quaternion const& second);

} // namespace examples
