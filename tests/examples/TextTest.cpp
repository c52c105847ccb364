#include "common/Text.h"
#include "common/Finite.h"
#include "common/InputError.h"
#include "common/InputFile.h"
#include "common/Svg.h"
#include "Files.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace examples;

// The smallest and the largest code of each length, and the neighbours that are refused.
TEST(CharacterLength, KnowsUtf8AndRefusesControls)
{
    struct Case {
        std::string text;
        std::size_t length;
    };
    for (Case const& c : {Case{" ", 1},
                          Case{"~", 1},
                          Case{"\x7f", 0},
                          Case{"\x1f", 0},
                          Case{"\t", 0},
                          Case{std::string(1, '\0'), 0},
                          Case{"\xc2\xa0", 2},
                          Case{"\xc2\x9f", 0},
                          Case{"\xc1\xbf", 0},
                          Case{"\xdf\xbf", 2},
                          Case{"\xc3", 0},
                          Case{"\xe0\xa0\x80", 3},
                          Case{"\xe0\x9f\xbf", 0},
                          Case{"\xed\x9f\xbf", 3},
                          Case{"\xed\xa0\x80", 0},
                          Case{"\xef\xbf\xbd", 3},
                          Case{"\xef\xbf\xbe", 0},
                          Case{"\xef\xbf\xbf", 0},
                          Case{"\xf0\x90\x80\x80", 4},
                          Case{"\xf0\x8f\xbf\xbd", 0},
                          Case{"\xf4\x8f\xbf\xbd", 4},
                          Case{"\xf4\x90\x80\x80", 0},
                          Case{"\xf8\x88\x80\x80\x80", 0},
                          Case{"\x80", 0},
                          Case{"\xe9o", 0},
                          Case{"\xe2\x82", 0},
                          Case{"\xe2(\xac", 0}})
        EXPECT_EQ(CharacterLength(c.text, 0), c.length) << Printable(c.text);
    EXPECT_EQ(CharacterLength("a\xc3\xa9", 1), 2U);
}

TEST(Printable, ShowsControlBytesAndForeignBytesByTheirCodes)
{
    EXPECT_EQ(Printable("caf\xc3\xa9 \xe2\x82\xac"), "caf\xc3\xa9 \xe2\x82\xac");
    EXPECT_EQ(Printable("a\x1b[2J\n\x7f"), "a\\x1b[2J\\x0a\\x7f");
    EXPECT_EQ(Printable("Th\xe9o"), "Th\\xe9o");
    EXPECT_EQ(Printable(std::string("\0\xc3", 2)), "\\x00\\xc3");
}

TEST(EscapedForXml, LeavesNothingThatXmlRefuses)
{
    EXPECT_EQ(EscapedForXml("a<b>&c \xc3\xa9"), "a&lt;b&gt;&amp;c \xc3\xa9");
    EXPECT_EQ(EscapedForXml("Th\xe9o\x07"), "Th\xef\xbf\xbdo\xef\xbf\xbd");
}

std::string Complaint(std::string const& path)
{
    try {
        ReadInputFile(path);
    } catch (InputError const& error) {
        return error.what();
    }
    return "";
}

TEST(ReadInputFile, SaysWhatIsWrongWithAFile)
{
    ScratchFile whole(std::string("a\0\r\nb", 5));
    EXPECT_EQ(ReadInputFile(whole.Path()).str(), std::string("a\0\r\nb", 5));

    EXPECT_EQ(Complaint("no/such/file"), "no/such/file: cannot be opened");
    EXPECT_EQ(Complaint("."), ".: is a directory");
    ScratchFile empty("");
    EXPECT_EQ(Complaint(empty.Path()), empty.Path() + ": is empty");
    ScratchFile marked("\xef\xbb\xbfply\n");
    EXPECT_EQ(Complaint(marked.Path()),
              marked.Path() + ": begins with a byte order mark: save it as UTF-8 without one");
    for (char const* mark : {"\xff\xfe", "\xfe\xff"}) {
        ScratchFile wide(mark);
        EXPECT_EQ(Complaint(wide.Path()),
                  wide.Path() + ": begins with the byte order mark of UTF-16: save it as UTF-8");
    }
}

TEST(RequireFinite, RefusesInfinitiesAndNaNs)
{
    double const infinity = std::numeric_limits<double>::infinity();
    RequireFinite("a number", std::numeric_limits<double>::max());
    EXPECT_THROW(RequireFinite("a number", infinity), NotFiniteError);
    EXPECT_THROW(RequireFinite("a number", -infinity), NotFiniteError);
    EXPECT_THROW(RequireFinite("a number", std::numeric_limits<double>::quiet_NaN()), NotFiniteError);
    RequireFinite("a vector", Vec3Dbl(1.0, 2.0, 3.0));
    EXPECT_THROW(RequireFinite("a vector", Vec3Dbl(1.0, 2.0, infinity)), NotFiniteError);
    MatDbl matrix(2, 3, 1.0);
    RequireFinite("a matrix", matrix);
    matrix(1, 2) = infinity;
    EXPECT_THROW(RequireFinite("a matrix", matrix), NotFiniteError);
}

TEST(Svg, RefusesCoordinatesThatAreNotFinite)
{
    double const infinity = std::numeric_limits<double>::infinity();
    Svg picture(200.0, 100.0);
    EXPECT_THROW(picture.Circle(Pnt2Dbl(infinity, 0.0), 1.0, ""), NotFiniteError);
    EXPECT_THROW(picture.Line(Pnt2Dbl(0.0), Pnt2Dbl(0.0, infinity - infinity), ""), NotFiniteError);
    EXPECT_THROW(picture.Polyline({Pnt2Dbl(0.0), Pnt2Dbl(infinity)}, ""), NotFiniteError);
    EXPECT_THROW(Decimals(infinity, 2), NotFiniteError);
    EXPECT_EQ(Decimals(-1e308, 2).size(), 1U + 309U + 3U);
}

} // namespace
