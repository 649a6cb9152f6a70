#include "richtext/ListRecognition.h"

#include "paragraphs/ParagraphStyles.h"
#include "tests/richtext/NoteText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <regex>

using namespace DynamicColors;

namespace {

NSMutableAttributedString recognized(const NSAttributedString& text)
{
    NSMutableAttributedString changed(text);
    checkForTextListsAndConvertIfNecessary(changed);
    EXPECT_EQ(changed.string(), text.string());
    return changed;
}

/// In a list's style, but in no list.
NSMutableAttributedString recognized(std::u16string_view characters)
{
    return recognized(NoteText().add(characters, CVLExtensions::listParagraphStyle()).text());
}

bool isInNoList(std::u16string_view characters)
{
    return listsAt(recognized(characters), 0).empty();
}

} // namespace

TEST(ListRecognition, TakesABulletForADiscList)
{
    const auto lists = listsAt(recognized(u"\t\u2022\tMilk"), 0);
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0]->markerFormat(), NSTextListMarkerDisc);
    EXPECT_EQ(lists[0]->startingItemNumber(), 1);
}

TEST(ListRecognition, TakesAHyphenForAHyphenList)
{
    const auto lists = listsAt(recognized(u"\t-\tMilk"), 0);
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0]->markerFormat(), NSTextListMarkerHyphen);
}

TEST(ListRecognition, TakesABulletAloneForAnItem)
{
    EXPECT_FALSE(isInNoList(u"\t\u2022\t"));
    EXPECT_FALSE(isInNoList(u"\t-\t"));
}

TEST(ListRecognition, TakesANumberForADecimalListThatStartsThere)
{
    const auto lists = listsAt(recognized(u"\t12.\tMilk"), 0);
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0]->markerFormat(), u"{decimal}.");
    EXPECT_EQ(lists[0]->startingItemNumber(), 12);
    EXPECT_EQ(lists[0]->markerForItemNumber(12), u"12.");
    EXPECT_EQ(lists[0]->listOptions(), 0U);
}

TEST(ListRecognition, KnowsNumbersFrom1To999)
{
    for (const NSInteger number : {1, 9, 10, 99, 100, 999}) {
        const auto digits = std::to_string(number);
        const auto lists
            = listsAt(recognized(u"\t" + std::u16string(digits.begin(), digits.end()) + u".\tx"), 0);
        ASSERT_EQ(lists.size(), 1U) << number;
        EXPECT_EQ(lists[0]->startingItemNumber(), number);
    }
}

TEST(ListRecognition, KnowsNoOtherNumbers)
{
    for (const auto* line : {u"\t0.\tx", u"\t1000.\tx", u"\t012.\tx", u"\t00.\tx", u"\t.\tx", u"\t-1.\tx",
                             u"\t1\tx", u"\t1. x", u"\t1.", u"1.\tx", u" \t1.\tx", u"x\t1.\tx", u"\t1..\tx",
                             u"\t\u0661.\tx", u"\ta.\tx", u"\t1)\tx", u"", u"\t"})
        EXPECT_TRUE(isInNoList(line)) << std::string(line, line + std::u16string_view(line).size());
}

TEST(ListRecognition, WantsSomethingBehindANumber)
{
    EXPECT_TRUE(isInNoList(u"\t12.\t"));
    EXPECT_TRUE(isInNoList(u"\t12.\t\nnext"));
    EXPECT_FALSE(isInNoList(u"\t12.\t "));
}

TEST(ListRecognition, KnowsNoOtherBullets)
{
    for (const auto* line : {u"\u2022\tMilk", u"\t\u2022 Milk", u"\t\u2043\tMilk", u"\t*\tMilk", u"-\tMilk"})
        EXPECT_TRUE(isInNoList(line));
}

TEST(ListRecognition, GivesEachLineAListOfItsOwn)
{
    const auto text = recognized(u"\t\u2022\ta\n\t\u2022\tb\nplain\n\t3.\tc\n");
    const auto first = listsAt(text, 0);
    const auto second = listsAt(text, 5);
    ASSERT_EQ(first.size(), 1U);
    ASSERT_EQ(second.size(), 1U);
    EXPECT_NE(first[0], second[0]);
    EXPECT_TRUE(listsAt(text, 10).empty());
    ASSERT_EQ(listsAt(text, 16).size(), 1U);
    EXPECT_EQ(listsAt(text, 16)[0]->startingItemNumber(), 3);
}

TEST(ListRecognition, LeavesTheLineEndItsStyle)
{
    for (const std::u16string lineEnd : {u"\n", u"\r", u"\r\n", u"\u2028", u"\u2029", u"\u0085"}) {
        const auto text = recognized(u"\t\u2022\ta" + lineEnd + u"b");
        EXPECT_EQ(listsAt(text, 3).size(), 1U);
        for (NSUInteger index = 4; index < text.length(); ++index)
            EXPECT_TRUE(listsAt(text, index).empty()) << index;
    }
}

TEST(ListRecognition, GivesTheLinesOfOneParagraphTheirOwnLists)
{
    const auto text = recognized(u"\t\u2022\ta\u2028\t7.\tb\n");
    ASSERT_EQ(listsAt(text, 0).size(), 1U);
    EXPECT_EQ(listsAt(text, 0)[0]->markerFormat(), NSTextListMarkerDisc);
    ASSERT_EQ(listsAt(text, 5).size(), 1U);
    EXPECT_EQ(listsAt(text, 5)[0]->markerFormat(), u"{decimal}.");
    EXPECT_EQ(listsAt(text, 5)[0]->startingItemNumber(), 7);
}

TEST(ListRecognition, TakesALineForWhatItsFirstCharacterIsSetAs)
{
    const auto list = CVLExtensions::listParagraphStyle();
    const NSMutableParagraphStyle plain;
    const auto text
        = recognized(NoteText().add(u"\t\u2022\t", list).add(u"a\n\t-", plain).add(u"\tb\n", list).text());
    EXPECT_EQ(listsAt(text, 3).size(), 1U);
    for (NSUInteger index = 4; index < text.length(); ++index)
        EXPECT_TRUE(listsAt(text, index).empty()) << index;
}

TEST(ListRecognition, LeavesWhatStandsBetweenItemsAsItIs)
{
    auto indented = CVLExtensions::listParagraphStyle();
    indented.setHeadIndent(50);
    const auto list = CVLExtensions::listParagraphStyle();
    const auto text = NoteText()
                          .add(u"\t-\ta\n", list)
                          .add(u"pl", NSMutableParagraphStyle())
                          .add(u"ain\n", indented)
                          .add(u"\t-\tb\n", list)
                          .text();
    EXPECT_EQ(recognized(text).attributedSubstringFromRange({4, 7}),
              text.attributedSubstringFromRange({4, 7}));
}

TEST(ListRecognition, KeepsTheRestOfTheStyle)
{
    const auto text = recognized(u"\t-\ta");
    EXPECT_EQ(styleAt(text, 0)->headIndent(), 36);
    EXPECT_EQ(styleAt(text, 0)->tabStops().front()->location(), 11);
}

TEST(ListRecognition, LeavesLinesAloneThatAreNotSetAsLists)
{
    const NSMutableParagraphStyle plain;
    EXPECT_TRUE(listsAt(recognized(NoteText().add(u"\t\u2022\tMilk", plain).text()), 0).empty());
    EXPECT_FALSE(styleAt(recognized(NoteText().add(u"\t\u2022\tMilk").text()), 0));
}

TEST(ListRecognition, LeavesLinesAloneThatAreInAList)
{
    const auto list = makeList(NSTextListMarkerSquare);
    auto style = CVLExtensions::listParagraphStyle();
    style.setTextLists({list});
    EXPECT_EQ(listsAt(recognized(NoteText().add(u"\t\u2022\tMilk", style).text()), 0),
              (NSParagraphStyle::TextLists{list}));
}

TEST(ListRecognition, IsDoneAfterOnePass)
{
    const auto once = recognized(u"\t\u2022\ta\n\t1.\tb\nc");
    EXPECT_EQ(recognized(once), once);
}

TEST(ListRecognition, ReadsNumbersAsThePatternDoes)
{
    const std::regex pattern("^\t([1-9]|[1-9][0-9]|[1-9][0-9][0-9])\\.\t");
    std::mt19937 random(7);
    constexpr std::string_view kUnits = "\t\t.0129x";
    std::uniform_int_distribution<std::size_t> length(0, 8);
    std::uniform_int_distribution<std::size_t> unit(0, kUnits.size() - 1);
    for (int round = 0; round < 5000; ++round) {
        std::string line = "\t";
        for (auto left = length(random); left > 0; --left)
            line += kUnits[unit(random)];
        std::smatch match;
        const bool isItem = std::regex_search(line, match, pattern)
            && static_cast<std::size_t>(match.length()) < line.size();
        const auto lists = listsAt(recognized(std::u16string(line.begin(), line.end())), 0);
        ASSERT_EQ(!lists.empty(), isItem) << line;
        if (isItem) {
            ASSERT_EQ(lists[0]->startingItemNumber(), std::stol(match[1])) << line;
        }
    }
}
