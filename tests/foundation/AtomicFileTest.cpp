#include "platform/foundation/AtomicFile.h"

#include "tests/foundation/FailingOperations.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::AnyOf;
using testing::HasSubstr;

namespace {

std::string contentsOf(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

// create, write, sync, rename, and the folder's sync.
constexpr int kCallCount = 5;

TEST(AtomicFile, WritesAFileForItsOwnerOnly)
{
    const TemporaryFolder folder;
    const auto path = folder.file("new");
    FailingOperations operations(0);
    EXPECT_TRUE(writeFileAtomically("text", path, operations));
    EXPECT_EQ(operations.callCount(), kCallCount);
    EXPECT_EQ(contentsOf(path), "text");

    struct stat status { };

    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST(AtomicFile, LeavesTheOldFileWhenACallFails)
{
    for (int call = 1; call <= kCallCount; ++call) {
        const TemporaryFolder folder;
        const auto path = folder.write("file", "old");
        FailingOperations operations(call);
        NSError error;
        EXPECT_FALSE(writeFileAtomically("a new text", path, operations, &error)) << call;
        EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
        EXPECT_EQ(error.code(), EIO);
        EXPECT_THAT(error.localizedDescription(), HasSubstr(path));
        EXPECT_EQ(contentsOf(path), call < kCallCount ? "old" : "a new text") << call;
        EXPECT_FALSE(std::filesystem::exists(path + ".new")) << call;
    }
}

TEST(AtomicFile, IsOldOrNewWhereverTheProcessIsKilled)
{
    for (int call = 1; call <= kCallCount; ++call) {
        const TemporaryFolder folder;
        const auto path = folder.write("file", "old");
        const pid_t child = ::fork();
        if (child == 0) {
            FailingOperations operations(call, [] { (void)::raise(SIGKILL); });
            (void)writeFileAtomically("a new text", path, operations);
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status)) << call;
        EXPECT_EQ(contentsOf(path), call < kCallCount ? "old" : "a new text") << call;
        // What the dead process left is in nobody's way.
        EXPECT_TRUE(writeFileAtomically("newer", path, FileOperations::system()));
        EXPECT_EQ(contentsOf(path), "newer");
    }
}

TEST(AtomicFile, ReplacesWhatALinkPointsAt)
{
    const TemporaryFolder folder;
    const auto target = folder.write("kept/file", "old");
    std::filesystem::create_symlink(target, folder.file("link"));
    EXPECT_TRUE(writeFileAtomically("new", folder.file("link"), FileOperations::system()));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link")));
    EXPECT_EQ(contentsOf(target), "new");
}

TEST(AtomicFile, DoesNotWriteThroughALinkInItsWay)
{
    const TemporaryFolder folder;
    const auto other = folder.write("other", "untouched");
    std::filesystem::create_symlink(other, folder.file("file.new"));
    NSError error;
    EXPECT_FALSE(writeFileAtomically("new", folder.file("file"), FileOperations::system(), &error));
    EXPECT_EQ(error.code(), ELOOP);
    EXPECT_EQ(contentsOf(other), "untouched");
}

} // namespace
