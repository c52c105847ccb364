#include "common/TextFile.h"
#include "common/InputError.h"
#include "Files.h"

#include <gtest/gtest.h>

namespace {

using examples::InputError;
using examples::ParseNumber;
using examples::TextFile;

TEST(ParseNumber, AcceptsWholeFieldsAlone)
{
    double number = 0.0;
    EXPECT_TRUE(ParseNumber("-0.5", number));
    EXPECT_EQ(number, -0.5);
    EXPECT_TRUE(ParseNumber("+2", number));
    EXPECT_EQ(number, 2.0);
    EXPECT_TRUE(ParseNumber(".11019", number));
    EXPECT_EQ(number, 0.11019);
    EXPECT_TRUE(ParseNumber("760.", number));
    EXPECT_EQ(number, 760.0);
    EXPECT_TRUE(ParseNumber("-0.358191792925910E-01", number));
    EXPECT_EQ(number, -0.0358191792925910);

    for (char const* text :
         {"", "+", "-", "+-2", "1,5", "1.5x", "x1", "0x10", "nan", "inf", "-inf", "1e999", " 1"})
        EXPECT_FALSE(ParseNumber(text, number)) << text;
}

TEST(TextFile, SkipsEmptyLinesAndCommentsAndCountsThem)
{
    ScratchFile scratch("# title\n\n  one 2 # three\n\t\nlast");
    TextFile file(scratch.Path());
    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.LineNumber(), 3);
    EXPECT_EQ(file.Fields(), (std::vector<std::string>{"one", "2"}));
    EXPECT_EQ(file.Number(1), 2.0);
    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.LineNumber(), 5);
    EXPECT_EQ(file.Field(0), "last");
    EXPECT_FALSE(file.NextLine());
}

TEST(TextFile, TakesCarriageReturnsForBlanks)
{
    ScratchFile scratch("1 2\r\n3 4\r\n");
    TextFile file(scratch.Path());
    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.Number(1), 2.0);
    ASSERT_TRUE(file.NextLine());
    EXPECT_EQ(file.Fields().size(), 2U);
}

TEST(TextFile, ComplaintsNameFileAndLine)
{
    ScratchFile scratch("a\nb c\n");
    TextFile file(scratch.Path());
    file.NextLine();
    file.NextLine();
    try {
        file.Number(1);
        FAIL() << "no complaint";
    } catch (InputError const& error) {
        EXPECT_EQ(error.what(), scratch.Path() + ":2: 'c' is not a finite number");
    }
    EXPECT_THROW(file.Field(2), InputError);
    EXPECT_THROW(TextFile("no/such/file"), InputError);
}

} // namespace
