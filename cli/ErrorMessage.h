#pragma once

#include "platform/foundation/NSError.h"

#include <string>

/// The errors that the command line finds itself, beside those that the service and the file system give.
enum class CommandError : int {
    /// The service went away with the item in hand; it is unknown whether the item was indexed.
    ServiceLost = 1,
    /// The service had gone away before the item could be sent.
    NotSent = 2,
    /// Neither a file nor a folder.
    NotAFile = 3,
    /// The item could not be prepared for sending.
    NotPrepared = 4,
};

inline constexpr std::string_view kCommandErrorDomain = "corvel";

[[nodiscard]] NSError commandError(CommandError code, const std::string& description);

/// What an error means, for people, with the errors beneath it: one line without the name of what failed.
[[nodiscard]] std::string errorMessage(const NSError& error);

/// The same without the file's name at its front, for a line that begins with `path` already.
[[nodiscard]] std::string errorReason(const NSError& error, const std::string& path);
