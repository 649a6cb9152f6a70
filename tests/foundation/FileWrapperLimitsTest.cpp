#include "platform/foundation/FileWrapperWriter.h"
#include "tests/foundation/WrittenPackages.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

/// Folders within one another; the innermost lies in `depth` others.
NSFileWrapper::Ref nestedFolders(std::size_t depth)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    for (std::size_t level = 0; level < depth; ++level)
        folder = NSFileWrapper::initDirectoryWithFileWrappers({{u"d", folder}});
    return folder;
}

/// The same member, many times.
NSFileWrapper::Ref folderOf(const NSFileWrapper::Ref& member, std::size_t count)
{
    NSFileWrapper::FileWrappers members;
    for (std::size_t index = 0; index < count; ++index)
        members.emplace(std::u16string(1, static_cast<char16_t>(0x100 + index % 0x8000))
                            + std::u16string(1, static_cast<char16_t>(0x100 + index / 0x8000)),
                        member);
    return NSFileWrapper::initDirectoryWithFileWrappers(members);
}

/// That the wrapper is refused for `code`, before anything is written.
void expectRefused(NSFileWrapper& wrapper, int code)
{
    const TemporaryFolder folder;
    makePackage(folder);
    const auto old = tree(folder.file("Place"));
    PackageFaults operations;
    NSError error;
    EXPECT_FALSE(writeWith(operations, wrapper, folder.url("Place"), NSFileWrapperWritingAtomic, &error));
    EXPECT_EQ(error.code(), code);
    EXPECT_EQ(operations.callCount(), 0U);
    EXPECT_EQ(tree(folder.file("Place")), old);
}

} // namespace

TEST(FileWrapperLimits, WritesAndReadsFoldersAsDeepAsTheLimit)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(
        nestedFolders(NSFileWrapper::kMostDepth)->writeToURL(folder.url("Deep"), NSFileWrapperWritingAtomic));
    EXPECT_NE(NSFileWrapper::initWithURL(folder.url("Deep"), NSFileWrapperReadingOptions::Immediate),
              nullptr);
    expectRefused(*nestedFolders(NSFileWrapper::kMostDepth + 1), ELOOP);
}

TEST(FileWrapperLimits, RefusesMoreMembersThanAreRead)
{
    const auto member = NSFileWrapper::initRegularFileWithContents({});
    expectRefused(*folderOf(member, NSFileWrapper::kMostMembers + 1), EFBIG);
    const auto half = folderOf(member, NSFileWrapper::kMostMembers / 2);
    expectRefused(*NSFileWrapper::initDirectoryWithFileWrappers({{u"a", half}, {u"b", half}}), EFBIG);
}

TEST(FileWrapperLimits, RefusesMoreBytesThanAreRead)
{
    constexpr std::size_t kMemberCount = 128;
    const auto member = NSFileWrapper::initRegularFileWithContents(
        {std::string(NSFileWrapper::kMostBytes / kMemberCount, 'x')});
    const auto package = folderOf(member, kMemberCount);
    package->addRegularFileWithContents({"x"}, u"one more");
    expectRefused(*package, EFBIG);
}

TEST(FileWrapperLimits, RefusesAFolderThatHoldsItself)
{
    const TemporaryFolder folder;
    const auto package = NSFileWrapper::initDirectoryWithFileWrappers({});
    package->setPreferredFilename(u"self");
    package->addFileWrapper(package);
    NSError error;
    EXPECT_FALSE(package->writeToURL(folder.url("Pack"), NSFileWrapperWritingAtomic, std::nullopt, &error));
    EXPECT_EQ(error.code(), ELOOP);
    EXPECT_EQ(entryCount(folder.path()), 0U);
    package->removeFileWrapper(*package);
}
