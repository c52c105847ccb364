// The parsers of the examples, and what the programs compute of what they have read. A file is refused with a message,
// or its results are finite.
//
// Built with clang's libFuzzer, or with Replay.cpp, which runs the committed corpus without it. The first byte chooses
// the program, from '0' on; the others are its file.

#include "common/Finite.h"
#include "common/InputError.h"
#include "common/Text.h"
#include "principal_axes/PrincipalAxes.h"
#include "regression/Regression.h"
#include "superpose/Superposition.h"
#include "survey/DrawnMap.h"

#include <vexor/foundation/VexorException.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

#define REQUIRE(condition)                                                                                   \
    ((condition) ? static_cast<void>(0)                                                                      \
                 : (std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition), std::abort()))

/// A file of this process alone, removed at its end.
class Scratch {
public:
    Scratch() : path("examples_fuzzer_" + std::to_string(std::random_device()()) + ".txt") {}
    ~Scratch() { std::remove(path.c_str()); }
    Scratch(Scratch const&) = delete;
    Scratch& operator=(Scratch const&) = delete;

    std::string const& Filled(std::uint8_t const* data, std::size_t size) const
    {
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<char const*>(data), static_cast<std::streamsize>(size));
        file.close();
        REQUIRE(file);
        return path;
    }

private:
    std::string path;
};

bool IsFinite(Vec3Dbl const& v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

bool IsText(std::string const& text)
{
    for (std::size_t i = 0; i < text.size();) {
        std::size_t const length = examples::CharacterLength(text, i);
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}

void RunPointCloud(std::string const& path)
{
    std::vector<examples::CloudPoint> const cloud = examples::ReadPointCloud(path);
    for (examples::CloudPoint const& point : cloud) {
        REQUIRE(IsFinite(point.place.Vector()));
        for (int const value : {point.colour.red, point.colour.green, point.colour.blue})
            REQUIRE(value >= 0 && value <= 255);
    }
    examples::BestPlane const plane = examples::FindBestPlane(cloud);
    examples::PrincipalAxes const axes = examples::FindPrincipalAxes(cloud);
    examples::Agreement const agreement = examples::Compare(axes, plane, cloud.size());
    REQUIRE(std::isfinite(agreement.normalAngle) && std::isfinite(agreement.relativeVariance));
    REQUIRE(IsFinite(axes.variances) && IsFinite(plane.normal) && std::isfinite(plane.rmsDistance));
}

void RunStructure(std::string const& path)
{
    std::vector<examples::Residue> const residues = examples::ReadStructure(path);
    for (examples::Residue const& residue : residues) {
        REQUIRE(IsFinite(residue.place.Vector()));
        REQUIRE(IsText(examples::EscapedForXml(residue.number)));
    }
    examples::PointPairs const pairs = examples::PairByNumber(residues, residues);
    examples::Correlation const correlation(pairs);
    REQUIRE(std::isfinite(examples::Rmsd(pairs, correlation.BySvd().motion)));
    REQUIRE(std::isfinite(correlation.ByQuaternion().predictedRmsd));
}

void RunSurvey(std::string const& path)
{
    examples::Survey const survey = examples::ReadSurvey(path);
    REQUIRE(IsText(survey.title));
    examples::Network const network = examples::Adjust(survey);
    for (examples::Station const& station : network.stations)
        REQUIRE(IsText(station.name) && IsFinite(station.adjusted.Vector()));
    for (examples::Closure const& closure : network.closures)
        REQUIRE(IsFinite(closure.misclosure) && std::isfinite(closure.loopLength));
}

void RunDrawnMap(std::string const& path)
{
    examples::DrawnMap const map = examples::ReadDrawnMap(path, "one");
    std::vector<examples::ControlPoint> controls;
    double place = 0.0;
    for (auto const& [name, grid] : map.stations) {
        REQUIRE(IsText(name));
        controls.push_back({name, Pnt2Dbl(place, place * place), grid});
        place += 1.0;
    }
    REQUIRE(std::isfinite(examples::FitToGrid(controls).rmsResidual));
}

void RunNistProblem(std::string const& path)
{
    examples::NistProblem const problem = examples::ReadNistProblem(path);
    examples::Fit const fit = examples::FitLeastSquares(problem);
    REQUIRE(std::isfinite(fit.residualDeviation));
    REQUIRE(std::isfinite(examples::Examine(problem, fit).condition));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Scratch const scratch;
    static constexpr void (*programs[])(std::string const&) = {RunPointCloud, RunStructure, RunSurvey,
                                                               RunDrawnMap, RunNistProblem};
    if (size == 0)
        return 0;
    try {
        programs[(data[0] - std::uint8_t{'0'}) % 5U](scratch.Filled(data + 1, size - 1));
    } catch (examples::InputError const& error) {
        REQUIRE(error.what()[0] != '\0');
        REQUIRE(IsText(examples::Printable(error.what())));
    } catch (examples::NotFiniteError const&) {
    } catch (VexorException const&) { // the programs have a message for each
    }
    return 0;
}
