#include "normals/Orientation.h"

#include <vexor/arrays/Arrays.h>

#include <algorithm>
#include <cmath>

namespace examples {

namespace {

/// An edge between two points, by how parallel their normals are.
struct Edge {
    double cosine = -1.0; // without sign; −1 for no edge
    std::uint32_t low = 0, high = 0;

    bool IsBetterThan(Edge const& other) const
    {
        if (cosine != other.cosine)
            return cosine > other.cosine;
        return low != other.low ? low < other.low : high < other.high;
    }
};

/// Sets of points that are joined one by one, each point with the sign of its normal in relation to its root's.
class Parts {
public:
    explicit Parts(std::size_t count) : parents(count), opposed(count, 0)
    {
        for (std::size_t i = 0; i < count; ++i)
            parents[i] = static_cast<std::uint32_t>(i);
    }

    /// Makes the root the parent of a point and of all on the way.
    std::uint32_t Root(std::uint32_t point)
    {
        std::uint32_t root = point;
        unsigned char sign = 0;
        for (; parents[root] != root; root = parents[root])
            sign ^= opposed[root];
        while (parents[point] != root && point != root) {
            unsigned char const own = opposed[point];
            std::uint32_t const next = parents[point];
            parents[point] = root;
            opposed[point] = sign;
            sign ^= own;
            point = next;
        }
        return root;
    }

    /// Whether the point's normal is to have the sign opposite to its root's. After Root.
    bool IsOpposed(std::uint32_t point) const { return opposed[point] != 0; }

    /// Joins the parts of two points. False if they are one already.
    bool Join(std::uint32_t first, std::uint32_t second, bool areOpposed)
    {
        std::uint32_t const left = Root(first);
        std::uint32_t const right = Root(second);
        if (left == right)
            return false;
        parents[right] = left;
        opposed[right] = static_cast<unsigned char>(areOpposed ^ IsOpposed(first) ^ IsOpposed(second));
        return true;
    }

private:
    std::vector<std::uint32_t> parents;
    std::vector<unsigned char> opposed;
};

/// One round of Borůvka's algorithm: each part is joined to another by the best edge that leaves it. False if no edge
/// leaves any part.
bool JoinParts(Parts& parts, std::vector<std::uint32_t> const& neighbours,
               std::vector<Vec3Dbl> const& normals)
{
    std::size_t const count = normals.size();
    std::size_t const each = neighbours.size() / count;
    std::vector<std::uint32_t> roots(count);
    for (std::size_t i = 0; i < count; ++i)
        roots[i] = parts.Root(static_cast<std::uint32_t>(i));

    std::vector<Edge> best(count);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = i * each; k < (i + 1) * each; ++k) {
            std::uint32_t const j = neighbours[k];
            if (roots[i] == roots[j])
                continue;
            auto const own = static_cast<std::uint32_t>(i);
            Edge const edge{std::fabs(normals[i].Dot(normals[j])), std::min(own, j), std::max(own, j)};
            for (std::uint32_t const root : {roots[i], roots[j]})
                if (edge.IsBetterThan(best[root]))
                    best[root] = edge;
        }
    }

    bool hasJoined = false;
    for (Edge const& edge : best)
        if (edge.cosine >= 0.0
            && parts.Join(edge.low, edge.high, normals[edge.low].Dot(normals[edge.high]) < 0.0))
            hasJoined = true;
    return hasJoined;
}

/// What tells the side of a part.
struct Side {
    std::int64_t votes = 0; // of the given normals, for the sign of the root's normal
    std::uint32_t farthest = 0;
    double distance = -1.0; // squared, of the farthest point from the middle
};

} // namespace

std::size_t Orient(std::vector<Pnt3Dbl> const& points, std::vector<Vec3Dbl> const& given,
                   std::vector<std::uint32_t> const& neighbours, std::vector<Vec3Dbl>& normals)
{
    auto const count = static_cast<std::uint32_t>(points.size());
    Parts parts(count);
    while (JoinParts(parts, neighbours, normals)) {
    }

    Pnt3Dbl const middle = vexor::arrays::Centroid(points);
    std::vector<double> distances(count);
    vexor::arrays::DistanceSqTo(points, middle, distances);
    std::vector<Side> sides(count); // of the roots
    for (std::uint32_t i = 0; i < count; ++i) {
        Side& side = sides[parts.Root(i)];
        double const cosine = normals[i].Dot(given[i]);
        if (cosine != 0.0)
            side.votes += (cosine > 0.0) != parts.IsOpposed(i) ? 1 : -1;
        if (distances[i] > side.distance) {
            side.distance = distances[i];
            side.farthest = i;
        }
    }

    std::size_t partCount = 0;
    std::vector<unsigned char> turns(count, 0); // whether the root's normal changes its sign
    for (std::uint32_t root = 0; root < count; ++root) {
        if (parts.Root(root) != root)
            continue;
        ++partCount;
        Side const& side = sides[root];
        std::uint32_t const outermost = side.farthest;
        bool const isInward = normals[outermost].Dot(points[outermost] - middle) < 0.0;
        turns[root] = side.votes != 0 ? side.votes < 0 : isInward != parts.IsOpposed(outermost);
    }
    for (std::uint32_t i = 0; i < count; ++i)
        if ((turns[parts.Root(i)] != 0) != parts.IsOpposed(i))
            normals[i] = -normals[i];
    return partCount;
}

} // namespace examples
