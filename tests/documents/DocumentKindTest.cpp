#include "documents/DocumentKind.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

class DocumentKindTest : public testing::Test {
protected:
    [[nodiscard]] std::optional<DocumentKind> kindOf(std::string_view name, std::string_view bytes) const
    {
        m_folder.write(name, bytes);
        return documentKindOfFile(m_folder.url(name));
    }

    TemporaryFolder m_folder;
};

TEST_F(DocumentKindTest, IsNamedInAnyCase)
{
    EXPECT_EQ(documentKindNamed("markdown"), DocumentKind::Markdown);
    EXPECT_EQ(documentKindNamed("MD"), DocumentKind::Markdown);
    EXPECT_EQ(documentKindNamed("html"), DocumentKind::Page);
    EXPECT_EQ(documentKindNamed("rtf"), DocumentKind::RTF);
    EXPECT_EQ(documentKindNamed("RTFD"), DocumentKind::RTFD);
    EXPECT_EQ(documentKindNamed("word"), DocumentKind::Word);
    EXPECT_EQ(documentKindNamed("docx"), DocumentKind::Word);
    EXPECT_EQ(documentKindNamed("text"), DocumentKind::PlainText);
    EXPECT_EQ(documentKindNamed("txt"), DocumentKind::PlainText);
    EXPECT_EQ(documentKindNamed("pdf"), DocumentKind::PDF);
    EXPECT_EQ(documentKindNamed("note"), DocumentKind::Note);
    EXPECT_EQ(documentKindNamed("cvlnote"), DocumentKind::Note);
    EXPECT_EQ(documentKindNamed(""), std::nullopt);
    EXPECT_EQ(documentKindNamed("archive"), std::nullopt);
}

TEST_F(DocumentKindTest, OfAPathIsThatOfItsExtension)
{
    EXPECT_EQ(documentKindOfPath("a/b.mkdn"), DocumentKind::Markdown);
    EXPECT_EQ(documentKindOfPath("b.HTM"), DocumentKind::Page);
    EXPECT_EQ(documentKindOfPath("a.md/b"), std::nullopt);
    EXPECT_EQ(documentKindOfPath(".md"), std::nullopt);
    EXPECT_EQ(documentKindOfPath("b.zip"), std::nullopt);
}

TEST_F(DocumentKindTest, OfAFileIsThatOfItsName)
{
    EXPECT_EQ(kindOf("a.md", "{\\rtf1}"), DocumentKind::Markdown);
    EXPECT_EQ(kindOf("a.html", "a"), DocumentKind::Page);
    EXPECT_EQ(kindOf("a.rtf", "a"), DocumentKind::RTF);
    EXPECT_EQ(kindOf("a.docx", "a"), DocumentKind::Word);
    EXPECT_EQ(kindOf("a.txt", "a"), DocumentKind::PlainText);
    EXPECT_EQ(kindOf("a.xml", "<a/>"), DocumentKind::PlainText);
}

TEST_F(DocumentKindTest, OfAFileWithoutATellingNameIsThatOfItsContents)
{
    EXPECT_EQ(kindOf("a", "{\\rtf1 x}"), DocumentKind::RTF);
    EXPECT_EQ(kindOf("b", "bplist00 and more"), DocumentKind::Archive);
    EXPECT_EQ(kindOf("c.rtfd", "rtfd\x03"), DocumentKind::RTFD);
    EXPECT_EQ(kindOf("d", "plain words"), DocumentKind::PlainText);
}

TEST_F(DocumentKindTest, OfAFolderIsThatOfItsName)
{
    std::filesystem::create_directory(m_folder.file("a.cvlnote"));
    std::filesystem::create_directory(m_folder.file("a.rtfd"));
    EXPECT_EQ(documentKindOfFile(m_folder.url("a.cvlnote")), DocumentKind::Note);
    EXPECT_EQ(documentKindOfFile(m_folder.url("a.rtfd")), DocumentKind::RTFD);
}

TEST_F(DocumentKindTest, OfAFolderWithARichTextIsRTFD)
{
    m_folder.write("a/TXT.rtf", "{\\rtf1}");
    EXPECT_EQ(documentKindOfFile(m_folder.url("a")), DocumentKind::RTFD);
}

TEST_F(DocumentKindTest, IsNoneWithAReasonForEverythingElse)
{
    std::filesystem::create_directory(m_folder.file("folder"));
    m_folder.write("a.zip", "PK\x03\x04");
    NSError error;
    EXPECT_EQ(documentKindOfFile(m_folder.url("folder"), &error), std::nullopt);
    EXPECT_EQ(error.localizedDescription(), "It is a folder, and no document.");
    EXPECT_EQ(documentKindOfFile(m_folder.url("a.zip"), &error), std::nullopt);
    EXPECT_EQ(error.localizedDescription(),
              "It is no note, Markdown, page, rich text, Word document or plain text.");
    EXPECT_EQ(documentKindOfFile(m_folder.url("missing"), &error), std::nullopt);
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);
}

} // namespace
