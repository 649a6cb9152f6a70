// Where paragraphs in boxes stand, and what of the boxes is seen.

#include "platform/layout/TextSheet.h"
#include "tests/drawing/Ink.h"
#include "tests/layout/SampleLayout.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr std::uint32_t kRed = 0xffff0000;
constexpr std::uint32_t kGreen = 0xff00ff00;

class BlockLayout : public ::testing::Test {
protected:
    void SetUp() override { SKIP_WITHOUT_KNOWN_FONT(); }
};

NSMutableAttributedString textInBlocks(std::u16string_view characters, NSParagraphStyle::TextBlocks blocks)
{
    NSMutableParagraphStyle style;
    style.setTextBlocks(std::move(blocks));
    return styledText(characters, style);
}

/// 2 of margin, 3 of border and 5 of padding on each side.
std::shared_ptr<NSTextBlock> box()
{
    auto block = std::make_shared<NSTextBlock>();
    block->setWidth({2}, NSTextBlockLayer::Margin);
    block->setWidth({3}, NSTextBlockLayer::Border);
    block->setWidth({5}, NSTextBlockLayer::Padding);
    return block;
}

TEST_F(BlockLayout, StandsParagraphsWithinMarginBorderAndPadding)
{
    const auto block = box();
    const Laid laid(textInBlocks(u"a\na", {block}), 200);
    EXPECT_NEAR(laid.left(0), 10, kTolerance);
    EXPECT_NEAR(laid.top(0), 10, kTolerance);
    EXPECT_NEAR(laid.top(1), 10 + kLine, kTolerance);
    EXPECT_NEAR(laid.lines[0].rect.size.width, 180, kTolerance);
    const auto bounds = laid.manager.boundsRectForTextBlock(*block);
    EXPECT_EQ(bounds.origin, NSMakePoint(2, 2));
    EXPECT_NEAR(bounds.size.width, 196, kTolerance);
    EXPECT_NEAR(bounds.size.height, 2 * kLine + 16, kTolerance);
    EXPECT_NEAR(laid.manager.usedRect().size.height, 2 * kLine + 20, kTolerance);
}

TEST_F(BlockLayout, KeepsEqualBlocksApart)
{
    const auto one = box();
    const auto other = box();
    auto text = textInBlocks(u"a\n", {one});
    text.appendAttributedString(textInBlocks(u"a", {other}));
    const Laid laid(text.copy(), 200);
    EXPECT_NEAR(laid.top(1), 20 + kLine + 10, kTolerance);
}

TEST_F(BlockLayout, KeepsTheSpacingBeforeItsFirstParagraphInFrontOfIt)
{
    NSMutableParagraphStyle style;
    style.setTextBlocks({box(), box()});
    style.setParagraphSpacingBefore(7);
    auto text = styledText(u"a\n");
    text.appendAttributedString(styledText(u"a\na", style));
    const Laid laid(text.copy(), 200);
    EXPECT_NEAR(laid.top(1), kLine + 7 + 20, kTolerance);
    EXPECT_NEAR(laid.top(2), 2 * kLine + 14 + 20, kTolerance);
    // At the top of the column there is nothing to be apart from.
    EXPECT_NEAR(Laid(styledText(u"a", style), 200).top(0), 20, kTolerance);
}

TEST_F(BlockLayout, NestsBlocks)
{
    const Laid laid(textInBlocks(u"a", {box(), box()}), 200);
    EXPECT_NEAR(laid.left(0), 20, kTolerance);
    EXPECT_NEAR(laid.top(0), 20, kTolerance);
}

TEST_F(BlockLayout, IsAsWideAsItSays)
{
    struct Case {
        NSTextBlock::Value width;
        NSTextBlock::Value minimum;
        NSTextBlock::Value maximum;
        double expected;
    };

    constexpr auto kPercent = NSTextBlockValueType::Percentage;
    for (const auto& [width, minimum, maximum, expected] :
         {Case{{100}, {}, {}, 100}, Case{{50, kPercent}, {}, {}, 100}, Case{{}, {}, {60}, 60},
          Case{{30}, {70}, {}, 70}, Case{{900}, {}, {}, 200}, Case{{1}, {}, {}, 20}}) {
        const auto block = std::make_shared<NSTextBlock>();
        block->setContentWidth(width);
        block->setValue(minimum, NSTextBlockDimension::MinimumWidth);
        block->setValue(maximum, NSTextBlockDimension::MaximumWidth);
        const Laid laid(textInBlocks(u"a", {block}), 200);
        EXPECT_NEAR(laid.manager.boundsRectForTextBlock(*block).size.width, expected, kTolerance);
    }
}

TEST_F(BlockLayout, IsAsHighAsItSaysButHoldsItsText)
{
    const auto height = [](NSTextBlockDimension dimension, double value) {
        const auto block = std::make_shared<NSTextBlock>();
        block->setValue({value}, dimension);
        return Laid(textInBlocks(u"a", {block}), 200).manager.boundsRectForTextBlock(*block).size.height;
    };
    EXPECT_NEAR(height(NSTextBlockDimension::Height, 80), 80, kTolerance);
    EXPECT_NEAR(height(NSTextBlockDimension::MinimumHeight, 80), 80, kTolerance);
    EXPECT_NEAR(height(NSTextBlockDimension::Height, 5), kLine, kTolerance);
    EXPECT_NEAR(height(NSTextBlockDimension::MaximumHeight, 5), kLine, kTolerance);
}

TEST_F(BlockLayout, DrawsGroundAndBordersOfEachEdge)
{
    const auto block = box();
    block->setBackgroundColor(NSColor::colorWithRed(1, 0, 0, 1));
    block->setBorderColor(NSColor::colorWithRed(0, 1, 0, 1), NSRectEdge::MinX);
    block->setWidth({}, NSTextBlockLayer::Border, NSRectEdge::MaxX);
    const TextSheet sheet(textInBlocks(u" ", {block}).copy(),
                          {.width = 100, .margins = {}, .backgroundColor = nullptr});
    const auto pixels = sheet.surface().pixels(sheet.drawing()).value();
    EXPECT_EQ(pixel(pixels, 1, 20), 0U);
    EXPECT_EQ(pixel(pixels, 3, 20), kGreen);
    EXPECT_EQ(pixel(pixels, 6, 20), kRed);
    EXPECT_EQ(pixel(pixels, 97, 20), kRed);
    EXPECT_EQ(pixel(pixels, 98, 20), 0U);
}

TEST_F(BlockLayout, StandsNumbersThatNoPageCouldShow)
{
    for (const auto value : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300}) {
        const auto block = std::make_shared<NSTextBlock>();
        for (const auto layer :
             {NSTextBlockLayer::Margin, NSTextBlockLayer::Border, NSTextBlockLayer::Padding})
            block->setWidth({value, NSTextBlockValueType::Percentage}, layer);
        block->setContentWidth({value});
        block->setValue({value}, NSTextBlockDimension::Height);
        const TextSheet sheet(textInBlocks(u"a\na", {block}).copy(), {.width = 100});
        const auto height = sheet.layoutManager().usedRect().size.height;
        EXPECT_TRUE(height > 0 && height < 1e7);
    }
}

TEST_F(BlockLayout, LeavesOutBlocksThatAreTooDeep)
{
    NSParagraphStyle::TextBlocks blocks;
    for (int i = 0; i < 10000; ++i)
        blocks.push_back(box());
    const Laid laid(textInBlocks(u"a", blocks), 1000);
    EXPECT_NEAR(laid.left(0), 10 * static_cast<double>(kDeepestBlock), kTolerance);
}

} // namespace
