// Where the cells of tables stand.

#include "platform/layout/TextSheet.h"
#include "platform/text/NSTextTable.h"
#include "tests/drawing/Ink.h"
#include "tests/layout/SampleLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

class TableLayout : public ::testing::Test {
protected:
    void SetUp() override { SKIP_WITHOUT_KNOWN_FONT(); }

    using Cell = std::shared_ptr<NSTextTableBlock>;

    Cell cell(NSInteger row, NSInteger column, NSInteger rowSpan = 1, NSInteger columnSpan = 1)
    {
        return std::make_shared<NSTextTableBlock>(m_table, row, rowSpan, column, columnSpan);
    }

    /// Adds a cell with that text.
    Cell add(const Cell& block, std::u16string_view characters = u"a\n")
    {
        NSMutableParagraphStyle style;
        style.setTextBlocks({block});
        m_text.appendAttributedString(styledText(characters, style));
        return block;
    }

    std::shared_ptr<NSTextTable> m_table = std::make_shared<NSTextTable>();
    NSMutableAttributedString m_text;
};

TEST_F(TableLayout, StandsCellsInAGrid)
{
    const std::vector cells{add(cell(0, 0)), add(cell(0, 1)), add(cell(1, 0)), add(cell(1, 1))};
    const Laid laid(m_text.copy(), 200);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto bounds = laid.manager.boundsRectForTextBlock(*cells[i]);
        EXPECT_NEAR(bounds.origin.x, i % 2 == 0 ? 0 : 100, kTolerance);
        EXPECT_NEAR(bounds.origin.y, i < 2 ? 0 : kLine, kTolerance);
        EXPECT_NEAR(bounds.size.width, 100, kTolerance);
        EXPECT_NEAR(bounds.size.height, kLine, kTolerance);
    }
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*m_table).size.height, 2 * kLine, kTolerance);
    // The empty line behind the last line end stands below the table.
    EXPECT_NEAR(laid.manager.usedRect().size.height, 3 * kLine, kTolerance);
}

TEST_F(TableLayout, MakesARowAsHighAsItsHighestCell)
{
    add(cell(0, 0), u"a\na\na\n");
    const auto beside = add(cell(0, 1));
    const auto below = add(cell(1, 0));
    const Laid laid(m_text.copy(), 200);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*beside).size.height, 3 * kLine, kTolerance);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*below).origin.y, 3 * kLine, kTolerance);
}

TEST_F(TableLayout, SpansColumns)
{
    const auto wide = add(cell(0, 0, 1, 2));
    add(cell(1, 0));
    add(cell(1, 1));
    const Laid laid(m_text.copy(), 200);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*wide).size.width, 200, kTolerance);
}

TEST_F(TableLayout, SpansRowsAndMakesTheLastOfThemHigher)
{
    const auto high = add(cell(0, 0, 2, 1), u"a\na\na\n");
    const auto first = add(cell(0, 1));
    const auto second = add(cell(1, 1));
    const auto third = add(cell(2, 1));
    const Laid laid(m_text.copy(), 200);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*high).size.height, 3 * kLine, kTolerance);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*first).size.height, kLine, kTolerance);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*second).size.height, 2 * kLine, kTolerance);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*third).origin.y, 3 * kLine, kTolerance);
}

TEST_F(TableLayout, AlignsContentWithinItsRow)
{
    struct Case {
        NSTextBlockVerticalAlignment alignment;
        double top;
    };

    add(cell(0, 0), u"a\na\na\n");
    std::vector<double> expected;
    NSInteger column = 1;
    for (const auto& [alignment, top] :
         {Case{NSTextBlockVerticalAlignment::Top, 0}, Case{NSTextBlockVerticalAlignment::Middle, kLine},
          Case{NSTextBlockVerticalAlignment::Bottom, 2 * kLine}}) {
        const auto block = cell(0, column++);
        block->setVerticalAlignment(alignment);
        add(block);
        expected.push_back(top);
    }
    const Laid laid(m_text.copy(), 400);
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(laid.top(3 + i), expected[i], kTolerance);
}

TEST_F(TableLayout, TakesWidthsInPointsForTheContentAndPercentForTheColumn)
{
    const auto points = cell(0, 0);
    points->setContentWidth({40});
    points->setWidth({5}, NSTextBlockLayer::Padding);
    const auto percent = cell(0, 1);
    percent->setContentWidth({25, NSTextBlockValueType::Percentage});
    percent->setWidth({5}, NSTextBlockLayer::Padding);
    add(points);
    add(percent);
    const auto rest = add(cell(0, 2));
    const Laid laid(m_text.copy(), 400);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*points).size.width, 50, kTolerance);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*percent).size.width, 100, kTolerance);
    EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*rest).size.width, 250, kTolerance);
}

TEST_F(TableLayout, SharesWidthByContentUnlessItIsFixed)
{
    const auto narrow = add(cell(0, 0));
    add(cell(0, 1), u"aaaaaaaaa aaaaaaaaaaaaaaaaa aaaaaaaaaaaaaaa\n");
    EXPECT_LT(Laid(m_text.copy(), 200).manager.boundsRectForTextBlock(*narrow).size.width, 20);
    m_table->setLayoutAlgorithm(NSTextTableLayoutAlgorithm::Fixed);
    EXPECT_NEAR(Laid(m_text.copy(), 200).manager.boundsRectForTextBlock(*narrow).size.width, 100, kTolerance);
}

TEST_F(TableLayout, KeepsRoomForColumnsWithoutCells)
{
    m_table->setNumberOfColumns(4);
    const auto only = add(cell(0, 1));
    const Laid laid(m_text.copy(), 400);
    const auto bounds = laid.manager.boundsRectForTextBlock(*only);
    EXPECT_GT(bounds.origin.x, 50);
    EXPECT_LT(bounds.origin.x + bounds.size.width, 300);
}

TEST_F(TableLayout, StandsTablesWithinCells)
{
    const auto outer = cell(0, 1);
    add(cell(0, 0));
    const auto inner = std::make_shared<NSTextTable>();
    std::vector<Cell> cells;
    for (NSInteger row = 0; row < 2; ++row) {
        cells.push_back(std::make_shared<NSTextTableBlock>(inner, row, 1, 0, 1));
        NSMutableParagraphStyle style;
        style.setTextBlocks({outer, cells.back()});
        m_text.appendAttributedString(styledText(u"a\n", style));
    }
    const Laid laid(m_text.copy(), 200);
    const auto around = laid.manager.boundsRectForTextBlock(*outer);
    EXPECT_NEAR(around.size.height, 2 * kLine, kTolerance);
    const auto second = laid.manager.boundsRectForTextBlock(*cells[1]);
    EXPECT_NEAR(second.origin.x, around.origin.x, kTolerance);
    EXPECT_NEAR(second.origin.y, kLine, kTolerance);
}

TEST_F(TableLayout, LeavesCollapsedBordersToTheCellBefore)
{
    m_table->setCollapsesBorders(true);
    for (NSInteger i = 0; i < 4; ++i) {
        const auto block = cell(i / 2, i % 2);
        block->setWidth({10}, NSTextBlockLayer::Border);
        add(block);
    }
    const Laid laid(m_text.copy(), 200);
    EXPECT_NEAR(laid.left(0), 10, kTolerance);
    EXPECT_NEAR(laid.left(1), laid.manager.boundsRectForTextBlock(*m_table).size.width / 2, 10);
    EXPECT_NEAR(laid.top(2), 10 + kLine + 10, kTolerance);
}

TEST_F(TableLayout, HidesEmptyCellsWhereTheTableSaysSo)
{
    const auto block = cell(0, 0);
    block->setBackgroundColor(NSColor::colorWithRed(1, 0, 0, 1));
    add(block, u"\n");
    const auto isSeen = [&] {
        const TextSheet sheet(m_text.copy(), {.width = 100, .margins = {}, .backgroundColor = nullptr});
        return hasColor(sheet.surface().pixels(sheet.drawing()).value(), 0xffff0000);
    };
    EXPECT_TRUE(isSeen());
    m_table->setHidesEmptyCells(true);
    EXPECT_FALSE(isSeen());
}

TEST_F(TableLayout, StandsPlacesThatNoTableHas)
{
    constexpr auto kLeast = std::numeric_limits<NSInteger>::min();
    constexpr auto kMost = std::numeric_limits<NSInteger>::max();
    m_table->setNumberOfColumns(std::numeric_limits<NSUInteger>::max());
    for (const auto one : {kLeast, kMost, NSInteger{0}, NSInteger{-1}}) {
        for (const auto other : {kLeast, kMost, NSInteger{0}})
            add(cell(one, other, other, one));
    }
    const Laid laid(m_text.copy(), 300);
    EXPECT_EQ(laid.lines.size(), 12U);
    EXPECT_LT(laid.manager.usedRect().size.height, 1e5);
}

TEST_F(TableLayout, TakesATableOrALostTablesCellForAPlainBlock)
{
    NSMutableParagraphStyle style;
    style.setTextBlocks({m_table});
    m_text.appendAttributedString(styledText(u"a\n", style));
    style.setTextBlocks({std::make_shared<NSTextTableBlock>(nullptr, 0, 1, 0, 1)});
    m_text.appendAttributedString(styledText(u"a\n", style));
    add(cell(0, 0), u"a");
    const Laid laid(m_text.copy(), 300);
    ASSERT_EQ(laid.lines.size(), 3U);
    EXPECT_NEAR(laid.top(2), 2 * kLine, kTolerance);
}

TEST_F(TableLayout, LaysOutManyRowsThatAllSpanTheRest)
{
    for (NSInteger row = 0; row < 2000; ++row)
        add(cell(row, row % 3, 5000, 1));
    const Laid laid(m_text.copy(), 300);
    EXPECT_EQ(laid.lines.size(), 2000U);
}

} // namespace
