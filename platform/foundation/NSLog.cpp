#include "platform/foundation/NSLog.h"

#include <systemd/sd-journal.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

namespace {

struct Receiver {
    std::mutex mutex;
    std::function<void(std::string_view)> function;
};

Receiver& receiver()
{
    static Receiver instance;
    return instance;
}

// systemd names the device and inode of the stream it connected to the journal; only that one is worth
// bypassing.
bool standardErrorIsJournal()
{
    const char* named = std::getenv("JOURNAL_STREAM"); // NOLINT(concurrency-mt-unsafe): nobody sets variables

    struct stat status { };

    if (!named || ::fstat(STDERR_FILENO, &status) != 0)
        return false;
    return fmt::format("{}:{}", status.st_dev, status.st_ino) == named;
}

std::string escapedLine(std::string_view line)
{
    std::string escaped;
    escaped.reserve(line.size());
    for (const char character : line) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F)
            fmt::format_to(std::back_inserter(escaped), "\\x{:02x}", byte);
        else
            escaped += character;
    }
    return escaped;
}

void writeLine(std::string_view line)
{
    const std::string escaped = escapedLine(line);
    {
        const std::lock_guard lock(receiver().mutex);
        if (receiver().function) {
            receiver().function(escaped);
            return;
        }
    }
    static const bool journal = standardErrorIsJournal();
    if (journal && sd_journal_print(LOG_NOTICE, "%s", escaped.c_str()) == 0)
        return;
    fmt::print(stderr, "{}\n", escaped);
}

} // namespace

void NSLogLine(std::string_view line) noexcept
{
    try {
        writeLine(line);
    } catch (const std::exception&) {
        (void)std::fputs("a log line could not be written\n", stderr);
    }
}

NSLogCapture::NSLogCapture(std::function<void(std::string_view)> function)
{
    const std::lock_guard lock(receiver().mutex);
    receiver().function = std::move(function);
}

NSLogCapture::~NSLogCapture()
{
    const std::lock_guard lock(receiver().mutex);
    receiver().function = nullptr;
}
