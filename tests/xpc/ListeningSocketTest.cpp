#include "platform/xpc/ListeningSocket.h"

#include "platform/xpc/SocketAddress.h"
#include "platform/xpc/UnixSocket.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sys/socket.h>
#include <sys/stat.h>

namespace {

mode_t modeOf(const std::string& path)
{
    struct stat status { };

    return ::lstat(path.c_str(), &status) == 0 ? status.st_mode & 0777U : 0;
}

/// What a process that was killed leaves behind.
void leaveStaleSocket(const std::string& path)
{
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const auto address = socketAddress(path);
    ASSERT_TRUE(address);
    ASSERT_EQ(::bind(socket.get(), asGeneric(*address), sizeof(*address)), 0);
}

} // namespace

TEST(ListeningSocket, IsPrivateAndInAPrivateFolder)
{
    const TemporaryFolder folder;
    const auto path = folder.file("new/s");
    const auto socket = ListeningSocket::listenAt(path);
    ASSERT_TRUE(socket);
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(folder.file("new")), 0700U);
    EXPECT_TRUE(connectToSocket(path).isValid());
}

TEST(ListeningSocket, IsRemovedAtTheEnd)
{
    const TemporaryFolder folder;
    const auto path = folder.file("s");
    ASSERT_TRUE(ListeningSocket::listenAt(path));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ListeningSocket, ReplacesAStaleSocketButNotOneInUse)
{
    const TemporaryFolder folder;
    const auto path = folder.file("s");
    leaveStaleSocket(path);
    const auto first = ListeningSocket::listenAt(path);
    ASSERT_TRUE(first);
    NSError error;
    EXPECT_FALSE(ListeningSocket::listenAt(path, &error));
    EXPECT_EQ(error.code(), EADDRINUSE);
    EXPECT_TRUE(connectToSocket(path).isValid());
}

TEST(ListeningSocket, LeavesOtherFilesAlone)
{
    const TemporaryFolder folder;
    const auto path = folder.write("s", "precious");
    NSError error;
    EXPECT_FALSE(ListeningSocket::listenAt(path, &error));
    EXPECT_EQ(error.code(), EEXIST);
    EXPECT_EQ(std::filesystem::file_size(path), 8U);
}

TEST(ListeningSocket, DoesNotRemoveWhatAnotherPutInItsPlace)
{
    const TemporaryFolder folder;
    const auto path = folder.file("s");
    auto first = ListeningSocket::listenAt(path);
    ASSERT_TRUE(first);
    std::filesystem::rename(path, folder.file("old"));
    const auto second = ListeningSocket::listenAt(path);
    ASSERT_TRUE(second);
    first.reset();
    EXPECT_TRUE(connectToSocket(path).isValid());
}

TEST(ListeningSocket, RefusesPathsThatAreNoAddress)
{
    NSError error;
    EXPECT_FALSE(ListeningSocket::listenAt("", &error));
    EXPECT_EQ(error.code(), EINVAL);
    EXPECT_FALSE(ListeningSocket::listenAt("/tmp/" + std::string(200, 'x'), &error));
    EXPECT_EQ(error.code(), ENAMETOOLONG);
    EXPECT_FALSE(ListeningSocket::listenAt("/proc/no/such/folder/s", &error));
}
