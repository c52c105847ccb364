#include "principal_axes/PointCloud.h"

#include "common/InputFile.h"
#include "common/PlyReader.h"
#include "common/TextFile.h"

#include <cmath>
#include <sstream>

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

std::vector<CloudPoint> ReadPly(std::istream& stream, std::string const& path)
{
    PlyReader reader(stream, path);
    auto const x = static_cast<std::size_t>(reader.RequiredIndexOf("x"));
    auto const y = static_cast<std::size_t>(reader.RequiredIndexOf("y"));
    auto const z = static_cast<std::size_t>(reader.RequiredIndexOf("z"));
    int const red = reader.IndexOf({"red", "diffuse_red"});
    int const green = reader.IndexOf({"green", "diffuse_green"});
    int const blue = reader.IndexOf({"blue", "diffuse_blue"});
    bool const hasColours = red >= 0 && green >= 0 && blue >= 0;

    std::vector<CloudPoint> cloud;
    std::vector<double> values;
    for (std::size_t i = 0; i < reader.VertexCount(); ++i) {
        reader.Next(values);
        CloudPoint point{Pnt3Dbl(values[x], values[y], values[z]), Colour()};
        if (hasColours
            && (!IsColourValue(values[static_cast<std::size_t>(red)], point.colour.red)
                || !IsColourValue(values[static_cast<std::size_t>(green)], point.colour.green)
                || !IsColourValue(values[static_cast<std::size_t>(blue)], point.colour.blue)))
            reader.FailAtLastVertex("a colour is a whole number from 0 to 255");
        cloud.push_back(point);
    }
    return cloud;
}

bool IsPly(std::string const& bytes)
{
    return PlyReader::IsMagic(bytes.substr(0, bytes.find('\n')));
}

} // namespace

std::vector<CloudPoint> ReadPointCloud(std::string const& path)
{
    std::istringstream bytes = ReadInputFile(path);
    return IsPly(bytes.str()) ? ReadPly(bytes, path) : ReadText(path);
}

} // namespace examples
