#include "platform/text/NSTextBlock.h"

#include "tests/support/KeyedValues.h"

#include <gtest/gtest.h>

namespace {

using Value = NSTextBlock::Value;
constexpr auto kPercentage = NSTextBlockValueType::Percentage;

NSTextBlock::Ref read(KeyedValues::Values values)
{
    return KeyedValues::make(NSTextBlock::classObject(), std::move(values)).object<NSTextBlock>();
}

} // namespace

TEST(NSTextBlock, HasNothingAtFirst)
{
    const NSTextBlock block;
    EXPECT_EQ(block.contentWidth(), Value());
    EXPECT_EQ(block.backgroundColor(), nullptr);
    for (const auto edge : kRectEdges) {
        EXPECT_EQ(block.widthForLayer(NSTextBlockLayer::Border, edge), Value());
        EXPECT_EQ(block.borderColorForEdge(edge), nullptr);
    }
    EXPECT_EQ(KeyedValues::of(block), KeyedValues::Values());
}

TEST(NSTextBlock, KeepsEachWidthByItself)
{
    NSTextBlock block;
    block.setWidth({1}, NSTextBlockLayer::Padding);
    block.setWidth({2}, NSTextBlockLayer::Border, NSRectEdge::MaxY);
    block.setWidth({3, kPercentage}, NSTextBlockLayer::Margin, NSRectEdge::MinX);
    EXPECT_EQ(block.widthForLayer(NSTextBlockLayer::Padding, NSRectEdge::MaxX), Value{1});
    EXPECT_EQ(block.widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MaxY), Value{2});
    EXPECT_EQ(block.widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinY), Value());
    EXPECT_EQ(block.widthForLayer(NSTextBlockLayer::Margin, NSRectEdge::MinX), (Value{3, kPercentage}));
}

TEST(NSTextBlock, IsAnIdentity)
{
    EXPECT_FALSE(NSTextBlock().isEqual(NSTextBlock()));
}

TEST(NSTextBlock, ArchivesWhatWasSet)
{
    NSTextBlock block;
    block.setContentWidth({50, kPercentage});
    block.setValue({10}, NSTextBlockDimension::MaximumHeight);
    block.setWidth({1}, NSTextBlockLayer::Border, NSRectEdge::MinX);
    block.setVerticalAlignment(NSTextBlockVerticalAlignment::Bottom);
    block.setBackgroundColor(NSColor::redColor());
    block.setBorderColor(NSColor::blueColor(), NSRectEdge::MaxY);
    EXPECT_EQ(KeyedValues::of(block),
              (KeyedValues::Values{{"NSWidth", 50.0},
                                   {"NSWidthType", 1},
                                   {"NSMaxHeight", 10.0},
                                   {"NSBorderMinX", 1.0},
                                   {"NSVerticalAlignment", 2},
                                   {"NSBackgroundColor", NSColor::redColor()},
                                   {"NSBorderColorMaxY", NSColor::blueColor()}}));
}

TEST(NSTextBlock, ReadsWhatItWrote)
{
    NSTextBlock block;
    double value = 1;
    for (const auto dimension : {NSTextBlockDimension::Width, NSTextBlockDimension::MinimumWidth,
                                 NSTextBlockDimension::MaximumWidth, NSTextBlockDimension::Height,
                                 NSTextBlockDimension::MinimumHeight, NSTextBlockDimension::MaximumHeight})
        block.setValue({value++, kPercentage}, dimension);
    for (const auto layer : {NSTextBlockLayer::Padding, NSTextBlockLayer::Border, NSTextBlockLayer::Margin}) {
        for (const auto edge : kRectEdges)
            block.setWidth({value++}, layer, edge);
    }
    block.setBorderColor(NSColor::blueColor());
    const auto values = KeyedValues::of(block);
    EXPECT_EQ(values.size(), 6U * 2 + 12 + 4);
    const auto back = read(values);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(KeyedValues::of(*back), values);
    EXPECT_EQ(back->valueForDimension(NSTextBlockDimension::MinimumHeight), (Value{5, kPercentage}));
}

TEST(NSTextBlock, ReadsMalformedValuesAsDefaults)
{
    const auto block = read(
        {{"NSWidth", u"text"}, {"NSWidthType", 9}, {"NSVerticalAlignment", 4}, {"NSBackgroundColor", 1}});
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(KeyedValues::of(*block), KeyedValues::Values());
}
