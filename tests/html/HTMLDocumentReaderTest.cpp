#include "platform/foundation/NSFileWrapper.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

NSAttributedString read(std::string_view page, const NSHTMLReadingOptions& options = {},
                        NSAny::Dictionary* attributes = nullptr)
{
    const auto text
        = NSAttributedStringDocumentFormats::initWithHTML(NSData{std::string(page)}, options, attributes);
    EXPECT_TRUE(text);
    return text.value_or(NSAttributedString());
}

std::u16string textOf(std::string_view page)
{
    return std::u16string(read(page).string());
}

/// Where `words` stand in the text.
NSUInteger placeOf(const NSAttributedString& text, std::u16string_view words)
{
    const auto place = text.string().find(words);
    EXPECT_NE(place, std::u16string_view::npos);
    return place;
}

NSAny attributeAt(const NSAttributedString& text, std::u16string_view words, std::u16string_view name)
{
    return text.attribute(name, placeOf(text, words));
}

std::u16string fontAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto font = attributeAt(text, words, NSFontAttributeName).object<NSFont>();
    return font ? font->fontName() : u"none";
}

double sizeAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto font = attributeAt(text, words, NSFontAttributeName).object<NSFont>();
    return font ? font->pointSize() : 0;
}

NSParagraphStyle::Ref styleAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto style = attributeAt(text, words, NSParagraphStyleAttributeName).object<NSParagraphStyle>();
    return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

std::u16string markerFormatAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto lists = styleAt(text, words)->textLists();
    return lists.empty() ? u"" : lists.back()->markerFormat();
}

std::shared_ptr<const NSTextTableBlock> cellAt(const NSAttributedString& text, std::u16string_view words)
{
    const auto blocks = styleAt(text, words)->textBlocks();
    return blocks.empty() ? nullptr : std::dynamic_pointer_cast<const NSTextTableBlock>(blocks.back());
}

bool isColor(const NSAny& value, double red, double green, double blue)
{
    const auto color = value.object<NSColor>();
    return color && color->deviceRGBComponents() == NSColorRGBA{red, green, blue, 1};
}

} // namespace

TEST(HTMLDocumentReader, CollapsesWhiteSpaceAndEndsParagraphs)
{
    EXPECT_EQ(textOf("<p> one \n two </p> <p>three</p>tail"), u"one two\nthree\ntail");
    EXPECT_EQ(textOf("<div>a<div>b</div>c</div>"), u"a\nb\nc");
    EXPECT_EQ(textOf("<b>a</b> <i> b</i>"), u"a b");
    EXPECT_EQ(textOf(""), u"");
}

TEST(HTMLDocumentReader, ReadsLineBreaksAsLineSeparators)
{
    EXPECT_EQ(textOf("<p>a <br> b<br></p>c"), u"a\u2028b\nc");
    EXPECT_EQ(textOf("<p>a</p><p><br></p><p>b</p>"), u"a\n\nb");
    EXPECT_EQ(textOf("<p>a<br><br></p>b"), u"a\u2028\nb");
}

TEST(HTMLDocumentReader, KeepsPreformattedText)
{
    EXPECT_EQ(textOf("<pre>\n a\tb\n\nc  d\n</pre>e"), u" a\tb\n\nc  d\ne");
    EXPECT_EQ(textOf("<p style='white-space:pre-wrap'>a  b\tc</p>"), u"a  b\tc");
    EXPECT_EQ(textOf("<p style='white-space:pre-line'>a  b\nc</p>"), u"a b\nc");
}

TEST(HTMLDocumentReader, LeavesOutWhatNobodySees)
{
    EXPECT_EQ(
        textOf("<script>if (a<b) x()</script>a<style>p{}</style><template><p>t</p>"
               "</template><p hidden>h</p><svg><text>s</text></svg><p style='display:none'>d<b>e</b></p>b"),
        u"ab");
}

TEST(HTMLDocumentReader, DecodesReferencesAndKeepsNoBreakSpaces)
{
    EXPECT_EQ(textOf("a &amp; b&nbsp;&nbsp;c &#x1F600; &lt;p&gt; 1 < 2"),
              u"a & b\u00A0\u00A0c \xD83D\xDE00 <p> 1 < 2");
}

TEST(HTMLDocumentReader, GivesHeadingsTheirLevelSizeAndWeight)
{
    const auto text = read("<h1>One</h1><h3>Three</h3><p>text</p>");
    EXPECT_EQ(styleAt(text, u"One")->headerLevel(), 1);
    EXPECT_EQ(styleAt(text, u"Three")->headerLevel(), 3);
    EXPECT_EQ(styleAt(text, u"text")->headerLevel(), 0);
    EXPECT_EQ(fontAt(text, u"One"), u"Times-Bold");
    EXPECT_DOUBLE_EQ(sizeAt(text, u"One"), 24);
    EXPECT_DOUBLE_EQ(sizeAt(text, u"text"), 12);
    EXPECT_EQ(fontAt(text, u"text"), u"Times-Roman");
}

TEST(HTMLDocumentReader, GivesParagraphsTheGapsOfTheirMargins)
{
    const auto text
        = read("<p>one</p><p>two</p><p style='margin:0 0 5px'>three</p><p style='margin-top:8px'>four");
    EXPECT_DOUBLE_EQ(styleAt(text, u"one")->paragraphSpacingBefore(), 0);
    EXPECT_DOUBLE_EQ(styleAt(text, u"one")->paragraphSpacing(), 12);
    EXPECT_DOUBLE_EQ(styleAt(text, u"two")->paragraphSpacingBefore(), 0);
    EXPECT_DOUBLE_EQ(styleAt(text, u"three")->paragraphSpacing(), 5);
    EXPECT_DOUBLE_EQ(styleAt(text, u"four")->paragraphSpacingBefore(), 3);
}

TEST(HTMLDocumentReader, ReadsListsWithMarkersBetweenTabs)
{
    const auto text
        = read("<ul><li>one<li>two<ul><li>in</ul></ul><ol start=3><li>three<li value=7>seven<li>eight</ol>");
    EXPECT_EQ(text.string(), u"\t•\tone\n\t•\ttwo\n\t⁃\tin\n\t3.\tthree\n\t7.\tseven\n\t8.\teight");
    const auto one = styleAt(text, u"one");
    const auto inner = styleAt(text, u"in");
    ASSERT_EQ(one->textLists().size(), 1U);
    ASSERT_EQ(inner->textLists().size(), 2U);
    EXPECT_EQ(one->textLists()[0], styleAt(text, u"two")->textLists()[0]);
    EXPECT_EQ(inner->textLists()[0], one->textLists()[0]);
    EXPECT_EQ(markerFormatAt(text, u"three"), u"{decimal}.");
    EXPECT_EQ(styleAt(text, u"three")->textLists()[0]->startingItemNumber(), 3);
}

TEST(HTMLDocumentReader, GivesListsTheGeometryOfThePlatform)
{
    const auto text = read("<ul><li>one<ul><li>in</ul></ul>");
    const auto one = styleAt(text, u"one");
    EXPECT_DOUBLE_EQ(one->firstLineHeadIndent(), 0);
    EXPECT_DOUBLE_EQ(one->headIndent(), 36);
    EXPECT_DOUBLE_EQ(one->tabStops().at(0)->location(), 11);
    EXPECT_DOUBLE_EQ(one->tabStops().at(1)->location(), 36);
    EXPECT_DOUBLE_EQ(styleAt(text, u"in")->headIndent(), 72);
    EXPECT_DOUBLE_EQ(styleAt(text, u"in")->firstLineHeadIndent(), 36);
}

TEST(HTMLDocumentReader, ReadsListTypes)
{
    EXPECT_EQ(textOf("<ol type=a><li>x<li>y</ol>"), u"\ta.\tx\n\tb.\ty");
    EXPECT_EQ(textOf("<ol type=I start=4><li>x</ol>"), u"\tIV.\tx");
    EXPECT_EQ(textOf("<ul style='list-style: square inside'><li>x</ul>"), u"\t▪\tx");
    EXPECT_EQ(markerFormatAt(read("<ul type=circle><li>x</ul>"), u"x"), NSTextListMarkerCircle);
    EXPECT_EQ(textOf("<ul style='list-style-type:none'><li>x</ul>"), u"x");
    EXPECT_EQ(textOf("<ul><ul><li>x</ul></ul>"), u"\t⁃\tx");
    EXPECT_EQ(textOf("<li>x"), u"x");
}

TEST(HTMLDocumentReader, GivesLaterParagraphsOfAnItemNoMarker)
{
    const auto text = read("<ul><li><p>one</p><p>two</p></li><li>three</li></ul>");
    EXPECT_EQ(text.string(), u"\t•\tone\ntwo\n\t•\tthree");
    EXPECT_TRUE(styleAt(text, u"two")->textLists().empty());
    EXPECT_DOUBLE_EQ(styleAt(text, u"two")->headIndent(), 36);
}

TEST(HTMLDocumentReader, ReadsBoxesInListsAsChecklists)
{
    const auto text
        = read("<ul><li><input type=checkbox checked> done<li><label><input type=checkbox>open</label>"
               "<li>☑ too<li>plain</ul>");
    EXPECT_EQ(text.string(), u"\t✓\tdone\n\t◦\topen\n\t✓\ttoo\n\t•\tplain");
    EXPECT_EQ(markerFormatAt(text, u"done"), NSTextListMarkerCheck);
    EXPECT_EQ(markerFormatAt(text, u"open"), NSTextListMarkerCircle);
    EXPECT_EQ(markerFormatAt(text, u"plain"), NSTextListMarkerDisc);
    EXPECT_EQ(textOf("<input type=checkbox checked>yes"), u"☑ yes");
}

TEST(HTMLDocumentReader, ReadsTablesWithSpans)
{
    const auto text
        = read("<table border=2 cellpadding=4><tr><td rowspan=2 bgcolor=red width='50%'>a<td>b<td>c"
               "<tr><td colspan=2>d<tr><td><td>f</table>after");
    EXPECT_EQ(text.string(), u"a\nb\nc\nd\n\nf\nafter");
    const auto a = cellAt(text, u"a");
    const auto d = cellAt(text, u"d");
    ASSERT_TRUE(a);
    ASSERT_TRUE(d);
    EXPECT_EQ(a->table(), d->table());
    EXPECT_EQ(a->table()->numberOfColumns(), 3U);
    EXPECT_EQ(a->rowSpan(), 2);
    EXPECT_EQ(d->startingRow(), 1);
    EXPECT_EQ(d->startingColumn(), 1);
    EXPECT_EQ(d->columnSpan(), 2);
    EXPECT_EQ(cellAt(text, u"f\n")->startingRow(), 2);
    EXPECT_EQ(cellAt(text, u"f\n")->startingColumn(), 1);
    EXPECT_TRUE(isColor(NSAny(a->backgroundColor()), 1, 0, 0));
    EXPECT_EQ(a->contentWidth(), (NSTextBlock::Value{50, NSTextBlockValueType::Percentage}));
    EXPECT_DOUBLE_EQ(a->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinX).value, 1);
    EXPECT_DOUBLE_EQ(a->widthForLayer(NSTextBlockLayer::Padding, NSRectEdge::MaxY).value, 4);
    EXPECT_FALSE(cellAt(text, u"after"));
}

TEST(HTMLDocumentReader, ReadsTablesInTables)
{
    const auto text = read("<table><tr><td>a<table><tr><td>b</table>c<td>d</table>");
    EXPECT_EQ(text.string(), u"a\nb\nc\nd\n");
    EXPECT_EQ(styleAt(text, u"b")->textBlocks().size(), 2U);
    EXPECT_EQ(styleAt(text, u"a")->textBlocks().back(), styleAt(text, u"c")->textBlocks().back());
    EXPECT_EQ(cellAt(text, u"d")->startingColumn(), 1);
}

TEST(HTMLDocumentReader, KeepsTheLineEndOfALastCell)
{
    EXPECT_EQ(textOf("<table><tr><td>a</table>"), u"a\n");
}

TEST(HTMLDocumentReader, ResolvesLinks)
{
    NSHTMLReadingOptions options;
    options.baseURL = NSURL::URLWithString("https://a.example/dir/page");
    const auto text = read(
        "<a href='../x y'>one</a> <a href='#top'>two</a> <a>three</a> <a href='javascript:x'>four", options);
    EXPECT_EQ(attributeAt(text, u"one", NSLinkAttributeName).url()->absoluteString(),
              "https://a.example/x%20y");
    EXPECT_EQ(attributeAt(text, u"two", NSLinkAttributeName).url()->absoluteString(),
              "https://a.example/dir/page#top");
    EXPECT_FALSE(attributeAt(text, u"three", NSLinkAttributeName));
    EXPECT_FALSE(attributeAt(text, u"four", NSLinkAttributeName));
    const auto based = read("<base href='https://b.example/'><a href='c'>one</a>", options);
    EXPECT_EQ(attributeAt(based, u"one", NSLinkAttributeName).url()->absoluteString(), "https://b.example/c");
}

TEST(HTMLDocumentReader, ReadsEmphasis)
{
    const auto text = read(
        "<b>bold</b> <em>italic</em> <u>under</u> <del>struck</del> <sup>up</sup> <sub>down</sub> "
        "<code>code</code> <mark class=mint>mark</mark> <small>small</small> <strong><i>both</i></strong>");
    EXPECT_EQ(fontAt(text, u"bold"), u"Times-Bold");
    EXPECT_EQ(fontAt(text, u"italic"), u"Times-Italic");
    EXPECT_EQ(fontAt(text, u"both"), u"Times-BoldItalic");
    EXPECT_EQ(attributeAt(text, u"under", NSUnderlineStyleAttributeName), NSAny(1));
    EXPECT_EQ(attributeAt(text, u"struck", NSStrikethroughStyleAttributeName), NSAny(1));
    EXPECT_EQ(attributeAt(text, u"up", NSSuperscriptAttributeName), NSAny(1));
    EXPECT_EQ(attributeAt(text, u"down", NSSuperscriptAttributeName), NSAny(-1));
    EXPECT_EQ(fontAt(text, u"code"), u"Courier");
    EXPECT_EQ(attributeAt(text, u"mark", NSTextHighlightStyleAttributeName),
              NSAny(NSTextHighlightStyleDefault));
    EXPECT_EQ(attributeAt(text, u"mark", NSTextHighlightColorSchemeAttributeName),
              NSAny(NSTextHighlightColorSchemeMint));
    EXPECT_DOUBLE_EQ(sizeAt(text, u"small"), 10);
}

TEST(HTMLDocumentReader, ReadsFontElementsAndInlineStyles)
{
    const auto text
        = read("<font color=#ff0000 size=5 face='Nowhere, Helvetica'>font</font> "
               "<span style=\"color:rgb(0,0,255);font:italic bold 20px/1.5 'Helvetica Neue'\">span</span> "
               "<span style='background:yellow;letter-spacing:2px'>ground</span>");
    EXPECT_TRUE(isColor(attributeAt(text, u"font", NSForegroundColorAttributeName), 1, 0, 0));
    EXPECT_EQ(fontAt(text, u"font"), u"Helvetica");
    EXPECT_DOUBLE_EQ(sizeAt(text, u"font"), 18);
    EXPECT_TRUE(isColor(attributeAt(text, u"span", NSForegroundColorAttributeName), 0, 0, 1));
    EXPECT_EQ(fontAt(text, u"span"), u"HelveticaNeue-BoldItalic");
    EXPECT_DOUBLE_EQ(sizeAt(text, u"span"), 20);
    EXPECT_TRUE(isColor(attributeAt(text, u"ground", NSBackgroundColorAttributeName), 1, 1, 0));
    EXPECT_EQ(attributeAt(text, u"ground", NSKernAttributeName), NSAny(2.0));
}

TEST(HTMLDocumentReader, ReadsSizesInEveryUnit)
{
    const auto sizeOf = [](std::string_view size) {
        return sizeAt(read("<p style='font-size:20px'><span style='font-size:" + std::string(size) + "'>x"),
                      u"x");
    };
    EXPECT_DOUBLE_EQ(sizeOf("15px"), 15);
    EXPECT_DOUBLE_EQ(sizeOf("12pt"), 16);
    EXPECT_DOUBLE_EQ(sizeOf("1.5em"), 30);
    EXPECT_DOUBLE_EQ(sizeOf("50%"), 10);
    EXPECT_DOUBLE_EQ(sizeOf("medium"), 12);
    EXPECT_DOUBLE_EQ(sizeOf("larger"), 24);
    EXPECT_DOUBLE_EQ(sizeOf("2rem"), 24);
    EXPECT_DOUBLE_EQ(sizeOf("-3px"), 20);
    EXPECT_DOUBLE_EQ(sizeOf("nonsense"), 20);
}

TEST(HTMLDocumentReader, AppliesRulesByTheirStrength)
{
    const auto text = read("<style>/* c */ p{color:red} .b,.c{color:blue} p.d{color:lime} #e{color:black}\n"
                           "@media print{p{color:white}} div p{color:white}</style>"
                           "<p>one<p class=b>two<p class='x c d'>three<p class=c id=e>four"
                           "<p class=b style='color:red!important'>five");
    EXPECT_TRUE(isColor(attributeAt(text, u"one", NSForegroundColorAttributeName), 1, 0, 0));
    EXPECT_TRUE(isColor(attributeAt(text, u"two", NSForegroundColorAttributeName), 0, 0, 1));
    EXPECT_TRUE(isColor(attributeAt(text, u"three", NSForegroundColorAttributeName), 0, 1, 0));
    EXPECT_TRUE(isColor(attributeAt(text, u"four", NSForegroundColorAttributeName), 0, 0, 0));
    EXPECT_TRUE(isColor(attributeAt(text, u"five", NSForegroundColorAttributeName), 1, 0, 0));
}

TEST(HTMLDocumentReader, ReadsParagraphStyles)
{
    const auto text = read("<p style='text-align:right;line-height:1.8;text-indent:10px;margin-left:20px'>one"
                           "<div style='margin:0 40px'>two</div><p dir=rtl style='line-height:30px'>three");
    const auto one = styleAt(text, u"one");
    EXPECT_EQ(one->alignment(), NSTextAlignment::Right);
    EXPECT_DOUBLE_EQ(one->lineHeightMultiple(), 1.5);
    EXPECT_DOUBLE_EQ(one->headIndent(), 20);
    EXPECT_DOUBLE_EQ(one->firstLineHeadIndent(), 30);
    EXPECT_DOUBLE_EQ(styleAt(text, u"two")->headIndent(), 40);
    EXPECT_DOUBLE_EQ(styleAt(text, u"two")->tailIndent(), -40);
    EXPECT_EQ(styleAt(text, u"three")->baseWritingDirection(), NSWritingDirection::RightToLeft);
    EXPECT_DOUBLE_EQ(styleAt(text, u"three")->minimumLineHeight(), 30);
}

TEST(HTMLDocumentReader, ReadsBlocksWithGroundOrBorder)
{
    const auto text = read("<div style='background:#eee;border-left:3px solid red;padding:5px'>in</div>out");
    const auto blocks = styleAt(text, u"in")->textBlocks();
    ASSERT_EQ(blocks.size(), 1U);
    EXPECT_DOUBLE_EQ(blocks[0]->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinX).value, 3);
    EXPECT_DOUBLE_EQ(blocks[0]->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MaxX).value, 0);
    EXPECT_TRUE(isColor(NSAny(blocks[0]->borderColorForEdge(NSRectEdge::MinX)), 1, 0, 0));
    EXPECT_TRUE(styleAt(text, u"out")->textBlocks().empty());
}

TEST(HTMLDocumentReader, ReadsARuleAsACentredLine)
{
    const auto text = read("a<hr>b");
    EXPECT_EQ(text.string(), u"a\n***\nb");
    EXPECT_EQ(styleAt(text, u"***")->alignment(), NSTextAlignment::Center);
}

TEST(HTMLDocumentReader, AttachesImagesThatItHas)
{
    NSHTMLReadingOptions options;
    options.baseURL = NSURL::URLWithString("https://a.example/");
    options.resources["https://a.example/b.png"] = NSFileWrapper::initRegularFileWithContents(NSData{"png"});
    const auto text = read("<img src=b.png alt=B><img src='data:image/gif;base64,Ynl0ZXM=' alt='c.gif'>"
                           "<img src=d.png alt='a dog'><img src='data:text/html,x'>",
                           options);
    EXPECT_EQ(text.string(), u"\uFFFC\uFFFCa dog");
    const auto first = text.attribute(NSAttachmentAttributeName, 0).object<NSTextAttachment>();
    const auto second = text.attribute(NSAttachmentAttributeName, 1).object<NSTextAttachment>();
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    EXPECT_EQ(first->fileWrapper()->regularFileContents()->bytes, "png");
    EXPECT_EQ(second->fileWrapper()->regularFileContents()->bytes, "bytes");
    EXPECT_EQ(second->fileWrapper()->preferredFilename(), u"c.gif");
}

TEST(HTMLDocumentReader, KeepsAnImageOutOfTheLineEndBehindIt)
{
    const auto text
        = read("<p>a <img alt=b.png src='data:image/png;base64,Ynl0ZXM='></p>"
               "<ul><li>c <img alt=d.png src='data:image/png;base64,Ynl0ZXM='></li><li>e</li></ul>");
    std::size_t attachmentCount = 0;
    for (NSUInteger index = 0; index < text.length(); ++index) {
        const bool isAttached = !text.attribute(NSAttachmentAttributeName, index).isNil();
        EXPECT_EQ(isAttached, text.string()[index] == NSAttachmentCharacter) << index;
        attachmentCount += isAttached ? 1 : 0;
    }
    EXPECT_EQ(attachmentCount, 2U);
    EXPECT_TRUE(text.attribute(NSFontAttributeName, text.string().find(u'\n')).object<NSFont>());
}

TEST(HTMLDocumentReader, TellsTheDocumentsAttributes)
{
    NSAny::Dictionary attributes;
    NSHTMLReadingOptions options;
    options.baseURL = NSURL::URLWithString("https://a.example/");
    (void)read("<title> A &amp;\n B </title><body bgcolor=red>x", options, &attributes);
    EXPECT_EQ(attributes[std::u16string(NSTitleDocumentAttribute)], NSAny(u"A & B"));
    EXPECT_EQ(attributes[std::u16string(NSDocumentTypeDocumentAttribute)], NSAny(NSHTMLTextDocumentType));
    EXPECT_EQ(attributes[std::u16string(NSBaseURLDocumentAttribute)], NSAny(*options.baseURL));
    EXPECT_TRUE(isColor(attributes[std::u16string(NSBackgroundColorDocumentAttribute)], 1, 0, 0));
}

TEST(HTMLDocumentReader, FindsTheEncoding)
{
    EXPECT_EQ(textOf("\xEF\xBB\xBF\xC3\xA4"), u"ä");
    EXPECT_EQ(textOf("<meta charset=iso-8859-2>\xB1"), u"ą");
    EXPECT_EQ(textOf("<meta http-equiv=Content-Type content='text/html; charset=koi8-r'>\xC1"), u"а");
    NSHTMLReadingOptions options;
    options.textEncodingName = "iso-8859-7";
    EXPECT_EQ(read("<meta charset=koi8-r>\xE1", options).string(), u"α");
}

TEST(HTMLDocumentReader, UsesTheDefaultFontOfTheOptions)
{
    NSHTMLReadingOptions options;
    options.fontFamily = u"Helvetica";
    options.fontSize = 20;
    const auto text = read("x<h1>y</h1>", options);
    EXPECT_EQ(fontAt(text, u"x"), u"Helvetica");
    EXPECT_DOUBLE_EQ(sizeAt(text, u"x"), 20);
    EXPECT_DOUBLE_EQ(sizeAt(text, u"y"), 40);
}

TEST(HTMLDocumentReader, ReadsBrokenMarkup)
{
    EXPECT_EQ(textOf("<p>a<p>b</b></i></div>c</p></p>d"), u"a\nbc\nd");
    const auto crossed = read("<b>x<p>y</b>z");
    EXPECT_EQ(crossed.string(), u"x\nyz");
    EXPECT_EQ(fontAt(crossed, u"y"), u"Times-Bold");
    EXPECT_EQ(fontAt(crossed, u"z"), u"Times-Roman");
    EXPECT_EQ(textOf("a<"), u"a<");
    EXPECT_EQ(textOf("a</"), u"a");
    EXPECT_EQ(textOf("a<b"), u"a");
    EXPECT_EQ(textOf("a<b c='d"), u"a");
    EXPECT_EQ(textOf("a<!-- b"), u"a");
    EXPECT_EQ(textOf("a<script>b"), u"a");
    EXPECT_EQ(textOf("a\x01\x0B\x1F!"), u"a!");
    EXPECT_EQ(textOf("<td>a</td></table><tr>b"), u"a\nb");
}

TEST(HTMLDocumentReader, KeepsFormattingAcrossParagraphsThatCloseEachOther)
{
    EXPECT_EQ(fontAt(read("<p><b>a<p>b"), u"b"), u"Times-Bold");
}

TEST(HTMLDocumentReader, AsksForImagesThatTheResourcesDoNotHave)
{
    NSHTMLReadingOptions options;
    options.baseURL = NSURL::URLWithString("https://a.example/b/c.html");
    std::vector<std::string> asked;
    options.resources["https://a.example/b/d.png"] = NSFileWrapper::initRegularFileWithContents(NSData{"d"});
    options.resourceForURL = [&asked](const std::string& url) {
        asked.push_back(url);
        return url.ends_with("e.png") ? NSFileWrapper::initRegularFileWithContents(NSData{"e"}) : nullptr;
    };
    EXPECT_EQ(read("<img src=d.png><img src=e.png><img src=../f.png alt=f>", options).string(),
              u"\uFFFC\uFFFCf");
    EXPECT_THAT(asked, testing::ElementsAre("https://a.example/b/e.png", "https://a.example/f.png"));
}

TEST(HTMLDocumentReader, PutsItemsIntoTheChecklistAroundThem)
{
    const auto text = read("<ul><li><input type=checkbox checked>a<ul><li><input type=checkbox>b</ul></ul>");
    const auto style
        = text.attribute(NSParagraphStyleAttributeName, text.length() - 1).object<NSParagraphStyle>();
    ASSERT_TRUE(style && style->textLists().size() == 2);
    EXPECT_EQ(style->textLists().front()->markerFormat(), NSTextListMarkerCheck);
    EXPECT_EQ(style->textLists().back()->markerFormat(), NSTextListMarkerCircle);
}
