#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <gtest/gtest.h>

namespace {

NSAttributedString read(std::string_view page)
{
    const auto text = NSAttributedStringDocumentFormats::initWithHTML(NSData{std::string(page)});
    EXPECT_TRUE(text);
    return text.value_or(NSAttributedString());
}

std::u16string textOf(std::string_view page)
{
    return std::u16string(read(page).string());
}

NSParagraphStyle::Ref styleAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto place = text.string().find(words);
    EXPECT_NE(place, std::u16string_view::npos);
    const auto style = text.attribute(NSParagraphStyleAttributeName, place).object<NSParagraphStyle>();
    return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

std::u16string fontAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto font = text.attribute(NSFontAttributeName, text.string().find(words)).object<NSFont>();
    return font ? font->fontName() : u"none";
}

std::string repeated(std::string_view piece, std::size_t count)
{
    std::string text;
    for (std::size_t index = 0; index < count; ++index)
        text += piece;
    return text;
}

} // namespace

TEST(HTMLStructure, EndsAHeadingWhereTheNextBegins)
{
    const auto text = read("<h1>one<h2>two</h2>three");
    EXPECT_EQ(text.string(), u"one\ntwo\nthree");
    EXPECT_EQ(styleAt(text, u"two")->headerLevel(), 2);
    EXPECT_EQ(styleAt(text, u"three")->headerLevel(), 0);
}

TEST(HTMLStructure, EndsAButtonWhereTheNextBegins)
{
    const auto text = read("<button><b>one<button>two</button> three");
    EXPECT_EQ(fontAt(text, u"one"), u"Times-Bold");
    EXPECT_EQ(fontAt(text, u"two"), u"Times-Roman");
}

TEST(HTMLStructure, BreaksLinesAtBlocksBeyondTheBoundOfNesting)
{
    const auto deep = repeated("<b>", 1000);
    EXPECT_EQ(textOf(deep + "one<p>two</p>three<div>four</div>five"), u"one\ntwo\nthree\nfour\nfive");
    EXPECT_EQ(textOf(deep + "one <i>two</i> three"), u"one two three");
    EXPECT_EQ(textOf(deep + "one<xmp>two</xmp>three"), u"one\ntwo\nthree");
}

TEST(HTMLStructure, BreaksNoLinesInWhatIsHidden)
{
    EXPECT_EQ(textOf("one <span hidden>" + repeated("<b>", 1000) + "<p>two</p>" + repeated("</b>", 1000)
                     + "</span>three"),
              u"one three");
}

TEST(HTMLStructure, ReadsAQuoteAsABlockWithALineAtItsLeft)
{
    const auto text = read("one<blockquote>two<blockquote>three</blockquote></blockquote>four");
    EXPECT_EQ(text.string(), u"one\ntwo\nthree\nfour");
    EXPECT_TRUE(styleAt(text, u"one")->textBlocks().empty());
    EXPECT_EQ(styleAt(text, u"three")->textBlocks().size(), 2U);
    ASSERT_EQ(styleAt(text, u"two")->textBlocks().size(), 1U);
    const auto& block = *styleAt(text, u"two")->textBlocks().front();
    EXPECT_DOUBLE_EQ(block.widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinX).value, 3);
    EXPECT_DOUBLE_EQ(block.widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MaxX).value, 0);
    EXPECT_DOUBLE_EQ(block.widthForLayer(NSTextBlockLayer::Padding, NSRectEdge::MinX).value, 10);
    EXPECT_TRUE(block.borderColorForEdge(NSRectEdge::MinX));
    EXPECT_TRUE(styleAt(text, u"four")->textBlocks().empty());
}

TEST(HTMLStructure, KeepsItemsThatHoldNothing)
{
    EXPECT_EQ(textOf("<ol><li>a<li><li>c</ol>"), u"\t1.\ta\n\t2.\t\n\t3.\tc");
    EXPECT_EQ(textOf("<ul><li><ul><li>a</ul></ul>"), u"\t\u2043\ta");
    EXPECT_EQ(textOf("<ul><li hidden></li><li>b</ul>"), u"\t\u2022\tb");
}

TEST(HTMLStructure, PutsQuotationMarksAroundQuotedWords)
{
    EXPECT_EQ(textOf("a <q>b <q>c</q> d</q> e"), u"a \u201Cb \u2018c\u2019 d\u201D e");
    EXPECT_EQ(textOf("<p>a <q>b<p>c"), u"a \u201Cb\u201D\nc");
    EXPECT_EQ(textOf("a<q hidden>b</q>"), u"a");
}

TEST(HTMLStructure, ShowsWhatStandsInForScripts)
{
    EXPECT_EQ(textOf("a <noscript><b>b</b></noscript> c"), u"a b c");
}
