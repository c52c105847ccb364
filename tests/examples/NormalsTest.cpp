#include "examples/Files.h"

#include "common/InputError.h"
#include "normals/LineEnds.h"
#include "normals/Neighbours.h"
#include "normals/Normals.h"
#include "normals/Options.h"
#include "normals/Orientation.h"
#include "normals/Report.h"
#include "normals/Share.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

namespace {

using examples::Scan;

/// Integer coordinates: many distances are equal and many points coincide.
std::vector<Pnt3Dbl> LatticePoints(std::size_t count, int side)
{
    std::mt19937 engine(1);
    std::vector<Pnt3Dbl> points;
    for (std::size_t i = 0; i < count; ++i) {
        auto const next = [&] { return double(engine() % unsigned(side)); };
        double const x = next();
        double const y = next();
        points.emplace_back(x, y, next());
    }
    return points;
}

// ---- Neighbours ----------------------------------------------------------------------------------------------

TEST(Neighbours, AreThoseOfASortWithTiesInTheOrderOfTheCloud)
{
    for (int side : {1, 3, 8, 100}) {
        auto const points = LatticePoints(300, side);
        examples::Neighbours const tree(points);
        std::vector<std::uint32_t> indices(12);
        std::vector<double> distances(12);
        for (Pnt3Dbl const& place : points) {
            std::vector<std::pair<double, std::uint32_t>> sorted;
            for (std::uint32_t i = 0; i < points.size(); ++i)
                sorted.emplace_back((points[i] - place).LengthSquared(), i);
            std::sort(sorted.begin(), sorted.end());
            tree.Find(place, indices, distances);
            for (std::size_t k = 0; k < indices.size(); ++k) {
                ASSERT_EQ(indices[k], sorted[k].second);
                ASSERT_EQ(distances[k], sorted[k].first);
            }
        }
    }
}

// ---- Normals ---------------------------------------------------------------------------------------------------

/// The normals of all shares, in the order of the cloud.
std::vector<Vec3Dbl> NormalsOf(Scan const& scan, int size, std::vector<std::uint32_t>* neighbours = nullptr)
{
    examples::Overview overview;
    scan.ForEach([&](examples::ScanPoint const& point) { overview.Add(point.place); });
    std::vector<Vec3Dbl> normals(overview.Count(), Vec3Dbl(0.0));
    std::vector<int> times(overview.Count());
    if (neighbours)
        neighbours->resize(12 * overview.Count());
    for (int rank = 0; rank < size; ++rank) {
        auto const share = examples::ComputeShare(scan, overview, rank, size, 12, false);
        for (std::size_t i = 0; i < share.numbers.size(); ++i) {
            normals[share.numbers[i]] = share.normals[i];
            ++times[share.numbers[i]];
            if (neighbours)
                std::copy_n(share.neighbours.begin() + std::ptrdiff_t(12 * i), 12,
                            neighbours->begin() + std::ptrdiff_t(12 * share.numbers[i]));
        }
    }
    EXPECT_EQ(std::count(times.begin(), times.end(), 1), std::ptrdiff_t(times.size())) << "each point once";
    return normals;
}

TEST(Normals, HaveTheSameBitsForAnyNumberOfShares)
{
    Scan const pond = Scan::OfFile(DataFile("pond/pond-part.ply"), false);
    auto const whole = NormalsOf(pond, 1);
    for (int size : {2, 5, 40})
        EXPECT_EQ(examples::HashOf(NormalsOf(pond, size)), examples::HashOf(whole)) << size;
}

// Every point in one of two places far apart: the margin of a share must grow across the gap.
TEST(Normals, WidenTheMarginAsFarAsNeeded)
{
    std::string text = "ply\nformat ascii 1.0\nelement vertex 24\nproperty float x\nproperty float y\n"
                       "property float z\nend_header\n";
    for (int i = 0; i < 24; ++i)
        text += std::to_string(i < 6 ? 0 : 1000) + " " + std::to_string(i * i % 7) + " "
                + std::to_string(i % 5) + "\n";
    ScratchFile const file(text, ".ply");
    Scan const scan = Scan::OfFile(file.Path(), false);
    EXPECT_EQ(examples::HashOf(NormalsOf(scan, 4)), examples::HashOf(NormalsOf(scan, 1)));
}

TEST(Normals, OfAPlaneAreItsNormal)
{
    std::mt19937 engine(2);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    examples::Slab slab{2, -9.0, 9.0, -1e9, 1e9, {}, {}};
    Vec3Dbl const normal(2.0 / 3.0, -1.0 / 3.0, 2.0 / 3.0); // along it: (1, 2, 0) and (0, 2, 1)
    for (std::uint32_t i = 0; i < 200; ++i) {
        slab.points.push_back(Pnt3Dbl(5, 6, 7) + Vec3Dbl(1, 2, 0) * coordinate(engine)
                              + Vec3Dbl(0, 2, 1) * coordinate(engine));
        slab.numbers.push_back(i);
    }
    examples::SlabNormals results;
    ASSERT_TRUE(examples::ComputeNormals(slab, 10, results, [](std::size_t) {}));
    // The closed solution of the eigenproblem keeps half of the digits of a variance of 0.
    for (Vec3Dbl const& computed : results.normals)
        EXPECT_LT(computed.Cross(normal).Length(), 1e-6);
}

// A cube's corners vary equally in all directions, points of a line in one only.
TEST(Normals, AreNullWhereTheNeighboursSingleOutNoPlane)
{
    std::vector<Pnt3Dbl> cube;
    std::vector<Pnt3Dbl> line;
    for (int i = 0; i < 8; ++i) {
        cube.emplace_back(i & 1, i >> 1 & 1, i >> 2);
        line.push_back(Pnt3Dbl(0.1, 0.2, 0.3) + Vec3Dbl(0.7, -1.1, 0.3) * double(i * i));
    }
    for (auto const& points : {cube, line}) {
        examples::Slab slab{0, -1e9, 1e9, -1e300, 1e300, points, {0, 1, 2, 3, 4, 5, 6, 7}};
        examples::SlabNormals results;
        ASSERT_TRUE(examples::ComputeNormals(slab, 8, results, [](std::size_t) {}));
        for (Vec3Dbl const& normal : results.normals)
            EXPECT_TRUE(normal.IsNull());
    }
}

// ---- Orientation -------------------------------------------------------------------------------------------------

// A sphere's normals of random sign all point outward afterwards: no other normals tell the side.
TEST(Orientation, TurnsTheNormalsOfASphereOutward)
{
    std::mt19937 engine(3);
    std::normal_distribution<double> coordinate;
    std::vector<Pnt3Dbl> points;
    std::vector<Vec3Dbl> normals;
    for (int i = 0; i < 500; ++i) {
        Vec3Dbl const direction =
            Vec3Dbl(coordinate(engine), coordinate(engine), coordinate(engine)).GetNormalizedCopy();
        points.push_back(Pnt3Dbl(1, 2, 3) + direction);
        normals.push_back(engine() % 2 ? direction : -direction);
    }
    examples::Neighbours const tree(points);
    std::vector<std::uint32_t> neighbours;
    std::vector<std::uint32_t> nearest(10);
    std::vector<double> distances(10);
    for (Pnt3Dbl const& point : points) {
        tree.Find(point, nearest, distances);
        neighbours.insert(neighbours.end(), nearest.begin(), nearest.end());
    }
    std::vector<Vec3Dbl> none(points.size(), Vec3Dbl(0.0));
    EXPECT_EQ(examples::Orient(points, none, neighbours, normals), 1U);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_GT(normals[i].Dot(points[i] - Pnt3Dbl(1, 2, 3)), 0.0);

    // Given normals that point inward decide otherwise, even if some of them err.
    for (std::size_t i = 0; i < points.size(); ++i)
        none[i] = (Pnt3Dbl(1, 2, 3) - points[i]) * (i % 5 == 0 ? -1.0 : 1.0);
    examples::Orient(points, none, neighbours, normals);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_LT(normals[i].Dot(points[i] - Pnt3Dbl(1, 2, 3)), 0.0);
}

// Three points on a bend: the sign is carried over the two nearly parallel pairs, not over the pair at 120 degrees.
TEST(Orientation, FollowsTheMostParallelNormals)
{
    double const half = 0.5;
    double const high = std::sqrt(0.75);
    std::vector<Pnt3Dbl> const points = {Pnt3Dbl(-1, 0, 0), Pnt3Dbl(0, 1, 0), Pnt3Dbl(1, 0, 0)};
    std::vector<Vec3Dbl> normals = {Vec3Dbl(-high, half, 0), Vec3Dbl(0, -1, 0), Vec3Dbl(-high, -half, 0)};
    std::vector<Vec3Dbl> const given = {Vec3Dbl(0.0), Vec3Dbl(0, 1, 0), Vec3Dbl(0.0)};
    examples::Orient(points, given, {1, 2, 0, 2, 0, 1}, normals);
    EXPECT_TRUE(normals[0] == Vec3Dbl(-high, half, 0));
    EXPECT_TRUE(normals[1] == Vec3Dbl(0, 1, 0));
    EXPECT_TRUE(normals[2] == Vec3Dbl(high, half, 0));
}

// ---- Report --------------------------------------------------------------------------------------------------

TEST(Report, MeasuresAnglesWithoutSign)
{
    double const pi = 3.141592653589793;
    std::vector<Vec3Dbl> normals;
    std::vector<Vec3Dbl> own;
    for (int i = 0; i <= 100; ++i) { // 0, 0.3, ... 30 degrees, every fourth on the other side
        double const angle = 0.3 * i * pi / 180.0;
        normals.push_back(Vec3Dbl(std::cos(angle), std::sin(angle), 0) * (i % 4 == 3 ? -1.0 : 1.0));
        own.emplace_back(2, 0, 0);
    }
    normals.emplace_back(0.0);
    own.emplace_back(0, 0, 1);
    auto const comparison = examples::Compare(normals, own);
    EXPECT_EQ(comparison.count, 101U);
    EXPECT_NEAR(comparison.mean, 15.0, 1e-12);
    EXPECT_NEAR(comparison.median, 15.0, 1e-12);
    EXPECT_NEAR(comparison.within90Percent, 27.0, 1e-12);
    EXPECT_NEAR(comparison.within99Percent, 29.7, 1e-12);
    EXPECT_NEAR(comparison.shareBelow5, 17.0 / 101.0, 1e-15);
    EXPECT_NEAR(comparison.shareOfSameSide, 76.0 / 101.0, 1e-15);
}

// By the definition of Fowler, Noll and Vo, computed in another language.
TEST(Report, HashesTheBits)
{
    EXPECT_EQ(examples::HashOf({}), 0xcbf29ce484222325U);
    EXPECT_EQ(examples::HashOf({Vec3Dbl(1.0, -2.0, 0.1)}), 0xa98278d64b775845U);
}

// ---- Restoring line ends -----------------------------------------------------------------------------------------

std::string FloatBytes(std::vector<float> const& numbers)
{
    std::string bytes(numbers.size() * sizeof(float), '\0');
    std::memcpy(bytes.data(), numbers.data(), bytes.size());
    return bytes;
}

TEST(LineEnds, AreRestored)
{
    std::string const header = "ply\nformat binary_little_endian 1.0\nelement vertex 2000\nproperty float x\n"
                               "property float y\nproperty float z\nproperty float nx\nproperty float ny\n"
                               "property float nz\nend_header\n";
    std::mt19937 engine(4);
    std::normal_distribution<float> coordinate;
    std::string intact = header;
    int lost = 0;
    for (int i = 0; i < 2000; ++i) {
        float const y = coordinate(engine);
        std::vector<float> numbers = {
            coordinate(engine), coordinate(engine), coordinate(engine), 0.6F, y > 0 ? 0.8F : -0.8F, 0.0F};
        if (i % 50 == 7) { // the bytes 13, 10 in the middle of a number
            std::memcpy(reinterpret_cast<char*>(&numbers[std::size_t(i) % 3]) + 1, "\r\n", 2);
            ++lost;
        }
        intact += FloatBytes(numbers);
    }
    std::string damaged;
    for (char byte : intact) {
        if (byte == '\n')
            while (!damaged.empty() && damaged.back() == '\r')
                damaged.pop_back();
        damaged += byte;
    }
    ASSERT_GE(intact.size() - damaged.size(), std::size_t(lost));
    EXPECT_EQ(examples::RestoreLineEnds(damaged, "file"), intact);
    EXPECT_EQ(examples::RestoreLineEnds(intact, "file"), intact);
    EXPECT_THROW(examples::RestoreLineEnds(intact.substr(0, intact.size() - 1), "file"),
                 examples::InputError);
}

} // namespace
