#pragma once
#include <vexor/points/Pnt3Dbl.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace examples {

/// The nearest neighbours of points, by nanoflann's k-d tree. Of two equally far points the one that comes first is
/// nearer, so that the neighbours depend on the points and not on the tree.
class Neighbours {
public:
    /// Keeps a reference to the points.
    explicit Neighbours(std::vector<Pnt3Dbl> const& points);
    ~Neighbours();

    /// Finds as many points nearest to a place as there is room for, the nearest first: their indices and squared
    /// distances. There must be as many points.
    void Find(Pnt3Dbl const& place, std::vector<std::uint32_t>& indices,
              std::vector<double>& distances) const;

private:
    struct Tree;
    std::unique_ptr<Tree> tree;
};

} // namespace examples
