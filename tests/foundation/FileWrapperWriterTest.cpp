#include "platform/foundation/FileWrapperWriter.h"

#include "platform/foundation/NSLog.h"
#include "tests/foundation/WrittenPackages.h"
#include "tests/support/OrdinaryUser.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <functional>
#include <sys/stat.h>

namespace {

/// What stands at the place before.
struct Before {
    const char* name;
    std::function<void(const TemporaryFolder&)> make;
};

const std::array<Before, 3> kBefores{Before{"nothing", makeNothing}, Before{"a file", makeFile},
                                     Before{"a package", makePackage}};

/// Writes over `before` with each operation failing in turn until none does.
void expectOldOrNewForEachFault(const Before& before, PackageFaults::Fault fault, bool knowsRenameKinds)
{
    const NSLogCapture silence([](std::string_view) {});
    for (std::size_t call = 0;; ++call) {
        SCOPED_TRACE(std::string(before.name) + ", call " + std::to_string(call));
        const TemporaryFolder folder;
        before.make(folder);
        const auto old = tree(folder.file("Place"));
        PackageFaults operations(call, fault);
        if (!knowsRenameKinds)
            operations.withoutRenameKinds();
        NSError error;
        const bool written
            = writeWith(operations, *newPackage(), folder.url("Place"), NSFileWrapperWritingAtomic, &error);
        const auto now = tree(folder.file("Place"));
        ASSERT_TRUE(written ? now == kNewPackage : error.code() == EIO);
        // Where a new name was put by a plain rename, nothing can take it back.
        const bool isTakenBack
            = fault == PackageFaults::Fault::FailOnce && (knowsRenameKinds || !old.empty());
        if (!written && isTakenBack) {
            ASSERT_EQ(now, old);
            ASSERT_EQ(entryCount(folder.path()), old.empty() ? 0U : 1U) << "something was left";
        }
        ASSERT_TRUE(now == old || now == kNewPackage || !knowsRenameKinds);
        if (operations.callCount() <= call) {
            ASSERT_TRUE(written);
            ASSERT_GT(call, 10U);
            break;
        }
    }
}

/// Whether the complete old or new contents are somewhere in the folder.
bool holdsEither(const fs::path& folder, const Tree& old)
{
    for (const auto& entry : fs::directory_iterator(folder)) {
        const auto found = tree(entry.path());
        if (found == old || found == kNewPackage)
            return true;
    }
    return false;
}

} // namespace

TEST(FileWrapperWriter, WritesAFile)
{
    const TemporaryFolder folder;
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({"contents"});
    NSError error;
    ASSERT_TRUE(wrapper->writeToURL(folder.url("a"), NSFileWrapperWritingAtomic, std::nullopt, &error))
        << error.localizedDescription();
    EXPECT_EQ(tree(folder.file("a")), (Tree{{"", "contents"}}));
    EXPECT_EQ(entryCount(folder.path()), 1U);
}

TEST(FileWrapperWriter, WritesOverWhateverIsThere)
{
    for (const auto& before : kBefores) {
        SCOPED_TRACE(before.name);
        const TemporaryFolder folder;
        before.make(folder);
        ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
        EXPECT_EQ(tree(folder.file("Place")), kNewPackage);
        EXPECT_EQ(entryCount(folder.path()), 1U);
    }
}

TEST(FileWrapperWriter, ReplacesAPackageByAFile)
{
    const TemporaryFolder folder;
    makePackage(folder);
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({"file"});
    ASSERT_TRUE(wrapper->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(tree(folder.file("Place")), (Tree{{"", "file"}}));
    EXPECT_EQ(entryCount(folder.path()), 1U);
}

TEST(FileWrapperWriter, ReplacesALinkAndNotWhatItPointsAt)
{
    const TemporaryFolder folder;
    folder.write("elsewhere", "untouched");
    fs::create_symlink("elsewhere", folder.file("Place"));
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(tree(folder.file("Place")), kNewPackage);
    EXPECT_EQ(tree(folder.file("elsewhere")), (Tree{{"", "untouched"}}));
}

TEST(FileWrapperWriter, RemovesOldContentsThroughNoLink)
{
    const TemporaryFolder folder;
    folder.write("elsewhere/file", "untouched");
    fs::create_directory(folder.file("Place"));
    fs::create_directory_symlink("../elsewhere", folder.file("Place/link"));
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(tree(folder.file("elsewhere")), (Tree{{"", "/"}, {"file", "untouched"}}));
}

TEST(FileWrapperWriter, RemovesOldContentsThatNobodyMayWrite)
{
    const TemporaryFolder folder;
    folder.write("Place/sealed/a", "old");
    ASSERT_EQ(::chmod(folder.file("Place/sealed").c_str(), 0500), 0);
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(entryCount(folder.path()), 1U);
}

TEST(FileWrapperWriter, WritesBesideNothingOnlyWhenNotAtomic)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("new"), 0));
    EXPECT_EQ(tree(folder.file("new")), kNewPackage);
    for (const auto& before : {kBefores[1], kBefores[2]}) {
        const TemporaryFolder other;
        before.make(other);
        const auto old = tree(other.file("Place"));
        NSError error;
        EXPECT_FALSE(newPackage()->writeToURL(other.url("Place"), 0, std::nullopt, &error));
        EXPECT_EQ(error.code(), EEXIST);
        EXPECT_EQ(tree(other.file("Place")), old);
    }
}

TEST(FileWrapperWriter, UpdatesNamesWhenAsked)
{
    const TemporaryFolder folder;
    const auto package = newPackage();
    package->addRegularFileWithContents({"2"}, u"a");
    ASSERT_TRUE(package->writeToURL(folder.url("Pack"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(package->filename(), std::nullopt);
    ASSERT_TRUE(package->writeToURL(folder.url("Pack"),
                                    NSFileWrapperWritingAtomic | NSFileWrapperWritingWithNameUpdating));
    EXPECT_EQ(package->filename(), u"Pack");
    const auto second = package->fileWrapperForKey(u"1__#$!@%!#__a");
    EXPECT_EQ(second->filename(), u"1__#$!@%!#__a");
    EXPECT_EQ(second->preferredFilename(), u"a");
}

TEST(FileWrapperWriter, WritesIntoAFolderThatALinkLeadsTo)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.file("real"));
    fs::create_directory_symlink("real", folder.file("link"));
    NSError error;
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(newPackage()->writeToURL(folder.url("link/Place"), NSFileWrapperWritingAtomic,
                                             std::nullopt, &error))
            << error.localizedDescription();
        EXPECT_EQ(tree(folder.file("real/Place")), kNewPackage);
        EXPECT_EQ(entryCount(folder.file("real")), 1U);
    }
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
}

TEST(FileWrapperWriter, RemovesAnOldPackageThatNobodyMayRead)
{
    const OrdinaryUser user;
    const TemporaryFolder folder;
    makePackage(folder);
    fs::permissions(folder.file("Place/gone"), fs::perms(0300));
    fs::permissions(folder.file("Place"), fs::perms(0300));
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(tree(folder.file("Place")), kNewPackage);
    EXPECT_EQ(entryCount(folder.path()), 1U);
}

TEST(FileWrapperWriter, RemovesAsMuchOfAFolderAsItCan)
{
    const TemporaryFolder folder;
    std::string path = "Place/m";
    for (std::size_t level = 0; level < 70; ++level) // Deeper than is removed.
        path += "/d";
    fs::create_directories(folder.file(path));
    folder.write("Place/a", "old");
    folder.write("Place/z", "old");
    std::string log;
    const NSLogCapture capture([&log](std::string_view line) { log += line; });
    ASSERT_TRUE(newPackage()->writeToURL(folder.url("Place"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(tree(folder.file("Place")), kNewPackage);
    EXPECT_NE(log.find("Place has its new contents, but the old ones stay in .corvel-"), std::string::npos);
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        const std::size_t expected = entry.path().filename() == "Place" ? 3 : 1; // Of the old one m is left.
        EXPECT_EQ(entryCount(entry.path()), expected);
    }
}

TEST(FileWrapperWriter, ReadsBackWhatItWrote)
{
    const TemporaryFolder folder;
    const auto package = newPackage();
    package->addRegularFileWithContents({std::string("\0\xFF", 2)}, std::u16string{u'n', 0xDCFE});
    ASSERT_TRUE(package->writeToURL(folder.url("Pack"), NSFileWrapperWritingAtomic));
    const auto read = NSFileWrapper::initWithURL(folder.url("Pack"), NSFileWrapperReadingOptions::Immediate);
    ASSERT_NE(read, nullptr);
    ASSERT_TRUE(read->writeToURL(folder.url("Again"), NSFileWrapperWritingAtomic));
    EXPECT_EQ(tree(folder.file("Again")), tree(folder.file("Pack")));
    EXPECT_EQ(tree(folder.file("Again")).at("n\xFE"), std::string("\0\xFF", 2));
}

TEST(FileWrapperWriter, RefusesKeysThatLeaveTheFolder)
{
    const TemporaryFolder folder;
    const auto evil = NSFileWrapper::initRegularFileWithContents({"x"});
    for (const std::u16string key : {u"../evil", u"..", u"", u"a/b"}) {
        const auto package = NSFileWrapper::initDirectoryWithFileWrappers({{key, evil}});
        NSError error;
        EXPECT_FALSE(
            package->writeToURL(folder.url("Pack"), NSFileWrapperWritingAtomic, std::nullopt, &error));
        EXPECT_EQ(error.code(), EINVAL);
        EXPECT_EQ(entryCount(folder.path()), 0U);
    }
}

TEST(FileWrapperWriter, SaysWhyItCannotWrite)
{
    const TemporaryFolder folder;
    NSError error;
    const auto wrapper = NSFileWrapper::initRegularFileWithContents({"x"});
    EXPECT_FALSE(wrapper->writeToURL(folder.url("none/a"), NSFileWrapperWritingAtomic, std::nullopt, &error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(
        wrapper->writeToURL(NSURL::fileURLWithPath("/"), NSFileWrapperWritingAtomic, std::nullopt, &error));
    EXPECT_EQ(error.code(), EINVAL);
    EXPECT_FALSE(wrapper->writeToURL(folder.url(std::string(300, 'n')), NSFileWrapperWritingAtomic,
                                     std::nullopt, &error));
    EXPECT_EQ(error.code(), ENAMETOOLONG);
    EXPECT_EQ(entryCount(folder.path()), 0U);
}

TEST(FileWrapperWriter, SyncsEveryFileAndFolderBeforeTheyTakeTheirPlace)
{
    const TemporaryFolder folder;
    makePackage(folder);
    PackageFaults operations;
    ASSERT_TRUE(writeWith(operations, *newPackage(), folder.url("Place")));
    EXPECT_EQ(operations.syncCountBeforeRename(), 4U); // a, inner/b, inner and the package
    EXPECT_EQ(operations.syncCountAfterRename(), 1U); // the folder around it
}

TEST(FileWrapperWriter, LeavesTheOldContentsWhereAnyCallFails)
{
    for (const auto& before : kBefores)
        expectOldOrNewForEachFault(before, PackageFaults::Fault::FailOnce, true);
}

TEST(FileWrapperWriter, LeavesOldOrNewContentsWhereAllCallsFailFromOneOn)
{
    for (const auto& before : kBefores)
        expectOldOrNewForEachFault(before, PackageFaults::Fault::FailFromThereOn, true);
}

TEST(FileWrapperWriter, LeavesTheOldContentsWhereNothingCanBeExchanged)
{
    for (const auto& before : kBefores)
        expectOldOrNewForEachFault(before, PackageFaults::Fault::FailOnce, false);
}

TEST(FileWrapperWriter, LeavesOldOrNewContentsWhenKilled)
{
    for (const auto& before : kBefores) {
        for (std::size_t call = 0;; ++call) {
            SCOPED_TRACE(std::string(before.name) + ", call " + std::to_string(call));
            const TemporaryFolder folder;
            before.make(folder);
            const auto old = tree(folder.file("Place"));
            const bool wasKilled = killBeforeCall(call, folder.url("Place"), true);
            const auto now = tree(folder.file("Place"));
            ASSERT_TRUE(now == old || now == kNewPackage);
            if (!wasKilled) {
                ASSERT_EQ(now, kNewPackage);
                break;
            }
        }
    }
}

TEST(FileWrapperWriter, LeavesWholeContentsBesideWhenKilledWithoutExchange)
{
    for (std::size_t call = 0;; ++call) {
        SCOPED_TRACE(call);
        const TemporaryFolder folder;
        makePackage(folder);
        const auto old = tree(folder.file("Place"));
        const bool wasKilled = killBeforeCall(call, folder.url("Place"), false);
        ASSERT_TRUE(holdsEither(folder.path(), old));
        if (!wasKilled)
            break;
    }
}
