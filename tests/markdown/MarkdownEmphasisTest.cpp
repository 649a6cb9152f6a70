#include "markdown/MarkdownEmphasis.h"

#include <gtest/gtest.h>

namespace {

/// Delimiters that may open and close, at every second piece.
std::vector<MarkdownDelimiter> delimitersOf(std::initializer_list<std::size_t> lengths)
{
    std::vector<MarkdownDelimiter> delimiters;
    for (const auto length : lengths)
        delimiters.push_back({delimiters.size() * 2, u'*', length, length, true, true});
    return delimiters;
}

std::vector<MarkdownStyleRange> rangesOf(std::vector<MarkdownDelimiter>& delimiters)
{
    std::vector<MarkdownStyleRange> ranges;
    pairDelimiters(delimiters, ranges);
    return ranges;
}

} // namespace

TEST(MarkdownEmphasis, PairsOneSignAndTwo)
{
    auto delimiters = delimitersOf({1, 1, 2, 2});
    delimiters[0].canClose = delimiters[2].canClose = false;
    const auto ranges = rangesOf(delimiters);
    ASSERT_EQ(ranges.size(), 2U);
    EXPECT_EQ(ranges[0].style, MarkdownStyle::Emphasis);
    EXPECT_EQ(ranges[0].first, 1U);
    EXPECT_EQ(ranges[0].end, 2U);
    EXPECT_EQ(ranges[1].style, MarkdownStyle::Strong);
    EXPECT_EQ(ranges[1].first, 5U);
    EXPECT_EQ(ranges[1].end, 6U);
}

TEST(MarkdownEmphasis, LeavesSignsWithoutTheirOtherHalf)
{
    auto delimiters = delimitersOf({3, 1});
    delimiters[0].canClose = delimiters[1].canOpen = false;
    EXPECT_EQ(rangesOf(delimiters).size(), 1U);
    EXPECT_EQ(delimiters[0].count, 2U);
    EXPECT_EQ(delimiters[1].count, 0U);
}

TEST(MarkdownEmphasis, GoesByTheNumberOfSignsWhereBothHalvesCouldBeEither)
{
    auto delimiters = delimitersOf({1, 2});
    EXPECT_TRUE(rangesOf(delimiters).empty());
    auto threes = delimitersOf({3, 3});
    EXPECT_EQ(rangesOf(threes).size(), 2U);
}

TEST(MarkdownEmphasis, PairsTildesOfOneLengthOnly)
{
    auto delimiters = delimitersOf({1, 2, 1});
    for (auto& delimiter : delimiters)
        delimiter.sign = u'~';
    const auto ranges = rangesOf(delimiters);
    ASSERT_EQ(ranges.size(), 1U);
    EXPECT_EQ(ranges[0].style, MarkdownStyle::Strike);
    EXPECT_EQ(ranges[0].end, 4U);
    EXPECT_EQ(delimiters[1].count, 2U);
}

TEST(MarkdownEmphasis, PairsLongRunsWholly)
{
    auto delimiters = delimitersOf({10'001, 10'001});
    delimiters[0].canClose = delimiters[1].canOpen = false;
    EXPECT_EQ(rangesOf(delimiters).size(), 5'001U);
    EXPECT_EQ(delimiters[0].count + delimiters[1].count, 0U);
}
