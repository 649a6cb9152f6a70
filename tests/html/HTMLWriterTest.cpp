#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSShadow.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/text/NSTextTable.h"
#include "tests/html/WellFormedHTML.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::Not;

std::string pageOf(const NSAttributedString& text, const NSAny::Dictionary& attributes = {})
{
    const auto data = NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, text.length()}, attributes);
    EXPECT_TRUE(data);
    EXPECT_EQ(faultOfHTML(data->bytes), "") << data->bytes;
    return data->bytes;
}

/// What stands between the body's tags, without the line ends around it.
std::string bodyOf(const NSAttributedString& text)
{
    const auto page = pageOf(text);
    const auto start = page.find('>', page.find("<body")) + 2;
    return page.substr(start, page.find("\n</body>") - start);
}

std::string sheetOf(const NSAttributedString& text)
{
    const auto page = pageOf(text);
    const auto start = page.find("<style>") + 8;
    return page.substr(start, page.find("</style>") - start);
}

NSAttributedString textWith(std::u16string_view name, const NSAny& value)
{
    return NSAttributedString(u"word", {{std::u16string(name), value}});
}

NSAttributedString paragraphIn(const NSMutableParagraphStyle& style, std::u16string text = u"word")
{
    return NSAttributedString(std::move(text),
                              {{std::u16string(NSParagraphStyleAttributeName), style.copy()}});
}

std::shared_ptr<NSTextAttachment> attachmentNamed(std::u16string name)
{
    const auto file = NSFileWrapper::initRegularFileWithContents(NSData{"bytes"});
    file->setFilename(name);
    file->setPreferredFilename(name);
    return NSTextAttachment::initWithFileWrapper(file);
}

class ListText {
public:
    ListText& add(std::u16string_view text, const NSParagraphStyle::TextLists& lists)
    {
        NSMutableParagraphStyle style;
        style.setTextLists(lists);
        m_text.appendAttributedString(paragraphIn(style, std::u16string(text) + u"\n"));
        return *this;
    }

    /// The body without the empty line behind the last item's end.
    [[nodiscard]] std::string body() const
    {
        return bodyOf(m_text.attributedSubstringFromRange({0, m_text.length() - 1}));
    }

private:
    NSMutableAttributedString m_text;
};

NSTextList::Ref listOf(std::u16string_view format, NSInteger start = 1)
{
    return std::make_shared<NSTextList>(format, 0, start);
}

} // namespace

TEST(HTMLWriter, WritesAPageOfItsOwn)
{
    const auto page
        = pageOf(NSAttributedString(u"word"), {{std::u16string(NSTitleDocumentAttribute), u"A < B"}});
    EXPECT_THAT(page, testing::StartsWith("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"));
    EXPECT_THAT(page, HasSubstr("<title>A &lt; B</title>"));
    EXPECT_THAT(page, testing::EndsWith("<body>\n<p>word</p>\n</body>\n</html>\n"));
}

TEST(HTMLWriter, WritesEachParagraphAndLineBreakAsOne)
{
    EXPECT_EQ(bodyOf(NSAttributedString(u"one\ntwo\r\nthree\u2029four\u2028five")),
              "<p>one</p>\n<p>two</p>\n<p>three</p>\n<p>four<br>five</p>");
}

TEST(HTMLWriter, KeepsEmptyLines)
{
    EXPECT_EQ(bodyOf(NSAttributedString(u"a\n\nb\n")), "<p>a</p>\n<p><br></p>\n<p>b</p>\n<p><br></p>");
    EXPECT_EQ(bodyOf(NSAttributedString(u"a\u2028")), "<p>a<br><br></p>");
    EXPECT_THAT(pageOf(NSAttributedString()), HasSubstr("<body>\n</body>"));
}

TEST(HTMLWriter, WritesOnlyTheRangeAskedFor)
{
    const NSAttributedString text(u"one two three");
    const auto page = NSAttributedStringDocumentFormats::HTMLFromRange(text, {4, 3});
    EXPECT_THAT(page->bytes, HasSubstr("<p>two</p>"));
    EXPECT_THAT(NSAttributedStringDocumentFormats::HTMLFromRange(text, {8, 100})->bytes,
                HasSubstr("<p>three</p>"));
}

TEST(HTMLWriter, EscapesMarkupAndDropsWhatIsNoCharacter)
{
    EXPECT_EQ(bodyOf(NSAttributedString(u"<b> & \"q\" \u0001\u0008x\uFFFE")),
              "<p>&lt;b&gt; &amp; \"q\" x</p>");
    EXPECT_EQ(bodyOf(NSAttributedString(std::u16string(u"\xD83D\xDE00 \xD83D!"))),
              "<p>\U0001F600 \uFFFD!</p>");
}

TEST(HTMLWriter, KeepsTabsAndRunsOfBlanksOfTheParagraphsThatHaveThem)
{
    EXPECT_THAT(pageOf(NSAttributedString(u"a\tb")), HasSubstr(".s1{white-space:pre-wrap}"));
    EXPECT_THAT(pageOf(NSAttributedString(u"a  b")), HasSubstr("<p class=\"s1\">a  b</p>"));
    EXPECT_THAT(pageOf(NSAttributedString(u" a")), HasSubstr("<p class=\"s1\"> a</p>"));
    EXPECT_EQ(bodyOf(NSAttributedString(u"a b c")), "<p>a b c</p>");
}

TEST(HTMLWriter, DeclaresTheMostUsedFontOnceAndDifferencesWhereTheyAre)
{
    NSMutableAttributedString text(u"plain bold italic large");
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Helvetica", 13), {0, text.length()});
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Helvetica-Bold", 13), {6, 4});
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Helvetica-Oblique", 13), {11, 6});
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Helvetica", 24), {18, 5});
    EXPECT_EQ(bodyOf(text), "<p>plain <b>bold</b> <i>italic</i> <span class=\"s2\">large</span></p>");
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{font:13px \"Helvetica\",sans-serif}\n.s2{font-size:24px}"));
    EXPECT_THAT(pageOf(text), HasSubstr("<body class=\"s1\">"));
}

TEST(HTMLWriter, GivesAParagraphInOneFontThatFont)
{
    NSMutableAttributedString text(u"Code\nand a longer paragraph of text");
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Helvetica", 12), {0, text.length()});
    text.addAttribute(NSFontAttributeName, NSFont::fontWithName(u"Menlo-Regular", 11), {0, 4});
    EXPECT_EQ(bodyOf(text), "<p class=\"s2\">Code</p>\n<p>and a longer paragraph of text</p>");
    EXPECT_THAT(sheetOf(text), HasSubstr("font-family:\"Menlo\",monospace;font-size:11px"));
}

TEST(HTMLWriter, LeavesTheSystemsTextColoursToTheReader)
{
    const auto text = textWith(NSForegroundColorAttributeName, NSColor::textColor());
    EXPECT_EQ(bodyOf(text), "<p>word</p>");
    EXPECT_THAT(sheetOf(text), HasSubstr("color-scheme:light dark"));
    EXPECT_EQ(bodyOf(textWith(NSForegroundColorAttributeName, NSColor::labelColor())), "<p>word</p>");
}

TEST(HTMLWriter, WritesOtherDynamicColoursForBothAppearances)
{
    NSMutableAttributedString text(u"red word");
    text.addAttribute(NSForegroundColorAttributeName, NSColor::systemColorNamed(u"systemRedColor"), {0, 3});
    EXPECT_EQ(bodyOf(text), "<p><span class=\"s1\">red</span> word</p>");
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{color:#ff3b30}\n"));
    EXPECT_THAT(sheetOf(text), HasSubstr("@media (prefers-color-scheme:dark){\n.s1{color:#ff453a}\n}"));
}

TEST(HTMLWriter, KeepsAPageWithFixedColoursLight)
{
    NSMutableAttributedString text(u"red word");
    text.addAttribute(NSForegroundColorAttributeName, NSColor::colorWithSRGBRed(1, 0, 0, 1), {0, 3});
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{color:#ff0000}"));
    EXPECT_THAT(sheetOf(text), Not(HasSubstr("color-scheme")));
}

TEST(HTMLWriter, DeclaresAColourOfAllTextForThePage)
{
    const auto text = textWith(NSForegroundColorAttributeName, NSColor::blackColor());
    EXPECT_EQ(bodyOf(text), "<p>word</p>");
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{color:#000000}"));
}

TEST(HTMLWriter, WritesBackgroundsWithTheirAlpha)
{
    EXPECT_THAT(sheetOf(textWith(NSBackgroundColorAttributeName, NSColor::colorWithSRGBRed(1, 1, 0, 0.5))),
                HasSubstr(".s1{background:rgba(255,255,0,0.5)}"));
}

TEST(HTMLWriter, WritesLinesOfEveryKind)
{
    EXPECT_EQ(bodyOf(textWith(NSUnderlineStyleAttributeName, 1)), "<p><u>word</u></p>");
    EXPECT_EQ(bodyOf(textWith(NSStrikethroughStyleAttributeName, 1)), "<p><s>word</s></p>");
    EXPECT_THAT(pageOf(textWith(NSUnderlineStyleAttributeName, 9)),
                HasSubstr("text-decoration-style:double"));
    EXPECT_THAT(pageOf(textWith(NSUnderlineStyleAttributeName, 0x101)),
                HasSubstr("text-decoration-style:dotted"));
    EXPECT_THAT(pageOf(textWith(NSUnderlineStyleAttributeName, 2)),
                HasSubstr("text-decoration-thickness:2px"));
    EXPECT_EQ(bodyOf(textWith(NSUnderlineStyleAttributeName, 0)), "<p>word</p>");
}

TEST(HTMLWriter, WritesRaisedAndLoweredText)
{
    EXPECT_EQ(bodyOf(textWith(NSSuperscriptAttributeName, 1)), "<p><sup>word</sup></p>");
    EXPECT_EQ(bodyOf(textWith(NSSuperscriptAttributeName, -2)), "<p><sub><sub>word</sub></sub></p>");
    EXPECT_THAT(pageOf(textWith(NSBaselineOffsetAttributeName, 3.0)), HasSubstr("vertical-align:3px"));
}

TEST(HTMLWriter, WritesKernShadowAndStroke)
{
    EXPECT_THAT(pageOf(textWith(NSKernAttributeName, 1.5)), HasSubstr("letter-spacing:1.5px"));
    const auto shadow = std::make_shared<const NSShadow>(NSMakeSize(1, -2), 3, NSColor::blackColor());
    EXPECT_THAT(pageOf(textWith(NSShadowAttributeName, shadow)),
                HasSubstr("text-shadow:1px 2px 3px #000000"));
    EXPECT_THAT(pageOf(textWith(NSStrokeWidthAttributeName, -3)), HasSubstr("-webkit-text-stroke:0.03em"));
}

TEST(HTMLWriter, WritesLinksButNoneThatRunsSomething)
{
    EXPECT_EQ(bodyOf(textWith(NSLinkAttributeName, *NSURL::URLWithString("https://a.example/?b&c"))),
              "<p><a href=\"https://a.example/?b&amp;c\">word</a></p>");
    EXPECT_EQ(bodyOf(textWith(NSLinkAttributeName, u"a \"b\"")),
              "<p><a href=\"a &quot;b&quot;\">word</a></p>");
    for (const auto* const target :
         {u" java\nScript:alert(1)", u"VBScript:x", u"data:text/html,x", u"file:///etc/passwd"})
        EXPECT_EQ(bodyOf(textWith(NSLinkAttributeName, target)), "<p>word</p>");
    EXPECT_EQ(bodyOf(textWith(NSLinkAttributeName, u"file")), R"(<p><a href="file">word</a></p>)");
}

TEST(HTMLWriter, KeepsALinkTogetherAcrossRuns)
{
    NSMutableAttributedString text(u"one two");
    text.addAttribute(NSLinkAttributeName, u"x", {0, 7});
    text.addAttribute(NSUnderlineStyleAttributeName, 1, {0, 3});
    EXPECT_EQ(bodyOf(text), "<p><a href=\"x\"><u>one</u> two</a></p>");
}

TEST(HTMLWriter, MarksHighlightsOfThePlatformAndOfNotes)
{
    NSMutableAttributedString text(u"word");
    text.addAttribute(NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault, {0, 4});
    EXPECT_EQ(bodyOf(text), "<p><mark>word</mark></p>");
    text.addAttribute(NSTextHighlightColorSchemeAttributeName, NSTextHighlightColorSchemeMint, {0, 4});
    EXPECT_EQ(bodyOf(text), "<p><mark class=\"mint\">word</mark></p>");
    EXPECT_EQ(bodyOf(textWith(u"CVLHighlightTextAttribute", 5)), "<p><mark class=\"purple\">word</mark></p>");
    EXPECT_EQ(bodyOf(textWith(u"CVLHighlightTextAttribute", 7)), "<p><mark>word</mark></p>");
    EXPECT_EQ(bodyOf(textWith(u"CVLHighlightTextAttribute", 0)), "<p>word</p>");
    EXPECT_EQ(bodyOf(textWith(NSTextHighlightStyleAttributeName, u"Other")), "<p>word</p>");
}

TEST(HTMLWriter, WritesParagraphStyles)
{
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Center);
    style.setParagraphSpacing(6);
    style.setParagraphSpacingBefore(3);
    style.setHeadIndent(20);
    style.setFirstLineHeadIndent(-20);
    style.setTailIndent(-10);
    style.setLineHeightMultiple(1.5);
    EXPECT_THAT(sheetOf(paragraphIn(style)),
                HasSubstr(".s1{margin-top:3px;margin-bottom:6px;margin-left:20px;text-indent:-40px;"
                          "margin-right:10px;text-align:center;line-height:1.8}"));
}

TEST(HTMLWriter, WritesFixedLineHeightsAndSpacing)
{
    NSMutableParagraphStyle fixed;
    fixed.setMinimumLineHeight(18);
    fixed.setMaximumLineHeight(18);
    EXPECT_THAT(sheetOf(paragraphIn(fixed)), HasSubstr("line-height:18px"));
    NSMutableParagraphStyle spaced;
    spaced.setLineSpacing(4);
    EXPECT_THAT(sheetOf(paragraphIn(spaced)), HasSubstr("line-height:calc(1.2em + 4px)"));
}

TEST(HTMLWriter, IndentsRightToLeftParagraphsFromTheRight)
{
    NSMutableParagraphStyle style;
    style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
    style.setHeadIndent(20);
    style.setFirstLineHeadIndent(20);
    const auto text = paragraphIn(style);
    EXPECT_EQ(bodyOf(text), "<p class=\"s1\" dir=\"rtl\">word</p>");
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{margin-right:20px}"));
}

TEST(HTMLWriter, WritesHeadings)
{
    NSMutableParagraphStyle style;
    style.setHeaderLevel(2);
    EXPECT_EQ(bodyOf(paragraphIn(style)), "<h2>word</h2>");
    style.setHeaderLevel(9);
    EXPECT_EQ(bodyOf(paragraphIn(style)), "<h6>word</h6>");
    style.setHeaderLevel(-1);
    EXPECT_EQ(bodyOf(paragraphIn(style)), "<p>word</p>");
}

TEST(HTMLWriter, WritesListsWithoutTheMarkersInTheirTexts)
{
    const auto list = listOf(NSTextListMarkerDisc);
    EXPECT_EQ(ListText().add(u"\t•\tone", {list}).add(u"\t•\ttwo", {list}).add(u"three", {list}).body(),
              "<ul>\n<li>one</li>\n<li>two</li>\n<li>three</li>\n</ul>");
}

TEST(HTMLWriter, NestsLists)
{
    const auto outer = listOf(u"{decimal}.");
    const auto inner = listOf(NSTextListMarkerDisc);
    EXPECT_EQ(ListText()
                  .add(u"\t1.\tone", {outer})
                  .add(u"\t•\tin", {outer, inner})
                  .add(u"\t2.\ttwo", {outer})
                  .body(),
              "<ol>\n<li>one<ul>\n<li>in</li>\n</ul>\n</li>\n<li>two</li>\n</ol>");
}

TEST(HTMLWriter, OpensAnItemWithoutMarkerForAListThatStartsNested)
{
    EXPECT_EQ(ListText().add(u"\t•\tin", {listOf(NSTextListMarkerDisc), listOf(NSTextListMarkerDisc)}).body(),
              "<ul>\n<li class=\"none\"><ul>\n<li>in</li>\n</ul>\n</li>\n</ul>");
}

TEST(HTMLWriter, KeepsNumbersOfLists)
{
    const auto list = listOf(u"{decimal}.", 3);
    EXPECT_EQ(ListText().add(u"\t3.\ta", {list}).add(u"\t7.\tb", {list}).add(u"\t8.\tc", {list}).body(),
              "<ol start=\"3\">\n<li>a</li>\n<li value=\"7\">b</li>\n<li>c</li>\n</ol>");
    EXPECT_EQ(ListText().add(u"\tiv.\ta", {listOf(u"{lower-roman}.")}).body(),
              "<ol style=\"list-style-type:lower-roman\">\n<li>a</li>\n</ol>");
    EXPECT_EQ(
        ListText().add(u"\t(a)\ta", {listOf(u"({lower-alpha})")}).body(),
        "<ol style=\"list-style-type:lower-alpha\" data-marker=\"({lower-alpha})\">\n<li>a</li>\n</ol>");
}

TEST(HTMLWriter, LeavesTextBetweenTabsThatIsNoMarker)
{
    EXPECT_THAT(ListText().add(u"\tname\tvalue", {listOf(NSTextListMarkerDisc)}).body(),
                HasSubstr(">\tname\tvalue</li>"));
}

TEST(HTMLWriter, WritesChecklistsAsOneListWithBoxes)
{
    EXPECT_EQ(ListText()
                  .add(u"\t✓\tdone", {listOf(NSTextListMarkerCheck)})
                  .add(u"\t◦\topen", {listOf(NSTextListMarkerCircle)})
                  .body(),
              "<ul class=\"checklist\">\n<li>☑ done</li>\n<li>☐ open</li>\n</ul>");
}

TEST(HTMLWriter, EndsAListBeforeAnotherOfItsKind)
{
    EXPECT_EQ(ListText()
                  .add(u"\t•\ta", {listOf(NSTextListMarkerDisc)})
                  .add(u"\t•\tb", {listOf(NSTextListMarkerDisc)})
                  .body(),
              "<ul>\n<li>a</li>\n</ul>\n<ul>\n<li>b</li>\n</ul>");
}

TEST(HTMLWriter, WritesTables)
{
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(3);
    table->setCollapsesBorders(true);
    NSMutableAttributedString text;
    const auto addCell = [&](std::u16string_view content, NSInteger row, NSInteger rows, NSInteger column,
                             NSInteger columns) {
        const auto cell = std::make_shared<NSTextTableBlock>(table, row, rows, column, columns);
        if (row == 0 && column == 0) {
            cell->setWidth({1, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border);
            cell->setBorderColor(NSColor::colorWithSRGBRed(0, 0, 1, 1));
            cell->setWidth({4, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding);
            cell->setBackgroundColor(NSColor::colorWithSRGBRed(1, 0, 0, 1));
            cell->setContentWidth({50, NSTextBlockValueType::Percentage});
            cell->setVerticalAlignment(NSTextBlockVerticalAlignment::Middle);
        }
        NSMutableParagraphStyle style;
        style.setTextBlocks({cell});
        text.appendAttributedString(paragraphIn(style, std::u16string(content) + u"\n"));
    };
    addCell(u"a", 0, 2, 0, 1);
    addCell(u"b", 0, 1, 1, 2);
    addCell(u"c", 1, 1, 2, 1);
    EXPECT_EQ(bodyOf(text),
              "<table class=\"s1\">\n<tr>\n<td class=\"s2\" rowspan=\"2\">\n<p>a</p>\n</td>\n"
              "<td colspan=\"2\">\n<p>b</p>\n</td>\n</tr>\n<tr>\n<td></td>\n<td>\n<p>c</p>\n</td>\n"
              "</tr>\n</table>");
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{border-collapse:collapse}"));
    EXPECT_THAT(sheetOf(text),
                HasSubstr(".s2{border:1px solid #0000ff;padding:4px;width:50%;vertical-align:middle;"
                          "background:#ff0000}"));
}

TEST(HTMLWriter, WritesBlocksWithEdgesOfTheirOwn)
{
    const auto block = std::make_shared<NSTextBlock>();
    block->setWidth({2, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border, NSRectEdge::MinX);
    block->setWidth({10, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding, NSRectEdge::MinX);
    NSMutableParagraphStyle style;
    style.setTextBlocks({block});
    const auto text = paragraphIn(style, u"a\nb");
    EXPECT_EQ(bodyOf(text), "<div class=\"s1\">\n<p>a</p>\n<p>b</p>\n</div>");
    EXPECT_THAT(sheetOf(text), HasSubstr(".s1{border-left:2px solid;padding-left:10px}"));
}

TEST(HTMLWriter, WritesFilesAsTheTagsThatAreLookedFor)
{
    const auto bodyWith = [](std::u16string name) {
        return bodyOf(NSAttributedString::attributedStringWithAttachment(attachmentNamed(std::move(name))));
    };
    EXPECT_EQ(bodyWith(u"a b.png"), R"(<p><img src="file:///a%20b.png" alt="a b.png"></p>)");
    EXPECT_EQ(bodyWith(u"a.pdf"), R"(<p><img src="file:///a.pdf" alt="a.pdf"></p>)");
    EXPECT_EQ(bodyWith(u"a.zip"), R"(<p><object data="file:///a.zip">a.zip</object></p>)");
    EXPECT_EQ(bodyWith(u"ä;(1).zip"), R"(<p><object data="file:///%C3%A4%3B(1).zip">ä;(1).zip</object></p>)");
}

TEST(HTMLWriter, LetsNoNameOfAFileBeMarkup)
{
    const auto text = NSAttributedString::attributedStringWithAttachment(attachmentNamed(u"a & \"b\".png"));
    const auto data = NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, 1});
    EXPECT_THAT(data->bytes,
                HasSubstr(R"(<img src="file:///a%20&%20%22b%22.png" alt="a & &quot;b&quot;.png">)"));
}

TEST(HTMLWriter, WritesAnImageWithoutAFileItself)
{
    const auto image = NSTextAttachment::initWithData(NSData{"bytes"}, u"public.png");
    EXPECT_EQ(bodyOf(NSAttributedString::attributedStringWithAttachment(image)),
              R"(<p><img src="data:image/png;base64,Ynl0ZXM=" alt=""></p>)");
    EXPECT_EQ(
        bodyOf(NSAttributedString::attributedStringWithAttachment(std::make_shared<NSTextAttachment>())),
        "<p></p>");
}

TEST(HTMLWriter, RefusesOtherEncodingsAndTypes)
{
    NSError error;
    const NSAttributedString text(u"word");
    EXPECT_FALSE(NSAttributedStringDocumentFormats::HTMLFromRange(
        text, {0, 4}, {{std::u16string(NSCharacterEncodingDocumentAttribute), 10}}, &error));
    EXPECT_EQ(error.code(), 517);
    EXPECT_FALSE(NSAttributedStringDocumentFormats::HTMLFromRange(
        text, {0, 4}, {{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFTextDocumentType}}));
    EXPECT_TRUE(NSAttributedStringDocumentFormats::HTMLFromRange(
        text, {0, 4},
        {{std::u16string(NSDocumentTypeDocumentAttribute), NSHTMLTextDocumentType},
         {std::u16string(NSCharacterEncodingDocumentAttribute), NSUTF8StringEncoding}}));
}

TEST(HTMLWriter, WritesNumbersOutOfBoundsAsNumbers)
{
    NSMutableParagraphStyle style;
    style.setParagraphSpacing(std::numeric_limits<double>::infinity());
    style.setHeadIndent(std::numeric_limits<double>::quiet_NaN());
    style.setTailIndent(-1e300);
    EXPECT_THAT(sheetOf(paragraphIn(style)), Not(testing::AnyOf(HasSubstr("inf"), HasSubstr("nan"))));
}
