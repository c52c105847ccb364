#include "normals/Neighbours.h"

#include <nanoflann.hpp>

#include <limits>

namespace examples {

namespace {

/// The points as nanoflann asks for them.
struct Places {
    std::vector<Pnt3Dbl> const& points;

    std::size_t kdtree_get_point_count() const { return points.size(); }
    double kdtree_get_pt(std::size_t index, std::size_t axis) const
    {
        return points[index][static_cast<int>(axis)];
    }
    template <class Box>
    bool kdtree_get_bbox(Box&) const
    {
        return false;
    }
};

/// The nearest points found so far, in ascending order of distance and index.
class Nearest {
public:
    Nearest(std::vector<std::uint32_t>& indexRoom, std::vector<double>& distanceRoom)
        : indices(indexRoom), distances(distanceRoom), wanted(indexRoom.size())
    {}

    std::size_t size() const { return found; }
    bool full() const { return found == wanted; }

    /// The tree passes over what is farther than this. It takes `<` and `<=` by turns and rounds the distance of a
    /// cell, so the true limit is widened by more than the rounding: points at the same distance are then compared
    /// by index.
    double worstDist() const
    {
        if (!full())
            return std::numeric_limits<double>::max();
        return distances.back() * (1.0 + 1e-9) + std::numeric_limits<double>::min();
    }

    bool addPoint(double distance, std::uint32_t index)
    {
        std::size_t i = found;
        for (; i > 0 && IsBefore(distance, index, i - 1); --i) {
            if (i < wanted) {
                distances[i] = distances[i - 1];
                indices[i] = indices[i - 1];
            }
        }
        if (i < wanted) {
            distances[i] = distance;
            indices[i] = index;
        }
        if (found < wanted)
            ++found;
        return true;
    }

private:
    bool IsBefore(double distance, std::uint32_t index, std::size_t other) const
    {
        return distance < distances[other] || (distance == distances[other] && index < indices[other]);
    }

    std::vector<std::uint32_t>& indices;
    std::vector<double>& distances;
    std::size_t wanted;
    std::size_t found = 0;
};

} // namespace

struct Neighbours::Tree {
    using Index = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Places>, Places, 3,
                                                      std::uint32_t>;
    explicit Tree(std::vector<Pnt3Dbl> const& points) : places{points}, index(3, places, {}) {}

    Places places;
    Index index;
};

Neighbours::Neighbours(std::vector<Pnt3Dbl> const& points) : tree(std::make_unique<Tree>(points)) {}

Neighbours::~Neighbours() = default;

void Neighbours::Find(Pnt3Dbl const& place, std::vector<std::uint32_t>& indices,
                      std::vector<double>& distances) const
{
    Nearest nearest(indices, distances);
    tree->index.findNeighbors(nearest, &place.x, {});
}

} // namespace examples
