#pragma once
#include <vexor/points/Pnt3Dbl.h>

#include <string>
#include <vector>

namespace examples {

/// The central carbon atom of one residue of a protein chain.
struct Residue {
    std::string number; ///< As the file numbers it, with its insertion letter if it has one.
    std::string name;   ///< Three letters: the amino acid.
    Pnt3Dbl place;      ///< In ångströms.
};

/// Reads the C-alpha atoms of a chain from a file in the PDB format. If there are alternative positions, the
/// first one is used. Raises InputError, which names the line.
std::vector<Residue> ReadStructure(std::string const& path);

/// Two lists of positions of equal length: those of the residues with the same number in both structures.
struct PointPairs {
    std::vector<std::string> numbers;
    std::vector<Pnt3Dbl> fixed;
    std::vector<Pnt3Dbl> moving;
};

PointPairs PairByNumber(std::vector<Residue> const& fixed, std::vector<Residue> const& moving);

} // namespace examples
