#pragma once

#include "platform/foundation/NSError.h"

#include <optional>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>

/// The address of a socket in the file system; none with the reason in `error` when the path is empty, too
/// long for the system (107 bytes) or holds a NUL.
[[nodiscard]] std::optional<sockaddr_un> socketAddress(const std::string& path, NSError* error = nullptr);

/// The address as the socket calls take it.
[[nodiscard]] const sockaddr* asGeneric(const sockaddr_un& address);
