#include "platform/xpc/ListeningSocket.h"

#include "platform/foundation/FileLock.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/xpc/SocketAddress.h"
#include "platform/xpc/UnixSocket.h"

#include <systemd/sd-daemon.h>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr mode_t kSocketMode = 0600;
constexpr std::chrono::seconds kLockTime{5};

bool report(NSError* error, int code, const std::string& what)
{
    setError(error, NSError::errorWithErrno(code, what));
    return false;
}

std::string folderOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

bool removeStaleSocket(const std::string& path, NSError* error)
{
    struct stat status { };

    if (::lstat(path.c_str(), &status) != 0)
        return errno == ENOENT || report(error, errno, path);
    if (!S_ISSOCK(status.st_mode))
        return report(error, EEXIST, path);
    NSError reason;
    if (connectToSocket(path, &reason).isValid())
        return report(error, EADDRINUSE, path);
    if (reason.code() != ECONNREFUSED)
        return report(error, reason.code(), path);
    return ::unlink(path.c_str()) == 0 || report(error, errno, path);
}

bool bindPrivately(int descriptor, const sockaddr_un& address)
{
    // On Linux the socket's file gets the mode of its descriptor, so that it is never open to others.
    return ::fchmod(descriptor, kSocketMode) == 0
        && ::bind(descriptor, asGeneric(address), sizeof(address)) == 0
        && ::chmod(address.sun_path, kSocketMode) == 0 && ::listen(descriptor, SOMAXCONN) == 0;
}

} // namespace

ListeningSocket::ListeningSocket(FileDescriptor descriptor, std::string path)
    : m_descriptor(std::move(descriptor))
    , m_path(std::move(path))
{
    struct stat status { };

    if (!m_path.empty() && ::lstat(m_path.c_str(), &status) == 0) {
        m_device = status.st_dev;
        m_inode = status.st_ino;
    }
}

ListeningSocket::~ListeningSocket()
{
    removeFromFileSystem();
}

std::unique_ptr<ListeningSocket> ListeningSocket::passedBySystemd(NSError* error)
{
    const int count = sd_listen_fds(1);
    if (count <= 0)
        return nullptr;
    FileDescriptor descriptor(SD_LISTEN_FDS_START);
    if (count != 1 || sd_is_socket_unix(descriptor.get(), SOCK_STREAM, 1, nullptr, 0) <= 0) {
        report(error, ENOTSOCK, "the sockets passed by systemd");
        return nullptr;
    }
    const int flags = ::fcntl(descriptor.get(), F_GETFL);
    if (flags < 0 || ::fcntl(descriptor.get(), F_SETFL, flags | O_NONBLOCK) != 0) {
        report(error, errno, "the socket passed by systemd");
        return nullptr;
    }
    return std::unique_ptr<ListeningSocket>(new ListeningSocket(std::move(descriptor), {}));
}

std::unique_ptr<ListeningSocket> ListeningSocket::listenAt(const std::string& path, NSError* error)
{
    const auto address = socketAddress(path, error);
    if (!address)
        return nullptr;
    const auto folder = folderOf(path);
    if (!NSFileManager::createDirectoryAtURL(NSURL::fileURLWithPath(folder), true, error))
        return nullptr;
    const auto lock = lockFolder(folder, kLockTime, error);
    if (!lock.isValid() || !removeStaleSocket(path, error))
        return nullptr;
    FileDescriptor descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!descriptor.isValid() || !bindPrivately(descriptor.get(), *address)) {
        report(error, errno, path);
        return nullptr;
    }
    return std::unique_ptr<ListeningSocket>(new ListeningSocket(std::move(descriptor), path));
}

FileDescriptor ListeningSocket::accept() const
{
    return FileDescriptor(::accept4(m_descriptor.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

void ListeningSocket::removeFromFileSystem()
{
    const auto path = std::exchange(m_path, {});
    if (path.empty())
        return;
    const auto lock = lockFolder(folderOf(path), kLockTime);

    struct stat status { };

    if (!lock.isValid() || ::lstat(path.c_str(), &status) != 0)
        return;
    if (status.st_dev == m_device && status.st_ino == m_inode)
        (void)::unlink(path.c_str()); // Who finds it later sees that nobody listens, and replaces it.
}
