#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <set>
#include <sstream>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

using testing::HasSubstr;

namespace {

/// The process that listens on a socket.
pid_t listener(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(static_cast<char*>(address.sun_path), sizeof(address.sun_path) - 1);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ucred credentials{};
    socklen_t size = sizeof(credentials);
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0
        || ::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0)
        return -1;
    return credentials.pid;
}

class ServiceLoss : public Transcript { };

TEST_F(ServiceLoss, BeforeTheRunIsAFailure)
{
    createIndex();
    folder().write("a.txt", "harbour");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"index", "--index", "notes.index", "--socket", "service.sock", "a.txt"},
          {"remove", "--index", "notes.index", "--socket", "service.sock", "a.txt"},
          {"move", "--index", "notes.index", "--socket", "service.sock", "a.txt", "b.txt"}}) {
        const auto outcome = corvel(command);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_THAT(outcome.error, HasSubstr("corvel: indexing service: "));
    }
}

void writeFiles(const TemporaryFolder& folder, std::size_t count)
{
    for (std::size_t number = 0; number < count; ++number)
        folder.write("library/" + std::to_string(number) + ".txt", "harbour");
}

/// What a run answered for its items.
struct Answers {
    std::set<std::string> indexed;
    std::set<std::string> failed;
};

Answers answersIn(const std::string& output)
{
    Answers answers;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);) {
        const auto item = nlohmann::json::parse(line);
        const auto& error = item.at("error");
        EXPECT_TRUE(error.is_null() || error.at("domain") == "corvel") << line;
        (error.is_null() ? answers.indexed : answers.failed).insert(item.at("path"));
    }
    return answers;
}

TEST_F(ServiceLoss, InTheMiddleReportsEveryItemThatWasNotAnswered)
{
    constexpr std::size_t kFiles = 3000;
    createIndex();
    startService();
    writeFiles(folder(), kFiles);
    const auto run
        = startCorvel({"index", "--index", "notes.index", "--socket", "service.sock", "--json", "library"});
    while (run->outputSoFar().find('\n') == std::string::npos)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    service().sendSignal(SIGKILL);
    const auto outcome = run->wait();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr(" failed\n"));

    const auto answers = answersIn(outcome.output);
    EXPECT_EQ(answers.indexed.size() + answers.failed.size(), kFiles);
    EXPECT_FALSE(answers.failed.empty());
    EXPECT_EQ(corvel({"check", "notes.index"}).status, 0);
    const auto hits = search("harbour", kFiles);
    const std::set<std::string> found(hits.begin(), hits.end());
    EXPECT_TRUE(std::includes(found.begin(), found.end(), answers.indexed.begin(), answers.indexed.end()));
}

TEST_F(ServiceLoss, IsNoneWhenTheServiceIsStartedOnDemand)
{
    createIndex();
    folder().write("a.txt", "harbour");
    const auto outcome = startCorvel({"index", "--index", "notes.index", "--jobs", "4", "a.txt"},
                                     {"XDG_RUNTIME_DIR=" + folder().path().native()})
                             ->wait();
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(search("harbour").size(), 1U);
    const auto process = listener(folder().file("corvel/indexing.sock"));
    ASSERT_GT(process, 0);
    EXPECT_EQ(::kill(process, SIGTERM), 0);
}

} // namespace
