#include "Layouts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

TEST(CheckedLayout, IsTheSameForEachClass)
{
    std::vector<Layout> const plain = PlainLayouts();
    std::vector<Layout> const checked = CheckedLayouts();
    ASSERT_EQ(plain.size(), checked.size());
    for (std::size_t i = 0; i < plain.size(); ++i) {
        SCOPED_TRACE(plain[i].name);
        EXPECT_EQ(plain[i].name, checked[i].name);
        EXPECT_EQ(plain[i].size, checked[i].size);
        EXPECT_EQ(plain[i].alignment, checked[i].alignment);
        EXPECT_EQ(plain[i].offsets, checked[i].offsets);
        EXPECT_TRUE(std::equal(std::begin(plain[i].extendedSize), std::end(plain[i].extendedSize),
                               std::begin(checked[i].extendedSize)));
    }
}
