#include "documents/DocumentExport.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "documents/Document.h"
#include "documents/NoteImport.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/Unicode.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Key;
using testing::Not;
using testing::StartsWith;

namespace {

/// As much of a picture as tells it from other files.
const std::string kPicture("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1", 24);

class DocumentExport : public StyleTest {
protected:
    static ExportedDocument exported(const NSAttributedString& text, DocumentKind kind,
                                     const DocumentExportOptions& options = {})
    {
        CVLNoteFile note;
        note.setNoteText(text);
        NSError error;
        auto document = exportedDocument(note, kind, options, &error);
        EXPECT_TRUE(document) << error.localizedDescription();
        return document.value_or(ExportedDocument{});
    }

    static std::string bytesOf(const ExportedDocument& document)
    {
        return document.document->regularFileContents()->bytes;
    }

    static NSAttributedString note()
    {
        auto text = checklistText({{true, 0, u"Salt"}, {false, 1, u"Leek"}});
        text.appendAttributedString(NoteText()
                                        .addAttachment(CVLDividerTextAttachment::init())
                                        .add(u"\n")
                                        .addAttachment(makeAttachment(u"a b.png", kPicture))
                                        .addAttachment(makeAttachment(u"c.zip", "ZIP"))
                                        .text());
        return text;
    }

    static NSAttributedString noteOfMarkdown(std::string markdown)
    {
        return noteTextOfDocument(*documentWithData({std::move(markdown)}, DocumentKind::Markdown));
    }
};

TEST_F(DocumentExport, ToMarkdownKeepsItemsAndRulesAndNamesFiles)
{
    const auto document = exported(note(), DocumentKind::Markdown, {.filesFolder = u"x_files"});
    EXPECT_EQ(bytesOf(document),
              "- [x] Salt\n    - [ ] Leek\n\n***\n\n"
              "![a b.png](<x_files/a b.png>)[c.zip](x_files/c.zip)\n");
    EXPECT_THAT(document.files, ElementsAre(Key(u"a b.png"), Key(u"c.zip")));
    EXPECT_EQ(document.leftOutCount, 0U);
}

TEST_F(DocumentExport, LeavesFilesOutWithoutAFolder)
{
    for (const auto kind :
         {DocumentKind::Markdown, DocumentKind::Page, DocumentKind::RTF, DocumentKind::PlainText}) {
        const auto document = exported(note(), kind);
        EXPECT_TRUE(document.files.empty());
        EXPECT_EQ(document.leftOutCount, 2U);
    }
}

TEST_F(DocumentExport, ToAPageNamesFilesInTheFolder)
{
    const auto document = exported(note(), DocumentKind::Page, {.title = u"T", .filesFolder = u"x files"});
    const auto page = bytesOf(document);
    EXPECT_THAT(page, HasSubstr("<title>T</title>"));
    EXPECT_THAT(page, HasSubstr("\u2611 "));
    EXPECT_THAT(page, HasSubstr(R"(<img src="x%20files/a%20b.png" alt="a b.png">)"));
    EXPECT_THAT(page, HasSubstr(R"(<a href="x%20files/c.zip">c.zip</a>)"));
    EXPECT_THAT(page, Not(HasSubstr("file:///")));
    EXPECT_EQ(document.files.size(), 2U);
}

TEST_F(DocumentExport, ToRTFHasTheTextForOtherPrograms)
{
    const auto document = exported(note(), DocumentKind::RTF, {.title = u"T"});
    EXPECT_THAT(bytesOf(document), StartsWith("{\\rtf1"));
    const auto read = documentWithData({bytesOf(document)}, DocumentKind::RTF);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text.string(), u"\t\u2713\tSalt\n\t\u25E6\tLeek\n***\n");
    EXPECT_EQ(read->title, u"T");
}

TEST_F(DocumentExport, ToRTFDHasTheFilesWithin)
{
    const auto document = exported(note(), DocumentKind::RTFD);
    EXPECT_THAT(document.document->fileWrappers(),
                ElementsAre(Key(u"TXT.rtf"), Key(u"a b.png"), Key(u"c.zip")));
    EXPECT_EQ(document.leftOutCount, 0U);
}

TEST_F(DocumentExport, CountsTheFilesThatDividersCostAnExport)
{
    const auto text = NoteText()
                          .addAttachment(makeAttachment(u"a.png"))
                          .add(u"\n")
                          .addAttachment(CVLDividerTextAttachment::init())
                          .add(u"\nb")
                          .text();
    EXPECT_EQ(exported(text, DocumentKind::RTFD).leftOutCount, 1U);
    EXPECT_EQ(exported(text, DocumentKind::Markdown, {.filesFolder = u"f"}).leftOutCount, 0U);
}

TEST_F(DocumentExport, ToPlainTextIsUTF8)
{
    EXPECT_EQ(bytesOf(exported(NoteText().add(u"caf\u00E9").text(), DocumentKind::PlainText)),
              "caf\xC3\xA9\n");
}

TEST_F(DocumentExport, ToWordHasTheTextForOtherPrograms)
{
    const auto document = exported(note(), DocumentKind::Word, {.title = u"T", .filesFolder = u"f"});
    EXPECT_TRUE(document.files.empty());
    EXPECT_EQ(document.leftOutCount, 1U);
    const auto read = documentWithData({bytesOf(document)}, DocumentKind::Word);
    ASSERT_TRUE(read);
    EXPECT_THAT(UTF8FromUTF16(read->text.string()), StartsWith("\t\u2713\tSalt\n\t\u25E6\tLeek\n***\n"));
    EXPECT_EQ(read->title, u"T");
}

TEST_F(DocumentExport, ToPDFHasPages)
{
    EXPECT_THAT(bytesOf(exported(note(), DocumentKind::PDF)), StartsWith("%PDF-"));
}

TEST_F(DocumentExport, OfNothingIsAnEmptyFile)
{
    EXPECT_EQ(bytesOf(exported({}, DocumentKind::Markdown)), "");
    EXPECT_EQ(bytesOf(exported({}, DocumentKind::PlainText)), "");
}

TEST_F(DocumentExport, ToMarkdownTellsWhatStandsHigherOrLower)
{
    constexpr auto kMarkdown = "H<sub>2</sub>O x<sup>2</sup>\n";
    EXPECT_EQ(bytesOf(exported(noteOfMarkdown(kMarkdown), DocumentKind::Markdown)), kMarkdown);
}

TEST_F(DocumentExport, GivesMarkdownBackAsItWas)
{
    const std::string markdown = "# A\n\nOne *two* **three** `four` [five](https://a.example/).\n\n- [x] "
                                 "b\n- [ ] c\n\n1. d\n2. e\n    - f\n\n"
                                 "***\n\n> g\n\n| h | i |\n| --- | --- |\n| 1 | 2 "
                                 "|\n\n```\ncode\n***\n```\n\n<mark>j</mark> k\n\n***\n";
    EXPECT_EQ(bytesOf(exported(noteOfMarkdown(markdown), DocumentKind::Markdown)), markdown);
}

TEST_F(DocumentExport, GivesTheTextOfEachKindBack)
{
    const auto text = noteOfMarkdown("# A\n\n- [x] b\n- [ ] c\n\n***\n\nd\n");
    for (const auto kind : {DocumentKind::Page, DocumentKind::RTF, DocumentKind::Word}) {
        const auto read = documentWithData({bytesOf(exported(text, kind))}, kind);
        ASSERT_TRUE(read);
        EXPECT_EQ(bytesOf(exported(noteTextOfDocument(*read), DocumentKind::Markdown)),
                  "# A\n\n- [x] b\n- [ ] c\n\n***\n\nd\n");
    }
}

TEST_F(DocumentExport, IsRefusedForKindsThatNotesAreNotWrittenAs)
{
    for (const auto kind : {DocumentKind::Note, DocumentKind::Archive}) {
        NSError error;
        EXPECT_FALSE(exportedDocument(CVLNoteFile(), kind, {}, &error));
        EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileWriteInapplicableStringEncoding));
        EXPECT_EQ(error.localizedDescription(), "Notes cannot be written as files of this kind.");
    }
}

} // namespace
