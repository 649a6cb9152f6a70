// What of a text stands on which page, and where.

#include "platform/layout/TextPages.h"

#include "platform/text/NSTextTable.h"
#include "tests/drawing/Ink.h"
#include "tests/layout/SampleLayout.h"

#include <gtest/gtest.h>

namespace {

class TextPagesTest : public ::testing::Test {
protected:
    void SetUp() override { SKIP_WITHOUT_KNOWN_FONT(); }
};

/// Four lines of 23.84 fit in the height.
const TextPagesOptions kSmallPages{
    .paper = {200, 120}, .margins = {10, 10, 10, 10}, .backgroundColor = nullptr};

NSAttributedString lines(std::size_t count)
{
    std::u16string characters;
    for (std::size_t i = 0; i < count; ++i)
        characters += u"M\n";
    return styledText(characters).copy();
}

BitmapPixels pixelsOfPage(const TextPages& pages, std::size_t index)
{
    return pages.surface().pixels(pages.drawings().at(index)).value();
}

TEST_F(TextPagesTest, CountsThePagesThatAreNeeded)
{
    EXPECT_EQ(TextPages(lines(4), kSmallPages).count(), 1U);
    EXPECT_EQ(TextPages(lines(5), kSmallPages).count(), 2U);
    EXPECT_EQ(TextPages(lines(9), kSmallPages).count(), 3U);
}

TEST_F(TextPagesTest, IsOnePageWithoutText)
{
    const TextPages pages({}, kSmallPages);
    EXPECT_EQ(pages.count(), 1U);
    EXPECT_EQ(amountOfInk(pixelsOfPage(pages, 0)), 0);
}

TEST_F(TextPagesTest, BeginsEachPageAtTheUpperMargin)
{
    const TextPages pages(lines(9), kSmallPages);
    const auto first = inkOf(pixelsOfPage(pages, 0));
    const auto last = inkOf(pixelsOfPage(pages, 2));
    EXPECT_EQ(first.top, last.top);
    EXPECT_EQ(first.left, last.left);
    EXPECT_LT(last.bottom, first.bottom);
    EXPECT_LE(first.bottom, 110U);
}

TEST_F(TextPagesTest, DrawsEveryLineOnce)
{
    const TextPages pages(lines(9), kSmallPages);
    const TextPages whole(lines(9),
                          {.paper = {200, 1000}, .margins = {10, 10, 10, 10}, .backgroundColor = nullptr});
    double ink = 0;
    for (std::size_t page = 0; page < pages.count(); ++page)
        ink += amountOfInk(pixelsOfPage(pages, page));
    // Letters stand between pixels elsewhere on another page.
    EXPECT_NEAR(ink / amountOfInk(pixelsOfPage(whole, 0)), 1, 0.02);
}

TEST_F(TextPagesTest, DrawsEveryLineOfALongParagraphOnce)
{
    // Longer than what is set at once, so that pages begin within what was set before.
    std::u16string characters;
    while (characters.size() < 9'000)
        characters += u"MMMM MM ";
    const auto text = styledText(characters).copy();
    const TextPages pages(text, {.paper = {400, 1000}, .margins = {}, .backgroundColor = nullptr});
    const TextPages whole(text, {.paper = {400, 14000}, .margins = {}, .backgroundColor = nullptr});
    ASSERT_EQ(whole.count(), 1U);
    ASSERT_GT(pages.count(), 5U);
    double ink = 0;
    for (std::size_t page = 0; page < pages.count(); ++page)
        ink += amountOfInk(pixelsOfPage(pages, page));
    EXPECT_NEAR(ink / amountOfInk(pixelsOfPage(whole, 0)), 1, 0.02);
}

TEST_F(TextPagesTest, FillsTheWholePageWithItsBackground)
{
    auto options = kSmallPages;
    options.backgroundColor = NSColor::colorWithRed(1, 0, 0, 1);
    const TextPages pages(lines(5), options);
    for (std::size_t page = 0; page < 2; ++page) {
        EXPECT_EQ(pixel(pixelsOfPage(pages, page), 0, 0), 0xffff0000U);
        EXPECT_EQ(pixel(pixelsOfPage(pages, page), 199, 119), 0xffff0000U);
    }
}

TEST_F(TextPagesTest, DrawsABlockOnEachPageThatItIsOn)
{
    auto block = std::make_shared<NSTextBlock>();
    block->setBackgroundColor(NSColor::colorWithRed(0, 1, 0, 1));
    NSMutableParagraphStyle style;
    style.setTextBlocks({block});
    const TextPages pages(styledText(u"M\nM\nM\nM\nM\nM\n", style).copy(), kSmallPages);
    ASSERT_EQ(pages.count(), 2U);
    EXPECT_EQ(pixel(pixelsOfPage(pages, 0), 100, 12), 0xff00ff00U);
    EXPECT_EQ(pixel(pixelsOfPage(pages, 0), 100, 100), 0xff00ff00U);
    EXPECT_EQ(pixel(pixelsOfPage(pages, 1), 100, 12), 0xff00ff00U);
    // Two lines of it are left, and nothing is drawn in the margin.
    EXPECT_EQ(pixel(pixelsOfPage(pages, 1), 100, 70), 0U);
    EXPECT_EQ(pixel(pixelsOfPage(pages, 1), 100, 5), 0U);
}

TEST_F(TextPagesTest, CutsATableBetweenItsLines)
{
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(2);
    NSMutableAttributedString text;
    for (int column = 0; column < 2; ++column) {
        NSMutableParagraphStyle style;
        style.setTextBlocks({std::make_shared<NSTextTableBlock>(table, 0, 1, column, 1)});
        text.appendAttributedString(styledText(u"M\nM\nM\nM\nM\nM\n", style).copy());
    }
    const TextPages pages(text.copy(), kSmallPages);
    ASSERT_EQ(pages.count(), 2U);
    EXPECT_EQ(pages.pages()[0].ranges, (std::vector<NSRange>{{0, 8}, {12, 8}}));
    EXPECT_EQ(pages.pages()[1].ranges, (std::vector<NSRange>{{8, 4}, {20, 4}}));
    const auto ink = inkOf(pixelsOfPage(pages, 1));
    EXPECT_LT(ink.left, 30U);
    EXPECT_GT(ink.right, 110U);
}

TEST_F(TextPagesTest, HasAPageForPaperWithoutRoomOrMeasure)
{
    for (const double side : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        const TextPages pages(styledText(u"M").copy(), {.paper = {side, side}});
        EXPECT_EQ(pages.count(), 1U);
    }
}

TEST_F(TextPagesTest, GivesADocumentWithAsManyPages)
{
    const TextPages pages(lines(9), kSmallPages);
    EXPECT_EQ(pages.drawings().size(), 3U);
    EXPECT_TRUE(pages.surface().PDFRepresentation(pages.drawings())->bytes.starts_with("%PDF"));
}

} // namespace
