#include "platform/text/NSTextList.h"

#include "tests/support/KeyedValues.h"

#include <gmock/gmock.h>

#include <vector>

namespace {

std::u16string marker(std::u16string_view format, NSInteger itemNumber = 1)
{
    return NSTextList(format).markerForItemNumber(itemNumber);
}

struct Row {
    std::u16string_view constant;
    std::u16string_view format;
    std::u16string_view markerOfTwelve;
};

} // namespace

TEST(NSTextList, HasAMarkerForEachFormat)
{
    const std::vector<Row> rows{
        {NSTextListMarkerBox, u"{box}", u"\u25AB"},
        {NSTextListMarkerCheck, u"{check}", u"\u2713"},
        {NSTextListMarkerCircle, u"{circle}", u"\u25E6"},
        {NSTextListMarkerDiamond, u"{diamond}", u"\u25C6"},
        {NSTextListMarkerDisc, u"{disc}", u"\u2022"},
        {NSTextListMarkerHyphen, u"{hyphen}", u"\u2043"},
        {NSTextListMarkerSquare, u"{square}", u"\u25AA"},
        {NSTextListMarkerDecimal, u"{decimal}", u"12"},
        {NSTextListMarkerOctal, u"{octal}", u"14"},
        {NSTextListMarkerLowercaseHexadecimal, u"{lower-hexadecimal}", u"c"},
        {NSTextListMarkerUppercaseHexadecimal, u"{upper-hexadecimal}", u"C"},
        {NSTextListMarkerLowercaseAlpha, u"{lower-alpha}", u"l"},
        {NSTextListMarkerUppercaseAlpha, u"{upper-alpha}", u"L"},
        {NSTextListMarkerLowercaseLatin, u"{lower-latin}", u"l"},
        {NSTextListMarkerUppercaseLatin, u"{upper-latin}", u"L"},
        {NSTextListMarkerLowercaseRoman, u"{lower-roman}", u"xii"},
        {NSTextListMarkerUppercaseRoman, u"{upper-roman}", u"XII"},
        {NSTextListMarkerNone, u"{none}", u""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.constant, row.format);
        EXPECT_EQ(marker(row.format, 12), row.markerOfTwelve);
    }
}

TEST(NSTextList, KeepsTheTextAroundItsToken)
{
    EXPECT_EQ(marker(u"{decimal}.", 3), u"3.");
    EXPECT_EQ(marker(u"({lower-alpha})", 2), u"(b)");
    EXPECT_EQ(marker(u"Chapter {upper-roman} \u2013", 4), u"Chapter IV \u2013");
    EXPECT_EQ(marker(u"plain"), u"plain");
    EXPECT_EQ(marker(u""), u"");
}

TEST(NSTextList, FillsInSeveralTokens)
{
    EXPECT_EQ(marker(u"{decimal}{disc}{lower-roman}", 5), u"5\u2022v");
}

TEST(NSTextList, KeepsBracesThatHoldNoToken)
{
    EXPECT_EQ(marker(u"{unknown}"), u"{unknown}");
    EXPECT_EQ(marker(u"{Decimal}"), u"{Decimal}");
    EXPECT_EQ(marker(u"{}"), u"{}");
    EXPECT_EQ(marker(u"{decimal"), u"{decimal");
    EXPECT_EQ(marker(u"decimal}"), u"decimal}");
    EXPECT_EQ(marker(u"{{decimal}}", 7), u"{7}");
}

TEST(NSTextList, TakesTheItemNumberAsItIs)
{
    const NSTextList list(NSTextListMarkerDecimal, 0, 5);
    EXPECT_EQ(list.startingItemNumber(), 5);
    EXPECT_EQ(list.markerForItemNumber(1), u"1");
    EXPECT_EQ(marker(NSTextListMarkerCheck, 0), u"\u2713");
    EXPECT_EQ(marker(NSTextListMarkerDecimal, 0), u"0");
}

TEST(NSTextList, IsAnIdentity)
{
    const NSTextList list(NSTextListMarkerDisc);
    const NSTextList other(NSTextListMarkerDisc);
    EXPECT_TRUE(list.isEqual(list));
    EXPECT_FALSE(list.isEqual(other));
}

TEST(NSTextList, IncludesMarkersInTextsUnlessToldOtherwise)
{
    EXPECT_TRUE(NSTextList::includesTextListMarkers());
    NSTextList::setIncludesTextListMarkers(false);
    EXPECT_FALSE(NSTextList::includesTextListMarkers());
    NSTextList::setIncludesTextListMarkers(true);
}

TEST(NSTextList, LeavesDefaultsOutOfArchives)
{
    EXPECT_EQ(KeyedValues::of(NSTextList(u"{disc}")),
              (KeyedValues::Values{{"NSMarkerFormat", u"{disc}"}, {"NSMarkerTextAttachment", nullptr}}));
    EXPECT_EQ(KeyedValues::of(NSTextList(u"{disc}", NSTextListPrependEnclosingMarker, 4)),
              (KeyedValues::Values{{"NSMarkerFormat", u"{disc}"},
                                   {"NSMarkerTextAttachment", nullptr},
                                   {"NSOptions", 1},
                                   {"NSStart", 4}}));
}

TEST(NSTextList, ReadsArchives)
{
    const auto list
        = KeyedValues::make(NSTextList::classObject(),
                            {{"NSMarkerFormat", u"{decimal}."}, {"NSOptions", 1}, {"NSStart", 9.0}})
              .object<NSTextList>();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->markerFormat(), u"{decimal}.");
    EXPECT_EQ(list->listOptions(), NSTextListPrependEnclosingMarker);
    EXPECT_EQ(list->startingItemNumber(), 9);
    const auto bare = KeyedValues::make(NSTextList::classObject(), {}).object<NSTextList>();
    ASSERT_NE(bare, nullptr);
    EXPECT_EQ(bare->markerFormat(), u"");
    EXPECT_EQ(bare->startingItemNumber(), 1);
}
