#include "platform/foundation/FileWrapperWriter.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSURLResourceValues.h"
#include "tests/foundation/WrittenPackages.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

unsigned permissionsOf(const fs::path& path)
{
    return static_cast<unsigned>(fs::symlink_status(path).permissions());
}

NSFileWrapper::Ref withPermissions(NSFileWrapper::Ref wrapper, unsigned permissions)
{
    NSFileAttributes attributes;
    attributes.posixPermissions = permissions;
    wrapper->setFileAttributes(attributes);
    return wrapper;
}

} // namespace

TEST(FileWrapperAttributes, WritesAttributes)
{
    const TemporaryFolder folder;
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({"x"});
    NSFileAttributes attributes;
    attributes.posixPermissions = 0440;
    attributes.modificationDate = NSDate{1000.25};
    attributes.extensionHidden = true;
    wrapper->setFileAttributes(attributes);
    ASSERT_TRUE(wrapper->writeToURL(folder.url("a"), NSFileWrapperWritingAtomic));
    const auto read = NSFileWrapper::initWithURL(folder.url("a"), NSFileWrapperReadingOptions::Immediate);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->fileAttributes().posixPermissions, 0440U);
    EXPECT_EQ(read->fileAttributes().modificationDate, NSDate{1000.25});
}

TEST(FileWrapperAttributes, WritesNothingThatItsOwnerCannotRead)
{
    const TemporaryFolder folder;
    auto inner = withPermissions(NSFileWrapper::initDirectoryWithFileWrappers({}), 0);
    inner->addFileWrapper([] {
        auto file = withPermissions(NSFileWrapper::initRegularFileWithContents({"x"}), 0);
        file->setPreferredFilename(u"file");
        return file;
    }());
    auto package = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner", inner}});
    ASSERT_TRUE(package->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(permissionsOf(folder.file("Place/inner")), 0700U);
    EXPECT_EQ(permissionsOf(folder.file("Place/inner/file")), 0400U);
}

TEST(FileWrapperAttributes, WritesNothingThatChangesAUser)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(withPermissions(NSFileWrapper::initRegularFileWithContents({"x"}), 07755)
                    ->writeToURL(folder.url("file"), NSFileWrapperWritingAtomic));
    ASSERT_TRUE(withPermissions(NSFileWrapper::initDirectoryWithFileWrappers({}), 07750)
                    ->writeToURL(folder.url("folder"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(permissionsOf(folder.file("file")), 0755U);
    EXPECT_EQ(permissionsOf(folder.file("folder")), 0750U);
}

TEST(FileWrapperAttributes, TakesOverThePermissionsOfWhatItReplaces)
{
    const TemporaryFolder folder;
    makePackage(folder);
    folder.write("file", "old");
    fs::permissions(folder.file("Place"), fs::perms(0710));
    fs::permissions(folder.file("file"), fs::perms(0604));
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    ASSERT_TRUE(NSFileWrapper::initRegularFileWithContents({"new"})->writeToURL(folder.url("file"),
                                                                                NSFileWrapperWritingAtomic));
    EXPECT_EQ(permissionsOf(folder.file("Place")), 0710U);
    EXPECT_EQ(permissionsOf(folder.file("file")), 0604U);
    ASSERT_TRUE(
        withPermissions(newPackage(), 0750)->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(permissionsOf(folder.file("Place")), 0750U);
}

TEST(FileWrapperAttributes, TakesOverNoPermissionsOfAnotherKind)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("usual"), NSFileWrapperWritingAtomic));
    makeFile(folder);
    fs::permissions(folder.file("Place"), fs::perms(0711));
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(permissionsOf(folder.file("Place")), permissionsOf(folder.file("usual")));
}

TEST(FileWrapperAttributes, TakesOverWhatIsKeptBesideTheContentsWhereverItIsKilled)
{
    const NSURLResourceValues values{true, NSDate{12345.5}, true};
    for (std::size_t call = 0;; ++call) {
        SCOPED_TRACE(call);
        const TemporaryFolder folder;
        makePackage(folder);
        if (!values.setForURL(folder.url("Place")))
            GTEST_SKIP() << "the file system has no extended attributes";
        const bool wasKilled = killBeforeCall(call, folder.url("Place"), true);
        const auto kept = NSURLResourceValues::resourceValuesOfURL(folder.url("Place"));
        ASSERT_TRUE(kept);
        ASSERT_EQ(kept->hasHiddenExtension, true);
        ASSERT_EQ(kept->creationDate, NSDate{12345.5});
        ASSERT_EQ(kept->isPackage, true);
        if (!wasKilled)
            break;
    }
}

TEST(FileWrapperAttributes, WritesWherePermissionsCannotBeSet)
{
    for (const int reason : {EPERM, ENOTSUP, ENOSYS}) {
        const TemporaryFolder folder;
        std::string log;
        const NSLogCapture capture([&log](std::string_view line) { log += line; });
        auto file = withPermissions(NSFileWrapper::initRegularFileWithContents({"x"}), 0600);
        constexpr std::size_t kPermissionsCall = 3; // Behind opening the folder, making and writing the file.
        PackageFaults operations(kPermissionsCall, PackageFaults::Fault::FailOnce, reason);
        EXPECT_TRUE(writeWith(operations, *file, folder.url("file")));
        EXPECT_EQ(tree(folder.file("file")), (Tree{{"", "x"}}));
        EXPECT_NE(log.find("has other permissions than it should"), std::string::npos);
    }
}
