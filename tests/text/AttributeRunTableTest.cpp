#include "platform/text/AttributeRunTable.h"

#include <gtest/gtest.h>

#include <string>

using namespace std::string_literals;

TEST(AttributeRunTable, WritesNumbersInGroupsOfSevenBits)
{
    std::string table;
    appendRun(table, {127, 0});
    appendRun(table, {128, 1});
    appendRun(table, {300, 16384});
    EXPECT_EQ(table, "\x7f\x00\x80\x01\x01\xac\x02\x80\x80\x01"s);
}

TEST(AttributeRunTable, ReadsTheRunsThatFillTheText)
{
    const auto runs = runsFromTable("\x01\x00\x01\x01\x04\x02\x02\x01\x01\x03\x01\x00"s, 10);
    ASSERT_TRUE(runs);
    const std::vector<ArchivedRun> expected{{1, 0}, {1, 1}, {4, 2}, {2, 1}, {1, 3}, {1, 0}};
    EXPECT_EQ(*runs, expected);
}

TEST(AttributeRunTable, StopsWhenTheTextIsFilled)
{
    const auto runs = runsFromTable("\x04\x00\x09\x01\xff"s, 6);
    ASSERT_TRUE(runs);
    EXPECT_EQ(*runs, (std::vector<ArchivedRun>{{4, 0}, {2, 1}}));
    EXPECT_TRUE(runsFromTable("", 0));
}

TEST(AttributeRunTable, RefusesWhatIsCutOffTooLargeOrTooShort)
{
    for (const auto& table : {""s, "\x04"s, "\x04\x80"s, "\x04\x00"s, "\xff\xff\xff\xff\xff\xff\x01\x00"s})
        EXPECT_FALSE(runsFromTable(table, 6)) << table.size();
}

TEST(AttributeRunTable, ReadsBackWhatItWrote)
{
    std::string table;
    std::vector<ArchivedRun> written;
    NSUInteger length = 0;
    for (NSUInteger bit = 0; bit < 31; ++bit) {
        written.push_back({NSUInteger{1} << bit, bit * 1000});
        appendRun(table, written.back());
        length += written.back().length;
    }
    EXPECT_EQ(runsFromTable(table, length), written);
}
