#include "service/ServiceDelegate.h"

#include "platform/search/SKIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <sys/socket.h>

namespace {

/// The two ends of a connection that no listener has seen.
struct SocketPair {
    SocketPair()
    {
        std::array<int, 2> ends{-1, -1};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()), 0);
        service = FileDescriptor(ends[0]);
        client = FileDescriptor(ends[1]);
    }

    FileDescriptor service;
    FileDescriptor client;
};

class ServiceDelegateTest : public testing::Test {
protected:
    ServiceDelegateTest()
    {
        NSXPCListenerOptions options;
        options.socketPath = folder.file("s");
        listener = NSXPCListener::serviceListener(options);
    }

    TemporaryFolder folder;
    std::unique_ptr<NSXPCListener> listener;
    NSXPCConnectionContext context{1};
    ServiceDelegate delegate;
};

} // namespace

TEST_F(ServiceDelegateTest, AcceptsAndResumes)
{
    ASSERT_TRUE(listener);
    SocketPair sockets;
    NSXPCConnection connection(std::move(sockets.service), context);
    EXPECT_TRUE(connection.isOver());
    EXPECT_TRUE(delegate.listener_shouldAcceptNewConnection(*listener, connection));
    EXPECT_FALSE(connection.isOver());
    sockets.client = FileDescriptor();
}

TEST_F(ServiceDelegateTest, GivesEveryConnectionAnObjectOfItsOwn)
{
    ASSERT_TRUE(listener);
    SocketPair first;
    SocketPair second;
    NSXPCConnection firstConnection(std::move(first.service), context);
    NSXPCConnection secondConnection(std::move(second.service), context);
    // Every object loads the extractors once, when it is made.
    const auto before = SKDefaultExtractorPlugInLoadCount();
    EXPECT_TRUE(delegate.listener_shouldAcceptNewConnection(*listener, firstConnection));
    EXPECT_EQ(SKDefaultExtractorPlugInLoadCount(), before + 1);
    EXPECT_TRUE(delegate.listener_shouldAcceptNewConnection(*listener, secondConnection));
    EXPECT_EQ(SKDefaultExtractorPlugInLoadCount(), before + 2);
    first.client = FileDescriptor();
    second.client = FileDescriptor();
}
