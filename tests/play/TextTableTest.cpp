#include "play/TextTable.h"

#include <gtest/gtest.h>

namespace orv::play {
namespace {

TEST(TextTable, CountsChineseCharactersAsTwoColumns) {
    EXPECT_EQ(displayWidth(""), 0U);
    EXPECT_EQ(displayWidth("abc"), 3U);
    EXPECT_EQ(displayWidth("单号"), 4U);
    EXPECT_EQ(displayWidth("（1）。"), 7U);
    EXPECT_EQ(displayWidth("é"), 1U);
    EXPECT_EQ(displayWidth("\U0001F600"), 2U);
}

TEST(TextTable, PutsColumnsUnderEachOtherAndDropsEmptyOnes) {
    EXPECT_EQ(textTable({{"", "字段", "空", "值"}, {"1", "日期", "", "2024"}, {"12", "No", "", "很长的值"}}, "> "),
              ">     字段  值\n"
              "> --  ----  --------\n"
              "> 1   日期  2024\n"
              "> 12  No    很长的值\n");
}

} // namespace
} // namespace orv::play
