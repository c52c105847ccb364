#include "superpose/Structure.h"

#include "common/InputError.h"
#include "common/InputFile.h"
#include "common/TextFile.h"

#include <map>
#include <set>

namespace examples {

namespace {

std::string Trimmed(std::string const& text)
{
    auto const first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The columns of a record, counted from 1 as the format does; blank where the line is too short.
std::string Columns(std::string const& line, std::size_t first, std::size_t last)
{
    return line.size() < first ? "" : Trimmed(line.substr(first - 1, last - first + 1));
}

} // namespace

std::vector<Residue> ReadStructure(std::string const& path)
{
    std::istringstream stream = ReadInputFile(path);
    std::vector<Residue> residues;
    std::set<std::string> seen;
    int lineNumber = 0;
    for (std::string line; std::getline(stream, line);) {
        ++lineNumber;
        if (Columns(line, 1, 6) == "ENDMDL")
            break; // only the first model
        if (Columns(line, 1, 6) != "ATOM" || Columns(line, 13, 16) != "CA")
            continue;
        double coordinates[3];
        for (std::size_t axis = 0; axis < 3; ++axis) {
            std::string const field = Columns(line, 31 + 8 * axis, 38 + 8 * axis);
            if (!ParseNumber(field, coordinates[axis]))
                throw InputError(path, lineNumber,
                                 "columns " + std::to_string(31 + 8 * axis) + " to "
                                     + std::to_string(38 + 8 * axis) + ": '" + field
                                     + "' is not a coordinate");
        }
        std::string const number = Columns(line, 23, 27);
        if (number.empty())
            throw InputError(path, lineNumber, "columns 23 to 27: the residue has no number");
        if (seen.insert(Columns(line, 22, 27)).second)
            residues.push_back({number, Columns(line, 18, 20), Pnt3Dbl(coordinates)});
    }
    if (residues.empty())
        throw InputError(path + ": holds no C-alpha atom");
    return residues;
}

PointPairs PairByNumber(std::vector<Residue> const& fixed, std::vector<Residue> const& moving)
{
    std::map<std::string, Pnt3Dbl> places;
    for (Residue const& residue : moving)
        places.emplace(residue.number, residue.place);

    PointPairs pairs;
    for (Residue const& residue : fixed) {
        auto const partner = places.find(residue.number);
        if (partner == places.end())
            continue;
        pairs.numbers.push_back(residue.number);
        pairs.fixed.push_back(residue.place);
        pairs.moving.push_back(partner->second);
    }
    return pairs;
}

} // namespace examples
