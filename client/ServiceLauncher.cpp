#include "client/ServiceLauncher.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSURL.h"
#include "platform/xpc/FileLock.h"
#include "platform/xpc/UnixSocket.h"

#include <systemd/sd-journal.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <syslog.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr const char* kProgramName = "corvel-indexing";
constexpr std::chrono::seconds kStartTime{10};
constexpr int kPollMilliseconds = 2;
constexpr unsigned kFirstPrivateDescriptor = 3;

/// What the new process tells through the pipe: its number, or why it could not be.
struct LaunchReport {
    pid_t process = 0;
    int failure = 0;
};

struct LaunchPlan {
    const char* program;
    std::array<const char*, 4> arguments;
    int nullDevice;
    int log;
    int report;
};

void tell(int pipe, LaunchReport report)
{
    (void)!::write(pipe, &report, sizeof(report)); // Nobody is left to be told otherwise.
}

void resetSignals()
{
    sigset_t none{};
    (void)::sigemptyset(&none);
    (void)::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGCHLD})
        (void)::signal(number, SIG_DFL);
}

// Runs between fork and exec, where nothing may be called that takes a lock or memory.
[[noreturn]] void becomeService(const LaunchPlan& plan)
{
    resetSignals();
    tell(plan.report, {::getpid(), 0});
    const bool isReady = ::dup2(plan.nullDevice, STDIN_FILENO) >= 0
        && ::dup2(plan.nullDevice, STDOUT_FILENO) >= 0 && ::dup2(plan.log, STDERR_FILENO) >= 0
        && ::chdir("/") == 0;
    // What the host left open is not the service's business. An old kernel lets the service keep it.
    (void)::close_range(kFirstPrivateDescriptor, ~0U, CLOSE_RANGE_CLOEXEC);
    if (isReady)
        ::execv(plan.program, const_cast<char* const*>(plan.arguments.data()));
    tell(plan.report, {::getpid(), errno});
    ::_exit(EXIT_FAILURE);
}

// The child starts the service and ends at once, so that the service is never the caller's to wait for.
[[noreturn]] void forkAgain(const LaunchPlan& plan)
{
    (void)::setsid(); // It cannot fail in a process that has just been made.
    const pid_t process = ::fork();
    if (process == 0)
        becomeService(plan);
    if (process < 0)
        tell(plan.report, {0, errno});
    ::_exit(process < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
}

FileDescriptor openLog()
{
    FileDescriptor journal(sd_journal_stream_fd(kProgramName, LOG_NOTICE, 0));
    return journal.isValid() ? std::move(journal) : FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC));
}

void waitForChild(pid_t child)
{
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
}

/// The last that the new process told before it became the service or gave up.
LaunchReport readReport(int pipe)
{
    LaunchReport last{0, EPROTO};
    LaunchReport report;
    ssize_t count = 0;
    do {
        count = ::read(pipe, &report, sizeof(report));
        if (count == static_cast<ssize_t>(sizeof(report)))
            last = report;
    } while (count > 0 || (count < 0 && errno == EINTR));
    return last;
}

LaunchReport launch(const std::string& program, const std::string& socketPath)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return {0, errno};
    const FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);
    const FileDescriptor nullDevice(::open("/dev/null", O_RDWR | O_CLOEXEC));
    const FileDescriptor log = openLog();
    const LaunchPlan plan{program.c_str(),
                          {program.c_str(), "--socket", socketPath.c_str(), nullptr},
                          nullDevice.get(),
                          log.get(),
                          writeEnd.get()};
    const pid_t child = ::fork();
    if (child == 0)
        forkAgain(plan);
    if (child < 0)
        return {0, errno};
    waitForChild(child);
    writeEnd = FileDescriptor();
    return readReport(readEnd.get());
}

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
    const auto report = program.empty() ? LaunchReport{0, ENOENT} : launch(program, socketPath);
    if (report.failure == 0)
        return waitForService(socketPath, report.process, error);
    setError(error, NSError::errorWithErrno(report.failure, program.empty() ? kProgramName : program));
    return {};
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
