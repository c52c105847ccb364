#include "principal_axes/PointCloud.h"

#include "common/InputError.h"
#include "common/InputFile.h"
#include "common/TextFile.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <utility>

namespace examples {

namespace {

// ---- Lines of text -------------------------------------------------------------------------------

bool IsColourValue(double number, int& value)
{
    if (!(number >= 0.0 && number <= 255.0) || number != std::floor(number))
        return false;
    value = static_cast<int>(number);
    return true;
}

bool IsColourValue(std::string const& field, int& value)
{
    double number = 0.0;
    return ParseNumber(field, number) && IsColourValue(number, value);
}

std::vector<CloudPoint> ReadText(std::string const& path)
{
    TextFile file(path);
    std::vector<CloudPoint> cloud;
    while (file.NextLine()) {
        CloudPoint point{Pnt3Dbl(file.Number(0), file.Number(1), file.Number(2)), Colour()};
        Colour colour;
        if (file.Fields().size() >= 6 && IsColourValue(file.Field(3), colour.red)
            && IsColourValue(file.Field(4), colour.green) && IsColourValue(file.Field(5), colour.blue))
            point.colour = colour;
        cloud.push_back(point);
    }
    return cloud;
}

// ---- PLY -------------------------------------------------------------------------------------------

enum class Scalar { int8, uint8, int16, uint16, int32, uint32, float32, float64 };

struct ScalarName {
    char const* name;
    Scalar type;
    std::size_t size;
};

constexpr ScalarName scalarNames[] = {
    {"char", Scalar::int8, 1},       {"int8", Scalar::int8, 1},       {"uchar", Scalar::uint8, 1},
    {"uint8", Scalar::uint8, 1},     {"short", Scalar::int16, 2},     {"int16", Scalar::int16, 2},
    {"ushort", Scalar::uint16, 2},   {"uint16", Scalar::uint16, 2},   {"int", Scalar::int32, 4},
    {"int32", Scalar::int32, 4},     {"uint", Scalar::uint32, 4},     {"uint32", Scalar::uint32, 4},
    {"float", Scalar::float32, 4},   {"float32", Scalar::float32, 4}, {"double", Scalar::float64, 8},
    {"float64", Scalar::float64, 8},
};

struct Property {
    std::string name;
    ScalarName const* type;
};

/// Reads a PLY file: first the header, which tells the properties of a vertex, then the vertices.
class PlyReader {
public:
    PlyReader(std::string const& plyPath, std::istringstream bytes) : path(plyPath), stream(std::move(bytes))
    {}

    std::vector<CloudPoint> Read()
    {
        ReadHeader();
        return isBinary ? ReadBinaryVertices() : ReadTextVertices();
    }

private:
    using Words = std::vector<std::string>;

    [[noreturn]] void Fail(std::string const& what) const { throw InputError(path, lineNumber, what); }

    Words NextWords()
    {
        std::string line;
        if (!std::getline(stream, line))
            throw InputError(path, lineNumber, "the file ends too early");
        ++lineNumber;
        std::istringstream text(line);
        Words words;
        for (std::string word; text >> word;)
            words.push_back(word);
        return words;
    }

    void ReadHeader()
    {
        NextWords(); // "ply", which brought us here
        for (Words words = NextWords(); words != Words{"end_header"}; words = NextWords()) {
            if (words.empty() || words[0] == "comment" || words[0] == "obj_info")
                continue;
            if (words[0] == "format" && words.size() == 3)
                ReadFormat(words[1]);
            else if (words[0] == "element" && words.size() == 3)
                ReadElement(words);
            else if (words[0] == "property" && words.size() >= 3)
                ReadProperty(words);
            else
                Fail("'" + words[0] + "' is not understood in a PLY header");
        }
        for (std::size_t axis = 0; axis < 3; ++axis)
            placeIndex[axis] = IndexOf({std::string(1, "xyz"[axis])});
        if (placeIndex[0] < 0 || placeIndex[1] < 0 || placeIndex[2] < 0)
            Fail("the vertices have no x, y and z");
        colourIndex = {IndexOf({"red", "diffuse_red"}), IndexOf({"green", "diffuse_green"}),
                       IndexOf({"blue", "diffuse_blue"})};
    }

    void ReadFormat(std::string const& format)
    {
        isBinary = format == "binary_little_endian";
        if (!isBinary && format != "ascii")
            Fail("the format '" + format + "' is not supported (ascii, binary_little_endian)");
    }

    void ReadElement(Words const& words)
    {
        double count = 0.0;
        if (!ParseNumber(words[2], count) || !(count >= 0.0 && count <= 1e9) || count != std::floor(count))
            Fail("'" + words[2] + "' is no count");
        isInVertex = words[1] == "vertex";
        if (isInVertex != (++elementCount == 1))
            Fail("'vertex' must be the first element, and no other");
        if (isInVertex)
            vertexCount = static_cast<std::size_t>(count);
    }

    void ReadProperty(Words const& words)
    {
        if (!isInVertex)
            return; // what follows the vertices is not read
        if (words[1] == "list")
            Fail("a vertex with a list is not supported");
        for (ScalarName const& known : scalarNames)
            if (words[1] == known.name) {
                properties.push_back({words[2], &known});
                recordSize += known.size;
                return;
            }
        Fail("'" + words[1] + "' is no PLY type");
    }

    int IndexOf(std::vector<std::string> const& names) const
    {
        for (std::size_t i = 0; i < properties.size(); ++i)
            for (std::string const& name : names)
                if (properties[i].name == name)
                    return static_cast<int>(i);
        return -1;
    }

    CloudPoint MakePoint(std::size_t index, std::vector<double> const& values) const
    {
        auto const value = [&](int property) { return values[static_cast<std::size_t>(property)]; };
        CloudPoint point{Pnt3Dbl(value(placeIndex[0]), value(placeIndex[1]), value(placeIndex[2])), Colour()};
        if (colourIndex[0] >= 0 && colourIndex[1] >= 0 && colourIndex[2] >= 0)
            if (!IsColourValue(value(colourIndex[0]), point.colour.red)
                || !IsColourValue(value(colourIndex[1]), point.colour.green)
                || !IsColourValue(value(colourIndex[2]), point.colour.blue))
                FailAtVertex(index, "a colour is a whole number from 0 to 255");
        return point;
    }

    std::vector<CloudPoint> ReadTextVertices()
    {
        std::vector<CloudPoint> cloud;
        std::vector<double> values(properties.size());
        for (std::size_t i = 0; i < vertexCount; ++i) {
            Words const words = NextWords();
            if (words.size() != values.size())
                Fail("a vertex has " + std::to_string(values.size()) + " numbers, found "
                     + std::to_string(words.size()));
            for (std::size_t k = 0; k < values.size(); ++k)
                if (!ParseNumber(words[k], values[k]))
                    Fail("'" + words[k] + "' is not a finite number");
            cloud.push_back(MakePoint(i, values));
        }
        return cloud;
    }

    std::vector<CloudPoint> ReadBinaryVertices()
    {
        std::string record(recordSize, '\0');
        std::vector<CloudPoint> cloud;
        std::vector<double> values(properties.size());
        for (std::size_t i = 0; i < vertexCount; ++i) {
            stream.read(record.data(), static_cast<std::streamsize>(recordSize));
            if (!stream)
                FailAtVertex(i, "the file ends here (was it once transferred as text?)");
            char const* bytes = record.data();
            for (std::size_t k = 0; k < values.size(); ++k) {
                values[k] = Decode(properties[k].type->type, bytes);
                bytes += properties[k].type->size;
            }
            CloudPoint const point = MakePoint(i, values);
            if (!std::isfinite(point.place.x) || !std::isfinite(point.place.y)
                || !std::isfinite(point.place.z))
                FailAtVertex(i, "a coordinate is not a finite number");
            cloud.push_back(point);
        }
        return cloud;
    }

    [[noreturn]] void FailAtVertex(std::size_t index, std::string const& what) const
    {
        throw InputError(path + ": point " + std::to_string(index + 1) + " of " + std::to_string(vertexCount)
                         + ": " + what);
    }

    template <typename T>
    static double As(char const* bytes)
    {
        T value;
        std::memcpy(&value, bytes, sizeof value);
        return static_cast<double>(value);
    }

    static double Decode(Scalar type, char const* bytes)
    {
        switch (type) {
        case Scalar::int8:
            return As<std::int8_t>(bytes);
        case Scalar::uint8:
            return As<std::uint8_t>(bytes);
        case Scalar::int16:
            return As<std::int16_t>(bytes);
        case Scalar::uint16:
            return As<std::uint16_t>(bytes);
        case Scalar::int32:
            return As<std::int32_t>(bytes);
        case Scalar::uint32:
            return As<std::uint32_t>(bytes);
        case Scalar::float32:
            return As<float>(bytes);
        case Scalar::float64:
            break;
        }
        return As<double>(bytes);
    }

    std::string path;
    std::istringstream stream;
    int lineNumber = 0;
    int elementCount = 0;
    bool isInVertex = false;
    bool isBinary = false;
    std::size_t vertexCount = 0;
    std::size_t recordSize = 0;
    std::vector<Property> properties;
    std::array<int, 3> placeIndex{};
    std::array<int, 3> colourIndex{};
};

bool IsPly(std::string const& bytes)
{
    std::string const line = bytes.substr(0, bytes.find('\n'));
    return line == "ply" || line == "ply\r";
}

} // namespace

std::vector<CloudPoint> ReadPointCloud(std::string const& path)
{
    std::istringstream bytes = ReadInputFile(path);
    return IsPly(bytes.str()) ? PlyReader(path, std::move(bytes)).Read() : ReadText(path);
}

} // namespace examples
