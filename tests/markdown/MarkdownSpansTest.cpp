#include "markdown/MarkdownSpans.h"

#include "platform/foundation/Unicode.h"

#include <gtest/gtest.h>

namespace {

/// The spans with signs for what they are: {b:text}, and {->target:text} for links.
std::string spansOf(std::u16string_view text)
{
    std::string result;
    for (const auto& span : markdownSpans(text)) {
        std::string signs;
        signs += span.kind == MarkdownSpan::Kind::Code ? "c"
            : span.kind == MarkdownSpan::Kind::Image   ? "!"
                                                       : "";
        signs += std::string(span.isStrong ? "b" : "") + (span.isEmphasized ? "i" : "")
            + (span.isStruck ? "s" : "") + (span.isHighlighted ? "m" : "");
        if (span.link)
            signs += "->" + UTF8FromUTF16(*span.link);
        const auto words = UTF8FromUTF16(span.text);
        result += signs.empty() ? words : "{" + signs + ":" + words + "}";
    }
    return result;
}

struct Case {
    std::u16string_view text;
    std::string_view spans;
};

void expectSpans(std::initializer_list<Case> cases)
{
    for (const auto& [text, spans] : cases)
        EXPECT_EQ(spansOf(text), spans) << UTF8FromUTF16(std::u16string(text));
}

std::u16string repeated(std::u16string_view text, std::size_t count)
{
    std::u16string result;
    while (count-- > 0)
        result += text;
    return result;
}

} // namespace

TEST(MarkdownSpans, HaveEmphasisAndStrongText)
{
    expectSpans({
        {u"a *b* c", "a {i:b} c"},
        {u"a **b** c", "a {b:b} c"},
        {u"***b***", "{bi:b}"},
        {u"__a__ _b_", "{b:a} {i:b}"},
        {u"*a **b** c*", "{i:a }{bi:b}{i: c}"},
        {u"**a *b***", "{b:a }{bi:b}"},
        {u"snake_case_name", "snake_case_name"},
        {u"a*b*c", "a{i:b}c"},
        {u"a * b * c", "a * b * c"},
        {u"**a", "**a"},
        {u"*a**", "{i:a}*"},
        {u"*a**b*", "{i:a**b}"},
        {u"2*3*4", "2{i:3}4"},
        {u"*x***y** z", "{i:x}{b:y} z"},
        {u"**(a)**b", "**(a)**b"},
    });
}

TEST(MarkdownSpans, HaveStruckAndHighlightedText)
{
    expectSpans({
        {u"~a~ ~~b~~", "{s:a} {s:b}"},
        {u"~a~~", "~a~~"},
        {u"~~~a~~~", "~~~a~~~"},
        {u"<mark>a *b*</mark>", "{m:a }{im:b}"},
        {u"<mark>a", "<mark>a"},
        {u"a</mark>", "a</mark>"},
    });
}

TEST(MarkdownSpans, HaveCode)
{
    expectSpans({
        {u"`a *b*`", "{c:a *b*}"},
        {u"``a`b``", "{c:a`b}"},
        {u"`` ` ``", "{c:`}"},
        {u"`a", "`a"},
        {u"``a`", "``a`"},
        {u"`a\nb`", "{c:a b}"},
        {u"*a`*`", "*a{c:*}"},
        {u"**`a`**", "{cb:a}"},
    });
}

TEST(MarkdownSpans, HaveLinks)
{
    expectSpans({
        {u"[a](b)", "{->b:a}"},
        {u"[a](b \"t\") c", "{->b:a} c"},
        {u"[a](<b c>)", "{->b c:a}"},
        {u"[a](b(c)d)", "{->b(c)d:a}"},
        {u"[a](b\\)c)", "{->b)c:a}"},
        {u"[*a* b](c)", "{i->c:a}{->c: b}"},
        {u"*[a](b)*", "{i->b:a}"},
        {u"*a [b*](c)", "*a {->c:b*}"},
        {u"[a]", "[a]"},
        {u"[a](b", "[a](b"},
        {u"[a](b c)", "[a](b c)"},
        {u"[a] (b)", "[a] (b)"},
        {u"[[a](b)](c)", "[{->b:a}](c)"},
        {u"[a]()", "{->:a}"},
        {u"<https://a.example/b>", "{->https://a.example/b:https://a.example/b}"},
        {u"<a b>", "<a b>"},
        {u"<b>a</b>", "<b>a</b>"},
    });
}

TEST(MarkdownSpans, HaveImages)
{
    expectSpans({
        {u"![a](b.png)", "{!->b.png:a}"},
        {u"![a *b*](c)", "{!->c:a b}"},
        {u"![](c)", "{!->c:}"},
        {u"*x* ![a *b*](c) *d*", "{i:x} {!->c:a b} {i:d}"},
        {u"[![a](b)](c)", "{!->b:a}"},
        {u"![a [b](c)](d)", "![a {->c:b}](d)"},
        {u"!a", "!a"},
    });
}

TEST(MarkdownSpans, HaveEscapedSignsAndLineBreaks)
{
    expectSpans({
        {u"\\*a\\*", "*a*"},
        {u"\\a\\", "\\a\\"},
        {u"\\\\*a*", "\\{i:a}"},
        {u"a\nb", "a b"},
        {u"a  \n  b", "a\u2028b"},
        {u"a\\\nb", "a\u2028b"},
        {u"a<br>b<br/>c", "a\u2028b\u2028c"},
        {u"a  ", "a"},
        {u"", ""},
    });
}

TEST(MarkdownSpans, LeaveNothingOutOfTextThatOpensAndNeverCloses)
{
    constexpr std::size_t kCount = 20'000;
    for (const auto* piece : {u"*a", u"[", u"_", u"`a``", u"[a](", u"<", u"![", u"~a ", u"a** "}) {
        std::size_t length = 0;
        for (const auto& span : markdownSpans(repeated(piece, kCount) + u"x"))
            length += span.text.size();
        EXPECT_GE(length, kCount) << UTF8FromUTF16(std::u16string(piece));
    }
}

TEST(MarkdownSpans, ReadTargetsAsFarAsTheirBound)
{
    const auto fits = u"[a](" + std::u16string(2046, u'b') + u")";
    EXPECT_EQ(markdownSpans(fits).size(), 1U);
    EXPECT_TRUE(markdownSpans(fits).front().link);
    const auto exceeds = u"[a](" + std::u16string(2047, u'b') + u")";
    EXPECT_FALSE(markdownSpans(exceeds).front().link);
}
