#include "normals/Options.h"

#include "common/TextFile.h"

#include <cmath>

namespace examples {

char const* const normalsUsage =
    "usage: normals (CLOUD.ply [--restore] | --synthetic COUNT) [--neighbours COUNT] [--progress]\n"
    "               [--cloud NORMALS.ply] [--picture PICTURE.svg]\n";

namespace {

bool ReadCount(std::string const& text, double least, double greatest, std::size_t& count)
{
    double number = 0.0;
    if (!ParseNumber(text, number) || !(number >= least && number <= greatest)
        || number != std::floor(number))
        return false;
    count = static_cast<std::size_t>(number);
    return true;
}

} // namespace

bool ReadOptions(std::vector<std::string> const& arguments, Options& options)
{
    std::string scanPath;
    std::size_t surfaceCount = 0;
    bool restores = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string const& argument = arguments[i];
        bool const hasValue = i + 1 < arguments.size();
        if (argument == "--restore")
            restores = true;
        else if (argument == "--progress")
            options.showsProgress = true;
        else if (argument == "--synthetic" && hasValue
                 && ReadCount(arguments[i + 1], 3.0, 4294967295.0, surfaceCount))
            ++i;
        else if (argument == "--neighbours" && hasValue
                 && ReadCount(arguments[i + 1], 3.0, 1000.0, options.neighbourCount))
            ++i;
        else if (argument == "--cloud" && hasValue)
            options.cloudPath = arguments[++i];
        else if (argument == "--picture" && hasValue)
            options.picturePath = arguments[++i];
        else if (argument.rfind("--", 0) != 0 && scanPath.empty())
            scanPath = argument;
        else
            return false;
    }
    if (scanPath.empty() == (surfaceCount == 0) || (restores && scanPath.empty()))
        return false;
    options.scan = surfaceCount > 0 ? Scan::OfSurface(surfaceCount) : Scan::OfFile(scanPath, restores);
    return true;
}

} // namespace examples
