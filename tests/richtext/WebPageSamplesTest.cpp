// Pages that other programs wrote, read and fitted into notes.

#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSColor.h"
#include "richtext/AttachmentNames.h"
#include "richtext/ChecklistMarkdown.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/ListRecognition.h"
#include "richtext/TrailingTables.h"
#include "richtext/WebPageCleanup.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"
#include "tests/support/SampleIndex.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

using namespace DynamicColors;

namespace {

std::optional<NSAttributedString> readSample(const Sample& sample)
{
    std::ifstream file(sample.path, std::ios::binary);
    const NSData data{{std::istreambuf_iterator<char>(file), {}}};
    return NSAttributedStringDocumentFormats::initWithHTML(data);
}

std::u16string withoutLineBreaks(std::u16string_view text)
{
    std::u16string result(text);
    std::erase(result, u'\n');
    return result;
}

std::vector<std::string> missingIn(const NSAttributedString& text, const Sample& sample)
{
    return missingTerms(SampleText(UTF8FromUTF16(text.string())), sample.mustFind);
}

void expectCleanFonts(const NSAttributedString& text)
{
    text.enumerateAttribute(NSFontAttributeName, [](const NSAny& value, NSRange, bool&) {
        const auto font = value.object<NSFont>();
        if (!font)
            return;
        EXPECT_EQ(font->familyName(), u"Helvetica Neue");
        EXPECT_EQ(font->pointSize(), std::ceil(font->pointSize()));
    });
}

void expectLabelColorOnly(const NSAttributedString& text)
{
    text.enumerateAttribute(NSForegroundColorAttributeName, [](const NSAny& value, NSRange, bool&) {
        const auto color = value.object<NSColor>();
        EXPECT_TRUE(color && color->isEqual(*NSColor::labelColor()));
    });
    text.enumerateAttribute(NSBackgroundColorAttributeName,
                            [](const NSAny& value, NSRange, bool&) { EXPECT_FALSE(value); });
}

class WebPageSamples : public StyleTest {
protected:
    void SetUp() override
    {
        m_samples = samplesOf("html");
        if (m_samples.empty())
            GTEST_SKIP() << "the samples are not on this machine";
    }

    [[nodiscard]] const std::vector<Sample>& samples() const { return m_samples; }

private:
    std::vector<Sample> m_samples;
};

class WebPages : public StyleTest {
protected:
    static NSMutableAttributedString read(std::string page)
    {
        const auto text = NSAttributedStringDocumentFormats::initWithHTML({std::move(page)});
        return NSMutableAttributedString(text.value_or(NSAttributedString()));
    }
};

} // namespace

TEST_F(WebPageSamples, LoseNoTextWhenTheyAreCleanedUp)
{
    const auto body = CVLNoteTextStyle::bodyNoteTextStyle()->font();
    for (const auto& sample : samples()) {
        const auto page = readSample(sample);
        ASSERT_TRUE(page) << sample.file;
        NSMutableAttributedString text(*page);
        cleanupTextFromWebPageInRange(text, {0, text.length()}, body, true, true, true);
        EXPECT_EQ(withoutLineBreaks(text.string()), withoutLineBreaks(page->string())) << sample.file;
        EXPECT_EQ(missingIn(text, sample), missingIn(*page, sample)) << sample.file;
        expectCleanFonts(text);
        expectLabelColorOnly(text);
    }
}

TEST_F(WebPageSamples, GoThroughEveryTransformWithTheirText)
{
    for (const auto& sample : samples()) {
        const auto page = readSample(sample);
        ASSERT_TRUE(page) << sample.file;
        NSMutableAttributedString text(*page);
        checkForTextListsAndConvertIfNecessary(text);
        EXPECT_EQ(text.string(), page->string()) << sample.file;
        fixTrailingTables(text);
        convertTextListsToChecklistAttachments(text);
        convertChecklistAttachmentsToTextLists(text);
        convertTextListsToChecklistAttachments(text);
        convertChecklistAttachmentsToMarkdownSyntax(text);
        EXPECT_TRUE(attachmentsAreInPlace(text)) << sample.file;
        EXPECT_EQ(missingIn(text, sample), missingIn(*page, sample)) << sample.file;
        EXPECT_TRUE(attachmentsAreInPlace(attributedStringByReplacingAttachmentsWithNames(text)));
    }
}

TEST_F(WebPages, HaveBlankLinesForTheirSpacing)
{
    auto text = read("<p style='margin: 10px 0'>one</p><p style='margin: 10px 0'>two</p>");
    cleanupTextFromWebPageInRange(text, {0, text.length()}, nullptr, true, false, false);
    EXPECT_EQ(text.string(), u"one\n\ntwo\n");
}

TEST_F(WebPages, KeepBoldAndItalicWords)
{
    auto text = read("<p>a<b>b</b><i>c</i><b><i>d</i></b></p>");
    cleanupWebPageText(text);
    EXPECT_EQ(fontAt(text, 0)->fontName(), u"HelveticaNeue");
    EXPECT_EQ(fontAt(text, 1)->fontName(), u"HelveticaNeue-Bold");
    EXPECT_EQ(fontAt(text, 2)->fontName(), u"HelveticaNeue-Italic");
    EXPECT_EQ(fontAt(text, 3)->fontName(), u"HelveticaNeue-BoldItalic");
}

TEST_F(WebPages, LetOneWriteBehindATableAtTheirEnd)
{
    auto text = read("<table><tr><td>a</td><td>b</td></tr></table>");
    const auto before = std::u16string(text.string());
    fixTrailingTables(text);
    EXPECT_EQ(text.string(), before + u"\n");
}

TEST_F(WebPages, HoldChecklists)
{
    auto text
        = read("<ul><li><input type=checkbox checked>Milk</li><li><input type=checkbox>Bread</li></ul>");
    convertTextListsToChecklistAttachments(text);
    EXPECT_EQ(itemsOf(text), (std::vector<ChecklistItem>{{true, 0, u"Milk"}, {false, 0, u"Bread"}}));
    convertChecklistAttachmentsToMarkdownSyntax(text);
    EXPECT_TRUE(text.string().starts_with(u"- [x] Milk\n- [ ] Bread"));
}
