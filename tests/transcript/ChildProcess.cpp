#include "tests/transcript/ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int kPatienceMilliseconds = 60'000;
constexpr std::size_t kMaximumOutput = std::size_t{64} << 20;

FileDescriptor memoryFile(std::string_view bytes = {})
{
    FileDescriptor file(::memfd_create("corvel-test", MFD_CLOEXEC));
    if (!file.isValid() || !writeAll(file.get(), bytes) || ::lseek(file.get(), 0, SEEK_SET) != 0)
        throw std::system_error(errno, std::generic_category(), "memfd_create");
    return file;
}

std::vector<char*> pointers(std::vector<std::string>& strings)
{
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (auto& string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> mergedEnvironment(const std::vector<std::string>& added)
{
    std::vector<std::string> environment = added;
    for (char** variable = ::environ; *variable; ++variable) {
        const std::string_view existing(*variable);
        const auto name = existing.substr(0, existing.find('=') + 1);
        bool isReplaced = false;
        for (const auto& replacement : added)
            isReplaced = isReplaced || replacement.starts_with(name);
        if (!isReplaced)
            environment.emplace_back(existing);
    }
    return environment;
}

class FileActions {
public:
    FileActions() { ::posix_spawn_file_actions_init(&m_actions); }

    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    ~FileActions() { ::posix_spawn_file_actions_destroy(&m_actions); }

    void redirect(const FileDescriptor& file, int number)
    {
        ::posix_spawn_file_actions_adddup2(&m_actions, file.get(), number);
    }

    void enterFolder(const std::string& folder)
    {
        ::posix_spawn_file_actions_addchdir_np(&m_actions, folder.c_str());
    }

    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions{};
};

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments, const std::string& folder,
                           std::string_view input, const std::vector<std::string>& environment)
    : m_input(memoryFile(input))
    , m_output(memoryFile())
    , m_error(memoryFile())
{
    FileActions actions;
    actions.redirect(m_input, STDIN_FILENO);
    actions.redirect(m_output, STDOUT_FILENO);
    actions.redirect(m_error, STDERR_FILENO);
    actions.enterFolder(folder);
    auto ownedArguments = arguments;
    auto ownedEnvironment = mergedEnvironment(environment);
    const int failure = ::posix_spawn(&m_identifier, arguments.at(0).c_str(), actions.get(), nullptr,
                                      pointers(ownedArguments).data(), pointers(ownedEnvironment).data());
    if (failure != 0)
        throw std::system_error(failure, std::generic_category(), arguments[0]);
}

ChildProcess::~ChildProcess()
{
    if (m_identifier < 0)
        return;
    ::kill(m_identifier, SIGKILL);
    ::waitpid(m_identifier, nullptr, 0);
}

std::string ChildProcess::outputSoFar() const
{
    return readFile(m_output.get(), kMaximumOutput).value_or(std::string());
}

void ChildProcess::sendSignal(int number) const
{
    ::kill(m_identifier, number);
}

ChildProcess::Outcome ChildProcess::wait()
{
    const FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, m_identifier, 0)));
    pollfd ended{process.get(), POLLIN, 0};
    if (::poll(&ended, 1, kPatienceMilliseconds) == 0)
        sendSignal(SIGKILL);
    int status = 0;
    ::waitpid(m_identifier, &status, 0);
    m_identifier = -1;
    constexpr int kSignalBase = 128;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : kSignalBase + WTERMSIG(status), outputSoFar(),
            readFile(m_error.get(), kMaximumOutput).value_or(std::string())};
}
