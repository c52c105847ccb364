#include "normals/Run.h"

#include "common/InputError.h"
#include "common/OutputFile.h"
#include "common/Program.h"
#include "normals/Options.h"
#include "normals/Orientation.h"
#include "normals/Output.h"
#include "normals/Progress.h"
#include "normals/Report.h"
#include "normals/Share.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>

namespace examples {

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// What the first process collects: everything.
struct Cloud {
    std::vector<Pnt3Dbl> points;
    std::vector<Vec3Dbl> ownNormals; ///< Those of the scan.
    std::vector<Vec3Dbl> normals;
    std::vector<std::uint32_t> neighbours;
};

// ---- From the processes to the first ---------------------------------------------------------------------

constexpr std::size_t pieceSize = 65536; // points that are sent at once

void Place(Cloud& cloud, std::size_t neighbourCount, std::uint32_t const* numbers, Vec3Dbl const* normals,
           std::uint32_t const* neighbours, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        cloud.normals[numbers[i]] = normals[i];
        std::copy_n(neighbours + i * neighbourCount, neighbourCount,
                    cloud.neighbours.data() + numbers[i] * neighbourCount);
    }
}

void Send(Team& team, std::size_t neighbourCount, SlabNormals const& share)
{
    std::uint64_t const total = share.numbers.size();
    team.Send(&total, sizeof total);
    for (std::size_t begin = 0; begin < total; begin += pieceSize) {
        std::size_t const count = std::min<std::size_t>(pieceSize, total - begin);
        team.Send(share.numbers.data() + begin, count * sizeof(std::uint32_t));
        team.Send(share.normals.data() + begin, count * sizeof(Vec3Dbl));
        team.Send(share.neighbours.data() + begin * neighbourCount,
                  count * neighbourCount * sizeof(std::uint32_t));
    }
}

void Receive(Team& team, int rank, std::size_t neighbourCount, Cloud& cloud)
{
    std::uint64_t total = 0;
    team.Receive(rank, &total, sizeof total);
    std::vector<std::uint32_t> numbers(pieceSize);
    std::vector<Vec3Dbl> normals(pieceSize, Vec3Dbl(0.0));
    std::vector<std::uint32_t> neighbours(pieceSize * neighbourCount);
    for (std::size_t begin = 0; begin < total; begin += pieceSize) {
        std::size_t const count = std::min<std::size_t>(pieceSize, total - begin);
        team.Receive(rank, numbers.data(), count * sizeof(std::uint32_t));
        team.Receive(rank, normals.data(), count * sizeof(Vec3Dbl));
        team.Receive(rank, neighbours.data(), count * neighbourCount * sizeof(std::uint32_t));
        Place(cloud, neighbourCount, numbers.data(), normals.data(), neighbours.data(), count);
    }
}

// ---- The steps of the program ----------------------------------------------------------------------------

/// Reads the scan once. Only the first process keeps the points.
Overview Survey(Scan const& scan, bool keepsPoints, Cloud& cloud)
{
    Overview overview;
    scan.ForEach([&](ScanPoint const& point) {
        overview.Add(point.place);
        if (keepsPoints) {
            cloud.points.push_back(point.place);
            cloud.ownNormals.push_back(point.normal);
        }
    });
    return overview;
}

void Print(Comparison const& comparison)
{
    if (comparison.count == 0) {
        std::printf("The scan has no normals of its own.\n");
        return;
    }
    std::printf("Angles to the scan's own normals, without sign, at %zu points:\n"
                "  mean             %7.3f degrees\n"
                "  median           %7.3f degrees\n"
                "  90 %% are within  %7.3f degrees\n"
                "  99 %% are within  %7.3f degrees\n"
                "  up to 5 degrees  %7.2f %%\n"
                "  up to 10 degrees %7.2f %%\n",
                comparison.count, comparison.mean, comparison.median, comparison.within90Percent,
                comparison.within99Percent, 100.0 * comparison.shareBelow5, 100.0 * comparison.shareBelow10);
}

/// Orients the normals, writes everything and prints the report.
void Finish(Options const& options, Cloud& cloud, double seconds,
            std::unique_ptr<OutputFile> const& cloudFile, std::unique_ptr<OutputFile> const& pictureFile)
{
    std::vector<Vec3Dbl> const unoriented = cloud.normals;
    Comparison const before = Compare(unoriented, cloud.ownNormals);
    Clock::time_point const start = Clock::now();
    std::size_t const parts = Orient(cloud.points, cloud.ownNormals, cloud.neighbours, cloud.normals);
    double const orientingSeconds = SecondsSince(start);
    Comparison const after = Compare(cloud.normals, cloud.ownNormals);
    auto const without = static_cast<std::size_t>(std::count_if(
        unoriented.begin(), unoriented.end(), [](Vec3Dbl const& normal) { return normal.IsNull(); }));

    std::printf("%s: %zu points, %zu in a neighbourhood\n", options.scan.Name().c_str(), cloud.points.size(),
                options.neighbourCount);
    if (without > 0)
        std::printf("%zu points have no normal: their neighbours single out no plane.\n", without);
    Print(before);
    std::printf("Oriented over %zu connected part%s.\n", parts, parts == 1 ? "" : "s");
    if (after.count > 0)
        std::printf("On the side of the scan's own normals: %.2f %% before, %.2f %% after.\n",
                    100.0 * before.shareOfSameSide, 100.0 * after.shareOfSameSide);
    std::printf("Hash of the oriented normals: %016llx\n",
                static_cast<unsigned long long>(HashOf(cloud.normals)));
    std::printf("Speed: %.0f points/s for neighbours and normals, %.0f points/s for the orientation\n",
                static_cast<double>(cloud.points.size()) / seconds,
                static_cast<double>(cloud.points.size()) / orientingSeconds);

    if (pictureFile)
        DrawNormals(options.scan.Name(), cloud.points, unoriented, cloud.normals)
            .Write(pictureFile->Stream());
    if (cloudFile)
        WriteCloud(cloudFile->Stream(), cloud.points, cloud.normals);
    for (std::unique_ptr<OutputFile> const& file : {std::cref(cloudFile), std::cref(pictureFile)}) {
        if (!file)
            continue;
        file->Finish();
        std::printf("Wrote %s\n", file->Path().c_str());
    }
}

} // namespace

int RunNormals(std::vector<std::string> const& arguments, Team& team)
{
    Options options;
    if (!ReadOptions(arguments, options)) {
        if (team.IsFirst())
            std::fputs(normalsUsage, stderr);
        return badUsage;
    }
    Cloud cloud;
    SlabNormals share;
    std::unique_ptr<OutputFile> cloudFile;
    std::unique_ptr<OutputFile> pictureFile;
    Clock::time_point start;
    std::exception_ptr failure;
    try {
        Overview const overview = Survey(options.scan, team.IsFirst(), cloud);
        overview.Check(options.scan.Name(), options.neighbourCount);
        if (team.IsFirst()) { // everything that can fail, before the long work
            if (!options.cloudPath.empty())
                cloudFile = std::make_unique<OutputFile>(options.cloudPath);
            if (!options.picturePath.empty())
                pictureFile = std::make_unique<OutputFile>(options.picturePath);
            cloud.normals.resize(cloud.points.size(), Vec3Dbl(0.0));
            cloud.neighbours.resize(cloud.points.size() * options.neighbourCount);
        }
        start = Clock::now();
        share = ComputeShare(options.scan, overview, team.Rank(), team.Size(), options.neighbourCount,
                             team.IsFirst() && (options.showsProgress || Progress::IsTerminal()));
    } catch (...) {
        failure = std::current_exception();
    }
    int const failing = team.FirstFailing(failure != nullptr);
    if (failing == team.Rank())
        std::rethrow_exception(failure);
    if (failing >= 0)
        return badInput;

    if (!team.IsFirst()) {
        Send(team, options.neighbourCount, share);
        return succeeded;
    }
    Place(cloud, options.neighbourCount, share.numbers.data(), share.normals.data(), share.neighbours.data(),
          share.numbers.size());
    share = SlabNormals();
    for (int rank = 1; rank < team.Size(); ++rank)
        Receive(team, rank, options.neighbourCount, cloud);
    Finish(options, cloud, SecondsSince(start), cloudFile, pictureFile);
    return succeeded;
}

} // namespace examples
