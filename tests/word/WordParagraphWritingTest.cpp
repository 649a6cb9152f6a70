// How paragraphs of written documents are set, and the document's page.

#include "platform/foundation/NSValue.h"
#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

#include <cmath>

using testing::HasSubstr;
using testing::Not;

namespace {

/// The properties of the one paragraph.
std::string propertiesOf(const NSMutableParagraphStyle& style, std::u16string text = u"text")
{
    const auto body = bodyOf(styled(std::move(text), style));
    const auto end = body.find("</w:pPr>");
    return end == std::string::npos ? std::string() : body.substr(5, end - 5);
}

NSParagraphStyle::Ref styleReadOf(const NSMutableParagraphStyle& style, std::u16string text = u"text")
{
    return styleAt(readAgain(styled(text, style)), text);
}

NSTextTab::Ref tab(NSTextAlignment alignment, double location)
{
    return std::make_shared<const NSTextTab>(alignment, location);
}

} // namespace

TEST(WordParagraphWriting, SaysNothingOfAPlainParagraph)
{
    EXPECT_EQ(propertiesOf({}), "");
}

TEST(WordParagraphWriting, WritesHeadersAsHeadings)
{
    for (NSInteger level = 1; level <= 9; ++level) {
        NSMutableParagraphStyle style;
        style.setHeaderLevel(level);
        const auto number = std::to_string(level);
        EXPECT_THAT(propertiesOf(style),
                    HasSubstr(level <= 6 ? "<w:pStyle w:val=\"Heading" + number + "\"/>"
                                         : "<w:outlineLvl w:val=\"" + std::to_string(level - 1) + "\"/>"));
        EXPECT_EQ(styleReadOf(style)->headerLevel(), level);
    }
    NSMutableParagraphStyle style;
    style.setHeaderLevel(10);
    EXPECT_EQ(propertiesOf(style), "");
}

TEST(WordParagraphWriting, MakesTheFontOfHeadingsTheirStyles)
{
    NSMutableParagraphStyle style;
    style.setHeaderLevel(2);
    auto attributes = attributesOf({{NSParagraphStyleAttributeName, NSAny(style.copy())},
                                    {NSFontAttributeName, NSFont::fontWithName(u"Helvetica-Bold", 17)}});
    NSMutableAttributedString text(NSAttributedString(u"Heading\n", attributes));
    text.appendAttributedString(NSAttributedString(u"and some more plain text"));
    const auto package = wordBytes(text);
    EXPECT_THAT(
        memberOf(package, "word/styles.xml"),
        HasSubstr("<w:outlineLvl w:val=\"1\"/></w:pPr><w:rPr><w:b/><w:bCs/><w:sz w:val=\"34\"/><w:szCs "
                  "w:val=\"34\"/></w:rPr></w:style>"));
    EXPECT_THAT(memberOf(package, "word/document.xml"),
                HasSubstr("</w:pPr><w:r><w:t xml:space=\"preserve\">Heading</w:t></w:r>"));
    EXPECT_EQ(fontAt(readAgain(text), u"Heading")->fontName(), u"Helvetica-Bold");
    EXPECT_EQ(fontAt(readAgain(text), u"Heading")->pointSize(), 17);
}

TEST(WordParagraphWriting, GivesHeadingsThatThereAreNoneOfTheirUsualLooks)
{
    const auto styles = memberOf(wordBytes(NSAttributedString(u"text")), "word/styles.xml");
    for (const auto* const size : {"48", "36", "28", "24"})
        EXPECT_THAT(styles, HasSubstr("<w:rPr><w:b/><w:bCs/><w:sz w:val=\"" + std::string(size) + "\"/>"));
    for (int level = 1; level <= 6; ++level)
        EXPECT_THAT(styles, HasSubstr("<w:name w:val=\"heading " + std::to_string(level) + "\"/>"));
}

TEST(WordParagraphWriting, WritesAlignments)
{
    struct Row {
        NSTextAlignment alignment;
        std::string_view name;
    };

    for (const auto& row :
         {Row{NSTextAlignment::Left, "left"}, Row{NSTextAlignment::Right, "right"},
          Row{NSTextAlignment::Center, "center"}, Row{NSTextAlignment::Justified, "both"}}) {
        NSMutableParagraphStyle style;
        style.setAlignment(row.alignment);
        EXPECT_THAT(propertiesOf(style), HasSubstr("<w:jc w:val=\"" + std::string(row.name) + "\"/>"));
        EXPECT_EQ(styleReadOf(style)->alignment(), row.alignment);
        style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
        EXPECT_EQ(styleReadOf(style)->alignment(), row.alignment);
        EXPECT_EQ(styleReadOf(style)->baseWritingDirection(), NSWritingDirection::RightToLeft);
    }
}

TEST(WordParagraphWriting, TakesLeftForWhereLinesBegin)
{
    NSMutableParagraphStyle style;
    style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
    style.setAlignment(NSTextAlignment::Right);
    EXPECT_THAT(propertiesOf(style), HasSubstr("<w:bidi/><w:jc w:val=\"left\"/>"));
}

TEST(WordParagraphWriting, FindsTheDirectionOfTextThatHasNone)
{
    EXPECT_THAT(propertiesOf({}, u"12 \u05D0 word"), HasSubstr("<w:bidi/>"));
    EXPECT_EQ(propertiesOf({}, u"word \u05D0"), "");
    NSMutableParagraphStyle style;
    style.setBaseWritingDirection(NSWritingDirection::LeftToRight);
    EXPECT_EQ(propertiesOf(style, u"\u05D0"), "");
}

TEST(WordParagraphWriting, WritesIndents)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(20);
    style.setFirstLineHeadIndent(32.5);
    style.setTailIndent(-10);
    EXPECT_THAT(propertiesOf(style),
                HasSubstr("<w:ind w:left=\"400\" w:right=\"200\" w:firstLine=\"250\"/>"));
    style.setFirstLineHeadIndent(-4);
    EXPECT_THAT(propertiesOf(style), HasSubstr("<w:ind w:left=\"400\" w:right=\"200\" w:hanging=\"480\"/>"));
    const auto read = styleReadOf(style);
    EXPECT_EQ(read->headIndent(), 20);
    EXPECT_EQ(read->firstLineHeadIndent(), -4);
    EXPECT_EQ(read->tailIndent(), -10);
}

TEST(WordParagraphWriting, CountsAPositiveTailIndentFromTheLeadingMargin)
{
    NSMutableParagraphStyle style;
    // Of the 468 points between the margins.
    style.setTailIndent(400);
    EXPECT_THAT(propertiesOf(style), HasSubstr("w:right=\"1360\""));
}

TEST(WordParagraphWriting, WritesSpacing)
{
    NSMutableParagraphStyle style;
    style.setParagraphSpacing(6);
    style.setParagraphSpacingBefore(12.5);
    EXPECT_THAT(propertiesOf(style), HasSubstr("<w:spacing w:before=\"250\" w:after=\"120\"/>"));
    EXPECT_EQ(styleReadOf(style)->paragraphSpacing(), 6);
    EXPECT_EQ(styleReadOf(style)->paragraphSpacingBefore(), 12.5);
}

TEST(WordParagraphWriting, WritesLineHeights)
{
    NSMutableParagraphStyle multiple;
    multiple.setLineHeightMultiple(1.5);
    EXPECT_THAT(propertiesOf(multiple), HasSubstr("<w:spacing w:line=\"360\" w:lineRule=\"auto\"/>"));
    EXPECT_EQ(styleReadOf(multiple)->lineHeightMultiple(), 1.5);
    NSMutableParagraphStyle least;
    least.setMinimumLineHeight(20);
    EXPECT_THAT(propertiesOf(least), HasSubstr("<w:spacing w:line=\"400\" w:lineRule=\"atLeast\"/>"));
    EXPECT_EQ(styleReadOf(least)->minimumLineHeight(), 20);
    EXPECT_EQ(styleReadOf(least)->maximumLineHeight(), 0);
    least.setMaximumLineHeight(20);
    EXPECT_THAT(propertiesOf(least), HasSubstr("<w:spacing w:line=\"400\" w:lineRule=\"exact\"/>"));
    EXPECT_EQ(styleReadOf(least)->maximumLineHeight(), 20);
}

TEST(WordParagraphWriting, MakesAMultipleOfLineSpacing)
{
    NSMutableParagraphStyle style;
    // A line of 12 points is taken for 14.4 high.
    style.setLineSpacing(7.2);
    EXPECT_THAT(propertiesOf(style), HasSubstr("<w:spacing w:line=\"360\" w:lineRule=\"auto\"/>"));
}

TEST(WordParagraphWriting, WritesTabStops)
{
    NSMutableParagraphStyle style;
    NSAny::Dictionary options;
    options.emplace(NSTabColumnTerminatorsAttributeName, u".");
    style.setTabStops({tab(NSTextAlignment::Left, 50), tab(NSTextAlignment::Center, 100.5),
                       tab(NSTextAlignment::Right, 150),
                       std::make_shared<const NSTextTab>(NSTextAlignment::Right, 200, options)});
    EXPECT_THAT(
        propertiesOf(style),
        HasSubstr(
            "<w:tabs><w:tab w:val=\"left\" w:pos=\"1000\"/><w:tab w:val=\"center\" w:pos=\"2010\"/>"
            "<w:tab w:val=\"right\" w:pos=\"3000\"/><w:tab w:val=\"decimal\" w:pos=\"4000\"/></w:tabs>"));
    const auto stops = styleReadOf(style)->tabStops();
    ASSERT_EQ(stops.size(), 4U);
    EXPECT_EQ(stops[1]->alignment(), NSTextAlignment::Center);
    EXPECT_EQ(stops[1]->location(), 100.5);
}

TEST(WordParagraphWriting, WritesTheDefaultStopsAsThePagesInterval)
{
    const auto settings = memberOf(wordBytes(NSAttributedString(u"text")), "word/settings.xml");
    EXPECT_THAT(settings, HasSubstr("<w:defaultTabStop w:val=\"560\"/>"));
    EXPECT_EQ(styleReadOf({})->defaultTabInterval(), 28);
    NSMutableParagraphStyle style;
    style.setDefaultTabInterval(50);
    EXPECT_EQ(styleReadOf(style)->defaultTabInterval(), 50);
}

TEST(WordParagraphWriting, WritesBlocksAsBordersAndGrounds)
{
    auto block = std::make_shared<NSTextBlock>();
    block->setWidth({1.5}, NSTextBlockLayer::Border);
    block->setWidth({4}, NSTextBlockLayer::Padding, NSRectEdge::MinX);
    block->setBorderColor(NSColor::colorWithSRGBRed(1, 0, 0, 1), NSRectEdge::MinY);
    block->setBackgroundColor(NSColor::colorWithSRGBRed(0, 1, 0, 1));
    NSMutableParagraphStyle style;
    style.setTextBlocks({block});
    EXPECT_EQ(propertiesOf(style),
              "<w:pPr><w:pBdr><w:top w:val=\"single\" w:sz=\"12\" w:space=\"0\" w:color=\"FF0000\"/>"
              "<w:left w:val=\"single\" w:sz=\"12\" w:space=\"4\" w:color=\"auto\"/>"
              "<w:bottom w:val=\"single\" w:sz=\"12\" w:space=\"0\" w:color=\"auto\"/>"
              "<w:right w:val=\"single\" w:sz=\"12\" w:space=\"0\" w:color=\"auto\"/></w:pBdr>"
              "<w:shd w:val=\"clear\" w:color=\"auto\" w:fill=\"00FF00\"/>");
}

TEST(WordParagraphWriting, HoldsLengthsToThoseThatWordProcessorsTake)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(1e9);
    style.setFirstLineHeadIndent(1e9);
    style.setParagraphSpacing(1e300);
    style.setTailIndent(std::nan(""));
    EXPECT_EQ(propertiesOf(style), "<w:pPr><w:spacing w:after=\"31680\"/><w:ind w:left=\"31680\"/>");
}

TEST(WordPageWriting, WritesPaperAndMargins)
{
    NSAny::Dictionary attributes;
    attributes.emplace(NSPaperSizeDocumentAttribute,
                       NSAny(std::make_shared<const NSValue>(NSSize{842, 595})));
    attributes.emplace(NSLeftMarginDocumentAttribute, 50);
    attributes.emplace(NSRightMarginDocumentAttribute, 40.5);
    attributes.emplace(NSTopMarginDocumentAttribute, 30);
    attributes.emplace(NSBottomMarginDocumentAttribute, 20);
    const auto part = memberOf(wordBytes(NSAttributedString(u"text"), attributes), "word/document.xml");
    EXPECT_THAT(
        part,
        HasSubstr("<w:pgSz w:w=\"16840\" w:h=\"11900\" w:orient=\"landscape\"/><w:pgMar w:top=\"600\" "
                  "w:right=\"810\" w:bottom=\"400\" w:left=\"1000\""));
    NSAny::Dictionary read;
    (void)readAgain(NSAttributedString(u"text"), attributes, &read);
    for (const auto& [name, value] : attributes)
        EXPECT_EQ(read.at(name), value);
}

TEST(WordPageWriting, TakesLetterPaperWithAnInchAroundForNone)
{
    EXPECT_THAT(memberOf(wordBytes(NSAttributedString(u"text")), "word/document.xml"),
                HasSubstr("<w:pgSz w:w=\"12240\" w:h=\"15840\"/><w:pgMar w:top=\"1440\" w:right=\"1440\" "
                          "w:bottom=\"1440\" w:left=\"1440\""));
}

TEST(WordPropertiesWriting, SaysWhatADocumentSaysOfItself)
{
    NSAny::Dictionary attributes;
    attributes.emplace(NSTitleDocumentAttribute, u"Pears & <plums>");
    attributes.emplace(NSAuthorDocumentAttribute, u"An Author");
    attributes.emplace(NSSubjectDocumentAttribute, u"Fruit");
    attributes.emplace(NSCommentDocumentAttribute, u"None");
    attributes.emplace(NSEditorDocumentAttribute, u"An Editor");
    attributes.emplace(NSCategoryDocumentAttribute, u"Lists");
    attributes.emplace(NSCompanyDocumentAttribute, u"A Company");
    attributes.emplace(NSManagerDocumentAttribute, u"A Manager");
    attributes.emplace(NSKeywordsDocumentAttribute, NSAny(NSAny::Array{NSAny(u"one"), NSAny(u"two")}));
    // 2024-02-29 12:34:56 is 8,459 days after the reference date, and 45,296 seconds.
    attributes.emplace(NSCreationTimeDocumentAttribute, NSDate{8459.0 * 86400 + 45296});
    attributes.emplace(NSModificationTimeDocumentAttribute, NSDate{0});
    const auto package = wordBytes(NSAttributedString(u"text"), attributes);
    EXPECT_THAT(
        memberOf(package, "docProps/core.xml"),
        HasSubstr("<dcterms:created xsi:type=\"dcterms:W3CDTF\">2024-02-29T12:34:56Z</dcterms:created>"));
    EXPECT_THAT(memberOf(package, "docProps/core.xml"), HasSubstr("<cp:keywords>one, two</cp:keywords>"));
    NSAny::Dictionary read;
    (void)readAgain(NSAttributedString(u"text"), attributes, &read);
    for (const auto& [name, value] : attributes)
        EXPECT_EQ(read.at(name), value);
}

TEST(WordPropertiesWriting, LeavesOutDatesThatNoCalendarHas)
{
    for (const auto seconds : {1e300, -1e12, 2.6e11, std::nan("")}) {
        NSAny::Dictionary attributes;
        attributes.emplace(NSCreationTimeDocumentAttribute, NSDate{seconds});
        EXPECT_EQ(memberOf(wordBytes(NSAttributedString(u"text"), attributes), "docProps/core.xml"), "");
    }
}

TEST(WordPropertiesWriting, WritesNoPartWithoutAnythingToSay)
{
    const auto package = wordBytes(NSAttributedString(u"text"));
    EXPECT_EQ(memberOf(package, "docProps/core.xml"), "");
    EXPECT_EQ(memberOf(package, "docProps/app.xml"), "");
    EXPECT_THAT(memberOf(package, "_rels/.rels"), Not(HasSubstr("docProps")));
}
