#include "richtext/HTMLNewlines.h"

#include "platform/text/NSTextAttachment.h"
#include "tests/richtext/NoteText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

using namespace DynamicColors;

namespace {

NSMutableParagraphStyle spaced(double before, double behind)
{
    NSMutableParagraphStyle style;
    style.setParagraphSpacingBefore(before);
    style.setParagraphSpacing(behind);
    return style;
}

std::u16string cleaned(const NSAttributedString& text)
{
    NSMutableAttributedString changed(text);
    cleanupHTMLNewlinesInRange(changed, {0, changed.length()});
    return std::u16string(changed.string());
}

std::u16string cleaned(std::u16string_view characters)
{
    return cleaned(NoteText().add(characters).text());
}

/// The text that the steps give, one line after the other in a list of lines; without styles.
std::u16string expected(const std::u16string& text)
{
    std::vector<std::u16string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = std::min(text.find(u'\n', start), text.size() - 1) + 1;
        lines.push_back(text.substr(start, end - start));
        start = end;
    }
    std::u16string result;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const bool isBlank = lines[index].find_first_not_of(u" \t\n") == std::u16string::npos;
        if (isBlank && index + 1 < lines.size())
            return text;
        result += lines[index] + (isBlank ? u"" : u"\n");
    }
    return result;
}

} // namespace

TEST(HTMLNewlines, AddABlankLineBehindEveryLine)
{
    EXPECT_EQ(cleaned(u"one\ntwo\n"), u"one\n\ntwo\n\n");
}

TEST(HTMLNewlines, EndALastLineThatHasNoLineEnd)
{
    EXPECT_EQ(cleaned(u"one\ntwo"), u"one\n\ntwo\n");
}

TEST(HTMLNewlines, FollowEveryKindOfLineEnd)
{
    EXPECT_EQ(cleaned(u"a\r\nb\u2028c\u2029d"), u"a\r\n\nb\u2028\nc\u2029\nd\n");
}

TEST(HTMLNewlines, CompleteALoneCarriageReturn)
{
    EXPECT_EQ(cleaned(u"a\rb"), u"a\r\nb\n");
}

TEST(HTMLNewlines, ChangeNothingWhereALineIsBlankAlready)
{
    EXPECT_EQ(cleaned(u"one\n\ntwo\n"), u"one\n\ntwo\n");
    EXPECT_EQ(cleaned(u"one\n \t\ntwo"), u"one\n \t\ntwo");
    EXPECT_EQ(cleaned(u"\none"), u"\none");
}

TEST(HTMLNewlines, AreAddedThoughTheVeryLastLineIsBlank)
{
    EXPECT_EQ(cleaned(u"one\ntwo\n\n"), u"one\n\ntwo\n\n\n");
    EXPECT_EQ(cleaned(u"one\n  "), u"one\n\n  ");
}

TEST(HTMLNewlines, LeaveTheEmptyTextEmpty)
{
    EXPECT_EQ(cleaned(u""), u"");
}

TEST(HTMLNewlines, StandBehindTheLastItemOfAListOnly)
{
    const auto items = styleInLists({makeList(NSTextListMarkerDisc)});
    const auto text
        = NoteText().add(u"one\ntwo\nthree\n", items).add(u"end\n", NSMutableParagraphStyle()).text();
    EXPECT_EQ(cleaned(text), u"one\ntwo\nthree\n\nend\n\n");
}

TEST(HTMLNewlines, StandBehindTheLineBeforeAList)
{
    const auto items = styleInLists({makeList(NSTextListMarkerDisc)});
    const auto text = NoteText().add(u"title\n", NSMutableParagraphStyle()).add(u"one\ntwo\n", items).text();
    EXPECT_EQ(cleaned(text), u"title\n\none\ntwo\n\n");
}

TEST(HTMLNewlines, TakeTwoListsInARowForOne)
{
    const auto text = NoteText()
                          .add(u"one\n", styleInLists({makeList(NSTextListMarkerDisc)}))
                          .add(u"two\n", styleInLists({makeList(NSTextListMarkerDecimal)}))
                          .text();
    EXPECT_EQ(cleaned(text), u"one\ntwo\n\n");
}

TEST(HTMLNewlines, TakeTheSpacingAway)
{
    for (const auto& style : {spaced(0, 12), spaced(12, 0)}) {
        NSMutableAttributedString text(NoteText().add(u"one\ntwo\n", style).text());
        cleanupHTMLNewlinesInRange(text, {0, text.length()});
        EXPECT_EQ(text.string(), u"one\n\ntwo\n\n");
        for (NSUInteger index = 0; index < text.length(); ++index) {
            EXPECT_EQ(styleAt(text, index)->paragraphSpacing(), 0);
            EXPECT_EQ(styleAt(text, index)->paragraphSpacingBefore(), 0);
        }
    }
}

TEST(HTMLNewlines, KeepTheRestOfTheStyle)
{
    auto style = spaced(3, 4);
    style.setHeadIndent(20);
    NSMutableAttributedString text(NoteText().add(u"one", style).text());
    cleanupHTMLNewlinesInRange(text, {0, 3});
    EXPECT_EQ(styleAt(text, 0)->headIndent(), 20);
}

TEST(HTMLNewlines, KeepTheSpacingOfItemsWithinAList)
{
    auto style = styleInLists({makeList(NSTextListMarkerDisc)});
    style.setParagraphSpacing(8);
    NSMutableAttributedString text(NoteText().add(u"one\ntwo\n", style).text());
    cleanupHTMLNewlinesInRange(text, {0, text.length()});
    EXPECT_EQ(styleAt(text, 0)->paragraphSpacing(), 8);
    EXPECT_EQ(styleAt(text, 4)->paragraphSpacing(), 0);
}

TEST(HTMLNewlines, GiveSpacedLinesBeforeABlankLineNoOther)
{
    // The blank line lies behind the range, so that it does not count as one of it.
    NSMutableAttributedString text(NoteText().add(u"one\n\ntwo", spaced(0, 12)).text());
    EXPECT_EQ(cleanupHTMLNewlinesInRange(text, {0, 4}), (NSRange{0, 4}));
    EXPECT_EQ(text.string(), u"one\n\ntwo");
    EXPECT_EQ(styleAt(text, 0)->paragraphSpacing(), 0);
}

TEST(HTMLNewlines, GiveLinesWithoutSpacingBeforeABlankLineAnother)
{
    NSMutableAttributedString text(NoteText().add(u"one\n\ntwo").text());
    EXPECT_EQ(cleanupHTMLNewlinesInRange(text, {0, 4}), (NSRange{0, 5}));
    EXPECT_EQ(text.string(), u"one\n\n\ntwo");
}

TEST(HTMLNewlines, AreNotTakenForThereWhereTheyEndTheText)
{
    // Something must follow the two line breaks.
    EXPECT_EQ(cleaned(NoteText().add(u"one\n\n", spaced(0, 12)).text()), u"one\n\n\n");
}

TEST(HTMLNewlines, GiveTheRangeWithWhatWasInserted)
{
    NSMutableAttributedString text(NoteText().add(u"before\none\ntwo\nbehind\n").text());
    EXPECT_EQ(cleanupHTMLNewlinesInRange(text, {7, 8}), (NSRange{7, 10}));
    EXPECT_EQ(text.string(), u"before\none\n\ntwo\n\nbehind\n");
}

TEST(HTMLNewlines, StayWithinARangeThatBeginsAndEndsWithinLines)
{
    NSMutableAttributedString text(NoteText().add(u"abONE\nTWOcd\n").text());
    EXPECT_EQ(cleanupHTMLNewlinesInRange(text, {2, 7}), (NSRange{2, 9}));
    EXPECT_EQ(text.string(), u"abONE\n\nTWO\ncd\n");
}

TEST(HTMLNewlines, HaveTheAttributesOfTheLineButNoAttachment)
{
    const auto image = std::make_shared<NSTextAttachment>();
    NSMutableAttributedString text(NoteText().addAttachment(image, withFont(u"Menlo-Regular", 12)).text());
    cleanupHTMLNewlinesInRange(text, {0, 1});
    ASSERT_EQ(text.string(), u"\uFFFC\n");
    EXPECT_TRUE(fontAt(text, 1));
    EXPECT_FALSE(text.attribute(NSAttachmentAttributeName, 1));
}

TEST(HTMLNewlines, AreAsTheStepsSayForAnyText)
{
    std::mt19937 random(20);
    constexpr std::u16string_view kUnits = u"ab \t\n\n";
    std::uniform_int_distribution<std::size_t> length(0, 12);
    std::uniform_int_distribution<std::size_t> unit(0, kUnits.size() - 1);
    for (int round = 0; round < 3000; ++round) {
        std::u16string text;
        for (auto left = length(random); left > 0; --left)
            text += kUnits[unit(random)];
        ASSERT_EQ(cleaned(text), expected(text));
    }
}
