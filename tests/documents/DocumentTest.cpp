#include "documents/Document.h"

#include "note/CVLNoteFile.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributedStringObject.h"
#include "platform/text/NSDocumentAttributes.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/NoteText.h"
#include "tests/styles/StyleTest.h"
#include "tests/support/WordPackageBytes.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

class DocumentTest : public StyleTest {
protected:
    [[nodiscard]] std::optional<Document> read(std::string_view name, std::string_view bytes) const
    {
        m_folder.write(name, bytes);
        return readDocument(m_folder.url(name));
    }

    [[nodiscard]] NSError errorOf(std::string_view name) const
    {
        NSError error;
        EXPECT_FALSE(readDocument(m_folder.url(name), &error)) << name;
        return error;
    }

    static NSAttributedString picture()
    {
        return NoteText().add(u"a").addAttachment(makeAttachment(u"a.png", "PNG")).text();
    }

    static NSFileWrapper::Ref packageOfPicture()
    {
        return NSAttributedStringDocumentFormats::RTFDFileWrapperFromRange(
            picture(), {0, 2}, {{std::u16string(NSDocumentTypeDocumentAttribute), NSRTFDTextDocumentType}});
    }

    TemporaryFolder m_folder;
};

TEST_F(DocumentTest, ReadsMarkdownInTheBodyStyle)
{
    const auto document = read("soup.md", "*a*");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->kind, DocumentKind::Markdown);
    EXPECT_EQ(document->title, u"soup");
    EXPECT_EQ(document->text.string().substr(0, 1), u"a");
    EXPECT_EQ(fontAt(document->text, 0)->familyName(), u"Helvetica Neue");
}

TEST_F(DocumentTest, PutsTabsAroundTheMarkersOfWordProcessors)
{
    const auto document = read("a.rtf",
                               "{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0}\\listid7}}"
                               "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}"
                               "{\\listtext 1.\\tab}\\pard\\ls1 one\\par{\\listtext 2.\\tab}two}");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text.string(), u"\t1.\tone\n\t2.\ttwo");
}

TEST_F(DocumentTest, TakesTheTitleThatAPageHas)
{
    const auto document = read("soup.html", "<title>Onion soup</title>a");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->kind, DocumentKind::Page);
    EXPECT_EQ(document->title, u"Onion soup");
}

TEST_F(DocumentTest, FindsOutTheEncodingOfPlainText)
{
    const auto document = read("a.txt", "caf\xE9 au lait, d\xE9j\xE0 vu");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text.string(), u"caf\u00E9 au lait, d\u00E9j\u00E0 vu");
    EXPECT_EQ(read("b.txt",
                   std::string_view("\xFF\xFE"
                                    "a\0b\0",
                                    6))
                  ->text.string(),
              u"ab");
}

TEST_F(DocumentTest, ReadsRTF)
{
    const auto document = read("a.rtf", "{\\rtf1{\\info{\\title T}}\\b a}");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text.string(), u"a");
    EXPECT_EQ(document->title, u"T");
}

TEST_F(DocumentTest, ReadsAnRTFDPackageWithItsFiles)
{
    ASSERT_TRUE(packageOfPicture()->writeToURL(m_folder.url("a.rtfd"), 0));
    const auto document = readDocument(m_folder.url("a.rtfd"));
    ASSERT_TRUE(document);
    const auto attachment = document->text.attribute(NSAttachmentAttributeName, 1).object<NSTextAttachment>();
    ASSERT_TRUE(attachment);
    EXPECT_EQ(attachment->fileWrapper()->regularFileContents()->bytes, "PNG");
}

TEST_F(DocumentTest, ReadsAnRTFDPackageInOneFile)
{
    const auto document = read("flat.rtfd", packageOfPicture()->serializedRepresentation()->bytes);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->kind, DocumentKind::RTFD);
    EXPECT_EQ(document->text.string(), u"a\uFFFC");
}

TEST_F(DocumentTest, ReadsAWordDocument)
{
    WordPackageBytes package;
    package.body = wordParagraph("Dear all");
    const auto document = read("a.docx", package.file());
    ASSERT_TRUE(document);
    EXPECT_EQ(document->kind, DocumentKind::Word);
    EXPECT_EQ(document->text.string(), u"Dear all\n");
}

TEST_F(DocumentTest, ReadsTheArchiveOfAText)
{
    const auto archive = NSKeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const NSAttributedStringObject>(NoteText().add(u"kept").text()), true);
    const auto document = read("NoteText", archive->bytes);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->kind, DocumentKind::Archive);
    EXPECT_EQ(document->text.string(), u"kept");
}

TEST_F(DocumentTest, ReadsANoteThroughALink)
{
    CVLNoteFile note;
    note.setNoteText(NoteText().add(u"noted").text());
    ASSERT_TRUE(note.saveToFileURL(m_folder.url("a.cvlnote")));
    std::filesystem::create_directory_symlink(m_folder.file("a.cvlnote"), m_folder.file("b.cvlnote"));
    const auto document = readDocument(m_folder.url("b.cvlnote"));
    ASSERT_TRUE(document);
    EXPECT_EQ(document->kind, DocumentKind::Note);
    EXPECT_EQ(document->text.string(), u"noted");
    EXPECT_EQ(document->title, u"b");
}

TEST_F(DocumentTest, FindsImagesByNamesThatAreNoURLs)
{
    m_folder.write("(x) [y]_files/a#b?%41\\.png", "first");
    m_folder.write("a b.png", "second");
    const auto document = read("a.md", "![x](<(x) [y]_files/a#b?%41\\\\.png>)![y](a%20b.png)");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text.string().substr(0, 2), u"\uFFFC\uFFFC");
}

TEST_F(DocumentTest, AttachesTheImagesBesideMarkdownUnderNamesOfTheirOwn)
{
    m_folder.write("a.png", "first");
    m_folder.write("sub/a.png", "second");
    const auto document = read("a.md", "![x](a.png)![y](sub/a.png)![z](../a.png)");
    ASSERT_TRUE(document);
    const auto nameAt = [&](NSUInteger location) {
        return document->text.attribute(NSAttachmentAttributeName, location)
            .object<NSTextAttachment>()
            ->fileWrapper()
            ->preferredFilename();
    };
    EXPECT_EQ(nameAt(0), u"a.png");
    EXPECT_EQ(nameAt(1), u"a 2.png");
    EXPECT_FALSE(document->text.attribute(NSAttachmentAttributeName, 2));
}

TEST_F(DocumentTest, IsReadAsTheKindThatIsGiven)
{
    m_folder.write("a.txt", "*a*");
    const auto document = readDocument(m_folder.url("a.txt"), DocumentKind::Markdown);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->text.string().substr(0, 1), u"a");
}

TEST_F(DocumentTest, InMemoryLooksForNoImages)
{
    const auto document = documentWithData({"![x](a.png)"}, DocumentKind::Markdown);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->title, u"");
    EXPECT_FALSE(document->text.attribute(NSAttachmentAttributeName, 0));
}

TEST_F(DocumentTest, SaysWhyItCannotBeRead)
{
    std::filesystem::create_directory(m_folder.file("empty.rtfd"));
    m_folder.write("bad.rtf", "no rich text");
    m_folder.write("bad.docx", "no package");
    m_folder.write("bad.archive", "bplist00 nothing");
    m_folder.write("large.md", std::string((32U << 20U) + 1, 'x'));
    EXPECT_EQ(errorOf("missing.md").code(), ENOENT);
    EXPECT_EQ(errorOf("empty.rtfd").code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
    EXPECT_EQ(errorOf("bad.rtf").code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
    EXPECT_EQ(errorOf("bad.docx").code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
    EXPECT_FALSE(errorOf("bad.archive").localizedDescription().empty());
    const auto large = errorOf("large.md");
    EXPECT_EQ(large.code(), static_cast<int>(NSCocoaError::FileReadTooLarge));
    EXPECT_EQ(large.localizedDescription(), "The file is too large.");
}

TEST_F(DocumentTest, OfAPDFIsNotRead)
{
    NSError error;
    EXPECT_FALSE(documentWithData({"%PDF"}, DocumentKind::PDF, &error));
    EXPECT_EQ(error.localizedDescription(), "Files of this kind cannot be read as notes.");
}

} // namespace
