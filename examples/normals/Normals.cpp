#include "normals/Normals.h"

#include "common/Finite.h"
#include "normals/Neighbours.h"

#include <vexor/arrays/Arrays.h>

#include <cmath>

namespace examples {

namespace {

/// At or below this ratio of the middle variance to the largest the points lie on a line: the closed solution of the
/// eigenproblem gives close values to half of the digits.
constexpr double flat = 1e-7;

/// Whether all points within this squared distance of a point are in the slab or its margin. Rounding keeps the order
/// of numbers, so the comparison holds for the rounded squares as for the true ones.
bool IsWithinMargin(Slab const& slab, Pnt3Dbl const& point, double distanceSquared)
{
    double const before = point[slab.axis] - slab.marginBegin;
    double const behind = slab.marginEnd - point[slab.axis];
    return distanceSquared < before * before && distanceSquared < behind * behind;
}

/// The normals of a block of points from the covariances of their neighbours.
class Block {
public:
    void Add(Mat3Dbl const& covariance) { covariances.push_back(covariance); }
    std::size_t Size() const { return covariances.size(); }

    void AppendNormals(std::vector<Vec3Dbl>& normals)
    {
        variances.assign(covariances.size(), Vec3Dbl(0.0));
        vectors.assign(covariances.size(), Mat3Dbl(0.0));
        try {
            vexor::arrays::EigenSym(covariances, variances, vectors);
        } catch (VexorComputationFailed const&) {
            SolveOneByOne();
        }
        for (std::size_t i = 0; i < covariances.size(); ++i) {
            Vec3Dbl const& ascending = variances[i];
            normals.push_back(ascending.y > flat * ascending.z ? vectors[i].GetRow(0) : Vec3Dbl(0.0));
        }
        covariances.clear();
    }

private:
    /// Three equal variances, as of points in one place, are an exception: such a point has no normal.
    void SolveOneByOne()
    {
        for (std::size_t i = 0; i < covariances.size(); ++i) {
            vectors[i] = covariances[i];
            try {
                vectors[i].EigenSym(variances[i], 1);
            } catch (VexorComputationFailed const&) {
                variances[i] = Vec3Dbl(0.0);
            }
        }
    }

    std::vector<Mat3Dbl> covariances;
    std::vector<Mat3Dbl> vectors; // in rows
    std::vector<Vec3Dbl> variances;
};

} // namespace

bool ComputeNormals(Slab const& slab, std::size_t neighbourCount, SlabNormals& results,
                    ProgressSink const& progress)
{
    results = SlabNormals();
    results.numbers.reserve(slab.points.size());
    results.normals.reserve(slab.points.size());
    results.neighbours.reserve(slab.points.size() * neighbourCount);
    Neighbours const tree(slab.points);
    std::vector<std::uint32_t> nearest(neighbourCount);
    std::vector<double> distances(neighbourCount);
    std::vector<Pnt3Dbl> places(neighbourCount, Pnt3Dbl(0.0));
    Block block;
    for (std::size_t i = 0; i < slab.points.size(); ++i) {
        Pnt3Dbl const& point = slab.points[i];
        if (!slab.IsOwn(point))
            continue;
        if (slab.points.size() < neighbourCount)
            return false;
        tree.Find(point, nearest, distances);
        if (!IsWithinMargin(slab, point, distances.back()))
            return false;
        for (std::size_t k = 0; k < neighbourCount; ++k) {
            places[k] = slab.points[nearest[k]];
            results.neighbours.push_back(slab.numbers[nearest[k]]);
        }
        Mat3Dbl const covariance = vexor::arrays::Covariance(places);
        for (int row = 0; row < 3; ++row)
            RequireFinite("the covariance of a point's neighbours",
                          covariance.GetRow(static_cast<unsigned>(row)));
        block.Add(covariance);
        results.numbers.push_back(slab.numbers[i]);
        if (block.Size() == vexor::arrays::blockSize) {
            block.AppendNormals(results.normals);
            progress(results.normals.size());
        }
    }
    block.AppendNormals(results.normals);
    progress(results.normals.size());
    return true;
}

} // namespace examples
