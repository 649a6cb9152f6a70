#include "platform/text/NSTextTable.h"

#include "tests/support/KeyedValues.h"

#include <gtest/gtest.h>

TEST(NSTextTableBlock, ArchivesItsPlaceInTheTable)
{
    const auto table = std::make_shared<const NSTextTable>();
    EXPECT_EQ(KeyedValues::of(NSTextTableBlock(table, 0, 1, 0, 1)),
              (KeyedValues::Values{{"NSTable", table}}));
    EXPECT_EQ(KeyedValues::of(NSTextTableBlock(table, 1, 2, 3, 4)),
              (KeyedValues::Values{{"NSTable", table},
                                   {"NSStartingRow", 1},
                                   {"NSRowSpan", 2},
                                   {"NSStartingColumn", 3},
                                   {"NSColumnSpan", 4}}));
}

TEST(NSTextTableBlock, ReadsWhatItWrote)
{
    const auto table = std::make_shared<const NSTextTable>();
    NSTextTableBlock cell(table, 1, 2, 3, 4);
    cell.setVerticalAlignment(NSTextBlockVerticalAlignment::Middle);
    const auto back = KeyedValues::make(NSTextTableBlock::classObject(), KeyedValues::of(cell))
                          .object<NSTextTableBlock>();
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->table(), table);
    EXPECT_EQ(back->startingRow(), 1);
    EXPECT_EQ(back->rowSpan(), 2);
    EXPECT_EQ(back->startingColumn(), 3);
    EXPECT_EQ(back->columnSpan(), 4);
    EXPECT_EQ(back->verticalAlignment(), NSTextBlockVerticalAlignment::Middle);
}

TEST(NSTextTableBlock, ReadsHostileCountsWithinBounds)
{
    const auto cell = KeyedValues::make(NSTextTableBlock::classObject(),
                                        {{"NSStartingRow", -5},
                                         {"NSRowSpan", 0},
                                         {"NSStartingColumn", std::int64_t{1} << 62U},
                                         {"NSTable", u"text"}})
                          .object<NSTextTableBlock>();
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->startingRow(), 0);
    EXPECT_EQ(cell->rowSpan(), 1);
    EXPECT_EQ(cell->startingColumn(), 1'000'000);
    EXPECT_EQ(cell->columnSpan(), 1);
    EXPECT_EQ(cell->table(), nullptr);
}

TEST(NSTextTable, LeavesDefaultsOutOfArchives)
{
    EXPECT_EQ(KeyedValues::of(NSTextTable()), KeyedValues::Values());
}

TEST(NSTextTable, ReadsWhatItWrote)
{
    NSTextTable table;
    table.setNumberOfColumns(3);
    table.setLayoutAlgorithm(NSTextTableLayoutAlgorithm::Fixed);
    table.setCollapsesBorders(true);
    table.setHidesEmptyCells(true);
    EXPECT_EQ(KeyedValues::of(table),
              (KeyedValues::Values{{"NSNumberOfColumns", 3},
                                   {"NSLayoutAlgorithm", 1},
                                   {"NSCollapsesBorders", true},
                                   {"NSHidesEmptyCells", true}}));
    const auto back
        = KeyedValues::make(NSTextTable::classObject(), KeyedValues::of(table)).object<NSTextTable>();
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->numberOfColumns(), 3U);
    EXPECT_EQ(back->layoutAlgorithm(), NSTextTableLayoutAlgorithm::Fixed);
    EXPECT_TRUE(back->collapsesBorders());
    EXPECT_TRUE(back->hidesEmptyCells());
    EXPECT_FALSE(back->isEqual(table));
}
