#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownImport.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "tests/html/GeneratedText.h"

#include <gtest/gtest.h>

TEST(MarkdownRoundTrip, GivesBackMarkdownAsItIsWritten)
{
    for (const std::u16string markdown : {
             u"a\n",
             u"# a\n\nb **c** *d* `e` ~f~ <mark>g</mark> [h](i)\n",
             u"- a\n- b\n    - c\n        1. d\n        2. e\n- f\n",
             u"- [ ] a\n- [x] b\n    - [ ] c\n\nd\n",
             u"3. a\n4. b\n\nc\n",
             u"> a\n>\n> > b\n\nc\n",
             u"```\na\n\n  b\n```\n",
             u"a\n\n***\n\nb\n",
             u"a\\\nb\n",
             u"x<sup>2</sup> H<sub>*2*</sub>O\n",
             u"- a\n\n  b\n\n- c\n",
             u"1\\. a \\* \\[b\\] \\_c\\_ d_e\n",
         })
        EXPECT_EQ(UTF8FromUTF16(markdownWithAttributedString(attributedStringWithMarkdown(markdown))),
                  UTF8FromUTF16(markdown));
}

TEST(MarkdownRoundTrip, KeepsTextThatLooksLikeMarkers)
{
    for (const std::u16string text : {
             u"# a",
             u"- a",
             u"1. a",
             u"> a",
             u"***",
             u"---",
             u"===",
             u"```",
             u"~~~",
             u"*a* _b_ **c** `d` ~e~",
             u"[a](b) ![c](d) <https://e>",
             u"<mark>a</mark> <br>",
             u"<sup>a</sup> <sub>",
             u"a & b &amp; &lt;",
             u"\\ \\* \\a",
             u"- [ ] a",
             u"a|b",
             u"snake_case __init__",
         }) {
        const auto markdown = markdownWithAttributedString(NSAttributedString(text));
        EXPECT_EQ(UTF8FromUTF16(std::u16string(attributedStringWithMarkdown(markdown).string())),
                  UTF8FromUTF16(text));
    }
}

TEST(MarkdownRoundTrip, SettlesAfterOneRound)
{
    // What Markdown cannot say is lost in the first round, and nothing more in the second.
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        const auto first = attributedStringWithMarkdown(markdownWithAttributedString(generatedText(seed)));
        const auto markdown = markdownWithAttributedString(first);
        const auto second = attributedStringWithMarkdown(markdown);
        EXPECT_EQ(UTF8FromUTF16(std::u16string(second.string())),
                  UTF8FromUTF16(std::u16string(first.string())))
            << seed;
    }
}

TEST(MarkdownRoundTrip, CarriesListsAndLinksThroughAPage)
{
    namespace Formats = NSAttributedStringDocumentFormats;
    const std::u16string markdown = u"# Title\n\n- [x] done\n- [ ] open\n\n1. one\n2. **two** "
                                    u"[link](https://a.example/)\n\n***\n\nlast\n";
    const auto text = attributedStringWithMarkdown(markdown);
    const auto page = Formats::HTMLFromRange(text, {0, text.length()});
    ASSERT_TRUE(page);
    const auto read = Formats::initWithHTML(*page);
    ASSERT_TRUE(read);
    EXPECT_EQ(UTF8FromUTF16(markdownWithAttributedString(*read)), UTF8FromUTF16(markdown));
}
