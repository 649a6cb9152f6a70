#include "platform/foundation/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <utility>

namespace {

constexpr mode_t kLockMode = 0600;
constexpr std::chrono::milliseconds kPollTime{2};

FileDescriptor locked(FileDescriptor file, const std::string& path, std::chrono::milliseconds patience,
                      NSError* error)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (file.isValid()) {
        if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
            return file;
        if ((errno != EWOULDBLOCK && errno != EINTR) || std::chrono::steady_clock::now() >= deadline)
            break;
        std::this_thread::sleep_for(kPollTime);
    }
    setError(error, NSError::errorWithErrno(errno, path));
    return {};
}

} // namespace

FileDescriptor lockFolder(const std::string& path, std::chrono::milliseconds patience, NSError* error)
{
    return locked(FileDescriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), path, patience,
                  error);
}

FileDescriptor lockFile(const std::string& path, std::chrono::milliseconds patience, NSError* error)
{
    constexpr int kFlags = O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC;
    return locked(FileDescriptor(::open(path.c_str(), kFlags, kLockMode)), path, patience, error);
}
