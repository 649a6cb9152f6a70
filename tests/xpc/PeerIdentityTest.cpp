#include "platform/xpc/PeerIdentity.h"

#include "platform/foundation/FileDescriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <sys/socket.h>
#include <unistd.h>

TEST(PeerIdentity, AcceptsTheSameUserOnly)
{
    EXPECT_TRUE(isPeerAccepted(1000, 1000));
    EXPECT_FALSE(isPeerAccepted(1001, 1000));
    EXPECT_FALSE(isPeerAccepted(0, 1000));
    EXPECT_FALSE(isPeerAccepted(1000, 0));
    EXPECT_FALSE(isPeerAccepted(std::nullopt, 1000));
}

TEST(PeerIdentity, TellsTheUserAtTheOtherEnd)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    const FileDescriptor first(ends[0]);
    const FileDescriptor second(ends[1]);
    EXPECT_EQ(userOfPeer(first.get()), ::geteuid());
}

TEST(PeerIdentity, KnowsNobodyBehindWhatIsNoSocket)
{
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const FileDescriptor first(ends[0]);
    const FileDescriptor second(ends[1]);
    EXPECT_EQ(userOfPeer(first.get()), std::nullopt);
    EXPECT_EQ(userOfPeer(-1), std::nullopt);
}
