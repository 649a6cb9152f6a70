#include "tests/client/ServiceProcess.h"

#include "platform/xpc/UnixSocket.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <signal.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds kPollTime{1};
constexpr std::chrono::seconds kPatience{10};

template <typename Condition>
requires std::is_invocable_r_v<bool, Condition>

bool waitFor(Condition condition)
{
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(kPollTime);
    }
    return true;
}

bool hasOpen(pid_t process, const std::string& path)
{
    std::error_code ignored; // Descriptors come and go while they are listed.
    const auto folder = std::filesystem::path("/proc") / std::to_string(process) / "fd";
    for (std::filesystem::directory_iterator entry(folder, ignored), end; entry != end;
         entry.increment(ignored)) {
        if (std::filesystem::read_symlink(entry->path(), ignored) == path)
            return true;
    }
    return false;
}

} // namespace

std::string ServiceProcess::programPath()
{
    return std::string(CORVEL_BIN_DIR) + "/corvel-indexing";
}

ServiceProcess::ServiceProcess(const std::string& socketPath)
{
    auto program = programPath();
    auto path = socketPath;
    std::string option = "--socket";
    std::array<char*, 4> arguments{program.data(), option.data(), path.data(), nullptr};
    if (::posix_spawn(&m_process, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0)
        throw std::runtime_error("cannot start " + program);
    if (!waitFor([&] { return connectToSocket(socketPath).isValid(); })) {
        signal(SIGKILL);
        (void)waitForEnd();
        throw std::runtime_error("the service does not listen");
    }
}

ServiceProcess::~ServiceProcess()
{
    if (m_process == 0)
        return;
    signal(SIGKILL);
    (void)waitForEnd();
}

void ServiceProcess::signal(int number) const
{
    if (::kill(m_process, number) != 0)
        throw std::runtime_error("the service is gone");
}

std::optional<int> ServiceProcess::waitForEnd()
{
    int status = 0;
    while (::waitpid(m_process, &status, 0) < 0 && errno == EINTR) { }
    m_process = 0;
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

bool ServiceProcess::waitUntilOpen(const std::string& path) const
{
    return waitFor([&] { return hasOpen(m_process, path); });
}

pid_t processBehindSocket(const std::string& socketPath)
{
    const auto socket = connectToSocket(socketPath);
    ucred credentials{};
    socklen_t length = sizeof(credentials);
    if (!socket.isValid() || ::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &credentials, &length) != 0)
        return 0;
    return credentials.pid;
}
