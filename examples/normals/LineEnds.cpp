#include "normals/LineEnds.h"

#include "common/InputError.h"
#include "common/PlyReader.h"

#include <vexor/vectors/Vec3Dbl.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <vector>

namespace examples {

namespace {

constexpr std::size_t mostLost = 4; // bytes that one vertex can have lost
constexpr int lookahead = 3;        // vertices behind one, which must be intact or restorable as well
constexpr std::size_t impossible = 1000;

class Restorer {
public:
    Restorer(std::string const& fileBytes, std::string const& fileName)
        : bytes(fileBytes),
          name(fileName),
          header(fileBytes),
          reader(header, fileName),
          size(reader.RecordSize())
    {
        if (!reader.IsBinary())
            throw InputError(name + ": is text, in which no line ends need restoring");
        for (int k = 0; k < 3; ++k)
            normal[k] = static_cast<std::size_t>(reader.RequiredIndexOf(std::string{'n', "xyz"[k]}.c_str()));
    }

    std::string Restore()
    {
        FindLargest();
        std::size_t place = reader.HeaderSize();
        std::string restored = bytes.substr(0, place);
        for (std::size_t i = 0; i < reader.VertexCount(); ++i) {
            if (AreIntact(place)) {
                restored.append(bytes, place, size);
                place += size;
                continue;
            }
            Candidate const best = BestAt(place);
            if (best.lost >= impossible)
                throw InputError(name + ": byte " + std::to_string(place) + ", point " + std::to_string(i + 1)
                                 + " of " + std::to_string(reader.VertexCount())
                                 + ": lost bytes 13 do not explain what stands here");
            restored += best.record;
            place += size - best.lost;
        }
        return restored.append(bytes, place, std::string::npos);
    }

private:
    struct Candidate {
        std::string record;
        std::size_t lost;
    };

    /// The largest magnitude of each property, from the vertices that are intact at first sight. Numbers that lie
    /// shifted in a record have wild exponents, so they exceed it by far.
    void FindLargest()
    {
        std::vector<double> found;
        for (std::size_t place = reader.HeaderSize(); place < bytes.size();) {
            if (!AreIntact(place)) {
                ++place; // until the vertices are in step again
                continue;
            }
            reader.Decode(bytes.data() + place, values);
            found.resize(values.size());
            for (std::size_t k = 0; k < values.size(); ++k)
                found[k] = std::max(found[k], std::fabs(values[k]));
            place += size;
        }
        limits = found;
        for (double& limit : limits)
            limit *= 10.0;
    }

    bool IsIntact(char const* record)
    {
        reader.Decode(record, values);
        for (std::size_t k = 0; k < values.size(); ++k)
            if (!std::isfinite(values[k]) || (!limits.empty() && std::fabs(values[k]) > limits[k]))
                return false;
        Vec3Dbl const direction(values[normal[0]], values[normal[1]], values[normal[2]]);
        return std::fabs(direction.LengthSquared() - 1.0) < 1e-4;
    }

    /// This vertex and the next ones, so far as there are any.
    bool AreIntact(std::size_t place)
    {
        for (int i = 0; i < lookahead && place != bytes.size(); ++i, place += size)
            if (bytes.size() - place < size || !IsIntact(bytes.data() + place))
                return false;
        return true;
    }

    /// Adds all records that begin with `begin` and go on with bytes from `place`, with `left` more bytes inserted.
    void AddCandidates(std::string const& begin, std::size_t place, std::size_t left, std::size_t lost,
                       std::vector<Candidate>& candidates)
    {
        std::string record = begin;
        for (; record.size() + left < size && place < bytes.size(); record += bytes[place++]) {
            if (bytes[place] == '\n' && left > 0)
                AddCandidates(record + '\r', place, left - 1, lost, candidates);
        }
        if (left == 0 && record.size() == size && IsIntact(record.data()))
            candidates.push_back({record, lost});
    }

    std::vector<Candidate> CandidatesAt(std::size_t place)
    {
        std::vector<Candidate> candidates;
        for (std::size_t lost = 0; lost <= std::min(mostLost, size); ++lost)
            AddCandidates("", place, lost, lost, candidates);
        return candidates;
    }

    /// The fewest bytes that so many vertices from here on can have lost.
    std::size_t FewestLost(std::size_t place, int vertices)
    {
        std::size_t fewest = impossible;
        if (place == bytes.size() || vertices == 0)
            return 0;
        for (Candidate const& candidate : CandidatesAt(place))
            fewest =
                std::min(fewest, candidate.lost + FewestLost(place + size - candidate.lost, vertices - 1));
        return fewest;
    }

    Candidate BestAt(std::size_t place)
    {
        Candidate best{"", impossible};
        std::size_t fewest = impossible;
        for (Candidate const& candidate : CandidatesAt(place)) {
            std::size_t const lost = candidate.lost + FewestLost(place + size - candidate.lost, lookahead);
            if (lost < fewest) {
                fewest = lost;
                best = candidate;
            }
        }
        return best;
    }

    std::string const& bytes;
    std::string const& name;
    std::istringstream header;
    PlyReader reader;
    std::size_t size;
    std::size_t normal[3] = {};
    std::vector<double> values;
    std::vector<double> limits; // none yet if empty
};

} // namespace

std::string RestoreLineEnds(std::string const& bytes, std::string const& fileName)
{
    return Restorer(bytes, fileName).Restore();
}

} // namespace examples
