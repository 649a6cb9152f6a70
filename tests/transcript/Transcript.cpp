#include "tests/transcript/Transcript.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

namespace {

constexpr std::chrono::seconds kStartTime{30};
constexpr std::chrono::milliseconds kPollInterval{5};

bool listens(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(static_cast<char*>(address.sun_path), sizeof(address.sun_path) - 1);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

std::string program(const char* name)
{
    return std::string(CORVEL_BIN_DIR) + "/" + name;
}

} // namespace

Transcript::Transcript() = default;

ChildProcess::Outcome Transcript::corvel(const std::vector<std::string>& arguments,
                                         std::string_view input) const
{
    std::vector<std::string> command{program("corvel")};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return ChildProcess(command, m_folder.path().native(), input).wait();
}

std::unique_ptr<ChildProcess> Transcript::startCorvel(const std::vector<std::string>& arguments,
                                                      const std::vector<std::string>& environment) const
{
    std::vector<std::string> command{program("corvel")};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return std::make_unique<ChildProcess>(command, m_folder.path().native(), std::string_view(), environment);
}

ChildProcess::Outcome Transcript::index(const std::vector<std::string>& arguments) const
{
    std::vector<std::string> command{"index", "--index", "notes.index", "--socket", "service.sock"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return corvel(command);
}

std::vector<std::string> Transcript::search(const std::string& query, std::size_t limit) const
{
    const auto outcome = corvel(
        {"search", "--index", "notes.index", "--json", "--limit", std::to_string(limit), "--", query});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    std::vector<std::string> paths;
    for (const auto& hit : nlohmann::json::parse(outcome.output)) {
        const auto path = hit.at("path").get<std::string>();
        paths.push_back(std::filesystem::path(path).lexically_relative(m_folder.path()).native());
    }
    return paths;
}

void Transcript::createIndex() const
{
    const auto outcome = corvel({"create", "notes.index"});
    ASSERT_EQ(outcome.status, 0) << outcome.error;
}

void Transcript::startService()
{
    const auto socket = m_folder.file("service.sock");
    m_service = std::make_unique<ChildProcess>(
        std::vector<std::string>{program("corvel-indexing"), "--socket", socket, "--idle-timeout", "0"},
        m_folder.path().native());
    const auto deadline = std::chrono::steady_clock::now() + kStartTime;
    while (!listens(socket)) {
        if (std::chrono::steady_clock::now() > deadline)
            throw std::runtime_error("the service does not listen");
        std::this_thread::sleep_for(kPollInterval);
    }
}
