#include "strings/MarkdownLines.h"

#include "strings/MarkdownSyntax.h"

#include <gtest/gtest.h>

#include <string>

using namespace CVLMarkdown;

namespace {

constexpr std::size_t kHuge = 10'000'000;

struct Item {
    ListType type = ListType::None;
    std::u16string bullet = u"unset";
    NSInteger number = -1;

    friend bool operator==(const Item&, const Item&) = default;
};

Item itemOf(std::u16string_view line)
{
    Item item;
    item.type = getListTypeAndCurrentBullet(line, &item.bullet, &item.number);
    return item;
}

Item unordered(std::u16string_view bullet)
{
    return {ListType::Unordered, std::u16string(bullet), -1};
}

Item ordered(std::u16string_view bullet, NSInteger number)
{
    return {ListType::Ordered, std::u16string(bullet), number};
}

std::u16string markerOf(bool (*test)(std::u16string_view, std::u16string*), std::u16string_view text)
{
    std::u16string marker = u"unset";
    return test(text, &marker) ? marker : u"none" + marker;
}

TEST(MarkdownSyntax, HasItsConstants)
{
    EXPECT_EQ(CVLMarkdownBulletAsterisk, u"* ");
    EXPECT_EQ(CVLMarkdownBulletDash, u"- ");
    EXPECT_EQ(CVLMarkdownBulletPlus, u"+ ");
    EXPECT_EQ(CVLMarkdownChecklistOnString, u"- [x] ");
    EXPECT_EQ(CVLMarkdownChecklistOffString, u"- [ ] ");
    EXPECT_EQ(CVLMarkdownChecklistIndentString, u"    ");
    EXPECT_EQ(CVLMarkdownStrongAsterisk, u"**");
    EXPECT_EQ(CVLMarkdownStrongUnderscore, u"__");
    EXPECT_EQ(CVLMarkdownEmphasisAsterisk, u"*");
    EXPECT_EQ(CVLMarkdownEmphasisUnderscore, u"_");
    EXPECT_EQ(CVLMarkdownOpeningStrikeMarker, u"~");
    EXPECT_EQ(CVLMarkdownClosingStrikeMarker, u"~");
    EXPECT_EQ(CVLMarkdownOpeningHighlightMarker, u"<mark>");
    EXPECT_EQ(CVLMarkdownClosingHighlightMarker, u"</mark>");
    EXPECT_EQ(CVLMarkdownHeadingMarker, u"#");
    EXPECT_EQ(CVLMarkdownType, "net.daringfireball.markdown");
}

TEST(GetListType, HasThePlatformsNumbers)
{
    EXPECT_EQ(static_cast<int>(ListType::None), 0);
    EXPECT_EQ(static_cast<int>(ListType::Ordered), 1);
    EXPECT_EQ(static_cast<int>(ListType::Unordered), 2);
}

TEST(GetListType, FindsBullets)
{
    EXPECT_EQ(itemOf(u"* item"), unordered(u"* "));
    EXPECT_EQ(itemOf(u"+ item"), unordered(u"+ "));
    EXPECT_EQ(itemOf(u"- item"), unordered(u"- "));
    EXPECT_EQ(itemOf(u"- "), unordered(u"- "));
    EXPECT_EQ(itemOf(u"-item"), Item());
    EXPECT_EQ(itemOf(u"\u2022 item"), Item());
}

TEST(GetListType, TakesQuoteMarksAndIndentationForPartsOfTheBullet)
{
    EXPECT_EQ(itemOf(u"  > - item"), unordered(u"  > - "));
    EXPECT_EQ(itemOf(u"\t* item"), unordered(u"\t* "));
    EXPECT_EQ(itemOf(u">> 3. item"), ordered(u">> 3. ", 3));
    EXPECT_EQ(itemOf(u"\n- item"), Item());
}

TEST(GetListType, LooksForTheBulletAnywhereOnceItsCharacterComesFirst)
{
    EXPECT_EQ(itemOf(u"> *a* b"), unordered(u"> *a* "));
    EXPECT_EQ(itemOf(u"  -"), Item());
    EXPECT_EQ(itemOf(u"  *a"), Item());
    EXPECT_EQ(itemOf(u"  - * item"), unordered(u"  - "));
}

TEST(GetListType, FindsNumbers)
{
    EXPECT_EQ(itemOf(u"12. Milk"), ordered(u"12. ", 12));
    EXPECT_EQ(itemOf(u"0. Milk"), ordered(u"0. ", 0));
    EXPECT_EQ(itemOf(u"  7. Milk"), ordered(u"  7. ", 7));
    EXPECT_EQ(itemOf(u"2 pears. Ripe"), ordered(u"2 pears. ", 2));
    EXPECT_EQ(itemOf(u"1. 2. Milk"), ordered(u"1. ", 1));
    EXPECT_EQ(itemOf(u"12. "), ordered(u"12. ", 12));
}

TEST(GetListType, TakesNoOtherLineForAnItem)
{
    for (const std::u16string_view line : {u"Milk 12. x", u"Milk", u"", u" \t>", u"12", u"12.", u"12.Milk",
                                           u"\u0661. Milk", u"**bold**", u". Milk"})
        EXPECT_EQ(itemOf(line), Item()) << std::string(line.begin(), line.end());
}

TEST(GetListType, TakesAnIndentedNumberWithoutAPeriodForAnItem)
{
    EXPECT_EQ(itemOf(u"  12 pears"), ordered(u"  12 pears. ", 12));
    EXPECT_EQ(itemOf(u"> 5"), ordered(u"> 5. ", 5));
}

TEST(GetListType, StopsAtTheLargestNumber)
{
    EXPECT_EQ(itemOf(u"9223372036854775807. x").number, 9223372036854775807);
    EXPECT_EQ(itemOf(u"9223372036854775808. x").number, 9223372036854775807);
    EXPECT_EQ(itemOf(std::u16string(1000, u'9') + u". x").number, 9223372036854775807);
}

TEST(GetListType, NeedsNobodyToListen)
{
    EXPECT_EQ(getListTypeAndCurrentBullet(u"1. a"), ListType::Ordered);
    EXPECT_EQ(getListTypeAndCurrentBullet(u"* a"), ListType::Unordered);
}

TEST(IsStrong, FindsItsMarker)
{
    EXPECT_EQ(markerOf(isStrong, u"**bold**"), u"**");
    EXPECT_EQ(markerOf(isStrong, u"__bold__"), u"__");
    EXPECT_EQ(markerOf(isStrong, u"***both***"), u"**");
    EXPECT_EQ(markerOf(isStrong, u"**"), u"**");
    EXPECT_EQ(markerOf(isStrong, u"**bold__"), u"noneunset");
    EXPECT_EQ(markerOf(isStrong, u"*a*"), u"noneunset");
    EXPECT_EQ(markerOf(isStrong, u""), u"noneunset");
}

TEST(IsEmphasized, FindsItsMarker)
{
    EXPECT_EQ(markerOf(isEmphasized, u"*a*"), u"*");
    EXPECT_EQ(markerOf(isEmphasized, u"_a_"), u"_");
    EXPECT_EQ(markerOf(isEmphasized, u"*a_"), u"noneunset");
    EXPECT_EQ(markerOf(isEmphasized, u"a"), u"noneunset");
    EXPECT_EQ(markerOf(isEmphasized, u""), u"noneunset");
}

TEST(IsEmphasized, AsksWhatStandsWithinAStrongText)
{
    EXPECT_EQ(markerOf(isEmphasized, u"**bold**"), u"noneunset");
    EXPECT_EQ(markerOf(isEmphasized, u"***both***"), u"*");
    EXPECT_EQ(markerOf(isEmphasized, u"**_both_**"), u"_");
    EXPECT_EQ(markerOf(isEmphasized, u"__*both*__"), u"*");
    for (const std::u16string_view marks : {u"**", u"***", u"****"})
        EXPECT_EQ(markerOf(isEmphasized, marks), u"noneunset");
}

TEST(IsStruckthrough, WantsOneTildeOnBothSides)
{
    EXPECT_TRUE(isStruckthrough(u"~x~"));
    EXPECT_TRUE(isStruckthrough(u"~~x~~"));
    EXPECT_FALSE(isStruckthrough(u"~x"));
    EXPECT_FALSE(isStruckthrough(u"x~"));
    EXPECT_FALSE(isStruckthrough(u""));
}

TEST(IsHighlighted, WantsBothTags)
{
    EXPECT_TRUE(isHighlighted(u"<mark>x</mark>"));
    EXPECT_TRUE(isHighlighted(u"<mark></mark>"));
    EXPECT_FALSE(isHighlighted(u"<mark>x"));
    EXPECT_FALSE(isHighlighted(u"x</mark>"));
    EXPECT_FALSE(isHighlighted(u"<mark>x<mark>"));
}

TEST(HeadingLevel, CountsAllButTheLastCharacter)
{
    EXPECT_EQ(headingLevel(u"### Title"), 3U);
    EXPECT_EQ(headingLevel(u"#Title"), 1U);
    EXPECT_EQ(headingLevel(u"#"), 0U);
    EXPECT_EQ(headingLevel(u"##"), 1U);
    EXPECT_EQ(headingLevel(u"###"), 2U);
    EXPECT_EQ(headingLevel(u"####### x"), 7U);
    EXPECT_EQ(headingLevel(u" # Title"), 0U);
    EXPECT_EQ(headingLevel(u"Title"), 0U);
    EXPECT_EQ(headingLevel(u""), 0U);
}

TEST(MarkdownLines, TakeHugeLines)
{
    for (const char16_t unit : std::u16string(u"#*_~>1 \0\xD83D", 9)) {
        const std::u16string line(kHuge, unit);
        EXPECT_EQ(headingLevel(line), unit == u'#' ? kHuge - 1 : 0U);
        EXPECT_EQ(isStruckthrough(line), unit == u'~');
        EXPECT_EQ(isEmphasized(line), unit == u'*' || unit == u'_');
        EXPECT_EQ(getListTypeAndCurrentBullet(line), ListType::None);
    }
}

} // namespace
