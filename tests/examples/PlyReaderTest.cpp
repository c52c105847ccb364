#include "examples/Files.h"

#include "common/InputError.h"
#include "common/OutputFile.h"
#include "common/PlyReader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

// PlyReader: the same vertices as text and in either byte order, every type, and the place of an error.

namespace {

using examples::PlyReader;

/// A file of these properties and one vertex.
std::string FileOf(std::string const& format, std::string const& properties, std::string const& vertices,
                   int count = 1)
{
    return "ply\nformat " + format + " 1.0\nelement vertex " + std::to_string(count) + "\n" + properties
           + "end_header\n" + vertices;
}

std::vector<double> FirstVertex(std::string const& text)
{
    std::istringstream stream(text);
    PlyReader reader(stream, "file");
    std::vector<double> values;
    reader.Next(values);
    return values;
}

std::string ErrorOf(std::string const& text, int vertices = 1)
{
    try {
        std::istringstream stream(text);
        PlyReader reader(stream, "file");
        std::vector<double> values;
        for (int i = 0; i < vertices; ++i)
            reader.Next(values);
    } catch (examples::InputError const& error) {
        return error.what();
    }
    return "no error";
}

char const* const allTypes =
    "property char a\nproperty uchar b\nproperty int16 c\nproperty uint16 d\nproperty int e\n"
    "property uint32 f\nproperty float g\nproperty float64 h\n";
std::vector<double> const allValues = {-2, 254, -3, 65533, -4, 4294967291.0, -1.5, 0.1};

TEST(PlyReader, ReadsEveryTypeAsText)
{
    EXPECT_EQ(FirstVertex(FileOf("ascii", allTypes, "-2 254 -3 65533 -4 4294967291 -1.5 0.1\n")), allValues);
}

// The bytes by hand: two's complement, and IEEE 754: -1.5 is bfc00000, 0.1 is 3fb999999999999a.
TEST(PlyReader, ReadsEveryTypeInEitherByteOrder)
{
    std::string const big("\xfe\xfe\xff\xfd\xff\xfd\xff\xff\xff\xfc\xff\xff\xff\xfb\xbf\xc0\x00\x00"
                          "\x3f\xb9\x99\x99\x99\x99\x99\x9a",
                          26);
    std::string const little("\xfe\xfe\xfd\xff\xfd\xff\xfc\xff\xff\xff\xfb\xff\xff\xff\x00\x00\xc0\xbf"
                             "\x9a\x99\x99\x99\x99\x99\xb9\x3f",
                             26);
    EXPECT_EQ(FirstVertex(FileOf("binary_big_endian", allTypes, big)), allValues);
    EXPECT_EQ(FirstVertex(FileOf("binary_little_endian", allTypes, little)), allValues);
}

TEST(PlyReader, RoundsTextToTheDeclaredType)
{
    EXPECT_EQ(FirstVertex(FileOf("ascii", "property float x\n", "0.1\n")), std::vector<double>{double(0.1F)});
}

TEST(PlyReader, NamesPlaceAndReason)
{
    std::string const x = "property uchar x\n";
    EXPECT_EQ(ErrorOf(FileOf("ascii", x, "7\n300\n", 2), 2), "file:7: '300' is no uchar");
    EXPECT_EQ(ErrorOf(FileOf("ascii", x, "1.5\n")), "file:6: '1.5' is no uchar");
    EXPECT_EQ(ErrorOf(FileOf("ascii", x, "1 2\n")), "file:6: a vertex has 1 numbers, found 2");
    EXPECT_EQ(ErrorOf(FileOf("ascii", x + x, "1 2\n")), "file:5: the property 'x' stands there twice");
    EXPECT_EQ(ErrorOf("ply\nelement vertex 0\nend_header\n", 0), "file:3: the header names no format");
    EXPECT_EQ(ErrorOf("ply\nformat ascii 1.0\nend_header\n", 0),
              "file:3: the header names no element 'vertex'");
    EXPECT_EQ(ErrorOf("ply\nformat ascii 2.0\n", 0), "file:2: the version '2.0' is not supported (1.0)");
    EXPECT_EQ(ErrorOf("ply\nproperty float x\n", 0), "file:2: a property stands before the first element");
    EXPECT_EQ(ErrorOf("ply\nelement vertex 4294967296\n", 0),
              "file:2: '4294967296' is no count (at most 4294967295)");
    EXPECT_EQ(ErrorOf("ply\n" + std::string(1000, 'a') + "\n", 0),
              "file:2: '" + std::string(40, 'a') + "...' is not understood in a PLY header");
    EXPECT_EQ(ErrorOf("ply\nformat ascii 1.0\n", 0), "file:2: the file ends too early");
}

TEST(OutputFile, AppearsWholeOrNotAtAll)
{
    ScratchFile const old("old");
    {
        examples::OutputFile file(old.Path());
        file.Stream() << "half of";
    }
    EXPECT_EQ((std::ostringstream() << std::ifstream(old.Path()).rdbuf()).str(), "old");
    EXPECT_FALSE(std::ifstream(old.Path() + ".part").is_open());
    {
        examples::OutputFile file(old.Path());
        file.Stream() << "new";
        file.Finish();
    }
    EXPECT_EQ((std::ostringstream() << std::ifstream(old.Path()).rdbuf()).str(), "new");
    EXPECT_FALSE(std::ifstream(old.Path() + ".part").is_open());
}

} // namespace
