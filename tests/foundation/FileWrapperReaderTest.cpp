#include "platform/foundation/FileWrapperReader.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace {

NSFileWrapper::Ref read(const NSURL& url, NSError* error = nullptr)
{
    return NSFileWrapper::initWithURL(url, NSFileWrapperReadingOptions::Immediate, error);
}

} // namespace

TEST(FileWrapperReader, ReadsAFile)
{
    const TemporaryFolder folder;
    folder.write("a.txt", "contents");
    NSError error;
    const auto wrapper = read(folder.url("a.txt"), &error);
    ASSERT_NE(wrapper, nullptr) << error.localizedDescription();
    EXPECT_TRUE(wrapper->isRegularFile());
    EXPECT_EQ(wrapper->regularFileContents()->bytes, "contents");
    EXPECT_EQ(wrapper->filename(), u"a.txt");
    EXPECT_EQ(wrapper->preferredFilename(), u"a.txt");
}

TEST(FileWrapperReader, ReadsAFolderWithAllItHolds)
{
    const TemporaryFolder folder;
    folder.write("Pack/a.txt", "1");
    folder.write("Pack/inner/b.txt", "2");
    std::filesystem::create_directory(folder.file("Pack/empty"));
    const auto wrapper = read(folder.url("Pack"));
    ASSERT_NE(wrapper, nullptr);
    ASSERT_EQ(wrapper->fileWrappers().size(), 3U);
    EXPECT_EQ(wrapper->fileWrapperForKey(u"a.txt")->regularFileContents()->bytes, "1");
    EXPECT_EQ(wrapper->fileWrapperForKey(u"inner")->fileWrapperForKey(u"b.txt")->regularFileContents()->bytes,
              "2");
    EXPECT_TRUE(wrapper->fileWrapperForKey(u"empty")->isDirectory());
}

TEST(FileWrapperReader, KeepsWhatItReadWhenTheFileGoes)
{
    const TemporaryFolder folder;
    folder.write("Pack/a.txt", "1");
    const auto wrapper = read(folder.url("Pack"));
    std::filesystem::remove_all(folder.file("Pack"));
    EXPECT_EQ(wrapper->fileWrapperForKey(u"a.txt")->regularFileContents()->bytes, "1");
}

TEST(FileWrapperReader, ReadsAttributes)
{
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", "x");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    const std::array<timespec, 2> times{timespec{978307200 + 100, 0}, timespec{978307200 + 250, 500'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0);
    const auto attributes = read(folder.url("a.txt"))->fileAttributes();
    EXPECT_EQ(attributes.fileType, NSFileType::Regular);
    EXPECT_EQ(attributes.posixPermissions, 0640U);
    EXPECT_EQ(attributes.modificationDate, NSDate{250.5});
    EXPECT_FALSE(attributes.extensionHidden);
}

TEST(FileWrapperReader, ReadsThatAnExtensionIsHidden)
{
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", "x");
    if (::setxattr(path.c_str(), kExtensionHiddenAttribute, "1", 1, 0) != 0)
        GTEST_SKIP() << "the file system of the temporary folder has no extended attributes";
    EXPECT_TRUE(read(folder.url("a.txt"))->fileAttributes().extensionHidden);
    ASSERT_EQ(::setxattr(path.c_str(), kExtensionHiddenAttribute, "0", 1, 0), 0);
    EXPECT_FALSE(read(folder.url("a.txt"))->fileAttributes().extensionHidden);
}

TEST(FileWrapperReader, LeavesLinksUnfollowed)
{
    const TemporaryFolder folder;
    folder.write("secret/file", "secret");
    folder.write("Pack/a", "1");
    std::filesystem::create_symlink("../secret", folder.file("Pack/folder"));
    std::filesystem::create_symlink(folder.file("secret/file"), folder.file("Pack/file"));
    std::filesystem::create_symlink("nowhere", folder.file("Pack/broken"));
    std::filesystem::create_symlink("Pack", folder.file("Top"));
    const auto wrapper = read(folder.url("Pack"));
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(wrapper->fileWrapperForKey(u"folder")->symbolicLinkDestination(), "../secret");
    EXPECT_EQ(wrapper->fileWrapperForKey(u"file")->symbolicLinkDestinationURL(), folder.url("secret/file"));
    EXPECT_TRUE(wrapper->fileWrapperForKey(u"broken")->isSymbolicLink());
    EXPECT_TRUE(read(folder.url("Top"))->isSymbolicLink());
}

TEST(FileWrapperReader, RefusesPipesAndDevices)
{
    const TemporaryFolder folder;
    folder.write("Pipe/a", "1");
    ASSERT_EQ(::mkfifo(folder.file("Pipe/fifo").c_str(), 0600), 0);
    NSError error;
    EXPECT_EQ(read(folder.url("Pipe"), &error), nullptr);
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOTSUP);
    EXPECT_NE(error.localizedDescription().find("Pipe/fifo"), std::string::npos);
    EXPECT_EQ(read(NSURL::fileURLWithPath("/dev/null"), &error), nullptr);
    EXPECT_EQ(error.code(), ENOTSUP);
}

TEST(FileWrapperReader, SaysWhatIsMissing)
{
    const TemporaryFolder folder;
    NSError error;
    EXPECT_EQ(read(folder.url("none"), &error), nullptr);
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_EQ(read(NSURL::URLWithString("https://example.com/a").value(), &error), nullptr);
    EXPECT_EQ(error.code(), EINVAL);
    EXPECT_EQ(read(folder.url("none")), nullptr);
}

TEST(FileWrapperReader, KeepsNamesOfAnyBytes)
{
    const TemporaryFolder folder;
    folder.write("Pack/\xFF\xC3 name\n", "odd");
    folder.write("Pack/caf\xC3\xA9", "even");
    const auto wrapper = read(folder.url("Pack"));
    ASSERT_NE(wrapper, nullptr);
    EXPECT_NE(wrapper->fileWrapperForKey(std::u16string{0xDCFF, 0xDCC3} + u" name\n"), nullptr);
    EXPECT_NE(wrapper->fileWrapperForKey(u"caf\u00E9"), nullptr);
}

TEST(FileWrapperReader, TakesTheNumberOffPreferredNames)
{
    const TemporaryFolder folder;
    for (const auto* name : {"12__#$!@%!#__a.txt", "__#$!@%!#__b", "1__#$!@%!#__", "1__#$!@%!#__..", "1_c"})
        folder.write(std::string("Pack/") + name, "x");
    const auto wrapper = read(folder.url("Pack"));
    const auto preferredNameOf
        = [&](const std::u16string& key) { return wrapper->fileWrapperForKey(key)->preferredFilename(); };
    EXPECT_EQ(preferredNameOf(u"12__#$!@%!#__a.txt"), u"a.txt");
    EXPECT_EQ(wrapper->fileWrapperForKey(u"12__#$!@%!#__a.txt")->filename(), u"12__#$!@%!#__a.txt");
    for (const std::u16string name : {u"__#$!@%!#__b", u"1__#$!@%!#__", u"1__#$!@%!#__..", u"1_c"})
        EXPECT_EQ(preferredNameOf(name), name);
}

TEST(FileWrapperReader, LimitsTheDepth)
{
    const TemporaryFolder folder;
    std::filesystem::path path = folder.file("Deep");
    for (std::size_t level = 0; level < NSFileWrapper::kMostDepth; ++level)
        path /= "d";
    std::filesystem::create_directories(path);
    EXPECT_NE(read(folder.url("Deep")), nullptr);
    std::filesystem::create_directories(path / "d");
    NSError error;
    EXPECT_EQ(read(folder.url("Deep"), &error), nullptr);
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), 263);
}

TEST(FileWrapperReader, LimitsTheBytesWithoutReadingThem)
{
    const TemporaryFolder folder;
    const auto path = folder.write("Pack/sparse", "");
    std::filesystem::resize_file(path, NSFileWrapper::kMostBytes + 1); // Takes no room on disk.
    NSError error;
    EXPECT_EQ(read(folder.url("Pack"), &error), nullptr);
    EXPECT_EQ(error.code(), 263);
}
