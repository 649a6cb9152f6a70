#include "platform/html/HTMLTableGrid.h"

#include <gtest/gtest.h>

namespace {

/// Puts a cell in the next free place and says which column that is.
NSUInteger add(HTMLTableGrid& grid, NSUInteger columnSpan = 1, NSUInteger rowSpan = 1)
{
    const auto column = grid.nextColumn();
    grid.place(column, columnSpan, rowSpan);
    return column;
}

} // namespace

TEST(HTMLTableGrid, PutsCellsSideBySide)
{
    HTMLTableGrid grid;
    EXPECT_FALSE(grid.hasRow());
    grid.beginRow();
    EXPECT_TRUE(grid.hasRow());
    EXPECT_EQ(grid.row(), 0U);
    EXPECT_EQ(add(grid), 0U);
    EXPECT_EQ(add(grid), 1U);
    grid.beginRow();
    EXPECT_EQ(grid.row(), 1U);
    EXPECT_EQ(add(grid), 0U);
    EXPECT_EQ(grid.columnCount(), 2U);
}

TEST(HTMLTableGrid, KeepsWideCellsTogether)
{
    HTMLTableGrid grid;
    grid.beginRow();
    EXPECT_EQ(add(grid, 3), 0U);
    EXPECT_EQ(add(grid), 3U);
    EXPECT_EQ(grid.columnCount(), 4U);
}

TEST(HTMLTableGrid, StepsOverCellsThatReachDown)
{
    // a b b
    // a c d
    // e f d
    HTMLTableGrid grid;
    grid.beginRow();
    EXPECT_EQ(add(grid, 1, 2), 0U);
    EXPECT_EQ(add(grid, 2), 1U);
    grid.beginRow();
    EXPECT_EQ(add(grid), 1U);
    EXPECT_EQ(add(grid, 1, 2), 2U);
    grid.beginRow();
    EXPECT_EQ(add(grid), 0U);
    EXPECT_EQ(add(grid), 1U);
    EXPECT_EQ(add(grid), 3U);
    EXPECT_EQ(grid.columnCount(), 4U);
}

TEST(HTMLTableGrid, TakesColumnsBeyondTheBoundForTheLast)
{
    HTMLTableGrid grid;
    grid.beginRow();
    grid.place(HTMLTableGrid::kMostColumns + 5, 1, 1);
    EXPECT_EQ(grid.columnCount(), HTMLTableGrid::kMostColumns);
    EXPECT_EQ(grid.nextColumn(), HTMLTableGrid::kMostColumns - 1);
    grid.beginRow();
    grid.place(0, HTMLTableGrid::kMostColumns * 2, 1);
    EXPECT_EQ(grid.columnCount(), HTMLTableGrid::kMostColumns);
}

TEST(HTMLTableGrid, BoundsTheRowsThatACellReachesOver)
{
    HTMLTableGrid grid;
    grid.beginRow();
    grid.place(0, 1, HTMLTableGrid::kMostRowsSpanned * 2);
    for (NSUInteger row = 1; row < HTMLTableGrid::kMostRowsSpanned; ++row)
        grid.beginRow();
    EXPECT_EQ(grid.nextColumn(), 1U);
    grid.beginRow();
    EXPECT_EQ(grid.nextColumn(), 0U);
}

TEST(HTMLTableGrid, GivesACellWithoutAWidthOneColumnAndOneRow)
{
    HTMLTableGrid grid;
    grid.beginRow();
    grid.place(0, 0, 0);
    EXPECT_EQ(grid.columnCount(), 1U);
    grid.beginRow();
    EXPECT_EQ(grid.nextColumn(), 0U);
}
