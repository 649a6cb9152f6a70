#include "client/ServiceLauncher.h"

#include "client/DetachedProcess.h"
#include "platform/foundation/FileLock.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSURL.h"
#include "platform/xpc/UnixSocket.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <poll.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr const char* kProgramName = "corvel-indexing";
constexpr std::chrono::seconds kStartTime{10};
constexpr int kPollMilliseconds = 2;

bool isAbsence(const NSError& error)
{
    return error.code() == ENOENT || error.code() == ECONNREFUSED;
}

// Waits a moment, or shorter when the process ends. A descriptor of -1 (an old kernel, a process that is
// gone) just waits.
bool hasEndedAfterAMoment(int process)
{
    pollfd waited{process, POLLIN, 0};
    return ::poll(&waited, 1, kPollMilliseconds) > 0;
}

FileDescriptor waitForService(const std::string& socketPath, pid_t process, NSError* error)
{
    const FileDescriptor watched(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
    const auto deadline = std::chrono::steady_clock::now() + kStartTime;
    NSError reason;
    while (true) {
        // Asked first: a process that finds another listening ends only after that.
        const bool hasEnded = hasEndedAfterAMoment(watched.get());
        auto socket = connectToSocket(socketPath, &reason);
        if (socket.isValid())
            return socket;
        if (hasEnded)
            reason = NSError::errorWithErrno(ECONNREFUSED,
                                             "the service ended before it listened at " + socketPath);
        if (hasEnded || !isAbsence(reason) || std::chrono::steady_clock::now() >= deadline) {
            setError(error, reason);
            return {};
        }
    }
}

std::string absolutePath(const std::string& path)
{
    return NSURL::fileURLWithPath(path).path();
}

bool isProgram(const std::filesystem::path& path)
{
    std::error_code ignored; // What cannot be looked at is no program.
    return std::filesystem::is_regular_file(path, ignored) && ::access(path.c_str(), X_OK) == 0;
}

// One host at a time starts the service; the others find it when their turn comes.
FileDescriptor startService(const std::string& socketPath, const std::string& servicePath, NSError* error)
{
    const auto folder = NSURL::fileURLWithPath(socketPath).URLByDeletingLastPathComponent();
    if (!NSFileManager::createDirectoryAtURL(folder, true, error))
        return {};
    const auto lock = lockFile(socketPath + ".lock", kStartTime, error);
    if (!lock.isValid())
        return {};
    auto socket = connectToSocket(socketPath);
    if (socket.isValid())
        return socket;
    const auto program = servicePath.empty() ? findServiceProgram() : absolutePath(servicePath);
    if (program.empty()) {
        setError(error, NSError::errorWithErrno(ENOENT, kProgramName));
        return {};
    }
    const auto process = startDetachedProcess({program, "--socket", socketPath}, kProgramName, error);
    return process ? waitForService(socketPath, *process, error) : FileDescriptor();
}

} // namespace

FileDescriptor connectStartingService(const std::string& socketPath, const std::string& servicePath,
                                      NSError* error)
{
    NSError reason;
    auto socket = connectToSocket(socketPath, &reason);
    if (socket.isValid())
        return socket;
    if (isAbsence(reason))
        return startService(absolutePath(socketPath), servicePath, error);
    setError(error, reason);
    return {};
}

std::string findServiceProgram()
{
    std::error_code failure;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (const auto beside = own.parent_path() / kProgramName; !failure && isProgram(beside))
        return beside.native();
    const char* variable = std::getenv("PATH"); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    const std::string searchPath = variable ? variable : "";
    for (std::size_t begin = 0; begin < searchPath.size();) {
        const auto end = std::min(searchPath.find(':', begin), searchPath.size());
        const auto candidate = std::filesystem::path(searchPath.substr(begin, end - begin)) / kProgramName;
        if (candidate.is_absolute() && isProgram(candidate))
            return candidate.native();
        begin = end + 1;
    }
    return {};
}
