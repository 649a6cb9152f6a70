#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSDocumentAttributes.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"
#include "tests/html/WellFormedHTML.h"
#include "tests/support/SampleIndex.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

NSAttributedString readBack(const NSAttributedString& text)
{
    const auto page = NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, text.length()});
    EXPECT_TRUE(page);
    EXPECT_EQ(faultOfHTML(page->bytes), "");
    const auto read = NSAttributedStringDocumentFormats::initWithHTML(*page);
    EXPECT_TRUE(read);
    return read.value_or(NSAttributedString());
}

class NoteText {
public:
    NoteText& add(std::u16string_view text, NSAttributes attributes = {})
    {
        attributes.emplace(NSFontAttributeName, NSFont::fontWithName(u"Helvetica", 13));
        m_text.appendAttributedString(NSAttributedString(std::u16string(text), std::move(attributes)));
        return *this;
    }

    NoteText& addParagraph(std::u16string_view text, const NSMutableParagraphStyle& style)
    {
        return add(std::u16string(text) + u"\n",
                   {{std::u16string(NSParagraphStyleAttributeName), style.copy()}});
    }

    [[nodiscard]] const NSAttributedString& text() const { return m_text; }

private:
    NSMutableAttributedString m_text;
};

/// The attribute's value for every unit.
std::vector<NSAny> valuesOf(const NSAttributedString& text, std::u16string_view name)
{
    std::vector<NSAny> values;
    for (NSUInteger index = 0; index < text.length(); ++index)
        values.push_back(text.attribute(name, index));
    return values;
}

NSMutableParagraphStyle styleInLists(const NSParagraphStyle::TextLists& lists)
{
    NSMutableParagraphStyle style;
    style.setTextLists(lists);
    return style;
}

} // namespace

TEST(HTMLRoundTrip, KeepsTextsOfEveryShape)
{
    for (const auto* text : {u"word",
                             u"a\nb",
                             u"a\n",
                             u"\n",
                             u"\n\n",
                             u"a\n\nb",
                             u"a\u2028b",
                             u"a\u2028",
                             u"a\u2028\u2028\nb",
                             u" lead",
                             u"trail \nx",
                             u"two  blanks",
                             u"a\tb\t\tc",
                             u"\ta",
                             u"<b>&amp;\"'",
                             u"\u00A0x\u00A0",
                             u"\xD83D\xDE00 ä",
                             u"a \u2028 b",
                             u"   ",
                             u"***"})
        EXPECT_EQ(readBack(NSAttributedString(text)).string(), std::u16string_view(text));
    EXPECT_EQ(readBack(NSAttributedString()).length(), 0U);
}

TEST(HTMLRoundTrip, KeepsLooksOfCharacters)
{
    NoteText note;
    note.add(u"plain ");
    note.add(u"bold", {{std::u16string(NSFontAttributeName), NSFont::fontWithName(u"Helvetica-Bold", 13)}});
    note.add(u" large",
             {{std::u16string(NSFontAttributeName), NSFont::fontWithName(u"HelveticaNeue-Italic", 21)}});
    note.add(u" red",
             {{std::u16string(NSForegroundColorAttributeName), NSColor::colorWithSRGBRed(1, 0, 0, 1)},
              {std::u16string(NSUnderlineStyleAttributeName), 9}});
    note.add(u" ground",
             {{std::u16string(NSBackgroundColorAttributeName), NSColor::colorWithSRGBRed(1, 1, 0, 1)},
              {std::u16string(NSStrikethroughStyleAttributeName), 1}});
    note.add(u" up",
             {{std::u16string(NSSuperscriptAttributeName), 2}, {std::u16string(NSKernAttributeName), 1.5}});
    note.add(u" link",
             {{std::u16string(NSLinkAttributeName), *NSURL::URLWithString("https://a.example/?b=1&c=2")}});
    note.add(u" mark",
             {{std::u16string(NSTextHighlightStyleAttributeName), NSTextHighlightStyleDefault},
              {std::u16string(NSTextHighlightColorSchemeAttributeName), NSTextHighlightColorSchemePink}});
    const auto read = readBack(note.text());
    ASSERT_EQ(read.string(), note.text().string());
    for (const auto name :
         {NSFontAttributeName, NSForegroundColorAttributeName, NSBackgroundColorAttributeName,
          NSUnderlineStyleAttributeName, NSStrikethroughStyleAttributeName, NSSuperscriptAttributeName,
          NSKernAttributeName, NSLinkAttributeName, NSTextHighlightStyleAttributeName,
          NSTextHighlightColorSchemeAttributeName})
        EXPECT_EQ(valuesOf(read, name), valuesOf(note.text(), name)) << UTF8FromUTF16(name);
}

TEST(HTMLRoundTrip, KeepsParagraphStyles)
{
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Justified);
    style.setParagraphSpacingBefore(3);
    style.setParagraphSpacing(6);
    style.setHeadIndent(20);
    style.setFirstLineHeadIndent(-20);
    style.setTailIndent(-8);
    style.setLineHeightMultiple(1.4);
    style.setLineSpacing(2);
    style.setBaseWritingDirection(NSWritingDirection::LeftToRight);
    NSMutableParagraphStyle heading;
    heading.setHeaderLevel(2);
    heading.setMinimumLineHeight(30);
    heading.setMaximumLineHeight(30);
    const auto text = NoteText().addParagraph(u"one", style).addParagraph(u"two", heading).text();
    const auto read = readBack(text);
    ASSERT_EQ(read.string(), text.string());
    EXPECT_EQ(read.attribute(NSParagraphStyleAttributeName, 0),
              text.attribute(NSParagraphStyleAttributeName, 0));
    EXPECT_EQ(read.attribute(NSParagraphStyleAttributeName, 4),
              text.attribute(NSParagraphStyleAttributeName, 4));
}

TEST(HTMLRoundTrip, KeepsLists)
{
    const auto bullets = std::make_shared<const NSTextList>(NSTextListMarkerDisc);
    const auto letters = std::make_shared<const NSTextList>(u"({lower-alpha})", 0, 3);
    const auto check = std::make_shared<const NSTextList>(NSTextListMarkerCheck);
    const auto circle = std::make_shared<const NSTextList>(NSTextListMarkerCircle);
    const auto text = NoteText()
                          .addParagraph(u"\t•\tone", styleInLists({bullets}))
                          .addParagraph(u"\t(c)\tinner", styleInLists({bullets, letters}))
                          .addParagraph(u"\t•\ttwo", styleInLists({bullets}))
                          .addParagraph(u"\t✓\tdone", styleInLists({check}))
                          .addParagraph(u"\t◦\topen", styleInLists({circle}))
                          .add(u"end")
                          .text();
    const auto read = readBack(text);
    ASSERT_EQ(read.string(), text.string());
    for (NSUInteger index = 0; index < text.length(); ++index) {
        const auto before = text.attribute(NSParagraphStyleAttributeName, index).object<NSParagraphStyle>();
        const auto after = read.attribute(NSParagraphStyleAttributeName, index).object<NSParagraphStyle>();
        const auto count = before ? before->textLists().size() : 0;
        ASSERT_EQ(after->textLists().size(), count) << index;
        for (std::size_t level = 0; level < count; ++level) {
            EXPECT_EQ(after->textLists()[level]->markerFormat(), before->textLists()[level]->markerFormat());
            EXPECT_EQ(after->textLists()[level]->startingItemNumber(),
                      before->textLists()[level]->startingItemNumber());
        }
    }
}

TEST(HTMLRoundTrip, KeepsTables)
{
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(2);
    table->setCollapsesBorders(true);
    const auto styleOfCell = [&table](NSInteger row, NSInteger column, NSInteger columns) {
        const auto cell = std::make_shared<NSTextTableBlock>(table, row, 1, column, columns);
        cell->setWidth({1, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border);
        cell->setBorderColor(NSColor::colorWithSRGBRed(0, 0, 1, 1));
        cell->setWidth({4, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding);
        cell->setBackgroundColor(NSColor::colorWithSRGBRed(1, 0, 0, 1));
        cell->setContentWidth({50, NSTextBlockValueType::Percentage});
        NSMutableParagraphStyle style;
        style.setTextBlocks({cell});
        return style;
    };
    const auto text = NoteText()
                          .addParagraph(u"a", styleOfCell(0, 0, 2))
                          .addParagraph(u"b", styleOfCell(1, 0, 1))
                          .addParagraph(u"c", styleOfCell(1, 1, 1))
                          .text();
    const auto read = readBack(text);
    ASSERT_EQ(read.string(), text.string());
    for (NSUInteger index = 0; index < text.length(); index += 2) {
        const auto cellIn = [index](const NSAttributedString& string) {
            const auto style
                = string.attribute(NSParagraphStyleAttributeName, index).object<NSParagraphStyle>();
            return std::dynamic_pointer_cast<const NSTextTableBlock>(style->textBlocks().at(0));
        };
        const auto before = cellIn(text);
        const auto after = cellIn(read);
        EXPECT_EQ(after->startingRow(), before->startingRow());
        EXPECT_EQ(after->startingColumn(), before->startingColumn());
        EXPECT_EQ(after->columnSpan(), before->columnSpan());
        EXPECT_EQ(after->contentWidth(), before->contentWidth());
        EXPECT_EQ(NSAny(after->backgroundColor()), NSAny(before->backgroundColor()));
        EXPECT_EQ(after->table()->numberOfColumns(), 2U);
        EXPECT_TRUE(after->table()->collapsesBorders());
        for (const auto layer :
             {NSTextBlockLayer::Padding, NSTextBlockLayer::Border, NSTextBlockLayer::Margin})
            EXPECT_EQ(after->widthForLayer(layer, NSRectEdge::MaxX),
                      before->widthForLayer(layer, NSRectEdge::MaxX));
    }
}

TEST(HTMLSamples, AreReadAndWrittenAgain)
{
    const auto samples = samplesOf("html");
    if (samples.empty())
        GTEST_SKIP() << "the samples are not on this machine";
    for (const auto& sample : samples) {
        std::ifstream file(sample.path, std::ios::binary);
        NSAny::Dictionary attributes;
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        const auto text = NSAttributedStringDocumentFormats::initWithHTML(NSData{bytes}, {}, &attributes);
        ASSERT_TRUE(text) << sample.file;
        // Titles are shown too.
        const auto* const title = attributes[std::u16string(NSTitleDocumentAttribute)].string();
        const auto shown = UTF8FromUTF16(text->string()) + '\n' + UTF8FromUTF16(title ? *title : u"");
        if (sample.verdict == "must") {
            EXPECT_EQ(missingTerms(SampleText(shown), sample.mustFind), std::vector<std::string>())
                << sample.file;
        }
        EXPECT_EQ(
            faultOfHTML(NSAttributedStringDocumentFormats::HTMLFromRange(*text, {0, text->length()})->bytes),
            "")
            << sample.file;
    }
}
