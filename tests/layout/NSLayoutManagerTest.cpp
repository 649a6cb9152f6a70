// Where lines stand: all numbers follow from the font's measures and the paragraph's style.

#include "platform/layout/LayoutLimits.h"
#include "platform/layout/ParagraphLines.h"
#include "tests/layout/SampleLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

class NSLayoutManagerLines : public ::testing::Test {
protected:
    void SetUp() override { SKIP_WITHOUT_KNOWN_FONT(); }
};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST_F(NSLayoutManagerLines, SetsLinesBelowEachOther)
{
    const Laid laid(styledText(u"aa\naaa"), 300);
    ASSERT_EQ(laid.lines.size(), 2U);
    EXPECT_NEAR(laid.top(1), kLine, kTolerance);
    EXPECT_NEAR(laid.lines[1].baseline, kLine + kAscent, kTolerance);
    EXPECT_NEAR(laid.right(0), 2 * kLetter, kTolerance);
    EXPECT_EQ(laid.lines[0].range, NSMakeRange(0, 3));
    EXPECT_EQ(laid.lines[1].range, NSMakeRange(3, 3));
    EXPECT_NEAR(laid.manager.usedRect().size.height, 2 * kLine, kTolerance);
    EXPECT_EQ(laid.manager.usedRect().size.width, 300);
}

TEST_F(NSLayoutManagerLines, CountsTheEmptyLineBehindTheLastLineEnd)
{
    EXPECT_NEAR(Laid(styledText(u"aa\n"), 300).manager.usedRect().size.height, 2 * kLine, kTolerance);
    EXPECT_EQ(Laid(NSAttributedString(), 300).manager.usedRect().size.height, 0);
}

TEST_F(NSLayoutManagerLines, BreaksLinesAtTheColumnsWidth)
{
    // "aaa aaa" is 3 + 3 letters and a blank: 81.81 wide.
    EXPECT_EQ(Laid(styledText(u"aaa aaa"), 82).lines.size(), 1U);
    const Laid laid(styledText(u"aaa aaa"), 81);
    ASSERT_EQ(laid.lines.size(), 2U);
    EXPECT_EQ(laid.lines[0].range, NSMakeRange(0, 4));
    EXPECT_EQ(laid.lines[1].range, NSMakeRange(4, 3));
}

TEST_F(NSLayoutManagerLines, BreaksBetweenLettersWhereTheStyleSaysSo)
{
    NSMutableParagraphStyle style;
    style.setLineBreakMode(NSLineBreakMode::CharWrapping);
    const Laid laid(styledText(u"aa aaa", style), 60);
    ASSERT_EQ(laid.lines.size(), 2U);
    EXPECT_EQ(laid.lines[0].range, NSMakeRange(0, 5));
}

TEST_F(NSLayoutManagerLines, KeepsClippedAndTruncatedParagraphsOnOneLine)
{
    for (const auto mode : {NSLineBreakMode::Clipping, NSLineBreakMode::TruncatingHead,
                            NSLineBreakMode::TruncatingMiddle, NSLineBreakMode::TruncatingTail}) {
        NSMutableParagraphStyle style;
        style.setLineBreakMode(mode);
        EXPECT_EQ(Laid(styledText(u"aaa aaa aaa aaa", style), 60).lines.size(), 1U);
    }
}

TEST_F(NSLayoutManagerLines, BeginsALineOfTheSameParagraphBehindSeparators)
{
    for (const auto* characters : {u"aa\x2028"
                                   u"a",
                                   u"aa\x85"
                                   u"a",
                                   u"aa\f"
                                   u"a",
                                   u"aa\v"
                                   u"a"}) {
        NSMutableParagraphStyle style;
        style.setFirstLineHeadIndent(10);
        style.setHeadIndent(30);
        style.setParagraphSpacing(50);
        const Laid laid(styledText(characters, style), 300);
        ASSERT_EQ(laid.lines.size(), 2U);
        EXPECT_NEAR(laid.left(0), 10, kTolerance);
        EXPECT_NEAR(laid.left(1), 30, kTolerance);
        EXPECT_NEAR(laid.top(1), kLine, kTolerance);
    }
}

TEST_F(NSLayoutManagerLines, TakesCarriageReturnAndLineFeedForOneLineEnd)
{
    const Laid laid(styledText(u"aa\r\na"), 300);
    ASSERT_EQ(laid.lines.size(), 2U);
    EXPECT_EQ(laid.lines[0].range, NSMakeRange(0, 4));
}

TEST_F(NSLayoutManagerLines, IndentsFirstAndOtherLinesAndTheTail)
{
    NSMutableParagraphStyle style;
    style.setFirstLineHeadIndent(40);
    style.setHeadIndent(10);
    style.setTailIndent(-20);
    // 80 are left of the column: 40 for the first line, 70 for the others.
    const Laid laid(styledText(u"aaa aaaaa aaa", style), 100);
    ASSERT_EQ(laid.lines.size(), 3U);
    EXPECT_NEAR(laid.left(0), 40, kTolerance);
    EXPECT_NEAR(laid.left(1), 10, kTolerance);
    EXPECT_EQ(laid.lines[1].range, NSMakeRange(4, 6));
}

TEST_F(NSLayoutManagerLines, MeasuresAPositiveTailIndentFromTheEdgeWhereLinesBegin)
{
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Right);
    style.setTailIndent(90);
    EXPECT_NEAR(Laid(styledText(u"aa", style), 300).right(0), 90, kTolerance);
}

TEST_F(NSLayoutManagerLines, AlignsLinesBetweenTheirIndents)
{
    struct Case {
        NSTextAlignment alignment;
        double left;
    };

    const auto width = 2 * kLetter;
    for (const auto& [alignment, left] :
         {Case{NSTextAlignment::Left, 20}, Case{NSTextAlignment::Natural, 20},
          Case{NSTextAlignment::Center, 20 + (180 - width) / 2}, Case{NSTextAlignment::Right, 200 - width},
          Case{NSTextAlignment::Justified, 20}}) {
        NSMutableParagraphStyle style;
        style.setAlignment(alignment);
        style.setFirstLineHeadIndent(20);
        EXPECT_NEAR(Laid(styledText(u"aa", style), 200).left(0), left, kTolerance);
    }
}

TEST_F(NSLayoutManagerLines, FillsJustifiedLinesButTheLast)
{
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Justified);
    const Laid laid(styledText(u"aa aa aa aa", style), 100);
    ASSERT_EQ(laid.lines.size(), 2U);
    EXPECT_NEAR(laid.right(0), 100, kTolerance);
    EXPECT_NEAR(laid.right(1), 2 * kLetter, kTolerance);
}

TEST_F(NSLayoutManagerLines, BeginsAtTheRightForTextFromRightToLeft)
{
    NSMutableParagraphStyle style;
    style.setFirstLineHeadIndent(15);
    EXPECT_NEAR(Laid(styledText(u"\x05E9\x05DC", style), 200).right(0), 185, kTolerance);
    style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
    EXPECT_NEAR(Laid(styledText(u"aa", style), 200).right(0), 185, kTolerance);
    style.setBaseWritingDirection(NSWritingDirection::LeftToRight);
    EXPECT_NEAR(Laid(styledText(u"\x05E9\x05DC", style), 200).left(0), 15, kTolerance);
    style.setAlignment(NSTextAlignment::Left);
    style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
    EXPECT_NEAR(Laid(styledText(u"aa", style), 200).left(0), 0, kTolerance);
}

TEST_F(NSLayoutManagerLines, SpacesLinesAndParagraphs)
{
    NSMutableParagraphStyle style;
    style.setLineSpacing(3);
    style.setParagraphSpacing(5);
    style.setParagraphSpacingBefore(7);
    const Laid laid(styledText(u"aaa aaa\na", style), 60);
    ASSERT_EQ(laid.lines.size(), 3U);
    EXPECT_NEAR(laid.top(0), 0, kTolerance); // Nothing is above the first paragraph.
    EXPECT_NEAR(laid.top(1), kLine + 3, kTolerance);
    EXPECT_NEAR(laid.top(2), 2 * (kLine + 3) + 5 + 7, kTolerance);
}

TEST_F(NSLayoutManagerLines, BoundsAndMultipliesLineHeightsAboveTheLetters)
{
    NSMutableParagraphStyle style;
    style.setLineHeightMultiple(2);
    EXPECT_NEAR(Laid(styledText(u"a", style), 60).height(0), 2 * kLine, kTolerance);
    EXPECT_NEAR(Laid(styledText(u"a", style), 60).lines[0].baseline, kLine + kAscent, kTolerance);
    style.setMaximumLineHeight(30);
    EXPECT_NEAR(Laid(styledText(u"a", style), 60).height(0), 30, kTolerance);
    style.setMinimumLineHeight(40);
    EXPECT_NEAR(Laid(styledText(u"a", style), 60).height(0), 40, kTolerance);
}

TEST_F(NSLayoutManagerLines, PutsTextAtTabStops)
{
    NSMutableParagraphStyle style;
    const auto stop = [](NSTextAlignment alignment, double location) {
        return std::make_shared<const NSTextTab>(alignment, location);
    };
    style.setTabStops({stop(NSTextAlignment::Left, 50)});
    EXPECT_NEAR(Laid(styledText(u"\ta", style), 400).right(0), 50 + kLetter, kTolerance);
    style.setTabStops({stop(NSTextAlignment::Right, 90)});
    EXPECT_NEAR(Laid(styledText(u"\taa", style), 400).right(0), 90, kTolerance);
    style.setTabStops({stop(NSTextAlignment::Center, 90)});
    EXPECT_NEAR(Laid(styledText(u"\taa", style), 400).right(0), 90 + kLetter, kTolerance);
    // Stops count from the column's edge, not from the indent.
    style.setFirstLineHeadIndent(30);
    style.setTabStops({stop(NSTextAlignment::Left, 50)});
    EXPECT_NEAR(Laid(styledText(u"\ta", style), 400).right(0), 50 + kLetter, kTolerance);
}

TEST_F(NSLayoutManagerLines, PutsTheDecimalPointAtADecimalTab)
{
    NSMutableParagraphStyle style;
    style.setTabStops({std::make_shared<const NSTextTab>(
        NSTextAlignment::Right, 90,
        NSAny::Dictionary{{std::u16string(NSTabColumnTerminatorsAttributeName), NSAny(u".")}})});
    const Laid whole(styledText(u"\taa.a", style), 400);
    const Laid longer(styledText(u"\ta.aa", style), 400);
    EXPECT_NEAR(longer.right(0) - whole.right(0), kLetter, kTolerance);
}

TEST_F(NSLayoutManagerLines, GoesOnWithTheDefaultIntervalBehindTheLastStop)
{
    NSMutableParagraphStyle style;
    style.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Left, 50)});
    style.setDefaultTabInterval(40);
    // Behind 50 comes the next multiple of 40.
    EXPECT_NEAR(Laid(styledText(u"\t\ta", style), 400).right(0), 80 + kLetter, kTolerance);
    style.setDefaultTabInterval(0);
    EXPECT_NEAR(Laid(styledText(u"\t\ta", style), 400).right(0), 56 + kLetter, kTolerance);
}

TEST_F(NSLayoutManagerLines, SetsALongParagraphAsIfItWereOnePiece)
{
    std::u16string words;
    for (int i = 0; i < 3000; ++i)
        words += u"aaa ";
    // Four words with their blanks are 176.64 wide, the last blank being let go.
    const Laid laid(styledText(words), 180);
    ASSERT_EQ(laid.lines.size(), 750U);
    for (std::size_t i = 0; i < laid.lines.size(); ++i)
        EXPECT_EQ(laid.lines[i].range, NSMakeRange(16 * i, 16));
}

TEST_F(NSLayoutManagerLines, DoesNotCutASurrogatePairAtAPiecesEnd)
{
    std::u16string letters(3999, u'a');
    for (int i = 0; i < 10; ++i)
        letters += u"\U0001D400";
    const Laid laid(styledText(letters), 500);
    NSUInteger next = 0;
    for (const auto& line : laid.lines) {
        EXPECT_EQ(line.range.location, next);
        next = NSMaxRange(line.range);
        EXPECT_FALSE(next < letters.size() && letters[next] >= 0xDC00 && letters[next] <= 0xDFFF);
    }
    EXPECT_EQ(next, letters.size());
}

TEST_F(NSLayoutManagerLines, VisitsTheLinesOfARangeOnly)
{
    const Laid laid(styledText(u"a\nb\nc\n"), 100);
    std::vector<NSRange> ranges;
    laid.manager.enumerateLineFragmentsForGlyphRange(
        {2, 3}, [&](const NSLayoutManager::LineFragment& line) { ranges.push_back(line.range); });
    EXPECT_EQ(ranges, (std::vector<NSRange>{{2, 2}, {4, 2}}));
}

TEST_F(NSLayoutManagerLines, StandsNumbersThatNoPageCouldShow)
{
    NSMutableParagraphStyle::TabStops tabs;
    for (int i = 0; i < 100000; ++i)
        tabs.push_back(std::make_shared<const NSTextTab>(NSTextAlignment::Left, i % 7 == 0 ? kNaN : -i));
    for (const auto value : {kNaN, 1e300, -1e300, 0.0}) {
        NSMutableParagraphStyle style;
        style.setHeadIndent(value);
        style.setFirstLineHeadIndent(value);
        style.setTailIndent(value);
        style.setLineSpacing(value);
        style.setParagraphSpacing(value);
        style.setParagraphSpacingBefore(value);
        style.setMinimumLineHeight(value);
        style.setMaximumLineHeight(value);
        style.setLineHeightMultiple(value);
        style.setDefaultTabInterval(value);
        style.setTabStops(tabs);
        for (const auto width : {value, 100.0}) {
            const Laid laid(styledText(u"a\taa aa\n\ta\n", style), width);
            const auto height = laid.manager.usedRect().size.height;
            EXPECT_TRUE(height > 0 && height < 1e7) << height;
        }
    }
}

TEST_F(NSLayoutManagerLines, SetsEveryLetterOnItsOwnLineInAColumnWithoutWidth)
{
    EXPECT_EQ(Laid(styledText(u"aaa"), 0).lines.size(), 3U);
}

TEST_F(NSLayoutManagerLines, LeavesHugeIndentsRoomForAWord)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(1e6);
    style.setFirstLineHeadIndent(1e6);
    const Laid laid(styledText(u"a", style), 300);
    EXPECT_NEAR(laid.left(0), 280, kTolerance);
}

TEST_F(NSLayoutManagerLines, LaysOutManyTabsWithoutHanging)
{
    const Laid laid(styledText(std::u16string(100000, u'\t')), 300);
    EXPECT_GT(laid.lines.size(), 1U);
}

// What is on a page is set again for that page: with a piece that goes on over thousands of pages, that never
// ended.
TEST_F(NSLayoutManagerLines, SetsHighLinesInShortPieces)
{
    const auto longestPiece = [](const NSMutableAttributedString& text, double width) {
        NSUInteger piece = 0;
        std::size_t longest = 0;
        std::size_t count = 0;
        (void)enumerateLines({text, {}}, {0, text.length()}, width, true, NSAppearance::Light,
                             [&](const TextLine& line) {
                                 count = line.pieceLocation == piece ? count + 1 : 1;
                                 piece = line.pieceLocation;
                                 longest = std::max(longest, count);
                                 return true;
                             });
        return longest;
    };
    const std::u16string letters(1000, u'M');
    auto huge = styledText(letters);
    huge.addAttribute(NSFontAttributeName, NSAny(knownFont(4096)), {0, huge.length()});
    EXPECT_LE(longestPiece(huge, 400), kShortestPiece);
    NSMutableParagraphStyle high;
    high.setMinimumLineHeight(kLargestLength);
    EXPECT_LE(longestPiece(styledText(letters, high), kNarrowestLine), kShortestPiece);
    NSMutableParagraphStyle spaced;
    spaced.setLineSpacing(kLargestLength);
    EXPECT_LE(longestPiece(styledText(letters, spaced), kNarrowestLine), kShortestPiece);
    // 23 letters of 17.67 to a line.
    EXPECT_EQ(longestPiece(styledText(letters), 407), 44U);
}

TEST_F(NSLayoutManagerLines, SetsAParagraphOfHugeLettersAsIfItWereOnePiece)
{
    auto text = styledText(std::u16string(100, u'M'));
    text.addAttribute(NSFontAttributeName, NSAny(knownFont(2048)), {0, text.length()});
    const Laid laid(text, 400);
    ASSERT_EQ(laid.lines.size(), 100U);
    for (std::size_t line = 0; line < 100; ++line) {
        EXPECT_EQ(laid.lines[line].range, NSMakeRange(line, 1));
        EXPECT_NEAR(laid.top(line), static_cast<double>(line) * 2384, 100 * 2) << line;
    }
}

TEST_F(NSLayoutManagerLines, FindsLinesWithinALongParagraphAsInAll)
{
    // Far longer than what is set at once.
    std::u16string characters;
    while (characters.size() < 20'000)
        characters += u"aaa aa a aaaa ";
    const Laid laid(styledText(characters + u"\nbehind").copy(), 300);
    for (const NSUInteger location : {0U, 3'990U, 4'010U, 12'345U, 19'990U, 20'005U}) {
        const NSRange range{location, 30};
        std::vector<NSRange> expected;
        for (const auto& line : laid.lines) {
            if (NSIntersectionRange(line.range, range).length > 0)
                expected.push_back(line.range);
        }
        std::vector<NSRange> found;
        std::vector<double> tops;
        laid.manager.enumerateLineFragmentsForGlyphRange(range,
                                                         [&](const NSLayoutManager::LineFragment& line) {
                                                             found.push_back(line.range);
                                                             tops.push_back(line.rect.origin.y);
                                                         });
        EXPECT_EQ(found, expected) << location;
        for (std::size_t i = 0; i < found.size(); ++i) {
            const auto same = std::find_if(laid.lines.begin(), laid.lines.end(),
                                           [&](const auto& line) { return line.range == found[i]; });
            EXPECT_DOUBLE_EQ(tops[i], same->rect.origin.y);
        }
    }
}

} // namespace
