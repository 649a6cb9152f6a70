// What a word processor makes of documents that are written here. Skipped where there is none.

#include "platform/foundation/Base64.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSTextAttachment.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

using testing::HasSubstr;

namespace {

/// A red picture of two pixels by two.
constexpr std::string_view kPicture
    = "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACCAIAAAD91JpzAAAAEElEQVR4nGP4z8AARAwQCgAf7gP9i18U1AAAAABJRU5ErkJggg==";

bool runs(const std::string& command)
{
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0; // NOLINT(concurrency-mt-unsafe)
}

class Text {
public:
    void add(std::u16string text, const NSMutableParagraphStyle& style = {}, NSAttributes attributes = {})
    {
        attributes.emplace(NSParagraphStyleAttributeName, NSAny(style.copy()));
        m_text.appendAttributedString(NSAttributedString(std::move(text), std::move(attributes)));
    }

    void addItem(std::u16string_view marker, std::u16string_view text,
                 const NSParagraphStyle::TextLists& lists)
    {
        const auto indent = 36.0 * static_cast<double>(lists.size());
        NSMutableParagraphStyle style;
        style.setFirstLineHeadIndent(indent - 36);
        style.setHeadIndent(indent);
        style.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Left, indent - 25),
                           std::make_shared<const NSTextTab>(NSTextAlignment::Left, indent)});
        style.setTextLists(lists);
        add(u"\t" + std::u16string(marker) + u"\t" + std::u16string(text) + u"\n", style);
    }

    void addCell(std::u16string text, const NSTextTable::Ref& table, NSInteger row, NSInteger column,
                 NSInteger rowSpan = 1, NSInteger columnSpan = 1)
    {
        auto cell = std::make_shared<NSTextTableBlock>(table, row, rowSpan, column, columnSpan);
        cell->setWidth({1}, NSTextBlockLayer::Border);
        cell->setWidth({4}, NSTextBlockLayer::Padding);
        if (row == 0)
            cell->setBackgroundColor(NSColor::colorWithSRGBRed(0.9, 0.95, 1, 1));
        NSMutableParagraphStyle style;
        style.setTextBlocks({cell});
        add(std::move(text), style);
    }

    void addPicture()
    {
        const auto attachment = NSTextAttachment::initWithData(
            NSData{bytesFromBase64(std::string(kPicture)).value_or("")}, u"public.png");
        attachment->setBounds(NSMakeRect(0, 0, 60, 40));
        m_text.appendAttributedString(NSAttributedString::attributedStringWithAttachment(NSAny(attachment)));
    }

    [[nodiscard]] const NSAttributedString& text() const { return m_text; }

private:
    NSMutableAttributedString m_text;
};

NSTextList::Ref list(std::u16string_view format)
{
    return std::make_shared<const NSTextList>(format);
}

NSAttributedString richText()
{
    Text text;
    NSMutableParagraphStyle heading;
    heading.setHeaderLevel(1);
    text.add(u"Heading \u00E9 \u4E2D\n", heading,
             attributesOf({{NSFontAttributeName, NSFont::fontWithName(u"Helvetica-Bold", 20)}}));
    text.add(u"plain <text> & \U0001F600 with a ");
    text.add(u"link", {}, attributesOf({{NSLinkAttributeName, u"https://a.example/"}}));
    text.add(u", high", {}, attributesOf({{NSSuperscriptAttributeName, 1}}));
    text.add(u", marked", {}, attributesOf({{NSBackgroundColorAttributeName, NSColor::yellowColor()}}));
    text.add(u", struck", {}, attributesOf({{NSStrikethroughStyleAttributeName, 1}}));
    text.add(u", lined\n", {}, attributesOf({{NSUnderlineStyleAttributeName, 0x101}}));
    const auto numbers = list(u"{decimal}.");
    const auto letters = list(u"{lower-alpha})");
    text.addItem(u"1.", u"first", {numbers});
    text.addItem(u"a)", u"inner", {numbers, letters});
    text.addItem(u"b)", u"inner too", {numbers, letters});
    text.addItem(u"2.", u"second", {numbers});
    text.addItem(u"\u2022", u"disc within", {numbers, list(NSTextListMarkerDisc)});
    text.addItem(u"5.", u"fifth", {numbers});
    text.addItem(u"\u25E6", u"open", {list(NSTextListMarkerCircle)});
    text.addItem(u"\u2713", u"done", {list(NSTextListMarkerCheck)});
    text.add(u"picture ");
    text.addPicture();
    text.add(u"\n");
    const auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(3);
    text.addCell(u"wide\n", table, 0, 0, 1, 2);
    text.addCell(u"tall\n", table, 0, 2, 2, 1);
    text.addCell(u"left\n", table, 1, 0);
    text.addCell(u"middle\n", table, 1, 1);
    NSMutableParagraphStyle centred;
    centred.setAlignment(NSTextAlignment::Center);
    text.add(u"centred\n", centred);
    text.add(u"\u05E9\u05DC\u05D5\u05DD abc\n");
    auto block = std::make_shared<NSTextBlock>();
    block->setWidth({1}, NSTextBlockLayer::Border);
    block->setBackgroundColor(NSColor::colorWithSRGBRed(0.95, 0.95, 0.95, 1));
    NSMutableParagraphStyle boxed;
    boxed.setTextBlocks({block});
    text.add(u"boxed\n", boxed,
             attributesOf({{NSFontAttributeName, NSFont::fontWithName(u"Menlo-Regular", 11)}}));
    return text.text();
}

/// What the word processor writes of the document in another form.
std::string converted(const std::string& form, const std::string& extension)
{
    const TemporaryFolder folder;
    std::ofstream(folder.path() / "text.docx", std::ios::binary) << wordBytes(richText());
    if (!runs("cd " + folder.path().native() + " && HOME=$PWD soffice --headless --convert-to '" + form
              + "' text.docx"))
        return {};
    std::ostringstream seen;
    seen << std::ifstream(folder.path() / ("text." + extension)).rdbuf();
    return seen.str();
}

} // namespace

class WordOtherReaders : public testing::Test {
protected:
    void SetUp() override
    {
        if (!runs("command -v soffice"))
            GTEST_SKIP() << "soffice is not installed";
    }
};

TEST_F(WordOtherReaders, SeeTheSameTextAndMarkers)
{
    const auto seen = converted("txt:Text (encoded):UTF8", "txt");
    EXPECT_THAT(
        seen,
        HasSubstr(
            "Heading \u00E9 \u4E2D\nplain <text> & \U0001F600 with a link, high, marked, struck, lined\n"));
    // Levels stand further in, as blanks say here.
    for (const auto* const line :
         {"1. first\n", "a) inner\n", "b) inner too\n", "2. second\n", " disc within\n", "5. fifth\n",
          " open\n", " done\n", "wide\n", "tall\n", "left\n", "middle\n", "centred\n",
          "\u05E9\u05DC\u05D5\u05DD abc\n", "boxed\n"})
        EXPECT_THAT(seen, HasSubstr(line));
}

TEST_F(WordOtherReaders, SeeTheSameSignsAndPictures)
{
    const auto seen = converted("fodt", "fodt");
    for (const auto* const sign : {"\u2022", "\u2610", "\u2611"})
        EXPECT_THAT(seen, HasSubstr("text:bullet-char=\"" + std::string(sign) + "\""));
    EXPECT_THAT(seen, HasSubstr("<draw:image"));
    EXPECT_THAT(seen, HasSubstr("<office:binary-data>"));
}

TEST_F(WordOtherReaders, SeeTheSameStructure)
{
    const auto seen = converted("html:HTML (StarWriter)", "html");
    EXPECT_THAT(seen, HasSubstr("<h1"));
    EXPECT_THAT(seen, HasSubstr("<a href=\"https://a.example/\">"));
    EXPECT_THAT(seen, HasSubstr("colspan=\"2\""));
    EXPECT_THAT(seen, HasSubstr("rowspan=\"2\""));
    EXPECT_THAT(seen, HasSubstr("<img "));
    EXPECT_THAT(seen, HasSubstr("<ol>"));
}
