#include "markdown/MarkdownText.h"

#include "markdown/MarkdownSpans.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    std::u16string_view text;
    std::u16string_view markdown;
};

} // namespace

TEST(MarkdownText, EscapesWhatIsActive)
{
    for (const auto& [text, markdown] : {
             Case{u"a*b", u"a\\*b"},
             Case{u"[x] `y` <z>", u"\\[x\\] \\`y\\` \\<z>"},
             Case{u"snake_case", u"snake_case"},
             Case{u"_a_", u"\\_a\\_"},
             Case{u"R&D & &amp; &#1;", u"R\\&D & \\&amp; \\&#1;"},
             Case{u"a\\b", u"a\\\\b"},
             Case{u"plain, text!", u"plain, text!"},
         })
        EXPECT_EQ(escapedMarkdown(text), markdown);
}

TEST(MarkdownText, EscapesWhatBeginsABlock)
{
    for (const auto& [text, markdown] : {
             Case{u"# a", u"\\# a"},
             Case{u"#a", u"#a"},
             Case{u"- a", u"\\- a"},
             Case{u"-5", u"-5"},
             Case{u"--", u"\\--"},
             Case{u"> a", u"\\> a"},
             Case{u"1. a", u"1\\. a"},
             Case{u"12) a", u"12\\) a"},
             Case{u"1 a", u"1 a"},
             Case{u"12", u"12"},
             Case{u"===", u"\\==="},
             Case{u"", u""},
         })
        EXPECT_EQ(escapedMarkdownStart(text), markdown);
}

TEST(MarkdownText, PutsEnoughBackquotesAroundCode)
{
    EXPECT_EQ(markdownCode(u"a"), u"`a`");
    EXPECT_EQ(markdownCode(u"a`b"), u"``a`b``");
    EXPECT_EQ(markdownCode(u"`"), u"`` ` ``");
    EXPECT_EQ(markdownCode(u" a "), u"`  a  `");
}

TEST(MarkdownText, WritesTargetsThatAreReadBack)
{
    for (const auto* target : {u"a", u"a b", u"a(b", u"a)b", u"a\\b", u"https://a.example/?b=c&d"}) {
        const auto spans = markdownSpans(u"[x](" + markdownTarget(target) + u")");
        ASSERT_EQ(spans.size(), 1U);
        ASSERT_TRUE(spans.front().link);
        EXPECT_EQ(*spans.front().link, target);
    }
    EXPECT_EQ(markdownTarget(u"<a>"), u"<%3Ca%3E>");
}

TEST(MarkdownText, KnowsURLs)
{
    EXPECT_TRUE(isMarkdownURL(u"https://a"));
    EXPECT_TRUE(isMarkdownURL(u"mailto:a@b"));
    for (const auto* text : {u"", u"a", u":a", u"a:b", u"https://a b", u"1a:b"})
        EXPECT_FALSE(isMarkdownURL(text));
}
