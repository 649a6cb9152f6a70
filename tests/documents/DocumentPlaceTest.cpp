#include "documents/DocumentPlace.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

class DocumentPlaceTest : public testing::Test {
protected:
    [[nodiscard]] bool mayWrite(std::string_view name, DocumentKind kind,
                                ExistingFiles existing = ExistingFiles::Replace)
    {
        return mayWriteDocument({m_folder.url(name), kind, existing, {}}, &m_error);
    }

    [[nodiscard]] bool mayWriteOf(std::string_view source, std::string_view name, DocumentKind kind)
    {
        return mayWriteDocument({m_folder.url(name), kind, ExistingFiles::Replace, m_folder.url(source)},
                                &m_error);
    }

    void makeNote(const std::string& name) const
    {
        m_folder.write(name + "/NoteText", "text");
        m_folder.write(name + "/NoteAttributes", "attributes");
        m_folder.write(name + "/TXT.rtf", "rtf");
    }

    TemporaryFolder m_folder;
    NSError m_error;
};

TEST_F(DocumentPlaceTest, IsWhereNothingIs)
{
    EXPECT_TRUE(mayWrite("a.md", DocumentKind::Markdown, ExistingFiles::Keep));
    EXPECT_TRUE(mayWrite("a.cvlnote", DocumentKind::Note, ExistingFiles::Keep));
}

TEST_F(DocumentPlaceTest, IsNeverInAPackage)
{
    makeNote("a.cvlnote");
    m_folder.write("a.rtfd/TXT.rtf", "rtf");
    m_folder.write("a.rtfd/pictures/a.png", "png");
    for (const auto* name : {"a.cvlnote/NoteText", "a.cvlnote/new.png", "a.cvlnote/sub/new.png",
                             "a.rtfd/TXT.rtf", "a.rtfd/pictures/new.png"}) {
        EXPECT_FALSE(mayWrite(name, DocumentKind::PDF)) << name;
        EXPECT_EQ(m_error.localizedDescription(),
                  "It lies in a note or an RTFD package, which it would damage.");
    }
    EXPECT_FALSE(mayWrite("a.cvlnote/b.cvlnote", DocumentKind::Note));
}

TEST_F(DocumentPlaceTest, IsNotInANoteUnderAnotherName)
{
    makeNote("note");
    EXPECT_FALSE(mayWrite("note/a.png", DocumentKind::PDF));
    fs::remove(m_folder.file("note/NoteText"));
    EXPECT_FALSE(mayWrite("note/a.png", DocumentKind::PDF));
}

TEST_F(DocumentPlaceTest, IsNotInANoteThatALinkLeadsTo)
{
    makeNote("a.cvlnote");
    fs::create_directory_symlink("a.cvlnote", m_folder.file("folder"));
    fs::create_symlink("a.cvlnote/NoteText", m_folder.file("link.md"));
    EXPECT_FALSE(mayWrite("folder/new.png", DocumentKind::PDF));
    EXPECT_FALSE(mayWrite("link.md", DocumentKind::Markdown));
}

TEST_F(DocumentPlaceTest, IsNotTheSourceNorInIt)
{
    makeNote("a.cvlnote");
    fs::create_directory_symlink("a.cvlnote", m_folder.file("b.cvlnote"));
    m_folder.write("c/mine", "mine");
    for (const auto* name : {"a.cvlnote", "b.cvlnote"}) {
        EXPECT_FALSE(mayWriteOf("a.cvlnote", name, DocumentKind::Note)) << name;
        EXPECT_EQ(m_error.localizedDescription(), "It is what is to be read, or lies in it.");
    }
    EXPECT_FALSE(mayWriteOf("c", "c/new.md", DocumentKind::Markdown));
    EXPECT_TRUE(mayWriteOf("c", "new.md", DocumentKind::Markdown));
}

TEST_F(DocumentPlaceTest, IsNoFolderOfOtherThings)
{
    for (const auto* name : {"a.cvlnote", "a.rtfd"}) {
        m_folder.write(std::string(name) + "/data.txt", "mine");
        for (const auto kind : {DocumentKind::Note, DocumentKind::RTFD}) {
            EXPECT_FALSE(mayWrite(name, kind)) << name;
            EXPECT_EQ(m_error.localizedDescription(),
                      "There is a folder that holds something else, which is not replaced.");
        }
    }
}

TEST_F(DocumentPlaceTest, IsAPackageOfTheSameKind)
{
    makeNote("a.cvlnote");
    m_folder.write("b.cvlnote/NoteAttributes", "attributes");
    m_folder.write("a.rtfd/TXT.rtf", "rtf");
    EXPECT_TRUE(mayWrite("a.cvlnote", DocumentKind::Note));
    EXPECT_TRUE(mayWrite("b.cvlnote", DocumentKind::Note));
    EXPECT_TRUE(mayWrite("a.rtfd", DocumentKind::RTFD));
    EXPECT_FALSE(mayWrite("a.cvlnote", DocumentKind::RTFD));
    EXPECT_FALSE(mayWrite("a.rtfd", DocumentKind::Note));
    EXPECT_FALSE(mayWrite("a.cvlnote", DocumentKind::Note, ExistingFiles::Keep));
    EXPECT_EQ(m_error.code(), EEXIST);
}

TEST_F(DocumentPlaceTest, MayBeAnEmptyFolder)
{
    fs::create_directory(m_folder.file("a.cvlnote"));
    EXPECT_TRUE(mayWrite("a.cvlnote", DocumentKind::Note));
    EXPECT_FALSE(mayWrite("a.cvlnote", DocumentKind::Note, ExistingFiles::Keep));
}

TEST_F(DocumentPlaceTest, TakesThePlaceOfAnEmptyFileOrAnImageForAThumbnail)
{
    m_folder.write("empty", "");
    m_folder.write("a.png", "\x89PNG\r\n\x1a\nrest");
    m_folder.write("mine.png", "mine");
    EXPECT_TRUE(mayWrite("empty", DocumentKind::PDF, ExistingFiles::ReplaceImage));
    EXPECT_TRUE(mayWrite("a.png", DocumentKind::PDF, ExistingFiles::ReplaceImage));
    EXPECT_FALSE(mayWrite("mine.png", DocumentKind::PDF, ExistingFiles::ReplaceImage));
    EXPECT_EQ(m_error.code(), EEXIST);
}

TEST_F(DocumentPlaceTest, MayBeADeviceForAFileOnly)
{
    EXPECT_TRUE(mayWriteDocument({NSURL::fileURLWithPath("/dev/null"), DocumentKind::PDF}));
    EXPECT_FALSE(mayWriteDocument({NSURL::fileURLWithPath("/dev/null"), DocumentKind::Note}));
}

TEST_F(DocumentPlaceTest, IsNotWhereALinkLeadsNowhere)
{
    fs::create_symlink("nowhere", m_folder.file("a.md"));
    EXPECT_FALSE(mayWrite("a.md", DocumentKind::Markdown));
    EXPECT_EQ(m_error.code(), EEXIST);
}

} // namespace
