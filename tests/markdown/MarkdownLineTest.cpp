#include "markdown/MarkdownLine.h"

#include <gtest/gtest.h>

TEST(MarkdownLine, CountsTabsToTheNextFourthColumn)
{
    MarkdownLine line(u" \tx");
    line.takeBlanks();
    EXPECT_EQ(line.column(), 4U);
    EXPECT_EQ(line.rest(), u"x");
    MarkdownLine part(u"\tx");
    part.takeBlanks(2);
    EXPECT_EQ(part.column(), 2U);
    EXPECT_EQ(part.rest(), u"\tx");
    part.takeBlanks(2);
    EXPECT_EQ(part.rest(), u"x");
}

TEST(MarkdownLine, TakesQuoteMarks)
{
    MarkdownLine line(u"> >>  x");
    EXPECT_EQ(line.takeQuoteMarks(8), 3U);
    EXPECT_EQ(line.rest(), u" x");
    MarkdownLine bounded(u">>>");
    EXPECT_EQ(bounded.takeQuoteMarks(2), 2U);
    EXPECT_EQ(bounded.rest(), u">");
    EXPECT_EQ(MarkdownLine(u"    > x").takeQuoteMarks(8), 0U);
}

TEST(MarkdownLine, TakesBullets)
{
    struct Case {
        std::u16string_view text;
        char16_t sign;
        std::optional<NSInteger> number;
        std::size_t width;
        std::u16string_view rest;
    };

    for (const auto& [text, sign, number, width, rest] : {
             Case{u"- x", u'-', std::nullopt, 2, u"x"},
             Case{u"*   x", u'*', std::nullopt, 4, u"x"},
             Case{u"+\tx", u'+', std::nullopt, 4, u"x"},
             Case{u"-      x", u'-', std::nullopt, 2, u"     x"},
             Case{u"-", u'-', std::nullopt, 2, u""},
             Case{u"7. x", u'.', 7, 3, u"x"},
             Case{u"012) x", u')', 12, 5, u"x"},
             Case{u"999999999. x", u'.', 999'999'999, 11, u"x"},
         }) {
        MarkdownLine line(text);
        const auto bullet = line.takeBullet();
        ASSERT_TRUE(bullet);
        EXPECT_EQ(bullet->sign, sign);
        EXPECT_EQ(bullet->number, number);
        EXPECT_EQ(bullet->width, width);
        EXPECT_EQ(line.rest(), rest);
    }
    for (const auto* text : {u"", u"-x", u"1.x", u"1x", u"1", u"a. x", u"1234567890. x", u"\u2022 x"})
        EXPECT_FALSE(MarkdownLine(text).takeBullet());
}

TEST(MarkdownLine, TakesBoxes)
{
    EXPECT_EQ(MarkdownLine(u"[ ] x").takeBox(), false);
    EXPECT_EQ(MarkdownLine(u"[x] x").takeBox(), true);
    EXPECT_EQ(MarkdownLine(u"[X]").takeBox(), true);
    for (const auto* text : {u"", u"[", u"[]", u"[y] x", u"[x]y", u"[  ] x"})
        EXPECT_EQ(MarkdownLine(text).takeBox(), std::nullopt);
}

TEST(MarkdownLine, TakesHeadings)
{
    struct Case {
        std::u16string_view text;
        int level;
        std::u16string_view rest;
    };

    for (const auto& [text, level, rest] : {
             Case{u"# x", 1, u"x"},
             Case{u"######  x y ", 6, u"x y"},
             Case{u"## x ##  ", 2, u"x"},
             Case{u"## x#", 2, u"x#"},
             Case{u"#", 1, u""},
             Case{u"## ##", 2, u""},
             Case{u"#x", 0, u"#x"},
             Case{u"####### x", 0, u"####### x"},
             Case{u"x", 0, u"x"},
         }) {
        MarkdownLine line(text);
        EXPECT_EQ(line.takeHeading(), level);
        EXPECT_EQ(line.rest(), rest);
    }
}

TEST(MarkdownLine, KnowsRulesUnderlinesAndFences)
{
    for (const auto* text : {u"---", u"* * *", u"_____ "})
        EXPECT_TRUE(MarkdownLine(text).isRule());
    for (const auto* text : {u"", u"--", u"-*-", u"--- x", u"==="})
        EXPECT_FALSE(MarkdownLine(text).isRule());
    EXPECT_EQ(MarkdownLine(u"=").underlineLevel(), 1);
    EXPECT_EQ(MarkdownLine(u"-- ").underlineLevel(), 2);
    EXPECT_EQ(MarkdownLine(u"= =").underlineLevel(), 0);
    EXPECT_EQ(MarkdownLine(u"```cpp").fenceLength(), 3U);
    EXPECT_EQ(MarkdownLine(u"~~~~").fenceLength(), 4U);
    EXPECT_EQ(MarkdownLine(u"``x").fenceLength(), 0U);
    EXPECT_EQ(MarkdownLine(u"```x```").fenceLength(), 0U);
    EXPECT_TRUE(MarkdownLine(u"````  ").closesFence(u'`', 3));
    EXPECT_FALSE(MarkdownLine(u"``").closesFence(u'`', 3));
    EXPECT_FALSE(MarkdownLine(u"``` x").closesFence(u'`', 3));
    EXPECT_FALSE(MarkdownLine(u"~~~").closesFence(u'`', 3));
}
