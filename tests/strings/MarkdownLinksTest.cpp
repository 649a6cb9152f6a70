#include "strings/MarkdownLinks.h"

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/Unicode.h"
#include "tests/strings/RandomText.h"

#include <gtest/gtest.h>

#include <string>

using namespace CVLMarkdown;

namespace {

struct Link {
    bool isLink = false;
    std::u16string text = u"unset";
    std::u16string link = u"unset";
    std::u16string title = u"unset";

    friend bool operator==(const Link&, const Link&) = default;
};

Link linkIn(std::u16string_view line)
{
    Link link;
    link.isLink = getLink(line, &link.link, &link.text, &link.title);
    return link;
}

Link imageIn(std::u16string_view line)
{
    Link link;
    link.isLink = getImageLink(line, &link.link, &link.text, &link.title);
    return link;
}

std::u16string repeated(std::u16string_view text, std::size_t count)
{
    std::u16string result;
    for (; count > 0; --count)
        result += text;
    return result;
}

TEST(GetLink, FindsTextLinkAndTitle)
{
    EXPECT_EQ(linkIn(u"[a](b \"c\")"), (Link{true, u"a", u"b", u"c"}));
    EXPECT_EQ(linkIn(u"[a](b)"), (Link{true, u"a", u"b", u""}));
    EXPECT_EQ(linkIn(u" \t[a]( b ) "), (Link{true, u"a", u"b", u""}));
    EXPECT_EQ(linkIn(u"[a](b c \"d e\" f)"), (Link{true, u"a", u"b", u"d e\" f"}));
    EXPECT_EQ(linkIn(u"[]()"), (Link{true, u"", u"", u""}));
}

TEST(GetLink, WantsBothASpaceAndAQuoteForATitle)
{
    EXPECT_EQ(linkIn(u"[a](b c)"), (Link{true, u"a", u"b c", u""}));
    EXPECT_EQ(linkIn(u"[a](b\"c\")"), (Link{true, u"a", u"b\"c\"", u""}));
    EXPECT_EQ(linkIn(u"[a](\"b c\")"), (Link{true, u"a", u"\"b", u"b c"}));
    EXPECT_EQ(linkIn(u"[a](b \"\"\"\")"), (Link{true, u"a", u"b", u""}));
}

TEST(GetLink, ReachesToTheLastBrackets)
{
    EXPECT_EQ(linkIn(u"[a [b] c](d)"), (Link{true, u"a [b] c", u"d", u""}));
    EXPECT_EQ(linkIn(u"[a](b) and [c](d)"), (Link{true, u"a](b) and [c", u"d", u""}));
    EXPECT_EQ(linkIn(u"[a] text (b) tail"), (Link{true, u"a", u"b", u""}));
}

TEST(GetLink, TakesNothingElseForALink)
{
    for (const std::u16string_view line : {u"[a]b(c", u"a [a](b)", u"![a](b)", u"[a)(b]", u"[a(b)]", u"[a]",
                                           u"[a](", u"[a])(", u"(b)", u"", u"["})
        EXPECT_EQ(linkIn(line), Link()) << std::string(line.begin(), line.end());
}

TEST(GetLink, NeedsNobodyToListen)
{
    EXPECT_TRUE(getLink(u"[a](b)"));
    EXPECT_TRUE(getImageLink(u"![a](b)"));
}

TEST(GetImageLink, WantsTheExclamationMark)
{
    EXPECT_EQ(imageIn(u"![a](b \"c\")"), (Link{true, u"a", u"b", u"c"}));
    EXPECT_EQ(imageIn(u"  ![](b)"), (Link{true, u"", u"b", u""}));
    EXPECT_EQ(imageIn(u"[a](b)"), Link());
    EXPECT_EQ(imageIn(u"! [a](b)"), Link());
}

TEST(MarkdownLink, IsBuiltWithItsTitle)
{
    EXPECT_EQ(markdownLinkWithText(u"a", u"b", u"c"), u"[a](b \"c\")");
    EXPECT_EQ(markdownLinkWithText(u"a", u"b"), u"[a](b)");
    EXPECT_EQ(markdownLinkWithText(std::nullopt, u"b"), u"[b](b)");
    EXPECT_EQ(markdownLinkWithText(u"", u"b"), u"[](b)");
    EXPECT_EQ(markdownImageLinkWithAltText(u"a", u"b", u"c"), u"![a](b \"c\")");
    EXPECT_EQ(markdownImageLinkWithAltText(u"", u"b"), u"![](b)");
}

TEST(MarkdownLink, ReadsBackAsItWasBuilt)
{
    RandomText texts(7);
    for (int count = 0; count < 2'000; ++count) {
        const auto text = texts.next(u"ab \"[!\u00E9", 8);
        const auto link = texts.next(u"ab/.%\u00E9", 8) + u"x";
        const auto title = texts.next(u"ab c\u00E9", 8);
        EXPECT_EQ(linkIn(markdownLinkWithText(text, link, title)), (Link{true, text, link, title}));
        EXPECT_EQ(imageIn(markdownImageLinkWithAltText(text, link, title)), (Link{true, text, link, title}));
    }
}

TEST(MarkdownByRemovingImages, RemovesBothForms)
{
    EXPECT_EQ(markdownByRemovingImages(u"a ![b](c) d"), u"a  d");
    EXPECT_EQ(markdownByRemovingImages(u"a ![b][c] d"), u"a  d");
    EXPECT_EQ(markdownByRemovingImages(u"![b]\n(c)"), u"![b]\n(c)");
    EXPECT_EQ(markdownByRemovingImages(u"[b](c)"), u"[b](c)");
    EXPECT_EQ(markdownByRemovingImages(u""), u"");
}

TEST(MarkdownByRemovingImages, SwallowsTheTextBetweenTwoImagesOfALine)
{
    EXPECT_EQ(markdownByRemovingImages(u"a ![b](c) d ![e](f) g"), u"a  g");
    EXPECT_EQ(markdownByRemovingImages(u"a ![b](c) d (e) f"), u"a  f");
    EXPECT_EQ(markdownByRemovingImages(u"a ![b](c)\r\n![d](e) f"), u"a \r\n f");
}

TEST(MarkdownByRemovingImages, RemovesWhatThePatternsMatch)
{
    const auto inlined = NSRegularExpression::regularExpressionWithPattern(u"\\!\\[.*\\]\\(.*\\)");
    const auto referred = NSRegularExpression::regularExpressionWithPattern(u"\\!\\[.*\\]\\[.*\\]");
    RandomText texts(8);
    for (int count = 0; count < 50'000; ++count) {
        const auto text = texts.next(u"![]()!([])a\n\v\u2028", 14);
        const auto expected = referred->stringByReplacingMatchesInString(
            inlined->stringByReplacingMatchesInString(text, u""), u"");
        ASSERT_EQ(markdownByRemovingImages(text), expected) << UTF8FromUTF16(text);
    }
}

TEST(MarkdownLinks, TakeHugeTexts)
{
    constexpr std::size_t kCount = 2'000'000;
    EXPECT_EQ(markdownByRemovingImages(repeated(u"![", kCount)).size(), 2 * kCount);
    EXPECT_EQ(markdownByRemovingImages(repeated(u"![](", kCount)).size(), 4 * kCount);
    EXPECT_EQ(markdownByRemovingImages(repeated(u"![a](b)\n", kCount)).size(), kCount);
    const auto nested = repeated(u"[", kCount) + repeated(u"]", kCount) + u"(b)";
    EXPECT_EQ(linkIn(nested).text.size(), 2 * kCount - 2);
    EXPECT_FALSE(getLink(repeated(u"(", kCount)));
    EXPECT_FALSE(getLink(std::u16string(kCount, u'\0')));
}

} // namespace
