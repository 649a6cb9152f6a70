#include "client/DetachedProcess.h"

#include "platform/foundation/FileDescriptor.h"

#include <systemd/sd-journal.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <syslog.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr unsigned kFirstPrivateDescriptor = 3;

/// What the new process tells through the pipe: its number, or why it could not be.
struct LaunchReport {
    pid_t process = 0;
    int failure = 0;
};

/// All that is needed after the fork, made before it.
struct LaunchPlan {
    std::vector<const char*> arguments;
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
[[noreturn]] void becomeProgram(const LaunchPlan& plan)
{
    resetSignals();
    tell(plan.report, {::getpid(), 0});
    const bool isReady = ::dup2(plan.nullDevice, STDIN_FILENO) >= 0
        && ::dup2(plan.nullDevice, STDOUT_FILENO) >= 0 && ::dup2(plan.log, STDERR_FILENO) >= 0
        && ::chdir("/") == 0;
    // What this process left open is not the program's business. An old kernel lets the program keep it.
    (void)::close_range(kFirstPrivateDescriptor, ~0U, CLOSE_RANGE_CLOEXEC);
    if (isReady)
        ::execv(plan.arguments.front(), const_cast<char* const*>(plan.arguments.data()));
    tell(plan.report, {::getpid(), errno});
    ::_exit(EXIT_FAILURE);
}

// The child starts the program and ends at once, so that the program is never the caller's to wait for.
[[noreturn]] void forkAgain(const LaunchPlan& plan)
{
    (void)::setsid(); // It cannot fail in a process that has just been made.
    const pid_t process = ::fork();
    if (process == 0)
        becomeProgram(plan);
    if (process < 0)
        tell(plan.report, {0, errno});
    ::_exit(process < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
}

FileDescriptor openLog(const std::string& name)
{
    FileDescriptor journal(sd_journal_stream_fd(name.c_str(), LOG_NOTICE, 0));
    return journal.isValid() ? std::move(journal) : FileDescriptor(::open("/dev/null", O_WRONLY | O_CLOEXEC));
}

void waitForChild(pid_t child)
{
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
}

/// The last that the new process told before it became the program or gave up.
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

LaunchReport launch(const std::vector<std::string>& arguments, const std::string& logName)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return {0, errno};
    const FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);
    const FileDescriptor nullDevice(::open("/dev/null", O_RDWR | O_CLOEXEC));
    const FileDescriptor log = openLog(logName);
    LaunchPlan plan{{}, nullDevice.get(), log.get(), writeEnd.get()};
    for (const auto& argument : arguments)
        plan.arguments.push_back(argument.c_str());
    plan.arguments.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0)
        forkAgain(plan);
    if (child < 0)
        return {0, errno};
    waitForChild(child);
    writeEnd = FileDescriptor();
    return readReport(readEnd.get());
}

} // namespace

std::optional<pid_t> startDetachedProcess(const std::vector<std::string>& arguments,
                                          const std::string& logName, NSError* error)
{
    const auto report = launch(arguments, logName);
    if (report.failure == 0)
        return report.process;
    setError(error, NSError::errorWithErrno(report.failure, arguments.front()));
    return std::nullopt;
}
