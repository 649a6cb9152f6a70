#include "markdown/MarkdownExport.h"

#include "platform/foundation/NSFileWrapper.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextAttachment.h"

#include <gtest/gtest.h>

namespace {

/// A page as Markdown.
std::string markdownOf(std::string_view page)
{
    const auto text = NSAttributedStringDocumentFormats::initWithHTML(NSData{std::string(page)});
    return text ? UTF8FromUTF16(markdownWithAttributedString(*text)) : "not read";
}

struct Case {
    std::string_view page;
    std::string_view markdown;
};

void expectMarkdown(std::initializer_list<Case> cases)
{
    for (const auto& [page, markdown] : cases)
        EXPECT_EQ(markdownOf(page), markdown) << page;
}

} // namespace

TEST(MarkdownExport, WritesParagraphsWithBlankLinesBetween)
{
    expectMarkdown({
        {"", ""},
        {"<p>a<p>b", "a\n\nb\n"},
        {"<p>a<br>b", "a\\\nb\n"},
        {"<p>a<br>- b", "a\\\n\\- b\n"},
        {"<p># a<p>1. b<p>*c*", "\\# a\n\n1\\. b\n\n\\*c\\*\n"},
        {"<hr>", "***\n"},
    });
}

TEST(MarkdownExport, WritesHeadings)
{
    expectMarkdown({
        {"<h1>a</h1><p>b", "# a\n\nb\n"},
        {"<h3>a <i>b</i></h3>", "### a *b*\n"},
        {"<h2>a<br>b</h2>", "## a b\n"},
        {"<h2>a #</h2>", "## a \\#\n"},
    });
}

TEST(MarkdownExport, WritesSpans)
{
    expectMarkdown({
        {"<p>a <b>b</b> <i>i</i> <s>s</s> <code>c</code>", "a **b** *i* ~s~ `c`\n"},
        {"<p><b>a <i>b</i> c</b>", "**a *b* c**\n"},
        {"<p>x<b> a </b>y", "x **a** y\n"},
        {"<p><a href='https://a.example/b c'>l <b>m</b></a>", "[l **m**](https://a.example/b%20c)\n"},
        {"<p><mark>m</mark>", "<mark>m</mark>\n"},
        {"<p>x<sup>2</sup> H<sub>2</sub>O", "x<sup>2</sup> H<sub>2</sub>O\n"},
        {"<p>a <code>b`c</code>", "a ``b`c``\n"},
    });
}

TEST(MarkdownExport, LeavesLinksOutThatRunScriptsOrLeadToFiles)
{
    for (const auto* const target :
         {u"javascript:alert(1)", u" VB\nScript:x", u"data:text/html,x", u"file:///etc/passwd"}) {
        const NSAttributedString text(u"l", {{std::u16string(NSLinkAttributeName), NSAny(target)}});
        EXPECT_EQ(markdownWithAttributedString(text), u"l\n");
    }
}

TEST(MarkdownExport, WritesEmphasisThatIsReadAsSuch)
{
    expectMarkdown({
        {"<p><b>Note:</b>text", "**Note**:text\n"},
        {"<p><b>Note:</b> text", "**Note:** text\n"},
        {"<p>a<i>(b)</i>c", "a(*b*)c\n"},
        {"<p>a<b>!</b>c", "a!c\n"},
        {"<p>a<b>! b .</b>c", "a! **b** .c\n"},
        {"<p>a<b>*</b>c", "a\\*c\n"},
        {"<p><i>a <b>b.</b></i>c", "*a* ***b***.c\n"},
        {"<p><b><code>b</code></b>c", "`b`c\n"},
        {"<p><b><code>b</code></b> c", "**`b`** c\n"},
        {"<p>a<b><code>b</code></b> c", "a`b` c\n"},
        {"<p><b>a.<u>.</u></b>c", "**a**..c\n"},
        {"<p><b>a<br></b>b", "**a**\\\nb\n"},
        {"<p><b>a&nbsp;</b>b", "**a**\u00a0b\n"},
        {"<p><b><s>b</s></b> c", "**~b~** c\n"},
    });
}

TEST(MarkdownExport, WritesLists)
{
    expectMarkdown({
        {"<ul><li>a<li>b</ul><p>c", "- a\n- b\n\nc\n"},
        {"<ol start=3><li>a<li>b</ol>", "3. a\n4. b\n"},
        {"<ul><li>a<ul><li>b<ol><li>c</ol></ul><li>d</ul>", "- a\n    - b\n        1. c\n- d\n"},
        {"<ol start=1000><li>a<ul><li>b</ul></ol>", "1000. a\n      - b\n"},
        {"<ul><li>a</ul><ul><li>b</ul>", "- a\n\n* b\n"},
        {"<ul><li><p>a<p>b</ul>", "- a\n\n  b\n"},
        {"<ul><li>\u2611 a<li>\u2610 b</ul>", "- [x] a\n- [ ] b\n"},
        {"<ul><li>a<br>b</ul>", "- a\\\n  b\n"},
    });
}

TEST(MarkdownExport, CountsEachListFromItsStart)
{
    expectMarkdown({
        {"<ol type=I><li>One<ol type=A><li>aa<li>bb</ol><li>Two</ol>",
         "1. One\n    1. aa\n    2. bb\n2. Two\n"},
        {"<ol type=I start=3><li>a<li>b</ol>", "3. a\n4. b\n"},
        {"<ol type=a><li>a<ol type=i><li>b</ol><li>c<ol type=i><li>d</ol></ol>",
         "1. a\n    1. b\n2. c\n    1. d\n"},
        {"<ol type=A><li>a<p>b<li>c</ol>", "1. a\n\n   b\n\n2. c\n"},
        {"<ol><li value=7>a<li>b</ol>", "7. a\n8. b\n"},
    });
}

TEST(MarkdownExport, WritesCodeAndQuotes)
{
    expectMarkdown({
        {"<pre>a\n  b\n\nc</pre><p>d", "```\na\n  b\n\nc\n```\n\nd\n"},
        {"<pre>```</pre>", "````\n```\n````\n"},
        {"<div style='border-left:3px solid'><p>a<p>b</div><p>c", "> a\n>\n> b\n\nc\n"},
    });
}

TEST(MarkdownExport, TakesBoxesForNoQuotes)
{
    expectMarkdown({
        {"<div style='border:1px solid'><p>a<p>b</div><p>c", "a\n\nb\n\nc\n"},
        {"<div style='background:yellow'>a</div>", "a\n"},
        {"<div style='border-left:3px solid;background:yellow'>a</div>", "a\n"},
    });
}

TEST(MarkdownExport, WritesTables)
{
    expectMarkdown({
        {"<table><tr><th>a<th>b<tr><td>c|d<td>e<br>f</table><p>g",
         "| a | b |\n| --- | --- |\n| c\\|d | e<br>f |\n\ng\n"},
        {"<table><tr><td><p>a<p>b<td>c</table>", "| a<br>b | c |\n| --- | --- |\n"},
        {"<table><tr><td>a<tr><td>b<td>c</table>", "| a |  |\n| --- | --- |\n| b | c |\n"},
    });
}

TEST(MarkdownExport, WritesCellsInTheirColumns)
{
    expectMarkdown({
        {"<table><tr><td colspan=2>a<td>b<tr><td>c<td>d<td>e</table>",
         "| a |  | b |\n| --- | --- | --- |\n| c | d | e |\n"},
        {"<table><tr><td rowspan=2>a<td>b<tr><td>c</table>", "| a | b |\n| --- | --- |\n|  | c |\n"},
        {"<table><tr><td>a<td colspan=2>b</table>", "| a | b |  |\n| --- | --- | --- |\n"},
    });
}

TEST(MarkdownExport, TellsLinksBehindExclamationMarksFromImages)
{
    expectMarkdown({
        {"<p>Wow!<a href='https://a.example/'>b</a>", "Wow\\![b](https://a.example/)\n"},
        {"<p>Wow! <a href='https://a.example/'>b</a>", "Wow! [b](https://a.example/)\n"},
    });
}

TEST(MarkdownExport, WritesAttachmentsByTheirNames)
{
    NSMutableAttributedString text;
    for (const auto* name : {u"a b.png", u"c.zip"}) {
        const auto file = NSFileWrapper::initRegularFileWithContents(NSData{"x"});
        file->setPreferredFilename(name);
        text.appendAttributedString(NSAttributedString::attributedStringWithAttachment(
            NSAny(NSTextAttachment::initWithFileWrapper(file))));
    }
    EXPECT_EQ(markdownWithAttributedString(text), u"![a b.png](<a b.png>)[c.zip](c.zip)\n");
    EXPECT_EQ(markdownWithAttributedString(text, {.filesFolder = u"list_files"}),
              u"![a b.png](<list_files/a b.png>)[c.zip](list_files/c.zip)\n");
}

TEST(MarkdownExport, ReadsTextOfEveryLineEnd)
{
    EXPECT_EQ(markdownWithAttributedString(NSAttributedString(u"a\r\nb\rc\u2029d\n")), u"a\n\nb\n\nc\n\nd\n");
    EXPECT_EQ(markdownWithAttributedString(NSAttributedString(u"\n\n")), u"");
}
