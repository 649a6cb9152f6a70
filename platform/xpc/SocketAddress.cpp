#include "platform/xpc/SocketAddress.h"

#include <algorithm>
#include <cerrno>

std::optional<sockaddr_un> socketAddress(const std::string& path, NSError* error)
{
    sockaddr_un address{};
    if (path.empty() || path.find('\0') != std::string::npos || path.size() >= sizeof(address.sun_path)) {
        setError(
            error,
            NSError::errorWithErrno(path.size() >= sizeof(address.sun_path) ? ENAMETOOLONG : EINVAL, path));
        return std::nullopt;
    }
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    return address;
}

const sockaddr* asGeneric(const sockaddr_un& address)
{
    return reinterpret_cast<const sockaddr*>(&address);
}
