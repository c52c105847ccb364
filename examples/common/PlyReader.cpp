#include "common/PlyReader.h"

#include "common/InputError.h"
#include "common/TextFile.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <utility>

namespace examples {

namespace {

/// A word of the file for a message, shortened, since a file may be one endless line.
std::string Quoted(std::string const& word)
{
    constexpr std::size_t longest = 40;
    return "'" + (word.size() > longest ? word.substr(0, longest) + "..." : word) + "'";
}

/// Memory is allocated as the vertices arrive, not as the header declares them.
constexpr double mostVertices = 4294967295.0;

} // namespace

PlyReader::Scalar const PlyReader::scalars[16] = {
    {"char", Kind::whole, 1, true},    {"int8", Kind::whole, 1, true},    {"uchar", Kind::whole, 1, false},
    {"uint8", Kind::whole, 1, false},  {"short", Kind::whole, 2, true},   {"int16", Kind::whole, 2, true},
    {"ushort", Kind::whole, 2, false}, {"uint16", Kind::whole, 2, false}, {"int", Kind::whole, 4, true},
    {"int32", Kind::whole, 4, true},   {"uint", Kind::whole, 4, false},   {"uint32", Kind::whole, 4, false},
    {"float", Kind::real, 4, true},    {"float32", Kind::real, 4, true},  {"double", Kind::real, 8, true},
    {"float64", Kind::real, 8, true},
};

PlyReader::PlyReader(std::istream& plyStream, std::string fileName)
    : stream(plyStream), name(std::move(fileName))
{
    ReadHeader();
    isHeaderRead = true;
    record.resize(recordSize);
}

bool PlyReader::IsMagic(std::string const& line)
{
    return line == "ply" || line == "ply\r";
}

int PlyReader::IndexOf(std::initializer_list<char const*> names) const
{
    for (std::size_t i = 0; i < properties.size(); ++i)
        for (char const* wanted : names)
            if (properties[i].name == wanted)
                return static_cast<int>(i);
    return -1;
}

int PlyReader::RequiredIndexOf(char const* wanted) const
{
    int const index = IndexOf({wanted});
    if (index < 0)
        FailAtLine(std::string("the vertices have no ") + wanted);
    return index;
}

void PlyReader::FailAtLine(std::string const& what) const
{
    throw InputError(name, lineNumber, what);
}

void PlyReader::FailAtVertex(std::size_t index, std::string const& what) const
{
    if (!IsBinary())
        FailAtLine(what);
    throw InputError(name + ": byte " + std::to_string(headerSize + index * recordSize) + ", point "
                     + std::to_string(index + 1) + " of " + std::to_string(vertexCount) + ": " + what);
}

void PlyReader::FailAtLastVertex(std::string const& what) const
{
    FailAtVertex(verticesRead - 1, what);
}

// ---- Header ----------------------------------------------------------------------------------------

PlyReader::Words PlyReader::NextWords()
{
    std::string line;
    if (!std::getline(stream, line))
        FailAtLine(stream.bad() ? "the file cannot be read" : "the file ends too early");
    if (!isHeaderRead)
        headerSize += line.size() + (stream.eof() ? 0 : 1);
    ++lineNumber;
    std::istringstream text(line);
    Words words;
    for (std::string word; text >> word;)
        words.push_back(word);
    return words;
}

void PlyReader::ReadHeader()
{
    if (NextWords() != Words{"ply"})
        FailAtLine("the file does not begin with the line 'ply'");
    for (Words words = NextWords(); words != Words{"end_header"}; words = NextWords()) {
        if (words.empty() || words[0] == "comment" || words[0] == "obj_info")
            continue;
        if (words[0] == "format" && words.size() == 3)
            ReadFormat(words);
        else if (words[0] == "element" && words.size() == 3)
            ReadElement(words);
        else if (words[0] == "property" && words.size() >= 3)
            ReadProperty(words);
        else
            FailAtLine(Quoted(words[0]) + " is not understood in a PLY header");
    }
    if (format == Format::none)
        FailAtLine("the header names no format");
    if (elementCount == 0)
        FailAtLine("the header names no element 'vertex'");
}

void PlyReader::ReadFormat(Words const& words)
{
    if (words[1] == "ascii")
        format = Format::text;
    else if (words[1] == "binary_little_endian")
        format = Format::littleEndian;
    else if (words[1] == "binary_big_endian")
        format = Format::bigEndian;
    else
        FailAtLine("the format " + Quoted(words[1])
                   + " is not supported (ascii, binary_little_endian, binary_big_endian)");
    if (words[2] != "1.0")
        FailAtLine("the version " + Quoted(words[2]) + " is not supported (1.0)");
}

void PlyReader::ReadElement(Words const& words)
{
    double count = 0.0;
    if (!ParseNumber(words[2], count) || !(count >= 0.0 && count <= mostVertices)
        || count != std::floor(count))
        FailAtLine(Quoted(words[2]) + " is no count (at most 4294967295)");
    isInVertex = words[1] == "vertex";
    if (isInVertex != (++elementCount == 1))
        FailAtLine("'vertex' must be the first element, and no other");
    if (isInVertex)
        vertexCount = static_cast<std::size_t>(count);
}

void PlyReader::ReadProperty(Words const& words)
{
    if (elementCount == 0)
        FailAtLine("a property stands before the first element");
    if (!isInVertex)
        return; // elements after the vertices are not read
    if (words[1] == "list")
        FailAtLine("a vertex with a list is not supported");
    for (Scalar const& known : scalars) {
        if (words[1] != known.name)
            continue;
        if (IndexOf({words[2].c_str()}) >= 0)
            FailAtLine("the property " + Quoted(words[2]) + " stands there twice");
        properties.push_back({words[2], &known});
        recordSize += known.size;
        return;
    }
    FailAtLine(Quoted(words[1]) + " is no PLY type");
}

// ---- Vertices ----------------------------------------------------------------------------------------

double PlyReader::NumberOf(std::string const& word, Property const& property) const
{
    double number = 0.0;
    if (!ParseNumber(word, number))
        FailAtLine(Quoted(word) + " is not a finite number");
    Scalar const& type = *property.type;
    if (type.kind == Kind::whole) {
        double const values = std::ldexp(1.0, static_cast<int>(8 * type.size));
        double const least = type.isSigned ? -0.5 * values : 0.0;
        if (number != std::floor(number) || number < least || number >= least + values)
            FailAtLine(Quoted(word) + " is no " + type.name);
    } else if (type.size == sizeof(float)) {
        if (std::fabs(number) > 3.4028234663852886e38)
            FailAtLine(Quoted(word) + " is too large for a float");
        number = static_cast<double>(static_cast<float>(number));
    }
    return number;
}

void PlyReader::Next(std::vector<double>& values)
{
    values.resize(properties.size());
    if (!IsBinary()) {
        Words const words = NextWords();
        if (words.size() != values.size())
            FailAtLine("a vertex has " + std::to_string(values.size()) + " numbers, found "
                       + std::to_string(words.size()));
        for (std::size_t k = 0; k < values.size(); ++k)
            values[k] = NumberOf(words[k], properties[k]);
    } else {
        stream.read(record.data(), static_cast<std::streamsize>(recordSize));
        if (!stream)
            FailAtVertex(verticesRead, stream.bad()
                                           ? "the file cannot be read"
                                           : "the file ends here (was it once transferred as text?)");
        Decode(record.data(), values);
        for (std::size_t k = 0; k < values.size(); ++k)
            if (!std::isfinite(values[k]))
                FailAtVertex(verticesRead,
                             "the property " + Quoted(properties[k].name) + " is not a finite number");
    }
    ++verticesRead;
}

void PlyReader::Decode(char const* bytes, std::vector<double>& values) const
{
    values.resize(properties.size());
    for (std::size_t k = 0; k < values.size(); ++k) {
        values[k] = DecodeScalar(bytes, *properties[k].type);
        bytes += properties[k].type->size;
    }
}

double PlyReader::DecodeScalar(char const* bytes, Scalar const& type) const
{
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < type.size; ++i) {
        std::size_t const next = format == Format::bigEndian ? i : type.size - 1 - i;
        bits = bits << 8U | static_cast<unsigned char>(bytes[next]);
    }
    if (type.kind == Kind::real && type.size == sizeof(double)) {
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    if (type.kind == Kind::real) {
        std::uint32_t const half = static_cast<std::uint32_t>(bits);
        float value = 0.0F;
        std::memcpy(&value, &half, sizeof value);
        return static_cast<double>(value);
    }
    double const value = static_cast<double>(bits);
    double const values = std::ldexp(1.0, static_cast<int>(8 * type.size));
    return type.isSigned && value >= 0.5 * values ? value - values : value;
}

} // namespace examples
