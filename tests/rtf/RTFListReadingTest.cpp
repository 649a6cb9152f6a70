#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <string_view>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

NSAttributedString read(std::string_view rtf, bool keepsMarkers = true)
{
    return *Formats::initWithRTF({std::string(rtf)}, nullptr, nullptr,
                                 {.textKit1ListMarkerFormat = keepsMarkers});
}

NSAttributedString readBetweenTabs(const std::string& rtf)
{
    return *Formats::initWithRTF({rtf}, nullptr, nullptr, {.putsTabsAroundListMarkers = true});
}

NSParagraphStyle::TextLists listsAt(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>()->textLists();
}

/// The marker format of a list whose one level is this.
std::u16string formatOf(std::string_view level)
{
    const auto text
        = read("{\\rtf1{\\*\\listtable{\\list{\\listlevel" + std::string(level)
               + "}\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}\\pard\\ls1 x}");
    const auto lists = listsAt(text, 0);
    return lists.empty() ? u"none" : lists.back()->markerFormat();
}

constexpr std::string_view kTwoLevels
    = "{\\rtf1\\cocoartf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat5{\\*\\levelmarker "
      "\\{decimal\\}.}}"
      "{\\listlevel\\levelnfc23\\levelstartat0{\\*\\levelmarker \\{disc\\}}}{\\listname ;}\\listid3}}"
      "{\\*\\listoverridetable{\\listoverride\\listid3\\listoverridecount0\\ls4}}";

} // namespace

TEST(RTFListReading, GivesParagraphsTheirListsFromTheOutermost)
{
    const auto text = read(std::string(kTwoLevels)
                           + "\\pard\\ls4\\ilvl0 a\\par\\ls4\\ilvl1 b\\par\\ilvl0 c\\par\\pard d}");
    ASSERT_EQ(listsAt(text, 0).size(), 1U);
    EXPECT_EQ(listsAt(text, 0)[0]->markerFormat(), u"{decimal}.");
    EXPECT_EQ(listsAt(text, 0)[0]->startingItemNumber(), 5);
    ASSERT_EQ(listsAt(text, 2).size(), 2U);
    EXPECT_EQ(listsAt(text, 2)[0], listsAt(text, 0)[0]);
    EXPECT_EQ(listsAt(text, 2)[1]->markerFormat(), u"{disc}");
    EXPECT_EQ(listsAt(text, 2)[1]->startingItemNumber(), 1);
    EXPECT_EQ(listsAt(text, 4), listsAt(text, 0));
    EXPECT_TRUE(listsAt(text, 6).empty());
}

TEST(RTFListReading, GivesNoListsForNumbersWithoutOne)
{
    for (const auto* const words : {"\\ls0", "\\ls9", "\\ls4\\ilvl2", "\\ls4\\ilvl-1", "\\ls-4"})
        EXPECT_TRUE(listsAt(read(std::string(kTwoLevels) + "\\pard" + words + " x}"), 0).empty()) << words;
}

TEST(RTFListReading, KeepsMarkersAsTextOnlyWhereTheyAreWanted)
{
    const auto document
        = std::string(kTwoLevels) + "\\pard\\ls4{\\listtext\t5.\t}item\\par{\\pntext\\'95\\tab}x}";
    EXPECT_EQ(read(document).string(), u"\t5.\titem\n•\tx");
    EXPECT_EQ(read(document, false).string(), u"item\nx");
    EXPECT_FALSE(listsAt(read(document, false), 0).empty());
}

TEST(RTFListReading, PutsTabsAroundMarkersWhereTheyAreWanted)
{
    const auto textOf = [](std::string_view paragraphs) {
        return std::u16string(
            readBetweenTabs(std::string(kTwoLevels) + std::string(paragraphs) + "}").string());
    };
    EXPECT_EQ(textOf("{\\listtext\\pard\\plain 1.\\tab}\\pard\\ls4 a\\par{\\listtext 2.\\tab}b\\par"),
              u"\t1.\ta\n\t2.\tb\n");
    EXPECT_EQ(textOf("\\pard\\ls4{\\listtext\\tab -}a"), u"\t-\ta");
    EXPECT_EQ(textOf("\\pard\\ls4{\\listtext\\tab -\\tab}a"), u"\t-\ta");
    EXPECT_EQ(textOf("\\pard\\ls4{\\listtext\\tab}a"), u"\ta");
    EXPECT_EQ(read(std::string(kTwoLevels) + "\\pard\\ls4{\\listtext 1.\\tab}a}").string(), u"1.\ta");
    // A paragraph in no list has its characters as they are, and one behind a marker none.
    EXPECT_EQ(textOf("\\pard{\\listtext 1.\\tab}a\\par\\ls4 b"), u"1.\ta\nb");
    EXPECT_EQ(textOf("\\pard\\ls4 a{\\b b}\\par c"), u"ab\nc");
}

TEST(RTFListReading, GivesTheTabsAroundMarkersTheirLooks)
{
    const auto text
        = readBetweenTabs(std::string(kTwoLevels) + "\\pard\\ls4 a\\par{\\listtext\\ul 1.}\\strike b\\par}");
    ASSERT_EQ(text.string(), u"a\n\t1.\tb\n");
    const auto hasUnderline = [&text](NSUInteger index) {
        return text.attribute(NSUnderlineStyleAttributeName, index).integerValue() != 0;
    };
    EXPECT_FALSE(hasUnderline(1));
    for (NSUInteger index = 2; index < 6; ++index)
        EXPECT_TRUE(hasUnderline(index)) << index;
    EXPECT_FALSE(hasUnderline(6));
}

TEST(RTFListReading, TellsTheMarkersOfOtherWriters)
{
    struct Case {
        std::string_view level;
        std::u16string_view format;
    };

    constexpr auto kCases = std::to_array<Case>({
        {"\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}{\\levelnumbers;}", u"{disc}"},
        {"\\levelnfc23{\\leveltext\\'01o;}", u"{circle}"},
        {"\\levelnfc23{\\leveltext\\'01\\u-3929 ?;}", u"{square}"},
        {"\\levelnfc23{\\leveltext\\'01-;}", u"{hyphen}"},
        {"\\levelnfc23{\\leveltext\\'01\\u10003 ?;}", u"{check}"},
        {"\\levelnfc23{\\leveltext\\'01\\u8594 ?;}", u"\u2192"},
        {"\\levelnfc23", u"{disc}"},
        {"\\levelnfc0{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}", u"{decimal}."},
        {"\\levelnfc1{\\leveltext\\'03(\\'00);}", u"({upper-roman})"},
        {"\\levelnfc2{\\leveltext\\'02\\'00);}", u"{lower-roman})"},
        {"\\levelnfc3{\\leveltext\\'01\\'00;}", u"{upper-alpha}"},
        {"\\levelnfc4{\\leveltext\\'02\\'00.;}", u"{lower-alpha}."},
        {"\\levelnfc22{\\leveltext\\'02\\'00.;}", u"{decimal}."},
        {"\\levelnfc255{\\leveltext\\'00;}", u"{none}"},
        {"\\levelnfc0", u"{decimal}."},
        {"\\levelnfc0{\\leveltext\\'02\\'00.;}{\\*\\levelmarker \\{octal\\}!}", u"{octal}!"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(formatOf(example.level), example.format) << example.level;
}

TEST(RTFListReading, TakesNumbersOfOuterLevelsForTheirMarkers)
{
    const auto text = read("{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}"
                           "{\\listlevel\\levelnfc0{\\leveltext\\'04\\'00.\\'01.;}}\\listid1}}"
                           "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\pard\\ls1\\ilvl1 x}");
    const auto lists = listsAt(text, 0);
    ASSERT_EQ(lists.size(), 2U);
    EXPECT_EQ(lists[1]->markerFormat(), u"{decimal}.");
    EXPECT_EQ(lists[1]->listOptions(), NSTextListPrependEnclosingMarker);
    EXPECT_EQ(lists[0]->listOptions(), 0U);
}

TEST(RTFListReading, ReadsNoMoreLevelsThanThereAre)
{
    std::string document = "{\\rtf1{\\*\\listtable{\\list";
    for (int level = 0; level < 20; ++level)
        document += "{\\listlevel\\levelnfc23}";
    document += "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}";
    EXPECT_EQ(listsAt(read(document + "\\pard\\ls1\\ilvl8 x}"), 0).size(), 9U);
    EXPECT_TRUE(listsAt(read(document + "\\pard\\ls1\\ilvl9 x}"), 0).empty());
}
