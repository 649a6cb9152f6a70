#include "platform/foundation/NSFileManager.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace {

std::string contentOf(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path).rdbuf();
    return content.str();
}

TEST(NSFileManager, TakesTheTemporaryFolderFromTheEnvironment)
{
    const char* set = std::getenv("TMPDIR");
    EXPECT_EQ(NSFileManager::temporaryDirectory().path(),
              set && *set ? std::filesystem::path(set).lexically_normal().native() : "/tmp");
}

TEST(NSFileManager, MakesFoldersForTheirOwner)
{
    const TemporaryFolder folder;
    NSError error;
    EXPECT_FALSE(NSFileManager::createDirectoryAtURL(folder.url("a/b/c"), false, &error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_TRUE(NSFileManager::createDirectoryAtURL(folder.url("a/b/c"), true, &error));
    EXPECT_TRUE(NSFileManager::createDirectoryAtURL(folder.url("a/b/c"), true, &error));
    EXPECT_FALSE(NSFileManager::createDirectoryAtURL(folder.url("a/b/c"), false, &error));
    EXPECT_EQ(error.code(), EEXIST);

    struct stat status { };

    ASSERT_EQ(::stat(folder.file("a/b/c").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    folder.write("file", "x");
    EXPECT_FALSE(NSFileManager::createDirectoryAtURL(folder.url("file/x"), true, &error));
}

TEST(NSFileManager, RemovesALinkAndNotWhatItPointsAt)
{
    const TemporaryFolder folder;
    folder.write("target/file", "x");
    std::filesystem::create_directory_symlink(folder.file("target"), folder.file("link"));
    EXPECT_TRUE(NSFileManager::removeItemAtURL(folder.url("link")));
    EXPECT_TRUE(std::filesystem::exists(folder.file("target/file")));
    EXPECT_TRUE(NSFileManager::removeItemAtURL(folder.url("target")));
    NSError error;
    EXPECT_FALSE(NSFileManager::removeItemAtURL(folder.url("target"), &error));
    EXPECT_EQ(error.code(), ENOENT);
}

TEST(NSFileManager, ShowsTheLastComponent)
{
    EXPECT_EQ(NSFileManager::displayNameAtPath(u"/tmp/Report.pdf"), u"Report.pdf");
    EXPECT_EQ(NSFileManager::displayNameAtPath(u"Report.pdf"), u"Report.pdf");
    EXPECT_EQ(NSFileManager::displayNameAtPath(u"/"), u"/");
    EXPECT_EQ(NSFileManager::displayNameAtPath(u""), u"");
}

TEST(NSFileManager, KeepsNamesByteForByte)
{
    EXPECT_EQ(NSFileManager::fileSystemRepresentation(u"caf\u00E9"), "caf\xC3\xA9");
    EXPECT_EQ(NSFileManager::fileSystemRepresentation(u"cafe\u0301"), "cafe\xCC\x81");
    EXPECT_EQ(NSFileManager::fileSystemRepresentation(std::u16string_view(u"a\0b", 3)), "a");
    EXPECT_EQ(NSFileManager::stringWithFileSystemRepresentation("caf\xC3\xA9!", 5), u"caf\u00E9");
    EXPECT_EQ(NSFileManager::stringWithFileSystemRepresentation("a\xFF", 2), u"a\uFFFD");
}

TEST(WriteNewFile, WritesUnderTheLastComponentOnly)
{
    const TemporaryFolder folder;
    folder.write("inner/x", "");
    for (const auto* name : {"a.txt", "../a.txt", "/etc/a.txt", "../../../a.txt/", "b\\a.txt"}) {
        const auto url = writeNewFile("data", folder.url("inner"), name);
        ASSERT_TRUE(url) << name;
        EXPECT_EQ(std::filesystem::path(url->path()).parent_path().native(), folder.file("inner")) << name;
        EXPECT_EQ(contentOf(url->path()), "data");
        EXPECT_TRUE(NSFileManager::removeItemAtURL(*url));
    }
}

TEST(WriteNewFile, RefusesNamesThatAreNone)
{
    const TemporaryFolder folder;
    NSError error;
    for (const auto name : {std::string_view(""), std::string_view("."), std::string_view("a/.."),
                            std::string_view("///"), std::string_view("a\0b", 3)})
        EXPECT_FALSE(writeNewFile("data", folder.url(""), name, &error)) << name;
    EXPECT_FALSE(writeNewFile("data", folder.url(""), std::string(300, 'n'), &error));
    EXPECT_EQ(error.code(), ENAMETOOLONG);
}

TEST(WriteNewFile, NeverWritesOverOrThroughWhatIsThere)
{
    const TemporaryFolder folder;
    folder.write("there", "old");
    folder.write("target", "old");
    std::filesystem::create_symlink(folder.file("target"), folder.file("link"));
    std::filesystem::create_symlink(folder.file("nowhere"), folder.file("dangling"));
    for (const auto* name : {"there", "link", "dangling"})
        EXPECT_FALSE(writeNewFile("new", NSURL::fileURLWithPath(folder.path().native()), name)) << name;
    EXPECT_EQ(contentOf(folder.file("there")), "old");
    EXPECT_EQ(contentOf(folder.file("target")), "old");
    EXPECT_FALSE(std::filesystem::exists(folder.file("nowhere")));
}

} // namespace
