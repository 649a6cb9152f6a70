#include "client/IndexingClient.h"

#include "platform/xpc/UnixSocket.h"
#include "tests/client/ServiceProcess.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <signal.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::size_t kClientCount = 8;

/// The default socket lies in a folder of the test's; what was started there is stopped.
class ServiceOnDemand : public testing::Test {
protected:
    ServiceOnDemand()
    {
        EXPECT_EQ(::setenv("XDG_RUNTIME_DIR", folder.path().c_str(), 1), 0);
        options.servicePath = ServiceProcess::programPath();
    }

    ~ServiceOnDemand() override
    {
        const auto process = processBehindSocket(defaultSocketPath());
        EXPECT_TRUE(process <= 1 || ::kill(process, SIGTERM) == 0);
        EXPECT_EQ(::unsetenv("XDG_RUNTIME_DIR"), 0);
    }

    TemporaryFolder folder;
    IndexingClientOptions options;
};

} // namespace

TEST_F(ServiceOnDemand, IsStartedAndAnswers)
{
    NSError error;
    const auto client = IndexingClient::connect(options, &error);
    ASSERT_TRUE(client) << error.localizedDescription();
    const auto reply = client->removeFileURLs({}, folder.url("no.index"), &error);
    ASSERT_TRUE(reply) << error.localizedDescription();
    ASSERT_TRUE(reply->error);
    EXPECT_EQ(reply->error->domain(), "CVLIndexingError");
    EXPECT_EQ(reply->error->code(), 10001);
    EXPECT_FALSE(reply->itemIdentifier);
}

TEST_F(ServiceOnDemand, IsNoChildOfItsHostAndServesTheNextOne)
{
    const auto first = IndexingClient::connect(options);
    ASSERT_TRUE(first);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
    const auto process = processBehindSocket(defaultSocketPath());
    EXPECT_NE(::getsid(process), ::getsid(0));
    const auto second = IndexingClient::connect(options);
    ASSERT_TRUE(second);
    EXPECT_EQ(processBehindSocket(defaultSocketPath()), process);
}

TEST_F(ServiceOnDemand, IsOneThoughManyStartIt)
{
    std::vector<std::unique_ptr<IndexingClient>> clients(kClientCount);
    std::vector<std::thread> threads;
    for (auto& client : clients)
        threads.emplace_back([&] { client = IndexingClient::connect(options); });
    for (auto& thread : threads)
        thread.join();
    for (const auto& client : clients) {
        ASSERT_TRUE(client);
        EXPECT_TRUE(client->removeFileURLs({}, folder.url("no.index")));
    }
}

TEST_F(ServiceOnDemand, FollowsOneThatWasKilled)
{
    const auto first = IndexingClient::connect(options);
    ASSERT_TRUE(first);
    ASSERT_EQ(::kill(processBehindSocket(defaultSocketPath()), SIGKILL), 0);
    NSError error;
    EXPECT_FALSE(first->removeFileURLs({}, folder.url("no.index"), &error));
    const auto second = IndexingClient::connect(options, &error);
    ASSERT_TRUE(second) << error.localizedDescription();
    EXPECT_TRUE(second->removeFileURLs({}, folder.url("no.index")));
}

TEST_F(ServiceOnDemand, SaysWhyItCannotBeStarted)
{
    NSError error;
    options.servicePath = folder.file("missing");
    EXPECT_FALSE(IndexingClient::connect(options, &error));
    EXPECT_EQ(error.code(), ENOENT);
    options.servicePath = "/bin/false";
    EXPECT_FALSE(IndexingClient::connect(options, &error));
    EXPECT_NE(error.localizedDescription().find("ended before it listened"), std::string::npos);
}

TEST(IndexingClient, NeverStartsAServiceForANamedSocket)
{
    const TemporaryFolder folder;
    IndexingClientOptions options;
    options.socketPath = folder.file("s");
    options.servicePath = ServiceProcess::programPath();
    NSError error;
    EXPECT_FALSE(IndexingClient::connect(options, &error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(std::filesystem::exists(options.socketPath));
}

TEST(IndexingClient, SaysAtOnceThatTheServiceDied)
{
    const TemporaryFolder folder;
    IndexingClientOptions options;
    options.socketPath = folder.file("s");
    const ServiceProcess service(options.socketPath);
    const auto client = IndexingClient::connect(options);
    ASSERT_TRUE(client);
    service.signal(SIGSTOP);
    NSError error;
    std::optional<IndexingReply> reply;
    std::thread caller([&] { reply = client->removeFileURLs({}, folder.url("no.index"), &error); });
    service.signal(SIGKILL);
    caller.join();
    EXPECT_FALSE(reply);
    EXPECT_EQ(error.code(), ECONNRESET);
    EXPECT_NE(error.localizedDescription().find("ended before it answered"), std::string::npos);
    EXPECT_FALSE(client->setCustomFolderBookmarkData("x", &error));
}

TEST(IndexingClient, DoesNotConnectToAnOrdinaryFile)
{
    const TemporaryFolder folder;
    IndexingClientOptions options;
    options.socketPath = folder.file("not-a-socket");
    folder.write("not-a-socket", "x");
    NSError error;
    EXPECT_FALSE(IndexingClient::connect(options, &error));
    EXPECT_EQ(error.code(), ECONNREFUSED);
}
