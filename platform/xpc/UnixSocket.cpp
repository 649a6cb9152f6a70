#include "platform/xpc/UnixSocket.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/xpc/SocketAddress.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdlib>
#include <sys/socket.h>
#include <unistd.h>

FileDescriptor connectToSocket(const std::string& path, NSError* error)
{
    const auto address = socketAddress(path, error);
    if (!address)
        return {};
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    int result = socket.isValid() ? 0 : -1;
    if (result == 0) {
        do
            result = ::connect(socket.get(), asGeneric(*address), sizeof(*address));
        while (result != 0 && errno == EINTR);
    }
    if (result == 0)
        return socket;
    setError(error, NSError::errorWithErrno(errno, path));
    return {};
}

std::string defaultSocketPath()
{
    constexpr const char* kSocketPath = "/corvel/indexing.sock";
    const char* runtime
        = std::getenv("XDG_RUNTIME_DIR"); // NOLINT(concurrency-mt-unsafe): nobody sets variables
    if (runtime && *runtime == '/')
        return std::string(runtime) + kSocketPath;
    const auto usual = fmt::format("/run/user/{}", ::getuid());
    if (::access(usual.c_str(), W_OK) == 0)
        return usual + kSocketPath;
    return fmt::format("{}/corvel-{}/indexing.sock", NSFileManager::temporaryDirectory().path(), ::getuid());
}
