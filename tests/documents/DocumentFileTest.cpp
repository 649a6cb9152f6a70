#include "documents/DocumentFile.h"

#include "tests/richtext/Attachments.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace {

class DocumentFileTest : public testing::Test {
protected:
    [[nodiscard]] bool write(const ExportedDocument& document, std::string_view name,
                             ExistingFiles existing = ExistingFiles::Keep)
    {
        const auto url = m_folder.url(name);
        const auto kind = document.document->isDirectory() ? DocumentKind::RTFD : DocumentKind::Markdown;
        return writeDocument(document, {url, kind, existing, {}}, filesFolderOfDocument(url), &m_error);
    }

    [[nodiscard]] std::string contentsOf(std::string_view name) const
    {
        std::ifstream file(m_folder.file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static ExportedDocument textDocument(std::string bytes)
    {
        return {NSFileWrapper::initRegularFileWithContents({std::move(bytes)}), {}, 0};
    }

    static ExportedDocument documentWithPicture()
    {
        auto document = textDocument("text");
        document.files.emplace(u"a.png", makeFile(u"other name", "new"));
        return document;
    }

    static ExportedDocument package()
    {
        return {
            NSFileWrapper::initDirectoryWithFileWrappers({{u"TXT.rtf", makeFile(u"TXT.rtf", "new")}}), {}, 0};
    }

    TemporaryFolder m_folder;
    NSError m_error;
};

TEST_F(DocumentFileTest, WritesTheDocumentAndItsFilesBesideIt)
{
    ASSERT_TRUE(write(documentWithPicture(), "list.md")) << m_error.localizedDescription();
    EXPECT_EQ(contentsOf("list.md"), "text");
    EXPECT_EQ(contentsOf("list_files/a.png"), "new");
}

TEST_F(DocumentFileTest, MakesNoFolderForNoFiles)
{
    ASSERT_TRUE(write(textDocument("text"), "list.md"));
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("list_files")));
}

TEST_F(DocumentFileTest, KeepsWhatIsThere)
{
    m_folder.write("list.md", "old");
    EXPECT_FALSE(write(documentWithPicture(), "list.md"));
    EXPECT_EQ(m_error.code(), EEXIST);
    EXPECT_EQ(contentsOf("list.md"), "old");
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("list_files")));
}

TEST_F(DocumentFileTest, SharesItsFilesWithTheDocumentsBesideIt)
{
    ASSERT_TRUE(write(documentWithPicture(), "list.md"));
    m_folder.write("list_files/b.png", "mine");
    ASSERT_TRUE(write(documentWithPicture(), "list.html")) << m_error.localizedDescription();
    EXPECT_EQ(contentsOf("list_files/a.png"), "new");
    EXPECT_EQ(contentsOf("list_files/b.png"), "mine");
}

TEST_F(DocumentFileTest, KeepsAFileOfAnotherDocument)
{
    m_folder.write("list_files/a.png", "old");
    EXPECT_FALSE(write(documentWithPicture(), "list.md"));
    EXPECT_EQ(contentsOf("list_files/a.png"), "old");
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("list.md")));
}

TEST_F(DocumentFileTest, KeepsALinkThatLeadsNowhere)
{
    std::filesystem::create_symlink("nowhere", m_folder.file("list.md"));
    EXPECT_FALSE(write(textDocument("text"), "list.md"));
    EXPECT_FALSE(write(textDocument("text"), "list.md", ExistingFiles::Replace));
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("nowhere")));
}

TEST_F(DocumentFileTest, ReplacesAFileWithItsPermissions)
{
    m_folder.write("list.md", "old");
    ASSERT_EQ(::chmod(m_folder.file("list.md").c_str(), 0640), 0);
    ASSERT_TRUE(write(textDocument("text"), "list.md", ExistingFiles::Replace));
    EXPECT_EQ(contentsOf("list.md"), "text");
    EXPECT_EQ(static_cast<unsigned>(std::filesystem::status(m_folder.file("list.md")).permissions()), 0640U);
}

TEST_F(DocumentFileTest, ReplacesTheFileThatALinkLeadsTo)
{
    m_folder.write("real.md", "old");
    std::filesystem::create_symlink("real.md", m_folder.file("list.md"));
    ASSERT_TRUE(write(textDocument("text"), "list.md", ExistingFiles::Replace));
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.file("list.md")));
    EXPECT_EQ(contentsOf("real.md"), "text");
}

TEST_F(DocumentFileTest, ReplacesOnlyFilesOfTheSameNamesInAFolderOfFiles)
{
    m_folder.write("list_files/a.png", "old");
    m_folder.write("list_files/b.png", "mine");
    ASSERT_TRUE(write(documentWithPicture(), "list.md", ExistingFiles::Replace));
    EXPECT_EQ(contentsOf("list_files/a.png"), "new");
    EXPECT_EQ(contentsOf("list_files/b.png"), "mine");
}

TEST_F(DocumentFileTest, WritesFilesIntoNoLinkedFolder)
{
    std::filesystem::create_directory(m_folder.file("elsewhere"));
    std::filesystem::create_directory_symlink("elsewhere", m_folder.file("list_files"));
    EXPECT_FALSE(write(documentWithPicture(), "list.md", ExistingFiles::Replace));
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.file("elsewhere")));
}

TEST_F(DocumentFileTest, ReplacesAPackageAsAWhole)
{
    m_folder.write("a.rtfd/TXT.rtf", "old");
    m_folder.write("a.rtfd/old.png", "old");
    ASSERT_TRUE(write(package(), "a.rtfd", ExistingFiles::Replace));
    EXPECT_EQ(contentsOf("a.rtfd/TXT.rtf"), "new");
    EXPECT_FALSE(std::filesystem::exists(m_folder.file("a.rtfd/old.png")));
}

TEST_F(DocumentFileTest, ReplacesNoFolderThatIsNoPackage)
{
    m_folder.write("folder/mine", "mine");
    EXPECT_FALSE(write(package(), "folder", ExistingFiles::Replace));
    EXPECT_FALSE(write(textDocument("text"), "folder", ExistingFiles::Replace));
    EXPECT_EQ(m_error.code(), EISDIR);
    EXPECT_EQ(contentsOf("folder/mine"), "mine");
}

TEST_F(DocumentFileTest, ReplacesNoFileByAPackage)
{
    m_folder.write("a.rtfd", "mine");
    EXPECT_FALSE(write(package(), "a.rtfd", ExistingFiles::Replace));
    EXPECT_EQ(m_error.code(), EEXIST);
    EXPECT_EQ(contentsOf("a.rtfd"), "mine");
}

TEST_F(DocumentFileTest, WritesToADevice)
{
    ASSERT_TRUE(
        writeDocument(textDocument("text"), {NSURL::fileURLWithPath("/dev/null")}, u"none", &m_error));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(DocumentFileTest, SaysThatTheFolderIsMissing)
{
    EXPECT_FALSE(write(textDocument("text"), "missing/list.md"));
    EXPECT_EQ(m_error.code(), ENOENT);
}

} // namespace
